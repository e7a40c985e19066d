// Hooks and window properties.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"

using namespace support;

namespace {

// What the hook procedures see: they are plain functions.
Recorder* g_log = nullptr;

// A hook of this thread for the length of a test.
class Hook {
 public:
  Hook(int id, HOOKPROC procedure)
      : handle(SetWindowsHookExW(id, procedure, nullptr, GetCurrentThreadId())) {}
  ~Hook() { UnhookWindowsHookEx(handle); }

  HHOOK handle;
};

class Logged : public testing::Test {
 protected:
  Logged() { g_log = &log; }
  ~Logged() override { g_log = nullptr; }
  Recorder log;
};

using HookTest = Logged;

LRESULT CALLBACK SeeMessage(int code, WPARAM remove, LPARAM param) {
  const MSG& message = *reinterpret_cast<MSG*>(param);
  if (message.message == WM_USER) {
    g_log->Note(std::string("hook ") + (remove == PM_REMOVE ? "remove" : "peek"));
  }
  return CallNextHookEx(nullptr, code, remove, param);
}

LRESULT CALLBACK SeeKey(int code, WPARAM key, LPARAM param) {
  if (code == HC_ACTION) {
    g_log->Note("key " + KeyName(static_cast<UINT>(key)) + (param & 1 << 31 ? " up" : " down"));
  }
  return key == 'B' ? 1 : CallNextHookEx(nullptr, code, key, param);
}

LRESULT CALLBACK SeeMouse(int code, WPARAM message, LPARAM param) {
  if (code == HC_ACTION && message == WM_LBUTTONDOWN) g_log->Note("mouse down");
  return CallNextHookEx(nullptr, code, message, param);
}

LRESULT CALLBACK SeeCall(int code, WPARAM wParam, LPARAM param) {
  const CWPSTRUCT& call = *reinterpret_cast<CWPSTRUCT*>(param);
  if (code == HC_ACTION && call.message == WM_USER) g_log->Note("call");
  return CallNextHookEx(nullptr, code, wParam, param);
}

LRESULT CALLBACK SeeCbt(int code, WPARAM wParam, LPARAM param) {
  wchar_t name[64] = L"";
  GetClassNameW(reinterpret_cast<HWND>(wParam), name, 64);
  // The system makes windows of its own with ours.
  if (wcsncmp(name, L"vorn", 4) != 0) return CallNextHookEx(nullptr, code, wParam, param);
  if (code == HCBT_CREATEWND) g_log->Note("create");
  if (code == HCBT_DESTROYWND) g_log->Note("destroy");
  if (code == HCBT_SETFOCUS) g_log->Note("focus");
  return CallNextHookEx(nullptr, code, wParam, param);
}

LRESULT CALLBACK Refuse(int code, WPARAM wParam, LPARAM param) {
  if (code == HCBT_CREATEWND) return 1;
  return CallNextHookEx(nullptr, code, wParam, param);
}

LRESULT CALLBACK First(int code, WPARAM wParam, LPARAM param) {
  if (reinterpret_cast<MSG*>(param)->message == WM_USER) g_log->Note("first set");
  return CallNextHookEx(nullptr, code, wParam, param);
}

LRESULT CALLBACK Second(int code, WPARAM wParam, LPARAM param) {
  if (reinterpret_cast<MSG*>(param)->message == WM_USER) g_log->Note("second set");
  return CallNextHookEx(nullptr, code, wParam, param);
}

}  // namespace

TEST_F(HookTest, GetMessageHookSeesWhatIsTaken) {
  HostWindow host({.style = WS_POPUP});
  Pump();
  const Hook hook(WH_GETMESSAGE, SeeMessage);
  PostMessageW(host, WM_USER, 0, 0);
  MSG message;
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
  PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
  SendMessageW(host, WM_USER, 0, 0);
  EXPECT_LOG(log, "hook peek\nhook remove");
}

TEST_F(HookTest, TheLastSetIsCalledFirst) {
  HostWindow host({.style = WS_POPUP});
  Pump();
  const Hook a(WH_GETMESSAGE, First);
  const Hook b(WH_GETMESSAGE, Second);
  PostMessageW(host, WM_USER, 0, 0);
  Pump();
  EXPECT_LOG(log, "second set\nfirst set");
}

TEST_F(HookTest, KeyboardHookMayEatKeys) {
  HostWindow host({.log = &log});
  SetFocus(host);
  Pump();
  log.Clear();
  log.Only({WM_KEYDOWN, WM_KEYUP});
  const Hook hook(WH_KEYBOARD, SeeKey);
  Key('A');
  Key('B');
  EXPECT_LOG(log, R"(
      key A down
      host WM_KEYDOWN A
      key A up
      host WM_KEYUP A
      key B down
      key B up)");
}

