#include "tree_images.h"

#include "resource.h"

namespace {

constexpr int kWidth = 16;
constexpr COLORREF kGround = RGB(255, 0, 255);

struct Kind {
  LPCWSTR extensions;  // between blanks
  Picture picture;
};

constexpr Kind kKinds[] = {
    {L" txt md rst html htm xml json conf cfg ini css tex po pot desktop list rules yaml yml ",
     Picture::kText},
    {L" png svg jpg jpeg gif ico xpm bmp webp tif tiff cur ", Picture::kImage},
    {L" gz xz bz2 zip zst tar tgz deb rpm jar 7z ", Picture::kArchive},
    {L" sh py pl rb js c h cpp hpp cc exe dll so a bat ps1 el lua awk cmake vim pm ", Picture::kProgram},
};

// A list made from the resource in one step has sixteen colours only.
bool LoadStrip(CImageList& list, UINT resource) {
  CBitmap strip;
  return strip.LoadBitmap(resource) && list.Create(kWidth, kWidth, ILC_COLOR24 | ILC_MASK, 0, 1) &&
         list.Add(&strip, kGround) >= 0;
}

}  // namespace

Picture PictureOfFile(const CString& name) {
  const int dot = name.ReverseFind(L'.');
  if (dot < 0 || dot + 1 == name.GetLength()) return Picture::kFile;
  CString wanted = L" " + name.Mid(dot + 1) + L" ";
  wanted.MakeLower();
  for (const Kind& kind : kKinds) {
    if (CString(kind.extensions).Find(wanted) >= 0) return kind.picture;
  }
  return Picture::kFile;
}

bool TreeImages::Load() { return LoadStrip(m_items, IDB_TREE_IMAGES) && LoadStrip(m_marks, IDB_TREE_STATES); }
