// CDC: its handles, its state and the objects selected into it.
#include "gdiobj_maps.h"

IMPLEMENT_DYNCREATE(CDC, CObject)

using framework::GdiObjectOf;
using framework::HandleOf;

namespace {

using ContextOwners = framework::OwnerMap<CDC, HDC>;
using ContextTemporaries = framework::TemporaryTable<CDC, HDC, &CDC::m_hDC>;

ContextOwners& Owners() {
  static framework::Immortal<ContextOwners> owners;
  return *owners;
}

// Selects an object and returns the one of before. Its wrapper is made first: when that fails, nothing has
// been selected yet and nothing is lost.
template <class Kind>
Kind* SelectInto(const CDC& context, HGDIOBJ object, UINT type) {
  if (object == nullptr || context.m_hDC == nullptr) return nullptr;
  const HDC asked = context.m_hAttribDC != nullptr ? context.m_hAttribDC : context.m_hDC;
  Kind* const earlier = GdiObjectOf<Kind>(::GetCurrentObject(asked, type));
  if (earlier == nullptr) return nullptr;

  HGDIOBJ replaced = ::SelectObject(context.m_hDC, object);
  if (context.m_hAttribDC != nullptr && context.m_hAttribDC != context.m_hDC) {
    replaced = ::SelectObject(context.m_hAttribDC, object);
  }
  return replaced == nullptr ? nullptr : earlier;
}

}  // namespace

// ---- Handles -------------------------------------------------------------------------------------

CDC::CDC() : m_hDC(nullptr), m_hAttribDC(nullptr), m_bPrinting(FALSE) {}

CDC::~CDC() {
  if (m_hDC != nullptr) ::DeleteDC(Detach());
}

CDC* PASCAL CDC::FromHandle(HDC hDC) {
  if (hDC == nullptr) return nullptr;
  if (CDC* const owner = Owners().Find(hDC)) return owner;
  auto* const table = framework::TableOfThread<ContextTemporaries>(framework::HandleKind::DeviceContext);
  CDC* const context = table == nullptr ? nullptr : table->Get<CDC>(hDC);
  if (context != nullptr) context->m_hAttribDC = hDC;
  return context;
}

void PASCAL CDC::DeleteTempMap() { framework::DeleteTemporaryOf(framework::HandleKind::DeviceContext); }

BOOL CDC::Attach(HDC hDC) {
  if (hDC == nullptr || m_hDC != nullptr) return FALSE;
  if (!Owners().Add(hDC, this)) return FALSE;
  m_hDC = hDC;
  SetAttribDC(hDC);
  return TRUE;
}

HDC CDC::Detach() {
  const HDC handle = m_hDC;
  if (handle != nullptr) Owners().Remove(handle, this);
  ReleaseAttribDC();
  m_hDC = nullptr;
  return handle;
}

void CDC::SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }

void CDC::SetOutputDC(HDC hDC) {
  if (m_hDC != nullptr) Owners().Remove(m_hDC, this);
  m_hDC = hDC != nullptr && Owners().Add(hDC, this) ? hDC : nullptr;
}

void CDC::ReleaseAttribDC() { m_hAttribDC = nullptr; }

void CDC::ReleaseOutputDC() {
  if (m_hDC != nullptr) Owners().Remove(m_hDC, this);
  m_hDC = nullptr;
}

CWnd* CDC::GetWindow() const { return CWnd::FromHandle(::WindowFromDC(m_hDC)); }

namespace {

BOOL Keep(CDC& context, HDC created) {
  if (created == nullptr) return FALSE;
  if (context.Attach(created)) return TRUE;
  ::DeleteDC(created);
  return FALSE;
}

}  // namespace

BOOL CDC::CreateDC(LPCWSTR lpszDriverName, LPCWSTR lpszDeviceName, LPCWSTR lpszOutput,
                   const void* lpInitData) {
  return Keep(*this, ::CreateDCW(lpszDriverName, lpszDeviceName, lpszOutput,
                                 static_cast<const DEVMODEW*>(lpInitData)));
}

BOOL CDC::CreateIC(LPCWSTR lpszDriverName, LPCWSTR lpszDeviceName, LPCWSTR lpszOutput,
                   const void* lpInitData) {
  return Keep(*this, ::CreateICW(lpszDriverName, lpszDeviceName, lpszOutput,
                                 static_cast<const DEVMODEW*>(lpInitData)));
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) { return Keep(*this, ::CreateCompatibleDC(HandleOf(pDC))); }

BOOL CDC::DeleteDC() {
  const HDC handle = Detach();
  return handle != nullptr && ::DeleteDC(handle);
}

// ---- State ---------------------------------------------------------------------------------------

int CDC::SaveDC() {
  if (m_hAttribDC != nullptr && m_hAttribDC != m_hDC && ::SaveDC(m_hAttribDC) == 0) return 0;
  return ::SaveDC(m_hDC);
}

