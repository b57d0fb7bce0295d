// The boot sequence and the shutdown, step by step, with the windows offscreen.
#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

#include "banc.h"
#include "shell/manche.h"
#include "shell/required_files.h"

namespace vt::essai {
namespace {

using Boot = Banc;

// The steps in the order they must come, each after the one before.
void dansLOrdre(const Journal& étapes, const std::vector<QString>& attendues) {
  auto it = étapes.begin();
  for (const QString& e : attendues) {
    it = std::find(it, étapes.end(), e);
    ASSERT_NE(it, étapes.end()) << "missing or out of order: " << e.toStdString();
  }
}

TEST_F(Boot, AFirstStartRunsEveryStepInItsOrder) {
  crée();
  enregistre({fen::FAccords, fen::FTab});
  règle("Options/setStartWith0", "True");
  règle("Options/setStartWith5", "True");
  bool visibleSousLaPage = false;
  pendantModale = [&](QDialog& d) {
    if (d.objectName() == "FDebut") visibleSousLaPage = vt->isVisible();
  };
  ASSERT_TRUE(démarre());
  dansLOrdre(étapes, {"strAppPath",
                      "load_ini",
                      "FLang",
                      "initialize",
                      "association",
                      "checkFile",
                      "font",
                      "loadGuitare",
                      "document",
                      "load_resource",
                      "load_lang",
                      "midiOpenOut",
                      "midiOpenIn",
                      "show",
                      "applyViewSettings",
                      "FAide",
                      "commandLine",
                      "FD\u00e9but",
                      "startWith FAccords",
                      "startWith FTab",
                      "FTip"});
  // The ports open out, then in; the start page comes over a visible window.
  EXPECT_EQ(sons, (Journal{"openOut", "openIn"}));
  EXPECT_EQ(modales, (std::vector<QString>{"FDebut", "FTip"}));
  EXPECT_TRUE(visibleSousLaPage);
  EXPECT_EQ(vt->settings().setLang, 10000);
  EXPECT_TRUE(vt->hasDocument());
  EXPECT_EQ(vt->document().getPisteLast(), 1);
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccords));
  EXPECT_TRUE(vt->isFormLoaded(fen::FTab));
  EXPECT_TRUE(vt->isFormLoaded(fen::FAide));
  EXPECT_EQ(vt->strAppPath(), QCoreApplication::applicationDirPath() + "/");
  // The file association went to the user's data folder of the bench.
  EXPECT_TRUE(QFile::exists(dir.filePath("data/applications/vantoro.desktop")));
}

TEST_F(Boot, TheShutdownSavesTheSettingsThenClosesOutThenIn) {
  silencieux();
  ASSERT_TRUE(démarre());
  vt->settings().setMIDIvolume = 99;
  étapes.clear();
  sons.clear();
  EXPECT_TRUE(vt->close());
  EXPECT_EQ(étapes, (Journal{"save_ini", "midiCloseOut", "midiCloseIn"}));
  EXPECT_EQ(sons, (Journal{"closeOut", "closeIn"}));
  QSettings s(réglages(), QSettings::IniFormat);
  EXPECT_EQ(s.value("Options/setMIDIvolume").toString(), "99");
  EXPECT_EQ(s.value("Version/App.Path").toString(), vt->strAppPath());
  EXPECT_EQ(s.value("Fenetre/Etat").toString(), "0");
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
  // A program folder with eight of the nine files: scales.dat and vt.ini missing.
  QTemporaryDir app;
  copieProgramme(app, {"scales.dat", "vt.ini"});
  silencieux();
  VT::Démarrage d;
  d.strAppPath = app.path();
  EXPECT_FALSE(démarre(d));
  ASSERT_EQ(critiques.size(), 1u);
  EXPECT_EQ(critiques[0], "Critical error | The file " + app.path() + "/scales.dat is missing!");
  EXPECT_FALSE(critiques[0].contains("vt.ini"));
  // Nothing after the check: no window, no port, no document, nothing saved.
  EXPECT_FALSE(vt->isVisible());
  EXPECT_TRUE(sons.empty());
  EXPECT_FALSE(vt->hasDocument());
  EXPECT_FALSE(contient(étapes, "font"));
  vt->close();
  QSettings s(réglages(), QSettings::IniFormat);
  EXPECT_FALSE(s.contains("Version/App.Path"));
}

