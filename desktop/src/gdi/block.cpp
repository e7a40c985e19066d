// Reading of source pixels for blits: clipping, stretching, and conversion between mono and colour.
#include <algorithm>

#include "dib.h"
#include "paint.h"

namespace desktop {
namespace {

// How one axis of a source falls on a destination: positions of both, sizes of either sign.
struct Axis {
  int to;
  int toSize;
  int from;
  int fromSize;

  // The first source position and one past the last (in walking order) for destination offset i.
  void Sources(int i, int& first, int& last) const {
    long long big = std::abs(static_cast<long long>(toSize));
    long long size = std::abs(static_cast<long long>(fromSize));
    bool mirrored = (toSize < 0) != (fromSize < 0);
    long long step = mirrored ? big - 1 - i : i;
    long long start = size >= big ? step * size / big : (2 * step + 1) * size / (2 * big);
    long long end = size > big ? std::max(start + 1, (step + 1) * size / big) : start + 1;
    first = static_cast<int>(start) + Low(from, fromSize);
    last = static_cast<int>(end) + Low(from, fromSize);
  }
  // A negative size reaches to the left or up, from the position itself.
  static int Low(int position, int size) { return size < 0 ? position + size + 1 : position; }
  int ToLow() const { return Low(to, toSize); }
};

struct Span {
  int begin = 0;
  int end = 0;
};

// The destination offsets that are within [low, high) and read from [0, limit) only.
Span ValidOffsets(const Axis& axis, int low, int high, int limit) {
  int begin = std::max(0, low - axis.ToLow());
  int end = std::min(std::abs(axis.toSize), high - axis.ToLow());
  auto valid = [&](int i) {
    int first;
    int last;
    axis.Sources(i, first, last);
    return first >= 0 && last <= limit;
  };
  while (begin < end && !valid(begin)) ++begin;
  while (begin < end && !valid(end - 1)) --end;
  return {begin, std::max(begin, end)};
}

uint32_t Average(const PixelView& pixels, int x0, int x1, int y0, int y1) {
  uint32_t sums[4] = {};
  auto count = static_cast<uint32_t>((x1 - x0) * (y1 - y0));
  for (int y = y0; y < y1; ++y) {
    for (int x = x0; x < x1; ++x) {
      uint32_t word = pixels.row(y)[x];
      for (int c = 0; c < 4; ++c) sums[c] += (word >> (8 * c)) & 0xff;
    }
  }
  uint32_t result = 0;
  for (int c = 0; c < 4; ++c) result |= (sums[c] / count) << (8 * c);
  return result;
}

// The word for a destination pixel onto which several source pixels fall.
uint32_t Merge(const PixelView& pixels, int mode, int x0, int x1, int y0, int y1) {
  if (mode == HALFTONE) return Average(pixels, x0, x1, y0, y1);
  uint32_t word = pixels.row(y0)[x0];
  if (mode == COLORONCOLOR) return word;
  for (int y = y0; y < y1; ++y) {
    for (int x = x0; x < x1; ++x) {
      if (mode == BLACKONWHITE) {
        word &= pixels.row(y)[x];
      } else {
        word |= pixels.row(y)[x];
      }
    }
  }
  return word;
}

// Mono to colour and back, in place.
void Convert(const DeviceContext& dc, const DeviceContext& source, std::vector<uint32_t>& words) {
  bool fromMono = source.IsMono();
  bool toMono = dc.IsMono();
  if (fromMono == toMono) return;
  if (fromMono) {
    uint32_t black = ColorWord(dc, dc.state.textColor);
    uint32_t white = ColorWord(dc, dc.state.bkColor);
    for (uint32_t& word : words) word = word ? white : black;
    return;
  }
  uint32_t ground = ToWord(source.state.bkColor);
  for (uint32_t& word : words) word = (word & 0xffffff) == ground ? 0xffffff : 0;
}

}  // namespace

Block ReadBlock(DeviceContext& dc, DeviceContext& source, const BlitShape& shape, bool raw) {
  Block block;
  Canvas canvas(source);
  canvas.ReadOnly();
  const PixelView& pixels = canvas.Pixels();
  if (!pixels || !shape.width || !shape.height || !shape.sourceWidth || !shape.sourceHeight) return block;
  RECT bounds = dc.Clip().Bounds();
  Axis across{shape.x, shape.width, shape.sourceX, shape.sourceWidth};
  Axis down{shape.y, shape.height, shape.sourceY, shape.sourceHeight};
  Span columns = ValidOffsets(across, bounds.left, bounds.right, pixels.width);
  Span rows = ValidOffsets(down, bounds.top, bounds.bottom, pixels.height);
  block.area = {across.ToLow() + columns.begin, down.ToLow() + rows.begin, across.ToLow() + columns.end,
                down.ToLow() + rows.end};
  if (columns.begin == columns.end || rows.begin == rows.end) {
    block.area = {};
    return block;
  }
  block.words.reserve(block.Width() * static_cast<size_t>(rows.end - rows.begin));
  bool plain = shape.width == shape.sourceWidth && shape.height == shape.sourceHeight && shape.width > 0;
  for (int j = rows.begin; j < rows.end; ++j) {
    int y0;
    int y1;
    down.Sources(j, y0, y1);
    if (plain) {
      const uint32_t* first = pixels.row(y0) + shape.sourceX + columns.begin;
      block.words.insert(block.words.end(), first, first + block.Width());
      continue;
    }
    for (int i = columns.begin; i < columns.end; ++i) {
      int x0;
      int x1;
      across.Sources(i, x0, x1);
      block.words.push_back(Merge(pixels, dc.state.stretchMode, x0, x1, y0, y1));
    }
  }
  if (!raw) Convert(dc, source, block.words);
  return block;
}

}  // namespace desktop
