#include "typeface.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <string>
#include <tuple>

#include "glyphs.h"

namespace desktop {
namespace {

// The cell at 11 pixels; sheet row 0 is cell row 3.
constexpr int kBaseEm = 11;
constexpr int kBaseHeight = 13;
constexpr int kBaseAscent = 11;
constexpr int kSheetTop = kBaseAscent - kSheetBaseline;
constexpr int kFixedColumns = 7;
constexpr int kSpaceColumns = 2;
constexpr int kDefaultHeight = 16;
constexpr int kMaxHeight = 2000;
constexpr wchar_t kBox = L'\x25a1';

// A drawing on the base cell: one word per row, the leftmost column in bit 0.
struct Drawing {
  int width = 0;
  uint32_t rows[kBaseHeight] = {};

  int Top() const {
    int row = 0;
    while (row < kBaseHeight && !rows[row]) ++row;
    return row;
  }
  int Bottom() const {
    int row = kBaseHeight;
    while (row > 0 && !rows[row - 1]) --row;
    return row;
  }
};

uint32_t ReadRow(const std::wstring& art) {
  uint32_t bits = 0;
  for (size_t i = 0; i < art.size(); ++i) bits |= art[i] == L'#' ? 1u << i : 0;
  return bits;
}

std::vector<std::wstring> Words(const std::wstring& line) {
  std::wistringstream stream(line);
  std::vector<std::wstring> words;
  for (std::wstring word; stream >> word;) words.push_back(word);
  return words;
}

using Drawings = std::map<wchar_t, Drawing>;

void ReadSheets(Drawings& drawings) {
  std::wistringstream stream(kGlyphSheets);
  for (std::wstring line; std::getline(stream, line);) {
    std::vector<std::wstring> names = Words(line);
    if (names.empty()) continue;
    for (int row = 0; row < kSheetRows; ++row) {
      std::getline(stream, line);
      std::vector<std::wstring> art = Words(line);
      for (size_t i = 0; i < names.size() && i < art.size(); ++i) {
        Drawing& drawing = drawings[names[i][0]];
        drawing.width = static_cast<int>(art[i].size());
        drawing.rows[kSheetTop + row] = ReadRow(art[i]);
      }
    }
  }
}

void AddRows(Drawing& to, const Drawing& from, int dx, int dy) {
  for (int row = 0; row < kBaseHeight; ++row) {
    int target = row + dy;
    if (target >= 0 && target < kBaseHeight) to.rows[target] |= from.rows[row] << dx;
  }
}

Drawing Compose(const Drawing& base, const Drawing& mark, wchar_t kind) {
  Drawing result;
  if (kind == L'\'') {
    result.width = base.width + 1 + mark.width;
    AddRows(result, base, 0, 0);
    AddRows(result, mark, base.width + 1, 0);
    return result;
  }
  result.width = std::max(base.width, mark.width);
  int baseLeft = (result.width - base.width) / 2;
  bool below = kind == L'¸' || kind == L'˛';
  int markLeft = kind == L'˛' ? result.width - mark.width : (result.width - mark.width + 1) / 2;
  AddRows(result, base, baseLeft, 0);
  if (below) {
    AddRows(result, mark, markLeft, 0);
    return result;
  }
  // Two rows high with a clear row below; a taller mark takes the clear row, a lower one sits above it.
  int bottom = std::max(base.Top() - 1, mark.Bottom() - mark.Top());
  if (mark.Bottom() - mark.Top() > 2) ++bottom;
  AddRows(result, mark, markLeft, std::min(bottom, base.Top()) - mark.Bottom());
  return result;
}

void ComposeAll(Drawings& drawings) {
  for (const std::wstring& word : Words(kComposedGlyphs)) {
    const Drawing& base = drawings[word[1]];
    drawings[word[0]] = word[2] == L'·' ? base : Compose(base, drawings[word[2]], word[2]);
  }
}

const Drawings& AllDrawings() {
  static const Drawings& drawings = []() -> const Drawings& {
    auto& all = *new Drawings;
    ReadSheets(all);
    ComposeAll(all);
    Drawing space;
    space.width = kSpaceColumns;
    for (wchar_t blank : {L' ', L'\xa0', L'\x2009', L'\x202f'}) all[blank] = space;
    all[L'\xad'] = all[L'-'];
    all[L'\x2010'] = all[L'\x2011'] = all[L'-'];
    return all;
  }();
  return drawings;
}

// Where each character of the face stands in Typeface::m_glyphs.
size_t IndexOf(wchar_t character) {
  constexpr size_t kDirect = 0x180;
  struct Index {
    std::vector<size_t> direct;
    std::unordered_map<wchar_t, size_t> others;
    size_t box = 0;
  };
  static const Index& index = []() -> const Index& {
    auto& made = *new Index;
    size_t next = 0;
    made.box = AllDrawings().size();
    made.direct.assign(kDirect, made.box);
    for (const auto& [c, drawing] : AllDrawings()) {
      if (static_cast<size_t>(c) < kDirect) made.direct[static_cast<size_t>(c)] = next;
      made.others[c] = next++;
    }
    return made;
  }();
  auto code = static_cast<size_t>(character);
  if (code < kDirect) return index.direct[code];
  auto found = index.others.find(character);
  return found == index.others.end() ? index.box : found->second;
}

// Squeezes or centres a drawing in the columns of fixed pitch.
Drawing Fixed(const Drawing& drawing) {
  Drawing result;
  result.width = kFixedColumns;
  if (drawing.width <= kFixedColumns) {
    AddRows(result, drawing, (kFixedColumns - drawing.width) / 2, 0);
    return result;
  }
  for (int row = 0; row < kBaseHeight; ++row) {
    for (int x = 0; x < drawing.width; ++x) {
      if (drawing.rows[row] >> x & 1) result.rows[row] |= 1u << (x * kFixedColumns / drawing.width);
    }
  }
  return result;
}

int Scale(long long value, long long to, long long from) {
  return static_cast<int>((2 * value * to + from) / (2 * from));
}

// How much of [low, high) of `total` scaled positions is inked; positions are in base units times total.
struct Coverage {
  const Drawing& drawing;
  int width, height;  // scaled size of the drawing's columns and of the cell

