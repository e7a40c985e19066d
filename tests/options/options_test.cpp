// The settings of a tree control: profile, defaults, colours, font.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <limits>

#include "VornComCtl.h"
#include "options_app.h"

namespace {

CRect DragRect(CVornTreeOptions& options) {
  CRect rect;
  options.GetDragRect(rect);
  return rect;
}

// The default height after setting a font of this nominal height.
int HeightWith(CVornTreeOptions& options, LONG lfHeight) {
  LOGFONTW font{};
  font.lfHeight = lfHeight;
  CFont object;
  EXPECT_TRUE(object.CreateFontIndirect(&font));
  options.SetFont(&object, 0);
  return options.GetDefaultHeight();
}

// ---- Profile -----------------------------------------------------------------------------------------

using OptionsProfile = ProfileTest;

TEST_F(OptionsProfile, DefaultsOfAnEmptyProfile) {
  CVornTreeOptions options(nullptr);
  EXPECT_EQ(options.GetParent(), nullptr);
  EXPECT_EQ(options.GetIndent(), 20u);
  EXPECT_EQ(options.GetBkColor(), ::GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(options.GetTextColor(), ::GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(options.GetGrayTextColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(options.GetTextHighlightColor(), ::GetSysColor(COLOR_HIGHLIGHTTEXT));
  EXPECT_EQ(options.GetHighlightColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(options.GetShowAlwaysColor(), ::GetSysColor(COLOR_HIGHLIGHT));
  const int cx = ::GetSystemMetrics(SM_CXDRAG), cy = ::GetSystemMetrics(SM_CYDRAG);
  EXPECT_EQ(DragRect(options), CRect(-cx, -cy, cx, cy));
  EXPECT_EQ(options.GetLabelEditDuration(), 1500);
  EXPECT_EQ(options.GetTreeReportWnd(), nullptr);
  EXPECT_EQ(options.GetFont()->GetSafeHandle(), nullptr);
}

TEST_F(OptionsProfile, IsReadOnceWhenTheObjectIsMade) {
  Write(L"Indent", 33);
  Write(L"DragCX", 7);
  Write(L"DragCY", 9);
  Write(L"EditLabelTime", 250);
  Write(L"BKColor", L"10_20_30");
  Write(L"TextColor", L"255_128_0");
  CVornTreeOptions options(nullptr);
  Write(L"Indent", 44);
  EXPECT_EQ(options.GetIndent(), 33u);
  EXPECT_EQ(DragRect(options), CRect(-7, -9, 7, 9));
  EXPECT_EQ(options.GetLabelEditDuration(), 250);
  EXPECT_EQ(options.GetBkColor(), 10u + 20u * 256 + 30u * 65536);
  EXPECT_EQ(options.GetTextColor(), 255u + 128u * 256);
  EXPECT_EQ(CVornTreeOptions(nullptr).GetIndent(), 44u);
}

TEST_F(OptionsProfile, AColorTextOfThreeCharactersCountsAsMissing) {
  Write(L"BKColor", L"1_2");
  Write(L"TextColor", L"");
  CVornTreeOptions options(nullptr);
  EXPECT_EQ(options.GetBkColor(), ::GetSysColor(COLOR_WINDOW));
  EXPECT_EQ(options.GetTextColor(), ::GetSysColor(COLOR_WINDOWTEXT));
}

TEST_F(OptionsProfile, AColorIsRedGreenBlue) {
  Write(L"BKColor", L"1_2_3");
  Write(L"TextColor", L"255_255_255");
  CVornTreeOptions options(nullptr);
  EXPECT_EQ(options.GetBkColor(), 1u + 2u * 256 + 3u * 65536);
  EXPECT_EQ(options.GetTextColor(), RGB(255, 255, 255));
}

TEST_F(OptionsProfile, HostileColorTextsDoNoHarm) {
  for (const wchar_t* text : {L"12345", L"red_green_blue", L"1_2_", L"____", L"-1_-1_-1", L"999_999_999",
                              L"%s%s%s%n", L"1 2 3 4"}) {
    Write(L"BKColor", text);
    CVornTreeOptions options(nullptr);
    EXPECT_LE(options.GetBkColor(), 0xFFFFFFu) << text;
  }
}

TEST_F(OptionsProfile, HostileNumbersDoNoHarm) {
  for (int value : {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    Write(L"Indent", value);
    Write(L"DragCX", value);
    Write(L"DragCY", value);
    Write(L"EditLabelTime", value);
    CVornTreeOptions options(nullptr);
    EXPECT_EQ(options.GetIndent(), static_cast<unsigned>(value));
    EXPECT_EQ(DragRect(options).right, value);
    EXPECT_EQ(options.GetLabelEditDuration(), value);
  }
}

TEST_F(OptionsProfile, KeysForTheHostAreNotReadBack) {
  CVornTreeOptions before(nullptr);
  for (const wchar_t* key : {L"LabelEdit", L"ToolTip", L"DND", L"DND-Type", L"DND-Image"}) Write(key, 1);
  CVornTreeOptions after(nullptr);
  EXPECT_EQ(after.GetIndent(), before.GetIndent());
  EXPECT_EQ(DragRect(after), DragRect(before));
  EXPECT_EQ(after.GetLabelEditDuration(), before.GetLabelEditDuration());
}

// ---- Colours -----------------------------------------------------------------------------------------

TEST(Options, ColorsAreStored) {
  CVornTreeOptions options(nullptr);
  options.SetBkColor(1);
  options.SetTextColor(2);
  options.SetGrayTextColor(3);
  options.SetTextHighLightColor(4);
  options.SetHighLightColor(0xFFFFFFFF);
  EXPECT_EQ(options.GetBkColor(), 1u);
  EXPECT_EQ(options.GetTextColor(), 2u);
  EXPECT_EQ(options.GetGrayTextColor(), 3u);
  EXPECT_EQ(options.GetTextHighlightColor(), 4u);
  EXPECT_EQ(options.GetHighlightColor(), 0xFFFFFFFFu);
}

TEST(Options, HighlightAndShowAlwaysAreOneColor) {
  CVornTreeOptions options(nullptr);
  options.SetHighLightColor(0x111111);
  EXPECT_EQ(options.GetShowAlwaysColor(), 0x111111u);
  options.SetShowAlwaysColor(0x222222);
  EXPECT_EQ(options.GetHighlightColor(), 0x222222u);
}

// ---- Font --------------------------------------------------------------------------------------------

TEST(Options, SetFontTakesTheDefaultHeightFromTheFont) {
  CVornTreeOptions options(nullptr);
  EXPECT_EQ(HeightWith(options, -12), 16);
  EXPECT_EQ(HeightWith(options, 12), 16);
  EXPECT_EQ(HeightWith(options, 0), 20);
  EXPECT_EQ(HeightWith(options, -11), 15);
}

TEST(Options, SetFontKeepsAPrivateCopy) {
  CVornTreeOptions options(nullptr);
  CFont* const own = options.GetFont();
  {
    CFont font;
    LOGFONTW wanted{};
    wanted.lfHeight = -20;
    wanted.lfWeight = FW_BOLD;
    ASSERT_TRUE(font.CreateFontIndirect(&wanted));
    options.SetFont(&font, 1);
    EXPECT_NE(own->GetSafeHandle(), font.GetSafeHandle());
  }
  EXPECT_EQ(options.GetFont(), own);
  LOGFONTW kept{};
  ASSERT_TRUE(own->GetLogFont(&kept));
  EXPECT_EQ(kept.lfHeight, -20);
  EXPECT_EQ(kept.lfWeight, FW_BOLD);
}

TEST(Options, SetFontOfItsOwnFontKeepsIt) {
  CVornTreeOptions options(nullptr);
  HeightWith(options, -13);
  options.SetFont(options.GetFont(), 0);
  LOGFONTW kept{};
  ASSERT_TRUE(options.GetFont()->GetLogFont(&kept));
  EXPECT_EQ(kept.lfHeight, -13);
  EXPECT_EQ(options.GetDefaultHeight(), 17);
}

TEST(Options, SetFontOfNothingChangesNothing) {
  CVornTreeOptions options(nullptr);
  HeightWith(options, -13);
  const HGDIOBJ font = options.GetFont()->GetSafeHandle();
  CFont empty;
  options.SetFont(nullptr, 1);
  options.SetFont(&empty, 1);
  EXPECT_EQ(options.GetFont()->GetSafeHandle(), font);
  EXPECT_EQ(options.GetDefaultHeight(), 17);
}

// ---- Without a tree ----------------------------------------------------------------------------------

TEST(Options, WithoutATreeNothingIsMeasured) {
  CVornTreeOptions options(nullptr);
  CSize size(3, 4);
  for (int list = STIL_NORMAL; list < STIL_COUNT; ++list) {
    EXPECT_EQ(options.GetImageSize(static_cast<VornTreeImageList>(list), &size), 0);
  }
  EXPECT_EQ(size, CSize(3, 4));
  EXPECT_EQ(options.GetItemSize(nullptr), 0);
  EXPECT_EQ(options.GetItemSize(STI_ROOT), 0);
}

// ---- Report ------------------------------------------------------------------------------------------

TEST(Options, TheReportIsTheHosts) {
  CVornTreeOptions options(nullptr);
  int report;
  auto* const window = reinterpret_cast<CVornTreeReportWnd*>(&report);
  options.SetTreeReportWnd(window);
  EXPECT_EQ(options.GetTreeReportWnd(), window);
  options.SetTreeReportWnd(nullptr);
  EXPECT_EQ(options.GetTreeReportWnd(), nullptr);
}

// Hosts write AfxGetVornTreeOptions()->GetTreeReportWnd() while there is no tree.
__attribute__((no_sanitize("undefined"))) CVornTreeReportWnd* ReportOf(CVornTreeOptions* options) {
  return options->GetTreeReportWnd();
}

TEST(Options, TheReportOfNoOptionsIsNull) {
  CVornTreeOptions* volatile none = nullptr;
  EXPECT_EQ(ReportOf(none), nullptr);
}

// ---- Layout ------------------------------------------------------------------------------------------

TEST(Options, KeepsItsLayout) {
  // Table, tree, five colours and padding, font, height, spare, indent, rectangle, duration, report.
  EXPECT_EQ(sizeof(CVornTreeOptions), 8 + 8 + 5 * 4 + 4 + sizeof(CFont) + 2 * 4 + 4 + 16 + 4 + 8);
}

}  // namespace
