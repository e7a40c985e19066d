// Text. Numbers come from fonts and differ: only what relates them is tested.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/picture.h"
#include "support/text.h"

using namespace support;

namespace {

const COLORREF kRed = RGB(255, 0, 0);

// A canvas with the system's dialog font.
class TextCanvas : public Canvas {
 public:
  TextCanvas(int width, int height, bool bold = false) : Canvas(width, height) {
    LOGFONTW font = {};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
    if (bold) font.lfWeight = FW_BOLD;
    m_font = CreateFontIndirectW(&font);
    m_old = SelectObject(*this, m_font);
  }
  ~TextCanvas() {
    SelectObject(*this, m_old);
    DeleteObject(m_font);
  }

  SIZE Extent(const std::wstring& text) const {
    SIZE size = {-1, -1};
    GetTextExtentPoint32W(*this, text.c_str(), static_cast<int>(text.size()), &size);
    return size;
  }
  int Width(const std::wstring& text) const { return Extent(text).cx; }
  // DrawText in a rectangle.
  int Draw(const std::wstring& text, RECT r, UINT format) const {
    return DrawTextW(*this, text.c_str(), static_cast<int>(text.size()), &r, format);
  }
  // The size that DrawText calculates.
  std::string Calculate(const std::wstring& text, int width, UINT format) const {
    RECT r = {0, 0, width, 0};
    DrawTextW(*this, text.c_str(), static_cast<int>(text.size()), &r, format | DT_CALCRECT);
    return Text(SIZE{r.right, r.bottom});
  }
  TEXTMETRICW Metrics() const {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(*this, &metrics);
    return metrics;
  }
  RECT Ink() const { return Read().Bounds(0xFFFFFF); }

 private:
  HFONT m_font;
  HGDIOBJ m_old;
};

}  // namespace

TEST(Text, ExtentOfNothing) {
  TextCanvas dc(10, 10);
  EXPECT_EQ(0, dc.Width(L""));
  EXPECT_EQ(0, dc.Extent(L"").cy);
}

TEST(Text, ExtentIsTheSumOfItsParts) {
  TextCanvas dc(10, 10);
  EXPECT_EQ(dc.Width(L"abc"), dc.Width(L"a") + dc.Width(L"b") + dc.Width(L"c"));
  EXPECT_EQ(dc.Width(L"Éléphant ici"), dc.Width(L"Éléphant") + dc.Width(L" ici"));
  EXPECT_EQ(2 * dc.Width(L"m"), dc.Width(L"mm"));
}

TEST(Text, HeightIsTheFonts) {
  TextCanvas dc(10, 10);
  const TEXTMETRICW metrics = dc.Metrics();
  EXPECT_EQ(metrics.tmHeight, dc.Extent(L"x").cy);
  EXPECT_EQ(metrics.tmHeight, dc.Extent(L"Ég").cy);
  EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
  EXPECT_GT(metrics.tmAscent, metrics.tmDescent);
  EXPECT_GT(metrics.tmAveCharWidth, 0);
}

TEST(Text, BoldIsNotNarrower) {
  TextCanvas dc(10, 10);
  TextCanvas bold(10, 10, true);
  EXPECT_GT(bold.Width(L"mmmmmmmm"), dc.Width(L"mmmmmmmm"));
  EXPECT_GT(bold.Metrics().tmWeight, dc.Metrics().tmWeight);
}

TEST(Text, PartialExtentsGrowAndFit) {
  TextCanvas dc(10, 10);
  int fit = 0;
  int partial[5] = {};
  SIZE size = {};
  const int width = dc.Width(L"abc");
  ASSERT_TRUE(GetTextExtentExPointW(dc, L"abcde", 5, width, &fit, partial, &size));
  EXPECT_EQ(3, fit);
  EXPECT_EQ(dc.Width(L"a"), partial[0]);
  EXPECT_EQ(dc.Width(L"ab"), partial[1]);
  EXPECT_EQ(width, partial[2]);
  EXPECT_EQ(dc.Width(L"abcde"), size.cx);
  GetTextExtentExPointW(dc, L"abcde", 5, width - 1, &fit, nullptr, &size);
  EXPECT_EQ(2, fit);
}

TEST(Text, CharacterWidthsAreTheExtents) {
  TextCanvas dc(10, 10);
  int widths[3] = {};
  ASSERT_TRUE(GetCharWidth32W(dc, 'a', 'c', widths));
  EXPECT_EQ(dc.Width(L"a"), widths[0]);
  EXPECT_EQ(dc.Width(L"c"), widths[2]);
}

