// Windows and their objects: creation, attachment, subclassing, wrappers, exceptions.
#include <afxext.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/driver.h"
#include "test_app.h"

namespace {

class CLifeWnd : public CWnd {
 public:
  std::wstring m_log;
  bool m_refuseBefore = false;
  int m_createResult = 0;
  bool m_throwInSubclass = false;
  bool m_nestInSubclass = false;
  CWnd m_nested;
  bool m_deleteSelf = false;
  bool* m_gone = nullptr;

  ~CLifeWnd() override {
    if (m_gone != nullptr) *m_gone = true;
  }
  BOOL Make(CWnd* parent = nullptr) {
    return CreateEx(0, AfxRegisterWndClass(0), L"vie", parent != nullptr ? WS_CHILD : WS_POPUP,
                    CRect(0, 0, 80, 60), parent, 0);
  }
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override { return !m_refuseBefore && CWnd::PreCreateWindow(cs); }
  void PreSubclassWindow() override {
    m_log += m_hWnd != nullptr ? L"subclass " : L"nothing ";
    if (m_nestInSubclass)
      m_nested.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 5, 5), this, 0);
    if (m_throwInSubclass) AfxThrowResourceException();
  }
  void PostNcDestroy() override {
    m_log += m_hWnd == nullptr ? L"post " : L"postWithWindow ";
    if (m_deleteSelf) delete this;
  }

 protected:
  afx_msg int OnCreate(LPCREATESTRUCTW cs) {
    m_log += L"create ";
    return CWnd::OnCreate(cs) == -1 ? -1 : m_createResult;
  }
  afx_msg void OnDestroy() {
    m_log += L"destroy ";
    CWnd::OnDestroy();
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CLifeWnd, CWnd)
  ON_WM_CREATE()
  ON_WM_DESTROY()
END_MESSAGE_MAP()

TEST(WndLife, TheObjectHasItsWindowFromTheFirstMessageOn) {
  CLifeWnd window;
  ASSERT_TRUE(window.Make());
  EXPECT_EQ(&window, CWnd::FromHandlePermanent(window.m_hWnd));
  EXPECT_EQ(&window, CWnd::FromHandle(window.m_hWnd));
  EXPECT_FALSE(window.Make()) << "it has one already";
  const HWND handle = window.m_hWnd;
  EXPECT_TRUE(window.DestroyWindow());
  EXPECT_EQ(nullptr, window.m_hWnd);
  EXPECT_FALSE(::IsWindow(handle));
  EXPECT_EQ(L"subclass create destroy post ", window.m_log);
  EXPECT_FALSE(window.DestroyWindow());
}

TEST(WndLife, RefusedCreationLeavesNothing) {
  CLifeWnd window;
  window.m_refuseBefore = true;
  EXPECT_FALSE(window.Make());
  EXPECT_EQ(L"post ", window.m_log);
  window.m_refuseBefore = false;
  window.m_createResult = -1;
  window.m_log.clear();
  EXPECT_FALSE(window.Make());
  EXPECT_EQ(nullptr, window.m_hWnd);
  EXPECT_EQ(0u, window.m_log.find(L"subclass create ")) << "whether WM_DESTROY comes is the system's affair";
  EXPECT_EQ(window.m_log.size() - 5, window.m_log.find(L"post "));
  window.m_log.clear();
  EXPECT_FALSE(window.CreateEx(0, L"no such class", L"", WS_POPUP, CRect(), nullptr, 0));
  EXPECT_EQ(L"post ", window.m_log);
  window.m_createResult = 0;
  EXPECT_TRUE(window.Make()) << "and it can be tried again";
}

class CParentWnd : public CWnd {
 public:
  CWnd m_child;

 protected:
  afx_msg int OnCreate(LPCREATESTRUCTW) {
    m_child.Create(AfxRegisterWndClass(0), L"", 0, CRect(0, 0, 9, 9), this, 1);
    return -1;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CParentWnd, CWnd)
  ON_WM_CREATE()
END_MESSAGE_MAP()

TEST(WndLife, ChildrenGoWithARefusedParent) {
  CParentWnd parent;
  EXPECT_FALSE(parent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 80, 60), nullptr, 0));
  EXPECT_EQ(nullptr, parent.m_hWnd);
  EXPECT_EQ(nullptr, parent.m_child.m_hWnd) << "it hears of its end as well";
}

