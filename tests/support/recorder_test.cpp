#include "support/recorder.h"

#include <gtest/gtest-spi.h>

#include "support/host_window.h"

using support::HostWindow;
using support::LinesMatch;
using support::Recorder;

TEST(Recorder, RecordsTheMessagesThatWereAskedFor) {
  Recorder log;
  log.Only({WM_USER, WM_ENABLE});
  HostWindow host({.log = &log});
  SendMessageW(host, WM_USER, 1, 2);
  SendMessageW(host, WM_USER + 1, 0, 0);
  EnableWindow(host, FALSE);
  EXPECT_LOG(log, R"(
      host WM_USER+0 1 2
      host WM_ENABLE 0)");
}

TEST(Recorder, WatchesAnyWindow) {
  Recorder log;
  log.Only({WM_SETTEXT, WM_DESTROY});
  HostWindow host;
  log.Watch(host, "watched");
  SetWindowTextW(host, L"x");
  host.Destroy();
  EXPECT_LOG(log, "watched WM_SETTEXT\nwatched WM_DESTROY");
}

TEST(Recorder, LeavesAWindowAsItWas) {
  HostWindow host;
  const LONG_PTR before = GetWindowLongPtrW(host, GWLP_WNDPROC);
  {
    Recorder log;
    log.Watch(host, "host");
    EXPECT_NE(before, GetWindowLongPtrW(host, GWLP_WNDPROC));
  }
  EXPECT_EQ(before, GetWindowLongPtrW(host, GWLP_WNDPROC));
}

TEST(Recorder, OptionalLinesMayBeMissing) {
  EXPECT_TRUE(LinesMatch({"a", "? b", "c"}, {"a", "b", "c"}));
  EXPECT_TRUE(LinesMatch({"a", "? b", "c"}, {"a", "c"}));
  EXPECT_TRUE(LinesMatch({"? a", "a"}, {"a"}));
  EXPECT_FALSE(LinesMatch({"a", "? b", "c"}, {"a", "b"}));
  EXPECT_FALSE(LinesMatch({"a"}, {"a", "a"}));
  EXPECT_FALSE(LinesMatch({}, {"a"}));
}

TEST(Recorder, ShowsBothListsWhenTheyDiffer) {
  Recorder log;
  log.Note("first");
  log.Note("second");
  const testing::AssertionResult result = log.Matches("first\nthird");
  EXPECT_FALSE(result);
  EXPECT_NE(std::string::npos, std::string(result.message()).find(" ! third"));
}

TEST(Recorder, AnUnreadLogFails) {
  EXPECT_NONFATAL_FAILURE(Recorder().Note("never read"), "nobody read these lines");
}

TEST(Recorder, DescribesParameters) {
  EXPECT_EQ("WM_SIZE 0 3x4", support::DescribeMessage(WM_SIZE, 0, MAKELPARAM(3, 4)));
  EXPECT_EQ("WM_KEYDOWN LEFT", support::DescribeMessage(WM_KEYDOWN, VK_LEFT, 0));
  EXPECT_EQ("WM_CHAR 'a'", support::DescribeMessage(WM_CHAR, 'a', 0));
  EXPECT_EQ("WM_LBUTTONDOWN -1,2 LC",
            support::DescribeMessage(WM_LBUTTONDOWN, MK_LBUTTON | MK_CONTROL, MAKELPARAM(-1, 2)));
  EXPECT_EQ("WM_APP+1 0 0", support::DescribeMessage(WM_APP + 1, 0, 0));
}
