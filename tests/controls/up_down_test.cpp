// VTUpDn: presses above and below Milieu, the bounds, the repeat while held.
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "controls/up_down.h"

namespace vt {
namespace {

QPixmap couleur(Qt::GlobalColor c) {
  QPixmap p(22, 40);
  p.fill(c);
  return p;
}

class UpDn : public ::testing::Test {
 protected:
  void SetUp() override {
    ud.setPictureOff(couleur(Qt::gray));
    ud.setPictureUp(couleur(Qt::green));
    ud.setPictureDn(couleur(Qt::red));
    ud.resize(22, 40);
    ud.setMilieu(20);
    ud.setMin(0);
    ud.setMax(9);
  }
  void haut() { QTest::mouseClick(&ud, Qt::LeftButton, {}, QPoint(10, 5)); }
  void bas() { QTest::mouseClick(&ud, Qt::LeftButton, {}, QPoint(10, 30)); }
  VTUpDn ud;
};

TEST_F(UpDn, TheUpperHalfRaisesTheLowerLowersAndTheMiddleLineBelongsBelow) {
  ud.setValue(5);
  haut();
  EXPECT_EQ(ud.Value(), 6);
  bas();
  bas();
  EXPECT_EQ(ud.Value(), 4);
  // A press exactly at Milieu is a press on the lower half.
  QTest::mouseClick(&ud, Qt::LeftButton, {}, QPoint(10, 20));
  EXPECT_EQ(ud.Value(), 3);
  QTest::mouseClick(&ud, Qt::LeftButton, {}, QPoint(10, 19));
  EXPECT_EQ(ud.Value(), 4);
}

TEST_F(UpDn, ValueNeverPassesMinOrMax) {
  QSignalSpy changes(&ud, &VTUpDn::Change);
  ud.setValue(8);
  for (int i = 0; i < 5; ++i)
    haut();
  EXPECT_EQ(ud.Value(), 9);
  for (int i = 0; i < 15; ++i)
    bas();
  EXPECT_EQ(ud.Value(), 0);
  // 8, 9, then 8 down to 0: one signal per real change.
  EXPECT_EQ(changes.count(), 1 + 1 + 9);
  ud.setValue(42);
  EXPECT_EQ(ud.Value(), 9);
  ud.setValue(-3);
  EXPECT_EQ(ud.Value(), 0);
  ud.setMin(4);
  EXPECT_EQ(ud.Value(), 4);
  ud.setMax(2);  // a maximum below the minimum takes the minimum along
  EXPECT_EQ(ud.Min(), 2);
  EXPECT_EQ(ud.Max(), 2);
  EXPECT_EQ(ud.Value(), 2);
}

TEST_F(UpDn, ThePictureFollowsThePressAndTheRelease) {
  const qint64 repos = ud.PictureOff().cacheKey();
  EXPECT_EQ(ud.picture().cacheKey(), repos);
  QTest::mousePress(&ud, Qt::LeftButton, {}, QPoint(10, 5));
  EXPECT_EQ(ud.picture().cacheKey(), ud.PictureUp().cacheKey());
  QTest::mouseRelease(&ud, Qt::LeftButton, {}, QPoint(10, 5));
  EXPECT_EQ(ud.picture().cacheKey(), repos);
  QTest::mousePress(&ud, Qt::LeftButton, {}, QPoint(10, 35));
  EXPECT_EQ(ud.picture().cacheKey(), ud.PictureDn().cacheKey());
  QTest::mouseRelease(&ud, Qt::LeftButton, {}, QPoint(10, 35));
  EXPECT_EQ(ud.picture().cacheKey(), repos);
}

TEST_F(UpDn, HeldDownItRepeatsUntilReleasedAndStopsAtTheBound) {
  ud.setValue(9);
  QTest::mousePress(&ud, Qt::LeftButton, {}, QPoint(10, 35));
  EXPECT_EQ(ud.Value(), 8);
  // After a pause it runs on its own.
  ASSERT_TRUE(QTest::qWaitFor([&] { return ud.Value() <= 6; }, 5000));
  QTest::mouseRelease(&ud, Qt::LeftButton, {}, QPoint(10, 35));
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
