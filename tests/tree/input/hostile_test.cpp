// Hosts that do their worst inside a hook: every hook that input reaches, with every deed. The control
// must hold, leave no capture, timer or held redraw behind, and go on working.
#include <algorithm>
#include <map>
#include <vector>

#include "tree/input/input_scene.h"

namespace {

using support::InputScene;
using support::Keys;

constexpr unsigned kStyle = support::kPlain | STS_EDITLABELS;
constexpr const char* kScene = "root [Alpha+ [Beta [Gamma] Bravo] Delta [Echo] Foxtrot]";

// How a hook is reached.
struct Road {
  std::string name;
  std::vector<std::string> hooks;
  std::function<void(InputScene&)> act;
  unsigned type = 0;                              // selection type bits beside single selection
  std::function<void(InputScene&)> prepare = {};  // before the host turns hostile
  int height = 200;                               // pixels of the window
};

// What the host does there, with the item that the hook is about.
struct Deed {
  std::string name;
  std::function<void(InputScene&, CVornTreeItem*)> act;
  int answer = 1;
  bool isWorst = false;
};

void Answer(HWND box) {
  if (box != nullptr) ::PostMessageW(box, WM_COMMAND, IDOK, 0);
}

void AskByMessageBox(InputScene& scene) {
  constexpr const wchar_t* kTitle = L"Question";
  const support::Later answer(10, [&] { Answer(::FindWindowW(nullptr, kTitle)); });
  ::MessageBoxW(scene.tree, L"Continuer ?", kTitle, MB_OK);
}

CVornTreeItem* ParentOf(InputScene& scene, CVornTreeItem* item) {
  CVornTreeItem* const parent = scene.tree.GetParentItem(item);
  return parent != scene.tree.GetRootItem() ? parent : item;
}

void ToggleDocuments(InputScene& scene) {
  scene.tree.EnableSelectionByDocuments(!scene.tree.IsSelectionByDocuments());
}

const std::vector<Deed>& Deeds() {
  static const std::vector<Deed> deeds = {
      {"deletes the item", [](InputScene& s, CVornTreeItem* item) { s.tree.DeleteItem(item); }, 1, true},
      {"deletes the item and refuses", [](InputScene& s, CVornTreeItem* item) { s.tree.DeleteItem(item); },
       0},
      {"deletes the parent",
       [](InputScene& s, CVornTreeItem* item) { s.tree.DeleteItem(ParentOf(s, item)); }},
      {"deletes the focus",
       [](InputScene& s, CVornTreeItem*) { s.tree.DeleteItem(s.tree.GetItemHasFocus()); }},
      {"deletes all", [](InputScene& s, CVornTreeItem*) { s.tree.DeleteAllItems(STI_ROOT); }, 1, true},
      {"deletes all and refuses", [](InputScene& s, CVornTreeItem*) { s.tree.DeleteAllItems(STI_ROOT); }, 0},
      {"destroys the window", [](InputScene& s, CVornTreeItem*) { s.tree.DestroyWindow(); }, 1, true},
      {"destroys the window and refuses", [](InputScene& s, CVornTreeItem*) { s.tree.DestroyWindow(); }, 0},
      {"destroys the parent window", [](InputScene& s, CVornTreeItem*) { s.host->Destroy(); }},
      {"asks by a message box", [](InputScene& s, CVornTreeItem*) { AskByMessageBox(s); }, 1, true},
      {"asks, then destroys the window",
       [](InputScene& s, CVornTreeItem*) {
         AskByMessageBox(s);
         s.tree.DestroyWindow();
       }},
      {"disables the window", [](InputScene& s, CVornTreeItem*) { ::EnableWindow(s.tree, FALSE); }, 1, true},
      {"hides the window", [](InputScene& s, CVornTreeItem*) { ::ShowWindow(s.tree, SW_HIDE); }},
      {"changes the manager", [](InputScene& s, CVornTreeItem*) { ToggleDocuments(s); }, 1, true},
      {"changes the manager and refuses", [](InputScene& s, CVornTreeItem*) { ToggleDocuments(s); }, 0},
      {"changes the manager twice",
       [](InputScene& s, CVornTreeItem*) {
         ToggleDocuments(s);
         ToggleDocuments(s);
       }},
      {"changes to several", [](InputScene& s, CVornTreeItem*) { s.tree.EnableMultipleSelection(1); }},
      {"folds everything", [](InputScene& s, CVornTreeItem*) { s.tree.Expand(STI_ROOT, STE_COLLAPSEALL); }},
      {"hides the item", [](InputScene& s, CVornTreeItem* item) { s.tree.SetItemVisibility(item, 0); }},
      {"moves the item",
       [](InputScene& s, CVornTreeItem* item) { s.tree.MoveItem(STI_ROOT, item, STI_FIRST); }},
      {"edits another label", [](InputScene& s, CVornTreeItem*) { s.tree.EditLabel(s.tree["Foxtrot"]); }},
      {"selects another item", [](InputScene& s, CVornTreeItem*) { s.tree.SelectItem(s.tree["Foxtrot"]); }},
      {"clears the selection", [](InputScene& s, CVornTreeItem*) { s.tree.ClearSelection(nullptr); }},
      {"takes the focus away", [](InputScene& s, CVornTreeItem*) { ::SetFocus(*s.host); }},
      {"adds many",
       [](InputScene& s, CVornTreeItem* item) {
         for (int i = 0; i < 20; ++i) s.tree.Add("more", i % 2 ? item : STI_ROOT);
       }},
      {"shows the active document only", [](InputScene& s, CVornTreeItem*) { s.tree.SetDocumentDisplay(1); }},
      {"types and turns the wheel",
       [](InputScene& s, CVornTreeItem*) {
         s.tree.SendMessage(WM_KEYDOWN, VK_END, 1);
         s.tree.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
       }},
      {"refuses", [](InputScene&, CVornTreeItem*) {}, 0},
  };
  return deeds;
}

const std::vector<std::string> kSelecting = {"OnSelChanging", "OnSelChanged", "OnClearSelection"};
const std::vector<std::string> kRange = {"OnMultiSelChanging", "OnMultiSelChanged", "OnSelChanging",
                                         "OnSelChanged", "OnClearSelection"};
const std::vector<std::string> kOpening = {"OnItemExpanding", "OnItemExpanded"};
const std::vector<std::string> kChecks = {"OnChecking", "OnChecked"};

std::function<void(InputScene&)> KeyOn(const char* label, UINT key, Keys keys = {}) {
  return [=](InputScene& scene) {
    scene.Start(label);
    InputScene::Key(key, keys);
  };
}

std::function<void(InputScene&)> Starting(const char* label) {
  return [=](InputScene& scene) { scene.Start(label); };
}

void SelectTwo(InputScene& scene) {
  scene.Start("Bravo");
  scene.tree.SelectItem(scene.tree["Delta"], 1);
}

void Edit(InputScene& scene) { scene.tree.EditLabel(scene.tree["Beta"]); }

void EditAndFillTheWindow(InputScene& scene) {
  for (int i = 0; i < 20; ++i) scene.tree.Add("row");
  Edit(scene);
}

std::vector<Road> MouseRoads() {
  return {
      {"Image", {"OnItemIconClic"}, [](InputScene& s) { s.Click("Beta", support::kImage); }},
      {"StateImage", {"OnItemIconClic(state)"}, [](InputScene& s) { s.Click("Beta", support::kStateImage); }},
      {"DoubleClick",
       {"OnItemDblClk", "OnItemExpanding", "OnItemExpanded"},
       [](InputScene& s) { support::DoubleClick(s.Spot("Beta")); }},
      {"DoubleClickOnALeaf",
       {"OnItemDblClk"},
       [](InputScene& s) { support::DoubleClick(s.Spot("Foxtrot")); }},
      {"Label", kSelecting, [](InputScene& s) { s.Click("Beta"); }, 0, Starting("Delta")},
      {"LabelWithCtrl",
       {"OnSelChanging", "OnSelChanged"},
       [](InputScene& s) { s.Click("Beta", support::kLabel, {.control = true}); },
       STST_MULTIPLE,
       Starting("Delta")},
      {"LabelWithShift", kRange, [](InputScene& s) { s.Click("Foxtrot", support::kLabel, {.shift = true}); },
       STST_MULTIPLE, Starting("Beta")},
      {"LabelWithBoth", kRange,
       [](InputScene& s) { s.Click("Foxtrot", support::kLabel, {.control = true, .shift = true}); },
       STST_MULTIPLE, Starting("Beta")},
      {"ReleaseOnOneOfSeveral", kSelecting, [](InputScene& s) { s.Click("Bravo"); }, STST_MULTIPLE,
       SelectTwo},
      {"ReleaseWithCtrl",
       {"OnSelChanging", "OnSelChanged"},
       [](InputScene& s) { s.Click("Bravo", support::kLabel, {.control = true}); },
       STST_MULTIPLE,
       SelectTwo},
      {"EmptyArea",
       {"OnClearSelection"},
       [](InputScene& s) { support::Click(s.Below()); },
       STST_CLEARONEMPTY,
       Starting("Delta")},
      {"RightPress", kSelecting,
       [](InputScene& s) { support::Click(s.Spot("Beta"), support::Button::Right); }, 0, Starting("Delta")},
      {"Button", kOpening, [](InputScene& s) { s.Click("Beta", support::kButton); }},
      {"CheckBox", kChecks, [](InputScene& s) { s.Click("Beta", support::kCheckBox); }},
      {"OtherDocument",
       {"OnChangeActiveDoc", "OnSelChanging", "OnSelChanged", "OnClearSelection"},
       [](InputScene& s) { s.Click("Delta"); },
       STST_BYDOCUMENTS,
       Starting("Beta")},
      {"OtherDocumentByTheRightButton",
       {"OnChangeActiveDoc", "OnSelChanging", "OnSelChanged"},
       [](InputScene& s) { support::Click(s.Spot("Delta"), support::Button::Right); },
       STST_BYDOCUMENTS,
       Starting("Beta")},
  };
}

std::vector<Road> KeyRoads() {
  return {
      {"Space", kChecks, KeyOn("Beta", VK_SPACE)},
      {"Down", kSelecting, KeyOn("Beta", VK_DOWN)},
      {"Up", kSelecting, KeyOn("Beta", VK_UP)},
      {"UpWithCtrl", kSelecting, KeyOn("Bravo", VK_UP, {.control = true})},
      {"DownWithCtrl", kSelecting, KeyOn("Beta", VK_DOWN, {.control = true})},
      {"Home", kSelecting, KeyOn("Beta", VK_HOME)},
      {"End", kSelecting, KeyOn("Beta", VK_END)},
      {"PageDown", kSelecting, KeyOn("Beta", VK_NEXT)},
      {"PageUp", kSelecting, KeyOn("Delta", VK_PRIOR)},
      {"DownWithShift", kRange, KeyOn("Beta", VK_DOWN, {.shift = true}), STST_MULTIPLE},
      {"RightOpens", kOpening, KeyOn("Beta", VK_RIGHT)},
      {"LeftFolds", kOpening, KeyOn("Alpha", VK_LEFT)},
      {"Plus", kOpening, KeyOn("Beta", VK_ADD)},
      {"Minus", kOpening, KeyOn("Alpha", VK_SUBTRACT)},
      {"Star", kOpening, KeyOn("Alpha", VK_MULTIPLY)},
      {"Slash", kOpening, KeyOn("Alpha", VK_DIVIDE)},
      {"Letter", kSelecting,
       [](InputScene& s) {
         s.Start("Beta");
         s.tree.SendMessage(WM_TIMER, 3);  // empties what was typed
         support::Type(L"d");
       }},
      {"DownIntoTheNextDocument",
       {"OnChangeActiveDoc", "OnSelChanging", "OnSelChanged", "OnClearSelection"},
       KeyOn("Bravo", VK_DOWN),
       STST_BYDOCUMENTS},
  };
}

std::vector<Road> EditRoads() {
  const std::vector<std::string> ends = {"OnEndLabelEdit"};
  return {
      {"TimerOfTheEdit",
       {"OnBeginLabelEdit"},
       [](InputScene& s) { s.tree.SendMessage(WM_TIMER, 1); },
       0,
       Starting("Beta")},
      {"EnterInTheEdit", ends, [](InputScene&) { InputScene::Key(VK_RETURN); }, 0, Edit},
      {"FocusLeavesTheEdit", ends, [](InputScene& s) { ::SetFocus(*s.host); }, 0, Edit},
      {"ClickBesideTheEdit", ends, [](InputScene& s) { s.Click("Delta"); }, 0, Edit},
      {"ClickOnABesideButton", ends, [](InputScene& s) { s.Click("Delta", support::kButton); }, 0, Edit},
      {"ScrollDuringTheEdit", ends, [](InputScene& s) { s.tree.SendMessage(WM_VSCROLL, SB_LINEDOWN); }, 0,
       EditAndFillTheWindow},
      {"WheelDuringTheEdit", ends,
       [](InputScene& s) { s.tree.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA)); }, 0,
       EditAndFillTheWindow},
      {"NextEdit",
       {"OnEndLabelEdit", "OnBeginLabelEdit"},
       [](InputScene& s) { s.tree.EditLabel(s.tree["Delta"]); },
       0,
       Edit},
  };
}

