// The control as an object, with a window, in a dialog, and after the window's end.
#include <cwchar>
#include <vector>

#include "tree/input/input_scene.h"

namespace {

using support::InputScene;
using support::TestTree;

std::string Text(const LOGFONTW& font) {
  return support::Narrow(font.lfFaceName) + " " + std::to_string(font.lfHeight) + " " +
         std::to_string(font.lfWeight);
}

LOGFONTW FontOf(HGDIOBJ font) {
  LOGFONTW logFont{};
  ::GetObjectW(font, sizeof(logFont), &logFont);
  return logFont;
}

// --- Without a window ------------------------------------------------------------------------------

TEST(TreeObject, StartsWithItsDefaults) {
  TestTree tree;
  EXPECT_EQ(tree.m_hWnd, nullptr);
  EXPECT_NE(tree.GetSelectionManager(), nullptr);
  EXPECT_EQ(tree.GetSelectionType(), 1u);
  EXPECT_EQ(tree.GetIndent(), 20u);
  EXPECT_EQ(tree.GetDefaultHeight(), 20);
  EXPECT_EQ(tree.GetLabelEditDuration(), 1500);
  EXPECT_EQ(tree.IsAutoSelectionEnabled(), 1);
  EXPECT_TRUE(tree.IsFocusRectVisible());
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(tree.GetDisplayCount(), 0);
  EXPECT_EQ(tree.GetFirstDisplayItem(), nullptr);
  EXPECT_EQ(tree.IsDisplayOnlyActiveDocument(), 0);
  CRect drag;
  tree.GetDragRect(drag);
  const int cx = 2 * ::GetSystemMetrics(SM_CXDRAG), cy = 2 * ::GetSystemMetrics(SM_CYDRAG);
  EXPECT_EQ(drag, CRect(-cx, -cy, cx, cy));
  for (const auto list : {STIL_NORMAL, STIL_CHECKBOX, STIL_BUTTON, STIL_STATE}) {
    SIZE size{1, 1};
    tree.GetImageSize(list, &size);
    EXPECT_EQ(size.cx, 0);
  }
}

TEST(TreeObject, HasAnExpandedRootOnLevelZero) {
  TestTree tree;
  ASSERT_NE(tree.GetRootItem(), nullptr);
  EXPECT_TRUE(tree.IsItemExpanded(tree.GetRootItem()));
  EXPECT_EQ(tree.GetCount(), 0u);
  EXPECT_EQ(support::CheckTree(tree), "");
}

TEST(TreeObject, MakesItsOptionsTheCurrentOnesAndTakesThemAway) {
  {
    TestTree first;
    CVornTreeOptions* const own = AfxGetVornTreeOptions();
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->GetParent(), &first);
    {
      TestTree second;
      EXPECT_NE(AfxGetVornTreeOptions(), own);
      EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &second);
    }
    EXPECT_EQ(AfxGetVornTreeOptions(), nullptr) << "they are not handed back";
  }
  EXPECT_EQ(AfxGetVornTreeOptions(), nullptr);
}

TEST(TreeObject, ItsOptionsHaveTheIconFontOneStepSmaller) {
  LOGFONTW expected{};
  ASSERT_TRUE(::SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof(expected), &expected, 0));
  HDC screen = ::GetDC(nullptr);
  const int step = ::GetDeviceCaps(screen, LOGPIXELSX) < 97 ? 1 : 2;
  ::ReleaseDC(nullptr, screen);
  expected.lfHeight += expected.lfHeight < 0 ? step : -step;
  TestTree tree;
  EXPECT_EQ(Text(FontOf(AfxGetVornTreeOptions()->GetFont()->GetSafeHandle())), Text(expected));
}

