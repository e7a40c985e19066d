// CVornTreeCtrl: what the arrays and the options ask of it.
#include "../VornTreeCtrl.h"
#include "VornTreeItem.h"

unsigned __int64 CVornTreeCtrl::GetItemData(CVornTreeItem* item) const {
  return IsItemValid(item) ? item->GetData() : 0;
}

CFont* CVornTreeCtrl::GetItemFont(CVornTreeItem* item) {
  if (!IsItemValid(item)) return nullptr;
  if (item->GetFont()) return item->GetFont();
  return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
}

int CVornTreeCtrl::GetImageSize(VornTreeImageList list, SIZE* size) {
  if (!size || list < STIL_NORMAL || list >= STIL_COUNT) return 0;
  *size = m_szImage[list];
  return 1;
}
