// One session of clicks and keys, with everything that it causes: the same on every desktop.
#include "tree/input/input_scene.h"

namespace {

using support::InputScene;
using support::Key;
using support::Type;

constexpr const char* kScene = "root [Alpha [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6]";

// Records, without what depends on the size of letters: input as it arrives, focus and commands as they
// are sent, hooks, and the tree after each step.
class Script {
 public:
  Script()
      : scene(kScene, support::kPlain | STS_EDITLABELS | STS_HOTTRACK),
        tree(scene.tree),
        m_arriving([this](MSG& message) { return Arrives(message); }) {
    scene.Dress("Delta");
    tree.EnableMultipleSelection(1);
    CRect row;
    tree.GetItemRect(tree["Alpha"], row, 1);
    tree.SetWindowPos(nullptr, 0, 0, 240, 6 * row.Height() - 1, SWP_NOMOVE | SWP_NOZORDER);
    support::Pump();
    tree.log.Only({WM_SETFOCUS, WM_KILLFOCUS, WM_VSCROLL});
    tree.log.Watch(tree, "tree");
  }
  ~Script() { tree.log.Only({WM_NULL}); }
  // Ends a step: what the tree looks like now.
  void Look() {
    support::Pump();
    tree.log.Note(tree.Text() + " from " + tree.Name(tree.GetFirstDisplayItem()));
  }

  InputScene scene;
  support::TestTree& tree;

 private:
  bool Arrives(MSG& message) {
    switch (message.message) {
      case WM_LBUTTONDOWN: tree.log.Note("press"); break;
      case WM_LBUTTONUP: tree.log.Note("release"); break;
      case WM_LBUTTONDBLCLK: tree.log.Note("double click"); break;
      case WM_RBUTTONDOWN: tree.log.Note("right press"); break;
      case WM_RBUTTONUP: tree.log.Note("right release"); break;
      case WM_KEYDOWN:
      case WM_CHAR:
      case WM_MOUSEWHEEL:
        if (message.wParam == VK_PACKET) break;
        tree.log.Note(support::DescribeMessage(message.message, message.wParam, message.lParam));
        break;
      default: break;
    }
    return CWnd::WalkPreTranslateTree(nullptr, &message) != FALSE;
  }

