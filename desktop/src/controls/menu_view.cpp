#include "controls/menu_view.h"

#include <algorithm>
#include <utility>

#include "world.h"

namespace desktop {

namespace {

constexpr int kMargin = 3;  // of a popup around its items
constexpr int kSeparatorHeight = 9;
constexpr int kItemGap = 4;  // between the lines of text
constexpr int kBarItemGap = 12;
constexpr int kTextIndent = 4;  // beside the place of the check mark
constexpr int kEdgeGap = 6;     // all blank space of an item besides mark, text and arrow

HFONT& KeptFont() {
  static HFONT font = nullptr;
  return font;
}

const RegisterReset g_reset(0, [] { KeptFont() = nullptr; });

int MarkWidth() { return GetSystemMetrics(SM_CXMENUCHECK); }

class MeasuringDC {
 public:
  MeasuringDC() : m_dc(GetDC(nullptr)), m_before(SelectObject(m_dc, MenuFont())) {}
  MeasuringDC(const MeasuringDC&) = delete;
  MeasuringDC& operator=(const MeasuringDC&) = delete;
  ~MeasuringDC() {
    SelectObject(m_dc, m_before);
    ReleaseDC(nullptr, m_dc);
  }
  operator HDC() const { return m_dc; }

 private:
  const HDC m_dc;
  const HGDIOBJ m_before;
};

SIZE TextSize(HDC dc, const std::wstring& text, UINT format = 0) {
  RECT rect{};
  if (!text.empty()) DrawTextW(dc, text.c_str(), -1, &rect, DT_SINGLELINE | DT_CALCRECT | format);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  return {rect.right, metrics.tmHeight};
}

SIZE BitmapSize(HBITMAP bitmap) {
  BITMAP info{};
  if (bitmap && bitmap != HBMMENU_CALLBACK) GetObjectW(bitmap, sizeof info, &info);
  return {info.bmWidth, info.bmHeight};
}

// An owner is asked for the size of what it draws itself.
SIZE OwnerSize(const Menu& menu, const MenuItem& item) {
  MEASUREITEMSTRUCT measure{ODT_MENU, 0, item.id, 0, 0, item.data};
  if (menu.owner) SendMessageW(menu.owner, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measure));
  return {static_cast<LONG>(measure.itemWidth) + MarkWidth(), static_cast<LONG>(measure.itemHeight)};
}

struct Columns {
  int width = 0;
  int tab = 0;
  int tabWidth = 0;
};

int ItemHeight(HDC dc, const Menu& menu, MenuItem& item, Columns& columns) {
  if (item.type & MFT_OWNERDRAW) {
    const SIZE size = OwnerSize(menu, item);
    columns.width = std::max<int>(columns.width, size.cx);
    return size.cy;
  }
  if (item.IsSeparator()) return kSeparatorHeight;
  const int blank = 2 * MarkWidth() + kEdgeGap;
  const SIZE bitmap = BitmapSize(item.bitmap);
  const size_t tab = item.text.find(L'\t');
  const SIZE text = TextSize(dc, item.text.substr(0, tab), tab == std::wstring::npos ? 0 : DT_NOPREFIX);
  int width = blank + text.cx + bitmap.cx;
  item.tab = 0;
  if (tab != std::wstring::npos) {
    const int letter =
        (TextSize(dc, L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz").cx / 26 + 1) / 2;
    columns.tab = std::max(columns.tab, width + letter);
    columns.tabWidth = std::max<int>(columns.tabWidth, TextSize(dc, item.text.substr(tab + 1)).cx);
    width = 0;
  }
  columns.width = std::max(columns.width, width);
  return std::max<int>(text.cy + kItemGap, bitmap.cy + 2);
}

void FillItem(HDC dc, const RECT& rect, bool highlighted) {
  FillRect(dc, &rect, GetSysColorBrush(highlighted ? COLOR_HIGHLIGHT : COLOR_MENU));
}

// Grey text has a light shadow, unless it stands on the highlight.
void DrawItemText(HDC dc, RECT rect, const std::wstring& text, UINT format, bool grayed, bool highlighted) {
  SetBkMode(dc, TRANSPARENT);
  if (grayed && !highlighted) {
    RECT shadow = rect;
    OffsetRect(&shadow, 1, 1);
    SetTextColor(dc, GetSysColor(COLOR_3DHIGHLIGHT));
    DrawTextW(dc, text.c_str(), -1, &shadow, format | DT_SINGLELINE | DT_VCENTER);
  }
  SetTextColor(dc, GetSysColor(grayed ? COLOR_GRAYTEXT : highlighted ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
  DrawTextW(dc, text.c_str(), -1, &rect, format | DT_SINGLELINE | DT_VCENTER);
}

// Draws a monochrome sign of the system in the colour of the text.
void DrawSign(HDC dc, const RECT& rect, UINT sign, bool highlighted) {
  const HDC memory = CreateCompatibleDC(dc);
  const int width = rect.right - rect.left;
  const int height = rect.bottom - rect.top;
  const HBITMAP bitmap = memory ? CreateBitmap(width, height, 1, 1, nullptr) : nullptr;
  if (bitmap) {
    const HGDIOBJ before = SelectObject(memory, bitmap);
    RECT whole{0, 0, width, height};
    DrawFrameControl(memory, &whole, DFC_MENU, sign);
    SetTextColor(dc, GetSysColor(highlighted ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
    SetBkColor(dc, GetSysColor(highlighted ? COLOR_HIGHLIGHT : COLOR_MENU));
    BitBlt(dc, rect.left, rect.top, width, height, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteObject(bitmap);
  }
  if (memory) DeleteDC(memory);
}

void DrawBitmapAt(HDC dc, HBITMAP bitmap, int x, int centreY) {
  const SIZE size = BitmapSize(bitmap);
  const HDC memory = size.cx ? CreateCompatibleDC(dc) : nullptr;
  if (!memory) return;
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(dc, x, centreY - size.cy / 2, size.cx, size.cy, memory, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
}

void DrawMark(HDC dc, const MenuItem& item, bool highlighted) {
  const bool checked = (item.state & MF_CHECKED) != 0;
  const int centre = (item.rect.top + item.rect.bottom) / 2;
  if (const HBITMAP own = checked ? item.checkedBitmap : item.uncheckedBitmap)
    return DrawBitmapAt(dc, own, item.rect.left, centre);
  if (!checked) return;
  const int height = GetSystemMetrics(SM_CYMENUCHECK);
  const RECT mark{item.rect.left, centre - height / 2, item.rect.left + MarkWidth(),
                  centre - height / 2 + height};
  DrawSign(dc, mark, (item.type & MFT_RADIOCHECK) ? DFCS_MENUBULLET : DFCS_MENUCHECK, highlighted);
}

void DrawByOwner(HDC dc, const Menu& menu, const MenuItem& item, UINT action) {
  UINT state = 0;
  if (item.state & MF_HILITE) state |= ODS_SELECTED;
  if (item.state & MF_CHECKED) state |= ODS_CHECKED;
  if (item.state & MF_GRAYED) state |= ODS_GRAYED | ODS_DISABLED;
  DRAWITEMSTRUCT draw{ODT_MENU, 0,         item.id,  action, state, reinterpret_cast<HWND>(menu.handle),
                      dc,       item.rect, item.data};
  if (menu.owner) SendMessageW(menu.owner, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&draw));
}

void DrawPopupItem(HDC dc, const Menu& menu, const MenuItem& item) {
  if (item.type & MFT_OWNERDRAW) return DrawByOwner(dc, menu, item, ODA_DRAWENTIRE);
  const bool highlighted = (item.state & MF_HILITE) && !item.IsSeparator();
  const bool grayed = (item.state & MF_GRAYED) != 0;
  FillItem(dc, item.rect, highlighted);
  if (item.IsSeparator()) {
    RECT line{item.rect.left, item.rect.top + kSeparatorHeight / 2, item.rect.right,
              item.rect.top + kSeparatorHeight / 2 + 1};
    FillRect(dc, &line, GetSysColorBrush(COLOR_3DSHADOW));
    return;
  }
  DrawMark(dc, item, highlighted);
  RECT text = item.rect;
  text.left += MarkWidth() + kTextIndent;
  if (const SIZE bitmap = BitmapSize(item.bitmap); bitmap.cx) {
    DrawBitmapAt(dc, item.bitmap, text.left, (text.top + text.bottom) / 2);
    text.left += bitmap.cx;
  }
  const size_t tab = item.text.find(L'\t');
  DrawItemText(dc, text, item.text.substr(0, tab), DT_LEFT, grayed, highlighted);
  if (tab != std::wstring::npos) {
    text.left = item.rect.left + item.tab;
    DrawItemText(dc, text, item.text.substr(tab + 1), DT_LEFT, grayed, highlighted);
  }
  if (!item.submenu) return;
  RECT arrow = item.rect;
  arrow.left = arrow.right - MarkWidth();
  arrow.top = (arrow.top + arrow.bottom - MarkWidth()) / 2;
  arrow.bottom = arrow.top + MarkWidth();
  DrawSign(dc, arrow, DFCS_MENUARROW, highlighted);
}

// A copy to paint from: painting sends messages, and the menu may change in them.
bool CopyMenu(HMENU handle, Menu& copy) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  if (menu) copy = *menu;
  return menu != nullptr;
}

HMENU MenuOfPopup(HWND window) { return reinterpret_cast<HMENU>(GetWindowLongPtrW(window, 0)); }

// As near to the wish as the screen allows; beside the rectangle, a popup goes to its other side.
POINT PlaceOnScreen(POINT at, SIZE size, UINT flags, const RECT& beside) {
  if (flags & TPM_RIGHTALIGN) at.x -= size.cx;
  if (flags & TPM_CENTERALIGN) at.x -= size.cx / 2;
  if (flags & TPM_BOTTOMALIGN) at.y -= size.cy;
  if (flags & TPM_VCENTERALIGN) at.y -= size.cy / 2;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromPoint(at, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& screen = monitor.rcMonitor;
  if (at.x + size.cx > screen.right)
    at.x = IsRectEmpty(&beside) || size.cx > beside.left ? screen.right - size.cx : beside.left - size.cx;
  if (at.y + size.cy > screen.bottom)
    at.y = IsRectEmpty(&beside) || size.cy > beside.top ? screen.bottom - size.cy : beside.top - size.cy;
  return {std::max(at.x, screen.left), std::max(at.y, screen.top)};
}

}  // namespace

HFONT MenuFont() {
  WorldLock lock(WorldMutex());
  HFONT& font = KeptFont();
  if (font) return font;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return font = CreateFontIndirectW(&metrics.lfMenuFont);
}

SIZE LayOutPopup(Menu& menu) {
  const MeasuringDC dc;
  Columns columns;
  int y = kMargin;
  for (MenuItem& item : menu.items) {
    const int height = ItemHeight(dc, menu, item, columns);
    item.rect = {kMargin, y, kMargin, y + height};
    y += height;
  }
  const int width = std::max(columns.width, columns.tab + columns.tabWidth);
  for (MenuItem& item : menu.items) {
    item.rect.right = kMargin + width;
    item.tab = columns.tab - MarkWidth() - kEdgeGap + kTextIndent;
  }
  return menu.size = {width + 2 * kMargin, y + kMargin};
}

int LayOutBar(Menu& menu, POINT corner, int width) {
  const MeasuringDC dc;
  const int rowHeight = GetSystemMetrics(SM_CYMENU);
  int x = corner.x;
  int y = corner.y;
  for (MenuItem& item : menu.items) {
    const int needed = TextSize(dc, item.text).cx + BitmapSize(item.bitmap).cx + kBarItemGap;
    const bool breaks = (item.type & (MFT_MENUBREAK | MFT_MENUBARBREAK)) || x + needed > corner.x + width;
    if (breaks && x > corner.x) {
      x = corner.x;
      y += rowHeight;
    }
    item.rect = {x, y + 1, x + needed, y + rowHeight};
    x += needed;
  }
  return y + rowHeight - corner.y;
}

void PaintPopup(HWND window, HDC dc, HMENU handle, int onlyItem) {
  Menu menu;
  if (!CopyMenu(handle, menu)) return;
  const int saved = SaveDC(dc);
  SelectObject(dc, MenuFont());
  if (onlyItem < 0) {
    RECT client{};
    GetClientRect(window, &client);
    FillRect(dc, &client, GetSysColorBrush(COLOR_MENU));
    FrameRect(dc, &client, GetSysColorBrush(COLOR_3DSHADOW));
  }
  for (size_t i = 0; i < menu.items.size(); ++i)
    if (onlyItem < 0 || static_cast<size_t>(onlyItem) == i) DrawPopupItem(dc, menu, menu.items[i]);
  RestoreDC(dc, saved);
}

void PaintBarItem(HDC dc, HMENU handle, int position) {
  Menu menu;
  if (!CopyMenu(handle, menu) || position < 0 || static_cast<size_t>(position) >= menu.items.size()) return;
  const MenuItem& item = menu.items[static_cast<size_t>(position)];
  const int saved = SaveDC(dc);
  SelectObject(dc, MenuFont());
  const bool highlighted = (item.state & MF_HILITE) != 0;
  FillItem(dc, item.rect, highlighted);
  RECT text = item.rect;
  if (item.bitmap) DrawBitmapAt(dc, item.bitmap, text.left + kBarItemGap / 2, (text.top + text.bottom) / 2);
  DrawItemText(dc, text, item.text, DT_CENTER, (item.state & MF_GRAYED) != 0, highlighted);
  RestoreDC(dc, saved);
}

LRESULT CALLBACK PopupProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE: {
      const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
      return 0;
    }
    case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: {
      PAINTSTRUCT paint{};
      const HDC dc = BeginPaint(window, &paint);
      PaintPopup(window, dc, MenuOfPopup(window), -1);
      EndPaint(window, &paint);
      return 0;
    }
    case WM_PRINTCLIENT: PaintPopup(window, reinterpret_cast<HDC>(wParam), MenuOfPopup(window), -1); return 0;
    default: return DefWindowProcW(window, message, wParam, lParam);
  }
}

HWND ShowPopup(HMENU handle, HWND owner, POINT at, UINT flags, const RECT& beside) {
  SIZE size{};
  {
    WorldLock lock(WorldMutex());
    Menu* menu = MenuFromHandle(handle);
    if (!menu) return nullptr;
    menu->owner = owner;
    menu->focused = -1;
    for (MenuItem& item : menu->items) item.state &= ~static_cast<UINT>(MF_HILITE);
  }
  {
    // Owner-drawn items are measured by their owner: a copy is laid out without the lock.
    Menu copy;
    if (!CopyMenu(handle, copy)) return nullptr;
    size = LayOutPopup(copy);
    WorldLock lock(WorldMutex());
    Menu* menu = MenuFromHandle(handle);
    if (!menu) return nullptr;
    for (size_t i = 0; i < std::min(menu->items.size(), copy.items.size()); ++i) {
      menu->items[i].rect = copy.items[i].rect;
      menu->items[i].tab = copy.items[i].tab;
    }
    menu->size = size;
  }
  const POINT place = PlaceOnScreen(at, size, flags, beside);
  const HWND window = CreateWindowExW(WS_EX_TOPMOST, MAKEINTATOM(32768), nullptr, WS_POPUP, place.x, place.y,
                                      size.cx, size.cy, owner, nullptr, nullptr, handle);
  if (!window) return nullptr;
  {
    WorldLock lock(WorldMutex());
    if (Menu* menu = MenuFromHandle(handle)) menu->window = window;
  }
  SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_SHOWWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
  UpdateWindow(window);
  return window;
}

void HidePopup(HMENU handle) {
  HWND window = nullptr;
  {
    WorldLock lock(WorldMutex());
    if (Menu* menu = MenuFromHandle(handle)) window = std::exchange(menu->window, nullptr);
  }
  if (window && IsWindow(window)) DestroyWindow(window);
}

}  // namespace desktop
