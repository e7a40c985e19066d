// CControlBar: a window along the edge of a frame.
#include "afxext.h"
#include "wnd_access.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CControlBar, CWnd)

BEGIN_MESSAGE_MAP(CControlBar, CWnd)
  ON_WM_CREATE()
  ON_WM_DESTROY()
  ON_WM_CTLCOLOR()
  ON_WM_LBUTTONDOWN()
  ON_WM_MOUSEACTIVATE()
  ON_WM_PAINT()
  ON_WM_TIMER()
  ON_WM_WINDOWPOSCHANGING()
  ON_MESSAGE(WM_SIZEPARENT, &CControlBar::OnSizeParent)
  ON_MESSAGE(WM_IDLEUPDATECMDUI, &CControlBar::OnIdleUpdateCmdUI)
END_MESSAGE_MAP()

CControlBar::CControlBar()
    : m_bAutoDelete(FALSE),
      m_dwStyle(0),
      m_dwDockStyle(0),
      m_pDockSite(nullptr),
      m_pDockBar(nullptr),
      m_pDockContext(nullptr),
      m_cxLeftBorder(6),
      m_cxRightBorder(6),
      m_cyTopBorder(1),
      m_cyBottomBorder(1),
      m_nMRUWidth(32767),
      m_nCount(0),
      m_nStateFlags(0) {}

CControlBar::~CControlBar() { CControlBar::DestroyWindow(); }

// ---- Life ----------------------------------------------------------------------------------------

BOOL CControlBar::PreCreateWindow(CREATESTRUCTW& cs) {
  if (!CWnd::PreCreateWindow(cs)) return FALSE;
  cs.style |= WS_CLIPSIBLINGS;
  m_dwStyle &= ~static_cast<DWORD>(WS_VISIBLE);
  return TRUE;
}

int CControlBar::OnCreate(LPCREATESTRUCTW lpcs) {
  constexpr int refused = -1;
  if (CWnd::OnCreate(lpcs) == refused) return refused;
  CFrameWnd* const frame = DYNAMIC_DOWNCAST(CFrameWnd, GetParent());
  if (frame == nullptr) return 0;
  m_pDockSite = frame;
  frame->m_listControlBars.AddTail(this);
  return 0;
}

void CControlBar::OnDestroy() {
  if (m_pDockSite != nullptr) {
    const POSITION position = m_pDockSite->m_listControlBars.Find(this);
    if (position != nullptr) m_pDockSite->m_listControlBars.RemoveAt(position);
    m_pDockSite = nullptr;
  }
  CWnd::OnDestroy();
}

void CControlBar::PostNcDestroy() {
  if (m_bAutoDelete) delete this;
}

// ---- Style ---------------------------------------------------------------------------------------

void CControlBar::SetBarStyle(DWORD dwStyle) {
  if (m_dwStyle == dwStyle) return;
  const DWORD earlier = m_dwStyle;
  m_dwStyle = dwStyle;
  OnBarStyleChange(earlier, dwStyle);
}

void CControlBar::OnBarStyleChange(DWORD, DWORD) {}

void CControlBar::SetBorders(int cxLeft, int cyTop, int cxRight, int cyBottom) {
  m_cxLeftBorder = cxLeft;
  m_cyTopBorder = cyTop;
  m_cxRightBorder = cxRight;
  m_cyBottomBorder = cyBottom;
}

void CControlBar::SetBorders(LPCRECT lpRect) {
  SetBorders(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom);
}

BOOL CControlBar::IsFloating() const { return (m_dwStyle & CBRS_FLOATING) != 0; }
BOOL CControlBar::IsDockBar() const { return FALSE; }

CFrameWnd* CControlBar::GetDockingFrame() const {
  CFrameWnd* const frame = GetParentFrame();
  return frame != nullptr ? frame : m_pDockSite;
}

BOOL CControlBar::IsVisible() const {
  if ((m_nStateFlags & delayHide) != 0) return FALSE;
  return (m_nStateFlags & delayShow) != 0 || (GetStyle() & WS_VISIBLE) != 0;
}

