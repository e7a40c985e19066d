// Cutting of text into lines, as DrawText does it. The lock is held.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "device_context.h"

namespace desktop {

// One line ready to be drawn: prefixes removed, shortened with an ellipsis when it was too wide.
struct TextLine {
  std::wstring text;
  size_t underlined = std::wstring::npos;  // the character behind a prefix
  int width = 0;
  bool isShortened = false;
};

class LineBreaker {
 public:
  // flags are those of DrawText; widths are in pixels.
  LineBreaker(const DeviceContext& dc, std::wstring_view text, UINT flags, int tabWidth, int width)
      : m_dc(dc), m_text(text), m_flags(flags), m_tabWidth(tabWidth), m_width(width) {}

  // The next line. The last one that is drawn is not broken but shortened, when an ellipsis is wanted.
  TextLine Next(bool isLast);
  bool AtEnd() const { return m_position >= m_text.size() && !m_emptyLineFollows; }
  // How many characters of the text the lines so far stand for.
  size_t Consumed() const { return m_position; }

 private:
  bool Has(UINT flag) const { return m_flags & flag; }
  int Width(const std::wstring& text, size_t count) const;
  size_t EndOfParagraph() const;
  void SkipLineEnd();
  void Wrap(TextLine& line, std::vector<size_t>& origins, size_t end);
  size_t BreakBefore(const std::wstring& text, size_t fitting) const;
  void Shorten(TextLine& line) const;
  void ShortenPath(TextLine& line) const;

  const DeviceContext& m_dc;
  std::wstring_view m_text;
  UINT m_flags;
  int m_tabWidth;
  int m_width;
  size_t m_position = 0;
  bool m_emptyLineFollows = false;
};

}  // namespace desktop
