// Painting of one system on a page: the staff's lines and the strings, the
// clefs, the heads of the bars (key and time signature), chord diagrams,
// tempo marks and texts, bar lines and repeats, then the notes through the
// page's twins of the strip's routines, and the number of the first bar.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "render/page_renderer.h"
#include "render/strip_metrics.h"
#include "texte.h"

namespace vt {

namespace {
double arrondi(double v) {
  return std::nearbyint(v);
}
}  // namespace

Colour CPageRenderer::couleurLignes() const {
  return m_s.cfgPrintNB == 1 ? kNoir : m_s.cfgLineColor;
}

Colour CPageRenderer::couleurNotes() const {
  return m_s.cfgPrintNB == 1 ? kNoir : m_s.cfgEventColor;
}

FontSpec CPageRenderer::policeTab() const {
  return FontSpec{m_s.cfgFontName, m_s.cfgFontSize * m_zoom, m_s.cfgFontBold, false};
}

int CPageRenderer::épaisseur(double unités) const {
  return std::max(1, static_cast<int>(std::lround(unités * m_zoom)));
}

double CPageRenderer::emPortée() const {
  return espace() * glyphe::kEm / glyphe::kTêtePleine.hauteur();
}

double CPageRenderer::yPas(const PlaceMesure& b, int u) const {
  return b.yPortée + (u + 8) * static_cast<double>(m_prn.PRN_VIEW_INTER_PORTEE);
}

void CPageRenderer::signe(const glyphe::Signe& g, double em, double cx, double cy) {
  const double k = em / glyphe::kEm;
  m_dev->setFont(FontSpec{m_s.policeMusique, em * 72.0 / kUnitésParPouce, false, false});
  m_dev->Glyphe(cx - (g.xMin + g.xMax) / 2.0 * k, cy + (g.yMin + g.yMax) / 2.0 * k,
                glyphe::utf8(g.code));
}

std::vector<PlaceMesure> CPageRenderer::placesMesures(int p, const SystèmePage& s) const {
  std::vector<PlaceMesure> places;
  const double marge = static_cast<double>(m_prn.PRN_VIEW_MARGIN_LEFT);
  // The clef's room comes first in every system.
  lng o = m_prn.PRN_VIEW_INTER_MESURE / 2 + m_prn.PRN_VIEW_INTER_NOTE;
  for (int m = s.première; m <= s.dernière; ++m) {
    PlaceMesure b;
    b.m = m;
    b.échelle = m_doc.getOnPageViewMode(p, m);
    b.étirement = s.étirement;
    b.interNote = m_prn.PRN_VIEW_INTER_NOTE;
    b.interMesure = m_prn.PRN_VIEW_INTER_MESURE;
    b.yPortée = static_cast<double>(s.y + m_salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_PORTEE);
    b.yTab = static_cast<double>(s.y + m_salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_TAB);
    const lng tête = getOnPageLargeurTonalité(m_doc, m_prn, m, s.première) +
                     getOnPageLargeurSignature(m_doc, m_prn, m, s.première);
    b.xDébut = marge + arrondi(s.étirement * static_cast<double>(o));
    b.xNotes = marge + arrondi(s.étirement * static_cast<double>(o + tête));
    o += largeurMesure(p, m, s.première);
    b.xFin = marge + arrondi(s.étirement * static_cast<double>(o));
    places.push_back(b);
  }
  return places;
}

void CPageRenderer::dessineSystème(int p, const SystèmePage& s) {
  const std::vector<PlaceMesure> places = placesMesures(p, s);
  if (places.empty()) return;
  const double xFin = places.back().xFin;
  const lng IS = m_prn.PRN_VIEW_INTER_STRINGS;
  const int nb = m_doc.getGuitareNbrCordes(p);
  Surface& d = *m_dev;

  dessineLignes(p, s, xFin);
  dessineClé(p, s);

  // Bar heads, the objects above the staff, bar lines.
  for (std::size_t i = 0; i < places.size(); ++i) {
    const PlaceMesure& b = places[i];
    const double tonalité =
        b.étirement * static_cast<double>(getOnPageLargeurTonalité(m_doc, m_prn, b.m, s.première));
    const double signature =
        b.étirement * static_cast<double>(getOnPageLargeurSignature(m_doc, m_prn, b.m, s.première));
    double x = b.xDébut;
    if (tonalité > 0 && m_s.cfgPrintPortée) dessineArmure(p, b, x, tonalité);
    if (signature > 0) {
      // The key's signs may reach past their room: the signature follows them.
      const int n = std::abs(m_doc.getMesureTonalitéAltérations(b.m));
      const double finArmure = tonalité > 0 && m_s.cfgPrintPortée ? x + (0.4 + n) * espace() : x;
      dessineSignature(p, b, std::max(x + tonalité, finArmure), signature);
    }
    d.setForeColor(couleurLignes());
    d.setFillColor(couleurLignes());
    if (m_s.cfgPrintAccords) dessineAccords(p, b);
    dessineTempos(b);
    dessineTextes(p, b);
    dessineBarre(p, b, b.xNotes, true);
    dessineBarre(p, b, b.xFin, false);
  }

  // The tablature's notes and effects.
  d.setFillStyle(FillStyle::Transparent);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const PlaceMesure& b = places[i];
    const PlaceMesure* suivante = i + 1 < places.size() ? &places[i + 1] : nullptr;
    for (int c = 1; c <= nb; ++c) {
      const OneBased<tNote>* l = m_doc.notes(p, b.m, c);
      if (l == nullptr) continue;
      for (int n = 1; n <= l->last(); ++n) {
        if ((*l)[n].bytCase < kCaseVide) drawOnPageNote(p, b, c, n);
        drawOnPageEffet(p, b, c, n, suivante);
      }
    }
  }

