// Exchange of data between a dialog's controls and the members of its object. Included by <afxwin.h>.
#pragma once

#include <afx.h>

class CWnd;

// One exchange, in one direction: UpdateData makes it and hands it to DoDataExchange.
class VORNFW_API CDataExchange {
 public:
  CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

  BOOL m_bSaveAndValidate;  // nonzero: from the controls to the members
  CWnd* m_pDlgWnd;

  // The control about to be exchanged. They throw CNotSupportedException if there is none.
  HWND PrepareCtrl(int nIDC);
  HWND PrepareEditCtrl(int nIDC);
  // A value was refused: the focus goes to the control prepared last, and CUserException is thrown.
  [[noreturn]] void Fail();

  UINT m_idLastControl;
  BOOL m_bEditLastControl;
};

VORNFW_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
VORNFW_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
VORNFW_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
VORNFW_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value);
VORNFW_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
VORNFW_API void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);
VORNFW_API void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
VORNFW_API void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
VORNFW_API void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index);
VORNFW_API void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
VORNFW_API void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index);

// To be called right after the exchange of the value; a value out of range is refused with a message box.
VORNFW_API void AFXAPI DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
VORNFW_API void AFXAPI DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal);
// Also limits what can be typed.
VORNFW_API void AFXAPI DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars);
