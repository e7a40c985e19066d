// CVornTreeCtrl: the mouse. Each handler turns a point into a zone, acts on the zone, and leaves to the
// selection manager what a click selects.
#include "../../edit/VornTreeEdit.h"
#include "../../paint/VornTreeDC.h"
#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "../layout/RowGeometry.h"
#include "../model/VornTreeItem.h"
#include "TreeTimers.h"
#include "TypeAhead.h"

namespace {

// Set from a press on an image that the host has taken to the next double click, which then does nothing.
constexpr const wchar_t* kIgnoreDoubleClick = L"IgnoreLBDblClick";

constexpr unsigned int kZoneMask = 0x1FFF;

bool IsEmptyArea(unsigned int zone) {
  switch (zone) {
    case 0x0001:
    case vorn::kHitIndent:
    case vorn::kHitRight:
    case vorn::kHitAbove:
    case vorn::kHitBelow:
    case vorn::kHitWindowRight:
    case vorn::kHitWindowLeft: return true;
    default: return false;
  }
}

bool IsContent(unsigned int zone) {
  return zone == vorn::kHitImage || zone == vorn::kHitLabel || zone == vorn::kHitStateImage;
}

}  // namespace

// A plain click outside the rows clears the selection, if the host has asked for that.
void CVornTreeCtrl::ClickEmptyArea(UINT flags) {
  if (!HasSelectionType(STST_CLEARONEMPTY) || (flags & (MK_CONTROL | MK_SHIFT))) return;
  if (m_pSelection != nullptr) m_pSelection->ClearSelection(nullptr, 1);
}

void CVornTreeCtrl::OnLButtonDown(UINT flags, CPoint point) {
  const HWND window = m_hWnd;
  ::SetFocus(window);
  if (!::IsWindow(window)) return;
  unsigned int zone = 0;
  CVornTreeItem* const item = HitTest(point, &zone);
  m_nExpandGuard = 1;
  ::RemovePropW(window, kIgnoreDoubleClick);
  PressZone(item, zone & kZoneMask, flags);
  if (::IsWindow(window)) {
    // After the selection: it is decided while the box is still open.
    EndLabelEdit();
    if (::IsWindow(window)) ::SetFocus(window);
  }
  m_nExpandGuard = 0;
}

void CVornTreeCtrl::PressZone(CVornTreeItem* item, unsigned int zone, UINT flags) {
  switch (zone) {
    case vorn::kHitButton:
      Expand(item, STE_TOGGLE);
      m_nExpandGuard = 0;
      return;
    case vorn::kHitCheckBox: SetItemCheck(item, !item->IsChecked()); break;
    case vorn::kHitImage:
    case vorn::kHitStateImage:
      if (!OnItemIconClic(item, zone == vorn::kHitStateImage)) {
        if (::IsWindow(m_hWnd)) ::SetPropW(m_hWnd, kIgnoreDoubleClick, reinterpret_cast<HANDLE>(1));
        break;
      }
      [[fallthrough]];
    case vorn::kHitLabel:
      if (m_pSelection != nullptr) m_pSelection->OnLButtonDown(item);
      break;
    default:
      if (IsEmptyArea(zone)) ClickEmptyArea(flags);
      return;
  }
  InvalidateAll();
}

void CVornTreeCtrl::OnLButtonUp(UINT, CPoint point) {
  if (m_pSelection == nullptr) return;
  if (m_pSelection->OnLButtonUp(HitTest(point, nullptr))) InvalidateAll();
}

void CVornTreeCtrl::OnLButtonDblClk(UINT flags, CPoint point) {
  const HWND window = m_hWnd;
  ::KillTimer(window, vorn::kEditTimer);
  ::SetFocus(window);
  if (!::IsWindow(window)) return;
  if (::GetPropW(window, kIgnoreDoubleClick) == reinterpret_cast<HANDLE>(1)) {
    ::RemovePropW(window, kIgnoreDoubleClick);
    return;
  }
  unsigned int zone = 0;
  CVornTreeItem* const item = HitTest(point, &zone);
  zone &= kZoneMask;
  if (IsContent(zone)) {
    if (OnItemDblClk(item) != 1 || Expand(item, STE_TOGGLE) != 0 || m_pSelection == nullptr) return;
    const CVornSelectionGuard addToSelection(m_pSelection, 1, m_pSelection->GetForceShift());
    m_pSelection->SelectItem(item, 0);
  } else if (IsEmptyArea(zone)) {
    ClickEmptyArea(flags);
  }
}

