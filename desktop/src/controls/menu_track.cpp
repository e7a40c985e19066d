#include "controls/menu_track.h"

#include <algorithm>
#include <utility>

#include "controls/menu_bar.h"
#include "controls/menu_view.h"
#include "kernel/kernel.h"
#include "world.h"

namespace desktop {

namespace {

thread_local MenuLoop* t_current = nullptr;

// A copy of an item, if it is there.
bool ReadItem(HMENU handle, int position, MenuItem& item) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  if (!menu || position < 0 || static_cast<size_t>(position) >= menu->items.size()) return false;
  item = menu->items[static_cast<size_t>(position)];
  return true;
}

int FocusedOf(HMENU handle) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  return menu ? menu->focused : -1;
}

HWND WindowOf(HMENU handle) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  return menu ? menu->window : nullptr;
}

int CountOf(HMENU handle) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  return menu ? static_cast<int>(menu->items.size()) : 0;
}

bool IsSystem(HMENU handle) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  return menu && menu->system;
}

wchar_t LetterOf(const std::wstring& text) {
  for (size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != L'&') continue;
    if (text[i + 1] != L'&') return UpperCase(text[i + 1]);
    ++i;
  }
  return 0;
}

// The item that a letter means: the marked one, or else the only one that begins with it.
int FindByLetter(HMENU handle, wchar_t letter) {
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  if (!menu) return -1;
  const wchar_t wanted = UpperCase(letter);
  const auto at = std::find_if(menu->items.begin(), menu->items.end(), [=](const MenuItem& item) {
    return item.hasText && LetterOf(item.text) == wanted;
  });
  return at == menu->items.end() ? -1 : static_cast<int>(at - menu->items.begin());
}

// Position of a whole window's coordinates on the screen.
POINT OriginOf(HMENU handle, bool bar) {
  const HWND window = WindowOf(handle);
  RECT rect{};
  if (!window) return {};
  if (bar) {
    GetWindowRect(window, &rect);
    return {rect.left, rect.top};
  }
  POINT origin{};
  ClientToScreen(window, &origin);
  return origin;
}

}  // namespace

MenuLoop* MenuLoop::Current() { return t_current; }

// An exception of the host may end the loop before its time.
MenuLoop::~MenuLoop() {
  if (t_current == this) t_current = m_outer;
}

void MenuLoop::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (!(m_flags & TPM_NONOTIFY)) SendMessageW(m_owner, message, wParam, lParam);
}

void MenuLoop::Begin() {
  m_outer = std::exchange(t_current, this);
  HideCaret(nullptr);
  Send(WM_ENTERMENULOOP, !m_bar, 0);
  SendMessageW(m_owner, WM_SETCURSOR, reinterpret_cast<WPARAM>(m_owner), HTCAPTION);
  Send(WM_INITMENU, reinterpret_cast<WPARAM>(m_top), 0);
}

// What is open closes from the inside out; then the owner hears that nothing is selected any more.
void MenuLoop::Finish() {
  CloseDownTo(1);
  if (!m_bar) {
    HidePopup(m_top);
    Send(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(m_top), 0);
  }
  if (GetCapture()) ReleaseCapture();
  Select(m_top, -1, false);
  SendMessageW(m_owner, WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
  SendMessageW(m_owner, WM_EXITMENULOOP, !m_bar, 0);
  ShowCaret(nullptr);
  t_current = m_outer;
}

BOOL MenuLoop::RunPopup(POINT at, const RECT& exclude) {
  Begin();
  Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(m_top), 0);
  const HWND popup = IsWindow(m_owner) ? ShowPopup(m_top, m_owner, at, m_flags, exclude) : nullptr;
  if (popup) {
    // The owner may be hidden: the popup itself takes the mouse.
    SetCapture(popup);
    Run();
  }
  Finish();
  return m_flags & TPM_RETURNCMD ? static_cast<BOOL>(m_result) : popup != nullptr;
}

void MenuLoop::RunBarByMouse(POINT point) {
  Begin();
  SetCapture(m_owner);
  bool remove = false;
  OnButtonDown(m_top, point, remove);
  Run();
  Finish();
}

void MenuLoop::RunBarByKey(wchar_t key) {
  Begin();
  SetCapture(m_owner);
  const int item = key ? FindByLetter(m_top, key) : 0;
  if (item < 0) {
    MessageBeep(0);
    m_ended = true;
  } else {
    Select(m_top, item, true);
    if (key) Execute(m_top);
  }
  Run();
  Finish();
}

