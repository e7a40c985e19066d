// Dialog templates in their compiled forms.
#include "controls/dialog.h"
#include "kernel/resource.h"

namespace desktop {

namespace {

constexpr WORD kOrdinal = 0xFFFF;
constexpr WORD kDefaultFontSize = 0x7FFF;
constexpr size_t kMostItems = 1000;

LPCWSTR StandardClass(WORD atom) {
  switch (atom) {
    case 0x80: return L"Button";
    case 0x81: return L"Edit";
    case 0x82: return L"Static";
    case 0x83: return L"ListBox";
    case 0x84: return L"ScrollBar";
    case 0x85: return L"ComboBox";
    default: return L"";
  }
}

// A text, or a number behind 0xFFFF as "#number".
std::wstring ReadName(ResourceReader& reader, bool isClass) {
  ResourceReader ahead = reader;
  if (ahead.U16() != kOrdinal) return reader.Text();
  reader.U16();
  const WORD number = reader.U16();
  return isClass ? StandardClass(number) : L"#" + std::to_wstring(number);
}

template <typename Rect>
void ReadPlace(ResourceReader& reader, Rect& target) {
  target.x = reader.S16();
  target.y = reader.S16();
  target.cx = reader.S16();
  target.cy = reader.S16();
}

TemplateItem ReadItem(ResourceReader& reader, bool extended) {
  TemplateItem item;
  reader.Align4();
  if (extended) {
    item.helpId = reader.U32();
    item.exStyle = reader.U32();
    item.style = reader.U32();
  } else {
    item.style = reader.U32();
    item.exStyle = reader.U32();
  }
  ReadPlace(reader, item);
  item.id = extended ? reader.U32() : reader.U16();
  item.className = ReadName(reader, true);
  item.title = ReadName(reader, false);
  WORD size = reader.U16();
  if (!size) return item;
  // The older form counts the length itself.
  if (!extended && size >= sizeof(WORD)) size = static_cast<WORD>(size - sizeof(WORD));
  const WORD total = static_cast<WORD>(size + sizeof(WORD));
  item.data = {LOBYTE(total), HIBYTE(total)};
  for (WORD i = 0; i < size && !reader.Failed(); ++i) item.data.push_back(reader.U8());
  return item;
}

TemplateFont ReadFont(ResourceReader& reader, bool extended) {
  TemplateFont font;
  font.points = reader.U16();
  if (font.points == kDefaultFontSize) return font;
  if (extended) {
    font.weight = reader.U16();
    font.italic = reader.U8() != 0;
    font.charset = reader.U8();
  }
  font.face = reader.Text();
  return font;
}

}  // namespace

std::optional<DialogTemplate> ReadDialogTemplate(const void* data) {
  if (!data) return {};
  const size_t size = BytesFrom(data);
  ResourceReader reader(data, size);
  ResourceReader signature(data, size);
  const bool extended = signature.U16() == 1 && signature.U16() == 0xFFFF;
  DialogTemplate dialog;
  if (extended) {
    reader.Skip(4);
    dialog.helpId = reader.U32();
    dialog.exStyle = reader.U32();
    dialog.style = reader.U32();
  } else {
    dialog.style = reader.U32();
    dialog.exStyle = reader.U32();
  }
  const size_t count = reader.U16();
  ReadPlace(reader, dialog);
  dialog.menu = ReadName(reader, false);
  dialog.className = ReadName(reader, false);
  dialog.title = reader.Text();
  if (dialog.style & DS_SETFONT) dialog.font = ReadFont(reader, extended);
  if (reader.Failed() || count > kMostItems) return {};
  for (size_t i = 0; i < count; ++i) {
    dialog.items.push_back(ReadItem(reader, extended));
    if (reader.Failed()) return {};
  }
  return dialog;
}

}  // namespace desktop
