// CVornTreeCtrl: what the person does to the bars and the wheel.
#include "../VornTreeCtrl.h"

namespace {

constexpr int kHorizontalLine = 4;  // pixels
constexpr int kDoScrollLine = 2;    // in the bar's unit
constexpr UINT kWholeWindow = RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW;

SCROLLINFO InfoOf(CVornTreeCtrl& tree, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  tree.GetScrollInfo(bar, &info, SIF_ALL);
  return info;
}

int Larger(int a, int b) { return a > b ? a : b; }
int Smaller(int a, int b) { return a < b ? a : b; }

}  // namespace

void CVornTreeCtrl::ScrollTo(int bar, int position) {
  SetScrollPos(bar, position, TRUE);
  if (::IsWindow(m_hWnd)) ::RedrawWindow(m_hWnd, nullptr, nullptr, kWholeWindow);
}

void CVornTreeCtrl::OnVScroll(UINT code, UINT pos, CScrollBar*) {
  if (!m_bVScrollVisible) return;
  EndLabelEdit();
  if (!::IsWindow(m_hWnd)) return;
  const SCROLLINFO info = InfoOf(*this, SB_VERT);
  const int current = info.nPos;
  int position = current;
  switch (code) {
    case SB_LINEUP: position = current <= info.nMin ? current : current - 1; break;
    case SB_LINEDOWN: position = current > info.nMax ? current : current + 1; break;
    case SB_PAGEUP: position = Larger(info.nMin, current + 1 - m_nDisplayCount); break;
    case SB_PAGEDOWN: position = Smaller(info.nMax, current + m_nDisplayCount - 1); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: position = static_cast<WORD>(pos); break;  // the argument and its 16 bits, meant
    case SB_TOP: position = info.nMin; break;
    case SB_BOTTOM: position = info.nMax; break;
    default: return;
  }
  ScrollTo(SB_VERT, position);
}

void CVornTreeCtrl::OnHScroll(UINT code, UINT, CScrollBar*) {
  if (!m_bHScrollVisible) return;
  EndLabelEdit();
  if (!::IsWindow(m_hWnd)) return;
  const SCROLLINFO info = InfoOf(*this, SB_HORZ);
  const int page = static_cast<int>(info.nPage);
  int position = info.nPos;
  switch (code) {
    case SB_LINELEFT:
      if (position > info.nMin) position -= kHorizontalLine;
      break;
    case SB_LINERIGHT:
      if (position < info.nMax - page) position += kHorizontalLine;
      break;
    case SB_PAGELEFT: position = Larger(info.nMin, position - page); break;
    case SB_PAGERIGHT: position = Smaller(info.nMax, position + page); break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: position = info.nTrackPos; break;
    case SB_LEFT: position = info.nMin; break;
    case SB_RIGHT: position = info.nMax; break;
    default: break;  // the position stays, and the window is repainted all the same, meant
  }
  ScrollTo(SB_HORZ, position);
}

BOOL CVornTreeCtrl::OnMouseWheel(UINT, short delta, CPoint) {
  const int position = Larger(0, InfoOf(*this, SB_VERT).nPos - delta / WHEEL_DELTA);
  ::SendMessageW(m_hWnd, WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, static_cast<WORD>(position)), 0);
  return TRUE;
}

void CVornTreeCtrl::OnSize(UINT type, int cx, int cy) { CWnd::OnSize(type, cx, cy); }

void CVornTreeCtrl::DoScroll(int bar, unsigned int code, unsigned int pos) {
  if (!::IsWindow(m_hWnd)) return;
  CRect client;
  ::GetClientRect(m_hWnd, client);
  const int side = bar == SB_HORZ ? SB_HORZ : SB_VERT;
  const int page = side == SB_HORZ ? client.Width() : client.Height();  // pixels on both bars, meant
  const int current = GetScrollPos(side);
  long long delta = 0;
  switch (code) {
    case SB_LINEUP: delta = -kDoScrollLine; break;
    case SB_LINEDOWN: delta = kDoScrollLine; break;
    case SB_PAGEUP: delta = -page; break;
    case SB_PAGEDOWN: delta = page; break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: delta = static_cast<long long>(static_cast<int>(pos)) - current; break;
    default: return;
  }
  if (delta == 0) return;
  int lowest = 0, highest = 0;
  CWnd::GetScrollRange(side, &lowest, &highest);
  const long long wanted = current + delta;
  const int position = wanted < lowest ? lowest : wanted > highest ? highest : static_cast<int>(wanted);
  if (position != current) SetScrollPos(side, position, TRUE);
}
