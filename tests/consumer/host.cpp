// A whole host application: a frame around a tree whose folders are read when they are opened.
#include <VornComCtl.h>

class HostTree : public CVornTreeCtrl {
  int OnItemExpanding(CVornTreeItem* item) override {  // 0 would keep the item closed
    if (GetItemState(item, STIS_HASCHILDREN)) InsertItem(L"Read when opened", -1, -1, item);
    return 1;
  }
};

class HostFrame : public CFrameWnd {
  BOOL OnCreateClient(LPCREATESTRUCTW, CCreateContext*) override {
    const DWORD style = WS_CHILD | WS_VISIBLE | STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT;
    if (!m_tree.CreateTreeCtrl(style, CRect(), this, AFX_IDW_PANE_FIRST)) return FALSE;
    m_tree.ModifyItemState(m_tree.InsertItem(L"A folder", -1, -1), 0, STIS_HASCHILDREN);
    return TRUE;
  }
  HostTree m_tree;
};

class HostApp : public CWinApp {
  BOOL InitInstance() override {
    auto* const frame = new HostFrame;  // deletes itself with its window
    if (!frame->Create(nullptr, L"Host")) return FALSE;
    m_pMainWnd = frame;
    return frame->ShowWindow(SW_SHOW), TRUE;
  }
} theApp;
