// The first page: what there is to see.
#include <VornComCtl.h>

#include <algorithm>

#include "folder.h"
#include "page.h"

namespace {

struct Topic {
  CString heading;
  CString text;
  COLORREF color;
};

CString FolderText(const CommandLine& commandLine) {
  if (commandLine.folder.IsEmpty()) {
    return L"Donnez un dossier sur la ligne de commande : son contenu est résumé ici.";
  }
  const FolderSummary summary = SummarizeFolder(commandLine.folder);
  CString text;
  if (!summary.found) {
    text.Format(L"%s est introuvable.", commandLine.folder.GetString());
    return text;
  }
  text.Format(L"%s\n%d dossier%s, %d fichier%s, %I64u Kio", commandLine.folder.GetString(), summary.folders,
              summary.folders > 1 ? L"s" : L"", summary.files, summary.files > 1 ? L"s" : L"",
              (summary.bytes + 1023) / 1024);
  return text;
}

class WelcomePage : public GalleryPage {
 public:
  explicit WelcomePage(const CommandLine& commandLine) {
    CString version;
    version.Format(
        L"Révision %S, jointe à la chaîne de modules de l'application. Ses classes de fenêtres sont "
        L"inscrites ; la page « À propos » les montre.",
        VornComCtl_get_revision());
    m_topics[0] = {L"La bibliothèque", version, theme::kAccent};
    m_topics[1] = {L"Le dossier", FolderText(commandLine), theme::kGood};
    m_topics[2] = {
        L"Le dessin",
        L"Chaque page est peinte hors de l'écran par CVornDC, puis copiée en une fois : agrandissez la "
        L"fenêtre, rien ne scintille.",
        RGB(176, 96, 40)};
    m_topics[3] = {
        L"Le clavier",
        L"Ctrl+1 à Ctrl+3 choisissent une page, Ctrl+Tab passe à la suivante, F1 montre l'identité de la "
        L"bibliothèque.",
        RGB(120, 80, 150)};
  }

  CString Title() const override { return L"Bienvenue"; }
  CString Subtitle() const override {
    return L"Des contrôles dessinés par leur propriétaire, pour applications de bureau";
  }

  void Paint(CDC& dc, const CRect& area, theme::Fonts& fonts) override {
    constexpr int kGap = 14;
    const int columns = area.Width() >= 520 ? 2 : 1;
    const int height = std::clamp((area.Height() - kGap) / 2, 104, 140);
    const int width = (area.Width() - kGap * (columns - 1)) / columns;
    for (int i = 0; i < 4; ++i) {
      const CPoint corner(area.left + (i % columns) * (width + kGap),
                          area.top + (i / columns) * (height + kGap));
      PaintTopic(dc, CRect(corner, CSize(width, height)), m_topics[i], fonts);
    }
  }

 private:
  static void PaintTopic(CDC& dc, const CRect& area, const Topic& topic, theme::Fonts& fonts) {
    theme::Card(dc, area);
    const CRect strip(area.left + 1, area.top + 12, area.left + 4, area.bottom - 12);
    dc.FillSolidRect(strip, topic.color);
    CRect text(area);
    text.DeflateRect(20, 14, 16, 12);
    text.top += theme::Text(dc, fonts.heading, theme::kInk, topic.heading, text) + 8;
    theme::Text(dc, fonts.body, theme::kMuted, topic.text, text, DT_WORDBREAK | DT_END_ELLIPSIS);
  }

  Topic m_topics[4];
};

}  // namespace

std::unique_ptr<GalleryPage> MakeWelcomePage(const CommandLine& commandLine) {
  return std::make_unique<WelcomePage>(commandLine);
}
