// Playback from the editor: a stand-in player set by hand, then the real one heard.
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
  void start(const CVantoroTablature&, PlayArrays&, const OptionsJeu&,
             const DemandeJeu& d) override {
    demandes.push_back(d);
  }
  void stop() override { ++arrêts; }
  std::int32_t x() override { return posX; }
  std::int32_t mesure() override { return posMesure; }
  std::int32_t renvoi() override { return std::exchange(saut, 0); }
  std::int32_t note(std::int16_t c) override { return notes.at(static_cast<std::size_t>(c)); }
  std::int32_t durée(std::int16_t c) override { return durées.at(static_cast<std::size_t>(c)); }
  void piste(std::int16_t p) override { pistes.push_back(p); }

  std::vector<DemandeJeu> demandes;
  int arrêts = 0;
  std::int32_t posX = 0, posMesure = 1, saut = 0;
  std::array<std::int32_t, kMaxCordes + 1> notes{}, durées{};
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

using Etat = std::array<bool, 3>;  // playing, "joue" down, the screen timer running
using Ecrite = std::tuple<int, int, int>;

class Jeu : public Editeur {
 protected:
  // The editor with the stand-in player and `n` bars; the questions are
  // answered by `réponse` and written down.
  void ouvreEssai(int n = 1) {
    ouvre();
    auto j = std::make_unique<JoueurEssai>();
    joueur = j.get();
    ftab->lecture().joueur = std::move(j);
    ftab->question = [this](const QString& t, QMessageBox::StandardButtons) {
      questions.push_back(t);
      return réponse;
    };
    mesures(n);
  }
  QAction* bouton(const char* clé) { return ftab->bouton("tbToolbar", clé); }
  QAction* menu(int i) { return ftab->entrée(QStringLiteral("mnuTabPlay_%1").arg(i)); }
  Etat état() {
    return {ftab->isPlaying(), bouton("joue")->isChecked(), ftab->lecture().tmrGFX.isActive()};
  }
  // Space, the timer left to the test, which ticks by hand.
  void lance() {
    touche(Qt::Key_Space);
    ftab->lecture().tmrGFX.stop();
  }
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
  void midi(int c, int fret, bool enfoncée) { vt->noteMidiEntrante(c, corde(c) + fret, enfoncée); }
  // The last start asked of the player: tick period, repeats, loop, count-in
  // and its beat, between the markers.
  std::tuple<int, bool, bool, bool, int, bool> demande() {
    const DemandeJeu& d = joueur->demandes.back();
    return {d.périodeTick, d.renvois, d.loop, d.beatsAtStart, d.beatDurée, d.marker};
  }
  // The note recorded at a place: fret, length and effect; -1 and zeros for none.
  Ecrite écrite(int mesure, int corde, int x) {
    const tNote* n = note(mesure, corde, x);
    return n == nullptr ? Ecrite(-1, 0, 0) : Ecrite(n->bytCase, n->bytDurée, n->bytEffet);
  }
  // The notes of strings 1 to 6 in every bar.
  int compte() {
    int n = 0;
    for (int m = 1; m <= doc().getMesureLast(); ++m)
      for (int c = 1; c <= 6; ++c)
        n += doc().getNoteLast(1, m, c);
    return n;
  }

  JoueurEssai* joueur = nullptr;
  std::vector<QString> questions;
  QMessageBox::StandardButton réponse = QMessageBox::No;
};

TEST_F(Jeu, SpaceStartsFromTheCursorWithTheChecksOfThePlayMenuAndOnlyInsertModeTypes) {
  ouvreEssai(3);
  doc().tempo = 100;
  curseur(2, 48, 1);
  menu(4)->trigger();  // beats at start
  touche(Qt::Key_Space);
  ASSERT_EQ(état(), (Etat{true, true, true}));
  EXPECT_EQ(ftab->lecture().tmrGFX.interval(), 12);
  // 60000 / (100 * 48), truncated; a start in the middle runs through the repeats.
  EXPECT_EQ(demande(), std::tuple(12, false, false, true, 600, false));
  EXPECT_EQ(joueur->pistes, std::vector<int>{1});
  // The moves wait; play, the markers, the checks and recording stay.
  for (int i : {0, 1, 2, 3, 4, 5, 7, 8, 10})
    EXPECT_EQ(menu(i)->isEnabled(), i != 1 && i != 2 && i != 7 && i != 8) << i;
  EXPECT_FALSE(bouton("arriere")->isEnabled());
  // The keys wait too: only the frets of insert mode are taken, without undo.
  ftab->lecture().tmrGFX.stop();
  insertion(false);
  tape("5");
  touches({{Qt::Key_Home, Qt::NoModifier},
           {Qt::Key_Right, Qt::ShiftModifier},
           {Qt::Key_End, Qt::NoModifier},
           {Qt::Key_Right, Qt::ControlModifier}});
  EXPECT_EQ(std::pair(fret(2, 1, 48), place()), std::pair(-1, Place{2, 48, 1}));
  insertion(true);
  tape("5");
  EXPECT_EQ(std::pair(fret(2, 1, 48), doc().getUndoDepth()), std::pair(5, 0));

  // Space again stops; the next start reads the checks again.
  touche(Qt::Key_Space);
  EXPECT_EQ(état(), (Etat{false, false, false}));
  EXPECT_EQ(joueur->arrêts, 1);
  EXPECT_TRUE(bouton("arriere")->isEnabled());
  menu(4)->trigger();
  menu(5)->trigger();  // loop
  bouton("joue")->trigger();
  EXPECT_EQ(demande(), std::tuple(12, false, true, false, 0, false));
}

