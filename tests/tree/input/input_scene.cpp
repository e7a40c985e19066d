#include "tree/input/input_scene.h"

#include "support/text.h"

namespace support {
namespace {

CWinApp g_app;

constexpr int kPause = 800;  // milliseconds, of type-ahead
constexpr UINT_PTR kEditTimer = 1;

// Each scene at another place, so that its first click is never the second half of a double click.
POINT NextPlace() {
  static int count = 0;
  constexpr int kPlaces = 16, kStep = 17;
  const int place = count++ % kPlaces;
  return {40 + place * kStep, 30 + place * kStep};
}

}  // namespace

InputScene::InputScene(const std::string& scene, unsigned style, int cx, int cy)
    : m_ahead([](MSG& message) { return CWnd::WalkPreTranslateTree(nullptr, &message) != FALSE; }) {
  hostLog.Only({WM_COMMAND});
  const POINT place = NextPlace();
  host = std::make_unique<HostWindow>(
      HostOptions{.x = place.x, .y = place.y, .cx = cx + 40, .cy = cy + 40, .log = &hostLog});
  m_frame.Attach(*host);
  AfxGetApp()->m_pMainWnd = &m_frame;
  const RECT rect{20, 20, 20 + cx, 20 + cy};
  EXPECT_NE(tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE | style, rect, &m_frame, 7), 0);
  tree.Build(scene);
  tree.UpdateTree();
  SetForegroundWindow(*host);
  ::SetFocus(tree);
  Pump();
  hostLog.Clear();
}

InputScene::~InputScene() {
  tree.recording = false;
  tree.answer = nullptr;
  if (tree.GetSafeHwnd() != nullptr) tree.DestroyWindow();
  AfxGetApp()->m_pMainWnd = nullptr;
  m_frame.Detach();
  const Recorder::Mute quiet;
  host.reset();
}

POINT InputScene::Spot(const std::string& label, unsigned zone) {
  Pump();
  CVornTreeItem* const item = tree[label];
  CRect row;
  EXPECT_EQ(tree.GetItemRect(item, row, 0), 1) << label << " is not on screen";
  const int y = (row.top + row.bottom) / 2;
  int first = -1, last = -1;
  constexpr int kStep = 3;  // every zone is wider
  for (int x = row.left; x < row.right; x += kStep) {
    unsigned flags = 0;
    const bool hit = tree.HitTest(CPoint(x, y), &flags) == item && flags == zone;
    if (!hit && first >= 0) break;
    if (!hit) continue;
    if (first < 0) first = x;
    last = x;
  }
  EXPECT_GE(first, 0) << label << " has no zone " << zone;
  return At(tree, (first + last) / 2, y);
}

POINT InputScene::Below() {
  CRect client;
  ::GetClientRect(tree, client);
  return At(tree, client.right / 2, client.bottom - 3);
}

void InputScene::Dress(const std::string& label) {
  tree.SetItemImage(tree[label], 0, 0);
  tree.SetItemImageState(tree[label], 0);
  tree.SetCheckBox(tree[label], 1);
}

void InputScene::Click(const std::string& label, unsigned zone, Keys keys) {
  support::Click(Spot(label, zone), Button::Left, keys);
}

void InputScene::Start(const std::string& label) {
  const bool before = std::exchange(tree.recording, false);
  tree.SelectItem(tree[label], 0);
  tree.recording = before;
  Pump();
}

void InputScene::PauseTyping() { Sleep(kPause + 10); }

bool InputScene::StopEditTimer() { return ::KillTimer(tree, kEditTimer) != FALSE; }

std::wstring InputScene::EditText() {
  CEdit* const edit = tree.GetEditControl();
  EXPECT_NE(edit, nullptr);
  return edit != nullptr ? WindowText(*edit) : L"";
}

}  // namespace support
