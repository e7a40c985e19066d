// CGdiObject: the handle of a drawing object and its owner.
#include "gdiobj_maps.h"

IMPLEMENT_DYNCREATE(CGdiObject, CObject)

namespace framework {

GdiOwners& OwnersOfGdiObjects() {
  static Immortal<GdiOwners> owners;
  return *owners;
}

}  // namespace framework

using framework::GdiObjectOf;
using framework::OwnersOfGdiObjects;

CGdiObject::CGdiObject() : m_hObject(nullptr) {}

CGdiObject::~CGdiObject() { DeleteObject(); }

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject) {
  if (hObject == nullptr) return nullptr;
  if (CGdiObject* const owner = OwnersOfGdiObjects().Find(hObject)) return owner;
  switch (::GetObjectType(hObject)) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return GdiObjectOf<CPen>(hObject);
    case OBJ_BRUSH: return GdiObjectOf<CBrush>(hObject);
    case OBJ_FONT: return GdiObjectOf<CFont>(hObject);
    case OBJ_BITMAP: return GdiObjectOf<CBitmap>(hObject);
    case OBJ_REGION: return GdiObjectOf<CRgn>(hObject);
    case OBJ_PAL: return GdiObjectOf<CPalette>(hObject);
    default: return GdiObjectOf<CGdiObject>(hObject);
  }
}

void PASCAL CGdiObject::DeleteTempMap() { framework::DeleteTemporaryOf(framework::HandleKind::GdiObject); }

BOOL CGdiObject::Attach(HGDIOBJ hObject) {
  if (hObject == nullptr || m_hObject != nullptr) return FALSE;
  if (!OwnersOfGdiObjects().Add(hObject, this)) return FALSE;
  m_hObject = hObject;
  return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
  const HGDIOBJ handle = m_hObject;
  if (handle != nullptr) OwnersOfGdiObjects().Remove(handle, this);
  m_hObject = nullptr;
  return handle;
}

BOOL CGdiObject::DeleteObject() {
  const HGDIOBJ handle = Detach();
  return handle != nullptr && ::DeleteObject(handle);
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const {
  return ::GetObjectW(m_hObject, nCount, lpObject);
}

UINT CGdiObject::GetObjectType() const { return ::GetObjectType(m_hObject); }
BOOL CGdiObject::CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }
BOOL CGdiObject::UnrealizeObject() { return ::UnrealizeObject(m_hObject); }
