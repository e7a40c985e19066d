// Windows, drawing, menus, controls, frames, dialogs, threads and the application.
#pragma once

#include <afx.h>
#include <atltypes.h>
#include <afxcoll.h>
#include <afxstat_.h>
#include <afxres.h>
#include <afxtarget.h>
#include <afxgdi.h>
#include <afxdc.h>
#include <afxmenu.h>
#include <afxwnd.h>
#include <afxctl.h>
#include <afxdialog.h>
#include <afxframe.h>
#include <afxapp.h>
#include <afxmsg_.h>
