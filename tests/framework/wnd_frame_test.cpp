// Frames: creation, layout of bars, menus, help texts, accelerators.
#include <afxext.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/driver.h"
#include "test_app.h"
#include "test_ids.h"

namespace {

class CTestFrame : public CFrameWnd {
 public:
  CWnd m_client;
  std::wstring m_log;
  bool m_refuseClient = false;
  bool* m_gone = nullptr;

  CTestFrame() { m_bAutoDelete = FALSE; }
  ~CTestFrame() override {
    if (m_gone != nullptr) *m_gone = true;
  }
  BOOL Make(DWORD style = WS_POPUP | WS_VISIBLE) {
    return Create(nullptr, L"cadre", style, CRect(50, 50, 350, 250));
  }

 protected:
  BOOL OnCreateClient(LPCREATESTRUCTW, CCreateContext*) override {
    if (m_refuseClient) return FALSE;
    return m_client.Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 1, 1), this,
                           AFX_IDW_PANE_FIRST);
  }
  afx_msg void OnOpen() { m_log += L"open "; }
  afx_msg void OnUpdateOpen(CCmdUI* state) { state->SetCheck(1); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestFrame, CFrameWnd)
  ON_COMMAND(IDC_TEST_OPEN, &CTestFrame::OnOpen)
  ON_UPDATE_COMMAND_UI(IDC_TEST_OPEN, &CTestFrame::OnUpdateOpen)
END_MESSAGE_MAP()

class CTestBar : public CControlBar {
 public:
  CSize m_size;
  int m_updates = 0;

  BOOL Make(CWnd* parent, UINT id, DWORD barStyle, CSize size) {
    m_dwStyle = barStyle;
    m_size = size;
    return Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 1, 1), parent, id);
  }
  CSize CalcFixedLayout(BOOL bStretch, BOOL bHorz) override {
    const CSize whole = CControlBar::CalcFixedLayout(bStretch, bHorz);
    return CSize(std::max(whole.cx, m_size.cx), std::max(whole.cy, m_size.cy));
  }
  void OnUpdateCmdUI(CFrameWnd*, BOOL) override { ++m_updates; }
};

CRect PlaceOf(const CWnd& window) {
  CRect place;
  window.GetWindowRect(&place);
  CWnd* const parent = window.GetParent();
  parent->ScreenToClient(&place);
  return place;
}

TEST(WndFrame, TheClientWindowFillsIt) {
  CTestFrame frame;
  ASSERT_TRUE(frame.Make());
  EXPECT_EQ(CRect(0, 0, 300, 200), PlaceOf(frame.m_client));
  frame.MoveWindow(0, 0, 120, 90);
  EXPECT_EQ(CRect(0, 0, 120, 90), PlaceOf(frame.m_client));
  EXPECT_EQ(&frame, frame.m_client.GetParentFrame());
  EXPECT_EQ(&frame, frame.m_client.GetTopLevelFrame());
  EXPECT_EQ(nullptr, frame.GetParentFrame());
}

TEST(WndFrame, RefusedClientCancelsTheFrame) {
  CTestFrame frame;
  frame.m_refuseClient = true;
  EXPECT_FALSE(frame.Make());
  EXPECT_EQ(nullptr, frame.m_hWnd);
}

TEST(WndFrame, DeletesItselfByDefault) {
  bool gone = false;
  auto* const frame = new CTestFrame;
  frame->m_bAutoDelete = TRUE;
  frame->m_gone = &gone;
  ASSERT_TRUE(frame->Make());
  frame->SendMessage(WM_CLOSE);
  EXPECT_TRUE(gone);
}

