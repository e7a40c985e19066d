// CWnd: from a message to its handler; commands, notifications and their way back to the control.
#include "message_map.h"
#include "wnd_access.h"

using framework::CurrentThread;
using framework::FindMessage;

namespace {

bool IsControlColor(UINT message) { return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC; }

// Runs the handler of entry.
LRESULT Run(CWnd& window, const AFX_MSGMAP_ENTRY& entry, UINT message, WPARAM wParam, LPARAM lParam,
            LRESULT* result) {
  vornfw::Call call = {message, wParam, lParam, 0, 0, nullptr, result};
  return entry.pfn(&window, call);
}

// The state of a command before it runs: a greyed one must not, whoever sent it.
class CommandState : public CCmdUI {
 public:
  bool enabled = true;

  void Enable(BOOL bOn) override {
    enabled = bOn != FALSE;
    m_bEnableChanged = TRUE;
  }
  void SetCheck(int) override {}
  void SetRadio(BOOL) override {}
  void SetText(LPCWSTR) override {}
};

bool IsCommandEnabled(CWnd& window, UINT id) {
  CommandState state;
  state.m_nID = id;
  window.OnCmdMsg(id, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr);
  return state.enabled;
}

}  // namespace

// ---- Dispatch ------------------------------------------------------------------------------------

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  if (OnWndMsg(message, wParam, lParam, &result)) return result;
  return DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  LRESULT result = 0;
  if (message == WM_COMMAND) {
    if (!OnCommand(wParam, lParam)) return FALSE;
    result = 1;
  } else if (message == WM_NOTIFY) {
    if (lParam == 0 || !OnNotify(wParam, lParam, &result)) return FALSE;
  } else {
    const AFX_MSGMAP_ENTRY* entry = FindMessage(GetMessageMap(), message);
    const bool forAllColors = entry == nullptr && IsControlColor(message);
    if (forAllColors) entry = FindMessage(GetMessageMap(), WM_CTLCOLOR);
    if (entry == nullptr) return FALSE;
    result = Run(*this, *entry, message, wParam, lParam, &result);
    if (forAllColors && result == 0) return FALSE;  // no brush: the default one
  }
  if (pResult != nullptr) *pResult = result;
  return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  const WNDPROC former = *GetSuperWndProcAddr();
  if (former != nullptr) return ::CallWindowProcW(former, m_hWnd, message, wParam, lParam);
  return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
  const MSG& message = CurrentThread().lastMessage;
  return DefWindowProc(message.message, message.wParam, message.lParam);
}

const MSG* PASCAL CWnd::GetCurrentMessage() {
  MSG& message = CurrentThread().lastMessage;
  message.time = static_cast<DWORD>(::GetMessageTime());
  const DWORD position = ::GetMessagePos();
  message.pt = {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
  return &message;
}

// ---- Commands and notifications ------------------------------------------------------------------

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  const UINT id = LOWORD(wParam);
  int code = HIWORD(wParam);
  const auto control = reinterpret_cast<HWND>(lParam);
  if (control != nullptr) {
    if (CurrentThread().exchangingDialog == m_hWnd) return TRUE;
    if (ReflectLastMsg(control)) return TRUE;
  } else {
    if (id != 0 && !IsCommandEnabled(*this, id)) return TRUE;
    code = CN_COMMAND;  // menus and accelerators alike
  }
  return id != 0 && OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
  auto* const header = reinterpret_cast<NMHDR*>(lParam);
  const HWND control = header->hwndFrom;
  if (CurrentThread().exchangingDialog == m_hWnd) return TRUE;
  // The id in the message need not be the control's.
  const auto id = static_cast<UINT>(::GetDlgCtrlID(control));
  const UINT code = header->code;
  if (ReflectLastMsg(control, pResult)) return TRUE;
  vornfw::Notification notification = {pResult, header};
  return OnCmdMsg(id, static_cast<int>(MAKELONG(code, WM_NOTIFY)), &notification, nullptr);
}

