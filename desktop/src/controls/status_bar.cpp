#include "controls/status_bar.h"

#include <commctrl.h>

#include <algorithm>

namespace desktop {

namespace {

constexpr int kTopGap = 2;   // above the parts
constexpr int kPartGap = 2;  // between them
constexpr int kTextGap = 3;  // before the text of a part
constexpr size_t kMostParts = 256;
constexpr COLORREF kDefaultColor = 0xFF000000;

}  // namespace

int StatusBar::TextHeight() const {
  const ControlDC dc(Window(), m_font ? m_font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  return metrics.tmHeight;
}

bool StatusBar::HasGrip() const {
  const HWND parent = GetParent(Window());
  return (Style() & SBARS_SIZEGRIP) && parent && !IsZoomed(parent);
}

// The bar keeps to the bottom of its parent, over the whole width.
void StatusBar::AdjustSize() {
  const HWND parent = GetParent(Window());
  if (!parent || (Style() & CCS_NORESIZE)) return;
  RECT client{};
  GetClientRect(parent, &client);
  const int height = kTopGap + std::max(TextHeight() + 4, m_minHeight) + 2;
  if (Style() & CCS_NOPARENTALIGN) {
    RECT now{};
    GetWindowRect(Window(), &now);
    SetWindowPos(Window(), nullptr, 0, 0, now.right - now.left, height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return;
  }
  SetWindowPos(Window(), nullptr, 0, client.bottom - height, client.right, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  Invalidate();
}

RECT StatusBar::PartRect(size_t index) const {
  const RECT client = ClientRect();
  if (m_simple) return {0, kTopGap, client.right, client.bottom};
  const int left = index > 0 ? m_parts[index - 1].right + kPartGap : 0;
  const int right = m_parts[index].right;
  return {left, kTopGap, right < 0 ? client.right : right, client.bottom};
}

StatusBar::Part* StatusBar::Find(int index) {
  if (index == SB_SIMPLEID) return &m_simplePart;
  return index >= 0 && static_cast<size_t>(index) < m_parts.size() ? &m_parts[static_cast<size_t>(index)]
                                                                   : nullptr;
}

bool StatusBar::SetParts(int count, const int* rights) {
  if (count <= 0 || static_cast<size_t>(count) > kMostParts || !rights) return false;
  m_parts.resize(static_cast<size_t>(count));
  for (size_t i = 0; i < m_parts.size(); ++i) m_parts[i].right = rights[i];
  Invalidate();
  return true;
}

bool StatusBar::SetText(WPARAM which, LPARAM text) {
  Part* part = Find(LOBYTE(which));
  if (!part) return false;
  part->type = static_cast<UINT>(which) & 0xFF00;
  if (part->type & SBT_OWNERDRAW) {
    part->ownerData = text;
  } else {
    part->text = text ? reinterpret_cast<LPCWSTR>(text) : L"";
  }
  Invalidate(false);
  return true;
}

// Tabulators in a text lead from the left to the middle and to the right.
void StatusBar::PaintPart(HDC dc, RECT rect, const Part& part, int index) {
  if (part.type & SBT_OWNERDRAW) {
    const UINT id = static_cast<UINT>(GetDlgCtrlID(Window()));
    DRAWITEMSTRUCT draw{
        0, id, static_cast<UINT>(index), 0, 0, Window(), dc, rect, static_cast<ULONG_PTR>(part.ownerData)};
    SendMessageW(GetParent(Window()), WM_DRAWITEM, id, reinterpret_cast<LPARAM>(&draw));
    return;
  }
  if (!(part.type & SBT_NOBORDERS))
    DrawEdge(dc, &rect, (part.type & SBT_POPOUT) ? BDR_RAISEDOUTER : BDR_SUNKENOUTER, BF_RECT | BF_ADJUST);
  UINT align = DT_LEFT;
  const wchar_t* text = part.text.c_str();
  if (*text == L'\t') {
    align = DT_CENTER;
    if (*++text == L'\t') {
      align = DT_RIGHT;
      ++text;
    }
  }
  rect.left += kTextGap;
  SetBkMode(dc, TRANSPARENT);
  DrawTextW(dc, text, -1, &rect, align | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void StatusBar::Paint(HDC dc) {
  const RECT client = ClientRect();
  const bool ownColor = m_background != CLR_INVALID && m_background != kDefaultColor;
  const HBRUSH brush = ownColor ? CreateSolidBrush(m_background) : GetSysColorBrush(COLOR_3DFACE);
  FillRect(dc, &client, brush);
  if (ownColor) DeleteObject(brush);
  if (!m_font) SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
  if (m_simple) {
    PaintPart(dc, PartRect(0), m_simplePart, SB_SIMPLEID);
  } else {
    for (size_t i = 0; i < m_parts.size(); ++i) PaintPart(dc, PartRect(i), m_parts[i], static_cast<int>(i));
  }
  if (!HasGrip()) return;
  RECT grip = client;
  grip.left = grip.right - GetSystemMetrics(SM_CXVSCROLL) + 1;
  grip.top = grip.bottom - GetSystemMetrics(SM_CYHSCROLL) + 1;
  DrawFrameControl(dc, &grip, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
}

LRESULT StatusBar::HandleBar(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case SB_SETTEXTW: return SetText(wParam, lParam);
    case SB_GETTEXTLENGTHW:
    case SB_GETTEXTW: {
      const Part* part = Find(static_cast<int>(wParam));
      if (!part) return 0;
      if (message == SB_GETTEXTW && lParam) wcscpy(reinterpret_cast<LPWSTR>(lParam), part->text.c_str());
      return MAKELONG(static_cast<WORD>(part->text.size()), part->type);
    }
    case SB_SETPARTS: return SetParts(static_cast<int>(wParam), reinterpret_cast<const int*>(lParam));
    case SB_GETPARTS: {
      auto* rights = reinterpret_cast<int*>(lParam);
      const size_t wanted = std::min<size_t>(wParam, m_parts.size());
      for (size_t i = 0; rights && i < wanted; ++i) rights[i] = m_parts[i].right;
      return static_cast<LRESULT>(m_parts.size());
    }
    case SB_GETBORDERS: {
      auto* borders = reinterpret_cast<int*>(lParam);
      borders[0] = 0;
      borders[1] = kTopGap;
      borders[2] = kPartGap;
      return TRUE;
    }
    case SB_SETMINHEIGHT: m_minHeight = static_cast<int>(wParam); return 0;
    case SB_SIMPLE: {
      if (m_simple == (wParam != 0)) return TRUE;
      m_simple = wParam != 0;
      NMHDR changed{Window(), static_cast<UINT_PTR>(GetDlgCtrlID(Window())), SBN_SIMPLEMODECHANGE};
      SendMessageW(GetParent(Window()), WM_NOTIFY, changed.idFrom, reinterpret_cast<LPARAM>(&changed));
      Invalidate();
      return TRUE;
    }
    case SB_ISSIMPLE: return m_simple;
    case SB_GETRECT: {
      if (wParam >= m_parts.size()) return FALSE;
      *reinterpret_cast<RECT*>(lParam) = PartRect(wParam);
      return TRUE;
    }
    case SB_SETBKCOLOR: {
      const COLORREF before = m_background;
      m_background = static_cast<COLORREF>(lParam);
      Invalidate();
      return static_cast<LRESULT>(before);
    }
    default: return Default(message, wParam, lParam);
  }
}

LRESULT StatusBar::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= WM_USER) return HandleBar(message, wParam, lParam);
  switch (message) {
    case WM_CREATE: {
      const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      if (create->lpszName) m_parts[0].text = create->lpszName;
      AdjustSize();
      return 0;
    }
    case WM_SETTEXT:
      m_parts[0].text = lParam ? reinterpret_cast<LPCWSTR>(lParam) : L"";
      Invalidate(false);
      return TRUE;
    case WM_GETTEXTLENGTH: return static_cast<LRESULT>(m_parts[0].text.size());
    case WM_GETTEXT: {
      if (!wParam) return 0;
      lstrcpynW(reinterpret_cast<LPWSTR>(lParam), m_parts[0].text.c_str(), static_cast<int>(wParam));
      return lstrlenW(reinterpret_cast<LPCWSTR>(lParam));
    }
    case WM_SIZE: AdjustSize(); return 0;
    case WM_SETFONT:
      m_font = reinterpret_cast<HFONT>(wParam);
      if (LOWORD(lParam)) Invalidate();
      return 0;
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_font);
    case WM_NCHITTEST: {
      // The grip sizes the frame.
      POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
      ScreenToClient(Window(), &point);
      RECT client = ClientRect();
      client.left = client.right - GetSystemMetrics(SM_CXVSCROLL);
      if (HasGrip() && PtInRect(&client, point)) return HTBOTTOMRIGHT;
      return Default(message, wParam, lParam);
    }
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
    case WM_PRINTCLIENT: Paint(ControlPaint(Window(), wParam, m_font)); return 0;
    default: return Default(message, wParam, lParam);
  }
}

}  // namespace desktop

HWND CreateStatusWindowW(LONG style, LPCWSTR text, HWND parent, UINT id) {
  return CreateWindowExW(0, STATUSCLASSNAMEW, text, static_cast<DWORD>(style), CW_USEDEFAULT, CW_USEDEFAULT,
                         CW_USEDEFAULT, CW_USEDEFAULT, parent,
                         reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)), nullptr, nullptr);
}
