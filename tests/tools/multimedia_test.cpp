// The media player on a short WAV; skipped, with a word, where the backend
// cannot play one.
#include <QDir>
#include <QFile>
#include <QListView>
#include <QMediaPlayer>
#include <QTemporaryDir>

#include "lecteur_mci.h"
#include "outils_banc.h"
#include "sound/rendu_hors_ligne.h"

namespace vt::essai {
namespace {

// A short A4, rendered to a WAV file.
void écrisWav(const QString& chemin, int millisecondes) {
  OptionsRendu o;
  o.traîneMs = 0;
  ASSERT_TRUE(
      rendreWav({{0, midiPack(0x90, 69, 100)}, {double(millisecondes), midiPack(0x80, 69, 0)}},
                chemin.toStdString(), o)
          .ok);
}

class Multimedia : public Outils {
 protected:
  FMultimedia& ouvreLecteur() {
    ouvre();
    FMultimedia& m = fenetre<FMultimedia>(fen::FMultimedia);
    m.message = [this](const QString& t) { boîtes << t; };
    return m;
  }
  bool image(FMultimedia& m, int index) {
    return m.btnStart()->PictureOff().toImage().convertToFormat(QImage::Format_RGB32) ==
           QImage(vt->skinFile(index)).convertToFormat(QImage::Format_RGB32);
  }
  QStringList boîtes;
  QTemporaryDir médias;
};

TEST_F(Multimedia, TheToggleOpensPlaysStopsAndTheMediaEnds) {
  ASSERT_TRUE(médias.isValid());
  const QString la = médias.filePath(QStringLiteral("la.wav"));
  écrisWav(la, 600);
  FMultimedia& m = ouvreLecteur();
  EXPECT_TRUE(image(m, 21));
  ASSERT_TRUE(m.choisitFichier(la));
  EXPECT_EQ(vt->settings().mciPath, médias.path());
  EXPECT_EQ(m.choix(), QUrl::fromLocalFile(la));

  m.btnStart_Click();
  ASSERT_TRUE(m.joue());
  EXPECT_TRUE(image(m, 22));
  QMediaPlayer& p = m.lecteur().player();
  const bool lu = QTest::qWaitFor(
      [&] { return p.playbackState() == QMediaPlayer::PlayingState || !m.joue(); }, 5000);
  if (!lu || !m.joue() || p.error() != QMediaPlayer::NoError)
    GTEST_SKIP() << "the media backend cannot play a WAV file here: "
                 << p.errorString().toStdString();
  // No audio output on the machine: said once, and the media goes on.
  EXPECT_EQ(boîtes.count(vt->loadString(1921)), LecteurMci::sortieAudioDisponible() ? 0 : 1);
  boîtes.removeAll(vt->loadString(1921));

  m.btnStart_Click();
  EXPECT_FALSE(m.joue());
  EXPECT_TRUE(image(m, 21));
  EXPECT_EQ(p.playbackState(), QMediaPlayer::StoppedState);
  // A loop from 50 to 250 ms keeps the 600 ms file playing.
  m.btnStart_Click();
  ASSERT_TRUE(m.joue());
  ASSERT_TRUE(QTest::qWaitFor([&] { return p.position() > 0; }, 3000));
  m.lecteur().setBoucleA(50);
  m.lecteur().setBoucleB(250);
  QTest::qWait(800);
  EXPECT_TRUE(m.joue());
  EXPECT_LT(p.position(), 350);
  m.btnStart_Click();
  // Again, to its end: the toggle comes back by itself.
  m.btnStart_Click();
  ASSERT_TRUE(m.joue());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !m.joue(); }, 5000));
  EXPECT_TRUE(image(m, 21));
  EXPECT_TRUE(boîtes.isEmpty()) << boîtes.join(QLatin1Char('\n')).toStdString();

  // Closing stops and closes.
  m.btnStart_Click();
  ASSERT_TRUE(vt->fenetres().décharge(fen::FMultimedia));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(vt->isFormLoaded(fen::FMultimedia));
}

TEST_F(Multimedia, TheBackendsErrorIsShownInABoxOnce) {
  ASSERT_TRUE(médias.isValid());
  const QString faux = médias.filePath(QStringLiteral("faux.wav"));
  QFile f(faux);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("this is no sound at all, only words in a file named like a sound");
  f.close();
  FMultimedia& m = ouvreLecteur();
  ASSERT_TRUE(m.choisitFichier(faux));
  m.btnStart_Click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !m.joue(); }, 5000));
  boîtes.removeAll(vt->loadString(1921));
  ASSERT_EQ(boîtes.size(), 1);
  EXPECT_TRUE(boîtes[0].startsWith(vt->loadString(1911))) << boîtes[0].toStdString();
  EXPECT_NE(m.lecteur().dernierResultat(), 0);
  EXPECT_TRUE(image(m, 21));
}

TEST_F(Multimedia, SpeedLoopTypeFilterAndTheFolderKept) {
  ASSERT_TRUE(médias.isValid());
  écrisWav(médias.filePath(QStringLiteral("a.wav")), 50);
  QFile(médias.filePath(QStringLiteral("b.mid"))).open(QIODevice::WriteOnly);
  FMultimedia& m = ouvreLecteur();
  m.setVitesse(40);
  EXPECT_EQ(m.sldVitesse()->value(), 50);
  EXPECT_DOUBLE_EQ(m.lecteur().vitesse(), 0.5);
  m.sldVitesse()->setValue(75);
  EXPECT_DOUBLE_EQ(m.lecteur().vitesse(), 0.75);

  LecteurMci& l = m.lecteur();
  l.setBoucleB(500);
  EXPECT_FALSE(l.boucle()) << "B before A is not kept";
  l.setBoucleA(1000);
  l.setBoucleB(800);
  EXPECT_FALSE(l.boucle());
  l.setBoucleB(2500);
  EXPECT_TRUE(l.boucle());
  l.setBoucleA(3000);  // past B: B is dropped
  EXPECT_EQ(l.boucleB(), -1);
  m.effaceBoucle();
  EXPECT_EQ(m.labBoucle()->text(), vt->loadString(1917));

  // The type filter: the MIDI file shows with its type only.
  ASSERT_TRUE(m.choisitFichier(médias.filePath(QStringLiteral("a.wav"))));
  EXPECT_FALSE(m.choisitFichier(médias.filePath(QStringLiteral("b.mid"))));
  m.combFileType()->setCurrentIndex(1);
  m.combFileType_Change(1);
  EXPECT_TRUE(m.choisitFichier(médias.filePath(QStringLiteral("b.mid"))));
  EXPECT_EQ(vt->settings().mciPath, médias.path());
  ASSERT_TRUE(vt->fenetres().décharge(fen::FMultimedia));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

  // Opened again, it is in the same folder.
  FMultimedia& n = fenetre<FMultimedia>(fen::FMultimedia);
  EXPECT_EQ(vt->settings().mciPath, médias.path());
  EXPECT_EQ(n.cmbLecteur()->currentData().toString(), vt->settings().mciDrive);
}

}  // namespace
}  // namespace vt::essai
