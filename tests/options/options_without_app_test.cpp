// The settings of a tree control in a program without an application object.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "VornComCtl.h"

namespace {

TEST(OptionsWithoutApp, AreUsableDefaults) {
  ASSERT_EQ(AfxGetApp(), nullptr);
  CVornTreeOptions options(nullptr);
  EXPECT_EQ(options.GetIndent(), 20u);
  EXPECT_EQ(options.GetBkColor(), ::GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(options.GetTextColor(), ::GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(options.GetGrayTextColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(options.GetTextHighlightColor(), ::GetSysColor(COLOR_HIGHLIGHTTEXT));
  EXPECT_EQ(options.GetHighlightColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(options.GetLabelEditDuration(), 1500);
  const int cx = ::GetSystemMetrics(SM_CXDRAG), cy = ::GetSystemMetrics(SM_CYDRAG);
  CRect drag;
  options.GetDragRect(drag);
  EXPECT_EQ(drag, CRect(-cx, -cy, cx, cy));
}

}  // namespace
