// Files, threads, comparison, command lines, thread-local slots.
#include <windows.h>

#include <shellapi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::wstring TempFolder() {
  wchar_t folder[MAX_PATH];
  GetTempPathW(MAX_PATH, folder);
  return folder;
}

// A folder of the test's own, gone with its files at the end.
class Folder {
 public:
  Folder() : path(TempFolder() + L"vorn_" + std::to_wstring(GetCurrentProcessId())) {
    CreateDirectoryW(path.c_str(), nullptr);
  }
  ~Folder() {
    for (const std::wstring& name : List(L"*"))
      if (name[0] != L'.') DeleteFileW((path + L"/" + name).c_str());
    RemoveDirectoryW(path.c_str());
  }

  std::wstring File(const wchar_t* name) const { return path + L"/" + name; }
  void Write(const wchar_t* name, const std::string& bytes) const {
    const HANDLE file = CreateFileW(File(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, file);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
    EXPECT_EQ(bytes.size(), written);
    CloseHandle(file);
  }
  std::vector<std::wstring> List(const wchar_t* pattern) const {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW data{};
    const HANDLE search = FindFirstFileW(File(pattern).c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
      names.emplace_back(data.cFileName);
    } while (FindNextFileW(search, &data));
    EXPECT_EQ(static_cast<DWORD>(ERROR_NO_MORE_FILES), GetLastError());
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
  }

  const std::wstring path;
};

using Names = std::vector<std::wstring>;

}  // namespace

TEST(Files, AreWrittenAndRead) {
  const Folder folder;
  folder.Write(L"a.txt", "hello world");
  const HANDLE file = CreateFileW(folder.File(L"a.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(INVALID_HANDLE_VALUE, file);
  EXPECT_EQ(11u, GetFileSize(file, nullptr));
  EXPECT_EQ(6u, SetFilePointer(file, 6, nullptr, FILE_BEGIN));
  char text[20] = {};
  DWORD read = 0;
  EXPECT_TRUE(ReadFile(file, text, sizeof text, &read, nullptr));
  EXPECT_EQ(5u, read);
  EXPECT_STREQ("world", text);
  EXPECT_TRUE(ReadFile(file, text, sizeof text, &read, nullptr));
  EXPECT_EQ(0u, read);
  EXPECT_TRUE(CloseHandle(file));
}

TEST(Files, MissingOnesSayWhatIsMissing) {
  const Folder folder;
  EXPECT_EQ(INVALID_HANDLE_VALUE,
            CreateFileW(folder.File(L"none").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(static_cast<DWORD>(ERROR_FILE_NOT_FOUND), GetLastError());
  EXPECT_EQ(INVALID_HANDLE_VALUE, CreateFileW(folder.File(L"no/none").c_str(), GENERIC_READ, 0, nullptr,
                                              OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(static_cast<DWORD>(ERROR_PATH_NOT_FOUND), GetLastError());
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(folder.File(L"none").c_str()));
  EXPECT_TRUE(GetFileAttributesW(folder.path.c_str()) & FILE_ATTRIBUTE_DIRECTORY);
}

TEST(Files, AreListedByPattern) {
  const Folder folder;
  for (const wchar_t* name : {L"a.txt", L"b.txt", L"c.ini"}) folder.Write(name, "");
  EXPECT_EQ((Names{L"a.txt", L"b.txt"}), folder.List(L"*.TXT"));
  EXPECT_EQ((Names{L"c.ini"}), folder.List(L"?.ini"));
  EXPECT_EQ((Names{L".", L"..", L"a.txt", L"b.txt", L"c.ini"}), folder.List(L"*.*"));
  EXPECT_EQ(Names{}, folder.List(L"*.png"));
}

TEST(Files, TemporaryNamesAreNew) {
  const Folder folder;
  wchar_t name[MAX_PATH];
  ASSERT_NE(0u, GetTempFileNameW(folder.path.c_str(), L"abcd", 0, name));
  EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(name));
  const std::wstring full = name;
  const size_t slash = full.find_last_of(L"/\\");
  EXPECT_EQ(L"abc", full.substr(slash + 1, 3));
  EXPECT_EQ(L".tmp", full.substr(full.size() - 4));
}

namespace {

struct Worker {
  HANDLE go;
  HANDLE done;
  DWORD id;
};

DWORD WINAPI Work(LPVOID param) {
  auto* worker = static_cast<Worker*>(param);
  worker->id = GetCurrentThreadId();
  WaitForSingleObject(worker->go, INFINITE);
  SetEvent(worker->done);
  return 42;
}

}  // namespace

TEST(Threads, EventsMeetAndExitCodesAreKept) {
  Worker worker{CreateEventW(nullptr, FALSE, FALSE, nullptr), CreateEventW(nullptr, TRUE, FALSE, nullptr), 0};
  DWORD id = 0;
  const HANDLE thread = CreateThread(nullptr, 0, Work, &worker, 0, &id);
  ASSERT_NE(nullptr, thread);
  EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), WaitForSingleObject(worker.done, 10));
  DWORD code = 0;
  EXPECT_TRUE(GetExitCodeThread(thread, &code));
  EXPECT_EQ(static_cast<DWORD>(STILL_ACTIVE), code);
  SetEvent(worker.go);
  EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0), WaitForSingleObject(thread, 5000));
  EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0), WaitForSingleObject(worker.done, 0));
  EXPECT_TRUE(GetExitCodeThread(thread, &code));
  EXPECT_EQ(42u, code);
  EXPECT_EQ(id, worker.id);
  EXPECT_NE(GetCurrentThreadId(), id);
  for (const HANDLE handle : {thread, worker.go, worker.done}) EXPECT_TRUE(CloseHandle(handle));
}

