// Calls of the shell are recorded; nothing is started.
#include <shellapi.h>

#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "world.h"

namespace desktop {

namespace {

std::vector<ShellCall>& Record() {
  static auto& record = *new std::vector<ShellCall>;
  return record;
}

const RegisterReset g_reset(0, [] { Record().clear(); });

std::wstring TextOf(LPCWSTR text) { return text ? text : L""; }

}  // namespace

std::vector<ShellCall> ShellCalls() {
  WorldLock lock(WorldMutex());
  return Record();
}

void ClearShellCalls() {
  WorldLock lock(WorldMutex());
  Record().clear();
}

}  // namespace desktop

HINSTANCE ShellExecuteW(HWND owner, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder,
                        INT showCommand) {
  using desktop::TextOf;
  const auto code = [](ULONG_PTR value) { return reinterpret_cast<HINSTANCE>(value); };
  desktop::WorldLock lock(desktop::WorldMutex());
  desktop::Record().push_back(
      {owner, TextOf(operation), TextOf(file), TextOf(parameters), TextOf(folder), showCommand});
  if (file && *file) return code(42);
  SetLastError(ERROR_FILE_NOT_FOUND);
  return code(SE_ERR_FNF);
}
