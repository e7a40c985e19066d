// What a folder holds, in the order in which the gallery shows it.
#pragma once

#include <afxwin.h>

#include <vector>

struct FolderEntry {
  CString name;
  bool isFolder = false;
  bool isHidden = false;
};

struct FolderContent {
  DWORD error = ERROR_SUCCESS;  // why it could not be read; there are no entries then
  std::vector<FolderEntry> entries;
};

// Folders first, then files, each by name without regard to case.
FolderContent ReadFolder(const CString& path);

CString JoinPath(const CString& folder, const CString& name);
// The last part of a path; a root gives itself.
CString PathName(const CString& path);
// A sentence for a person.
CString FolderErrorText(DWORD error);
// What the gallery opens when it is told nothing.
CString DefaultFolder();
