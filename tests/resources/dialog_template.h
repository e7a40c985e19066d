// Reads an extended dialog template from a module's resources into plain values.
#ifndef VORNCOMCTL_TESTS_RESOURCES_DIALOG_TEMPLATE_H
#define VORNCOMCTL_TESTS_RESOURCES_DIALOG_TEMPLATE_H

#include <windows.h>

#include <string>
#include <vector>

struct DialogControl {
  int id;  // -1 for a control without one
  DWORD style;
  RECT place;         // in dialog units
  std::wstring kind;  // the window class, in lower case
  std::wstring text;
};

struct DialogTemplate {
  DWORD style = 0;
  SIZE size{};
  std::wstring caption;
  std::wstring font;
  int points = 0;
  std::vector<DialogControl> controls;

  // The control with this id, or null.
  const DialogControl* Find(int id) const;
};

// The template with this number; empty, with a test failure, if the module has none or it is broken.
DialogTemplate ReadDialog(HINSTANCE module, int number);

// The bytes of a resource; empty if the module has none.
std::vector<unsigned char> ReadResource(HINSTANCE module, int number, int type);

#endif
