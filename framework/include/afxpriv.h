// Private messages of the framework, sent within one process.
#pragma once

#define WM_QUERYAFXWNDPROC 0x0360   // answer 1: a window of the framework
#define WM_SIZEPARENT 0x0361        // lParam: AFX_SIZEPARENTPARAMS*
#define WM_SETMESSAGESTRING 0x0362  // wParam: string id, lParam: text when the id is 0
#define WM_IDLEUPDATECMDUI 0x0363   // wParam: grey what has no handler
#define WM_INITIALUPDATE 0x0364
#define WM_COMMANDHELP 0x0365
#define WM_HELPHITTEST 0x0366
#define WM_EXITHELPMODE 0x0367
#define WM_RECALCPARENT 0x0368
#define WM_SIZECHILD 0x0369
#define WM_KICKIDLE 0x036A  // wParam: a message filter code, lParam: idle count
#define WM_QUERYCENTERWND 0x036B
#define WM_DISABLEMODAL 0x036C
#define WM_FLOATSTATUS 0x036D
#define WM_ACTIVATETOPLEVEL 0x036E
#define WM_POPMESSAGESTRING 0x0375
#define WM_SOCKET_NOTIFY 0x0373
#define WM_SOCKET_DEAD 0x0374

// A notification that a parent sent back to the control: base + the message.
#define WM_REFLECT_BASE 0xBC00

// Names of the framework's window classes.
#define AFX_WNDCLASS_WND L"AfxWnd"
#define AFX_WNDCLASS_CONTROLBAR L"AfxControlBar"
#define AFX_WNDCLASS_FRAME L"AfxFrameOrView"
#define AFX_WNDCLASS_MINIFRAME L"AfxMiniFrame"
