// The search through message maps. Private to the framework.
#pragma once

#include "afxpriv.h"
#include "afxwin.h"

namespace framework {

// The entry for a window message, or null. map may be null.
const AFX_MSGMAP_ENTRY* FindMessage(const AFX_MSGMAP* map, UINT message);
// The entry for a command or notification, or null.
const AFX_MSGMAP_ENTRY* FindCommand(const AFX_MSGMAP* map, UINT message, UINT code, UINT id);

}  // namespace framework
