// What the gallery was asked for on its command line.
#pragma once

#include <afxwin.h>

//   gallery [--page number] [--size WxH] [--select path] [--fill count] [--screenshot file] [folder]
struct CommandLine {
  CString folder;      // shown on the tree's page; empty leaves it to the gallery
  CString selected;    // below the folder: opened and selected; empty for the folder itself
  CString screenshot;  // a picture of the window goes there, and the program ends; empty for none
  int page = 0;        // the page at first, from 0
  int fill = 0;        // items that are added to the tree
  CSize size;          // of the window, pixels; 0 leaves it to the gallery
};

// Parts are separated by blanks and may be quoted. What is not understood is taken for the folder.
CommandLine ParseCommandLine(LPCWSTR arguments);
