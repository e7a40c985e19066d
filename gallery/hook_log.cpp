#include "hook_log.h"

#include "french.h"

namespace {
constexpr UINT kShowLines = WM_APP + 1;
}

BEGIN_MESSAGE_MAP(CHookLog, CListBox)
  ON_MESSAGE(kShowLines, &CHookLog::OnShowLines)
END_MESSAGE_MAP()

BOOL CHookLog::Create(CWnd* parent, UINT id, CFont& font) {
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | LBS_NOINTEGRALHEIGHT;
  if (!CListBox::Create(style, CRect(), parent, id)) return FALSE;
  SetFont(&font, FALSE);
  return TRUE;
}

void CHookLog::Note(const CString& line) {
  ++m_total;
  if (m_paused || m_hWnd == nullptr) return;
  if (m_waiting.empty()) PostMessage(kShowLines);
  m_waiting.push_back(french::Number(m_total) + L"  " + line);
  if (m_waiting.size() > kLimit) m_waiting.pop_front();
}

LRESULT CHookLog::OnShowLines(WPARAM, LPARAM) {
  if (m_waiting.empty()) return 0;
  SetRedraw(FALSE);
  if (m_waiting.size() >= kLimit) ResetContent();
  for (const CString& line : m_waiting) {
    if (GetCount() >= kLimit) DeleteString(0);
    AddString(line);
  }
  m_waiting.clear();
  SetTopIndex(GetCount() - 1);
  SetRedraw(TRUE);
  Invalidate(FALSE);
  return 0;
}

void CHookLog::Clear() {
  m_waiting.clear();
  if (m_hWnd != nullptr) ResetContent();
}