TEST(WndLife, AnExceptionBeforeTheFirstMessageCancels) {
  CLifeWnd window;
  window.m_throwInSubclass = true;
  EXPECT_FALSE(window.Make());
  EXPECT_EQ(nullptr, window.m_hWnd);
  EXPECT_EQ(L"subclass post ", window.m_log);
}

TEST(WndLife, AWindowCanBeMadeWhileAnotherIs) {
  CLifeWnd window;
  window.m_nestInSubclass = true;
  ASSERT_TRUE(window.Make());
  ASSERT_NE(nullptr, window.m_nested.m_hWnd);
  EXPECT_NE(window.m_hWnd, window.m_nested.m_hWnd);
  EXPECT_EQ(&window, CWnd::FromHandlePermanent(window.m_hWnd));
  EXPECT_EQ(&window.m_nested, CWnd::FromHandlePermanent(window.m_nested.m_hWnd));
}

TEST(WndLife, TheObjectMayDeleteItselfAtTheEnd) {
  bool gone = false;
  auto* const window = new CLifeWnd;
  window->m_deleteSelf = true;
  window->m_gone = &gone;
  ASSERT_TRUE(window->Make());
  window->DestroyWindow();
  EXPECT_TRUE(gone);

  gone = false;
  auto* const failing = new CLifeWnd;
  failing->m_deleteSelf = true;
  failing->m_gone = &gone;
  failing->m_createResult = -1;
  EXPECT_FALSE(failing->Make());
  EXPECT_TRUE(gone) << "a failed creation ends the object as well";
}

TEST(WndLife, TheDestructorDestroys) {
  HWND handle = nullptr;
  {
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 5, 5), nullptr, 0));
    handle = window.m_hWnd;
  }
  EXPECT_FALSE(::IsWindow(handle));
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(handle));
}

TEST(WndLife, AttachTakesOverWithoutTheProcedure) {
  const HWND raw =
      ::CreateWindowExW(0, L"STATIC", L"brut", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(nullptr, raw);
  const LONG_PTR procedure = ::GetWindowLongPtrW(raw, GWLP_WNDPROC);
  CWnd window;
  EXPECT_FALSE(window.Attach(nullptr));
  ASSERT_TRUE(window.Attach(raw));
  CWnd second;
  EXPECT_FALSE(second.Attach(raw)) << "it has an object already";
  EXPECT_EQ(procedure, ::GetWindowLongPtrW(raw, GWLP_WNDPROC));
  CString text;
  window.GetWindowText(text);
  EXPECT_STREQ(L"brut", text);
  EXPECT_EQ(raw, window.Detach());
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(raw));
  EXPECT_TRUE(::IsWindow(raw));
  ASSERT_TRUE(window.Attach(raw));
  EXPECT_TRUE(window.DestroyWindow());
  EXPECT_EQ(nullptr, window.m_hWnd) << "though it never saw the last message";
}

