// Text put on a DC.
#include <algorithm>
#include <vector>

#include "../world.h"
#include "bounded.h"
#include "device_context.h"
#include "paint.h"
#include "text.h"
#include "typeface.h"

namespace desktop {
namespace {

constexpr BYTE kPatternCopy = 0xf0;

struct Line {
  const wchar_t* text = nullptr;
  size_t length = 0;
  std::vector<int> advances;
  int width = 0;
};

Line Measure(const DeviceContext& dc, const Typeface& face, const wchar_t* text, size_t length, const INT* dx,
             bool pairs) {
  Line line{text, length, std::vector<int>(length), 0};
  for (size_t i = 0; i < length; ++i) {
    int advance = dx ? dx[pairs ? 2 * i : i] : face.Advance(text[i]) + Bounded(dc.state.charExtra);
    line.advances[i] = Bounded(advance);
    line.width = Bounded(line.width + line.advances[i]);
  }
  return line;
}

// The left end and the top of the cell on the surface, for a reference point and the DC's alignment.
POINT Place(const DeviceContext& dc, const Typeface& face, POINT reference, int width) {
  UINT align = dc.state.textAlign;
  if ((align & TA_CENTER) == TA_CENTER) {
    reference.x -= width / 2;
  } else if (align & TA_RIGHT) {
    reference.x -= width;
  }
  if ((align & TA_BASELINE) == TA_BASELINE) {
    reference.y -= face.Ascent();
  } else if (align & TA_BOTTOM) {
    reference.y -= face.Height();
  }
  return reference;
}

void MovePosition(DeviceContext& dc, int width) {
  UINT align = dc.state.textAlign;
  if ((align & TA_CENTER) == TA_CENTER) return;
  dc.state.position.x = Bounded(dc.state.position.x) + (align & TA_RIGHT ? -width : width);
}

// Draws glyphs within one rectangle.
void DrawGlyphs(const PixelView& pixels, const RECT& within, const Typeface& face, const Line& line, POINT at,
                uint32_t word) {
  long long x = at.x;
  for (size_t i = 0; i < line.length && x < within.right; ++i) {
    for (const GlyphRun& run : face.Runs(line.text[i])) {
      long long y = static_cast<long long>(at.y) + run.row;
      if (y < within.top || y >= within.bottom) continue;
      long long left = std::max<long long>(x + run.left, within.left);
      long long right = std::min<long long>(x + run.right, within.right);
      if (left < right)
        std::fill(pixels.row(static_cast<int>(y)) + left, pixels.row(static_cast<int>(y)) + right, word);
    }
    x += line.advances[i];
  }
}

void DrawRule(DeviceContext& dc, const RECT& clip, const Typeface& face, POINT at, int width, int row,
              uint32_t word) {
  RECT rule{std::max<LONG>(at.x, clip.left), std::max<LONG>(at.y + row, clip.top),
            std::min<LONG>(at.x + width, clip.right),
            std::min<LONG>(at.y + row + face.LineThickness(), clip.bottom)};
  FillArea(dc, rule, SolidPaint(word), kPatternCopy);
}

void DrawLine(DeviceContext& dc, const Typeface& face, const Line& line, POINT at, const RECT* clip) {
  constexpr LONG kFar = 0x3fffffff;
  RECT limit = clip ? *clip : RECT{-kFar, -kFar, kFar, kFar};
  uint32_t word = ColorWord(dc, dc.state.textColor);
  // Slanted and bold glyphs may reach beyond the advances.
  RECT area{std::max<LONG>(limit.left, at.x - face.Height()), std::max<LONG>(limit.top, at.y),
            std::min<LONG>(limit.right, at.x + line.width + face.MaxWidth() + face.Height()),
            std::min<LONG>(limit.bottom, at.y + face.Height())};
  {
    Canvas canvas(dc);
    if (!canvas) return;
    ForEachPiece(dc, area,
                 [&](const RECT& piece) { DrawGlyphs(canvas.Pixels(), piece, face, line, at, word); });
  }
  const LOGFONTW& font = LogFontOf(dc);
  if (font.lfUnderline) DrawRule(dc, limit, face, at, line.width, face.UnderlineRow(), word);
  if (font.lfStrikeOut) DrawRule(dc, limit, face, at, line.width, face.StrikeRow(), word);
}

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI ExtTextOutW(HDC handle, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT length,
                        const INT* dx) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  constexpr UINT kLongest = 0x100000;
  if (!dc || (!text && length > 0) || length > kLongest) return FALSE;
  RECT box{};
  if (rect) {
    box = dc->ToSurface(*rect);
    if (box.left > box.right) std::swap(box.left, box.right);
    if (box.top > box.bottom) std::swap(box.top, box.bottom);
  }
  uint32_t ground = ColorWord(*dc, dc->state.bkColor);
  bool filled = rect && (options & ETO_OPAQUE);
  if (filled) FillArea(*dc, box, SolidPaint(ground), kPatternCopy);
  if (length == 0) return TRUE;
  const Typeface& face = TypefaceOf(*dc);
  Line line = Measure(*dc, face, text, length, dx, options & ETO_PDY);
  bool updates = dc->state.textAlign & TA_UPDATECP;
  POINT reference = updates ? dc->ToSurface(dc->state.position.x, dc->state.position.y) : dc->ToSurface(x, y);
  POINT at = Place(*dc, face, reference, line.width);
  const RECT* clip = rect && (options & ETO_CLIPPED) ? &box : nullptr;
  if (dc->state.bkMode == OPAQUE) {
    RECT cell{at.x, at.y, at.x + line.width, at.y + face.Height()};
    if (clip) {
      cell = {std::max(cell.left, clip->left), std::max(cell.top, clip->top),
              std::min(cell.right, clip->right), std::min(cell.bottom, clip->bottom)};
    }
    FillArea(*dc, cell, SolidPaint(ground), kPatternCopy);
  }
  DrawLine(*dc, face, line, at, clip);
  if (updates) MovePosition(*dc, line.width);
  return TRUE;
}

BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length) {
  return length >= 0 && ExtTextOutW(dc, x, y, 0, nullptr, text, static_cast<UINT>(length), nullptr);
}
