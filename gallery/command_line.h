// What the gallery was asked for on its command line.
#pragma once

#include <afxwin.h>

//   gallery [--page number] [--size WxH] [--screenshot file] [folder]
struct CommandLine {
  CString folder;      // shown on the first page; empty for none
  CString screenshot;  // a picture of the window goes there, and the program ends; empty for none
  int page = 0;        // the page at first, from 0
  CSize size;          // of the window, pixels; 0 leaves it to the gallery
};

// Parts are separated by blanks and may be quoted. What is not understood is taken for the folder.
CommandLine ParseCommandLine(LPCWSTR arguments);