  // The staff's notes and rests, always in black.
  if (m_s.cfgPrintPortée) {
    for (const PlaceMesure& b : places) {
      m_altérations = altérationsDeTonalité(m_doc.getMesureTonalitéAltérations(b.m));
      for (int c = 1; c <= nb; ++c)
        for (int n = 1; n <= m_doc.getNoteLast(p, b.m, c); ++n)
          drawOnPageNotePortée(p, b, c, n);
      if (m_s.cfgPrintPortéeSilence) drawOnPageNotePortéeSilences(p, b);
    }
  }

  // The number of the system's first bar, above its left edge.
  if (m_s.cfgPrintNumMesure) {
    FontSpec f = policeTab();
    f.gras = false;
    d.setFont(f);
    d.setFontTransparent(true);
    d.setForeColor(couleurLignes());
    const std::string numéro = std::to_string(s.première);
    const double haut =
        m_s.cfgPrintPortée ? places.front().yPortée : places.front().yTab - 2.0 * IS;
    d.setCurrentX(static_cast<double>(m_prn.PRN_VIEW_MARGIN_LEFT));
    d.setCurrentY(haut - d.TextHeight(numéro) - espace() / 2);
    d.Print(numéro);
  }
}

void CPageRenderer::dessineLignes(int p, const SystèmePage& s, double xFin) {
  Surface& d = *m_dev;
  const double marge = static_cast<double>(m_prn.PRN_VIEW_MARGIN_LEFT);
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double yTab = static_cast<double>(s.y + m_salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_TAB);
  const int nb = m_doc.getGuitareNbrCordes(p);
  d.setDrawWidth(épaisseur(2));
  d.setForeColor(couleurLignes());
  for (int c = 1; c <= nb; ++c)
    d.Line(marge, yTab + (c - 1) * IS, xFin, yTab + (c - 1) * IS);
  d.Line(marge, yTab, marge, yTab + (nb - 1) * IS);
  if (m_s.cfgPrintPortée) {
    const double yPortée =
        static_cast<double>(s.y + m_salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_PORTEE);
    d.setForeColor(kNoir);
    for (int k = 0; k <= 4; ++k)
      d.Line(marge, yPortée + k * espace(), xFin, yPortée + k * espace());
    d.Line(marge, yPortée, marge, yPortée + 4 * espace());
  }
  d.setDrawWidth(1);
}

