// CStatusBar: panes on the system's status bar control.
#include "afxext.h"
#include "wnd_access.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
  ON_WM_PAINT()
  ON_WM_SIZE()
  ON_MESSAGE(WM_SETTEXT, &CStatusBar::OnSetText)
END_MESSAGE_MAP()

CStatusBar::CStatusBar() { SetBorders(0, 0, 0, 0); }
CStatusBar::~CStatusBar() = default;

// ---- Creation ------------------------------------------------------------------------------------

BOOL CStatusBar::Create(CWnd* pParentWnd, DWORD dwStyle, UINT nID) {
  return CreateEx(pParentWnd, 0, dwStyle, nID);
}

BOOL CStatusBar::CreateEx(CWnd* pParentWnd, DWORD dwCtrlStyle, DWORD dwStyle, UINT nID) {
  INITCOMMONCONTROLSEX wanted = {};
  wanted.dwSize = sizeof(wanted);
  wanted.dwICC = ICC_BAR_CLASSES;
  if (!::InitCommonControlsEx(&wanted)) return FALSE;

  m_dwStyle = dwStyle & CBRS_ALL;
  // The frame places the bar, not the control itself.
  const DWORD style = (dwStyle & ~static_cast<DWORD>(CBRS_ALL)) | dwCtrlStyle | CCS_NOPARENTALIGN |
                      CCS_NOMOVEY | CCS_NORESIZE;
  return CWnd::CreateEx(0, STATUSCLASSNAMEW, nullptr, style, CRect(), pParentWnd, nID);
}

BOOL CStatusBar::PreCreateWindow(CREATESTRUCTW& cs) {
  if ((m_dwStyle & (CBRS_ALIGN_ANY | CBRS_BORDER_ANY)) == CBRS_BOTTOM)
    m_dwStyle &= ~static_cast<DWORD>(CBRS_BORDER_ANY);
  return CControlBar::PreCreateWindow(cs);
}

void CStatusBar::OnPaint() { Default(); }

void CStatusBar::OnSize(UINT nType, int cx, int cy) {
  CWnd::OnSize(nType, cx, cy);
  PlacePanes();
}

// ---- Panes ---------------------------------------------------------------------------------------

namespace {

constexpr int gap = 8;  // between the text of a pane and its frame, both sides together

int WidthOf(CWnd& bar, const CString& text) {
  const HDC screen = ::GetDC(nullptr);
  if (screen == nullptr) return 0;
  const auto font = reinterpret_cast<HFONT>(bar.SendMessage(WM_GETFONT));
  const HGDIOBJ earlier = font == nullptr ? nullptr : ::SelectObject(screen, font);
  CSize size;
  ::GetTextExtentPoint32W(screen, text, text.GetLength(), &size);
  if (earlier != nullptr) ::SelectObject(screen, earlier);
  ::ReleaseDC(nullptr, screen);
  return size.cx;
}

}  // namespace

BOOL CStatusBar::SetIndicators(const UINT* lpIDArray, int nIDCount) {
  if (m_hWnd == nullptr || nIDCount < 1) return FALSE;
  std::vector<Pane> panes(static_cast<size_t>(nIDCount));
  for (size_t i = 0; i < panes.size(); ++i) {
    Pane& pane = panes[i];
    pane.id = lpIDArray == nullptr ? 0 : lpIDArray[i];
    pane.style = i == 0 ? SBPS_NOBORDERS : SBPS_NORMAL;
    if (pane.id != ID_SEPARATOR) {
      if (!pane.text.LoadString(pane.id)) return FALSE;
      pane.width = WidthOf(*this, pane.text) + gap;
    } else {
      pane.width = ::GetSystemMetrics(SM_CXSCREEN) / 4;
      if (i == 0) pane.style |= SBPS_STRETCH;
    }
  }
  m_panes.swap(panes);
  m_nCount = nIDCount;
  PlacePanes();
  for (int i = 0; i < nIDCount; ++i) ShowPane(i);
  return TRUE;
}

