#include "controls/static.h"

#include <string>

namespace desktop {

namespace {

HBRUSH BrushOfType(DWORD type) {
  switch (type) {
    case SS_BLACKRECT:
    case SS_BLACKFRAME: return GetSysColorBrush(COLOR_3DDKSHADOW);
    case SS_GRAYRECT:
    case SS_GRAYFRAME: return GetSysColorBrush(COLOR_3DSHADOW);
    default: return GetSysColorBrush(COLOR_3DHIGHLIGHT);
  }
}

SIZE SizeOfBitmap(HBITMAP bitmap) {
  BITMAP info{};
  GetObjectW(bitmap, sizeof info, &info);
  return {info.bmWidth, info.bmHeight};
}

}  // namespace

bool Static::IsText() const {
  switch (Type()) {
    case SS_LEFT:
    case SS_CENTER:
    case SS_RIGHT:
    case SS_SIMPLE:
    case SS_LEFTNOWORDWRAP: return true;
    default: return false;
  }
}

UINT Static::PictureType() const {
  if (Type() == SS_BITMAP) return IMAGE_BITMAP;
  return Type() == SS_ICON ? IMAGE_ICON : static_cast<UINT>(-1);
}

LRESULT Static::OnCreate(const CREATESTRUCTW& create) {
  if (Style() & SS_SUNKEN)
    SetWindowLongW(Window(), GWL_EXSTYLE, static_cast<LONG>(ExStyle() | WS_EX_STATICEDGE));
  if (!IsText() && create.lpszName && *create.lpszName) LoadPicture(create.lpszName, create.hInstance);
  return 0;
}

// The text of a picture control names a resource of its module, or else of the system.
void Static::LoadPicture(LPCWSTR name, HINSTANCE module) {
  if (PictureType() == IMAGE_BITMAP) {
    SetPicture(LoadBitmapW(module, name));
    m_ownsPicture = m_picture != nullptr;
    return;
  }
  if (PictureType() != IMAGE_ICON) return;
  HICON icon = LoadIconW(module, name);
  if (!icon) icon = LoadCursorW(module, name);
  if (!icon) icon = LoadIconW(nullptr, name);
  SetPicture(icon);
}

SIZE Static::PictureSize() const {
  if (PictureType() == IMAGE_BITMAP) return SizeOfBitmap(static_cast<HBITMAP>(m_picture));
  ICONINFO info{};
  if (!GetIconInfo(static_cast<HICON>(m_picture), &info)) return {};
  SIZE size = SizeOfBitmap(info.hbmColor ? info.hbmColor : info.hbmMask);
  if (!info.hbmColor) size.cy /= 2;
  if (info.hbmColor) DeleteObject(info.hbmColor);
  if (info.hbmMask) DeleteObject(info.hbmMask);
  return size;
}

// The control takes the size of its picture, unless it centres it or stretches it.
HANDLE Static::SetPicture(HANDLE picture) {
  const HANDLE before = m_picture;
  m_picture = picture;
  m_ownsPicture = false;
  const bool keepsSize = (Style() & (SS_CENTERIMAGE | SS_REALSIZECONTROL)) != 0;
  if (picture && !keepsSize) {
    const SIZE size = PictureSize();
    RECT window{};
    GetWindowRect(Window(), &window);
    const RECT client = ClientRect();
    const int frameX = window.right - window.left - client.right;
    const int frameY = window.bottom - window.top - client.bottom;
    if (size.cx > 0 && size.cy > 0)
      SetWindowPos(Window(), nullptr, 0, 0, size.cx + frameX, size.cy + frameY,
                   SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOZORDER);
  }
  return before;
}

LRESULT Static::SetImage(UINT type, HANDLE picture) {
  const UINT wanted = type == IMAGE_CURSOR ? static_cast<UINT>(IMAGE_ICON) : type;
  if (wanted != PictureType()) return 0;
  const bool owned = m_ownsPicture;
  const HANDLE before = SetPicture(picture);
  if (owned) DeleteObject(before);
  Invalidate();
  return owned ? 0 : reinterpret_cast<LRESULT>(before);
}

UINT Static::TextFormat() const {
  const DWORD style = Style();
  UINT format = DT_EXPANDTABS;
  switch (Type()) {
    case SS_LEFT: format |= DT_LEFT | DT_WORDBREAK; break;
    case SS_CENTER: format |= DT_CENTER | DT_WORDBREAK; break;
    case SS_RIGHT: format |= DT_RIGHT | DT_WORDBREAK; break;
    case SS_SIMPLE: format |= DT_LEFT | DT_SINGLELINE; break;
    default: format |= DT_LEFT; break;
  }
  if (style & SS_NOPREFIX) format |= DT_NOPREFIX;
  if (Type() == SS_SIMPLE) return format;
  if (style & SS_CENTERIMAGE) format |= DT_SINGLELINE | DT_VCENTER;
  switch (style & SS_ELLIPSISMASK) {
    case SS_ENDELLIPSIS: format |= DT_SINGLELINE | DT_END_ELLIPSIS; break;
    case SS_PATHELLIPSIS: format |= DT_SINGLELINE | DT_PATH_ELLIPSIS; break;
    case SS_WORDELLIPSIS: format |= DT_SINGLELINE | DT_WORD_ELLIPSIS; break;
    default: break;
  }
  if (format & DT_SINGLELINE) format &= ~static_cast<UINT>(DT_WORDBREAK);
  return format;
}

void Static::PaintText(HDC dc, RECT rect) {
  if (!IsWindowEnabled(Window())) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  const std::wstring text = WindowText();
  if (!text.empty()) DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, TextFormat());
}

