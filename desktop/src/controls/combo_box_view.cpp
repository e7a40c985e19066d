// COMBOBOX: its parts, dropping the list, painting.
#include <algorithm>

#include "controls/combo_box.h"

namespace desktop {

namespace {

constexpr int kEdge = 2;     // the sunken frame
constexpr int kTextGap = 1;  // between the frame and the text

}  // namespace

int ComboBox::ClosedHeight() const { return m_textHeight + 2 * kEdge; }

void ComboBox::MeasureText() {
  {
    const ControlDC dc(Window(), m_font);
    m_textHeight = LetterSize(dc).cy + 4;
  }
  if (!(Style() & CBS_OWNERDRAWFIXED) || m_list) return;
  // The owner says how high the line with the choice is, before it is asked for the rows.
  const auto id = static_cast<UINT>(GetDlgCtrlID(Window()));
  MEASUREITEMSTRUCT measure{
      ODT_COMBOBOX, id, static_cast<UINT>(-1), 0, static_cast<UINT>(m_textHeight - 6), 0};
  SendMessageW(GetParent(Window()), WM_MEASUREITEM, id, reinterpret_cast<LPARAM>(&measure));
  m_textHeight = static_cast<int>(measure.itemHeight) + 6;
}

RECT ComboBox::ButtonRect() const {
  if (Type() == CBS_SIMPLE) return {};
  const int right = ClientRect().right - kEdge;
  return {right - GetSystemMetrics(SM_CXVSCROLL), kEdge, right, kEdge + m_textHeight};
}

RECT ComboBox::TextRect() const {
  const int button = Type() == CBS_SIMPLE ? 0 : GetSystemMetrics(SM_CXVSCROLL);
  const int gap = kEdge + kTextGap;
  return {gap, gap, ClientRect().right - button - gap, kEdge + m_textHeight - kTextGap};
}

// Only a simple combo box is as high as it was made; the others are one line high.
void ComboBox::MoveParts() {
  RECT window{};
  GetWindowRect(Window(), &window);
  const int width = window.right - window.left;
  const bool simple = Type() == CBS_SIMPLE;
  if (!simple && window.bottom - window.top != ClosedHeight())
    SetWindowPos(Window(), nullptr, 0, 0, width, ClosedHeight(), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  if (m_edit) {
    const RECT text = TextRect();
    MoveWindow(m_edit, text.left, text.top, text.right - text.left, text.bottom - text.top, TRUE);
  }
  if (!simple || !m_list) return;
  const int top = m_textHeight + kEdge + kTextGap;
  const int rowHeight = std::max(static_cast<int>(ToList(LB_GETITEMHEIGHT)), 1);
  const int room = std::max<int>(window.bottom - window.top - top - 2 * kEdge, rowHeight);
  const int height = room / rowHeight * rowHeight + 2 * kEdge;
  MoveWindow(m_list, 0, top, width, height, TRUE);
}

RECT ComboBox::DroppedRect() const {
  RECT rect{};
  GetWindowRect(Window(), &rect);
  rect.right = rect.left + std::max<int>(m_dropWidth, rect.right - rect.left);
  rect.bottom = rect.top + std::max(m_dropHeight, ClosedHeight());
  return rect;
}

// The list hangs below, or above when there is more room; as high as its rows, if that is less than asked
// for.
void ComboBox::DropDown() {
  if (m_dropped || Type() == CBS_SIMPLE) return;
  Notify(CBN_DROPDOWN);
  if (!IsWindow(Window()) || !IsWindow(m_list)) return;
  m_dropped = true;
  RECT frame{};
  GetWindowRect(Window(), &frame);
  const int rowHeight = std::max(static_cast<int>(ToList(LB_GETITEMHEIGHT)), 1);
  const int rows = std::max(static_cast<int>(ToList(LB_GETCOUNT)), 1);
  const int width = std::max<int>(m_dropWidth, frame.right - frame.left);
  const int wanted = rows * rowHeight + 2;
  const int height = std::clamp(wanted, rowHeight + 2, std::max(m_dropHeight, rowHeight + 2));
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const bool above = frame.bottom + height > work.bottom && frame.top - height >= work.top;
  SetWindowPos(m_list, HWND_TOPMOST, frame.left, above ? frame.top - height : frame.bottom, width, height,
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
  const LRESULT current = ToList(LB_GETCURSEL);
  if (current >= 0) ToList(LB_SETTOPINDEX, static_cast<WPARAM>(current));
  if (current >= 0) ToList(LB_SETCARETINDEX, static_cast<WPARAM>(current));
  Invalidate();
}

void ComboBox::CloseUp(Close how) {
  if (!m_dropped) return;
  Notify(how == Close::accept ? CBN_SELENDOK : CBN_SELENDCANCEL);
  if (!IsWindow(Window())) return;
  m_dropped = false;
  if (GetCapture() == m_list) ReleaseCapture();
  ShowWindow(m_list, SW_HIDE);
  Invalidate();
  Notify(CBN_CLOSEUP);
}

// Shows the choice of the list in the line.
void ComboBox::UpdateText() {
  if (HasEdit()) {
    const LRESULT current = ToList(LB_GETCURSEL);
    m_updating = true;
    SetWindowTextW(m_edit, current < 0 ? L"" : TextOf(current).c_str());
    if (m_focused) SendMessageW(m_edit, EM_SETSEL, 0, -1);
    m_updating = false;
  }
  Invalidate();
}

// A key moves the choice. With the list closed that is a choice at once.
bool ComboBox::OnKey(WPARAM key) {
  switch (key) {
    case VK_F4: SendMessageW(Window(), CB_SHOWDROPDOWN, !m_dropped, 0); return true;
    case VK_RETURN:
    case VK_ESCAPE:
      if (!m_dropped) return false;
      CloseUp(key == VK_RETURN ? Close::accept : Close::cancel);
      return true;
    case VK_UP:
    case VK_DOWN:
    case VK_PRIOR:
    case VK_NEXT: break;
    case VK_HOME:
    case VK_END:
    case VK_LEFT:
    case VK_RIGHT:
      if (HasEdit()) return false;
      break;
    default: return false;
  }
  m_movingByKey = true;
  SendMessageW(m_list, WM_KEYDOWN, key, 0);
  m_movingByKey = false;
  return true;
}

// The list has another choice, by a key or by a click.
void ComboBox::OnListChoice() {
  if (m_movingByKey) {
    if (!m_dropped && Type() != CBS_SIMPLE) Notify(CBN_SELENDOK);
    UpdateText();
    Notify(CBN_SELCHANGE);
    return;
  }
  UpdateText();
  if (m_dropped) CloseUp(Close::accept);
  if (IsWindow(Window())) Notify(CBN_SELCHANGE);
}

void ComboBox::OnFocus(bool gained) {
  if (m_focused == gained) return;
  m_focused = gained;
  if (!gained) CloseUp(Close::cancel);
  if (HasEdit() && gained) SendMessageW(m_edit, EM_SETSEL, 0, -1);
  Invalidate();
  Notify(gained ? CBN_SETFOCUS : CBN_KILLFOCUS);
}

void ComboBox::PaintChoice(HDC dc) {
  RECT rect = TextRect();
  const LRESULT current = ToList(LB_GETCURSEL);
  const bool highlighted = m_focused && !m_dropped;
  const bool enabled = IsWindowEnabled(Window()) != FALSE;
  if (IsOwnerDrawn()) {
    const auto id = static_cast<UINT>(GetDlgCtrlID(Window()));
    UINT state = ODS_COMBOBOXEDIT | (highlighted ? ODS_SELECTED | ODS_FOCUS : 0u);
    if (!enabled) state |= ODS_DISABLED;
    const LRESULT data = current < 0 ? 0 : ToList(LB_GETITEMDATA, static_cast<WPARAM>(current));
    DRAWITEMSTRUCT draw{ODT_COMBOBOX, id,   static_cast<UINT>(current),  ODA_DRAWENTIRE, state, Window(),
                        dc,           rect, static_cast<ULONG_PTR>(data)};
    SendMessageW(GetParent(Window()), WM_DRAWITEM, id, reinterpret_cast<LPARAM>(&draw));
    return;
  }
  if (highlighted) {
    FillRect(dc, &rect, GetSysColorBrush(COLOR_HIGHLIGHT));
    SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
  }
  if (!enabled) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  const std::wstring text = TextOf(current);
  ExtTextOutW(dc, rect.left + 1, rect.top + 1, ETO_CLIPPED, &rect, text.c_str(),
              static_cast<UINT>(text.size()), nullptr);
  if (highlighted) DrawFocusRect(dc, &rect);
}

void ComboBox::Paint(HDC dc) {
  RECT frame = ClientRect();
  if (Type() == CBS_SIMPLE) frame.bottom = ClosedHeight();
  const bool enabled = IsWindowEnabled(Window()) != FALSE;
  const HBRUSH brush = AskColors(enabled ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC, dc);
  FillRect(dc, &frame, brush);
  DrawEdge(dc, &frame, EDGE_SUNKEN, BF_RECT);
  RECT button = ButtonRect();
  if (!IsRectEmpty(&button)) {
    UINT state = DFCS_SCROLLCOMBOBOX;
    if (!enabled) state |= DFCS_INACTIVE;
    DrawFrameControl(dc, &button, DFC_SCROLL, state);
  }
  if (!HasEdit()) PaintChoice(dc);
}

}  // namespace desktop
