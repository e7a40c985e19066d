// Frame, caption and menu bar: their measures, hit tests and looks.
#include <algorithm>

#include "controls/menu_bar.h"
#include "controls/window_menu.h"
#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

bool HasThickFrame(DWORD style) {
  return (style & WS_THICKFRAME) && (style & (WS_DLGFRAME | WS_BORDER)) != WS_DLGFRAME;
}

bool HasDialogFrame(DWORD style, DWORD exStyle) {
  return (exStyle & WS_EX_DLGMODALFRAME) ||
         ((style & WS_DLGFRAME) && (style & (WS_DLGFRAME | WS_BORDER)) != WS_BORDER);
}

bool HasThinFrame(DWORD style) { return (style & WS_BORDER) || !(style & (WS_CHILD | WS_POPUP)); }

int FrameWidth(DWORD style, DWORD exStyle) {
  int width = 0;
  if ((exStyle & (WS_EX_STATICEDGE | WS_EX_DLGMODALFRAME)) == WS_EX_STATICEDGE) {
    width = 1;
  } else if ((exStyle & WS_EX_DLGMODALFRAME) || (style & (WS_THICKFRAME | WS_DLGFRAME))) {
    width = 2;
  }
  if (style & WS_THICKFRAME) width += Metric(SM_CXFRAME) - Metric(SM_CXDLGFRAME);
  if ((style & (WS_BORDER | WS_DLGFRAME)) || (exStyle & WS_EX_DLGMODALFRAME)) ++width;
  return width;
}

int CaptionHeight(DWORD exStyle) {
  return Metric(exStyle & WS_EX_TOOLWINDOW ? SM_CYSMCAPTION : SM_CYCAPTION);
}

struct Facts {
  DWORD style = 0;
  DWORD exStyle = 0;
  RECT whole{};    // on the screen
  RECT client{};   // on the screen
  RECT menuBar{};  // in window coordinates
  bool active = false;
  std::wstring text;
  HICON icon = nullptr;
};

bool Learn(HWND handle, Facts& facts) {
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  if (!window) return false;
  facts = {window->style,          window->exStyle,
           WindowOnScreen(window), ClientOnScreen(window),
           window->menuBar,        window->ncActive,
           window->text,           window->iconSmall ? window->iconSmall : window->iconBig};
  if (!facts.icon) facts.icon = window->cls->iconSmall ? window->cls->iconSmall : window->cls->icon;
  return true;
}

bool ShowsIcon(const Facts& facts) {
  return (facts.style & WS_SYSMENU) && !(facts.exStyle & (WS_EX_TOOLWINDOW | WS_EX_DLGMODALFRAME)) &&
         facts.icon;
}

LRESULT HitThickFrame(const RECT& inner, POINT point) {
  const int cx = Metric(SM_CXSIZE);
  const int cy = Metric(SM_CYSIZE);
  const bool left = point.x < inner.left + cx;
  const bool right = point.x >= inner.right - cx;
  if (point.y < inner.top) return left ? HTTOPLEFT : right ? HTTOPRIGHT : HTTOP;
  if (point.y >= inner.bottom) return left ? HTBOTTOMLEFT : right ? HTBOTTOMRIGHT : HTBOTTOM;
  const bool top = point.y < inner.top + cy;
  const bool bottom = point.y >= inner.bottom - cy;
  if (point.x < inner.left) return top ? HTTOPLEFT : bottom ? HTBOTTOMLEFT : HTLEFT;
  return top ? HTTOPRIGHT : bottom ? HTBOTTOMRIGHT : HTRIGHT;
}

LRESULT HitCaption(const Facts& facts, RECT inner, POINT point) {
  const bool tool = facts.exStyle & WS_EX_TOOLWINDOW;
  const bool boxes = facts.style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
  const int height = CaptionHeight(facts.exStyle);
  if (ShowsIcon(facts)) inner.left += height - 1;
  if (point.x < inner.left) return HTSYSMENU;
  if (facts.style & WS_SYSMENU) inner.right -= height;
  if (point.x > inner.right) return HTCLOSE;
  if (boxes && !tool) {
    inner.right -= Metric(SM_CXSIZE) + 1;
    if (point.x > inner.right) return HTMAXBUTTON;
    inner.right -= Metric(SM_CXSIZE) + 1;
    if (point.x > inner.right) return HTMINBUTTON;
  }
  return HTCAPTION;
}

