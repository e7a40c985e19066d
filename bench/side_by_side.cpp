// The tree in its window, beside the system's own tree view where there is one: both do the same work in
// one run. Prints milliseconds for whole operations, microseconds for single ones, and the ratio of the
// two. Arguments: the greatest number of items (100000), then parts of the names of the rows to run.
#include <afxwin.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "VornComCtl.h"
#include "bench_time.h"

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 600;

// One of the two controls, in a window of its own. Items are handles of the control.
class Contender {
 public:
  virtual ~Contender() = default;
  // parent: null for the top. after: null for the end.
  virtual void* Insert(const wchar_t* text, void* parent, void* after) = 0;
  virtual void Hold(bool hold) = 0;
  virtual void Paint(bool whole) = 0;
  virtual void ExpandAll(const std::vector<void*>& items) = 0;
  virtual void Expand(void* item) = 0;
  virtual void SetFirstVisible(void* item) = 0;
  virtual void EnsureVisible(void* item) = 0;
  virtual void Thumb(int row) = 0;
  virtual bool IsHit(POINT point) = 0;
  virtual void Sort() = 0;
  virtual void Delete(void* item) = 0;
  virtual void DeleteAll() = 0;
};

class Ours : public Contender {
 public:
  explicit Ours(HWND host) {
    constexpr unsigned kStyle = WS_CHILD | WS_VISIBLE | STS_HASBUTTONS | STS_HASLINES | STS_LINESATROOT;
    m_tree.CreateTreeCtrl(kStyle, CRect(0, 0, kWidth, kHeight), CWnd::FromHandle(host), 1);
  }
  ~Ours() override { m_tree.DestroyWindow(); }
  void* Insert(const wchar_t* text, void* parent, void* after) override {
    return m_tree.InsertItem(text, -1, -1, parent ? Item(parent) : STI_ROOT, after ? Item(after) : STI_LAST);
  }
  void Hold(bool hold) override { m_tree.SetRedraw(!hold); }
  void Paint(bool whole) override {
    if (whole) m_tree.Invalidate();
    m_tree.UpdateWindow();
  }
  void ExpandAll(const std::vector<void*>&) override { m_tree.Expand(STI_ROOT, STE_EXPANDALL); }
  void Expand(void* item) override { m_tree.Expand(Item(item), STE_EXPAND); }
  void SetFirstVisible(void* item) override { m_tree.SetFirstVisible(Item(item)); }
  void EnsureVisible(void* item) override { m_tree.EnsureVisible(Item(item)); }
  void Thumb(int row) override { m_tree.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, row), 0); }
  bool IsHit(POINT point) override {
    unsigned flags = 0;
    return m_tree.HitTest(point, &flags) != nullptr;
  }
  void Sort() override { m_tree.SortChildrenByName(m_tree.GetRootItem()); }
  void Delete(void* item) override { m_tree.DeleteItem(Item(item)); }
  void DeleteAll() override { m_tree.DeleteAllItems(STI_ROOT); }

 private:
  static CVornTreeItem* Item(void* item) { return static_cast<CVornTreeItem*>(item); }
  CVornTreeCtrl m_tree;
};

#ifdef _WIN32
class Systems : public Contender {
 public:
  explicit Systems(HWND host) {
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
    m_tree = CreateWindowExW(0, WC_TREEVIEWW, nullptr, kStyle, 0, 0, kWidth, kHeight, host, nullptr, nullptr,
                             nullptr);
  }
  ~Systems() override { DestroyWindow(m_tree); }
  void* Insert(const wchar_t* text, void* parent, void* after) override {
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent ? Item(parent) : TVI_ROOT;
    insert.hInsertAfter = after ? Item(after) : TVI_LAST;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = const_cast<wchar_t*>(text);
    return reinterpret_cast<void*>(
        SendMessageW(m_tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
  }
  void Hold(bool hold) override {
    SendMessageW(m_tree, WM_SETREDRAW, !hold, 0);
    if (!hold) InvalidateRect(m_tree, nullptr, TRUE);
  }
  void Paint(bool whole) override {
    if (whole) InvalidateRect(m_tree, nullptr, TRUE);
    UpdateWindow(m_tree);
  }
  // Children before their parents: the other way round takes it many times longer.
  void ExpandAll(const std::vector<void*>& items) override {
    for (size_t i = items.size(); i-- > 0;) Expand(items[i]);
  }
  void Expand(void* item) override { Send(TVM_EXPAND, TVE_EXPAND, item); }
  void SetFirstVisible(void* item) override { Send(TVM_SELECTITEM, TVGN_FIRSTVISIBLE, item); }
  void EnsureVisible(void* item) override { Send(TVM_ENSUREVISIBLE, 0, item); }
  void Thumb(int row) override { SendMessageW(m_tree, WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, row), 0); }
  bool IsHit(POINT point) override {
    TVHITTESTINFO info{};
    info.pt = point;
    return SendMessageW(m_tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)) != 0;
  }
  void Sort() override { SendMessageW(m_tree, TVM_SORTCHILDREN, 0, 0); }
  void Delete(void* item) override { Send(TVM_DELETEITEM, 0, item); }
  void DeleteAll() override { Send(TVM_DELETEITEM, 0, TVI_ROOT); }