TEST(TreeObject, WorksAsAModelAndIsTakenApartUnasked) {
  {
    TestTree tree;
    tree.Build("root [a+ [b*] c]");
    EXPECT_EQ(tree.Rows(), "a b c");
    EXPECT_EQ(tree.EnsureVisible(tree["c"]), 0);
    EXPECT_EQ(tree.EditLabel(tree["c"]), nullptr);
    EXPECT_EQ(tree.HitTest(CPoint(1, 1), nullptr), nullptr);
    EXPECT_EQ(tree.IsActiveStyle(0), 0);
    EXPECT_LOG(tree.log, "");
  }
}

TEST(TreeObject, StoresWhatIsSetBeforeTheWindow) {
  TestTree tree;
  tree.SetIndent(33);
  EXPECT_EQ(tree.GetIndent(), 33u);
  EXPECT_EQ(tree.EnableAutoSelection(7), 1);
  EXPECT_EQ(tree.EnableAutoSelection(1), 7);
  tree.SetFocusRectVisible(false);
  EXPECT_FALSE(tree.IsFocusRectVisible());
  tree.LoadConfiguration();
  EXPECT_EQ(tree.GetIndent(), 20u);
}

// --- Creation --------------------------------------------------------------------------------------

TEST(TreeCreation, MakesAWindowOfTheClassWithoutATitle) {
  InputScene scene("root [a]");
  TestTree& tree = scene.tree;
  wchar_t name[64] = {};
  ::GetClassNameW(tree, name, 64);
  EXPECT_STREQ(name, L"VornLibrary::VornTreeCtrl");
  EXPECT_EQ(::GetWindowTextLengthW(tree), 0);
  EXPECT_EQ(::GetDlgCtrlID(tree), 7);
  EXPECT_TRUE(tree.IsKindOf(RUNTIME_CLASS(CVornTreeCtrl)));
  EXPECT_EQ(tree.GetExStyle() & WS_EX_CLIENTEDGE, 0u);
  EXPECT_EQ(tree.CreateTreeCtrl(WS_CHILD, CRect(0, 0, 5, 5), CWnd::FromHandle(*scene.host), 9), 0)
      << "it has one";
}

TEST(TreeCreation, ABorderIsAlwaysTheSunkenEdge) {
  InputScene scene("root", support::kPlain | WS_BORDER);
  EXPECT_EQ(scene.tree.GetStyle() & WS_BORDER, 0u);
  EXPECT_NE(scene.tree.GetExStyle() & WS_EX_CLIENTEDGE, 0u);
}

TEST(TreeCreation, TellsWhenThereIsNoWindow) {
  TestTree tree;
  EXPECT_EQ(tree.CreateTreeCtrl(WS_CHILD, CRect(0, 0, 5, 5), nullptr, 9), 0) << "a child of nobody";
  EXPECT_EQ(tree.m_hWnd, nullptr);
  EXPECT_NE(tree.InsertItem(L"still", -1, -1), nullptr);
}

TEST(TreeCreation, GivesTheControlItsImagesFontAndProperty) {
  InputScene scene("root");
  TestTree& tree = scene.tree;
  SIZE size{};
  EXPECT_EQ(tree.GetImageSize(STIL_CHECKBOX, &size), 1);
  EXPECT_EQ(size.cx, 16);
  EXPECT_EQ(tree.GetImageSize(STIL_BUTTON, &size), 1);
  EXPECT_EQ(size.cx, 9);
  EXPECT_NE(tree.SendMessage(WM_GETFONT), 0);
  EXPECT_EQ(Text(FontOf(reinterpret_cast<HGDIOBJ>(tree.SendMessage(WM_GETFONT)))),
            Text(FontOf(::GetStockObject(DEFAULT_GUI_FONT))));
  EXPECT_EQ(::GetPropA(tree, "VornTree::This"), static_cast<CVornTreeCtrl*>(&tree));
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(tree), &tree);
  EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &tree);
}

