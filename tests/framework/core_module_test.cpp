// Module state, the chain of extension modules, and the resources found along it.
#include <afxstat_.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

#include "extension/extension.h"
#include "test_app.h"

namespace {

std::wstring String(UINT id) {
  CString text;
  return text.LoadString(id) ? std::wstring(text.GetString()) : L"(none)";
}

// How often the module is in the chain.
int LinksOf(HINSTANCE module) {
  AfxLockGlobals(CRIT_DYNLINKLIST);
  int links = 0;
  const auto& list = AfxGetModuleState()->m_libraryList;
  for (CDynLinkLibrary* p = list.GetHead(); p != nullptr; p = list.GetNext(p))
    links += p->m_hModule == module;
  AfxUnlockGlobals(CRIT_DYNLINKLIST);
  return links;
}

TEST(CoreModule, StateIsThereInEveryThread) {
  AFX_MODULE_STATE* const state = AfxGetModuleState();
  ASSERT_NE(nullptr, state);
  EXPECT_EQ(AfxGetStaticModuleState(), state);
  EXPECT_EQ(::GetModuleHandleW(nullptr), state->m_hCurrentInstanceHandle);
  EXPECT_EQ(state->m_hCurrentInstanceHandle, AfxGetInstanceHandle());
  AFX_MODULE_STATE* other = nullptr;
  std::thread([&] { other = AfxGetModuleState(); }).join();
  EXPECT_EQ(state, other);
}

TEST(CoreModule, AnotherStateIsPutInPlaceForAScope) {
  AFX_MODULE_STATE own(TRUE);
  AFX_MODULE_STATE* const before = AfxGetModuleState();
  {
    AFX_MANAGE_STATE(&own);
    EXPECT_EQ(&own, AfxGetModuleState());
    EXPECT_EQ(&TheApp(), AfxGetApp());
  }
  EXPECT_EQ(before, AfxGetModuleState());
}

TEST(CoreModule, ApplicationIsKnown) {
  EXPECT_EQ(&TheApp(), AfxGetApp());
  EXPECT_EQ(&TheApp(), AfxGetThread());
  EXPECT_STREQ(L"Essais du cadre", AfxGetAppName());
  EXPECT_STREQ(L"framework_tests", AfxGetApp()->m_pszExeName);
  EXPECT_EQ(AfxGetInstanceHandle(), TheApp().m_hInstance);
}

TEST(CoreModule, ExtensionJoinsOnceAndLeaves) {
  EXPECT_NE(nullptr, extension::Handle());
  EXPECT_NE(AfxGetInstanceHandle(), extension::Handle());
  EXPECT_EQ(0, LinksOf(extension::Handle()));
  {
    const std::unique_ptr<CDynLinkLibrary> link(extension::Join());
    EXPECT_EQ(extension::Handle(), link->m_hModule);
    EXPECT_EQ(extension::Handle(), link->m_hResource);
    EXPECT_EQ(1, LinksOf(extension::Handle()));
    const std::unique_ptr<CDynLinkLibrary> second(extension::Join());
    EXPECT_EQ(2, LinksOf(extension::Handle()));
  }
  EXPECT_EQ(0, LinksOf(extension::Handle()));
}

TEST(CoreModule, RecordIsFilledOnce) {
  AFX_EXTENSION_MODULE record;
  const auto first = reinterpret_cast<HINSTANCE>(0x1000);
  EXPECT_TRUE(AfxInitExtensionModule(record, first));
  EXPECT_TRUE(AfxInitExtensionModule(record, reinterpret_cast<HINSTANCE>(0x2000)));
  EXPECT_EQ(first, record.hModule);
  // Deleted by the term of its module.
  new CDynLinkLibrary(record);
  EXPECT_EQ(1, LinksOf(first));
  AfxTermExtensionModule(record);
  EXPECT_EQ(0, LinksOf(first));
  EXPECT_FALSE(record.bInitialized);
}

TEST(CoreModule, ResourcesAreFoundAlongTheChain) {
  EXPECT_EQ(L"Éléments du programme", String(1000));
  EXPECT_EQ(L"(none)", String(2000));
  EXPECT_EQ(AfxGetResourceHandle(), AfxFindResourceHandle(MAKEINTRESOURCEW(2000), RT_RCDATA));
  const std::unique_ptr<CDynLinkLibrary> link(extension::Join());
  EXPECT_EQ(L"Chaîne de l'extension", String(2000));
  EXPECT_EQ(extension::Handle(), AfxFindResourceHandle(MAKEINTRESOURCEW(2000), RT_RCDATA));
  EXPECT_EQ(AfxGetInstanceHandle(), AfxFindResourceHandle(MAKEINTRESOURCEW(1000), RT_RCDATA));
  EXPECT_EQ(extension::Handle(), AfxFindStringResourceHandle(2000));
}

TEST(CoreModule, TheResourceHandleComesFirst) {
  const std::unique_ptr<CDynLinkLibrary> link(extension::Join());
  EXPECT_EQ(L"texte commun", String(1003));
  const HINSTANCE before = AfxGetResourceHandle();
  AfxSetResourceHandle(extension::Handle());
  EXPECT_EQ(L"texte du module", String(1003));
  AfxSetResourceHandle(before);
  EXPECT_EQ(L"texte commun", String(1003));
}

TEST(CoreModule, StringsAreLoadedWholeOrNotAtAll) {
  CString text(L"avant");
  EXPECT_FALSE(text.LoadString(9999));
  EXPECT_STREQ(L"avant", text);
  EXPECT_FALSE(text.LoadString(extension::Handle(), 1000));
  EXPECT_TRUE(text.LoadString(extension::Handle(), 2000));
  EXPECT_STREQ(L"Chaîne de l'extension", text);
  EXPECT_STREQ(L"Éléments du programme", CString(MAKEINTRESOURCEW(1000)));
  wchar_t buffer[4] = L"xyz";
  EXPECT_EQ(3, AfxLoadString(1000, buffer, 4));
  EXPECT_STREQ(L"Élé", buffer);
  EXPECT_EQ(0, AfxLoadString(9999, buffer, 4));
  EXPECT_STREQ(L"", buffer);
}

TEST(CoreModule, FormatStringsReplaceTheirMarks) {
  CString text;
  AfxFormatString2(text, 1002, L"un", L"deux");
  EXPECT_STREQ(L"premier un, second deux, %3", text);
  AfxFormatString1(text, 1002, L"un");
  EXPECT_STREQ(L"premier un, second %2, %3", text);
}

TEST(CoreModule, LocksNestWithinAThread) {
  AfxLockGlobals(CRIT_DYNLINKLIST);
  AfxLockGlobals(CRIT_DYNLINKLIST);
  AfxUnlockGlobals(CRIT_DYNLINKLIST);
  AfxUnlockGlobals(CRIT_DYNLINKLIST);
  bool entered = false;
  std::thread([&] {
    AfxLockGlobals(CRIT_DYNLINKLIST);
    entered = true;
    AfxUnlockGlobals(CRIT_DYNLINKLIST);
  }).join();
  EXPECT_TRUE(entered);
  EXPECT_THROW(AfxLockGlobals(CRIT_MAX), CInvalidArgException*);
}

// Hosts call the API by its plain names; as macros these would rename methods.
TEST(CoreApi, PlainNamesAreTheWideFunctions) {
  EXPECT_EQ(::GetModuleHandleW(nullptr), ::GetModuleHandle(nullptr));
  wchar_t text[32] = L"";
  EXPECT_GT(::LoadString(extension::Handle(), 2000, text, 32), 0);
  EXPECT_STREQ(L"Chaîne de l'extension", text);
  EXPECT_EQ(::LoadCursorW(nullptr, IDC_ARROW), ::LoadCursor(nullptr, IDC_ARROW));
  EXPECT_EQ(0, ::SendMessage(nullptr, WM_NULL, 0, 0));
}

}  // namespace