LRESULT HitBars(HWND handle, const Facts& facts, POINT point) {
  const POINT inside{point.x - facts.whole.left, point.y - facts.whole.top};
  WorldLock lock(WorldMutex());
  const Window* window = FromHandle(handle);
  if (!window) return HTNOWHERE;
  const RECT vertical = ScrollBarRect(window, SB_VERT);
  const RECT horizontal = ScrollBarRect(window, SB_HORZ);
  if (PtInRect(&vertical, inside)) return HTVSCROLL;
  if (PtInRect(&horizontal, inside)) return HTHSCROLL;
  const RECT corner{vertical.left, horizontal.top, vertical.right, horizontal.bottom};
  if (!IsRectEmpty(&vertical) && !IsRectEmpty(&horizontal) && PtInRect(&corner, inside)) return HTSIZE;
  if (PtInRect(&facts.menuBar, inside)) return HTMENU;
  return HTNOWHERE;
}

void Fill(HDC dc, const RECT& rect, int color) { FillRect(dc, &rect, GetSysColorBrush(color)); }

void FrameLines(HDC dc, RECT& rect, int width, int color) {
  if (width <= 0) return;
  Fill(dc, {rect.left, rect.top, rect.right, rect.top + width}, color);
  Fill(dc, {rect.left, rect.bottom - width, rect.right, rect.bottom}, color);
  Fill(dc, {rect.left, rect.top, rect.left + width, rect.bottom}, color);
  Fill(dc, {rect.right - width, rect.top, rect.right, rect.bottom}, color);
  InflateRect(&rect, -width, -width);
}

void PaintBorder(HDC dc, const Facts& facts, RECT& rect) {
  const DWORD style = facts.style;
  const DWORD exStyle = facts.exStyle;
  const bool edge = (exStyle & (WS_EX_STATICEDGE | WS_EX_DLGMODALFRAME)) == WS_EX_STATICEDGE;
  const bool big = (exStyle & WS_EX_DLGMODALFRAME) || (style & (WS_THICKFRAME | WS_DLGFRAME));
  if (edge) {
    DrawEdge(dc, &rect, BDR_SUNKENOUTER, BF_RECT | BF_ADJUST);
  } else if (big) {
    DrawEdge(dc, &rect, EDGE_RAISED, BF_RECT | BF_ADJUST);
  }
  if (style & WS_THICKFRAME)
    FrameLines(dc, rect, Metric(SM_CXFRAME) - Metric(SM_CXDLGFRAME),
               facts.active ? COLOR_ACTIVEBORDER : COLOR_INACTIVEBORDER);
  if (!(style & (WS_BORDER | WS_DLGFRAME)) && !(exStyle & WS_EX_DLGMODALFRAME)) return;
  const bool face = (exStyle & WS_EX_DLGMODALFRAME) || (style & (WS_DLGFRAME | WS_THICKFRAME));
  FrameLines(dc, rect, 1, face ? COLOR_3DFACE : COLOR_WINDOWFRAME);
}

void PaintCaptionBack(HDC dc, const RECT& bar, bool active) {
  const COLORREF from = GetSysColor(active ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION);
  const COLORREF to = GetSysColor(active ? COLOR_GRADIENTACTIVECAPTION : COLOR_GRADIENTINACTIVECAPTION);
  const auto vertex = [](LONG x, LONG y, COLORREF color) {
    return TRIVERTEX{x,
                     y,
                     static_cast<COLOR16>(GetRValue(color) << 8),
                     static_cast<COLOR16>(GetGValue(color) << 8),
                     static_cast<COLOR16>(GetBValue(color) << 8),
                     0};
  };
  TRIVERTEX vertices[] = {vertex(bar.left, bar.top, from), vertex(bar.right, bar.bottom, to)};
  GRADIENT_RECT mesh{0, 1};
  GradientFill(dc, vertices, 2, &mesh, 1, GRADIENT_FILL_RECT_H);
}

void PaintButton(HDC dc, RECT& bar, UINT state, int width, int gap) {
  RECT button{bar.right - width - gap, bar.top + 2, bar.right - gap, bar.bottom - 2};
  DrawFrameControl(dc, &button, DFC_CAPTION, state);
  bar.right = button.left;
}

