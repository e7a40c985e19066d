// The pictures of the gallery's tree.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

// The first of each pair is shown normally, the one after it while the item is selected.
enum class Picture {
  kFolder = 0,
  kFile = 2,
  kText = 4,
  kImage = 6,
  kArchive = 8,
  kProgram = 10,
  kComputer = 12,
  kStar = 14,
  kFlask = 16,
  kCubes = 18,
  kBall = 20,
};
constexpr int kWarningPicture = 22;  // selected or not

enum class Mark { kReadOnly, kHidden, kGood, kBad, kLiked };

constexpr int PictureIndex(Picture picture) { return static_cast<int>(picture); }
constexpr int SelectedIndex(Picture picture) { return static_cast<int>(picture) + 1; }

// What a file of this name looks like.
Picture PictureOfFile(const CString& name);

class TreeImages {
 public:
  // Loads both lists; false if a resource is missing.
  bool Load();
  CImageList& Items() { return m_items; }
  CImageList& Marks() { return m_marks; }

 private:
  CImageList m_items;
  CImageList m_marks;
};
