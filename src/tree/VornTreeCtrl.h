// CVornTreeCtrl: an owner-drawn tree control that keeps, selects and shows its own items.
//
// Words. An item is a node, named by a pointer that hosts treat as an opaque handle. The implicit
// root is never shown; STI_ROOT names it. A document is an item whose parent is the implicit root.
// A row is an item in the visible list: reachable from the top through expanded items, neither it nor
// one above it hidden. The display list is the slice of the rows that the last paint left on screen.
//
// Handles. Every operation that takes an item refuses an invalid one (null, a sentinel where none is
// told to be understood, an item that is gone, any other pointer) with 0 or null and changes nothing. A
// handle stays refused after its item's end, until after some thousand further items its memory is used
// again. Items of another control can be read, and changed in their looks; they are never linked,
// selected or deleted here.
//
// Hooks. A host derives from the class and overrides the virtual operations under 'Hooks'. A hook may
// do anything, also delete the item it is told of, empty the tree or destroy the window. The control
// looks again after each hook, and stops where its ground is gone.
//
// Permissions. STIS_NO... bits of an item are denials that the keyboard, label editing and drag and drop ask
// for through IsAllow, and so does the selection. Operations that a host calls to change the tree do not
// ask: a host asks the Can... operations first.
//
// Counts. Each item knows how many items and how many rows are below it, so that an insertion costs the depth
// of its place and never the size of the tree. A burst of changes belongs between SetRedraw(FALSE) and
// SetRedraw(TRUE).
//
// Threads. A control belongs to the thread of its window. Only InsertItem, SetRedraw and UpdateTree
// look at the calling thread, and then leave the layout to the window's own.
//
// Without a window all operations on items work; nothing is drawn and no bar is set.
#pragma once

#include <afxcmn.h>

#include "../core/VornComCtlApi.h"
#include "../core/VornItemArrays.h"
#include "VornTreeTypes.h"

class CVornTreeDC;
class CVornTreeDrag;
class CVornTreeEdit;
class CVornTreeOperations;
class CVornTreeOptions;
class CVornTreeSelection;
class CVornTreeToolTip;

namespace vorn {
class RowIndex;
struct RowShape;
class TreeWalker;
}  // namespace vorn

class VORNCOMCTL_API CVornTreeCtrl : public CWnd {
  DECLARE_DYNAMIC(CVornTreeCtrl)

 public:
  // Pixels added to the text height of a row: 2, 10 or 15.
  enum ItemSpacing { SpacingNormal = 0, SpacingLarge = 1, SpacingLarger = 2 };

  CVornTreeCtrl();
  virtual ~CVornTreeCtrl();

  // --- The window ----------------------------------------------------------------------------------

  // The control of a window, or null: for a window that is not, or no longer, a tree control.
  static CVornTreeCtrl* GetPointerFromHandle(HWND hwnd);

  // Holds back (0) or releases (non-zero) all layout and painting. Calls nest; the last release lays
  // out and repaints all, also when nothing changed.
  void SetRedraw(int redraw);

  // Whether all bits of style are set in the window's style; 0 without a window.
  int IsActiveStyle(unsigned long style);

  // Pixels per level. The setter stores only: it shows at the next paint.
  unsigned int GetIndent() const { return m_nIndent; }
  void SetIndent(unsigned int indent) { m_nIndent = indent; }
  // The spacing of rows measured from now on; stores only.
  void SetItemSpacing(ItemSpacing spacing) { m_nItemSpacing = spacing; }
  // The height of new items, in pixels.
  int GetDefaultHeight() { return m_nDefaultHeight; }
  // Milliseconds until a second click on the selected item opens the label edit.
  int GetLabelEditDuration() { return m_nLabelEditDuration; }
  // The margin around a press within which no drag starts, relative to the press.
  void GetDragRect(CRect& rect) { rect = m_rcDrag; }

  void SetFocusRectVisible(bool visible) { m_bFocusRectVisible = visible; }

  // Type-ahead selection; the setter returns the earlier value.
  int EnableAutoSelection(int enable);
  int IsAutoSelectionEnabled() { return m_bAutoSelection; }

  // Completes the control when it gets its window, made or taken over from a dialog.
  virtual void PreSubclassWindow() override;
  // Takes the keys that the control knows ahead of the host, and the letters of type-ahead; none while a
  // label is edited.
  virtual BOOL PreTranslateMessage(MSG* message) override;

  CVornTreeDrag* GetDragManager() { return m_pDrag; }
  CVornTreeSelection* GetSelectionManager() const { return m_pSelection; }

  // --- Items: insertion, removal, moving -----------------------------------------------------------

