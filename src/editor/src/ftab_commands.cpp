// The commands behind the menus, each a dispatcher on the menu's index, and the
// document's dialogs seen from the editor.
#include <QAction>
#include <algorithm>
#include <array>

#include "editor/ftab.h"
#include "render/strip_renderer.h"
#include "shell/vt.h"

namespace vt {

namespace {
// The effects of the Effects menu, in its order; the last entry clears.
constexpr std::array<byt, 13> kEffetsMenu{
    effet::kHammerOn, effet::kPullOff,    effet::kSlideUp,    effet::kSlideDown, effet::kVibrato,
    effet::kBendUp,   effet::kBendUpDown, effet::kBendReturn, effet::kBendDown,  effet::kTremolo,
    effet::kTrill,    effet::kLiaison,    effet::kAucun};

// The view mode whose grid matches a rhythm: quarter columns for the long notes.
int vuePourRythme(int rythme) {
  return rythme <= 2 ? 1 : rythme - 1;
}
}  // namespace

void FTab::mnuTabEdit(int index) {
  if (index < 0 || index >= 20) return;
  // Every edit command stops the piece first.
  TimerMIDIStop(true);
  CVantoroTablature& d = doc();
  switch (index) {
    case 0:
    case 1: {
      if ((index == 0 ? d.getUndoDepth() : d.getRedoDepth()) == 0) return;
      cacheCurseur(false);
      const bool autrePiste = index == 0 ? d.makeUndo() : d.makeRedo();
      d.setCurseurCorde(static_cast<byt>(std::clamp<int>(d.CurseurCorde(), 1, nbCordes())));
      marqueModifié();
      if (autrePiste) {
        tbPistesUpdate();
        updateGlobalGuitar();
      }
      termine(true);
      return;
    }
    case 13:
      dialogue(DialogueTab::Proprietes);
      return;
    case 15:
      dialogue(DialogueTab::Transpose);
      return;
    case 16:
      dialogue(DialogueTab::Signature);
      return;
    case 17:
      dialogue(DialogueTab::Tonalite);
      return;
    case 18:
      dialogue(DialogueTab::BarresMesure);
      return;
    case 19:
      dialogue(DialogueTab::Tempo);
      return;
    case 3:
    case 4:
    case 5:
    case 7:
    case 8:
    case 9:
    case 10:
    case 11:
      commandePressePapier(index);
      return;
    default:
      return;
  }
}

void FTab::commandePressePapier(int index) {
  CVantoroTablature& d = doc();
  // The bar commands ask for their bars first.
  static constexpr std::array<int, 12> kMode{0, 0, 0, 0, 0, 0, 0, 3, 2, 0, 1, 4};
  PositionsMesures positions;
  const int mode = kMode[static_cast<std::size_t>(index)];
  if (mode != 0) {
    cacheCurseur();
    positions.première = d.CurseurMesure();
    if (!demandeMesures(mode, positions)) {
      termine(false);
      return;
    }
  }
  cacheCurseur(false);
  Changement c;
  switch (index) {
    case 3:
      c = m_pressePapierNotes.couper(d);
      break;
    case 4:
      m_pressePapierNotes.copier(d);
      break;
    case 5:
      c = m_pressePapierNotes.coller(d);
      break;
    case 7:
      c = m_pressePapierMesures.couper(d, positions);
      break;
    case 8:
      m_pressePapierMesures.copier(d, positions);
      break;
    case 9:
      c = m_pressePapierMesures.coller(d);
      break;
    case 10:
      c = insèreMesures(d, positions);
      break;
    case 11:
      c = supprimeMesures(d, positions);
      break;
    default:
      break;
  }
  // Bars gone from every track may have taken the selection with them.
  if (c.longueurChangée && (index == 7 || index == 11)) selClear();
  if (c.modifié) marqueModifié();
  if (d.m_lngScrollValue > d.getMesureLast()) d.m_lngScrollValue = d.getMesureLast();
  termine(true);
}

void FTab::mnuTabDisplay(int index) {
  Settings& s = m_vt.settings();
  switch (index) {
    case 0:
    case 1:
    case 2:
    case 3:
      changeVue(index + 1, m_tab.viewModeTriolet);
      return;
    case 4:
      changeVue(m_tab.viewMode, !m_tab.viewModeTriolet);
      return;
    case 6:
      s.cfgAffichePortée = toVbool(s.cfgAffichePortée == 0);
      marquesVue();
      cacheCurseur(false);
      termine(true);
      return;
    case 7:
      s.cfgTabSynchronise = toVbool(s.cfgTabSynchronise == 0);
      marquesVue();
      return;
    case 10:
      refreshPicture();
      return;
    default:
      return;
  }
}

void FTab::mnuTabEffet(int index) {
  if (index < 0 || index >= static_cast<int>(kEffetsMenu.size())) return;
  key_generic_effect(kEffetsMenu[static_cast<std::size_t>(index)]);
  marquesOutils();
}

void FTab::mnuTabTool(int index) {
  if (index == 4) dialogue(DialogueTab::Texte);
  if (index == 5) dialogue(DialogueTab::Accord);
  // The chord dictionary, whose To tab button sends its fingering to the cursor.
  if (index == 6 && !m_joue) m_vt.montreFenetre(fen::FAccords);
}

void FTab::mnuTabToolRythme(int index) {
  if (index >= 0 && index < static_cast<int>(kDuréesRythme.size())) {
    m_outils.rythme = index;
  } else if (index == 7) {
    m_outils.pointée = !m_outils.pointée;
  } else if (index == 8) {
    m_outils.triolet = !m_outils.triolet;
  } else {
    return;
  }
  // The grid follows the chosen rhythm. Moving the view shows the note under
  // the cursor as it is; the choice just made is what the note takes next.
  if (m_vt.settings().cfgTabSynchronise != 0 && index != 7) {
    const int mode = vuePourRythme(m_outils.rythme);
    if (mode != m_tab.viewMode || m_outils.triolet != m_tab.viewModeTriolet) {
      const EtatOutils choisi = m_outils;
      changeVue(mode, m_outils.triolet);
      m_outils = choisi;
    }
  }
  marquesOutils();
  noteAuCurseurSuitOutils(true, false, false);
}

void FTab::mnuTabToolAttaque(int index) {
  if (index < 0 || index >= kNbAttaques) return;
  m_outils.attaque = attaqueDuMenu(index);
  marquesOutils();
  noteAuCurseurSuitOutils(false, true, false);
}

void FTab::mnuTabToolVolume(int index) {
  if (index < 0 || index >= kNbNuances) return;
  m_outils.nuance = index + 1;
  marquesOutils();
  noteAuCurseurSuitOutils(false, false, true);
}

void FTab::mnuTabPopUp(int index) {
  switch (index) {
    case 0:
      déplaceVersCorde(-1);
      return;
    case 1:
      déplaceVersCorde(1);
      return;
    case 3:
    case 4: {
      CVantoroTablature& d = doc();
      cacheCurseur(false);
      if (index == 3) {
        d.setMarqueurStart(d.CurseurMesure(), d.CurseurX());
      } else {
        d.setMarqueurStop(d.CurseurMesure(), d.CurseurX());
      }
      marqueModifié();
      termine(true);
      return;
    }
    default:
      return;
  }
}

void FTab::setOuvreDialogue(std::function<bool(DialogueTab)> ouvre,
                            std::vector<DialogueTab> disponibles) {
  m_ouvreDialogue = std::move(ouvre);
  m_dialogues = m_ouvreDialogue ? std::move(disponibles) : std::vector<DialogueTab>{};
  disponibilités();
}

bool FTab::dialogueDisponible(DialogueTab d) const {
  return std::find(m_dialogues.begin(), m_dialogues.end(), d) != m_dialogues.end();
}

void FTab::dialogue(DialogueTab quoi) {
  if (!dialogueDisponible(quoi) || m_joue) return;
  arrêteNotes();
  CVantoroTablature& d = doc();
  const CVantoroTablature avant = d;
  if (!m_ouvreDialogue(quoi) || d == avant) return;

  // A dialog that changed the cursor's track without keeping a snapshot gets
  // one now, taken from the copy made before it opened.
  const int p = avant.CurseurPiste();
  if (d.undoStack() == avant.undoStack() && d.getPisteLast() == avant.getPisteLast() &&
      d.hasPiste(p) && !(d.piste(p) == avant.piste(p))) {
    tPiste après = std::move(d.piste(p));
    d.piste(p) = avant.piste(p);
    const byt curseur = d.CurseurPiste();
    d.setCurseurPiste(static_cast<byt>(p));
    d.storeUndo(true);
    d.setCurseurPiste(curseur);
    d.piste(p) = std::move(après);
  }
  marqueModifié();

  // The cursor stays inside what the dialog left.
  if (!d.hasPiste(d.CurseurPiste())) d.setCurseurPiste(1);
  if (!d.hasMesure(d.CurseurMesure()))
    d.setCurseurMesure(static_cast<i16>(std::max(1, d.getMesureLast())));
  if (d.CurseurX() >= d.getMesureLargeur(d.CurseurMesure())) d.setCurseurX(0);
  d.setCurseurCorde(static_cast<byt>(std::clamp<int>(d.CurseurCorde(), 1, nbCordes())));
  if (d.m_lngScrollValue > d.getMesureLast()) d.m_lngScrollValue = d.getMesureLast();
  if (quoi == DialogueTab::Proprietes || quoi == DialogueTab::ProprietesPiste) {
    tbPistesUpdate();
    if (d.getStaffType(d.CurseurPiste()) != kStaffBatterie) updateGlobalGuitar();
  }
  // The whole strip is drawn again, without hiding a cursor the dialog may have moved.
  termine(true);
}

}  // namespace vt