TEST(Threads, SuspendedOnesWait) {
  Worker worker{CreateEventW(nullptr, TRUE, TRUE, nullptr), CreateEventW(nullptr, TRUE, FALSE, nullptr), 0};
  const HANDLE thread = CreateThread(nullptr, 0, Work, &worker, CREATE_SUSPENDED, nullptr);
  EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), WaitForSingleObject(worker.done, 20));
  EXPECT_EQ(1u, ResumeThread(thread));
  EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0), WaitForSingleObject(thread, 5000));
  for (const HANDLE handle : {thread, worker.go, worker.done}) CloseHandle(handle);
}

namespace {

// Uses about as many bytes of stack as it is asked for.
DWORD UseStack(size_t bytes) {
  constexpr size_t kFrame = 16384;
  volatile char frame[kFrame];
  frame[0] = 1;
  frame[kFrame - 1] = 1;
  if (bytes <= kFrame) return 1;
  return UseStack(bytes - kFrame) + static_cast<DWORD>(frame[0]);
}

}  // namespace

TEST(Threads, HaveTheStackThatTheyReserve) {
  constexpr SIZE_T kReserve = 64 * 1024 * 1024;
  const LPTHREAD_START_ROUTINE start = [](LPVOID) -> DWORD { return UseStack(kReserve / 2); };
  const HANDLE thread =
      CreateThread(nullptr, kReserve, start, nullptr, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ASSERT_NE(nullptr, thread);
  EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0), WaitForSingleObject(thread, INFINITE));
  DWORD code = 0;
  EXPECT_TRUE(GetExitCodeThread(thread, &code));
  EXPECT_EQ(kReserve / 2 / 16384, code);
  EXPECT_TRUE(CloseHandle(thread));
}