void Static::PaintPicture(HDC dc, const RECT& rect, HBRUSH brush) {
  FillRect(dc, &rect, brush);
  if (!m_picture) return;
  SIZE size = PictureSize();
  POINT at{};
  if (Style() & SS_CENTERIMAGE) {
    at = {(rect.right - size.cx) / 2, (rect.bottom - size.cy) / 2};
  } else if (Style() & SS_REALSIZECONTROL) {
    size = {rect.right, rect.bottom};
  }
  if (PictureType() == IMAGE_ICON) {
    DrawIconEx(dc, at.x, at.y, static_cast<HICON>(m_picture), size.cx, size.cy, 0, brush, DI_NORMAL);
    return;
  }
  const SIZE real = PictureSize();
  const HDC memory = CreateCompatibleDC(dc);
  if (!memory) return;
  const HGDIOBJ before = SelectObject(memory, m_picture);
  StretchBlt(dc, at.x, at.y, size.cx, size.cy, memory, 0, 0, real.cx, real.cy, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
}

void Static::PaintFrame(HDC dc, RECT rect) {
  switch (Type()) {
    case SS_BLACKRECT:
    case SS_GRAYRECT:
    case SS_WHITERECT: FillRect(dc, &rect, BrushOfType(Type())); break;
    case SS_BLACKFRAME:
    case SS_GRAYFRAME:
    case SS_WHITEFRAME: FrameRect(dc, &rect, BrushOfType(Type())); break;
    case SS_ETCHEDHORZ: DrawEdge(dc, &rect, EDGE_ETCHED, BF_TOP | BF_BOTTOM); break;
    case SS_ETCHEDVERT: DrawEdge(dc, &rect, EDGE_ETCHED, BF_LEFT | BF_RIGHT); break;
    case SS_ETCHEDFRAME: DrawEdge(dc, &rect, EDGE_ETCHED, BF_RECT); break;
    default: break;
  }
}

void Static::Paint(HDC dc) {
  const RECT rect = ClientRect();
  const HBRUSH brush = AskColors(WM_CTLCOLORSTATIC, dc);
  if (PictureType() != static_cast<UINT>(-1)) return PaintPicture(dc, rect, brush);
  if (!IsText()) return PaintFrame(dc, rect);
  FillRect(dc, &rect, brush);
  PaintText(dc, rect);
}

LRESULT Static::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const bool notifies = (Style() & SS_NOTIFY) != 0;
  switch (message) {
    case WM_CREATE: return OnCreate(*reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_DESTROY:
      if (m_ownsPicture) DeleteObject(m_picture);
      m_ownsPicture = false;
      m_picture = nullptr;
      return 0;
    case WM_NCHITTEST: return notifies ? HTCLIENT : HTTRANSPARENT;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    case WM_SETTEXT: {
      const LRESULT result = Default(message, wParam, lParam);
      if (IsText()) Invalidate(false);
      return result;
    }
    case WM_ENABLE:
      Invalidate();
      if (notifies) Notify(wParam ? STN_ENABLE : STN_DISABLE);
      return 0;
    case WM_SETFONT:
      if (!IsText()) return 0;
      m_font = reinterpret_cast<HFONT>(wParam);
      if (LOWORD(lParam)) Invalidate();
      return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_font);
    case WM_GETDLGCODE: return DLGC_STATIC;
    case WM_LBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
      if (notifies) Notify(STN_CLICKED);
      return 0;
    case WM_LBUTTONDBLCLK:
    case WM_NCLBUTTONDBLCLK:
      if (notifies) Notify(STN_DBLCLK);
      return 0;
    case STM_GETIMAGE: return reinterpret_cast<LRESULT>(PictureIf(static_cast<UINT>(wParam)));
    case STM_GETICON: return reinterpret_cast<LRESULT>(PictureIf(IMAGE_ICON));
    case STM_SETIMAGE: return SetImage(static_cast<UINT>(wParam), reinterpret_cast<HANDLE>(lParam));
    case STM_SETICON: return SetImage(IMAGE_ICON, reinterpret_cast<HANDLE>(wParam));
    default: return Default(message, wParam, lParam);
  }
}

}  // namespace desktop
