// CVornTreeCtrl: the four image lists of the control. The lists are borrowed, never owned.
#include "../../core/GuardedImageList.h"
#include "../VornTreeCtrl.h"

namespace {

bool IsListIndex(VornTreeImageList list) { return list >= STIL_NORMAL && list < STIL_COUNT; }

// The size of the list's images, asked in two ways.
bool QuerySize(HIMAGELIST list, CSize* size) {
  SIZE icon{};
  if (vorn::GuardedIconSize(list, &icon)) {
    *size = icon;
    return true;
  }
  IMAGEINFO info{};
  if (!vorn::GuardedImageInfo(list, 0, &info)) return false;
  *size = CSize(info.rcImage.right - info.rcImage.left, info.rcImage.bottom - info.rcImage.top);
  return true;
}

}  // namespace

CImageList* CVornTreeCtrl::GetImageList(VornTreeImageList list) {
  if (!IsListIndex(list)) return nullptr;
  // Meant: for the state images it is the button list that decides.
  const VornTreeImageList tested = list == STIL_STATE ? STIL_BUTTON : list;
  if (m_hImageList[tested] == nullptr) return nullptr;
  return CImageList::FromHandle(m_hImageList[list]);
}

int CVornTreeCtrl::GetImageSize(VornTreeImageList list, SIZE* size) {
  if (!IsListIndex(list) || size == nullptr) return 0;
  *size = m_szImage[list];
  return 1;
}

CImageList* CVornTreeCtrl::SetImageList(CImageList* list, VornTreeImageList which) {
  if (list == nullptr || !IsListIndex(which)) return nullptr;
  OnAllItemsResized();
  const HIMAGELIST old = m_hImageList[which];
  m_hImageList[which] = list->m_hImageList;
  if (list->m_hImageList != nullptr && !QuerySize(list->m_hImageList, &m_szImage[which])) {
    m_hImageList[which] = old;
    return nullptr;
  }
  if (::IsWindowVisible(m_hWnd)) {
    ::InvalidateRect(m_hWnd, nullptr, TRUE);
    ::UpdateWindow(m_hWnd);
  }
  return CImageList::FromHandle(old);
}

void CVornTreeCtrl::DetachImageList(VornTreeImageList which) {
  if (IsListIndex(which)) m_hImageList[which] = nullptr;  // the size stays
}
