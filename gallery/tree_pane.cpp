#include "tree_pane.h"

#include <algorithm>
#include <chrono>

#include "folder.h"
#include "french.h"
#include "resource.h"

namespace {

constexpr UINT kTreeId = 1;
constexpr UINT kLogId = 2;
constexpr int kGap = 12;      // between the cards
constexpr int kLogHead = 40;  // above the lines
constexpr int kButtonWidth = 62;
constexpr int kButtonHeight = 22;
constexpr int kLeastPercent = 25;

CString ContentText(const CGalleryTree::FolderCount& count) {
  CString text;
  if (count.folders > 0) text = french::Count(count.folders, L"dossier", L"dossiers");
  if (count.folders > 0 && count.files > 0) text += L" et ";
  if (count.files > 0) text += french::Count(count.files, L"fichier", L"fichiers");
  return text.IsEmpty() ? CString(L"dossier vide") : text;
}

}  // namespace

BEGIN_MESSAGE_MAP(CTreePane, CWnd)
  ON_WM_PAINT()
  ON_WM_ERASEBKGND()
  ON_WM_SIZE()
  ON_WM_SETFOCUS()
  ON_WM_SETCURSOR()
  ON_WM_LBUTTONDOWN()
  ON_WM_MOUSEMOVE()
  ON_WM_LBUTTONUP()
  ON_COMMAND(ID_TREE_OPEN, &CTreePane::OnOpen)
  ON_COMMAND(ID_TREE_REFRESH, &CTreePane::OnRefresh)
  ON_COMMAND(ID_TREE_RENAME, &CTreePane::OnRename)
  ON_COMMAND(ID_TREE_DELETE, &CTreePane::OnDelete)
  ON_COMMAND(ID_TREE_TOGGLE, &CTreePane::OnToggle)
  ON_COMMAND(ID_TREE_EXPAND_ALL, &CTreePane::OnExpandAll)
  ON_COMMAND(ID_TREE_COLLAPSE_ALL, &CTreePane::OnCollapseAll)
  ON_COMMAND(ID_TREE_CHECK, &CTreePane::OnCheck)
  ON_COMMAND(ID_TREE_FAVOURITE, &CTreePane::OnFavourite)
  ON_COMMAND(ID_TREE_SORT, &CTreePane::OnSort)
  ON_COMMAND(ID_TREE_HIDE, &CTreePane::OnHide)
  ON_COMMAND(ID_TREE_SHOW_HIDDEN, &CTreePane::OnShowHidden)
  ON_COMMAND(ID_TREE_FILL, &CTreePane::OnFill)
  ON_COMMAND(ID_TREE_CANCEL_FILL, &CTreePane::OnCancelFill)
  ON_COMMAND(IDCANCEL, &CTreePane::OnCancelFill)  // the tree sends it for Escape
  ON_UPDATE_COMMAND_UI(ID_TREE_REFRESH, &CTreePane::OnUpdateFolder)
  ON_UPDATE_COMMAND_UI(ID_TREE_RENAME, &CTreePane::OnUpdateRename)
  ON_UPDATE_COMMAND_UI(ID_TREE_DELETE, &CTreePane::OnUpdateDelete)
  ON_UPDATE_COMMAND_UI_RANGE(ID_TREE_TOGGLE, ID_TREE_COLLAPSE_ALL, &CTreePane::OnUpdateParent)
  ON_UPDATE_COMMAND_UI(ID_TREE_CHECK, &CTreePane::OnUpdateCheck)
  ON_UPDATE_COMMAND_UI(ID_TREE_FAVOURITE, &CTreePane::OnUpdateItem)
  ON_UPDATE_COMMAND_UI(ID_TREE_SORT, &CTreePane::OnUpdateParent)
  ON_UPDATE_COMMAND_UI(ID_TREE_HIDE, &CTreePane::OnUpdateItem)
  ON_UPDATE_COMMAND_UI(ID_TREE_FILL, &CTreePane::OnUpdateFill)
  ON_UPDATE_COMMAND_UI(ID_TREE_CANCEL_FILL, &CTreePane::OnUpdateCancelFill)
  ON_COMMAND_RANGE(ID_STYLE_FIRST, ID_STYLE_LAST, &CTreePane::OnStyle)
  ON_COMMAND(ID_STYLE_DISABLED, &CTreePane::OnDisabled)
  ON_COMMAND_RANGE(ID_SELECTION_SINGLE, ID_SELECTION_FOCUS_RECT, &CTreePane::OnSelection)
  ON_COMMAND_RANGE(ID_SPACING_FIRST, ID_SPACING_LAST, &CTreePane::OnSpacing)
  ON_COMMAND(ID_LOG_PAUSE, &CTreePane::OnLogPause)
  ON_COMMAND(ID_LOG_CLEAR, &CTreePane::OnLogClear)
  ON_UPDATE_COMMAND_UI_RANGE(ID_STYLE_FIRST, ID_STYLE_LAST, &CTreePane::OnUpdateStyle)
  ON_UPDATE_COMMAND_UI(ID_STYLE_DISABLED, &CTreePane::OnUpdateDisabled)
  ON_UPDATE_COMMAND_UI_RANGE(ID_SELECTION_SINGLE, ID_SELECTION_FOCUS_RECT, &CTreePane::OnUpdateSelection)
  ON_UPDATE_COMMAND_UI_RANGE(ID_SPACING_FIRST, ID_SPACING_LAST, &CTreePane::OnUpdateSpacing)
  ON_UPDATE_COMMAND_UI(ID_LOG_PAUSE, &CTreePane::OnUpdateLogPause)