BOOL CDC::RestoreDC(int nSavedDC) {
  const BOOL restored = ::RestoreDC(m_hDC, nSavedDC);
  if (m_hAttribDC == nullptr || m_hAttribDC == m_hDC) return restored;
  // The two contexts count their saved states apart: only steps back mean the same on both.
  return ::RestoreDC(m_hAttribDC, nSavedDC < 0 ? nSavedDC : -1) && restored;
}

int CDC::GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }

CPoint CDC::GetBrushOrg() const {
  CPoint origin;
  ::GetBrushOrgEx(m_hDC, &origin);
  return origin;
}

CPoint CDC::SetBrushOrg(int x, int y) {
  CPoint earlier;
  ::SetBrushOrgEx(m_hDC, x, y, &earlier);
  return earlier;
}

CPoint CDC::SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }

// ---- Selected objects ----------------------------------------------------------------------------

CPen* CDC::GetCurrentPen() const { return GdiObjectOf<CPen>(::GetCurrentObject(m_hAttribDC, OBJ_PEN)); }

CBrush* CDC::GetCurrentBrush() const {
  return GdiObjectOf<CBrush>(::GetCurrentObject(m_hAttribDC, OBJ_BRUSH));
}

CFont* CDC::GetCurrentFont() const { return GdiObjectOf<CFont>(::GetCurrentObject(m_hAttribDC, OBJ_FONT)); }

CBitmap* CDC::GetCurrentBitmap() const {
  return GdiObjectOf<CBitmap>(::GetCurrentObject(m_hAttribDC, OBJ_BITMAP));
}

CGdiObject* CDC::SelectStockObject(int nIndex) {
  const HGDIOBJ object = ::GetStockObject(nIndex);
  switch (::GetObjectType(object)) {
    case OBJ_PEN: return SelectInto<CPen>(*this, object, OBJ_PEN);
    case OBJ_BRUSH: return SelectInto<CBrush>(*this, object, OBJ_BRUSH);
    case OBJ_FONT: return SelectInto<CFont>(*this, object, OBJ_FONT);
    default: return nullptr;
  }
}

CPen* CDC::SelectObject(CPen* pPen) { return SelectInto<CPen>(*this, HandleOf(pPen), OBJ_PEN); }
CBrush* CDC::SelectObject(CBrush* pBrush) { return SelectInto<CBrush>(*this, HandleOf(pBrush), OBJ_BRUSH); }
CFont* CDC::SelectObject(CFont* pFont) { return SelectInto<CFont>(*this, HandleOf(pFont), OBJ_FONT); }

CBitmap* CDC::SelectObject(CBitmap* pBitmap) {
  return SelectInto<CBitmap>(*this, HandleOf(pBitmap), OBJ_BITMAP);
}

int CDC::SelectObject(CRgn* pRgn) { return SelectClipRgn(pRgn); }

CGdiObject* CDC::SelectObject(CGdiObject* pObject) {
  const HGDIOBJ object = HandleOf(pObject);
  switch (::GetObjectType(object)) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return SelectInto<CPen>(*this, object, OBJ_PEN);
    case OBJ_BRUSH: return SelectInto<CBrush>(*this, object, OBJ_BRUSH);
    case OBJ_FONT: return SelectInto<CFont>(*this, object, OBJ_FONT);
    case OBJ_BITMAP: return SelectInto<CBitmap>(*this, object, OBJ_BITMAP);
    case OBJ_REGION: ::SelectObject(m_hDC, object); return nullptr;  // there is no object of before
    default: return nullptr;
  }
}

// ---- Paint, client and window contexts -----------------------------------------------------------

IMPLEMENT_DYNAMIC(CPaintDC, CDC)
IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)

CPaintDC::CPaintDC(CWnd* pWnd) : m_ps{}, m_hWnd(HandleOf(pWnd)) {
  const HDC opened = ::BeginPaint(m_hWnd, &m_ps);
  if (Attach(opened)) return;
  if (opened != nullptr) ::EndPaint(m_hWnd, &m_ps);
  AfxThrowResourceException();
}

CPaintDC::~CPaintDC() {
  if (Detach() != nullptr) ::EndPaint(m_hWnd, &m_ps);
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(HandleOf(pWnd)) {
  const HDC opened = ::GetDC(m_hWnd);
  if (Attach(opened)) return;
  if (opened != nullptr) ::ReleaseDC(m_hWnd, opened);
  AfxThrowResourceException();
}

CClientDC::~CClientDC() {
  if (const HDC opened = Detach()) ::ReleaseDC(m_hWnd, opened);
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(HandleOf(pWnd)) {
  const HDC opened = ::GetWindowDC(m_hWnd);
  if (Attach(opened)) return;
  if (opened != nullptr) ::ReleaseDC(m_hWnd, opened);
  AfxThrowResourceException();
}

CWindowDC::~CWindowDC() {
  if (const HDC opened = Detach()) ::ReleaseDC(m_hWnd, opened);
}