  // Creates an item and links it under parent (an item or STI_ROOT), behind insertAfter: STI_FIRST,
  // STI_LAST or null (the end), or a child of parent. text: copied; null is an empty label. image and
  // selectedImage: indices in the normal list, negative none. Result: the item; null for an invalid parent
  // or place, without memory, or when a hook deleted it. Runs InitializeItemFont when the item is linked,
  // before its label is set and measured. The first child of an item ends its STIS_HASCHILDREN. Shows at once
  // under an expanded parent, unless redraw is held. From another thread than the window's the layout is
  // posted; the tree itself is not locked.
  CVornTreeItem* InsertItem(const wchar_t* text, int image, int selectedImage,
                            CVornTreeItem* parent = STI_ROOT, CVornTreeItem* insertAfter = STI_LAST,
                            unsigned __int64 data = 0);
  // The record form. STIF_TEXT takes cchTextMax characters; below 1 the label is empty. Images default to
  // -1, data to 0. STIF_STATE applies, in this order and each if both stateMask and state have it,
  // STIS_SELECTED (with the hooks of SelectItem), STIS_EXPANDED (which a new item, without children, cannot
  // follow) and STIS_CHECKED (with those of SetItemCheck); with STIS_HIDDEN in stateMask a state above 127
  // hides. Other bits are ignored: set permissions with ModifyItemState. STIF_CHILDREN with cChildren of
  // exactly 1 sets STIS_HASCHILDREN. Null for a null record, else as above.
  CVornTreeItem* InsertItem(STINSERTSTRUCT* insert);

  // Removes an item with its subtree. Hook: OnDeleteItem(item), once, when the selection has let go
  // of the subtree and the item is still linked; by documents OnChangeActiveDoc may come before it. Shortcuts
  // of what goes are told nowhere; see 'Shortcuts' which of them go too. The root: empties the tree.
  // Asks no permission. 1, or 0.
  int DeleteItem(CVornTreeItem* item);
  // Removes all children of parent (an item or STI_ROOT), which stays. Hook: OnDeleteItem(parent), with
  // STI_ROOT for the root, first of all, when the selection is still in place; also if there are none. 1, or
  // 0.
  int DeleteAllItems(CVornTreeItem* parent);
  // Takes an item with its subtree to another place. insertAfter: STI_FIRST, STI_LAST or a child of
  // parent; null gives 0, unlike in InsertItem, and so does a place below the item itself. No hook; the
  // selection is not told. 1, or 0 with nothing changed.
  int MoveItem(CVornTreeItem* parent, CVornTreeItem* item, CVornTreeItem* insertAfter);

  // --- Items: relations and lookup -----------------------------------------------------------------

  // The implicit root; null once the window is destroyed.
  CVornTreeItem* GetRootItem() const { return m_pRoot; }
  // Next and previous sibling, hidden ones included; null at the end and for an invalid item.
  CVornTreeItem* GetNextItem(CVornTreeItem* item) const;
  CVornTreeItem* GetPrevItem(CVornTreeItem* item) const;
  // By STGN_ code; null for any other code. STGN_ROOT, STGN_FIRSTVISIBLE, STGN_DROPHILITE and STGN_CARET do
  // not look at item. STGN_LASTVISIBLE always answers null.
  CVornTreeItem* GetNextItem(CVornTreeItem* item, unsigned int code) const;
  // First child, hidden or not; STI_ROOT means the root.
  CVornTreeItem* GetChildItem(CVornTreeItem* item) const;
  // Last child; a leaf gives itself. STI_ROOT gives null: ask with GetRootItem().
  CVornTreeItem* GetLastChildItem(CVornTreeItem* item) const;
  // The parent, which is the implicit root for a document. Null for the root.
  CVornTreeItem* GetParentItem(CVornTreeItem* item) const;
  // Appends the item, its parent and so on up to and including the document. list is not emptied first. 1,
  // or 0.
  int GetParentList(CVornTreeItem* item, CVornTreeItemArray& list);
  // All items below, at any depth, hidden ones included. 0 for STI_ROOT.
  unsigned int GetChildCount(CVornTreeItem* item) const;
  // All rows below: 0 for a collapsed item.
  unsigned int GetVisibleChildCount(CVornTreeItem* item) const;
  // All items of the tree.
  unsigned int GetCount();
  // The first direct child of parent (STI_ROOT or invalid: of the root) with this label, case apart,
  // and, when data is not 0, with this data. Linear in the siblings; null for a null or empty name.
  CVornTreeItem* GetItemFromName(const wchar_t* name, CVornTreeItem* parent = STI_ROOT,
                                 unsigned __int64 data = 0);
  // The item at a path of labels joined by backslashes, from a document down. Empty segments are skipped.
  // data, when not 0, applies to the last segment, and not to a path that ends in a backslash. Labels with a
  // backslash cannot be named.
  CVornTreeItem* GetItemFromFullPathName(const wchar_t* path, unsigned __int64 data = 0);
  // The first direct child of parent (STI_ROOT or invalid: of the root) with this data; null for data 0.
  CVornTreeItem* GetItemFromItemData(unsigned __int64 data, CVornTreeItem* parent = STI_ROOT);
  // The item at a path of count data, from the documents down. The first match on each level decides.
  CVornTreeItem* GetItemFromItemDatas(unsigned __int64* datas, int count);
  // The path that GetItemFromFullPathName takes back, with a backslash before each label as stored. 1; 0 and
  // an empty text if a label on it is empty; 0 and text untouched for an invalid item.
  int GetItemFullText(CVornTreeItem* item, CString& text);
  // The place among the siblings, from 1, hidden ones counted; 0 for the root and for an unlinked item.
  long GetItemPosition(CVornTreeItem* item);
  // Whether item is valid and, unless parent is null or STI_ROOT, its direct child.
  int IsExist(CVornTreeItem* item, CVornTreeItem* parent) const;
  // Whether parent is the item or one above it; the root is above all, STI_ROOT is no item.
  int IsParentItemOf(CVornTreeItem* parent, CVornTreeItem* item);
  // Whether there are children, or some are announced by STIS_HASCHILDREN.
  int ItemHasChildren(CVornTreeItem* item) const;

