// The staff: clef, key signature, note heads with their ledger lines, dots,
// accidentals and stems, and the rests of the silent stretches. Every sign is
// a blit of the source strip, ANDed onto the picture.
#include <cstdlib>

#include "render/staff_source.h"
#include "render/strip_renderer.h"
#include "staff_rests.h"

namespace vt {

void CStripRenderer::blit(const portee::Cellule& cellule, int x, int y) {
  if (m_lngPort == nullptr) return;
  m_surface.BitBlt(x, y, cellule.w, cellule.h, *m_lngPort, cellule.x, cellule.y, RasterOp::SrcAnd);
}

void CStripRenderer::portéeCalculeAltérations(int m) {
  m_altérations = altérationsDeTonalité(m_doc.getMesureTonalitéAltérations(m));
}

void CStripRenderer::drawClef(int p) {
  const int base = m_metrics.porteeBase();
  if (m_doc.getPortéeClef(p) == 2)
    blit(portee::kCléFa, 5, base + 17);
  else
    blit(portee::kCléSol, 5, base + 2);
}

void CStripRenderer::drawArmure(int p, int m, int xBarre) {
  const int h = m_s.TAB_VIEW_INTER_PORTEE;
  const int B = m_metrics.porteeBase() + (m_doc.getPortéeClef(p) == 2 ? 2 * h : 0);
  const int nombre = m_doc.getMesureTonalitéAltérations(m);
  const int pas = m_s.TAB_VIEW_INTER_MESURE / 5;
  for (int i = 1; i <= std::abs(nombre) && i <= 7; ++i) {
    const int x = xBarre + pas * i;
    if (nombre < 0)
      blit(portee::kBémol, x, B + 2 + kPorteeBémols[static_cast<std::size_t>(i)] * h);
    else
      blit(portee::kDièse, x, B + 3 + kPorteeDièses[static_cast<std::size_t>(i)] * h);
  }
}

void CStripRenderer::drawNotePortée(int p, int m, int c, int n) {
  const tNote* note = m_doc.getNote(p, m, c, n);
  if (note == nullptr || note->bytCase == kCaseVide) return;
  const int H = m_s.TAB_VIEW_INTER_PORTEE;
  const int base = m_metrics.porteeBase();
  const int x = m_metrics.colonneNote(m, note->intX);
  const bool batterie = m_doc.getStaffType(p) == kStaffBatterie;

  int u = 0;
  Accident accident = Accident::Aucun;
  if (batterie) {
    u = getNbUnitesFromStaffLowLineForDrums(note->bytCase);
  } else {
    const Graphie g = graphie(note->bytCase + m_doc.getGuitareCorde(p, c));
    accident = accidentPour(g, m_altérations);
    u = g.u;
    if (m_doc.getPortéeClef(p) == 2) u -= 12;
  }

  // Ledger lines below, then above the staff.
  if (u >= 2)
    for (int k = 1; k <= std::abs(u / 2); ++k)
      drawScreenLine(x - 6, base + (k + 6) * 2 * H, 12, 0);
  if (u < -9)
    for (int k = 1; k <= (std::abs(u) - 8) / 2; ++k)
      drawScreenLine(x - 6, base + (2 - k) * 2 * H, 12, 0);

  const int d = note->bytDurée;
  const int y0 = (u + 12) * H - 4 + base;
  if (d == 192 || d == 128)
    blit(portee::kTêteRonde, x - 4, y0);
  else if (d == 96 || d == 64 || d == 144)
    blit(portee::kTêteBlanche, x - 4, y0);
  else
    blit(portee::kTêtePleine, x - 4, y0);
  if (d == 144 || d == 72 || d == 36 || d == 18 || d == 9) blit(portee::kPoint, x + 5, y0);
  if (accident == Accident::Dièse) blit(portee::kDièse, x - 13, y0);
  if (accident == Accident::Bécarre) blit(portee::kBécarre, x - 10, y0);

  // One stem per chord, drawn by its highest note. Pitches compare with the
  // current instrument's strings, which may not be this track's tuning.
  const auto hauteur = [&](int s, int fret) {
    return fret + m_guitare.corde[static_cast<std::size_t>(s)];
  };
  int uBas = u;  // the chord's lowest head
  for (int s = 1; s <= cordes(p); ++s) {
    if (s == c) continue;
    const int k = m_doc.searchNote(p, m, s, note->intX);
    if (k == 0) continue;
    const int autre = m_doc.getNoteCase(p, m, s, k);
    if (autre == kCaseVide) continue;
    int uAutre = 0;
    if (batterie) {
      uAutre = getNbUnitesFromStaffLowLineForDrums(autre);
      if (uAutre < u) return;
    } else {
      if (s <= 7 && c <= 7 && hauteur(s, autre) > hauteur(c, note->bytCase)) return;
      uAutre =
          graphie(autre + m_doc.getGuitareCorde(p, s)).u - (m_doc.getPortéeClef(p) == 2 ? 12 : 0);
    }
    if (uAutre > uBas) uBas = uAutre;
  }
  // The stem runs down through the chord to its lowest head, so that the chord
  // reads as one.
  if (uBas > u && d != 192 && d != 128)
    drawScreenLine(x + 3, y0 + 1 + (uBas - u) * H, 0, (u - uBas) * H);
  calculeEtatRythme(p, m, c, n);
  const int extrême = getTempsPortéeMaxMinNote(m_doc, p, m, c, n, true);
  const int h = ((extrême / 12) * -7 + 33) * H - y0 - 4 + base;
  drawRythmePortée(d, x + 3, y0 + 1, h, m_metrics.longueur(d) / 2);
}

void CStripRenderer::drawNotePortéeSilences(int p, int m) {
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  const int y = m_metrics.porteeHaut() + 2 * m_s.TAB_VIEW_INTER_PORTEE;
  struct Pause {
    int durée;
    portee::Cellule cellule;
  };
  static constexpr Pause kPauses[] = {{192, portee::kPauseRonde}, {96, portee::kPauseBlanche},
                                      {48, portee::kSoupir},      {24, portee::kDemiSoupir},
                                      {12, portee::kQuartSoupir}, {6, portee::kHuitièmeSoupir}};

  silencesPortée(m_doc, p, m, cordes(p), [&](int durée, int milieu) {
    for (const Pause& pause : kPauses)
      if (pause.durée == durée)
        blit(pause.cellule, wrap16(milieu * m_s.TAB_VIEW_INTER_NOTE) / s + getMesurePixel(m), y);
  });
}

}  // namespace vt
