// Environment, command line, time of day.
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <windows.h>

#include <shellapi.h>

#include "kernel.h"
#include "world.h"

using desktop::Utf8FromWide;
using desktop::WideFromUtf8;
using desktop::WorldLock;
using desktop::WorldMutex;

namespace {

// 100 ns intervals from 1601 to 1970.
constexpr ULONGLONG kEpoch = 116444736000000000ULL;
constexpr ULONGLONG kTicksPerSecond = 10000000ULL;

ULONGLONG TicksOf(const FILETIME& time) {
  return static_cast<ULONGLONG>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

FILETIME FromTicks(ULONGLONG ticks) { return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)}; }

ULONGLONG TicksNow() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return kEpoch + static_cast<ULONGLONG>(now.tv_sec) * kTicksPerSecond +
         static_cast<ULONGLONG>(now.tv_nsec) / 100;
}

SYSTEMTIME SystemTimeOf(const tm& broken, int milliseconds) {
  const auto word = [](int value) { return static_cast<WORD>(value); };
  return {word(broken.tm_year + 1900), word(broken.tm_mon + 1), word(broken.tm_wday), word(broken.tm_mday),
          word(broken.tm_hour),        word(broken.tm_min),     word(broken.tm_sec),  word(milliseconds)};
}

void SystemTimeOfNow(LPSYSTEMTIME time, tm* (*split)(const time_t*, tm*)) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  tm broken{};
  split(&now.tv_sec, &broken);
  *time = SystemTimeOf(broken, static_cast<int>(now.tv_nsec / 1000000));
}

// One argument as a command line has it.
std::wstring Quoted(const std::wstring& argument) {
  if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos) return argument;
  std::wstring out = L"\"";
  size_t slashes = 0;
  for (const wchar_t character : argument) {
    if (character == L'\\') {
      ++slashes;
      continue;
    }
    out.append(character == L'"' ? 2 * slashes + 1 : slashes, L'\\');
    slashes = 0;
    out += character;
  }
  out.append(2 * slashes, L'\\');
  return out + L'"';
}

std::wstring ReadCommandLine() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  std::wstring line;
  for (size_t at = 0; at < bytes.size(); at += strlen(bytes.c_str() + at) + 1) {
    if (at > 0) line += L' ';
    line += Quoted(WideFromUtf8(std::string(bytes.c_str() + at)));
  }
  return line;
}

// Takes the program's name: up to the closing quote, or to the first blank.
std::wstring TakeProgram(const wchar_t*& at) {
  const wchar_t* begin = at;
  if (*at == L'"') {
    const wchar_t* end = wcschr(++begin, L'"');
    at = end ? end + 1 : begin + wcslen(begin);
    return {begin, end ? end : at};
  }
  while (*at && *at != L' ' && *at != L'\t') ++at;
  return {begin, at};
}

// Takes one argument: 2n backslashes and a quote are n backslashes and a mark, 2n + 1 a literal quote.
std::wstring TakeArgument(const wchar_t*& at) {
  std::wstring argument;
  bool quoted = false;
  while (*at && (quoted || (*at != L' ' && *at != L'\t'))) {
    size_t slashes = 0;
    while (*at == L'\\') ++slashes, ++at;
    if (*at != L'"') {
      argument.append(slashes, L'\\');
      if (!slashes) argument += *at++;
      continue;
    }
    argument.append(slashes / 2, L'\\');
    ++at;
    if (slashes % 2) {
      argument += L'"';
    } else if (quoted && *at == L'"') {
      argument += *at++;
    } else {
      quoted = !quoted;
    }
  }
  return argument;
}

std::vector<std::wstring> SplitCommandLine(const wchar_t* at) {
  std::vector<std::wstring> arguments{TakeProgram(at)};
  for (;;) {
    while (*at == L' ' || *at == L'\t') ++at;
    if (!*at) return arguments;
    arguments.push_back(TakeArgument(at));
  }
}

}  // namespace

DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size) {
  WorldLock lock(WorldMutex());
  const char* value = name ? getenv(Utf8FromWide(name).c_str()) : nullptr;
  if (!value) {
    SetLastError(ERROR_ENVVAR_NOT_FOUND);
    return 0;
  }
  SetLastError(NO_ERROR);
  return desktop::CopyOut(WideFromUtf8(std::string(value)), buffer, size);
}

BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value) {
  if (!name || !*name || wcschr(name, L'=')) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  const std::string key = Utf8FromWide(name);
  if (value) return setenv(key.c_str(), Utf8FromWide(value).c_str(), 1) == 0;
  if (!getenv(key.c_str())) {
    SetLastError(ERROR_ENVVAR_NOT_FOUND);
    return FALSE;
  }
  return unsetenv(key.c_str()) == 0;
}