  // --- Items: attributes ---------------------------------------------------------------------------

  // Setters repaint the item's row if it is on screen, unless noted. Those with a result give 1, or 0 for an
  // invalid item.

  // Fills what the mask asks for; STIF_TEXT points pszText at the item's own text, valid until it changes,
  // STIF_IMAGE fills both images. state is always filled. 1, or 0 for a null record or an invalid hItem.
  int GetItem(STITEM* item);
  // Sets what the mask names, with redraw held. Of the text cchTextMax characters, none if below 1.
  // iImage counts with STIF_IMAGE and with STIF_SELECTEDIMAGE; STIF_IMAGE alone clears the selected image.
  // STIF_STATE as in InsertItem, without hiding: bits can only be turned on. 1, or 0.
  int SetItem(STITEM* item);
  // The stored label, valid until it changes. STI_ROOT gives "Root", the root by its pointer an empty text;
  // any other invalid item an empty text or, once STI_ROOT was asked for, "Root".
  const wchar_t* GetItemText(CVornTreeItem* item);
  // Copies and measures the label; null empties it.
  int SetItemText(CVornTreeItem* item, const wchar_t* text);
  // The host's own data. The setter is refused silently on a shortcut, whose data is always 0; no repaint.
  unsigned __int64 GetItemData(CVornTreeItem* item) const;
  void SetItemData(CVornTreeItem* item, unsigned __int64 data);
  // Indices in the normal list; a negative one means none. The getter leaves both alone when it gives 0.
  int GetItemImage(CVornTreeItem* item, int& image, int& selectedImage) const;
  int SetItemImage(CVornTreeItem* item, int image, int selectedImage);
  // An index in the list of state images. Setting the present one repaints nothing.
  int GetItemImageState(CVornTreeItem* item, int& image) const;
  int SetItemImageState(CVornTreeItem* item, int image);
  // STIS_ bits, all or those of mask.
  unsigned long GetItemState(CVornTreeItem* item) const;
  unsigned int GetItemState(CVornTreeItem* item, unsigned int mask) const;
  // Replaces all state bits, with no hook. Rows are not counted anew: to select, expand or hide use the
  // operations for it. STIS_BOLD and STIS_NOTBOLD also derive the font, see UpdateItemFont.
  int SetItemState(CVornTreeItem* item, unsigned long state);
  // Takes the bits of remove away, then adds those of add. For permissions above all. Otherwise as above.
  int ModifyItemState(CVornTreeItem* item, unsigned long remove, unsigned long add);
  // Whether the item has a check box of its own; with STS_CHECKBOXES all have one.
  int GetCheckBox(CVornTreeItem* item);
  int SetCheckBox(CVornTreeItem* item, int show);
  // The check mark, 0 or 1.
  int GetItemCheck(CVornTreeItem* item);
  // Needs a check box on the item or STS_CHECKBOXES, else 0. Hooks: OnChecking, which may veto, and
  // OnChecked, also when the mark stays what it was. Result: the earlier mark, not success; 0 after a veto.
  int SetItemCheck(CVornTreeItem* item, int check);
  // Whether bold was asked for (STIS_BOLD). The setter is UpdateItemFont with STFF_BOLD or STFF_NOTBOLD.
  bool IsItemBold(CVornTreeItem* item) const;
  int SetItemBold(CVornTreeItem* item, int bold);
  bool IsItemExpanded(CVornTreeItem* item);
  bool IsItemSelected(CVornTreeItem* item);
  // The item's own font, or the control's; null without either. To be read only: it belongs to them.
  CFont* GetItemFont(CVornTreeItem* item);
  // Gives the item a copy of font, measures it and repaints all. Null, or a font without a handle, takes its
  // own font away; the item then keeps the height of the font that it had.
  void SetItemFont(CVornTreeItem* item, CFont* font);
  // Derives a font for the item by STFF_ bits from its font or the control's. Where a bit and its opposite
  // are given the positive one wins, but both weights leave STIS_NOTBOLD. 1, also when the font is that
  // already; 0 for an invalid item, without a font to derive from, and without a bit that asks for something.
  int UpdateItemFont(CVornTreeItem* item, unsigned int flags);
  // Colours: of the item, else of the control, else of the system. For an invalid item the system's window
  // text and the control's ground. ST_CLR_NONE takes the item's own away.
  unsigned long GetItemTextColor(CVornTreeItem* item);
  void SetItemTextColor(CVornTreeItem* item, unsigned long color);  // shows at the next repaint
  unsigned long GetItemBkColor(CVornTreeItem* item);
  void SetItemBkColor(CVornTreeItem* item, unsigned long color);  // shows at the next repaint

  // --- Images, font and colours of the control -----------------------------------------------------