void CControlBar::DelayShow(BOOL bShow) {
  m_nStateFlags &= ~static_cast<UINT>(delayHide | delayShow);
  const bool visible = (GetStyle() & WS_VISIBLE) != 0;
  if (bShow && !visible) m_nStateFlags |= delayShow;
  if (!bShow && visible) m_nStateFlags |= delayHide;
}

// ---- Layout --------------------------------------------------------------------------------------

CSize CControlBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz) {
  constexpr int asLongAsAnyFrame = 32767;
  return CSize(bStretch && bHorz ? asLongAsAnyFrame : 0, bStretch && !bHorz ? asLongAsAnyFrame : 0);
}

CSize CControlBar::CalcDynamicLayout(int, DWORD nMode) {
  return CalcFixedLayout((nMode & LM_STRETCH) != 0, (nMode & LM_HORZ) != 0);
}

LRESULT CControlBar::OnSizeParent(WPARAM, LPARAM lParam) {
  auto* const layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
  if (layout == nullptr || !IsVisible() || (m_dwStyle & CBRS_ALIGN_ANY) == 0) return 0;

  CRect place(layout->rect);
  const CSize room = place.Size();
  const bool horizontal = (m_dwStyle & CBRS_ORIENT_HORZ) != 0;
  DWORD mode = layout->bStretch ? LM_STRETCH : 0;
  mode |= horizontal ? LM_HORZ | LM_HORZDOCK : LM_VERTDOCK;
  CSize size = CalcDynamicLayout(-1, mode);
  size.cx = std::min(size.cx, room.cx);
  size.cy = std::min(size.cy, room.cy);

  if (horizontal) {
    layout->sizeTotal.cy += size.cy;
    layout->sizeTotal.cx = std::max(layout->sizeTotal.cx, size.cx);
    if ((m_dwStyle & CBRS_ALIGN_TOP) != 0) {
      layout->rect.top += size.cy;
    } else {
      place.top = place.bottom - size.cy;
      layout->rect.bottom -= size.cy;
    }
  } else {
    layout->sizeTotal.cx += size.cx;
    layout->sizeTotal.cy = std::max(layout->sizeTotal.cy, size.cy);
    if ((m_dwStyle & CBRS_ALIGN_LEFT) != 0) {
      layout->rect.left += size.cx;
    } else {
      place.left = place.right - size.cx;
      layout->rect.right -= size.cx;
    }
  }
  place = CRect(place.TopLeft(), size);
  if (layout->hDWP != nullptr) vornfw::RepositionWindow(layout, m_hWnd, &place);
  return 0;
}

void CControlBar::OnWindowPosChanging(WINDOWPOS* lpWndPos) {
  CWnd::OnWindowPosChanging(lpWndPos);
  if ((lpWndPos->flags & SWP_NOSIZE) != 0 || (m_dwStyle & CBRS_BORDER_ANY) == 0) return;
  // The lines at the old and the new edge have to be drawn again.
  Invalidate();
}

// ---- Commands ------------------------------------------------------------------------------------

LRESULT CControlBar::OnIdleUpdateCmdUI(WPARAM wParam, LPARAM) {
  if ((GetStyle() & WS_VISIBLE) == 0) return 0;
  CFrameWnd* target = DYNAMIC_DOWNCAST(CFrameWnd, GetOwner());
  if (target == nullptr) target = GetParentFrame();
  if (target != nullptr) OnUpdateCmdUI(target, wParam != 0);
  return 0;
}

BOOL CControlBar::PreTranslateMessage(MSG* pMsg) {
  if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
  // A dialog-like bar must not take the keys of the frame.
  const bool key = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
  const bool mouse = pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST;
  for (CFrameWnd* frame = key ? GetTopLevelFrame() : nullptr; frame != nullptr;
       frame = frame->GetParentFrame()) {
    if (frame->PreTranslateMessage(pMsg)) return TRUE;
  }
  return (key || mouse) && m_hWnd != nullptr && ::IsDialogMessageW(m_hWnd, pMsg);
}

