// What a control keeps to itself, for tests that state its steps.
#pragma once

#include "VornComCtl.h"

struct VornTreeAccess {
  static BOOL& NeedLayout(CVornTreeCtrl& tree) { return tree.m_bNeedLayout; }
  static int RedrawLock(const CVornTreeCtrl& tree) { return tree.m_nRedrawLock; }
  static CVornTreeItem*& FirstDisplay(CVornTreeCtrl& tree) { return tree.m_pFirstDisplay; }
  static CVornTreeItem*& LastDisplay(CVornTreeCtrl& tree) { return tree.m_pLastDisplay; }
};
