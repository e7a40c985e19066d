// Pictures and text in a state: disabled, mono, greyed. What is not plain is first drawn in black on a white
// mono bitmap, and its black pixels are then filled with a colour.
#include <algorithm>
#include <cwchar>
#include <vector>

#include <windows.h>

#include "../world.h"
#include "bitmap.h"
#include "bounded.h"
#include "paint.h"
#include "window_dc.h"

namespace desktop {
namespace {

// What DrawState was asked to draw.
struct Subject {
  UINT kind;  // DST_*
  DRAWSTATEPROC proc;
  LPARAM data;
  WPARAM extra;
  UINT flags;  // DSS_*

  UINT TextFlags() const {
    UINT result = kind == DST_TEXT ? DT_NOPREFIX : 0;
    if (flags & DSS_HIDEPREFIX) result |= DT_HIDEPREFIX;
    if (flags & DSS_PREFIXONLY) result |= DT_PREFIXONLY;
    if (flags & DSS_RIGHT) result |= DT_RIGHT;
    return result;
  }
  int TextLength() const { return extra ? static_cast<int>(extra) : -1; }
};

// The subject's own size, where the caller gave none. False if there is nothing to measure.
bool Measure(HDC dc, const Subject& subject, int& width, int& height) {
  if (width > 0 && height > 0) return true;
  SIZE size{};
  switch (subject.kind) {
    case DST_TEXT:
    case DST_PREFIXTEXT: {
      RECT rect{};
      if (!DrawTextW(dc, reinterpret_cast<LPCWSTR>(subject.data), subject.TextLength(), &rect,
                     DT_CALCRECT | DT_SINGLELINE | (subject.TextFlags() & DT_NOPREFIX)))
        return false;
      size = {rect.right, rect.bottom};
      break;
    }
    case DST_ICON: {
      ICONINFO info{};
      if (!GetIconInfo(reinterpret_cast<HICON>(subject.data), &info)) return false;
      BITMAP bitmap{};
      GetObjectW(info.hbmColor ? info.hbmColor : info.hbmMask, sizeof(bitmap), &bitmap);
      size = {bitmap.bmWidth, info.hbmColor ? bitmap.bmHeight : bitmap.bmHeight / 2};
      DeleteObject(info.hbmColor);
      DeleteObject(info.hbmMask);
      break;
    }
    case DST_BITMAP: {
      BITMAP bitmap{};
      if (!GetObjectW(reinterpret_cast<HBITMAP>(subject.data), sizeof(bitmap), &bitmap)) return false;
      size = {bitmap.bmWidth, bitmap.bmHeight};
      break;
    }
    default: return false;
  }
  if (width <= 0) width = size.cx;
  if (height <= 0) height = size.cy;
  return width > 0 && height > 0;
}

BOOL DrawBitmap(HDC dc, HBITMAP bitmap, int x, int y, int width, int height) {
  HDC memory = CreateCompatibleDC(dc);
  if (!memory) return FALSE;
  HGDIOBJ old = SelectObject(memory, bitmap);
  BOOL drawn = old && BitBlt(dc, x, y, width, height, memory, 0, 0, SRCCOPY);
  if (old) SelectObject(memory, old);
  DeleteDC(memory);
  return drawn;
}

BOOL DrawPlain(HDC dc, const Subject& subject, int x, int y, int width, int height) {
  switch (subject.kind) {
    case DST_TEXT:
    case DST_PREFIXTEXT: {
      RECT rect{x, y, x + width, y + height};
      return DrawTextW(dc, reinterpret_cast<LPCWSTR>(subject.data), subject.TextLength(), &rect,
                       subject.TextFlags() | DT_SINGLELINE | DT_NOCLIP) != 0;
    }
    case DST_ICON:
      return DrawIconEx(dc, x, y, reinterpret_cast<HICON>(subject.data), width, height, 0, nullptr,
                        DI_NORMAL);
    case DST_BITMAP: return DrawBitmap(dc, reinterpret_cast<HBITMAP>(subject.data), x, y, width, height);
    case DST_COMPLEX: {
      if (!subject.proc) return FALSE;
      // The callback draws around (0, 0).
      POINT origin{};
      OffsetViewportOrgEx(dc, x, y, &origin);
      BOOL drawn = subject.proc(dc, subject.data, subject.extra, width, height);
      SetViewportOrgEx(dc, origin.x, origin.y, nullptr);
      return drawn;
    }
    default: return FALSE;
  }
}

// A mono bitmap in a DC of its own, white at first.
class Stencil {
 public:
  Stencil(HDC like, int width, int height)
      : m_dc(CreateCompatibleDC(like)),
        m_bitmap(CreateBitmap(width, height, 1, 1, nullptr)),
        m_width(width),
        m_height(height) {
    if (!m_dc || !m_bitmap) return;
    m_old = SelectObject(m_dc, m_bitmap);
    PatBlt(m_dc, 0, 0, width, height, WHITENESS);
    SelectObject(m_dc, GetCurrentObject(like, OBJ_FONT));
  }
  ~Stencil() {
    if (m_old) SelectObject(m_dc, m_old);
    if (m_dc) DeleteDC(m_dc);
    DeleteObject(m_bitmap);
  }
  Stencil(const Stencil&) = delete;
  Stencil& operator=(const Stencil&) = delete;

