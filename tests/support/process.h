// What a test program does once, differently on the two desktops.
#pragma once

#include <string>

namespace support {

// Gives the process a desktop of its own and keeps crash boxes away. Before any window is made.
void PrepareProcess();

// Puts a new thread on the process's desktop. Before the thread makes a window.
void PrepareThread();

// What is alive at this moment. Two snapshots around a test tell what the test left behind.
struct Alive {
  int windows = 0;
  int gdiObjects = 0;
  int dcs = 0;
  int timers = 0;
  int menus = 0;       // counted in memory only
  int imageLists = 0;  // counted in memory only
};
Alive CountAlive();

// Destroys what a failed test left behind, so that the next one starts clean: windows, messages,
// pressed keys and buttons, capture.
void CleanUpAfterTest();

}  // namespace support
