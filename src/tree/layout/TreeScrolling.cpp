// CVornTreeCtrl: scroll ranges and bringing items into view. The vertical position is a row index, the
// horizontal one is in pixels.
#include <algorithm>

#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "../model/TreeCheck.h"
#include "RowGeometry.h"
#include "VornTreeOperations.h"

namespace {

// A position that can be counted on from: a host may store any while redraw is held.
int WithinReach(int position) {
  constexpr int kFarthest = 1 << 30;
  return std::clamp(position, -kFarthest, kFarthest);
}

// Set while UpdateScrollBar calls what would call it again.
bool g_updatingScrollBar = false;

constexpr int kWidthMargin = 2;  // added to the widest label to decide on the bar
constexpr int kRangeMargin = 2;  // and once more to make its range

SCROLLINFO EmptyScrollInfo(UINT mask) {
  SCROLLINFO info{};
  info.cbSize = sizeof(info);
  info.fMask = mask;
  return info;
}

}  // namespace

// --- Positions -------------------------------------------------------------------------------------

int CVornTreeCtrl::SetScrollPos(int bar, int pos, int redraw) {
  if (bar == SB_HORZ) m_nScrollPosH = pos;
  if (bar == SB_VERT) m_nScrollPosV = pos;
  return ::IsWindow(m_hWnd) ? CWnd::SetScrollPos(bar, pos, redraw) : 0;
}

int CVornTreeCtrl::GetScrollPos(int bar) const {
  if (m_nRedrawLock > 0 || !::IsWindow(m_hWnd)) return bar == SB_HORZ ? m_nScrollPosH : m_nScrollPosV;
  return CWnd::GetScrollPos(bar);
}

int CVornTreeCtrl::SetScrollInfo(int bar, SCROLLINFO* info, int redraw) {
  return ::IsWindow(m_hWnd) ? CWnd::SetScrollInfo(bar, info, redraw) : 0;
}

int CVornTreeCtrl::GetScrollInfo(int bar, SCROLLINFO* info, unsigned int mask) {
  return ::IsWindow(m_hWnd) ? CWnd::GetScrollInfo(bar, info, mask) : 0;
}

// --- Ranges ----------------------------------------------------------------------------------------

void CVornTreeCtrl::UpdateScrollBar() {
  if (g_updatingScrollBar || !::IsWindow(m_hWnd)) return;
  CRect client;
  ::GetClientRect(m_hWnd, client);
  CSize size(client.Width(), client.Height());
  constexpr UINT kRangeAndPosition = SIF_RANGE | SIF_POS;
  SCROLLINFO horizontal = EmptyScrollInfo(0), vertical = EmptyScrollInfo(0);
  GetScrollInfo(SB_HORZ, &horizontal, kRangeAndPosition);
  GetScrollInfo(SB_VERT, &vertical, kRangeAndPosition);

  int widest = 0, tall = 0;
  GetSize(widest, tall);
  widest += kWidthMargin;
  const int barWidth = ::GetSystemMetrics(SM_CXVSCROLL), barHeight = ::GetSystemMetrics(SM_CYHSCROLL);
  bool showH = size.cx < widest, showV = size.cy < tall;
  if (showH && size.cy - barHeight < tall) showV = true;
  if (showV && size.cx - barWidth < widest) showH = true;
  // Meant: each bar takes the other one's thickness off its own direction.
  if (showH && size.cx <= barWidth) {
    showH = false;
  } else if (showH) {
    size.cx -= barWidth;
  }
  if (showV && size.cy <= barHeight) {
    showV = false;
  } else if (showV) {
    size.cy -= barHeight;
  }
  SetHorizontalBar(showH, size.cx, widest, horizontal.nPos);
  SetVerticalBar(showV, size.cy, vertical.nPos);
}

void CVornTreeCtrl::SetHorizontalBar(bool on, int width, int widest, int pos) {
  SCROLLINFO info = EmptyScrollInfo(SIF_RANGE | SIF_PAGE | SIF_POS);
  if (on) {
    info.fMask = SIF_ALL;
    info.nMax = widest + kRangeMargin;
    info.nPage = static_cast<UINT>(width);
    info.nPos = pos < info.nMax ? pos : info.nMax;
    if (info.nPos > info.nMax - width) info.nPos = info.nMax - width;
    info.nTrackPos = info.nMax - width - kRangeMargin;
  } else {
    info.nMax = width;
    info.nPage = static_cast<UINT>(width) + 1;
  }
  m_bHScrollVisible = on;
  ::ShowScrollBar(m_hWnd, SB_HORZ, on);
  SetScrollInfo(SB_HORZ, &info, TRUE);
  m_nScrollPosH = info.nPos;
}

