// The menus that switch the tree's styles, selection and spacing, and the log of hooks.
#include "gallery_scene.h"
#include "resource.h"
#include "support/driver.h"

namespace {

using Lines = std::vector<std::string>;

class Switches : public GalleryScene {
 protected:
  Switches() {
    m_folder.Make(L"sous\\");
    m_folder.Make(L"un.txt");
  }
  bool IsChecked(UINT id) { return (MenuState(id) & MF_CHECKED) != 0; }
  CVornTreeItem* Folder() { return Tree().GetChildItem(STI_ROOT); }
};

TEST_F(Switches, EachStyleBitHasAnEntryThatShowsItAndSwitchesIt) {
  Open();
  constexpr DWORD kNoToolTips = 0x0080;
  const DWORD all = STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT | STS_EDITLABELS | STS_LEFTDRAG |
                    STS_RIGHTDRAG | STS_SHOWSELALWAYS | kNoToolTips | STS_EXPANDEDIMAGE | STS_CHECKBOXES |
                    STS_IMAGEBUTTONS | STS_HOTTRACK | STS_SCROLLONEXPAND | STS_SCROLLONEXPANDALT |
                    STS_FOREIGNDROPS;
  for (UINT id = ID_STYLE_FIRST; id <= ID_STYLE_LAST; ++id) {
    const DWORD bit = DWORD{1} << (id - ID_STYLE_FIRST);
    if ((all & bit) == 0) {
      EXPECT_EQ(MenuState(id), 0xFFFFFFFFu) << id;
      continue;
    }
    const DWORD before = Tree().GetStyle();
    EXPECT_EQ(IsChecked(id), (before & bit) != 0) << id;
    Command(id);
    EXPECT_EQ(Tree().GetStyle() ^ before, bit) << id;
    EXPECT_EQ(IsChecked(id), (before & bit) == 0) << id;
  }
}

TEST_F(Switches, WithoutButtonsThereIsNoneToBeHit) {
  Open();
  Command(ID_STYLE_FIRST);  // 0x0001
  CRect row;
  ASSERT_EQ(Tree().GetItemRect(Tree().GetChildItem(Folder()), row, 1), 1);
  for (int x = 0; x < row.right; ++x) {
    unsigned int zone = 0;
    Tree().HitTest(CPoint(x, row.top + row.Height() / 2), &zone);
    EXPECT_NE(zone, 0x0010u) << x;
  }
}

TEST_F(Switches, TheControlCanBeDisabled) {
  Open();
  Command(ID_STYLE_DISABLED);
  EXPECT_FALSE(Tree().IsWindowEnabled());
  EXPECT_TRUE(IsChecked(ID_STYLE_DISABLED));
  Command(ID_STYLE_DISABLED);
  EXPECT_TRUE(Tree().IsWindowEnabled());
}

TEST_F(Switches, TheSelectionModeIsReadFromTheTreeAndSwitchedInIt) {
  Open();
  EXPECT_TRUE(IsChecked(ID_SELECTION_MULTIPLE));
  Command(ID_SELECTION_SINGLE);
  EXPECT_FALSE(Tree().IsMultipleSelection());
  EXPECT_TRUE(IsChecked(ID_SELECTION_SINGLE));
  EXPECT_FALSE(IsChecked(ID_SELECTION_MULTIPLE));
  EXPECT_NE(MenuState(ID_SELECTION_ONLY_ACTIVE) & MF_GRAYED, 0u);
  for (UINT id = ID_SELECTION_DOCUMENTS; id <= ID_SELECTION_FOCUS_RECT; ++id) {
    const bool before = IsChecked(id);
    Command(id);
    EXPECT_NE(IsChecked(id), before) << id;
  }
  EXPECT_TRUE(Tree().IsSelectionByDocuments());
  EXPECT_TRUE(Tree().IsDisplayOnlyActiveDocument());
}

TEST_F(Switches, SpacingMakesTheRowsHigherAtOnce) {
  Open();
  CVornTreeItem* const item = Tree().GetChildItem(Folder());
  CRect normal;
  CRect larger;
  ASSERT_EQ(Tree().GetItemRect(item, normal, 1), 1);
  EXPECT_TRUE(IsChecked(ID_SPACING_FIRST));
  Command(ID_SPACING_LAST);
  ASSERT_EQ(Tree().GetItemRect(item, larger, 1), 1);
  EXPECT_GT(larger.Height(), normal.Height());
  EXPECT_TRUE(IsChecked(ID_SPACING_LAST));
  Command(ID_SPACING_FIRST);
  ASSERT_EQ(Tree().GetItemRect(item, larger, 1), 1);
  EXPECT_EQ(larger, normal);
}

TEST_F(Switches, CommandsOfTheTreeAreGreyOnOtherPages) {
  Open();
  EXPECT_EQ(MenuState(ID_TREE_FILL) & MF_GRAYED, 0u);
  Command(ID_PAGE_WELCOME);
  EXPECT_NE(MenuState(ID_TREE_FILL) & MF_GRAYED, 0u);
  EXPECT_NE(MenuState(ID_STYLE_FIRST) & MF_GRAYED, 0u);
  Command(ID_PAGE_TREE);
  EXPECT_EQ(CWnd::GetFocus()->GetSafeHwnd(), Tree().m_hWnd);
}

// ---- The log -----------------------------------------------------------------------------------------

TEST_F(Switches, TheLogShowsTheHooksOfAClickInTheirOrder) {
  Open();
  CVornTreeItem* const file = Tree().GetLastChildItem(Folder());
  const POINT label = LabelOf(file);
  Command(ID_LOG_CLEAR);
  support::Click(label);
  Run();
  const std::string folder = "«\u00A0" + Label(Folder()) + "\u00A0»";
  EXPECT_EQ(LogLines(), (Lines{"OnClearSelection  «\u00A0un.txt\u00A0»",
                               "OnSelChanging  " + folder + ", «\u00A0un.txt\u00A0»",
                               "OnSelChanged  " + folder + ", «\u00A0un.txt\u00A0»"}));
}

TEST_F(Switches, APausedLogCountsAndShowsNothing) {
  Open();
  Command(ID_LOG_CLEAR);
  Command(ID_LOG_PAUSE);
  EXPECT_TRUE(IsChecked(ID_LOG_PAUSE));
  const int before = Pane().Log().Total();
  Tree().SetItemCheck(Folder(), 1);
  Run();
  EXPECT_EQ(Pane().Log().Total() - before, 2);
  EXPECT_EQ(LogLines(), Lines());
  Command(ID_LOG_PAUSE);
  Tree().SetItemCheck(Folder(), 0);
  Run();
  EXPECT_EQ(LogLines().size(), 2u);
}

TEST_F(Switches, TheLogKeepsTheNewestLines) {
  Open();
  for (int i = 0; i < CHookLog::kLimit; ++i) Tree().SetItemCheck(Folder(), i % 2 == 0);
  Tree().SetItemCheck(Tree().GetLastChildItem(Folder()), 1);
  Run();
  const Lines lines = LogLines();
  EXPECT_EQ(lines.size(), static_cast<size_t>(CHookLog::kLimit));
  EXPECT_EQ(lines.back(), "OnChecked  «\u00A0un.txt\u00A0»");
}

}  // namespace