TEST(WndFrame, BarsTakeTheirPartFromTheirSides) {
  CTestFrame frame;
  CTestBar top;
  CTestBar left;
  CTestBar bottom;
  ASSERT_TRUE(frame.Make());
  ASSERT_TRUE(top.Make(&frame, AFX_IDW_CONTROLBAR_FIRST + 10, CBRS_TOP, CSize(0, 20)));
  ASSERT_TRUE(left.Make(&frame, AFX_IDW_CONTROLBAR_FIRST + 11, CBRS_LEFT, CSize(30, 0)));
  ASSERT_TRUE(bottom.Make(&frame, AFX_IDW_CONTROLBAR_FIRST + 12, CBRS_BOTTOM, CSize(0, 10)));
  frame.RecalcLayout();
  // In z-order: a new child comes last.
  EXPECT_EQ(CRect(0, 0, 300, 20), PlaceOf(top));
  EXPECT_EQ(CRect(0, 20, 30, 200), PlaceOf(left));
  EXPECT_EQ(CRect(30, 190, 300, 200), PlaceOf(bottom));
  EXPECT_EQ(CRect(30, 20, 300, 190), PlaceOf(frame.m_client));

  CRect rest;
  frame.RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST, CWnd::reposQuery, &rest);
  EXPECT_EQ(CRect(30, 20, 300, 190), rest);
  CRect extra(1, 2, 3, 4);
  frame.RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST, CWnd::reposExtra, &extra);
  EXPECT_EQ(CRect(31, 22, 297, 186), PlaceOf(frame.m_client));

  EXPECT_EQ(&left, frame.GetControlBar(AFX_IDW_CONTROLBAR_FIRST + 11));
  EXPECT_EQ(nullptr, frame.GetControlBar(AFX_IDW_CONTROLBAR_FIRST + 99));
  frame.ShowControlBar(&left, FALSE, FALSE);
  EXPECT_EQ(CRect(0, 20, 300, 190), PlaceOf(frame.m_client));
  frame.ShowControlBar(&left, TRUE, TRUE);
  EXPECT_FALSE(left.IsWindowVisible()) << "not before idle time";
  EXPECT_TRUE(left.IsVisible()) << "but as good as";
  frame.SendMessage(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_TRUE(left.IsWindowVisible());
  EXPECT_EQ(CRect(30, 20, 300, 190), PlaceOf(frame.m_client));

  top.m_updates = 0;
  frame.SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
  EXPECT_EQ(1, top.m_updates);
  top.DestroyWindow();
  EXPECT_EQ(2, frame.m_listControlBars.GetCount());
}

TEST(WndFrame, BordersAreDrawnAndTakenOff) {
  CTestFrame frame;
  CTestBar bar;
  ASSERT_TRUE(frame.Make());
  ASSERT_TRUE(bar.Make(&frame, AFX_IDW_CONTROLBAR_FIRST + 10, CBRS_ALIGN_TOP, CSize(0, 20)));
  bar.SetBarStyle(CBRS_ALIGN_TOP | CBRS_BORDER_TOP | CBRS_BORDER_LEFT | CBRS_BORDER_3D);
  CClientDC dc(&frame.m_client);
  CRect rect(10, 10, 60, 40);
  bar.DrawBorders(&dc, rect);
  EXPECT_EQ(CRect(12, 12, 60, 40), rect);
  EXPECT_EQ(::GetSysColor(COLOR_BTNSHADOW), dc.GetPixel(10, 20));
  EXPECT_EQ(::GetSysColor(COLOR_BTNHIGHLIGHT), dc.GetPixel(11, 20));
  rect = CRect(0, 0, 50, 50);
  bar.SetBorders(1, 2, 3, 4);
  bar.CalcInsideRect(rect, TRUE);
  EXPECT_EQ(CRect(3, 4, 47, 46), rect);
}

// ---- Resources -----------------------------------------------------------------------------------

