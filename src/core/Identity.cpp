// What the library says of itself.
#include "BuildIdentity.h"  // written at build: VORN_BUILD_MACHINE, VORN_BUILD_TIME
#include "VornFunctions.h"

#define VORN_REVISION "2.9.0.1372"

namespace {

const char kRevision[] = VORN_REVISION;
const char kVersion[] = " VornComCtl version " VORN_REVISION;
const char kDescription[] = "Dynamic linked library for Zelk framework based Application";

// Tools that scan files find the record by its first eight characters; callers get what is behind them.
[[gnu::used]] const char kBuildRecord[] =
    "@(#)ZQT:VornComCtl version " VORN_REVISION ", built on " VORN_BUILD_MACHINE " " VORN_BUILD_TIME;
constexpr int kMarkLength = 8;

}  // namespace

const char* VORNCOMCTL_get_build_info() { return kBuildRecord + kMarkLength; }

const char* VORNCOMCTL_get_module_description() { return kDescription; }

const char* VORNCOMCTL_get_module_info(int which) {
  switch (which) {
    case 0: return kDescription;
    case 1: return kVersion;
    default: return VORNCOMCTL_get_build_info();
  }
}

const char* VornComCtl_get_revision() { return kRevision; }
