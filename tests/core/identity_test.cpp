// What the library says of itself.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "VornComCtl.h"

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

TEST(Identity, Revision) { EXPECT_STREQ(VornComCtl_get_revision(), "2.9.0.1372"); }

TEST(Identity, Description) {
  EXPECT_STREQ(VORNCOMCTL_get_module_description(),
               "Dynamic linked library for Zelk framework based Application");
}

TEST(Identity, ModuleInfoTakesZeroAndOne) {
  EXPECT_STREQ(VORNCOMCTL_get_module_info(0), VORNCOMCTL_get_module_description());
  EXPECT_STREQ(VORNCOMCTL_get_module_info(1), " VornComCtl version 2.9.0.1372");
}

TEST(Identity, AnyOtherModuleInfoIsTheBuild) {
  for (int which : {2, -1, 1000}) {
    EXPECT_STREQ(VORNCOMCTL_get_module_info(which), VORNCOMCTL_get_build_info());
  }
}

TEST(Identity, BuildInfoEndsWithMachineDateAndTime) {
  const std::string info = VORNCOMCTL_get_build_info();
  const std::string head = "VornComCtl version 2.9.0.1372, built on ";
  ASSERT_EQ(info.substr(0, head.size()), head);
  const std::string rest = info.substr(head.size());
  const std::size_t blank = rest.find(' ');
  ASSERT_NE(blank, std::string::npos);
  EXPECT_GT(blank, 0u) << "no machine";

  // "(Nov 27 2025 at 12:40:00)"
  const std::string time = rest.substr(blank + 1);
  const std::string shape = "(Aaa 99 9999 at 99:99:99)";
  ASSERT_EQ(time.size(), shape.size()) << time;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (shape[i] == '9') {
      EXPECT_TRUE(IsDigit(time[i])) << time;
    } else if (i < 1 || i > 3) {
      EXPECT_EQ(time[i], shape[i]) << time;
    }
  }
  const std::string months = "JanFebMarAprMayJunJulAugSepOctNovDec";
  EXPECT_EQ(months.find(time.substr(1, 3)) % 3, 0u) << time;
}

TEST(Identity, BuildRecordIsMarkedForFileScanners) {
  EXPECT_EQ(std::memcmp(VORNCOMCTL_get_build_info() - 8, "@(#)ZQT:", 8), 0);
}

}  // namespace
