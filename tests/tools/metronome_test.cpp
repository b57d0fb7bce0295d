// The metronome's window: digits, beats, tap tempo, the clock and its clicks, the keys
// and the settings it keeps; and how the three tool windows join the main window.

#include "player/metronome.h"
#include "controls/up_down.h"
#include "outils_banc.h"

namespace vt::essai {
namespace {

class Metronome : public Outils {
 protected:
  FMetronome& ouvreMetronome() {
    ouvre();
    FMetronome& m = fenetre<FMetronome>(fen::FMetronome);
    midi();
    return m;
  }
  // A press on the upper or the lower half of an up-down control.
  static void appuie(VTUpDn* ud, bool haut) {
    const QPointF p(11, haut ? 5 : 35);
    QMouseEvent appui(QEvent::MouseButtonPress, p, ud->mapToGlobal(p), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ud, &appui);
    QMouseEvent relâche(QEvent::MouseButtonRelease, p, ud->mapToGlobal(p), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(ud, &relâche);
  }
  // The notes of the clicks sent since the last look.
  std::vector<int> nouveauxClics() {
    for (const std::string& m : midi())
      if (m[0] == '9' && m.substr(6) != "00") vus.push_back(std::stoi(m.substr(3, 2), nullptr, 16));
    return vus;
  }
  bool attendsClics(std::size_t n) {
    return QTest::qWaitFor([&] { return nouveauxClics().size() >= n; }, 3000);
  }
  std::vector<int> vus;
};

TEST_F(Metronome, DigitsBeatsTapTempoAndKeysStayWithinTheDisplayAndTheSettingsKeepThem) {
  FMetronome& m = ouvreMetronome();
  EXPECT_EQ(m.tempo(), 120);
  EXPECT_EQ(m.Temps(), 4);
  // Down on the hundreds, down on the tens twice (000 is no tempo: the digit
  // goes back, and the status bar says why), up on the units.
  const std::tuple<VTUpDn*, bool, int> appuis[] = {{m.btnHigh(), false, 20},
                                                   {m.btnMed(), false, 10},
                                                   {m.btnMed(), false, 10},
                                                   {m.btnLow(), true, 11}};
  for (const auto& [ud, haut, tempo] : appuis) {
    appuie(ud, haut);
    EXPECT_EQ(m.tempo(), tempo);
  }
  EXPECT_EQ(vt->panneau({})->text(), vt->loadString(1512));
  EXPECT_FALSE(m.setTempo(1000));
  EXPECT_FALSE(m.setTempo(0));
  EXPECT_TRUE(m.setTempo(96));
  const Settings& s = vt->settings();
  EXPECT_EQ((std::vector<int>{m.btnHigh()->Value(), m.btnMed()->Value(), m.btnLow()->Value(),
                              s.TempoH, s.TempoM, s.TempoL}),
            (std::vector<int>{0, 9, 6, 0, 9, 6}));

  // Beats to the bar, tap tempo, the keys and the language.
  m.btnBeat()->Click();
  EXPECT_EQ(m.Temps(), 5);
  EXPECT_EQ(m.labBeat()->text(), QStringLiteral("5 beats to the bar"));
  QTest::keyClick(&m, Qt::Key_B);
  EXPECT_EQ(m.Temps(), 6);
  QTest::keyClick(&m, Qt::Key_B, Qt::ShiftModifier);
  EXPECT_EQ(m.Temps(), 5);
  m.setTemps(16);
  m.btnBeat()->Click();
  EXPECT_EQ(m.Temps(), 1);
  EXPECT_EQ(vt->settings().Temps, 1);

  // Taps 400 ms apart: 150.
  m.tape(10'000);
  EXPECT_EQ(m.tempo(), 96) << "one tap is no tempo";
  m.tape(10'400);
  EXPECT_EQ(m.tempo(), 150);
  QTest::keyClick(&m, Qt::Key_Up);
  QTest::keyClick(&m, Qt::Key_PageDown);
  EXPECT_EQ(m.tempo(), 141);  // one up, ten down
  QTest::keyClick(&m, Qt::Key_A);
  EXPECT_FALSE(m.accent());
  EXPECT_EQ(vt->settings().setMétronomeAccent, kFaux);
  m.setTempo(999);
  QTest::keyClick(&m, Qt::Key_Up);
  EXPECT_EQ(m.tempo(), 999);

  vt->settings().setLang = 0;
  vt->changeLanguage();
  EXPECT_EQ(m.windowTitle(), QStringLiteral("Métronome"));
  EXPECT_EQ(m.labBeat()->text(), QStringLiteral("1 temps par mesure"));
  EXPECT_EQ(m.btnTap()->Caption(), QStringLiteral("TAP"));
}

TEST_F(Metronome, SettingsOutsideTheDisplayAreRefusedAtLoad) {
  règle(QStringLiteral("Metronome/TempoM"), QStringLiteral("12"));
  règle(QStringLiteral("Metronome/Temps"), QStringLiteral("40"));
  règle(QStringLiteral("Metronome/setMétronomeAccent"), QStringLiteral("False"));
  FMetronome& m = ouvreMetronome();
  EXPECT_EQ(m.tempo(), 120);
  EXPECT_EQ(m.Temps(), 4);
  EXPECT_FALSE(m.accent());
}

TEST_F(Metronome, TheClockClicksStartsAgainAtTheFirstBeatAndTheDisplayFollowsIt) {
  FMetronome& m = ouvreMetronome();
  m.setTempo(600);  // a beat every 100 ms
  m.setTemps(3);
  m.metronomeStart();
  ASSERT_TRUE(m.enMarche());
  EXPECT_EQ(m.timerGFX().interval(), 3);  // 60000 / 600 / 36 = 2.8
  EXPECT_EQ(m.battement(), 1);
  ASSERT_TRUE(attendsClics(2));
  EXPECT_EQ(vus[0], 33);
  EXPECT_EQ(vus[1], 34);
  // The screen's timer has read the counter: a beat further, the pendulum in between.
  ASSERT_TRUE(QTest::qWaitFor([&] { return m.battement() >= 2; }, 3000));
  EXPECT_GE(m.frameTicTac(), 0);
  EXPECT_LT(m.frameTicTac(), FMetronome::kFrames);

  // Play while playing: the first beat again.
  vus.clear();
  m.metronomeStart();
  ASSERT_TRUE(attendsClics(2));
  EXPECT_EQ(vus[0], 33);
  EXPECT_EQ(vus[1], 34);
  // The accent switched off while playing: weak beats only from then on.
  m.optAccent()->Click();
  vus.clear();
  nouveauxClics();
  vus.clear();
  ASSERT_TRUE(attendsClics(3));
  EXPECT_EQ(vus, (std::vector<int>{34, 34, 34}));

  QTest::keyClick(&m, Qt::Key_Space);
  EXPECT_FALSE(m.enMarche());
  EXPECT_EQ(m.battement(), 0);
  EXPECT_EQ(GetCompteur(), 0);
  EXPECT_FALSE(m.timerGFX().isActive());
  // Silent: the counter runs, nothing is sent.
  m.optMetro()->Click();
  EXPECT_EQ(vt->settings().setMétro, 0);
  midi();
  vus.clear();
  QTest::keyClick(&m, Qt::Key_Space);
  ASSERT_TRUE(QTest::qWaitFor([&] { return m.battement() >= 2; }, 3000));
  EXPECT_TRUE(nouveauxClics().empty());
  // Closing the window stops the clock.
  ASSERT_TRUE(vt->fenetres().décharge(fen::FMetronome));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(GetCompteur(), 0);
}

// The tuner, the metronome and the media player join the main window.
TEST_F(Metronome, TheToolWindowsOpenFromTheMenuTheirKeysTheToolbarAndAtStart) {
  règle("Options/setStartWith4", "True");
  ouvre();
  EXPECT_TRUE(vt->isFormLoaded(fen::FMetronome)) << "a start-up window";
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccordeur));
  EXPECT_EQ(vt->mnuFen(2)->shortcut(), QKeySequence(Qt::Key_F5));
  EXPECT_EQ(vt->mnuFen(3)->shortcut(), QKeySequence(Qt::Key_F6));
  EXPECT_EQ(vt->mnuFen(4)->shortcut(), QKeySequence(Qt::Key_F7));
  EXPECT_TRUE(vt->mnuFen(2)->isEnabled());
  vt->mnuFen(3)->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccordeur));
  vt->boutonBarre(QStringLiteral("mci"))->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FMultimedia));
  vt->fenetres().décharge(fen::FMetronome);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_FALSE(vt->isFormLoaded(fen::FMetronome));
  vt->boutonBarre(QString::fromUtf8("métronome"))->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FMetronome));
}

TEST_F(Metronome, OptionsOpenOnTheTunersAndTheMetronomesPages) {
  crée();
  OptionsEssai::enregistre(*vt, journal);
  ouvre();
  fenetre<FAccordeur>(fen::FAccordeur).btnOptions()->Click();
  EXPECT_EQ(journal, Journal{"selectTab KeyDiv"});
  journal.clear();
  FMetronome& m = fenetre<FMetronome>(fen::FMetronome);
  emit m.findChild<VTPictureButton*>(QStringLiteral("btnOptions"))->Click();
  EXPECT_EQ(journal, Journal{QString::fromUtf8("selectTab KeyMét")});
  EXPECT_EQ(modales, (std::vector<QString>{"FOptions", "FOptions"}));
}

}  // namespace
}  // namespace vt::essai
