#include "scene.h"

#include <iterator>

namespace fuzz {

namespace {

constexpr size_t kMostHandles = 64;
constexpr unsigned kMostItems = 300;
constexpr int kDeepestHook = 3;

// Ends what waits for a person: menus, boxes, and tracking of any kind.
void CALLBACK EndModalLoops(HWND, UINT, UINT_PTR, DWORD) {
  EndMenu();
  if (HWND box = FindWindowW(L"#32770", nullptr)) PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
  if (HWND holder = GetCapture()) PostMessageW(holder, WM_CANCELMODE, 0, 0);
}

}  // namespace

BOOL Frame::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const int answer = m_tree.answer ? m_tree.answer() : 1;
  if (answer == 0) return CWnd::OnNotify(wParam, lParam, result);
  *result = 1;
  return TRUE;
}

Scene::Scene(uint32_t seed) : frame(tree), m_random(seed) {
  const wchar_t* const frameClass = AfxRegisterWndClass(0);
  frame.CreateEx(0, frameClass, L"", WS_POPUP | WS_VISIBLE, CRect(50, 50, 350, 250), nullptr, 0);
  constexpr UINT kGuard = 1, kGuardPeriod = 40;
  ::SetTimer(frame, kGuard, kGuardPeriod, EndModalLoops);
  m_fonts[0].CreatePointFont(200, L"Tahoma");
  m_images.Create(16, 16, ILC_COLOR32, 4, 1);
  CreateWindowAnew();
  for (const wchar_t* label : {L"un", L"deux", L"trois"}) {
    CVornTreeItem* const item = tree.InsertItem(label, 0, 1);
    Keep(item);
    Keep(tree.InsertItem(label, -1, -1, item));
    Keep(other.InsertItem(label, -1, -1));
  }
  tree.answer = [this] { return AnswerOf(); };
}

Scene::~Scene() {
  tree.answer = nullptr;
  ReleaseAllKeys();
  ReleaseCapture();
  if (::IsWindow(m_window)) ::DestroyWindow(m_window);
  frame.DestroyWindow();
  Pump();
}

void Scene::CreateWindowAnew() {
  if (::IsWindow(m_window)) return;
  const DWORD style =
      WS_CHILD | WS_VISIBLE | STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT | STS_EDITLABELS;
  tree.CreateTreeCtrl(style, CRect(10, 10, 210, 170), &frame, 7);
  m_window = tree.GetSafeHwnd();
}

void Scene::Keep(CVornTreeItem* item) {
  if (m_items.size() < kMostHandles) {
    m_items.push_back(item);
  } else {
    m_items[Random() % kMostHandles] = item;
  }
}

CVornTreeItem* Scene::Item(uint8_t operand) const {
  static const uint64_t nothing[32] = {};
  CVornTreeItem* const others[] = {nullptr,
                                   STI_ROOT,
                                   STI_FIRST,
                                   STI_LAST,
                                   const_cast<HostileTree&>(tree).GetRootItem(),
                                   reinterpret_cast<CVornTreeItem*>(const_cast<uint64_t*>(nothing)),
                                   reinterpret_cast<CVornTreeItem*>(0x10)};
  if (operand < std::size(others)) return others[operand];
  return m_items.empty() ? nullptr : m_items[operand % m_items.size()];
}

const wchar_t* Scene::Text(uint8_t operand) const {
  static const std::wstring endless(400, L'm');
  static const wchar_t* const texts[] = {L"",
                                         L"a",
                                         L"été",
                                         L"deux\\trois",
                                         L"\r\n\t",
                                         L"abc\x1"
                                         L"def",
                                         L"un",
                                         L"Deux",
                                         L"\xD83D\xDE00",
                                         L"a\tb",
                                         L"Ã&&?",
                                         L"\\",
                                         L"un libellé assez long pour sortir de la fenêtre",
                                         endless.c_str()};
  return operand == 255 ? nullptr : texts[operand % std::size(texts)];
}

int Scene::Number(uint8_t operand) const {
  constexpr int kEnds[] = {-1, INT_MAX, INT_MIN, 0x7FFF, 0x8000, 0xFFFF, 0x10000, 1000};
  constexpr uint8_t kFirstEnd = 248;
  return operand < kFirstEnd ? operand % 32 : kEnds[operand - kFirstEnd];
}

CPoint Scene::Point(uint8_t across, uint8_t down) const {
  constexpr uint8_t kFar = 254;
  return {across < kFar ? across - 20 : 0x7FFF, down < kFar ? down * 3 / 4 - 10 : -0x8000};
}

CFont* Scene::Font(uint8_t operand) { return operand % 3 == 2 ? nullptr : &m_fonts[operand % 3]; }

CImageList* Scene::Images(uint8_t operand) { return operand % 4 == 0 ? nullptr : &m_images; }

HWND Scene::Box() const {
  CEdit* const box = const_cast<HostileTree&>(tree).GetEditControl();
  return box != nullptr ? box->GetSafeHwnd() : nullptr;
}

HWND Scene::Window(uint8_t operand) const {
  const HWND windows[] = {nullptr, frame.GetSafeHwnd(), m_window, Box(),
                          reinterpret_cast<HWND>(uintptr_t{0x12345678})};
  return windows[operand % std::size(windows)];
}

void Scene::Pump() {
  constexpr int kEnough = 200;
  MSG message;
  for (int i = 0; i < kEnough && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
    if (CWnd::WalkPreTranslateTree(frame.GetSafeHwnd(), &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Scene::Wait(int milliseconds) {
  Sleep(static_cast<DWORD>(milliseconds));
  Pump();
}

uint32_t Scene::Random() {
  m_random = m_random * 1664525u + 1013904223u;
  return m_random >> 8;
}

// Refuses some questions, and does something else before it answers others.
int Scene::AnswerOf() {
  const uint32_t choice = Random() % 16;
  if (choice == 0) return 0;
  if (choice == 1 && m_depth < kDeepestHook) {
    const uint32_t more = Random();
    Play({static_cast<uint8_t>(more), static_cast<uint8_t>(more >> 8), static_cast<uint8_t>(more >> 16),
          static_cast<uint8_t>(Random())});
  }
  return 1;
}

void Scene::Play(const Step& step) {
  ++m_depth;
  constexpr int kMessages = 110, kInput = 160;  // of 256; the rest are calls
  if (step.operation < kMessages) {
    SendAMessage(*this, step);
  } else if (step.operation < kInput) {
    MakeInput(*this, step);
  } else {
    CallSomething(*this, step);
  }
  --m_depth;
  if (m_depth > 0) return;
  Pump();
  // A while without a window, but not for long.
  if (step.third % 8 == 0) CreateWindowAnew();
  if (tree.GetRootItem() != nullptr && tree.GetCount() > kMostItems) tree.DeleteAllItems(STI_ROOT);
}

size_t Play(const Steps& steps, uint32_t seed) {
  Scene scene(seed);
  for (const Step& step : steps) scene.Play(step);
  return scene.sent;
}

}  // namespace fuzz
