// VTPictureButton: its pictures under the mouse, its frames, its click.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "controls/picture_button.h"

namespace vt {
namespace {

QPixmap couleur(const QColor& c) {
  QPixmap p(40, 40);
  p.fill(c);
  return p;
}

QColor couleurDe(const QPixmap& p) {
  return p.toImage().pixelColor(20, 20);
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
  // Frames "anim00NN.bmp" of distinct colours in a skin folder.
  void frames(int combien) {
    for (int i = 0; i < combien; ++i) {
      const QString nom =
          dossier.filePath(QStringLiteral("anim00%1.bmp").arg(i, 2, 10, QLatin1Char('0')));
      ASSERT_TRUE(couleur(QColor(10 * i, 200, 100)).save(nom, "BMP"));
    }
    b.setAnimationFolder(dossier.path() + QLatin1Char('/'));
    b.setAnimatedPicturePrefix(QStringLiteral("anim00"));
  }
  QTemporaryDir dossier;
  VTPictureButton b;
};

TEST_F(Bouton, RestOverPressedAndBackWithAClickOnlyWhenReleasedInsideAndEnabled) {
  QSignalSpy clics(&b, &VTPictureButton::Click);
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::gray));
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::yellow));
  QTest::mousePress(&b, Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::blue));
  QTest::mouseRelease(&b, Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::yellow));
  EXPECT_EQ(clics.count(), 1);
  // Released outside: no click, and the button rests.
  QTest::mousePress(&b, Qt::LeftButton, {}, QPoint(5, 5));
  QTest::mouseRelease(&b, Qt::LeftButton, {}, QPoint(90, 90));
  EXPECT_EQ(clics.count(), 1);
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::gray));
  // The owner reports a mouse that left for the form.
  b.MouvementSouris(QPoint(5, 5));
  b.MouvementSouris(QPoint(-3, 50));
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::gray));
  // Disabled, it neither highlights nor clicks.
  b.setEnabled(false);
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::gray));
  QTest::mouseClick(&b, Qt::LeftButton, {}, QPoint(5, 5));
  EXPECT_EQ(clics.count(), 1);
}

TEST_F(Bouton, WithoutAPrefixAnAnimatedButtonStaysOnItsHighlight) {
  b.setAnimated(true);
  b.setAnimationFolder(dossier.path() + QLatin1Char('/'));
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_FALSE(b.isAnimating());
  for (int i = 0; i < 5; ++i)
    b.animationTick();
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::yellow));
}

TEST_F(Bouton, TheFramesRunToTheLastAndStartAgainThenStopWhenTheMouseLeaves) {
  frames(5);
  b.setLastFrame(3);  // frame 4 is a resting picture, never part of the run
  b.setAnimated(true);
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_TRUE(b.isAnimating());
  std::vector<int> vues;
  for (int i = 0; i < 6; ++i) {
    b.animationTick();
    vues.push_back(couleurDe(b.picMain()).red() / 10);
  }
  EXPECT_EQ(vues, (std::vector<int>{0, 1, 2, 3, 0, 1}));
  b.MouvementSouris(QPoint(100, 5));
  EXPECT_FALSE(b.isAnimating());
  EXPECT_EQ(couleurDe(b.picMain()), QColor(Qt::gray));
  // Back under the mouse, the run starts from the first frame.
  b.MouvementSouris(QPoint(5, 5));
  b.animationTick();
  EXPECT_EQ(couleurDe(b.picMain()).red(), 0);
}

TEST_F(Bouton, AMissingFrameLeavesThePictureAsItIs) {
  frames(2);
  b.setLastFrame(5);  // frames 2 to 5 are missing from this skin
  b.MouvementSouris(QPoint(5, 5));
  b.animationTick();
  b.animationTick();
  EXPECT_EQ(couleurDe(b.picMain()).red(), 10);
  b.animationTick();  // frame 2 does not exist: nothing changes, no error
  b.animationTick();
  EXPECT_EQ(couleurDe(b.picMain()).red(), 10);
}

TEST_F(Bouton, TheTimerRunsTheFramesOnItsOwn) {
  frames(3);
  b.setLastFrame(2);
  b.setAnimated(true);
  b.setFrameInterval(10);
  b.MouvementSouris(QPoint(5, 5));
  EXPECT_TRUE(QTest::qWaitFor([&] { return couleurDe(b.picMain()).red() == 20; }, 3000));
}

}  // namespace
}  // namespace vt
