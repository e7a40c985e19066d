// A tree control in a window of its own, laid out and painted: for tests that look at places and pixels.
#pragma once

#include <memory>
#include <string>

#include "support/host_window.h"
#include "support/picture.h"
#include "tree/model/VornTreeItem.h"
#include "tree/test_tree.h"

namespace support {

// The lines-and-buttons style that most scenes use.
inline constexpr unsigned kLinesAndButtons = STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT;

// Where a client point falls: the row's label ("-" for none) and the flags, as "label 0x0004".
std::string ZoneText(TestTree& tree, int x, int y);

// The height of an item's row: its own, or that of the images if they are higher.
int HeightOf(CVornTreeCtrl& tree, const CVornTreeItem* item);

// An image list of the given size and count; each image is filled with a colour of its own, but for its
// top left pixel, which is masked out.
class SolidImages {
 public:
  SolidImages(int cx, int cy, int count);
  CImageList list;
  // The colour of an image.
  static COLORREF ColorOf(int image);
};

// A font without antialiasing whose labels are exactly that many pixels high; null if there is none.
std::unique_ptr<CFont> FontOfHeight(int pixels);

template <class Tree>
class PaintedTreeOf : public testing::Test {
 protected:
  // The window's client area has this size when no bar shows.
  void Create(unsigned style, int cx = 200, int cy = 160) {
    host = std::make_unique<HostWindow>(HostOptions{.cx = 700, .cy = 500});
    const RECT rect{20, 20, 20 + cx, 20 + cy};
    ASSERT_NE(tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | style, rect, CWnd::FromHandle(*host), 7), 0);
    Show();
  }
  ~PaintedTreeOf() override {
    tree.log.Clear();
    tree.recording = false;
    if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
  }

  void Resize(int cx, int cy) {
    tree.MoveWindow(20, 20, cx, cy);
    Show();
  }
  // Lays out and paints.
  void Show() {
    tree.UpdateTree();
    ::UpdateWindow(tree);
  }
  // Paints all again, without a layout.
  void Repaint() { ::RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
  // Flat rows "r0" to "r<count - 1>".
  void Fill(int count) {
    tree.SetRedraw(FALSE);
    for (int i = 0; i < count; ++i) tree.Add("r" + std::to_string(i));
    tree.SetRedraw(TRUE);
  }
  CVornTreeItem* Row(int index) { return tree["r" + std::to_string(index)]; }

  // Where the last paint put the label.
  CRect LabelOf(CVornTreeItem* item) {
    CRect rect;
    EXPECT_EQ(tree.GetItemRect(item, rect, 1), 1) << tree.Name(item);
    return rect;
  }
  CRect LabelOf(const std::string& label) { return LabelOf(tree[label]); }
  std::string First() { return tree.Name(tree.GetFirstDisplayItem()); }
  std::string Zone(int x, int y) { return ZoneText(tree, x, y); }
  SCROLLINFO Bar(int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    ::GetScrollInfo(tree, bar, &info);
    return info;
  }
  bool HasBar(int bar) { return (tree.GetStyle() & (bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL)) != 0; }
  Picture Look() { return CaptureClient(tree); }

  std::unique_ptr<HostWindow> host;
  Tree tree;
};

class PaintedTree : public PaintedTreeOf<TestTree> {};

}  // namespace support