 private:
  static HTREEITEM Item(void* item) { return static_cast<HTREEITEM>(item); }
  void Send(UINT message, WPARAM wParam, void* item) {
    SendMessageW(m_tree, message, wParam, reinterpret_cast<LPARAM>(item));
  }
  HWND m_tree;
};
#endif

// --- The work --------------------------------------------------------------------------------------

constexpr size_t kMost = 1000000;
const Labels g_labels(kMost + 1000);

struct Scene {
  Contender& control;
  size_t count;
  std::vector<void*> items;
  std::mt19937 random{7};

  void* AnyItem() { return items[random() % items.size()]; }
};

void FillFlat(Scene& scene) {
  scene.control.Hold(true);
  for (size_t i = 0; i < scene.count; ++i) {
    scene.items.push_back(scene.control.Insert(g_labels[i], nullptr, nullptr));
  }
  scene.control.Hold(false);
  scene.control.Paint(false);
}

// Each item has ten children, as long as there are any.
void FillFan(Scene& scene) {
  scene.control.Hold(true);
  for (size_t i = 0; i < scene.count; ++i) {
    void* const parent = i == 0 ? nullptr : scene.items[(i - 1) / 10];
    scene.items.push_back(scene.control.Insert(g_labels[i], parent, nullptr));
  }
  scene.control.Hold(false);
  scene.control.Paint(false);
}

void ExpandAll(Scene& scene) {
  scene.control.Hold(true);
  scene.control.ExpandAll(scene.items);
  scene.control.Hold(false);
  scene.control.Paint(false);
}

void FanOpen(Scene& scene) {
  FillFan(scene);
  ExpandAll(scene);
}

void Nothing(Scene&) {}

void TopItem(Scene& scene) { scene.items.push_back(scene.control.Insert(L"folder", nullptr, nullptr)); }

// What a host does that fills a folder when it is opened.
void OpenFolder(Scene& scene) {
  void* const folder = scene.items[0];
  scene.control.Hold(true);
  for (size_t i = 0; i < scene.count; ++i) scene.control.Insert(g_labels[i], folder, nullptr);
  scene.control.Expand(folder);
  scene.control.Hold(false);
  scene.control.Paint(false);
}

void DeleteHalf(Scene& scene) {
  std::vector<void*> order = scene.items;
  std::shuffle(order.begin(), order.end(), scene.random);
  order.resize(order.size() / 2);
  scene.control.Hold(true);
  for (void* item : order) scene.control.Delete(item);
  scene.control.Hold(false);
  scene.control.Paint(false);
}

// From the last one made to the first: no item is deleted before what is below it.
void DeleteUpward(Scene& scene) {
  scene.control.Hold(true);
  for (size_t i = scene.items.size(); i-- > scene.items.size() / 2;) scene.control.Delete(scene.items[i]);
  scene.control.Hold(false);
  scene.control.Paint(false);
}

void DeleteAll(Scene& scene) {
  scene.control.DeleteAll();
  scene.control.Paint(false);
}

void SortAll(Scene& scene) {
  scene.control.Sort();
  scene.control.Paint(false);
}

void InsertOne(Scene& scene) {
  scene.items.push_back(scene.control.Insert(g_labels[scene.items.size()], nullptr, scene.AnyItem()));
  scene.control.Paint(false);
}

void JumpAndPaint(Scene& scene) {
  scene.control.SetFirstVisible(scene.AnyItem());
  scene.control.Paint(false);
}

void EnsureVisibleAndPaint(Scene& scene) {
  scene.control.EnsureVisible(scene.AnyItem());
  scene.control.Paint(false);
}

// The thumb's message carries 16 bits of a position.
void ThumbAndPaint(Scene& scene) {
  scene.control.Thumb(static_cast<int>(scene.random() % std::min<size_t>(scene.count, 65535)));
  scene.control.Paint(false);
}

void HitOne(Scene& scene) {
  const POINT point{static_cast<LONG>(scene.random() % kWidth), static_cast<LONG>(scene.random() % kHeight)};
  scene.control.IsHit(point);
}

void PaintWhole(Scene& scene) { scene.control.Paint(true); }

using Step = void (*)(Scene&);

struct Row {
  const char* name;
  Step prepare;
  Step act;
  int times;  // 1: a whole operation, in ms; else single ones, in us each
};