struct Case {
  Road road;
  std::string hook;
  std::size_t turn = 0;   // which of the roads to the hook this is
  std::size_t roads = 1;  // how many there are
};

std::vector<Case> Cases() {
  std::vector<Case> cases;
  std::map<std::string, std::size_t> roadsTo;
  for (const auto& roads : {MouseRoads(), KeyRoads(), EditRoads()}) {
    for (const Road& road : roads) {
      for (const std::string& hook : road.hooks) cases.push_back({road, hook, roadsTo[hook]++});
    }
  }
  for (Case& c : cases) c.roads = roadsTo[c.hook];
  return cases;
}

void PrintTo(const Case& c, std::ostream* out) { *out << c.road.name << " in " << c.hook; }

class HostileHost : public testing::TestWithParam<Case> {};

// Recorded hooks may carry a text behind their name.
bool IsHook(const std::string& told, const std::string& name) {
  return told == name || told.starts_with(name + " ");
}

// The item that a hook is about: the new one of two.
CVornTreeItem* Subject(InputScene& scene, CVornTreeItem* first, CVornTreeItem* second) {
  CVornTreeItem* const item = second != nullptr ? second : first;
  return item != nullptr ? item : scene.tree["Beta"];
}

void ExpectSelectionAlive(InputScene& scene) {
  CVornTreeItemArray items;
  scene.tree.GetCurrentSelection(items);
  for (long i = 0; i < items.GetSize(); ++i) EXPECT_NE(scene.tree.IsExist(items[i], nullptr), 0);
}

