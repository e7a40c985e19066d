// The item itself: construction, reading, writing, copying. Links are in TreeLinks.cpp.
#include "VornTreeItem.h"

#include "../../core/FontHeight.h"
#include "../../core/ItemPool.h"
#include "../VornTreeCtrl.h"
#include "../layout/RowGeometry.h"
#include "../layout/VornTreeOperations.h"
#include "WithMemory.h"

void* CVornTreeItem::operator new(size_t size) noexcept { return vorn::ItemPool::Allocate(size); }
void* CVornTreeItem::operator new(size_t size, const std::nothrow_t&) noexcept {
  return vorn::ItemPool::Allocate(size);
}
void CVornTreeItem::operator delete(void* item) noexcept { vorn::ItemPool::Free(item); }
void CVornTreeItem::operator delete(void* item, const std::nothrow_t&) noexcept {
  vorn::ItemPool::Free(item);
}

CVornTreeItem::CVornTreeItem(CVornTreeCtrl* tree)
    : m_pTree(tree), m_Shortcuts(VornNoStorage{}), m_nMagic(kMagic) {}

CVornTreeItem::~CVornTreeItem() {
  Detach(true);
  m_Shortcuts.RemoveAll();
  delete m_pFont;
  m_pFont = nullptr;
  m_pTree = nullptr;
  // A plain store to an object that ends here may be optimised away; this one must reach memory.
  *const_cast<volatile unsigned int*>(&m_nMagic) = 0;
}

// --- Reading ---------------------------------------------------------------------------------------

CVornTreeItem* CVornTreeItem::GetParentItem() const {
  if (m_pTree != nullptr && m_pParent == m_pTree->m_pRoot) return nullptr;
  return m_pParent;
}

void CVornTreeItem::GetImages(int* image, int* selected) const {
  if (image != nullptr) *image = m_nImage;
  if (selected != nullptr) *selected = m_nSelectedImage;
}

int CVornTreeItem::IsTopLevelItem() const { return m_pTree != nullptr && m_pTree->m_pRoot == m_pParent; }

int CVornTreeItem::GetVisibility() const {
  if (IsLockedVisibility()) return m_bLockedVisible;
  return IsHidden() ? 0 : 1;
}

int CVornTreeItem::HasChildren() const { return m_pFirstChild != nullptr || HasState(STIS_HASCHILDREN); }

int CVornTreeItem::HasVisibleChild() const {
  for (const CVornTreeItem* child = m_pFirstChild; child != nullptr; child = child->m_pNextSibling) {
    if (!child->IsHidden()) return 1;
  }
  return HasState(STIS_HASCHILDREN) ? 1 : 0;
}

CVornTreeItem* CVornTreeItem::GetFirstVisibleChild() const {
  if (m_pFirstChild == nullptr || m_nVisibleDescendants < 1) return nullptr;
  return m_pFirstChild->IsHidden() ? m_pFirstChild->GetNextVisibleSibling() : m_pFirstChild;
}

CVornTreeItem* CVornTreeItem::GetNextVisibleSibling() const {
  CVornTreeItem* item = m_pNextSibling;
  while (item != nullptr && item->IsHidden()) item = item->m_pNextSibling;
  return item;
}

CVornTreeItem* CVornTreeItem::GetPrevVisibleSibling() const {
  CVornTreeItem* item = m_pPrevSibling;
  while (item != nullptr && item->IsHidden()) item = item->m_pPrevSibling;
  return item;
}

int CVornTreeItem::IsDescendantOf(const CVornTreeItem* ancestor) const {
  if (ancestor == nullptr) return 0;
  for (const CVornTreeItem* item = this; item != nullptr; item = item->m_pParent) {
    if (item == ancestor) return 1;
  }
  return 0;
}

COLORREF CVornTreeItem::GetTextColor() const {
  if (m_clrText < ST_CLR_NONE) return m_clrText;
  if (m_pTree != nullptr) return static_cast<COLORREF>(m_pTree->GetTextColor());
  return CVornTreeCtrl::DefaultColor(CVornTreeCtrl::kDefaultText);
}