void CVornTreeCtrl::OnRButtonDown(UINT flags, CPoint point) {
  const HWND window = m_hWnd;
  ::SetFocus(window);
  CWnd::OnRButtonDown(flags, point);
  if (!::IsWindow(window)) return;
  unsigned int zone = 0;
  CVornTreeItem* const item = HitTest(point, &zone);
  if (!IsContent(zone & kZoneMask)) return;
  if (m_pSelection != nullptr) m_pSelection->OnRButtonDown(item);
  InvalidateAll();
}

// The default handling asks for the context menu.
void CVornTreeCtrl::OnRButtonUp(UINT flags, CPoint point) { CWnd::OnRButtonUp(flags, point); }

void CVornTreeCtrl::OnNcLButtonUp(UINT hitTest, CPoint point) { CWnd::OnNcLButtonUp(hitTest, point); }

void CVornTreeCtrl::OnCaptureChanged(CWnd* window) { CWnd::OnCaptureChanged(window); }

// --- Moves -----------------------------------------------------------------------------------------

void CVornTreeCtrl::OnMouseMove(UINT flags, CPoint point) {
  if (!m_bMouseTracking) {
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof(track);
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = m_hWnd;
    m_bMouseTracking = ::TrackMouseEvent(&track);
  }
  CWnd::OnMouseMove(flags, point);
  m_ptLastMouse = point;
  if ((flags & MK_LBUTTON) || !IsActiveStyle(STS_HOTTRACK) || IsDragInProgress()) return;
  unsigned int zone = 1;
  CVornTreeItem* const item = HitTest(point, &zone);
  MoveHotMark(item, zone);
}

void CVornTreeCtrl::MoveHotMark(CVornTreeItem* item, unsigned int zone) {
  if (item != nullptr && item == m_pHoverItem) return;
  CVornTreeDC dc(this);
  if (IsItemValid(m_pHoverItem)) {
    m_pHoverItem->m_nState &= ~static_cast<unsigned int>(STIS_HOT);
    dc.RedrawItem(this, m_pHoverItem);
  }
  m_pHoverItem = nullptr;
  constexpr unsigned int kHotZones = vorn::kHitImage | vorn::kHitLabel | vorn::kHitStateImage;
  if (item == nullptr || (zone & kHotZones) == 0) return;
  item->m_nState |= STIS_HOT;
  dc.RedrawItem(this, item);
  m_pHoverItem = item;
}

void CVornTreeCtrl::OnMouseLeave() {
  m_bMouseTracking = FALSE;  // the hot row stays hot
  CWnd::OnMouseLeave();
}

void CVornTreeCtrl::OnNcMouseMove(UINT hitTest, CPoint point) { CWnd::OnNcMouseMove(hitTest, point); }

BOOL CVornTreeCtrl::OnSetCursor(CWnd* window, UINT hitTest, UINT message) {
  return CWnd::OnSetCursor(window, hitTest, message);  // the class's cursor
}

void CVornTreeCtrl::OnContextMenu(CWnd*, CPoint) {}

// --- Timers ----------------------------------------------------------------------------------------

void CVornTreeCtrl::OnTimer(UINT_PTR id) {
  const HWND window = m_hWnd;
  CWnd::OnTimer(id);
  if (id < vorn::kEditTimer || id > vorn::kTypeAheadTimer || !::IsWindow(window)) return;
  ::KillTimer(window, id);
  if (id == vorn::kEditTimer) EditLabel(GetLastSelectedItem());
  if (id == vorn::kTypeAheadTimer) vorn::ClearTypeAhead();
}
