// CWnd: creation and destruction, and the window classes.
#include "wnd_access.h"

#include <cwchar>

using framework::CurrentThread;
using framework::HandleOf;
using framework::OwnersOfWindows;

// ---- The hook that catches a window at its birth -------------------------------------------------

namespace {

// Attaches object to a window that is being created. False if that fails; then nothing is attached.
bool TakeOver(CWnd& object, HWND window) {
  return framework::OrOnException(
      [&] {
        if (!object.Attach(window)) return false;
        const bool done = framework::OrOnException(
            [&] {
              object.PreSubclassWindow();
              return object.m_hWnd == window && framework::InstallProcedure(object);
            },
            false);
        if (!done && CWnd::FromHandlePermanent(window) == &object) object.Detach();
        return done;
      },
      false);
}

LRESULT CALLBACK FilterCreation(int code, WPARAM wParam, LPARAM lParam) {
  framework::ThreadState& state = CurrentThread();
  CWnd* const object = state.windowBeingCreated;
  if (code == HCBT_CREATEWND && object != nullptr) {
    state.windowBeingCreated = nullptr;
    if (!TakeOver(*object, reinterpret_cast<HWND>(wParam))) {
      state.windowBeingCreated = object;
      return 1;  // no window
    }
  }
  return ::CallNextHookEx(state.creationHook, code, wParam, lParam);
}

}  // namespace

namespace framework {

bool BeginCreation(CWnd* pWnd) {
  ThreadState& state = CurrentThread();
  if (state.creationHook == nullptr) {
    state.creationHook = ::SetWindowsHookExW(WH_CBT, &FilterCreation, nullptr, ::GetCurrentThreadId());
    if (state.creationHook == nullptr) return false;
  }
  state.windowBeingCreated = pWnd;
  return true;
}

bool EndCreation() {
  ThreadState& state = CurrentThread();
  if (state.creationHook != nullptr) ::UnhookWindowsHookEx(state.creationHook);
  state.creationHook = nullptr;
  const bool taken = state.windowBeingCreated == nullptr;
  state.windowBeingCreated = nullptr;
  return taken;
}

}  // namespace framework

void AFXAPI AfxHookWindowCreate(CWnd* pWnd) {
  if (!framework::BeginCreation(pWnd)) AfxThrowMemoryException();
}

BOOL AFXAPI AfxUnhookWindowCreate() { return framework::EndCreation(); }

// ---- Creation ------------------------------------------------------------------------------------

BOOL CWnd::Create(LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, CCreateContext* pContext) {
  return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
  // Unsigned, so that CW_USEDEFAULT at the left and 0 at the right give CW_USEDEFAULT.
  const auto width = static_cast<int>(static_cast<UINT>(rect.right) - static_cast<UINT>(rect.left));
  const auto height = static_cast<int>(static_cast<UINT>(rect.bottom) - static_cast<UINT>(rect.top));
  return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, width, height,
                  HandleOf(pParentWnd), reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCWSTR lpszClassName, LPCWSTR lpszWindowName, DWORD dwStyle, int x,
                    int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam) {
  if (m_hWnd != nullptr) return FALSE;
  CREATESTRUCTW cs = {};
  cs.dwExStyle = dwExStyle;
  cs.lpszClass = lpszClassName;
  cs.lpszName = lpszWindowName;
  cs.style = static_cast<LONG>(dwStyle);
  cs.x = x;
  cs.y = y;
  cs.cx = nWidth;
  cs.cy = nHeight;
  cs.hwndParent = hWndParent;
  cs.hMenu = nIDorHMenu;
  cs.hInstance = AfxGetInstanceHandle();
  cs.lpCreateParams = lpParam;

  const bool ready =
      framework::OrOnException([&] { return PreCreateWindow(cs) && framework::BeginCreation(this); }, false);
  if (!ready) {
    PostNcDestroy();
    return FALSE;
  }
  const HWND created =
      ::CreateWindowExW(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x, cs.y,
                        cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
  bool hasEnded = framework::EndCreation();  // a window that failed later has told its object already
  if (created == nullptr && hasEnded && OwnersOfWindows().HandleOf(this) != nullptr) {
    // Taken over, then refused by another hook: the window went without a word.
    Detach();
    hasEnded = false;
  }
  if (!hasEnded) PostNcDestroy();
  return created != nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTW& cs) {
  if (cs.lpszClass == nullptr) {
    cs.lpszClass =
        AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, ::LoadCursorW(nullptr, IDC_ARROW));
  }
  return TRUE;
}

// ---- Destruction ---------------------------------------------------------------------------------

BOOL CWnd::DestroyWindow() {
  const HWND handle = m_hWnd;
  if (handle == nullptr) return FALSE;
  const bool owned = FromHandlePermanent(handle) == this;
  const BOOL destroyed = ::DestroyWindow(handle);
  // The object may be gone now, unless it is a temporary wrapper or the map still knows it.
  if (destroyed && (!owned || FromHandlePermanent(handle) == this)) Detach();
  return destroyed;
}

void CWnd::OnNcDestroy() {
  CWinThread* const thread = AfxGetThread();
  if (thread != nullptr && thread->m_pMainWnd == this) {
    AfxPostQuitMessage(0);
    thread->m_pMainWnd = nullptr;
  }
  if (thread != nullptr && thread->m_pActiveWnd == this) thread->m_pActiveWnd = nullptr;

  // The former procedure comes back, unless somebody put one more in front.
  const LONG_PTR procedure = ::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC);
  Default();
  if (m_hWnd != nullptr && ::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC) == procedure) {
    WNDPROC& former = *GetSuperWndProcAddr();
    if (former != nullptr) {
      ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former));
      former = nullptr;
    }
  }
  Detach();
  PostNcDestroy();
}

void CWnd::PostNcDestroy() {}

// ---- Window classes ------------------------------------------------------------------------------

LPCWSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon) {
  constexpr size_t longestName = 96;
  thread_local wchar_t name[longestName];
  const auto number = [](const void* handle) { return reinterpret_cast<unsigned long long>(handle); };
  const HINSTANCE instance = AfxGetInstanceHandle();
  std::swprintf(name, longestName, L"Afx:%llx:%x:%llx:%llx:%llx", number(instance), nClassStyle,
                number(hCursor), number(hbrBackground), number(hIcon));

  WNDCLASSW traits = {};
  traits.style = nClassStyle;
  traits.lpfnWndProc = &::DefWindowProcW;
  traits.hInstance = instance;
  traits.hIcon = hIcon;
  traits.hCursor = hCursor;
  traits.hbrBackground = hbrBackground;
  traits.lpszClassName = name;
  if (!AfxRegisterClass(&traits)) AfxThrowResourceException();
  return name;
}

BOOL AFXAPI AfxRegisterClass(WNDCLASSW* lpWndClass) {
  WNDCLASSW registered = {};
  if (::GetClassInfoW(lpWndClass->hInstance, lpWndClass->lpszClassName, &registered)) return TRUE;
  return ::RegisterClassW(lpWndClass) != 0;
}