// Tells the control the right edges of the panes.
void CStatusBar::PlacePanes() {
  if (m_panes.empty() || m_hWnd == nullptr) return;
  CRect client;
  GetClientRect(&client);
  int fixed = 0;
  for (const Pane& pane : m_panes) {
    if ((pane.style & SBPS_STRETCH) == 0) fixed += pane.width;
  }
  std::vector<int> edges;
  int right = 0;
  for (const Pane& pane : m_panes) {
    right += (pane.style & SBPS_STRETCH) != 0 ? std::max(0, client.Width() - fixed) : pane.width;
    edges.push_back(right);
  }
  SendMessage(SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void CStatusBar::ShowPane(int index) {
  const Pane& pane = m_panes[static_cast<size_t>(index)];
  const LPCWSTR text = (pane.style & SBPS_DISABLED) != 0 ? L"" : pane.text.GetString();
  const UINT frame = pane.style & (SBPS_NOBORDERS | SBPS_POPOUT);
  SendMessage(SB_SETTEXTW, static_cast<WPARAM>(index) | frame, reinterpret_cast<LPARAM>(text));
}

bool CStatusBar::IsPane(int index) const { return index >= 0 && index < static_cast<int>(m_panes.size()); }

int CStatusBar::CommandToIndex(UINT nIDFind) const {
  for (size_t i = 0; i < m_panes.size(); ++i) {
    if (m_panes[i].id == nIDFind) return static_cast<int>(i);
  }
  return -1;
}

UINT CStatusBar::GetItemID(int nIndex) const {
  return IsPane(nIndex) ? m_panes[static_cast<size_t>(nIndex)].id : 0;
}

void CStatusBar::GetItemRect(int nIndex, LPRECT lpRect) const {
  *lpRect = CRect();
  if (IsPane(nIndex))
    ::SendMessageW(m_hWnd, SB_GETRECT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpRect));
}

void CStatusBar::GetPaneText(int nIndex, CString& rString) const { rString = GetPaneText(nIndex); }

CString CStatusBar::GetPaneText(int nIndex) const {
  return IsPane(nIndex) ? m_panes[static_cast<size_t>(nIndex)].text : CString();
}

BOOL CStatusBar::SetPaneText(int nIndex, LPCWSTR lpszNewText, BOOL bUpdate) {
  if (!IsPane(nIndex)) return FALSE;
  CString& text = m_panes[static_cast<size_t>(nIndex)].text;
  if (text == CString(lpszNewText)) return TRUE;
  text = lpszNewText;
  if (bUpdate) ShowPane(nIndex);
  return TRUE;
}

void CStatusBar::GetPaneInfo(int nIndex, UINT& nID, UINT& nStyle, int& cxWidth) const {
  if (!IsPane(nIndex)) return;
  const Pane& pane = m_panes[static_cast<size_t>(nIndex)];
  nID = pane.id;
  nStyle = pane.style;
  cxWidth = pane.width;
}

void CStatusBar::SetPaneInfo(int nIndex, UINT nID, UINT nStyle, int cxWidth) {
  if (!IsPane(nIndex)) return;
  Pane& pane = m_panes[static_cast<size_t>(nIndex)];
  pane.id = nID;
  pane.style = nStyle;
  pane.width = cxWidth;
  PlacePanes();
  ShowPane(nIndex);
}

// The frame's message goes into the first pane.
LRESULT CStatusBar::OnSetText(WPARAM, LPARAM lParam) {
  if (m_panes.empty()) return Default();
  return SetPaneText(0, reinterpret_cast<LPCWSTR>(lParam)) != FALSE;
}

// ---- Layout and update ---------------------------------------------------------------------------

CSize CStatusBar::CalcFixedLayout(BOOL, BOOL) {
  const HDC screen = ::GetDC(nullptr);
  if (screen == nullptr) return CSize();
  const auto font = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
  const HGDIOBJ earlier = font == nullptr ? nullptr : ::SelectObject(screen, font);
  TEXTMETRICW metrics = {};
  ::GetTextMetricsW(screen, &metrics);
  if (earlier != nullptr) ::SelectObject(screen, earlier);
  ::ReleaseDC(nullptr, screen);

  constexpr int asLongAsAnyFrame = 32767;
  constexpr int bordersOfControl = 6;
  return CSize(asLongAsAnyFrame, metrics.tmHeight - metrics.tmInternalLeading + bordersOfControl +
                                     ::GetSystemMetrics(SM_CYBORDER) * 2);
}

namespace {

// A pane's state: a disabled pane shows no text.
class PaneState : public CCmdUI {
 public:
  PaneState(CStatusBar& bar, int index) : m_bar(bar) {
    m_nIndex = static_cast<UINT>(index);
    m_pOther = &bar;
    int width = 0;
    bar.GetPaneInfo(index, m_nID, m_style, width);
  }

  void Enable(BOOL bOn) override {
    m_bEnableChanged = TRUE;
    Change(SBPS_DISABLED, !bOn);
  }
  void SetCheck(int nCheck) override { Change(SBPS_POPOUT, nCheck != 1); }
  void SetRadio(BOOL bOn) override { SetCheck(bOn ? 1 : 0); }
  void SetText(LPCWSTR lpszText) override { m_bar.SetPaneText(static_cast<int>(m_nIndex), lpszText); }

 private:
  void Change(UINT bit, bool on) {
    const auto index = static_cast<int>(m_nIndex);
    UINT id = 0;
    UINT style = 0;
    int width = 0;
    m_bar.GetPaneInfo(index, id, style, width);
    const UINT wanted = on ? style | bit : style & ~bit;
    if (wanted != style) m_bar.SetPaneInfo(index, id, wanted, width);
  }

  CStatusBar& m_bar;
  UINT m_style = 0;
};

}  // namespace

void CStatusBar::OnUpdateCmdUI(CFrameWnd* pTarget, BOOL) {
  for (int index = 0; index < m_nCount; ++index) {
    PaneState state(*this, index);
    if (state.m_nID == ID_SEPARATOR) continue;
    // Panes without a handler stay as they are.
    if (OnCmdMsg(state.m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr)) continue;
    state.DoUpdate(pTarget, FALSE);
  }
  UpdateDialogControls(pTarget, FALSE);
}
