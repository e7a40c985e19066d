// CDialog: a dialog box from a template, modal or not. Included by <afxwin.h>.
#pragma once

#include <afxdd_.h>
#include <afxwnd.h>

class VORNFW_API CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)

 public:
  // For Create and for InitModalIndirect.
  CDialog();
  // For DoModal.
  explicit CDialog(LPCWSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
  explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
  ~CDialog() override;

  // Modeless. The templates come from the resources in force.
  virtual BOOL Create(LPCWSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
  virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
  virtual BOOL CreateIndirect(const DLGTEMPLATE* lpDialogTemplate, CWnd* pParentWnd = nullptr);
  // Modal: the template to be used by DoModal.
  BOOL InitModalIndirect(const DLGTEMPLATE* lpDialogTemplate, CWnd* pParentWnd = nullptr);
  // Runs the box. Returns what EndDialog was given (IDOK, IDCANCEL...), -1 if it cannot be made.
  virtual INT_PTR DoModal();
  // Ends DoModal.
  void EndDialog(int nResult);

  void MapDialogRect(LPRECT lpRect) const;
  void NextDlgCtrl() const;
  void PrevDlgCtrl() const;
  void GotoDlgCtrl(CWnd* pWndCtrl);
  void SetDefID(UINT nID);
  DWORD GetDefID() const;

  // Fills the controls (UpdateData). 0: the focus has been set here.
  virtual BOOL OnInitDialog();
  // Dialog keys: Tab, arrows, Return, Escape.
  BOOL PreTranslateMessage(MSG* pMsg) override;
  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

 protected:
  // IDOK: takes the data over (UpdateData) and ends with IDOK. IDCANCEL: ends with IDCANCEL.
  virtual void OnOK();
  virtual void OnCancel();
  // Before the box is made; fonts and the like.
  virtual void PreInitDialog();
  BOOL CheckAutoCenter() override;

  afx_msg LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);

  LPCWSTR m_lpszTemplateName;             // name, or MAKEINTRESOURCE of the id
  const DLGTEMPLATE* m_lpDialogTemplate;  // of InitModalIndirect
  CWnd* m_pParentWnd;                     // as given

 private:
  // The window that the box belongs to.
  HWND FindOwner() const;
  BOOL CreateFromTemplate(const DLGTEMPLATE* pTemplate, HWND hWndOwner, HINSTANCE hInst);

  DECLARE_MESSAGE_MAP()
};
