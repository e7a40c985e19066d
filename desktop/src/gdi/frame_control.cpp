// Standard controls: buttons, check boxes, scroll arrows, caption buttons, menu marks.
#include <algorithm>

#include <windows.h>

#include "../world.h"
#include "bounded.h"
#include "object.h"
#include "window_dc.h"

namespace desktop {
namespace {

void Fill(HDC dc, int left, int top, int right, int bottom, int color) {
  RECT rect{left, top, right, bottom};
  if (left < right && top < bottom) FillRect(dc, &rect, SystemColorBrush(color));
}

// Pictures as rows of characters; each character that is not a dot has a colour.
struct Art {
  int size;  // columns and rows
  const char* pixels;
};

constexpr Art kCheckMark = {9,
                            "........."
                            ".......#."
                            "......##."
                            ".....###."
                            ".#..###.."
                            ".#####..."
                            ".####...."
                            "..##....."
                            "........."};

// s, d, l, h: shadow, dark shadow, light, highlight; w: the inside; #: the dot.
constexpr Art kRadio = {12,
                        "............"
                        "....sssss..."
                        "...swwwdss.."
                        "..swwwwwddh."
                        ".swww##wwlhh"
                        ".sww####wllh"
                        ".sww####wllh"
                        ".sdww##wlllh"
                        ".ssdwwwlllhh"
                        "..slllllllh."
                        "...hhlllhh.."
                        "....hhhhh..."};

constexpr Art kClose = {8,
                        "##....##"
                        "###..###"
                        ".######."
                        "..####.."
                        "..####.."
                        ".######."
                        "###..###"
                        "##....##"};
constexpr Art kMinimize = {8,
                           "........"
                           "........"
                           "........"
                           "........"
                           "........"
                           "........"
                           "######.."
                           "######.."};
constexpr Art kMaximize = {9,
                           "#########"
                           "#########"
                           "#.......#"
                           "#.......#"
                           "#.......#"
                           "#.......#"
                           "#.......#"
                           "#.......#"
                           "#########"};
constexpr Art kRestore = {9,
                          "..#######"
                          "..#######"
                          "..#.....#"
                          "#######.#"
                          "#######.#"
                          "#.....###"
                          "#.....#.."
                          "#.....#.."
                          "#######.."};
constexpr Art kHelp = {8,
                       "..####.."
                       ".##..##."
                       ".....##."
                       "....##.."
                       "...##..."
                       "........"
                       "...##..."
                       "...##..."};
constexpr Art kMenuArrow = {7,
                            "..#...."
                            "..##..."
                            "..###.."
                            "..####."
                            "..###.."
                            "..##..."
                            "..#...."};
constexpr Art kBullet = {6,
                         "......"
                         "..##.."
                         ".####."
                         ".####."
                         "..##.."
                         "......"};

// Draws art scaled to a square; paint(character) gives a colour index, or -1 for nothing.
template <typename PaintOf>
void DrawArt(HDC dc, const Art& art, int left, int top, int side, PaintOf paint) {
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      int color = paint(art.pixels[y * art.size / side * art.size + x * art.size / side]);
      if (color >= 0) Fill(dc, left + x, top + y, left + x + 1, top + y + 1, color);
    }
  }
}

void DrawMark(HDC dc, const Art& art, int left, int top, int side, int color) {
  DrawArt(dc, art, left, top, side, [&](char c) { return c == '#' ? color : -1; });
}

// The largest square in the middle of a rectangle.
RECT Square(const RECT& r) {
  int side = std::min(r.right - r.left, r.bottom - r.top);
  int left = r.left + (r.right - r.left - side) / 2;
  int top = r.top + (r.bottom - r.top - side) / 2;
  return {left, top, left + side, top + side};
}

void DrawPush(HDC dc, const RECT& rect, UINT state) {
  RECT r = rect;
  UINT edge = state & (DFCS_PUSHED | DFCS_CHECKED) ? EDGE_SUNKEN : EDGE_RAISED;
  UINT flags = BF_RECT | BF_SOFT | BF_ADJUST | (state & (DFCS_FLAT | DFCS_MONO));
  DrawEdge(dc, &r, edge, flags);
  Fill(dc, r.left, r.top, r.right, r.bottom, state & DFCS_CHECKED ? COLOR_3DHIGHLIGHT : COLOR_3DFACE);
}

