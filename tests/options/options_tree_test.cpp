// The settings together with their control.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "VornComCtl.h"
#include "options_app.h"
#include "support/driver.h"
#include "support/host_window.h"
#include "tree/model/VornTreeItem.h"

namespace {

class OptionsTree : public ProfileTest {
 protected:
  void SetUp() override {
    ProfileTest::SetUp();
    CWnd* const host = CWnd::FromHandle(m_host);
    ASSERT_TRUE(m_tree.CreateTreeCtrl(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 100), host, 1));
    m_options = AfxGetVornTreeOptions();
    ASSERT_NE(m_options, nullptr);
    support::Pump();
  }

  void TearDown() override {
    m_tree.DestroyWindow();
    ProfileTest::TearDown();
  }

  // The area to be repainted, which is forgotten.
  CRect TakeUpdate() {
    CRect update;
    ::GetUpdateRect(m_tree.GetSafeHwnd(), &update, FALSE);
    ::ValidateRect(m_tree.GetSafeHwnd(), nullptr);
    return update;
  }

  // The size of a text in the font of an item.
  CSize Extent(CVornTreeItem* item, const wchar_t* text) {
    CFont* const font = m_tree.GetItemFont(item);
    const HDC dc = ::GetDC(m_tree.GetSafeHwnd());
    const HGDIOBJ old =
        ::SelectObject(dc, font ? font->GetSafeHandle() : m_options->GetFont()->GetSafeHandle());
    CSize size;
    ::GetTextExtentPoint32W(dc, text, ::lstrlenW(text), &size);
    ::SelectObject(dc, old);
    ::ReleaseDC(m_tree.GetSafeHwnd(), dc);
    return size;
  }

  support::HostWindow m_host;
  CVornTreeCtrl m_tree;
  CVornTreeOptions* m_options = nullptr;
};

TEST_F(OptionsTree, BelongToTheirControl) { EXPECT_EQ(m_options->GetParent(), &m_tree); }

TEST_F(OptionsTree, EveryColorSetterRepaintsTheWholeControl) {
  CRect client;
  m_tree.GetClientRect(&client);
  void (*const setters[])(CVornTreeOptions&) = {
      [](CVornTreeOptions& options) { options.SetBkColor(0x123456); },
      [](CVornTreeOptions& options) { options.SetTextColor(0x123456); },
      [](CVornTreeOptions& options) { options.SetGrayTextColor(0x123456); },
      [](CVornTreeOptions& options) { options.SetTextHighLightColor(0x123456); },
      [](CVornTreeOptions& options) { options.SetHighLightColor(0x123456); },
      [](CVornTreeOptions& options) { options.SetShowAlwaysColor(0x123456); },
  };
  for (const auto set : setters) {
    TakeUpdate();
    set(*m_options);
    EXPECT_EQ(TakeUpdate(), client);
  }
}

TEST_F(OptionsTree, SetFontRepaintsWhenAsked) {
  CFont font;
  LOGFONTW wanted{};
  wanted.lfHeight = -14;
  ASSERT_TRUE(font.CreateFontIndirect(&wanted));
  TakeUpdate();
  m_options->SetFont(&font, 0);
  EXPECT_TRUE(TakeUpdate().IsRectEmpty());
  m_options->SetFont(&font, 1);
  EXPECT_FALSE(TakeUpdate().IsRectEmpty());
  m_options->SetFont(nullptr, 1);
  EXPECT_TRUE(TakeUpdate().IsRectEmpty()) << "no font, no repaint";
}

TEST_F(OptionsTree, GetImageSizeAsksTheControl) {
  CSize size(-1, -1);
  EXPECT_EQ(m_options->GetImageSize(STIL_NORMAL, &size), 1);
  EXPECT_EQ(size, CSize(0, 0)) << "no list, but a size";
  EXPECT_EQ(m_options->GetImageSize(STIL_COUNT, &size), 0);
}

TEST_F(OptionsTree, GetItemSizeMeasuresTheLabel) {
  CVornTreeItem* const item = m_tree.InsertItem(L"Some label", -1, -1);
  const CSize extent = Extent(item, L"Some label");
  ASSERT_GT(extent.cx, 0);
  EXPECT_EQ(m_options->GetItemSize(item), 1);
  EXPECT_EQ(item->m_nHeight, extent.cy + 2);
  EXPECT_EQ(item->m_nTextWidth, extent.cx + 2);
}

TEST_F(OptionsTree, GetItemSizeMeasuresWhatIsShown) {
  VornTreeSetEncodedSequence(L"%backslash;");
  CVornTreeItem* const item = m_tree.InsertItem(L"a%backslash;b", -1, -1);
  const CSize extent = Extent(item, L"a\\b");
  EXPECT_EQ(m_options->GetItemSize(item), 1);
  EXPECT_EQ(item->m_nTextWidth, extent.cx + 2);
  EXPECT_STREQ(m_tree.GetItemText(item), L"a%backslash;b") << "the stored text stays";
  VornTreeSetEncodedSequence(nullptr);
}

TEST_F(OptionsTree, GetItemSizeRefusesWhatIsNoItem) {
  EXPECT_EQ(m_options->GetItemSize(nullptr), 0);
  EXPECT_EQ(m_options->GetItemSize(STI_ROOT), 0);
  CVornTreeItem* const item = m_tree.InsertItem(L"gone", -1, -1);
  m_tree.DeleteItem(item);
  EXPECT_EQ(m_options->GetItemSize(item), 0);
}

TEST_F(OptionsTree, NoneAreCurrentOnceTheyAreGone) {
  m_tree.DestroyWindow();
  EXPECT_EQ(AfxGetVornTreeOptions(), nullptr);
}

TEST_F(OptionsTree, ASecondControlTakesOverUntilTheFirstHasTheFocus) {
  CVornTreeCtrl second;
  ASSERT_NE(AfxGetVornTreeOptions(), nullptr);
  EXPECT_EQ(AfxGetVornTreeOptions()->GetParent(), &second);
  ::SetFocus(m_tree.GetSafeHwnd());
  EXPECT_EQ(AfxGetVornTreeOptions(), m_options);
}

}  // namespace
