// The picture button (its pictures under the mouse, its frames, its click) and
// the up-down control (presses above and below Milieu, the bounds, the repeat
// while held), driven by synthetic mouse events.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "controls/picture_button.h"
#include "controls/up_down.h"

namespace vt {
namespace {

QPixmap couleur(const QColor& c, int largeur = 40) {
  QPixmap p(largeur, 40);
  p.fill(c);
  return p;
}

class Bouton : public ::testing::Test {
 protected:
  void SetUp() override {
    b.setPictureOff(couleur(Qt::gray));
    b.setPictureOver(couleur(Qt::yellow));
    b.setPictureOn(couleur(Qt::blue));
    b.resize(40, 40);
    b.show();
  }
  QColor vu() const { return b.picMain().toImage().pixelColor(20, 20); }
  // Frames "anim00NN.bmp" of distinct colours in a skin folder; the frame shown
  // after each of `tics` ticks, by its number.
  void frames(int combien, int dernière) {
    for (int i = 0; i < combien; ++i)
      ASSERT_TRUE(
          couleur(QColor(10 * i, 200, 100))
              .save(dossier.filePath(QStringLiteral("anim00%1.bmp").arg(i, 2, 10, QChar('0')))));
    b.setAnimationFolder(dossier.path() + QLatin1Char('/'));
    b.setAnimatedPicturePrefix(QStringLiteral("anim00"));
    b.setLastFrame(dernière);
  }
  std::vector<int> tics(int n) {
    std::vector<int> vues;
    for (int i = 0; i < n; ++i) {
      b.animationTick();
      vues.push_back(vu().red() / 10);
    }
    return vues;
  }
  QTemporaryDir dossier;
  VTPictureButton b;
};

TEST_F(Bouton, RestOverPressedAndBackWithAClickOnlyWhenReleasedInsideAndEnabled) {
  QSignalSpy clics(&b, &VTPictureButton::Click);
  std::vector<QColor> vues{vu()};
  b.MouvementSouris(QPoint(5, 5));
  vues.push_back(vu());
  QTest::mousePress(&b, Qt::LeftButton, {}, QPoint(5, 5));
  vues.push_back(vu());
  QTest::mouseRelease(&b, Qt::LeftButton, {}, QPoint(5, 5));
  vues.push_back(vu());
  EXPECT_EQ(vues, (std::vector<QColor>{Qt::gray, Qt::yellow, Qt::blue, Qt::yellow}));
  EXPECT_EQ(clics.count(), 1);
  // Released outside: no click, and the button rests.
  QTest::mousePress(&b, Qt::LeftButton, {}, QPoint(5, 5));
  QTest::mouseRelease(&b, Qt::LeftButton, {}, QPoint(90, 90));
  EXPECT_EQ(clics.count(), 1);
  EXPECT_EQ(vu(), QColor(Qt::gray));
  // The owner reports a mouse that left for the form.
  b.MouvementSouris(QPoint(5, 5));
  b.MouvementSouris(QPoint(-3, 50));
  EXPECT_EQ(vu(), QColor(Qt::gray));
  // Disabled, it neither highlights nor clicks.
  b.setEnabled(false);
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_EQ(vu(), QColor(Qt::gray));
  QTest::mouseClick(&b, Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(clics.count(), 1);
}

TEST_F(Bouton, TheFramesRunToTheLastAndStartAgainThenStopWhenTheMouseLeaves) {
  // Without a prefix an animated button stays on its highlight.
  b.setAnimated(true);
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_FALSE(b.isAnimating());
  tics(3);
  EXPECT_EQ(vu(), QColor(Qt::yellow));
  b.MouvementSouris(QPoint(100, 5));
  frames(5, 3);  // frame 4 is a resting picture, never part of the run
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_TRUE(b.isAnimating());
  EXPECT_EQ(tics(6), (std::vector<int>{0, 1, 2, 3, 0, 1}));
  b.MouvementSouris(QPoint(100, 5));
  EXPECT_FALSE(b.isAnimating());
  EXPECT_EQ(vu(), QColor(Qt::gray));
  // Back under the mouse, the run starts from the first frame.
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_EQ(tics(1), std::vector<int>{0});
}

TEST_F(Bouton, AMissingFrameLeavesThePictureAsItIsAndTheTimerRunsTheFrames) {
  frames(2, 5);  // frames 2 to 5 are missing from this skin
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_EQ(tics(4), (std::vector<int>{0, 1, 1, 1}));
  b.MouvementSouris(QPoint(100, 5));
  b.setLastFrame(1);
  b.setAnimated(true);
  b.setFrameInterval(10);
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return vu().red() == 10; }, 3000));
}

