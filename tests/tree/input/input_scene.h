// A tree in a host window, driven by keys and the mouse as by a person. Messages pass through
// PreTranslateMessage, as in an application.
#pragma once

#include <memory>
#include <string>

#include "support/driver.h"
#include "support/host_window.h"
#include "tree/test_tree.h"

namespace support {

// Zones of a row, as HitTest tells them.
inline constexpr unsigned kImage = 0x0002;
inline constexpr unsigned kLabel = 0x0004;
inline constexpr unsigned kIndent = 0x0008;
inline constexpr unsigned kButton = 0x0010;
inline constexpr unsigned kRight = 0x0020;
inline constexpr unsigned kCheckBox = 0x0040;
inline constexpr unsigned kStateImage = 0x1000;

// Buttons and lines, also at the first level.
inline constexpr unsigned kPlain = STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT;

class InputScene {
 public:
  // A host of its own with the tree in it; scene: as TestTree::Build takes it. The tree has the focus.
  explicit InputScene(const std::string& scene, unsigned style = kPlain, int cx = 240, int cy = 200);
  ~InputScene();
  InputScene(const InputScene&) = delete;
  InputScene& operator=(const InputScene&) = delete;

  // The middle of a zone of an item's row, on the screen. Lets messages run first.
  POINT Spot(const std::string& label, unsigned zone = kLabel);
  // Below the last row.
  POINT Below();
  // Gives an item an image, a state image and a check box.
  void Dress(const std::string& label);
  void Click(const std::string& label, unsigned zone = kLabel, Keys keys = {});
  // Selects an item and gives it the focus without any record.
  void Start(const std::string& label);
  // One press of a key, up again, through PreTranslateMessage.
  static void Key(UINT key, Keys keys = {}) { support::Key(key, keys); }
  // Lets the pause pass that begins a new search.
  static void PauseTyping();
  // Whether the timer of a delayed edit ran; stops it.
  bool StopEditTimer();
  // The text in the box; the edit must be open.
  std::wstring EditText();

  std::unique_ptr<HostWindow> host;
  TestTree tree;
  Recorder hostLog;

 private:
  CWnd m_frame;  // makes the host the application's main window
  MessageFilter m_ahead;
};

}  // namespace support
