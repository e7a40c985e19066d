// What the rest of the desktop asks of the kernel part.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

namespace desktop {

// Frees the registry, loaded shared pictures and the record of shell calls, for a reset of the desktop. Lock
// held.
void ResetKernel();

// Blocks of GlobalAlloc and LocalAlloc alive. Lock held.
int LiveMemoryBlocks();

// A call of ShellExecuteW.
struct RecordedShellCall {
  HWND owner;
  std::wstring operation;
  std::wstring file;
  std::wstring parameters;
  std::wstring folder;
  int showCommand;
};
// All calls since the start or the last reset, oldest first. Lock held.
std::vector<RecordedShellCall>& ShellCalls();

}  // namespace desktop
