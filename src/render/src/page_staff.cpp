// The staff on a page: heads, ledger lines, accidentals, dots, stems, beams
// and flags, and the rests, as signs of the music font placed by their
// outlines. The decisions are the strip's: the spelling, the accidental in
// force, one stem per chord, the common height of a beat's stems.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "beam_table.h"
#include "render/page_renderer.h"
#include "staff_rests.h"

namespace vt {

namespace {
int px(double v) {
  return static_cast<int>(std::nearbyint(v));
}
}  // namespace

namespace glyphe {
std::string utf8(char32_t c) {
  std::string s;
  if (c < 0x80) {
    s += static_cast<char>(c);
  } else if (c < 0x800) {
    s += static_cast<char>(0xC0 | (c >> 6));
    s += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    s += static_cast<char>(0xE0 | (c >> 12));
    s += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    s += static_cast<char>(0x80 | (c & 0x3F));
  }
  return s;
}
}  // namespace glyphe

void CPageRenderer::drawOnPageNotePortée(int p, const PlaceMesure& b, int c, int n) {
  const tNote* note = m_doc.getNote(p, b.m, c, n);
  if (note == nullptr || note->bytCase == kCaseVide) return;
  Surface& d = *m_dev;
  d.setForeColor(kNoir);
  d.setFillColor(kNoir);
  const double H = static_cast<double>(m_prn.PRN_VIEW_INTER_PORTEE);
  const double sp = espace();
  const double x = b.xTick(note->intX);
  const bool batterie = m_doc.getStaffType(p) == kStaffBatterie;
  const bool fa = m_doc.getPortéeClef(p) == 2;

  int u = 0;
  Accident accident = Accident::Aucun;
  if (batterie) {
    u = getNbUnitesFromStaffLowLineForDrums(note->bytCase);
  } else {
    const Graphie g = graphie(note->bytCase + m_doc.getGuitareCorde(p, c));
    accident = accidentPour(g, m_altérations);
    u = g.u - (fa ? 12 : 0);
  }

  const double em = emPortée();
  const double k = em / glyphe::kEm;
  const double demiTête = glyphe::kTêtePleine.largeur() * k / 2;
  const double y = yPas(b, u);

  // Ledger lines below, then above the staff.
  d.setDrawWidth(épaisseur(2));
  const double demiLigne = demiTête + sp * 0.35;
  if (u >= 2)
    for (int i = 1; i <= std::abs(u / 2); ++i)
      d.Line(x - demiLigne, yPas(b, 2 * i), x + demiLigne, yPas(b, 2 * i));
  if (u < -9)
    for (int i = 1; i <= (std::abs(u) - 8) / 2; ++i)
      d.Line(x - demiLigne, yPas(b, -8 - 2 * i), x + demiLigne, yPas(b, -8 - 2 * i));
  d.setDrawWidth(1);

  const int dur = note->bytDurée;
  const Famille famille = familleDeDurée(dur);
  if (famille == Famille::Ronde) {
    signe(glyphe::kRonde, em, x, y);
  } else if (famille == Famille::Blanche) {
    // The half note's sign brings its own stem; it is placed by its head.
    const glyphe::Signe& g = glyphe::kBlanche;
    const glyphe::Signe& tête = glyphe::kTêtePleine;
    d.setFont(FontSpec{m_s.policeMusique, em * 72.0 / kUnitésParPouce, false, false});
    d.Glyphe(x - (tête.xMin + tête.xMax) / 2.0 * k, y + (tête.yMin + tête.yMax) / 2.0 * k,
             glyphe::utf8(g.code));
  } else {
    signe(glyphe::kTêtePleine, em, x, y);
  }
  if (estPointée(dur)) {
    // A dot beside a head on a line moves up into the space.
    const double yp = (u % 2 == 0) ? y - H : y;
    signe(glyphe::kPoint, em, x + demiTête + sp * 0.45, yp);
  }
  const double emAlt = 2.9 * sp * glyphe::kEm / glyphe::kDièse.hauteur();
  if (accident == Accident::Dièse) {
    const double l = glyphe::kDièse.largeur() * emAlt / glyphe::kEm;
    signe(glyphe::kDièse, emAlt, x - demiTête - sp * 0.25 - l / 2, y);
  } else if (accident == Accident::Bécarre) {
    const double l = glyphe::kBécarre.largeur() * emAlt / glyphe::kEm;
    signe(glyphe::kBécarre, emAlt, x - demiTête - sp * 0.25 - l / 2, y);
  }

  if (famille == Famille::Ronde || famille == Famille::Blanche || famille == Famille::Aucune)
    return;
  dessineHampe(p, b, c, n, u, x);
}

// The stem of a chord, drawn by its highest note through its lowest head, with
// the beams or the flags at its tip.
void CPageRenderer::dessineHampe(int p, const PlaceMesure& b, int c, int n, int u, double x) {
  const tNote* note = m_doc.getNote(p, b.m, c, n);
  Surface& d = *m_dev;
  const double H = static_cast<double>(m_prn.PRN_VIEW_INTER_PORTEE);
  const bool batterie = m_doc.getStaffType(p) == kStaffBatterie;
  const bool fa = m_doc.getPortéeClef(p) == 2;
  const auto pasDe = [&](int s, int fret) {
    return batterie ? getNbUnitesFromStaffLowLineForDrums(fret)
                    : graphie(fret + m_doc.getGuitareCorde(p, s)).u - (fa ? 12 : 0);
  };
  int uBas = u;
  for (int s = 1; s <= m_doc.getGuitareNbrCordes(p); ++s) {
    if (s == c) continue;
    const int k = m_doc.searchNote(p, b.m, s, note->intX);
    if (k == 0) continue;
    const int autre = m_doc.getNoteCase(p, b.m, s, k);
    if (autre == kCaseVide) continue;
    const int uAutre = pasDe(s, autre);
    // A higher head (or the same one on a lower string) draws the chord's stem.
    if (uAutre < u || (uAutre == u && s < c)) return;
    uBas = std::max(uBas, uAutre);
  }

  const double k = emPortée() / glyphe::kEm;
  const double xs = x + glyphe::kTêtePleine.largeur() * k / 2 - épaisseur(2) / 2.0;
  const Famille famille = familleDeDurée(note->bytDurée);
  double pointe = yPas(b, u) - 7 * H;
  if (famille != Famille::Noire) {
    // The stems of a beat reach one height, from the highest note of the
    // beat, and stand at least two spaces and a half above it.
    const int extrême = getTempsPortéeMaxMinNote(m_doc, p, b.m, c, n, true);
    pointe = b.yPortée + (28 - 7 * (extrême / 12)) * H;
    if (!batterie) {
      const int uHaut = graphie(extrême - (fa ? 24 : 0)).u - (fa ? 12 : 0);
      pointe = std::min(pointe, yPas(b, uHaut) - 5 * H);
    }
    pointe = std::min(pointe, yPas(b, u) - 5 * H);
  }
  d.setDrawWidth(épaisseur(2));
  d.Line(xs, yPas(b, uBas) - H * 0.3, xs, pointe);
  d.setDrawWidth(1);

  const int barres = nombreDeBarres(famille);
  if (barres == 0) return;
  const EtatRythme e = étatRythme(m_doc, p, b.m, c, n);
  const int échelle = b.échelle > 0 ? b.échelle : 192;
  const double U =
      std::nearbyint(b.étirement * static_cast<double>(note->bytDurée * b.interNote / échelle)) / 2;
  const double F = static_cast<double>(m_prn.PRN_VIEW_INTER_NOTE) * b.étirement / 4;
  const bool seule = (e.position == 0 && !(e.suivant && !e.suivantLong)) ||
                     (e.position == 1 && !e.précédent && !e.suivant) ||
                     (e.position == 2 && !e.précédent);
  if (seule) {
    dessineDrapeaux(xs, pointe, barres, false);
    return;
  }
  const Barre bar = étendueBarre(e.position, e.précédent, e.suivant, e.suivantMêmeDurée,
                                 e.suivantLong, famille, note->bytDurée, px(U), px(F));
  for (int i = 0; i < barres; ++i) {
    const double rang = pointe + i * 1.5 * H;
    d.Line(xs + bar.dx, rang, xs + bar.dx + bar.len, rang + H * 0.9, LineForm::FilledBox);
  }
}

void CPageRenderer::drawOnPageNotePortéeSilences(int p, const PlaceMesure& b) {
  const int nb = m_doc.getGuitareNbrCordes(p);
  if (!m_s.cfgPrintPortéeSilence1Mesure) {
    // A bar with no note at all shows no rest unless asked.
    bool note = false;
    for (int c = 1; c <= nb && !note; ++c)
      for (int n = 1; n <= m_doc.getNoteLast(p, b.m, c) && !note; ++n)
        note = m_doc.getNoteCase(p, b.m, c, n) != kCaseVide;
    if (!note) return;
  }
  Surface& d = *m_dev;
  d.setForeColor(kNoir);
  const double H = static_cast<double>(m_prn.PRN_VIEW_INTER_PORTEE);
  const double em = emPortée();
  struct Pause {
    int durée;
    const glyphe::Signe* signe;
    double taille;  // of the em
    double y;       // in half spaces below the top line, where the sign's centre goes
  };
  const Pause pauses[] = {
      {192, &glyphe::kPauseRonde, 0.75, 2.5}, {96, &glyphe::kPauseBlanche, 0.75, 3.5},
      {48, &glyphe::kSoupir, 1, 4},           {24, &glyphe::kDemiSoupir, 1, 4},
      {12, &glyphe::kQuartSoupir, 1, 4.5},    {6, &glyphe::kHuitièmeSoupir, 1, 4}};

  silencesPortée(m_doc, p, b.m, nb, [&](int durée, int milieu) {
    for (const Pause& pause : pauses) {
      if (pause.durée != durée) continue;
      const double e = em * pause.taille;
      const glyphe::Signe& g = *pause.signe;
      double cy = b.yPortée + pause.y * H;
      // The whole rest hangs from the second line, the half rest sits on the third.
      if (durée == 192) cy = b.yPortée + 2 * H + g.hauteur() * e / glyphe::kEm / 2;
      if (durée == 96) cy = b.yPortée + 4 * H - g.hauteur() * e / glyphe::kEm / 2;
      signe(g, e, b.xTick(milieu), cy);
    }
  });
}

}  // namespace vt
