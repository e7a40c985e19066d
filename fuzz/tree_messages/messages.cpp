// Messages of the whole message map, and of what lies around it, with parameters of any kind.
#include <cwchar>
#include <iterator>

#include "scene.h"

namespace fuzz {

namespace {

// What wParam and lParam are. Pointers are always to something readable: a wild one is the sender's
// fault, which no window survives.
enum class Parameters {
  Numbers,
  Point,
  ScreenPoint,
  WindowAndPoint,
  Key,
  Character,
  ScrollCode,
  Flag,
  Window,
  Size,
  Place,
  Styles,
  Font,
  Context,
  Command,
  Notification,
  TimerId,
  Creation,
  TextOut,
  TextIn,
  Hit,
};

struct MessageKind {
  UINT message;
  Parameters parameters;
};

constexpr MessageKind kMessages[] = {
    {WM_LBUTTONDOWN, Parameters::Point},
    {WM_LBUTTONDOWN, Parameters::Point},
    {WM_LBUTTONDOWN, Parameters::Point},
    {WM_LBUTTONUP, Parameters::Point},
    {WM_LBUTTONUP, Parameters::Point},
    {WM_LBUTTONDBLCLK, Parameters::Point},
    {WM_RBUTTONDOWN, Parameters::Point},
    {WM_RBUTTONUP, Parameters::Point},
    {WM_MBUTTONDOWN, Parameters::Point},
    {WM_MOUSEMOVE, Parameters::Point},
    {WM_MOUSEMOVE, Parameters::Point},
    {WM_MOUSELEAVE, Parameters::Numbers},
    {WM_MOUSEWHEEL, Parameters::ScreenPoint},
    {WM_NCMOUSEMOVE, Parameters::Hit},
    {WM_NCLBUTTONDOWN, Parameters::Hit},
    {WM_NCLBUTTONUP, Parameters::Hit},
    {WM_SETCURSOR, Parameters::Hit},
    {WM_NCHITTEST, Parameters::ScreenPoint},
    {WM_CONTEXTMENU, Parameters::WindowAndPoint},
    {WM_KEYDOWN, Parameters::Key},
    {WM_KEYDOWN, Parameters::Key},
    {WM_KEYDOWN, Parameters::Key},
    {WM_KEYUP, Parameters::Key},
    {WM_SYSKEYDOWN, Parameters::Key},
    {WM_CHAR, Parameters::Character},
    {WM_CHAR, Parameters::Character},
    {WM_SYSCHAR, Parameters::Character},
    {WM_HSCROLL, Parameters::ScrollCode},
    {WM_VSCROLL, Parameters::ScrollCode},
    {WM_VSCROLL, Parameters::ScrollCode},
    {WM_TIMER, Parameters::TimerId},
    {WM_TIMER, Parameters::TimerId},
    {WM_SETFOCUS, Parameters::Window},
    {WM_KILLFOCUS, Parameters::Window},
    {WM_CAPTURECHANGED, Parameters::Window},
    {WM_CANCELMODE, Parameters::Numbers},
    {WM_SIZE, Parameters::Size},
    {WM_WINDOWPOSCHANGED, Parameters::Place},
    {WM_STYLECHANGED, Parameters::Styles},
    {WM_ENABLE, Parameters::Flag},
    {WM_SHOWWINDOW, Parameters::Flag},
    {WM_SETREDRAW, Parameters::Flag},
    {WM_SYSCOLORCHANGE, Parameters::Numbers},
    {WM_SETTINGCHANGE, Parameters::Numbers},
    {WM_SETFONT, Parameters::Font},
    {WM_GETFONT, Parameters::Numbers},
    {WM_GETDLGCODE, Parameters::Numbers},
    {WM_PAINT, Parameters::Numbers},
    {WM_ERASEBKGND, Parameters::Context},
    {WM_NCPAINT, Parameters::Flag},
    {WM_COMMAND, Parameters::Command},
    {WM_NOTIFY, Parameters::Notification},
    {WM_REFLECT_BASE + WM_NOTIFY, Parameters::Notification},
    {WM_USER + 1000, Parameters::Numbers},
    {WM_USER, Parameters::Numbers},
    {WM_SETTEXT, Parameters::TextIn},
    {WM_GETTEXT, Parameters::TextOut},
    {WM_CUT, Parameters::Numbers},
    {WM_COPY, Parameters::Numbers},
    {WM_PASTE, Parameters::Numbers},
    {EM_SETSEL, Parameters::Numbers},
    {EM_UNDO, Parameters::Numbers},
    {EM_REPLACESEL, Parameters::TextIn},
    {WM_CREATE, Parameters::Creation},
};

// Rare ones, that end something.
constexpr MessageKind kEnds[] = {
    {WM_CLOSE, Parameters::Numbers}, {WM_DESTROY, Parameters::Numbers}, {WM_NCDESTROY, Parameters::Numbers}};

constexpr UINT kKeys[] = {VK_UP,       VK_DOWN,   VK_LEFT,     VK_RIGHT, VK_HOME, VK_END,
                          VK_PRIOR,    VK_NEXT,   VK_SPACE,    VK_F2,    VK_ADD,  VK_RETURN,
                          VK_SUBTRACT, VK_DELETE, VK_MULTIPLY, VK_BACK,  VK_TAB,  'A',
                          VK_ESCAPE,   VK_SHIFT,  VK_CONTROL,  VK_MENU};

// A message with room for what it points to.
struct Filled {
  WPARAM wParam = 0;
  LPARAM lParam = 0;
  WINDOWPOS place{};
  STYLESTRUCT styles{};
  NMSTREE notification{};
  CREATESTRUCTW creation{};
  wchar_t text[32] = {};
};

template <typename T>
LPARAM Address(T* object) {
  return reinterpret_cast<LPARAM>(object);
}

LPARAM Packed(CPoint point) { return MAKELPARAM(point.x, point.y); }

void FillNotification(Scene& scene, const Step& step, Filled& filled) {
  constexpr UINT kCodes[] = {static_cast<UINT>(STN_DRAGANDDROP), static_cast<UINT>(STN_SELECTDROPTARGET),
                             static_cast<UINT>(STN_DROP), static_cast<UINT>(NM_CLICK)};
  NMHDR& header = filled.notification.hdr;
  header.hwndFrom = scene.Window(step.second);
  header.idFrom = static_cast<UINT_PTR>(scene.Number(step.third));
  header.code = kCodes[step.third % std::size(kCodes)];
  filled.notification.pItem1 = scene.Item(step.second);
  filled.notification.pItem2 = scene.Item(step.third);
  filled.wParam = header.idFrom;
  filled.lParam = Address(&filled.notification);
}

void Fill(Scene& scene, const Step& step, const MessageKind& kind, HWND target, Filled& filled) {
  const CPoint point = scene.Point(step.second, step.third);
  const int number = scene.Number(step.second), another = scene.Number(step.third);
  filled.wParam = static_cast<WPARAM>(number);
  filled.lParam = another;
  switch (kind.parameters) {
    case Parameters::Numbers: break;
    case Parameters::Point:
      filled.wParam = step.first & (MK_LBUTTON | MK_RBUTTON | MK_SHIFT | MK_CONTROL);
      filled.lParam = Packed(point);
      break;
    case Parameters::ScreenPoint: {
      POINT onScreen = point;
      ::ClientToScreen(target, &onScreen);
      filled.wParam = MAKEWPARAM(0, static_cast<short>(static_cast<int8_t>(step.third)) * WHEEL_DELTA / 4);
      filled.lParam = Packed(onScreen);
      break;
    }
    case Parameters::WindowAndPoint:
      filled.wParam = reinterpret_cast<WPARAM>(scene.Window(step.second));
      filled.lParam = step.third % 4 == 0 ? -1 : Packed(point);
      break;
    case Parameters::Key: filled.wParam = kKeys[step.second % std::size(kKeys)]; break;
    case Parameters::Character:
      filled.wParam = step.third % 8 == 0 ? static_cast<WPARAM>(number) : step.second;
      break;
    case Parameters::ScrollCode:
      filled.wParam = MAKEWPARAM(step.second % 10, another);
      filled.lParam = step.second > 200 ? Address(scene.Window(step.third)) : 0;
      break;
    case Parameters::Flag: filled.wParam = step.second & 1; break;
    case Parameters::Window:
      filled.wParam = reinterpret_cast<WPARAM>(scene.Window(step.second));
      filled.lParam = Address(scene.Window(step.third));
      break;
    case Parameters::Size: filled.lParam = MAKELPARAM(number, another); break;
    case Parameters::Place:
      filled.place = {target,
                      nullptr,
                      10,
                      10,
                      number,
                      another,
                      static_cast<UINT>(step.first & (SWP_NOSIZE | SWP_NOMOVE))};
      filled.lParam = Address(&filled.place);
      break;
    case Parameters::Styles:
      filled.styles = {step.second % 2 ? DWORD{WS_DISABLED} : 0u, step.third % 2 ? DWORD{WS_DISABLED} : 0u};
      filled.wParam = static_cast<WPARAM>(GWL_STYLE);
      filled.lParam = Address(&filled.styles);
      break;
    case Parameters::Font:
      filled.wParam = step.third % 8 == 0
                          ? static_cast<WPARAM>(number)
                          : reinterpret_cast<WPARAM>(
                                scene.Font(step.third) ? scene.Font(step.third)->m_hObject : nullptr);
      filled.lParam = step.second & 1;
      break;
    case Parameters::Context: filled.wParam = 0; break;
    case Parameters::Command: {
      constexpr int kCommands[] = {5006, 5007, 5008, 5009, 5040, 61440, 1};
      filled.wParam =
          MAKEWPARAM(kCommands[step.second % std::size(kCommands)], step.third % 2 ? EN_KILLFOCUS : 0);
      filled.lParam = step.third % 3 == 0 ? Address(scene.Window(step.third)) : 0;
      break;
    }
    case Parameters::Notification: FillNotification(scene, step, filled); break;
    case Parameters::TimerId:
      filled.wParam = step.second % 8;
      filled.lParam = 0;
      break;
    case Parameters::Creation: filled.lParam = Address(&filled.creation); break;
    case Parameters::TextOut:
      filled.wParam = std::size(filled.text);
      filled.lParam = Address(filled.text);
      break;
    case Parameters::TextIn:
      filled.wParam = step.second & 1;
      filled.lParam = Address(scene.Text(step.third));
      break;
    case Parameters::Hit: {
      // Not the frame's buttons and edges: their loops wait for a real button, whatever else happens.
      constexpr int kHits[] = {HTCLIENT, HTHSCROLL, HTVSCROLL, HTBORDER, HTNOWHERE, HTERROR};
      const int hit = kHits[step.second % std::size(kHits)];
      filled.wParam =
          kind.message == WM_SETCURSOR ? reinterpret_cast<WPARAM>(target) : static_cast<WPARAM>(hit);
      filled.lParam = kind.message == WM_SETCURSOR ? MAKELPARAM(hit, WM_MOUSEMOVE) : Packed(point);
      break;
    }
  }
}

// Only what outlives the call may be in a posted message.
bool MayBePosted(Parameters parameters) {
  switch (parameters) {
    case Parameters::Point:
    case Parameters::Key:
    case Parameters::Character:
    case Parameters::ScrollCode:
    case Parameters::TimerId:
    case Parameters::Command: return true;
    default: return false;
  }
}

}  // namespace

void SendAMessage(Scene& scene, const Step& step) {
  constexpr uint8_t kRare = 253;
  const bool ends = step.second >= kRare && step.third >= kRare;
  const MessageKind& kind =
      ends ? kEnds[step.first % std::size(kEnds)] : kMessages[step.first % std::size(kMessages)];
  HWND target = scene.tree.GetSafeHwnd();
  if (step.operation % 4 == 0 && scene.Box() != nullptr) target = scene.Box();
  if (target == nullptr) return;
  Filled filled;
  Fill(scene, step, kind, target, filled);
  ++scene.sent;
  if (step.operation % 8 == 1 && MayBePosted(kind.parameters)) {
    PostMessageW(target, kind.message, filled.wParam, filled.lParam);
  } else {
    SendMessageW(target, kind.message, filled.wParam, filled.lParam);
  }
}

}  // namespace fuzz
