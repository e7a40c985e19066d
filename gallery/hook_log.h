// The list in which every hook of the tree shows as it runs.
#pragma once

#include <afxwin.h>

#include <deque>

class CHookLog : public CListBox {
 public:
  static constexpr int kLimit = 1000;  // lines that are kept; the oldest go first

  BOOL Create(CWnd* parent, UINT id, CFont& font);

  // One line, numbered from 1. Counted, but not shown, while the list is paused.
  void Note(const CString& line);
  // Takes all lines away; the numbers go on.
  void Clear();
  void Pause(bool paused) { m_paused = paused; }
  bool IsPaused() const { return m_paused; }
  // Hooks since the start, shown or not.
  int Total() const { return m_total; }

 protected:
  afx_msg LRESULT OnShowLines(WPARAM, LPARAM);
  DECLARE_MESSAGE_MAP()

 private:
  // Noted and not in the list yet. A range of a million rows runs two million hooks: the list takes up
  // at one go what is left of them.
  std::deque<CString> m_waiting;
  bool m_paused = false;
  int m_total = 0;
};