int InsideColor(UINT state) {
  if (state & DFCS_BUTTON3STATE && state & DFCS_CHECKED) return COLOR_3DHIGHLIGHT;
  return state & (DFCS_INACTIVE | DFCS_PUSHED) ? COLOR_3DFACE : COLOR_WINDOW;
}

int MarkColor(UINT state) {
  return state & (DFCS_INACTIVE | DFCS_BUTTON3STATE) ? COLOR_3DSHADOW : COLOR_WINDOWTEXT;
}

void DrawCheck(HDC dc, const RECT& rect, UINT state) {
  RECT r = Square(rect);
  DrawEdge(dc, &r, EDGE_SUNKEN, BF_RECT | BF_ADJUST | (state & (DFCS_FLAT | DFCS_MONO)));
  Fill(dc, r.left, r.top, r.right, r.bottom, InsideColor(state));
  if (state & DFCS_CHECKED) DrawMark(dc, kCheckMark, r.left, r.top, r.right - r.left, MarkColor(state));
}

void DrawRadio(HDC dc, const RECT& rect, UINT state) {
  RECT r = Square(rect);
  bool flat = state & (DFCS_FLAT | DFCS_MONO);
  DrawArt(dc, kRadio, r.left, r.top, r.right - r.left, [&](char c) {
    switch (c) {
      case 's': return COLOR_3DSHADOW;
      case 'd': return flat ? InsideColor(state) : COLOR_3DDKSHADOW;
      case 'l': return flat ? InsideColor(state) : COLOR_3DLIGHT;
      case 'h': return flat ? COLOR_3DSHADOW : COLOR_3DHIGHLIGHT;
      case 'w': return InsideColor(state);
      case '#': return state & DFCS_CHECKED ? MarkColor(state) : InsideColor(state);
      default: return -1;
    }
  });
}

BOOL DrawButton(HDC dc, const RECT& rect, UINT state) {
  UINT kind = state & 0x1f;
  if (kind & DFCS_BUTTONPUSH) {
    DrawPush(dc, rect, state);
  } else if (kind & (DFCS_BUTTONRADIO | DFCS_BUTTONRADIOIMAGE | DFCS_BUTTONRADIOMASK)) {
    DrawRadio(dc, rect, state);
  } else {
    DrawCheck(dc, rect, state);
  }
  return TRUE;
}

// A triangle of `rows` rows or columns that starts at (x, y), the middle of its first row or column.
void DrawTriangle(HDC dc, UINT direction, int x, int y, int rows, int color) {
  for (int i = 0; i < rows; ++i) {
    bool grows = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLLEFT;
    int half = grows ? i : rows - 1 - i;
    if (direction == DFCS_SCROLLUP || direction == DFCS_SCROLLDOWN) {
      Fill(dc, x - half, y + i, x + half + 1, y + i + 1, color);
    } else {
      Fill(dc, x + i, y - half, x + i + 1, y + half + 1, color);
    }
  }
}

void DrawGrip(HDC dc, const RECT& r) {
  Fill(dc, r.left, r.top, r.right, r.bottom, COLOR_3DFACE);
  // Colours of the diagonals by distance from the corner, nearest last.
  static const char kDiagonals[] = "hssfhsshss";
  int corner = r.right + r.bottom - 11;
  for (int y = r.top; y < r.bottom; ++y) {
    for (int i = 0; i < 10; ++i) {
      int x = corner + i - y;
      if (kDiagonals[i] == 'f' || x < r.left || x >= r.right) continue;
      Fill(dc, x, y, x + 1, y + 1, kDiagonals[i] == 'h' ? COLOR_3DHIGHLIGHT : COLOR_3DSHADOW);
    }
  }
}

