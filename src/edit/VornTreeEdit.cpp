#include "VornTreeEdit.h"

#include "../core/EditContextMenu.h"
#include "../core/EncodedSequence.h"
#include "../core/Module.h"
#include "../tree/VornTreeCtrl.h"
#include "../tree/model/VornTreeItem.h"

namespace {

constexpr const wchar_t* kClassName = L"VornLibrary::VornTreeEdit";

constexpr UINT kCtrlA = 1;
constexpr UINT kEnter = 13;
constexpr UINT kEscape = 27;

// Command ids that the host's context menu answers with.
enum EditCommand : unsigned int {
  kClear = 0xE120,
  kCopy = 0xE122,
  kCut = 0xE123,
  kPaste = 0xE125,
  kSelectAll = 0xE12A,
  kUndo = 0xE12B,
};

int WidthOf(HDC dc, const wchar_t* text, int length) {
  SIZE size{};
  ::GetTextExtentPoint32W(dc, text, length, &size);
  return size.cx;
}

}  // namespace

IMPLEMENT_DYNAMIC(CVornTreeEdit, CEdit)

BEGIN_MESSAGE_MAP(CVornTreeEdit, CEdit)
  ON_WM_CHAR()
  ON_WM_GETDLGCODE()
  ON_WM_KILLFOCUS()
  ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

CVornTreeEdit::CVornTreeEdit(CVornTreeItem* item) : m_pItem(item) {}

CVornTreeEdit::~CVornTreeEdit() {
  DestroyWindow();
  ::UnregisterClassW(kClassName, vorn::ModuleInstance());
}

// --- Creation --------------------------------------------------------------------------------------

BOOL CVornTreeEdit::PreCreateWindow(CREATESTRUCTW& cs) {
  if (!CEdit::PreCreateWindow(cs)) return FALSE;
  const HINSTANCE instance = vorn::ModuleInstance();
  WNDCLASSW own{};
  if (!::GetClassInfoW(instance, kClassName, &own)) {
    if (!::GetClassInfoW(cs.hInstance, cs.lpszClass, &own) && !::GetClassInfoW(nullptr, cs.lpszClass, &own)) {
      return FALSE;
    }
    own.hInstance = instance;
    own.lpszClassName = kClassName;
    if (!::RegisterClassW(&own)) return FALSE;
  }
  cs.lpszClass = kClassName;
  cs.hInstance = instance;
  return TRUE;
}

int CVornTreeEdit::Create(unsigned long style, const tagRECT& rect, CWnd* pParent, unsigned int id) {
  if (!IsItemValid(m_pItem)) return 0;
  if (!CEdit::Create(static_cast<DWORD>(style) | ES_MULTILINE, rect, pParent, id)) return 0;
  m_pTree = DYNAMIC_DOWNCAST(CVornTreeCtrl, pParent);
  CFont* const itemFont = m_pTree != nullptr ? m_pTree->GetItemFont(m_pItem) : nullptr;
  const HGDIOBJ font = itemFont != nullptr ? itemFont->GetSafeHandle() : ::GetStockObject(DEFAULT_GUI_FONT);
  const HWND window = m_hWnd;
  ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  ::SetFocus(window);
  if (!::IsWindow(window) || !IsItemValid(m_pItem)) return 0;
  CString text = m_pItem->m_strText;
  vorn::DecodeSequence(text);
  ::SetWindowTextW(window, text);
  SelectAll();
  if (!::IsWindow(window)) return 0;
  ::GetWindowRect(window, m_rcStart);
  ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&m_rcStart), 2);
  AdjustFormatRect();
  return 1;
}

// Keeps one line of text in the same place in the box, which is made for several.
void CVornTreeEdit::AdjustFormatRect() {
  constexpr int kTop = 1;
  CRect format;
  ::SendMessageW(m_hWnd, EM_GETRECT, 0, reinterpret_cast<LPARAM>(static_cast<RECT*>(format)));
  format.left = 0;
  if (format.top == kTop) return;
  format.bottom += 2 - format.top;
  format.top = kTop;
  ::SendMessageW(m_hWnd, EM_SETRECT, 0, reinterpret_cast<LPARAM>(static_cast<RECT*>(format)));
}

