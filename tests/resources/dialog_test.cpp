// The pages of the preferences.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialog_template.h"
#include "library.h"

namespace {

struct Expected {
  int id;
  const wchar_t* kind;
  const wchar_t* text;
};

void ExpectControls(const DialogTemplate& dialog, const std::vector<Expected>& expected) {
  for (const Expected& e : expected) {
    SCOPED_TRACE(e.id);
    const DialogControl* control = dialog.Find(e.id);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->kind, e.kind);
    EXPECT_EQ(control->text, e.text);
    EXPECT_TRUE(control->style & WS_CHILD);
    EXPECT_TRUE(control->style & WS_VISIBLE);
  }
  size_t numbered = 0;
  for (const DialogControl& control : dialog.controls) numbered += control.id != -1;
  EXPECT_EQ(numbered, expected.size()) << "controls with an id";
}

void ExpectTexts(const DialogTemplate& dialog, const std::vector<const wchar_t*>& texts) {
  for (const wchar_t* text : texts) {
    bool found = false;
    for (const DialogControl& control : dialog.controls) found |= control.id == -1 && control.text == text;
    EXPECT_TRUE(found) << testing::PrintToString(std::wstring(text));
  }
}

// Which controls begin a group, in order: radio buttons between two of them belong together.
std::vector<int> RadioGroup(const DialogTemplate& dialog, int first) {
  std::vector<int> group;
  for (const DialogControl& control : dialog.controls) {
    if (control.id == first) {
      group.push_back(first);
    } else if (!group.empty()) {
      if (control.style & WS_GROUP) break;
      group.push_back(control.id);
    }
  }
  return group;
}

TEST(Dialogs, HaveTheirCaptions) {
  EXPECT_EQ(ReadDialog(Library(), 5020).caption, L"&Général");
  EXPECT_EQ(ReadDialog(Library(), 5030).caption, L"&Souris");
  EXPECT_EQ(ReadDialog(Library(), 5031).caption, L"Drag & Drop");
}

TEST(Dialogs, ArePagesOfOneSizeInTheShellFont) {
  for (const int number : {5020, 5030, 5031}) {
    SCOPED_TRACE(number);
    const DialogTemplate dialog = ReadDialog(Library(), number);
    EXPECT_TRUE(dialog.style & WS_CHILD);
    EXPECT_TRUE(dialog.style & WS_CAPTION);
    EXPECT_EQ(dialog.size.cx, 252);
    EXPECT_EQ(dialog.size.cy, 166);
    EXPECT_EQ(dialog.font, L"MS Shell Dlg");
    EXPECT_EQ(dialog.points, 8);
  }
}

TEST(Dialogs, KeepTheirControlsInsideAndApart) {
  for (const int number : {5020, 5030, 5031}) {
    SCOPED_TRACE(number);
    const DialogTemplate dialog = ReadDialog(Library(), number);
    const RECT page{0, 0, dialog.size.cx, dialog.size.cy};
    for (size_t i = 0; i < dialog.controls.size(); ++i) {
      const DialogControl& one = dialog.controls[i];
      RECT place = one.place;
      if (one.kind == L"combobox") place.bottom = place.top + 13;  // the rest is its drop-down list
      EXPECT_TRUE(place.left >= page.left && place.top >= page.top && place.right <= page.right &&
                  place.bottom <= page.bottom);
      if ((one.style & BS_TYPEMASK) == BS_GROUPBOX && one.kind == L"button") continue;
      for (size_t j = 0; j < i; ++j) {
        const DialogControl& other = dialog.controls[j];
        if ((other.style & BS_TYPEMASK) == BS_GROUPBOX && other.kind == L"button") continue;
        RECT otherPlace = other.place, common;
        if (other.kind == L"combobox") otherPlace.bottom = otherPlace.top + 13;
        EXPECT_FALSE(IntersectRect(&common, &place, &otherPlace)) << i << " lies over " << j;
      }
    }
  }
}