TEST(WndLife, SubclassPutsTheProcedureInFrontAndTakesItBack) {
  const HWND raw =
      ::CreateWindowExW(0, L"EDIT", L"brut", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(nullptr, raw);
  const LONG_PTR procedure = ::GetWindowLongPtrW(raw, GWLP_WNDPROC);
  CLifeWnd window;
  EXPECT_FALSE(window.SubclassWindow(nullptr));
  ASSERT_TRUE(window.SubclassWindow(raw));
  EXPECT_NE(procedure, ::GetWindowLongPtrW(raw, GWLP_WNDPROC));
  EXPECT_EQ(L"subclass ", window.m_log);
  CString text;
  window.GetWindowText(text);
  EXPECT_STREQ(L"brut", text) << "what is not handled goes to the procedure of before";
  EXPECT_EQ(raw, window.UnsubclassWindow());
  EXPECT_EQ(procedure, ::GetWindowLongPtrW(raw, GWLP_WNDPROC));

  window.m_throwInSubclass = true;
  EXPECT_FALSE(window.SubclassWindow(raw));
  EXPECT_EQ(nullptr, window.m_hWnd);
  EXPECT_EQ(procedure, ::GetWindowLongPtrW(raw, GWLP_WNDPROC));

  window.m_throwInSubclass = false;
  ASSERT_TRUE(window.SubclassWindow(raw));
  window.m_log.clear();
  ::DestroyWindow(raw);
  EXPECT_EQ(L"destroy post ", window.m_log);
  EXPECT_EQ(nullptr, window.m_hWnd);
}

TEST(WndLife, TemporaryWrappersLastUntilTheyAreFreed) {
  const HWND raw =
      ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(nullptr, raw);
  EXPECT_EQ(nullptr, CWnd::FromHandle(nullptr));
  AfxLockTempMaps();
  CWnd* const wrapper = CWnd::FromHandle(raw);
  ASSERT_NE(nullptr, wrapper);
  EXPECT_EQ(wrapper, CWnd::FromHandle(raw));
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(raw));
  AfxLockTempMaps();
  EXPECT_TRUE(AfxUnlockTempMaps()) << "still locked by the first";
  EXPECT_EQ(raw, wrapper->m_hWnd);
  EXPECT_FALSE(AfxUnlockTempMaps());
  EXPECT_TRUE(::IsWindow(raw)) << "the window does not go with its wrapper";
  ::DestroyWindow(raw);
}

TEST(WndLife, TheInsertAfterValuesAreNoWindows) {
  EXPECT_EQ(HWND_TOP, CWnd::wndTop.m_hWnd);
  EXPECT_EQ(HWND_BOTTOM, CWnd::wndBottom.m_hWnd);
  EXPECT_EQ(HWND_TOPMOST, CWnd::wndTopMost.m_hWnd);
  CLifeWnd window;
  ASSERT_TRUE(window.Make());
  EXPECT_TRUE(window.SetWindowPos(&CWnd::wndTopMost, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE));
  EXPECT_TRUE(window.GetExStyle() & WS_EX_TOPMOST);
}

TEST(WndLife, WithoutAWindowNothingHappens) {
  CWnd window;
  EXPECT_FALSE(window.PostMessage(WM_NULL));
  EXPECT_EQ(0u, window.SetTimer(1, 10));
  EXPECT_FALSE(window.KillTimer(1));
  EXPECT_FALSE(window.RedrawWindow());
  EXPECT_FALSE(window.UpdateData());
  EXPECT_EQ(nullptr, window.GetTopLevelParent());
  EXPECT_EQ(nullptr, window.GetDescendantWindow(1));
  EXPECT_EQ(nullptr, window.Detach());
  EXPECT_EQ(nullptr, window.UnsubclassWindow());
  EXPECT_EQ(0, window.SendMessage(WM_APP));
  window.SendMessageToDescendants(WM_APP);
  window.CenterWindow();
  window.RepositionBars(0, 0xFFFF, 0);
}

// ---- Window classes ------------------------------------------------------------------------------

TEST(WndLife, TheSameTraitsGiveTheSameClass) {
  const CString first = AfxRegisterWndClass(CS_DBLCLKS);
  const CString other = AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW);
  EXPECT_STREQ(first, AfxRegisterWndClass(CS_DBLCLKS));
  EXPECT_STRNE(first, other);
}

// ---- Exceptions ----------------------------------------------------------------------------------

class CThrowingWnd : public CWnd {
 public:
  int m_kind = 0;
  int m_paints = 0;
  bool m_throwAtEnd = false;
  bool m_posted = false;