TEST(TreeCreation, ShowsTheTreesCursor) {
  support::HostWindow host;
  TestTree tree;
  ::SetCursor(nullptr);
  tree.CreateTreeCtrl(WS_CHILD, CRect(0, 0, 50, 50), CWnd::FromHandle(host), 9);
  const HCURSOR shown = ::GetCursor();
  const HCURSOR own = ::LoadCursorW(::GetModuleHandleW(L"VornComCtl"), MAKEINTRESOURCEW(5012));
  EXPECT_NE(own, nullptr);
  EXPECT_EQ(shown, own);
  tree.DestroyWindow();
}

TEST(TreeCreation, AnEmptyOneHasNoBars) {
  InputScene scene("root", support::kPlain | WS_VSCROLL | WS_HSCROLL);
  EXPECT_EQ(scene.tree.GetStyle() & (WS_VSCROLL | WS_HSCROLL), 0u);
}

TEST(TreeCreation, AllControlsShareTheirCheckBoxesAndButtons) {
  InputScene first("root"), second("root");
  for (const auto list : {STIL_CHECKBOX, STIL_BUTTON}) {
    ASSERT_NE(first.tree.GetImageList(list), nullptr);
    EXPECT_EQ(first.tree.GetImageList(list)->m_hImageList, second.tree.GetImageList(list)->m_hImageList);
  }
}

TEST(TreeCreation, KeepsImagesGivenBefore) {
  CImageList boxes;
  boxes.Create(20, 20, ILC_COLOR, 2, 1);
  TestTree tree;
  tree.SetImageList(&boxes, STIL_CHECKBOX);
  support::HostWindow host;
  tree.CreateTreeCtrl(WS_CHILD, CRect(0, 0, 50, 50), CWnd::FromHandle(host), 9);
  SIZE size{};
  tree.GetImageSize(STIL_CHECKBOX, &size);
  EXPECT_EQ(size.cx, 20);
  tree.DestroyWindow();
}

TEST(TreeCreation, ItemsFromBeforeAreShown) {
  TestTree tree;
  tree.Build("root [a+ [b] c]");
  support::HostWindow host;
  tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 100), CWnd::FromHandle(host), 9);
  support::Pump();
  EXPECT_EQ(tree.GetDisplayCount(), 3);
  tree.DestroyWindow();
}

TEST(TreeCreation, MakesItsOptionsCurrent) {
  TestTree first;
  CVornTreeOptions* const own = AfxGetVornTreeOptions();
  TestTree second;
  support::HostWindow host;
  first.CreateTreeCtrl(WS_CHILD, CRect(0, 0, 50, 50), CWnd::FromHandle(host), 9);
  EXPECT_EQ(AfxGetVornTreeOptions(), own);
  first.DestroyWindow();
  EXPECT_EQ(AfxGetVornTreeOptions(), nullptr);
}

// --- In a dialog -----------------------------------------------------------------------------------

// A dialog box with one control: a tree by its class name, id 100.
class DialogTemplate {
 public:
  DialogTemplate() {
    Put(DLGTEMPLATE{WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU, 0, 2, 10, 10, 150, 100});
    Put(WORD{0});  // menu
    Put(WORD{0});  // class
    Put(WORD{0});  // title
    Item(WS_CHILD | WS_VISIBLE | WS_TABSTOP | support::kPlain, 100, L"VornLibrary::VornTreeCtrl");
    Item(WS_CHILD | WS_VISIBLE | WS_TABSTOP, IDOK, L"Button");
  }
  const DLGTEMPLATE* Get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }

 private:
  template <class Value>
  void Put(const Value& value) {
    const auto* bytes = reinterpret_cast<const char*>(&value);
    for (std::size_t i = 0; i < sizeof(Value); i += sizeof(WORD)) {
      WORD word;
      std::memcpy(&word, bytes + i, sizeof(word));
      m_words.push_back(word);
    }
  }
  void Item(DWORD style, WORD id, const wchar_t* kind) {
    if (m_words.size() % 2) Put(WORD{0});
    const short y = id == IDOK ? 82 : 2;
    Put(style);
    Put(DWORD{0});
    Put(short{2});
    Put(y);
    Put(short{140});
    Put(short{id == IDOK ? short{14} : short{78}});
    Put(id);
    for (const wchar_t* c = kind; *c != 0; ++c) Put(static_cast<WORD>(*c));
    Put(WORD{0});
    Put(WORD{0});  // text
    Put(WORD{0});  // creation data
  }
  std::vector<WORD> m_words;
};

