// What stands at the head and the ends of a bar: time signature, chord
// diagrams, tempo marks, texts, bar lines and repeat signs.
#include <string>

#include "render/strip_renderer.h"
#include "texte.h"

namespace vt {

void CStripRenderer::drawSignature(int m, int xBarre) {
  const FontSpec avant = m_surface.Font();
  m_surface.setFont(FontSpec{m_s.policeMusique, 3.0 * m_s.cfgFontSize, true, false});
  const int p = m_doc.CurseurPiste();
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int x = xBarre + m_s.TAB_VIEW_INTER_MESURE;
  drawTextCenter(m_surface, x, m_metrics.top() + is,
                 std::to_string(m_doc.getMesureSignatureUp(m)));
  drawTextCenter(m_surface, x, m_metrics.top() + (cordes(p) - 2) * is,
                 std::to_string(m_doc.getMesureSignatureDn(m)));
  m_surface.setFont(avant);
}

void CStripRenderer::drawAccords(int p, int m, int) {
  const tPisteMesure* pm = m_doc.pisteMesure(p, m);
  if (pm == nullptr) return;
  const int y = m_metrics.top() - 6 * m_s.TAB_VIEW_INTER_STRINGS;
  for (const tAccord& accord : pm->tabAccords)
    drawDiagramme(accord, cordes(p), m_metrics.colonneNote(m, accord.intX), y);
}

// A chord: a small grid of the strings over four frets with its fingering,
// open and muted strings marked over the nut, the first fret beside it when the
// hand is up the neck, and the name under it, centred on the chord's column.
void CStripRenderer::drawDiagramme(const tAccord& accord, int nbCordes, int x, int y) {
  constexpr int kPasCorde = 5;
  constexpr int kPasCase = 4;
  constexpr int kCases = 4;
  const int largeur = (nbCordes - 1) * kPasCorde;
  const int gauche = x - largeur / 2;
  const int haut = y - 24;
  const bool jouée = [&] {
    for (int c = 1; c <= accord.tabCordes.last(); ++c)
      if (accord.tabCordes[c] != kCaseVide) return true;
    return false;
  }();

  if (jouée) {
    int min = 255;
    int max = 0;
    for (int c = 1; c <= accord.tabCordes.last(); ++c) {
      const int f = accord.tabCordes[c];
      if (f == kCaseVide || f == 0) continue;
      if (f < min) min = f;
      if (f > max) max = f;
    }
    // The grid starts at the nut unless the fingering lies beyond the fourth fret.
    const int premièreCase = max <= kCases || min == 255 ? 1 : min;
    for (int k = 0; k <= kCases; ++k)
      m_surface.Line(gauche, haut + k * kPasCase, gauche + largeur, haut + k * kPasCase);
    if (premièreCase == 1)
      m_surface.Line(gauche, haut - 1, gauche + largeur, haut - 1);
    for (int i = 0; i < nbCordes; ++i)
      m_surface.Line(gauche + i * kPasCorde, haut, gauche + i * kPasCorde,
                     haut + kCases * kPasCase);
    const FillStyle remplissage = m_surface.fillStyle();
    m_surface.setFillStyle(FillStyle::Solid);
    m_surface.setFillColor(m_surface.ForeColor());
    // String 1 is the highest: it stands on the right of the grid.
    for (int c = 1; c <= nbCordes && c <= accord.tabCordes.last(); ++c) {
      const int f = accord.tabCordes[c];
      const int cx = gauche + (nbCordes - c) * kPasCorde;
      if (f == kCaseVide) {
        m_surface.Line(cx - 1, haut - 5, cx + 1, haut - 3);
        m_surface.Line(cx + 1, haut - 5, cx - 1, haut - 3);
      } else if (f == 0) {
        m_surface.setFillStyle(FillStyle::Transparent);
        m_surface.Circle(cx, haut - 4, 1);
        m_surface.setFillStyle(FillStyle::Solid);
      } else if (f - premièreCase < kCases) {
        m_surface.Circle(cx, haut + (f - premièreCase) * kPasCase + kPasCase / 2, 1.5);
      }
    }
    m_surface.setFillStyle(remplissage);
    if (premièreCase > 1) {
      const FontSpec avant = m_surface.Font();
      m_surface.setFont(FontSpec{m_s.policeRègle, 6, false, false});
      m_surface.setCurrentX(gauche + largeur + 2);
      m_surface.setCurrentY(haut - 1);
      m_surface.Print(std::to_string(premièreCase));
      m_surface.setFont(avant);
    }
  }
  drawTextCenter(m_surface, x, y, utf8DepuisCp1252(accord.strNom));
}

void CStripRenderer::drawTempos(int m, int xBarre, Colour couleur) {
  const Colour avant = m_surface.ForeColor();
  m_surface.setForeColor(couleur);
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  const int hauteur = m_surface.TextHeight("A");
  for (int i = 1; i <= m_doc.getMesureTempoLast(m); ++i) {
    const int X = m_doc.getMesureTempoX(m, i);
    m_surface.setCurrentY(m_metrics.top() - 3 * is + hauteur * (i - 1));
    m_surface.setCurrentX(wrap16(X * m_s.TAB_VIEW_INTER_NOTE) / s + m_s.TAB_VIEW_INTER_NOTE +
                          m_s.TAB_VIEW_INTER_MESURE + xBarre);
    m_surface.Print("T=" + std::to_string(m_doc.getMesureTempoContenu(m, i)));
  }
  m_surface.setForeColor(avant);
}

void CStripRenderer::drawTextes(int p, int m, int) {
  const tPisteMesure* pm = m_doc.pisteMesure(p, m);
  if (pm == nullptr) return;
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const auto écrit = [&](const OneBased<tTexte>& liste, int y0) {
    for (const tTexte& t : liste) {
      const int x = m_metrics.colonneNote(m, t.intX);
      int y = y0;
      for (const std::string& ligne : lignesDeTexte(t.strContenu)) {
        const std::string utf8 = utf8DepuisCp1252(ligne);
        m_surface.setCurrentX(x);
        m_surface.setCurrentY(y);
        m_surface.Print(utf8);
        y += m_surface.TextHeight(utf8.empty() ? "A" : utf8);
      }
    }
  };
  écrit(pm->tabTextesUp, m_metrics.top() - 4 * is);
  écrit(pm->tabTextesDn, (cordes(p) + 2) * is + m_metrics.top());
}

void CStripRenderer::drawBarre(int m, int x, bool gauche) {
  const int p = m_doc.CurseurPiste();
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int haut = m_metrics.top();
  const int bas = m_metrics.cordeY(cordes(p));
  m_surface.setForeColor(m_s.cfgLineColor);
  m_surface.setFillColor(m_s.cfgLineColor);
  m_surface.Line(x, 0, x, yBasBarre());

  const auto points = [&](int px) {
    const FillStyle remplissage = m_surface.fillStyle();
    m_surface.setFillStyle(FillStyle::Solid);
    m_surface.Circle(px, haut + is + is / 2, 2);
    m_surface.Circle(px, haut + (cordes(p) - 2) * is - is / 2, 2);
    m_surface.setFillStyle(remplissage);
  };
  const auto barreÉpaisse = [&] { m_surface.Line(x - 1, haut, x + 1, bas, LineForm::FilledBox); };

  if (gauche) {
    switch (m_doc.getMesureLoopGaucheType(m)) {
      case barre::kDouble: m_surface.Line(x + 3, haut, x + 3, bas); break;
      case barre::kRepetition:
        barreÉpaisse();
        m_surface.Line(x + 5, haut, x + 5, bas);
        points(x + 8);
        break;
      default: break;
    }
    return;
  }
  switch (m_doc.getMesureLoopDroiteType(m)) {
    case barre::kDouble: m_surface.Line(x - 3, haut, x - 3, bas); break;
    case barre::kRepetition: {
      barreÉpaisse();
      m_surface.Line(x - 4, haut, x - 4, bas);
      points(x - 8);
      const int fois = m_doc.getMesureLoopDroiteData(m);
      if (fois != 1) {
        const FontSpec avant = m_surface.Font();
        FontSpec f = avant;
        f.gras = true;
        f.italique = true;
        m_surface.setFont(f);
        const std::string texte = "x" + std::to_string(fois);
        m_surface.setCurrentX(x - m_surface.TextWidth(texte));
        m_surface.setCurrentY(haut - 2 * is);
        m_surface.Print(texte);
        m_surface.setFont(avant);
      }
      break;
    }
    case barre::kFinale:
      barreÉpaisse();
      m_surface.Line(x - 4, haut, x - 4, bas);
      break;
    default: break;
  }
}

}  // namespace vt