TEST_F(Jeu, RepeatsAreHonouredFromTheFirstBarOnlyAndABrokenOneIsAskedAbout) {
  ouvreEssai(4);
  reprise(1, true);
  reprise(2, false);
  // From the second row on, an end of repeat with no start before it breaks
  // them at bar 3: no check away from the first bar; No plays straight
  // through; Yes goes there and plays nothing.
  const struct {
    int mesure, x;
    QMessageBox::StandardButton réponse;
    bool renvois, joue;
  } kCas[] = {{1, 0, QMessageBox::No, true, true},
              {2, 0, QMessageBox::No, false, true},
              {1, 0, QMessageBox::No, false, true},
              {1, 48, QMessageBox::Yes, false, false}};
  for (const auto& c : kCas) {
    SCOPED_TRACE(testing::Message() << c.mesure << " " << c.réponse);
    if (&c == &kCas[1]) reprise(3, false);
    curseur(c.mesure, c.x, 1);
    réponse = c.réponse;
    const std::size_t avant = joueur->demandes.size();
    bouton("joue")->trigger();
    EXPECT_EQ(état(), (Etat{c.joue, c.joue, c.joue}));
    ASSERT_EQ(joueur->demandes.size(), avant + (c.joue ? 1 : 0));
    if (c.joue) {
      EXPECT_EQ(joueur->demandes.back().renvois, c.renvois);
      touche(Qt::Key_Space);
    }
  }
  EXPECT_EQ(questions, std::vector<QString>(2,
                                            "There is a problem of repeat bar at measure 3. "
                                            "Go to this measure?"));
  EXPECT_EQ(place(), (Place{3, 0, 1}));
}

TEST_F(Jeu, BetweenTheMarkersTheCursorGoesToTheStartAndWrongMarkersSayNothing) {
  ouvreEssai(12);
  // Equal markers mark nothing: the button comes up again, without a word.
  bouton("jouemarker")->trigger();
  EXPECT_FALSE(bouton("jouemarker")->isChecked());
  EXPECT_TRUE(joueur->demandes.empty());
  // Broken repeats are not looked at between the markers.
  reprise(2, true);
  reprise(3, true);
  doc().setMarqueurStart(11, 24);
  doc().setMarqueurStop(12, 96);
  bouton("jouemarker")->trigger();
  ASSERT_EQ(état(), (Etat{true, false, true}));
  EXPECT_TRUE(bouton("jouemarker")->isChecked());
  EXPECT_TRUE(questions.empty());
  EXPECT_EQ(demande(), std::tuple(10, false, false, false, 0, true));
  EXPECT_EQ(place(), (Place{11, 24, 1}));
  EXPECT_EQ(premièreMontrée(), 11) << "the marker's bar was off the screen";
}

