// The drawings of the built-in face; see glyphs.cpp.
#pragma once

namespace desktop {

constexpr int kSheetRows = 10;
constexpr int kSheetBaseline = 8;  // rows above the baseline

extern const wchar_t* const kGlyphSheets;
extern const wchar_t* const kComposedGlyphs;

}  // namespace desktop