// Waits until there is a message, which stays in the queue. The owner hears once that the menu idles.
bool MenuLoop::WaitForMessage(MSG& message) {
  while (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
    if (m_ended || !IsWindow(m_owner) || !IsMenu(m_top)) return false;
    if (!m_idleSent) {
      m_idleSent = true;
      const HWND window = InBar() ? nullptr : WindowOf(Deepest());
      SendMessageW(m_owner, WM_ENTERIDLE, MSGF_MENU, reinterpret_cast<LPARAM>(window));
      continue;
    }
    WaitMessage();
  }
  return true;
}

void MenuLoop::Remove(const MSG& message) const {
  MSG removed{};
  PeekMessageW(&removed, nullptr, message.message, message.message, PM_REMOVE);
}

void MenuLoop::Run() {
  while (!m_ended && IsWindow(m_owner) && IsMenu(m_top)) {
    MSG message{};
    if (!WaitForMessage(message)) break;
    if (message.message == WM_QUIT) break;
    if (CallMsgFilterW(&message, MSGF_MENU)) {
      Remove(message);
      continue;
    }
    if (message.message == WM_CANCELMODE) {
      Remove(message);
      break;
    }
    if (message.message != WM_TIMER || message.hwnd == WindowOf(Deepest())) m_idleSent = false;
    if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) {
      if (OnMouse(message)) Remove(message);
      continue;
    }
    Remove(message);
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
      // The characters of keys come as messages of their own.
      TranslateMessage(&message);
      OnKey(message.wParam);
    } else if (message.message == WM_CHAR || message.message == WM_SYSCHAR) {
      OnCharacter(static_cast<wchar_t>(message.wParam));
    } else if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) {
      DispatchMessageW(&message);
    }
  }
}

// False when the message is not for the menu and stays in the queue for others.
bool MenuLoop::OnMouse(const MSG& message) {
  const HMENU menu = MenuAt(message.pt);
  bool remove = true;
  switch (message.message) {
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      if (!(m_flags & TPM_RIGHTBUTTON)) return true;
      [[fallthrough]];
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: OnButtonDown(menu, message.pt, remove); return remove;
    case WM_RBUTTONUP:
      if (!(m_flags & TPM_RIGHTBUTTON)) return true;
      [[fallthrough]];
    case WM_LBUTTONUP:
      if (menu)
        OnButtonUp(menu, message.pt);
      else if (m_bar)
        m_ended = true;
      return true;
    case WM_MOUSEMOVE:
      if (menu) OnMouseMove(menu, message.pt);
      return true;
    default: return true;
  }
}

void MenuLoop::OnButtonDown(HMENU menu, POINT point, bool& remove) {
  remove = menu != nullptr;
  if (!menu) {
    m_ended = true;
    return;
  }
  const int item = ItemAt(menu, point);
  if (item < 0) return;
  const bool wasOpen = menu == m_top && m_open.size() > 1 && FocusedOf(menu) == item;
  if (wasOpen && m_bar) return;
  m_pressedOpen = -1;
  Select(menu, item, true);
  if (OpenSubmenu(menu, false)) m_pressedOpen = item;
}

void MenuLoop::OnButtonUp(HMENU menu, POINT point) {
  const int item = ItemAt(menu, point);
  MenuItem found;
  if (item < 0 || item != FocusedOf(menu) || !ReadItem(menu, item, found)) {
    return;
  }
  if (!found.submenu) return Execute(menu);
  // The second click on an open item of the bar closes it.
  const bool isOpen = m_open.size() > 1 && menu == m_top;
  if (m_bar && isOpen && m_pressedOpen != item) m_ended = true;
  m_pressedOpen = -1;
}

void MenuLoop::OnMouseMove(HMENU menu, POINT point) {
  const int item = ItemAt(menu, point);
  if (item < 0) {
    if (menu == Deepest() && !InBar()) Select(menu, -1, true);
    return;
  }
  if (item == FocusedOf(menu)) return;
  const bool wasOpen = m_open.size() > 1;
  const auto depth = std::find(m_open.begin(), m_open.end(), menu);
  CloseDownTo(static_cast<size_t>(depth - m_open.begin()) + 1);
  Select(menu, item, true);
  // A bar opens popups under the mouse once one of them was opened.
  if (menu != m_top || !m_bar || wasOpen) OpenSubmenu(menu, false);
}