TEST_F(Jeu, ThePlayEntriesAndSpaceDoWhatTheirButtonsDoInEveryState) {
  enum Mode { Arrêt, Joue, Marqueurs };
  const struct {
    Mode avant;
    Mode après[5];  // after menu 0, "joue", Space, menu 3, "jouemarker"
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
  const auto mode = [this] {
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
      ASSERT_EQ(mode(), c.avant);
      kCommandes[i]();
      EXPECT_EQ(mode(), c.après[i]);
    }
}

TEST_F(Jeu, TheViewFollowsThePieceForwardBackAndAtTheRepeats) {
  ouvreEssai(30);
  const int n = ftab->hScroll()->pageStep();
  ASSERT_GE(n, 2);
  ASSERT_LT(n, 10);
  reprise(1, true);
  reprise(2, false);
  lance();
  // The bar reported, a jump of the repeats, the first bar shown after: the
  // last whole bar shown moves nothing; past the edge the bar becomes the
  // first shown; back before it (the repeat went back); a jump within the
  // screen brings the bar to the front.
  const std::array<int, 3> kCas[] = {{n, 0, 1}, {n + 1, 0, n + 1}, {2, 0, 2}, {3, -1, 3}};
  for (const auto& [mesure, saut, premier] : kCas) {
    joueur->saut = saut;
    tick(mesure, 0);
    EXPECT_EQ(std::pair(premièreMontrée(), ftab->hScroll()->value()), std::pair(premier, premier));
  }
  // From another bar the repeats are off, and a jump reported moves nothing.
  touche(Qt::Key_Space);
  curseur(4, 0, 1);
  lance();
  const int premier = premièreMontrée();
  joueur->saut = -1;
  tick(premier + 1, 0);
  EXPECT_EQ(premièreMontrée(), premier);
  // The player is told when the cursor's track changes; a bar reported past the
  // end keeps the cursor in the last one; the end of the piece stops everything.
  ASSERT_TRUE(doc().addPiste(1, vt->guitare()));
  ftab->tbPistesUpdate();
  doc().setCurseurPiste(2);
  tick(31, 10);
  EXPECT_EQ(std::pair(place(), joueur->pistes.back()), std::pair(Place{30, 10, 1}, 2));
  tick(30, -1);
  EXPECT_EQ(état(), (Etat{false, false, false}));
}

TEST_F(Jeu, TheCursorFollowsThePlayerAndIsRedrawnOnlyWhenItChangesColumn) {
  ouvreEssai(2);
  lance();
  Peintures peintures;
  ftab->picTab()->installEventFilter(&peintures);
  QCoreApplication::processEvents();
  const struct {
    int mesure, x;
    Place place;
    bool peint;
  } kCas[] = {{1, 30, {1, 30, 1}, true},
              {1, 47, {1, 47, 1}, false},
              {1, 48, {1, 48, 1}, true},
              {2, 0, {2, 0, 1}, true}};
  for (const auto& c : kCas) {
    SCOPED_TRACE(testing::Message() << c.mesure << " " << c.x);
    const QImage avant = ftab->image().copy();
    peintures.n = 0;
    tick(c.mesure, c.x);
    QCoreApplication::processEvents();
    EXPECT_EQ(place(), c.place);
    EXPECT_EQ(std::pair(peintures.n > 0, ftab->image() != avant), std::pair(c.peint, c.peint));
  }
  ftab->picTab()->removeEventFilter(&peintures);
}

TEST_F(Jeu, TheStopPutsTheCursorOnTheGridAndInsideThePiece) {
  ouvreEssai(3);
  // Nothing plays: the stop is harmless, and the player is not called.
  bouton("joue")->setChecked(true);
  ftab->TimerMIDIStop(true);
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_EQ(joueur->arrêts, 0);
  // The view (2: a sixteenth a column), the place reported, the place after
  // the stop: back on the column before; a place past the bar's width, or
  // past the last bar, starts its bar again.
  const struct {
    int vue, mesure, x, curseurMesure;
    Place place;
  } kCas[] = {{1, 2, 37, 0, {2, 24, 1}},
              {2, 2, 37, 0, {2, 36, 1}},
              {1, 3, 240, 0, {3, 0, 1}},
              {1, 3, 48, 9, {3, 0, 1}}};
  for (const auto& c : kCas) {
    ftab->mnuTabDisplay(c.vue);
    lance();
    tick(c.mesure, c.x);
    if (c.curseurMesure != 0) doc().setCurseurMesure(static_cast<i16>(c.curseurMesure));
    ftab->TimerMIDIStop(c.curseurMesure == 0);
    EXPECT_EQ(place(), c.place) << c.x;
  }
  EXPECT_EQ(état(), (Etat{false, true, false})) << "without its flag the buttons stay";
}

TEST_F(Jeu, TheFretboardShowsWhatSoundsOpenStringsExceptedAndKeepsAStringTheLibraryLeaves) {
  ouvreEssai();
  vt->setMancheVisible(true);
  QCoreApplication::processEvents();
  lance();
  EXPECT_EQ(vt->mancheContenu(), 4);
  const auto points = [this](std::initializer_list<std::pair<int, int>> l) {
    vt->clearManche();
    for (const auto& [f, c] : l)
      vt->drawRond(f, c, kRondJaune);
    return vt->manche().image().copy();
  };
  const auto joue = [this](int c, int f, int durée) {
    joueur->notes[static_cast<std::size_t>(c)] = corde(c) + f;
    joueur->durées[static_cast<std::size_t>(c)] = durée;
  };
  const auto montré = [this](int x) {
    vt->clearManche();
    tick(1, x);
    return vt->manche().image().copy();
  };
  const QImage vide = points({});
  // String 1 at fret 5, string 2 open: one dot.
  joue(1, 5, 20);
  joue(2, 0, 20);
  EXPECT_EQ(montré(0), points({{5, 1}}));
  // 32767 on string 1 leaves its dot, while string 3 starts at fret 2.
  joue(1, 9, 32767);
  joue(3, 2, 10);
  EXPECT_EQ(montré(4), points({{5, 1}, {2, 3}}));
  // Nothing changed: the board is not cleared and drawn again.
  EXPECT_EQ(montré(8), vide);
  // A string falling silent is no change; a new note is.
  joue(3, 2, 0);
  joue(1, 7, 5);
  EXPECT_EQ(montré(12), points({{7, 1}}));
  // The stop gives the board back to the cursor's column (empty here).
  touche(Qt::Key_Space);
  EXPECT_EQ(vt->manche().image(), vide);
  // A drum track shows nothing.
  doc().setStaffType(1, kStaffBatterie);
  lance();
  joue(1, 3, 5);
  EXPECT_EQ(montré(0), vide);
}

TEST_F(Jeu, RecordedNotesAreWrittenFromTheirStartToTheCursorTiedAcrossBarLinesUntilRecordIsUp) {
  ouvreEssai(4);
  touche(Qt::Key_R, Qt::ControlModifier);
  ASSERT_TRUE(bouton("record")->isChecked());
  EXPECT_TRUE(menu(10)->isChecked());
  ftab->mnuTabToolVolume(4);  // mf
  lance();
  // Held from tick 0 to tick 40: a dotted eighth, the longest length that fits.
  tick(1, 0);
  midi(1, 5, true);
  tick(1, 40);
  EXPECT_EQ(fret(1, 1, 0), -1) << "written when it is released";
  midi(1, 5, false);
  ASSERT_NE(note(1, 1, 0), nullptr);
  EXPECT_EQ(*note(1, 1, 0), (tNote{5, 36, 0, effet::kAucun, 0, attaque::kStandard, 79}));
  // Across two bar lines: cut at each, tied over.
  tick(1, 144);
  midi(2, 1, true);
  tick(3, 30);
  midi(2, 1, false);
  // What nobody holds is not written: a release alone, a note below the
  // open string, a string the instrument lacks.
  midi(4, 3, false);
  midi(5, -1, true);
  vt->noteMidiEntrante(7, 60, true);
  // Still held when the piece stops: closed at the cursor, over the bar line.
  tick(3, 96);
  midi(3, 2, true);
  tick(4, 50);
  touche(Qt::Key_Space);
  const Ecrite kLiées[][2] = {{écrite(1, 2, 144), {1, 48, effet::kLiaison}},
                              {écrite(2, 2, 0), {1, 192, effet::kLiaison}},
                              {écrite(3, 2, 0), {1, 24, effet::kAucun}},
                              {écrite(3, 3, 96), {2, 96, effet::kLiaison}},
                              {écrite(4, 3, 0), {2, 48, effet::kAucun}}};
  for (const auto& [lue, attendue] : kLiées)
    EXPECT_EQ(lue, attendue);
  EXPECT_EQ(compte(), 6) << "nothing else";
  EXPECT_EQ(doc().CurseurX(), 48);
  // The whole take is one undo.
  EXPECT_EQ(doc().getUndoDepth(), 1);
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(compte(), 0);
  // Record up during the piece with a note held: the note ends where the cursor
  // stands then, and its release writes nothing more.
  lance();
  tick(1, 48);
  midi(1, 3, true);
  tick(1, 144);
  bouton("record")->trigger();
  EXPECT_FALSE(menu(10)->isChecked());
  tick(2, 24);
  midi(1, 3, false);
  EXPECT_EQ(std::pair(écrite(1, 1, 48), compte()), std::pair(Ecrite(3, 96, 0), 1));
  // With record up, the notes received only sound.
  midi(2, 4, true);
  tick(2, 72);
  midi(2, 4, false);
  EXPECT_EQ(compte(), 1);
  // Nothing plays: a note received is written at once at the cursor, with the
  // rhythm toolbar's length, and the cursor stays.
  touche(Qt::Key_Space);
  menu(10)->trigger();
  curseur(2, 96, 1);
  midi(4, 7, true);
  EXPECT_EQ(écrite(2, 4, 96), Ecrite(7, ftab->outils().tbGetNoteDurée(), 0));
  EXPECT_EQ(doc().CurseurX(), 96);
}

TEST_F(Jeu, AMidiNoteReachesTheOpenHarmonizerAndSoundsUnlessItIsRecorded) {
  ouvreEssai();
  const int n = corde(2) + 3;
  vt->fenetres().enregistrer(fen::FHarmony,
                             [this](VT& v) { return new FenetreEssai(v, fen::FHarmony, journal); });
  // Open or not, record, pressed; heard by the harmonizer, sounded on the track's channel.
  const std::array<bool, 5> kCas[] = {{false, false, true, false, true},
                                      {true, false, true, true, true},
                                      {true, false, false, false, true},
                                      {true, true, true, false, false},
                                      {true, true, false, false, false}};
  for (const auto& [ouvert, enregistre, enfoncée, entendue, sonnée] : kCas) {
    SCOPED_TRACE(testing::Message() << ouvert << enregistre << enfoncée);
    if (ouvert) vt->montreFenetre(fen::FHarmony);
    if (ftab->enregistre() != enregistre) bouton("record")->trigger();
    journal.clear();
    sons.clear();
    vt->noteMidiEntrante(2, n, enfoncée);
    EXPECT_EQ(contient(journal, QStringLiteral("FHarmony receiveNote %1").arg(n)), entendue);
    const QString son =
        enfoncée ? QStringLiteral("noteOn %1 1 127").arg(n) : QStringLiteral("noteOff %1 1").arg(n);
    EXPECT_EQ(contient(sons, son), sonnée);
  }
  EXPECT_EQ(fret(1, 2, 0), 3) << "the note recorded was written";
}

// Two short bars at the fastest tempo, 144 ticks of 4.9 ms (0.7 s), played
// to their end, then in a loop that only its button ends.
TEST_F(Jeu, ThePieceIsHeardTheCursorFollowsItAndALoopEndsOnItsButton) {
  ouvre();
  auto sortie = std::make_shared<SortieJournal>();
  vt->setSon(std::make_unique<SonJournal>(sons, sortie));
  doc().tempo = 255;
  doc().addMesure();
  ASSERT_TRUE(doc().setMesureSignature(1, 1, 4));
  ASSERT_TRUE(doc().setMesureSignature(2, 2, 4));
  pose(1, 1, 0, 5, 24);
  pose(1, 1, 24, 7, 24);
  pose(2, 2, 0, 3, 48);
  ftab->refreshPicture();
  // The note-ons heard, in order (a velocity of 0 is a release).
  const auto notesJouées = [&] {
    std::vector<int> r;
    for (const MessageDate& m : sortie->messages())
      if ((midiStatus(m.message) & 0xF0) == 0x90 && midiData2(m.message) > 0)
        r.push_back(midiData1(m.message));
    return r;
  };
  touche(Qt::Key_Space);
  EXPECT_EQ(ftab->lecture().tmrGFX.interval(), 4) << "60000 / (255 * 48)";
  EXPECT_TRUE(QTest::qWaitFor([this] { return doc().CurseurMesure() == 2; }, 2000));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !ftab->isPlaying(); }, 2000));
  EXPECT_FALSE(bouton("joue")->isChecked());
  EXPECT_EQ(notesJouées(), (std::vector<int>{corde(1) + 5, corde(1) + 7, corde(2) + 3}));
  EXPECT_EQ(doc().CurseurX() % 24, 0);

  menu(5)->trigger();
  curseur(1, 0, 1);
  touche(Qt::Key_Space);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        const auto n = notesJouées();
        return std::count(n.begin(), n.end(), corde(1) + 5) >= 3;
      },
      2000));
  EXPECT_TRUE(ftab->isPlaying()) << "gone round again";
  bouton("joue")->trigger();
  EXPECT_FALSE(ftab->isPlaying());
  // Every note it started has been released.
  std::array<int, 128> sonnent{};
  for (const MessageDate& m : sortie->messages()) {
    const int s = midiStatus(m.message) & 0xF0;
    const auto n = static_cast<std::size_t>(midiData1(m.message));
    if (s == 0x90 && midiData2(m.message) > 0) ++sonnent[n];
    if (s == 0x80 || (s == 0x90 && midiData2(m.message) == 0)) sonnent[n] = 0;
  }
  EXPECT_EQ(std::count(sonnent.begin(), sonnent.end(), 0), 128);
}

}  // namespace
}  // namespace vt::essai
