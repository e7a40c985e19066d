// The parts of a row: button, check box, images, label.
#include "../core/EncodedSequence.h"
#include "../core/VornSetRessource.h"
#include "../resources/VornResource.h"
#include "../tree/VornTreeCtrl.h"
#include "../tree/layout/RowGeometry.h"
#include "../tree/model/VornTreeItem.h"
#include "VornTreeDC.h"

namespace {

constexpr COLORREF kHotText = RGB(0, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

// The middle of a rectangle, by the rule that the dotted lines follow.
CPoint MiddleOf(const CRect& rect) {
  return CPoint(rect.left + vorn::kCellMiddle, rect.top - 1 + rect.Height() / 2);
}

// A text that would vanish on its background turns white on dark and black on light.
COLORREF Readable(COLORREF text, COLORREF back) {
  if (text != back) return text;
  constexpr int kFullSum = 3 * 255;
  const int sum = GetRValue(text) + GetGValue(text) + GetBValue(text);
  return sum < kFullSum - sum ? kWhite : kBlack;
}

}  // namespace

// --- Button ----------------------------------------------------------------------------------------

void CVornTreeDC::DrawItemButton(CRect* pRect, unsigned int kind, unsigned long style) {
  if (pRect == nullptr) return;
  CRect box(-4, -4, 5, 5);
  CImageList* const images = m_pTree != nullptr ? m_pTree->GetImageList(STIL_BUTTON) : nullptr;
  CSize size;
  const bool fromList =
      images != nullptr && (style & STS_IMAGEBUTTONS) && m_pTree->GetImageSize(STIL_BUTTON, &size);
  if (fromList) {
    constexpr int kLargestHalf = 16;
    const int cx = size.cx / 2 < kLargestHalf ? size.cx / 2 : kLargestHalf;
    const int cy = size.cy / 2 < kLargestHalf ? size.cy / 2 : kLargestHalf;
    box.SetRect(-cx, -cy, cx + 1, cy + 1);
  }
  box.OffsetRect(MiddleOf(*pRect));
  // Wipes the lines under the button.
  FillSolidRect(box, m_pTree != nullptr ? static_cast<COLORREF>(m_pTree->GetBkColor()) : m_clrBack);
  if (fromList) {
    ::ImageList_Draw(images->GetSafeHandle(), kind == 1 ? 0 : 1, GetSafeHdc(), box.left, box.top,
                     ILD_TRANSPARENT);
  } else {
    DrawOwnButton(box, kind);
  }
}

// A framed box with a plus (kind 1) or a minus.
void CVornTreeDC::DrawOwnButton(CRect box, unsigned int kind) {
  const CPoint middle(box.left + box.Width() / 2, box.top + box.Height() / 2);
  FillSolidRect(box, m_clrButtonFill);
  CBrush frame;
  if (frame.CreateSolidBrush(m_clrLine)) FrameRect(box, &frame);
  box.DeflateRect(2, 2);
  CPen pen;
  if (!pen.CreatePen(PS_SOLID, 1, m_clrLine)) return;
  CPen* const earlier = SelectObject(&pen);
  if (kind == 1) {
    MoveTo(middle.x, box.top);
    LineTo(middle.x, box.bottom);
  }
  MoveTo(box.left, middle.y);
  LineTo(box.right, middle.y);
  SelectObject(earlier);
}

// --- Images ----------------------------------------------------------------------------------------

int CVornTreeDC::CheckBoxWidth(const CVornTreeItem* pItem, unsigned int style) const {
  if (m_pTree == nullptr || m_pTree->GetImageList(STIL_CHECKBOX) == nullptr) return 0;
  const bool hasOne = pItem->HasExtFlag(STIX_CHECKBOX) || (style & STS_CHECKBOXES) != 0;
  return hasOne ? vorn::kCellWidth : 0;
}

int CVornTreeDC::StateImageWidth(const CVornTreeItem* pItem) const {
  CSize size;
  if (m_pTree == nullptr || pItem->m_nStateImage == -1 || m_pTree->GetImageList(STIL_STATE) == nullptr)
    return 0;
  return m_pTree->GetImageSize(STIL_STATE, &size) ? size.cx : 0;
}

int CVornTreeDC::ImageWidth(const CVornTreeItem* pItem) const {
  CSize size;
  if (m_pTree == nullptr || m_pTree->GetImageList(STIL_NORMAL) == nullptr) return 0;
  if ((pItem->IsSelected() ? pItem->m_nSelectedImage : pItem->m_nImage) == -1) return 0;
  return m_pTree->GetImageSize(STIL_NORMAL, &size) ? size.cx : 0;
}

int CVornTreeDC::DrawCheckBox(CRect* pRect, CVornTreeItem* pItem, unsigned long style) {
  if (pRect == nullptr || !IsItemValid(pItem)) return 0;
  const int width = CheckBoxWidth(pItem, static_cast<unsigned int>(style));
  if (width == 0) return 0;
  const int y = pRect->top + (pRect->Height() - vorn::kCellWidth) / 2;
  ::ImageList_Draw(m_pTree->GetImageList(STIL_CHECKBOX)->GetSafeHandle(), pItem->IsChecked() ? 1 : 0,
                   GetSafeHdc(), pRect->left, y, ILD_TRANSPARENT);
  pRect->OffsetRect(width, 0);
  return 1;
}

int CVornTreeDC::DrawImageState(CRect* pRect, CVornTreeItem* pItem) {
  if (pRect == nullptr || !IsItemValid(pItem)) return 0;
  const int width = StateImageWidth(pItem);
  if (width == 0) return 0;
  CSize size;
  m_pTree->GetImageSize(STIL_STATE, &size);
  const int y = pRect->top + (pRect->Height() - size.cy) / 2;
  ::ImageList_Draw(m_pTree->GetImageList(STIL_STATE)->GetSafeHandle(), pItem->m_nStateImage, GetSafeHdc(),
                   pRect->left, y, ILD_TRANSPARENT);
  pRect->OffsetRect(width, 0);
  return 1;
}

int CVornTreeDC::DrawImage(CRect* pRect, CVornTreeItem* pItem, unsigned long style) {
  if (pRect == nullptr || !IsItemValid(pItem) || ImageWidth(pItem) == 0) return 0;
  const HIMAGELIST images = m_pTree->GetImageList(STIL_NORMAL)->GetSafeHandle();
  CSize size;
  m_pTree->GetImageSize(STIL_NORMAL, &size);
  const bool expanded = (style & STS_EXPANDEDIMAGE) && pItem->IsExpanded();
  const int index = pItem->IsSelected() || expanded ? pItem->m_nSelectedImage : pItem->m_nImage;
  const int x = pRect->left, y = pRect->top + (pRect->Height() - size.cy) / 2;
  if (HICON icon = ::ImageList_GetIcon(images, index, 0)) {
    ::DrawIconEx(GetSafeHdc(), x, y, icon, size.cx, size.cy, 0, nullptr, DI_NORMAL);
    ::DestroyIcon(icon);
  } else {
    ::ImageList_Draw(images, index, GetSafeHdc(), x, y, ILD_TRANSPARENT);
  }
  // A shortcut whose target has died turns into an ordinary item here.
  constexpr int kMarkSize = 7;
  if (pItem->GetShortcutTarget() != nullptr) DrawShortcutMark(x, y + size.cy - kMarkSize);
  pRect->OffsetRect(size.cx, 0);
  return 1;
}

void CVornTreeDC::DrawShortcutMark(int x, int y) {
  constexpr int kWidth = 7, kGrow = 1;
  constexpr COLORREF kMask = RGB(0, 255, 0);
  const CVornSetRessource resources;
  CImageList marks;
  if (!marks.Create(IDB_VORN_SHORTCUT, kWidth, kGrow, kMask)) return;
  ::ImageList_Draw(marks.GetSafeHandle(), 0, GetSafeHdc(), x, y, ILD_TRANSPARENT);
}

// --- Label -----------------------------------------------------------------------------------------

bool CVornTreeDC::IsHot(const CVornTreeItem* pItem, unsigned int style) const {
  return !IsForDrag() && (style & STS_HOTTRACK) && pItem->HasState(STIS_HOT);
}

CVornTreeDC::LabelColors CVornTreeDC::ColorsOf(CVornTreeItem* pItem, unsigned int style, bool hot) const {
  const LabelColors own{pItem->GetBkColor(), pItem->GetTextColor()};
  if (style & WS_DISABLED) return {own.back, ::GetSysColor(COLOR_GRAYTEXT)};
  const bool marked = pItem->IsSelected() || pItem->IsDropHilited();
  if (marked && m_nPaintMode != VornTreePaintDragItem && m_pTree != nullptr) {
    const bool hasFocus = ::GetFocus() == m_pTree->GetSafeHwnd();
    if (!hasFocus && !(style & STS_SHOWSELALWAYS)) return own;
    return {static_cast<COLORREF>(m_pTree->GetHighlightColor()),
            static_cast<COLORREF>(m_pTree->GetTextHighlightColor())};
  }
  return hot ? LabelColors{own.back, kHotText} : own;
}

int CVornTreeDC::DrawItemText(CRect* pRect, CVornTreeItem* pItem, unsigned long style) {
  if (pRect == nullptr || !IsItemValid(pItem)) return 1;
  CString label = pItem->m_strText;  // before anything is selected: it needs memory
  vorn::DecodeSequence(label);
  const unsigned int bits = static_cast<unsigned int>(style);
  const bool hot = IsHot(pItem, bits);
  CFont* font = m_pTree != nullptr ? m_pTree->GetItemFont(pItem) : pItem->GetFont();
  CFont underlined;
  LOGFONTW logFont;
  if (hot && font != nullptr && font->GetLogFont(&logFont)) {
    logFont.lfUnderline = TRUE;
    if (underlined.CreateFontIndirect(&logFont)) font = &underlined;
  }
  const LabelColors colors = ColorsOf(pItem, bits, hot);
  CFont* const earlier = font != nullptr ? SelectObject(font) : nullptr;

  pRect->right = pRect->left + pItem->m_nTextWidth + vorn::kLabelMargins;
  FillSolidRect(*pRect, colors.back);
  if (pRect->Width() > vorn::kLabelIndent) {
    CRect text = *pRect;
    text.left += vorn::kLabelIndent;
    SetBkColor(colors.back);
    SetTextColor(Readable(colors.text, colors.back));
    DrawText(label, text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_WORD_ELLIPSIS);
  }
  if (earlier != nullptr) SelectObject(earlier);
  return 1;
}
