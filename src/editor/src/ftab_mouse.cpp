// The mouse on the strip: a press places the cursor on the bar, the column and
// the string under it and collapses the selection there; dragging with the
// left button stretches the selection; the right button on a note opens the
// pop-up menu. Nothing of this while the piece plays.
#include <QMenu>

#include "editor/ftab.h"
#include "ftab_strip.h"
#include "render/strip_renderer.h"
#include "shell/vt.h"

namespace vt {

void FTab::placeCurseurSouris(double x, double y) {
  CVantoroTablature& d = doc();
  const StripMetrics& g = m_renderer->metrics();
  d.setCurseurMesure(static_cast<i16>(g.mesureFromX(x)));
  // The tick is found in the cursor's bar, so the bar is set first.
  d.setCurseurX(static_cast<i16>(g.tickFromX(x)));
  d.setCurseurCorde(static_cast<byt>(g.cordeFromY(y, nbCordes())));
}

void FTab::picTab_MouseDown(double x, double y, Qt::MouseButton bouton) {
  if (m_joue || (bouton != Qt::LeftButton && bouton != Qt::RightButton)) return;
  m_caseTapée.reset();
  CVantoroTablature& d = doc();
  // The bar under the old cursor is drawn again, which clears what the raster
  // modes left on its ink; a selection over several cells reached further.
  const bool étendue = d.intSelStartMesure != 0 &&
                       (d.intSelStartMesure != d.intSelStopMesure ||
                        d.intSelStartX != d.intSelStopX || d.bytSelStartCorde != d.bytSelStopCorde);
  cacheCurseur(!étendue);
  placeCurseurSouris(x, y);
  d.intSelStartMesure = d.intSelStopMesure = d.CurseurMesure();
  d.intSelStartX = d.intSelStopX = d.CurseurX();
  d.bytSelStartCorde = d.bytSelStopCorde = d.CurseurCorde();
  m_glisse = bouton == Qt::LeftButton;
  termine(étendue, false);
}

void FTab::picTab_MouseMove(double x, double y, Qt::MouseButtons boutons) {
  if (m_joue || !m_glisse || !boutons.testFlag(Qt::LeftButton)) return;
  CVantoroTablature& d = doc();
  const i16 avantMesure = d.CurseurMesure();
  const i16 avantX = d.CurseurX();
  const byt avantCorde = d.CurseurCorde();
  placeCurseurSouris(x, y);
  const i16 mesure = d.CurseurMesure();
  const i16 tick = d.CurseurX();
  const byt corde = d.CurseurCorde();
  // Only a move to another cell changes anything.
  d.setCurseurMesure(avantMesure);
  d.setCurseurX(avantX);
  d.setCurseurCorde(avantCorde);
  if (mesure == avantMesure && tick == avantX && corde == avantCorde) return;

  // The bar is not drawn again at every step of the drag: the release repaints.
  cacheCurseur(false);
  d.setCurseurMesure(mesure);
  d.setCurseurX(tick);
  d.setCurseurCorde(corde);
  d.intSelStopMesure = mesure;
  d.intSelStopX = tick;
  d.bytSelStopCorde = corde;
  // Dragging over bars scrolls nothing.
  termine(false, false);
}

void FTab::picTab_MouseUp(double x, double y, Qt::MouseButton bouton) {
  // The selection's box left tints where it shrank while dragging.
  const CVantoroTablature& sel = doc();
  if (m_glisse && !m_joue &&
      (sel.intSelStartMesure != sel.intSelStopMesure || sel.intSelStartX != sel.intSelStopX ||
       sel.bytSelStartCorde != sel.bytSelStopCorde))
    refreshPicture();
  m_glisse = false;
  if (m_joue || bouton != Qt::RightButton) return;
  const CVantoroTablature& d = doc();
  if (d.searchNote(piste(), d.CurseurMesure(), d.CurseurCorde(), d.CurseurX()) == 0) return;
  disponibilités();
  m_mnuTabPopUp->popup(m_picTab->mapToGlobal(QPointF(x, y)).toPoint());
}

}  // namespace vt
