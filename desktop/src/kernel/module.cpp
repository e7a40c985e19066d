// Modules: those of the desktop, and shared libraries of the system.
#include "desktop/module.h"

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <memory>
#include <utility>
#include <string>
#include <vector>

#include "kernel.h"
#include "resource.h"
#include "world.h"

namespace desktop {

namespace {

// Never destroyed: modules unregister themselves late at the end of the program.
std::vector<std::unique_ptr<Module>>& Modules() {
  static auto& modules = *new std::vector<std::unique_ptr<Module>>;
  return modules;
}

HINSTANCE HandleOf(const Module* module) { return reinterpret_cast<HINSTANCE>(const_cast<Module*>(module)); }

std::string ProgramPath() {
  char path[PATH_MAX];
  const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
  return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

// The name of a module without folder and extension.
std::wstring BaseName(const std::wstring& path) {
  const size_t slash = path.find_last_of(L"/\\");
  std::wstring name = slash == std::wstring::npos ? path : path.substr(slash + 1);
  const size_t dot = name.rfind(L'.');
  if (dot == std::wstring::npos) return name;
  const std::wstring extension = name.substr(dot);
  const bool known =
      EqualNoCase(extension, L".dll") || EqualNoCase(extension, L".exe") || extension == L".so";
  return known || dot + 1 == name.size() ? name.substr(0, dot) : name;
}

Module* FindByName(const std::wstring& name) {
  const std::wstring wanted = BaseName(name);
  for (const auto& module : Modules()) {
    if (EqualNoCase(module->name, wanted)) return module.get();
    // Library files of Linux carry a prefix.
    if (EqualNoCase(L"lib" + module->name, wanted)) return module.get();
  }
  return nullptr;
}

// A program that no start-up code has registered is a module without resources.
Module* Program() {
  for (const auto& module : Modules())
    if (module->isProgram) return module.get();
  auto program = std::make_unique<Module>();
  program->path = ProgramPath();
  program->name = BaseName(WideFromUtf8(program->path));
  program->isProgram = true;
  Modules().push_back(std::move(program));
  return Modules().back().get();
}

void Remove(const Module* module) {
  ForgetPicturesOf(HandleOf(module));
  auto& modules = Modules();
  modules.erase(std::remove_if(modules.begin(), modules.end(),
                               [=](const auto& known) { return known.get() == module; }),
                modules.end());
}

// Counts one more use of a module that is there already.
HMODULE Reuse(LPCWSTR fileName) {
  WorldLock lock(WorldMutex());
  Module* module = FindByName(fileName);
  if (!module) return nullptr;
  ++module->references;
  return HandleOf(module);
}

// Takes a library that dlopen has opened. Its own start-up code may have registered it by now.
HMODULE Adopt(LPCWSTR fileName, void* library) {
  WorldLock lock(WorldMutex());
  Module* module = FindByName(fileName);
  if (!module) {
    auto foreign = std::make_unique<Module>();
    foreign->name = BaseName(fileName);
    foreign->path = NativePath(fileName);
    foreign->isForeign = true;
    Modules().push_back(std::move(foreign));
    module = Modules().back().get();
  }
  if (module->library) dlclose(library);
  if (!module->library) module->library = library;
  ++module->references;
  return HandleOf(module);
}

}  // namespace

Module* ModuleFromHandle(HINSTANCE handle) {
  if (!handle) return Program();
  for (const auto& module : Modules())
    if (HandleOf(module.get()) == handle) return module.get();
  return nullptr;
}

size_t BytesInModules(const uint8_t* address, size_t unknown) {
  for (const auto& module : Modules())
    for (const ResourceRecord& record : module->resources)
      if (address >= record.data && address < record.data + record.size)
        return static_cast<size_t>(record.data + record.size - address);
  return unknown;
}

HINSTANCE RegisterModule(const char* name, bool isProgram, const void* resources, unsigned long long size) {
  WorldLock lock(WorldMutex());
  auto module = std::make_unique<Module>();
  module->name = BaseName(WideFromUtf8(name));
  module->isProgram = isProgram;
  module->references = 1;
  if (resources) module->resources = ParseResources(resources, size);
  Dl_info info{};
  if (isProgram)
    module->path = ProgramPath();
  else if (dladdr(__builtin_return_address(0), &info) && info.dli_fname)
    module->path = info.dli_fname;
  Modules().push_back(std::move(module));
  return HandleOf(Modules().back().get());
}

void UnregisterModule(HINSTANCE module) {
  WorldLock lock(WorldMutex());
  if (module) Remove(ModuleFromHandle(module));
}

}  // namespace desktop

using desktop::Module;
using desktop::ModuleFromHandle;
using desktop::WorldLock;
using desktop::WorldMutex;

HMODULE GetModuleHandleW(LPCWSTR name) {
  WorldLock lock(WorldMutex());
  const Module* module = name ? desktop::FindByName(name) : desktop::Program();
  if (!module) SetLastError(ERROR_MOD_NOT_FOUND);
  return desktop::HandleOf(module);
}

DWORD GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size) {
  WorldLock lock(WorldMutex());
  const Module* found = ModuleFromHandle(module);
  if (!found) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return 0;
  }
  if (size == 0) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  const std::wstring path = desktop::WideFromUtf8(found->path);
  const auto length = static_cast<DWORD>(std::min<size_t>(path.size(), size - 1));
  path.copy(fileName, length);
  fileName[length] = 0;
  SetLastError(length < path.size() ? ERROR_INSUFFICIENT_BUFFER : NO_ERROR);
  return length < path.size() ? size : length;
}

