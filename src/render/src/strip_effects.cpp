// The effect of a note, drawn above the tablature or between it and the next
// note on its string. Drawn for blank notes too, so an effect can stand alone.
#include <cmath>

#include "render/strip_renderer.h"

namespace vt {

namespace {
// Device calls take whole pixels: a fractional coordinate is rounded half to even.
int px(double v) { return static_cast<int>(std::nearbyint(v)); }
}  // namespace

void CStripRenderer::drawEffet(int p, int m, int c, int n) {
  const tNote* note = m_doc.getNote(p, m, c, n);
  if (note == nullptr) return;
  m_surface.setFontTransparent(true);

  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int in = m_s.TAB_VIEW_INTER_NOTE;
  const int T = m_metrics.top();
  const int x = m_metrics.colonneEffet(m, note->intX);
  const int w = m_metrics.longueur(note->bytDurée);

  // The next note on the same string: later in the bar, or the first of the next bar.
  bool suivante = false;
  int nx = 0;
  if (n < m_doc.getNoteLast(p, m, c)) {
    suivante = true;
    nx = m_metrics.colonneEffet(m, m_doc.getNoteX(p, m, c, n + 1));
  } else if (m < m_doc.getMesureLast() && m_doc.getNoteLast(p, m + 1, c) > 0) {
    suivante = true;
    nx = m_metrics.colonneEffet(m + 1, m_doc.getNoteX(p, m + 1, c, 1));
  }
  const auto liaison = [&] {
    m_surface.Arc(x, px((c - 2) * is + T), nx, px((c - 1) * is + T), nx, px((c - 1.5) * is + T),
                  x, px((c - 1.5) * is + T));
  };
  const auto relâche = [&] {
    m_surface.Arc(x - w, T, x + w, T - 2 * is, x + w, T - is, x, T - 2 * is);
    m_surface.LineStep(x + w, T - is, 0, -5);
    m_surface.LineStepOn(-5, 0);
  };

  switch (note->bytEffet) {
    case effet::kTrill: {
      FontSpec f = m_surface.Font();
      const FontSpec avant = f;
      f.italique = true;
      m_surface.setFont(f);
      m_surface.setCurrentX(x);
      m_surface.setCurrentY(T - 2 * is);
      m_surface.Print("tr");
      m_surface.setFont(avant);
      break;
    }
    case effet::kTremolo: {
      m_surface.setDrawWidth(2);
      const int a = in / 4;
      for (const int y0 : {T - 2 * is, T - 2 * is + is / 2, T - 2 * is + is})
        m_surface.Line(x - a, y0, x + a, y0 - is / 2);
      m_surface.setDrawWidth(1);
      break;
    }
    case effet::kVibrato:
      for (int cx = x; cx < x + w; cx += in / 2) {
        m_surface.Line(cx, T - is, cx + in / 4, T - 2 * is);
        m_surface.LineOn(cx + in / 2, T - is);
        if (in / 2 <= 0) break;
      }
      break;
    case effet::kBendUp:
      m_surface.Arc(x - w, T - is, x + w, T - 3 * is, x, T - is, x + w, T - 2 * is);
      m_surface.LineStep(x + w, T - 2 * is, -5, 0);
      m_surface.LineStepOn(0, 5);
      break;
    case effet::kBendUpDown: {
      const int a = w / 2;
      m_surface.Arc(x - a, T - is, x + a, T - 3 * is, x, T - is, x + a, T - 2 * is);
      m_surface.Arc(x, T, x + w, T - 2 * is, x + w, T - is, x + a, T - 2 * is);
      m_surface.LineStep(x + w, T - is, 0, -5);
      m_surface.LineStepOn(-5, 0);
      break;
    }
    case effet::kBendReturn: relâche(); break;
    case effet::kBendDown:
      m_surface.LineStep(x, T - 2 * is, 0, is);
      relâche();
      break;
    case effet::kLiaison:
      if (suivante) liaison();
      break;
    case effet::kHammerOn:
    case effet::kPullOff:
      if (suivante) {
        liaison();
        drawTextCenter(m_surface, (x + nx) / 2, (c - 3) * is + T,
                       note->bytEffet == effet::kHammerOn ? "H" : "P");
      }
      break;
    case effet::kSlideUp:
      if (suivante)
        m_surface.Line(x + in / 2, (c - 0.75) * is + T, nx - in / 2, (c - 1.25) * is + T);
      break;
    case effet::kSlideDown:
      if (suivante)
        m_surface.Line(x + in / 2, (c - 1.25) * is + T, nx - in / 2, (c - 0.75) * is + T);
      break;
    default: break;
  }
  m_surface.setFontTransparent(m_s.cfgFontTransparent);
}

}  // namespace vt
