// The box in which a label is edited. Internal to the control, which makes one for each edit.
//
// States: open, then ending (EndEdit has begun, or the control ends the edit), then gone. Every way of
// ending runs through the control's EndLabelEdit, which takes the box out of the control before it asks
// the host: closing the box takes its focus, which would end the edit a second time.
#pragma once

#include <afxwin.h>

#include "../core/VornComCtlApi.h"
#include "../tree/VornTreeTypes.h"

class CVornTreeCtrl;

class VORNCOMCTL_API CVornTreeEdit : public CEdit {
  DECLARE_DYNAMIC(CVornTreeEdit)

 public:
  explicit CVornTreeEdit(CVornTreeItem* item);
  virtual ~CVornTreeEdit();

  // rect: in the parent's client coordinates; the box never gets narrower. Non-zero on success.
  virtual int Create(unsigned long style, const tagRECT& rect, CWnd* pParent, unsigned int id);
  // Ends the edit; cancel: the label stays as it was. 1 if the label was changed; 0 also when the edit
  // is ending already.
  virtual int EndEdit(int cancel);

  CVornTreeItem* GetItem() const { return m_pItem; }
  bool IsCancelled() const { return m_bCancelled != FALSE; }
  // The control ends the edit itself: EndEdit does nothing from now on.
  void MarkEnding() { m_bEnding = TRUE; }

  virtual BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  // Swallows characters typed with Alt.
  virtual BOOL PreTranslateMessage(MSG* message) override;

 protected:
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  afx_msg void OnChar(UINT character, UINT repeat, UINT flags);
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnKillFocus(CWnd* next);
  afx_msg void OnContextMenu(CWnd* window, CPoint point);
  DECLARE_MESSAGE_MAP()

 private:
  void SelectAll();
  void AdjustFormatRect();
  void FitToText();
  void Act(unsigned int command);

  // The order of the fields is fixed.
  CVornTreeItem* m_pItem;  // not owned
  unsigned int m_nLastChar = 0;
  CVornTreeCtrl* m_pTree = nullptr;  // the parent, if it is a tree control; not owned
  CRect m_rcStart;                   // just after creation, in the parent's client coordinates
  BOOL m_bCancelled = FALSE;
  BOOL m_bEnding = FALSE;
  BOOL m_bInMenu = FALSE;
};