TEST(WndFrame, LoadsMenuTitleAndKeys) {
  CTestFrame frame;
  ASSERT_TRUE(frame.LoadFrame(IDR_TEST_FRAME, WS_OVERLAPPEDWINDOW));
  CString title;
  frame.GetWindowText(title);
  EXPECT_STREQ(L"Cadre d'essai", title);
  ASSERT_NE(nullptr, frame.GetMenu());
  EXPECT_EQ(2u, frame.GetMenu()->GetMenuItemCount());
  ASSERT_NE(nullptr, frame.m_hAccelTable);

  CMenu* const popup = frame.GetMenu()->GetSubMenu(0);
  ASSERT_NE(nullptr, popup);
  frame.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup->m_hMenu), MAKELPARAM(0, FALSE));
  EXPECT_TRUE(popup->GetMenuState(IDC_TEST_OPEN, MF_BYCOMMAND) & MF_CHECKED);
  EXPECT_TRUE(popup->GetMenuState(IDC_TEST_NOBODY, MF_BYCOMMAND) & MF_GRAYED);
}

TEST(WndFrame, AMissingResourceIsAFailure) {
  CTestFrame frame;
  EXPECT_FALSE(frame.LoadFrame(4999));
  EXPECT_EQ(nullptr, frame.m_hWnd);
  EXPECT_FALSE(frame.Create(nullptr, L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, MAKEINTRESOURCEW(4999)));
}

TEST(WndFrame, HelpTextsGoToTheStatusBar) {
  CTestFrame frame;
  CStatusBar bar;
  ASSERT_TRUE(frame.Make());
  ASSERT_TRUE(bar.Create(&frame));
  const UINT panes[] = {ID_SEPARATOR, IDS_TEST_PANE};
  ASSERT_TRUE(bar.SetIndicators(panes, 2));
  frame.RecalcLayout();
  EXPECT_EQ(1, bar.CommandToIndex(IDS_TEST_PANE));
  EXPECT_EQ(-1, bar.CommandToIndex(12345));
  EXPECT_STREQ(L"Volet", bar.GetPaneText(1));
  CRect barPlace = PlaceOf(bar);
  EXPECT_EQ(200, barPlace.bottom);
  EXPECT_EQ(barPlace.top, PlaceOf(frame.m_client).bottom);
  EXPECT_EQ(&bar, frame.GetMessageBar());

  frame.SendMessage(WM_MENUSELECT, MAKEWPARAM(IDC_TEST_OPEN, 0), 0);
  EXPECT_STREQ(L"Ouvre un document", bar.GetPaneText(0)) << "without the tip after the line end";
  EXPECT_TRUE(frame.IsTracking());
  frame.SendMessage(WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
  EXPECT_FALSE(frame.IsTracking());
  frame.SetMessageText(L"texte libre");
  EXPECT_STREQ(L"texte libre", bar.GetPaneText(0));
  EXPECT_FALSE(bar.SetPaneText(2, L"x"));
  EXPECT_FALSE(bar.SetPaneText(-1, L"x"));
}

TEST(WndFrame, KeysOfTheTableBecomeCommands) {
  CTestFrame frame;
  ASSERT_TRUE(frame.LoadFrame(IDR_TEST_FRAME, WS_OVERLAPPEDWINDOW));
  MSG key = {};
  key.hwnd = frame.m_client.m_hWnd;
  key.message = WM_KEYDOWN;
  key.wParam = VK_F5;
  EXPECT_TRUE(CWnd::WalkPreTranslateTree(frame.m_hWnd, &key));
  EXPECT_EQ(L"open ", frame.m_log);
  key.wParam = VK_F6;
  EXPECT_FALSE(CWnd::WalkPreTranslateTree(frame.m_hWnd, &key));
}

TEST(WndFrame, UnhandledCommandsReachTheApplication) {
  CTestFrame frame;
  ASSERT_TRUE(frame.Make());
  AFX_CMDHANDLERINFO info = {};
  EXPECT_TRUE(frame.OnCmdMsg(ID_APP_EXIT, CN_COMMAND, nullptr, &info));
  EXPECT_EQ(static_cast<CCmdTarget*>(&TheApp()), info.pTarget);
}

}  // namespace
