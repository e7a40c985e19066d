// What a folder holds.
#pragma once

#include <afxwin.h>

struct FolderSummary {
  bool found = false;
  int folders = 0;
  int files = 0;
  unsigned long long bytes = 0;  // of the files, without those of folders below
};

FolderSummary SummarizeFolder(const CString& path);
