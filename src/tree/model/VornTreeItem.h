// One node of the control's own tree.
//
// A complete class for the library; hosts hold pointers to it as opaque handles.
#pragma once

#include <new>

#include "../../core/ItemPool.h"
#include "../../core/VornItemArrays.h"
#include "../VornTreeTypes.h"

class CVornTreeCtrl;

class CVornTreeItem {
 public:
  // An unlinked item of a control, or of none.
  explicit CVornTreeItem(CVornTreeCtrl* tree);
  CVornTreeItem(const CVornTreeItem&) = delete;
  CVornTreeItem& operator=(const CVornTreeItem&) = delete;

  // Virtual operations; the order of the slots is fixed, and four of them do nothing.
  virtual void Reserved() {}
  virtual ~CVornTreeItem();
  virtual void Reserved1() {}
  virtual void Reserved2() {}
  virtual void Reserved3() {}
  // Whether all bits of mask are set. Every reader of a state bit comes through here.
  virtual bool HasState(unsigned int mask) const { return (m_nState & mask) == mask; }

  // Items live in the item pool. A failed allocation gives null.
  static void* operator new(size_t size) noexcept;
  static void* operator new(size_t size, const std::nothrow_t&) noexcept;
  static void operator delete(void* item) noexcept;
  static void operator delete(void* item, const std::nothrow_t&) noexcept;

  // --- Reading ---
  CVornTreeItem* GetFirstChild() const { return m_pFirstChild; }
  CVornTreeItem* GetLastChild() const { return m_pLastChild; }
  CVornTreeItem* GetPrevSibling() const { return m_pPrevSibling; }
  CVornTreeItem* GetNextSibling() const { return m_pNextSibling; }
  // The parent; null when that is the control's root.
  CVornTreeItem* GetParentItem() const;
  unsigned int GetState() const { return m_nState; }
  int GetStateImage() const { return m_nStateImage; }
  CFont* GetFont() const { return m_pFont; }
  const wchar_t* GetText() const { return m_strText; }
  unsigned __int64 GetData() const { return m_nData; }
  void GetImages(int* image, int* selected) const;
  RECT* GetRect() { return &m_Rect; }
  bool IsChecked() const { return HasState(STIS_CHECKED); }
  bool IsDropHilited() const { return HasState(STIS_DROPHILITED); }
  bool IsExpanded() const { return HasState(STIS_EXPANDED); }
  bool IsSelected() const { return HasState(STIS_SELECTED); }
  bool IsHidden() const { return HasState(STIS_HIDDEN); }
  bool IsLockedVisibility() const { return HasState(STIS_LOCKEDVISIBILITY); }
  int GetCheckBox() const { return HasExtFlag(STIX_CHECKBOX) ? 1 : 0; }
  bool HasExtFlag(unsigned int mask) const { return (m_nExtFlags & mask) == mask; }
  // Whether the parent is the control's root; 0 without a control.
  int IsTopLevelItem() const;
  // The visibility reported: the wish while locked, else whether STIS_HIDDEN is clear.
  int GetVisibility() const;
  // Whether there are children or STIS_HASCHILDREN announces some.
  int HasChildren() const;
  int HasVisibleChild() const;
  CVornTreeItem* GetFirstVisibleChild() const;
  CVornTreeItem* GetNextVisibleSibling() const;
  CVornTreeItem* GetPrevVisibleSibling() const;
  // An item is its own descendant; 0 for a null ancestor.
  int IsDescendantOf(const CVornTreeItem* ancestor) const;
  // Colours with the control's, then the library's, behind them.
  COLORREF GetTextColor() const;
  COLORREF GetBkColor() const;
  // Row height in pixels: never lower than the control's normal images.
  int GetItemHeight() const;
  // The x of the end of the label, cached until text or font change.
  int GetItemRight();
  RECT* GetSizeRect();
  // Adds the item and every ancestor up to and including the root.
  void CollectAncestors(CVornTreeItemArray& items);