TEST(Text, StaysInItsExtent) {
  TextCanvas dc(100, 40);
  SetBkMode(dc, TRANSPARENT);
  TextOutW(dc, 10, 10, L"HHH", 3);
  const RECT ink = dc.Ink();
  EXPECT_GE(ink.left, 10);
  EXPECT_GE(ink.top, 10);
  EXPECT_LE(ink.right, 10 + dc.Width(L"HHH"));
  EXPECT_LE(ink.bottom, 10 + dc.Metrics().tmHeight);
  EXPECT_FALSE(IsRectEmpty(&ink));
}

TEST(Text, OpaqueFillsTheExtent) {
  TextCanvas dc(100, 40);
  SetBkColor(dc, kRed);
  SetTextColor(dc, kRed);
  SetBkMode(dc, OPAQUE);
  TextOutW(dc, 10, 5, L"Hello", 5);
  const SIZE size = dc.Extent(L"Hello");
  EXPECT_EQ(Text(RECT{10, 5, 10 + size.cx, 5 + size.cy}), Text(dc.Ink()));
  EXPECT_EQ(size.cx * size.cy, dc.Read().Count(0xFF0000));
}

TEST(Text, TakesItsColour) {
  TextCanvas dc(40, 20);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kRed);
  TextOutW(dc, 0, 0, L"I", 1);
  EXPECT_GT(dc.Read().Count(0xFF0000), 4);
  EXPECT_EQ(0, dc.Read().Count(0));
}

TEST(Text, BlanksLeaveNoInk) {
  TextCanvas dc(40, 20);
  SetBkMode(dc, TRANSPARENT);
  TextOutW(dc, 0, 0, L"   ", 3);
  EXPECT_EQ(40 * 20, dc.Read().Count(0xFFFFFF));
  EXPECT_GT(dc.Width(L" "), 0);
}

TEST(Text, DifferentLettersLookDifferent) {
  std::vector<Picture> pictures;
  for (const wchar_t letter : {L'a', L'b', L'A', L'é', L'e', L'1', L'?', L'ç'}) {
    TextCanvas dc(20, 20);
    SetBkMode(dc, TRANSPARENT);
    TextOutW(dc, 2, 0, &letter, 1);
    for (const Picture& other : pictures) EXPECT_NE(other, dc.Read()) << static_cast<int>(letter);
    pictures.push_back(dc.Read());
  }
}

TEST(Text, ClipOptionCuts) {
  TextCanvas dc(60, 20);
  const RECT clip = {5, 3, 12, 9};
  SetBkMode(dc, TRANSPARENT);
  ExtTextOutW(dc, 0, 0, ETO_CLIPPED, &clip, L"HHHHHH", 6, nullptr);
  const RECT ink = dc.Ink();
  EXPECT_GE(ink.left, 5);
  EXPECT_GE(ink.top, 3);
  EXPECT_LE(ink.right, 12);
  EXPECT_LE(ink.bottom, 9);
}

TEST(Text, OpaqueOptionFillsTheRectangle) {
  TextCanvas dc(6, 4);
  const RECT r = {1, 1, 4, 3};
  SetBkColor(dc, kRed);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
  EXPECT_ART(dc.Read(), R"(
      ......
      .rrr..
      .rrr..
      ......)");
}

TEST(Text, GivenDistancesAreUsed) {
  TextCanvas plain(80, 20);
  TextCanvas spread(80, 20);
  SetBkMode(plain, TRANSPARENT);
  SetBkMode(spread, TRANSPARENT);
  TextOutW(plain, 0, 0, L"I", 1);
  TextOutW(plain, 30, 0, L"I", 1);
  const int distances[] = {30, 30};
  ExtTextOutW(spread, 0, 0, 0, nullptr, L"II", 2, distances);
  EXPECT_EQ(plain.Read(), spread.Read());
}

TEST(Text, AlignmentMovesTheReferencePoint) {
  TextCanvas plain(80, 40);
  TextCanvas aligned(80, 40);
  SetBkMode(plain, TRANSPARENT);
  SetBkMode(aligned, TRANSPARENT);
  TextOutW(plain, 50 - plain.Width(L"ab"), 20 - plain.Metrics().tmAscent, L"ab", 2);
  EXPECT_EQ(static_cast<UINT>(TA_LEFT | TA_TOP), SetTextAlign(aligned, TA_RIGHT | TA_BASELINE));
  TextOutW(aligned, 50, 20, L"ab", 2);
  EXPECT_EQ(plain.Read(), aligned.Read());
}

