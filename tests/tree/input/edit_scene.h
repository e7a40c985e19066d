// Scenes of label edits: one to open, one that is open.
#pragma once

#include "edit/VornTreeEdit.h"
#include "tree/input/input_scene.h"

namespace support {

inline constexpr unsigned kEditStyle = kPlain | STS_EDITLABELS;

// An edit of Alpha is open, nothing is recorded yet.
class OpenEdit : public testing::Test {
 protected:
  OpenEdit() : scene("root [Alpha [Beta] Delta]", kEditStyle), tree(scene.tree) {
    edit = tree.EditLabel(tree["Alpha"]);
    alpha = tree["Alpha"];
    tree.log.Clear();
  }
  HWND Box() { return edit->GetSafeHwnd(); }
  RECT BoxRect() {
    RECT rect{};
    ::GetWindowRect(Box(), &rect);
    ::MapWindowPoints(nullptr, tree, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
  }
  std::string Label() { return Narrow(tree.GetItemText(alpha)); }

  InputScene scene;
  TestTree& tree;
  CEdit* edit = nullptr;
  CVornTreeItem* alpha = nullptr;
};

class LabelEdit : public testing::Test {
 protected:
  LabelEdit() : scene("root [Alpha [Beta] Delta]", kEditStyle), tree(scene.tree) {}
  InputScene scene;
  TestTree& tree;
};

}  // namespace support
