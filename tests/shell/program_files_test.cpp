// The program's files: the skin's pictures and their fallback order, the
// required files checked in their order, and the ".vtb" association written
// into the user's data folder only when it changes.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QThread>

#include "formats/string_table.h"
#include "shell/file_association.h"
#include "shell/required_files.h"
#include "shell/skin.h"

namespace vt {
namespace {

class Skins : public ::testing::Test {
 protected:
  QString app() const { return racine.path() + QLatin1Char('/'); }
  QString chemin(const QString& skin, const QString& fichier) const {
    return app() + "skins/" + skin + "/" + fichier;
  }
  // A picture of one pixel: a file that is no picture does not count.
  void pose(const QString& skin, const QString& fichier) {
    QDir().mkpath(app() + "skins/" + skin);
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(Qt::white);
    ASSERT_TRUE(image.save(chemin(skin, fichier)));
  }
  QTemporaryDir racine;
};

TEST_F(Skins, TheTableNamesEachPictureABmpWinsOverAJpgAndTheSkinOverTheDefault) {
  const std::pair<int, const char*> noms[] = {
      {0, "harmony"}, {23, "bouton tone 0007"}, {29, "bouton tone 0001"}, {34, "fond"},
      {50, "beat16"}, {68, "manchefond"},       {85, "aide0018"},         {86, ""},
      {-1, ""}};
  for (const auto& [i, nom] : noms)
    EXPECT_EQ(skinName(i), nom) << i;
  // Past the table the paths have an empty name.
  EXPECT_EQ(skinFile(app(), "bois", 86), chemin("default", ".jpg"));

  for (const char* f :
       {"default/fond.bmp", "default/fond.jpg", "bois/fond.jpg", "bois/fond.bmp",
        "default/logo.jpg", "default/tictac05.bmp", "default/tictac12.bmp", "bois/tictac12.jpg"})
    pose(QString(f).section('/', 0, 0), QString(f).section('/', 1));
  EXPECT_EQ(skinFile(app(), "bois", 8), chemin("default", "logo.jpg"));
  EXPECT_EQ(skinFile(app(), "absent", 34), chemin("default", "fond.bmp"));
  // Removed one after the other; the last resort is not tested for existence.
  for (const char* f : {"bois/fond.bmp", "bois/fond.jpg", "default/fond.bmp", "default/fond.jpg"}) {
    const QString attendu = chemin(QString(f).section('/', 0, 0), QString(f).section('/', 1));
    EXPECT_EQ(skinFile(app(), "bois", 34), attendu);
    QFile::remove(attendu);
  }
  EXPECT_EQ(skinFile(app(), "bois", 34), chemin("default", "fond.jpg"));
  EXPECT_EQ(skinTicTac(app(), "bois", 5), chemin("default", "tictac05.bmp"));
  EXPECT_EQ(skinTicTac(app(), "bois", 12), chemin("bois", "tictac12.jpg"));
  EXPECT_EQ(skinFolder(app(), "bois"), app() + "skins/bois/");
}

TEST(ShippedFiles, TheDataFolderHasEveryPictureOfTheDefaultSkinAndEveryRequiredFile) {
  const QString app = QStringLiteral(VT_SOURCE_DIR "/data/");
  for (int i = 0; i < kNbrImagesSkin; ++i)
    EXPECT_TRUE(QFile::exists(skinFile(app, "default", i))) << i;
  EXPECT_FALSE(premierFichierManquant(app).has_value());
}

TEST(Requis, OnlyTheFirstMissingFileIsNamedWithItsTwoStrings) {
  QTemporaryDir dir;
  const QString app = dir.path() + "/";
  for (const char* nom : kFichiersRequis) {
    QDir().mkpath(QFileInfo(app + nom).absolutePath());
    QFile(app + nom).open(QIODevice::WriteOnly);
  }
  EXPECT_TRUE(checkFile(app, "vt.ini"));
  EXPECT_FALSE(checkFile(app, "help"));  // a folder is not a file
  QFile::remove(app + "vt.ini");
  QFile::remove(app + "scales.dat");
  EXPECT_EQ(premierFichierManquant(app), app + "scales.dat");
  QFile(app + "scales.dat").open(QIODevice::WriteOnly);
  EXPECT_EQ(premierFichierManquant(app), app + "vt.ini");
  QFile(app + "vt.ini").open(QIODevice::WriteOnly);
  QFile::remove(app + "musical.ttf");
  EXPECT_EQ(premierFichierManquant(app), app + "musical.ttf");
  EXPECT_EQ(messageFichierManquant("/opt/v/vt.ini", kLangFrançais),
            "Le fichier /opt/v/vt.ini est introuvable !");
}

QString lis(const QString& chemin) {
  QFile f(chemin);
  return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

TEST(Association, WritesTheTypeAndTheEntryOnceThenLeavesThemAloneAndNeedsADataFolder) {
  QTemporaryDir dir;
  const Association a{dir.path(), "/opt/my tabs/vantoro", "/opt/my tabs/"};
  EXPECT_TRUE(enregistreAssociation(a, false));
  const QString mime = lis(dir.path() + "/mime/packages/vantoro.xml");
  const QString bureau = dir.path() + "/applications/vantoro.desktop";
  for (const char* ligne :
       {"<glob pattern=\"*.vtb\"/>", "value=\"VTB\"", "type=\"application/x-vantoro-tablature\""})
    EXPECT_TRUE(mime.contains(ligne)) << ligne;
  for (const char* ligne :
       {"Exec=\"/opt/my tabs/vantoro\" %f\n", "MimeType=application/x-vantoro-tablature;",
        "Icon=/opt/my tabs/toolbar/TB_TAB@2x.png"})
    EXPECT_TRUE(lis(bureau).contains(ligne)) << ligne;
  // A second start rewrites nothing; a program that moved is written again.
  const QDateTime avant = QFileInfo(bureau).lastModified();
  QThread::msleep(20);
  EXPECT_FALSE(enregistreAssociation(a, false));
  EXPECT_EQ(QFileInfo(bureau).lastModified(), avant);
  EXPECT_TRUE(
      enregistreAssociation({dir.path(), "/usr/bin/vantoro", "/usr/share/vantoro/"}, false));
  EXPECT_TRUE(lis(bureau).contains("Exec=\"/usr/bin/vantoro\" %f"));
  EXPECT_FALSE(enregistreAssociation({"", "/usr/bin/vantoro", "/usr/share/vantoro/"}, false));
  // Special characters of the path are escaped for Exec.
  EXPECT_TRUE(texteEntréeBureau({"", "/home/me/$x \"y\"/100%/vantoro", "/home/me/"})
                  .contains("Exec=\"/home/me/\\\\$x \\\\\"y\\\\\"/100%%/vantoro\" %f"));
}

}  // namespace
}  // namespace vt