void MenuLoop::OnKey(WPARAM key) {
  const HMENU menu = Deepest();
  switch (key) {
    case VK_MENU:
    case VK_F10: m_ended = true; return;
    case VK_HOME: Move(menu, Step::first); return;
    case VK_END: Move(menu, Step::last); return;
    case VK_UP:
    case VK_DOWN:
      if (InBar())
        OpenSubmenu(menu, true);
      else
        Move(menu, key == VK_UP ? Step::previous : Step::next);
      return;
    case VK_LEFT: KeyLeft(); return;
    case VK_RIGHT: KeyRight(); return;
    case VK_ESCAPE: KeyEscape(); return;
    default: return;
  }
}

void MenuLoop::OnCharacter(wchar_t character) {
  const HMENU menu = Deepest();
  if (character == L'\r' || character == L' ') {
    if (FocusedOf(menu) < 0)
      m_ended = true;
    else
      Execute(menu);
    return;
  }
  if (character < L' ') return;
  int item = FindByLetter(menu, character);
  if (item < 0) {
    const LRESULT answer = SendMessageW(m_owner, WM_MENUCHAR, MAKEWPARAM(character, InBar() ? 0 : MF_POPUP),
                                        reinterpret_cast<LPARAM>(menu));
    if (HIWORD(answer) == MNC_CLOSE) m_ended = true;
    if (HIWORD(answer) == MNC_EXECUTE || HIWORD(answer) == MNC_SELECT) item = LOWORD(answer);
    if (item < 0) return;
    Select(menu, item, true);
    if (HIWORD(answer) == MNC_EXECUTE) Execute(menu);
    return;
  }
  Select(menu, item, true);
  Execute(menu);
}

void MenuLoop::KeyLeft() {
  if (m_open.size() > (m_bar ? 2u : 1u)) return CloseDownTo(m_open.size() - 1);
  if (m_bar) MoveInBar(false);
}

void MenuLoop::KeyRight() {
  if (!InBar() && OpenSubmenu(Deepest(), true)) return;
  if (m_bar) MoveInBar(true);
}

void MenuLoop::KeyEscape() {
  if (m_open.size() > 1)
    CloseDownTo(m_open.size() - 1);
  else
    m_ended = true;
}

// To the neighbour in the bar; when a popup was open, that of the neighbour opens.
void MenuLoop::MoveInBar(bool forward) {
  const bool wasOpen = m_open.size() > 1;
  CloseDownTo(1);
  Move(m_top, forward ? Step::next : Step::previous);
  if (wasOpen) OpenSubmenu(m_top, true);
}

HMENU MenuLoop::MenuAt(POINT point) const {
  for (auto menu = m_open.rbegin(); menu != m_open.rend(); ++menu) {
    if (*menu == m_top && m_bar) return ItemAt(*menu, point) >= 0 ? *menu : nullptr;
    RECT rect{};
    const HWND window = WindowOf(*menu);
    if (window && GetWindowRect(window, &rect) && PtInRect(&rect, point)) return *menu;
  }
  return nullptr;
}

int MenuLoop::ItemAt(HMENU handle, POINT point) const {
  const POINT origin = OriginOf(handle, m_bar && handle == m_top);
  const POINT inside{point.x - origin.x, point.y - origin.y};
  WorldLock lock(WorldMutex());
  const Menu* menu = MenuFromHandle(handle);
  if (!menu) return -1;
  for (size_t i = 0; i < menu->items.size(); ++i)
    if (PtInRect(&menu->items[i].rect, inside)) return static_cast<int>(i);
  return -1;
}

void MenuLoop::RepaintItem(HMENU menu, int item) const {
  const HWND window = WindowOf(menu);
  if (!window || item < 0 || !IsWindow(window)) return;
  const bool bar = m_bar && menu == m_top;
  const HDC dc = bar ? GetWindowDC(window) : GetDC(window);
  if (!dc) return;
  if (bar)
    PaintBarItem(dc, menu, item);
  else
    PaintPopup(window, dc, menu, item);
  ReleaseDC(window, dc);
}