  // The list in a slot, or null. Meant: for STIL_STATE it is the slot of STIL_BUTTON that must not be empty.
  CImageList* GetImageList(VornTreeImageList list);
  // The size of a slot's images in pixels, 0 by 0 for none. 1; 0 for a value that is no slot.
  int GetImageSize(VornTreeImageList list, SIZE* size);
  // Puts a list, which stays the host's, into a slot, and repaints. Result: the list before, or null. A null
  // list, or one whose size cannot be asked, gives null and changes nothing; DetachImageList takes one away.
  CImageList* SetImageList(CImageList* list, VornTreeImageList which);
  // Gives the control a copy of font, or the system's font for icon titles for null. New items are as high as
  // it is. redraw: as in WM_SETFONT. Nothing before the window exists.
  void SetFont(CFont* font, int redraw);

  // A colour not set (ST_CLR_NONE) falls back on the system's. The setters repaint all. The getters of ground
  // and highlight are virtual, see below.
  unsigned long GetTextColor();
  unsigned long GetGrayTextColor();
  unsigned long GetShowAlwaysColor();
  void SetBkColor(unsigned long color);
  void SetTextColor(unsigned long color);
  void SetGrayTextColor(unsigned long color);
  void SetTextHighLightColor(unsigned long color);
  void SetHighLightColor(unsigned long color);
  void SetShowAlwaysColor(unsigned long color);

  // --- Shortcuts -----------------------------------------------------------------------------------

  // A shortcut is an item that stands for another one of the same control: it looks like its target, carries
  // STIS_SHORTCUT and STIS_NODROP, and has no data. When its target goes, DeleteItem runs no hook for it and
  // does not tell the selection. Of the target's shortcuts, in the order of their making, the first, third,
  // fifth... go with it, and the last as well; the others stay, and are ordinary items from the next time
  // that somebody asks. A host that cares deletes them first.

  // An item that stands for target, placed as InsertItem does, labelled "Raccourci vers" and the target's
  // label. The target loses STIS_SELECTED, without a word to the selection; the shortcut has it if the target
  // did. Null for the root, for a shortcut, and for an invalid item or place.
  CVornTreeItem* CreateShortcut(CVornTreeItem* target, CVornTreeItem* parent, CVornTreeItem* insertAfter);
  // The target of a shortcut; null for an item that is none, and for one whose target is gone, which is
  // none from then on.
  CVornTreeItem* GetShortcutItem(CVornTreeItem* item);
  // Empties list, then makes it share the item's own list of shortcuts: it shows later changes, and what is
  // done to it is done to the item. 1, or 0.
  int GetShortcutItems(CVornTreeItem* item, CVornTreeItemArray& list);
  // Whether item is the target of shortcut.
  int IsShortcutItemOf(CVornTreeItem* shortcut, CVornTreeItem* item);

  // --- Sorting of direct children ------------------------------------------------------------------

  // Only the direct children change places; they keep their subtrees, states and selection. STI_ROOT is not
  // understood: ask with GetRootItem(). 0 or false for an invalid parent and for one without children.

  // By the host's comparison of data, below 0 when the first comes first; it must not touch the tree. Of
  // children that it calls equal only the first stays in the tree: the others are unlinked, and neither
  // deleted nor told of.
  int SortChildren(STSORTCB* sort);
  // By label, case apart; equal labels are kept, the later one in front when the search meets its equal.
  bool SortChildrenByName(CVornTreeItem* item);

  // --- Visibility and the display list -------------------------------------------------------------

  CVornTreeItem* GetFirstVisibleItem() const;
  CVornTreeItem* GetFirstDisplayItem() const;
  CVornTreeItem* GetLastDisplayItem() const;
  // The last row of the item's subtree.
  CVornTreeItem* GetLastVisibleItem(CVornTreeItem* item) const;
  CVornTreeItem* GetNextVisibleItem(CVornTreeItem* item) const;
  CVornTreeItem* GetPrevVisibleItem(CVornTreeItem* item) const;
  // All rows.
  int GetVisibleCount() const;
  // Rows drawn by the last paint.
  int GetDisplayCount() const { return m_nDisplayCount; }
  int IsDisplayItem(CVornTreeItem* item);
  int ItemIsVisible(CVornTreeItem* item);
  int GetItemVisibility(CVornTreeItem* item);
  // Returns the earlier visibility. On a locked item the change waits for the unlocking.
  int SetItemVisibility(CVornTreeItem* item, int visible);
  // Returns whether it was locked. The first lock can force hiding, never showing.
  int LockItemVisibility(CVornTreeItem* item, int visible);
  // Returns whether it was locked.
  int UnlockItemVisibility(CVornTreeItem* item);
  int ItemIsLockedVisibility(CVornTreeItem* item);
  // Appends the hidden items, without those below them. The result is always 0.
  int GetHiddenItems(CVornTreeItemArray& items);
  // With 1 only what is below the active document is shown. Returns the earlier mode.
  int SetDocumentDisplay(int onlyActive);
  int IsDisplayOnlyActiveDocument() const { return m_bDisplayOnlyActiveDoc; }
  CVornTreeItem* GetActiveDocItem() const;

  // --- Expansion and scrolling ---------------------------------------------------------------------