TEST(TextBox, CalculatesOneLine) {
  TextCanvas dc(10, 10);
  EXPECT_EQ(Text(dc.Extent(L"Hello")), dc.Calculate(L"Hello", 0, DT_SINGLELINE));
  EXPECT_EQ(Text(dc.Extent(L"Hello")), dc.Calculate(L"Hello", 500, DT_SINGLELINE));
}

TEST(TextBox, ReturnsTheHeight) {
  TextCanvas dc(100, 100);
  const int height = dc.Metrics().tmHeight;
  EXPECT_EQ(height, dc.Draw(L"a", {0, 0, 50, 50}, DT_SINGLELINE));
  EXPECT_EQ(2 * height, dc.Draw(L"a\nb", {0, 0, 50, 50}, 0));
}

TEST(TextBox, LinesBreakAtLineEnds) {
  TextCanvas dc(10, 10);
  const int height = dc.Metrics().tmHeight;
  const int wide = dc.Width(L"wide");
  EXPECT_EQ(Text(SIZE{wide, 3 * height}), dc.Calculate(L"a\nwide\r\nb", 0, 0));
  EXPECT_EQ(height, dc.Extent(L"a\nb").cy);
}

TEST(TextBox, WordsWrap) {
  TextCanvas dc(10, 10);
  RECT r = {0, 0, dc.Width(L"hello big ") + 1, 0};
  const int width = r.right;
  const int height = dc.Metrics().tmHeight;
  EXPECT_EQ(2 * height, DrawTextW(dc, L"hello big ox", -1, &r, DT_WORDBREAK | DT_CALCRECT));
  EXPECT_EQ(2 * height, r.bottom);
  EXPECT_LE(r.right, width);
  EXPECT_GE(r.right, dc.Width(L"hello big"));
  r = {0, 0, dc.Width(L"hello ") + 1, 0};
  EXPECT_EQ(2 * height, DrawTextW(dc, L"hello biggest", -1, &r, DT_WORDBREAK | DT_CALCRECT));
  r = {0, 0, 5000, 0};
  EXPECT_EQ(height, DrawTextW(dc, L"hello big ox", -1, &r, DT_WORDBREAK | DT_CALCRECT));
  EXPECT_EQ(dc.Width(L"hello big ox"), r.right);
}

TEST(TextBox, PrefixUnderlinesAndDisappears) {
  TextCanvas dc(10, 10);
  EXPECT_EQ(Text(dc.Extent(L"File")), dc.Calculate(L"&File", 0, DT_SINGLELINE));
  EXPECT_EQ(Text(dc.Extent(L"A&B")), dc.Calculate(L"A&&B", 0, DT_SINGLELINE));
  EXPECT_EQ(Text(dc.Extent(L"&File")), dc.Calculate(L"&File", 0, DT_SINGLELINE | DT_NOPREFIX));
  TextCanvas plain(50, 30);
  TextCanvas marked(50, 30);
  plain.Draw(L"F", {0, 0, 50, 30}, DT_SINGLELINE);
  marked.Draw(L"&F", {0, 0, 50, 30}, DT_SINGLELINE);
  EXPECT_GT(marked.Read().Count(0), plain.Read().Count(0));
}

TEST(TextBox, PlacesTheText) {
  const SIZE size = TextCanvas(1, 1).Extent(L"ox");
  // Where the rest is even, there is but one middle.
  const int cx = 60 + size.cx % 2;
  const int cy = 40 + size.cy % 2;
  struct {
    UINT format;
    int x;
    int y;
  } const cases[] = {{DT_LEFT | DT_TOP, 0, 0},
                     {DT_RIGHT | DT_TOP, cx - size.cx, 0},
                     {DT_CENTER | DT_TOP, (cx - size.cx) / 2, 0},
                     {DT_LEFT | DT_VCENTER, 0, (cy - size.cy) / 2},
                     {DT_LEFT | DT_BOTTOM, 0, cy - size.cy},
                     {DT_RIGHT | DT_BOTTOM, cx - size.cx, cy - size.cy}};
  for (const auto& c : cases) {
    TextCanvas expected(cx, cy);
    TextOutW(expected, c.x, c.y, L"ox", 2);
    TextCanvas actual(cx, cy);
    actual.Draw(L"ox", {0, 0, cx, cy}, c.format | DT_SINGLELINE);
    EXPECT_EQ(expected.Read(), actual.Read()) << c.format;
  }
}