void CPageRenderer::dessineClé(int p, const SystèmePage& s) {
  Surface& d = *m_dev;
  const double marge = static_cast<double>(m_prn.PRN_VIEW_MARGIN_LEFT);
  const double salle = s.étirement * static_cast<double>(m_prn.PRN_VIEW_INTER_MESURE / 2 +
                                                         m_prn.PRN_VIEW_INTER_NOTE);
  const double sp = espace();
  const double cx = marge + salle / 2;
  if (m_s.cfgPrintPortée) {
    const double yPortée =
        static_cast<double>(s.y + m_salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_PORTEE);
    d.setForeColor(kNoir);
    if (m_doc.getPortéeClef(p) == 1) {
      // Seven spaces high, from a space and a half above the staff.
      const double em = 7 * sp * glyphe::kEm / glyphe::kCléSol.hauteur();
      signe(glyphe::kCléSol, em, cx, yPortée - 1.5 * sp + 3.5 * sp);
    } else {
      const double em = 3.3 * sp * glyphe::kEm / glyphe::kCléFa.hauteur();
      signe(glyphe::kCléFa, em, cx, yPortée + 0.05 * sp + 1.65 * sp);
    }
  }
  if (m_doc.getStaffType(p) == kStaffBatterie) return;
  // TAB, one letter over another, in the tablature's height.
  const int nb = m_doc.getGuitareNbrCordes(p);
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double yTab = static_cast<double>(s.y + m_salleHaut + m_prn.PRN_VIEW_MARGIN_TOP_TAB);
  const double hauteur = (nb - 1) * IS;
  const double lettre = hauteur / 3.0;
  d.setFont(FontSpec{m_s.cfgFontName, lettre * 0.95 * 72.0 / kUnitésParPouce, true, false});
  d.setFontTransparent(true);
  const double largeur = d.TextWidth("A");
  d.setForeColor(kBlanc);
  d.Line(cx - largeur * 0.7, yTab + IS * 0.3, cx + largeur * 0.7, yTab + hauteur - IS * 0.3,
         LineForm::FilledBox);
  d.setForeColor(couleurLignes());
  const char* lettres[] = {"T", "A", "B"};
  for (int i = 0; i < 3; ++i) {
    const double y = yTab + lettre * (i + 0.5);
    d.setCurrentX(cx - d.TextWidth(lettres[i]) / 2.0);
    d.setCurrentY(y - d.TextHeight(lettres[i]) / 2.0);
    d.Print(lettres[i]);
  }
}

void CPageRenderer::dessineArmure(int p, const PlaceMesure& b, double x, double) {
  const int nombre = m_doc.getMesureTonalitéAltérations(b.m);
  if (nombre == 0) return;
  Surface& d = *m_dev;
  d.setForeColor(kNoir);
  const double sp = espace();
  const double H = static_cast<double>(m_prn.PRN_VIEW_INTER_PORTEE);
  const double em = 2.9 * sp * glyphe::kEm / glyphe::kDièse.hauteur();
  const double décalage = m_doc.getPortéeClef(p) == 2 ? 2 * H : 0;
  for (int i = 1; i <= std::abs(nombre) && i <= 7; ++i) {
    const double cx = x + (0.4 + (i - 0.5)) * sp;
    if (nombre < 0) {
      // A flat stands on its bowl, low in its outline.
      const double y = b.yPortée + (kPorteeBémols[static_cast<std::size_t>(i)] - 2) * H + décalage;
      const glyphe::Signe& g = glyphe::kBémol;
      signe(g, em, cx, y - (0.5 - 0.2) * g.hauteur() * em / glyphe::kEm);
    } else {
      const double y = b.yPortée + (kPorteeDièses[static_cast<std::size_t>(i)] - 2) * H + décalage;
      signe(glyphe::kDièse, em, cx, y);
    }
  }
}