// Moves the highlight. The owner hears of the new item, or of the menu that it is in.
void MenuLoop::Select(HMENU handle, int item, bool tell) {
  int before = -1;
  WPARAM selected = 0;
  bool any = false;
  {
    WorldLock lock(WorldMutex());
    Menu* menu = MenuFromHandle(handle);
    if (!menu) return;
    const auto count = static_cast<int>(menu->items.size());
    before = menu->focused;
    if (before == item) return;
    if (before >= 0 && before < count)
      menu->items[static_cast<size_t>(before)].state &= ~static_cast<UINT>(MF_HILITE);
    menu->focused = item < count ? item : -1;
    any = menu->focused >= 0;
    if (any) {
      MenuItem& now = menu->items[static_cast<size_t>(menu->focused)];
      if (!now.IsSeparator()) now.state |= MF_HILITE;
      const UINT flags =
          now.type | now.state | (now.submenu ? MF_POPUP : 0) | (menu->system ? MF_SYSMENU : 0);
      selected = MAKEWPARAM(now.submenu ? static_cast<UINT>(item) : now.id, flags);
    }
  }
  RepaintItem(handle, before);
  RepaintItem(handle, item);
  if (tell && any) Send(WM_MENUSELECT, selected, reinterpret_cast<LPARAM>(handle));
}

// To the next item that is no separator, around the ends.
void MenuLoop::Move(HMENU menu, Step step) {
  const int count = CountOf(menu);
  if (count == 0) return;
  const bool forward = step == Step::first || step == Step::next;
  int at = FocusedOf(menu);
  if (at < 0 || step == Step::first || step == Step::last) at = forward ? -1 : count;
  for (int i = 0; i < count; ++i) {
    at = ((at + (forward ? 1 : -1)) % count + count) % count;
    MenuItem item;
    if (!ReadItem(menu, at, item) || item.IsSeparator()) continue;
    return Select(menu, at, true);
  }
}

bool MenuLoop::OpenSubmenu(HMENU menu, bool selectFirst) {
  const int position = FocusedOf(menu);
  MenuItem item;
  if (menu != Deepest() || !ReadItem(menu, position, item) || !item.submenu) return false;
  if (!item.IsEnabled()) return false;
  const HMENU popup = item.submenu;
  Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), MAKELPARAM(position, IsSystem(popup)));
  // The owner may have changed or destroyed everything.
  if (!ReadItem(menu, position, item) || item.submenu != popup || !IsWindow(m_owner)) return false;
  const bool fromBar = m_bar && menu == m_top;
  const POINT origin = OriginOf(menu, fromBar);
  RECT beside = item.rect;
  OffsetRect(&beside, origin.x, origin.y);
  POINT at{beside.left, beside.bottom};
  if (!fromBar) {
    // A little over its parent, with the first item level with the one it belongs to.
    constexpr int kOverlap = 1;
    constexpr int kTopMargin = 3;
    at = {beside.right - kOverlap, beside.top - kTopMargin};
  }
  if (!ShowPopup(popup, m_owner, at, 0, beside)) return false;
  m_open.push_back(popup);
  if (selectFirst) Move(popup, Step::first);
  return true;
}

void MenuLoop::CloseDownTo(size_t depth) {
  while (m_open.size() > depth) {
    const HMENU menu = m_open.back();
    m_open.pop_back();
    Select(menu, -1, false);
    HidePopup(menu);
    Send(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(0, IsSystem(menu)));
  }
}

// Enter or a click: opens a popup, or carries out a command and ends.
void MenuLoop::Execute(HMENU menu) {
  MenuItem item;
  if (!ReadItem(menu, FocusedOf(menu), item) || item.IsSeparator()) return;
  if (item.submenu) {
    OpenSubmenu(menu, true);
    return;
  }
  m_ended = true;
  if (!item.IsEnabled()) return;
  if (m_flags & TPM_RETURNCMD) {
    m_result = item.id;
    return;
  }
  if (IsSystem(menu))
    PostMessageW(m_owner, WM_SYSCOMMAND, item.id, 0);
  else
    PostMessageW(m_owner, WM_COMMAND, item.id, 0);
}

bool MenuLoopRuns() { return t_current != nullptr; }

}  // namespace desktop

BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, LPTPMPARAMS params) {
  if (!IsMenu(menu)) return FALSE;
  if (!IsWindow(owner)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (desktop::MenuLoop::Current() && !(flags & TPM_RECURSE)) {
    SetLastError(ERROR_POPUP_ALREADY_ACTIVE);
    return FALSE;
  }
  return desktop::MenuLoop(owner, menu, flags, false).RunPopup({x, y}, params ? params->rcExclude : RECT{});
}

BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) {
  return TrackPopupMenuEx(menu, flags, x, y, owner, nullptr);
}

BOOL EndMenu() {
  desktop::MenuLoop* loop = desktop::MenuLoop::Current();
  if (!loop) return FALSE;
  loop->End();
  return TRUE;
}