// The control still takes input, and nothing of the redraw is held.
void ExpectWorking(InputScene& scene) {
  if (scene.tree.GetSafeHwnd() == nullptr) return;
  EXPECT_EQ(support::CheckTree(scene.tree, false), "");
  ExpectSelectionAlive(scene);
  ::EnableWindow(scene.tree, TRUE);
  ::ShowWindow(scene.tree, SW_SHOW);
  ::SetFocus(scene.tree);
  scene.tree.EndLabelEdit();
  scene.tree.SetDocumentDisplay(0);
  scene.tree.Expand(STI_ROOT, STE_EXPAND);
  CVornTreeItem* const added = scene.tree.Add("Zulu", STI_ROOT, STI_FIRST);
  ASSERT_NE(added, nullptr);
  scene.tree.SetScrollPos(SB_VERT, 0);
  scene.tree.UpdateTree();
  support::Pump();
  CRect rect;
  EXPECT_EQ(scene.tree.GetItemRect(added, rect, 1), 1) << "the redraw is held";
  support::Click(scene.Spot("Zulu"));
  EXPECT_EQ(scene.tree.GetItemHasFocus(), added);
  InputScene::Key(VK_DOWN);
}

void TryDeed(const Case& c, const Deed& deed) {
  InputScene scene(kScene, kStyle, 240, c.road.height);
  scene.tree.recording = false;
  scene.Dress("Beta");
  scene.tree.ModifySelectionType(0, c.road.type);
  if (c.road.prepare) c.road.prepare(scene);
  support::Pump();
  bool done = false;
  scene.tree.answer = [&](const std::string& hook, CVornTreeItem* first, CVornTreeItem* second) {
    if (done || !IsHook(hook, c.hook)) return 1;
    done = true;
    deed.act(scene, Subject(scene, first, second));
    return deed.answer;
  };
  c.road.act(scene);
  support::Pump();
  EXPECT_TRUE(done) << "the hook was not reached";
  EXPECT_EQ(::GetCapture(), nullptr);
  scene.tree.answer = nullptr;
  ExpectWorking(scene);
  scene.hostLog.Clear();
}

TEST_P(HostileHost, HoldsAgainst) {
  // The worst deeds everywhere; of the others each hook meets every one, but not on every road to it.
  const Case& c = GetParam();
  const std::size_t share = std::min<std::size_t>(c.roads, 3);
  for (std::size_t i = 0; i < Deeds().size(); ++i) {
    const Deed& deed = Deeds()[i];
    if (!deed.isWorst && i % share != c.turn % share) continue;
    SCOPED_TRACE("the host " + deed.name + " in " + c.hook);
    TryDeed(c, deed);
  }
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
  std::string name = info.param.road.name + "_";
  for (const char c : info.param.hook) {
    if (std::isalnum(static_cast<unsigned char>(c))) name += c;
  }
  return name;
}

INSTANTIATE_TEST_SUITE_P(Roads, HostileHost, testing::ValuesIn(Cases()), NameOf);

}  // namespace