class TreeDialog : public CDialog {
 public:
  TreeDialog() { CreateIndirect(m_template.Get()); }
  ~TreeDialog() override {
    tree.recording = false;
    DestroyWindow();
  }
  BOOL OnInitDialog() override {
    subclassed = tree.SubclassDlgItem(100, this);
    CDialog::OnInitDialog();
    tree.SetFocus();
    return FALSE;
  }

  TestTree tree;
  BOOL subclassed = FALSE;
  int cancelled = 0;
  int accepted = 0;

 protected:
  void OnCancel() override { ++cancelled; }
  void OnOK() override { ++accepted; }

 private:
  DialogTemplate m_template;
};

class InDialog : public testing::Test {
 protected:
  InDialog() : ahead([](MSG& m) { return CWnd::WalkPreTranslateTree(nullptr, &m) != FALSE; }) {
    dialog.tree.Build("root [Alpha [Beta] Delta]");
    dialog.tree.recording = false;
    dialog.tree.SelectItem(dialog.tree["Alpha"]);
    support::Pump();
  }
  TreeDialog dialog;
  support::MessageFilter ahead;
};

TEST_F(InDialog, ADialogsControlIsSubclassedAndComplete) {
  TestTree& tree = dialog.tree;
  ASSERT_TRUE(dialog.subclassed);
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(::GetDlgItem(dialog, 100)), &tree);
  SIZE size{};
  EXPECT_EQ(tree.GetImageSize(STIL_CHECKBOX, &size), 1);
  EXPECT_EQ(tree.GetDisplayCount(), 2);
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
  EXPECT_NE(tree.SendMessage(WM_GETFONT), 0);
}

TEST_F(InDialog, TheTreesKeysReachItBeforeTheDialog) {
  TestTree& tree = dialog.tree;
  support::Key(VK_ADD);
  EXPECT_EQ(tree.Rows(), "Alpha Beta Delta");
  support::Key(VK_DOWN);
  EXPECT_EQ(tree.Selected(), "Beta");
  support::Key(VK_HOME);
  EXPECT_EQ(tree.Selected(), "Alpha");
  EXPECT_EQ(::GetFocus(), tree.m_hWnd);
}

TEST_F(InDialog, EscapeInTheTreeCancelsTheDialog) {
  support::Key(VK_ESCAPE);
  EXPECT_EQ(dialog.cancelled, 1);
}

TEST_F(InDialog, DuringAnEditTheKeysAreTheBoxs) {
  TestTree& tree = dialog.tree;
  ASSERT_NE(tree.EditLabel(tree["Alpha"]), nullptr);
  support::Key(VK_ADD);
  EXPECT_EQ(tree.Rows(), "Alpha Delta");
  support::Key(VK_ESCAPE);
  EXPECT_EQ(tree.GetEditControl(), nullptr);
  EXPECT_EQ(dialog.cancelled, 0);
  ASSERT_NE(tree.EditLabel(tree["Alpha"]), nullptr);
  support::Type(L"Omega");
  support::Key(VK_RETURN);
  EXPECT_EQ(dialog.accepted, 0);
  EXPECT_NE(tree["Omega"], nullptr);
}

TEST_F(InDialog, ItsWindowEndsWithTheDialog) {
  dialog.DestroyWindow();
  EXPECT_EQ(dialog.tree.m_hWnd, nullptr);
  EXPECT_EQ(dialog.tree.GetRootItem(), nullptr);
}