class UpDn : public ::testing::Test {
 protected:
  void SetUp() override {
    ud.setPictureOff(couleur(Qt::gray, 22));
    ud.setPictureUp(couleur(Qt::green, 22));
    ud.setPictureDn(couleur(Qt::red, 22));
    ud.resize(22, 40);
    ud.setMilieu(20);
    ud.setMin(0);
    ud.setMax(9);
  }
  void clic(int y, int fois = 1) {
    for (int i = 0; i < fois; ++i)
      QTest::mouseClick(&ud, Qt::LeftButton, {}, QPoint(10, y));
  }
  VTUpDn ud;
};

TEST_F(UpDn, TheUpperHalfRaisesTheLowerLowersWithinTheBoundsAndHeldDownItRepeats) {
  QSignalSpy changes(&ud, &VTUpDn::Change);
  ud.setValue(5);
  std::vector<int> valeurs;
  // A press exactly at Milieu is a press on the lower half.
  for (const int y : {5, 30, 30, 20, 19}) {
    clic(y);
    valeurs.push_back(ud.Value());
  }
  EXPECT_EQ(valeurs, (std::vector<int>{6, 5, 4, 3, 4}));
  clic(5, 8);
  EXPECT_EQ(ud.Value(), 9);
  clic(30, 15);
  EXPECT_EQ(ud.Value(), 0);
  // 5, then 5 moves, 4 up to 9, then 9 down to 0: one signal per real change.
  EXPECT_EQ(changes.count(), 1 + 5 + 5 + 9);
  ud.setValue(42);
  EXPECT_EQ(ud.Value(), 9);
  ud.setValue(-3);
  EXPECT_EQ(ud.Value(), 0);
  ud.setMin(4);
  EXPECT_EQ(ud.Value(), 4);
  ud.setMax(2);  // a maximum below the minimum takes the minimum along
  EXPECT_EQ((std::vector<int>{ud.Min(), ud.Max(), ud.Value()}), (std::vector<int>{2, 2, 2}));
  // The picture follows the press; held down, it repeats until released.
  ud.setMin(0);
  ud.setMax(9);
  const qint64 repos = ud.PictureOff().cacheKey();
  EXPECT_EQ(ud.picture().cacheKey(), repos);
  QTest::mousePress(&ud, Qt::LeftButton, {}, QPoint(10, 5));
  EXPECT_EQ(ud.picture().cacheKey(), ud.PictureUp().cacheKey());
  QTest::mouseRelease(&ud, Qt::LeftButton, {}, QPoint(10, 5));
  EXPECT_EQ(ud.picture().cacheKey(), repos);
  ud.setValue(9);
  QTest::mousePress(&ud, Qt::LeftButton, {}, QPoint(10, 35));
  EXPECT_EQ(ud.picture().cacheKey(), ud.PictureDn().cacheKey());
  EXPECT_EQ(ud.Value(), 8);
  // After a pause it runs on its own, and stops when released.
  ASSERT_TRUE(QTest::qWaitFor([&] { return ud.Value() <= 6; }, 5000));
  QTest::mouseRelease(&ud, Qt::LeftButton, {}, QPoint(10, 35));
  EXPECT_EQ(ud.picture().cacheKey(), repos);
  const int lâché = ud.Value();
  EXPECT_GT(lâché, 0);
  QTest::qWait(300);
  EXPECT_EQ(ud.Value(), lâché);
  // Held long enough, it stops at the minimum.
  QTest::mousePress(&ud, Qt::LeftButton, {}, QPoint(10, 35));
  ASSERT_TRUE(QTest::qWaitFor([&] { return ud.Value() == 0; }, 5000));
  QTest::qWait(200);
  EXPECT_EQ(ud.Value(), 0);
  QTest::mouseRelease(&ud, Qt::LeftButton, {}, QPoint(10, 35));
}

}  // namespace
}  // namespace vt
