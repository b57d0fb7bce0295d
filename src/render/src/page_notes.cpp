// The tablature on a page: the fret of a note over a gap in its string, its
// attack, the stems and beams under the tablature, and the effects; the same
// decisions as the strip with the page's metrics and the bar's stretch.
#include <algorithm>
#include <cmath>
#include <string>

#include "beam_table.h"
#include "render/page_renderer.h"

namespace vt {

namespace {
int px(double v) {
  return static_cast<int>(std::nearbyint(v));
}

EtatRythmePage pourLaPage(const EtatRythme& e) {
  return EtatRythmePage{e.précédent, e.suivant, e.suivantMêmeDurée, e.suivantLong, e.position};
}

void texteCentré(Surface& d, double x, double y, const std::string& texte) {
  d.setCurrentX(x - d.TextWidth(texte) / 2.0);
  d.setCurrentY(y - d.TextHeight(texte) / 2.0);
  d.Print(texte);
}
}  // namespace

void CPageRenderer::drawOnPageNote(int p, const PlaceMesure& b, int c, int n) {
  const tNote* note = m_doc.getNote(p, b.m, c, n);
  if (note == nullptr || note->bytCase == kCaseVide) return;
  Surface& d = *m_dev;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double x = b.xTick(note->intX);
  const double y = b.yTab + (c - 1) * IS;

  std::string texte =
      note->bytAttaque == attaque::kDeadNote ? std::string("X") : std::to_string(note->bytCase);
  if (note->bytVolume < 64) texte = "(" + texte + ")";
  d.setFont(policeTab());
  d.setFontTransparent(true);
  // The digits stand in a gap of their string.
  const double w = d.TextWidth(texte);
  d.setForeColor(kBlanc);
  d.Line(x - w / 2 - IS * 0.08, y - IS * 0.38, x + w / 2 + IS * 0.08, y + IS * 0.38,
         LineForm::FilledBox);
  d.setForeColor(couleurNotes());
  d.setFillColor(couleurNotes());
  texteCentré(d, x, y, texte);

  dessineAttaque(p, b, c, *note, x);

  // Only the lowest sounding note of a chord draws the rhythm.
  if (!m_s.cfgPrintTabRythme) return;
  const int nb = m_doc.getGuitareNbrCordes(p);
  for (int s = c + 1; s <= nb; ++s) {
    const int k = m_doc.searchNote(p, b.m, s, note->intX);
    if (k != 0 && m_doc.getNoteCase(p, b.m, s, k) != kCaseVide) return;
  }
  const int échelle = b.échelle > 0 ? b.échelle : 192;
  const double longueur =
      std::nearbyint(b.étirement * static_cast<double>(note->bytDurée * b.interNote / échelle));
  drawOnPageRythme(note->bytDurée, x, b.yTab + (nb + 1) * IS, -((nb - c + 1) * IS), longueur / 2,
                   pourLaPage(étatRythme(m_doc, p, b.m, c, n)));
}

void CPageRenderer::dessineAttaque(int p, const PlaceMesure& b, int c, const tNote& note,
                                   double x) {
  Surface& d = *m_dev;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double IN = static_cast<double>(m_prn.PRN_VIEW_INTER_NOTE);
  const double f = static_cast<double>(m_prn.PRN_VIEW_FACTOR);
  const double T = b.yTab;
  const double a = T - 2 * IS;
  FontSpec police = policeTab();
  police.gras = false;
  police.taille *= 0.8;
  d.setFont(police);
  switch (note.bytAttaque) {
    case attaque::kHarmoniqueNaturelle:
      texteCentré(d, x, a, "Harm.");
      break;
    case attaque::kHarmoniqueArtificielle:
      texteCentré(d, x, a, "A.H.");
      break;
    case attaque::kTap:
      texteCentré(d, x, a, "T");
      break;
    case attaque::kSlap:
      texteCentré(d, x, a, "S");
      break;
    case attaque::kPop:
      texteCentré(d, x, a, "P");
      break;
    case attaque::kPalmMute: {
      d.setCurrentX(x);
      d.setCurrentY(a - d.TextHeight("P.M.") / 2.0);
      d.Print("P.M.");
      const double fin = x + d.TextWidth("P.M.");
      const int échelle = b.échelle > 0 ? b.échelle : 192;
      const double longueur =
          std::nearbyint(b.étirement * static_cast<double>(note.bytDurée * b.interNote / échelle));
      d.setDrawStyle(DrawStyle::Dash);
      d.setDrawWidth(épaisseur(1.5));
      d.LineStep(fin, a, std::max(0.0, longueur - (fin - x)), 0);
      d.setDrawWidth(1);
      d.setDrawStyle(DrawStyle::Solid);
      break;
    }
    case attaque::kStrokeUp:
      d.setDrawWidth(épaisseur(2));
      d.LineStep(x - 4 * f, T - 3 * IS, 4 * f, IS);
      d.LineStepOn(4 * f, -IS);
      d.setDrawWidth(1);
      break;
    case attaque::kStrokeDown:
      d.setDrawWidth(épaisseur(2));
      d.LineStep(x - IN / 4, a, 0, -2 * f - IS / 2);
      d.setDrawWidth(épaisseur(2) * 2);
      d.LineStepOn(IN / 2, 0);
      d.setDrawWidth(épaisseur(2));
      d.LineStepOn(0, IS / 2 + f);
      d.setDrawWidth(1);
      break;
    case attaque::kBrushUp:
    case attaque::kBrushDown: {
      texteCentré(d, x, a, "B");
      const bool versLeHaut = note.bytAttaque == attaque::kBrushUp;
      const int nb = m_doc.getGuitareNbrCordes(p);
      int bout = c;
      if (versLeHaut) {
        for (int s = c; s >= 1; --s)
          if (m_doc.searchNote(p, b.m, s, note.intX) != 0) bout = s;
      } else {
        for (int s = c; s <= nb; ++s)
          if (m_doc.searchNote(p, b.m, s, note.intX) != 0) bout = s;
      }
      const double xf = x + IN / 2;
      const double pointe = IN / 4;
      d.setDrawWidth(épaisseur(2));
      if (versLeHaut) {
        d.LineStep(xf, (c - 0.5) * IS + T, 0, (bout - c - 1) * IS);
        const double yp = d.CurrentY();
        d.LineStep(xf, yp, -pointe, pointe);
        d.LineStep(xf, yp, pointe, pointe);
      } else {
        d.LineStep(xf, (c - 1.5) * IS + T, 0, (bout - c + 1) * IS);
        const double yp = d.CurrentY();
        d.LineStep(xf, yp, -pointe, -pointe);
        d.LineStep(xf, yp, pointe, -pointe);
      }
      d.setDrawWidth(1);
      break;
    }
    default:
      break;
  }
}

void CPageRenderer::drawOnPageRythme(int dur, double x, double y, double h, double unité,
                                     const EtatRythmePage& e) {
  Surface& d = *m_dev;
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double f = static_cast<double>(m_prn.PRN_VIEW_FACTOR);
  const Famille fam = familleDeDurée(dur);
  d.setDrawWidth(épaisseur(2));
  if (fam == Famille::Blanche) {
    d.LineStep(x, y, 0, -IS);
  } else if (fam != Famille::Ronde) {
    d.LineStep(x, y, 0, h);
  }
  d.setDrawWidth(1);
  if (const int barres = nombreDeBarres(fam); barres > 0) {
    const double F = static_cast<double>(m_prn.PRN_VIEW_INTER_NOTE) * m_étirement / 4;
    const Barre bar = étendueBarre(e.position, e.P, e.N, e.M, e.L, fam, dur, px(unité), px(F));
    const bool seule = (e.position == 0 && !(e.N && !e.L)) || (e.position == 1 && !e.P && !e.N) ||
                       (e.position == 2 && !e.P);
    if (seule) {
      // A note alone in its beat gets flags rather than a stub of beam.
      dessineDrapeaux(x, y, barres, true);
    } else {
      for (int i = 0; i < barres; ++i) {
        const double rang = y - 4 * f * i;
        d.Line(x + bar.dx, rang - 2 * f + 1, x + bar.dx + bar.len, rang, LineForm::FilledBox);
      }
    }
  }
  FontSpec petite = policeTab();
  petite.gras = false;
  petite.taille *= 0.85;
  if (estTriolet(dur)) {
    d.setFont(petite);
    texteCentré(d, x, y + IS * 0.7, "3");
  }
  if (estPointée(dur)) {
    const FillStyle remplissage = d.fillStyle();
    d.setFillStyle(FillStyle::Solid);
    d.setFillColor(d.ForeColor());
    d.Circle(x + IS * 0.3, y - IS * 0.3, 1.3 * f);
    d.setFillStyle(remplissage);
  }
}

// Flags at the tip of a stem: curved strokes that leave it towards the right,
// downwards for a stem that rises, upwards for one that hangs.
void CPageRenderer::dessineDrapeaux(double x, double pointe, int barres, bool versLeBas) {
  Surface& d = *m_dev;
  const double sp = espace();
  const double sens = versLeBas ? -1 : 1;  // the direction the flag goes down the stem
  d.setDrawWidth(std::max(2, static_cast<int>(std::lround(sp * 0.2))));
  for (int i = 0; i < barres; ++i) {
    const double y0 = pointe + sens * i * sp * 0.75;
    d.Line(x, y0, x + sp * 0.45, y0 + sens * sp * 0.6);
    d.LineOn(x + sp * 0.85, y0 + sens * sp * 1.3);
    d.LineOn(x + sp * 0.75, y0 + sens * sp * 2.0);
  }
  d.setDrawWidth(1);
}

void CPageRenderer::drawOnPageEffet(int p, const PlaceMesure& b, int c, int n,
                                    const PlaceMesure* suivante) {
  const tNote* note = m_doc.getNote(p, b.m, c, n);
  if (note == nullptr) return;
  Surface& d = *m_dev;
  d.setFontTransparent(true);
  d.setForeColor(couleurNotes());
  d.setFillColor(couleurNotes());
  const double IS = static_cast<double>(m_prn.PRN_VIEW_INTER_STRINGS);
  const double IN = static_cast<double>(m_prn.PRN_VIEW_INTER_NOTE);
  const double T = b.yTab;
  const double x = b.xTick(note->intX);
  const int échelle = b.échelle > 0 ? b.échelle : 192;
  const double w =
      std::nearbyint(b.étirement * static_cast<double>(note->bytDurée * b.interNote / échelle));
  const double barbe = IS / 2;

  // The next note on the string: later in the bar, or the first of the next
  // bar; a next bar on the next system ends the curve at this system's end.
  bool suite = false;
  double nx = 0;
  if (n < m_doc.getNoteLast(p, b.m, c)) {
    suite = true;
    nx = b.xTick(m_doc.getNoteX(p, b.m, c, n + 1));
  } else if (b.m < m_doc.getMesureLast() && m_doc.getNoteLast(p, b.m + 1, c) > 0) {
    suite = true;
    nx = suivante != nullptr ? suivante->xTick(m_doc.getNoteX(p, b.m + 1, c, 1))
                             : b.xFin + IN * b.étirement / 2;
  }
  d.setDrawWidth(épaisseur(2));
  const auto liaison = [&] {
    d.Arc(px(x), px((c - 2) * IS + T), px(nx), px((c - 1) * IS + T), px(nx), px((c - 1.5) * IS + T),
          px(x), px((c - 1.5) * IS + T));
  };
  const auto relâche = [&] {
    d.Arc(px(x - w), px(T), px(x + w), px(T - 2 * IS), px(x + w), px(T - IS), px(x),
          px(T - 2 * IS));
    d.LineStep(x + w, T - IS, 0, -barbe);
    d.LineStepOn(-barbe, 0);
  };
  switch (note->bytEffet) {
    case effet::kTrill: {
      FontSpec police = policeTab();
      police.italique = true;
      d.setFont(police);
      d.setCurrentX(x);
      d.setCurrentY(T - 2 * IS - d.TextHeight("tr") / 2.0);
      d.Print("tr");
      break;
    }
    case effet::kTremolo: {
      d.setDrawWidth(2 * épaisseur(2));
      const double a = IN / 4;
      for (const double y0 : {T - 2 * IS, T - 2 * IS + IS / 2, T - 2 * IS + IS})
        d.Line(x - a, y0, x + a, y0 - IS / 2);
      break;
    }
    case effet::kVibrato:
      for (double cx = x; cx < x + w; cx += IN / 2) {
        d.Line(cx, T - IS, cx + IN / 4, T - 2 * IS);
        d.LineOn(cx + IN / 2, T - IS);
        if (IN / 2 <= 0) break;
      }
      break;
    case effet::kBendUp:
      d.Arc(px(x - w), px(T - IS), px(x + w), px(T - 3 * IS), px(x), px(T - IS), px(x + w),
            px(T - 2 * IS));
      d.LineStep(x + w, T - 2 * IS, -barbe, 0);
      d.LineStepOn(0, barbe);
      break;
    case effet::kBendUpDown: {
      const double a = std::floor(w / 2);
      d.Arc(px(x - a), px(T - IS), px(x + a), px(T - 3 * IS), px(x), px(T - IS), px(x + a),
            px(T - 2 * IS));
      d.Arc(px(x), px(T), px(x + w), px(T - 2 * IS), px(x + w), px(T - IS), px(x + a),
            px(T - 2 * IS));
      d.LineStep(x + w, T - IS, 0, -barbe);
      d.LineStepOn(-barbe, 0);
      break;
    }
    case effet::kBendReturn:
      relâche();
      break;
    case effet::kBendDown:
      d.LineStep(x, T - 2 * IS, 0, IS);
      relâche();
      break;
    case effet::kLiaison:
      if (suite) liaison();
      break;
    case effet::kHammerOn:
    case effet::kPullOff:
      if (suite) {
        liaison();
        FontSpec police = policeTab();
        police.gras = false;
        police.taille *= 0.85;
        d.setFont(police);
        texteCentré(d, (x + nx) / 2, (c - 2.6) * IS + T,
                    note->bytEffet == effet::kHammerOn ? "H" : "P");
      }
      break;
    case effet::kSlideUp:
      if (suite) d.Line(x + IN / 2, (c - 0.75) * IS + T, nx - IN / 2, (c - 1.25) * IS + T);
      break;
    case effet::kSlideDown:
      if (suite) d.Line(x + IN / 2, (c - 1.25) * IS + T, nx - IN / 2, (c - 0.75) * IS + T);
      break;
    default:
      break;
  }
  d.setDrawWidth(1);
}

}  // namespace vt
