// Cursors drawn as text, icons drawn with the drawing calls.
#include "system_pictures.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

namespace desktop {

namespace {

constexpr int kSize = 32;
constexpr int kRowBytes = kSize / 8;

// 'x' is black, 'o' white, anything else lets the ground through. Missing rows and columns are empty.
using Rows = std::array<std::string_view, 24>;

struct CursorPicture {
  WORD id;
  int hotX;
  int hotY;
  Rows rows;
};

constexpr Rows kArrow = {"x",           "xx",         "xox",        "xoox",      "xooox",
                         "xoooox",      "xooooox",    "xoooooox",   "xooooooox", "xoooooooox",
                         "xoooooxxxxx", "xooxoox",    "xoxxxoox",   "xx  xoox",  "x    xoox",
                         "     xoox",   "      xoox", "      xoox", "       xx"};
constexpr Rows kBeam = {"xxx xxx", "   x", "   x", "   x", "   x", "   x", "   x", "   x",
                        "   x",    "   x", "   x", "   x", "   x", "   x", "   x", "xxx xxx"};
constexpr Rows kWait = {"xxxxxxxxxxxxx", "xooooooooooox", "xxxxxxxxxxxxx", " xooooooooox",  " xooooooooox",
                        " xoxoxoxoxox",  " xooxoxoxoox",  "  xooxoxoox",   "   xooxoox",    "    xoxox",
                        "    xooox",     "    xoxox",     "   xooxoox",    "  xoooooxox",   " xooooxoooox",
                        " xoooxoxooox",  " xooxoxoxoox",  " xoxoxoxoxox",  "xxxxxxxxxxxxx", "xooooooooooox",
                        "xxxxxxxxxxxxx"};
constexpr Rows kCross = {"         ", "        x", "        x",        "        x", "        x", "        x",
                         "        x", "        x", " xxxxxxxxxxxxxxx", "        x", "        x", "        x",
                         "        x", "        x", "        x",        "        x"};
constexpr Rows kUp = {"    x",  "   xox", "  xooox", " xooooox", "xxxxoxxxx", "   xox", "   xox", "   xox",
                      "   xox", "   xox", "   xox",  "   xox",   "   xox",    "   xox", "   xox", "   xxx"};
constexpr Rows kSizeNwse = {"xxxxxxx",        "xooooox",       "xoooox",         "xooox",
                            "xooxoox",        "xox xoox",      "xx   xoox   xx", "      xoox xox",
                            "       xooxoox", "        xooox", "       xoooox",  "      xooooox",
                            "      xxxxxxx"};
constexpr Rows kSizeNesw = {"      xxxxxxx",  "      xooooox",  "       xoooox",  "        xooox",
                            "       xooxoox", "      xoox xox", "xx   xoox   xx", "xox xoox",
                            "xooxoox",        "xooox",          "xoooox",         "xooooox",
                            "xxxxxxx"};
constexpr Rows kSizeWe = {"    x         x",    "   xx         xx",   "  xox         xox",
                          " xooxxxxxxxxxxxoox", "xoooooooooooooooox", " xooxxxxxxxxxxxoox",
                          "  xox         xox",  "   xx         xx",   "    x         x"};
constexpr Rows kSizeNs = {"    x",  "   xox",    "  xooox",  " xooooox", "xxxxoxxxx", "   xox",
                          "   xox", "   xox",    "   xox",   "   xox",   "   xox",    "   xox",
                          "   xox", "xxxxoxxxx", " xooooox", "  xooox",  "   xox",    "    x"};
constexpr Rows kSizeAll = {
    "          x",          "         xox",          "        xooox",        "       xooooox",
    "      xxxxoxxxx",      "    x    xox    x",     "   xx    xox    xx",   "  xox    xox    xox",
    " xooxxxxxxoxxxxxxoox", "xooooooooooooooooooox", " xooxxxxxxoxxxxxxoox", "  xox    xox    xox",
    "   xx    xox    xx",   "    x    xox    x",     "      xxxxoxxxx",      "       xooooox",
    "        xooox",        "         xox",          "          x"};
constexpr Rows kNo = {"      xxxxxx",       "    xxxxxxxxxx",     "   xxxx    xxxx",    "  xxxxx      xxx",
                      " xxx xxx      xxx",  " xxx  xxx     xxx",  "xxx    xxx     xxx", "xxx     xxx    xxx",
                      "xxx      xxx   xxx", "xxx       xxx  xxx", " xxx       xxxxxx",  " xxx        xxxxx",
                      "  xxx        xxx",   "   xxxx    xxxx",    "    xxxxxxxxxx",     "      xxxxxx"};
constexpr Rows kHand = {"     xx",
                        "    xoox",
                        "    xoox",
                        "    xoox",
                        "    xoox",
                        "    xooxxx",
                        "    xooxooxxx",
                        "    xooxooxooxx",
                        "    xooxooxooxox",
                        "xxx xooooooooxoox",
                        "xooxxoooooooooooox",
                        "xoooxoooooooooooox",
                        " xooxoooooooooooox",
                        "  xoooooooooooooox",
                        "  xoooooooooooooox",
                        "   xooooooooooox",
                        "   xooooooooooox",
                        "    xooooooooox",
                        "    xooooooooox",
                        "    xxxxxxxxxxx"};
constexpr Rows kHelp = {"x",
                        "xx        oxxxxo",
                        "xox      oxxooxxo",
                        "xoox     oxxooxxo",
                        "xooox     oooxxo",
                        "xoooox      oxxo",
                        "xooooox    oxxo",
                        "xoooooox   oxxo",
                        "xooooooox   oo",
                        "xoooooooox oxxo",
                        "xoooooxxxxxoxxo",
                        "xooxoox     oo",
                        "xoxxxoox",
                        "xx  xoox",
                        "x    xoox",
                        "     xoox",
                        "      xoox",
                        "      xoox",
                        "       xx"};
constexpr Rows kStarting = {"x           xxxxxxx",
                            "xx          xooooox",
                            "xox          xooox",
                            "xoox         xoxox",
                            "xooox         xox",
                            "xoooox       xooox",
                            "xooooox      xoxox",
                            "xoooooox    xooooox",
                            "xooooooox   xxxxxxx",
                            "xoooooooox",
                            "xoooooxxxxx",
                            "xooxoox",
                            "xoxxxoox",
                            "xx  xoox",
                            "x    xoox",
                            "     xoox",
                            "      xoox",
                            "      xoox",
                            "       xx"};

constexpr CursorPicture kCursors[] = {
    {OCR_NORMAL, 0, 0, kArrow},         {OCR_IBEAM, 3, 8, kBeam},    {OCR_WAIT, 6, 10, kWait},
    {OCR_CROSS, 8, 8, kCross},          {OCR_UP, 4, 0, kUp},         {OCR_SIZENWSE, 6, 6, kSizeNwse},
    {OCR_SIZENESW, 6, 6, kSizeNesw},    {OCR_SIZEWE, 8, 4, kSizeWe}, {OCR_SIZENS, 4, 8, kSizeNs},
    {OCR_SIZEALL, 10, 9, kSizeAll},     {OCR_NO, 8, 8, kNo},         {OCR_HAND, 5, 0, kHand},
    {OCR_APPSTARTING, 0, 0, kStarting}, {OCR_HELP, 0, 0, kHelp},
};

// Draws the symbol of an icon; ground is the colour of its disc or triangle.
struct IconPicture {
  WORD id;
  COLORREF ground;
  wchar_t symbol;
};

constexpr IconPicture kIcons[] = {
    {OIC_SAMPLE, RGB(255, 255, 255), 0}, {OIC_HAND, RGB(192, 0, 0), L'X'},
    {OIC_QUES, RGB(0, 64, 192), L'?'},   {OIC_BANG, RGB(255, 208, 0), L'!'},
    {OIC_NOTE, RGB(0, 64, 192), L'i'},   {OIC_WINLOGO, RGB(255, 255, 255), 0},
};

void DrawGround(HDC dc, const IconPicture& icon) {
  if (icon.symbol == L'!') {
    const POINT triangle[] = {{15, 1}, {30, 29}, {1, 29}};
    Polygon(dc, triangle, 3);
  } else if (icon.symbol) {
    Ellipse(dc, 1, 1, 31, 31);
  } else {
    Rectangle(dc, 2, 4, 30, 28);
  }
}

// The symbol stroke by stroke: no font is asked, so that the icon never changes.
void DrawSymbol(HDC dc, wchar_t symbol) {
  const auto stroke = [dc](int x1, int y1, int x2, int y2) {
    MoveToEx(dc, x1, y1, nullptr);
    LineTo(dc, x2, y2);
  };
  const auto block = [dc](int left, int top, int right, int bottom) {
    const RECT rect{left, top, right, bottom};
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
  };
  switch (symbol) {
    case L'X':
      for (int i = 0; i < 3; ++i) {
        stroke(9 + i, 9, 21 + i, 22);
        stroke(21 + i, 9, 9 + i, 22);
      }
      break;
    case L'!':
      block(14, 9, 17, 20);
      block(14, 22, 17, 25);
      break;
    case L'i':
      block(14, 7, 18, 10);
      block(14, 13, 18, 24);
      break;
    case L'?':
      block(11, 8, 14, 12);
      block(12, 7, 20, 10);
      block(18, 8, 21, 14);
      block(15, 13, 20, 16);
      block(14, 15, 17, 20);
      block(14, 22, 17, 25);
      break;
    default: block(2, 4, 30, 9); break;
  }
}

void DrawInto(HBITMAP bitmap, const IconPicture& icon, bool mask) {
  const HDC dc = CreateCompatibleDC(nullptr);
  if (!dc) return;
  const HGDIOBJ before = SelectObject(dc, bitmap);
  PatBlt(dc, 0, 0, kSize, kSize, mask ? WHITENESS : BLACKNESS);
  SelectObject(dc, GetStockObject(mask ? BLACK_PEN : DC_PEN));
  SelectObject(dc, GetStockObject(mask ? BLACK_BRUSH : DC_BRUSH));
  SetDCPenColor(dc, RGB(64, 64, 64));
  SetDCBrushColor(dc, icon.ground);
  DrawGround(dc, icon);
  if (!mask) {
    const COLORREF ink = icon.symbol == L'!' ? RGB(0, 0, 0)
                         : icon.symbol       ? RGB(255, 255, 255)
                                             : RGB(10, 36, 106);
    SetDCPenColor(dc, ink);
    SetDCBrushColor(dc, ink);
    DrawSymbol(dc, icon.symbol);
  }
  SelectObject(dc, before);
  DeleteDC(dc);
}

}  // namespace

HCURSOR MakeSystemCursor(WORD id) {
  const auto* picture = std::find_if(std::begin(kCursors), std::end(kCursors),
                                     [=](const CursorPicture& known) { return known.id == id; });
  if (picture == std::end(kCursors)) {
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
  }
  std::array<uint8_t, kSize * kRowBytes> andBits;
  std::array<uint8_t, kSize * kRowBytes> xorBits{};
  andBits.fill(0xFF);
  for (size_t y = 0; y < picture->rows.size(); ++y) {
    for (size_t x = 0; x < picture->rows[y].size(); ++x) {
      const char mark = picture->rows[y][x];
      const auto bit = static_cast<uint8_t>(0x80 >> (x % 8));
      const size_t at = y * kRowBytes + x / 8;
      if (mark == 'x' || mark == 'o') andBits[at] = static_cast<uint8_t>(andBits[at] & ~bit);
      if (mark == 'o') xorBits[at] = static_cast<uint8_t>(xorBits[at] | bit);
    }
  }
  return CreateCursor(nullptr, picture->hotX, picture->hotY, kSize, kSize, andBits.data(), xorBits.data());
}

HICON MakeSystemIcon(WORD id) {
  const auto* picture = std::find_if(std::begin(kIcons), std::end(kIcons),
                                     [=](const IconPicture& known) { return known.id == id; });
  if (picture == std::end(kIcons)) {
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
  }
  const HDC screen = GetDC(nullptr);
  ICONINFO info{TRUE, kSize / 2, kSize / 2, CreateBitmap(kSize, kSize, 1, 1, nullptr),
                CreateCompatibleBitmap(screen, kSize, kSize)};
  HICON icon = nullptr;
  if (info.hbmMask && info.hbmColor) {
    DrawInto(info.hbmMask, *picture, true);
    DrawInto(info.hbmColor, *picture, false);
    icon = CreateIconIndirect(&info);
  }
  if (info.hbmMask) DeleteObject(info.hbmMask);
  if (info.hbmColor) DeleteObject(info.hbmColor);
  if (screen) ReleaseDC(nullptr, screen);
  return icon;
}

}  // namespace desktop
