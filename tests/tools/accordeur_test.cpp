// The tuner: the open string struck through the logging output, the wheel, the
// tuning list, the keys, and the Listen page.
#include <cmath>
#include <numbers>

#include "ecoute_accordeur.h"
#include "outils_banc.h"
#include "roue_accordeur.h"

namespace vt::essai {
namespace {

using Midi = std::vector<std::string>;

class Accordeur : public Outils {
 protected:
  FAccordeur& ouvreAccordeur() {
    ouvre();
    FAccordeur& t = fenetre<FAccordeur>(fen::FAccordeur);
    midi();
    return t;
  }
  void souris(QWidget* w, QEvent::Type type, QPointF p) {
    const Qt::MouseButton b = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons tenus =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent e(type, p, w->mapToGlobal(p), b, tenus, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &e);
  }
  void glisse(QWidget* w, double y) { souris(w, QEvent::MouseMove, {110, y}); }
  void clique(QWidget* w, QPointF p) {
    souris(w, QEvent::MouseButtonPress, p);
    souris(w, QEvent::MouseButtonRelease, p);
  }
};

TEST_F(Accordeur, TheChosenStringIsStruckAgainUntilStoppedByClickOrKeyOrClosing) {
  FAccordeur& t = ouvreAccordeur();
  EXPECT_EQ(t.Timer1().interval(), FAccordeur::kIntervalleFrappe);
  t.choisitCorde(6);
  // Nothing sounded before: the timer's strike at once, off then on.
  EXPECT_EQ(midi(), (Midi{"90 28 00", "90 28 7F"}));
  EXPECT_TRUE(t.Timer1().isActive());
  EXPECT_EQ(t.noteSonnante(), 40);
  EXPECT_TRUE(t.btnRoue()->allumée());
  EXPECT_EQ(t.txt()->text(), QStringLiteral("String 6: E2 — 82.41 Hz"));
  EXPECT_EQ(vt->mancheContenu(), 2);
  t.Timer1_Timer();
  EXPECT_EQ(midi(), (Midi{"90 28 00", "90 28 7F"}));
  // Another string: the one sounding is released first.
  t.choisitCorde(5);
  EXPECT_EQ(midi(), (Midi{"90 28 00", "90 2D 00", "90 2D 7F"}));
  t.btnStop_Click();
  EXPECT_EQ(midi(), (Midi{"90 2D 00"}));
  EXPECT_FALSE(t.Timer1().isActive());
  EXPECT_EQ(t.noteSonnante(), -1);
  EXPECT_FALSE(t.btnRoue()->allumée());
  EXPECT_EQ(t.txt()->text(), vt->loadString(1603));
  t.btnStop_Click();
  EXPECT_TRUE(midi().empty()) << "nothing left to release";

  // Keys choose, start and stop: the note sounding after each key; no ninth string.
  const std::pair<Qt::Key, int> touches[] = {{Qt::Key_2, 59},      {Qt::Key_Down, 55},
                                             {Qt::Key_Space, -1},  {Qt::Key_Space, 55},
                                             {Qt::Key_Escape, -1}, {Qt::Key_9, -1}};
  for (const auto& [touche, note] : touches) {
    QTest::keyClick(&t, touche);
    EXPECT_EQ(t.noteSonnante(), note) << touche;
    EXPECT_EQ(t.Timer1().isActive(), note != -1) << touche;
  }

  // The language follows; closing releases the note.
  t.choisitCorde(1);
  midi();
  vt->settings().setLang = 0;
  vt->changeLanguage();
  EXPECT_EQ(t.windowTitle(), QStringLiteral("Accordeur"));
  EXPECT_EQ(t.txt()->text(), QStringLiteral("Corde 1 : E4 — 329,63 Hz"));
  EXPECT_EQ(t.cmbAccordage()->currentText(), QStringLiteral("Guitare, accordage standard"));
  ASSERT_TRUE(vt->fenetres().décharge(fen::FAccordeur));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(midi(), (Midi{"90 40 00"}));
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccordeur));
}

TEST_F(Accordeur, TheWheelTurnsEverySevenPixelsOfDragAndItsLampsChooseAString) {
  FAccordeur& t = ouvreAccordeur();
  RoueAccordeur* roue = t.btnRoue();
  t.choisitCorde(3);
  midi();
  // Down past 100 twips (6.67 pixels): the next string; less: nothing.
  souris(roue, QEvent::MouseButtonPress, {110, 100});
  glisse(roue, 106);
  EXPECT_EQ(t.corde(), 3);
  glisse(roue, 107);
  EXPECT_EQ(t.corde(), 4);
  EXPECT_EQ(midi(), (Midi{"90 37 00", "90 32 00", "90 32 7F"}));
  // The anchor moved with the step: back up twice.
  glisse(roue, 100);
  glisse(roue, 93);
  EXPECT_EQ(t.corde(), 2);
  // Never past the strings there are.
  for (int y = 86; y > 0; y -= 7)
    glisse(roue, y);
  EXPECT_EQ(t.corde(), 1);
  souris(roue, QEvent::MouseButtonRelease, {110, 2});
  EXPECT_EQ(t.corde(), 1) << "a drag is no click";
  midi();
  // A click on the lamp of string 6, then on the centre lamp: stop, and again.
  clique(roue, RoueAccordeur::centreLampe(6));
  EXPECT_EQ(t.corde(), 6);
  EXPECT_EQ(midi(), (Midi{"90 40 00", "90 28 00", "90 28 7F"}));
  clique(roue, {110, 110});
  EXPECT_FALSE(t.Timer1().isActive());
  clique(roue, {110, 110});
  EXPECT_TRUE(t.Timer1().isActive());
}