TEST(TextBox, ClipsUnlessToldNotTo) {
  TextCanvas clipped(100, 20);
  clipped.Draw(L"HHHHHHHH", {0, 0, 20, 20}, DT_SINGLELINE);
  EXPECT_LE(clipped.Ink().right, 20);
  TextCanvas free(100, 20);
  free.Draw(L"HHHHHHHH", {0, 0, 20, 20}, DT_SINGLELINE | DT_NOCLIP);
  EXPECT_GT(free.Ink().right, 20);
}

TEST(TextBox, EllipsisReplacesTheEnd) {
  TextCanvas dc(200, 20);
  wchar_t text[64] = L"a rather long text";
  RECT r = {0, 0, dc.Width(L"a rather") + dc.Width(L"..."), 20};
  DrawTextW(dc, text, -1, &r, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
  const std::wstring result = text;
  EXPECT_EQ(L"...", result.substr(result.size() - 3));
  EXPECT_LE(dc.Width(result), r.right);
  EXPECT_EQ(L"a rather", result.substr(0, 8));
  wchar_t fits[64] = L"short";
  DrawTextW(dc, fits, -1, &r, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
  EXPECT_STREQ(L"short", fits);
}

TEST(TextBox, TabsExpand) {
  TextCanvas dc(10, 10);
  const std::string expanded = dc.Calculate(L"a\tb", 0, DT_EXPANDTABS | DT_SINGLELINE);
  const int tab = 8 * dc.Metrics().tmAveCharWidth;
  EXPECT_EQ(Text(SIZE{tab + dc.Width(L"b"), dc.Metrics().tmHeight}), expanded);
}

TEST(TextBox, CalculatingDrawsNothing) {
  TextCanvas dc(50, 20);
  dc.Calculate(L"text", 50, DT_WORDBREAK);
  EXPECT_EQ(50 * 20, dc.Read().Count(0xFFFFFF));
}

TEST(TextBox, EndsAtZeroWhenNoLengthIsGiven) {
  TextCanvas dc(10, 10);
  RECT r = {};
  DrawTextW(dc, L"abc", -1, &r, DT_SINGLELINE | DT_CALCRECT);
  EXPECT_EQ(dc.Width(L"abc"), r.right);
}

TEST(Font, TellsHowItWasMade) {
  LOGFONTW wanted = {};
  wanted.lfHeight = -20;
  wanted.lfWeight = FW_BOLD;
  wanted.lfUnderline = TRUE;
  wcscpy(wanted.lfFaceName, L"Tahoma");
  const HFONT font = CreateFontIndirectW(&wanted);
  LOGFONTW back = {};
  EXPECT_EQ(static_cast<int>(sizeof back), GetObjectW(font, sizeof back, &back));
  EXPECT_EQ(-20, back.lfHeight);
  EXPECT_EQ(FW_BOLD, back.lfWeight);
  EXPECT_TRUE(back.lfUnderline);
  EXPECT_STREQ(L"Tahoma", back.lfFaceName);
  DeleteObject(font);
}

TEST(Font, GrowsWithItsHeight) {
  Canvas dc(10, 10);
  long last = 0;
  for (const int height : {-10, -16, -24, -40}) {
    const HFONT font = CreateFontW(height, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0,
                                   VARIABLE_PITCH | FF_SWISS, L"Tahoma");
    const HGDIOBJ old = SelectObject(dc, font);
    SIZE size = {};
    GetTextExtentPoint32W(dc, L"width", 5, &size);
    EXPECT_GT(size.cx, last);
    last = size.cx;
    SelectObject(dc, old);
    DeleteObject(font);
  }
}

TEST(Font, UnderlineDrawsALine) {
  Canvas dc(40, 30);
  const HFONT font = CreateFontW(-16, 0, 0, 0, FW_NORMAL, 0, TRUE, 0, DEFAULT_CHARSET, 0, 0, 0,
                                 VARIABLE_PITCH | FF_SWISS, L"Tahoma");
  const HGDIOBJ old = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  TextOutW(dc, 0, 0, L"    ", 4);
  SIZE size = {};
  GetTextExtentPoint32W(dc, L"    ", 4, &size);
  EXPECT_EQ(size.cx, dc.Read().Bounds(0xFFFFFF).right);
  SelectObject(dc, old);
  DeleteObject(font);
}