void CPageRenderer::dessineSignature(int p, const PlaceMesure& b, double x, double largeur) {
  Surface& d = *m_dev;
  const double sp = espace();
  const double cx = x + largeur / 2;
  const auto chiffres = [&](int valeur, double cy, double hauteur) {
    const std::string texte = std::to_string(valeur);
    const double em = hauteur * glyphe::kEm / glyphe::kChiffre.hauteur();
    const double pas = em / 2;  // the digits advance half an em
    double gauche = cx - pas * static_cast<double>(texte.size()) / 2;
    for (const char ch : texte) {
      glyphe::Signe g = glyphe::kChiffre;
      g.code = static_cast<char32_t>(ch);
      signe(g, em, gauche + pas / 2, cy);
      gauche += pas;
    }
  };
  const int up = m_doc.getMesureSignatureUp(b.m);
  const int dn = m_doc.getMesureSignatureDn(b.m);
  if (m_s.cfgPrintPortée) {
    d.setForeColor(kNoir);
    chiffres(up, b.yPortée + sp, 2 * sp);
    chiffres(dn, b.yPortée + 3 * sp, 2 * sp);
  }
  // On the tablature, larger, over a gap in the strings.
  const int nb = m_doc.getGuitareNbrCordes(p);
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double hauteurTab = (nb - 1) * IS;
  const double h = std::min(hauteurTab / 2 * 0.62, 2.6 * sp);
  const double largeurChiffres =
      h * glyphe::kEm / glyphe::kChiffre.hauteur() / 2 *
      static_cast<double>(std::max(std::to_string(up).size(), std::to_string(dn).size()));
  d.setForeColor(kBlanc);
  d.Line(cx - largeurChiffres / 2, b.yTab + IS * 0.4, cx + largeurChiffres / 2,
         b.yTab + hauteurTab - IS * 0.4, LineForm::FilledBox);
  d.setForeColor(couleurLignes());
  chiffres(up, b.yTab + hauteurTab / 4, h);
  chiffres(dn, b.yTab + hauteurTab * 3 / 4, h);
}

void CPageRenderer::dessineBarre(int p, const PlaceMesure& b, double x, bool gauche) {
  Surface& d = *m_dev;
  const double f = static_cast<double>(m_prn.PRN_VIEW_FACTOR);
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double sp = espace();
  const int nb = m_doc.getGuitareNbrCordes(p);
  struct Portion {
    double haut, bas, point1, point2;
  };
  std::vector<Portion> portions;
  if (m_s.cfgPrintPortée)
    portions.push_back({b.yPortée, b.yPortée + 4 * sp, b.yPortée + 1.5 * sp, b.yPortée + 2.5 * sp});
  portions.push_back(
      {b.yTab, b.yTab + (nb - 1) * IS, b.yTab + IS + IS / 2, b.yTab + (nb - 2) * IS - IS / 2});
  d.setForeColor(couleurLignes());
  d.setFillColor(couleurLignes());
  const int type = gauche ? m_doc.getMesureLoopGaucheType(b.m) : m_doc.getMesureLoopDroiteType(b.m);
  const auto trait = [&](double xt, int largeur) {
    d.setDrawWidth(épaisseur(largeur));
    for (const Portion& q : portions)
      d.Line(xt, q.haut, xt, q.bas);
    d.setDrawWidth(1);
  };
  const auto épais = [&](double x1, double x2) {
    for (const Portion& q : portions)
      d.Line(x1, q.haut, x2, q.bas, LineForm::FilledBox);
  };
  const auto points = [&](double xp) {
    const FillStyle avant = d.fillStyle();
    d.setFillStyle(FillStyle::Solid);
    for (const Portion& q : portions) {
      d.Circle(xp, q.point1, 2 * f);
      d.Circle(xp, q.point2, 2 * f);
    }
    d.setFillStyle(avant);
  };
  // The bar's own line closes it; the left side only has its adornments.
  if (!gauche) trait(x, 3);
  if (gauche) {
    switch (type) {
      case barre::kDouble:
        trait(x + 3 * f, 2);
        break;
      case barre::kRepetition:
        épais(x - f, x + f);
        trait(x + 5 * f, 2);
        points(x + 8 * f);
        break;
      default:
        break;
    }
    return;
  }
  switch (type) {
    case barre::kDouble:
      trait(x - 3 * f, 2);
      break;
    case barre::kRepetition: {
      épais(x - f, x + f);
      trait(x - 4 * f, 2);
      points(x - 8 * f);
      const int fois = m_doc.getMesureLoopDroiteData(b.m);
      if (fois != 1) {
        FontSpec police = policeTab();
        police.gras = true;
        police.italique = true;
        d.setFont(police);
        d.setFontTransparent(true);
        const std::string texte = "x" + std::to_string(fois);
        d.setCurrentX(x - d.TextWidth(texte));
        d.setCurrentY(portions.front().haut - d.TextHeight(texte) - sp / 2);
        d.Print(texte);
      }
      break;
    }
    case barre::kFinale:
      épais(x - f, x + f);
      trait(x - 4 * f, 2);
      break;
    default:
      break;
  }
}