COLORREF CVornTreeItem::GetBkColor() const {
  if (m_clrBk < ST_CLR_NONE) return m_clrBk;
  if (m_pTree != nullptr) return static_cast<COLORREF>(m_pTree->GetBkColor());
  return CVornTreeCtrl::DefaultColor(CVornTreeCtrl::kDefaultBk);
}

int CVornTreeItem::GetItemHeight() const {
  if (m_pTree == nullptr) return m_nHeight;
  constexpr int kHeightWithoutImages = 16;
  SIZE size{};
  const int images = m_pTree->GetImageSize(STIL_NORMAL, &size) ? size.cy : kHeightWithoutImages;
  return m_nHeight > images ? m_nHeight : images;
}

int CVornTreeItem::GetItemRight() {
  if (m_nLabelOffset != 0) return m_nLabelOffset;
  if (m_pTree == nullptr) return 0;
  m_nLabelOffset = vorn::LabelRight(m_pTree->ShapeOf(this));
  return m_nLabelOffset;
}

RECT* CVornTreeItem::GetSizeRect() {
  m_Rect = RECT{0, 0, m_nTextWidth + vorn::kLabelMargins, GetItemHeight()};
  return &m_Rect;
}

void CVornTreeItem::CollectAncestors(CVornTreeItemArray& items) {
  for (CVornTreeItem* item = this; item != nullptr; item = item->m_pParent) items.Add(item, nullptr);
}

// --- Writing ---------------------------------------------------------------------------------------

namespace {

constexpr unsigned int kRowBits = STIS_EXPANDED | STIS_HIDDEN;  // tell which items are rows

}  // namespace

void CVornTreeItem::NotifyUpdate() {
  if (m_pTree != nullptr) m_pTree->UpdateItem(this, 0);
}

void CVornTreeItem::SetBit(unsigned int bit, bool on) {
  m_nState = on ? m_nState | bit : m_nState & ~bit;
  if (m_pTree != nullptr && (bit & kRowBits)) m_pTree->OnRowsChanged();
  NotifyUpdate();
}

void CVornTreeItem::SetCheckBox(bool on) {
  m_nExtFlags = on ? m_nExtFlags | STIX_CHECKBOX : m_nExtFlags & ~STIX_CHECKBOX;
  NotifyUpdate();
}

void CVornTreeItem::ModifyState(unsigned int remove, unsigned int add) {
  if (remove == 0 && add == 0) return;
  m_nState = (m_nState & ~remove) | add;
  if (m_pTree != nullptr && ((remove | add) & kRowBits)) m_pTree->OnRowsChanged();
  NotifyUpdate();
}

void CVornTreeItem::SetImages(int image, int selected) {
  m_nImage = image;
  m_nSelectedImage = selected;
  const bool none = image < 0 && selected < 0;
  m_nExtFlags = none ? m_nExtFlags & ~STIX_HASIMAGE : m_nExtFlags | STIX_HASIMAGE;
}

int CVornTreeItem::SetData(unsigned __int64 data) {
  if (HasState(STIS_SHORTCUT)) return 1;
  m_nData = data;
  return 0;
}

void CVornTreeItem::SetText(const wchar_t* text) {
  if (text == nullptr) {
    m_strText.Empty();
  } else {
    m_strText = text;
  }
  Remeasure();
}

void CVornTreeItem::Remeasure() {
  if (m_pTree == nullptr) return;
  m_pTree->GetItemSize(this);
  m_nHeight += m_nHeight & 1;
  m_nLabelOffset = 0;
  m_pTree->UpdateItem(this, 0);
}

