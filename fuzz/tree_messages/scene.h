// A frame with a hostile tree in it, and what steps choose from.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "hostile_tree.h"
#include "support/steps.h"

namespace fuzz {

// Answers whatever the tree tells its parent.
class Frame : public CWnd {
 public:
  explicit Frame(HostileTree& tree) : m_tree(tree) {}
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

 private:
  HostileTree& m_tree;
};

class Scene {
 public:
  explicit Scene(uint32_t seed);
  ~Scene();
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  // One step, and whatever comes of it.
  void Play(const Step& step);

  // What operands stand for.
  CVornTreeItem* Item(uint8_t operand) const;  // living, dead, of another control, or none at all
  const wchar_t* Text(uint8_t operand) const;
  int Number(uint8_t operand) const;                 // small ones, and the ends of the ranges
  CPoint Point(uint8_t across, uint8_t down) const;  // in the client area or near it
  CFont* Font(uint8_t operand);                      // may be null
  CImageList* Images(uint8_t operand);               // may be null
  HWND Window(uint8_t operand) const;                // may be null, or no window
  HWND Box() const;                                  // the label edit's; null when there is none

  // An item just made.
  void Keep(CVornTreeItem* item);
  void CreateWindowAnew();
  // Runs messages, not without end.
  void Pump();
  // Lets time pass.
  void Wait(int milliseconds);
  // Whether the step is played inside a hook.
  bool InHook() const { return m_depth > 1; }

  HostileTree tree;
  CVornTreeCtrl other;  // without a window
  Frame frame;
  size_t sent = 0;  // messages and input events

 private:
  int AnswerOf();
  uint32_t Random();

  std::vector<CVornTreeItem*> m_items;
  CFont m_fonts[2];
  CImageList m_images;
  HWND m_window = nullptr;  // the tree's last
  uint32_t m_random;
  int m_depth = 0;
};

// Sends or posts one message of those that the control, its box or its frame may get.
void SendAMessage(Scene& scene, const Step& step);
// One event of the mouse or the keyboard.
void MakeInput(Scene& scene, const Step& step);
void ReleaseAllKeys();
// One public operation.
void CallSomething(Scene& scene, const Step& step);

// Plays all steps in a fresh scene; seed decides what the host answers. The number of messages and input
// events.
size_t Play(const Steps& steps, uint32_t seed);

}  // namespace fuzz
