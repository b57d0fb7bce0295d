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

// Numbers of any type as one string, to compare a row of values in one assertion.
template <typename... T>
QString nombres(T... v) {
  return QStringList{QString::number(static_cast<double>(v), 'g', 12)...}.join(' ');
}

TEST_F(SettingsStore, AnEmptyStoreGivesEveryDefaultAndAsksForTheLanguage) {
  int questions = 0;
  const Settings s = charger(&questions);
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(
      nombres(s.Largeur, s.Hauteur, s.cfgPrintFactor, s.cfgFont[1].taille, s.cfgFont[3].taille,
              s.setLang, s.Etat, s.setMIDIvolume, s.setMIDIinstru, s.setMIDIPitchDemiTon,
              s.setMIDIPitchBendRange, s.setMétronomeMIDINote1, s.cfgCurseurColor, s.cfgBackColor,
              s.cfgASCIILargeur, s.TAB_VIEW_MARGIN_TOP_PORTEE, s.TAB_VIEW_INTER_PORTEE,
              s.setGuitare, s.setTipsStartup, s.AccordParametres.ROOT_SCORE, s.TempoH, s.TempoM,
              s.TempoL, s.Temps, s.cfgPrintAlign[4], s.cfgPrintAlign[6]),
      "28800 16200 3 20 10 10000 0 127 27 32 12 33 16777087 16777215 66 150 4 1 1 50 1 2 0 "
      "4 0 1");
  EXPECT_EQ(nombres(s.setLoadHelpAccessWndAtStartup, s.setMétronomeAccent, s.cfgFont[0].gras,
                    s.cfgFont[1].gras, s.cfgFont[4].italique),
            nombres(kVrai, kVrai, kVrai, kFaux, kVrai));
  // The first file dialog opens among the user's documents; "" is the system's SoundFont.
  EXPECT_EQ((QStringList{s.setTabFolderOpen, s.setSoundFont, s.strSkinPath, s.cfgPrintNumpage,
                         s.cfgFont[7].nom}),
            (QStringList{dossierDocuments(), "", "default", "- %c -", "Arial"}));
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
  const auto enregistre = [this](const Settings& r, const QString& f) {
    QSettings store(dir.filePath(f), QSettings::IniFormat);
    r.save_ini(store, kEtatNormal, "/opt/vantoro/");
    store.sync();
    QMap<QString, QString> l;
    for (const QString& k : store.allKeys())
      l[k] = store.value(k).toString();
    return l;
  };
  const auto écrit = enregistre(s, "Vantoro.ini");
  int questions = 0;
  const Settings r = charger(&questions);
  EXPECT_EQ(questions, 0);
  // Every value: saved again, it writes the same file.
  EXPECT_EQ(enregistre(r, "again.ini"), écrit);
  EXPECT_EQ(écrit.value("Version/App.Path"), "/opt/vantoro/");
  EXPECT_EQ((QStringList{écrit.value("Options/setLeftHanded"), écrit.value("Options/setSoundFont"),
                         écrit.value("Tab/cfgPrintFactor"), écrit.value("Options/setMIDIdevice")}),
            (QStringList{"True", "/home/me/sons/Piano à queue, v2.sf2", "2.25", "-1"}));
}

// A value that does not convert leaves the starting value (0, not the default);
// numbers are rounded half to even and booleans accept numbers.
TEST_F(SettingsStore, HandEditedValuesLoadAsFarAsTheyConvert) {
  for (const auto& [clé, valeur] : {std::pair{"Options/setMIDIvolume", "loud"},
                                    {"Options/setMIDIchannel", "300"},   // past a byte
                                    {"Options/setMIDIdevice", "40000"},  // past 16 bits
                                    {"Options/setLeftHanded", "perhaps"},
                                    {"Tab/cfgPrintFactor", "big"},
                                    {"Options/setLang", "0"}})
    ecrire(clé, valeur);
  const Settings s = charger();
  EXPECT_EQ(nombres(s.setMIDIvolume, s.setMIDIchannel, s.setMIDIdevice, s.setLeftHanded,
                    s.cfgPrintFactor, s.setMIDIinstru),
            nombres(0, 0, 0, kFaux, 0, 27));
  for (const auto& [clé, valeur] : {std::pair{"Options/setMIDIvolume", " 100.5 "},
                                    {"Options/setMIDIinstru", "101.5"},
                                    {"Options/setMancheVisible", "0"},
                                    {"Options/setLeftHanded", "-1"},
                                    {"Tab/cfgFontBold", "false"},
                                    {"Options/setLang", "-1"}})  // brings the language dialog back
    ecrire(clé, valeur);
  int questions = 0;
  const Settings r = charger(&questions);
  EXPECT_EQ(nombres(questions, r.setMIDIvolume, r.setMIDIinstru, r.setMancheVisible,
                    r.setLeftHanded, r.cfgFontBold),
            nombres(1, 100, 102, kFaux, kVrai, kFaux));
}

// A minimized window records no state and no geometry; a maximized one keeps
// its last normal geometry, and a maximized start reads none.
TEST_F(SettingsStore, TheWindowStateRule) {
  Settings s = charger();
  s.Largeur = 5000;
  {
    QSettings store(fichier(), QSettings::IniFormat);
    s.save_ini(store, kEtatMinimise, "/opt/vantoro/");
    EXPECT_FALSE(store.contains("Fenetre/Etat") || store.contains("Fenetre/Largeur"));
    EXPECT_TRUE(store.contains("Options/setMIDIvolume"));
  }
  EXPECT_FLOAT_EQ(charger().Largeur, 28800);  // the work area again
  {
    QSettings store(fichier(), QSettings::IniFormat);
    s.Largeur = 9000;
    s.save_ini(store, kEtatNormal, "/opt/vantoro/");
    s.Largeur = 1;
    s.save_ini(store, kEtatMaximise, "/opt/vantoro/");
    EXPECT_EQ(store.value("Fenetre/Etat").toString(), "2");
    EXPECT_EQ(store.value("Fenetre/Largeur").toString(), "9000");
  }
  const Settings r = charger();
  EXPECT_EQ(r.Etat, 2);
  EXPECT_FLOAT_EQ(r.Largeur, 0);
}

}  // namespace
}  // namespace vt