wchar_t* _wgetenv(const wchar_t* name) {
  WorldLock lock(WorldMutex());
  static auto& kept = *new std::map<std::wstring, std::wstring>;
  const char* value = name ? getenv(Utf8FromWide(name).c_str()) : nullptr;
  if (!value) return nullptr;
  std::wstring& slot = kept[name];
  if (Utf8FromWide(slot) != value) slot = WideFromUtf8(std::string(value));
  return slot.data();
}

int _wputenv(const wchar_t* assignment) {
  const wchar_t* equals = assignment ? wcschr(assignment, L'=') : nullptr;
  if (!equals || equals == assignment) return -1;
  const std::wstring name(assignment, equals);
  WorldLock lock(WorldMutex());
  if (!equals[1]) return unsetenv(Utf8FromWide(name).c_str());
  return setenv(Utf8FromWide(name).c_str(), Utf8FromWide(equals + 1).c_str(), 1);
}

BOOL GetComputerNameW(LPWSTR buffer, LPDWORD size) {
  char host[256] = {};
  gethostname(host, sizeof host - 1);
  std::wstring name = WideFromUtf8(std::string(host)).substr(0, MAX_COMPUTERNAME_LENGTH);
  std::transform(name.begin(), name.end(), name.begin(), desktop::UpperCase);
  const DWORD needed = desktop::CopyOut(name, buffer, *size);
  *size = needed;
  if (needed == name.size()) return TRUE;
  SetLastError(ERROR_INSUFFICIENT_BUFFER);
  return FALSE;
}

LPWSTR GetCommandLineW() {
  static std::wstring& line = *new std::wstring(ReadCommandLine());
  return line.data();
}

LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count) {
  if (!count || !commandLine) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  const std::vector<std::wstring> arguments =
      SplitCommandLine(*commandLine ? commandLine : GetCommandLineW());
  size_t bytes = (arguments.size() + 1) * sizeof(LPWSTR);
  for (const std::wstring& argument : arguments) bytes += (argument.size() + 1) * sizeof(WCHAR);
  auto* result = static_cast<LPWSTR*>(LocalAlloc(LMEM_ZEROINIT, bytes));
  if (!result) return nullptr;
  auto* text = reinterpret_cast<LPWSTR>(result + arguments.size() + 1);
  for (size_t i = 0; i < arguments.size(); ++i) {
    result[i] = text;
    text = std::copy(arguments[i].begin(), arguments[i].end(), text) + 1;
  }
  *count = static_cast<int>(arguments.size());
  return result;
}

void GetLocalTime(LPSYSTEMTIME time) { SystemTimeOfNow(time, localtime_r); }

void GetSystemTime(LPSYSTEMTIME time) { SystemTimeOfNow(time, gmtime_r); }

void GetSystemTimeAsFileTime(LPFILETIME time) { *time = FromTicks(TicksNow()); }

BOOL FileTimeToSystemTime(const FILETIME* fileTime, LPSYSTEMTIME systemTime) {
  const ULONGLONG ticks = TicksOf(*fileTime);
  if (ticks >> 63) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  const auto seconds =
      static_cast<time_t>(ticks / kTicksPerSecond) - static_cast<time_t>(kEpoch / kTicksPerSecond);
  tm broken{};
  gmtime_r(&seconds, &broken);
  *systemTime = SystemTimeOf(broken, static_cast<int>(ticks % kTicksPerSecond / 10000));
  return TRUE;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* systemTime, LPFILETIME fileTime) {
  const SYSTEMTIME& time = *systemTime;
  tm broken{};
  broken.tm_year = time.wYear - 1900;
  broken.tm_mon = time.wMonth - 1;
  broken.tm_mday = time.wDay;
  broken.tm_hour = time.wHour;
  broken.tm_min = time.wMinute;
  broken.tm_sec = time.wSecond;
  const tm wanted = broken;
  const time_t seconds = timegm(&broken);
  const bool valid = time.wYear >= 1601 && broken.tm_mon == wanted.tm_mon &&
                     broken.tm_mday == wanted.tm_mday && time.wHour < 24 && time.wMinute < 60 &&
                     time.wSecond < 60 && time.wMilliseconds < 1000;
  if (!valid) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  const auto since1601 = static_cast<ULONGLONG>(seconds) + kEpoch / kTicksPerSecond;
  *fileTime = FromTicks(since1601 * kTicksPerSecond + time.wMilliseconds * 10000ULL);
  return TRUE;
}

BOOL FileTimeToLocalFileTime(const FILETIME* fileTime, LPFILETIME localTime) {
  const time_t now = time(nullptr);
  tm broken{};
  localtime_r(&now, &broken);
  const long long offset = broken.tm_gmtoff * static_cast<long long>(kTicksPerSecond);
  *localTime = FromTicks(TicksOf(*fileTime) + static_cast<ULONGLONG>(offset));
  return TRUE;
}