HMODULE LoadLibraryW(LPCWSTR fileName) {
  if (!fileName || !*fileName) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  if (const HMODULE known = desktop::Reuse(fileName)) return known;
  // The library's own start-up code runs in here and calls the desktop: no lock.
  void* library = dlopen(desktop::NativePath(fileName).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
  }
  return desktop::Adopt(fileName, library);
}

HMODULE LoadLibraryExW(LPCWSTR fileName, HANDLE, DWORD) { return LoadLibraryW(fileName); }

BOOL FreeLibrary(HMODULE module) {
  void* library = nullptr;
  {
    WorldLock lock(WorldMutex());
    Module* found = module ? ModuleFromHandle(module) : nullptr;
    if (!found) {
      SetLastError(ERROR_MOD_NOT_FOUND);
      return FALSE;
    }
    const int inUseByItself = found->isForeign ? 0 : 1;
    if (found->references > inUseByItself) --found->references;
    if (found->references == inUseByItself) library = std::exchange(found->library, nullptr);
    if (library && found->isForeign) desktop::Remove(found);
  }
  if (library) dlclose(library);
  return TRUE;
}

FARPROC GetProcAddress(HMODULE module, LPCSTR name) {
  std::string path;
  {
    WorldLock lock(WorldMutex());
    const Module* found = module ? ModuleFromHandle(module) : nullptr;
    if (found && !found->isProgram) path = found->path;
    if (!found || IS_INTRESOURCE(name)) {
      SetLastError(found ? ERROR_PROC_NOT_FOUND : ERROR_INVALID_HANDLE);
      return nullptr;
    }
  }
  void* library = dlopen(path.empty() ? nullptr : path.c_str(), RTLD_NOW | RTLD_NOLOAD);
  void* symbol = library ? dlsym(library, name) : nullptr;
  if (library) dlclose(library);
  if (!symbol) SetLastError(ERROR_PROC_NOT_FOUND);
  return reinterpret_cast<FARPROC>(symbol);
}

BOOL DisableThreadLibraryCalls(HMODULE module) {
  WorldLock lock(WorldMutex());
  return module && ModuleFromHandle(module) != nullptr;
}
