// What the keys write: a fret at the cursor, one or two digits long, an effect,
// a note moved to another string at the same pitch, time opened or closed.
// Each edit keeps an undo snapshot of the track and marks the document; an
// edit of one note repaints its bar only, one that moves later notes the strip.
#include <algorithm>

#include "editor/ftab.h"
#include "render/strip_renderer.h"
#include "render_qt/painter_surface.h"
#include "shell/vt.h"

namespace vt {

namespace {
// The highest fret the keys give on a guitar staff.
constexpr int kCaseMaxClavier = 29;
}  // namespace

void FTab::marqueModifié() {
  doc().modifi = kVrai;
  marqueModifiéTitre();
}

namespace {
// Effects drawn from a note to the next one on its string, which may stand in
// the next bar.
bool relieLaSuivante(byt e) {
  return e == effet::kLiaison || e == effet::kHammerOn || e == effet::kPullOff ||
         e == effet::kSlideUp || e == effet::kSlideDown;
}
}  // namespace

bool FTab::mesureSeule() const {
  const CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  for (int c = 1; c <= nbCordes(); ++c) {
    const int dernière = d.getNoteLast(p, m, c);
    if (dernière > 0 && m < d.getMesureLast() && relieLaSuivante(d.getNoteEffet(p, m, c, dernière)))
      return false;
    const int avant = m > 1 ? d.getNoteLast(p, m - 1, c) : 0;
    if (avant > 0 && dernière > 0 && relieLaSuivante(d.getNoteEffet(p, m - 1, c, avant)))
      return false;
  }
  return true;
}

bool FTab::avantEdition() {
  cacheCurseur(false);
  if (!mesureSeule()) return true;
  m_renderer->effaceCurrentMesure();
  return false;
}

bool FTab::apresEdition(bool plein) {
  if (plein || !mesureSeule()) return true;
  m_renderer->drawCurrentMesure();
  return false;
}

void FTab::key_generic_note(int fret) {
  if (fret < 0 || fret >= kCaseVide) return;
  saisitCase(fret, false);
}

void FTab::saisitCase(int fret, bool chiffre) {
  CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int c = d.CurseurCorde();
  const int x = d.CurseurX();
  const bool insertion = m_vt.booInsert();
  const bool ouvre = insertion && !m_joue;  // the new note pushes later notes away
  const int durée = m_outils.tbGetNoteDurée();

  // Two digits at one place: a 1 or a 2 on a guitar staff, anything below 10
  // on a drum staff, followed by a digit, is one fret.
  int valeur = fret;
  if (chiffre && !insertion) {
    if (const int n = d.searchNote(p, m, c, x); n != 0) {
      const int ancienne = d.getNoteCase(p, m, c, n);
      const bool batterie = d.getStaffType(p) == kStaffBatterie;
      if ((!batterie && (ancienne == 1 || ancienne == 2)) || (batterie && ancienne < 10))
        valeur = ancienne * 10 + fret;
    }
  }

  if (!m_joue) d.storeUndo(true);
  bool plein = ouvre;
  if (ouvre) {
    cacheCurseur(false);
    d.insertSilence(p, m, x, durée);
  } else {
    plein = avantEdition();
  }
  const int n = d.setNoteWhole(p, m, c, x, valeur, durée);
  if (n != 0) {
    d.setNoteAttaque(p, m, c, n, static_cast<byt>(m_outils.getNoteAttaque()));
    d.setNoteVolume(p, m, c, n, static_cast<byt>(m_outils.getNoteVolume()));
    // A typed digit sounds while its key is held; the fretboard sounds its own notes.
    if (chiffre) sonneNote(noteMIDI(p, c, valeur));
  }
  marqueModifié();
  plein = apresEdition(plein);
  if (insertion) plein = avanceAprèsNote(durée) || plein;
  termine(plein);
}

bool FTab::avanceAprèsNote(int durée) {
  CVantoroTablature& d = doc();
  const int s = m_tab.TAB_VIEW_SCALE;
  if (durée <= s) return curseurDroite();
  if (d.CurseurX() + durée + s <= d.getMesureLargeur(d.CurseurMesure())) {
    d.setCurseurX(static_cast<i16>(d.CurseurX() + durée));
    return false;
  }
  return mesureSuivanteOuNouvelle();
}

void FTab::changeCase(int delta) {
  CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int c = d.CurseurCorde();
  const int n = d.searchNote(p, m, c, d.CurseurX());
  if (n == 0) return;
  const int ancienne = d.getNoteCase(p, m, c, n);
  if (ancienne >= kCaseVide) return;
  int nouvelle = ancienne;
  if (delta > 0 && ancienne < kCaseMaxClavier) nouvelle = ancienne + 1;
  if (delta < 0 && ancienne > 0) nouvelle = ancienne - 1;
  if (nouvelle == ancienne) return;
  if (!m_joue) d.storeUndo(true);
  const bool plein = avantEdition();
  d.setNoteCase(p, m, c, n, static_cast<byt>(nouvelle));
  marqueModifié();
  termine(apresEdition(plein));
}

void FTab::déplaceVersCorde(int delta) {
  CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int x = d.CurseurX();
  const int s = d.CurseurCorde();
  const int t = s + delta;
  if (t < 1 || t > nbCordes()) return;
  const int ns = d.searchNote(p, m, s, x);
  if (ns == 0 || d.searchNote(p, m, t, x) != 0) return;
  const tNote ancienne = *d.getNote(p, m, s, ns);
  // The same pitch on the other string; a blank note stays blank.
  int fret = kCaseVide;
  if (ancienne.bytCase < kCaseVide) {
    fret = ancienne.bytCase + d.getGuitareCorde(p, s) - d.getGuitareCorde(p, t);
    if (fret < 0 || fret >= kCaseVide) return;
  }

  d.storeUndo(true);
  const bool plein = avantEdition();
  const int n = d.setNoteWhole(p, m, t, x, fret, ancienne.bytDurée);
  if (n != 0) {
    d.setNoteEffet(p, m, t, n, ancienne.bytEffet);
    d.setNoteAttaque(p, m, t, n, ancienne.bytAttaque);
    d.setNoteVolume(p, m, t, n, ancienne.bytVolume);
    d.deleteNote(p, m, s, d.searchNote(p, m, s, x));
    // The cursor goes with the note, so that the key can move it on.
    d.setCurseurCorde(static_cast<byt>(t));
  }
  marqueModifié();
  termine(apresEdition(plein));
}

void FTab::toucheRetour() {
  CVantoroTablature& d = doc();
  const int s = m_tab.TAB_VIEW_SCALE;
  // Nothing stands before the first column of the first bar.
  if (d.CurseurX() < s && d.CurseurMesure() <= 1) return;
  d.storeUndo(true);
  cacheCurseur(false);
  if (d.CurseurX() < s) {
    const int m = d.CurseurMesure() - 1;
    d.setCurseurMesure(static_cast<i16>(m));
    d.setCurseurX(static_cast<i16>(d.getMesureLargeur(m)));
  }
  // The column before the cursor goes, and what follows closes up.
  d.removeNotes(piste(), d.CurseurMesure(), std::max(0, d.CurseurX() - s), s);
  marqueModifié();
  curseurGauche();
  termine(true);
}

void FTab::toucheInser() {
  CVantoroTablature& d = doc();
  d.storeUndo(true);
  cacheCurseur(false);
  d.insertSilence(piste(), d.CurseurMesure(), d.CurseurX(), m_tab.TAB_VIEW_SCALE);
  marqueModifié();
  termine(true);
}

void FTab::toucheSuppr() {
  CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int c = d.CurseurCorde();
  const int n = d.searchNote(p, m, c, d.CurseurX());
  if (n == 0) return;
  d.storeUndo(true);
  const bool plein = avantEdition();
  d.deleteNote(p, m, c, n);
  marqueModifié();
  termine(apresEdition(plein));
}

void FTab::key_generic_effect(byt bytEffet) {
  CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int c = d.CurseurCorde();
  const int x = d.CurseurX();
  int n = d.searchNote(p, m, c, x);
  // Pressing the key again leaves the effect: it sets, it does not toggle.
  if (n != 0 && d.getNoteEffet(p, m, c, n) == bytEffet) return;
  if (n == 0 && bytEffet == effet::kAucun) return;

  if (!m_joue) d.storeUndo(true);
  bool plein = false;
  if (n == 0) {
    // A blank note carries the effect on an empty place; placing it may
    // shorten the note before it, so the bar is drawn again.
    plein = avantEdition();
    n = d.setNoteWhole(p, m, c, x, kCaseVide, m_outils.tbGetNoteDurée());
    if (n != 0) d.setNoteEffet(p, m, c, n, bytEffet);
    plein = apresEdition(plein);
  } else if (!mesureSeule()) {
    cacheCurseur(false);
    d.setNoteEffet(p, m, c, n, bytEffet);
    plein = true;
  } else {
    // The old effect is painted over in the background, the new one drawn.
    cacheCurseur();
    m_surface->setForeColor(m_tab.cfgBackColor);
    m_surface->setFillColor(m_tab.cfgBackColor);
    m_renderer->drawEffet(p, m, c, n);
    d.setNoteEffet(p, m, c, n, bytEffet);
    m_surface->setForeColor(m_tab.cfgEventColor);
    m_surface->setFillColor(m_tab.cfgEventColor);
    m_surface->setFont(m_tab.policeTablature());
    if (mesureSeule()) {
      m_renderer->drawEffet(p, m, c, n);
    } else {
      plein = true;  // the new effect reaches the next bar
    }
  }
  if (n != 0) marqueModifié();
  termine(plein);
}

void FTab::noteAuCurseurSuitOutils(bool durée, bool attaque, bool volume) {
  CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int c = d.CurseurCorde();
  const int x = d.CurseurX();
  const int n = d.searchNote(p, m, c, x);
  if (n == 0) return;
  const tNote avant = *d.getNote(p, m, c, n);
  const bool change = (durée && avant.bytDurée != m_outils.tbGetNoteDurée()) ||
                      (attaque && avant.bytAttaque != m_outils.getNoteAttaque()) ||
                      (volume && avant.bytVolume != m_outils.getNoteVolume());
  if (!change) return;
  d.storeUndo(true);
  const bool plein = avantEdition();
  int k = n;
  if (durée) {
    // setNoteWhole clears the effect and keeps attack and nuance: all three come back.
    k = d.setNoteWhole(p, m, c, x, avant.bytCase, m_outils.tbGetNoteDurée());
    if (k != 0) {
      d.setNoteEffet(p, m, c, k, avant.bytEffet);
      d.setNoteAttaque(p, m, c, k, avant.bytAttaque);
      d.setNoteVolume(p, m, c, k, avant.bytVolume);
    }
  }
  if (k != 0 && attaque) d.setNoteAttaque(p, m, c, k, static_cast<byt>(m_outils.getNoteAttaque()));
  if (k != 0 && volume) d.setNoteVolume(p, m, c, k, static_cast<byt>(m_outils.getNoteVolume()));
  marqueModifié();
  termine(apresEdition(plein));
}

}  // namespace vt
