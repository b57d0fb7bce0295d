// The skin's pictures: the fallback order file by file, and the tictac frames.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "shell/skin.h"

namespace vt {
namespace {

class Skins : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(racine.isValid()); }
  QString app() const { return racine.path() + QLatin1Char('/'); }
  void pose(const QString& skin, const QString& fichier) {
    QDir().mkpath(app() + QStringLiteral("skins/") + skin);
    // A picture of one pixel: a file that is no picture does not count.
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::white);
    ASSERT_TRUE(image.save(app() + QStringLiteral("skins/") + skin + QLatin1Char('/') + fichier));
  }
  QString chemin(const QString& skin, const QString& fichier) const {
    return app() + QStringLiteral("skins/") + skin + QLatin1Char('/') + fichier;
  }
  QTemporaryDir racine;
};

TEST_F(Skins, TheTableNamesEveryPictureByIndex) {
  EXPECT_EQ(skinName(0), "harmony");
  EXPECT_EQ(skinName(23), "bouton tone 0007");
  EXPECT_EQ(skinName(29), "bouton tone 0001");
  EXPECT_EQ(skinName(34), "fond");
  EXPECT_EQ(skinName(50), "beat16");
  EXPECT_EQ(skinName(68), "manchefond");
  EXPECT_EQ(skinName(85), "aide0018");
  EXPECT_EQ(skinName(86), "");
  EXPECT_EQ(skinName(-1), "");
}

TEST_F(Skins, ABmpWinsOverAJpgAndTheSkinOverTheDefault) {
  pose("default", "fond.bmp");
  pose("default", "fond.jpg");
  pose("bois", "fond.jpg");
  pose("bois", "fond.bmp");
  EXPECT_EQ(skinFile(app(), "bois", 34), chemin("bois", "fond.bmp"));
  QFile::remove(chemin("bois", "fond.bmp"));
  EXPECT_EQ(skinFile(app(), "bois", 34), chemin("bois", "fond.jpg"));
  QFile::remove(chemin("bois", "fond.jpg"));
  EXPECT_EQ(skinFile(app(), "bois", 34), chemin("default", "fond.bmp"));
  QFile::remove(chemin("default", "fond.bmp"));
  // The last resort is not tested for existence.
  QFile::remove(chemin("default", "fond.jpg"));
  EXPECT_EQ(skinFile(app(), "bois", 34), chemin("default", "fond.jpg"));
}

TEST_F(Skins, ASkinWithJustTheJpegOfFondChangesTheBackgroundAndNothingElse) {
  pose("default", "fond.jpg");
  pose("default", "logo.jpg");
  pose("default", "accord0017.bmp");
  pose("nuit", "fond.jpg");
  EXPECT_EQ(skinFile(app(), "nuit", 34), chemin("nuit", "fond.jpg"));
  EXPECT_EQ(skinFile(app(), "nuit", 8), chemin("default", "logo.jpg"));
  EXPECT_EQ(skinFile(app(), "nuit", 13), chemin("default", "accord0017.bmp"));
  // A skin that does not exist at all falls back as well.
  EXPECT_EQ(skinFile(app(), "absent", 34), chemin("default", "fond.jpg"));
}

TEST_F(Skins, PastTheTableThePathsHaveAnEmptyName) {
  EXPECT_EQ(skinFile(app(), "bois", 86), chemin("default", ".jpg"));
}

TEST_F(Skins, TicTacFramesHaveTwoDigitsAndFallBackAlike) {
  pose("default", "tictac05.bmp");
  pose("default", "tictac12.bmp");
  pose("bois", "tictac12.jpg");
  EXPECT_EQ(skinTicTac(app(), "bois", 5), chemin("default", "tictac05.bmp"));
  EXPECT_EQ(skinTicTac(app(), "bois", 12), chemin("bois", "tictac12.jpg"));
  EXPECT_EQ(skinFolder(app(), "bois"), app() + "skins/bois/");
}

TEST(ShippedSkin, TheDefaultSkinHasEveryPicture) {
  const QString app = QStringLiteral(VT_SOURCE_DIR "/data/");
  for (int i = 0; i < kNbrImagesSkin; ++i) {
    const QString f = skinFile(app, QStringLiteral("default"), i);
    EXPECT_TRUE(QFile::exists(f)) << f.toStdString();
  }
}

}  // namespace
}  // namespace vt