  BOOL Make() {
    return CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50), nullptr, 0);
  }
  void PostNcDestroy() override { m_posted = true; }

  void Throw() const {
    switch (m_kind) {
      case 1: AfxThrowMemoryException();
      case 2: throw std::runtime_error("test");
      case 3: throw std::bad_alloc();
      case 4: throw 42;
      case 5: AfxThrowUserException();
      default: break;
    }
  }

 protected:
  afx_msg int OnCreate(LPCREATESTRUCTW cs) {
    Throw();
    return CWnd::OnCreate(cs);
  }
  afx_msg void OnPaint() {
    ++m_paints;
    Throw();
    Default();
  }
  afx_msg LRESULT OnUser(WPARAM, LPARAM) {
    Throw();
    return 5;
  }
  afx_msg void OnDestroy() {
    if (m_throwAtEnd) throw std::runtime_error("test");
  }
  afx_msg void OnNcDestroy() {
    if (m_throwAtEnd) throw std::runtime_error("test");
    CWnd::OnNcDestroy();
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CThrowingWnd, CWnd)
  ON_WM_CREATE()
  ON_WM_PAINT()
  ON_WM_DESTROY()
  ON_WM_NCDESTROY()
  ON_MESSAGE(WM_APP, &CThrowingWnd::OnUser)
END_MESSAGE_MAP()

class WndException : public testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    TheApp().m_onMessageBox = [this](LPCWSTR, UINT) {
      ++m_boxes;
      return IDOK;
    };
  }
  void TearDown() override { TheApp().m_onMessageBox = nullptr; }
  int m_boxes = 0;
};

TEST_P(WndException, InWmCreateCancelsTheCreation) {
  CThrowingWnd window;
  window.m_kind = GetParam();
  EXPECT_FALSE(window.Make());
  EXPECT_EQ(nullptr, window.m_hWnd);
  EXPECT_EQ(0, m_boxes);
}

TEST_P(WndException, InAHandlerGivesZero) {
  CThrowingWnd window;
  ASSERT_TRUE(window.Make());
  EXPECT_EQ(5, window.SendMessage(WM_APP));
  window.m_kind = GetParam();
  EXPECT_EQ(0, window.SendMessage(WM_APP));
}

TEST_P(WndException, InWmPaintValidates) {
  CThrowingWnd window;
  ASSERT_TRUE(window.Make());
  window.UpdateWindow();
  window.m_kind = GetParam();
  window.m_paints = 0;
  window.Invalidate();
  window.UpdateWindow();
  support::Pump();
  EXPECT_EQ(1, window.m_paints) << "it is not asked for ever";
  EXPECT_EQ(0, m_boxes);
}

INSTANTIATE_TEST_SUITE_P(Kinds, WndException, testing::Values(1, 2, 3, 4, 5));

TEST(WndLife, AnExceptionInTheLastMessageStillDetaches) {
  CThrowingWnd window;
  ASSERT_TRUE(window.Make());
  const HWND handle = window.m_hWnd;
  window.m_throwAtEnd = true;
  TheApp().m_onMessageBox = [](LPCWSTR, UINT) { return IDOK; };
  window.DestroyWindow();
  TheApp().m_onMessageBox = nullptr;
  EXPECT_EQ(nullptr, window.m_hWnd);
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(handle));
  EXPECT_TRUE(window.m_posted);
}

// ---- Ahead of the dispatch -----------------------------------------------------------------------

class CChainWnd : public CWnd {
 public:
  std::wstring* m_log = nullptr;
  wchar_t m_name = L'?';
  bool m_take = false;

  BOOL PreTranslateMessage(MSG*) override {
    *m_log += m_name;
    return m_take;
  }
};

