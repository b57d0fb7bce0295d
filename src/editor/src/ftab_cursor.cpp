// The cursor of the editor: its moves by column, string and bar, the view that
// follows it, and what follows every move (status bar, fretboard, menus).
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "editor/ftab.h"
#include "render/strip_renderer.h"
#include "shell/manche.h"
#include "shell/vt.h"

namespace vt {

namespace {
// A selection over more than the cursor's cell, which may reach other bars.
bool sélectionÉtendue(const CVantoroTablature& d) {
  return d.intSelStartMesure != 0 && d.intSelStopMesure != 0 &&
         (d.intSelStartMesure != d.intSelStopMesure || d.intSelStartX != d.intSelStopX ||
          d.bytSelStartCorde != d.bytSelStopCorde);
}
}  // namespace

void FTab::cacheCurseur(bool restaure) {
  salitMesureCurseur();
  if (sélectionÉtendue(doc())) m_toutSale = true;
  m_renderer->curEfface();
  m_renderer->selEfface();
  if (restaure) {
    m_renderer->effaceCurrentMesure();
    m_renderer->drawCurrentMesure();
  }
}

void FTab::termine(bool plein, bool suivre) {
  // The selection of one cell that a click makes is not drawn: it ends when
  // the cursor leaves that cell, so that a copy never takes an unseen note.
  CVantoroTablature& d = doc();
  if (d.intSelStartMesure != 0 && !sélectionÉtendue(d) &&
      (d.intSelStartMesure != d.CurseurMesure() || d.intSelStartX != d.CurseurX() ||
       d.bytSelStartCorde != d.CurseurCorde())) {
    d.intSelStartMesure = d.intSelStartX = d.intSelStopMesure = d.intSelStopX = 0;
    d.bytSelStartCorde = d.bytSelStopCorde = 0;
  }
  if (suivre && suisCurseur()) plein = true;
  if (plein) {
    limitesDéfilement();
    drawInLine();  // ends with the cursor and the selection shown
  } else {
    salitMesureCurseur();
    if (sélectionÉtendue(doc())) m_toutSale = true;
    m_renderer->curAffiche();
    m_renderer->selAffiche();
  }
  curseurDéplacé();
  disponibilités();
  montreImage();
}

void FTab::curseurDéplacé() {
  // In a short window the strip scrolls so that the cursor's string shows.
  m_zoneBande->ensureVisible(0, m_renderer->metrics().cordeY(doc().CurseurCorde()), 0,
                             m_tab.TAB_VIEW_INTER_STRINGS * 2);
  m_vt.setStatusPosition(doc().CurseurMesure(), doc().CurseurX());
  mancheUpdate();
  tbUpdate();
}

bool FTab::suisCurseur() {
  CVantoroTablature& d = doc();
  const int premier = static_cast<int>(d.m_lngScrollValue);
  const int m = d.CurseurMesure();
  if (m < premier) {
    setPremièreMesure(m);
    return true;
  }
  const int n = std::max<int>(1, m_renderer->getMesureOnScreen(premier));
  if (m < premier + n) return false;
  // Just past the right edge: the view moves on by as few bars as show it;
  // further away, the cursor's bar becomes the first shown.
  int nouveau = m;
  if (m == premier + n) {
    for (int f = premier + 1; f < m; ++f) {
      if (m < f + std::max<int>(1, m_renderer->getMesureOnScreen(f))) {
        nouveau = f;
        break;
      }
    }
  }
  setPremièreMesure(nouveau);
  return true;
}

void FTab::setPremièreMesure(int mesure) {
  doc().m_lngScrollValue = std::clamp(mesure, 1, std::max(1, doc().getMesureLast()));
  limitesDéfilement();
}

void FTab::allerMesure(int mesure, int x) {
  if (!doc().hasMesure(mesure)) return;
  cacheCurseur();
  doc().setCurseurMesure(static_cast<i16>(mesure));
  doc().setCurseurX(static_cast<i16>(x));
  termine(false);
}

void FTab::curseurGauche() {
  CVantoroTablature& d = doc();
  const int s = m_tab.TAB_VIEW_SCALE;
  if (d.CurseurX() > 0) {
    d.setCurseurX(static_cast<i16>(std::max(0, d.CurseurX() - s)));
  } else if (d.CurseurMesure() > 1) {
    // The last column of the previous bar.
    const int m = d.CurseurMesure() - 1;
    d.setCurseurMesure(static_cast<i16>(m));
    d.setCurseurX(static_cast<i16>(std::max(0, (d.getMesureLargeur(m) / s - 1) * s)));
  }
}

bool FTab::curseurDroite() {
  CVantoroTablature& d = doc();
  const int s = m_tab.TAB_VIEW_SCALE;
  if (d.CurseurX() + 2 * s > d.getMesureLargeur(d.CurseurMesure()))
    return mesureSuivanteOuNouvelle();
  d.setCurseurX(static_cast<i16>(d.CurseurX() + s));
  return false;
}

bool FTab::mesureSuivanteOuNouvelle() {
  CVantoroTablature& d = doc();
  bool ajout = false;
  if (d.CurseurMesure() >= d.getMesureLast()) {
    if (!d.addMesure()) return false;  // the document holds as many bars as it can
    marqueModifié();
    ajout = true;
  }
  d.setCurseurMesure(static_cast<i16>(d.CurseurMesure() + 1));
  d.setCurseurX(0);
  return ajout;
}

void FTab::curseurCorde(int delta) {
  const int c = std::clamp(doc().CurseurCorde() + delta, 1, std::max(1, nbCordes()));
  doc().setCurseurCorde(static_cast<byt>(c));
}

void FTab::mesureVoisine(int delta) {
  CVantoroTablature& d = doc();
  const int m = d.CurseurMesure() + delta;
  if (!d.hasMesure(m)) return;
  d.setCurseurMesure(static_cast<i16>(m));
  d.setCurseurX(0);
}

void FTab::changeVue(int mode, bool triolet) {
  cacheCurseur(false);
  m_tab.setViewMode(mode, triolet);
  doc().setCurseurX(static_cast<i16>(snapCurseurX(doc().CurseurX(), m_tab.TAB_VIEW_SCALE)));
  marquesVue();
  termine(true);
}

void FTab::selClear() {
  CVantoroTablature& d = doc();
  const bool étendue = sélectionÉtendue(d);
  if (d.intSelStartMesure != 0) m_toutSale = true;
  m_renderer->selEfface();
  d.intSelStartMesure = d.intSelStartX = d.intSelStopMesure = d.intSelStopX = 0;
  d.bytSelStartCorde = d.bytSelStopCorde = 0;
  // A selection over several cells tinted the ink of bars the cursor's repaint
  // does not reach.
  if (étendue) drawInLine();
  montreImage();
}

void FTab::mancheUpdate() {
  const int p = piste();
  if (m_vt.settings().setMancheVisible == 0 || doc().getStaffType(p) == kStaffBatterie) return;
  m_vt.setMancheContenu(4);
  m_vt.clearManche();
  const CVantoroTablature& d = doc();
  for (int c = 1; c <= nbCordes(); ++c) {
    const int n = d.searchNote(p, d.CurseurMesure(), c, d.CurseurX());
    if (n == 0) continue;
    const int fret = d.getNoteCase(p, d.CurseurMesure(), c, n);
    if (fret < kCaseVide) m_vt.drawRond(fret, c, kRondJaune);
  }
}

void FTab::tbUpdate() {
  const CVantoroTablature& d = doc();
  const tNote* note =
      d.getNote(piste(), d.CurseurMesure(), d.CurseurCorde(),
                d.searchNote(piste(), d.CurseurMesure(), d.CurseurCorde(), d.CurseurX()));
  if (note != nullptr) {
    m_outils.suisNote(*note);
  } else {
    m_outils.effet = effet::kAucun;
  }
  marquesOutils();
  tbUpdateGeneral();
}

}  // namespace vt
