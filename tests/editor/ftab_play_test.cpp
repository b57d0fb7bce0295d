// Playback from the editor: the play commands, their buttons and the repeat
// check; the screen timer following a stand-in player whose position the test
// sets; the fretboard during play; the stop that puts the cursor back on the
// grid; the recording of the MIDI input; and the real player heard through the logging output.
#include <QAction>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <functional>
#include <tuple>
#include <utility>

#include "ftab_banc.h"
#include "ftab_play.h"
#include "shell/manche.h"
#include "sound/midi_handles.h"
#include "sound/sortie_journal.h"

namespace vt::essai {
namespace {

// A player whose position the test sets by hand; it writes down what the editor asks of it.
class JoueurEssai : public JoueurTab {
 public:
  void start(const CVantoroTablature&, PlayArrays&, const OptionsJeu& o,
             const DemandeJeu& d) override {
    demandes.push_back(d);
    options = o;
  }
  void stop() override { ++arrêts; }
  std::int32_t x() override { return posX; }
  std::int32_t mesure() override { return posMesure; }
  std::int32_t renvoi() override { return std::exchange(saut, 0); }
  std::int32_t note(std::int16_t c) override { return notes.at(static_cast<std::size_t>(c)); }
  std::int32_t durée(std::int16_t c) override { return durées.at(static_cast<std::size_t>(c)); }
  void piste(std::int16_t p) override { pistes.push_back(p); }

  std::vector<DemandeJeu> demandes;
  OptionsJeu options;
  int arrêts = 0;
  std::int32_t posX = 0;
  std::int32_t posMesure = 1;
  std::int32_t saut = 0;
  std::array<std::int32_t, kMaxCordes + 1> notes{};
  std::array<std::int32_t, kMaxCordes + 1> durées{};
  std::vector<int> pistes;
};

// The editor's sound with a real output behind the handle the player takes.
class SonJournal : public SonEditeur {
 public:
  SonJournal(Journal& j, std::shared_ptr<SortieJournal> sortie)
      : SonEditeur(j), m_handle(midiHandleOuvrir(std::move(sortie))) {}
  ~SonJournal() override { midiHandleFermer(m_handle); }
  std::int32_t midiOutHandle() const override { return m_handle; }

 private:
  std::int32_t m_handle;
};

// Counts the paints of a widget.
class Peintures : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* e) override {
    if (e->type() == QEvent::Paint) ++n;
    return false;
  }
  int n = 0;
};

class Jeu : public Editeur {
 protected:
  // The editor with the stand-in player; the questions are answered by
  // `réponse` and written down, as the messages are.
  void ouvreEssai(int mesures = 1) {
    ouvre();
    auto j = std::make_unique<JoueurEssai>();
    joueur = j.get();
    ftab->lecture().joueur = std::move(j);
    ftab->question = [this](const QString& t, QMessageBox::StandardButtons) {
      questions.push_back(t);
      return réponse;
    };
    ftab->message = [this](const QString& t, QMessageBox::Icon) { messages.push_back(t); };
    for (int m = 2; m <= mesures; ++m)
      doc().addMesure();
    ftab->refreshPicture();
  }
  QAction* bouton(const char* clé) { return ftab->bouton("tbToolbar", clé); }
  QAction* menu(int i) { return ftab->entrée(QStringLiteral("mnuTabPlay_%1").arg(i)); }
  // The timer is left to the test, which ticks by hand.
  void arrêteMinuterie() { ftab->lecture().tmrGFX.stop(); }
  void tick(int mesure, int x) {
    joueur->posMesure = mesure;
    joueur->posX = x;
    ftab->tmrGFX_Timer();
  }
  int premièreMontrée() { return static_cast<int>(doc().m_lngScrollValue); }
  void reprise(int mesure, bool gauche) {
    if (gauche) {
      doc().setMesureLoopGaucheType(mesure, barre::kRepetition);
    } else {
      doc().setMesureLoopDroiteType(mesure, barre::kRepetition);
    }
  }
  int corde(int c) { return doc().getGuitareCorde(1, c); }
  // A start asked of the player: tick period, repeats, loop, count-in and its
  // beat, between the markers.
  static std::tuple<int, bool, bool, bool, int, bool> vue(const DemandeJeu& d) {
    return {d.périodeTick, d.renvois, d.loop, d.beatsAtStart, d.beatDurée, d.marker};
  }
  // The note recorded at a place: fret, length and effect; -1 and zeros for none.
  std::tuple<int, int, int> écrite(int mesure, int corde, int x) {
    const tNote* n = note(mesure, corde, x);
    return n == nullptr ? std::tuple(-1, 0, 0)
                        : std::tuple(+n->bytCase, +n->bytDurée, +n->bytEffet);
  }

