#include "VornTreeOptions.h"

#include <cstdio>

#include "../core/CurrentOptions.h"
#include "../core/EncodedSequence.h"
#include "../core/FontHeight.h"
#include "../core/VornFunctions.h"
#include "../tree/VornTreeCtrl.h"
#include "../tree/model/VornTreeItem.h"

namespace {

constexpr wchar_t kSection[] = L"VornTreeOptions";
constexpr int kDefaultIndent = 20;
constexpr int kDefaultLabelEditDuration = 1500;
constexpr int kTextMargin = 2;
// The shortest text that can hold a colour is longer than this.
constexpr int kShortestColorText = 4;

constexpr wchar_t kColorFormat[] = L"%d_%d_%d";

// A channel that the text does not give is 0.
COLORREF ParseColor(const wchar_t* text) {
  int red = 0, green = 0, blue = 0;
  std::swscanf(text, kColorFormat, &red, &green, &blue);
  return RGB(red, green, blue);
}

COLORREF ReadColor(CWinApp& app, const wchar_t* key, COLORREF defaultColor) {
  CString defaultText;
  defaultText.Format(kColorFormat, GetRValue(defaultColor), GetGValue(defaultColor), GetBValue(defaultColor));
  CString text = app.GetProfileString(kSection, key, defaultText);
  if (text.GetLength() < kShortestColorText) text = defaultText;
  return ParseColor(text);
}

// The pointer with nothing known about it, so that a test for null stays one.
template <class T>
T* Unknown(T* pointer) {
  asm("" : "+r"(pointer));
  return pointer;
}

}  // namespace

CVornTreeOptions::CVornTreeOptions(CVornTreeCtrl* pTree) : m_pTree(pTree) { LoadConfiguration(); }

CVornTreeOptions::~CVornTreeOptions() {
  if (AfxGetVornTreeOptions() == this) vorn::SetCurrentOptions(nullptr);
}

void CVornTreeOptions::LoadConfiguration() {
  m_nIndent = kDefaultIndent;
  m_clrBk = ::GetSysColor(COLOR_WINDOW);
  m_clrText = ::GetSysColor(COLOR_WINDOWTEXT);
  m_clrGrayText = ::GetSysColor(COLOR_HIGHLIGHT);
  m_clrTextHighlight = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
  m_clrHighlight = ::GetSysColor(COLOR_HIGHLIGHT);
  SetDragMargin(::GetSystemMetrics(SM_CXDRAG), ::GetSystemMetrics(SM_CYDRAG));
  m_nLabelEditDuration = kDefaultLabelEditDuration;
  CWinApp* const app = AfxGetApp();
  if (!app) return;
  try {
    LoadProfile(*app);
  } catch (CException* exception) {
    exception->Delete();  // memory ran short: what was not read keeps its default
  }
}

void CVornTreeOptions::LoadProfile(CWinApp& app) {
  m_nIndent = app.GetProfileInt(kSection, L"Indent", kDefaultIndent);
  m_clrBk = ReadColor(app, L"BKColor", ::GetSysColor(COLOR_WINDOW));
  m_clrText = ReadColor(app, L"TextColor", ::GetSysColor(COLOR_WINDOWTEXT));
  const UINT cx = app.GetProfileInt(kSection, L"DragCX", ::GetSystemMetrics(SM_CXDRAG));
  const UINT cy = app.GetProfileInt(kSection, L"DragCY", ::GetSystemMetrics(SM_CYDRAG));
  SetDragMargin(static_cast<int>(cx), static_cast<int>(cy));
  m_nLabelEditDuration =
      static_cast<int>(app.GetProfileInt(kSection, L"EditLabelTime", kDefaultLabelEditDuration));
}

void CVornTreeOptions::SetDragMargin(int cx, int cy) {
  // Through unsigned numbers: the profile may hold a value that has no negative.
  m_rcDrag = CRect(static_cast<int>(0u - static_cast<UINT>(cx)), static_cast<int>(0u - static_cast<UINT>(cy)),
                   cx, cy);
}

void CVornTreeOptions::SetColor(COLORREF& field, unsigned long color) {
  field = static_cast<COLORREF>(color);
  Refresh();
}

void CVornTreeOptions::Refresh() {
  // Without a window the call would repaint the whole desktop.
  if (m_pTree && m_pTree->GetSafeHwnd()) ::InvalidateRect(m_pTree->GetSafeHwnd(), nullptr, TRUE);
}

void CVornTreeOptions::SetFont(CFont* pFont, int bRedraw) {
  LOGFONTW font{};
  if (!pFont || !pFont->GetSafeHandle() || !pFont->GetLogFont(&font)) return;
  const HFONT copy = ::CreateFontIndirectW(&font);
  if (!copy) return;
  const HGDIOBJ earlier = m_Font.Detach();
  if (!m_Font.Attach(copy)) {
    ::DeleteObject(copy);
    m_Font.Attach(earlier);
    return;
  }
  if (earlier) ::DeleteObject(earlier);
  m_nDefaultHeight = vorn::HeightOfFont(font);
  if (bRedraw) Refresh();
}

int CVornTreeOptions::GetImageSize(VornTreeImageList list, CSize* pSize) {
  return m_pTree ? m_pTree->GetImageSize(list, pSize) : 0;
}

int CVornTreeOptions::GetItemSize(CVornTreeItem* pItem) {
  const HWND window = m_pTree ? m_pTree->GetSafeHwnd() : nullptr;
  if (!window || !IsItemValid(pItem)) return 0;
  CFont* const itemFont = m_pTree->GetItemFont(pItem);
  const HGDIOBJ font = itemFont ? itemFont->GetSafeHandle() : m_Font.GetSafeHandle();
  CString text = pItem->m_strText;
  vorn::DecodeSequence(text);

  const HDC dc = ::GetDC(window);
  if (!dc) return 0;
  const HGDIOBJ earlier = font ? ::SelectObject(dc, font) : nullptr;
  SIZE extent{};
  const BOOL measured = ::GetTextExtentPoint32W(dc, text, text.GetLength(), &extent);
  if (earlier) ::SelectObject(dc, earlier);
  ::ReleaseDC(window, dc);
  if (!measured) return 0;

  pItem->m_nHeight = extent.cy + kTextMargin;
  pItem->m_nTextWidth = extent.cx + kTextMargin;
  m_pTree->OnItemResized(pItem);
  return 1;
}

CVornTreeReportWnd* CVornTreeOptions::GetTreeReportWnd() {
  // Meant: hosts ask the current options, of which there may be none.
  const CVornTreeOptions* const self = Unknown(this);
  return self ? self->m_pReportWnd : nullptr;
}