  // code: an STE_ action with STE_ flags; item: also STI_ROOT. Hooks: OnItemExpanding, which may
  // veto, and OnItemExpanded; once for item, none for those below it. Result: 1 on success and when
  // there is nothing to do.
  int Expand(CVornTreeItem* item, unsigned int code);
  // Opens the item's parents and scrolls it into view. 0 without a window.
  int EnsureVisible(CVornTreeItem* item);
  // Scrolls so that the item is the first row.
  int SetFirstVisible(CVornTreeItem* item);
  int SelectSetFirstVisible(CVornTreeItem* item);
  // The row under a point in client coordinates, or null. *flags (may be null) becomes the zone: 0x0002
  // image, 0x0004 label, 0x0008 indentation, 0x0010 button, 0x0020 right of the label, 0x0040 check box,
  // 0x1000 state image; without a row 0x0100 above, 0x0200 below, 0x0400 right, 0x0800 left of the window; in
  // an empty tree nothing.
  CVornTreeItem* HitTest(CPoint point, unsigned int* flags);
  // The place of an item that is on screen, as the last paint left it; empty and 0 otherwise.
  int GetItemRect(CVornTreeItem* item, RECT* rect, int textOnly);

  // --- Selection -----------------------------------------------------------------------------------

  // By STSEL_ code.
  int Select(CVornTreeItem* item, unsigned int code);
  int SelectItem(CVornTreeItem* item, int keepOthers = 0);
  int UnselectItem(CVornTreeItem* item);
  void ClearSelection(CVornTreeItem* item);
  void UpdateSelection(CVornTreeItem* item, unsigned int flags);
  // The last selected item; both names are the same operation.
  CVornTreeItem* GetSelectedItem();
  CVornTreeItem* GetLastSelectedItem();
  CVornTreeItem* GetItemHasFocus() const;
  // Makes items share the manager's list. 0 and an empty array if nothing is selected.
  int GetCurrentSelection(CVornTreeItemArray& items);
  // STST_ bits. Returns the earlier type. A change of STST_BYDOCUMENTS replaces the manager.
  unsigned int GetSelectionType() { return m_nSelectionType; }
  unsigned int ModifySelectionType(unsigned int remove, unsigned int add);
  // Exactly 1 turns on, any other value off.
  void EnableMultipleSelection(int enable);
  void EnableSelectionByDocuments(int enable);
  void EnableClearSelectionWithEmptyArea(int enable);
  int IsSingleSelection() { return HasSelectionType(STST_SINGLE); }
  int IsMultipleSelection() { return HasSelectionType(STST_MULTIPLE); }
  int IsSelectionByDocuments() { return HasSelectionType(STST_BYDOCUMENTS); }
  int IsClearSelectionWithEmptyArea() { return HasSelectionType(STST_CLEARONEMPTY); }

  // --- Label editing -------------------------------------------------------------------------------

  // Opens the box over the item's label; an edit that is open is committed first. Asks for permission
  // (STIS_NORENAME on the item, STIS_NOMODIFY on its parent) and then OnBeginLabelEdit. Null if refused.
  CEdit* EditLabel(CVornTreeItem* item);
  // The box, or null when no edit is open.
  CEdit* GetEditControl();
  // Passes a message (Cut, Copy, Paste...) on to the box if that has the focus. 1 if it was passed.
  int IsTreeCtrlEditMessage(unsigned int message, unsigned __int64 wParam, __int64 lParam);

  // --- Permissions ---------------------------------------------------------------------------------

  // Whether the item's denials, and STIS_NOMODIFY of it and its parent, allow something: see IsAllow. 1 for
  // an invalid item.
  int CanDeleteItem(CVornTreeItem* item) { return IsAllow(item, STIS_NODELETE); }
  int CanDragItem(CVornTreeItem* item) { return IsAllow(item, STIS_NODRAG); }
  int CanDropItem(CVornTreeItem* item) { return IsAllow(item, STIS_NODROP); }
  int CanDuplicateItem(CVornTreeItem* item) { return IsAllow(item, STIS_NODUPLICATE); }
  int CanModifyItem(CVornTreeItem* item) { return IsAllow(item, STIS_NOMODIFY); }
  int CanRenameItem(CVornTreeItem* item) { return IsAllow(item, STIS_NORENAME); }
  int CanSelectItem(CVornTreeItem* item) { return IsAllow(item, STIS_NOSELECT); }
  int CanUpdateItem(CVornTreeItem* item) { return IsAllow(item, STIS_NOUPDATE); }

  // --- Virtual operations; the order of the slots is fixed -------------------------------------------

  // Creates the window. style: WS_ and STS_ bits; WS_BORDER becomes WS_EX_CLIENTEDGE. rect: in the
  // parent's client coordinates. Result: non-zero on success.
  virtual int CreateTreeCtrl(unsigned long style, const RECT& rect, CWnd* parent, unsigned int id);
  // Once for each new item, before its label is set: SetItemFont here has the label measured in it.
  virtual void InitializeItemFont(CVornTreeItem* item);
  virtual bool IsFocusRectVisible();
  // Positions: rows on the vertical bar, pixels on the horizontal one. While redraw is held the
  // position last stored is what GetScrollPos answers.
  virtual int SetScrollPos(int bar, int pos, int redraw = TRUE);
  virtual int GetScrollPos(int bar) const;
  virtual int SetScrollInfo(int bar, SCROLLINFO* info, int redraw = TRUE);
  virtual int GetScrollInfo(int bar, SCROLLINFO* info, unsigned int mask = SIF_ALL);
  // Colours as set, or the system's.
  virtual unsigned long GetBkColor();
  virtual unsigned long GetTextHighlightColor();
  virtual unsigned long GetHighlightColor();
  // permission: a denial bit of STIS_, or several: one that is set refuses then. 1 allows, 0 refuses. All
  // Can... operations ask here, and so do label editing, drag and drop and the selection. In this class
  // STIS_NOMODIFY denies all but selecting, and also dragging and dropping on the item's children.
  virtual int IsAllow(CVornTreeItem* item, unsigned long permission);

