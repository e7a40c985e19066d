// CVornTreeCtrl: fonts of items and of the control, and the measuring of labels.
#include <cstdlib>

#include "../../core/EncodedSequence.h"
#include "../../core/FontHeight.h"
#include "../VornTreeCtrl.h"
#include "TreeCheck.h"
#include "VornTreeItem.h"

namespace {

constexpr int kTextWidthMargin = 2;

// A label as it is shown: each encoded sequence as the backslash that it stands for.
CString ShownText(const CVornTreeItem& item) {
  CString text = item.m_strText;
  vorn::DecodeSequence(text);
  return text;
}

// Selects a font for as long as it lives.
class FontSelection {
 public:
  FontSelection(HDC dc, HFONT font) : m_dc(dc), m_old(font != nullptr ? ::SelectObject(dc, font) : nullptr) {}
  ~FontSelection() {
    if (m_old != nullptr) ::SelectObject(m_dc, m_old);
  }
  FontSelection(const FontSelection&) = delete;
  FontSelection& operator=(const FontSelection&) = delete;

 private:
  HDC m_dc;
  HGDIOBJ m_old;
};

bool MeasureOn(HDC dc, HFONT font, const CString& text, SIZE* size) {
  if (dc == nullptr) return false;
  FontSelection selection(dc, font);
  return ::GetTextExtentPoint32W(dc, text, text.GetLength(), size) != FALSE;
}

// A control without a window measures on this; a screen context for each label would cost dearly.
HDC WindowlessMeasuringDC() {
  static CDC& dc = *new CDC;  // as long as the process lives
  if (dc.GetSafeHdc() == nullptr) dc.CreateCompatibleDC(nullptr);
  return dc.GetSafeHdc();
}

bool Measure(HWND window, HFONT font, const CString& text, SIZE* size) {
  if (window == nullptr) return MeasureOn(WindowlessMeasuringDC(), font, text, size);
  HDC dc = ::GetDC(window);
  const bool done = MeasureOn(dc, font, text, size);
  if (dc != nullptr) ::ReleaseDC(window, dc);
  return done;
}

HFONT HandleOf(const CFont* font) {
  return font != nullptr ? static_cast<HFONT>(font->GetSafeHandle()) : nullptr;
}

}  // namespace

// The font for items that have none of their own.
HFONT CVornTreeCtrl::AskWindowFont() const {
  HFONT font = nullptr;
  // Another thread sends nothing to the window, which may be waiting for it.
  if (m_hWnd != nullptr && OwnsThread()) {
    font = reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0));
  }
  return font != nullptr ? font : HandleOf(&m_Font);
}

// A burst of items is measured in one font: it is asked for and selected once. false: it is not selected.
bool CVornTreeCtrl::SelectHeldFont() {
  if (!OwnsThread()) return false;
  if (m_hHeldFont != nullptr) return true;
  HFONT font = AskWindowFont();
  if (font == nullptr) return false;
  m_hEarlierFont = ::SelectObject(m_pRedrawDC->GetSafeHdc(), font);
  if (m_hEarlierFont != nullptr) m_hHeldFont = font;
  return m_hHeldFont != nullptr;
}

void CVornTreeCtrl::ForgetHeldFont() {
  if (m_hHeldFont == nullptr) return;
  ::SelectObject(m_pRedrawDC->GetSafeHdc(), m_hEarlierFont);
  m_hHeldFont = nullptr;
  m_hEarlierFont = nullptr;
}

