// Messages as text.
#include <windows.h>

#include <cstdio>
#include <string>

#include "support/recorder.h"

namespace support {
namespace {

struct Named {
  UINT value;
  const char* name;
};

#define NAMED(x) \
  { x, #x }
constexpr Named kMessages[] = {
    NAMED(WM_NULL),
    NAMED(WM_CREATE),
    NAMED(WM_DESTROY),
    NAMED(WM_MOVE),
    NAMED(WM_SIZE),
    NAMED(WM_ACTIVATE),
    NAMED(WM_SETFOCUS),
    NAMED(WM_KILLFOCUS),
    NAMED(WM_ENABLE),
    NAMED(WM_SETREDRAW),
    NAMED(WM_SETTEXT),
    NAMED(WM_GETTEXT),
    NAMED(WM_GETTEXTLENGTH),
    NAMED(WM_PAINT),
    NAMED(WM_CLOSE),
    NAMED(WM_QUIT),
    NAMED(WM_ERASEBKGND),
    NAMED(WM_SYSCOLORCHANGE),
    NAMED(WM_SHOWWINDOW),
    NAMED(WM_ACTIVATEAPP),
    NAMED(WM_CANCELMODE),
    NAMED(WM_SETCURSOR),
    NAMED(WM_MOUSEACTIVATE),
    NAMED(WM_CHILDACTIVATE),
    NAMED(WM_GETMINMAXINFO),
    NAMED(WM_SETFONT),
    NAMED(WM_GETFONT),
    NAMED(WM_WINDOWPOSCHANGING),
    NAMED(WM_WINDOWPOSCHANGED),
    NAMED(WM_NOTIFY),
    NAMED(WM_CONTEXTMENU),
    NAMED(WM_STYLECHANGING),
    NAMED(WM_STYLECHANGED),
    NAMED(WM_NCCREATE),
    NAMED(WM_NCDESTROY),
    NAMED(WM_NCCALCSIZE),
    NAMED(WM_NCHITTEST),
    NAMED(WM_NCPAINT),
    NAMED(WM_NCACTIVATE),
    NAMED(WM_GETDLGCODE),
    NAMED(WM_NCMOUSEMOVE),
    NAMED(WM_NCLBUTTONDOWN),
    NAMED(WM_NCLBUTTONUP),
    NAMED(WM_KEYDOWN),
    NAMED(WM_KEYUP),
    NAMED(WM_CHAR),
    NAMED(WM_SYSKEYDOWN),
    NAMED(WM_SYSKEYUP),
    NAMED(WM_SYSCHAR),
    NAMED(WM_INITDIALOG),
    NAMED(WM_COMMAND),
    NAMED(WM_SYSCOMMAND),
    NAMED(WM_TIMER),
    NAMED(WM_HSCROLL),
    NAMED(WM_VSCROLL),
    NAMED(WM_INITMENU),
    NAMED(WM_INITMENUPOPUP),
    NAMED(WM_UNINITMENUPOPUP),
    NAMED(WM_MENUSELECT),
    NAMED(WM_ENTERIDLE),
    NAMED(WM_ENTERMENULOOP),
    NAMED(WM_EXITMENULOOP),
    NAMED(WM_CTLCOLOREDIT),
    NAMED(WM_CTLCOLORSTATIC),
    NAMED(WM_CTLCOLORBTN),
    NAMED(WM_MOUSEMOVE),
    NAMED(WM_LBUTTONDOWN),
    NAMED(WM_LBUTTONUP),
    NAMED(WM_LBUTTONDBLCLK),
    NAMED(WM_RBUTTONDOWN),
    NAMED(WM_RBUTTONUP),
    NAMED(WM_RBUTTONDBLCLK),
    NAMED(WM_MBUTTONDOWN),
    NAMED(WM_MBUTTONUP),
    NAMED(WM_MBUTTONDBLCLK),
    NAMED(WM_MOUSEWHEEL),
    NAMED(WM_MOUSEHWHEEL),
    NAMED(WM_PARENTNOTIFY),
    NAMED(WM_CAPTURECHANGED),
    NAMED(WM_MOUSELEAVE),
    NAMED(WM_PRINTCLIENT),
};
#undef NAMED

constexpr Named kKeys[] = {
    {VK_BACK, "BACK"},   {VK_TAB, "TAB"},    {VK_RETURN, "RETURN"},   {VK_SHIFT, "SHIFT"},
    {VK_MENU, "ALT"},    {VK_ESCAPE, "ESC"}, {VK_CONTROL, "CONTROL"}, {VK_SPACE, "SPACE"},
    {VK_PRIOR, "PRIOR"}, {VK_NEXT, "NEXT"},  {VK_END, "END"},         {VK_HOME, "HOME"},
    {VK_LEFT, "LEFT"},   {VK_UP, "UP"},      {VK_RIGHT, "RIGHT"},     {VK_DOWN, "DOWN"},
    {VK_INSERT, "INS"},  {VK_DELETE, "DEL"}, {VK_APPS, "APPS"},       {VK_ADD, "ADD"},
    {VK_SUBTRACT, "-"},  {VK_MULTIPLY, "*"}, {VK_DIVIDE, "/"},        {VK_PACKET, "PACKET"},
};

template <class... Values>
std::string Format(const char* format, Values... values) {
  char text[96];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

std::string MessageName(UINT message) {
  for (const Named& named : kMessages) {
    if (named.value == message) return named.name;
  }
  if (message >= WM_APP && message < 0xC000) return Format("WM_APP+%u", message - WM_APP);
  if (message >= WM_USER && message < WM_APP) return Format("WM_USER+%u", message - WM_USER);
  return Format("message %#x", message);
}

int Low(LPARAM value) { return static_cast<short>(LOWORD(value)); }
int High(LPARAM value) { return static_cast<short>(HIWORD(value)); }

std::string Point(LPARAM lParam) { return Format(" %d,%d", Low(lParam), High(lParam)); }

std::string Buttons(WPARAM wParam) {
  constexpr struct {
    UINT bit;
    char name;
  } kBits[] = {{MK_LBUTTON, 'L'}, {MK_MBUTTON, 'M'}, {MK_RBUTTON, 'R'}, {MK_SHIFT, 'S'}, {MK_CONTROL, 'C'}};
  std::string text;
  for (const auto& bit : kBits) {
    if (wParam & bit.bit) text += bit.name;
  }
  return text.empty() ? text : " " + text;
}

std::string Character(WPARAM code) {
  if (code >= ' ' && code < 0x7f) return Format(" '%c'", static_cast<int>(code));
  return Format(" %#x", static_cast<unsigned>(code));
}

std::string Parameters(UINT message, WPARAM wParam, LPARAM lParam) {
  const int low = Low(static_cast<LPARAM>(wParam));
  const int high = High(static_cast<LPARAM>(wParam));
  switch (message) {
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_SYSKEYDOWN:
    case WM_SYSKEYUP: return " " + KeyName(static_cast<UINT>(wParam));
    case WM_CHAR:
    case WM_SYSCHAR: return Character(wParam);
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK: return Point(lParam) + Buttons(wParam);
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL: return Format(" %d", high) + Buttons(LOWORD(wParam));
    case WM_CONTEXTMENU:
    case WM_MOVE: return Point(lParam);
    case WM_SIZE: return Format(" %d %dx%d", low, Low(lParam), High(lParam));
    case WM_COMMAND: return Format(" %d %d", low, high);
    case WM_HSCROLL:
    case WM_VSCROLL: return Format(" %d %d", low, high);
    case WM_ACTIVATE: return Format(" %d", low);
    case WM_TIMER:
    case WM_SETREDRAW:
    case WM_ENABLE:
    case WM_SHOWWINDOW:
    case WM_ACTIVATEAPP:
    case WM_NCACTIVATE:
    case WM_NCCALCSIZE: return Format(" %d", static_cast<int>(wParam));
    case WM_MOUSEACTIVATE: return Format(" %d ", Low(lParam)) + MessageName(HIWORD(lParam));
    case WM_SYSCOMMAND: return Format(" %#x", static_cast<unsigned>(wParam & 0xFFF0));
    case WM_NOTIFY: return Format(" %d", static_cast<int>(reinterpret_cast<NMHDR*>(lParam)->code));
    case WM_PARENTNOTIFY: return " " + MessageName(LOWORD(wParam));
    default: break;
  }
  if (message >= WM_USER && message < 0xC000) {
    return Format(" %d %d", static_cast<int>(wParam), static_cast<int>(lParam));
  }
  return {};
}

}  // namespace

std::string DescribeMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return MessageName(message) + Parameters(message, wParam, lParam);
}

std::string KeyName(UINT virtualKey) {
  if ((virtualKey >= '0' && virtualKey <= '9') || (virtualKey >= 'A' && virtualKey <= 'Z')) {
    return std::string(1, static_cast<char>(virtualKey));
  }
  if (virtualKey >= VK_F1 && virtualKey <= VK_F12) return Format("F%u", virtualKey - VK_F1 + 1);
  for (const Named& key : kKeys) {
    if (key.value == virtualKey) return key.name;
  }
  return Format("key %#x", virtualKey);
}

}  // namespace support
