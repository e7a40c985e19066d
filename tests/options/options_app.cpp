#include "options_app.h"

#include <cstdlib>
#include <cwchar>

namespace {

class CTestApp : public CWinApp {
 public:
  void UseFile(const wchar_t* path) {
    std::free(const_cast<wchar_t*>(m_pszProfileName));
    m_pszProfileName = ::_wcsdup(path);
  }
};

CTestApp g_app;

}  // namespace

void ProfileTest::SetUp() {
  wchar_t folder[MAX_PATH] = L"";
  wchar_t path[MAX_PATH] = L"";
  ASSERT_NE(::GetTempPathW(MAX_PATH, folder), 0u);
  ASSERT_NE(::GetTempFileNameW(folder, L"opt", 0, path), 0u);
  m_path = path;
  g_app.UseFile(path);
}

void ProfileTest::TearDown() { ::DeleteFileW(m_path); }

void ProfileTest::Write(const wchar_t* key, int value) {
  ASSERT_TRUE(g_app.WriteProfileInt(kSection, key, value));
}

void ProfileTest::Write(const wchar_t* key, const wchar_t* value) {
  ASSERT_TRUE(g_app.WriteProfileString(kSection, key, value));
}
