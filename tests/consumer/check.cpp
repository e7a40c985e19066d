// Looks at the host while it runs, opens its folder by the keyboard, and ends it.
#include <VornComCtl.h>

#include <cstdio>
#include <cstdlib>

namespace {

void Expect(bool good, const char* what) {
  if (good) return;
  std::printf("failed: %s\n", what);
  std::fflush(stdout);
  std::_Exit(3);
}

void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
  ::KillTimer(nullptr, timer);
  CWnd* const frame = AfxGetMainWnd();
  Expect(frame != nullptr && frame->IsWindowVisible(), "the frame is shown");
  const HWND window = ::GetDlgItem(*frame, AFX_IDW_PANE_FIRST);
  CVornTreeCtrl* const tree = CVornTreeCtrl::GetPointerFromHandle(window);
  Expect(tree != nullptr, "the frame has a tree");
  CRect client;
  tree->GetClientRect(client);
  Expect(client.Width() > 100 && client.Height() > 100, "the tree fills the frame");
  Expect(tree->GetVisibleCount() == 1, "one row at first");
  tree->SelectItem(tree->GetChildItem(STI_ROOT));
  tree->SendMessage(WM_KEYDOWN, VK_ADD);
  Expect(tree->GetVisibleCount() == 2, "a second row when the first is opened");
  std::printf("%s: %d rows\n", VORNCOMCTL_get_module_info(1), tree->GetVisibleCount());
  frame->PostMessage(WM_CLOSE);
}

// Timers of no window come to the loop of the thread that set them, which is the host's.
const UINT_PTR g_timer = ::SetTimer(nullptr, 0, 300, &Look);

}  // namespace
