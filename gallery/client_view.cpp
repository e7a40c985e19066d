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
  ON_WM_CREATE()
  ON_WM_SETFOCUS()
  ON_WM_PAINT()
  ON_WM_ERASEBKGND()
  ON_WM_SIZE()
  ON_WM_MOUSEMOVE()
  ON_WM_MOUSELEAVE()
  ON_WM_LBUTTONDOWN()
  ON_WM_KEYDOWN()
END_MESSAGE_MAP()

CClientView::CClientView(const CommandLine& commandLine) {
  m_pages.push_back(MakeTreePage(commandLine));
  m_pages.push_back(MakeWelcomePage());
  m_pages.push_back(MakeDrawingPage());
  m_pages.push_back(MakeAboutPage());
}

BOOL CClientView::PreCreateWindow(CREATESTRUCTW& cs) {
  cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
  return CWnd::PreCreateWindow(cs);
}

int CClientView::OnCreate(LPCREATESTRUCTW lpCreateStruct) {
  if (CWnd::OnCreate(lpCreateStruct) == -1) return -1;
  for (const auto& page : m_pages) {
    if (!page->Create(*this)) return -1;
  }
  return 0;
}

void CClientView::ShowPage(int page) {
  m_current = std::clamp(page, 0, PageCount() - 1);
  if (m_hWnd == nullptr) return;
  PlaceWindows();
  Invalidate(FALSE);
  // The view may have the focus already, and would not hear of it again.
  CWnd* const window = Page().Window();
  (window != nullptr ? window : this)->SetFocus();
}

void CClientView::PlaceWindows() {
  for (const auto& page : m_pages) {
    CWnd* const window = page->Window();
    if (window == nullptr) continue;
    window->MoveWindow(PageArea());
    window->ShowWindow(page.get() == &Page() ? SW_SHOWNA : SW_HIDE);
  }
}

void CClientView::Start() {
  for (const auto& page : m_pages) page->Start();
}

bool CClientView::Idle() {
  bool more = false;
  for (const auto& page : m_pages) more |= page->Idle();
  if (Page().Subtitle() != m_subtitle) InvalidateRect(HeadArea(), FALSE);
  return more;
}

CString CClientView::Detail() const {
  CString detail = Page().Detail();
  if (detail.IsEmpty()) detail.Format(L"Tampon\u00A0: %d × %d", m_lastBuffer.cx, m_lastBuffer.cy);
  return detail;
}

BOOL CClientView::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  CWnd* const window = Page().Window();
  if (window != nullptr && window->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) return TRUE;
  return CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
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
  Page().Paint(dc, PageArea(), m_fonts);
  dc.EndPaint(nullptr);
  const CRect stale = Page().NotePaint(buffer, PageArea());
  if (!stale.IsRectEmpty()) InvalidateRect(stale, FALSE);
  m_lastBuffer = buffer;
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
  const CRect head = HeadArea();
  dc.FillSolidRect(head, theme::kCard);
  dc.FillSolidRect(CRect(head.left, head.bottom - 1, head.right, head.bottom), theme::kLine);
  CRect text(head);
  text.DeflateRect(kMargin, 16, kMargin, 0);
  text.top += theme::Text(dc, m_fonts.title, theme::kInk, Page().Title(), text) + 2;
  m_subtitle = Page().Subtitle();
  theme::Text(dc, m_fonts.body, theme::kMuted, m_subtitle, text);
}

// ---- Input -------------------------------------------------------------------------------------------

void CClientView::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy);
  PlaceWindows();
  Invalidate(FALSE);
}

void CClientView::OnSetFocus(CWnd*) {
  if (Page().Window() != nullptr) Page().Window()->SetFocus();
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
  const CRect stale = Page().TrackMouse(point, PageArea());
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
