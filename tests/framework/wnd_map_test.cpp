// Message maps: dispatch, ranges, routing, reflection, command update.
#include <afxext.h>

#include <gtest/gtest.h>

#include <string>

#include "support/driver.h"
#include "test_app.h"

namespace {

const UINT g_registered = ::RegisterWindowMessageW(L"framework tests: registered");

class CMapWnd : public CWnd {
 public:
  std::wstring m_log;
  BOOL m_takeCommand = TRUE;
  BOOL m_routeOn = FALSE;
  bool m_greyed = false;

  BOOL Make(CWnd* parent = nullptr) {
    return CreateEx(0, AfxRegisterWndClass(0), L"", parent != nullptr ? WS_CHILD | WS_VISIBLE : WS_POPUP,
                    CRect(10, 10, 110, 90), parent, parent != nullptr ? 77 : 0);
  }
  void Log(LPCWSTR what) { m_log += std::wstring(what) + L" "; }
  void Log(LPCWSTR what, long long number) { m_log += what + std::to_wstring(number) + L" "; }

 protected:
  afx_msg void OnLButtonDown(UINT flags, CPoint point) {
    m_log += L"down" + std::to_wstring(flags) + L"@" + std::to_wstring(point.x) + L"," +
             std::to_wstring(point.y) + L" ";
  }
  afx_msg void OnSize(UINT type, int cx, int cy) {
    m_log += L"size" + std::to_wstring(type) + L":" + std::to_wstring(cx) + L"x" + std::to_wstring(cy) + L" ";
  }
  afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point) {
    m_log += L"wheel" + std::to_wstring(flags) + L":" + std::to_wstring(delta) + L"@" +
             std::to_wstring(point.x) + L" ";
    return TRUE;
  }
  afx_msg LRESULT OnUser(WPARAM wParam, LPARAM lParam) {
    Log(L"user", static_cast<long long>(wParam));
    return lParam;
  }
  afx_msg LRESULT OnRegistered(WPARAM, LPARAM lParam) { return lParam * 2; }
  afx_msg void OnOne() { Log(L"one"); }
  afx_msg void OnMany(UINT id) { Log(L"many", id); }
  afx_msg BOOL OnMaybe(UINT id) {
    Log(L"maybe", id);
    return m_takeCommand;
  }
  afx_msg void OnUpdateOne(CCmdUI* state) {
    state->Enable(!m_greyed);
    if (m_routeOn) state->ContinueRouting();
  }
  afx_msg void OnUpdateMany(CCmdUI* state) { state->SetCheck(static_cast<int>(state->m_nID) - 200); }
  afx_msg void OnEditChanged() { Log(L"changed"); }
  afx_msg void OnNotifyOne(NMHDR* header, LRESULT* result) {
    Log(L"notify", static_cast<int>(header->code));
    *result = 5;
  }
  afx_msg void OnNotifyMany(UINT id, NMHDR*, LRESULT* result) {
    Log(L"notifyMany", id);
    *result = 6;
  }
  afx_msg BOOL OnNotifyMaybe(UINT id, NMHDR*, LRESULT* result) {
    Log(L"notifyMaybe", id);
    *result = 7;
    return m_takeCommand;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CMapWnd, CWnd)
  ON_WM_LBUTTONDOWN()
  ON_WM_SIZE()
  ON_WM_MOUSEWHEEL()
  ON_MESSAGE(WM_APP, &CMapWnd::OnUser)
  ON_REGISTERED_MESSAGE(g_registered, &CMapWnd::OnRegistered)
  ON_COMMAND(100, &CMapWnd::OnOne)
  ON_COMMAND_RANGE(200, 203, &CMapWnd::OnMany)
  ON_COMMAND_EX(300, &CMapWnd::OnMaybe)
  ON_UPDATE_COMMAND_UI(100, &CMapWnd::OnUpdateOne)
  ON_UPDATE_COMMAND_UI_RANGE(200, 203, &CMapWnd::OnUpdateMany)
  ON_EN_CHANGE(400, &CMapWnd::OnEditChanged)
  ON_NOTIFY(-425, 77, &CMapWnd::OnNotifyOne)
  ON_NOTIFY_RANGE(-426, 70, 79, &CMapWnd::OnNotifyMany)
  ON_NOTIFY_EX(-427, 77, &CMapWnd::OnNotifyMaybe)
END_MESSAGE_MAP()

// Inherits everything and overrides one line of the map.
class CDerivedWnd : public CMapWnd {
 protected:
  afx_msg void OnOneMine() { Log(L"mine"); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CDerivedWnd, CMapWnd)
  ON_COMMAND(100, &CDerivedWnd::OnOneMine)
END_MESSAGE_MAP()

TEST(WndMap, DecodesCoordinatesWithTheirSign) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  window.m_log.clear();
  window.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-3, 40));
  window.SendMessage(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(300, 200));
  EXPECT_EQ(1, window.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -120), MAKELPARAM(-7, 0)));
  EXPECT_EQ(L"down1@-3,40 size2:300x200 wheel8:-120@-7 ", window.m_log);
}

