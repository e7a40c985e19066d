// The built-in pixel face at one size and style.
//
// Metrics. At 11 pixels (lfHeight -11 or 13) the cell is 13 high: 11 above the baseline, of which 2 are
// internal leading, and 2 below. A character is as wide as its drawing and one clear column; a space is 3.
// Other sizes scale drawing and width together, rounded to nearest. Bold draws each row once more one
// pixel further right and adds 1 to every width; italic leans rows by a quarter without changing widths;
// fixed pitch gives every character 7 columns and one clear. A character that the face does not have is
// drawn as a box.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

#include <windows.h>

namespace desktop {

// A drawn character: rows of spans relative to the pen position and the top of the cell.
struct GlyphRun {
  int row;
  int left;
  int right;
};
struct Glyph {
  int advance = 0;
  bool drawn = false;
  std::vector<GlyphRun> runs;
};

class Typeface {
 public:
  // The face for a description; the same one for equal descriptions.
  static std::shared_ptr<const Typeface> For(const LOGFONTW& font);

  explicit Typeface(const LOGFONTW& font);

  const std::vector<GlyphRun>& Runs(wchar_t character) const;
  int Advance(wchar_t character) const;
  static bool Has(wchar_t character);

  int Height() const { return m_height; }
  int Ascent() const { return m_ascent; }
  int InternalLeading() const { return m_height - m_em; }
  int AverageWidth() const { return m_average; }
  int MaxWidth() const { return m_max; }
  int Weight() const { return m_bold ? FW_BOLD : FW_NORMAL; }
  bool IsFixed() const { return m_fixed; }
  // Rows of the cell for the lines under and through text.
  int UnderlineRow() const { return m_ascent + (m_height - m_ascent) / 2; }
  int StrikeRow() const { return m_ascent - (m_em + 1) / 3; }
  int LineThickness() const { return m_height >= 28 ? m_height / 14 : 1; }

 private:
  void Draw(wchar_t character, Glyph& glyph) const;
  int ScaleX(int value) const;

  int m_em;
  int m_height;
  int m_ascent;
  int m_average = 0;
  int m_max = 0;
  int m_across = 0;  // horizontal scale: m_across / m_acrossBase
  int m_acrossBase = 0;
  bool m_bold;
  bool m_italic;
  bool m_fixed;
  // One per character of the face; the last is the box. Drawn when first asked for, under the lock.
  mutable std::vector<Glyph> m_glyphs;
};

// The family that a face name stands for here: one of the names that EnumFontsW gives.
const wchar_t* FamilyOf(const LOGFONTW& font);

struct Family {
  const wchar_t* name;
  BYTE pitchAndFamily;  // as LOGFONTW
  BYTE charSet;
  bool trueType;
};
const std::vector<Family>& Families();

}  // namespace desktop