TEST(Dialogs, GeneralPageHasItsControls) {
  const DialogTemplate dialog = ReadDialog(Library(), 5020);
  ExpectControls(dialog, {{5021, L"button", L"Couleur par défaut"},
                          {5022, L"button", L"&Personnaliser"},
                          {5023, L"button", L"Couleur par défaut"},
                          {5024, L"button", L"&Personnaliser"},
                          {5025, L"combobox", L""},
                          {5026, L"combobox", L""},
                          {5027, L"static", L"AaBbCcXxYyZz"}});
  ExpectTexts(dialog, {L"Couleurs de fond", L"Couleurs des items", L"Affichage", L"Police :", L"Taille :",
                       L"Exemple"});
  EXPECT_EQ(RadioGroup(dialog, 5021), (std::vector<int>{5021, 5022}));
  EXPECT_EQ(RadioGroup(dialog, 5023), (std::vector<int>{5023, 5024}));
  EXPECT_EQ(dialog.Find(5025)->style, 0x50210103u) << "a sorted drop-down list";
  EXPECT_EQ(dialog.Find(5026)->style, 0x50210003u) << "sizes stand in the order met";
}

TEST(Dialogs, GeneralPageBringsTheSizes) {
  // Entries of control, message, length and text, as the framework reads them; a zero ends them.
  const std::vector<unsigned char> bytes = ReadResource(Library(), 5020, 240);
  std::string list;
  size_t at = 0;
  while (at + 8 < bytes.size() && (bytes[at] | bytes[at + 1]) != 0) {
    EXPECT_EQ(bytes[at] | bytes[at + 1] << 8, 5026);
    EXPECT_EQ(bytes[at + 2] | bytes[at + 3] << 8, 0x403);
    const size_t length = bytes[at + 4];
    ASSERT_LE(at + 8 + length, bytes.size());
    EXPECT_EQ(bytes[at + 8 + length - 1], 0);
    list += reinterpret_cast<const char*>(&bytes[at + 8]);
    list += ' ';
    at += 8 + length;
  }
  EXPECT_EQ(list, "8 10 12 14 18 24 ");
  EXPECT_EQ(bytes.size(), at + 2);
}

TEST(Dialogs, MousePageHasItsControls) {
  const DialogTemplate dialog = ReadDialog(Library(), 5030);
  ExpectControls(dialog, {{5031, L"button", L"&Autoriser l'é&dition des noms à la souris"},
                          {5032, L"edit", L""},
                          {5050, L"button", L"Autoriser l'utilisation de &ToolTips"}});
  ExpectTexts(dialog,
              {L"Temps avant édition", L"ms", L"Edition de noms", L"ToolTips",
               L"Pour éditer un item, il suffit de le sélectionner une fois,puis de cliquer à nouveau "
               L"dessus sans enfoncer aucune touche du clavier",
               L"Les tooltips sont utilisés pour afficher le nom de l'item si le contrôle n'est pas "
               L"assez large pour l'afficher au complet"});
  EXPECT_TRUE(dialog.Find(5032)->style & ES_NUMBER);
  EXPECT_EQ(dialog.Find(5031)->style & BS_TYPEMASK, static_cast<DWORD>(BS_AUTOCHECKBOX));
  EXPECT_EQ(dialog.Find(5050)->style & BS_TYPEMASK, static_cast<DWORD>(BS_AUTOCHECKBOX));
}

TEST(Dialogs, DragAndDropPageHasItsControls) {
  const DialogTemplate dialog = ReadDialog(Library(), 5031);
  ExpectControls(dialog, {{5033, L"button", L"Autoriser le &drag && drop à la souris"},
                          {5034, L"edit", L""},
                          {5035, L"edit", L""},
                          {5051, L"button", L"Standard &Windows"},
                          {5052, L"button", L"Mode a&vancé"},
                          {5053, L"button", L"Mode arran&gement"},
                          {5054, L"button", L"A droite du curseur"},
                          {5055, L"button", L"Le point cliqué"}});
  ExpectTexts(dialog, {L"Drag && drop", L"cx", L"cy", L"pixels", L"Paramètres", L"Options de l'image",
                       L"Marge à prendre en compte pour détecter le début d'un drag && drop"});
  EXPECT_EQ(RadioGroup(dialog, 5051), (std::vector<int>{5051, 5052, 5053}));
  EXPECT_EQ(RadioGroup(dialog, 5054), (std::vector<int>{5054, 5055}));
  EXPECT_TRUE(dialog.Find(5034)->style & ES_NUMBER);
  EXPECT_TRUE(dialog.Find(5035)->style & ES_NUMBER);
}

}  // namespace
