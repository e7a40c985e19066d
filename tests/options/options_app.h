// The application object of the test program, with a profile of its own for each test.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

class ProfileTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  static constexpr wchar_t kSection[] = L"VornTreeOptions";
  void Write(const wchar_t* key, int value);
  void Write(const wchar_t* key, const wchar_t* value);

 private:
  CString m_path;
};