BOOL PASCAL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult) {
  CWnd* const child = FromHandlePermanent(hWndChild);
  return child != nullptr && child->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult) {
  const MSG message = CurrentThread().lastMessage;
  return OnChildNotify(message.message, message.wParam, message.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
  if (IsControlColor(message)) {
    const AFX_MSGMAP_ENTRY* const entry = FindMessage(GetMessageMap(), WM_REFLECT_BASE + WM_CTLCOLOR);
    if (entry == nullptr) return FALSE;
    const LRESULT brush = Run(*this, *entry, message, wParam, lParam, pResult);
    if (brush == 0) return FALSE;
    if (pResult != nullptr) *pResult = brush;
    return TRUE;
  }
  switch (message) {
    case WM_COMMAND: {
      const auto code = static_cast<int>(MAKELONG(HIWORD(wParam), WM_COMMAND + WM_REFLECT_BASE));
      if (!OnCmdMsg(0, code, nullptr, nullptr)) return FALSE;
      if (pResult != nullptr) *pResult = 1;
      return TRUE;
    }
    case WM_NOTIFY: {
      auto* const header = reinterpret_cast<NMHDR*>(lParam);
      LRESULT unwanted = 0;
      vornfw::Notification notification = {pResult != nullptr ? pResult : &unwanted, header};
      const auto code = static_cast<int>(MAKELONG(header->code, WM_NOTIFY + WM_REFLECT_BASE));
      return OnCmdMsg(0, code, &notification, nullptr);
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_PARENTNOTIFY:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_DELETEITEM:
    case WM_COMPAREITEM: return OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    default: return FALSE;
  }
}

namespace {

void SendToDescendants(HWND parent, const MSG& message, bool deep, bool onlyPermanent) {
  HWND child = ::GetTopWindow(parent);
  while (child != nullptr) {
    // Found before the message, which may destroy the child.
    const HWND next = ::GetWindow(child, GW_HWNDNEXT);
    CWnd* const object = CWnd::FromHandlePermanent(child);
    if (!onlyPermanent) {
      ::SendMessageW(child, message.message, message.wParam, message.lParam);
    } else if (object != nullptr) {
      AfxCallWndProc(object, child, message.message, message.wParam, message.lParam);
    }
    if (deep && ::IsWindow(child)) SendToDescendants(child, message, deep, onlyPermanent);
    child = next;
  }
}

}  // namespace

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm) {
  if (m_hWnd == nullptr) return;  // the top window of nothing would be one of the desktop
  MSG msg = {};
  msg.message = message;
  msg.wParam = wParam;
  msg.lParam = lParam;
  SendToDescendants(m_hWnd, msg, bDeep != FALSE, bOnlyPerm != FALSE);
}

// ---- Ahead of the dispatch -----------------------------------------------------------------------

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL PASCAL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg) {
  for (HWND window = pMsg->hwnd; window != nullptr; window = ::GetParent(window)) {
    CWnd* const object = FromHandlePermanent(window);
    if (object != nullptr && object->PreTranslateMessage(pMsg)) return TRUE;
    if (window == hWndStop) break;
  }
  return FALSE;
}

// ---- Parameters of handlers ----------------------------------------------------------------------

namespace vornfw {

namespace {

// A wrapper for a handle that the handler counts on.
template <class Object>
Object* Needed(Object* object) {
  if (object == nullptr) AfxThrowMemoryException();
  return object;
}

}  // namespace

CWnd* WindowFromParam(WPARAM param) {
  const auto window = reinterpret_cast<HWND>(param);
  return window == nullptr ? nullptr : Needed(CWnd::FromHandle(window));
}

CDC* DeviceContextFromParam(WPARAM param) { return Needed(CDC::FromHandle(reinterpret_cast<HDC>(param))); }

CMenu* MenuFromParam(WPARAM param) {
  const auto menu = reinterpret_cast<HMENU>(param);
  return menu == nullptr ? nullptr : Needed(CMenu::FromHandle(menu));
}

CScrollBar* ScrollBarFromParam(LPARAM param) {
  const auto window = reinterpret_cast<HWND>(param);
  if (window == nullptr) return nullptr;
  if (CScrollBar* const bar = DYNAMIC_DOWNCAST(CScrollBar, CWnd::FromHandlePermanent(window))) return bar;
  auto* const table = framework::TableOfThread<framework::WindowTemporaries>(framework::HandleKind::Window);
  return Needed(table == nullptr ? nullptr : table->Get<CScrollBar>(window));
}

}  // namespace vornfw