END_MESSAGE_MAP()

BOOL CTreePane::PreCreateWindow(CREATESTRUCTW& cs) {
  cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
  return CWnd::PreCreateWindow(cs);
}

BOOL CTreePane::Create(CWnd* parent) {
  if (!CWnd::Create(nullptr, nullptr, WS_CHILD | WS_CLIPCHILDREN, CRect(), parent, 0)) return FALSE;
  if (!m_tree.Create(this, kTreeId) || !m_log.Create(this, kLogId, m_fonts.body)) return FALSE;
  const DWORD button = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
  if (!m_pause.Create(L"Pause", button | BS_AUTOCHECKBOX | BS_PUSHLIKE | BS_CENTER, CRect(), this,
                      ID_LOG_PAUSE) ||
      !m_clear.Create(L"Effacer", button | BS_PUSHBUTTON, CRect(), this, ID_LOG_CLEAR)) {
    return FALSE;
  }
  m_pause.SetFont(&m_fonts.body);
  m_clear.SetFont(&m_fonts.body);
  m_tree.SetFont(&m_fonts.body, FALSE);
  return TRUE;
}

// ---- Work --------------------------------------------------------------------------------------------

bool CTreePane::OpenFolder(const CString& path) {
  const CWaitCursor wait;
  const auto start = std::chrono::steady_clock::now();
  const CGalleryTree::FolderCount count = m_tree.OpenFolder(path);
  m_tree.UpdateWindow();
  const std::chrono::duration<double> length = std::chrono::steady_clock::now() - start;
  if (count.error != ERROR_SUCCESS) {
    m_subtitle = path + L"\u00A0: " + FolderErrorText(count.error).MakeLower();
    m_state.Empty();
    return false;
  }
  m_subtitle = path + L"\u00A0: " + ContentText(count);
  m_state = L"Ouvert en " + french::Seconds(length.count());
  return true;
}

void CTreePane::Fill(int count) {
  m_fill.Start(m_tree, count, PictureIndex(Picture::kCubes), SelectedIndex(Picture::kCubes));
  m_state.Empty();
}

bool CTreePane::Idle() {
  if (m_tree.FillSome()) return true;
  if (!m_fill.IsRunning()) return false;
  if (m_fill.Step()) return true;
  m_state =
      french::Count(m_fill.Done(), L"élément", L"éléments") + L" en " + french::Seconds(m_fill.Seconds());
  return false;
}

int CTreePane::Progress() const {
  if (!m_fill.IsRunning()) return m_tree.FillPercent();
  return static_cast<int>(100LL * m_fill.Done() / std::max(m_fill.Total(), 1));
}

CString CTreePane::Detail() {
  return french::Count(m_tree.GetCount(), L"élément", L"éléments") + L" · " +
         french::Count(m_tree.GetVisibleCount(), L"ligne", L"lignes") + L" · " +
         french::Count(m_tree.SelectionCount(), L"sélectionné", L"sélectionnés");
}