// --- The end ---------------------------------------------------------------------------------------

TEST(TreeEnd, TakesEverythingApartAndAsksNobody) {
  InputScene scene("root [Alpha+ [Beta*] Delta]");
  TestTree& tree = scene.tree;
  tree.SetRedraw(FALSE);
  tree.DestroyWindow();
  EXPECT_LOG(tree.log, "") << "no item hook runs";
  EXPECT_EQ(tree.GetRootItem(), nullptr);
  EXPECT_EQ(tree.GetSelectionManager(), nullptr);
  EXPECT_EQ(tree.GetFirstDisplayItem(), nullptr);
  EXPECT_EQ(tree.GetLastDisplayItem(), nullptr);
  EXPECT_EQ(AfxGetVornTreeOptions(), nullptr);
  for (const auto list : {STIL_NORMAL, STIL_CHECKBOX, STIL_BUTTON, STIL_STATE}) {
    SIZE size{1, 1};
    tree.GetImageSize(list, &size);
    EXPECT_EQ(size.cx, 0);
  }
  EXPECT_EQ(tree.InsertItem(L"late", -1, -1), nullptr);
}

TEST(TreeEnd, LeavesTheCurrentOptionsOfAnotherControl) {
  InputScene first("root"), second("root");
  CVornTreeOptions* const others = AfxGetVornTreeOptions();
  ASSERT_EQ(others->GetParent(), &second.tree);
  first.tree.DestroyWindow();
  EXPECT_EQ(AfxGetVornTreeOptions(), others);
}

TEST(TreeEnd, OperationsAfterwardsGiveNothing) {
  InputScene scene("root [Alpha]");
  TestTree& tree = scene.tree;
  CVornTreeItem* const item = tree["Alpha"];
  tree.DestroyWindow();
  EXPECT_EQ(tree.SelectItem(item), 0);
  EXPECT_EQ(tree.EditLabel(item), nullptr);
  EXPECT_EQ(tree.EndLabelEdit(), 0);
  EXPECT_EQ(tree.Expand(item, STE_EXPAND), 0);
  EXPECT_EQ(tree.EnsureVisible(item), 0);
  EXPECT_EQ(tree.DeleteItem(item), 0);
  EXPECT_EQ(tree.GetItemHasFocus(), nullptr);
  EXPECT_EQ(tree.OnTypeAhead('a', 1), 0);
  tree.SetRedraw(FALSE);
  tree.SetRedraw(TRUE);
  tree.UpdateTree();
}

TEST(TreeEnd, TheSameObjectMayGetAnotherWindow) {
  InputScene scene("root [Alpha]");
  TestTree& tree = scene.tree;
  tree.DestroyWindow();
  ASSERT_NE(tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | support::kPlain, CRect(0, 0, 150, 100),
                                CWnd::FromHandle(*scene.host), 7),
            0);
  tree.Build("root [Beta+ [Gamma]]");
  scene.Click("Gamma");
  EXPECT_EQ(tree.Text(), "root [Beta+ [Gamma*@]]");
  tree.log.Clear();
}

TEST(TreeEnd, OfTheObjectTakesItsWindowAndItsEditAlong) {
  support::HostWindow host;
  auto tree = std::make_unique<TestTree>();
  tree->CreateTreeCtrl(WS_CHILD | WS_VISIBLE | support::kPlain, CRect(0, 0, 150, 100), CWnd::FromHandle(host),
                       9);
  tree->Build("root [Alpha+ [Beta*] Delta]");
  HWND const window = *tree;
  tree->SetRedraw(FALSE);
  ASSERT_NE(tree->EditLabel(tree->operator[]("Beta")), nullptr);
  HWND const box = *tree->GetEditControl();
  tree->log.Clear();
  tree.reset();
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_FALSE(::IsWindow(box));
  EXPECT_EQ(AfxGetVornTreeOptions(), nullptr);
}

