// Profile files: sections of keys and values in text files, re-read at each call.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "kernel.h"
#include "world.h"

namespace desktop {

namespace {

// A file as lines, so that comments and order survive a change.
struct ProfileFile {
  std::string path;
  bool unicode = false;  // UTF-16, little-endian, marked at the start
  std::vector<std::wstring> lines;
};

constexpr wchar_t kByteOrderMark = 0xFEFF;

std::string PathOfProfile(LPCWSTR fileName) {
  const std::wstring name = fileName;
  if (name.find_first_of(L"/\\") != std::wstring::npos) return NativePath(fileName);
  wchar_t folder[MAX_PATH];
  GetWindowsDirectoryW(folder, MAX_PATH);
  return NativePath((std::wstring(folder) + L"/" + name).c_str());
}

std::wstring_view Trim(std::wstring_view text) {
  constexpr std::wstring_view kBlanks = L" \t\r\n";
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::wstring Decode(const std::string& bytes, bool& unicode) {
  unicode = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
  if (unicode) return WideFromUtf16(bytes.data() + 2, (bytes.size() - 2) / 2);
  if (bytes.empty()) return {};
  std::wstring text(bytes.size(), 0);
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), static_cast<int>(bytes.size()), text.data(),
                      static_cast<int>(text.size()));
  return text;
}

std::string Encode(const ProfileFile& file) {
  std::wstring text;
  for (const std::wstring& line : file.lines) text += line + L"\r\n";
  std::string bytes;
  if (!file.unicode) {
    bytes.resize(text.size());
    if (!text.empty())
      WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
  }
  const auto put = [&bytes](uint32_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  };
  put(kByteOrderMark);
  for (const wchar_t character : text) {
    const auto code = static_cast<uint32_t>(character);
    if (code < 0x10000) {
      put(code);
      continue;
    }
    put(0xD800 + ((code - 0x10000) >> 10));
    put(0xDC00 + (code & 0x3FF));
  }
  return bytes;
}

ProfileFile ReadProfile(LPCWSTR fileName) {
  ProfileFile profile;
  profile.path = PathOfProfile(fileName);
  std::ifstream file(profile.path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  const std::wstring text = Decode(bytes, profile.unicode);
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find(L'\n', at), text.size());
    std::wstring line = text.substr(at, end - at);
    while (!line.empty() && line.back() == L'\r') line.pop_back();
    profile.lines.push_back(std::move(line));
    at = end + 1;
  }
  return profile;
}

bool WriteProfile(const ProfileFile& profile) {
  std::ofstream file(profile.path, std::ios::binary | std::ios::trunc);
  file << Encode(profile);
  file.close();
  if (file) return true;
  SetLastError(access(profile.path.c_str(), F_OK) == 0 ? ERROR_ACCESS_DENIED : ERROR_PATH_NOT_FOUND);
  return false;
}

// The name of a section when the line starts one.
bool IsSection(const std::wstring& line, std::wstring_view& name) {
  const std::wstring_view text = Trim(line);
  if (text.empty() || text[0] != L'[') return false;
  const size_t end = text.rfind(L']');
  if (end == std::wstring_view::npos) return false;
  name = text.substr(1, end - 1);
  return true;
}

bool Same(std::wstring_view a, std::wstring_view b) {
  return EqualNoCase(std::wstring(Trim(a)), std::wstring(Trim(b)));
}

bool IsComment(const std::wstring& line) {
  const std::wstring_view text = Trim(line);
  return text.empty() || text[0] == L';';
}

std::wstring_view KeyOf(const std::wstring& line) {
  const std::wstring_view text = line;
  return Trim(text.substr(0, std::min(text.find(L'='), text.size())));
}

std::wstring_view ValueOf(const std::wstring& line) {
  const size_t equals = line.find(L'=');
  return equals == std::wstring::npos ? std::wstring_view()
                                      : Trim(std::wstring_view(line).substr(equals + 1));
}

// The lines of a section: begin is that of its name; end the first that is no part of it.
struct Range {
  size_t begin;
  size_t end;
  bool found;
};

Range FindSection(const ProfileFile& profile, LPCWSTR section) {
  const size_t count = profile.lines.size();
  std::wstring_view name;
  for (size_t i = 0; i < count; ++i) {
    if (!IsSection(profile.lines[i], name) || !Same(name, section)) continue;
    size_t end = i + 1;
    while (end < count && !IsSection(profile.lines[end], name)) ++end;
    return {i, end, true};
  }
  return {count, count, false};
}

size_t FindKey(const ProfileFile& profile, const Range& range, LPCWSTR key) {
  for (size_t i = range.begin + 1; i < range.end; ++i)
    if (!IsComment(profile.lines[i]) && Same(KeyOf(profile.lines[i]), key)) return i;
  return range.end;
}

bool FindValue(LPCWSTR section, LPCWSTR key, LPCWSTR fileName, std::wstring& value) {
  const ProfileFile profile = ReadProfile(fileName);
  const Range range = FindSection(profile, section);
  if (!range.found) return false;
  const size_t line = FindKey(profile, range, key);
  if (line == range.end) return false;
  value = ValueOf(profile.lines[line]);
  return true;
}

