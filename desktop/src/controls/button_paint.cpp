// BUTTON: painting, in the classic look.
#include <algorithm>
#include <string>

#include "controls/button.h"

namespace desktop {

namespace {

constexpr int kBox = 13;    // of check and radio marks
constexpr int kBoxGap = 4;  // between the mark and its label
constexpr int kGroupIndent = 8;

}  // namespace

UINT Button::TextFormat() const {
  const DWORD style = Style();
  UINT format = 0;
  switch (style & BS_CENTER) {
    case BS_LEFT: format |= DT_LEFT; break;
    case BS_RIGHT: format |= DT_RIGHT; break;
    case BS_CENTER: format |= DT_CENTER; break;
    default: format |= GetKind() == Kind::push ? DT_CENTER : DT_LEFT; break;
  }
  if (style & BS_MULTILINE) return format | DT_WORDBREAK;
  format |= DT_SINGLELINE;
  switch (style & BS_VCENTER) {
    case BS_TOP: return format | DT_TOP;
    case BS_BOTTOM: return format | DT_BOTTOM;
    default: return format | DT_VCENTER;
  }
}

SIZE Button::LabelSize(HDC dc) const {
  RECT rect{0, 0, ClientRect().right, 0};
  const std::wstring text = WindowText();
  if (!text.empty())
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, TextFormat() | DT_CALCRECT);
  return {rect.right, rect.bottom};
}

// Text or picture; greyed with a light shadow when the button is disabled.
void Button::PaintLabel(HDC dc, RECT rect) {
  const bool enabled = IsWindowEnabled(Window()) != FALSE;
  if ((Style() & (BS_ICON | BS_BITMAP)) && m_image) {
    const UINT type = m_imageType == IMAGE_ICON ? DST_ICON : DST_BITMAP;
    BITMAP info{};
    SIZE size{GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)};
    if (m_imageType == IMAGE_BITMAP && GetObjectW(m_image, sizeof info, &info))
      size = {info.bmWidth, info.bmHeight};
    DrawStateW(dc, nullptr, nullptr, reinterpret_cast<LPARAM>(m_image), 0,
               (rect.left + rect.right - size.cx) / 2, (rect.top + rect.bottom - size.cy) / 2, size.cx,
               size.cy, type | (enabled ? DSS_NORMAL : DSS_DISABLED));
    return;
  }
  const std::wstring text = WindowText();
  if (text.empty()) return;
  const int length = static_cast<int>(text.size());
  SetBkMode(dc, TRANSPARENT);
  if (!enabled) {
    RECT shadow = rect;
    OffsetRect(&shadow, 1, 1);
    SetTextColor(dc, GetSysColor(COLOR_3DHIGHLIGHT));
    DrawTextW(dc, text.c_str(), length, &shadow, TextFormat());
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  }
  DrawTextW(dc, text.c_str(), length, &rect, TextFormat());
}

void Button::PaintPush(HDC dc) {
  RECT rect = ClientRect();
  AskColors(WM_CTLCOLORBTN, dc);
  SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
  if (Type() == BS_DEFPUSHBUTTON) {
    FrameRect(dc, &rect, GetSysColorBrush(COLOR_WINDOWFRAME));
    InflateRect(&rect, -1, -1);
  }
  UINT state = DFCS_BUTTONPUSH;
  const bool pushed = Is(BST_PUSHED);
  if (pushed) state |= Type() == BS_DEFPUSHBUTTON ? DFCS_FLAT : DFCS_PUSHED;
  if (Is(BST_CHECKED | BST_INDETERMINATE)) state |= DFCS_CHECKED;
  if (Style() & BS_FLAT) state |= DFCS_FLAT;
  RECT frame = rect;
  DrawFrameControl(dc, &frame, DFC_BUTTON, state);
  RECT label = rect;
  InflateRect(&label, -2, -2);
  RECT focus = label;
  if (pushed) OffsetRect(&label, 1, 1);
  PaintLabel(dc, label);
  if (!Is(BST_FOCUS)) return;
  InflateRect(&focus, -1, -1);
  SetTextColor(dc, 0);
  DrawFocusRect(dc, &focus);
}

