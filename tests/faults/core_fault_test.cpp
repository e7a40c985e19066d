// The framework's ground without memory: one exception, and nothing half done.
#include <afxcoll.h>
#include <afxwin.h>

#include "each_failure.h"

namespace {

using faults::Kind;

// Whether the work was done; false if it raised the memory exception. Anything else fails the test.
template <class Work>
bool Done(Work work) {
  try {
    work();
  } catch (CMemoryException* e) {
    e->Delete();
    return false;
  }
  return true;
}

// Lets each allocation of a change to a text fail in turn: the text is the new one or still the old one.
template <class Change>
long ChangeText(LPCWSTR expected, Change change) {
  CString text;
  bool done = false;
  faults::Experiment experiment;
  experiment.prepare = [&] { text = L"avant"; };
  experiment.act = [&] { return done = Done([&] { change(text); }); };
  experiment.complete = [&] { return text == expected; };
  experiment.cleanUp = [&] {
    EXPECT_STREQ(done ? expected : L"avant", text);
    text.Empty();
  };
  // Some room is asked for in advance and not needed.
  experiment.mayWorkAllTheSame = true;
  return faults::RunWithEachFailure(Kind::Allocation, experiment);
}

TEST(CoreFault, ATextIsChangedOrAsBefore) {
  EXPECT_GT(ChangeText(L"beaucoup plus long", [](CString& text) { text = L"beaucoup plus long"; }), 0);
  EXPECT_GT(ChangeText(L"avant-après", [](CString& text) { text += L"-après"; }), 0);
  EXPECT_GT(ChangeText(L"av-après-ant", [](CString& text) { text.Insert(2, L"-après-"); }), 0);
  EXPECT_GT(ChangeText(L"xyzvxyznt", [](CString& text) { text.Replace(L"a", L"xyz"); }), 0);
  EXPECT_GT(ChangeText(L"AVANT", [](CString& text) { text = CString(text).MakeUpper(); }), 0);
}

TEST(CoreFault, AFormattedTextIsWholeOrAsBefore) {
  const long failures = ChangeText(
      L"7 été 1.50 abc", [](CString& text) { text.Format(L"%d %s %.2f %S", 7, L"été", 1.5, "abc"); });
  EXPECT_GT(failures, 3);
  ChangeText(L"avant!", [](CString& text) { text.AppendFormat(L"%c", L'!'); });
}

TEST(CoreFault, CollectionsTakeAnElementOrNone) {
  CStringArray array;
  CStringList list;
  CMapStringToString map;
  faults::Experiment experiment;
  experiment.cleanUp = [&] {
    array.RemoveAll();
    list.RemoveAll();
    map.RemoveAll();
  };
  experiment.act = [&] { return Done([&] { array.Add(L"élément"); }); };
  experiment.complete = [&] { return array.GetSize() == 1 && array[0] == L"élément"; };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 1);
  experiment.act = [&] { return Done([&] { list.AddTail(L"élément"); }); };
  experiment.complete = [&] { return list.GetCount() == 1 && list.GetHead() == L"élément"; };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 1);
  experiment.act = [&] { return Done([&] { map.SetAt(L"clé", L"valeur"); }); };
  experiment.complete = [&] { return map.GetCount() == 1 && map[L"clé"] == L"valeur"; };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 2);
}

class CFaultObject : public CObject {
  DECLARE_DYNCREATE(CFaultObject)

 private:
  CString m_text = L"alloué";
};
IMPLEMENT_DYNCREATE(CFaultObject, CObject)

TEST(CoreFault, AnObjectIsCreatedOrNull) {
  CObject* object = nullptr;
  faults::Experiment experiment;
  experiment.act = [&] {
    object = RUNTIME_CLASS(CFaultObject)->CreateObject();
    return object != nullptr;
  };
  experiment.cleanUp = [&] {
    delete object;
    object = nullptr;
  };
  EXPECT_EQ(2, faults::RunWithEachFailure(Kind::Allocation, experiment));
}

// An application object with its profile in the registry.
class CFaultApp : public CWinApp {
 public:
  CFaultApp() : CWinApp(L"Essais") { SetRegistryKey(L"VornFaultTests"); }
};

TEST(CoreFault, TheProfileGivesTheValueOrRaises) {
  CFaultApp app;
  const CString text(L'x', 300);
  ASSERT_TRUE(app.WriteProfileString(L"A", L"t", text));
  BYTE bytes[] = {1, 2, 3};
  ASSERT_TRUE(app.WriteProfileBinary(L"A", L"b", bytes, 3));
  CString read;
  BYTE* data = nullptr;
  UINT size = 0;
  faults::Experiment experiment;
  experiment.act = [&] { return Done([&] { read = app.GetProfileString(L"A", L"t"); }); };
  experiment.complete = [&] { return read == text; };
  experiment.cleanUp = [&] { read.Empty(); };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
  experiment.act = [&] { return Done([&] { EXPECT_TRUE(app.GetProfileBinary(L"A", L"b", &data, &size)); }); };
  experiment.complete = [&] { return size == 3; };
  experiment.cleanUp = [&] {
    delete[] data;
    data = nullptr;
  };
  EXPECT_GT(faults::RunWithEachFailure(Kind::Allocation, experiment), 0);
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VornFaultTests");
}

}  // namespace