BOOL DrawScroll(HDC dc, const RECT& rect, UINT state) {
  UINT kind = state & 0x1f;
  if (kind & (DFCS_SCROLLSIZEGRIP | DFCS_SCROLLSIZEGRIPRIGHT)) {
    DrawGrip(dc, rect);
    return TRUE;
  }
  UINT direction = kind == DFCS_SCROLLCOMBOBOX ? DFCS_SCROLLDOWN : kind & 3;
  bool pushed = state & DFCS_PUSHED;
  bool inactive = state & DFCS_INACTIVE;
  RECT r = rect;
  UINT soft = pushed || inactive ? BF_SOFT : 0;
  DrawEdge(dc, &r, pushed ? EDGE_SUNKEN : EDGE_RAISED,
           BF_RECT | BF_MIDDLE | soft | (state & (DFCS_FLAT | DFCS_MONO)));
  RECT box = Square(rect);
  int side = box.right - box.left;
  int rows = std::max(1, (side - 2) / 4 + 1);
  bool backward = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLLEFT;
  int start = backward ? (side - rows) / 2 - 1 : (side - 3) / 2;
  bool vertical = direction == DFCS_SCROLLUP || direction == DFCS_SCROLLDOWN;
  int shift = pushed ? 1 : 0;
  int x = box.left + (vertical ? side / 2 : start) + shift;
  int y = box.top + (vertical ? start : side / 2) + shift;
  if (inactive) DrawTriangle(dc, direction, x + 1, y + 1, rows, COLOR_3DHIGHLIGHT);
  DrawTriangle(dc, direction, x, y, rows, inactive ? COLOR_3DSHADOW : COLOR_BTNTEXT);
  return TRUE;
}

BOOL DrawCaption(HDC dc, const RECT& rect, UINT state) {
  static const Art* const kPictures[] = {&kClose, &kMinimize, &kMaximize, &kRestore, &kHelp};
  UINT kind = state & 0xff;
  if (kind >= 5) return FALSE;
  RECT r = rect;
  bool pushed = state & DFCS_PUSHED;
  DrawEdge(dc, &r, pushed ? EDGE_SUNKEN : EDGE_RAISED,
           BF_RECT | BF_SOFT | BF_MIDDLE | (state & (DFCS_FLAT | DFCS_MONO)));
  RECT box = Square(rect);
  const Art& art = *kPictures[kind];
  int side = std::max(3, (box.bottom - box.top) * art.size / 14);
  int x = rect.left + (rect.right - rect.left - side) / 2 + (pushed ? 1 : 0);
  int y = rect.top + (rect.bottom - rect.top - side) / 2 + (pushed ? 1 : 0);
  if (state & DFCS_INACTIVE) DrawMark(dc, art, x + 1, y + 1, side, COLOR_3DHIGHLIGHT);
  DrawMark(dc, art, x, y, side, state & DFCS_INACTIVE ? COLOR_3DSHADOW : COLOR_BTNTEXT);
  return TRUE;
}

// Black marks on white, to be combined by the caller's raster operation.
BOOL DrawMenuMark(HDC dc, const RECT& rect, UINT state) {
  FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  RECT box = Square(rect);
  UINT kind = state & 0xff;
  if (kind & DFCS_MENUARROWRIGHT) return FALSE;
  const Art& art = kind & DFCS_MENUCHECK ? kCheckMark : kind & DFCS_MENUBULLET ? kBullet : kMenuArrow;
  int side = std::max(3, (box.right - box.left) * art.size / 13);
  int left = box.left + (box.right - box.left - side) / 2;
  int top = box.top + (box.bottom - box.top - side) / 2;
  auto black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      if (art.pixels[y * art.size / side * art.size + x * art.size / side] != '#') continue;
      RECT dot{left + x, top + y, left + x + 1, top + y + 1};
      FillRect(dc, &dot, black);
    }
  }
  return TRUE;
}

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI DrawFrameControl(HDC dc, LPRECT rect, UINT type, UINT state) {
  WorldLock lock(WorldMutex());
  if (!rect || (GetObjectType(dc) != OBJ_DC && GetObjectType(dc) != OBJ_MEMDC)) return FALSE;
  RECT box = Bounded(*rect);
  BOOL drawn = FALSE;
  switch (type) {
    case DFC_BUTTON: drawn = DrawButton(dc, box, state); break;
    case DFC_SCROLL: drawn = DrawScroll(dc, box, state); break;
    case DFC_CAPTION: drawn = DrawCaption(dc, box, state); break;
    case DFC_MENU: drawn = DrawMenuMark(dc, box, state); break;
    default: return FALSE;
  }
  if (drawn && (state & DFCS_ADJUSTRECT)) *rect = {box.left + 2, box.top + 2, box.right - 2, box.bottom - 2};
  return drawn;
}
