// A tree whose scrolling is watched, in a window that a known number of rows fills.
#pragma once

#include <map>
#include <string>

#include "tree/painted_tree.h"

namespace support {

// Counts paints, and lets the test give other answers than the bars'.
class ScrollTree : public TestTree {
 public:
  using CVornTreeCtrl::OnHScroll;
  using CVornTreeCtrl::OnMouseWheel;
  using CVornTreeCtrl::OnVScroll;

  int GetScrollInfo(int bar, SCROLLINFO* info, unsigned int mask) override {
    masks[bar] = mask;
    const int result = CVornTreeCtrl::GetScrollInfo(bar, info, mask);
    if (track >= 0) info->nTrackPos = track;
    return result;
  }
  int SetScrollPos(int bar, int pos, int redraw) override {
    set += (bar == SB_HORZ ? "H" : "V") + std::to_string(pos) + (redraw ? " " : "- ");
    return CVornTreeCtrl::SetScrollPos(bar, pos, redraw);
  }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_PAINT) ++paints;
    if (message == WM_VSCROLL)
      scrolls += std::to_string(LOWORD(wParam)) + ":" + std::to_string(HIWORD(wParam)) + " ";
    if (message == WM_SETREDRAW) ++redraws;
    return CVornTreeCtrl::WindowProc(message, wParam, lParam);
  }

  int paints = 0;
  int redraws = 0;
  int track = -1;
  std::string set;
  std::string scrolls;
  std::map<int, unsigned> masks;
};

class TreeScrolling : public PaintedTreeOf<ScrollTree> {
 protected:
  // A window that exactly that many rows fill, with count rows in it.
  void CreateRows(int count, int fitting, int cx = 200) {
    Create(0, cx, 100);
    Fill(count);
    height = HeightOf(tree, Row(0));
    Resize(cx, fitting * height);
    Reset();
  }
  void Reset() {
    tree.paints = 0;
    tree.redraws = 0;
    tree.set.clear();
    tree.scrolls.clear();
  }
  void Scroll(UINT message, UINT code, UINT pos = 0) {
    Reset();
    tree.SendMessage(message, MAKEWPARAM(code, pos), 0);
  }
  void MoveTo(int bar, int position) {
    tree.SetScrollPos(bar, position, TRUE);
    Repaint();
    Reset();
  }
  int Vertical() { return tree.GetScrollPos(SB_VERT); }
  int Horizontal() { return tree.GetScrollPos(SB_HORZ); }
  // A row whose label is much wider than any window here.
  CVornTreeItem* AddWideRow() { return tree.Add(std::string(120, 'W')); }

  int height = 0;
};

}  // namespace support
