#include <algorithm>
#include <deque>

#include "user/live.h"
#include "user/queue.h"
#include "user/user.h"

namespace desktop {

namespace {

// A handle is a generation in the high word and a slot in the low one. Slots are used again in turn, so
// that a value comes back only after billions of windows.
constexpr unsigned kMaxSlots = 30000;
constexpr unsigned kFirstFree = 64;  // slots that rest before the first one is used again

struct Slot {
  Window* window = nullptr;
  unsigned generation = 0;
};

struct Table {
  std::vector<Slot> slots;
  std::deque<unsigned> resting;
  Window* desktop = nullptr;
  Window* messages = nullptr;
  int live = 0;
};

Table& TheTable() {
  static auto& table = *new Table;
  return table;
}

HWND MakeHandle(unsigned slot, unsigned generation) {
  const auto value = (static_cast<ULONG_PTR>(generation) << 16) | ((slot + 16) * 2);
  return reinterpret_cast<HWND>(value);
}

// The low word, as a slot; past the end for what was never one.
unsigned SlotOf(HWND handle) {
  const auto low = static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(handle) & 0xffff);
  return (low & 1) || low < 32 ? kMaxSlots : low / 2 - 16;
}

unsigned TakeSlot(Table& table) {
  const bool full = table.slots.size() >= kMaxSlots;
  if (table.resting.size() > kFirstFree || (full && !table.resting.empty())) {
    const unsigned slot = table.resting.front();
    table.resting.pop_front();
    return slot;
  }
  if (full) return kMaxSlots;
  table.slots.emplace_back();
  return static_cast<unsigned>(table.slots.size() - 1);
}

Window* MakeRoot(const std::shared_ptr<WindowClass>& cls, const RECT& rect) {
  Window* root = AllocateWindow();
  root->cls = cls;
  root->proc = cls->proc;
  root->style = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
  root->rect = root->client = rect;
  root->created = true;
  return root;
}

}  // namespace

Window* FromHandle(HWND handle) {
  const Table& table = TheTable();
  const unsigned slot = SlotOf(handle);
  if (slot >= table.slots.size()) return nullptr;
  Window* window = table.slots[slot].window;
  return window && window->handle == handle ? window : nullptr;
}

Window* FromHandleOrError(HWND handle) {
  Window* window = FromHandle(handle);
  if (!window) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
  return window;
}

Window* DesktopWindow() {
  Table& table = TheTable();
  if (!table.desktop) {
    const RECT screen{0, 0, Metric(SM_CXSCREEN), Metric(SM_CYSCREEN)};
    table.desktop = MakeRoot(DesktopClass(), screen);
    table.live -= 1;
  }
  return table.desktop;
}

Window* MessageRoot() {
  Table& table = TheTable();
  if (!table.messages) {
    table.messages = MakeRoot(FindClass(L"Message", nullptr), RECT{0, 0, 100, 100});
    table.messages->style &= ~WS_VISIBLE;
    table.live -= 1;
  }
  return table.messages;
}

bool IsDesktop(const Window* window) { return window && !window->parent && window == TheTable().desktop; }

Window* AllocateWindow() {
  Table& table = TheTable();
  const unsigned slot = TakeSlot(table);
  if (slot == kMaxSlots) return nullptr;
  Slot& entry = table.slots[slot];
  entry.generation = entry.generation % 0xfffe + 1;
  entry.window = new Window;
  entry.window->handle = MakeHandle(slot, entry.generation);
  ++table.live;
  return entry.window;
}

void FreeWindow(Window* window) {
  Table& table = TheTable();
  UnlinkWindow(window);
  const unsigned slot = SlotOf(window->handle);
  table.slots[slot].window = nullptr;
  table.resting.push_back(slot);
  --table.live;
  delete window;
}

std::vector<Window*> AllWindows() {
  const Table& table = TheTable();
  std::vector<Window*> windows;
  for (const Slot& slot : table.slots)
    if (slot.window && slot.window != table.desktop && slot.window != table.messages)
      windows.push_back(slot.window);
  return windows;
}

int LiveWindows() { return TheTable().live; }

void LinkWindow(Window* window, Window* parent, Window* after) {
  window->parent = parent;
  window->above = after;
  window->below = after ? after->below : parent->firstChild;
  (after ? after->below : parent->firstChild) = window;
  (window->below ? window->below->above : parent->lastChild) = window;
}

void UnlinkWindow(Window* window) {
  if (!window->parent) return;
  (window->above ? window->above->below : window->parent->firstChild) = window->below;
  (window->below ? window->below->above : window->parent->lastChild) = window->above;
  window->above = window->below = window->parent = nullptr;
}

Window* TopLevel(Window* window) {
  while (window->parent && window->parent->parent) window = window->parent;
  return window;
}

bool IsShown(const Window* window) {
  for (; window; window = window->parent)
    if (!(window->style & WS_VISIBLE)) return false;
  return true;
}

bool IsDescendant(const Window* ancestor, const Window* window) {
  while (window && window != ancestor) window = window->parent;
  return window != nullptr;
}

std::vector<HWND> ChildHandles(HWND parent) {
  WorldLock lock(WorldMutex());
  std::vector<HWND> handles;
  const Window* window = parent ? FromHandle(parent) : DesktopWindow();
  if (!window) return handles;
  for (const Window* child = window->firstChild; child; child = child->below)
    handles.push_back(child->handle);
  return handles;
}

POINT ClientOrigin(const Window* window) {
  POINT origin{};
  for (; window; window = window->parent) {
    origin.x += window->client.left;
    origin.y += window->client.top;
  }
  return origin;
}

POINT WindowOrigin(const Window* window) {
  POINT origin = window->parent ? ClientOrigin(window->parent) : POINT{};
  return {origin.x + window->rect.left, origin.y + window->rect.top};
}

RECT ClientInWindow(const Window* window) {
  RECT rect = window->client;
  OffsetRect(&rect, -window->rect.left, -window->rect.top);
  return rect;
}

RECT WindowOnScreen(const Window* window) {
  const POINT origin = WindowOrigin(window);
  return {origin.x, origin.y, origin.x + window->Width(), origin.y + window->Height()};
}

RECT ClientOnScreen(const Window* window) {
  const POINT origin = ClientOrigin(window);
  RECT rect = window->client;
  OffsetRect(&rect, origin.x - rect.left, origin.y - rect.top);
  return rect;
}

// For a reset: the roots are made anew when they are asked for.
void ResetWindowTable() {
  Table& table = TheTable();
  for (Slot& slot : table.slots) {
    if (!slot.window) continue;
    table.resting.push_back(SlotOf(slot.window->handle));
    delete slot.window;
    slot.window = nullptr;
  }
  table.desktop = table.messages = nullptr;
  table.live = 0;
}

}  // namespace desktop