  // --- Writing; each ends with UpdateItem on the control unless noted ---
  void SetSelected(bool on) { SetBit(STIS_SELECTED, on); }
  void SetExpanded(bool on) { SetBit(STIS_EXPANDED, on); }
  void SetChecked(bool on) { SetBit(STIS_CHECKED, on); }
  void SetDropHilited(bool on) { SetBit(STIS_DROPHILITED, on); }
  void SetCheckBox(bool on);
  void ModifyState(unsigned int remove, unsigned int add);
  void SetTextColor(COLORREF color) { m_clrText = color; }  // no update
  void SetBkColor(COLORREF color) { m_clrBk = color; }      // no update
  void SetStateImage(int image) { m_nStateImage = image; }  // no update
  void SetImages(int image, int selected);                  // no update
  // Stores unless the item is a shortcut; returns whether it is one.
  int SetData(unsigned __int64 data);
  void SetText(const wchar_t* text);
  // Measures the label again.
  void Remeasure();
  // Gives the item a copy of a font of its own; null or a font with no handle takes it away.
  void SetFont(CFont* font);
  void SetVisible(int visible);
  int LockVisibility(int visible);
  int UnlockVisibility();

  // --- Shortcuts ---
  CVornTreeItem* GetShortcutTarget();
  long GetShortcutCount() const { return m_Shortcuts.GetSize(); }
  // A new unlinked shortcut to this item, or null.
  CVornTreeItem* CreateShortcut();
  int AddShortcut(CVornTreeItem* shortcut);
  int RemoveShortcut(CVornTreeItem* shortcut);

  // --- Links; this is the parent of the first two ---
  void InsertAfter(CVornTreeItem* item, CVornTreeItem* after);
  void InsertFirst(CVornTreeItem* item, CVornTreeItem* before);
  void Detach(bool destroy);
  void DestroyChildren();
  // Fills this item, made for the same control, from source. Always 1.
  int Copy(const CVornTreeItem* source, bool deep);

  // --- Fields; the order is fixed ---
  CVornTreeCtrl* m_pTree;
  CVornTreeItem* m_pParent = nullptr;
  CVornTreeItem* m_pFirstChild = nullptr;
  CVornTreeItem* m_pLastChild = nullptr;
  CVornTreeItem* m_pPrevSibling = nullptr;
  CVornTreeItem* m_pNextSibling = nullptr;
  CVornTreeItem* m_pShortcutTarget = nullptr;
  CVornTreeItemArray m_Shortcuts;  // not owned until this item goes
  int m_nLevel = -1;               // the root is 0; -1 until first linked
  unsigned int m_nDescendants = 0;
  int m_nVisibleDescendants = 0;
  int m_nHiddenDescendants = 0;
  RECT m_Rect{};             // of the last paint, in client coordinates
  int m_nHeight = 20;        // pixels
  int m_nTextWidth = 0;      // pixels
  int m_nLabelOffset = 0;    // cached result of GetItemRight; 0: to be computed
  CString m_strText;         // as the host gave it
  CFont* m_pFont = nullptr;  // owned
  COLORREF m_clrText = ST_CLR_NONE;
  COLORREF m_clrBk = ST_CLR_NONE;
  int m_nImage = -1;
  int m_nSelectedImage = -1;
  int m_nStateImage = -1;
  unsigned int m_nState = 0;
  unsigned int m_nExtFlags = 0;
  unsigned __int64 m_nData = 0;
  int m_bLockedVisible = 1;  // the visibility to come back to while it is locked
  alignas(vorn::ItemPool::kMagicAlignment) unsigned int m_nMagic;  // kMagic while the item lives

  static constexpr unsigned int kMagic = 0x19790316;

 private:
  void SetBit(unsigned int bit, bool on);
  void NotifyUpdate();
  void Adopt(CVornTreeItem* item);
  void CopyOwnFields(const CVornTreeItem* source);
};

static_assert(sizeof(CVornTreeItem) == vorn::ItemPool::kSlotSize);

// Whether p is a live item. Null, the sentinels, dead items and foreign pointers are not.
inline bool IsItemValid(const CVornTreeItem* p) {
  return vorn::ItemPool::ReadMagic(p) == CVornTreeItem::kMagic;
}