TEST_F(Accordeur, ATuningOfTheListBecomesTheInstrumentAndSoundsAtOnce) {
  FAccordeur& t = ouvreAccordeur();
  EXPECT_EQ(t.cmbAccordage()->currentText(), QStringLiteral("Guitar, standard tuning"));
  t.choisitCorde(6);
  midi();
  t.cmbAccordage_Click(1);  // drop D
  EXPECT_EQ(vt->settings().setGuitare, 2);
  EXPECT_EQ(vt->guitare().corde[6], 38);
  EXPECT_EQ(midi(), (Midi{"90 28 00", "90 26 00", "90 26 7F"}));
  // A seven-string guitar; back to four strings, the wheel keeps to them.
  const int sept = t.cmbAccordage()->findText(QStringLiteral("Seven-string guitar"));
  ASSERT_GE(sept, 0);
  t.cmbAccordage_Click(sept);
  t.choisitCorde(7);
  EXPECT_EQ(t.noteSonnante(), 35);
  t.cmbAccordage_Click(t.cmbAccordage()->findText(QStringLiteral("Four-string bass")));
  EXPECT_EQ(t.btnRoue()->nbrCordes(), 4);
  EXPECT_EQ(t.corde(), 4);
  EXPECT_EQ(t.noteSonnante(), 28);
  // A tuning from outside the catalogue shows as a custom one.
  vt->guitare().corde[1] = 65;
  t.synchroniseAccordage();
  EXPECT_TRUE(t.cmbAccordage()->currentText().startsWith(vt->loadString(573)));
  const int n = t.cmbAccordage()->count();
  t.cmbAccordage_Click(n - 1);
  EXPECT_EQ(vt->guitare().corde[1], 65) << "the custom entry changes nothing";
}

TEST_F(Accordeur, ListenSaysWhenThereIsNoInputAndReadsTheStringItHears) {
  FAccordeur& t = ouvreAccordeur();
  t.ecoute()->setChoixPeripherique([] { return QAudioDevice(); });
  t.choisitCorde(6);
  midi();
  QTest::keyClick(&t, Qt::Key_L);
  ASSERT_TRUE(t.ecoutePage());
  EXPECT_EQ(midi(), (Midi{"90 28 00"})) << "the reference note would be heard";
  EXPECT_TRUE(t.ecoute()->isVisible());
  EXPECT_FALSE(t.btnRoue()->isVisible());
  EXPECT_EQ(t.ecoute()->entree().etat(), EntreeAudio::Etat::SansPeripherique);
  EXPECT_EQ(t.txt()->text(), vt->loadString(1608));

  // An A string 12 cents sharp, as a microphone would bring it, by pieces.
  const double hz = 110 * std::exp2(12.0 / 1200);
  std::vector<float> son(44100);
  for (std::size_t i = 0; i < son.size(); ++i) {
    const double ph = 2 * std::numbers::pi * hz * double(i) / 44100;
    son[i] = float(0.3 * std::sin(ph) + 0.2 * std::sin(2 * ph) + 0.1 * std::sin(3 * ph));
  }
  for (std::size_t p = 0; p < son.size(); p += 1024) {
    t.ecoute()->recoit(
        std::span<const float>(son).subspan(p, std::min<std::size_t>(1024, son.size() - p)), 44100);
    if (p % 2048 == 0) t.ecoute()->analyse();
  }
  const LectureAccordeur& l = t.ecoute()->lecture();
  ASSERT_TRUE(l.voisée);
  EXPECT_EQ(l.note.corde, 5);
  EXPECT_NEAR(l.note.centsCorde, 12, 0.5);
  EXPECT_EQ(l.note.midi, 45);
  EXPECT_TRUE(t.txt()->text().startsWith(QStringLiteral("String 5: +12")))
      << t.txt()->text().toStdString();

  // Back to the wheel: the input closes, the wheel returns.
  QTest::keyClick(&t, Qt::Key_L);
  EXPECT_FALSE(t.ecoutePage());
  EXPECT_FALSE(t.ecoute()->ecoute());
  EXPECT_TRUE(t.btnRoue()->isVisible());
}

TEST(EntreeAudio, EveryFormatOfTheDeviceBecomesMonoFullScale) {
  struct Cas {
    QAudioFormat::SampleFormat format;
    int canaux;
    QByteArray octets;
    std::vector<float> attendu;
  };
  const auto flottants = [](std::initializer_list<float> v) {
    QByteArray o;
    for (float f : v)
      o.append(reinterpret_cast<const char*>(&f), 4);
    return o;
  };
  const Cas cas[] = {
      {QAudioFormat::UInt8, 1, QByteArray("\x80\x00", 2), {0, -1}},
      {QAudioFormat::Int16, 1, QByteArray("\x00\x40\x00\x80", 4), {0.5f, -1}},
      {QAudioFormat::Int32, 1, QByteArray("\x00\x00\x00\xC0", 4), {-0.5f}},
      {QAudioFormat::Float, 2, flottants({0.5f, -0.25f, 1, 1}), {0.125f, 1}},
      // Only whole frames: the start of the next one waits for its end.
      {QAudioFormat::Int16, 2, QByteArray("\x00\x40\x00\x40\x00", 5), {0.5f}},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(static_cast<int>(c.format));
    QAudioFormat f;
    f.setSampleFormat(c.format);
    f.setChannelCount(c.canaux);
    f.setSampleRate(48000);
    std::vector<float> mono;
    EntreeAudio::versMono(c.octets, f, mono);
    ASSERT_EQ(mono.size(), c.attendu.size());
    for (std::size_t i = 0; i < mono.size(); ++i)
      EXPECT_FLOAT_EQ(mono[i], c.attendu[i]);
  }
}

}  // namespace
}  // namespace vt::essai
