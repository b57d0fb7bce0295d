// The boot sequence and the shutdown, step by step, with the windows offscreen;
// start-up on damaged files (a settings file cut in the middle, a "vt.ini" or
// "scales.dat" empty or full of noise, a skin picture that is no picture): the
// program starts, keeps to its defaults, and leaves the files as they were.
#include <QCloseEvent>
#include <QImage>
#include <QStatusBar>
#include <random>

#include "banc.h"
#include "shell/skin.h"

namespace vt::essai {
namespace {

using Boot = Banc;

TEST_F(Boot, AFirstStartRunsEveryStepInItsOrderAndTheShutdownSavesThenClosesOutThenIn) {
  crée();
  enregistre({fen::FAccords, fen::FTab});
  règle("Options/setStartWith0", "True");
  règle("Options/setStartWith5", "True");
  bool visibleSousLaPage = false;
  pendantModale = [&](QDialog& d) {
    if (d.objectName() == "FDebut") visibleSousLaPage = vt->isVisible();
  };
  ASSERT_TRUE(démarre());
  dansLOrdre(étapes,
             "strAppPath|load_ini|FLang|initialize|association|checkFile|font|loadGuitare|document|"
             "load_resource|load_lang|midiOpenOut|midiOpenIn|show|applyViewSettings|FAide|"
             "commandLine|FDébut|startWith FAccords|startWith FTab|FTip");
  // The ports open out, then in; the start page comes over a visible window.
  EXPECT_EQ(sons, (Journal{"openOut", "openIn"}));
  EXPECT_EQ(modales, (std::vector<QString>{"FDebut", "FTip"}));
  EXPECT_TRUE(visibleSousLaPage);
  EXPECT_EQ(vt->settings().setLang, 10000);
  EXPECT_EQ(vt->document().getPisteLast(), 1);
  for (const QString& f : {fen::FAccords, fen::FTab, fen::FAide})
    EXPECT_TRUE(vt->isFormLoaded(f)) << f.toStdString();
  EXPECT_EQ(vt->strAppPath(), QCoreApplication::applicationDirPath() + "/");
  // The file association went to the user's data folder of the bench.
  EXPECT_TRUE(QFile::exists(dir.filePath("data/applications/vantoro.desktop")));

  vt->settings().setMIDIvolume = 99;
  étapes.clear();
  sons.clear();
  EXPECT_TRUE(vt->close());
  EXPECT_EQ(étapes, (Journal{"save_ini", "midiCloseOut", "midiCloseIn"}));
  EXPECT_EQ(sons, (Journal{"closeOut", "closeIn"}));
  QSettings s(réglages(), QSettings::IniFormat);
  EXPECT_EQ(
      (QStringList{s.value("Options/setMIDIvolume").toString(),
                   s.value("Version/App.Path").toString(), s.value("Fenetre/Etat").toString()}),
      (QStringList{"99", vt->strAppPath(), "0"}));
}

TEST_F(Boot, AWindowThatRefusesToCloseKeepsTheProgramOpen) {
  silencieux();
  crée();
  vt->fenetres().enregistrer(fen::FAccords, [](VT&) {
    struct Têtue : QWidget {
      void closeEvent(QCloseEvent* e) override { e->ignore(); }
    };
    return new Têtue;
  });
  ASSERT_TRUE(démarre());
  vt->montreFenetre(fen::FAccords);
  sons.clear();
  EXPECT_FALSE(vt->close());
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccords));
  EXPECT_TRUE(sons.empty());  // the ports stay open
}

TEST_F(Boot, AMissingRequiredFileEndsTheStartNamingOnlyTheFirst) {
  // A program folder with seven of the nine files: scales.dat and vt.ini missing.
  QTemporaryDir app;
  copieProgramme(app, {"scales.dat", "vt.ini"});
  silencieux();
  VT::Démarrage d;
  d.strAppPath = app.path();
  EXPECT_FALSE(démarre(d));
  EXPECT_EQ(critiques,
            Journal{"Critical error | The file " + app.path() + "/scales.dat is missing!"});
  // Nothing after the check: no window, no port, no document, nothing saved.
  EXPECT_FALSE(vt->isVisible() || vt->hasDocument() || contient(étapes, "font"));
  EXPECT_TRUE(sons.empty());
  vt->close();
  EXPECT_FALSE(QSettings(réglages(), QSettings::IniFormat).contains("Version/App.Path"));
}

