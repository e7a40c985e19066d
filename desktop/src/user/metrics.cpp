// Fixed measures and colours: the classic look, 96 dots per inch, one screen.
#include <algorithm>
#include <iterator>

#include "user/user.h"

using namespace desktop;

namespace desktop {

namespace {

constexpr int kMetrics[] = {1024, 768, 17, 17, 19, 1,  1,   3,  3,    17,  17,   32,  32, 32,  32, 19, 1024,
                            779,  0,   1,  17, 17, 0,  0,   0,  0,    0,   0,    112, 27, 18,  18, 4,  4,
                            112,  27,  4,  4,  75, 75, 0,   0,  0,    3,   0,    2,   2,  160, 24, 16, 16,
                            16,   15,  15, 18, 18, 8,  160, 24, 1036, 780, 1032, 806, 3,  0,   0,  0,  0,
                            4,    4,   0,  13, 13, 0,  0,   1,  0,    0,   1024, 768, 1,  1,   0,  1,  1};

constexpr COLORREF kColors[] = {0xc8d0d4, 0xa56e3a, 0x6a240a, 0x808080, 0xc8d0d4, 0xffffff, 0x000000,
                                0x000000, 0x000000, 0xffffff, 0xc8d0d4, 0xc8d0d4, 0x808080, 0x6a240a,
                                0xffffff, 0xc8d0d4, 0x808080, 0x808080, 0x000000, 0xc8d0d4, 0xffffff,
                                0x404040, 0xc8d0d4, 0x000000, 0xe1ffff, 0xb5b5b5, 0xc80000, 0xf0caa6,
                                0xc0c0c0, 0x6a240a, 0xc8d0d4};

struct Setting {
  UINT get;
  UINT set;
  int value;
};

constexpr Setting kSettings[] = {
    {SPI_GETBEEP, 0x0002, 1},
    {SPI_GETBORDER, SPI_SETBORDER, 1},
    {SPI_GETKEYBOARDSPEED, SPI_SETKEYBOARDSPEED, 31},
    {SPI_GETKEYBOARDDELAY, SPI_SETKEYBOARDDELAY, 1},
    {SPI_GETMENUDROPALIGNMENT, SPI_SETMENUDROPALIGNMENT, 0},
    {SPI_GETDRAGFULLWINDOWS, SPI_SETDRAGFULLWINDOWS, 0},
    {SPI_GETSCREENREADER, SPI_SETSCREENREADER, 0},
    {SPI_GETFONTSMOOTHING, SPI_SETFONTSMOOTHING, 1},
    {SPI_GETMOUSEHOVERWIDTH, SPI_SETMOUSEHOVERWIDTH, 4},
    {SPI_GETMOUSEHOVERHEIGHT, SPI_SETMOUSEHOVERHEIGHT, 4},
    {SPI_GETMOUSEHOVERTIME, SPI_SETMOUSEHOVERTIME, 400},
    {SPI_GETWHEELSCROLLLINES, SPI_SETWHEELSCROLLLINES, 3},
    {SPI_GETMENUSHOWDELAY, SPI_SETMENUSHOWDELAY, 400},
    {SPI_GETWHEELSCROLLCHARS, SPI_SETWHEELSCROLLCHARS, 3},
    {SPI_GETACTIVEWINDOWTRACKING, SPI_SETACTIVEWINDOWTRACKING, 0},
    {SPI_GETMENUANIMATION, SPI_SETMENUANIMATION, 0},
    {SPI_GETCOMBOBOXANIMATION, SPI_SETCOMBOBOXANIMATION, 0},
    {SPI_GETLISTBOXSMOOTHSCROLLING, SPI_SETLISTBOXSMOOTHSCROLLING, 0},
    {SPI_GETGRADIENTCAPTIONS, SPI_SETGRADIENTCAPTIONS, 1},
    {SPI_GETKEYBOARDCUES, SPI_SETKEYBOARDCUES, 1},
    {SPI_GETSELECTIONFADE, SPI_SETSELECTIONFADE, 0},
    {SPI_GETTOOLTIPANIMATION, SPI_SETTOOLTIPANIMATION, 0},
    {SPI_GETFLATMENU, SPI_SETFLATMENU, 1},
    {SPI_GETDROPSHADOW, SPI_SETDROPSHADOW, 0},
    {SPI_GETUIEFFECTS, SPI_SETUIEFFECTS, 1},
    {SPI_GETCLIENTAREAANIMATION, SPI_SETCLIENTAREAANIMATION, 1},
    {SPI_GETCARETWIDTH, SPI_SETCARETWIDTH, 1},
};

struct Look {
  COLORREF colors[std::size(kColors)];
  int settings[std::size(kSettings)];
  UINT doubleClick = 500;
  UINT caretBlink = 500;
  bool swapped = false;

