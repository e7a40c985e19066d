// CVornTreeCtrl: how the object comes to be, completes itself when it gets a window, and ends.
#include <cwchar>

#include "../../core/CurrentOptions.h"
#include "../../core/Module.h"
#include "../../core/VornFunctions.h"
#include "../../core/VornSetRessource.h"
#include "../../edit/VornTreeEdit.h"
#include "../../options/VornTreeOptions.h"
#include "../../resources/VornResource.h"
#include "../../selection/VornTreeSelection.h"
#include "../VornTreeCtrl.h"
#include "../model/TreeCheck.h"
#include "../layout/RowIndex.h"
#include "../model/VornTreeItem.h"

namespace {

constexpr const wchar_t* kClassName = L"VornLibrary::VornTreeCtrl";
constexpr const char* kThisProperty = "VornTree::This";

// Screen resolution across, in dots per inch, read once.
int ScreenResolution() {
  static const int resolution = [] {
    HDC screen = ::GetDC(nullptr);
    const int dots = ::GetDeviceCaps(screen, LOGPIXELSX);
    ::ReleaseDC(nullptr, screen);
    return dots;
  }();
  return resolution;
}

// The font of icon titles, one step smaller; false if the system does not tell.
bool MakeSmallerIconFont(CFont& font) {
  LOGFONTW logFont{};
  if (!::SystemParametersInfoW(SPI_GETICONTITLELOGFONT, sizeof(logFont), &logFont, 0)) return false;
  constexpr int kOrdinaryResolution = 96;
  const int step = ScreenResolution() > kOrdinaryResolution ? 2 : 1;
  logFont.lfHeight += logFont.lfHeight < 0 ? step : -step;
  return font.CreateFontIndirect(&logFont) != FALSE;
}

}  // namespace

IMPLEMENT_DYNAMIC(CVornTreeCtrl, CWnd)

BEGIN_MESSAGE_MAP(CVornTreeCtrl, CWnd)
  ON_WM_CREATE()
  ON_WM_DESTROY()
  ON_WM_SHOWWINDOW()
  ON_WM_CANCELMODE()
  ON_WM_GETDLGCODE()
  ON_WM_SIZE()
  ON_WM_PAINT()
  ON_WM_ERASEBKGND()
  ON_WM_HSCROLL()
  ON_WM_VSCROLL()
  ON_WM_MOUSEWHEEL()
  ON_WM_SETFOCUS()
  ON_WM_KILLFOCUS()
  ON_WM_KEYDOWN()
  ON_WM_KEYUP()
  ON_WM_LBUTTONDOWN()
  ON_WM_LBUTTONUP()
  ON_WM_LBUTTONDBLCLK()
  ON_WM_RBUTTONDOWN()
  ON_WM_RBUTTONUP()
  ON_WM_MOUSEMOVE()
  ON_WM_MOUSELEAVE()
  ON_WM_NCMOUSEMOVE()
  ON_WM_NCLBUTTONUP()
  ON_WM_SETCURSOR()
  ON_WM_TIMER()
  ON_WM_CAPTURECHANGED()
  ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

// --- The object ------------------------------------------------------------------------------------

CVornTreeCtrl::CVornTreeCtrl() {
  AfxInitVornComCtl();
  vorn::SetCurrentOptions(nullptr);
  m_pOptions = new (std::nothrow) CVornTreeOptions(this);
  vorn::SetCurrentOptions(m_pOptions);
  ModifySelectionType(0, STST_SINGLE);
  if (m_pOptions != nullptr) {
    CFont font;
    if (!MakeSmallerIconFont(font)) font.Attach(::GetStockObject(DEFAULT_GUI_FONT));
    m_pOptions->SetFont(&font, FALSE);
  }
  LoadConfiguration();
  CreateRoot();
  // At any value of the variable.
  m_bAutoSelection = ::_wgetenv(L"NOTEST_WID4217") == nullptr;
}

CVornTreeCtrl::~CVornTreeCtrl() {
  vorn::OperationCheck::Forget(this);
  DeleteHelpers();
}

void CVornTreeCtrl::LoadConfiguration() {
  m_nIndent = 20;
  m_clrBk = m_clrText = m_clrGrayText = ST_CLR_NONE;
  m_clrTextHighlight = m_clrHighlight = m_clrShowAlways = ST_CLR_NONE;
  const int cx = 2 * ::GetSystemMetrics(SM_CXDRAG), cy = 2 * ::GetSystemMetrics(SM_CYDRAG);
  m_rcDrag.SetRect(-cx, -cy, cx, cy);
  m_nLabelEditDuration = 1500;
}