void PaintButtons(HDC dc, const Facts& facts, RECT& bar) {
  if (!(facts.style & WS_SYSMENU)) return;
  const bool tool = facts.exStyle & WS_EX_TOOLWINDOW;
  const int width = Metric(tool ? SM_CXSMSIZE : SM_CXSIZE) - 2;
  PaintButton(dc, bar, DFCS_CAPTIONCLOSE, width, 2);
  if (tool || !(facts.style & (WS_MINIMIZEBOX | WS_MAXIMIZEBOX))) return;
  const bool zoomed = facts.style & WS_MAXIMIZE;
  const bool canMax = facts.style & WS_MAXIMIZEBOX;
  const bool canMin = facts.style & WS_MINIMIZEBOX;
  PaintButton(dc, bar, (zoomed ? DFCS_CAPTIONRESTORE : DFCS_CAPTIONMAX) | (canMax ? 0 : DFCS_INACTIVE), width,
              2);
  PaintButton(dc, bar, DFCS_CAPTIONMIN | (canMin ? 0 : DFCS_INACTIVE), width, 0);
}

void PaintCaptionText(HDC dc, const Facts& facts, RECT bar) {
  if (facts.text.empty()) return;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  const bool tool = facts.exStyle & WS_EX_TOOLWINDOW;
  const HFONT font = CreateFontIndirectW(tool ? &metrics.lfSmCaptionFont : &metrics.lfCaptionFont);
  if (!font) return;
  const HGDIOBJ old = SelectObject(dc, font);
  SetTextColor(dc, GetSysColor(facts.active ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT));
  SetBkMode(dc, TRANSPARENT);
  bar.left += 3;
  bar.right -= 2;
  DrawTextW(dc, facts.text.c_str(), static_cast<int>(facts.text.size()), &bar,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_LEFT | DT_END_ELLIPSIS);
  SelectObject(dc, old);
  DeleteObject(font);
}

void PaintCaption(HDC dc, const Facts& facts, RECT& rect) {
  RECT bar = rect;
  bar.bottom = bar.top + CaptionHeight(facts.exStyle) - 1;
  rect.top += CaptionHeight(facts.exStyle);
  Fill(dc, {bar.left, bar.bottom, bar.right, bar.bottom + 1}, COLOR_3DFACE);
  PaintCaptionBack(dc, bar, facts.active);
  PaintButtons(dc, facts, bar);
  if (ShowsIcon(facts)) {
    const int size = Metric(SM_CXSMICON);
    DrawIconEx(dc, bar.left + 2, bar.top + (bar.bottom - bar.top - size) / 2, facts.icon, size, size, 0,
               nullptr, DI_NORMAL);
    bar.left += size + 2;
  }
  PaintCaptionText(dc, facts, bar);
}

}  // namespace

SIZE FrameSize(DWORD style, DWORD exStyle) {
  const int width = FrameWidth(style, exStyle);
  return {width, width};
}

void AdjustForFrame(RECT& rect, DWORD style, DWORD exStyle) {
  const int width = FrameWidth(style, exStyle);
  InflateRect(&rect, width, width);
  if (HasCaption(style)) rect.top -= CaptionHeight(exStyle);
}

LRESULT DefNcCalcSize(HWND handle, WPARAM wParam, LPARAM lParam) {
  if (!lParam) return 0;
  auto& rect = *reinterpret_cast<RECT*>(lParam);
  WorldLock lock(WorldMutex());
  Window* window = FromHandle(handle);
  if (!window) return 0;
  LRESULT result = 0;
  if (wParam) {
    if (window->cls->style & CS_VREDRAW) result |= WVR_VREDRAW;
    if (window->cls->style & CS_HREDRAW) result |= WVR_HREDRAW;
  }
  window->menuBar = {};
  if (window->style & WS_MINIMIZE) {
    rect.right = rect.left;
    rect.bottom = rect.top;
    return result;
  }
  const RECT outer = rect;
  RECT frame{};
  AdjustForFrame(frame, window->style, window->exStyle);
  rect.left -= frame.left;
  rect.top -= frame.top;
  rect.right -= frame.right;
  rect.bottom -= frame.bottom;
  if (!window->IsChildStyle() && window->menu) {
    const int height = MenuBarHeight(window->menu, rect.right - rect.left);
    window->menuBar = {rect.left - outer.left, rect.top - outer.top, rect.right - outer.left,
                       rect.top - outer.top + height};
    rect.top += height;
  }
  if (window->exStyle & WS_EX_CLIENTEDGE) {
    const int edge = Metric(SM_CXEDGE);
    if (rect.right - rect.left > 2 * edge && rect.bottom - rect.top > 2 * edge)
      InflateRect(&rect, -edge, -edge);
  }
  const int barX = Metric(SM_CXVSCROLL);
  const int barY = Metric(SM_CYHSCROLL);
  if ((window->style & WS_VSCROLL) && rect.right - rect.left >= barX) {
    if (window->exStyle & WS_EX_LEFTSCROLLBAR) {
      rect.left += barX;
    } else {
      rect.right -= barX;
    }
  }
  if ((window->style & WS_HSCROLL) && rect.bottom - rect.top > barY) rect.bottom -= barY;
  rect.bottom = std::max(rect.bottom, rect.top);
  rect.right = std::max(rect.right, rect.left);
  return result;
}