int CVornTreeCtrl::GetItemSize(CVornTreeItem* item) {
  if (!IsItemValid(item)) return 0;
  constexpr int kSpacing[] = {2, 10, 15};
  HFONT font = HandleOf(item->m_pFont);
  HDC held = m_pRedrawDC != nullptr ? m_pRedrawDC->GetSafeHdc() : nullptr;
  const bool isSelected = font == nullptr && held != nullptr && SelectHeldFont();
  if (font == nullptr) font = isSelected ? m_hHeldFont : AskWindowFont();

  const CString text = ShownText(*item);
  SIZE size{};
  bool done = false;
  if (isSelected) {
    done = ::GetTextExtentPoint32W(held, text, text.GetLength(), &size) != FALSE;
  } else {
    done = held != nullptr ? MeasureOn(held, font, text, &size) : Measure(m_hWnd, font, text, &size);
  }
  if (!done) Measure(m_hWnd, font, text, &size);
  const bool known = m_nItemSpacing >= SpacingNormal && m_nItemSpacing <= SpacingLarger;
  item->m_nHeight = size.cy + kSpacing[known ? m_nItemSpacing : SpacingNormal];
  item->m_nTextWidth = size.cx + kTextWidthMargin;
  OnItemResized(item);
  return 1;
}

CFont* CVornTreeCtrl::GetItemFont(CVornTreeItem* item) {
  if (!IsItemValid(item)) return nullptr;
  if (item->GetFont() != nullptr) return item->GetFont();
  if (m_hWnd == nullptr) return nullptr;
  return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
}

void CVornTreeCtrl::SetItemFont(CVornTreeItem* item, CFont* font) {
  const vorn::OperationCheck check(this);
  if (IsItemValid(item)) item->SetFont(font);
}

bool CVornTreeCtrl::IsItemBold(CVornTreeItem* item) const {
  return IsItemValid(item) && item->HasState(STIS_BOLD);
}

int CVornTreeCtrl::SetItemBold(CVornTreeItem* item, int bold) {
  const vorn::OperationCheck check(this);
  return UpdateItemFont(item, bold ? STFF_BOLD : STFF_NOTBOLD);
}

int CVornTreeCtrl::UpdateItemFont(CVornTreeItem* item, unsigned int flags) {
  const vorn::OperationCheck check(this);
  CFont* font = GetItemFont(item);
  LOGFONTW logFont;
  if (font == nullptr || ::GetObjectW(font->GetSafeHandle(), sizeof(logFont), &logFont) == 0) return 0;
  const LOGFONTW before = logFont;
  constexpr unsigned int kStyleBits = 0xFF;
  if ((flags & (STFF_BOLD | STFF_NOTBOLD)) == 0 && (flags & kStyleBits) == 0) return 0;

  if (flags & STFF_NOTBOLD) {
    logFont.lfWeight = FW_NORMAL;
    item->ModifyState(STIS_BOLD, STIS_NOTBOLD);
  }
  if (flags & STFF_BOLD) {
    logFont.lfWeight = FW_BOLD;
    // Both bits together give bold text with STIS_NOTBOLD set, meant.
    if ((flags & STFF_NOTBOLD) == 0) item->ModifyState(STIS_NOTBOLD, STIS_BOLD);
  }
  if (flags & STFF_NOTITALIC) logFont.lfItalic = 0;
  if (flags & STFF_ITALIC) logFont.lfItalic = 1;
  if (flags & STFF_NOTUNDERLINED) logFont.lfUnderline = 0;
  if (flags & STFF_UNDERLINE) logFont.lfUnderline = 1;
  if (logFont.lfWeight == before.lfWeight && logFont.lfItalic == before.lfItalic &&
      logFont.lfUnderline == before.lfUnderline) {
    return 1;
  }
  CFont derived;
  if (!derived.CreateFontIndirect(&logFont)) return 0;
  SetItemFont(item, &derived);
  return 1;
}

void CVornTreeCtrl::SetFont(CFont* font, int redraw) {
  if (!::IsWindow(m_hWnd)) return;
  LOGFONTW logFont{};
  if (font != nullptr) {
    if (::GetObjectW(font->GetSafeHandle(), sizeof(logFont), &logFont) == 0) return;
  } else if (!::SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof(logFont), &logFont, 0)) {
    return;
  }
  ForgetHeldFont();
  m_Font.DeleteObject();
  m_Font.CreateFontIndirect(&logFont);
  m_nDefaultHeight = vorn::HeightOfFont(logFont);
  ::SendMessageW(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(m_Font.GetSafeHandle()), redraw);
}
