// Asks for the path of a folder.
#pragma once

#include <afxwin.h>

class CFolderDialog : public CDialog {
 public:
  CFolderDialog(const CString& path, CWnd* parent);
  const CString& Path() const { return m_path; }

 protected:
  void DoDataExchange(CDataExchange* data) override;

 private:
  CString m_path;
};
