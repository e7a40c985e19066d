// The gallery's application object.
#pragma once

#include <afxwin.h>

#include "command_line.h"

class CGalleryApp : public CWinApp {
 public:
  BOOL InitInstance() override;
  BOOL OnIdle(LONG lCount) override;
  int ExitInstance() override;

 private:
  CommandLine m_commandLine;
  bool m_failed = false;
};
