// How the gallery reads folders, numbers and its command line.
#include "folder.h"
#include "french.h"
#include "gallery_scene.h"

namespace {

std::string Names(const FolderContent& content) {
  std::string names;
  for (const FolderEntry& entry : content.entries) {
    names += (names.empty() ? "" : " ") + Narrow(entry.name) + (entry.isFolder ? "/" : "") +
             (entry.isHidden ? "!" : "");
  }
  return names;
}

TEST(Folder, FoldersComeFirstThenFilesEachByNameWithoutCase) {
  TestFolder folder;
  for (const wchar_t* name : {L"b.txt", L"A.txt", L"c", L"Z\\", L"y\\", L".caché", L"a10", L"a9"}) {
    folder.Make(name);
  }
  const FolderContent content = ReadFolder(folder.Path());
  EXPECT_EQ(content.error, 0u);
  EXPECT_EQ(Names(content), "y/ Z/ .caché! A.txt a10 a9 b.txt c");
}

TEST(Folder, NamesOfAllScriptsAreKept) {
  TestFolder folder;
  for (const wchar_t* name : {L"Éléphant été\\", L"naïf œuvre.md", L"日本語.txt"}) folder.Make(name);
  EXPECT_EQ(Names(ReadFolder(folder.Path())), "Éléphant été/ naïf œuvre.md 日本語.txt");
}

TEST(Folder, AnEmptyFolderIsNoError) {
  const TestFolder folder;
  const FolderContent content = ReadFolder(folder.Path());
  EXPECT_EQ(content.error, 0u);
  EXPECT_TRUE(content.entries.empty());
}

TEST(Folder, WhatIsNoFolderSaysSo) {
  TestFolder folder;
  folder.Make(L"fichier");
  EXPECT_EQ(Narrow(FolderErrorText(ReadFolder(JoinPath(folder.Path(), L"absent")).error)),
            "Dossier introuvable");
  EXPECT_EQ(Narrow(FolderErrorText(ReadFolder(L"").error)), "Dossier introuvable");
  const FolderContent content = ReadFolder(JoinPath(folder.Path(), L"fichier"));
  EXPECT_EQ(Narrow(FolderErrorText(content.error)), "Ce n’est pas un dossier");
  EXPECT_TRUE(content.entries.empty());
}

TEST(Folder, ErrorsAreSentences) {
  EXPECT_EQ(Narrow(FolderErrorText(ERROR_ACCESS_DENIED)), "Accès refusé");
  EXPECT_EQ(Narrow(FolderErrorText(ERROR_DIRECTORY)), "Ce n’est pas un dossier");
  EXPECT_EQ(Narrow(FolderErrorText(1234)), "Lecture impossible (erreur 1234)");
}

TEST(Folder, PathsAreJoinedAndTakenApart) {
  EXPECT_EQ(Narrow(JoinPath(L"C:\\", L"a")), "C:\\a");
  EXPECT_EQ(Narrow(JoinPath(L"C:\\b", L"a")), "C:\\b\\a");
  EXPECT_EQ(Narrow(PathName(L"C:\\b\\a\\")), "a");
  EXPECT_EQ(Narrow(PathName(L"/usr/share")), "share");
  EXPECT_EQ(Narrow(PathName(L"C:\\")), "C:");
  EXPECT_EQ(Narrow(PathName(L"/")), "/");
}

TEST(French, NumbersHaveNoBreakSpacesAndCommas) {
  EXPECT_EQ(Narrow(french::Number(0)), "0");
  EXPECT_EQ(Narrow(french::Number(999)), "999");
  EXPECT_EQ(Narrow(french::Number(1000)), "1\u00A0000");
  EXPECT_EQ(Narrow(french::Number(1234567)), "1\u00A0234\u00A0567");
  EXPECT_EQ(Narrow(french::Number(-123456)), "-123\u00A0456");
  EXPECT_EQ(Narrow(french::Seconds(0.835)).substr(0, 3), "0,8");
  EXPECT_EQ(Narrow(french::Quoted(L"doc")), "«\u00A0doc\u00A0»");
}

TEST(French, ZeroAndOneAreSingular) {
  EXPECT_EQ(Narrow(french::Count(0, L"ligne", L"lignes")), "0\u00A0ligne");
  EXPECT_EQ(Narrow(french::Count(1, L"ligne", L"lignes")), "1\u00A0ligne");
  EXPECT_EQ(Narrow(french::Count(2, L"ligne", L"lignes")), "2\u00A0lignes");
}

TEST(CommandLineOfTheGallery, OptionsAndTheFolder) {
  const CommandLine line = ParseCommandLine(
      L"--page 2 --size 640x480 --select a/b --fill 1000 --screenshot \"C:\\un deux.png\" \"C:\\mes "
      L"dossiers\"");
  EXPECT_EQ(line.page, 1);
  EXPECT_EQ(line.size, CSize(640, 480));
  EXPECT_EQ(Narrow(line.selected), "a/b");
  EXPECT_EQ(line.fill, 1000);
  EXPECT_EQ(Narrow(line.screenshot), "C:\\un deux.png");
  EXPECT_EQ(Narrow(line.folder), "C:\\mes dossiers");
  EXPECT_TRUE(ParseCommandLine(nullptr).folder.IsEmpty());
}

}  // namespace