void CPageRenderer::dessineAccords(int p, const PlaceMesure& b) {
  const tPisteMesure* pm = m_doc.pisteMesure(p, b.m);
  if (pm == nullptr) return;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double référence = m_s.cfgPrintPortée ? b.yPortée : b.yTab - 2 * IS;
  for (const tAccord& accord : pm->tabAccords)
    dessineDiagramme(accord, m_doc.getGuitareNbrCordes(p), b.xTick(accord.intX),
                     référence - 5.7 * IS);
}

// A chord: its name over a grid of the strings and four frets, the fingering
// as dots, open and muted strings over the nut, the first fret beside the grid
// when the hand is up the neck.
void CPageRenderer::dessineDiagramme(const tAccord& accord, int nbCordes, double x, double yBas) {
  Surface& d = *m_dev;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double pasCorde = std::round(IS * 0.45);
  const double pasCase = std::round(IS * 0.5);
  constexpr int kCases = 4;
  const double largeur = (nbCordes - 1) * pasCorde;
  const double gauche = x - largeur / 2;
  const double haut = yBas - kCases * pasCase;
  bool jouée = false;
  int min = 255;
  int max = 0;
  for (int c = 1; c <= accord.tabCordes.last(); ++c) {
    const int f = accord.tabCordes[c];
    if (f == kCaseVide) continue;
    jouée = true;
    if (f == 0) continue;
    min = std::min(min, f);
    max = std::max(max, f);
  }
  double yNom = haut - pasCorde * 0.9;
  if (jouée) {
    const int première = max <= kCases || min == 255 ? 1 : min;
    d.setDrawWidth(épaisseur(1.5));
    for (int k = 0; k <= kCases; ++k)
      d.Line(gauche, haut + k * pasCase, gauche + largeur, haut + k * pasCase);
    for (int i = 0; i < nbCordes; ++i)
      d.Line(gauche + i * pasCorde, haut, gauche + i * pasCorde, yBas);
    d.setDrawWidth(1);
    if (première == 1)
      d.Line(gauche, haut - pasCase / 5, gauche + largeur, haut, LineForm::FilledBox);
    const FillStyle avant = d.fillStyle();
    const double r = pasCorde * 0.36;
    for (int c = 1; c <= nbCordes && c <= accord.tabCordes.last(); ++c) {
      const int f = accord.tabCordes[c];
      // String 1, the highest, stands on the right of the grid.
      const double cx = gauche + (nbCordes - c) * pasCorde;
      const double yMarque = haut - pasCorde * 0.55;
      if (f == kCaseVide) {
        d.setDrawWidth(épaisseur(1.5));
        d.Line(cx - r * 0.8, yMarque - r * 0.8, cx + r * 0.8, yMarque + r * 0.8);
        d.Line(cx + r * 0.8, yMarque - r * 0.8, cx - r * 0.8, yMarque + r * 0.8);
        d.setDrawWidth(1);
      } else if (f == 0) {
        d.setFillStyle(FillStyle::Transparent);
        d.setDrawWidth(épaisseur(1.5));
        d.Circle(cx, yMarque, r * 0.8);
        d.setDrawWidth(1);
      } else if (f - première < kCases) {
        d.setFillStyle(FillStyle::Solid);
        d.setFillColor(d.ForeColor());
        d.Circle(cx, haut + (f - première) * pasCase + pasCase / 2, r);
      }
    }
    d.setFillStyle(avant);
    if (première > 1) {
      FontSpec petite = policeTab();
      petite.gras = false;
      petite.taille *= 0.8;
      d.setFont(petite);
      d.setFontTransparent(true);
      d.setCurrentX(gauche + largeur + pasCorde * 0.6);
      d.setCurrentY(haut + pasCase / 2 - d.TextHeight("5") / 2.0);
      d.Print(std::to_string(première) + "fr");
    }
    yNom = haut - pasCorde * 1.3;
  }
  FontSpec police = policeTab();
  police.gras = true;
  police.taille *= 1.2;
  d.setFont(police);
  d.setFontTransparent(true);
  const std::string nom = utf8DepuisCp1252(accord.strNom);
  d.setCurrentX(x - d.TextWidth(nom) / 2.0);
  d.setCurrentY(yNom - d.TextHeight(nom));
  d.Print(nom);
}

