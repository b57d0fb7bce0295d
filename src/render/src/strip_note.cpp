// One note on the tablature: its fret (or the X of a dead note, in brackets
// for a ghost note), its attack sign, and, for the lowest note of a chord, its
// stem and beams.
#include <string>

#include "render/strip_renderer.h"

namespace vt {

void CStripRenderer::drawNote(int p, int m, int c, int n) {
  const tNote* note = m_doc.getNote(p, m, c, n);
  if (note == nullptr || note->bytCase == kCaseVide) return;
  const int x = m_metrics.colonneNote(m, note->intX);

  std::string texte =
      note->bytAttaque == attaque::kDeadNote ? std::string("X") : std::to_string(note->bytCase);
  if (note->bytVolume < 64) texte = "(" + texte + ")";
  drawTextCenter(m_surface, x, m_metrics.cordeY(c), texte);

  drawAttaque(p, m, c, *note, x);

  // Only the lowest sounding note of a chord draws the rhythm.
  for (int s = c + 1; s <= cordes(p); ++s) {
    const int k = m_doc.searchNote(p, m, s, note->intX);
    if (k != 0 && m_doc.getNoteCase(p, m, s, k) != kCaseVide) return;
  }
  calculeEtatRythme(p, m, c, n);
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int nb = cordes(p);
  drawRythme(m_surface, note->bytDurée, x, (nb + 1) * is + m_metrics.top(), -((nb - c + 1) * is),
             m_metrics.longueur(note->bytDurée) / 2);
}

void CStripRenderer::drawAttaque(int p, int m, int c, const tNote& note, int x) {
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int in = m_s.TAB_VIEW_INTER_NOTE;
  const int top = m_metrics.top();
  const int a = top - 2 * is;
  switch (note.bytAttaque) {
    case attaque::kHarmoniqueNaturelle: drawTextCenter(m_surface, x, a, "Harm."); break;
    case attaque::kHarmoniqueArtificielle: drawTextCenter(m_surface, x, a, "A.H."); break;
    case attaque::kTap: drawTextCenter(m_surface, x, a, "T"); break;
    case attaque::kSlap: drawTextCenter(m_surface, x, a, "S"); break;
    case attaque::kPop: drawTextCenter(m_surface, x, a, "P"); break;
    case attaque::kPalmMute: {
      m_surface.setCurrentX(x);
      m_surface.setCurrentY(a);
      m_surface.Print("P.M.");
      const int fin = x + m_surface.TextWidth("P.M.");
      m_surface.setDrawStyle(DrawStyle::Dash);
      m_surface.LineStep(fin, top - is - is / 2, m_metrics.longueur(note.bytDurée), 0);
      m_surface.setDrawStyle(DrawStyle::Solid);
      break;
    }
    case attaque::kStrokeUp:
      m_surface.LineStep(x - 4, top - 3 * is, 4, is);
      m_surface.LineStepOn(4, -is);
      break;
    case attaque::kStrokeDown:
      m_surface.LineStep(x - in / 4, a, 0, -2 - is / 2);
      m_surface.setDrawWidth(2);
      m_surface.LineStepOn(in / 2, 0);
      m_surface.setDrawWidth(1);
      m_surface.LineStepOn(0, is / 2 + 1);
      break;
    case attaque::kBrushUp:
    case attaque::kBrushDown: {
      drawTextCenter(m_surface, x, a, "B");
      const bool versLeHaut = note.bytAttaque == attaque::kBrushUp;
      // The farthest string of the chord in the stroke's direction.
      int bout = c;
      if (versLeHaut) {
        for (int s = c; s >= 1; --s)
          if (m_doc.searchNote(p, m, s, note.intX) != 0) bout = s;
      } else {
        for (int s = c; s <= cordes(p); ++s)
          if (m_doc.searchNote(p, m, s, note.intX) != 0) bout = s;
      }
      const int xf = x + in / 2;
      const int pointe = in / 4;
      if (versLeHaut) {
        m_surface.LineStep(xf, (c - 0.5) * is + top, 0, (bout - c - 1) * is);
        const double yp = m_surface.CurrentY();
        m_surface.LineStep(xf, yp, -pointe, pointe);
        m_surface.LineStep(xf, yp, pointe, pointe);
      } else {
        m_surface.LineStep(xf, (c - 1.5) * is + top, 0, (bout - c + 1) * is);
        const double yp = m_surface.CurrentY();
        m_surface.LineStep(xf, yp, -pointe, -pointe);
        m_surface.LineStep(xf, yp, pointe, -pointe);
      }
      break;
    }
    default: break;
  }
}

}  // namespace vt