TEST(TreeEnd, OfTheParentIsTheControlsToo) {
  InputScene scene("root [Alpha]");
  scene.host->Destroy();
  EXPECT_EQ(scene.tree.m_hWnd, nullptr);
  EXPECT_EQ(scene.tree.GetRootItem(), nullptr);
}

// --- Who has the current options -------------------------------------------------------------------

TEST(TreeOptionsFollow, TheTreeLastShown) {
  InputScene first("root"), second("root");
  ::ShowWindow(first.tree, SW_HIDE);
  EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &second.tree) << "hiding changes nothing";
  ::ShowWindow(first.tree, SW_SHOW);
  EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &first.tree);
  second.tree.SendMessage(WM_SHOWWINDOW, TRUE);
  EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &second.tree);
  first.tree.SendMessage(WM_SHOWWINDOW, FALSE);
  EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &second.tree);
}

// --- Handles and styles ----------------------------------------------------------------------------

TEST(TreeHandles, OnlyALiveControlsWindowGivesAControl) {
  InputScene scene("root");
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(nullptr), nullptr);
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(*scene.host), nullptr) << "no property";
  ::SetPropA(*scene.host, "VornTree::This", reinterpret_cast<HANDLE>(0x1234));
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(*scene.host), nullptr) << "a property of somebody else";
  ::RemovePropA(*scene.host, "VornTree::This");
  HWND const old = scene.tree;
  scene.tree.DestroyWindow();
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(old), nullptr);
}

TEST(TreeHandles, AWindowThatLostItsControlGivesNull) {
  support::HostWindow host;
  HWND window = nullptr;
  {
    TestTree tree;
    tree.CreateTreeCtrl(WS_CHILD, CRect(0, 0, 50, 50), CWnd::FromHandle(host), 9);
    window = tree.UnsubclassWindow();
    tree.recording = false;
  }
  ASSERT_TRUE(::IsWindow(window));
  EXPECT_EQ(CVornTreeCtrl::GetPointerFromHandle(window), nullptr);
  ::DestroyWindow(window);
}

TEST(TreeHandles, AStyleIsActiveWhenAllItsBitsAre) {
  InputScene scene("root", STS_HASLINES | STS_HASBUTTONS);
  EXPECT_EQ(scene.tree.IsActiveStyle(STS_HASLINES), 1);
  EXPECT_EQ(scene.tree.IsActiveStyle(STS_HASLINES | STS_HASBUTTONS), 1);
  EXPECT_EQ(scene.tree.IsActiveStyle(STS_HASLINES | STS_LINESATROOT), 0);
  scene.tree.ModifyStyle(0, STS_LINESATROOT);
  EXPECT_EQ(scene.tree.IsActiveStyle(STS_HASLINES | STS_LINESATROOT), 1);
}

TEST(TreeHandles, MessagesForTheBoxArePassedOnWhileItHasTheFocus) {
  InputScene scene("root [Alpha]");
  TestTree& tree = scene.tree;
  EXPECT_EQ(tree.IsTreeCtrlEditMessage(WM_CUT, 0, 0), 0);
  ASSERT_NE(tree.EditLabel(tree["Alpha"]), nullptr);
  EXPECT_EQ(tree.IsTreeCtrlEditMessage(WM_CLEAR, 0, 0), 1);
  EXPECT_EQ(scene.EditText(), L"") << "the whole text was selected";
  EXPECT_EQ(tree.IsTreeCtrlEditMessage(EM_UNDO, 0, 0), 1);
  EXPECT_EQ(scene.EditText(), L"Alpha");
  support::Key(VK_ESCAPE);
  EXPECT_EQ(tree.IsTreeCtrlEditMessage(WM_CUT, 0, 0), 0);
  ::SetFocus(nullptr);
  EXPECT_EQ(tree.IsTreeCtrlEditMessage(WM_CUT, 0, 0), 0) << "no box and no focus is no match";
  tree.log.Clear();
}

}  // namespace
