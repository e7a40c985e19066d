// The window procedure, which lets no exception out: across the system's code it would be lost or fatal.
#include "wnd_access.h"

#include <exception>

using framework::CurrentThread;
using framework::WndAccess;

namespace {

// The message that a thread is handling; the one of before comes back at the end.
class MessageScope {
 public:
  explicit MessageScope(const MSG& message) : m_earlier(CurrentThread().lastMessage) {
    CurrentThread().lastMessage = message;
  }
  ~MessageScope() { CurrentThread().lastMessage = m_earlier; }
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

 private:
  MSG m_earlier;
};

// What a message that failed gives, if even the thread's object does not say.
LRESULT FailedResult(const MSG& message) {
  if (message.message == WM_CREATE) return -1;
  if (message.message == WM_PAINT) ::ValidateRect(message.hwnd, nullptr);
  return 0;
}

LRESULT Report(CException& exception, const MSG& message) noexcept {
  return framework::OrOnException([&] { return AfxProcessWndProcException(&exception, &message); },
                                  FailedResult(message));
}

LRESULT RunGuarded(CWnd& window, const MSG& message) noexcept {
  try {
    return WndAccess::WindowProc(window, message.message, message.wParam, message.lParam);
  } catch (CException* exception) {
    const LRESULT result = Report(*exception, message);
    exception->Delete();
    return result;
  } catch (const std::bad_alloc&) {
    CMemoryException exception(FALSE, nullptr);
    return Report(exception, message);
  } catch (...) {
    CSimpleException exception(FALSE, nullptr);
    return Report(exception, message);
  }
}

}  // namespace

LRESULT AFXAPI AfxCallWndProc(CWnd* pWnd, HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
  MSG message = {};
  message.hwnd = hWnd;
  message.message = nMsg;
  message.wParam = wParam;
  message.lParam = lParam;
  const MessageScope scope(message);
  const LRESULT result = RunGuarded(*pWnd, message);

  // A handler of the last message that failed on the way leaves the object with a window that is gone.
  if (nMsg == WM_NCDESTROY && CWnd::FromHandlePermanent(hWnd) == pWnd) {
    pWnd->Detach();
    framework::OrOnException([pWnd] { return WndAccess::PostNcDestroy(*pWnd), true; }, false);
  }
  return result;
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
  if (nMsg == WM_QUERYAFXWNDPROC) return 1;
  CWnd* const window = CWnd::FromHandlePermanent(hWnd);
  if (window == nullptr) return ::DefWindowProcW(hWnd, nMsg, wParam, lParam);
  return AfxCallWndProc(window, hWnd, nMsg, wParam, lParam);
}