  bool At(int x, int y) const {
    // Nearest when growing; when shrinking, any ink near the middle counts so that strokes stay.
    int x0 = static_cast<int>(static_cast<long long>(x) * drawing.width / width);
    int x1 = std::max(x0 + 1, static_cast<int>(static_cast<long long>(x + 1) * drawing.width / width));
    int y0 = static_cast<int>(static_cast<long long>(y) * kBaseHeight / height);
    int y1 = std::max(y0 + 1, static_cast<int>(static_cast<long long>(y + 1) * kBaseHeight / height));
    int ink = 0;
    for (int row = y0; row < std::min(y1, kBaseHeight); ++row) {
      for (int column = x0; column < x1; ++column) ink += static_cast<int>(drawing.rows[row] >> column & 1);
    }
    return 2 * ink >= (x1 - x0) * (y1 - y0);
  }
};

struct Key {
  int em, height, across, acrossBase;
  bool bold, italic, fixed;
  auto operator<=>(const Key&) const = default;
};

bool WantsFixed(const LOGFONTW& font) {
  if ((font.lfPitchAndFamily & 3) == FIXED_PITCH) return true;
  const wchar_t* family = FamilyOf(font);
  return std::wcscmp(family, L"Courier New") == 0 || std::wcscmp(family, L"Courier") == 0;
}

}  // namespace

Typeface::Typeface(const LOGFONTW& font)
    : m_bold(font.lfWeight > FW_MEDIUM), m_italic(font.lfItalic != 0), m_fixed(WantsFixed(font)) {
  long long asked = std::clamp<long long>(font.lfHeight, -kMaxHeight, kMaxHeight);
  if (asked < 0) {
    m_em = static_cast<int>(-asked);
    m_height = std::max(2, Scale(m_em, kBaseHeight, kBaseEm));
  } else {
    m_height = std::max(2, static_cast<int>(asked ? asked : kDefaultHeight));
    m_em = std::max(1, Scale(m_height, kBaseEm, kBaseHeight));
  }
  m_ascent = Scale(m_height, kBaseAscent, kBaseHeight);
  m_across = m_height;
  m_acrossBase = kBaseHeight;
  if (font.lfWidth) {
    // A width asks for this average, whatever the height.
    m_across = static_cast<int>(
        std::clamp<long long>(std::abs(static_cast<long long>(font.lfWidth)), 1, kMaxHeight));
    m_acrossBase = 5;
  }
  auto add = [&](const Drawing& drawing) {
    int columns = m_fixed ? kFixedColumns : drawing.width;
    m_glyphs.push_back({std::max(1, ScaleX(columns + 1)) + (m_bold ? 1 : 0), false, {}});
  };
  for (const auto& [character, drawing] : AllDrawings()) add(drawing);
  add(AllDrawings().at(kBox));
  int sum = 0;
  for (wchar_t c = L'a'; c <= L'z'; ++c) sum += Advance(c);
  m_average = (sum + 13) / 26;
  for (const Glyph& glyph : m_glyphs) m_max = std::max(m_max, glyph.advance);
}

int Typeface::ScaleX(int value) const { return Scale(value, m_across, m_acrossBase); }

void Typeface::Draw(wchar_t character, Glyph& glyph) const {
  const Drawing& plain = AllDrawings().at(Has(character) ? character : kBox);
  const Drawing drawing = m_fixed ? Fixed(plain) : plain;
  glyph.drawn = true;
  int columns = std::max(1, ScaleX(drawing.width));
  Coverage coverage{drawing, columns, m_height};
  for (int row = 0; row < m_height; ++row) {
    int lean = m_italic ? (m_ascent - row + (row > m_ascent ? -3 : 0)) / 4 : 0;
    for (int x = 0; x < columns;) {
      if (!coverage.At(x, row)) {
        ++x;
        continue;
      }
      int start = x;
      while (x < columns && coverage.At(x, row)) ++x;
      int right = x + (m_bold ? 1 : 0) + lean;
      // Bold spans may touch: one span then, so that no pixel is drawn twice.
      if (!glyph.runs.empty() && glyph.runs.back().row == row && glyph.runs.back().right >= start + lean) {
        glyph.runs.back().right = right;
      } else {
        glyph.runs.push_back({row, start + lean, right});
      }
    }
  }
}

const std::vector<GlyphRun>& Typeface::Runs(wchar_t character) const {
  Glyph& glyph = m_glyphs[IndexOf(character)];
  if (!glyph.drawn) Draw(character, glyph);
  return glyph.runs;
}

int Typeface::Advance(wchar_t character) const { return m_glyphs[IndexOf(character)].advance; }

bool Typeface::Has(wchar_t character) { return AllDrawings().count(character) != 0; }

std::shared_ptr<const Typeface> Typeface::For(const LOGFONTW& font) {
  // Faces are few in a program and dear to make: the last of them stay.
  constexpr size_t kMostCached = 64;
  using Cache = std::map<std::tuple<LONG, LONG, bool, bool, bool>, std::shared_ptr<const Typeface>>;
  static auto& cache = *new Cache;
  auto key = std::make_tuple(font.lfHeight, font.lfWidth, font.lfWeight > FW_MEDIUM, font.lfItalic != 0,
                             WantsFixed(font));
  auto found = cache.find(key);
  if (found != cache.end()) return found->second;
  if (cache.size() >= kMostCached) cache.clear();
  return cache[key] = std::make_shared<const Typeface>(font);
}

const std::vector<Family>& Families() {
  static const auto& families =
      *new std::vector<Family>{{L"Arial", VARIABLE_PITCH | FF_SWISS, ANSI_CHARSET, true},
                               {L"Courier", FIXED_PITCH | FF_MODERN, ANSI_CHARSET, false},
                               {L"Courier New", FIXED_PITCH | FF_MODERN, ANSI_CHARSET, true},
                               {L"MS Sans Serif", VARIABLE_PITCH | FF_SWISS, ANSI_CHARSET, false},
                               {L"System", VARIABLE_PITCH | FF_SWISS, ANSI_CHARSET, false},
                               {L"Tahoma", VARIABLE_PITCH | FF_SWISS, ANSI_CHARSET, true},
                               {L"Times New Roman", VARIABLE_PITCH | FF_ROMAN, ANSI_CHARSET, true},
                               {L"Verdana", VARIABLE_PITCH | FF_SWISS, ANSI_CHARSET, true}};
  return families;
}

const wchar_t* FamilyOf(const LOGFONTW& font) {
  size_t length = wcsnlen(font.lfFaceName, LF_FACESIZE);
  for (const Family& family : Families()) {
    if (std::wcslen(family.name) == length && wcsncasecmp(family.name, font.lfFaceName, length) == 0)
      return family.name;
  }
  if ((font.lfPitchAndFamily & 3) == FIXED_PITCH) return L"Courier New";
  return L"Tahoma";
}

}  // namespace desktop
