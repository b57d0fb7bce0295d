// The boot sequence and the shutdown, step by step, with the windows offscreen.
#include <QCloseEvent>
#include <QStatusBar>

#include "banc.h"

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

}  // namespace
}  // namespace vt::essai
