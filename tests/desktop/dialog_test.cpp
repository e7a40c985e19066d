// Dialogs from templates: layout, keyboard, modal loop.
#include "resource.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "support/driver.h"
#include "support/host_window.h"
#include "support/recorder.h"
#include "support/text.h"

using namespace support;

namespace {

const HINSTANCE kModule = GetModuleHandleW(nullptr);

// What a dialog procedure of the tests does.
using DialogHandler = std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)>;
DialogHandler g_handler;

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  return g_handler ? g_handler(dialog, message, wParam, lParam) : 0;
}

class DialogTest : public testing::Test {
 protected:
  ~DialogTest() override {
    if (dialog) DestroyWindow(dialog);
    g_handler = {};
  }

  // A modeless dialog that lets the system set the focus.
  void Open(DialogHandler handler = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
    return message == WM_INITDIALOG;
  }) {
    g_handler = std::move(handler);
    dialog = CreateDialogParamW(kModule, MAKEINTRESOURCEW(IDD_TEST), host, DialogProcedure, 77);
    ShowWindow(dialog, SW_SHOW);
    PumpDialog();
  }

  void PumpDialog() const {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (IsDialogMessageW(dialog, &message)) continue;
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }

  void Press(UINT key) const {
    PostKey(key);
    PumpDialog();
  }

  int FocusId() const { return GetDlgCtrlID(GetFocus()); }

  // Runs the dialog modally.
  INT_PTR Run(DialogHandler handler) {
    g_handler = std::move(handler);
    return DialogBoxParamW(kModule, MAKEINTRESOURCEW(IDD_TEST), host, DialogProcedure, 5);
  }

  HostWindow host;
  HWND dialog = nullptr;
};

}  // namespace

TEST_F(DialogTest, MakesItsControls) {
  Open();
  ASSERT_NE(nullptr, dialog);
  EXPECT_EQ(L"Boîte d'essai", WindowText(dialog));
  EXPECT_EQ(L"&Nom :", WindowText(GetDlgItem(dialog, IDC_LABEL)));
  EXPECT_EQ(L"À &droite", WindowText(GetDlgItem(dialog, IDC_RIGHT)));
  wchar_t name[32];
  GetClassNameW(GetDlgItem(dialog, IDC_NAME), name, 32);
  EXPECT_EQ(0, _wcsicmp(L"edit", name));
  EXPECT_NE(nullptr, GetDlgItem(dialog, IDCANCEL));
  EXPECT_EQ(host.Handle(), GetWindow(dialog, GW_OWNER));
}

TEST_F(DialogTest, LayoutIsInDialogUnits) {
  Open();
  RECT unit = {0, 0, 4, 8};
  MapDialogRect(dialog, &unit);
  EXPECT_GT(unit.right, 3);
  EXPECT_GT(unit.bottom, 8);
  RECT expected = {50, 5, 150, 17};
  MapDialogRect(dialog, &expected);
  EXPECT_EQ(MulDiv(50, unit.right, 4), expected.left);
  RECT actual = {};
  GetWindowRect(GetDlgItem(dialog, IDC_NAME), &actual);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&actual), 2);
  EXPECT_EQ(Text(expected), Text(actual));
  RECT client = {0, 0, 160, 90};
  MapDialogRect(dialog, &client);
  EXPECT_EQ(Text(SIZE{client.right, client.bottom}), ClientSizeText(dialog));
}

TEST_F(DialogTest, InitHasTheFirstControlAndTheParameter) {
  WPARAM first = 0;
  LPARAM param = 0;
  Open([&](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
    if (message != WM_INITDIALOG) return 0;
    first = wParam;
    param = lParam;
    return 1;
  });
  EXPECT_EQ(reinterpret_cast<WPARAM>(GetDlgItem(dialog, IDC_NAME)), first);
  EXPECT_EQ(77, param);
  EXPECT_EQ(IDC_NAME, FocusId());
}

TEST_F(DialogTest, InitMaySetTheFocusItself) {
  Open([](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message == WM_INITDIALOG) SetFocus(GetDlgItem(window, IDC_BOLD));
    return 0;
  });
  EXPECT_EQ(IDC_BOLD, FocusId());
}

TEST_F(DialogTest, ControlsHaveTheDialogsFont) {
  Open();
  const LRESULT font = SendMessageW(dialog, WM_GETFONT, 0, 0);
  EXPECT_NE(0, font);
  EXPECT_EQ(font, SendDlgItemMessageW(dialog, IDC_NAME, WM_GETFONT, 0, 0));
}

TEST_F(DialogTest, TabGoesRound) {
  Open();
  std::string order = std::to_string(FocusId());
  for (int i = 0; i < 7; ++i) {
    Press(VK_TAB);
    order += " " + std::to_string(FocusId());
  }
  EXPECT_EQ("101 102 103 104 105 1 2 101", order);
}

TEST_F(DialogTest, ShiftTabGoesBack) {
  Open();
  KeyDown(VK_SHIFT);
  Press(VK_TAB);
  KeyUp(VK_SHIFT);
  EXPECT_EQ(IDCANCEL, FocusId());
}

TEST_F(DialogTest, ArrowsMoveInsideAGroup) {
  Open();
  SetFocus(GetDlgItem(dialog, IDC_LEFT));
  CheckRadioButton(dialog, IDC_LEFT, IDC_RIGHT, IDC_LEFT);
  Press(VK_DOWN);
  EXPECT_EQ(IDC_RIGHT, FocusId());
  EXPECT_EQ(static_cast<UINT>(BST_CHECKED), IsDlgButtonChecked(dialog, IDC_RIGHT));
  EXPECT_EQ(static_cast<UINT>(BST_UNCHECKED), IsDlgButtonChecked(dialog, IDC_LEFT));
  Press(VK_DOWN);
  EXPECT_EQ(IDC_LEFT, FocusId());
}

