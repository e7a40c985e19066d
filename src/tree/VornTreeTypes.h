// Constants and records that cross the boundary of CVornTreeCtrl.
//
// An item is a CVornTreeItem *, opaque to hosts. Handles are refused once the item is gone.
#pragma once

#include <afxwin.h>

class CVornTreeItem;

// --- Places ----------------------------------------------------------------------------------------

// The implicit root. It is created with the control and is never a row.
inline CVornTreeItem* const STI_ROOT = reinterpret_cast<CVornTreeItem*>(0xFFFFFFFFFFFF0001ULL);
// Before the first child.
inline CVornTreeItem* const STI_FIRST = reinterpret_cast<CVornTreeItem*>(0xFFFFFFFFFFFF0002ULL);
// After the last child.
inline CVornTreeItem* const STI_LAST = reinterpret_cast<CVornTreeItem*>(0xFFFFFFFFFFFF0003ULL);

// --- State bits of an item -------------------------------------------------------------------------

enum : unsigned int {
  STIS_SELECTED = 0x00000001,          // set by the selection managers only
  STIS_EXPANDED = 0x00000002,          // the children are shown
  STIS_CHECKED = 0x00000008,           // the check mark is on
  STIS_DROPHILITED = 0x00000010,       // target of the drag in progress
  STIS_SHORTCUT = 0x00000020,          // stands for another item
  STIS_HOT = 0x00000040,               // under the pointer
  STIS_HIDDEN = 0x00000080,            // left out of the display
  STIS_LOCKEDVISIBILITY = 0x00000100,  // visibility changes are held back
  STIS_HASCHILDREN = 0x00000200,       // children will come; cleared when the first is linked
  STIS_BOLD = 0x00000400,              // bold asked for
  STIS_NOTBOLD = 0x00000800,           // normal weight asked for

  // Denials of permission, read by CVornTreeCtrl::IsAllow.
  STIS_NODELETE = 0x00010000,
  STIS_NODRAG = 0x00020000,
  STIS_NODROP = 0x00040000,
  STIS_NORENAME = 0x00080000,
  STIS_NOSELECT = 0x00100000,
  STIS_NODUPLICATE = 0x00200000,
  STIS_NOUPDATE = 0x00400000,
  STIS_NOMODIFY = 0x00800000,  // also keeps the item's children from being dragged and dropped on
};

// --- Extended flags of an item ---------------------------------------------------------------------

enum : unsigned int {
  STIX_CHECKBOX = 0x200,  // a check box is drawn for this item
  STIX_HASIMAGE = 0x400,  // at least one of its two images is 0 or more
};

// --- Fields of STITEM that count -------------------------------------------------------------------

enum : unsigned int {
  STIF_TEXT = 0x01,
  STIF_IMAGE = 0x02,
  STIF_PARAM = 0x04,
  STIF_STATE = 0x08,
  STIF_SELECTEDIMAGE = 0x20,
  STIF_CHILDREN = 0x40,
};

// --- Control styles --------------------------------------------------------------------------------

enum : unsigned int {
  STS_HASBUTTONS = 0x0001,         // plus and minus buttons
  STS_HASLINES = 0x0002,           // lines that join brothers
  STS_LINESATROOT = 0x0004,        // lines and buttons at the first level too
  STS_EDITLABELS = 0x0008,         // a second click on the sole selected item opens the label edit
  STS_LEFTDRAG = 0x0010,           // the left button drags
  STS_RIGHTDRAG = 0x0020,          // the right button drags
  STS_SHOWSELALWAYS = 0x0040,      // selection colours also without the focus
  STS_EXPANDEDIMAGE = 0x0100,      // an expanded item uses its selected image
  STS_CHECKBOXES = 0x0200,         // every item has a check box
  STS_IMAGEBUTTONS = 0x0800,       // buttons from the button image list
  STS_HOTTRACK = 0x1000,           // the item under the pointer looks like a link
  STS_SCROLLONEXPAND = 0x2000,     // a click that opens an item scrolls its new rows into view
  STS_SCROLLONEXPANDALT = 0x4000,  // the same
  STS_FOREIGNDROPS = 0x8000,       // takes drops from other tree controls
};

// --- Expand ----------------------------------------------------------------------------------------

enum : unsigned int {
  STE_COLLAPSE = 1,
  STE_EXPAND = 2,
  STE_TOGGLE = 3,
  STE_COLLAPSEALL = 4,  // the item and all that is expanded below it
  STE_EXPANDALL = 5,    // the item and all below it
  STE_ACTIONMASK = 0x00FF,
  STE_SCROLL = 0x4000,  // after expanding, scroll the new rows into view
  STE_ANYWAY = 0x8000,  // let an unknown action through to the hooks
  STE_FLAGMASK = 0xFF00,
};

// --- GetNextItem -----------------------------------------------------------------------------------

