#include "client_view.h"

#include <VornComCtl.h>

#include <algorithm>

namespace {

constexpr int kListWidth = 190;
constexpr int kBrandHeight = 84;
constexpr int kEntryHeight = 36;
constexpr int kHeadHeight = 84;
constexpr int kMargin = 24;

}  // namespace

BEGIN_MESSAGE_MAP(CClientView, CWnd)
  ON_WM_PAINT()
  ON_WM_ERASEBKGND()
  ON_WM_SIZE()
  ON_WM_MOUSEMOVE()
  ON_WM_MOUSELEAVE()
  ON_WM_LBUTTONDOWN()
  ON_WM_KEYDOWN()
END_MESSAGE_MAP()

CClientView::CClientView(const CommandLine& commandLine) {
  m_pages.push_back(MakeWelcomePage(commandLine));
  m_pages.push_back(MakeDrawingPage());
  m_pages.push_back(MakeAboutPage());
}

BOOL CClientView::PreCreateWindow(CREATESTRUCTW& cs) {
  cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
  return CWnd::PreCreateWindow(cs);
}

void CClientView::ShowPage(int page) {
  m_current = std::clamp(page, 0, PageCount() - 1);
  if (m_hWnd != nullptr) Invalidate(FALSE);
}

// ---- Layout ------------------------------------------------------------------------------------------

CRect CClientView::ListArea() const {
  CRect area;
  GetClientRect(area);
  area.right = std::min<LONG>(area.right, kListWidth);
  return area;
}

CRect CClientView::EntryArea(int page) const {
  const CRect list = ListArea();
  return CRect(CPoint(list.left + 10, list.top + kBrandHeight + page * (kEntryHeight + 4)),
               CSize(std::max(list.Width() - 20, 0), kEntryHeight));
}

CRect CClientView::HeadArea() const {
  CRect area;
  GetClientRect(area);
  area.left = ListArea().right;
  area.bottom = std::min<LONG>(area.bottom, area.top + kHeadHeight);
  return area;
}

CRect CClientView::PageArea() const {
  CRect area;
  GetClientRect(area);
  area.left = ListArea().right;
  area.top = HeadArea().bottom;
  area.DeflateRect(kMargin, 18, kMargin, kMargin);
  return area;
}

int CClientView::EntryAt(CPoint point) const {
  for (int page = 0; page < PageCount(); ++page) {
    if (EntryArea(page).PtInRect(point)) return page;
  }
  return -1;
}

// ---- Painting ----------------------------------------------------------------------------------------

BOOL CClientView::OnEraseBkgnd(CDC*) { return TRUE; }

void CClientView::OnPaint() {
  CVornDC dc;
  if (!dc.BeginPaint(this)) return;
  const CSize buffer = dc.GetClipRect()->Size();
  dc.FillBack(theme::kPaper);
  PaintList(dc);
  PaintHead(dc);
  GalleryPage& page = *m_pages[static_cast<size_t>(m_current)];
  page.Paint(dc, PageArea(), m_fonts);
  dc.EndPaint(nullptr);
  const CRect stale = page.NotePaint(buffer, PageArea());
  if (!stale.IsRectEmpty()) InvalidateRect(stale, FALSE);
  if (m_onPainted) m_onPainted(buffer);
}

void CClientView::PaintList(CDC& dc) {
  const CRect list = ListArea();
  theme::Gradient(dc, list, theme::kNight, theme::kDusk, true);
  theme::Sign(dc, CPoint(list.left + 20, list.top + 24), 32, RGB(120, 200, 225));
  CRect brand(list.left + 64, list.top + 22, list.right - 8, list.top + 42);
  theme::Text(dc, m_fonts.heading, RGB(255, 255, 255), L"VornComCtl", brand);
  brand.OffsetRect(0, 19);
  theme::Text(dc, m_fonts.body, theme::kNightText, VornComCtl_get_revision(), brand);
  for (int page = 0; page < PageCount(); ++page) PaintEntry(dc, page);
}

void CClientView::PaintEntry(CDC& dc, int page) {
  const CRect area = EntryArea(page);
  const bool current = page == m_current;
  if (current) {
    theme::Rounded(dc, area, 5, theme::kAccent, theme::kAccent);
  } else if (page == m_hot) {
    const COLORREF pale = theme::Mix(theme::kDusk, theme::kAccent, 35);
    theme::Rounded(dc, area, 5, pale, pale);
  }
  CRect text(area);
  text.DeflateRect(14, 0, 8, 0);
  theme::Text(dc, current ? m_fonts.strong : m_fonts.body, current ? RGB(255, 255, 255) : theme::kNightText,
              m_pages[static_cast<size_t>(page)]->Title(), text,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
}

void CClientView::PaintHead(CDC& dc) {
  const GalleryPage& page = *m_pages[static_cast<size_t>(m_current)];
  const CRect head = HeadArea();
  dc.FillSolidRect(head, theme::kCard);
  dc.FillSolidRect(CRect(head.left, head.bottom - 1, head.right, head.bottom), theme::kLine);
  CRect text(head);
  text.DeflateRect(kMargin, 16, kMargin, 0);
  text.top += theme::Text(dc, m_fonts.title, theme::kInk, page.Title(), text) + 2;
  theme::Text(dc, m_fonts.body, theme::kMuted, page.Subtitle(), text);
}

// ---- Input -------------------------------------------------------------------------------------------

void CClientView::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy);
  Invalidate(FALSE);
}

void CClientView::SetHot(int page) {
  if (page == m_hot) return;
  for (const int changed : {m_hot, page}) {
    if (changed >= 0) InvalidateRect(EntryArea(changed), FALSE);
  }
  m_hot = page;
}

void CClientView::OnMouseMove(UINT, CPoint point) {
  TRACKMOUSEEVENT request = {sizeof request, TME_LEAVE, m_hWnd, 0};
  ::_TrackMouseEvent(&request);
  SetHot(EntryAt(point));
  const CRect stale = m_pages[static_cast<size_t>(m_current)]->TrackMouse(point, PageArea());
  if (!stale.IsRectEmpty()) InvalidateRect(stale, FALSE);
}

void CClientView::OnMouseLeave() { SetHot(-1); }

void CClientView::OnLButtonDown(UINT, CPoint point) {
  SetFocus();
  const int page = EntryAt(point);
  if (page >= 0) ShowPage(page);
}

void CClientView::OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags) {
  if (nChar == VK_UP) return ShowPage(m_current - 1);
  if (nChar == VK_DOWN) return ShowPage(m_current + 1);
  CWnd::OnKeyDown(nChar, nRepCnt, nFlags);
}