void CVornTreeCtrl::CreateRoot() {
  m_pRoot = new CVornTreeItem(this);
  if (m_pRoot == nullptr) return;
  m_pRoot->m_nLevel = 0;
  m_pRoot->m_nState = STIS_EXPANDED;
}

void CVornTreeCtrl::MakeOptionsCurrent() { vorn::SetCurrentOptions(m_pOptions); }

// Selection, options and items, in this order; what is gone already is null.
void CVornTreeCtrl::DeleteHelpers() {
  delete m_pSelection;
  m_pSelection = nullptr;
  CVornTreeEdit* const edit = m_pEdit;
  m_pEdit = nullptr;  // its window goes with it, and would end the edit through here
  delete edit;
  if (AfxGetVornTreeOptions() == m_pOptions) vorn::SetCurrentOptions(nullptr);
  delete m_pOptions;
  m_pOptions = nullptr;
  delete m_pRows;
  m_pRows = nullptr;
  DeleteFallenItems();
  if (m_pRoot != nullptr) {
    CVornTreeItem* const root = m_pRoot;
    root->Detach(true);
    m_pRoot = nullptr;
    delete root;
  }
  ReleaseRedrawDC();
  delete m_pRedrawDC;
  m_pRedrawDC = nullptr;
}

// Their handles were good as long as the control.
void CVornTreeCtrl::DeleteFallenItems() {
  for (long i = 0; i < m_arrFallen.GetSize(); ++i) {
    CVornTreeItem* const item = m_arrFallen[i];
    if (!IsOwnItem(item) || item->m_pParent != nullptr || item == m_pRoot) continue;
    item->Detach(true);
    delete item;
  }
  m_arrFallen.RemoveAll();
}

// --- The window ------------------------------------------------------------------------------------

int CVornTreeCtrl::CreateTreeCtrl(unsigned long style, const RECT& rect, CWnd* parent, unsigned int id) {
  DWORD exStyle = 0;
  DWORD windowStyle = static_cast<DWORD>(style);
  if (windowStyle & WS_BORDER) {
    windowStyle &= ~static_cast<DWORD>(WS_BORDER);
    exStyle = WS_EX_CLIENTEDGE;
  }
  return CWnd::CreateEx(exStyle, kClassName, nullptr, windowStyle, rect, parent, id);
}

void CVornTreeCtrl::PreSubclassWindow() {
  if (m_pOptions == nullptr) {
    m_pOptions = new (std::nothrow) CVornTreeOptions(this);
    CFont font;
    font.Attach(::GetStockObject(DEFAULT_GUI_FONT));
    if (m_pOptions != nullptr) m_pOptions->SetFont(&font, FALSE);
  }
  if (m_pRoot == nullptr) CreateRoot();
  if (m_pSelection == nullptr) ModifySelectionType(0, 0);
  MakeOptionsCurrent();
  SelectDefaultFont();
  UseSharedImages();
  ::GetClientRect(m_hWnd, m_rcClient);
  ::ShowScrollBar(m_hWnd, SB_BOTH, TRUE);
  CalcLayout();
  m_bNeedLayout = TRUE;  // a window that is being created has no size yet: the first paint lays out
  ::SetCursor(::LoadCursorW(vorn::ModuleInstance(), MAKEINTRESOURCEW(IDC_VORN_TREE)));
  ::SetPropA(m_hWnd, kThisProperty, this);
}

void CVornTreeCtrl::SelectDefaultFont() {
  if (m_Font.GetSafeHandle() != nullptr) return;
  CFont font;
  font.Attach(::GetStockObject(DEFAULT_GUI_FONT));
  SetFont(&font, FALSE);
}

int CVornTreeCtrl::OnCreate(LPCREATESTRUCTW create) { return CWnd::OnCreate(create) == -1 ? -1 : 0; }

void CVornTreeCtrl::OnDestroy() {
  DeleteHelpers();
  for (int i = 0; i < STIL_COUNT; ++i) {
    m_hImageList[i] = nullptr;
    m_szImage[i] = CSize(0, 0);
  }
  m_pFirstDisplay = m_pLastDisplay = m_pHoverItem = nullptr;
  m_nRedrawLock = 0;
  CWnd::OnDestroy();
}

void CVornTreeCtrl::OnShowWindow(BOOL show, UINT status) {
  CWnd::OnShowWindow(show, status);
  if (show) MakeOptionsCurrent();
}

// Ends neither a drag nor a label edit; the loss of the capture does.
void CVornTreeCtrl::OnCancelMode() { CWnd::OnCancelMode(); }