void CVornTreeEdit::SelectAll() {
  ::SendMessageW(m_hWnd, EM_SETSEL, 0, -1);
  ::SendMessageW(m_hWnd, EM_SCROLLCARET, 0, 0);
}

// --- Typing ----------------------------------------------------------------------------------------

LRESULT CVornTreeEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CHAR && wParam == kCtrlA) {
    SelectAll();
    return 0;
  }
  return CEdit::WindowProc(message, wParam, lParam);
}

BOOL CVornTreeEdit::PreTranslateMessage(MSG* message) {
  return message->message == WM_SYSCHAR || CEdit::PreTranslateMessage(message);
}

UINT CVornTreeEdit::OnGetDlgCode() { return DLGC_WANTALLKEYS; }

void CVornTreeEdit::OnChar(UINT character, UINT, UINT) {
  m_nLastChar = character;
  if (character == kEnter || (character == kEscape && m_pItem == nullptr)) {
    EndEdit(0);
  } else if (character == kEscape) {
    EndEdit(1);
  } else {
    const HWND window = m_hWnd;
    Default();
    if (::IsWindow(window) && m_pItem != nullptr) FitToText();
  }
}

// As wide as the text and a slack of two letters, not narrower than at first, and not past the control.
void CVornTreeEdit::FitToText() {
  CString text;
  GetWindowText(text);
  HDC dc = ::GetWindowDC(m_hWnd);
  const HGDIOBJ earlier =
      ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
  const int wanted = WidthOf(dc, text, text.GetLength()) + WidthOf(dc, L"ZZ", 2);
  if (earlier != nullptr) ::SelectObject(dc, earlier);
  ::ReleaseDC(m_hWnd, dc);

  CRect parent;
  ::GetClientRect(::GetParent(m_hWnd), parent);
  int right = m_rcStart.left + wanted;
  if (right >= parent.right) {
    right = parent.right;
  } else if (wanted < m_rcStart.Width()) {
    right = m_rcStart.left + m_rcStart.Width();
  }
  ::MoveWindow(m_hWnd, m_rcStart.left, m_rcStart.top, right - m_rcStart.left, m_rcStart.Height(), TRUE);
  AdjustFormatRect();
}

// --- Ending ----------------------------------------------------------------------------------------

int CVornTreeEdit::EndEdit(int cancel) {
  if (m_bEnding || m_pTree == nullptr) return 0;
  m_bEnding = TRUE;
  m_bCancelled = cancel;
  return m_pTree->EndLabelEdit();  // deletes this object
}

void CVornTreeEdit::OnKillFocus(CWnd* next) {
  if (m_bInMenu) return;
  const HWND window = m_hWnd;
  CEdit::OnKillFocus(next);
  if (::IsWindow(window)) EndEdit(0);
}

// --- The host's menu -------------------------------------------------------------------------------

void CVornTreeEdit::OnContextMenu(CWnd* window, CPoint point) {
  if (!vorn::HasEditContextMenu()) {
    Default();
    return;
  }
  const HWND self = m_hWnd;
  m_bInMenu = TRUE;
  const unsigned int command =
      vorn::CallEditContextMenu(window != nullptr ? window->GetSafeHwnd() : nullptr, point.x, point.y);
  // The host may have ended the edit meanwhile, and this object with it.
  if (!::IsWindow(self) || CWnd::FromHandlePermanent(self) != this) return;
  m_bInMenu = FALSE;
  Act(command);
}

void CVornTreeEdit::Act(unsigned int command) {
  switch (command) {
    case kClear:
      SelectAll();
      ::SendMessageW(m_hWnd, EM_REPLACESEL, (GetStyle() & ES_READONLY) == 0, reinterpret_cast<LPARAM>(L""));
      break;
    case kCopy: ::SendMessageW(m_hWnd, WM_COPY, 0, 0); break;
    case kCut: ::SendMessageW(m_hWnd, WM_CUT, 0, 0); break;
    case kPaste: ::SendMessageW(m_hWnd, WM_PASTE, 0, 0); break;
    case kSelectAll: SelectAll(); break;
    case kUndo: ::SendMessageW(m_hWnd, EM_UNDO, 0, 0); break;
    default: break;
  }
}