// A tablature goes to the editor; anything else is left alone. Either way the
// start page is skipped, the start windows are not.
TEST_F(Boot, ATablatureOnTheCommandLineGoesToTheEditorAndSkipsTheStartPage) {
  règle("Options/setLang", "0");
  règle("Options/Show Tips at Startup", "0");
  règle("Options/setStartWith1", "True");
  for (const QString ligne : {"/home/me/Ma chanson.VTB", "notes.txt", "\"song.vtb\""}) {
    SCOPED_TRACE(ligne.toStdString());
    crée();
    enregistre({fen::FTab, fen::FGammes});
    journal.clear();
    VT::Démarrage d;
    d.ligneDeCommande = ligne;
    ASSERT_TRUE(démarre(d));
    EXPECT_EQ(contient(journal, "FTab open /home/me/Ma chanson.VTB"), ligne.endsWith(".VTB"));
    EXPECT_EQ(vt->isFormLoaded(fen::FTab), ligne.endsWith(".VTB"));
    EXPECT_TRUE(modales.empty());
    EXPECT_TRUE(vt->isFormLoaded(fen::FGammes));
    vt.reset();
  }
}

TEST_F(Boot, WithoutTheStartPageOnlyTheMainWindowShowsAndTheViewSettingsSetTheBars) {
  silencieux();
  règle("Options/setToolBar", "0");
  règle("Options/setMancheVisible", "False");
  ASSERT_TRUE(démarre());
  EXPECT_TRUE(modales.empty());
  EXPECT_TRUE(vt->isVisible());
  EXPECT_TRUE(vt->mdiArea()->subWindowList().isEmpty());
  EXPECT_FALSE(contient(étapes, "FLang"));
  EXPECT_FALSE(vt->toolbar()->isVisible());
  EXPECT_TRUE(vt->statusBar()->isVisible());
  EXPECT_FALSE(vt->manche().isVisible() || vt->boutonBarre("manche")->isChecked());
  vt->boutonBarre("manche")->trigger();
  EXPECT_TRUE(vt->manche().isVisible());
  EXPECT_EQ(vt->settings().setMancheVisible, kVrai);
}

TEST_F(Boot, HandWrittenNonsenseInTheSettingsStartsCleanly) {
  const std::pair<const char*, const char*> réglés[] = {
      {"Options/setLang", "42"},  // neither language: asked again
      {"Options/setDémarrage", "0"},   {"Options/Show Tips at Startup", "zero"},
      {"Fenetre/Largeur", "-5"},       {"Fenetre/Hauteur", "1e30"},
      {"Options/setManche", "9"},      {"Options/setLeftHanded", "perhaps"},
      {"Accordeur/setGuitare", "200"}, {"Options/strSkinPath", "../../nowhere"}};
  for (const auto& [clé, valeur] : réglés)
    règle(clé, valeur);
  langueChoisie = 0;
  ASSERT_TRUE(démarre());
  EXPECT_TRUE(contient(étapes, "FLang"));
  EXPECT_EQ(vt->settings().setLang, 0);
  EXPECT_GE(vt->width(), 400);  // the work area, not a window of no width
  // An instrument past the catalogue takes the profile's defaults.
  EXPECT_EQ(std::make_pair(int(vt->guitare().nbrCordes), int(vt->guitare().corde[1])),
            std::make_pair(6, 50));
  EXPECT_FALSE(vt->manche().image().isNull());
}

TEST_F(Boot, ACatalogueWithMissingKeysAndASkinlessFolderStillStart) {
  QTemporaryDir app;
  copieProgramme(app, {"vt.ini"});
  QFile ini(app.filePath("vt.ini"));
  ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
  ini.write("[Accordeur]\nnbrGuitares=1\n[1]\nnomEN=Bass\nnbrCordes=4\ncorde1=43\n");
  ini.close();
  silencieux();
  VT::Démarrage d;
  d.strAppPath = app.path();
  ASSERT_TRUE(démarre(d));
  // An absent string takes the profile's default; past the fourth, none.
  const tGuitare& g = vt->guitare();
  EXPECT_EQ(g.nom, "Bass");
  EXPECT_EQ((std::vector<int>{g.nbrCordes, g.corde[1], g.corde[2], g.corde[5]}),
            (std::vector<int>{4, 43, 50, 0}));
  EXPECT_EQ(vt->panneau("guitare")->toolTip(), "Bass");
  // No skin at all: the board is drawn in a plain colour instead of the wood.
  EXPECT_FALSE(vt->manche().image().isNull());
}

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