LRESULT CVornTreeCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  if ((message == WM_WINDOWPOSCHANGED || message == WM_STYLECHANGED) && lParam == 0) return 0;
  switch (message) {
    case WM_SYSCOLORCHANGE: RefillDefaultColors(); break;
    case WM_SETFONT: return OnSetFont(reinterpret_cast<HFONT>(wParam), static_cast<BOOL>(lParam));
    case WM_GETFONT: return reinterpret_cast<LRESULT>(m_Font.GetSafeHandle());
    case kUpdateTreeMessage:
      if (m_nRedrawLock == 0) UpdateTree();
      break;
    case WM_WINDOWPOSCHANGED: {
      // Laid out before and after: the second run sees the client area as the bars have left it.
      const WINDOWPOS place = *reinterpret_cast<const WINDOWPOS*>(lParam);
      LayoutAfterResize(place);
      const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
      LayoutAfterResize(place);
      return result;
    }
    case WM_STYLECHANGED: {
      const STYLESTRUCT styles = *reinterpret_cast<const STYLESTRUCT*>(lParam);
      const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
      if ((styles.styleOld ^ styles.styleNew) & WS_DISABLED) RepaintNow();
      return result;
    }
    case WM_ENABLE: {
      const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
      RepaintNow();
      return result;
    }
    default: break;
  }
  return CWnd::WindowProc(message, wParam, lParam);
}

void CVornTreeCtrl::LayoutAfterResize(const WINDOWPOS& place) {
  if (place.cx > 0 && place.cy > 0 && m_nRedrawLock == 0 && !(place.flags & SWP_NOSIZE)) UpdateTree();
}

void CVornTreeCtrl::RepaintNow() {
  InvalidateAll();
  if (::IsWindow(m_hWnd)) ::UpdateWindow(m_hWnd);
}

// Check boxes and buttons come from lists that all controls share and that live as long as the process.
void CVornTreeCtrl::UseSharedImages() {
  static CImageList& checkBoxes = *new CImageList;
  static CImageList& buttons = *new CImageList;
  const CVornSetRessource resources;
  constexpr COLORREF kMask = RGB(255, 0, 255);
  if (m_hImageList[STIL_CHECKBOX] == nullptr) {
    constexpr int kWidth = 16, kGrow = 3;
    if (checkBoxes.GetSafeHandle() == nullptr) checkBoxes.Create(IDB_VORN_CHECKBOXES, kWidth, kGrow, kMask);
    SetImageList(&checkBoxes, STIL_CHECKBOX);
  }
  if (m_hImageList[STIL_BUTTON] == nullptr) {
    constexpr int kWidth = 9, kGrow = 2;
    if (buttons.GetSafeHandle() == nullptr) buttons.Create(IDB_VORN_BUTTONS, kWidth, kGrow, kMask);
    SetImageList(&buttons, STIL_BUTTON);
  }
}

LRESULT CVornTreeCtrl::OnSetFont(HFONT font, BOOL redraw) {
  LOGFONTW logFont{};
  // What is no font gives less, or nothing.
  if (font == nullptr || ::GetObjectW(font, sizeof(logFont), &logFont) != sizeof(logFont)) return 0;
  // The font may be the present one, sent by SetFont itself.
  HFONT copy = ::CreateFontIndirectW(&logFont);
  if (copy == nullptr) return 0;
  ForgetHeldFont();
  m_Font.DeleteObject();
  m_Font.Attach(copy);
  if (m_pOptions != nullptr) {
    m_pOptions->SetFont(&m_Font, redraw);
  } else if (redraw == TRUE) {
    InvalidateAll();
  }
  return 0;
}

CVornTreeCtrl* CVornTreeCtrl::GetPointerFromHandle(HWND hwnd) {
  // The handle maps know which objects live; a property alone may be left over from one that is gone.
  if (hwnd == nullptr || ::GetPropA(hwnd, kThisProperty) == nullptr) return nullptr;
  return DYNAMIC_DOWNCAST(CVornTreeCtrl, CWnd::FromHandlePermanent(hwnd));
}

int CVornTreeCtrl::IsActiveStyle(unsigned long style) {
  const DWORD asked = static_cast<DWORD>(style);
  return ::IsWindow(m_hWnd) && (GetStyle() & asked) == asked;
}

int CVornTreeCtrl::EnableAutoSelection(int enable) {
  const int before = m_bAutoSelection;
  m_bAutoSelection = enable;
  return before;
}

bool CVornTreeCtrl::IsFocusRectVisible() { return m_bFocusRectVisible; }

bool CVornTreeCtrl::IsDragInProgress() const { return false; }  // no drag manager is made yet

CVornTreeItem* CVornTreeCtrl::DropHighlight() const { return nullptr; }
