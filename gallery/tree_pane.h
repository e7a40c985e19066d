// The inside of the tree's page: the tree, the log of its hooks, and a bar between them.
#pragma once

#include <afxwin.h>

#include "bulk_fill.h"
#include "gallery_tree.h"
#include "hook_log.h"
#include "theme.h"

class CTreePane : public CWnd {
 public:
  // The gallery's tree that also tells a filling what goes.
  class CTree : public CGalleryTree {
   public:
    CTree(CHookLog& log, BulkFill& fill) : CGalleryTree(log), m_fill(fill) {}
    void OnDeleteItem(CVornTreeItem* item) override {
      m_fill.NoteDeletion(item);
      CGalleryTree::OnDeleteItem(item);
    }

   private:
    BulkFill& m_fill;
  };

  CTreePane() : m_tree(m_log, m_fill) {}

  BOOL Create(CWnd* parent);
  CGalleryTree& Tree() { return m_tree; }
  CHookLog& Log() { return m_log; }

  // Shows a folder, and says in a message to a person when it cannot be read; false then.
  bool OpenFolder(const CString& path);
  // Adds a document of so many items; Idle does the work.
  void Fill(int count);
  // The next piece of work; true if there is more.
  bool Idle();

  // What stands in the page's head and in the status bar.
  const CString& Subtitle() const { return m_subtitle; }
  CString Detail();
  const CString& State() const { return m_state; }
  // Of the filling under way, 0 to 100; -1 if there is none.
  int Progress() const;

 protected:
  BOOL PreCreateWindow(CREATESTRUCTW& cs) override;
  afx_msg void OnPaint();
  afx_msg BOOL OnEraseBkgnd(CDC* dc);
  afx_msg void OnSize(UINT type, int cx, int cy);
  afx_msg void OnSetFocus(CWnd* old);
  afx_msg BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
  afx_msg void OnLButtonDown(UINT flags, CPoint point);
  afx_msg void OnMouseMove(UINT flags, CPoint point);
  afx_msg void OnLButtonUp(UINT flags, CPoint point);
  // Commands on items: tree_commands.cpp.
  afx_msg void OnOpen();
  afx_msg void OnRefresh();
  afx_msg void OnRename();
  afx_msg void OnDelete();
  afx_msg void OnToggle();
  afx_msg void OnExpandAll();
  afx_msg void OnCollapseAll();
  afx_msg void OnCheck();
  afx_msg void OnFavourite();
  afx_msg void OnSort();
  afx_msg void OnHide();
  afx_msg void OnShowHidden();
  afx_msg void OnFill();
  afx_msg void OnCancelFill();
  afx_msg void OnUpdateFolder(CCmdUI* ui);
  afx_msg void OnUpdateRename(CCmdUI* ui);
  afx_msg void OnUpdateDelete(CCmdUI* ui);
  afx_msg void OnUpdateParent(CCmdUI* ui);
  afx_msg void OnUpdateCheck(CCmdUI* ui);
  afx_msg void OnUpdateItem(CCmdUI* ui);
  afx_msg void OnUpdateFill(CCmdUI* ui);
  afx_msg void OnUpdateCancelFill(CCmdUI* ui);
  // Switches: tree_switches.cpp.
  afx_msg void OnStyle(UINT id);
  afx_msg void OnDisabled();
  afx_msg void OnSelection(UINT id);
  afx_msg void OnSpacing(UINT id);
  afx_msg void OnLogPause();
  afx_msg void OnLogClear();
  afx_msg void OnUpdateStyle(CCmdUI* ui);
  afx_msg void OnUpdateDisabled(CCmdUI* ui);
  afx_msg void OnUpdateSelection(CCmdUI* ui);
  afx_msg void OnUpdateSpacing(CCmdUI* ui);
  afx_msg void OnUpdateLogPause(CCmdUI* ui);
  DECLARE_MESSAGE_MAP()

 private:
  CRect TreeCard() const;
  CRect LogCard() const;
  CRect Gap() const;
  void Layout();
  // The item that commands are about.
  CVornTreeItem* Current() const { return m_tree.GetItemHasFocus(); }
  bool IsSelectionOn(UINT id);

  CHookLog m_log;
  BulkFill m_fill;
  CTree m_tree;
  CButton m_pause;
  CButton m_clear;
  theme::Fonts m_fonts;
  CString m_subtitle;
  CString m_state;
  int m_treePercent = 60;  // of the width
  bool m_isDragging = false;
};