const Row kRows[] = {
    {"insert, fan of 10 [ms]", Nothing, FillFan, 1},
    {"insert, flat [ms]", Nothing, FillFlat, 1},
    {"fill, open and paint a folder [ms]", TopItem, OpenFolder, 1},
    {"one insert with paint, flat [us]", FillFlat, InsertOne, 200},
    {"one insert with paint, fan open [us]", FanOpen, InsertOne, 200},
    {"expand all, fan of 10 [ms]", FillFan, ExpandAll, 1},
    {"jump and paint, flat [us]", FillFlat, JumpAndPaint, 200},
    {"jump and paint, fan open [us]", FanOpen, JumpAndPaint, 200},
    {"thumb and paint, flat [us]", FillFlat, ThumbAndPaint, 200},
    {"paint all, flat [us]", FillFlat, PaintWhole, 200},
    {"hit test, flat [us]", FillFlat, HitOne, 100000},
    {"ensure visible and paint, flat [us]", FillFlat, EnsureVisibleAndPaint, 200},
    {"ensure visible and paint, fan open [us]", FanOpen, EnsureVisibleAndPaint, 200},
    {"sort by label, flat [ms]", FillFlat, SortAll, 1},
    {"delete half in any order, flat [ms]", FillFlat, DeleteHalf, 1},
    {"delete half upward, fan open [ms]", FanOpen, DeleteUpward, 1},
    {"delete all, fan open [ms]", FanOpen, DeleteAll, 1},
    {"delete all, flat [ms]", FillFlat, DeleteAll, 1},
};

// --- The run ---------------------------------------------------------------------------------------

HWND MakeHost() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"SideBySideHost";
  RegisterClassW(&windowClass);
  return CreateWindowExW(0, windowClass.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 0, 0, kWidth, kHeight,
                         nullptr, nullptr, windowClass.hInstance, nullptr);
}

void TakeMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

using Maker = std::unique_ptr<Contender> (*)(HWND);

template <class Control>
std::unique_ptr<Contender> Make(HWND host) {
  return std::make_unique<Control>(host);
}

struct Column {
  const char* name;
  Maker make;
  // By row: what it took last, with its preparation, in nanoseconds.
  std::vector<double> whole;
};

// Nanoseconds, the best of some rounds.
double Measure(HWND host, Column& column, size_t rowNumber, size_t count) {
  const Row& row = kRows[rowNumber];
  double best = 0;
  const int rounds = count < 100000 ? 3 : count < kMost ? 2 : 1;
  for (int round = 0; round < rounds; ++round) {
    const Stopwatch whole;
    const std::unique_ptr<Contender> control = column.make(host);
    Scene scene{*control, count, {}};
    TakeMessages();
    row.prepare(scene);
    TakeMessages();
    const Stopwatch watch;
    for (int i = 0; i < row.times; ++i) row.act(scene);
    const double took = watch.Elapsed() / row.times;
    if (round == 0 || took < best) best = took;
    TakeMessages();
    column.whole[rowNumber] = whole.Elapsed();
  }
  return best;
}

bool IsWanted(const Row& row, int argc, char** argv) {
  if (argc < 3) return true;
  return std::any_of(argv + 2, argv + argc, [&](const char* part) { return std::strstr(row.name, part); });
}

// What took long with a tenth of the items is left out: it grows with the square at worst.
bool IsTooLong(const Column& column, size_t row) { return column.whole[row] > 2e9; }

void PrintRow(HWND host, std::vector<Column>& columns, size_t rowNumber, size_t count) {
  const Row& row = kRows[rowNumber];
  std::printf("%-42s", row.name);
  std::vector<double> values;
  for (Column& column : columns) {
    if (IsTooLong(column, rowNumber)) {
      std::printf(" %12s", "-");
      continue;
    }
    values.push_back(Measure(host, column, rowNumber, count) / (row.times == 1 ? 1e6 : 1e3));
    std::printf(" %12.3f", values.back());
  }
  if (values.size() == 2 && values[1] > 0) std::printf(" %9.1f", values[0] / values[1]);
  std::printf("\n");
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  AfxInitVornComCtl();
  const size_t most = argc > 1 ? static_cast<size_t>(std::atol(argv[1])) : 100000;
  const HWND host = MakeHost();
  const std::vector<double> none(std::size(kRows));
  std::vector<Column> columns;
#ifdef _WIN32
  InitCommonControls();
  columns.push_back({"system's", Make<Systems>, none});
#endif
  columns.push_back({"ours", Make<Ours>, none});
  for (size_t count = 1000; count <= std::min(most, kMost); count *= 10) {
    std::printf("\n%-42s", (std::to_string(count) + " items").c_str());
    for (const Column& column : columns) std::printf(" %12s", column.name);
    std::printf(columns.size() == 2 ? " %9s\n" : "\n", "ratio");
    for (size_t row = 0; row < std::size(kRows); ++row) {
      if (IsWanted(kRows[row], argc, argv)) PrintRow(host, columns, row, count);
    }
  }
  DestroyWindow(host);
  return 0;
}
