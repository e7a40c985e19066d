// Loops of the system's own: moving and sizing by the frame, message boxes; and subclasses.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

HostOptions Framed(Recorder* log = nullptr) {
  return {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE, .x = 200, .y = 200, .cx = 200, .cy = 150, .log = log};
}

// A drag whose events are all on their way before the frame's own loop starts.
void FrameDrag(POINT from, POINT to) {
  const Later rescue(2000, [to] { PostRelease(to); });
  PostMouseMove(from);
  PostPress(from);
  PostMouseMove({(from.x + to.x) / 2, (from.y + to.y) / 2});
  PostMouseMove(to);
  PostRelease(to);
  PumpFor(50);
}

}  // namespace

TEST(FrameLoop, CaptionMovesTheWindow) {
  HostWindow host(Framed());
  Pump();
  FrameDrag({300, 212}, {350, 262});
  EXPECT_EQ("250,250,450,400", WindowRectText(host));
}

TEST(FrameLoop, TellsWhenItStartsAndEnds) {
  Recorder log;
  HostWindow host(Framed(&log));
  Pump();
  log.Clear();
  log.Only({WM_ENTERSIZEMOVE, WM_EXITSIZEMOVE});
  FrameDrag({300, 212}, {310, 222});
  EXPECT_EQ(2u, SplitLines(log.Text()).size());
  log.Clear();
}

TEST(FrameLoop, WindowMayCorrectTheMove) {
  HostOptions options = Framed();
  options.handler = [](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
    if (message != WM_MOVING) return std::nullopt;
    OffsetRect(reinterpret_cast<RECT*>(lParam), 0, 200 - reinterpret_cast<RECT*>(lParam)->top);
    return TRUE;
  };
  HostWindow host(options);
  Pump();
  FrameDrag({300, 212}, {350, 262});
  EXPECT_EQ("250,200,450,350", WindowRectText(host));
}

TEST(FrameLoop, EscapeBringsItBack) {
  HostWindow host(Framed());
  Pump();
  PostPress({300, 212});
  PostMouseMove({350, 262});
  PostKey(VK_ESCAPE);
  PostRelease({350, 262});
  PumpFor(50);
  EXPECT_EQ("200,200,400,350", WindowRectText(host));
}

TEST(FrameLoop, CloseButtonCloses) {
  Recorder log;
  HostOptions options = Framed(&log);
  options.handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_CLOSE) return 0;
    return std::nullopt;
  };
  HostWindow host(options);
  Pump();
  log.Clear();
  log.Only({WM_SYSCOMMAND, WM_CLOSE});
  const POINT button = {400 - GetSystemMetrics(SM_CXFRAME) - GetSystemMetrics(SM_CXSIZE) / 2,
                        200 + GetSystemMetrics(SM_CYFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
  EXPECT_EQ(HTCLOSE, SendMessageW(host, WM_NCHITTEST, 0, MAKELPARAM(button.x, button.y)));
  PostPress(button);
  PostRelease(button);
  PumpFor(50);
  EXPECT_LOG(log, "host WM_SYSCOMMAND 0xf060\nhost WM_CLOSE");
}

TEST(FrameLoop, AltF4Closes) {
  Recorder log;
  HostOptions options = Framed(&log);
  options.handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
    if (message == WM_CLOSE) return 0;
    return std::nullopt;
  };
  HostWindow host(options);
  Pump();
  log.Clear();
  log.Only({WM_CLOSE});
  Key(VK_F4, {.alt = true});
  EXPECT_LOG(log, "host WM_CLOSE");
}

TEST(FrameLoop, DoubleClickOnTheCaptionMaximizes) {
  HostWindow host(Framed());
  Pump();
  for (int i = 0; i < 2; ++i) {
    PostPress({300, 212});
    PostRelease({300, 212});
  }
  PumpFor(50);
  EXPECT_TRUE(IsZoomed(host));
}

TEST(MessageBoxes, IsAnsweredByACommand) {
  HostWindow host;
  const Later answer(50, [] { PostMessageW(GetActiveWindow(), WM_COMMAND, IDNO, 0); });
  EXPECT_EQ(IDNO, MessageBoxW(host, L"Supprimer l'élément ?", L"Vorn", MB_YESNO | MB_ICONQUESTION));
  EXPECT_TRUE(IsWindowEnabled(host));
}

TEST(MessageBoxes, EscapeMeansCancel) {
  HostWindow host;
  const Later answer(50, [] { PostKey(VK_ESCAPE); });
  EXPECT_EQ(IDCANCEL, MessageBoxW(host, L"?", L"Vorn", MB_OKCANCEL));
}

TEST(MessageBoxes, ReturnTakesTheDefaultButton) {
  HostWindow host;
  const Later answer(50, [] { PostKey(VK_RETURN); });
  EXPECT_EQ(IDNO, MessageBoxW(host, L"?", L"Vorn", MB_YESNO | MB_DEFBUTTON2));
}

namespace {

LRESULT CALLBACK Doubling(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                          DWORD_PTR data) {
  if (message == WM_USER) {
    return 2 * DefSubclassProc(window, message, wParam, lParam) + static_cast<LRESULT>(data);
  }
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, Doubling, id);
  return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace

TEST(Subclass, WrapsTheProcedure) {
  HostWindow host(
      {.style = WS_POPUP, .handler = [](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
         if (message == WM_USER) return 5;
         return std::nullopt;
       }});
  EXPECT_TRUE(SetWindowSubclass(host, Doubling, 1, 100));
  EXPECT_EQ(110, SendMessageW(host, WM_USER, 0, 0));
  EXPECT_TRUE(SetWindowSubclass(host, Doubling, 2, 1));
  EXPECT_EQ(221, SendMessageW(host, WM_USER, 0, 0));
  EXPECT_TRUE(SetWindowSubclass(host, Doubling, 1, 200));
  EXPECT_EQ(421, SendMessageW(host, WM_USER, 0, 0));
  EXPECT_TRUE(RemoveWindowSubclass(host, Doubling, 1));
  EXPECT_FALSE(RemoveWindowSubclass(host, Doubling, 1));
  EXPECT_EQ(11, SendMessageW(host, WM_USER, 0, 0));
}