  JoueurEssai* joueur = nullptr;
  std::vector<QString> questions, messages;
  QMessageBox::StandardButton réponse = QMessageBox::No;
};

TEST_F(Jeu, SpaceStartsFromTheCursorWithTheChecksOfThePlayMenu) {
  ouvreEssai(3);
  doc().tempo = 100;
  curseur(2, 48, 1);
  menu(4)->trigger();  // beats at start
  touche(Qt::Key_Space);
  ASSERT_TRUE(ftab->isPlaying());
  EXPECT_TRUE(bouton("joue")->isChecked());
  EXPECT_TRUE(ftab->lecture().tmrGFX.isActive());
  EXPECT_EQ(ftab->lecture().tmrGFX.interval(), 12);
  ASSERT_EQ(joueur->demandes.size(), 1u);
  // 60000 / (100 * 48), truncated; a start in the middle runs through the repeats.
  EXPECT_EQ(vue(joueur->demandes[0]), std::tuple(12, false, false, true, 600, false));
  EXPECT_EQ(joueur->pistes, std::vector<int>{1});
  // The moves wait; play, the markers, the checks and recording stay.
  for (int i : {1, 2, 7, 8})
    EXPECT_FALSE(menu(i)->isEnabled()) << i;
  for (int i : {0, 3, 4, 5, 10})
    EXPECT_TRUE(menu(i)->isEnabled()) << i;
  EXPECT_FALSE(bouton("arriere")->isEnabled());
  touche(Qt::Key_Home);
  EXPECT_EQ(doc().CurseurMesure(), 2);

  // Space again stops; the next start reads the checks again.
  touche(Qt::Key_Space);
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_FALSE(ftab->lecture().tmrGFX.isActive());
  EXPECT_EQ(joueur->arrêts, 1);
  EXPECT_TRUE(menu(1)->isEnabled());
  EXPECT_TRUE(bouton("arriere")->isEnabled());
  menu(4)->trigger();
  menu(5)->trigger();  // loop
  bouton("joue")->trigger();
  ASSERT_EQ(joueur->demandes.size(), 2u);
  EXPECT_EQ(vue(joueur->demandes[1]), std::tuple(12, false, true, false, 0, false));
  bouton("joue")->trigger();
  EXPECT_FALSE(ftab->isPlaying());
}

TEST_F(Jeu, RepeatsAreHonouredFromTheFirstBarOnlyAndABrokenOneIsAskedAbout) {
  ouvreEssai(4);
  reprise(1, true);
  reprise(2, false);
  touche(Qt::Key_Space);
  ASSERT_EQ(joueur->demandes.size(), 1u);
  EXPECT_TRUE(joueur->demandes[0].renvois);
  EXPECT_TRUE(questions.empty());
  touche(Qt::Key_Space);

  // A second end of repeat with no start before it: broken at bar 3.
  reprise(3, false);
  ASSERT_EQ(doc().checkMesureRenvois(), 3);
  curseur(2, 0, 1);
  touche(Qt::Key_Space);
  EXPECT_TRUE(questions.empty()) << "no check away from the first bar";
  EXPECT_FALSE(joueur->demandes.back().renvois);
  touche(Qt::Key_Space);

  // No: it plays, straight through.
  curseur(1, 0, 1);
  réponse = QMessageBox::No;
  touche(Qt::Key_Space);
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0], "There is a problem of repeat bar at measure 3. Go to this measure?");
  EXPECT_TRUE(ftab->isPlaying());
  EXPECT_FALSE(joueur->demandes.back().renvois);
  touche(Qt::Key_Space);

  // Yes: the cursor goes there, and nothing plays.
  const std::size_t avant = joueur->demandes.size();
  curseur(1, 48, 1);
  réponse = QMessageBox::Yes;
  bouton("joue")->trigger();
  EXPECT_EQ(questions.size(), 2u);
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_EQ(joueur->demandes.size(), avant);
  EXPECT_EQ(place(), (Place{3, 0, 1}));
}