LRESULT DefNcHitTest(HWND handle, POINT point) {
  Facts facts;
  if (!Learn(handle, facts) || !PtInRect(&facts.whole, point)) return HTNOWHERE;
  if (facts.style & WS_MINIMIZE) return HTCAPTION;
  if (PtInRect(&facts.client, point)) return HTCLIENT;
  RECT inner = facts.whole;
  if (HasThickFrame(facts.style)) {
    InflateRect(&inner, -Metric(SM_CXFRAME), -Metric(SM_CYFRAME));
    if (!PtInRect(&inner, point)) return HitThickFrame(inner, point);
  } else {
    const int width = HasDialogFrame(facts.style, facts.exStyle) ? Metric(SM_CXDLGFRAME)
                      : HasThinFrame(facts.style)                ? Metric(SM_CXBORDER)
                                                                 : 0;
    InflateRect(&inner, -width, -width);
    if (!PtInRect(&inner, point)) return HTBORDER;
  }
  if (HasCaption(facts.style)) {
    RECT below = inner;
    below.top += CaptionHeight(facts.exStyle) - 1;
    if (!PtInRect(&below, point)) return HitCaption(facts, inner, point);
  }
  return HitBars(handle, facts, point);
}

void PaintNonClient(HWND handle, HRGN clip) {
  Facts facts;
  if (!Learn(handle, facts) || !IsWindowVisible(handle) || (facts.style & WS_MINIMIZE)) return;
  const bool part = reinterpret_cast<ULONG_PTR>(clip) > 1;
  const HDC dc = GetDCEx(handle, part ? clip : nullptr,
                         DCX_USESTYLE | DCX_WINDOW | DCX_CACHE | (part ? DCX_INTERSECTRGN : 0));
  if (!dc) return;
  RECT rect{0, 0, facts.whole.right - facts.whole.left, facts.whole.bottom - facts.whole.top};
  RECT client = facts.client;
  OffsetRect(&client, -facts.whole.left, -facts.whole.top);
  ExcludeClipRect(dc, client.left, client.top, client.right, client.bottom);
  PaintBorder(dc, facts, rect);
  if (HasCaption(facts.style)) PaintCaption(dc, facts, rect);
  if (!IsRectEmpty(&facts.menuBar)) {
    PaintMenuBar(handle, dc, facts.menuBar);
    rect.top = facts.menuBar.bottom;
  }
  if (facts.exStyle & WS_EX_CLIENTEDGE) DrawEdge(dc, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  PaintScrollBars(handle, dc);
  ReleaseDC(handle, dc);
}

LRESULT DefNcPaint(HWND window, HRGN clip) {
  PaintNonClient(window, clip);
  return 0;
}

HMENU WindowMenu(HWND handle) {
  const Window* window = FromHandle(handle);
  return window && !window->IsChildStyle() ? window->menu : nullptr;
}

void SetWindowMenu(HWND handle, HMENU menu) {
  Window* window = FromHandle(handle);
  if (window && !window->IsChildStyle()) window->menu = menu;
}

RECT MenuBarRect(HWND handle) {
  const Window* window = FromHandle(handle);
  return window ? window->menuBar : RECT{};
}

HMENU& WindowSystemMenu(HWND handle) {
  static HMENU none;
  Window* window = FromHandle(handle);
  return window ? window->systemMenu : none = nullptr;
}

}  // namespace desktop

BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle) {
  if (!rect) return FALSE;
  *rect = Near(*rect);
  WorldLock lock(WorldMutex());
  style &= ~(WS_VSCROLL | WS_HSCROLL);
  AdjustForFrame(*rect, style, exStyle);
  if (menu) rect->top -= Metric(SM_CYMENU);
  if (exStyle & WS_EX_CLIENTEDGE) InflateRect(rect, Metric(SM_CXEDGE), Metric(SM_CYEDGE));
  return TRUE;
}

BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu) {
  return AdjustWindowRectEx(rect, style, menu, 0);
}

BOOL WINAPI FlashWindow(HWND handle, BOOL invert) {
  bool active;
  {
    WorldLock lock(WorldMutex());
    Window* window = FromHandleOrError(handle);
    if (!window) return FALSE;
    active = window->ncActive;
  }
  Send(handle, WM_NCACTIVATE, invert ? !active : GetForegroundWindow() == handle);
  return active;
}
