// The maps of drawing objects and device contexts. Private to the framework.
#pragma once

#include "afxwin.h"
#include "handle_map.h"

namespace framework {

using GdiOwners = OwnerMap<CGdiObject, HGDIOBJ>;
using GdiTemporaries = TemporaryTable<CGdiObject, HGDIOBJ, &CGdiObject::m_hObject>;

GdiOwners& OwnersOfGdiObjects();

// The object of a handle as one of class Kind: its owner, else a temporary one. Null for a null handle,
// or when memory is short.
template <class Kind>
Kind* GdiObjectOf(HGDIOBJ handle) {
  if (handle == nullptr) return nullptr;
  if (CGdiObject* const owner = OwnersOfGdiObjects().Find(handle)) {
    if (Kind* const object = DYNAMIC_DOWNCAST(Kind, owner)) return object;
  }
  auto* const table = TableOfThread<GdiTemporaries>(HandleKind::GdiObject);
  return table == nullptr ? nullptr : table->template Get<Kind>(handle);
}

// A handle of an object that may be missing.
inline HGDIOBJ HandleOf(const CGdiObject* object) { return object == nullptr ? nullptr : object->m_hObject; }
inline HDC HandleOf(const CDC* context) { return context == nullptr ? nullptr : context->m_hDC; }
inline HWND HandleOf(const CWnd* window) { return window == nullptr ? nullptr : window->m_hWnd; }
inline HMENU HandleOf(const CMenu* menu) { return menu == nullptr ? nullptr : menu->m_hMenu; }

template <class Handle>
Handle TypedHandleOf(const CGdiObject* object) {
  return static_cast<Handle>(HandleOf(object));
}

}  // namespace framework