TEST(WndMap, MessagesOfItsOwnReturnTheirResult) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  EXPECT_EQ(1234567890123LL, window.SendMessage(WM_APP, 9, 1234567890123LL));
  EXPECT_EQ(42, window.SendMessage(g_registered, 0, 21));
  EXPECT_EQ(0, window.SendMessage(g_registered + 1, 0, 21));
}

TEST(WndMap, CommandsGoToOneManyOrMaybe) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  window.m_log.clear();
  EXPECT_EQ(1, window.SendMessage(WM_COMMAND, 100));
  for (WPARAM id : {199u, 200u, 203u, 204u}) window.SendMessage(WM_COMMAND, id);
  window.SendMessage(WM_COMMAND, 300);
  EXPECT_EQ(L"one many200 many203 maybe300 ", window.m_log);
  window.m_takeCommand = FALSE;
  EXPECT_FALSE(window.OnCmdMsg(300, CN_COMMAND, nullptr, nullptr));
}

TEST(WndMap, ADerivedMapComesFirst) {
  CDerivedWnd window;
  ASSERT_TRUE(window.Make());
  window.m_log.clear();
  window.SendMessage(WM_COMMAND, 100);
  window.SendMessage(WM_COMMAND, 201);
  EXPECT_EQ(L"mine many201 ", window.m_log);
}

TEST(WndMap, AGreyedCommandDoesNotRun) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  window.m_log.clear();
  window.m_greyed = true;
  window.SendMessage(WM_COMMAND, 100);
  EXPECT_EQ(L"", window.m_log);
}

TEST(WndMap, HandlerInfoTellsWithoutCalling) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  window.m_log.clear();
  AFX_CMDHANDLERINFO info = {};
  EXPECT_TRUE(window.OnCmdMsg(201, CN_COMMAND, nullptr, &info));
  EXPECT_EQ(&window, info.pTarget);
  EXPECT_FALSE(window.OnCmdMsg(999, CN_COMMAND, nullptr, &info));
  EXPECT_EQ(L"", window.m_log);
}

TEST(WndMap, NotificationsGoByTheIdOfTheControl) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  CWnd child;
  ASSERT_TRUE(child.Create(AfxRegisterWndClass(0), L"", WS_VISIBLE, CRect(0, 0, 10, 10), &window, 77));
  window.m_log.clear();
  const auto notify = [&](int code) {
    NMHDR header = {child.m_hWnd, 1, static_cast<UINT>(code)};  // the id in the header is not asked
    return window.SendMessage(WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&header));
  };
  EXPECT_EQ(5, notify(-425));
  EXPECT_EQ(6, notify(-426));
  EXPECT_EQ(7, notify(-427));
  EXPECT_EQ(0, notify(-428));
  EXPECT_EQ(0, window.SendMessage(WM_NOTIFY, 77, 0)) << "no header at all";
  EXPECT_EQ(L"notify-425 notifyMany77 notifyMaybe77 ", window.m_log);
}

TEST(WndMap, ControlNotificationsNeedTheirCode) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_VISIBLE, CRect(0, 0, 40, 20), &window, 400));
  window.m_log.clear();
  edit.ReplaceSel(L"x");
  EXPECT_EQ(L"changed ", window.m_log);
}

// ---- Command update ------------------------------------------------------------------------------

TEST(WndMap, UpdateGreysChecksAndRoutes) {
  CMapWnd window;
  ASSERT_TRUE(window.Make());
  CMenu menu;
  ASSERT_TRUE(menu.CreatePopupMenu());
  menu.AppendMenu(MF_STRING, 100, L"un");
  menu.AppendMenu(MF_STRING, 201, L"deux");
  menu.AppendMenu(MF_STRING, 999, L"trois");

  CCmdUI state;
  state.m_pMenu = &menu;
  state.m_nIndexMax = 3;
  const auto update = [&](UINT index) {
    state.m_nIndex = index;
    state.m_nID = menu.GetMenuItemID(static_cast<int>(index));
    return state.DoUpdate(&window, TRUE);
  };
  window.m_greyed = true;
  EXPECT_TRUE(update(0));
  EXPECT_TRUE(menu.GetMenuState(0, MF_BYPOSITION) & MF_GRAYED);
  window.m_greyed = false;
  EXPECT_TRUE(update(0));
  EXPECT_FALSE(menu.GetMenuState(0, MF_BYPOSITION) & MF_GRAYED);
  EXPECT_TRUE(update(1));
  EXPECT_TRUE(menu.GetMenuState(1, MF_BYPOSITION) & MF_CHECKED);
  EXPECT_FALSE(update(2));
  EXPECT_TRUE(menu.GetMenuState(2, MF_BYPOSITION) & MF_GRAYED) << "nobody handles it";
  window.m_routeOn = TRUE;
  EXPECT_FALSE(update(0)) << "routing goes on, so it was not handled";
}

