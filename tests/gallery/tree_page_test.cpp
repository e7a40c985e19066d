// The page of the tree: folders that fill as they are opened, documents beside them, renaming, deleting.
#include "gallery_scene.h"
#include "resource.h"
#include "support/driver.h"

namespace {

using Lines = std::vector<std::string>;

class TreePage : public GalleryScene {
 protected:
  TreePage() {
    for (const wchar_t* name : {L"sous\\", L"sous\\un.txt", L"sous\\plus bas\\", L"vide\\", L"image.png"}) {
      m_folder.Make(name);
    }
  }
  CVornTreeItem* Folder() { return Tree().GetChildItem(STI_ROOT); }
  CVornTreeItem* LastDocument() { return Tree().GetLastChildItem(Tree().GetRootItem()); }
  CVornTreeItem* Child(CVornTreeItem* parent, const wchar_t* label) {
    return Tree().GetItemFromName(label, parent);
  }
};

TEST_F(TreePage, ShowsTheFolderAndTwoMoreDocuments) {
  Open();
  EXPECT_EQ(Children(Folder()), "sous vide image.png");
  EXPECT_EQ(Label(Tree().GetNextItem(Folder())), "Favoris");
  EXPECT_EQ(Label(LastDocument()), "Échantillons");
  EXPECT_TRUE(Tree().IsItemSelected(Folder()));
  EXPECT_EQ(Narrow(Pane().Subtitle()), Narrow(m_folder.Path()) + "\u00A0: 2\u00A0dossiers et 1\u00A0fichier");
}

TEST_F(TreePage, AFolderIsReadWhenItsButtonIsClicked) {
  Open();
  CVornTreeItem* const below = Child(Folder(), L"sous");
  EXPECT_EQ(Tree().GetChildItem(below), nullptr);
  EXPECT_TRUE(Tree().ItemHasChildren(below));
  support::Click(ButtonOf(below));
  Run();
  EXPECT_TRUE(Tree().IsItemExpanded(below));
  EXPECT_EQ(Children(below), "plus bas un.txt");
  support::Click(ButtonOf(below));
  EXPECT_FALSE(Tree().IsItemExpanded(below));
  EXPECT_EQ(Children(below), "plus bas un.txt");
}

TEST_F(TreePage, AFolderThatTurnsOutEmptyLosesItsButton) {
  Open();
  CVornTreeItem* const empty = Child(Folder(), L"vide");
  EXPECT_TRUE(Tree().ItemHasChildren(empty));
  support::Click(ButtonOf(empty));
  EXPECT_FALSE(Tree().ItemHasChildren(empty));
}

TEST_F(TreePage, AFolderThatIsNotThereIsSaidInTheTree) {
  CommandLine line;
  line.folder = m_folder.Path() + L"\\absent";
  Open(line);
  EXPECT_EQ(Children(Folder()), "Dossier introuvable");
  EXPECT_EQ(Narrow(Pane().Subtitle()), Narrow(line.folder) + "\u00A0: dossier introuvable");
  EXPECT_EQ(Tree().GetChildItem(Tree().GetNextItem(Folder())), nullptr);
}

TEST_F(TreePage, AFolderThatWentBeforeItWasOpenedIsSaidInTheTree) {
  TestFolder other;
  CommandLine line;
  line.folder = other.Path();
  other.Make(L"bientôt parti\\");
  Open(line);
  ASSERT_TRUE(::RemoveDirectoryW(other.Path() + L"\\bientôt parti"));
  CVornTreeItem* const gone = Tree().GetChildItem(Folder());
  Tree().Expand(gone, STE_EXPAND);
  EXPECT_EQ(Children(gone), "Dossier introuvable");
}

TEST_F(TreePage, ThePathOfTheCommandLineIsOpenedAndSelected) {
  CommandLine line;
  line.selected = L"sous\\un.txt";
  Open(line);
  EXPECT_EQ(Label(Tree().GetSelectedItem()), "un.txt");
  EXPECT_TRUE(Tree().IsDisplayItem(Tree().GetSelectedItem()));
  EXPECT_FALSE(Tree().SelectPath(L"sous\\absent"));
}

TEST_F(TreePage, ThePathOfTheCommandLineShowsWhatItHolds) {
  TestFolder large;
  for (int i = 0; i < 60; ++i) large.Make(L"d" + std::to_wstring(100 + i) + L"\\");
  for (int i = 0; i < 10; ++i) large.Make(L"d130\\f" + std::to_wstring(i));
  CommandLine line;
  line.folder = large.Path();
  line.selected = L"d130";
  Open(line);
  CVornTreeItem* const opened = Tree().GetSelectedItem();
  EXPECT_EQ(Label(opened), "d130");
  EXPECT_TRUE(Tree().IsItemExpanded(opened));
  EXPECT_TRUE(Tree().IsDisplayItem(opened));
  EXPECT_TRUE(Tree().IsDisplayItem(Tree().GetLastChildItem(opened)));
}

TEST_F(TreePage, ALargeFolderShowsItsFirstRowsBeforeTheRestIsAdded) {
  TestFolder large;
  for (int i = 0; i < 700; ++i) large.Make(L"f" + std::to_wstring(1000 + i));
  Open();
  Pane().OpenFolder(large.Path());
  EXPECT_EQ(Tree().GetChildCount(Folder()), 500u);
  EXPECT_GE(Pane().Progress(), 1);
  Run();
  EXPECT_EQ(Tree().GetChildCount(Folder()), 700u);
  EXPECT_EQ(Label(Tree().GetLastChildItem(Folder())), "f1699");
  EXPECT_EQ(Pane().Progress(), -1);
  // A tree that goes meanwhile takes what was to come with it.
  Pane().OpenFolder(large.Path());
  Tree().DeleteItem(Folder());
  EXPECT_FALSE(Tree().FillSome());
}

TEST_F(TreePage, RefreshReadsTheFolderAgain) {
  Open();
  CVornTreeItem* const below = Child(Folder(), L"sous");
  Tree().Expand(below, STE_EXPAND);
  m_folder.Make(L"sous\\deux.txt");
  Tree().SelectItem(below);
  Key(VK_F5);
  EXPECT_EQ(Children(below), "plus bas deux.txt un.txt");
  EXPECT_TRUE(Tree().IsItemExpanded(below));
  EXPECT_FALSE(Tree().RefreshFolder(Child(Folder(), L"image.png")));
}

TEST_F(TreePage, F2RenamesTheLabelAndAnEmptyNameIsRefused) {
  Open();
  CVornTreeItem* const file = Child(Folder(), L"image.png");
  support::Click(LabelOf(file));
  Key(VK_F2);
  ASSERT_NE(Tree().GetEditControl(), nullptr);
  Type("NEUF");
  Key(VK_RETURN);
  EXPECT_EQ(Tree().GetEditControl(), nullptr);
  EXPECT_EQ(Label(file), "neuf");
  Key(VK_F2);
  Key(VK_DELETE);
  Key(VK_RETURN);
  EXPECT_EQ(Label(file), "neuf");
}

TEST_F(TreePage, TheDeleteKeyTakesAnItemOffTheTreeAndNotOffTheDisk) {
  Open();
  support::Click(LabelOf(Child(Folder(), L"vide")));
  Key(VK_DELETE);
  EXPECT_EQ(Children(Folder()), "sous image.png");
  EXPECT_EQ(Label(Tree().GetSelectedItem()), "image.png");
  EXPECT_NE(::GetFileAttributesW(m_folder.Path() + L"\\vide"), INVALID_FILE_ATTRIBUTES);
  CVornTreeItem* const kept = Item(L"Échantillons\\Interdictions\\Ne se supprime pas");
  ASSERT_NE(kept, nullptr);
  Tree().SelectItem(kept);
  Command(ID_TREE_DELETE);
  EXPECT_NE(Item(L"Échantillons\\Interdictions\\Ne se supprime pas"), nullptr);
  EXPECT_NE(MenuState(ID_TREE_DELETE) & MF_GRAYED, 0u);
}

TEST_F(TreePage, ADoubleClickOnAFavouriteLeadsToItsTarget) {
  Open();
  CVornTreeItem* const favourites = Tree().GetNextItem(Folder());
  EXPECT_EQ(Children(favourites), "Raccourci vers sous Raccourci vers vide Raccourci vers image.png");
  Tree().SelectItem(Child(Folder(), L"image.png"));
  Command(ID_TREE_FAVOURITE);
  EXPECT_EQ(Tree().GetShortcutItem(Tree().GetLastChildItem(favourites)), Child(Folder(), L"image.png"));
  Tree().Expand(favourites, STE_EXPAND);
  support::DoubleClick(LabelOf(Tree().GetChildItem(favourites)));
  EXPECT_EQ(Tree().GetSelectedItem(), Child(Folder(), L"sous"));
  Tree().DeleteItem(favourites);
  EXPECT_EQ(Tree().AddFavourite(Folder()), nullptr);
}

TEST_F(TreePage, SamplesRefuseWhatTheyName) {
  Open();
  CVornTreeItem* const box = Item(L"Échantillons\\Cases à cocher\\Refuse d’être cochée");
  CVornTreeItem* const closed = Item(L"Échantillons\\Dépliages\\Refuse de se déplier");
  CVornTreeItem* const shy = Item(L"Échantillons\\Interdictions\\Ne se sélectionne pas");
  ASSERT_TRUE(box && closed && shy);
  Tree().SetItemCheck(box, 1);
  EXPECT_EQ(Tree().GetItemCheck(box), 0);
  EXPECT_EQ(Tree().Expand(closed, STE_EXPAND), 0);
  support::Click(LabelOf(shy));
  EXPECT_FALSE(Tree().IsItemSelected(shy));
}

TEST_F(TreePage, HiddenItemsComeBack) {
  Open();
  Tree().SelectItem(Child(Folder(), L"sous"));
  Command(ID_TREE_HIDE);
  EXPECT_FALSE(Tree().ItemIsVisible(Child(Folder(), L"sous")));
  Command(ID_TREE_SHOW_HIDDEN);
  EXPECT_TRUE(Tree().ItemIsVisible(Child(Folder(), L"sous")));
}

TEST_F(TreePage, TheContextMenuSelectsTheRowAndRunsItsCommand) {
  Open();
  CVornTreeItem* const below = Child(Folder(), L"sous");
  const POINT label = LabelOf(below);
  support::Press(label, support::Button::Right);
  support::PostRelease(label, support::Button::Right);
  // Input comes before timers: the menu is up when this runs. Its first entry opens and closes.
  const support::Later choose(1, [] {
    support::PostKey(VK_DOWN);
    support::PostKey(VK_RETURN);
  });
  Run();
  EXPECT_EQ(Tree().GetSelectedItem(), below);
  EXPECT_TRUE(Tree().IsItemExpanded(below));
}

// ---- Filling -----------------------------------------------------------------------------------------

TEST_F(TreePage, FillingAddsADocumentOfAllItsItemsInGroups) {
  Open();
  const unsigned int before = Tree().GetCount();
  Pane().Fill(25500);
  EXPECT_EQ(Pane().Progress(), 0);
  EXPECT_TRUE(Pane().Idle());
  EXPECT_EQ(Pane().Progress(), 39);
  EXPECT_NE(MenuState(ID_TREE_FILL) & MF_GRAYED, 0u);
  Run();
  EXPECT_EQ(Pane().Progress(), -1);
  EXPECT_EQ(Tree().GetCount() - before, 25501u);
  CVornTreeItem* const document = LastDocument();
  EXPECT_EQ(Label(document), "25\u00A0500\u00A0éléments");
  EXPECT_TRUE(Tree().IsItemExpanded(document));
  EXPECT_EQ(Tree().GetChildCount(Tree().GetChildItem(document)), 999u);
  EXPECT_EQ(Tree().GetChildCount(Tree().GetPrevItem(Tree().GetNextItem(Tree().GetChildItem(document)))),
            999u);
  EXPECT_EQ(Narrow(Pane().State()).rfind("25\u00A0500\u00A0éléments en ", 0), 0u);
}

TEST_F(TreePage, TheHorizontalBarStaysWhileTheTreeIsFilled) {
  Open();
  Tree().Expand(Item(L"Échantillons"), STE_EXPANDALL);
  Run();
  int least = 0;
  int before = 0;
  int after = 0;
  ASSERT_TRUE(::GetScrollRange(Tree(), SB_HORZ, &least, &before));
  EXPECT_GT(before, 0);
  Pane().Fill(20000);
  Pane().Idle();
  ASSERT_TRUE(::GetScrollRange(Tree(), SB_HORZ, &least, &after));
  EXPECT_EQ(after, before);
}

TEST_F(TreePage, EscapeInterruptsAFilling) {
  Open();
  Pane().Fill(25000);
  Pane().Idle();
  support::PostKey(VK_ESCAPE);
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) AfxPumpMessage();
  EXPECT_FALSE(Pane().Idle());
  EXPECT_EQ(Narrow(Pane().State()), "Remplissage interrompu");
  EXPECT_EQ(Tree().GetChildCount(LastDocument()), 10000u);
}

TEST_F(TreePage, AFillingSurvivesTheLossOfItsGroupAndEndsWithItsDocument) {
  Open();
  Pane().Fill(25000);
  Pane().Idle();
  CVornTreeItem* const document = LastDocument();
  Tree().DeleteItem(Tree().GetLastChildItem(document));
  EXPECT_TRUE(Pane().Idle());
  EXPECT_EQ(Tree().GetChildCount(document), 19000u);
  Tree().DeleteItem(document);
  EXPECT_FALSE(Pane().Idle());
  Pane().Fill(25000);
  Tree().DeleteAllItems(STI_ROOT);
  EXPECT_FALSE(Pane().Idle());
  EXPECT_EQ(Tree().GetCount(), 0u);
}

}  // namespace
