// A tree under the mouse.
#pragma once

#include "tree/input/input_scene.h"

namespace support {

class Mouse : public testing::Test {
 protected:
  Mouse() : Mouse(kPlain) {}
  explicit Mouse(unsigned style)
      : scene("root [Alpha+ [Beta [Gamma] Bravo] Delta [Echo] Foxtrot]", style), tree(scene.tree) {
    scene.Dress("Beta");
  }

  bool IsIgnoring() { return ::GetPropW(tree, L"IgnoreLBDblClick") == reinterpret_cast<HANDLE>(1); }
  void Refuse(const std::string& refused) {
    tree.answer = [refused](const std::string& hook, CVornTreeItem*, CVornTreeItem*) {
      return hook != refused;
    };
  }
  bool IsWhollyInvalid() {
    RECT invalid{}, client{};
    ::GetUpdateRect(tree, &invalid, FALSE);
    ::GetClientRect(tree, &client);
    return ::EqualRect(&invalid, &client);
  }
  // A message by hand: nothing is painted after it.
  void Send(UINT message, POINT screen, WPARAM flags = MK_LBUTTON) {
    ::ScreenToClient(tree, &screen);
    tree.SendMessage(message, flags, MAKELPARAM(screen.x, screen.y));
  }

  InputScene scene;
  TestTree& tree;
};

}  // namespace support
