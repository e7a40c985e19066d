// Formatted text: lines, words, tabs, prefixes, ellipses, alignment in a rectangle.
#include <algorithm>
#include <string>
#include <vector>

#include "../world.h"
#include "bounded.h"
#include "device_context.h"
#include "text.h"
#include "text_line.h"
#include "typeface.h"

namespace desktop {
namespace {

// The tab length stands in the high byte of the flags, over bits that mean other things then.
struct Format {
  Format(UINT asked, const DeviceContext& dc, const DRAWTEXTPARAMS* params) : flags(asked) {
    const Typeface& face = TypefaceOf(dc);
    int tabCharacters = 8;
    if ((flags & DT_TABSTOP) && params) {
      tabCharacters = params->iTabLength;
    } else if (flags & DT_TABSTOP) {
      tabCharacters = static_cast<int>((flags >> 8) & 0xff);
      flags &= 0xffff00ff;
    }
    tabWidth = std::max(1, std::clamp(tabCharacters, 0, 0x7fff) * face.AverageWidth());
    lineHeight = face.Height();
    // What a single line is not asked for.
    if (flags & DT_SINGLELINE) flags &= ~static_cast<UINT>(DT_WORDBREAK);
  }
  bool Has(UINT flag) const { return flags & flag; }

  UINT flags;
  int tabWidth;
  int lineHeight;
};

class TextPainter {
 public:
  TextPainter(HDC handle, DeviceContext& dc, const Format& format)
      : m_handle(handle), m_dc(dc), m_format(format) {}

  // Draws a line cut at tabs, with its underlined character.
  void Draw(const TextLine& line, int x, int y, const RECT* clip) {
    size_t start = 0;
    int left = x;
    for (;;) {
      size_t tab = m_format.Has(DT_EXPANDTABS) ? line.text.find(L'\t', start) : std::wstring::npos;
      size_t end = std::min(tab, line.text.size());
      Piece(line, start, end, left, y, clip);
      if (tab == std::wstring::npos) return;
      left += TextWidth(m_dc, line.text.data() + start, end - start);
      left = x + ((left - x) / m_format.tabWidth + 1) * m_format.tabWidth;
      start = tab + 1;
    }
  }

 private:
  void Piece(const TextLine& line, size_t start, size_t end, int x, int y, const RECT* clip) {
    const wchar_t* text = line.text.data() + start;
    if (end > start && !m_format.Has(DT_PREFIXONLY))
      ExtTextOutW(m_handle, x, y, clip ? ETO_CLIPPED : 0, clip, text, static_cast<UINT>(end - start),
                  nullptr);
    if (line.underlined < start || line.underlined >= end || m_format.Has(DT_HIDEPREFIX)) return;
    int left = x + TextWidth(m_dc, text, line.underlined - start);
    int right = left + TextWidth(m_dc, line.text.data() + line.underlined, 1) - 1;
    RECT rule{left, y + TypefaceOf(m_dc).Ascent() + 1, right, y + TypefaceOf(m_dc).Ascent() + 2};
    if (clip) {
      rule = {std::max(rule.left, clip->left), std::max(rule.top, clip->top),
              std::min(rule.right, clip->right), std::min(rule.bottom, clip->bottom)};
    }
    if (rule.left >= rule.right || rule.top >= rule.bottom) return;
    HBRUSH brush = CreateSolidBrush(GetTextColor(m_handle));
    FillRect(m_handle, &rule, brush);
    DeleteObject(brush);
  }