TEST_F(Jeu, BetweenTheMarkersTheCursorGoesToTheStartAndWrongMarkersSayNothing) {
  ouvreEssai(12);
  // Equal markers mark nothing: the button comes up again, without a word.
  bouton("jouemarker")->trigger();
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_FALSE(bouton("jouemarker")->isChecked());
  EXPECT_TRUE(joueur->demandes.empty());
  EXPECT_TRUE(messages.empty());
  EXPECT_TRUE(questions.empty());

  // Broken repeats are not looked at between the markers.
  reprise(2, true);
  reprise(3, true);
  doc().setMarqueurStart(11, 24);
  doc().setMarqueurStop(12, 96);
  ASSERT_EQ(premièreMontrée(), 1);
  bouton("jouemarker")->trigger();
  ASSERT_TRUE(ftab->isPlaying());
  EXPECT_TRUE(bouton("jouemarker")->isChecked());
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_TRUE(questions.empty());
  ASSERT_EQ(joueur->demandes.size(), 1u);
  EXPECT_EQ(vue(joueur->demandes[0]), std::tuple(10, false, false, false, 0, true));
  EXPECT_EQ(place(), (Place{11, 24, 1}));
  EXPECT_EQ(premièreMontrée(), 11) << "the marker's bar was off the screen";
}

TEST_F(Jeu, ThePlayEntriesAndSpaceDoWhatTheirButtonsDoInEveryState) {
  enum Etat { Arrêt, Joue, Marqueurs };
  const struct {
    Etat avant;
    Etat après[5];  // after menu 0, "joue", Space, menu 3, "jouemarker"
  } kCas[] = {
      {Arrêt, {Joue, Joue, Joue, Marqueurs, Marqueurs}},
      {Joue, {Arrêt, Arrêt, Arrêt, Marqueurs, Marqueurs}},
      {Marqueurs, {Joue, Joue, Joue, Arrêt, Arrêt}},
  };
  const std::function<void()> kCommandes[5] = {
      [this] { menu(0)->trigger(); }, [this] { bouton("joue")->trigger(); },
      [this] { touche(Qt::Key_Space); }, [this] { menu(3)->trigger(); },
      [this] { bouton("jouemarker")->trigger(); }};
  ouvreEssai(3);
  doc().setMarqueurStart(1, 24);
  doc().setMarqueurStop(2, 48);
  const auto état = [this] {
    EXPECT_EQ(bouton("joue")->isChecked(), ftab->isPlaying() && !ftab->lecture().marker);
    EXPECT_EQ(bouton("jouemarker")->isChecked(), ftab->isPlaying() && ftab->lecture().marker);
    return !ftab->isPlaying() ? Arrêt : ftab->lecture().marker ? Marqueurs : Joue;
  };
  for (const auto& c : kCas)
    for (int i = 0; i < 5; ++i) {
      SCOPED_TRACE(testing::Message() << "from " << c.avant << ", command " << i);
      ftab->TimerMIDIStop(true);
      if (c.avant == Joue) bouton("joue")->trigger();
      if (c.avant == Marqueurs) bouton("jouemarker")->trigger();
      ASSERT_EQ(état(), c.avant);
      kCommandes[i]();
      EXPECT_EQ(état(), c.après[i]);
    }
  EXPECT_TRUE(questions.empty());
}

TEST_F(Jeu, TheCursorFollowsThePlayerAndIsRedrawnOnlyWhenItChangesColumn) {
  ouvreEssai(2);
  touche(Qt::Key_Space);
  arrêteMinuterie();
  Peintures peintures;
  ftab->picTab()->installEventFilter(&peintures);
  QCoreApplication::processEvents();

  tick(1, 30);
  EXPECT_EQ(doc().CurseurX(), 30);
  QCoreApplication::processEvents();
  const QImage colonne1 = ftab->image().copy();
  EXPECT_GT(peintures.n, 0);

  // Within the same column (24 ticks at an eighth per column): not a pixel redrawn.
  peintures.n = 0;
  tick(1, 47);
  QCoreApplication::processEvents();
  EXPECT_EQ(doc().CurseurX(), 47);
  EXPECT_EQ(peintures.n, 0);
  EXPECT_EQ(ftab->image(), colonne1);

  tick(1, 48);
  QCoreApplication::processEvents();
  EXPECT_GT(peintures.n, 0);
  EXPECT_NE(ftab->image(), colonne1);
  tick(2, 0);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  // A bar the player reports past the end keeps the cursor in the last one.
  tick(3, 10);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().CurseurX(), 10);
  ftab->picTab()->removeEventFilter(&peintures);

  // The end of the piece stops everything.
  tick(2, -1);
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_EQ(joueur->arrêts, 1);
  EXPECT_EQ(doc().CurseurX(), 0);
}

