// The settings store: defaults on an empty store, the round trip, the
// tolerance of hand-edited values, and the window-state rule.
#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include "shell/settings.h"

namespace vt {
namespace {

const WorkArea kZone{0, 0, 28800, 16200};  // 1920 x 1080 pixels at 15 twips

class SettingsStore : public ::testing::Test {
 protected:
  QTemporaryDir dir;
  QString fichier() const { return dir.filePath("Vantoro.ini"); }
  Settings charger(int* questions = nullptr) {
    QSettings store(fichier(), QSettings::IniFormat);
    Settings s;
    s.load_ini(store, kZone, [questions]() -> i16 {
      if (questions) ++*questions;
      return 10000;
    });
    return s;
  }
  void ecrire(const QString& cle, const QString& valeur) {
    QSettings store(fichier(), QSettings::IniFormat);
    store.setValue(cle, valeur);
    store.sync();
  }
};

TEST_F(SettingsStore, AnEmptyStoreGivesEveryDefaultAndAsksForTheLanguage) {
  int questions = 0;
  const Settings s = charger(&questions);
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(s.setLang, 10000);
  EXPECT_EQ(s.Etat, 0);
  EXPECT_FLOAT_EQ(s.Largeur, 28800);
  EXPECT_FLOAT_EQ(s.Hauteur, 16200);
  EXPECT_EQ(s.setMIDIvolume, 127);
  EXPECT_EQ(s.setMIDIinstru, 27);
  EXPECT_EQ(s.setMIDIPitchDemiTon, 32);
  EXPECT_EQ(s.setMIDIPitchBendRange, 12);
  EXPECT_EQ(s.setMétronomeMIDINote1, 33);
  EXPECT_EQ(s.setLoadHelpAccessWndAtStartup, kVrai);
  // The first file dialog opens among the user's documents.
  EXPECT_EQ(s.setTabFolderOpen, dossierDocuments());
  EXPECT_EQ(s.setSoundFont, "");  // the system's SoundFont
  EXPECT_EQ(s.strSkinPath, "default");
  EXPECT_EQ(s.cfgPrintNumpage, "- %c -");
  EXPECT_EQ(s.cfgCurseurColor, 16777087);
  EXPECT_EQ(s.cfgBackColor, 16777215);
  EXPECT_EQ(s.cfgASCIILargeur, 66);
  EXPECT_EQ(s.TAB_VIEW_MARGIN_TOP_PORTEE, 150);
  EXPECT_EQ(s.TAB_VIEW_INTER_PORTEE, 4);
  EXPECT_FLOAT_EQ(s.cfgPrintFactor, 3.0f);
  EXPECT_EQ(s.setGuitare, 1);
  EXPECT_EQ(s.setTipsStartup, 1);
  EXPECT_EQ(s.AccordParametres.ROOT_SCORE, 50);
  EXPECT_EQ(std::vector<int>({s.TempoH, s.TempoM, s.TempoL, s.Temps}),
            std::vector<int>({1, 2, 0, 4}));
  EXPECT_EQ(s.setMétronomeAccent, kVrai);
  // The page-head fonts take their defaults by index.
  EXPECT_EQ(s.cfgFont[0].gras, kVrai);
  EXPECT_EQ(s.cfgFont[1].gras, kFaux);
  EXPECT_FLOAT_EQ(s.cfgFont[1].taille, 20);
  EXPECT_FLOAT_EQ(s.cfgFont[3].taille, 10);
  EXPECT_EQ(s.cfgFont[4].italique, kVrai);
  EXPECT_EQ(s.cfgPrintAlign[4], 0);
  EXPECT_EQ(s.cfgPrintAlign[6], 1);
  EXPECT_EQ(s.cfgFont[7].nom, "Arial");
}

TEST_F(SettingsStore, WhatIsSavedComesBack) {
  Settings s = charger();
  s.setLang = 0;
  s.setMIDIvolume = 90;
  s.setMIDIdevice = -1;
  s.setSoundFont = "/home/me/sons/Piano à queue, v2.sf2";
  s.setLeftHanded = kVrai;
  s.setStartWith[5] = kVrai;
  s.setTabLastOpenFile[2] = "/home/me/tabs/Étude, n°2.vtb";
  s.cfgFont[3].taille = 12.5f;
  s.cfgFont[3].couleur = 255;
  s.cfgPrintFactor = 2.25f;
  s.TAB_VIEW_MARGIN_TOP_TAB = 150;
  s.TAB_VIEW_MARGIN_TOP_PORTEE = 0;
  s.Largeur = 12000;
  s.AccordParametres.MAXSPAN = 5;
  s.TempoL = 6;
  s.setMétronomeAccent = kFaux;
  {
    QSettings store(fichier(), QSettings::IniFormat);
    s.save_ini(store, kEtatNormal, "/opt/vantoro/");
  }
  int questions = 0;
  const Settings r = charger(&questions);
  EXPECT_EQ(questions, 0);
  EXPECT_EQ(r.setLang, 0);
  EXPECT_EQ(r.setMIDIvolume, 90);
  EXPECT_EQ(r.setMIDIdevice, -1);
  EXPECT_EQ(r.setSoundFont, "/home/me/sons/Piano à queue, v2.sf2");
  EXPECT_EQ(r.setLeftHanded, kVrai);
  EXPECT_EQ(r.setStartWith[5], kVrai);
  EXPECT_EQ(r.setTabLastOpenFile[2], "/home/me/tabs/Étude, n°2.vtb");
  EXPECT_FLOAT_EQ(r.cfgFont[3].taille, 12.5f);
  EXPECT_EQ(r.cfgFont[3].couleur, 255);
  EXPECT_FLOAT_EQ(r.cfgPrintFactor, 2.25f);
  EXPECT_EQ(r.TAB_VIEW_MARGIN_TOP_TAB, 150);
  EXPECT_EQ(r.TAB_VIEW_MARGIN_TOP_PORTEE, 0);
  EXPECT_FLOAT_EQ(r.Largeur, 12000);
  EXPECT_EQ(r.AccordParametres.MAXSPAN, 5);
  EXPECT_EQ(r.TempoL, 6);
  EXPECT_EQ(r.setMétronomeAccent, kFaux);
  QSettings store(fichier(), QSettings::IniFormat);
  EXPECT_EQ(store.value("Version/App.Path").toString(), "/opt/vantoro/");
  EXPECT_EQ(store.value("Options/setLeftHanded").toString(), "True");
}

TEST_F(SettingsStore, AValueThatDoesNotConvertLeavesTheStartingValue) {
  ecrire("Options/setMIDIvolume", "loud");
  ecrire("Options/setMIDIchannel", "300");   // past a byte
  ecrire("Options/setMIDIdevice", "40000");  // past 16 bits
  ecrire("Options/setLeftHanded", "perhaps");
  ecrire("Tab/cfgPrintFactor", "big");
  ecrire("Options/setLang", "0");
  const Settings s = charger();
  EXPECT_EQ(s.setMIDIvolume, 0);  // not the default 127
  EXPECT_EQ(s.setMIDIchannel, 0);
  EXPECT_EQ(s.setMIDIdevice, 0);
  EXPECT_EQ(s.setLeftHanded, kFaux);
  EXPECT_FLOAT_EQ(s.cfgPrintFactor, 0);
  EXPECT_EQ(s.setMIDIinstru, 27);  // the others load as usual
}

TEST_F(SettingsStore, NumbersAreRoundedHalfToEvenAndBooleansAcceptNumbers) {
  ecrire("Options/setMIDIvolume", " 100.5 ");
  ecrire("Options/setMIDIinstru", "101.5");
  ecrire("Options/setMancheVisible", "0");
  ecrire("Options/setLeftHanded", "-1");
  ecrire("Tab/cfgFontBold", "false");
  const Settings s = charger();
  EXPECT_EQ(s.setMIDIvolume, 100);
  EXPECT_EQ(s.setMIDIinstru, 102);
  EXPECT_EQ(s.setMancheVisible, kFaux);
  EXPECT_EQ(s.setLeftHanded, kVrai);
  EXPECT_EQ(s.cfgFontBold, kFaux);
}

TEST_F(SettingsStore, AStoredMinusOneBringsTheLanguageDialogBack) {
  ecrire("Options/setLang", "-1");
  int questions = 0;
  charger(&questions);
  EXPECT_EQ(questions, 1);
}

TEST_F(SettingsStore, AMinimizedWindowRecordsNoStateAndNoGeometry) {
  Settings s = charger();
  s.Largeur = 5000;
  {
    QSettings store(fichier(), QSettings::IniFormat);
    s.save_ini(store, kEtatMinimise, "/opt/vantoro/");
  }
  QSettings store(fichier(), QSettings::IniFormat);
  EXPECT_FALSE(store.contains("Fenetre/Etat"));
  EXPECT_FALSE(store.contains("Fenetre/Largeur"));
  EXPECT_TRUE(store.contains("Options/setMIDIvolume"));
  const Settings r = charger();
  EXPECT_FLOAT_EQ(r.Largeur, 28800);  // the work area again
}

TEST_F(SettingsStore, AMaximizedWindowKeepsItsLastNormalGeometry) {
  Settings s = charger();
  s.Largeur = 9000;
  {
    QSettings store(fichier(), QSettings::IniFormat);
    s.save_ini(store, kEtatNormal, "/opt/vantoro/");
    s.Largeur = 1;
    s.save_ini(store, kEtatMaximise, "/opt/vantoro/");
  }
  QSettings store(fichier(), QSettings::IniFormat);
  EXPECT_EQ(store.value("Fenetre/Etat").toString(), "2");
  EXPECT_EQ(store.value("Fenetre/Largeur").toString(), "9000");
  const Settings r = charger();
  EXPECT_EQ(r.Etat, 2);
  EXPECT_FLOAT_EQ(r.Largeur, 0);  // a maximized start reads no geometry
}

}  // namespace
}  // namespace vt