  Look() {
    std::copy(std::begin(kColors), std::end(kColors), colors);
    for (size_t i = 0; i < std::size(kSettings); ++i) settings[i] = kSettings[i].value;
  }
};

Look& TheLook() {
  static auto& look = *new Look;
  return look;
}

bool IsColor(int index) { return index >= 0 && index < static_cast<int>(std::size(kColors)); }

LOGFONTW SystemFont(LONG weight) {
  LOGFONTW font{};
  font.lfHeight = -11;
  font.lfWeight = weight;
  font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
  wcscpy(font.lfFaceName, L"Tahoma");
  return font;
}

BOOL FillNonClientMetrics(PVOID data) {
  auto* metrics = static_cast<NONCLIENTMETRICSW*>(data);
  const UINT size = metrics->cbSize;
  const UINT old = offsetof(NONCLIENTMETRICSW, iPaddedBorderWidth);
  if (size != sizeof(NONCLIENTMETRICSW) && size != old) return FALSE;
  NONCLIENTMETRICSW full{};
  full.cbSize = size;
  full.iBorderWidth = 1;
  full.iScrollWidth = full.iScrollHeight = 17;
  full.iCaptionWidth = full.iCaptionHeight = 18;
  full.lfCaptionFont = SystemFont(FW_BOLD);
  full.iSmCaptionWidth = full.iSmCaptionHeight = 15;
  full.lfSmCaptionFont = SystemFont(FW_NORMAL);
  full.iMenuWidth = full.iMenuHeight = 18;
  full.lfMenuFont = full.lfStatusFont = full.lfMessageFont = SystemFont(FW_NORMAL);
  memcpy(data, &full, size);
  return TRUE;
}

// Values that a caller passes in the parameter or, for the newer settings, in place of the pointer.
int NewValue(UINT action, UINT param, PVOID data) {
  return action >= 0x1000 ? static_cast<int>(reinterpret_cast<ULONG_PTR>(data)) : static_cast<int>(param);
}

BOOL FindSetting(UINT action, UINT param, PVOID data) {
  Look& look = TheLook();
  for (size_t i = 0; i < std::size(kSettings); ++i) {
    if (kSettings[i].get == action) {
      if (!data) return FALSE;
      *static_cast<int*>(data) = look.settings[i];
      return TRUE;
    }
    if (kSettings[i].set == action) {
      look.settings[i] = NewValue(action, param, data);
      return TRUE;
    }
  }
  SetLastError(ERROR_INVALID_PARAMETER);
  return FALSE;
}

const HMONITOR kMonitor = reinterpret_cast<HMONITOR>(static_cast<ULONG_PTR>(0x10041));

RECT Screen() { return {0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)}; }

HMONITOR MonitorFor(bool onScreen, DWORD flags) {
  return onScreen || flags != MONITOR_DEFAULTTONULL ? kMonitor : nullptr;
}

}  // namespace

int Metric(int index) {
  return index >= 0 && index < static_cast<int>(std::size(kMetrics)) ? kMetrics[index] : 0;
}

COLORREF SystemColor(int index) { return IsColor(index) ? TheLook().colors[index] : 0; }

void ResetMetrics() { TheLook() = Look(); }

}  // namespace desktop

int WINAPI GetSystemMetrics(int index) {
  WorldLock lock(WorldMutex());
  if (index == SM_SWAPBUTTON) return TheLook().swapped;
  return Metric(index);
}