enum : unsigned int {
  STGN_ROOT = 0,
  STGN_NEXT = 1,
  STGN_PREVIOUS = 2,
  STGN_PARENT = 3,
  STGN_CHILD = 4,
  STGN_FIRSTVISIBLE = 5,
  STGN_NEXTVISIBLE = 6,
  STGN_PREVIOUSVISIBLE = 7,
  STGN_DROPHILITE = 8,
  STGN_CARET = 9,
  STGN_LASTVISIBLE = 10,  // always answers null
};

// --- Select ----------------------------------------------------------------------------------------

enum : unsigned int {
  STSEL_FIRSTVISIBLE = 5,
  STSEL_DROPHILITE = 8,
  STSEL_SELECTFIRSTVISIBLE = 9,
  STSEL_SELECT = 11,
  STSEL_ADD = 12,
  STSEL_UNSELECT = 13,
  STSEL_UNSELECTWITHSHORTCUTS = 14,
};

// --- UpdateSelection -------------------------------------------------------------------------------

enum : unsigned int {
  STUS_REBUILD = 0x001,   // take up every item that carries STIS_SELECTED
  STUS_ACTIVATE = 0x002,  // by documents only: make the item's document the active one
  STUS_CTRLON = 0x010,    // Ctrl counts as down
  STUS_CTRLOFF = 0x020,
  STUS_SHIFTON = 0x040,  // Shift counts as down
  STUS_SHIFTOFF = 0x080,
  STUS_FORCEMASK = 0x0F0,
  STUS_ITEMADDED = 0x100,
  STUS_ITEMREMOVED = 0x200,
  STUS_NOACTIVE = 0x400,  // by documents only: no document is active
};

// --- Selection type --------------------------------------------------------------------------------

enum : unsigned int {
  STST_SINGLE = 0x01,
  STST_MULTIPLE = 0x02,       // Ctrl and Shift are looked at
  STST_BYDOCUMENTS = 0x04,    // each top-level item has a selection of its own
  STST_ENSUREVISIBLE = 0x08,  // SelectItem also brings the item into view
  STST_CLEARONEMPTY = 0x10,   // a plain click outside the rows clears the selection
  STST_CLEARALLDOCS = 0x20,   // a clearing of one document clears every document
};

// --- UpdateItemFont --------------------------------------------------------------------------------

enum : unsigned int {
  STFF_ITALIC = 0x004,
  STFF_NOTITALIC = 0x008,
  STFF_UNDERLINE = 0x010,
  STFF_NOTUNDERLINED = 0x020,
  STFF_BOLD = 0x400,
  STFF_NOTBOLD = 0x800,
};

// --- Image lists of the control --------------------------------------------------------------------

enum VornTreeImageList {
  STIL_NORMAL = 0,
  STIL_CHECKBOX = 1,
  STIL_BUTTON = 2,
  STIL_STATE = 3,
  STIL_COUNT = 4,
};

// No colour of its own: the next level's applies (item, control, system).
inline constexpr COLORREF ST_CLR_NONE = 0xFFFFFFFF;

// --- Notification codes between tree controls (reflected WM_NOTIFY) --------------------------------

enum : int {
  STN_DRAGANDDROP = -423,
  STN_SELECTDROPTARGET = -424,
  STN_DROP = -425,
};

// --- Records ---------------------------------------------------------------------------------------

struct tagSTITEM {
  unsigned int mask;       // STIF_ bits: which fields count
  CVornTreeItem* hItem;    // the item
  unsigned int state;      // STIS_ bits
  unsigned int stateMask;  // STIS_ bits to apply
  wchar_t* pszText;        // on output the item's own text, to be treated as read-only
  int cchTextMax;          // on input the number of characters to take; on output the length
  int iImage;
  int iSelectedImage;
  int cChildren;  // 1: the item has children
  LPARAM lParam;  // the host's data
};
using STITEM = tagSTITEM;

struct tagSTINSERTSTRUCT {
  CVornTreeItem* hParent;       // an item or STI_ROOT
  CVornTreeItem* hInsertAfter;  // an item, STI_FIRST, STI_LAST or null (the same as STI_LAST)
  STITEM item;
};
using STINSERTSTRUCT = tagSTINSERTSTRUCT;

struct tagSTSORTCB {
  CVornTreeItem* hParent;                                                 // whose children are sorted
  int(CALLBACK* lpfnCompare)(LPARAM data1, LPARAM data2, LPARAM lParam);  // on the items' data
  LPARAM lParam;                                                          // passed to each comparison
};
using STSORTCB = tagSTSORTCB;

// What CVornTreeCtrl::NotifyParent sends.
struct NMSTREE {
  NMHDR hdr;
  unsigned __int64 reserved;
  CVornTreeItem* pItem1;
  CVornTreeItem* pItem2;
  POINT ptMouse;
};

struct NMDRAGANDDROP;
