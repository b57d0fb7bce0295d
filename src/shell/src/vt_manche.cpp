// The fretboard as the main window runs it: its look from the settings, what
// the tools show on it, and the notes the mouse plays.
#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>

#include "shell/manche.h"
#include "shell/skin.h"
#include "shell/vt.h"

namespace vt {

namespace {
constexpr int kToutesNotesOff = 123;
}  // namespace

void VT::load_picManche_picture() {
  AspectManche a = m_manche->aspect();
  a.fond = m_settings.setManche == 0 ? QImage(skinFile(skin::kMancheFond)) : QImage();
  m_manche->setAspect(a);
}

void VT::updateManche() {
  AspectManche a = m_manche->aspect();
  a.setManche = m_settings.setManche;
  a.gaucher = m_settings.setLeftHanded != 0;
  a.nbrCordes = std::clamp<int>(m_guitare.nbrCordes, 1, 7);
  m_manche->setAspect(a);
  m_manche->updateManche();
}

void VT::clearManche() {
  m_manche->clearManche();
}

void VT::drawRond(int c, int s, int couleur) {
  m_manche->drawRond(c, s, couleur);
}

void VT::printManche(int c, int s, const QString& texte) {
  m_manche->printManche(c, s, texte);
}

void VT::drawMancheContenu() {
  const QString* nom = nullptr;
  switch (m_mancheContenu) {
    case 0:
      nom = &fen::FAccords;
      break;
    case 1:
      nom = &fen::FGammes;
      break;
    case 2:
      nom = &fen::FAccordeur;
      break;
    case 3:
      nom = &fen::FHarmony;
      break;
    default:
      return;  // the editor draws its notes itself
  }
  if (auto* f = m_fenetres.interface<FenetreVT>(*nom)) f->drawMancheContenu();
}

void VT::setMancheVisible(bool visible) {
  m_settings.setMancheVisible = toVbool(visible);
  if (QAction* b = boutonBarre(QStringLiteral("manche"))) b->setChecked(visible);
  m_manche->setVisible(visible);
  if (visible) {
    updateManche();
    drawMancheContenu();
  }
}

FenetreTablature* VT::éditeurActif() const {
  QWidget* tab = m_fenetres.fenetre(fen::FTab);
  if (!tab) return nullptr;
  const QMdiSubWindow* active = m_mdi->activeSubWindow();
  if (!active || active->widget() != tab) return nullptr;
  return dynamic_cast<FenetreTablature*>(tab);
}

void VT::joueNote(int note) {
  if (m_dernièreNote >= 0) m_son->midiNoteOffGlobal(m_dernièreNote);
  m_dernièreNote = note;
  m_son->midiNoteOnGlobal(note);
}

void VT::noteMidiEntrante(int corde, int note, bool enfoncee) {
  // The editor's recording takes every note from here.
  emit noteMidiRecue(corde, note, enfoncee);
  if (auto* tab = m_fenetres.interface<FenetreTablature>(fen::FTab)) {
    // A note being recorded is written, neither sounded nor heard by the tools.
    if (tab->enregistre()) return;
    if (enfoncee) {
      tab->TabMIDINoteOn(note);
    } else {
      tab->TabMIDINoteOff(note);
    }
  } else if (enfoncee) {
    m_son->midiNoteOnGlobal(note);
  } else {
    m_son->midiNoteOffGlobal(note);
  }
  // The harmonizer hears what is played on the instrument.
  if (enfoncee)
    if (auto* h = m_fenetres.interface<FenetreVT>(fen::FHarmony)) h->receiveNote(note);
}

void VT::picManche_MouseDown(int c, int s, Qt::MouseButton bouton) {
  if (s < 1 || s > m_guitare.nbrCordes) return;
  const int note = m_guitare.corde[static_cast<std::size_t>(s)] + c;
  if (note < 0 || note > 127) return;
  m_noteSouris = note;
  if (FenetreTablature* tab = éditeurActif()) {
    // In the editor a press moves the cursor to the string and, with the left
    // button, enters the fret; during playback it does nothing.
    if (!tab->isPlaying()) {
      m_mancheContenu = 4;
      for (int garde = 0; tab->CurseurCorde() != s && garde < 2 * 7; ++garde)
        tab->picTab_KeyDown(tab->CurseurCorde() < s ? Qt::Key_Down : Qt::Key_Up);
      if (bouton == Qt::LeftButton) {
        tab->key_generic_note(c);
        if (m_dernièreNote >= 0) tab->TabMIDINoteOff(m_dernièreNote);
        tab->TabMIDINoteOn(note);
        m_dernièreNote = note;
      }
      tab->refreshPicture();
    }
  } else {
    joueNote(note);
  }
  if (m_mancheContenu == 3) {
    if (auto* h = m_fenetres.interface<FenetreVT>(fen::FHarmony)) h->receiveNote(note);
  }
}

void VT::picManche_MouseMove(int c, int s, Qt::MouseButtons boutons) {
  FenetreTablature* tab = éditeurActif();
  if (c != m_survolCase || s != m_survolCorde) {
    if (tab) {
      tab->mancheUpdate();
    } else {
      clearManche();
    }
    drawMancheContenu();
    drawRond(c, s, kRondRouge);
    m_survolCase = c;
    m_survolCorde = s;
  }
  if (s < 1 || s > m_guitare.nbrCordes) return;
  const int note = m_guitare.corde[static_cast<std::size_t>(s)] + c;
  if (note < 0 || note > 127) return;
  m_noteSouris = note;
  // Dragging with the left button plays a glissando.
  if (!(boutons & Qt::LeftButton) || note == m_dernièreNote) return;
  if (tab) {
    if (tab->isPlaying()) return;
    if (m_dernièreNote >= 0) tab->TabMIDINoteOff(m_dernièreNote);
    tab->TabMIDINoteOn(note);
    m_dernièreNote = note;
  } else {
    joueNote(note);
  }
}

void VT::picManche_MouseUp() {
  if (FenetreTablature* tab = éditeurActif(); tab && !tab->isPlaying()) tab->picTab_KeyUp();
  m_son->midiController(kToutesNotesOff, 0, m_settings.setMIDIchannel);
}

}  // namespace vt
