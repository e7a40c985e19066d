// Menus and strings.
#include <gtest/gtest.h>

#include <string>

#include "VornComCtl.h"
#include "library.h"

HINSTANCE Library() {
  EXPECT_TRUE(AfxInitVornComCtl());
  const HINSTANCE library = GetModuleHandleW(L"VornComCtl");
  EXPECT_NE(library, nullptr);
  return library;
}

namespace {

// The pop-up that a menu resource holds, as lines of number and caption; a separator is a dash.
std::wstring PopupText(int number) {
  const HMENU menu = LoadMenuW(Library(), MAKEINTRESOURCEW(number));
  if (menu == nullptr) return L"no menu";
  wchar_t caption[80] = L"";
  GetMenuStringW(menu, 0, caption, 80, MF_BYPOSITION);
  std::wstring text = caption;
  const HMENU popup = GetSubMenu(menu, 0);
  for (int i = 0; i < GetMenuItemCount(popup); ++i) {
    if (GetMenuState(popup, static_cast<UINT>(i), MF_BYPOSITION) & MF_SEPARATOR) {
      text += L"|-";
      continue;
    }
    GetMenuStringW(popup, static_cast<UINT>(i), caption, 80, MF_BYPOSITION);
    text.append(L"|").append(std::to_wstring(GetMenuItemID(popup, i))).append(L" ").append(caption);
  }
  if (GetMenuItemCount(menu) != 1) text += L"|more pop-ups";
  DestroyMenu(menu);
  return text;
}

std::wstring StringText(UINT number) {
  wchar_t text[100] = L"unchanged";
  const int length = LoadStringW(Library(), number, text, 100);
  return {text, static_cast<size_t>(length)};
}

TEST(Menus, RightDragMenuOffersMoveCopyShortcutAndCancel) {
  EXPECT_EQ(
      PopupText(5005),
      L"&SubMenu|5009 &Déplacer ici|5006 &Copier ici|5007 Cré&er un ou des raccourci(s) ici|-|5008 &Annuler");
}

TEST(Menus, ContextMenuOffersThePreferences) { EXPECT_EQ(PopupText(5006), L"&SubMenu|5040 &Préférences"); }

TEST(Strings, StatusTextsOfTheRightDragMenu) {
  EXPECT_EQ(StringText(5006), L"Copier les éléments sélé") << "cut short, and kept so";
  EXPECT_EQ(StringText(5007), L"Créer un ou des raccourcis");
  EXPECT_EQ(StringText(5009), L"Déplacer le ou les item(s)");
}

TEST(Strings, CaptionOfThePreferences) { EXPECT_EQ(StringText(5010), L"Préférences"); }

TEST(Strings, TooltipsOfTheBarButtons) {
  EXPECT_EQ(StringText(6000), L"Fermer");
  EXPECT_EQ(StringText(6001), L"Réduire");
}

TEST(Strings, NumbersBetweenHaveNoText) {
  EXPECT_EQ(StringText(5008), L"");
  EXPECT_EQ(StringText(6002), L"");
  EXPECT_EQ(StringText(1), L"");
}

}  // namespace
