// CDataExchange and its functions.
#include "wnd_access.h"

#include <cwchar>
#include <limits>

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate),
      m_pDlgWnd(pDlgWnd),
      m_idLastControl(0),
      m_bEditLastControl(FALSE) {}

HWND CDataExchange::PrepareCtrl(int nIDC) {
  const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
  if (control == nullptr) AfxThrowNotSupportedException();
  m_idLastControl = static_cast<UINT>(nIDC);
  m_bEditLastControl = FALSE;
  return control;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC) {
  const HWND control = PrepareCtrl(nIDC);
  m_bEditLastControl = TRUE;
  return control;
}

void CDataExchange::Fail() {
  if (m_bSaveAndValidate && m_idLastControl != 0) {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, static_cast<int>(m_idLastControl));
    ::SetFocus(control);
    if (m_bEditLastControl) ::SendMessageW(control, EM_SETSEL, 0, -1);
  }
  AfxThrowUserException();
}

namespace {

CString TextOf(HWND control) {
  CString text;
  const int length = ::GetWindowTextLengthW(control);
  ::GetWindowTextW(control, text.GetBuffer(length + 1), length + 1);
  text.ReleaseBuffer();
  return text;
}

void ShowText(HWND control, LPCWSTR text) {
  // The same text again would lose the selection.
  if (TextOf(control) != text) ::SetWindowTextW(control, text);
}

// Refuses what is in the control prepared last.
[[noreturn]] void Refuse(CDataExchange& exchange, UINT message) {
  AfxMessageBox(message, MB_ICONEXCLAMATION, message);
  exchange.Fail();
}

// A whole number with blanks around it; false for anything else or out of range.
bool ParseNumber(const CString& text, long long first, long long last, long long& value) {
  LPCWSTR place = text;
  wchar_t* end = nullptr;
  value = std::wcstoll(place, &end, 10);
  if (end == place || value < first || value > last) return false;
  while (*end == L' ' || *end == L'\t') ++end;
  return *end == L'\0';
}

template <class Number>
void ExchangeNumber(CDataExchange& exchange, int id, Number& value, UINT refusal) {
  const HWND control = exchange.PrepareEditCtrl(id);
  if (!exchange.m_bSaveAndValidate) {
    CString text;
    text.Format(L"%lld", static_cast<long long>(value));
    ShowText(control, text);
    return;
  }
  long long number = 0;
  using Limits = std::numeric_limits<Number>;
  if (!ParseNumber(TextOf(control), Limits::min(), Limits::max(), number)) Refuse(exchange, refusal);
  value = static_cast<Number>(number);
}

// Exchanges an index with messages that ask for it and set it.
void ExchangeIndex(CDataExchange& exchange, int id, int& index, UINT get, UINT set) {
  const HWND control = exchange.PrepareCtrl(id);
  if (exchange.m_bSaveAndValidate) {
    index = static_cast<int>(::SendMessageW(control, get, 0, 0));
  } else {
    ::SendMessageW(control, set, static_cast<WPARAM>(index), 0);
  }
}

}  // namespace

void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
  if (rControl.m_hWnd != nullptr) return;
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (!rControl.SubclassWindow(control)) AfxThrowNotSupportedException();
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value) {
  ExchangeNumber(*pDX, nIDC, value, AFX_IDP_PARSE_INT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value) {
  ExchangeNumber(*pDX, nIDC, value, AFX_IDP_PARSE_UINT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value) {
  ExchangeNumber(*pDX, nIDC, value, AFX_IDP_PARSE_INT);
}

void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
  const HWND control = pDX->PrepareEditCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    value = TextOf(control);
  } else {
    ShowText(control, value);
  }
}

void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
  ExchangeIndex(*pDX, nIDC, value, BM_GETCHECK, BM_SETCHECK);
}

void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value) {
  // The group runs from this button to the next one with WS_GROUP.
  HWND button = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) value = -1;
  int index = 0;
  do {
    if ((::SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
      if (!pDX->m_bSaveAndValidate) {
        ::SendMessageW(button, BM_SETCHECK, index == value, 0);
      } else if (::SendMessageW(button, BM_GETCHECK, 0, 0) != 0) {
        value = index;
      }
      ++index;
    }
    button = ::GetWindow(button, GW_HWNDNEXT);
  } while (button != nullptr && (::GetWindowLongPtrW(button, GWL_STYLE) & WS_GROUP) == 0);
}

void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (!pDX->m_bSaveAndValidate) {
    ::SendMessageW(control, LB_SELECTSTRING, static_cast<WPARAM>(-1),
                   reinterpret_cast<LPARAM>(value.GetString()));
    return;
  }
  const auto selected = ::SendMessageW(control, LB_GETCURSEL, 0, 0);
  value.Empty();
  if (selected < 0) return;
  const auto length =
      static_cast<int>(::SendMessageW(control, LB_GETTEXTLEN, static_cast<WPARAM>(selected), 0));
  ::SendMessageW(control, LB_GETTEXT, static_cast<WPARAM>(selected),
                 reinterpret_cast<LPARAM>(value.GetBuffer(length + 1)));
  value.ReleaseBuffer();
}

void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index) {
  ExchangeIndex(*pDX, nIDC, index, LB_GETCURSEL, LB_SETCURSEL);
}

void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value) {
  const HWND control = pDX->PrepareCtrl(nIDC);
  if (pDX->m_bSaveAndValidate) {
    value = TextOf(control);
    return;
  }
  const auto text = reinterpret_cast<LPARAM>(value.GetString());
  if (::SendMessageW(control, CB_SELECTSTRING, static_cast<WPARAM>(-1), text) == CB_ERR)
    ShowText(control, value);
}

void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index) {
  ExchangeIndex(*pDX, nIDC, index, CB_GETCURSEL, CB_SETCURSEL);
}

// ---- Validation ----------------------------------------------------------------------------------

namespace {

void CheckRange(CDataExchange& exchange, long long value, long long first, long long last) {
  if (!exchange.m_bSaveAndValidate || (value >= first && value <= last)) return;
  CString from;
  CString to;
  from.Format(L"%lld", first);
  to.Format(L"%lld", last);
  CString message;
  AfxFormatString2(message, AFX_IDP_PARSE_INT_RANGE, from, to);
  AfxMessageBox(message, MB_ICONEXCLAMATION, AFX_IDP_PARSE_INT_RANGE);
  exchange.Fail();
}

}  // namespace

void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal) {
  CheckRange(*pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal) {
  CheckRange(*pDX, value, minVal, maxVal);
}

void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars) {
  if (!pDX->m_bSaveAndValidate) {
    if (pDX->m_idLastControl == 0) return;
    const HWND control = ::GetDlgItem(pDX->m_pDlgWnd->m_hWnd, static_cast<int>(pDX->m_idLastControl));
    if (pDX->m_bEditLastControl) ::SendMessageW(control, EM_LIMITTEXT, static_cast<WPARAM>(nChars), 0);
    return;
  }
  if (value.GetLength() <= nChars) return;
  CString limit;
  limit.Format(L"%d", nChars);
  CString message;
  AfxFormatString1(message, AFX_IDP_PARSE_STRING_SIZE, limit);
  AfxMessageBox(message, MB_ICONEXCLAMATION, AFX_IDP_PARSE_STRING_SIZE);
  pDX->Fail();
}
