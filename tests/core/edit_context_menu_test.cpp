// The callback in place of the label edit's context menu.
#include "core/EditContextMenu.h"

#include <gtest/gtest.h>

#include "core/VornFunctions.h"

namespace {

struct Call {
  HWND window;
  int x, y, last;
};
Call g_call;

unsigned int Answer(HWND window, int x, int y, int last) {
  g_call = {window, x, y, last};
  return 4711;
}

unsigned int OtherAnswer(HWND, int, int, int) { return 1; }

class EditContextMenu : public testing::Test {
 protected:
  void TearDown() override { VornTreeEditContextMenuSetCallback(nullptr); }
  HWND m_window = reinterpret_cast<HWND>(0x1234);
};

TEST_F(EditContextMenu, WithoutACallbackThereIsNoCommand) {
  EXPECT_FALSE(vorn::HasEditContextMenu());
  EXPECT_EQ(vorn::CallEditContextMenu(m_window, 1, 2), 0u);
}

TEST_F(EditContextMenu, TheCallbackGetsWindowAndPoint) {
  VornTreeEditContextMenuSetCallback(Answer);
  EXPECT_TRUE(vorn::HasEditContextMenu());
  g_call = {nullptr, 0, 0, -1};
  EXPECT_EQ(vorn::CallEditContextMenu(m_window, -5, 7), 4711u);
  EXPECT_EQ(g_call.window, m_window);
  EXPECT_EQ(g_call.x, -5);
  EXPECT_EQ(g_call.y, 7);
  EXPECT_EQ(g_call.last, 0);
}

TEST_F(EditContextMenu, ANewCallbackReplacesTheOldAndNullClears) {
  VornTreeEditContextMenuSetCallback(Answer);
  VornTreeEditContextMenuSetCallback(OtherAnswer);
  EXPECT_EQ(vorn::CallEditContextMenu(m_window, 0, 0), 1u);
  VornTreeEditContextMenuSetCallback(nullptr);
  EXPECT_FALSE(vorn::HasEditContextMenu());
}

}  // namespace
