// Run-time classes and exceptions.
#include <afxcoll.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <memory>

#include "extension/extension.h"
#include "test_app.h"

namespace {

class CAnimal : public CObject {
  DECLARE_DYNAMIC(CAnimal)
};
IMPLEMENT_DYNAMIC(CAnimal, CObject)

class CCoreTestCat : public CAnimal {
  DECLARE_DYNCREATE(CCoreTestCat)

 public:
  int m_lives = 9;
};
IMPLEMENT_DYNCREATE(CCoreTestCat, CAnimal)

class CThrowing : public CObject {
  DECLARE_DYNCREATE(CThrowing)

 public:
  CThrowing() { AfxThrowMemoryException(); }
};
IMPLEMENT_DYNCREATE(CThrowing, CObject)

TEST(CoreClass, KnowsNameSizeAndBase) {
  CCoreTestCat cat;
  const CRuntimeClass* const cls = cat.GetRuntimeClass();
  EXPECT_EQ(RUNTIME_CLASS(CCoreTestCat), cls);
  EXPECT_EQ(&CCoreTestCat::classCCoreTestCat, cls);
  EXPECT_STREQ("CCoreTestCat", cls->m_lpszClassName);
  EXPECT_EQ(static_cast<int>(sizeof(CCoreTestCat)), cls->m_nObjectSize);
  EXPECT_EQ(RUNTIME_CLASS(CAnimal), cls->m_pfnGetBaseClass());
  EXPECT_EQ(nullptr, RUNTIME_CLASS(CObject)->m_pfnGetBaseClass());
  EXPECT_FALSE(cat.IsSerializable());
}

TEST(CoreClass, DerivesFromItselfAndItsBases) {
  CCoreTestCat cat;
  EXPECT_TRUE(cat.IsKindOf(RUNTIME_CLASS(CCoreTestCat)));
  EXPECT_TRUE(cat.IsKindOf(RUNTIME_CLASS(CAnimal)));
  EXPECT_TRUE(cat.IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_FALSE(cat.IsKindOf(RUNTIME_CLASS(CException)));
  EXPECT_FALSE(cat.IsKindOf(nullptr));
}

TEST(CoreClass, DownCasts) {
  CCoreTestCat cat;
  CObject* const object = &cat;
  EXPECT_EQ(&cat, DYNAMIC_DOWNCAST(CCoreTestCat, object));
  EXPECT_EQ(&cat, STATIC_DOWNCAST(CCoreTestCat, object));
  EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CException, object));
  CObject* const none = nullptr;
  EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CCoreTestCat, none));
}

TEST(CoreClass, CreatesObjectsUnlessAbstractOrShortOfMemory) {
  const std::unique_ptr<CObject> cat(RUNTIME_CLASS(CCoreTestCat)->CreateObject());
  ASSERT_NE(nullptr, cat);
  EXPECT_EQ(9, static_cast<CCoreTestCat*>(cat.get())->m_lives);
  EXPECT_EQ(nullptr, RUNTIME_CLASS(CAnimal)->CreateObject());
  EXPECT_EQ(nullptr, RUNTIME_CLASS(CThrowing)->CreateObject());
}

TEST(CoreClass, IsFoundByNameInAllModules) {
  EXPECT_EQ(RUNTIME_CLASS(CCoreTestCat), CRuntimeClass::FromName("CCoreTestCat"));
  EXPECT_EQ(RUNTIME_CLASS(CExtensionObject), CRuntimeClass::FromName("CExtensionObject"));
  EXPECT_EQ(RUNTIME_CLASS(CWinApp), CRuntimeClass::FromName("CWinApp"));
  EXPECT_EQ(nullptr, CRuntimeClass::FromName("CNobody"));
  EXPECT_EQ(nullptr, CRuntimeClass::FromName(nullptr));
  const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CExtensionObject"));
  ASSERT_NE(nullptr, object);
  EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CExtensionObject)));
}

// ---- Exceptions --------------------------------------------------------------------------------------

template <class Exception>
bool Catches(void (*thrower)()) {
  try {
    thrower();
  } catch (Exception* e) {
    const bool right = e->IsKindOf(RUNTIME_CLASS(Exception));
    e->Delete();
    return right;
  }
  return false;
}

