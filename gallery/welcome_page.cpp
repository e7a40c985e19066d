// What there is to see, in few words.
#include <VornComCtl.h>

#include <algorithm>

#include "page.h"

namespace {

struct Topic {
  CString heading;
  CString text;
  COLORREF color;
};

class WelcomePage : public GalleryPage {
 public:
  WelcomePage() {
    CString version;
    version.Format(
        L"Révision %S, jointe à la chaîne de modules de l’application. Ses classes de fenêtres sont "
        L"inscrites\u00A0; la page «\u00A0À propos\u00A0» les montre.",
        VornComCtl_get_revision());
    m_topics[0] = {L"La bibliothèque", version, theme::kAccent};
    m_topics[1] = {L"L’arborescence",
                   L"Un vrai dossier, lu à mesure qu’on le déplie. Les menus changent chaque style, le mode "
                   L"de sélection "
                   L"et l’interligne\u00A0; un journal montre chaque hook.",
                   theme::kGood};
    m_topics[2] = {
        L"Le dessin",
        L"Chaque page est peinte hors de l’écran par CVornDC, puis copiée en une fois\u00A0: agrandissez la "
        L"fenêtre, rien ne scintille.",
        RGB(176, 96, 40)};
    m_topics[3] = {L"Le clavier",
                   L"Ctrl+1 à Ctrl+4 choisissent une page, Ctrl+Tab passe à la suivante. Dans l’arbre\u00A0: "
                   L"les flèches, "
                   L"+, −, *, /, Espace, F2, et les premières lettres d’un nom.",
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

std::unique_ptr<GalleryPage> MakeWelcomePage() { return std::make_unique<WelcomePage>(); }