  HDC m_handle;
  DeviceContext& m_dc;
  const Format& m_format;
};

int AlignedLeft(const Format& format, const RECT& rect, int width) {
  if (format.Has(DT_CENTER)) return rect.left + (rect.right - rect.left - width) / 2;
  if (format.Has(DT_RIGHT)) return rect.right - width;
  return rect.left;
}

int FirstTop(const Format& format, const RECT& rect) {
  if (!format.Has(DT_SINGLELINE)) return rect.top;
  if (format.Has(DT_VCENTER)) return rect.top + (rect.bottom - rect.top) / 2 - format.lineHeight / 2;
  if (format.Has(DT_BOTTOM)) return rect.bottom - format.lineHeight;
  return rect.top;
}

// An empty text is one line high but draws nothing.
int MeasureNothing(const Format& format, RECT* rect, bool isTerminated) {
  if (isTerminated && format.Has(DT_CALCRECT)) {
    *rect = Bounded(*rect);
    rect->right = rect->left;
    rect->bottom = rect->top + (format.Has(DT_SINGLELINE) ? format.lineHeight : 0);
  }
  return format.lineHeight;
}

int DrawLines(HDC handle, DeviceContext& dc, LPWSTR text, size_t length, RECT* rect, const Format& format,
              DRAWTEXTPARAMS* params) {
  *rect = Bounded(*rect);
  RECT inner = *rect;
  if (params) {
    inner.left += Bounded(params->iLeftMargin);
    inner.right -= Bounded(params->iRightMargin);
  }
  TextPainter painter(handle, dc, format);
  LineBreaker breaker(dc, {text, length}, format.flags, format.tabWidth, inner.right - inner.left);
  bool calculates = format.Has(DT_CALCRECT);
  bool clips = !format.Has(DT_NOCLIP) && !calculates;
  int top = FirstTop(format, inner);
  int y = top;
  int widest = 0;
  std::wstring changed;
  bool isChanged = false;
  do {
    int needed = format.Has(DT_EDITCONTROL) ? 2 * format.lineHeight - 1 : format.lineHeight;
    bool last = !format.Has(DT_NOCLIP) && y + needed > inner.bottom;
    TextLine line = breaker.Next(last && !calculates);
    widest = std::max(widest, line.width);
    if (line.isShortened) {
      changed = line.text;
      isChanged = true;
    }
    if (!calculates) painter.Draw(line, AlignedLeft(format, inner, line.width), y, clips ? rect : nullptr);
    y += format.lineHeight;
    if (last && !calculates) break;
  } while (!breaker.AtEnd());
  if (calculates) {
    int margins = params ? Bounded(params->iLeftMargin) + Bounded(params->iRightMargin) : 0;
    rect->right = rect->left + widest + margins;
    rect->bottom = y;
  }
  if (isChanged && format.Has(DT_MODIFYSTRING)) {
    std::copy(changed.begin(), changed.end(), text);
    text[changed.size()] = 0;
  }
  if (params) params->uiLengthDrawn = static_cast<UINT>(breaker.Consumed());
  return y - rect->top;
}

// Tab stops given, or every eight average characters; the next one after x.
int NextStop(const DeviceContext& dc, int x, int tabCount, const INT* tabs) {
  if (tabCount == 1 && tabs && tabs[0] > 0) return (x / Bounded(tabs[0]) + 1) * Bounded(tabs[0]);
  for (int i = 0; tabs && i < tabCount; ++i) {
    if (tabs[i] > x) return Bounded(tabs[i]);
  }
  int step = 8 * TypefaceOf(dc).AverageWidth();
  return (x / step + 1) * step;
}

// Walks text with tabs; put(x, first, count) gets each piece. The result is the whole width.
template <typename Put>
int WalkTabs(const DeviceContext& dc, LPCWSTR text, int length, int origin, int tabCount, const INT* tabs,
             Put put) {
  int x = 0;
  for (int i = 0; i <= length;) {
    int start = i;
    while (i < length && text[i] != L'\t') ++i;
    put(x, start, i - start);
    x += TextWidth(dc, text + start, static_cast<size_t>(i - start));
    if (i >= length) break;
    x = NextStop(dc, x + origin, tabCount, tabs) - origin;
    ++i;
  }
  return x;
}

}  // namespace
}  // namespace desktop

using namespace desktop;

int WINAPI DrawTextExW(HDC handle, LPWSTR text, int length, LPRECT rect, UINT flags,
                       LPDRAWTEXTPARAMS params) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !text || !rect || length < -1) return 0;
  if (params && params->cbSize != sizeof(DRAWTEXTPARAMS)) return 0;
  if (params) params->uiLengthDrawn = 0;
  Format format(flags, *dc, params);
  bool isTerminated = length == -1;
  size_t count = isTerminated ? std::wcslen(text) : static_cast<size_t>(length);
  if (count == 0) return MeasureNothing(format, rect, isTerminated);
  return DrawLines(handle, *dc, text, count, rect, format, params);
}

int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT flags) {
  // Only DT_MODIFYSTRING writes, and then the caller's buffer must be his own.
  LPWSTR buffer = const_cast<LPWSTR>(text);
  return DrawTextExW(dc, buffer, length, rect, flags, nullptr);
}

LONG WINAPI TabbedTextOutW(HDC handle, int x, int y, LPCWSTR text, int length, int tabCount, const INT* tabs,
                           int tabOrigin) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !text) return 0;
  if (length < 0) length = static_cast<int>(std::wcslen(text));
  x = Bounded(x);
  int width =
      WalkTabs(*dc, text, length, x - Bounded(tabOrigin), tabCount, tabs,
               [&](int at, int start, int count) { TextOutW(handle, x + at, y, text + start, count); });
  return MAKELONG(width, TypefaceOf(*dc).Height());
}

DWORD WINAPI GetTabbedTextExtentW(HDC handle, LPCWSTR text, int length, int tabCount, const INT* tabs) {
  WorldLock lock(WorldMutex());
  DeviceContext* dc = FindDC(handle);
  if (!dc || !text) return 0;
  if (length < 0) length = static_cast<int>(std::wcslen(text));
  int width = WalkTabs(*dc, text, length, 0, tabCount, tabs, [](int, int, int) {});
  return static_cast<DWORD>(MAKELONG(width, TypefaceOf(*dc).Height()));
}
