// Dialogs: modal and modeless runs, data exchange, commands.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/driver.h"
#include "test_app.h"
#include "test_ids.h"

namespace {

class CTestDialog : public CDialog {
 public:
  explicit CTestDialog(UINT id = IDD_TEST_DIALOG, CWnd* parent = nullptr) : CDialog(id, parent) {}

  CString m_text;
  int m_number = 7;
  int m_check = 0;
  int m_radio = 1;
  CEdit m_edit;
  bool m_wrap = false;
  int m_commands = 0;
  int m_posts = 0;
  std::function<BOOL(CTestDialog&)> m_onInit;

  BOOL OnInitDialog() override {
    const BOOL result = CDialog::OnInitDialog();
    return m_onInit ? m_onInit(*this) : result;
  }

 protected:
  void DoDataExchange(CDataExchange* pDX) override {
    CDialog::DoDataExchange(pDX);
    if (m_wrap) DDX_Control(pDX, IDC_TEST_EDIT, m_edit);
    DDX_Text(pDX, IDC_TEST_EDIT, m_text);
    DDV_MaxChars(pDX, m_text, 20);
    DDX_Text(pDX, IDC_TEST_NUMBER, m_number);
    DDV_MinMaxInt(pDX, m_number, 1, 100);
    DDX_Check(pDX, IDC_TEST_CHECK, m_check);
    DDX_Radio(pDX, IDC_TEST_RADIO_1, m_radio);
  }
  void PostNcDestroy() override { ++m_posts; }
  afx_msg void OnPush() { ++m_commands; }
  afx_msg void OnEditChange() { ++m_commands; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CDialog)
  ON_COMMAND(IDC_TEST_PUSH, &CTestDialog::OnPush)
  ON_EN_CHANGE(IDC_TEST_EDIT, &CTestDialog::OnEditChange)
END_MESSAGE_MAP()

class WndDialog : public testing::Test {
 protected:
  void SetUp() override {
    TheApp().m_onMessageBox = [this](LPCWSTR text, UINT) {
      m_box = text;
      return IDOK;
    };
  }
  void TearDown() override { TheApp().m_onMessageBox = nullptr; }
  std::wstring m_box;
};

TEST_F(WndDialog, AModalRunTakesTheDataBothWays) {
  CTestDialog dialog;
  dialog.m_text = L"départ";
  dialog.m_check = 1;
  support::Later answer(50, [&] {
    CString shown;
    dialog.GetDlgItemText(IDC_TEST_EDIT, shown);
    EXPECT_STREQ(L"départ", shown);
    EXPECT_EQ(7u, dialog.GetDlgItemInt(IDC_TEST_NUMBER));
    EXPECT_EQ(static_cast<UINT>(BST_CHECKED), dialog.IsDlgButtonChecked(IDC_TEST_CHECK));
    EXPECT_EQ(IDC_TEST_RADIO_2, dialog.GetCheckedRadioButton(IDC_TEST_RADIO_1, IDC_TEST_RADIO_2));
    EXPECT_TRUE(dialog.IsWindowVisible());
    dialog.SetDlgItemText(IDC_TEST_EDIT, L"arrivée");
    dialog.SetDlgItemInt(IDC_TEST_NUMBER, 42);
    dialog.CheckDlgButton(IDC_TEST_CHECK, BST_UNCHECKED);
    dialog.CheckRadioButton(IDC_TEST_RADIO_1, IDC_TEST_RADIO_2, IDC_TEST_RADIO_1);
    dialog.PostMessage(WM_COMMAND, IDOK);
  });
  EXPECT_EQ(IDOK, dialog.DoModal());
  EXPECT_EQ(nullptr, dialog.m_hWnd);
  EXPECT_STREQ(L"arrivée", dialog.m_text);
  EXPECT_EQ(42, dialog.m_number);
  EXPECT_EQ(0, dialog.m_check);
  EXPECT_EQ(0, dialog.m_radio);
  EXPECT_EQ(1, dialog.m_posts);
}

TEST_F(WndDialog, CancelLeavesTheDataAlone) {
  CTestDialog dialog;
  support::Later answer(50, [&] {
    dialog.SetDlgItemInt(IDC_TEST_NUMBER, 42);
    dialog.PostMessage(WM_COMMAND, IDCANCEL);
  });
  EXPECT_EQ(IDCANCEL, dialog.DoModal());
  EXPECT_EQ(7, dialog.m_number);
}

TEST_F(WndDialog, RefusedValuesKeepItOpen) {
  CTestDialog dialog;
  support::Later first(50, [&] {
    dialog.SetDlgItemInt(IDC_TEST_NUMBER, 1000);
    dialog.PostMessage(WM_COMMAND, IDOK);
  });
  support::Later second(200, [&] {
    EXPECT_EQ(L"Un nombre de 1 à 100.", m_box);
    EXPECT_EQ(dialog.GetDlgItem(IDC_TEST_NUMBER)->m_hWnd, ::GetFocus());
    dialog.SetDlgItemInt(IDC_TEST_NUMBER, 100);
    dialog.PostMessage(WM_COMMAND, IDOK);
  });
  EXPECT_EQ(IDOK, dialog.DoModal());
  EXPECT_EQ(100, dialog.m_number);
}

TEST_F(WndDialog, TheOwnerSleepsMeanwhile) {
  CWnd owner;
  ASSERT_TRUE(owner.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(100, 100, 500, 400),
                             nullptr, 0));
  CTestDialog dialog(IDD_TEST_DIALOG, &owner);
  support::Later answer(50, [&] {
    EXPECT_FALSE(owner.IsWindowEnabled());
    EXPECT_EQ(owner.m_hWnd, ::GetWindow(dialog.m_hWnd, GW_OWNER));
    dialog.EndDialog(77);
  });
  EXPECT_EQ(77, dialog.DoModal());
  EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST_F(WndDialog, InitDialogMayEndIt) {
  CTestDialog dialog;
  dialog.m_onInit = [](CTestDialog& box) {
    box.EndDialog(33);
    return TRUE;
  };
  EXPECT_EQ(33, dialog.DoModal());
}

TEST_F(WndDialog, AnExceptionInInitDialogEndsItWithFailure) {
  CTestDialog dialog;
  dialog.m_onInit = [](CTestDialog&) -> BOOL { AfxThrowResourceException(); };
  EXPECT_EQ(-1, dialog.DoModal());
  EXPECT_EQ(nullptr, dialog.m_hWnd);
}

TEST_F(WndDialog, AMissingTemplateIsAFailure) {
  CTestDialog dialog(4999);
  EXPECT_EQ(-1, dialog.DoModal());
  EXPECT_FALSE(dialog.Create(4999));
}

TEST_F(WndDialog, KeysAnswerIt) {
  CTestDialog dialog;
  support::Later answer(50, [&] { dialog.GetDlgItem(IDC_TEST_EDIT)->PostMessage(WM_KEYDOWN, VK_ESCAPE, 1); });
  EXPECT_EQ(IDCANCEL, dialog.DoModal());
  support::Later second(50, [&] { dialog.GetDlgItem(IDC_TEST_EDIT)->PostMessage(WM_KEYDOWN, VK_RETURN, 1); });
  EXPECT_EQ(IDOK, dialog.DoModal());
}

TEST_F(WndDialog, Modeless) {
  CTestDialog dialog;
  dialog.m_wrap = true;
  ASSERT_TRUE(dialog.Create(IDD_TEST_DIALOG));
  EXPECT_FALSE(dialog.Create(IDD_TEST_DIALOG)) << "it is there already";
  EXPECT_EQ(dialog.m_edit.m_hWnd, ::GetDlgItem(dialog.m_hWnd, IDC_TEST_EDIT));
  EXPECT_EQ(0, dialog.m_commands) << "filling the controls is no change by the user";
  dialog.m_edit.ReplaceSel(L"x");
  EXPECT_EQ(1, dialog.m_commands);
  dialog.SendMessage(WM_COMMAND, IDC_TEST_PUSH);
  EXPECT_EQ(2, dialog.m_commands);
  dialog.m_text.Empty();
  EXPECT_TRUE(dialog.UpdateData());
  EXPECT_STREQ(L"x", dialog.m_text);
  EXPECT_TRUE(dialog.DestroyWindow());
  EXPECT_EQ(nullptr, dialog.m_edit.m_hWnd);
}

TEST_F(WndDialog, ButtonsAreBroughtUpToDate) {
  CTestDialog dialog;
  ASSERT_TRUE(dialog.Create(IDD_TEST_DIALOG));
  dialog.UpdateDialogControls(&dialog, TRUE);
  EXPECT_TRUE(dialog.GetDlgItem(IDC_TEST_PUSH)->IsWindowEnabled());
  EXPECT_TRUE(dialog.GetDlgItem(IDC_TEST_CHECK)->IsWindowEnabled());
  CWnd other;
  ASSERT_TRUE(other.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
  dialog.UpdateDialogControls(&other, TRUE);
  EXPECT_FALSE(dialog.GetDlgItem(IDC_TEST_PUSH)->IsWindowEnabled()) << "that target does not know it";
}

}  // namespace
