#include "dialog_template.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>

namespace {

constexpr WORD kOrdinal = 0xFFFF;
constexpr size_t kFontStyle = 0x40;

// Walks a template, whose texts are 16-bit on every desktop.
class Reader {
 public:
  explicit Reader(const std::vector<unsigned char>& bytes) : m_bytes(bytes) {}

  bool Broken() const { return m_at > m_bytes.size(); }

  template <typename T>
  T Take() {
    T value{};
    if (m_at + sizeof value <= m_bytes.size()) std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
    m_at += sizeof value;
    return value;
  }

  // An empty text, a number as "#n", or a text.
  std::wstring TakeName() {
    const WORD first = Take<WORD>();
    if (first == kOrdinal) return L"#" + std::to_wstring(Take<WORD>());
    std::wstring text;
    for (WORD c = first; c != 0 && !Broken(); c = Take<WORD>()) text += static_cast<wchar_t>(c);
    return text;
  }

  void Skip(size_t count) { m_at += count; }
  void Align() { m_at = (m_at + 3) & ~size_t{3}; }

 private:
  const std::vector<unsigned char>& m_bytes;
  size_t m_at = 0;
};

std::wstring KindName(const std::wstring& name) {
  static const std::map<std::wstring, std::wstring> kSystem = {
      {L"#128", L"button"}, {L"#129", L"edit"}, {L"#130", L"static"}, {L"#133", L"combobox"}};
  if (const auto found = kSystem.find(name); found != kSystem.end()) return found->second;
  std::wstring lower;
  for (const wchar_t c : name) lower += static_cast<wchar_t>(towlower(static_cast<wint_t>(c)));
  return lower;
}

RECT TakePlace(Reader& reader) {
  const auto x = reader.Take<short>();
  const auto y = reader.Take<short>();
  const auto cx = reader.Take<short>();
  const auto cy = reader.Take<short>();
  return {x, y, x + cx, y + cy};
}

DialogControl TakeControl(Reader& reader) {
  DialogControl control{};
  reader.Align();
  reader.Skip(2 * sizeof(DWORD));  // help, extended style
  control.style = reader.Take<DWORD>();
  control.place = TakePlace(reader);
  control.id = reader.Take<int>();
  control.kind = KindName(reader.TakeName());
  control.text = reader.TakeName();
  reader.Skip(reader.Take<WORD>());
  return control;
}

}  // namespace

const DialogControl* DialogTemplate::Find(int id) const {
  for (const DialogControl& control : controls) {
    if (control.id == id) return &control;
  }
  return nullptr;
}

std::vector<unsigned char> ReadResource(HINSTANCE module, int number, int type) {
  const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(number), MAKEINTRESOURCEW(type));
  if (found == nullptr) return {};
  const auto* data = static_cast<const unsigned char*>(LockResource(LoadResource(module, found)));
  return data == nullptr ? std::vector<unsigned char>{}
                         : std::vector<unsigned char>(data, data + SizeofResource(module, found));
}

DialogTemplate ReadDialog(HINSTANCE module, int number) {
  const std::vector<unsigned char> bytes = ReadResource(module, number, 5);
  Reader reader(bytes);
  const WORD version = reader.Take<WORD>();
  if (version != 1 || reader.Take<WORD>() != kOrdinal) {
    ADD_FAILURE() << "no extended dialog template " << number;
    return {};
  }
  DialogTemplate dialog;
  reader.Skip(2 * sizeof(DWORD));  // help, extended style
  dialog.style = reader.Take<DWORD>();
  const WORD count = reader.Take<WORD>();
  const RECT place = TakePlace(reader);
  dialog.size = {place.right - place.left, place.bottom - place.top};
  reader.TakeName();  // menu
  reader.TakeName();  // window class
  dialog.caption = reader.TakeName();
  if (dialog.style & kFontStyle) {
    dialog.points = reader.Take<WORD>();
    reader.Skip(2 * sizeof(WORD));  // weight, italic, character set
    dialog.font = reader.TakeName();
  }
  for (int i = 0; i < count; ++i) dialog.controls.push_back(TakeControl(reader));
  EXPECT_FALSE(reader.Broken()) << "dialog " << number << " ends early";
  return dialog;
}
