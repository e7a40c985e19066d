// A document that shows what items can be: fonts, colours, marks, boxes, refusals, hiding, depth.
#include "gallery_tree.h"

namespace {

void AddFonts(CGalleryTree& tree, CVornTreeItem* samples) {
  CVornTreeItem* const fonts = tree.Add(samples, L"Polices", Picture::kText);
  tree.SetItemBold(tree.Add(fonts, L"Gras", Picture::kBall), 1);
  tree.UpdateItemFont(tree.Add(fonts, L"Italique", Picture::kBall), STFF_ITALIC);
  tree.UpdateItemFont(tree.Add(fonts, L"Souligné", Picture::kBall), STFF_UNDERLINE);
  CVornTreeItem* const large = tree.Add(fonts, L"Une police plus grande, et sa ligne avec", Picture::kBall);
  LOGFONTW shape = {};
  CFont font;
  if (tree.GetItemFont(large)->GetLogFont(&shape) == 0) return;
  shape.lfHeight *= 2;
  if (font.CreateFontIndirect(&shape)) tree.SetItemFont(large, &font);
}

void AddColors(CGalleryTree& tree, CVornTreeItem* samples) {
  const auto add = [&](CVornTreeItem* parent, LPCWSTR text, COLORREF color, COLORREF ground) {
    CVornTreeItem* const item = tree.Add(parent, text, Picture::kBall);
    tree.SetItemTextColor(item, color);
    tree.SetItemBkColor(item, ground);
  };
  CVornTreeItem* const colors = tree.Add(samples, L"Couleurs", Picture::kImage);
  add(colors, L"Texte vert", RGB(30, 120, 70), ST_CLR_NONE);
  add(colors, L"Texte blanc sur fond bleu", RGB(255, 255, 255), RGB(42, 125, 160));
  add(colors, L"Fond jaune pâle", ST_CLR_NONE, RGB(255, 244, 200));
  add(colors, L"Texte et fond de la même couleur\u00A0: le texte devient lisible", RGB(120, 60, 150),
      RGB(120, 60, 150));
}

void AddBoxes(CGalleryTree& tree, CVornTreeItem* samples) {
  CVornTreeItem* const boxes = tree.Add(samples, L"Cases à cocher", Picture::kArchive);
  for (LPCWSTR text : {L"Cochée", L"Non cochée"}) tree.SetCheckBox(tree.Add(boxes, text, Picture::kBall), 1);
  tree.SetItemCheck(tree.GetChildItem(boxes), 1);
  tree.SetCheckBox(tree.Add(boxes, L"Refuse d’être cochée", Picture::kBall, ItemKind::kNoCheck), 1);
}

void AddMarks(CGalleryTree& tree, CVornTreeItem* samples) {
  CVornTreeItem* const marks = tree.Add(samples, L"Images d’état", Picture::kImage);
  const struct {
    LPCWSTR text;
    Mark mark;
  } lines[] = {{L"Lecture seule", Mark::kReadOnly},
               {L"Fichier caché", Mark::kHidden},
               {L"Vérifié", Mark::kGood},
               {L"En erreur", Mark::kBad},
               {L"Apprécié", Mark::kLiked}};
  for (const auto& line : lines) {
    tree.SetItemImageState(tree.Add(marks, line.text, Picture::kBall), static_cast<int>(line.mark));
  }
  tree.InsertItem(L"Sans aucune image", -1, -1, marks);
}

void AddRefusals(CGalleryTree& tree, CVornTreeItem* samples) {
  CVornTreeItem* const refusals = tree.Add(samples, L"Interdictions", Picture::kProgram);
  const struct {
    LPCWSTR text;
    unsigned int denied;
  } lines[] = {{L"Ne se sélectionne pas", STIS_NOSELECT},
               {L"Ne se renomme pas", STIS_NORENAME},
               {L"Ne se supprime pas", STIS_NODELETE},
               {L"Ne se modifie pas", STIS_NOMODIFY}};
  for (const auto& line : lines) {
    CVornTreeItem* const item = tree.Add(refusals, line.text, Picture::kBall);
    tree.ModifyItemState(item, 0, line.denied);
    tree.SetItemImageState(item, static_cast<int>(Mark::kReadOnly));
  }
}

void AddOpenings(CGalleryTree& tree, CVornTreeItem* samples) {
  CVornTreeItem* const openings = tree.Add(samples, L"Dépliages", Picture::kFolder);
  tree.ModifyItemState(tree.Add(openings, L"Annonce des enfants, n’en a pas", Picture::kFolder), 0,
                       STIS_HASCHILDREN);
  CVornTreeItem* const closed =
      tree.Add(openings, L"Refuse de se déplier", Picture::kFolder, ItemKind::kNoOpening);
  tree.Add(closed, L"Seul «\u00A0Tout déplier\u00A0» le montre", Picture::kBall);
  CVornTreeItem* const hiding = tree.Add(openings, L"Cache deux enfants sur trois", Picture::kFolder);
  for (LPCWSTR text : {L"Premier", L"Deuxième", L"Troisième"}) tree.Add(hiding, text, Picture::kBall);
  tree.SetItemVisibility(tree.GetChildItem(hiding), 0);
  tree.SetItemVisibility(tree.GetLastChildItem(hiding), 0);
}

void AddDepth(CGalleryTree& tree, CVornTreeItem* samples) {
  constexpr int kLevels = 12;
  CVornTreeItem* item = tree.Add(samples, L"Niveaux", Picture::kFolder);
  for (int level = 1; level <= kLevels; ++level) {
    CString text;
    text.Format(L"Niveau %d", level);
    item = tree.Add(item, text, Picture::kFolder);
  }
  tree.Add(item,
           L"Un libellé long, très long même, pour que la barre horizontale ait de quoi faire défiler "
           L"jusqu’à son dernier mot",
           Picture::kText);
}

}  // namespace

void AddSamples(CGalleryTree& tree) {
  CVornTreeItem* const samples = tree.Add(STI_ROOT, L"Échantillons", Picture::kFlask);
  AddFonts(tree, samples);
  AddColors(tree, samples);
  AddBoxes(tree, samples);
  AddMarks(tree, samples);
  AddRefusals(tree, samples);
  AddOpenings(tree, samples);
  AddDepth(tree, samples);
  tree.CreateShortcut(tree.GetChildItem(samples), samples, STI_LAST);
}
