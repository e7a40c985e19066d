#include "gallery_tree.h"

#include "resource.h"

namespace {

constexpr int kKindShift = 56;

unsigned __int64 PackData(ItemKind kind, size_t number) {
  return (static_cast<unsigned __int64>(kind) << kKindShift) | number;
}

size_t NumberIn(unsigned __int64 data) { return static_cast<size_t>(data & ((1ULL << kKindShift) - 1)); }

}  // namespace

BEGIN_MESSAGE_MAP(CGalleryTree, CLoggedTree)
  ON_WM_CONTEXTMENU()
  ON_WM_KEYDOWN()
  ON_WM_KEYUP()
END_MESSAGE_MAP()

BOOL CGalleryTree::Create(CWnd* parent, UINT id) {
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT |
                      STS_EDITLABELS | STS_SHOWSELALWAYS | STS_EXPANDEDIMAGE | STS_CHECKBOXES | STS_HOTTRACK |
                      STS_SCROLLONEXPAND;
  if (!m_images.Load() || !CreateTreeCtrl(style, CRect(), parent, id)) return FALSE;
  SetImageList(&m_images.Items(), STIL_NORMAL);
  SetImageList(&m_images.Marks(), STIL_STATE);
  ModifySelectionType(0, STST_MULTIPLE | STST_CLEARONEMPTY);
  return TRUE;
}

// ---- Documents ---------------------------------------------------------------------------------------

CGalleryTree::FolderCount CGalleryTree::OpenFolder(const CString& path) {
  SetRedraw(FALSE);
  DeleteAllItems(STI_ROOT);
  m_paths.assign(1, path);
  CVornTreeItem* const folder = AddFolder(STI_ROOT, PathName(path), path, Picture::kComputer);
  const FolderCount count = Fill(folder);
  Expand(folder, STE_EXPAND);
  m_favourites = Add(STI_ROOT, L"Favoris", Picture::kStar);
  if (count.error == ERROR_SUCCESS) AddFavourites(folder);
  AddSamples(*this);
  SelectItem(folder);
  SetRedraw(TRUE);
  return count;
}

CVornTreeItem* CGalleryTree::Add(CVornTreeItem* parent, LPCWSTR text, Picture picture, ItemKind kind) {
  return InsertItem(text, PictureIndex(picture), SelectedIndex(picture), parent, STI_LAST, PackData(kind, 0));
}

CVornTreeItem* CGalleryTree::AddFolder(CVornTreeItem* parent, LPCWSTR text, const CString& path,
                                       Picture picture) {
  CVornTreeItem* const item = Add(parent, text, picture);
  m_paths.push_back(path);
  SetItemData(item, PackData(ItemKind::kFolder, m_paths.size() - 1));
  ModifyItemState(item, 0, STIS_HASCHILDREN);
  return item;
}

void CGalleryTree::AddFavourites(CVornTreeItem* folder) {
  constexpr int kShortcuts = 3;
  CVornTreeItem* item = GetChildItem(folder);
  for (int i = 0; i < kShortcuts && item != nullptr; ++i, item = GetNextItem(item)) AddFavourite(item);
}

CVornTreeItem* CGalleryTree::AddFavourite(CVornTreeItem* item) {
  if (m_favourites == nullptr || GetShortcutItem(item) != nullptr) return nullptr;
  return CreateShortcut(item, m_favourites, STI_LAST);
}

// ---- Folders -----------------------------------------------------------------------------------------

ItemKind CGalleryTree::KindOf(CVornTreeItem* item) const {
  return static_cast<ItemKind>(GetItemData(item) >> kKindShift);
}

CString CGalleryTree::PathOf(CVornTreeItem* item) const {
  return KindOf(item) == ItemKind::kFolder ? m_paths[NumberIn(GetItemData(item))] : CString();
}

bool CGalleryTree::RefreshFolder(CVornTreeItem* item) {
  if (KindOf(item) != ItemKind::kFolder) return false;
  const bool opened = IsItemExpanded(item);
  SetRedraw(FALSE);
  Expand(item, STE_COLLAPSE);
  DeleteAllItems(item);
  ModifyItemState(item, 0, STIS_HASCHILDREN);
  if (opened) Expand(item, STE_EXPAND);
  SetRedraw(TRUE);
  return true;
}

bool CGalleryTree::SelectPath(const CString& path) {
  FillAll();
  CVornTreeItem* item = GetChildItem(STI_ROOT);
  for (int at = 0; item != nullptr && at >= 0;) {
    const CString name = path.Tokenize(L"\\/", at);
    if (name.IsEmpty()) break;
    Expand(item, STE_EXPAND);
    FillAll();
    item = GetItemFromName(name, item);
  }
  if (item == nullptr) return false;
  SelectItem(item);
  Expand(item, STE_EXPAND);
  // As much of what it holds as fits, and the item itself.
  EnsureVisible(GetLastChildItem(item));
  EnsureVisible(item);
  return true;
}

// ---- Answers to hooks --------------------------------------------------------------------------------

int CGalleryTree::OnItemExpanding(CVornTreeItem* item) {
  if (!CLoggedTree::OnItemExpanding(item) || KindOf(item) == ItemKind::kNoOpening) return 0;
  // The hook runs before closing, too; a folder announces children only until it has been read.
  if (KindOf(item) == ItemKind::kFolder && GetItemState(item, STIS_HASCHILDREN) != 0) {
    const CWaitCursor wait;
    Fill(item);
  }
  return 1;
}

int CGalleryTree::OnItemDblClk(CVornTreeItem* item) {
  if (!CLoggedTree::OnItemDblClk(item)) return 0;
  CVornTreeItem* const target = GetShortcutItem(item);
  if (target == nullptr) return 1;
  SelectItem(target);
  EnsureVisible(target);
  return 0;
}

void CGalleryTree::OnDeleteItem(CVornTreeItem* item) {
  CLoggedTree::OnDeleteItem(item);
  if (item == m_favourites || item == STI_ROOT) m_favourites = nullptr;
  ForgetFillings(item);
}

int CGalleryTree::OnChecking(CVornTreeItem* item) {
  return CLoggedTree::OnChecking(item) && KindOf(item) != ItemKind::kNoCheck;
}

int CGalleryTree::OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text) {
  return CLoggedTree::OnEndLabelEdit(item, text) && !CString(text).Trim().IsEmpty();
}