// ---- Layout ------------------------------------------------------------------------------------------

CRect CTreePane::TreeCard() const {
  CRect card;
  GetClientRect(card);
  card.right = std::max<LONG>((card.right - kGap) * m_treePercent / 100, 0);
  return card;
}

CRect CTreePane::Gap() const {
  const CRect tree = TreeCard();
  return CRect(tree.right, tree.top, tree.right + kGap, tree.bottom);
}

CRect CTreePane::LogCard() const {
  CRect card;
  GetClientRect(card);
  card.left = Gap().right;
  return card;
}

void CTreePane::Layout() {
  CRect tree = TreeCard();
  tree.DeflateRect(1, 1);
  m_tree.MoveWindow(tree);
  CRect log = LogCard();
  log.DeflateRect(1, 1);
  CRect button(CPoint(log.right - 8 - kButtonWidth, log.top + (kLogHead - kButtonHeight) / 2),
               CSize(kButtonWidth, kButtonHeight));
  m_clear.MoveWindow(button);
  button.OffsetRect(-kButtonWidth - 6, 0);
  m_pause.MoveWindow(button);
  log.top += kLogHead;
  log.left += 8;  // so that the lines do not stick to the edge
  m_log.MoveWindow(log);
  Invalidate(FALSE);
}

void CTreePane::OnSize(UINT type, int cx, int cy) {
  CWnd::OnSize(type, cx, cy);
  if (m_clear.m_hWnd != nullptr) Layout();
}

BOOL CTreePane::OnEraseBkgnd(CDC*) { return TRUE; }

void CTreePane::OnPaint() {
  CVornDC dc;
  if (!dc.BeginPaint(this)) return;
  dc.FillBack(theme::kPaper);
  const auto frame = [&](const CRect& card) {
    dc.FillSolidRect(card, theme::kLine);
    CRect inside(card);
    inside.DeflateRect(1, 1);
    dc.FillSolidRect(inside, theme::kCard);
  };
  frame(TreeCard());
  frame(LogCard());
  CRect head = LogCard();
  head.bottom = head.top + kLogHead;
  dc.FillSolidRect(CRect(head.left, head.bottom - 1, head.right, head.bottom), theme::kLine);
  head.DeflateRect(12, 0, 2 * kButtonWidth + 24, 0);
  constexpr int kTitleRoom = 60;
  if (head.Width() >= kTitleRoom) {
    theme::Text(dc, m_fonts.heading, theme::kInk, L"Journal", head,
                DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
  }
  const CPoint middle = Gap().CenterPoint();
  for (const int y : {-8, 0, 8}) theme::Disc(dc, CPoint(middle.x, middle.y + y), 1, theme::kMuted);
  dc.EndPaint(nullptr);
}

// ---- Input -------------------------------------------------------------------------------------------

void CTreePane::OnSetFocus(CWnd*) { m_tree.SetFocus(); }

BOOL CTreePane::OnSetCursor(CWnd* window, UINT hitTest, UINT message) {
  CPoint point;
  ::GetCursorPos(&point);
  ScreenToClient(&point);
  if (window != this || !Gap().PtInRect(point)) return CWnd::OnSetCursor(window, hitTest, message);
  ::SetCursor(::LoadCursorW(nullptr, IDC_SIZEWE));
  return TRUE;
}

void CTreePane::OnLButtonDown(UINT, CPoint point) {
  m_isDragging = Gap().PtInRect(point) != FALSE;
  if (m_isDragging) SetCapture();
}

void CTreePane::OnMouseMove(UINT, CPoint point) {
  if (!m_isDragging || GetCapture() != this) return;
  CRect client;
  GetClientRect(client);
  const int percent = static_cast<int>((point.x - kGap / 2) * 100 / std::max<LONG>(client.right - kGap, 1));
  m_treePercent = std::clamp(percent, kLeastPercent, 100 - kLeastPercent);
  Layout();
}

void CTreePane::OnLButtonUp(UINT, CPoint) {
  if (m_isDragging) ::ReleaseCapture();
  m_isDragging = false;
}
