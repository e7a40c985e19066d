// CCmdTarget: the search through message maps, for messages and for commands.
#include "message_map.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() = default;
CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
  static const AFX_MSGMAP map = {nullptr, &entries[0]};
  return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

namespace framework {

namespace {

// The first entry that matches, from the object's own class down to its bases.
template <class Matches>
const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* map, Matches matches) {
  while (map != nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry) {
      if (matches(*entry)) return entry;
    }
    map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr;
  }
  return nullptr;
}

}  // namespace

const AFX_MSGMAP_ENTRY* FindMessage(const AFX_MSGMAP* map, UINT message) {
  return FindEntry(map, [message](const AFX_MSGMAP_ENTRY& entry) {
    if (entry.pRegistered != nullptr) return *entry.pRegistered == message;
    return entry.nMessage == message && entry.nCode == 0 && entry.nID == 0;
  });
}

const AFX_MSGMAP_ENTRY* FindCommand(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
  return FindEntry(map, [=](const AFX_MSGMAP_ENTRY& entry) {
    return entry.nMessage == message && entry.nCode == code && entry.nID <= id && id <= entry.nLastID;
  });
}

}  // namespace framework

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) {
  UINT message = WM_COMMAND;
  auto code = static_cast<UINT>(nCode);
  if (code != CN_UPDATE_COMMAND_UI) {
    if (HIWORD(code) != 0) message = HIWORD(code);
    code = LOWORD(code);
    // A control that is asked for its own state: the pseudo code does not fit beside the message.
    const bool reflectedUpdate = message == WM_COMMAND + WM_REFLECT_BASE && pExtra != nullptr;
    if (reflectedUpdate && code == LOWORD(CN_UPDATE_COMMAND_UI)) code = CN_UPDATE_COMMAND_UI;
  }

  const AFX_MSGMAP_ENTRY* const entry = framework::FindCommand(GetMessageMap(), message, code, nID);
  if (entry == nullptr) return FALSE;
  if (pHandlerInfo != nullptr) {
    *pHandlerInfo = {this, entry->pfn};
    return TRUE;
  }
  vornfw::Call call = {message, 0, 0, nID, static_cast<int>(code), pExtra, nullptr};
  return entry->pfn(this, call) != 0;
}

// ---- The hourglass -------------------------------------------------------------------------------

namespace {

void ShowWaitCursor(int step) {
  if (CWinApp* const app = AfxGetApp()) app->DoWaitCursor(step);
}

}  // namespace

void CCmdTarget::BeginWaitCursor() { ShowWaitCursor(1); }
void CCmdTarget::EndWaitCursor() { ShowWaitCursor(-1); }
void CCmdTarget::RestoreWaitCursor() { ShowWaitCursor(0); }

CWaitCursor::CWaitCursor() { ShowWaitCursor(1); }
CWaitCursor::~CWaitCursor() { ShowWaitCursor(-1); }
void CWaitCursor::Restore() { ShowWaitCursor(0); }