void CPageRenderer::dessineTempos(const PlaceMesure& b) {
  Surface& d = *m_dev;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double référence = m_s.cfgPrintPortée ? b.yPortée : b.yTab - 2 * IS;
  FontSpec police = policeTab();
  police.gras = true;
  d.setFontTransparent(true);
  const Colour couleur = m_s.cfgPrintNB == 1 ? kNoir : kRouge;
  for (int i = 1; i <= m_doc.getMesureTempoLast(b.m); ++i) {
    d.setFont(police);
    const double h = d.TextHeight("A");
    const double y = référence - 2.9 * IS + h * (i - 1);
    const double x = b.xTick(m_doc.getMesureTempoX(b.m, i)) - espace() / 2;
    // A quarter note, then "= 120".
    d.setForeColor(couleur);
    const double em = 0.8 * emPortée();
    const glyphe::Signe& g = glyphe::kNoire;
    const double k = em / glyphe::kEm;
    const double base = y + h * 0.75;
    d.setFont(FontSpec{m_s.policeMusique, em * 72.0 / kUnitésParPouce, false, false});
    d.Glyphe(x - g.xMin * k, base + g.yMin * k * 0.5, glyphe::utf8(g.code));
    d.setFont(police);
    d.setCurrentX(x + g.largeur() * k + espace() / 3);
    d.setCurrentY(y);
    d.Print("= " + std::to_string(m_doc.getMesureTempoContenu(b.m, i)));
  }
  d.setForeColor(couleurLignes());
}

void CPageRenderer::dessineTextes(int p, const PlaceMesure& b) {
  const tPisteMesure* pm = m_doc.pisteMesure(p, b.m);
  if (pm == nullptr) return;
  Surface& d = *m_dev;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const int nb = m_doc.getGuitareNbrCordes(p);
  const double référence = m_s.cfgPrintPortée ? b.yPortée : b.yTab - 2 * IS;
  FontSpec police = policeTab();
  police.gras = false;
  d.setFont(police);
  d.setFontTransparent(true);
  d.setForeColor(couleurLignes());
  // Upper texts stand on a line over the tempos and grow upwards; lower
  // texts hang under the rhythm.
  const auto écrit = [&](const OneBased<tTexte>& liste, double y0, bool versLeHaut) {
    for (const tTexte& t : liste) {
      const std::vector<std::string> lignes = lignesDeTexte(t.strContenu);
      double y = versLeHaut ? y0 - static_cast<double>(lignes.size()) * d.TextHeight("A") : y0;
      for (const std::string& ligne : lignes) {
        const std::string utf8 = utf8DepuisCp1252(ligne);
        d.setCurrentX(b.xTick(t.intX) - espace() / 2);
        d.setCurrentY(y);
        d.Print(utf8);
        y += d.TextHeight(utf8.empty() ? "A" : utf8);
      }
    }
  };
  écrit(pm->tabTextesUp, référence - 3.0 * IS, true);
  écrit(pm->tabTextesDn, b.yTab + (nb + 2) * IS, false);
}

}  // namespace vt
