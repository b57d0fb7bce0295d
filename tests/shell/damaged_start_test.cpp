// Start-up on damaged files: a settings file cut in the middle, a "vt.ini" or
// "scales.dat" empty or full of noise, a skin picture that is no picture. The
// program starts, keeps to its defaults, and leaves the files as they were.
#include <QImage>
#include <random>

#include "banc.h"
#include "shell/skin.h"

namespace vt::essai {
namespace {

QByteArray bruit(int taille) {
  std::mt19937 gen(7);
  QByteArray b(taille, '\0');
  for (char& c : b)
    c = static_cast<char>(gen() & 0xFF);
  return b;
}

bool écrit(const QString& chemin, const QByteArray& contenu) {
  QFile::remove(chemin);  // a link to the build's own file stays untouched
  QFile f(chemin);
  return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(contenu) == contenu.size();
}

QByteArray lit(const QString& chemin) {
  QFile f(chemin);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

struct Dommage {
  const char* nom;
  const char* fichier;  // in the program's folder, or "settings" for the user's settings
  QByteArray contenu;
};

void PrintTo(const Dommage& d, std::ostream* os) {
  *os << d.nom;
}

class Abîmé : public Banc {
 protected:
  // The program's folder, copied so that one of its files can be spoiled, with
  // links to the default skin's pictures.
  QString copieProgrammeEtSkin() {
    copieProgramme(app);
    if (::testing::Test::HasFatalFailure()) return {};
    const QDir skin(QCoreApplication::applicationDirPath() + "/skins/default");
    QDir().mkpath(app.filePath("skins/default"));
    for (const QString& f : skin.entryList(QDir::Files))
      if (!QFile::link(skin.filePath(f), app.filePath("skins/default/" + f))) return {};
    return app.path();
  }
  QTemporaryDir app;
};

class DémarrageAbîmé : public Abîmé, public ::testing::WithParamInterface<Dommage> {};

TEST_P(DémarrageAbîmé, TheProgramStartsOnItsDefaultsAndLeavesTheFileAlone) {
  const Dommage& d = GetParam();
  VT::Démarrage dém;
  dém.strAppPath = copieProgrammeEtSkin();
  ASSERT_FALSE(dém.strAppPath.isEmpty());
  silencieux();
  règle("Options/setMancheVisible", "True");
  if (QByteArray(d.fichier) == "settings") {
    // A settings file cut in the middle of a line, as a crash during its write leaves it.
    QByteArray entier = lit(réglages());
    entier += "[Fenetre]\nLargeur=9000\nHauteur=7000\n[Accordeur]\nsetGuitare=1\n";
    ASSERT_TRUE(écrit(réglages(), entier.left(entier.size() - 12)));
  } else {
    ASSERT_TRUE(écrit(app.filePath(d.fichier), d.contenu));
  }
  const QString abîmé = QByteArray(d.fichier) == "settings" ? réglages() : app.filePath(d.fichier);
  const QByteArray avant = lit(abîmé);

  ASSERT_TRUE(démarre(dém));
  EXPECT_TRUE(critiques.empty()) << critiques.front().toStdString();
  EXPECT_TRUE(vt->isVisible());
  // An instrument the editor and the strip can use.
  EXPECT_TRUE(vt->guitare().nbrCordes >= 1 && vt->guitare().nbrCordes <= 7);
  EXPECT_FALSE(vt->manche().image().isNull());
  EXPECT_TRUE(vt->close());
  vt.reset();
  if (QByteArray(d.fichier) != "settings") {
    EXPECT_EQ(lit(abîmé), avant) << "a data file is only read";
  }
}

// A skin picture made of noise, or cut, leaves its place to the default skin's.
TEST_F(Abîmé, ASkinPictureThatIsNoPictureGivesWayToTheNextOne) {
  const QString dossier = copieProgrammeEtSkin();
  ASSERT_FALSE(dossier.isEmpty());
  QDir().mkpath(app.filePath("skins/abime"));
  ASSERT_TRUE(
      QFile::copy(app.filePath("skins/default/fond.jpg"), app.filePath("skins/abime/fond.jpg")));
  ASSERT_TRUE(écrit(app.filePath("skins/abime/fond.bmp"), "not a picture"));
  ASSERT_TRUE(écrit(app.filePath("skins/abime/manchefond.jpg"), bruit(4000)));
  ASSERT_TRUE(écrit(app.filePath("skins/abime/logo.bmp"), QByteArray()));
  const QString base = dossier + "/";
  const struct {
    int index;
    const char* attendu;
  } kCas[] = {
      {34, "skins/abime/fond.jpg"},          // the skin's own readable picture comes next
      {68, "skins/default/manchefond.jpg"},  // then the default skin's
      {8, "skins/default/logo.jpg"},
  };
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.attendu);
    EXPECT_EQ(skinFile(base, "abime", c.index).toStdString(),
              app.filePath(c.attendu).toStdString());
    EXPECT_FALSE(QImage(skinFile(base, "abime", c.index)).isNull());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Fichiers, DémarrageAbîmé,
    ::testing::Values(Dommage{"SettingsCut", "settings", {}},
                      Dommage{"VtIniEmpty", "vt.ini", QByteArray()},
                      Dommage{"VtIniNoise", "vt.ini", bruit(3000)},
                      Dommage{"ScalesEmpty", "scales.dat", QByteArray()},
                      Dommage{"ScalesNoise", "scales.dat", bruit(92 * 7 + 13)},
                      Dommage{"SkinNoise", "skins/default/manchefond.jpg", bruit(5000)}),
    [](const ::testing::TestParamInfo<Dommage>& i) { return std::string(i.param.nom); });

}  // namespace
}  // namespace vt::essai