TEST_F(DialogTest, ReturnAndEscapeAreCommands) {
  std::vector<int> commands;
  Open([&](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
      commands.push_back(LOWORD(wParam));
    }
    return message == WM_INITDIALOG;
  });
  Press(VK_RETURN);
  Press(VK_ESCAPE);
  EXPECT_EQ((std::vector<int>{IDOK, IDCANCEL}), commands);
}

TEST_F(DialogTest, NextTabItemFollowsTheStops) {
  Open();
  const auto next = [&](int id, bool previous) {
    return GetDlgCtrlID(GetNextDlgTabItem(dialog, GetDlgItem(dialog, id), previous));
  };
  EXPECT_EQ(IDC_BOLD, next(IDC_NAME, false));
  EXPECT_EQ(IDCANCEL, next(IDC_NAME, true));
  EnableWindow(GetDlgItem(dialog, IDC_BOLD), FALSE);
  EXPECT_EQ(IDC_LEFT, next(IDC_NAME, false));
  EXPECT_EQ(GetDlgItem(dialog, IDC_LEFT), GetNextDlgGroupItem(dialog, GetDlgItem(dialog, IDC_RIGHT), FALSE));
}

TEST_F(DialogTest, ItemTextsAndNumbers) {
  Open();
  EXPECT_TRUE(SetDlgItemTextW(dialog, IDC_NAME, L"abc"));
  wchar_t text[8];
  EXPECT_EQ(3u, GetDlgItemTextW(dialog, IDC_NAME, text, 8));
  BOOL translated = TRUE;
  EXPECT_EQ(0u, GetDlgItemInt(dialog, IDC_NAME, &translated, TRUE));
  EXPECT_FALSE(translated);
  EXPECT_TRUE(SetDlgItemInt(dialog, IDC_NAME, static_cast<UINT>(-42), TRUE));
  EXPECT_EQ(L"-42", WindowText(GetDlgItem(dialog, IDC_NAME)));
  EXPECT_EQ(-42, static_cast<int>(GetDlgItemInt(dialog, IDC_NAME, &translated, TRUE)));
  EXPECT_TRUE(translated);
  EXPECT_FALSE(SetDlgItemTextW(dialog, 999, L"abc"));
}

TEST_F(DialogTest, ModalEndsWithItsResult) {
  EXPECT_EQ(42, Run([](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
              if (message == WM_INITDIALOG) EndDialog(window, 42);
              return message == WM_INITDIALOG;
            }));
}

TEST_F(DialogTest, ModalDisablesItsOwnerMeanwhile) {
  bool enabled = true;
  bool visible = false;
  HWND idle = nullptr;
  // The owner is told when the dialog is shown and has nothing to do.
  host.SetHandler([&](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
    if (message != WM_ENTERIDLE || idle) return std::nullopt;
    EXPECT_EQ(static_cast<WPARAM>(MSGF_DIALOGBOX), wParam);
    idle = reinterpret_cast<HWND>(lParam);
    enabled = IsWindowEnabled(host);
    visible = IsWindowVisible(idle);
    PostMessageW(idle, WM_COMMAND, IDOK, 0);
    return 0;
  });
  EXPECT_EQ(IDOK, Run([](HWND window, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
              if (message == WM_COMMAND && LOWORD(wParam) == IDOK) EndDialog(window, IDOK);
              return message == WM_INITDIALOG;
            }));
  EXPECT_FALSE(enabled);
  EXPECT_TRUE(visible);
  EXPECT_FALSE(IsWindow(idle));
  EXPECT_TRUE(IsWindowEnabled(host));
  EXPECT_EQ(host.Handle(), GetActiveWindow());
}

TEST_F(DialogTest, ModalAnswersTheKeyboard) {
  const Later answer(30, [] { PostKey(VK_ESCAPE); });
  EXPECT_EQ(IDCANCEL, Run([](HWND window, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
              if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(window, IDCANCEL);
              return message == WM_INITDIALOG;
            }));
}

TEST_F(DialogTest, MissingTemplateFails) {
  EXPECT_EQ(nullptr, CreateDialogParamW(kModule, MAKEINTRESOURCEW(9999), host, DialogProcedure, 0));
  EXPECT_EQ(-1, DialogBoxParamW(kModule, MAKEINTRESOURCEW(9999), host, DialogProcedure, 0));
}

TEST_F(DialogTest, DefaultButtonCanChange) {
  Open();
  EXPECT_EQ(static_cast<LRESULT>(MAKELONG(IDOK, DC_HASDEFID)), SendMessageW(dialog, DM_GETDEFID, 0, 0));
  SendMessageW(dialog, DM_SETDEFID, IDCANCEL, 0);
  EXPECT_EQ(static_cast<LRESULT>(MAKELONG(IDCANCEL, DC_HASDEFID)), SendMessageW(dialog, DM_GETDEFID, 0, 0));
}

TEST_F(DialogTest, MessageResultIsSetByTheProcedure) {
  Open([](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message != WM_USER) return message == WM_INITDIALOG;
    SetWindowLongPtrW(window, DWLP_MSGRESULT, 1234);
    return TRUE;
  });
  EXPECT_EQ(1234, SendMessageW(dialog, WM_USER, 0, 0));
}