TEST(CoreException, EachFunctionThrowsItsClass) {
  EXPECT_TRUE(Catches<CMemoryException>([] { AfxThrowMemoryException(); }));
  EXPECT_TRUE(Catches<CNotSupportedException>([] { AfxThrowNotSupportedException(); }));
  EXPECT_TRUE(Catches<CResourceException>([] { AfxThrowResourceException(); }));
  EXPECT_TRUE(Catches<CUserException>([] { AfxThrowUserException(); }));
  EXPECT_TRUE(Catches<CInvalidArgException>([] { AfxThrowInvalidArgException(); }));
}

TEST(CoreException, IsCaughtByItsBase) {
  EXPECT_TRUE(Catches<CSimpleException>([] { AfxThrowResourceException(); }));
  EXPECT_TRUE(Catches<CException>([] { AfxThrowMemoryException(); }));
}

TEST(CoreException, CrossesModules) {
  EXPECT_TRUE(Catches<CUserException>([] { extension::ThrowUser(); }));
  EXPECT_TRUE(Catches<CException>([] { extension::ThrowUser(); }));
  EXPECT_THROW(extension::At(L"abc", 7), CInvalidArgException*);
}

TEST(CoreException, HasAMessageThatIsCutToTheBuffer) {
  wchar_t whole[64];
  wchar_t cut[5];
  UINT help = 7;
  CMemoryException e(FALSE, L"Mémoire");
  EXPECT_TRUE(e.GetErrorMessage(whole, 64, &help));
  EXPECT_STREQ(L"Mémoire", whole);
  EXPECT_EQ(0u, help);
  EXPECT_TRUE(e.GetErrorMessage(cut, 5));
  EXPECT_STREQ(L"Mémo", cut);
  EXPECT_FALSE(e.GetErrorMessage(nullptr, 0));
}

TEST(CoreException, ThrownOnesHaveAMessage) {
  wchar_t text[64] = L"";
  try {
    AfxThrowMemoryException();
  } catch (CException* e) {
    EXPECT_TRUE(e->GetErrorMessage(text, 64));
    e->Delete();
  }
  EXPECT_STRNE(L"", text);
}

class CCountedException : public CException {
 public:
  explicit CCountedException(int& deleted) : m_deleted(deleted) {}
  ~CCountedException() override { ++m_deleted; }
  int& m_deleted;
};

TEST(CoreException, DeleteFreesAllocatedOnes) {
  int deleted = 0;
  try {
    throw new CCountedException(deleted);
  } catch (CException* e) {
    e->Delete();
  }
  EXPECT_EQ(1, deleted);
}

TEST(CoreException, MacrosCatchAndRethrow) {
  CString path;
  TRY{TRY{AfxThrowResourceException();
}
CATCH(CMemoryException, e) {
  path += L"memory";
  e->Delete();
}
AND_CATCH(CResourceException, e) {
  path += L"resource ";
  UNUSED(e);
  THROW_LAST();
}
END_CATCH
}  // namespace
CATCH_ALL(e) {
  path += L"all";
  e->Delete();
}
END_CATCH_ALL
EXPECT_STREQ(L"resource all", path);
}

TEST(CoreException, ReportsThroughTheMessageBox) {
  CString shown;
  TheApp().m_onMessageBox = [&](LPCWSTR text, UINT) {
    shown = text;
    return IDOK;
  };
  CUserException known(FALSE, L"texte connu");
  EXPECT_EQ(IDOK, known.ReportError());
  EXPECT_STREQ(L"texte connu", shown);
  int deleted = 0;
  CCountedException unknown(deleted);
  unknown.ReportError(MB_OK, 1000);
  EXPECT_STREQ(L"Éléments du programme", shown);
  unknown.ReportError();
  EXPECT_FALSE(shown.IsEmpty());
  EXPECT_STRNE(L"Éléments du programme", shown);
  TheApp().m_onMessageBox = nullptr;
}

TEST(CoreException, AbsurdSizesRaiseTheMemoryException) {
  CString text;
  EXPECT_THROW(text.GetBuffer(INT_MAX), CMemoryException*);
  EXPECT_TRUE(text.IsEmpty());
  CDWordArray array;
  EXPECT_THROW(array.SetSize(PTRDIFF_MAX), CMemoryException*);
  EXPECT_EQ(0, array.GetSize());
}

}  // namespace