TEST(WndMap, RadioAndTextOfAMenuItem) {
  CMenu menu;
  ASSERT_TRUE(menu.CreatePopupMenu());
  menu.AppendMenu(MF_STRING, 100, L"un");
  CCmdUI state;
  state.m_pMenu = &menu;
  state.SetRadio();
  state.SetText(L"nouveau");
  MENUITEMINFOW item = {};
  item.cbSize = sizeof(item);
  item.fMask = MIIM_FTYPE | MIIM_STATE;
  ASSERT_TRUE(menu.GetMenuItemInfo(0, &item, TRUE));
  EXPECT_TRUE(item.fType & MFT_RADIOCHECK);
  EXPECT_TRUE(item.fState & MFS_CHECKED);
  CString text;
  menu.GetMenuString(0, text, MF_BYPOSITION);
  EXPECT_STREQ(L"nouveau", text);
}

// ---- Reflection ----------------------------------------------------------------------------------

class CReflectWnd : public CMapWnd {
 public:
  BOOL m_takeReflected = TRUE;
  HBRUSH m_brush = nullptr;

 protected:
  afx_msg void OnReflectNotify(NMHDR*, LRESULT* result) {
    Log(L"reflected");
    *result = 11;
  }
  afx_msg BOOL OnReflectNotifyMaybe(NMHDR*, LRESULT* result) {
    Log(L"reflectedMaybe");
    *result = 12;
    return m_takeReflected;
  }
  afx_msg void OnReflectCommand() { Log(L"reflectedCommand"); }
  afx_msg HBRUSH CtlColor(CDC* dc, UINT kind) {
    Log(dc != nullptr ? L"color" : L"noDC", kind);
    return m_brush;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CReflectWnd, CMapWnd)
  ON_NOTIFY_REFLECT(0xFE57, &CReflectWnd::OnReflectNotify)
  ON_NOTIFY_REFLECT_EX(-427, &CReflectWnd::OnReflectNotifyMaybe)
  ON_CONTROL_REFLECT(3, &CReflectWnd::OnReflectCommand)
  ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

class WndReflect : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(m_parent.Make());
    ASSERT_TRUE(m_child.Make(&m_parent));
    m_parent.m_log.clear();
    m_child.m_log.clear();
  }
  LRESULT Notify(int code) {
    NMHDR header = {m_child.m_hWnd, 77, static_cast<UINT>(code)};
    return m_parent.SendMessage(WM_NOTIFY, 77, reinterpret_cast<LPARAM>(&header));
  }

  CMapWnd m_parent;
  CReflectWnd m_child;
};

TEST_F(WndReflect, CodesCompareInSixteenBits) {
  EXPECT_EQ(11, Notify(static_cast<int>(0xFFFFFE57)));
  EXPECT_EQ(L"reflected ", m_child.m_log);
  EXPECT_EQ(L"", m_parent.m_log) << "the parent is not told";
}

TEST_F(WndReflect, TheParentIsToldWhenTheChildLetsItGo) {
  EXPECT_EQ(12, Notify(-427));
  m_child.m_takeReflected = FALSE;
  EXPECT_EQ(7, Notify(-427));
  EXPECT_EQ(L"notifyMaybe77 ", m_parent.m_log);
}

TEST_F(WndReflect, CommandsComeBackToo) {
  m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(77, 3), reinterpret_cast<LPARAM>(m_child.m_hWnd));
  EXPECT_EQ(L"reflectedCommand ", m_child.m_log);
}

TEST_F(WndReflect, TheColourComesFromTheControlOrFromTheSystem) {
  CClientDC dc(&m_child);
  const auto ask = [&] {
    return m_parent.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.m_hDC),
                                reinterpret_cast<LPARAM>(m_child.m_hWnd));
  };
  const LRESULT standard = ask();
  EXPECT_NE(0, standard) << "no brush: the default handling answers";
  m_child.m_brush = static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH));
  EXPECT_EQ(reinterpret_cast<LRESULT>(m_child.m_brush), ask());
  EXPECT_EQ(L"color6 color6 ", m_child.m_log);
}

}  // namespace