// A value in quotation marks comes without them.
std::wstring WithoutQuotes(const std::wstring& value) {
  const bool quoted = value.size() > 1 && (value[0] == L'"' || value[0] == L'\'') && value.back() == value[0];
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// Texts one after the other, each with its zero, and one more zero. What does not fit is cut; the answer is
// then size - 2.
DWORD CopyList(const std::vector<std::wstring>& texts, LPWSTR buffer, DWORD size) {
  std::wstring all;
  for (const std::wstring& text : texts) all += text + L'\0';
  if (size < 2) {
    if (size == 1) *buffer = 0;
    return 0;
  }
  if (texts.empty()) {
    buffer[0] = buffer[1] = 0;
    return 0;
  }
  if (all.size() + 1 <= size) {
    all.copy(buffer, all.size());
    buffer[all.size()] = 0;
    return static_cast<DWORD>(all.size());
  }
  all.copy(buffer, size - 2);
  buffer[size - 2] = buffer[size - 1] = 0;
  return size - 2;
}

DWORD CopyText(const std::wstring& text, LPWSTR buffer, DWORD size) {
  if (size == 0) return 0;
  const auto length = static_cast<DWORD>(std::min<size_t>(text.size(), size - 1));
  text.copy(buffer, length);
  buffer[length] = 0;
  return length;
}

std::vector<std::wstring> KeysOf(const ProfileFile& profile, LPCWSTR section, bool withValues) {
  std::vector<std::wstring> keys;
  const Range range = FindSection(profile, section);
  for (size_t i = range.begin + 1; i < range.end; ++i) {
    const std::wstring& line = profile.lines[i];
    if (IsComment(line)) continue;
    std::wstring key(KeyOf(line));
    if (withValues && line.find(L'=') != std::wstring::npos) key += L'=' + std::wstring(ValueOf(line));
    keys.push_back(std::move(key));
  }
  return keys;
}

std::vector<std::wstring> SectionsOf(const ProfileFile& profile) {
  std::vector<std::wstring> sections;
  std::wstring_view name;
  for (const std::wstring& line : profile.lines)
    if (IsSection(line, name)) sections.emplace_back(name);
  return sections;
}

void RemoveLines(ProfileFile& profile, size_t begin, size_t end) {
  const auto at = [&](size_t i) { return profile.lines.begin() + static_cast<std::ptrdiff_t>(i); };
  profile.lines.erase(at(begin), at(end));
}

void SetValue(ProfileFile& profile, LPCWSTR section, LPCWSTR key, LPCWSTR value) {
  Range range = FindSection(profile, section);
  if (!range.found) {
    profile.lines.push_back(L'[' + std::wstring(Trim(section)) + L']');
    range = {profile.lines.size() - 1, profile.lines.size(), true};
  }
  const std::wstring line = std::wstring(Trim(key)) + L'=' + value;
  const size_t existing = FindKey(profile, range, key);
  if (existing != range.end) {
    profile.lines[existing] = line;
    return;
  }
  // Behind the last key: blank lines stay between the sections.
  size_t at = range.end;
  while (at > range.begin + 1 && Trim(profile.lines[at - 1]).empty()) --at;
  profile.lines.insert(profile.lines.begin() + static_cast<std::ptrdiff_t>(at), line);
}

}  // namespace

}  // namespace desktop

using desktop::ProfileFile;
using desktop::ReadProfile;
using desktop::WorldLock;
using desktop::WorldMutex;

DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPWSTR buffer, DWORD size,
                               LPCWSTR fileName) {
  if (!buffer || !fileName) return 0;
  WorldLock lock(WorldMutex());
  if (!section) return desktop::CopyList(desktop::SectionsOf(ReadProfile(fileName)), buffer, size);
  if (!key) return desktop::CopyList(desktop::KeysOf(ReadProfile(fileName), section, false), buffer, size);
  std::wstring value;
  if (desktop::FindValue(section, key, fileName, value))
    return desktop::CopyText(desktop::WithoutQuotes(value), buffer, size);
  // Blanks at the end of a default do not count.
  value = defaultValue ? defaultValue : L"";
  while (!value.empty() && value.back() == L' ') value.pop_back();
  return desktop::CopyText(value, buffer, size);
}

UINT GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultValue, LPCWSTR fileName) {
  if (!section || !key || !fileName) return static_cast<UINT>(defaultValue);
  WorldLock lock(WorldMutex());
  std::wstring value;
  if (!desktop::FindValue(section, key, fileName, value)) return static_cast<UINT>(defaultValue);
  const wchar_t* text = value.c_str();
  if (value.empty()) return static_cast<UINT>(defaultValue);
  const bool hexadecimal = text[0] == L'0' && (text[1] == L'x' || text[1] == L'X');
  return static_cast<UINT>(wcstoll(text, nullptr, hexadecimal ? 16 : 10));
}

DWORD GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR fileName) {
  if (!section || !buffer || !fileName) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  WorldLock lock(WorldMutex());
  return desktop::CopyList(desktop::KeysOf(ReadProfile(fileName), section, true), buffer, size);
}

DWORD GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR fileName) {
  return GetPrivateProfileStringW(nullptr, nullptr, nullptr, buffer, size, fileName);
}

BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR fileName) {
  // All null asks for the cache to be written; there is none.
  if (!section || !fileName) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return FALSE;
  }
  WorldLock lock(WorldMutex());
  ProfileFile profile = ReadProfile(fileName);
  if (key && value) {
    desktop::SetValue(profile, section, key, value);
    return desktop::WriteProfile(profile);
  }
  const desktop::Range range = desktop::FindSection(profile, section);
  const size_t line = key && range.found ? desktop::FindKey(profile, range, key) : range.end;
  if (!range.found || (key && line == range.end)) return TRUE;
  desktop::RemoveLines(profile, key ? line : range.begin, key ? line + 1 : range.end);
  return desktop::WriteProfile(profile);
}