TEST_F(Jeu, TheViewFollowsThePieceForwardBackAndAtTheRepeats) {
  ouvreEssai(30);
  const int n = ftab->hScroll()->pageStep();
  ASSERT_GE(n, 2);
  ASSERT_LT(n, 10);
  reprise(1, true);
  reprise(2, false);
  touche(Qt::Key_Space);
  arrêteMinuterie();
  ASSERT_TRUE(joueur->demandes.back().renvois);

  tick(n, 0);
  EXPECT_EQ(premièreMontrée(), 1) << "the last whole bar shown";
  tick(n + 1, 0);
  EXPECT_EQ(premièreMontrée(), n + 1) << "past the edge, the bar becomes the first shown";
  EXPECT_EQ(ftab->hScroll()->value(), n + 1);
  // Back before the first bar shown (the repeat went back).
  tick(2, 0);
  EXPECT_EQ(premièreMontrée(), 2);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  // A jump within the screen brings the bar to the front, with repeats on.
  joueur->saut = -1;
  tick(3, 0);
  EXPECT_EQ(premièreMontrée(), 3);

  // From another bar the repeats are off, and a jump reported moves nothing.
  touche(Qt::Key_Space);
  curseur(4, 0, 1);
  touche(Qt::Key_Space);
  arrêteMinuterie();
  ASSERT_FALSE(joueur->demandes.back().renvois);
  const int premier = premièreMontrée();
  joueur->saut = -1;
  tick(premier + 1, 0);
  EXPECT_EQ(premièreMontrée(), premier);
  touche(Qt::Key_Space);
}

TEST_F(Jeu, TheTrackUnderTheCursorIsToldToThePlayerWhenItChanges) {
  ouvreEssai();
  ASSERT_TRUE(doc().addPiste(1, vt->guitare()));
  ftab->tbPistesUpdate();
  touche(Qt::Key_Space);
  arrêteMinuterie();
  EXPECT_EQ(joueur->pistes, std::vector<int>{1});
  tick(1, 0);
  EXPECT_EQ(joueur->pistes, std::vector<int>{1});
  doc().setCurseurPiste(2);
  tick(1, 4);
  EXPECT_EQ(joueur->pistes, (std::vector<int>{1, 2}));
  touche(Qt::Key_Space);
}

TEST_F(Jeu, TheStopPutsTheCursorOnTheGridAndInsideThePiece) {
  ouvreEssai(3);
  // Nothing plays: the stop is harmless, and the player is not called.
  bouton("joue")->setChecked(true);
  ftab->TimerMIDIStop(true);
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_EQ(joueur->arrêts, 0);

  touche(Qt::Key_Space);
  arrêteMinuterie();
  tick(2, 37);
  touche(Qt::Key_Space);
  EXPECT_EQ(place(), (Place{2, 24, 1})) << "back on the eighth before";

  // The grid is the view's: at a sixteenth per column the same place is 36.
  ftab->mnuTabDisplay(2);
  touche(Qt::Key_Space);
  arrêteMinuterie();
  tick(2, 37);
  ftab->TimerMIDIStop(true);
  EXPECT_EQ(doc().CurseurX(), 36);
  ftab->mnuTabDisplay(1);

  // A place past the bar's width, or past the last bar, starts its bar again.
  touche(Qt::Key_Space);
  arrêteMinuterie();
  tick(3, 240);
  ftab->TimerMIDIStop(true);
  EXPECT_EQ(place(), (Place{3, 0, 1}));
  touche(Qt::Key_Space);
  arrêteMinuterie();
  tick(3, 48);
  doc().setCurseurMesure(9);
  ftab->TimerMIDIStop(false);
  EXPECT_EQ(place(), (Place{3, 0, 1}));
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_TRUE(bouton("joue")->isChecked()) << "without its flag the buttons stay as they are";
}

