#!/usr/bin/env python3
"""Turns pictures drawn as text into the files that a resource script includes.

    make_pictures.py OUTPUT_FOLDER picture.txt...      one .bmp, .cur or .ico for each text
    make_pictures.py --sheet sheet.png picture.txt...  all of them, eight times enlarged, to look at

A picture is a head, an empty line and the rows:

    ; A comment.
    bitmap 18 9            kind (bitmap, cursor or icon), width, height
    hotspot 0 0            cursors only
    . clear                one character and its colour: #RRGGBB, clear, or invert (cursors only)
    b #7A869A

    .bbbb. .bbbb.          blanks are free: they may keep the images of a strip apart

Rows and columns left out at the bottom and at the right have the first colour of the head.
"""
import pathlib
import struct
import sys
import zlib

CLEAR = "clear"
INVERT = "invert"
BLACK = (0, 0, 0)
WHITE = (255, 255, 255)


class Picture:
    """One text file, checked, as rows of colours."""

    def __init__(self, path):
        self.path = path
        self.kind = None
        self.width = self.height = 0
        self.hotspot = (0, 0)
        palette = {}
        head, _, body = path.read_text(encoding="utf-8").partition("\n\n")
        for line in head.splitlines():
            if line and not line.startswith(";"):
                self._head_line(line, palette)
        if self.kind is None or not palette:
            self._fail("the head lacks a kind or colours")
        rows = ["".join(line.split()) for line in body.splitlines()]
        while rows and not rows[-1]:
            rows.pop()
        if len(rows) > self.height or any(len(row) > self.width for row in rows):
            self._fail("there are more pixels than the head says")
        blank = next(iter(palette))
        rows += [""] * (self.height - len(rows))
        try:
            self.rows = [[palette[c] for c in row.ljust(self.width, blank)] for row in rows]
        except KeyError as unknown:
            self._fail(f"no colour is given for {unknown}")

    def _head_line(self, line, palette):
        words = line.split()
        if words[0] in ("bitmap", "cursor", "icon") and len(words) == 3:
            self.kind, self.width, self.height = words[0], int(words[1]), int(words[2])
        elif words[0] == "hotspot" and len(words) == 3:
            self.hotspot = (int(words[1]), int(words[2]))
        elif len(words) == 2 and len(words[0]) == 1:
            palette[words[0]] = self._colour(words[1])
        else:
            self._fail(f"not understood: {line}")

    def _colour(self, text):
        if text in (CLEAR, INVERT):
            return text
        if len(text) == 7 and text[0] == "#":
            return tuple(bytes.fromhex(text[1:]))
        self._fail(f"no colour: {text}")

    def _fail(self, reason):
        sys.exit(f"{self.path}: {reason}")

    def file(self):
        """Name and content of the file that this picture becomes."""
        suffix, content = {
            "bitmap": (".bmp", bitmap_file),
            "cursor": (".cur", cursor_file),
            "icon": (".ico", icon_file),
        }[self.kind]
        return self.path.stem + suffix, content(self)


def packed_rows(rows, bits):
    """Rows of small numbers as the bottom-up, 4-byte aligned rows of a device independent bitmap."""
    out = bytearray()
    for row in reversed(rows):
        value = 0
        for number in row:
            value = value << bits | number
        length = (len(row) * bits + 31) // 32 * 4
        out += (value << (length * 8 - len(row) * bits)).to_bytes(length, "big")
    return bytes(out)


def info_header(width, height, bits, colours):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, 0, 0, 0, colours, 0)


def bitmap_file(picture):
    colours = sorted({pixel for row in picture.rows for pixel in row})
    if any(isinstance(colour, str) for colour in colours) or len(colours) > 256:
        sys.exit(f"{picture.path}: a bitmap has at most 256 plain colours")
    bits = 4 if len(colours) <= 16 else 8
    table = b"".join(struct.pack("BBBB", b, g, r, 0) for r, g, b in colours)
    pixels = packed_rows([[colours.index(pixel) for pixel in row] for row in picture.rows], bits)
    start = 14 + 40 + len(table)
    return (
        struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start)
        + info_header(picture.width, picture.height, bits, len(colours))
        + table
        + pixels
    )


def cursor_file(picture):
    """A monochrome cursor: its two masks tell screen, black, white and inverted screen apart."""
    masks = {CLEAR: (1, 0), INVERT: (1, 1), BLACK: (0, 0), WHITE: (0, 1)}
    try:
        pairs = [[masks[pixel] for pixel in row] for row in picture.rows]
    except KeyError as unknown:
        sys.exit(f"{picture.path}: a cursor has no colour {unknown}")
    image = info_header(picture.width, picture.height * 2, 1, 2) + struct.pack("<II", 0, 0xFFFFFF)
    for mask in (1, 0):
        image += packed_rows([[pair[mask] for pair in row] for row in pairs], 1)
    return directory(2, picture, picture.hotspot, image)


def icon_file(picture):
    if INVERT in (pixel for row in picture.rows for pixel in row):
        sys.exit(f"{picture.path}: an icon cannot invert")
    image = info_header(picture.width, picture.height * 2, 32, 0)
    for row in reversed(picture.rows):
        for pixel in row:
            image += bytes(4) if pixel == CLEAR else bytes((pixel[2], pixel[1], pixel[0], 255))
    image += packed_rows([[int(pixel == CLEAR) for pixel in row] for row in picture.rows], 1)
    return directory(1, picture, (1, 32), image)


def directory(kind, picture, pair, image):
    """A cursor or icon file with one image; pair is the hot spot, or the planes and bits of an icon."""
    size = (picture.width % 256, picture.height % 256)
    return struct.pack("<HHHBBBBHHII", 0, kind, 1, *size, 0, 0, *pair, len(image), 22) + image


def sheet(pictures, zoom=8, gap=2):
    """All pictures in a column on a grey ground, as a PNG; inverted pixels are shown red."""
    ground = (0xC8, 0xC8, 0xC8)
    width = max(picture.width for picture in pictures) + 2 * gap
    rows = []
    for picture in pictures:
        rows += [[ground] * width for _ in range(gap)]
        for row in picture.rows:
            shown = [{CLEAR: ground, INVERT: (255, 0, 0)}.get(pixel, pixel) for pixel in row]
            rows.append([ground] * gap + shown + [ground] * (width - gap - len(shown)))
    rows += [[ground] * width for _ in range(gap)]
    lines = b""
    for row in rows:
        lines += (b"\0" + b"".join(bytes(pixel) * zoom for pixel in row)) * zoom

    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    head = struct.pack(">IIBBBBB", width * zoom, len(rows) * zoom, 8, 2, 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", head)
        + chunk(b"IDAT", zlib.compress(lines))
        + chunk(b"IEND", b"")
    )


def main(arguments):
    if len(arguments) >= 3 and arguments[0] == "--sheet":
        pictures = [Picture(pathlib.Path(name)) for name in arguments[2:]]
        pathlib.Path(arguments[1]).write_bytes(sheet(pictures))
        return
    if len(arguments) < 2:
        sys.exit(__doc__)
    folder = pathlib.Path(arguments[0])
    folder.mkdir(parents=True, exist_ok=True)
    for name in arguments[1:]:
        target, content = Picture(pathlib.Path(name)).file()
        (folder / target).write_bytes(content)


if __name__ == "__main__":
    main(sys.argv[1:])
