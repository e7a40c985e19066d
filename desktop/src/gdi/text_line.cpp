#include "text_line.h"

#include <algorithm>
#include <vector>

#include "text.h"

namespace desktop {
namespace {

constexpr wchar_t kEllipsis[] = L"...";
constexpr size_t kEllipsisLength = 3;

// Takes prefixes out of [begin, end): a doubled one stays once, another underlines what follows it.
// origins[i] is where character i of the line stands in the text, and one entry more for its end.
void TakePrefixes(std::wstring_view text, size_t begin, size_t end, TextLine& line,
                  std::vector<size_t>& origins) {
  for (size_t i = begin; i < end; ++i) {
    size_t origin = i;
    if (text[i] == L'&' && i + 1 < end) {
      ++i;
      if (text[i] != L'&') line.underlined = line.text.size();
    }
    line.text.push_back(text[i]);
    origins.push_back(origin);
  }
  origins.push_back(end);
}

}  // namespace

int LineBreaker::Width(const std::wstring& text, size_t count) const {
  if (!Has(DT_EXPANDTABS)) return TextWidth(m_dc, text.data(), count);
  int width = 0;
  for (size_t i = 0; i < count;) {
    size_t end = std::min(count, text.find(L'\t', i));
    width += TextWidth(m_dc, text.data() + i, end - i);
    if (end == count) break;
    width = (width / m_tabWidth + 1) * m_tabWidth;
    i = end + 1;
  }
  return width;
}

size_t LineBreaker::EndOfParagraph() const {
  if (Has(DT_SINGLELINE)) return m_text.size();
  return std::min(m_text.size(), m_text.find_first_of(L"\r\n", m_position));
}

void LineBreaker::SkipLineEnd() {
  if (m_position >= m_text.size() || Has(DT_SINGLELINE)) return;
  wchar_t c = m_text[m_position];
  if (c != L'\r' && c != L'\n') return;
  ++m_position;
  if (c == L'\r' && m_position < m_text.size() && m_text[m_position] == L'\n') ++m_position;
}

// How many characters stay on a line of which only `fitting` fit: up to the last space or hyphen, or all
// of the first word when it is too long itself.
size_t LineBreaker::BreakBefore(const std::wstring& text, size_t fitting) const {
  size_t i = fitting;
  if (i < text.size() && text[i] == L' ') return i;
  while (i > 0 && text[i - 1] != L' ' && text[i - 1] != L'-') --i;
  if (i > 0) return i;
  if (Has(DT_EDITCONTROL)) return std::max<size_t>(1, fitting);
  size_t end = text.find_first_of(L" -", fitting);
  if (end == std::wstring::npos) return text.size();
  return text[end] == L'-' ? end + 1 : end;
}

void LineBreaker::Wrap(TextLine& line, std::vector<size_t>& origins, size_t end) {
  size_t fitting = 0;
  while (fitting < line.text.size() && Width(line.text, fitting + 1) <= m_width) ++fitting;
  if (fitting == line.text.size()) {
    m_position = end;
    SkipLineEnd();
    return;
  }
  size_t kept = BreakBefore(line.text, fitting);
  size_t next = kept;
  while (next < line.text.size() && line.text[next] == L' ') ++next;
  m_position = origins[next];
  bool broke = kept < line.text.size();
  line.text.resize(kept);
  if (line.underlined >= kept) line.underlined = std::wstring::npos;
  if (m_position < end) return;
  // Spaces alone were left over: they make one more line, that is empty.
  m_emptyLineFollows = broke && end == m_text.size();
  SkipLineEnd();
}

void LineBreaker::Shorten(TextLine& line) const {
  line.isShortened = true;
  size_t kept = line.text.size();
  int dots = TextWidth(m_dc, kEllipsis, kEllipsisLength);
  while (kept > 0 && Width(line.text, kept) + dots > m_width) --kept;
  line.text.resize(kept);
  line.text += kEllipsis;
  if (line.underlined >= kept) line.underlined = std::wstring::npos;
}

// Keeps the last component of a path, and as much of the rest as fits before an ellipsis.
void LineBreaker::ShortenPath(TextLine& line) const {
  line.isShortened = true;
  size_t slash = line.text.find_last_of(L"\\/");
  std::wstring tail = slash == std::wstring::npos ? line.text : line.text.substr(slash);
  std::wstring head = slash == std::wstring::npos ? std::wstring() : line.text.substr(0, slash);
  std::wstring shortened;
  for (;;) {
    shortened = head;
    shortened.append(kEllipsis).append(tail);
    if (head.empty() || Width(shortened, shortened.size()) <= m_width) break;
    head.pop_back();
  }
  line.text = std::move(shortened);
  line.underlined = std::wstring::npos;
}

TextLine LineBreaker::Next(bool isLast) {
  TextLine line;
  m_emptyLineFollows = false;
  std::vector<size_t> origins;
  size_t end = EndOfParagraph();
  if (Has(DT_NOPREFIX)) {
    line.text.assign(m_text.substr(m_position, end - m_position));
    for (size_t i = m_position; i <= end; ++i) origins.push_back(i);
  } else {
    TakePrefixes(m_text, m_position, end, line, origins);
  }
  bool ellipsis = Has(DT_END_ELLIPSIS | DT_WORD_ELLIPSIS);
  if (Has(DT_WORDBREAK) && !(isLast && ellipsis)) {
    Wrap(line, origins, end);
  } else {
    m_position = end;
    SkipLineEnd();
  }
  if (Has(DT_PATH_ELLIPSIS) && Width(line.text, line.text.size()) > m_width) ShortenPath(line);
  if (ellipsis && Width(line.text, line.text.size()) > m_width) Shorten(line);
  line.width = Width(line.text, line.text.size());
  return line;
}

}  // namespace desktop
