// Stock objects and system colour brushes: made on first use, alive for good.
#include <array>
#include <memory>

#include "../world.h"
#include "object.h"
#include "text.h"
#include "window_dc.h"

namespace desktop {
namespace {

constexpr int kSystemColors = 31;

HGDIOBJ MakeStockBrush(UINT style, COLORREF color, bool usesDcColor = false) {
  auto brush = std::make_unique<Brush>();
  brush->style = style;
  brush->color = color;
  brush->usesDcColor = usesDcColor;
  return AddStockObject(std::move(brush));
}

HGDIOBJ MakeStockPen(DWORD style, COLORREF color, bool usesDcColor = false) {
  auto pen = std::make_unique<Pen>();
  pen->style = style;
  pen->color = color;
  pen->usesDcColor = usesDcColor;
  return AddStockObject(std::move(pen));
}

HGDIOBJ MakeStockFont(LONG height, LONG weight, BYTE pitch, const wchar_t* face) {
  LOGFONTW font{};
  font.lfHeight = height;
  font.lfWeight = weight;
  font.lfPitchAndFamily = pitch;
  std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
  return AddStockObject(MakeFont(font));
}

HGDIOBJ MakeStockObject(int index) {
  switch (index) {
    case WHITE_BRUSH: return MakeStockBrush(BS_SOLID, RGB(255, 255, 255));
    case LTGRAY_BRUSH: return MakeStockBrush(BS_SOLID, RGB(192, 192, 192));
    case GRAY_BRUSH: return MakeStockBrush(BS_SOLID, RGB(128, 128, 128));
    case DKGRAY_BRUSH: return MakeStockBrush(BS_SOLID, RGB(64, 64, 64));
    case BLACK_BRUSH: return MakeStockBrush(BS_SOLID, RGB(0, 0, 0));
    case NULL_BRUSH: return MakeStockBrush(BS_NULL, 0);
    case DC_BRUSH: return MakeStockBrush(BS_SOLID, RGB(255, 255, 255), true);
    case WHITE_PEN: return MakeStockPen(PS_SOLID, RGB(255, 255, 255));
    case BLACK_PEN: return MakeStockPen(PS_SOLID, RGB(0, 0, 0));
    case NULL_PEN: return MakeStockPen(PS_NULL, 0);
    case DC_PEN: return MakeStockPen(PS_SOLID, RGB(0, 0, 0), true);
    case OEM_FIXED_FONT:
    case ANSI_FIXED_FONT:
    case SYSTEM_FIXED_FONT: return MakeStockFont(12, FW_NORMAL, FIXED_PITCH | FF_MODERN, L"Courier");
    case ANSI_VAR_FONT: return MakeStockFont(12, FW_NORMAL, VARIABLE_PITCH | FF_SWISS, L"MS Sans Serif");
    case SYSTEM_FONT:
    case DEVICE_DEFAULT_FONT: return MakeStockFont(16, FW_BOLD, VARIABLE_PITCH | FF_SWISS, L"System");
    case DEFAULT_GUI_FONT: return MakeStockFont(-11, FW_NORMAL, VARIABLE_PITCH | FF_SWISS, L"MS Shell Dlg");
    default: return nullptr;
  }
}

}  // namespace

HBRUSH SystemColorBrush(int index) {
  static std::array<HGDIOBJ, kSystemColors> brushes{};
  if (index < 0 || index >= kSystemColors) return nullptr;
  HGDIOBJ& brush = brushes[static_cast<size_t>(index)];
  if (!brush) {
    brush = MakeStockBrush(BS_SOLID, GetSysColor(index));
    if (brush) FindBrush(brush)->systemColor = index;
  }
  return static_cast<HBRUSH>(brush);
}

HBRUSH ResolveBrush(HBRUSH brush) {
  auto value = reinterpret_cast<uintptr_t>(brush);
  return value >= 1 && value <= kSystemColors ? SystemColorBrush(static_cast<int>(value) - 1) : brush;
}

}  // namespace desktop

using namespace desktop;

HGDIOBJ WINAPI GetStockObject(int index) {
  WorldLock lock(WorldMutex());
  static std::array<HGDIOBJ, STOCK_LAST + 1> objects{};
  if (index < 0 || index > STOCK_LAST) return nullptr;
  HGDIOBJ& object = objects[static_cast<size_t>(index)];
  if (!object) object = MakeStockObject(index);
  return object;
}
