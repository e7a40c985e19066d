// CVornTreeCtrl: colours of the control, with the system's behind them.
#include <mutex>

#include "../VornTreeCtrl.h"

namespace {

std::once_flag g_filled;
COLORREF g_defaults[4];

constexpr int kSystemColors[] = {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT};

void FillDefaults() {
  for (int i = 0; i < 4; ++i) g_defaults[i] = ::GetSysColor(kSystemColors[i]);
}

}  // namespace

COLORREF CVornTreeCtrl::DefaultColor(DefaultColorEntry entry) {
  std::call_once(g_filled, FillDefaults);
  return g_defaults[entry];
}

void CVornTreeCtrl::RefillDefaultColors() {
  std::call_once(g_filled, FillDefaults);
  FillDefaults();
}

unsigned long CVornTreeCtrl::ColorOr(COLORREF field, DefaultColorEntry entry) {
  return field < ST_CLR_NONE ? field : DefaultColor(entry);
}

unsigned long CVornTreeCtrl::GetBkColor() { return ColorOr(m_clrBk, kDefaultBk); }
unsigned long CVornTreeCtrl::GetTextColor() { return ColorOr(m_clrText, kDefaultText); }
unsigned long CVornTreeCtrl::GetGrayTextColor() { return ColorOr(m_clrGrayText, kDefaultHighlight); }
unsigned long CVornTreeCtrl::GetTextHighlightColor() {
  return ColorOr(m_clrTextHighlight, kDefaultTextHighlight);
}
unsigned long CVornTreeCtrl::GetHighlightColor() { return ColorOr(m_clrHighlight, kDefaultHighlight); }
unsigned long CVornTreeCtrl::GetShowAlwaysColor() { return ColorOr(m_clrShowAlways, kDefaultHighlight); }

void CVornTreeCtrl::SetColor(COLORREF& field, unsigned long color) {
  field = static_cast<COLORREF>(color);
  InvalidateAll();
}

void CVornTreeCtrl::SetBkColor(unsigned long color) { SetColor(m_clrBk, color); }
void CVornTreeCtrl::SetTextColor(unsigned long color) { SetColor(m_clrText, color); }
void CVornTreeCtrl::SetGrayTextColor(unsigned long color) { SetColor(m_clrGrayText, color); }
void CVornTreeCtrl::SetTextHighLightColor(unsigned long color) { SetColor(m_clrTextHighlight, color); }
void CVornTreeCtrl::SetHighLightColor(unsigned long color) { SetColor(m_clrHighlight, color); }
void CVornTreeCtrl::SetShowAlwaysColor(unsigned long color) { SetColor(m_clrShowAlways, color); }