TEST_F(Jeu, WhilePlayingOnlyTheFretsOfInsertModeAreTaken) {
  ouvreEssai(2);
  curseur(1, 48, 1);
  touche(Qt::Key_Space);
  arrêteMinuterie();
  insertion(false);
  tape("5");
  touche(Qt::Key_Right, Qt::ShiftModifier);
  touche(Qt::Key_Right);
  touche(Qt::Key_End);
  touche(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(fret(1, 1, 48), -1);
  EXPECT_EQ(place(), (Place{1, 48, 1}));

  insertion(true);
  tape("5");
  EXPECT_EQ(fret(1, 1, 48), 5);
  EXPECT_EQ(doc().getUndoDepth(), 0) << "no undo is kept while the piece plays";
  touche(Qt::Key_Space);
  EXPECT_FALSE(ftab->isPlaying());
}

TEST_F(Jeu, TheFretboardShowsWhatSoundsOpenStringsExceptedAndKeepsAStringTheLibraryLeaves) {
  ouvreEssai();
  vt->setMancheVisible(true);
  QCoreApplication::processEvents();
  touche(Qt::Key_Space);
  arrêteMinuterie();
  EXPECT_EQ(vt->mancheContenu(), 4);
  const auto points = [this](std::initializer_list<std::pair<int, int>> l) {
    vt->clearManche();
    for (const auto& [f, c] : l)
      vt->drawRond(f, c, kRondJaune);
    return vt->manche().image().copy();
  };
  const QImage vide = points({});

  // String 1 at fret 5, string 2 open: one dot.
  joueur->notes[1] = corde(1) + 5;
  joueur->durées[1] = 20;
  joueur->notes[2] = corde(2);
  joueur->durées[2] = 20;
  const QImage cinq = points({{5, 1}});
  vt->clearManche();
  tick(1, 0);
  EXPECT_EQ(vt->manche().image(), cinq);
  EXPECT_NE(cinq, vide);

  // 32767 on string 1 leaves its dot, while string 3 starts at fret 2.
  joueur->notes[1] = corde(1) + 9;
  joueur->durées[1] = 32767;
  joueur->notes[3] = corde(3) + 2;
  joueur->durées[3] = 10;
  const QImage deux = points({{5, 1}, {2, 3}});
  vt->clearManche();
  tick(1, 4);
  EXPECT_EQ(vt->manche().image(), deux);

  // Nothing changed: the board is not cleared and drawn again.
  vt->clearManche();
  tick(1, 8);
  EXPECT_EQ(vt->manche().image(), vide);

  // A string falling silent is no change; a new note is.
  joueur->durées[3] = 0;
  joueur->durées[1] = 5;
  joueur->notes[1] = corde(1) + 7;
  tick(1, 12);
  EXPECT_EQ(vt->manche().image(), points({{7, 1}}));

  // The stop gives the board back to the cursor's column (empty here).
  touche(Qt::Key_Space);
  EXPECT_EQ(vt->manche().image(), vide);

  // A drum track shows nothing.
  doc().setStaffType(1, kStaffBatterie);
  touche(Qt::Key_Space);
  arrêteMinuterie();
  joueur->notes[1] = corde(1) + 3;
  vt->clearManche();
  tick(1, 0);
  EXPECT_EQ(vt->manche().image(), vide);
  touche(Qt::Key_Space);
}

TEST_F(Jeu, RecordedNotesAreWrittenFromTheirStartToTheCursorAndTiedAcrossBarLines) {
  ouvreEssai(4);
  touche(Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(bouton("record")->isChecked());
  EXPECT_TRUE(menu(10)->isChecked());
  ftab->mnuTabToolVolume(4);  // mf
  touche(Qt::Key_Space);
  arrêteMinuterie();

  // Held from tick 0 to tick 40: a dotted eighth, the longest length that fits.
  tick(1, 0);
  vt->noteMidiEntrante(1, corde(1) + 5, true);
  tick(1, 40);
  EXPECT_EQ(fret(1, 1, 0), -1) << "written when it is released";
  vt->noteMidiEntrante(1, corde(1) + 5, false);
  ASSERT_NE(note(1, 1, 0), nullptr);
  EXPECT_EQ(*note(1, 1, 0), (tNote{5, 36, 0, effet::kAucun, 0, attaque::kStandard, 79}));
  EXPECT_TRUE(doc().modifi);

  // Across two bar lines: cut at each, tied over.
  tick(1, 144);
  vt->noteMidiEntrante(2, corde(2) + 1, true);
  tick(3, 30);
  vt->noteMidiEntrante(2, corde(2) + 1, false);
  EXPECT_EQ(écrite(1, 2, 144), std::tuple(1, 48, +effet::kLiaison));
  EXPECT_EQ(écrite(2, 2, 0), std::tuple(1, 192, +effet::kLiaison));
  EXPECT_EQ(écrite(3, 2, 0), std::tuple(1, 24, +effet::kAucun));

  // What nobody holds is not written: a release alone, a note below the
  // open string, a string the instrument lacks.
  vt->noteMidiEntrante(4, corde(4) + 3, false);
  vt->noteMidiEntrante(5, corde(5) - 1, true);
  vt->noteMidiEntrante(7, 60, true);

  // Still held when the piece stops: closed at the cursor, over the bar line.
  tick(3, 96);
  vt->noteMidiEntrante(3, corde(3) + 2, true);
  tick(4, 50);
  touche(Qt::Key_Space);
  EXPECT_EQ(écrite(3, 3, 96), std::tuple(2, 96, +effet::kLiaison));
  EXPECT_EQ(écrite(4, 3, 0), std::tuple(2, 48, +effet::kAucun));
  EXPECT_EQ(fret(3, 5, 96), -1);
  for (int m = 1; m <= 4; ++m)
    EXPECT_EQ(doc().getNoteLast(1, m, 4) + doc().getNoteLast(1, m, 5), 0) << m;
  EXPECT_EQ(doc().CurseurX(), 48);

  // The whole take is one undo.
  EXPECT_EQ(doc().getUndoDepth(), 1);
  touche(Qt::Key_Z, Qt::ControlModifier);
  for (int m = 1; m <= 4; ++m)
    for (int c = 1; c <= 3; ++c)
      EXPECT_EQ(doc().getNoteLast(1, m, c), 0) << m << " " << c;
}

TEST_F(Jeu, RecordingFollowsItsButton) {
  ouvreEssai(2);
  // Record up: the notes received only sound.
  touche(Qt::Key_Space);
  arrêteMinuterie();
  tick(1, 0);
  vt->noteMidiEntrante(1, corde(1) + 3, true);
  tick(1, 48);
  vt->noteMidiEntrante(1, corde(1) + 3, false);
  EXPECT_EQ(fret(1, 1, 0), -1);
  EXPECT_FALSE(doc().modifi);

  // Record goes down during the piece and up again with a note held: the
  // note ends where the cursor stands then, and its release does nothing.
  bouton("record")->trigger();
  EXPECT_TRUE(menu(10)->isChecked());
  vt->noteMidiEntrante(1, corde(1) + 3, true);
  tick(1, 144);
  bouton("record")->trigger();
  EXPECT_FALSE(menu(10)->isChecked());
  EXPECT_EQ(écrite(1, 1, 48), std::tuple(3, 96, 0));
  tick(2, 24);
  vt->noteMidiEntrante(1, corde(1) + 3, false);
  EXPECT_EQ(écrite(1, 1, 48), std::tuple(3, 96, 0));
  EXPECT_EQ(doc().getNoteLast(1, 2, 1), 0);
  touche(Qt::Key_Space);

  // Nothing plays: a note received is written at once at the cursor, with
  // the rhythm toolbar's length, and the cursor stays.
  menu(10)->trigger();
  ASSERT_TRUE(bouton("record")->isChecked());
  curseur(2, 96, 1);
  const int profondeur = doc().getUndoDepth();
  vt->noteMidiEntrante(4, corde(4) + 7, true);
  EXPECT_EQ(écrite(2, 4, 96), std::tuple(7, ftab->outils().tbGetNoteDurée(), 0));
  EXPECT_EQ(doc().getUndoDepth(), profondeur + 1);
  EXPECT_EQ(doc().CurseurX(), 96);
  vt->noteMidiEntrante(4, corde(4) + 7, false);
  EXPECT_EQ(doc().getNoteLast(1, 2, 4), 1);
}

TEST_F(Jeu, AMidiNoteReachesTheOpenHarmonizerAndSoundsUnlessItIsRecorded) {
  ouvreEssai();
  const int n = corde(2) + 3;
  // No harmonizer open: the note only sounds, on the track's channel.
  vt->noteMidiEntrante(2, n, true);
  vt->noteMidiEntrante(2, n, false);
  EXPECT_TRUE(contient(sons, QStringLiteral("noteOn %1 1 127").arg(n)));
  vt->fenetres().enregistrer(fen::FHarmony,
                             [this](VT& v) { return new FenetreEssai(v, fen::FHarmony, journal); });
  ASSERT_NE(vt->montreFenetre(fen::FHarmony), nullptr);

  const struct {
    bool enregistre, enfoncée;
    bool entendue, sonnée;
  } kCas[] = {
      {false, true, true, true},
      {false, false, false, true},
      {true, true, false, false},
      {true, false, false, false},
  };
  for (const auto& c : kCas) {
    SCOPED_TRACE(testing::Message() << "record " << c.enregistre << ", pressed " << c.enfoncée);
    if (ftab->enregistre() != c.enregistre) bouton("record")->trigger();
    journal.clear();
    sons.clear();
    vt->noteMidiEntrante(2, n, c.enfoncée);
    EXPECT_EQ(contient(journal, QStringLiteral("FHarmony receiveNote %1").arg(n)), c.entendue);
    const QString son = c.enfoncée ? QStringLiteral("noteOn %1 1 127").arg(n)
                                   : QStringLiteral("noteOff %1 1").arg(n);
    EXPECT_EQ(contient(sons, son), c.sonnée);
  }
  EXPECT_EQ(fret(1, 2, 0), 3) << "the note recorded was written";
}

class JeuEntendu : public Jeu {
 protected:
  void SetUp() override {
    Jeu::SetUp();
    ouvre();
    sortie = std::make_shared<SortieJournal>();
    vt->setSon(std::make_unique<SonJournal>(sons, sortie));
    // Two short bars at the fastest tempo, 144 ticks of 4.9 ms: 0.7 s.
    doc().tempo = 255;
    doc().addMesure();
    ASSERT_TRUE(doc().setMesureSignature(1, 1, 4));
    ASSERT_TRUE(doc().setMesureSignature(2, 2, 4));
    pose(1, 1, 0, 5, 24);
    pose(1, 1, 24, 7, 24);
    pose(2, 2, 0, 3, 48);
    ftab->refreshPicture();
  }
  // The note-ons heard, in order (a velocity of 0 is a release).
  std::vector<int> notesJouées() const {
    std::vector<int> r;
    for (const MessageDate& m : sortie->messages())
      if ((midiStatus(m.message) & 0xF0) == 0x90 && midiData2(m.message) > 0)
        r.push_back(midiData1(m.message));
    return r;
  }
  std::shared_ptr<SortieJournal> sortie;
};

TEST_F(JeuEntendu, ThePieceIsHeardAndTheCursorFollowsItToTheEnd) {
  touche(Qt::Key_Space);
  ASSERT_TRUE(ftab->isPlaying());
  EXPECT_EQ(ftab->lecture().tmrGFX.interval(), 4) << "60000 / (255 * 48)";
  EXPECT_TRUE(QTest::qWaitFor([this] { return doc().CurseurMesure() == 2; }, 2000));
  EXPECT_TRUE(ftab->isPlaying());
  EXPECT_TRUE(QTest::qWaitFor([this] { return !ftab->isPlaying(); }, 2000));
  EXPECT_FALSE(bouton("joue")->isChecked());
  const int mi = doc().getGuitareCorde(1, 1);
  const int si = doc().getGuitareCorde(1, 2);
  EXPECT_EQ(notesJouées(), (std::vector<int>{mi + 5, mi + 7, si + 3}));
  EXPECT_LE(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().CurseurX() % 24, 0);
}

TEST_F(JeuEntendu, ALoopNeverEndsByItselfAndItsButtonSilencesIt) {
  menu(5)->trigger();
  touche(Qt::Key_Space);
  const int mi = doc().getGuitareCorde(1, 1);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        const auto n = notesJouées();
        return std::count(n.begin(), n.end(), mi + 5) >= 2;
      },
      2000));
  EXPECT_TRUE(ftab->isPlaying()) << "gone round again";
  bouton("joue")->trigger();
  EXPECT_FALSE(ftab->isPlaying());
  // Every note it started has been released.
  std::array<int, 128> sonnent{};
  for (const MessageDate& m : sortie->messages()) {
    const int s = midiStatus(m.message) & 0xF0;
    const int n = midiData1(m.message);
    if (s == 0x90 && midiData2(m.message) > 0) ++sonnent[static_cast<std::size_t>(n)];
    if (s == 0x80 || (s == 0x90 && midiData2(m.message) == 0))
      sonnent[static_cast<std::size_t>(n)] = 0;
  }
  EXPECT_EQ(std::count(sonnent.begin(), sonnent.end(), 0), 128);
}

}  // namespace
}  // namespace vt::essai
