// The ruler over the strip (bar numbers and a tick per column, long on the
// quarter notes) and the two pennants of the loop markers.
#include <string>

#include "render/strip_renderer.h"

namespace vt {

void CStripRenderer::drawRègle() {
  constexpr int kHauteur = 30;
  const int largeur = m_surface.ScaleWidth();
  m_surface.setForeColor(m_s.couleurBoutonFace);
  m_surface.setFillColor(m_s.couleurBoutonFace);
  const FillStyle remplissage = m_surface.fillStyle();
  m_surface.setFillStyle(FillStyle::Solid);
  drawScreenRectangle(0, 0, largeur, kHauteur);
  m_surface.setFillStyle(remplissage);
  m_surface.setForeColor(kBlanc);
  m_surface.Line(0, 0, largeur, 0);
  m_surface.setForeColor(kNoir);
  m_surface.Line(0, kHauteur, largeur, kHauteur);
  m_surface.setForeColor(m_s.couleurBoutonOmbre);
  m_surface.Line(0, kHauteur - 1, largeur, kHauteur - 1);

  m_surface.setForeColor(kNoir);
  m_surface.setFont(FontSpec{m_s.policeRègle, 7, false, false});
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  int x = m_s.TAB_VIEW_MARGIN_LEFT;
  for (int m = static_cast<int>(m_doc.m_lngScrollValue);
       m <= m_doc.getMesureLast() && x < largeur; ++m) {
    m_surface.setCurrentX(x + 2);
    m_surface.setCurrentY(10);
    m_surface.Print(std::to_string(m));
    m_surface.LineStep(x, 0, 0, kHauteur);
    const int colonnes = m_doc.getMesureLargeur(m) / s;
    for (int i = 1; i <= colonnes; ++i) {
      const int xt = x + i * m_s.TAB_VIEW_INTER_NOTE + m_s.TAB_VIEW_INTER_MESURE;
      if (((i - 1) * s) % 48 == 0)
        m_surface.LineStep(xt, 10, 0, 20);
      else
        m_surface.LineStep(xt, 20, 0, 10);
    }
    x += m_metrics.largeurMesure(m);
  }
  m_surface.LineStep(x, 0, 0, kHauteur);
}

void CStripRenderer::drawMarqueurs() {
  const int first = static_cast<int>(m_doc.m_lngScrollValue);
  const int dernière = dernièreMesureVisible();
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  m_surface.setForeColor(kNoir);
  const auto fanion = [&](int m, int X, int sens) {
    if (m < first || m > dernière) return;
    const int x = getMesurePixel(m) + wrap16(X * m_s.TAB_VIEW_INTER_NOTE) / s +
                  m_s.TAB_VIEW_INTER_NOTE;
    // Rows one pixel lower and one narrower each: the right angle stands on x.
    for (int k = 0; k < 15; ++k) m_surface.LineStep(x, 2 + k, sens * (15 - k), 0);
  };
  fanion(m_doc.getMarkerStartMesure(), m_doc.getMarkerStartX(), 1);
  fanion(m_doc.getMarkerStopMesure(), m_doc.getMarkerStopX(), -1);
}

}  // namespace vt