void CControlBar::OnTimer(UINT_PTR nIDEvent) { CWnd::OnTimer(nIDEvent); }
void CControlBar::OnLButtonDown(UINT nFlags, CPoint pt) { CWnd::OnLButtonDown(nFlags, pt); }

int CControlBar::OnMouseActivate(CWnd* pDesktopWnd, UINT nHitTest, UINT nMsg) {
  // A click on a bar activates the frame around it, a floating one not.
  return IsFloating() ? MA_NOACTIVATE : CWnd::OnMouseActivate(pDesktopWnd, nHitTest, nMsg);
}

// ---- Painting ------------------------------------------------------------------------------------

HBRUSH CControlBar::OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor) {
  LRESULT brush = 0;
  if (pWnd != nullptr && ReflectLastMsg(pWnd->m_hWnd, &brush)) return reinterpret_cast<HBRUSH>(brush);
  if (nCtlColor != CTLCOLOR_STATIC) return CWnd::OnCtlColor(pDC, pWnd, nCtlColor);
  pDC->SetTextColor(::GetSysColor(COLOR_BTNTEXT));
  pDC->SetBkColor(::GetSysColor(COLOR_BTNFACE));
  return ::GetSysColorBrush(COLOR_BTNFACE);
}

void CControlBar::OnPaint() {
  CPaintDC dc(this);
  if (IsVisible()) DoPaint(&dc);
}

void CControlBar::DoPaint(CDC* pDC) {
  CRect rect;
  GetClientRect(rect);
  DrawBorders(pDC, rect);
}

namespace {

struct Edge {
  DWORD border;  // CBRS_BORDER_ bit
  bool isUpperLeft;
};

// Takes the outermost line of an edge off rect and returns it.
CRect TakeLine(CRect& rect, DWORD border) {
  CRect line(rect);
  switch (border) {
    case CBRS_BORDER_LEFT: line.right = ++rect.left; break;
    case CBRS_BORDER_TOP: line.bottom = ++rect.top; break;
    case CBRS_BORDER_RIGHT: line.left = --rect.right; break;
    default: line.top = --rect.bottom; break;
  }
  return line;
}

constexpr Edge edges[] = {{CBRS_BORDER_LEFT, true},
                          {CBRS_BORDER_TOP, true},
                          {CBRS_BORDER_RIGHT, false},
                          {CBRS_BORDER_BOTTOM, false}};

}  // namespace

void CControlBar::DrawBorders(CDC* pDC, CRect& rect) {
  const COLORREF dark = ::GetSysColor(COLOR_BTNSHADOW);
  const COLORREF light = ::GetSysColor(COLOR_BTNHIGHLIGHT);
  for (const Edge& edge : edges) {
    if ((m_dwStyle & edge.border) == 0) continue;
    const bool etched = (m_dwStyle & CBRS_BORDER_3D) != 0;
    CRect line = TakeLine(rect, edge.border);
    pDC->FillSolidRect(line, etched && !edge.isUpperLeft ? light : dark);
    if (!etched) continue;
    line = TakeLine(rect, edge.border);
    pDC->FillSolidRect(line, edge.isUpperLeft ? light : dark);
  }
}

void CControlBar::CalcInsideRect(CRect& rect, BOOL bHorz) const {
  for (const Edge& edge : edges) {
    if ((m_dwStyle & edge.border) == 0) continue;
    TakeLine(rect, edge.border);
    if ((m_dwStyle & CBRS_BORDER_3D) != 0) TakeLine(rect, edge.border);
  }
  if (bHorz) {
    rect.DeflateRect(m_cxLeftBorder, m_cyTopBorder, m_cxRightBorder, m_cyBottomBorder);
  } else {
    rect.DeflateRect(m_cyTopBorder, m_cxLeftBorder, m_cyBottomBorder, m_cxRightBorder);
  }
}