TEST_F(Boot, ATablatureOnTheCommandLineGoesToTheEditorAndSkipsTheStartPage) {
  règle("Options/setLang", "0");
  règle("Options/Show Tips at Startup", "0");
  règle("Options/setStartWith1", "True");
  crée();
  enregistre({fen::FTab, fen::FGammes});
  VT::Démarrage d;
  d.ligneDeCommande = "/home/me/Ma chanson.VTB";
  ASSERT_TRUE(démarre(d));
  EXPECT_TRUE(contient(journal, "FTab open /home/me/Ma chanson.VTB"));
  EXPECT_TRUE(modales.empty());                 // no start page
  EXPECT_TRUE(vt->isFormLoaded(fen::FGammes));  // the start list still holds
}

TEST_F(Boot, AnythingElseOnTheCommandLineSkipsTheStartPageButNotTheStartWindows) {
  règle("Options/setLang", "10000");
  règle("Options/Show Tips at Startup", "0");
  règle("Options/setStartWith0", "True");
  crée();
  enregistre({fen::FTab, fen::FAccords});
  for (const QString ligne : {"notes.txt", "\"song.vtb\""}) {
    VT::Démarrage d;
    d.ligneDeCommande = ligne;
    ASSERT_TRUE(démarre(d));
    EXPECT_TRUE(modales.empty()) << ligne.toStdString();
    EXPECT_FALSE(vt->isFormLoaded(fen::FTab)) << ligne.toStdString();
    EXPECT_TRUE(vt->isFormLoaded(fen::FAccords));
    vt.reset();
    crée();
    enregistre({fen::FTab, fen::FAccords});
  }
}

TEST_F(Boot, WithoutTheStartPageOnlyTheMainWindowShowsAndTheViewSettingsSetTheBars) {
  silencieux();
  règle("Options/setToolBar", "0");
  règle("Options/setMancheVisible", "False");
  ASSERT_TRUE(démarre());
  // Without the start page, only the main window shows.
  EXPECT_TRUE(modales.empty());
  EXPECT_TRUE(vt->isVisible());
  EXPECT_TRUE(vt->mdiArea()->subWindowList().isEmpty());
  EXPECT_FALSE(contient(étapes, "FLang"));
  EXPECT_FALSE(vt->toolbar()->isVisible());
  EXPECT_TRUE(vt->statusBar()->isVisible());
  EXPECT_FALSE(vt->manche().isVisible());
  EXPECT_FALSE(vt->boutonBarre("manche")->isChecked());
  vt->boutonBarre("manche")->trigger();
  EXPECT_TRUE(vt->manche().isVisible());
  EXPECT_EQ(vt->settings().setMancheVisible, kVrai);
}

TEST_F(Boot, HandWrittenNonsenseInTheSettingsStartsCleanly) {
  règle("Options/setLang", "42");  // neither language: asked again
  règle("Options/setD\u00e9marrage", "0");
  règle("Options/Show Tips at Startup", "zero");
  règle("Fenetre/Largeur", "-5");
  règle("Fenetre/Hauteur", "1e30");
  règle("Options/setManche", "9");
  règle("Options/setLeftHanded", "perhaps");
  règle("Accordeur/setGuitare", "200");
  règle("Options/strSkinPath", "../../nowhere");
  langueChoisie = 0;
  ASSERT_TRUE(démarre());
  EXPECT_TRUE(contient(étapes, "FLang"));
  EXPECT_EQ(vt->settings().setLang, 0);
  EXPECT_GE(vt->width(), 400);  // the work area, not a window of no width
  // An instrument past the catalogue takes the profile's defaults.
  EXPECT_EQ(vt->guitare().nbrCordes, 6);
  EXPECT_EQ(vt->guitare().corde[1], 50);
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
  EXPECT_EQ(vt->guitare().nom, "Bass");
  EXPECT_EQ(vt->guitare().nbrCordes, 4);
  EXPECT_EQ(vt->guitare().corde[1], 43);
  EXPECT_EQ(vt->guitare().corde[2], 50);  // absent: the profile's default
  EXPECT_EQ(vt->guitare().corde[5], 0);
  EXPECT_EQ(vt->panneau("guitare")->toolTip(), "Bass");
  // No skin at all: the board is drawn in a plain colour instead of the wood.
  EXPECT_FALSE(vt->manche().image().isNull());
}

}  // namespace
}  // namespace vt::essai
