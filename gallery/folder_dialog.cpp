#include "folder_dialog.h"

#include "resource.h"

CFolderDialog::CFolderDialog(const CString& path, CWnd* parent) : CDialog(IDD_FOLDER, parent), m_path(path) {}

void CFolderDialog::DoDataExchange(CDataExchange* data) {
  CDialog::DoDataExchange(data);
  DDX_Text(data, IDC_FOLDER, m_path);
}
