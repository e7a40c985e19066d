// How the library joins the program, and its settings.
#include <afxwin.h>
#include <afxdllx.h>

#include <gtest/gtest.h>

#include "VornComCtl.h"
#include "resources/VornResource.h"

namespace {

HINSTANCE Library() { return ::GetModuleHandleW(L"VornComCtl"); }

int TimesInChain() {
  int times = 0;
  AfxLockGlobals(CRIT_DYNLINKLIST);
  for (CDynLinkLibrary* library = AfxGetModuleState()->m_libraryList.GetHead(); library;
       library = library->m_pNextDLL) {
    if (library->m_hModule == Library()) ++times;
  }
  AfxUnlockGlobals(CRIT_DYNLINKLIST);
  return times;
}

TEST(Module, JoinsTheChainOnce) {
  ASSERT_NE(Library(), nullptr);
  EXPECT_NE(AfxInitVornComCtl(), 0);
  EXPECT_EQ(TimesInChain(), 1);
  EXPECT_NE(AfxInitVornComCtl(), 0);
  EXPECT_EQ(TimesInChain(), 1);
}

TEST(Module, ItsResourcesAreFoundThroughTheChain) {
  AfxInitVornComCtl();
  EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCEW(5006), RT_MENU), Library());
  CString text;
  EXPECT_TRUE(text.LoadString(5010));
  EXPECT_STREQ(text, L"Préférences");
}

TEST(Module, NoOptionsAreCurrentWithoutAControl) { EXPECT_EQ(AfxGetVornTreeOptions(), nullptr); }

TEST(Module, TracerDoesNothing) {
  gTracer.HitTest(nullptr, 0);
  gTracer.HitTest(reinterpret_cast<CVornTreeItem*>(8), 0xFFFFFFFF);
  gTracer.ItemText(nullptr);
  CVornTreeTracer other(gTracer);
  EXPECT_EQ(&(other = gTracer), &other);
}

}  // namespace