void Button::PaintCheck(HDC dc) {
  RECT client = ClientRect();
  const HBRUSH brush = AskColors(WM_CTLCOLORSTATIC, dc);
  FillRect(dc, &client, brush);
  RECT box = client;
  RECT label = client;
  const bool rightBox = (Style() & BS_RIGHTBUTTON) != 0;
  if (rightBox) {
    box.left = box.right - kBox;
    label.right = box.left - kBoxGap;
  } else {
    box.right = kBox;
    label.left = kBox + kBoxGap;
  }
  switch (Style() & BS_VCENTER) {
    case BS_TOP: break;
    case BS_BOTTOM: box.top = std::max(box.bottom - kBox, client.top); break;
    default: box.top = (client.bottom - kBox) / 2; break;
  }
  box.bottom = box.top + kBox;

  UINT state = GetKind() == Kind::radio ? DFCS_BUTTONRADIO : DFCS_BUTTONCHECK;
  if (Is(BST_INDETERMINATE)) state = DFCS_BUTTON3STATE | DFCS_CHECKED;
  if (Is(BST_CHECKED)) state |= DFCS_CHECKED;
  if (Is(BST_PUSHED)) state |= DFCS_PUSHED;
  if (!IsWindowEnabled(Window())) state |= DFCS_INACTIVE;
  if (Style() & BS_FLAT) state |= DFCS_FLAT;
  DrawFrameControl(dc, &box, DFC_BUTTON, state);
  PaintLabel(dc, label);
  if (!Is(BST_FOCUS)) return;
  const SIZE size = LabelSize(dc);
  const int top = (label.top + label.bottom - size.cy) / 2;
  RECT focus{label.left - 1, top - 1, label.left + size.cx + 1, top + size.cy + 1};
  IntersectRect(&focus, &focus, &client);
  DrawFocusRect(dc, &focus);
}

// An etched frame, broken at the top by the text.
void Button::PaintGroup(HDC dc) {
  RECT client = ClientRect();
  const HBRUSH brush = AskColors(WM_CTLCOLORSTATIC, dc);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  RECT frame = client;
  frame.top += metrics.tmHeight / 2 - 1;
  DrawEdge(dc, &frame, EDGE_ETCHED, BF_RECT | ((Style() & BS_FLAT) ? BF_FLAT : 0));
  const std::wstring text = WindowText();
  if (text.empty()) return;
  const SIZE size = LabelSize(dc);
  RECT label{client.left + kGroupIndent, client.top, client.left + kGroupIndent + size.cx + 2,
             client.top + metrics.tmHeight};
  FillRect(dc, &label, brush);
  ++label.left;
  if (!IsWindowEnabled(Window())) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  SetBkMode(dc, TRANSPARENT);
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &label, DT_LEFT | DT_SINGLELINE);
}

void Button::PaintOwner(HDC dc, UINT action) {
  const HWND parent = GetParent(Window());
  if (!parent) return;
  const UINT id = static_cast<UINT>(GetDlgCtrlID(Window()));
  AskColors(WM_CTLCOLORBTN, dc);
  UINT state = 0;
  if (Is(BST_FOCUS)) state |= ODS_FOCUS;
  if (Is(BST_PUSHED)) state |= ODS_SELECTED;
  if (!IsWindowEnabled(Window())) state |= ODS_DISABLED;
  DRAWITEMSTRUCT item{ODT_BUTTON, id, 0, action, state, Window(), dc, ClientRect(), 0};
  SendMessageW(parent, WM_DRAWITEM, id, reinterpret_cast<LPARAM>(&item));
}

void Button::Paint(HDC dc, UINT action) {
  switch (GetKind()) {
    case Kind::push: return PaintPush(dc);
    case Kind::group: return PaintGroup(dc);
    case Kind::ownerDraw: return PaintOwner(dc, action);
    default: return (Style() & BS_PUSHLIKE) ? PaintPush(dc) : PaintCheck(dc);
  }
}

}  // namespace desktop
