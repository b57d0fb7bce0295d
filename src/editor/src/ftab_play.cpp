// Playback from the editor: the play commands and their buttons, the screen
// timer that moves the cursor with the player, the fretboard showing what
// sounds, the stop that puts the cursor back on the grid, and the recording
// of the MIDI input at the cursor.
#include "ftab_play.h"

#include <QAction>
#include <algorithm>

#include "editor/ftab.h"
#include "player/play_timing.h"
#include "player/player.h"
#include "render/strip_renderer.h"
#include "shell/manche.h"
#include "shell/vt.h"

namespace vt {

namespace {
const QString kBarre = QStringLiteral("tbToolbar");

// The player's answers count by their low 16 bits, signed.
int bas16(std::int32_t v) {
  return static_cast<i16>(static_cast<u16>(v & 0xFFFF));
}

// A duration the player gives for a string whose display stays as it is.
constexpr int kDuréeInchangée = 32767;

}  // namespace

OptionsJeu optionsJeu(const Settings& s) {
  OptionsJeu o;
  o.setMIDIPitchDemiTon = s.setMIDIPitchDemiTon;
  o.setMétronomeMIDINote1 = s.setMétronomeMIDINote1;
  o.setMétronomeMIDICanal10 = s.setMétronomeMIDICanal10;
  o.setMIDIchannel = s.setMIDIchannel;
  o.setMIDIvolume = s.setMIDIvolume;
  o.setMIDIEffet1Ton = s.setMIDIEffet1Ton;
  o.setMIDIPitchBendRange = s.setMIDIPitchBendRange;
  return o;
}

// ---- The player library ----------------------------------------------------------

void JoueurTab::start(const CVantoroTablature& doc, PlayArrays& tableaux, const OptionsJeu& options,
                      const DemandeJeu& demande) {
  playStart(doc, tableaux, options, demande);
}
void JoueurTab::stop() {
  playStop();
}
std::int32_t JoueurTab::x() {
  return GetPlayTabX();
}
std::int32_t JoueurTab::mesure() {
  return GetPlayTabMesure();
}
std::int32_t JoueurTab::renvoi() {
  return GetPlayTabRenvoiHasOccured();
}
std::int32_t JoueurTab::note(std::int16_t corde) {
  return GetMIDINote(corde);
}
std::int32_t JoueurTab::durée(std::int16_t corde) {
  return GetMIDINoteDuree(corde);
}
void JoueurTab::piste(std::int16_t p) {
  SetPlayTabPiste(p);
}

LectureTab::LectureTab() : joueur(std::make_unique<JoueurTab>()) {
  tmrGFX.setTimerType(Qt::PreciseTimer);
  notesMontrées.fill(-1);
}

LectureTab::~LectureTab() {
  if (tmrGFX.isActive()) joueur->stop();
}

LectureTab& FTab::lecture() {
  return *m_lecture;
}

bool FTab::enregistre() const {
  const QAction* b = bouton(kBarre, QStringLiteral("record"));
  return b != nullptr && b->isChecked();
}

// ---- The commands ------------------------------------------------------------------

void FTab::mnuTabPlay(int index) {
  const CVantoroTablature& d = doc();
  switch (index) {
    case 0:
    case 3: {
      // Play / stop: whatever plays stops; otherwise the button goes down.
      const bool joue = !m_joue;
      if (QAction* b =
              bouton(kBarre, index == 0 ? QStringLiteral("joue") : QStringLiteral("jouemarker")))
        b->setChecked(joue);
      if (index == 0) {
        commandeJoue(joue);
      } else {
        commandeJoueMarqueurs(joue);
      }
      return;
    }
    case 4:
    case 5:
      // The count-in and the loop are check marks, read at each start.
      return;
    case 10: {
      QAction* b = bouton(kBarre, QStringLiteral("record"));
      if (b == nullptr) return;
      b->setChecked(!b->isChecked());
      commandeEnregistre(b->isChecked());
      return;
    }
    default:
      break;
  }
  // The moves wait while the piece plays.
  if (m_joue) return;
  switch (index) {
    case 1:
      allerMesure(1, 0);
      return;
    case 2:
      allerMesure(d.getMesureLast(), 0);
      return;
    case 7:
      allerMesure(d.getMarkerStartMesure(), d.getMarkerStartX());
      return;
    case 8:
      allerMesure(d.getMarkerStopMesure(), d.getMarkerStopX());
      return;
    default:
      return;
  }
}

void FTab::commandeJoue(bool enfoncé) {
  if (!enfoncé) {
    TimerMIDIStop(true);
    return;
  }
  if (m_joue) TimerMIDIStop(true);
  CVantoroTablature& d = doc();
  // Repeats are honoured from the first bar only: a start in the middle runs
  // straight through them, and their marks are not even checked.
  bool renvois = false;
  if (d.CurseurMesure() == 1) {
    const QMessageBox::StandardButton réponse = allerAuRenvoiCassé();
    if (réponse == QMessageBox::Yes) {
      // The cursor went to the broken repeat: nothing plays.
      relâcheBouton("joue");
      return;
    }
    renvois = réponse == QMessageBox::NoButton;
  }
  m_lecture->renvois = renvois;
  if (QAction* b = bouton(kBarre, QStringLiteral("joue"))) b->setChecked(true);
  timerTabStartPlay(périodeTickMs(d.tempo));
}

void FTab::commandeJoueMarqueurs(bool enfoncé) {
  if (!enfoncé) {
    TimerMIDIStop(true);
    return;
  }
  if (m_joue) TimerMIDIStop(true);
  if (QAction* b = bouton(kBarre, QStringLiteral("jouemarker"))) b->setChecked(true);
  timerTabStartPlayMarker(périodeTickMs(doc().tempo));
}

void FTab::commandeEnregistre(bool enfoncé) {
  if (QAction* e = entrée(QStringLiteral("mnuTabPlay_10"))) e->setChecked(enfoncé);
  LectureTab& l = *m_lecture;
  if (enfoncé) {
    // A new take: its first note keeps an undo snapshot of its track.
    l.enAttente = {};
    l.pistesSauvées.clear();
    return;
  }
  // What is still held is written up to where the cursor stands.
  fermeNotesEnregistrées();
}

void FTab::relâcheBouton(const char* clé) {
  if (QAction* b = bouton(kBarre, QString::fromLatin1(clé))) b->setChecked(false);
}

// ---- Start and stop ------------------------------------------------------------------

void FTab::timerTabStartPlay(int intervalle) {
  LectureTab& l = *m_lecture;
  l.marker = false;
  m_joue = true;
  démarreJeu(intervalle);
}

void FTab::timerTabStartPlayMarker(int intervalle) {
  CVantoroTablature& d = doc();
  const int début = d.getMarkerStartMesure();
  if (d.isMarkerCorrect() == kFaux || !d.hasMesure(début)) {
    relâcheBouton("jouemarker");
    return;
  }
  LectureTab& l = *m_lecture;
  l.marker = true;
  l.renvois = false;
  m_joue = true;

  // The cursor goes to the start marker, its bar brought on screen.
  cacheCurseur();
  d.setCurseurMesure(static_cast<i16>(début));
  d.setCurseurX(static_cast<i16>(d.getMarkerStartX()));
  const int premier = static_cast<int>(d.m_lngScrollValue);
  const int n = std::max<int>(1, m_renderer->getMesureOnScreen(premier));
  if (début < premier || début >= premier + n) {
    défileVers(début);
    montreImage();
  } else {
    montreCurseurJeu();
  }
  démarreJeu(intervalle);
}

void FTab::démarreJeu(int intervalle) {
  LectureTab& l = *m_lecture;
  CVantoroTablature& d = doc();
  const bool décompte = entrée(QStringLiteral("mnuTabPlay_4"))->isChecked();
  DemandeJeu demande;
  demande.périodeTick = intervalle;
  demande.renvois = l.renvois;
  demande.loop = entrée(QStringLiteral("mnuTabPlay_5"))->isChecked();
  demande.beatsAtStart = décompte;
  demande.beatDurée = décompte ? duréeTempsMs(d.tempo) : 0;
  demande.marker = l.marker;
  demande.midiOut = m_vt.son().midiOutHandle();

  // Nothing a key sounded goes on under the piece.
  arrêteNotes();
  l.enAttente = {};
  l.pistesSauvées.clear();
  l.joueur->start(d, l.tableaux, optionsJeu(m_vt.settings()), demande);
  l.pisteAnnoncée = piste();
  l.joueur->piste(static_cast<std::int16_t>(piste()));
  initFretboard();
  // A tempo of 0 has no period: the timer then polls as often as it can.
  l.tmrGFX.setInterval(std::max(1, intervalle));
  l.tmrGFX.start();
  disponibilités();
}

void FTab::timerTabStopPlay() {
  LectureTab& l = *m_lecture;
  l.tmrGFX.stop();
  l.joueur->stop();
  if (enregistre()) fermeNotesEnregistrées();
}

void FTab::TimerMIDIStop(bool boutons) {
  LectureTab& l = *m_lecture;
  if (!m_joue) {
    // Nothing plays: the buttons are up already, or are put up.
    if (boutons) {
      relâcheBouton("joue");
      relâcheBouton("jouemarker");
    }
    return;
  }
  timerTabStopPlay();
  if (boutons) relâcheBouton(l.marker ? "jouemarker" : "joue");
  m_joue = false;
  l.marker = false;
  l.notesMontrées.fill(-1);

  // The cursor goes back onto the grid and into the piece.
  CVantoroTablature& d = doc();
  const int grille = std::max<int>(1, m_tab.TAB_VIEW_SCALE);
  if (d.CurseurX() % grille != 0)
    d.setCurseurX(static_cast<i16>(d.CurseurX() - d.CurseurX() % grille));
  if (d.CurseurMesure() < 1) d.setCurseurMesure(1);
  if (d.CurseurMesure() > d.getMesureLast()) {
    d.setCurseurMesure(static_cast<i16>(d.getMesureLast()));
    d.setCurseurX(0);
  }
  if (d.CurseurX() < 0 || d.CurseurX() >= d.getMesureLargeur(d.CurseurMesure())) d.setCurseurX(0);
  // Shown whole again, the fretboard back on the cursor's column, the
  // commands available again.
  termine(true);
}

// ---- The screen timer ------------------------------------------------------------------

void FTab::tmrGFX_Timer() {
  if (!m_joue) return;
  LectureTab& l = *m_lecture;
  JoueurTab& j = *l.joueur;
  const int x = bas16(j.x());
  if (x == -1) {
    TimerMIDIStop(true);
    return;
  }
  CVantoroTablature& d = doc();
  // The track may have changed under the piece: the player reports its strings.
  if (piste() != l.pisteAnnoncée) {
    l.pisteAnnoncée = piste();
    j.piste(static_cast<std::int16_t>(piste()));
    l.notesMontrées.fill(-1);
  }
  if (m_vt.settings().setMancheVisible != 0) mancheJeu();

  // The cursor is drawn again only when it leaves its column or its bar.
  const int jouée = std::max<int>(1, j.mesure());
  const int mesure = std::min(jouée, d.getMesureLast());
  const int colonne = std::max<int>(1, m_tab.TAB_VIEW_SCALE);
  bool bougé = false;
  if (mesure != d.CurseurMesure() || (x >= 0 && x / colonne != d.CurseurX() / colonne)) {
    cacheCurseur();
    bougé = true;
  }
  if (x >= 0) d.setCurseurX(static_cast<i16>(x));

  bool repeint = false;
  if (jouée < d.m_lngScrollValue) {
    // Back before the first bar shown (a repeat, a loop): it becomes the first.
    d.setCurseurMesure(static_cast<i16>(jouée));
    repeint = défileVers(jouée);
  } else {
    d.setCurseurMesure(static_cast<i16>(mesure));
  }
  // The view follows: a bar past the right edge becomes the first shown.
  const int premier = static_cast<int>(d.m_lngScrollValue);
  if (d.CurseurMesure() >= premier + m_renderer->getMesureOnScreen(premier))
    repeint = défileVers(d.CurseurMesure()) || repeint;
  // The piece jumped at a repeat: the view goes with it.
  if (j.renvoi() != 0 && l.renvois) repeint = défileVers(d.CurseurMesure()) || repeint;

  if (repeint) {
    // The strip was drawn whole, with the cursor.
    montreImage();
    m_vt.setStatusPosition(d.CurseurMesure(), d.CurseurX());
  } else if (bougé) {
    montreCurseurJeu();
  }
}

bool FTab::défileVers(int mesure) {
  if (doc().m_lngScrollValue == mesure) return false;
  setPremièreMesure(mesure);
  drawInLine();
  return true;
}

void FTab::montreCurseurJeu() {
  salitMesureCurseur();
  m_renderer->curAffiche();
  m_renderer->selAffiche();
  montreImage();
  m_vt.setStatusPosition(doc().CurseurMesure(), doc().CurseurX());
}

// ---- The fretboard ----------------------------------------------------------------------

void FTab::initFretboard() {
  LectureTab& l = *m_lecture;
  l.notesMontrées.fill(-1);
  updateGlobalGuitar();
  if (m_vt.settings().setMancheVisible == 0 || doc().getStaffType(piste()) == kStaffBatterie)
    return;
  m_vt.setMancheContenu(4);
  m_vt.clearManche();
}

void FTab::mancheJeu() {
  const CVantoroTablature& d = doc();
  const int p = piste();
  // A drum track shows nothing on the fretboard.
  if (d.getStaffType(p) == kStaffBatterie) return;
  LectureTab& l = *m_lecture;
  JoueurTab& j = *l.joueur;
  const int cordes = std::min(nbCordes(), kMaxCordes);
  std::array<int, kMaxCordes + 1> notes{};
  std::array<int, kMaxCordes + 1> durées{};
  bool change = false;
  for (int c = 1; c <= cordes; ++c) {
    const auto i = static_cast<std::size_t>(c);
    durées[i] = bas16(j.durée(static_cast<std::int16_t>(c)));
    notes[i] = bas16(j.note(static_cast<std::int16_t>(c)));
    if (durées[i] > 0 && durées[i] != kDuréeInchangée && notes[i] != l.notesMontrées[i])
      change = true;
  }
  // Cleared and drawn again only when some string's note changed.
  if (!change) return;
  m_vt.setMancheContenu(4);
  m_vt.clearManche();
  for (int c = 1; c <= cordes; ++c) {
    const auto i = static_cast<std::size_t>(c);
    if (durées[i] != kDuréeInchangée) {
      l.notesMontrées[i] = -1;
      // An open string sounds without a dot; it counts as shown all the same,
      // so that it does not clear the board again at every tick.
      if (durées[i] > 0) l.notesMontrées[i] = notes[i];
    }
    const int montrée = l.notesMontrées[i];
    if (montrée < 0) continue;
    const int fret = montrée - d.getGuitareCorde(p, c);
    if (fret > 0) m_vt.drawRond(fret, c, kRondJaune);
  }
}

// ---- The menu ---------------------------------------------------------------------------

void FTab::connecteJeu() {
  LectureTab& l = *m_lecture;
  connect(&l.tmrGFX, &QTimer::timeout, this, [this] { tmrGFX_Timer(); });
  if (QAction* b = bouton(kBarre, QStringLiteral("joue")))
    connect(b, &QAction::triggered, this, [this](bool enfoncé) { commandeJoue(enfoncé); });
  if (QAction* b = bouton(kBarre, QStringLiteral("jouemarker")))
    connect(b, &QAction::triggered, this, [this](bool enfoncé) { commandeJoueMarqueurs(enfoncé); });
  if (QAction* b = bouton(kBarre, QStringLiteral("record")))
    connect(b, &QAction::triggered, this, [this](bool enfoncé) { commandeEnregistre(enfoncé); });
  connect(&m_vt, &VT::noteMidiRecue, this, [this](int corde, int note, bool enfoncée) {
    noteMidiEnregistrée(corde, note, enfoncée);
  });
}

void FTab::disponibilitésJeu() {
  for (int i : {0, 3, 4, 5, 10})
    if (QAction* a = entrée(QStringLiteral("mnuTabPlay_%1").arg(i))) a->setEnabled(true);
  for (int i : {1, 2, 7, 8})
    if (QAction* a = entrée(QStringLiteral("mnuTabPlay_%1").arg(i))) a->setEnabled(!m_joue);
  if (QAction* a = entrée(QStringLiteral("mnuTabPlay_10"))) a->setChecked(enregistre());
}

}  // namespace vt