void CVornTreeItem::SetFont(CFont* font) {
  if (font == nullptr || font->GetSafeHandle() == nullptr) {
    if (m_pFont == nullptr) return;
    // The height stays that of the font that goes.
    delete m_pFont;
    m_pFont = nullptr;
    if (m_pTree != nullptr) m_pTree->InvalidateAll();
    return;
  }
  LOGFONTW logFont;
  if (::GetObjectW(font->GetSafeHandle(), sizeof(logFont), &logFont) == 0) return;
  HFONT copy = ::CreateFontIndirectW(&logFont);
  if (copy == nullptr) return;
  if (m_pFont == nullptr) {
    m_pFont = new (std::nothrow) CFont;
    if (m_pFont == nullptr) {
      ::DeleteObject(copy);
      return;
    }
  }
  m_pFont->DeleteObject();
  m_pFont->Attach(copy);
  m_nHeight = vorn::HeightOfFont(logFont);
  if (m_pTree == nullptr) return;
  Remeasure();
  m_pTree->InvalidateAll();
}

void CVornTreeItem::SetVisible(int visible) {
  if (IsLockedVisibility()) {
    m_bLockedVisible = visible;
    return;
  }
  SetBit(STIS_HIDDEN, visible == 0);
  CVornTreeOperations(m_pTree).OnItemVisibilityChanged(this, visible);
}

int CVornTreeItem::LockVisibility(int visible) {
  const int wasLocked = IsLockedVisibility() ? 1 : 0;
  if (!wasLocked) {
    m_bLockedVisible = GetVisibility();
    // Meant: the first lock can force hiding, never showing.
    if (m_bLockedVisible != 0 && visible == 0) SetVisible(0);
  } else if ((GetVisibility() != 0) != (visible != 0)) {
    SetBit(STIS_LOCKEDVISIBILITY, false);
    SetVisible(visible);
  }
  SetBit(STIS_LOCKEDVISIBILITY, true);
  return wasLocked;
}

int CVornTreeItem::UnlockVisibility() {
  if (!IsLockedVisibility()) return 0;
  SetBit(STIS_LOCKEDVISIBILITY, false);
  if ((GetVisibility() != 0) != (m_bLockedVisible != 0)) SetVisible(m_bLockedVisible);
  return 1;
}

// --- Copying ---------------------------------------------------------------------------------------

void CVornTreeItem::CopyOwnFields(const CVornTreeItem* source) {
  m_pParent = m_pFirstChild = m_pLastChild = m_pPrevSibling = m_pNextSibling = nullptr;
  m_nDescendants = 0;
  m_nVisibleDescendants = 0;
  m_pTree = source->m_pTree;
  SetText(source->m_strText);
  m_nLevel = source->m_nLevel;
  m_clrText = source->m_clrText;
  m_clrBk = source->m_clrBk;
  m_nImage = source->m_nImage;
  m_nSelectedImage = source->m_nSelectedImage;
  m_nStateImage = source->m_nStateImage;
  m_nState = source->m_nState;
  m_nExtFlags = source->m_nExtFlags;
  m_nData = 0;
  m_nMagic = kMagic;
}

int CVornTreeItem::Copy(const CVornTreeItem* source, bool deep) {
  CopyOwnFields(source);
  if (!deep) return 1;

  // Each child is complete before it is linked. While a copy is being filled, m_pParent only
  // remembers where it will go.
  const CVornTreeItem* from = source;
  CVornTreeItem* to = this;
  const CVornTreeItem* next = source->m_pFirstChild;
  while (true) {
    if (next != nullptr) {
      CVornTreeItem* child = new CVornTreeItem(source->m_pTree);
      const bool copied = child != nullptr && vorn::RunWithMemory([&] { child->CopyOwnFields(next); });
      if (!copied) {  // left out, with all that is below
        delete child;
        next = next->m_pNextSibling;
        continue;
      }
      child->m_pParent = to;
      from = next;
      to = child;
      next = from->m_pFirstChild;
      continue;
    }
    if (from == source) return 1;
    CVornTreeItem* parent = to->m_pParent;
    CVornTreeItem* grandparent = parent->m_pParent;
    to->m_pParent = nullptr;
    parent->m_pParent = nullptr;
    parent->InsertAfter(to, parent->m_pLastChild);
    parent->m_pParent = grandparent;
    to = parent;
    next = from->m_pNextSibling;
    from = from->m_pParent;
  }
}
