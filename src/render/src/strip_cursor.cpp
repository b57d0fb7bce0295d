// The cursor and the selection, shown and hidden by raster modes over whatever
// is there, and the partial repaint of the cursor's bar around a one-note edit.
#include <cmath>

#include "render/strip_renderer.h"

namespace vt {

void CStripRenderer::curAffiche() {
  m_surface.setDrawMode(DrawMode::MaskPen);
  curDraw();
  m_surface.setDrawMode(DrawMode::CopyPen);
}

void CStripRenderer::curEfface() {
  m_surface.setDrawMode(DrawMode::MergeNotPen);
  curDraw();
  m_surface.setDrawMode(DrawMode::CopyPen);
}

void CStripRenderer::selAffiche() {
  m_surface.setDrawMode(DrawMode::MaskPen);
  selDraw();
  m_surface.setDrawMode(DrawMode::CopyPen);
}

void CStripRenderer::selEfface() {
  m_surface.setDrawMode(DrawMode::MergeNotPen);
  selDraw();
  m_surface.setDrawMode(DrawMode::CopyPen);
}

void CStripRenderer::curDraw() {
  const int in = m_s.TAB_VIEW_INTER_NOTE;
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  m_surface.setForeColor(m_s.cfgCurseurColor);
  m_surface.setFillColor(m_s.cfgCurseurColor);
  const int x = (m_doc.CurseurX() / s + 1) * in + getMesurePixel(m_doc.CurseurMesure());
  m_surface.Line(x, 31, x, m_surface.ScaleHeight());
  // A box IN - 1 wide and IS high around the cell, both corners included.
  const int gauche = x - in / 2 + 1;
  const int haut = (m_doc.CurseurCorde() - 1) * is - is / 2 + m_metrics.top();
  m_surface.Line(gauche, haut, gauche + in - 2, haut + is - 1, LineForm::FilledBox);
  if (onCurseurDessiné) onCurseurDessiné();
}

void CStripRenderer::selDraw() {
  if (m_doc.intSelStartMesure == 0 || m_doc.intSelStopMesure == 0) return;
  // A selection of one cell (a click) is marked by the cursor alone: a box of
  // its own would look like a second cursor once the cursor moves on.
  if (m_doc.intSelStartMesure == m_doc.intSelStopMesure &&
      m_doc.intSelStartX == m_doc.intSelStopX && m_doc.bytSelStartCorde == m_doc.bytSelStopCorde)
    return;
  const int in = m_s.TAB_VIEW_INTER_NOTE;
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  const int im = m_s.TAB_VIEW_INTER_MESURE;
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  const int first = static_cast<int>(m_doc.m_lngScrollValue);
  const int dernière = first + getMesureOnScreen(first);

  int gauche = 0;
  if (m_doc.intSelStartMesure < first)
    gauche = 2 * im;
  else if (m_doc.intSelStartMesure > dernière)
    return;
  else
    gauche = (m_doc.intSelStartX / s + 1) * in + getMesurePixel(m_doc.intSelStartMesure);
  int droite = 2 * im;
  if (m_doc.intSelStopMesure >= first)
    droite = (m_doc.intSelStopX / s + 1) * in + getMesurePixel(m_doc.intSelStopMesure);

  int haut = m_metrics.cordeY(m_doc.bytSelStartCorde);
  int bas = m_metrics.cordeY(m_doc.bytSelStopCorde);
  if (haut > bas) std::swap(haut, bas);
  if (gauche > droite) std::swap(gauche, droite);
  haut -= is / 2;
  bas += is / 2 + 1;
  gauche -= in / 2 - 1;
  droite += in / 2;
  m_surface.setForeColor(m_s.cfgCurseurColor);
  m_surface.setFillColor(m_s.cfgCurseurColor);
  m_surface.Line(gauche, haut, droite, bas, LineForm::FilledBox);
}

void CStripRenderer::effaceCurrentMesure() {
  const int p = m_doc.CurseurPiste();
  const int m = m_doc.CurseurMesure();
  if (!m_doc.hasPiste(p) || !m_doc.hasMesure(m)) return;
  portéeCalculeAltérations(m);
  m_surface.setFontTransparent(m_s.cfgFontTransparent);
  m_surface.setForeColor(m_s.cfgBackColor);
  m_surface.setFillColor(m_s.cfgBackColor);
  m_surface.setBackColor(m_s.cfgBackColor);
  m_surface.setFont(m_s.policeTablature());
  drawContenuMesure(p, m);
  m_surface.setFontTransparent(true);

  if (m_s.cfgAffichePortée) {
    // The staff's signs were blitted: they go under a white box, whatever the background.
    const int h = m_s.TAB_VIEW_INTER_PORTEE;
    const FillStyle remplissage = m_surface.fillStyle();
    m_surface.setFillColor(kBlanc);
    m_surface.setFillStyle(FillStyle::Solid);
    drawScreenRectangle(getMesurePixel(m), m_metrics.porteeHaut() - 21 * h,
                        m_metrics.longueur(m_doc.getMesureLargeur(m)) +
                            m_s.TAB_VIEW_INTER_NOTE / 2,
                        40 * h);
    m_surface.setFillStyle(remplissage);
    m_surface.setFillColor(m_s.cfgBackColor);
  }
  const int xBarre = m_metrics.barreGaucheX(m);
  drawAccords(p, m, xBarre);
  drawTempos(m, xBarre, m_s.cfgBackColor);
  drawTextes(p, m, xBarre);
}

void CStripRenderer::drawCurrentMesure() {
  const int p = m_doc.CurseurPiste();
  const int m = m_doc.CurseurMesure();
  if (!m_doc.hasPiste(p) || !m_doc.hasMesure(m)) return;
  const int in = m_s.TAB_VIEW_INTER_NOTE;
  const int s = m_s.TAB_VIEW_SCALE > 0 ? m_s.TAB_VIEW_SCALE : 1;
  m_surface.setForeColor(m_s.cfgLineColor);
  m_surface.setFillColor(m_s.cfgLineColor);

  // The strings only around the cursor's column: one edit changes only that column.
  const int x = static_cast<int>(
      std::nearbyint((m_doc.CurseurX() / s + 0.5) * in + getMesurePixel(m)));
  for (int c = 1; c <= cordes(p); ++c) drawScreenLine(x, m_metrics.cordeY(c), in + 2, 0);
  if (m_s.cfgAffichePortée) {
    const int longueur = m_metrics.longueur(m_doc.getMesureLargeur(m)) + 1 + in / 2;
    for (int k = 0; k <= 4; ++k)
      drawScreenLine(getMesurePixel(m), m_metrics.porteeLigneY(k), longueur, 0);
  }

  m_surface.setFontTransparent(m_s.cfgFontTransparent);
  m_surface.setForeColor(m_s.cfgEventColor);
  m_surface.setFillColor(m_s.cfgEventColor);
  m_surface.setFont(m_s.policeTablature());
  drawContenuMesure(p, m);
  m_surface.setFontTransparent(true);
  if (m_s.cfgAffichePortée) {
    m_surface.setForeColor(kNoir);
    drawPortéeMesure(p, m);
  }

  m_surface.setForeColor(m_s.cfgLineColor);
  m_surface.setFillColor(m_s.cfgLineColor);
  m_surface.setFont(m_s.policeTablature());
  const int xBarre = m_metrics.barreGaucheX(m);
  drawAccords(p, m, xBarre);
  drawTempos(m, xBarre, kRouge);
  drawTextes(p, m, xBarre);
}

}  // namespace vt
