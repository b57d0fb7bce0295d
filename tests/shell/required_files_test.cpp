// The required files: checked in their order, only the first missing one named.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "formats/string_table.h"
#include "shell/required_files.h"

namespace vt {
namespace {

class Requis : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* nom : kFichiersRequis) {
      const QString chemin = app() + QString::fromUtf8(nom);
      QDir().mkpath(QFileInfo(chemin).absolutePath());
      QFile f(chemin);
      ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
  }
  QString app() const { return dir.path() + QLatin1Char('/'); }
  QTemporaryDir dir;
};

TEST_F(Requis, OnlyTheFirstMissingFileIsNamed) {
  EXPECT_FALSE(premierFichierManquant(app()).has_value());
  EXPECT_TRUE(checkFile(app(), "vt.ini"));
  EXPECT_FALSE(checkFile(app(), "help"));  // a folder is not a file
  QFile::remove(app() + "vt.ini");
  QFile::remove(app() + "scales.dat");
  EXPECT_EQ(premierFichierManquant(app()), app() + "scales.dat");
  QFile(app() + "scales.dat").open(QIODevice::WriteOnly);
  EXPECT_EQ(premierFichierManquant(app()), app() + "vt.ini");
  QFile(app() + "vt.ini").open(QIODevice::WriteOnly);
  QFile::remove(app() + "musical.ttf");
  EXPECT_EQ(premierFichierManquant(app()), app() + "musical.ttf");
  EXPECT_FALSE(premierFichierManquant(QStringLiteral(VT_SOURCE_DIR "/data/")).has_value())
      << "the data folder has all nine";
}

TEST_F(Requis, TheMessageFramesThePathWithItsTwoStrings) {
  EXPECT_EQ(messageFichierManquant("/opt/v/scales.dat", kLangAnglais),
            "The file /opt/v/scales.dat is missing!");
  EXPECT_EQ(messageFichierManquant("/opt/v/vt.ini", kLangFrançais),
            QString::fromUtf8("Le fichier /opt/v/vt.ini est introuvable !"));
}

}  // namespace
}  // namespace vt