TEST(Threads, SlotsAreEachThreadsOwn) {
  const DWORD slot = TlsAlloc();
  ASSERT_NE(TLS_OUT_OF_INDEXES, slot);
  EXPECT_EQ(nullptr, TlsGetValue(slot));
  int value = 0;
  EXPECT_TRUE(TlsSetValue(slot, &value));
  EXPECT_EQ(&value, TlsGetValue(slot));
  struct Seen {
    DWORD slot;
    LPVOID value;
  } seen{slot, &value};
  const auto look = [](LPVOID param) -> DWORD {
    auto* target = static_cast<Seen*>(param);
    target->value = TlsGetValue(target->slot);
    return 0;
  };
  const LPTHREAD_START_ROUTINE start = look;
  const HANDLE thread = CreateThread(nullptr, 0, start, &seen, 0, nullptr);
  WaitForSingleObject(thread, 5000);
  CloseHandle(thread);
  EXPECT_EQ(nullptr, seen.value);
  EXPECT_TRUE(TlsFree(slot));
}

TEST(Comparison, OrderOfWords) {
  const auto order = [](const wchar_t* a, const wchar_t* b) {
    return CompareStringW(LOCALE_USER_DEFAULT, 0, a, -1, b, -1) - CSTR_EQUAL;
  };
  EXPECT_EQ(-1, order(L"a", L"B"));
  EXPECT_EQ(-1, order(L"a", L"A"));
  EXPECT_EQ(-1, order(L"A", L"b"));
  EXPECT_EQ(-1, order(L"9", L"a"));
  EXPECT_EQ(-1, order(L"_", L"1"));
  EXPECT_EQ(-1, order(L"e", L"\xe9"));
  EXPECT_EQ(-1, order(L"\xe9", L"f"));
  EXPECT_EQ(-1, order(L"\xe9"
                      L"a",
                      L"eb"));
  EXPECT_EQ(-1, order(L"ab", L"abc"));
  EXPECT_EQ(-1, order(L"coop", L"co-op"));
  EXPECT_EQ(-1, order(L"co-op", L"copy"));
  EXPECT_EQ(0, order(L"x", L"x"));
  EXPECT_EQ(0, lstrcmpiW(L"\xc9T\xc9", L"\xe9t\xe9"));
  EXPECT_NE(0, lstrcmpiW(L"ete", L"\xe9t\xe9"));
}

TEST(CommandLine, IsSplitByBlanksAndQuotes) {
  int count = 0;
  LPWSTR* arguments =
      CommandLineToArgvW(L"\"C:\\my prog.exe\" one \"two words\" a\\\\b \\\"q\\\" \"\"", &count);
  ASSERT_NE(nullptr, arguments);
  const std::vector<std::wstring> found(arguments, arguments + count);
  EXPECT_EQ((Names{L"C:\\my prog.exe", L"one", L"two words", L"a\\\\b", L"\"q\"", L""}), found);
  EXPECT_EQ(nullptr, LocalFree(arguments));
}

TEST(Times, FileTimesAndDates) {
  const SYSTEMTIME time{2001, 9, 0, 9, 1, 46, 40, 123};
  FILETIME file{};
  ASSERT_TRUE(SystemTimeToFileTime(&time, &file));
  SYSTEMTIME back{};
  ASSERT_TRUE(FileTimeToSystemTime(&file, &back));
  EXPECT_EQ(2001, back.wYear);
  EXPECT_EQ(9, back.wMonth);
  EXPECT_EQ(0, back.wDayOfWeek);  // a Sunday
  EXPECT_EQ(9, back.wDay);
  EXPECT_EQ(46, back.wMinute);
  EXPECT_EQ(123, back.wMilliseconds);
  const SYSTEMTIME wrong{2001, 13, 0, 9, 1, 46, 40, 0};
  EXPECT_FALSE(SystemTimeToFileTime(&wrong, &file));
}

TEST(Formats, WideFormatsTakeWideTexts) {
  wchar_t text[64];
  EXPECT_EQ(9, wsprintfW(text, L"%s %d %c%%", L"abc", 42, L'x'));
  EXPECT_STREQ(L"abc 42 x%", text);
  wsprintfW(text, L"%S %04X %-4d|%5u", "narrow", 0xab, 7, 8u);
  EXPECT_STREQ(L"narrow 00AB 7   |    8", text);
}
