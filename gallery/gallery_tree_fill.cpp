// How folders come into the gallery's tree: read at once, added in slices.
#include <algorithm>

#include "gallery_tree.h"

namespace {

constexpr size_t kFirstSlice = 500;  // more than a screen shows
constexpr size_t kSlice = 4000;

}  // namespace

CGalleryTree::FolderCount CGalleryTree::Fill(CVornTreeItem* folder) {
  const CString path = PathOf(folder);
  FolderContent content = ReadFolder(path);
  FolderCount count{content.error, 0, 0};
  for (const FolderEntry& entry : content.entries) ++(entry.isFolder ? count.folders : count.files);
  // Without this, a folder that turns out empty would keep its button.
  ModifyItemState(folder, STIS_HASCHILDREN, 0);
  if (content.error != ERROR_SUCCESS) {
    CVornTreeItem* const item =
        InsertItem(FolderErrorText(content.error), kWarningPicture, kWarningPicture, folder);
    SetItemTextColor(item, RGB(178, 58, 58));
    ModifyItemState(item, 0, STIS_NORENAME);
    return count;
  }
  Filling filling{folder, path, std::move(content.entries)};
  AddSlice(filling, kFirstSlice);
  if (filling.next < filling.entries.size()) m_fillings.push_back(std::move(filling));
  return count;
}

void CGalleryTree::AddSlice(Filling& filling, size_t count) {
  const size_t end = std::min(filling.next + count, filling.entries.size());
  SetRedraw(FALSE);
  for (; filling.next < end; ++filling.next) AddEntry(filling, filling.entries[filling.next]);
  SetRedraw(TRUE);
}

void CGalleryTree::AddEntry(const Filling& filling, const FolderEntry& entry) {
  CVornTreeItem* const item =
      entry.isFolder
          ? AddFolder(filling.folder, entry.name, JoinPath(filling.path, entry.name), Picture::kFolder)
          : Add(filling.folder, entry.name, PictureOfFile(entry.name), ItemKind::kFile);
  if (entry.isHidden) SetItemImageState(item, static_cast<int>(Mark::kHidden));
}

bool CGalleryTree::FillSome() {
  if (m_fillings.empty()) return false;
  Filling& filling = m_fillings.back();
  AddSlice(filling, kSlice);
  if (filling.next == filling.entries.size()) m_fillings.pop_back();
  return !m_fillings.empty();
}

void CGalleryTree::FillAll() {
  while (FillSome()) {
  }
}

int CGalleryTree::FillPercent() const {
  if (m_fillings.empty()) return -1;
  return static_cast<int>(100 * m_fillings.back().next / m_fillings.back().entries.size());
}

void CGalleryTree::ForgetFillings(CVornTreeItem* item) {
  std::erase_if(m_fillings, [&](const Filling& filling) {
    return item == STI_ROOT || IsParentItemOf(item, filling.folder);
  });
}