void CVornTreeCtrl::SetVerticalBar(bool on, int height, int pos) {
  SCROLLINFO info = EmptyScrollInfo(SIF_RANGE | SIF_PAGE | SIF_POS);
  if (on) {
    const CVornTreeOperations operations(this);
    m_pFirstDisplay = RowAt(GetScrollPos(SB_VERT));
    m_pLastDisplay = operations.FindLastDisplayItem();
    info.nMax = GetVisibleCount();  // the count itself: the user can scroll past the end, meant
    info.nPage = static_cast<UINT>(operations.CountPageItems());
    info.nPos = pos <= info.nMax ? pos : info.nMax - static_cast<int>(info.nPage);
  } else {
    info.nMax = height;
    info.nPage = static_cast<UINT>(height) + 1;
    CVornTreeItem* first = nullptr;
    if (m_pRoot != nullptr) first = IsDocumentMode() ? GetFirstVisibleItem() : m_pRoot->m_pFirstChild;
    g_updatingScrollBar = true;
    SetFirstVisible(first);
    g_updatingScrollBar = false;
  }
  m_bVScrollVisible = on;
  ::ShowScrollBar(m_hWnd, SB_VERT, on);
  SetScrollInfo(SB_VERT, &info, TRUE);
  m_nScrollPosV = info.nPos;
}

// --- Into view -------------------------------------------------------------------------------------

// Scrolls sideways to the item's level if that, or the end of its label, is out of the window.
void CVornTreeCtrl::ScrollToLevel(CVornTreeItem* item, int redraw) {
  const int left = vorn::WidthOfLevels(m_nIndent, item->m_nLevel - 1);
  CRect client;
  ::GetClientRect(m_hWnd, client);
  client.OffsetRect(GetScrollPos(SB_HORZ), 0);
  if (client.left > left || client.right < item->GetItemRight()) SetScrollPos(SB_HORZ, left, redraw);
}

int CVornTreeCtrl::EnsureVisible(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (!::IsWindow(m_hWnd) || !IsOwnItem(item) || m_pSelection == nullptr) return 0;
  const CVornTreeOperations operations(this);
  operations.ExpandParents(item);
  if (!IsItemValid(item) || !::IsWindow(m_hWnd) || m_pSelection == nullptr) return 0;
  UpdateScrollBar();
  m_pFirstDisplay = RowAt(GetScrollPos(SB_VERT));
  m_pLastDisplay = operations.FindLastDisplayItem();

  int position = WithinReach(GetScrollPos(SB_VERT));
  CVornTreeItem* row = nullptr;
  if (IsAbove(item, m_pFirstDisplay)) {
    row = StepToRow(m_pFirstDisplay, item, true, &position);
  } else {
    if (IsDisplayItem(item)) return 1;
    row = StepToRow(operations.FindLastDisplayItem(), item, false, &position);
    ++position;  // one further than needed, meant
  }
  if (row == item) {
    SetScrollPos(SB_VERT, position, TRUE);
    ScrollToLevel(item, TRUE);
  }
  InvalidateAll();
  return 1;
}

int CVornTreeCtrl::SetFirstVisible(CVornTreeItem* item) {
  const vorn::OperationCheck check(this);
  if (item != nullptr && item == m_pFirstDisplay) return 1;
  if (!IsItemValid(m_pFirstDisplay) || !IsOwnItem(item) || m_pSelection == nullptr) return 0;
  SetRedraw(FALSE);
  const bool isAbove = IsAbove(item, m_pFirstDisplay);
  CVornTreeOperations(this).ExpandParents(item);
  UpdateScrollBar();
  int position = WithinReach(GetScrollPos(SB_VERT));
  CVornTreeItem* row = nullptr;
  if (IsItemValid(item)) row = StepToRow(GetFirstDisplayItem(), item, isAbove, &position);
  if (row == item && row != nullptr) SetScrollPos(SB_VERT, position, TRUE);
  SetRedraw(TRUE);
  return 1;
}
