// Fonts: what relates widths, styles and letters, whatever the numbers.
#include <windows.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/picture.h"

using namespace support;

namespace {

class FontCanvas : public Canvas {
 public:
  explicit FontCanvas(int height, int weight = FW_NORMAL, bool italic = false)
      : Canvas(300, 60),
        m_font(CreateFontW(height, 0, 0, 0, weight, italic, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0,
                           VARIABLE_PITCH | FF_SWISS, L"Tahoma")),
        m_old(SelectObject(*this, m_font)) {}
  ~FontCanvas() {
    SelectObject(*this, m_old);
    DeleteObject(m_font);
  }
  int Width(const std::wstring& text) const {
    SIZE size{};
    GetTextExtentPoint32W(*this, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
  }
  Picture Show(const std::wstring& text) const {
    PatBlt(*this, 0, 0, 300, 60, WHITENESS);
    TextOutW(*this, 20, 10, text.c_str(), static_cast<int>(text.size()));
    return Read();
  }

 private:
  HFONT m_font;
  HGDIOBJ m_old;
};

}  // namespace

TEST(GdiFont, FrenchLettersAllDiffer) {
  const FontCanvas dc(-11);
  const std::wstring letters = L"aàâäæcçeéèêëiîïoôöœuùûüyÿAÀÂÄÆCÇEÉÈÊËIÎÏOÔÖŒUÙÛÜYŸ«»’“”…–—€";
  std::set<std::vector<std::uint32_t>> pictures;
  for (const wchar_t letter : letters)
    EXPECT_TRUE(pictures.insert(dc.Show({letter}).pixels).second) << int(letter);
}

TEST(GdiFont, AccentsStandAboveTheirLetter) {
  const FontCanvas dc(-11);
  for (const auto& [base, accented] :
       {std::pair{L'e', L'é'}, {L'a', L'à'}, {L'o', L'ô'}, {L'u', L'ü'}, {L'E', L'É'}}) {
    const RECT plain = dc.Show({base}).Bounds(0xffffff);
    const RECT marked = dc.Show({accented}).Bounds(0xffffff);
    EXPECT_LT(marked.top, plain.top) << int(accented);
    EXPECT_EQ(plain.bottom, marked.bottom) << int(accented);
  }
  EXPECT_GT(dc.Show(L"ç").Bounds(0xffffff).bottom, dc.Show(L"c").Bounds(0xffffff).bottom);
}

TEST(GdiFont, WidthsAddUp) {
  const FontCanvas dc(-11);
  const std::wstring text = L"Dès Noël où un zéphyr haï";
  int sum = 0;
  for (const wchar_t letter : text) sum += dc.Width({letter});
  EXPECT_EQ(sum, dc.Width(text));
  EXPECT_EQ(0, dc.Width(L""));
}

TEST(GdiFont, BoldIsWiderAndDarker) {
  const FontCanvas plain(-11);
  const FontCanvas bold(-11, FW_BOLD);
  EXPECT_GT(bold.Width(L"Arborescence"), plain.Width(L"Arborescence"));
  EXPECT_GT(bold.Show(L"Arborescence").Count(0), plain.Show(L"Arborescence").Count(0));
}

TEST(GdiFont, ItalicLeansAndKeepsItsHeight) {
  const FontCanvas plain(-16);
  const FontCanvas italic(-16, FW_NORMAL, true);
  const RECT upright = plain.Show(L"l").Bounds(0xffffff);
  const RECT leaning = italic.Show(L"l").Bounds(0xffffff);
  EXPECT_GT(leaning.right - leaning.left, upright.right - upright.left);
}

TEST(GdiFont, PartialExtentsRise) {
  const FontCanvas dc(-11);
  const std::wstring text = L"largeurs";
  INT widths[8] = {};
  int fit = -1;
  SIZE size{};
  ASSERT_TRUE(GetTextExtentExPointW(dc, text.c_str(), 8, dc.Width(L"lar"), &fit, widths, &size));
  EXPECT_EQ(3, fit);
  EXPECT_EQ(dc.Width(L"l"), widths[0]);
  EXPECT_EQ(dc.Width(L"lar"), widths[2]);
  EXPECT_EQ(dc.Width(text), size.cx);
}

TEST(GdiFont, CharacterExtraWidens) {
  const FontCanvas dc(-11);
  const int plain = dc.Width(L"abc");
  EXPECT_EQ(0, SetTextCharacterExtra(dc, 2));
  EXPECT_EQ(plain + 6, dc.Width(L"abc"));
  EXPECT_EQ(2, SetTextCharacterExtra(dc, 0));
}

TEST(GdiFont, EnumerationFindsAFamilyByName) {
  const FontCanvas dc(-11);
  std::set<std::wstring> names;
  const auto collect = [](const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM data) {
    reinterpret_cast<std::set<std::wstring>*>(data)->insert(font->lfFaceName);
    return 1;
  };
  EXPECT_EQ(1, EnumFontsW(dc, nullptr, collect, reinterpret_cast<LPARAM>(&names)));
  EXPECT_EQ(1u, names.count(L"Tahoma"));
  const auto stop = [](const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM data) {
    ++*reinterpret_cast<int*>(data);
    return 0;
  };
  int calls = 0;
  EXPECT_EQ(0, EnumFontsW(dc, nullptr, stop, reinterpret_cast<LPARAM>(&calls)));
  EXPECT_EQ(1, calls);
}

TEST(GdiFont, VerticalPlacesOfASingleLine) {
  const FontCanvas dc(-11);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  RECT r{10, 10, 100, 50};
  EXPECT_EQ(20 - metrics.tmHeight / 2 + metrics.tmHeight,
            DrawTextW(dc, L"Hello", -1, &r, DT_SINGLELINE | DT_VCENTER));
  EXPECT_EQ(40, DrawTextW(dc, L"Hello", -1, &r, DT_SINGLELINE | DT_BOTTOM));
  EXPECT_EQ(metrics.tmHeight, DrawTextW(dc, L"", -1, &r, 0));
}

TEST(GdiFont, ModifiedStringsEndInAnEllipsis) {
  const FontCanvas dc(-11);
  wchar_t text[32] = L"C:\\dossier\\sous\\fichier.txt";
  RECT r{0, 0, dc.Width(L"C:\\dossier\\fichier.txt"), 20};
  DrawTextW(dc, text, -1, &r, DT_SINGLELINE | DT_PATH_ELLIPSIS | DT_MODIFYSTRING);
  const std::wstring shortened = text;
  EXPECT_LE(dc.Width(shortened), r.right);
  EXPECT_NE(std::wstring::npos, shortened.find(L"...\\fichier.txt"));
}