  support::MessageFilter m_arriving;
};

TEST(ScriptOfAPerson, ClicksAndDoubleClicks) {
  Script script;
  InputScene& scene = script.scene;
  scene.Click("Alpha", support::kButton);
  script.Look();
  scene.Click("Beta");
  script.Look();
  scene.Click("Bravo", support::kLabel, {.control = true});
  script.Look();
  scene.Click("Delta", support::kLabel, {.shift = true});
  script.Look();
  scene.Click("Gamma", support::kLabel, {.control = true});
  script.Look();
  scene.Click("Delta", support::kCheckBox);
  script.Look();
  support::DoubleClick(scene.Spot("Bravo"));
  script.Look();
  support::Click(scene.Spot("Gamma"), support::Button::Right);
  script.Look();
  EXPECT_LOG(script.tree.log, R"(
    press
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    release
    root [Alpha+ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    press
    OnClearSelection Beta
    OnSelChanging - Beta
    OnSelChanged - Beta
    release
    root [Alpha+ [Beta*@ Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN CONTROL
    press
    OnSelChanging Beta Bravo
    OnSelChanged Beta Bravo
    release
    root [Alpha+ [Beta* Gamma] Bravo+*@ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN SHIFT
    press
    OnMultiSelChanging Bravo Delta
    OnClearSelection Delta
    OnSelChanging - Bravo
    OnSelChanged - Bravo
    OnSelChanging - Delta
    OnSelChanged - Delta
    OnMultiSelChanged Bravo Delta
    release
    root [Alpha+ [Beta Gamma] Bravo+* [Delta*@= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN CONTROL
    press
    OnSelChanging Bravo Gamma
    OnSelChanged Bravo Gamma
    release
    root [Alpha+ [Beta Gamma*@] Bravo+* [Delta*= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    press
    OnChecking Delta
    OnChecked Delta
    release
    root [Alpha+ [Beta Gamma*@] Bravo+* [Delta* Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    press
    release
    OnClearSelection Bravo
    OnSelChanging - Bravo
    OnSelChanged - Bravo
    double click
    OnItemDblClk Bravo
    OnItemExpanding Bravo
    OnItemExpanded Bravo
    release
    root [Alpha+ [Beta Gamma] Bravo*@ [Delta Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    right press
    OnSelChanging Bravo Gamma
    OnClearSelection Gamma
    OnSelChanged Bravo Gamma
    right release
    root [Alpha+ [Beta Gamma*@] Bravo [Delta Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
  )");
}

TEST(ScriptOfAPerson, Keys) {
  Script script;
  script.scene.Start("Alpha");
  for (const UINT key : {VK_RIGHT, VK_DOWN, VK_END, VK_HOME, VK_NEXT, VK_PRIOR, VK_SUBTRACT, VK_ADD,
                         VK_DIVIDE, VK_MULTIPLY, VK_ESCAPE}) {
    Key(key);
    script.Look();
  }
  Key(VK_DOWN, {.shift = true});
  Key(VK_DOWN, {.control = true});
  script.Look();
  InputScene::PauseTyping();
  Type(L"de");
  Key(VK_SPACE);
  script.Look();
  EXPECT_LOG(script.scene.hostLog, "host WM_COMMAND 2 0") << "Escape";
  EXPECT_LOG(script.tree.log, R"(
    WM_KEYDOWN RIGHT
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    root [Alpha+*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN DOWN
    OnSelChanging Alpha Beta
    OnClearSelection Beta
    OnSelChanged Alpha Beta
    root [Alpha+ [Beta*@ Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN END
    OnSelChanging Beta r6
    OnClearSelection r6
    OnSelChanged Beta r6
    root [Alpha+ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6*@] from r3
    WM_KEYDOWN HOME
    OnSelChanging r6 Alpha
    OnClearSelection Alpha
    OnSelChanged r6 Alpha
    root [Alpha+*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN NEXT
    OnSelChanging Alpha Echo
    OnClearSelection Echo
    OnSelChanged Alpha Echo
    root [Alpha+ [Beta Gamma] Bravo+ [Delta= Echo*@] Foxtrot r1 r2 r3 r4 r5 r6] from Gamma
    WM_KEYDOWN PRIOR
    OnSelChanging Echo Alpha
    OnClearSelection Alpha
    OnSelChanged Echo Alpha
    root [Alpha+*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN -
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    root [Alpha*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN ADD
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    root [Alpha+*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN /
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    root [Alpha*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN *
    OnItemExpanding Alpha
    OnItemExpanded Alpha
    root [Alpha+*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN ESC
    root [Alpha+*@ [Beta Gamma] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_KEYDOWN SHIFT
    WM_KEYDOWN DOWN
    OnMultiSelChanging Alpha Beta
    OnClearSelection Beta
    OnSelChanging - Alpha
    OnSelChanged - Alpha
    OnSelChanging - Beta
    OnSelChanged - Beta
    OnMultiSelChanged Alpha Beta
    WM_KEYDOWN CONTROL
    WM_KEYDOWN DOWN
    OnSelChanging Alpha Gamma
    OnClearSelection Gamma
    OnSelChanged Alpha Gamma
    root [Alpha+ [Beta Gamma*@] Bravo+ [Delta= Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
    WM_CHAR 'd'
    OnSelChanging Gamma Delta
    OnClearSelection -
    OnSelChanged Gamma Delta
    WM_CHAR 'e'
    WM_KEYDOWN SPACE
    OnChecking Delta
    OnChecked Delta
    root [Alpha+ [Beta Gamma] Bravo+ [Delta*@ Echo] Foxtrot r1 r2 r3 r4 r5 r6] from Alpha
  )");
}

TEST(ScriptOfAPerson, EditsAndTheWheel) {
  Script script;
  InputScene& scene = script.scene;
  support::TestTree& tree = script.tree;
  scene.Click("Foxtrot");
  scene.Click("Foxtrot");
  EXPECT_TRUE(support::PumpUntil([&] { return tree.GetEditControl() != nullptr; }, 4000));
  Type(L"Golf");
  Key(VK_RETURN);
  script.Look();
  scene.Click("Golf");
  tree.EditLabel(tree["Golf"]);
  Type(L"x");
  Key(VK_ESCAPE);
  script.Look();
  tree.EditLabel(tree["Golf"]);
  Type(L"Hotel");
  support::Wheel(scene.Spot("Alpha"), -2);
  script.Look();
  tree.EditLabel(tree["r1"]);
  Type(L"India");
  scene.Click("r2");
  script.Look();
  support::Wheel(scene.Spot("r2"), 1);
  script.Look();
  EXPECT_LOG(tree.log, R"(
    press
    OnClearSelection Foxtrot
    OnSelChanging - Foxtrot
    OnSelChanged - Foxtrot
    release
    press
    release
    OnBeginLabelEdit Foxtrot
    tree WM_KILLFOCUS
    WM_CHAR 'G'
    WM_CHAR 'o'
    WM_CHAR 'l'
    WM_CHAR 'f'
    WM_KEYDOWN RETURN
    WM_CHAR 0xd
    OnEndLabelEdit 'Golf' Foxtrot
    tree WM_SETFOCUS
    root [Alpha [Beta Gamma] Bravo+ [Delta= Echo] Golf*@ r1 r2 r3 r4 r5 r6] from Alpha
    press
    release
    OnBeginLabelEdit Golf
    tree WM_KILLFOCUS
    WM_CHAR 'x'
    WM_KEYDOWN ESC
    WM_CHAR 0x1b
    tree WM_SETFOCUS
    root [Alpha [Beta Gamma] Bravo+ [Delta= Echo] Golf*@ r1 r2 r3 r4 r5 r6] from Alpha
    OnBeginLabelEdit Golf
    tree WM_KILLFOCUS
    WM_CHAR 'H'
    WM_CHAR 'o'
    WM_CHAR 't'
    WM_CHAR 'e'
    WM_CHAR 'l'
    WM_MOUSEWHEEL -240
    tree WM_VSCROLL 4 2
    OnEndLabelEdit 'Hotel' Golf
    tree WM_SETFOCUS
    root [Alpha [Beta Gamma] Bravo+ [Delta= Echo] Hotel*@ r1 r2 r3 r4 r5 r6] from Delta
    OnBeginLabelEdit r1
    tree WM_KILLFOCUS
    WM_CHAR 'I'
    WM_CHAR 'n'
    WM_CHAR 'd'
    WM_CHAR 'i'
    WM_CHAR 'a'
    press
    OnEndLabelEdit 'India' r1
    tree WM_SETFOCUS
    OnClearSelection r2
    OnSelChanging Hotel r2
    OnSelChanged Hotel r2
    release
    root [Alpha [Beta Gamma] Bravo+ [Delta= Echo] Hotel India r2*@ r3 r4 r5 r6] from Delta
    WM_MOUSEWHEEL 120
    tree WM_VSCROLL 4 1
    root [Alpha [Beta Gamma] Bravo+ [Delta= Echo] Hotel India r2*@ r3 r4 r5 r6] from Bravo
  )");
}

}  // namespace