  // --- Hooks ---------------------------------------------------------------------------------------
  //
  // All do nothing and return 1 in this class unless noted. Results of hooks that come after something
  // (...ed) are ignored. Inside every one the host may delete the item, all items, or the window.

  // Before the selection moves from old, the last selected item or null, to item: for a click, a key and
  // SelectItem, and with old null for each row of a range. 0 keeps the selection; the focus moves all the
  // same.
  virtual int OnSelChanging(CVornTreeItem* old, CVornTreeItem* item);
  // When the selection has changed; with item null when old was taken out of it by the host.
  virtual int OnSelChanged(CVornTreeItem* old, CVornTreeItem* item);
  // Before and after a range from old, its anchor, to item (Shift with a click or a key). 0 from the first
  // keeps the selection. In between OnSelChanging and OnSelChanged run for each row.
  virtual int OnMultiSelChanging(CVornTreeItem* old, CVornTreeItem* item);
  virtual int OnMultiSelChanged(CVornTreeItem* old, CVornTreeItem* item);
  // A press on the item's image (flags 0) or its state image (1), before the selection hears of it. 0: the
  // host has taken the press, and a quick second one is no double click.
  virtual int OnItemIconClic(CVornTreeItem* item, int flags);
  // Before and after Expand changes an item; 0 from the first leaves it as it is, and Expand gives 0. The
  // place to insert the children of an item with STIS_HASCHILDREN. With the ...ALL codes once, for the item
  // that was named.
  virtual int OnItemExpanding(CVornTreeItem* item);
  virtual int OnItemExpanded(CVornTreeItem* item);
  // A double click on image, label or state image. Exactly 1 goes on to open or close the item.
  virtual int OnItemDblClk(CVornTreeItem* item);
  // Before a drag of the pressed item starts. 0 vetoes; the next move of the mouse asks again. point is
  // always (0, 0).
  virtual int OnBeginDrag(CVornTreeItem* item, const CPoint& point);
  // Before item becomes the drop target. 0 refuses this one.
  virtual int OnDragOver(CVornTreeItem* item);
  // Before items are dropped on target. copy: 1 for copies; flags: 1 when order among brothers counts. 0
  // cancels the whole drop, and OnEndDrop does not come.
  virtual int OnBeginDrop(CVornTreeItemArray& items, CVornTreeItem* target, int copy, int flags);
  // For each item of a drop, with the item in its new place. 0 skips it. With null and null: the drag is off.
  virtual int OnDrop(CVornTreeItem* item, CVornTreeItem* target);
  // After the last item of a drop.
  virtual int OnEndDrop();
  // From DeleteItem: item and all below it are about to go; they are still linked, and no longer selected.
  // From DeleteAllItems: all below item are, and it stays (STI_ROOT for the whole tree); they are still
  // selected. Not for shortcuts that go with their targets. Cannot refuse.
  virtual void OnDeleteItem(CVornTreeItem* item);
  // Before the box opens over a label, behind the permissions. 0 vetoes.
  virtual int OnBeginLabelEdit(CVornTreeItem* item);
  // Before the text of the box becomes the label, also if it is the same. 0 drops it. Not after Escape.
  virtual int OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text);
  // Before and after SetItemCheck, by host or click, sets the mark. 0 from the first keeps it.
  virtual int OnChecking(CVornTreeItem* item);
  virtual int OnChecked(CVornTreeItem* item);
  // Before the selection is cleared, for item or for none (null); 0 stops it. In this class, with
  // STST_CLEARALLDOCS in a selection by documents, clears every document; always 1.
  virtual int OnClearSelection(CVornTreeItem* item);
  // Before another document, or none (null), becomes the active one; old may be null. 0 refuses: what was
  // asked for then reaches the document that stayed active.
  virtual int OnChangeActiveDoc(CVornTreeItem* old, CVornTreeItem* item);
  // A drag of another control (source) enters (action 1) or leaves (0). Exactly 1 accepts.
  virtual int OnDragAndDropFromTreeCtrl(int action, HWND source);
  // Whether the place under the pointer takes a drop of another control. Exactly 1 accepts; 0 in this class.
  virtual int OnSelectDropTargetFromTreeCtrl(NMDRAGANDDROP* info);
  // A drop of another control. Exactly 1 accepts.
  virtual int OnDropFromTreeCtrl(NMDRAGANDDROP* info);

 protected:
  // Links an unlinked item of this control, such as one that fell out of SortChildren, as InsertItem does; a
  // null parent means the root. A bad place deletes the item and gives null; an item that has a place already
  // gives null and stays there.
  CVornTreeItem* SetItemFamily(CVornTreeItem* item, CVornTreeItem* parent, CVornTreeItem* insertAfter);
  // Sends WM_NOTIFY with an NMSTREE to the parent. 0 when the parent answers above 0, a veto; 1 without a
  // parent. The library itself never sends one.
  int NotifyParent(unsigned int code, CVornTreeItem* item1, CVornTreeItem* item2);
  // Empties a slot of image lists. The size stays.
  void DetachImageList(VornTreeImageList which);
  // Repaints the row of an item that is on screen; nothing while redraw is held.
  void UpdateItem(CVornTreeItem* item, int updateNow);
  // Lays out and repaints all; nothing while redraw is held.
  void UpdateTree();
  // Takes the client rectangle and sets the bars.
  void CalcLayout();
  void UpdateScrollBar();
  // Measures the label into the item's height and text width; 1.
  int GetItemSize(CVornTreeItem* item);
  // The extent of all rows, in pixels; 1.
  int GetSize(int& cx, int& cy);
  // One step of the successor walk: down only with descend exactly 1, up not beyond stopParent.
  CVornTreeItem* GetNextVisibleItem(CVornTreeItem* item, int descend, CVornTreeItem* stopParent) const;
  void LoadConfiguration();
  int BeginLabelEdit(CVornTreeItem* item);
  // Commits the edit that is open, unless it was cancelled, and closes the box. 1 if the label changed.
  int EndLabelEdit();
  // Scrolls by a step or page in the bar's unit; for derived controls. bar: SB_HORZ, others vertical.
  void DoScroll(int bar, unsigned int code, unsigned int pos);
  // Selects the first row, from the focus on, that begins with the letters typed. 1 if the key was used.
  int OnTypeAhead(unsigned __int64 character, __int64 lParam);

  static constexpr UINT kUpdateTreeMessage = WM_USER + 1000;  // asks the window's thread for UpdateTree

  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  afx_msg int OnCreate(LPCREATESTRUCTW create);
  afx_msg void OnDestroy();
  afx_msg void OnShowWindow(BOOL show, UINT status);
  afx_msg void OnCancelMode();
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnSize(UINT type, int cx, int cy);
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC* dc);
  afx_msg void OnHScroll(UINT code, UINT pos, CScrollBar* bar);
  afx_msg void OnVScroll(UINT code, UINT pos, CScrollBar* bar);
  afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
  afx_msg void OnSetFocus(CWnd* old);
  afx_msg void OnKillFocus(CWnd* next);
  afx_msg void OnKeyDown(UINT key, UINT repeat, UINT flags);
  afx_msg void OnKeyUp(UINT key, UINT repeat, UINT flags);
  afx_msg void OnLButtonDown(UINT flags, CPoint point);
  afx_msg void OnLButtonUp(UINT flags, CPoint point);
  afx_msg void OnLButtonDblClk(UINT flags, CPoint point);
  afx_msg void OnRButtonDown(UINT flags, CPoint point);
  afx_msg void OnRButtonUp(UINT flags, CPoint point);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  afx_msg void OnMouseLeave();
  afx_msg void OnNcMouseMove(UINT hitTest, CPoint point);
  afx_msg void OnNcLButtonUp(UINT hitTest, CPoint point);
  afx_msg BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
  afx_msg void OnTimer(UINT_PTR id);
  afx_msg void OnCaptureChanged(CWnd* window);
  afx_msg void OnContextMenu(CWnd* window, CPoint point);
  DECLARE_MESSAGE_MAP()

 private:
  friend class CVornTreeDC;
  friend class CVornTreeEdit;
  friend class CVornTreeItem;
  friend class CVornTreeOperations;
  friend class CVornTreeOptions;
  friend class CVornTreeSelection;
  friend class CVornTreeMultiSelection;
  friend struct VornTreeAccess;  // tests look inside through this
  friend class vorn::TreeWalker;

  enum DefaultColorEntry { kDefaultBk, kDefaultText, kDefaultHighlight, kDefaultTextHighlight };
  static COLORREF DefaultColor(DefaultColorEntry entry);
  static void RefillDefaultColors();

  int HasSelectionType(unsigned int bit) const { return (m_nSelectionType & bit) != 0; }
  void SetSelectionTypeBit(unsigned int bit, int enable);
  void ReplaceSelectionManager(CVornTreeItem* focus, bool rebuild);
  void InvalidateAll(bool erase = true);
  void SetColor(COLORREF& field, unsigned long color);
  static unsigned long ColorOr(COLORREF field, DefaultColorEntry entry);
  bool OwnsThread() const;
  bool IsDocumentMode() const { return m_bDisplayOnlyActiveDoc != 0; }
  CVornTreeItem* ResolveRoot(CVornTreeItem* item) const { return item == STI_ROOT ? m_pRoot : item; }
  bool IsOwnItem(const CVornTreeItem* item) const;
  bool IsPlaceValid(CVornTreeItem* requestedParent, CVornTreeItem* insertAfter) const;
  void Place(CVornTreeItem* item, CVornTreeItem* parent, CVornTreeItem* insertAfter);
  void ShowInsertion(CVornTreeItem* item, CVornTreeItem* parent);
  void ApplyState(CVornTreeItem* item, const STITEM& record);
  bool IsInDisplayList(const CVornTreeItem* item) const;
  void ForgetSubtree(CVornTreeItem* item);
  void ForgetDeadItems();
  int EmptyTree();
  CVornTreeItem* DropHighlight() const;
  void ApplyExpansion(CVornTreeItem* item, unsigned int action, unsigned int flags);
  bool IsDragInProgress() const;
  void SetHorizontalBar(bool on, int width, int widest, int pos);
  void SetVerticalBar(bool on, int height, int pos);
  void ScrollToLevel(CVornTreeItem* item, int redraw);
  vorn::RowIndex* Rows() const;
  CVornTreeItem* RowAt(int index) const;
  bool IsAbove(CVornTreeItem* item, CVornTreeItem* other) const;
  CVornTreeItem* StepToRow(CVornTreeItem* from, CVornTreeItem* to, bool up, int* position) const;
  void OnRowsChanged() const;
  void OnItemLinked(CVornTreeItem* item) const;
  void OnItemUnlinking(CVornTreeItem* item) const;
  void OnItemResized(const CVornTreeItem* item) const;
  void OnAllItemsResized() const;
  void ScrollTo(int bar, int position);
  vorn::RowShape ShapeOf(const CVornTreeItem* item) const;
  void DrawRows(CVornTreeDC& dc, CVornTreeItem* first);
  HWND EditWindow() const;
  void ActOnKey(UINT key, CVornTreeItem* focus);
  void MoveTo(CVornTreeItem* item, UINT key);
  void FoldOrLeave(CVornTreeItem* focus, UINT key);
  void OpenOrEnter(CVornTreeItem* focus, UINT key);
  void UnfoldAll(CVornTreeItem* focus, bool open);
  void MoveToFirstBrother(CVornTreeItem* focus, UINT key);
  void MoveToLastBrother(CVornTreeItem* focus, UINT key);
  CVornTreeItem* PageFrom(CVornTreeItem* item, bool forward) const;
  void ClickEmptyArea(UINT flags);
  void PressZone(CVornTreeItem* item, unsigned int zone, UINT flags);
  void MoveHotMark(CVornTreeItem* item, unsigned int zone);
  void UseSharedImages();
  void RepaintNow();
  void RepaintSelection();
  void LayoutAfterResize(const WINDOWPOS& place);
  void CreateRoot();
  void MakeOptionsCurrent();
  void SelectDefaultFont();
  void HoldRedraw();
  void ReleaseRedraw(int redraw);
  void ReleaseRedrawDC();
  HFONT AskWindowFont() const;
  bool SelectHeldFont();
  void ForgetHeldFont();
  LRESULT OnSetFont(HFONT font, BOOL redraw);
  void DeleteHelpers();
  void DeleteFallenItems();

  // The order of the fields is fixed.
  CVornTreeOptions* m_pOptions = nullptr;      // owned
  CVornTreeSelection* m_pSelection = nullptr;  // owned
  unsigned int m_nSelectionType = 0;           // STST_ bits
  CVornTreeToolTip* m_pToolTip = nullptr;      // owned
  CVornTreeItem* m_pRoot = nullptr;            // owned, with all items
  CVornTreeItem* m_pFirstDisplay = nullptr;    // may be stale: read through GetFirstDisplayItem
  CVornTreeItem* m_pLastDisplay = nullptr;
  CRect m_rcClient;
  CVornTreeEdit* m_pEdit = nullptr;  // owned while editing
  HIMAGELIST m_hImageList[STIL_COUNT] = {};
  CSize m_szImage[STIL_COUNT];
  CVornTreeItem* m_pHoverItem = nullptr;
  int m_nDisplayCount = 0;
  int m_nRedrawLock = 0;
  int m_nExpandGuard = 0;
  BOOL m_bNeedLayout = FALSE;
  CVornTreeDrag* m_pDrag = nullptr;  // owned
  POINT m_ptLastMouse{};
  COLORREF m_clrBk = ST_CLR_NONE;
  COLORREF m_clrText = ST_CLR_NONE;
  COLORREF m_clrGrayText = ST_CLR_NONE;
  COLORREF m_clrTextHighlight = ST_CLR_NONE;
  COLORREF m_clrHighlight = ST_CLR_NONE;
  COLORREF m_clrShowAlways = ST_CLR_NONE;
  CFont m_Font;
  int m_nDefaultHeight = 20;
  int m_nSpare = 8;
  unsigned int m_nIndent = 20;
  CRect m_rcDrag;
  int m_nLabelEditDuration = 1500;
  BOOL m_bDisplayOnlyActiveDoc = FALSE;
  CDC* m_pRedrawDC = nullptr;  // owned; holds a window DC while redraw is held
  BOOL m_bAutoSelection = TRUE;
  bool m_bFocusRectVisible = true;
  int m_nScrollPosH = 0;  // pixels
  int m_nScrollPosV = 0;  // rows
  BOOL m_bMouseTracking = FALSE;
  ItemSpacing m_nItemSpacing = SpacingNormal;
  BOOL m_bHScrollVisible = FALSE;
  BOOL m_bVScrollVisible = FALSE;
  size_t m_nDeaths = 0;              // items destroyed since the selection let go of dead ones
  HFONT m_hHeldFont = nullptr;       // the window's font, selected into the DC that is held; null: not yet
  HGDIOBJ m_hEarlierFont = nullptr;  // what it took the place of
  mutable vorn::RowIndex* m_pRows = nullptr;  // owned; made for the first tree that is worth it
  CVornTreeItemArray m_arrFallen;             // what SortChildren left out; some may be gone
};
