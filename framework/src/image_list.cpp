// CImageList.
#include "afxcmn.h"
#include "gdiobj_maps.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

using framework::HandleOf;
using framework::TypedHandleOf;

namespace {

using ListOwners = framework::OwnerMap<CImageList, HIMAGELIST>;
using ListTemporaries = framework::TemporaryTable<CImageList, HIMAGELIST, &CImageList::m_hImageList>;

ListOwners& Owners() {
  static framework::Immortal<ListOwners> owners;
  return *owners;
}

BOOL Keep(CImageList& list, HIMAGELIST created) {
  if (created == nullptr) return FALSE;
  if (list.Attach(created)) return TRUE;
  ::ImageList_Destroy(created);
  return FALSE;
}

}  // namespace

CImageList::CImageList() : m_hImageList(nullptr) {}
CImageList::~CImageList() { DeleteImageList(); }

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList) {
  if (hImageList == nullptr) return nullptr;
  if (CImageList* const owner = Owners().Find(hImageList)) return owner;
  auto* const table = framework::TableOfThread<ListTemporaries>(framework::HandleKind::ImageList);
  return table == nullptr ? nullptr : table->Get<CImageList>(hImageList);
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList) {
  return hImageList == nullptr ? nullptr : Owners().Find(hImageList);
}

void PASCAL CImageList::DeleteTempMap() { framework::DeleteTemporaryOf(framework::HandleKind::ImageList); }

BOOL CImageList::Attach(HIMAGELIST hImageList) {
  if (hImageList == nullptr || m_hImageList != nullptr) return FALSE;
  if (!Owners().Add(hImageList, this)) return FALSE;
  m_hImageList = hImageList;
  return TRUE;
}

HIMAGELIST CImageList::Detach() {
  const HIMAGELIST handle = m_hImageList;
  if (handle != nullptr) Owners().Remove(handle, this);
  m_hImageList = nullptr;
  return handle;
}

// ---- Creation ------------------------------------------------------------------------------------

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow) {
  return Keep(*this, ::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask) {
  return Create(MAKEINTRESOURCEW(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCWSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask) {
  const HINSTANCE module = AfxFindResourceHandle(lpszBitmapID, MAKEINTRESOURCEW(2) /* RT_BITMAP */);
  return Keep(*this, ::ImageList_LoadImageW(module, lpszBitmapID, cx, nGrow, crMask, IMAGE_BITMAP, 0));
}

BOOL CImageList::Create(CImageList& imagelist1, int nImage1, CImageList& imagelist2, int nImage2, int dx,
                        int dy) {
  return Keep(*this, ::ImageList_Merge(imagelist1, nImage1, imagelist2, nImage2, dx, dy));
}

BOOL CImageList::Create(CImageList* pImageList) {
  return pImageList != nullptr && Keep(*this, ::ImageList_Duplicate(pImageList->m_hImageList));
}

BOOL CImageList::DeleteImageList() {
  const HIMAGELIST handle = Detach();
  return handle != nullptr && ::ImageList_Destroy(handle);
}

// ---- Images --------------------------------------------------------------------------------------

int CImageList::GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
BOOL CImageList::SetImageCount(UINT uNewCount) { return ::ImageList_SetImageCount(m_hImageList, uNewCount); }

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask) {
  return ::ImageList_Add(m_hImageList, TypedHandleOf<HBITMAP>(pbmImage), TypedHandleOf<HBITMAP>(pbmMask));
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask) {
  return ::ImageList_AddMasked(m_hImageList, TypedHandleOf<HBITMAP>(pbmImage), crMask);
}

int CImageList::Add(HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }
BOOL CImageList::Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }

BOOL CImageList::Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask) {
  return ::ImageList_Replace(m_hImageList, nImage, TypedHandleOf<HBITMAP>(pbmImage),
                             TypedHandleOf<HBITMAP>(pbmMask));
}

int CImageList::Replace(int nImage, HICON hIcon) {
  return ::ImageList_ReplaceIcon(m_hImageList, nImage, hIcon);
}

HICON CImageList::ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle) {
  return ::ImageList_Draw(m_hImageList, nImage, HandleOf(pDC), pt.x, pt.y, nStyle);
}

BOOL CImageList::DrawEx(CDC* pDC, int nImage, POINT pt, SIZE sz, COLORREF clrBk, COLORREF clrFg,
                        UINT nStyle) {
  return ::ImageList_DrawEx(m_hImageList, nImage, HandleOf(pDC), pt.x, pt.y, sz.cx, sz.cy, clrBk, clrFg,
                            nStyle);
}

BOOL CImageList::DrawIndirect(IMAGELISTDRAWPARAMS* pimldp) {
  pimldp->cbSize = sizeof(IMAGELISTDRAWPARAMS);
  pimldp->himl = m_hImageList;
  return ::ImageList_DrawIndirect(pimldp);
}

COLORREF CImageList::SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }
COLORREF CImageList::GetBkColor() const { return ::ImageList_GetBkColor(m_hImageList); }

BOOL CImageList::SetOverlayImage(int nImage, int nOverlay) {
  return ::ImageList_SetOverlayImage(m_hImageList, nImage, nOverlay);
}

BOOL CImageList::GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const {
  return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
}

BOOL CImageList::Copy(int iDst, int iSrc, UINT uFlags) {
  return ::ImageList_Copy(m_hImageList, iDst, m_hImageList, iSrc, uFlags);
}

BOOL CImageList::Copy(int iDst, CImageList* pSrc, int iSrc, UINT uFlags) {
  return pSrc != nullptr && ::ImageList_Copy(m_hImageList, iDst, pSrc->m_hImageList, iSrc, uFlags);
}

// ---- Dragging ------------------------------------------------------------------------------------

BOOL CImageList::BeginDrag(int nImage, CPoint ptHotSpot) {
  return ::ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
}

void PASCAL CImageList::EndDrag() { ::ImageList_EndDrag(); }
BOOL PASCAL CImageList::DragMove(CPoint pt) { return ::ImageList_DragMove(pt.x, pt.y); }

BOOL CImageList::SetDragCursorImage(int nDrag, CPoint ptHotSpot) {
  return ::ImageList_SetDragCursorImage(m_hImageList, nDrag, ptHotSpot.x, ptHotSpot.y);
}

BOOL PASCAL CImageList::DragShowNolock(BOOL bShow) { return ::ImageList_DragShowNolock(bShow); }

CImageList* PASCAL CImageList::GetDragImage(LPPOINT lpPoint, LPPOINT lpPointHotSpot) {
  return FromHandle(::ImageList_GetDragImage(lpPoint, lpPointHotSpot));
}

BOOL PASCAL CImageList::DragEnter(CWnd* pWndLock, CPoint point) {
  return ::ImageList_DragEnter(HandleOf(pWndLock), point.x, point.y);
}

BOOL PASCAL CImageList::DragLeave(CWnd* pWndLock) { return ::ImageList_DragLeave(HandleOf(pWndLock)); }