  explicit operator bool() const { return m_old != nullptr; }
  HDC Dc() const { return m_dc; }

  // Fills the black pixels, every second one when dithered, with the stencil's corner at (x, y).
  void Fill(HDC target, HBRUSH brush, int x, int y, bool dithered) const {
    WorldLock lock(WorldMutex());
    DeviceContext* dc = FindDC(target);
    Bitmap* bitmap = FindBitmap(m_bitmap);
    if (!dc || !bitmap) return;
    PixelView view = bitmap->View();
    POINT corner = dc->ToSurface(x, y);
    std::vector<RECT> rows;
    for (int row = 0; row < m_height; ++row) {
      for (int column = 0; column < m_width;) {
        int start = column;
        while (column < m_width && !view.row(row)[column] && (!dithered || (row + column) % 2 == 0)) ++column;
        if (column > start)
          rows.push_back({corner.x + start, corner.y + row, corner.x + column, corner.y + row + 1});
        ++column;
      }
    }
    FillArea(*dc, Region::FromRows(rows), BrushPaint(*dc, brush), 0xf0);
  }

 private:
  HDC m_dc;
  HBITMAP m_bitmap;
  HGDIOBJ m_old = nullptr;
  int m_width;
  int m_height;
};

}  // namespace
}  // namespace desktop

using namespace desktop;

BOOL WINAPI DrawStateW(HDC dc, HBRUSH brush, DRAWSTATEPROC proc, LPARAM data, WPARAM extra, int x, int y,
                       int width, int height, UINT flags) {
  Subject subject{flags & 0xf, proc, data, extra, flags};
  x = Bounded(x);
  y = Bounded(y);
  constexpr int kMost = 0x4000;
  if (!Measure(dc, subject, width, height) || width > kMost || height > kMost) return FALSE;
  constexpr UINT kStates = DSS_UNION | DSS_DISABLED | DSS_DEFAULT | DSS_MONO;
  if (!(flags & kStates)) return DrawPlain(dc, subject, x, y, width, height);
  Stencil stencil(dc, width, height);
  if (!stencil || !DrawPlain(stencil.Dc(), subject, 0, 0, width, height)) return FALSE;
  bool dithered = flags & DSS_UNION;
  if (flags & DSS_DISABLED) {
    stencil.Fill(dc, SystemColorBrush(COLOR_3DHIGHLIGHT), x + 1, y + 1, dithered);
    stencil.Fill(dc, SystemColorBrush(COLOR_3DSHADOW), x, y, dithered);
    return TRUE;
  }
  HBRUSH ink = (flags & DSS_MONO) && brush ? brush : static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  stencil.Fill(dc, ink, x, y, dithered);
  // The default state is bolder.
  if (flags & DSS_DEFAULT) stencil.Fill(dc, ink, x + 1, y, dithered);
  return TRUE;
}

BOOL WINAPI GrayStringW(HDC dc, HBRUSH brush, GRAYSTRINGPROC output, LPARAM data, int length, int x, int y,
                        int width, int height) {
  auto text = reinterpret_cast<LPCWSTR>(data);
  if (!output && !text) return FALSE;
  if (length == 0 && text) length = static_cast<int>(std::wcslen(text));
  if ((width == 0 || height == 0) && length != -1) {
    SIZE extent{};
    if (!GetTextExtentPoint32W(dc, text, length, &extent)) return FALSE;
    if (width == 0) width = extent.cx;
    if (height == 0) height = extent.cy;
  }
  if (width <= 0 || height <= 0) return FALSE;
  x = Bounded(x);
  y = Bounded(y);
  Stencil stencil(dc, width, height);
  if (!stencil) return FALSE;
  BOOL drawn = output ? output(stencil.Dc(), data, length) : TextOutW(stencil.Dc(), 0, 0, text, length);
  // A callback that refuses, with no length known, wants its text plain instead of grey.
  if (!drawn && length != -1) return FALSE;
  stencil.Fill(dc, brush ? brush : static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)), x, y, drawn != FALSE);
  return TRUE;
}