DWORD WINAPI GetSysColor(int index) {
  WorldLock lock(WorldMutex());
  return SystemColor(index);
}

HBRUSH WINAPI GetSysColorBrush(int index) {
  WorldLock lock(WorldMutex());
  return IsColor(index) ? SystemColorBrush(index) : nullptr;
}

BOOL WINAPI SetSysColors(int count, const INT* elements, const COLORREF* values) {
  if (count < 0 || (count > 0 && (!elements || !values))) return FALSE;
  {
    WorldLock lock(WorldMutex());
    Look& look = TheLook();
    for (int i = 0; i < count; ++i) {
      if (IsColor(elements[i])) look.colors[elements[i]] = values[i];
    }
  }
  SendMessageW(HWND_BROADCAST, WM_SYSCOLORCHANGE, 0, 0);
  RedrawWindow(GetDesktopWindow(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  return TRUE;
}

BOOL WINAPI SystemParametersInfoW(UINT action, UINT param, PVOID data, UINT) {
  WorldLock lock(WorldMutex());
  switch (action) {
    case SPI_GETWORKAREA:
      if (!data) return FALSE;
      *static_cast<RECT*>(data) = Screen();
      return TRUE;
    case SPI_GETICONTITLELOGFONT: {
      if (!data) return FALSE;
      const LOGFONTW font = SystemFont(FW_NORMAL);
      memcpy(data, &font, std::min<size_t>(param ? param : sizeof(font), sizeof(font)));
      return TRUE;
    }
    case SPI_GETNONCLIENTMETRICS: return data && FillNonClientMetrics(data);
    case SPI_SETDOUBLECLICKTIME: TheLook().doubleClick = param ? param : 500; return TRUE;
    case SPI_GETHIGHCONTRAST:
      // cbSize stays; flags and scheme are empty.
      if (!data) return FALSE;
      static_cast<UINT*>(data)[1] = 0;
      return TRUE;
    default: return FindSetting(action, param, data);
  }
}

UINT WINAPI GetDoubleClickTime() {
  WorldLock lock(WorldMutex());
  return TheLook().doubleClick;
}

BOOL WINAPI SetDoubleClickTime(UINT milliseconds) {
  WorldLock lock(WorldMutex());
  TheLook().doubleClick = milliseconds ? std::min(milliseconds, 5000u) : 500;
  return TRUE;
}

UINT WINAPI GetCaretBlinkTime() {
  WorldLock lock(WorldMutex());
  return TheLook().caretBlink;
}

BOOL WINAPI SetCaretBlinkTime(UINT milliseconds) {
  WorldLock lock(WorldMutex());
  TheLook().caretBlink = milliseconds;
  return TRUE;
}

HMONITOR WINAPI MonitorFromWindow(HWND window, DWORD flags) {
  RECT rect;
  RECT both;
  const RECT screen = Screen();
  return MonitorFor(GetWindowRect(window, &rect) && IntersectRect(&both, &rect, &screen), flags);
}

HMONITOR WINAPI MonitorFromPoint(POINT point, DWORD flags) {
  const RECT screen = Screen();
  return MonitorFor(PtInRect(&screen, point), flags);
}

HMONITOR WINAPI MonitorFromRect(LPCRECT rect, DWORD flags) {
  RECT both;
  const RECT screen = Screen();
  return MonitorFor(rect && IntersectRect(&both, rect, &screen), flags);
}

BOOL WINAPI GetMonitorInfoW(HMONITOR monitor, LPMONITORINFO info) {
  if (monitor != kMonitor) {
    SetLastError(ERROR_INVALID_MONITOR_HANDLE);
    return FALSE;
  }
  if (!info || info->cbSize < sizeof(MONITORINFO)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  info->rcMonitor = info->rcWork = Screen();
  info->dwFlags = MONITORINFOF_PRIMARY;
  return TRUE;
}

BOOL WINAPI EnumDisplayMonitors(HDC dc, LPCRECT clip, MONITORENUMPROC proc, LPARAM param) {
  RECT shown = Screen();
  if (!proc || (clip && !IntersectRect(&shown, &shown, clip))) return FALSE;
  return proc(kMonitor, dc, &shown, param);
}
