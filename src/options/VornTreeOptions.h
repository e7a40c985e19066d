// CVornTreeOptions: the settings of a tree control, read from the application's profile when made.
//
// The control paints by colours of its own; of these settings the library itself reads the default
// height and the label edit duration, and all others are there for the host.
//
// Profile, section "VornTreeOptions": "Indent" (20), "BKColor" and "TextColor" (the system's window
// colours), "DragCX" and "DragCY" (the system's drag margin), "EditLabelTime" (1500). A colour is text,
// red_green_blue in decimal numbers: white is 255_255_255. A change of the profile shows in options
// made afterwards.
#pragma once

#include <afxwin.h>

#include "../core/VornComCtlApi.h"
#include "../tree/VornTreeTypes.h"

class CVornTreeCtrl;
class CVornTreeReportWnd;

class VORNCOMCTL_API CVornTreeOptions : public CObject {
 public:
  // The options of a control, or of none. Reads the profile; without an application object all values
  // are defaults.
  explicit CVornTreeOptions(CVornTreeCtrl* pTree);
  virtual ~CVornTreeOptions();

  CVornTreeCtrl* GetParent() { return m_pTree; }

  // Colours are 32-bit COLORREFs. The setters repaint the control, if there is one.
  unsigned long GetBkColor() { return m_clrBk; }
  unsigned long GetTextColor() { return m_clrText; }
  unsigned long GetGrayTextColor() { return m_clrGrayText; }
  unsigned long GetTextHighlightColor() { return m_clrTextHighlight; }
  unsigned long GetHighlightColor() { return m_clrHighlight; }
  // The same colour as the highlight's: setting either sets both.
  unsigned long GetShowAlwaysColor() { return m_clrHighlight; }
  void SetBkColor(unsigned long color) { SetColor(m_clrBk, color); }
  void SetTextColor(unsigned long color) { SetColor(m_clrText, color); }
  void SetGrayTextColor(unsigned long color) { SetColor(m_clrGrayText, color); }
  void SetTextHighLightColor(unsigned long color) { SetColor(m_clrTextHighlight, color); }
  void SetHighLightColor(unsigned long color) { SetColor(m_clrHighlight, color); }
  void SetShowAlwaysColor(unsigned long color) { SetColor(m_clrHighlight, color); }

  // Pixels per level.
  unsigned int GetIndent() const { return m_nIndent; }
  // The margin around a press within which no drag starts, in pixels relative to the press.
  void GetDragRect(CRect& rect) { rect = m_rcDrag; }
  // Milliseconds until a click on the selected item opens the label edit.
  int GetLabelEditDuration() { return m_nLabelEditDuration; }
  // The height of rows in pixels, which SetFont sets.
  int GetDefaultHeight() { return m_nDefaultHeight; }

  // A private copy of the font last given to SetFont; it has no handle before.
  CFont* GetFont() { return &m_Font; }
  // Copies the font and takes the default height from it: its height and 4 pixels more, or 20 if it
  // leaves its height open. bRedraw: repaint the control. A null font, or one with no handle, changes
  // nothing.
  void SetFont(CFont* pFont, int bRedraw);

  // The size of the control's images. 1, or 0 without a control, and for a list that does not exist.
  int GetImageSize(VornTreeImageList list, CSize* pSize);

  // Measures the label of an item, as it is shown, into the item: width and height of the text, each 2
  // pixels larger. 1, or 0 with the item left as it is: without a control or its window.
  int GetItemSize(CVornTreeItem* pItem);

  // The report that the host hung on these options; the host keeps owning it. May be called on a null
  // object, which gives null.
  CVornTreeReportWnd* GetTreeReportWnd();
  void SetTreeReportWnd(CVornTreeReportWnd* pWnd) { m_pReportWnd = pWnd; }

 protected:
  // Reads all settings from the profile.
  void LoadConfiguration();
  // Has the whole control repainted, if there is one.
  void Refresh();

 private:
  void SetColor(COLORREF& field, unsigned long color);
  void SetDragMargin(int cx, int cy);
  void LoadProfile(CWinApp& app);

  CVornTreeCtrl* m_pTree;  // not owned
  COLORREF m_clrBk = 0;
  COLORREF m_clrText = 0;
  COLORREF m_clrGrayText = 0;
  COLORREF m_clrTextHighlight = 0;
  COLORREF m_clrHighlight = 0;  // also the show-always colour
  CFont m_Font;
  int m_nDefaultHeight = 0;
  [[maybe_unused]] int m_nSpare = 8;  // keeps the layout
  unsigned int m_nIndent = 0;
  CRect m_rcDrag;
  int m_nLabelEditDuration = 0;
  CVornTreeReportWnd* m_pReportWnd = nullptr;  // not owned
};
