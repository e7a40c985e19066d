// CCmdTarget, message maps and command update: the root of everything that receives messages.
// Included by <afxwin.h>.
#pragma once

#include <afx.h>

class CCmdTarget;
class CCmdUI;
class CMenu;
class CString;
class CView;
class CWnd;
struct AFX_CMDHANDLERINFO;

namespace vornfw {

// One message or command on its way to a handler. Messages use message, wParam, lParam and result;
// commands and notifications use id, code and extra.
struct Call {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  UINT id;
  int code;
  void* extra;      // CCmdUI* for an update, Notification* for WM_NOTIFY, else null
  LRESULT* result;  // where a reflected message leaves its result; may be null
};

// What Call::extra points to for a WM_NOTIFY command.
struct Notification {
  LRESULT* result;
  NMHDR* header;
};

}  // namespace vornfw

// Calls a handler. A message handler's return value is the message's result; that of a command
// handler is nonzero when the command is dealt with and zero to let it travel on.
using AFX_PMSG = LRESULT (*)(CCmdTarget* pTarget, vornfw::Call& call);

// One line of a message map. The last line of a map has no pfn.
struct AFX_MSGMAP_ENTRY {
  UINT nMessage;            // message; 0xC000 for one of RegisterWindowMessage
  UINT nCode;               // control or notification code
  UINT nID;                 // control or command (first of a range); 0 for messages
  UINT nLastID;             // last of the range
  const UINT* pRegistered;  // variable of the registered message, or null
  AFX_PMSG pfn;
};

// A class's map and the way to that of its base.
struct AFX_MSGMAP {
  const AFX_MSGMAP*(PASCAL* pfnGetBaseMap)();
  const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                          \
 protected:                                            \
  static const AFX_MSGMAP* PASCAL GetThisMessageMap(); \
  const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                \
  const AFX_MSGMAP* theClass::GetMessageMap() const { return theClass::GetThisMessageMap(); } \
  const AFX_MSGMAP* PASCAL theClass::GetThisMessageMap() {                                    \
    using ThisClass [[maybe_unused]] = theClass;                                              \
    using TheBaseClass = baseClass;                                                           \
    static const AFX_MSGMAP_ENTRY _messageEntries[] = {
#define BEGIN_TEMPLATE_MESSAGE_MAP(theClass, type_name, baseClass)    \
  template <typename type_name>                                       \
  const AFX_MSGMAP* theClass<type_name>::GetMessageMap() const {      \
    return theClass<type_name>::GetThisMessageMap();                  \
  }                                                                   \
  template <typename type_name>                                       \
  const AFX_MSGMAP* PASCAL theClass<type_name>::GetThisMessageMap() { \
    using ThisClass [[maybe_unused]] = theClass<type_name>;           \
    using TheBaseClass = baseClass;                                   \
    static const AFX_MSGMAP_ENTRY _messageEntries[] = {
#define END_MESSAGE_MAP()                                                                       \
  { 0, 0, 0, 0, nullptr, nullptr }                                                              \
  }                                                                                             \
  ;                                                                                             \
  static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, &_messageEntries[0]}; \
  return &messageMap;                                                                           \
  }

// Pseudo codes of OnCmdMsg beside those of controls.
#define CN_COMMAND 0                                  // a menu or accelerator command
#define CN_UPDATE_COMMAND_UI (static_cast<UINT>(-1))  // bring the look of a command up to date

// Answer to "who would handle this command?".
struct AFX_CMDHANDLERINFO {
  CCmdTarget* pTarget;
  AFX_PMSG pmf;
};

// Base of all objects that have a message map: windows, threads and the application.
class VORNFW_API CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)

 public:
  CCmdTarget();
  ~CCmdTarget() override;

  // Offers a command to this object. nCode is CN_COMMAND, CN_UPDATE_COMMAND_UI, a control's code, or
  // MAKELONG(code, WM_NOTIFY) with a notification; pExtra is the CCmdUI or the notification.
  // With pHandlerInfo nothing is called: the handler found is stored there instead.
  // Returns nonzero if a handler took it.
  virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

  // Show the hourglass, restore the cursor of before, show it again after a message box.
  void BeginWaitCursor();
  void EndWaitCursor();
  void RestoreWaitCursor();

 protected:
  static const AFX_MSGMAP* PASCAL GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;
};

// Shows the hourglass for as long as the object lives.
class VORNFW_API CWaitCursor {
 public:
  CWaitCursor();
  ~CWaitCursor();
  CWaitCursor(const CWaitCursor&) = delete;
  CWaitCursor& operator=(const CWaitCursor&) = delete;
  void Restore();
};

// The state of one command on its menu item, button or pane, as its update handler sets it.
class VORNFW_API CCmdUI {
 public:
  CCmdUI();
  virtual ~CCmdUI();

  UINT m_nID;     // command or control
  UINT m_nIndex;  // menu item or other position

  CMenu* m_pMenu;     // the menu, when a menu item is updated
  CMenu* m_pSubMenu;  // its pop-up, when the first item of a pop-up is being asked for it
  CWnd* m_pOther;     // the window, when it is not a menu
  BOOL m_bEnableChanged;
  BOOL m_bContinueRouting;
  UINT m_nIndexMax;
  CMenu* m_pParentMenu;

  // Enable or grey the item.
  virtual void Enable(BOOL bOn = TRUE);
  // 0 unchecked, 1 checked, 2 indeterminate (on buttons).
  virtual void SetCheck(int nCheck = 1);
  // As SetCheck, drawn with a dot in menus.
  virtual void SetRadio(BOOL bOn = TRUE);
  virtual void SetText(LPCWSTR lpszText);

  // In an update handler: let the next target be asked as well.
  void ContinueRouting();
  // Ask pTarget for the state. With bDisableIfNoHndler the item is greyed when nobody handles the
  // command. Returns nonzero if an update handler was found.
  BOOL DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);
};
