// The inside of the frame: the list of pages at the left, the current page beside it. Commands go to the
// page's window first.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

#include "page.h"

class CClientView : public CWnd {
 public:
  explicit CClientView(const CommandLine& commandLine);

  int PageCount() const { return static_cast<int>(m_pages.size()); }
  int CurrentPage() const { return m_current; }
  // A number outside is brought into range.
  void ShowPage(int page);
  GalleryPage& Page() const { return *m_pages[static_cast<size_t>(m_current)]; }

  // See GalleryPage; for all pages.
  void Start();
  bool Idle();
  // Of the current page, or else how large the buffer of the last paint was.
  CString Detail() const;

  BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  afx_msg int OnCreate(LPCREATESTRUCTW lpCreateStruct);
  afx_msg void OnSetFocus(CWnd* pOldWnd);
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC* pDC);
  afx_msg void OnSize(UINT nType, int cx, int cy);
  afx_msg void OnMouseMove(UINT nFlags, CPoint point);
  afx_msg void OnMouseLeave();
  afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
  afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
  DECLARE_MESSAGE_MAP()

 private:
  CRect ListArea() const;
  CRect EntryArea(int page) const;
  CRect HeadArea() const;
  CRect PageArea() const;
  int EntryAt(CPoint point) const;
  void PlaceWindows();
  void SetHot(int page);
  void PaintList(CDC& dc);
  void PaintEntry(CDC& dc, int page);
  void PaintHead(CDC& dc);

  std::vector<std::unique_ptr<GalleryPage>> m_pages;
  CSize m_lastBuffer;
  CString m_subtitle;  // as last painted
  theme::Fonts m_fonts;
  int m_current = 0;
  int m_hot = -1;  // entry under the mouse
};
