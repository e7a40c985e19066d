// The gallery's tree: real folders that fill as they are opened, samples of what items can be, and a
// context menu.
//
// An item's data tells what it is: a kind, and for folders the number of their path. A large folder shows
// its first rows at once; what is left comes in slices, in idle time.
#pragma once

#include "logged_tree.h"
#include "tree_images.h"

#include <vector>

#include "folder.h"

enum class ItemKind : unsigned char {
  kPlain,      // nothing special; shortcuts have no data of their own and count as this
  kFolder,     // of the disk
  kFile,       // of the disk
  kNoOpening,  // refuses to be opened
  kNoCheck,    // refuses to be checked
};

class CGalleryTree : public CLoggedTree {
 public:
  // A folder that was read: what it holds, or why it cannot be read.
  struct FolderCount {
    DWORD error = ERROR_SUCCESS;
    int folders = 0;
    int files = 0;
  };

  using CLoggedTree::CLoggedTree;
  BOOL Create(CWnd* parent, UINT id);

  // Takes all documents away and opens those of the gallery: the folder, the favourites, the samples.
  FolderCount OpenFolder(const CString& path);
  // The path that OpenFolder was given.
  const CString& FolderPath() const { return m_paths.front(); }
  // Opens the folders along a path below the folder, and selects its last part. False if it ends early.
  bool SelectPath(const CString& path);

  ItemKind KindOf(CVornTreeItem* item) const;
  // The path of a folder of the disk; empty for any other item.
  CString PathOf(CVornTreeItem* item) const;
  // Adds the next slice of what folders hold; true if there is more.
  bool FillSome();
  // Adds all of it now.
  void FillAll();
  // How much of it has been added, 0 to 100; -1 when there is nothing to add.
  int FillPercent() const;
  // Reads a folder of the disk again. False for any other item.
  bool RefreshFolder(CVornTreeItem* item);
  // Appends a shortcut to the favourites; null if the item can have none.
  CVornTreeItem* AddFavourite(CVornTreeItem* item);
  // An item with its pictures, at the end of its parent's children.
  CVornTreeItem* Add(CVornTreeItem* parent, LPCWSTR text, Picture picture, ItemKind kind = ItemKind::kPlain);

  // Style bits switched while the window lives: laid out anew.
  void SwitchStyle(DWORD bits, bool on);
  void SwitchSpacing(ItemSpacing spacing);
  ItemSpacing Spacing() const { return m_spacing; }
  // Shows again all items that are hidden.
  void ShowHiddenItems();
  int SelectionCount();

  int OnItemExpanding(CVornTreeItem* item) override;
  int OnItemDblClk(CVornTreeItem* item) override;
  void OnDeleteItem(CVornTreeItem* item) override;
  int OnChecking(CVornTreeItem* item) override;
  int OnEndLabelEdit(CVornTreeItem* item, const wchar_t* text) override;

 protected:
  afx_msg void OnContextMenu(CWnd* window, CPoint point);
  afx_msg void OnKeyDown(UINT key, UINT repeat, UINT flags);
  afx_msg void OnKeyUp(UINT key, UINT repeat, UINT flags);
  DECLARE_MESSAGE_MAP()

 private:
  CVornTreeItem* AddFolder(CVornTreeItem* parent, LPCWSTR text, const CString& path, Picture picture);
  // What is still to be added to a folder that has been read.
  struct Filling {
    CVornTreeItem* folder;
    CString path;
    std::vector<FolderEntry> entries;
    size_t next = 0;
  };

  FolderCount Fill(CVornTreeItem* folder);
  void AddSlice(Filling& filling, size_t count);
  void AddEntry(const Filling& filling, const FolderEntry& entry);
  void ForgetFillings(CVornTreeItem* item);
  void AddFavourites(CVornTreeItem* folder);
  // Measures every label anew: in the present spacing, and beside the present buttons and boxes.
  void MeasureAll();

  TreeImages m_images;
  std::vector<CString> m_paths = {CString()};  // of folders, by the number in their data
  std::vector<Filling> m_fillings;
  CVornTreeItem* m_favourites = nullptr;
  ItemSpacing m_spacing = SpacingNormal;
};

// The documents beside the folder.
void AddSamples(CGalleryTree& tree);