TEST(WndLife, MessagesAreOfferedFromTheWindowUpToTheStop) {
  std::wstring log;
  CChainWnd top;
  CChainWnd middle;
  CChainWnd inner;
  const auto name = [&](CChainWnd& window, wchar_t letter) {
    window.m_log = &log;
    window.m_name = letter;
  };
  name(top, L'a');
  name(middle, L'b');
  name(inner, L'c');
  const LPCWSTR windowClass = AfxRegisterWndClass(0);
  ASSERT_TRUE(top.CreateEx(0, windowClass, L"", WS_POPUP, CRect(0, 0, 90, 90), nullptr, 0));
  ASSERT_TRUE(middle.Create(windowClass, L"", 0, CRect(0, 0, 50, 50), &top, 1));
  ASSERT_TRUE(inner.Create(windowClass, L"", 0, CRect(0, 0, 20, 20), &middle, 1));

  MSG message = {};
  message.hwnd = inner.m_hWnd;
  message.message = WM_KEYDOWN;
  EXPECT_FALSE(CWnd::WalkPreTranslateTree(top.m_hWnd, &message));
  EXPECT_EQ(L"cba", log);
  log.clear();
  EXPECT_FALSE(CWnd::WalkPreTranslateTree(middle.m_hWnd, &message));
  EXPECT_EQ(L"cb", log);
  log.clear();
  middle.m_take = true;
  EXPECT_TRUE(CWnd::WalkPreTranslateTree(top.m_hWnd, &message));
  EXPECT_EQ(L"cb", log);
}

// ---- Relations and style -------------------------------------------------------------------------

TEST(WndLife, ModifyStyleTellsWhetherItChanged) {
  CLifeWnd window;
  ASSERT_TRUE(window.Make());
  EXPECT_TRUE(window.ModifyStyle(0, WS_BORDER, SWP_NOACTIVATE));
  EXPECT_FALSE(window.ModifyStyle(0, WS_BORDER));
  EXPECT_TRUE(window.GetStyle() & WS_BORDER);
  EXPECT_TRUE(window.ModifyStyle(WS_BORDER, 0));
  EXPECT_FALSE(window.GetStyle() & WS_BORDER);
  EXPECT_TRUE(window.ModifyStyleEx(0, WS_EX_CLIENTEDGE));
  EXPECT_TRUE(window.GetExStyle() & WS_EX_CLIENTEDGE);
}

TEST(WndLife, TheTopLevelParentGoesByOwners) {
  CLifeWnd top;
  CLifeWnd child;
  CLifeWnd stranger;
  ASSERT_TRUE(top.Make());
  ASSERT_TRUE(child.Make(&top));
  ASSERT_TRUE(stranger.Make());
  EXPECT_EQ(&top, child.GetTopLevelParent());
  EXPECT_EQ(&top, child.GetParentOwner());
  EXPECT_EQ(&top, child.GetOwner());
  child.SetOwner(&stranger);
  EXPECT_EQ(&stranger, child.GetTopLevelParent());
  EXPECT_EQ(&top, child.GetTopLevelOwner());
}

TEST(WndLife, DescendantsAreFoundByTheirId) {
  CLifeWnd top;
  CWnd child;
  CWnd grandchild;
  ASSERT_TRUE(top.Make());
  const LPCWSTR windowClass = AfxRegisterWndClass(0);
  ASSERT_TRUE(child.Create(windowClass, L"", 0, CRect(0, 0, 20, 20), &top, 5));
  ASSERT_TRUE(grandchild.Create(windowClass, L"", 0, CRect(0, 0, 10, 10), &child, 6));
  EXPECT_EQ(&grandchild, top.GetDescendantWindow(6, TRUE));
  EXPECT_EQ(nullptr, top.GetDescendantWindow(7));
  EXPECT_EQ(&child, top.GetDlgItem(5));
}

TEST(WndLife, CentersWithinItsOwnerAndTheScreen) {
  CLifeWnd owner;
  ASSERT_TRUE(owner.Make());
  owner.MoveWindow(200, 200, 200, 100);
  owner.ShowWindow(SW_SHOWNA);
  CLifeWnd window;
  ASSERT_TRUE(window.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 100, 50), &owner, 0));
  window.CenterWindow();
  CRect place;
  window.GetWindowRect(&place);
  EXPECT_EQ(CPoint(250, 225), place.TopLeft());
  owner.MoveWindow(-150, -90, 100, 50);
  window.CenterWindow();
  window.GetWindowRect(&place);
  EXPECT_EQ(CPoint(0, 0), place.TopLeft()) << "kept on the screen";
}

}  // namespace