TEST_F(HookTest, MouseHookSeesClicks) {
  HostWindow host({.log = &log});
  Pump();
  log.Clear();
  log.Only({WM_LBUTTONDOWN});
  const Hook hook(WH_MOUSE, SeeMouse);
  Click(At(host, 10, 10));
  EXPECT_LOG(log, "mouse down\nhost WM_LBUTTONDOWN 10,10 L");
}

TEST_F(HookTest, CallHookSeesSentMessages) {
  HostWindow host({.style = WS_POPUP});
  const Hook hook(WH_CALLWNDPROC, SeeCall);
  SendMessageW(host, WM_USER, 0, 0);
  EXPECT_LOG(log, "call");
}

TEST_F(HookTest, CbtHookSeesCreationFocusAndDestruction) {
  const Hook hook(WH_CBT, SeeCbt);
  HostWindow host({.style = WS_POPUP | WS_VISIBLE});
  EXPECT_LOG(log, "create\nfocus");
  host.Destroy();
  EXPECT_LOG(log, "destroy");
}

TEST_F(HookTest, CbtHookMayRefuseAWindow) {
  const Hook hook(WH_CBT, Refuse);
  HostWindow host({.style = WS_POPUP});
  EXPECT_EQ(nullptr, host.Handle());
}

TEST_F(HookTest, RemovedHooksAreSilent) {
  HostWindow host({.style = WS_POPUP});
  { const Hook hook(WH_GETMESSAGE, SeeMessage); }
  PostMessageW(host, WM_USER, 0, 0);
  Pump();
  EXPECT_LOG(log, "");
  EXPECT_FALSE(UnhookWindowsHookEx(nullptr));
}

TEST_F(HookTest, ThreadsHooksAreTheirOwn) {
  EXPECT_EQ(nullptr, SetWindowsHookExW(WH_GETMESSAGE, nullptr, nullptr, GetCurrentThreadId()));
}

namespace {

HANDLE Value(INT_PTR value) { return reinterpret_cast<HANDLE>(value); }

}  // namespace

TEST(Property, IsKeptUnderItsName) {
  HostWindow host({.style = WS_POPUP});
  EXPECT_EQ(nullptr, GetPropW(host, L"vorn::prop"));
  EXPECT_TRUE(SetPropW(host, L"vorn::prop", Value(0x1234567890)));
  EXPECT_EQ(Value(0x1234567890), GetPropW(host, L"vorn::prop"));
  EXPECT_EQ(Value(0x1234567890), GetPropW(host, L"VORN::Prop"));
  EXPECT_EQ(Value(0x1234567890), GetPropA(host, "vorn::prop"));
  EXPECT_TRUE(SetPropW(host, L"Vorn::prop", Value(7)));
  EXPECT_EQ(Value(7), RemovePropW(host, L"vorn::prop"));
  EXPECT_EQ(nullptr, RemovePropW(host, L"vorn::prop"));
}

TEST(Property, BelongsToOneWindow) {
  HostWindow a({.style = WS_POPUP});
  HostWindow b({.style = WS_POPUP});
  SetPropA(a, "vorn::prop", Value(1));
  EXPECT_EQ(nullptr, GetPropW(b, L"vorn::prop"));
  EXPECT_EQ(Value(1), RemovePropA(a, "vorn::prop"));
}

TEST(Property, AllCanBeListed) {
  HostWindow host({.style = WS_POPUP});
  SetPropW(host, L"vorn::b", Value(2));
  SetPropW(host, L"vorn::a", Value(1));
  std::vector<std::wstring> names;
  EnumPropsExW(
      host,
      [](HWND, LPWSTR name, HANDLE, ULONG_PTR list) -> BOOL {
        // The system's own properties have atoms.
        if (reinterpret_cast<ULONG_PTR>(name) > 0xFFFF && wcsncmp(name, L"vorn", 4) == 0) {
          reinterpret_cast<std::vector<std::wstring>*>(list)->push_back(name);
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&names));
  std::sort(names.begin(), names.end());
  EXPECT_EQ((std::vector<std::wstring>{L"vorn::a", L"vorn::b"}), names);
  RemovePropW(host, L"vorn::a");
  RemovePropW(host, L"vorn::b");
}

TEST(Property, OfADeadWindowIsNone) {
  HostWindow host({.style = WS_POPUP});
  const HWND handle = host;
  host.Destroy();
  EXPECT_FALSE(SetPropW(handle, L"vorn::prop", Value(1)));
  EXPECT_EQ(nullptr, GetPropW(handle, L"vorn::prop"));
}
