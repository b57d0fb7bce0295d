#include "shell/settings.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

#include "settings_convert.h"

namespace vt {

QString dossierDocuments() {
  QString d = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  if (d.isEmpty() || !QDir(d).exists()) d = QDir::homePath();
  if (!d.endsWith(QLatin1Char('/'))) d += QLatin1Char('/');
  return d;
}

QString texteBool(vbool v) {
  return v != 0 ? QStringLiteral("True") : QStringLiteral("False");
}

namespace {

// GetSetting: the stored text, or nothing when the key is absent.
class Lecteur {
 public:
  explicit Lecteur(QSettings& s) : s_(s) {}

  std::optional<QString> texte(const char* section, const QString& cle) const {
    const QVariant v = s_.value(QString::fromUtf8(section) + QLatin1Char('/') + cle);
    if (!v.isValid()) return std::nullopt;
    // A hand-written value with commas reads as a list: take it back as written.
    if (v.typeId() == QMetaType::QStringList) return v.toStringList().join(QLatin1Char(','));
    return v.toString();
  }

  // An absent key takes the default; a text that does not convert leaves the
  // value untouched.
  template <class T, class Conv>
  void lire(const char* section, const QString& cle, T& var, T def, Conv conv) const {
    const auto t = texte(section, cle);
    if (!t) {
      var = def;
    } else if (const auto v = conv(*t)) {
      var = *v;
    }
  }
  void octet(const char* sec, const QString& cle, byt& var, byt def) const {
    lire(sec, cle, var, def, settings::versByte);
  }
  void entier(const char* sec, const QString& cle, i16& var, i16 def) const {
    lire(sec, cle, var, def, settings::versInt);
  }
  void long_(const char* sec, const QString& cle, lng& var, lng def) const {
    lire(sec, cle, var, def, settings::versLong);
  }
  void simple(const char* sec, const QString& cle, float& var, float def) const {
    lire(sec, cle, var, def, settings::versSingle);
  }
  void booleen(const char* sec, const QString& cle, vbool& var, vbool def) const {
    lire(sec, cle, var, def, settings::versBool);
  }
  void chaine(const char* sec, const QString& cle, QString& var, const QString& def) const {
    const auto t = texte(sec, cle);
    var = t ? *t : def;
  }

 private:
  QSettings& s_;
};

class Ecrivain {
 public:
  explicit Ecrivain(QSettings& s) : s_(s) {}
  void texte(const char* section, const QString& cle, const QString& v) {
    s_.setValue(QString::fromUtf8(section) + QLatin1Char('/') + cle, v);
  }
  void nombre(const char* section, const QString& cle, long long v) {
    texte(section, cle, QString::number(v));
  }
  void booleen(const char* section, const QString& cle, vbool v) {
    texte(section, cle, texteBool(v));
  }
  void simple(const char* section, const QString& cle, float v) {
    texte(section, cle, settings::texteSingle(v));
  }

 private:
  QSettings& s_;
};

QString k(const char* s) {
  return QString::fromUtf8(s);
}
QString k(const char* s, int i) {
  return QString::fromUtf8(s) + QString::number(i);
}
QString police(int i, const char* champ) {
  return QStringLiteral("cfgFont") + QString::number(i) + QString::fromUtf8(champ);
}

constexpr const char* kFenetre = "Fenetre";
constexpr const char* kOptions = "Options";
constexpr const char* kTab = "Tab";
constexpr const char* kGammes = "Gammes";
constexpr const char* kAccords = "Accords";
constexpr const char* kAccordeur = "Accordeur";
constexpr const char* kMCI = "MCI";
constexpr const char* kMétronome = "Metronome";
constexpr const char* kVersion = "Version";

}  // namespace

void Settings::load_ini(QSettings& store, const WorkArea& zone,
                        const std::function<i16()>& choisirLangue) {
  const Lecteur l(store);

  // 1. The window: geometry only for a normal window, with the work area as default.
  l.entier(kFenetre, k("Etat"), Etat, kEtatNormal);
  if (Etat == kEtatNormal) {
    l.simple(kFenetre, k("Hauteur"), Hauteur, zone.hauteur);
    l.simple(kFenetre, k("Largeur"), Largeur, zone.largeur);
    l.simple(kFenetre, k("Haut"), Haut, zone.haut);
    l.simple(kFenetre, k("Gauche"), Gauche, zone.gauche);
  }

  // 2, 3. The page head.
  l.chaine(kTab, k("cfgPrintNumpage"), cfgPrintNumpage, QStringLiteral("- %c -"));
  for (int i = 0; i < 8; ++i) {
    tCfgFont& f = cfgFont[static_cast<std::size_t>(i)];
    l.octet(kTab, k("cfgPrint", i), cfgPrint[static_cast<std::size_t>(i)], 1);
    l.booleen(kTab, police(i, ".barrée"), f.barrée, kFaux);
    l.long_(kTab, police(i, ".couleur"), f.couleur, 0);
    l.booleen(kTab, police(i, ".souligné"), f.souligné, kFaux);
    l.octet(kTab, k("cfgPrintAlign", i), cfgPrintAlign[static_cast<std::size_t>(i)],
            (i == 4 || i == 5) ? 0 : 1);
    l.booleen(kTab, police(i, ".gras"), f.gras, toVbool(i == 0 || i == 2));
    l.booleen(kTab, police(i, ".italique"), f.italique, toVbool(i == 4));
    l.chaine(kTab, police(i, ".nom"), f.nom, QStringLiteral("Arial"));
    l.simple(kTab, police(i, ".taille"), f.taille, (i == 0 || i == 1 || i == 7) ? 20.0f : 10.0f);
  }

  // 4. The language, asked for when none is stored.
  l.entier(kOptions, k("setLang"), setLang, -1);
  if (setLang == -1 && choisirLangue) setLang = choisirLangue();

  // 5. Everything else.
  for (int i = 0; i < 7; ++i)
    l.booleen(kOptions, k("setStartWith", i), setStartWith[static_cast<std::size_t>(i)], kFaux);
  l.booleen(kOptions, k("setLoadHelpAccessWndAtStartup"), setLoadHelpAccessWndAtStartup, kVrai);
  l.booleen(kOptions, k("setMancheVisible"), setMancheVisible, kVrai);
  l.booleen(kOptions, k("setLeftHanded"), setLeftHanded, kFaux);
  l.octet(kOptions, k("setDémarrage"), setDémarrage, 1);
  l.octet(kOptions, k("setToolBar"), setToolBar, 1);
  l.octet(kOptions, k("setStatusBar"), setStatusBar, 1);
  l.booleen(kOptions, k("setTabRememberFolder"), setTabRememberFolder, kVrai);
  // The first dialog opens where the user keeps documents, not in the program's folder.
  l.chaine(kOptions, k("setTabFolderOpen"), setTabFolderOpen, dossierDocuments());
  l.octet(kOptions, k("setMétronomeMIDICanal10"), setMétronomeMIDICanal10, 0);
  l.octet(kOptions, k("setMétro"), setMétro, 1);
  l.octet(kOptions, k("setMétronomeMIDINote1"), setMétronomeMIDINote1, 33);
  l.octet(kOptions, k("setMétronomeMIDINote2"), setMétronomeMIDINote2, 34);
  l.octet(kOptions, k("setMIDIchannel"), setMIDIchannel, 1);
  l.octet(kOptions, k("setMIDIinstru"), setMIDIinstru, 27);
  l.octet(kOptions, k("setMIDIvolume"), setMIDIvolume, 127);
  l.entier(kOptions, k("setMIDIdevice"), setMIDIdevice, 0);
  l.entier(kOptions, k("setMIDIPitchDemiTon"), setMIDIPitchDemiTon, 32);
  l.octet(kOptions, k("setMIDIPitchBendRange"), setMIDIPitchBendRange, 12);
  l.booleen(kOptions, k("setMIDIEffet1Ton"), setMIDIEffet1Ton, kFaux);
  l.octet(kOptions, k("setMIDIINBasicChannel"), setMIDIINBasicChannel, 1);
  l.entier(kOptions, k("setMIDIInDevice"), setMIDIInDevice, 0);
  l.chaine(kOptions, k("setSoundFont"), setSoundFont, QString());
  l.chaine(kOptions, k("setAvisSonDits"), setAvisSonDits, QString());
  for (int i = 1; i <= 4; ++i)
    l.chaine(kTab, k("setTabLastOpenFile", i), setTabLastOpenFile[static_cast<std::size_t>(i)],
             QString());
  l.octet(kTab, k("cfgPrintNB"), cfgPrintNB, 1);
  l.long_(kTab, k("cfgCurseurColor"), cfgCurseurColor, 16777087);
  l.long_(kTab, k("cfgEventColor"), cfgEventColor, 0);
  l.long_(kTab, k("cfgLineColor"), cfgLineColor, 0);
  l.long_(kTab, k("cfgBackColor"), cfgBackColor, 16777215);
  l.chaine(kTab, k("cfgFontName"), cfgFontName, QStringLiteral("Arial"));
  l.octet(kTab, k("cfgFontSize"), cfgFontSize, 8);
  l.booleen(kTab, k("cfgFontBold"), cfgFontBold, kVrai);
  l.booleen(kTab, k("cfgAffichePortée"), cfgAffichePortée, kVrai);
  l.entier(kTab, k("cfgASCIILargeur"), cfgASCIILargeur, 66);
  l.booleen(kTab, k("cfgPrintAccords"), cfgPrintAccords, kVrai);
  l.booleen(kTab, k("cfgPrintPortée"), cfgPrintPortée, kVrai);
  l.booleen(kTab, k("cfgPrintTabRythme"), cfgPrintTabRythme, kVrai);
  l.booleen(kTab, k("cfgPrintPortéeSilence"), cfgPrintPortéeSilence, kVrai);
  l.booleen(kTab, k("cfgPrintPortéeSilence1Mesure"), cfgPrintPortéeSilence1Mesure, kFaux);
  l.booleen(kTab, k("cfgFontTransparent"), cfgFontTransparent, kFaux);
  l.booleen(kTab, k("cfgPrintNumMesure"), cfgPrintNumMesure, kVrai);
  l.booleen(kTab, k("cfgTabSynchronise"), cfgTabSynchronise, kVrai);
  l.chaine(kTab, k("cfgTabBarresCachées"), cfgTabBarresCachées, QString());
  l.entier(kTab, k("TAB_VIEW_MARGIN_LEFT"), TAB_VIEW_MARGIN_LEFT, 35);
  l.entier(kTab, k("TAB_VIEW_MARGIN_RIGHT"), TAB_VIEW_MARGIN_RIGHT, 20);
  l.entier(kTab, k("TAB_VIEW_MARGIN_TOP"), TAB_VIEW_MARGIN_TOP, 140);
  l.entier(kTab, k("TAB_VIEW_MARGIN_TOP_TAB"), TAB_VIEW_MARGIN_TOP_TAB, 0);
  l.entier(kTab, k("TAB_VIEW_MARGIN_TOP_PORTEE"), TAB_VIEW_MARGIN_TOP_PORTEE, 150);
  l.entier(kTab, k("TAB_VIEW_INTER_STRINGS"), TAB_VIEW_INTER_STRINGS, 13);
  l.entier(kTab, k("TAB_VIEW_INTER_NOTE"), TAB_VIEW_INTER_NOTE, 20);
  l.entier(kTab, k("TAB_VIEW_INTER_MESURE"), TAB_VIEW_INTER_MESURE, 20);
  l.entier(kTab, k("PRN_SET_VIEW_MARGIN_LEFT"), PRN_SET_VIEW_MARGIN_LEFT, 35);
  l.entier(kTab, k("PRN_SET_VIEW_MARGIN_RIGHT"), PRN_SET_VIEW_MARGIN_RIGHT, 20);
  l.entier(kTab, k("PRN_SET_VIEW_MARGIN_TOP"), PRN_SET_VIEW_MARGIN_TOP, 140);
  l.entier(kTab, k("PRN_SET_VIEW_INTER_STRINGS"), PRN_SET_VIEW_INTER_STRINGS, 13);
  l.entier(kTab, k("PRN_SET_VIEW_INTER_NOTE"), PRN_SET_VIEW_INTER_NOTE, 20);
  l.entier(kTab, k("PRN_SET_VIEW_INTER_MESURE"), PRN_SET_VIEW_INTER_MESURE, 20);
  l.simple(kTab, k("cfgPrintFactor"), cfgPrintFactor, 3.0f);
  TAB_VIEW_INTER_PORTEE = 4;
  PRN_SET_VIEW_INTER_PORTEE = 4;
  l.entier(kGammes, k("setGAMTimer"), setGAMTimer, 50);
  l.octet(kGammes, k("setGAMConst"), setGAMConst, 2);
  l.octet(kGammes, k("setGAMPiano"), setGAMPiano, 1);
  l.octet(kGammes, k("setGAMMode"), setGAMMode, 2);
  l.octet(kOptions, k("setManche"), setManche, 0);
  l.chaine(kOptions, k("strSkinPath"), strSkinPath, QStringLiteral("default"));
  l.octet(kAccordeur, k("setGuitare"), setGuitare, 1);
  l.octet(kOptions, k("Show Tips at Startup"), setTipsStartup, 1);
  l.chaine(kMCI, k("mciDrive"), mciDrive, QString());
  l.chaine(kMCI, k("mciPath"), mciPath, QString());
  l.octet(kMétronome, k("TempoH"), TempoH, 1);
  l.octet(kMétronome, k("TempoM"), TempoM, 2);
  l.octet(kMétronome, k("TempoL"), TempoL, 0);
  l.octet(kMétronome, k("Temps"), Temps, 4);
  l.booleen(kMétronome, k("setMétronomeAccent"), setMétronomeAccent, kVrai);
  l.octet(kAccords, k("setAccordConst"), setAccordConst, 1);
  tAccordParametres& a = AccordParametres;
  l.octet(kAccords, k("AccordParametres.ADJ_SCORE"), a.ADJ_SCORE, 9);
  l.octet(kAccords, k("AccordParametres.MAXSPAN"), a.MAXSPAN, 4);
  l.octet(kAccords, k("AccordParametres.OPENS_SCORE"), a.OPENS_SCORE, 10);
  l.octet(kAccords, k("AccordParametres.POSITION_SCORE"), a.POSITION_SCORE, 2);
  l.octet(kAccords, k("AccordParametres.ROOT_SCORE"), a.ROOT_SCORE, 50);
  l.octet(kAccords, k("AccordParametres.SPAN_SCORE"), a.SPAN_SCORE, 12);
  l.octet(kAccords, k("AccordParametres.TSPAN_SCORE"), a.TSPAN_SCORE, 3);
}

void Settings::save_ini(QSettings& store, i16 etatFenetre, const QString& strAppPath) const {
  Ecrivain e(store);
  if (etatFenetre != kEtatMinimise) {
    e.nombre(kFenetre, k("Etat"), etatFenetre);
    if (etatFenetre == kEtatNormal) {
      e.simple(kFenetre, k("Hauteur"), Hauteur);
      e.simple(kFenetre, k("Largeur"), Largeur);
      e.simple(kFenetre, k("Haut"), Haut);
      e.simple(kFenetre, k("Gauche"), Gauche);
    }
  }

  e.texte(kTab, k("cfgPrintNumpage"), cfgPrintNumpage);
  for (int i = 0; i < 8; ++i) {
    const tCfgFont& f = cfgFont[static_cast<std::size_t>(i)];
    e.nombre(kTab, k("cfgPrint", i), cfgPrint[static_cast<std::size_t>(i)]);
    e.nombre(kTab, k("cfgPrintAlign", i), cfgPrintAlign[static_cast<std::size_t>(i)]);
    e.texte(kTab, police(i, ".nom"), f.nom);
    e.simple(kTab, police(i, ".taille"), f.taille);
    e.booleen(kTab, police(i, ".gras"), f.gras);
    e.booleen(kTab, police(i, ".italique"), f.italique);
    e.booleen(kTab, police(i, ".souligné"), f.souligné);
    e.booleen(kTab, police(i, ".barrée"), f.barrée);
    e.nombre(kTab, police(i, ".couleur"), f.couleur);
  }

  e.nombre(kOptions, k("setLang"), setLang);
  for (int i = 0; i < 7; ++i)
    e.booleen(kOptions, k("setStartWith", i), setStartWith[static_cast<std::size_t>(i)]);
  e.booleen(kOptions, k("setLoadHelpAccessWndAtStartup"), setLoadHelpAccessWndAtStartup);
  e.booleen(kOptions, k("setMancheVisible"), setMancheVisible);
  e.booleen(kOptions, k("setLeftHanded"), setLeftHanded);
  e.nombre(kOptions, k("setDémarrage"), setDémarrage);
  e.nombre(kOptions, k("setToolBar"), setToolBar);
  e.nombre(kOptions, k("setStatusBar"), setStatusBar);
  e.booleen(kOptions, k("setTabRememberFolder"), setTabRememberFolder);
  e.texte(kOptions, k("setTabFolderOpen"), setTabFolderOpen);
  e.nombre(kOptions, k("setMétronomeMIDICanal10"), setMétronomeMIDICanal10);
  e.nombre(kOptions, k("setMétro"), setMétro);
  e.nombre(kOptions, k("setMétronomeMIDINote1"), setMétronomeMIDINote1);
  e.nombre(kOptions, k("setMétronomeMIDINote2"), setMétronomeMIDINote2);
  e.nombre(kOptions, k("setMIDIchannel"), setMIDIchannel);
  e.nombre(kOptions, k("setMIDIinstru"), setMIDIinstru);
  e.nombre(kOptions, k("setMIDIvolume"), setMIDIvolume);
  e.nombre(kOptions, k("setMIDIdevice"), setMIDIdevice);
  e.nombre(kOptions, k("setMIDIPitchDemiTon"), setMIDIPitchDemiTon);
  e.nombre(kOptions, k("setMIDIPitchBendRange"), setMIDIPitchBendRange);
  e.booleen(kOptions, k("setMIDIEffet1Ton"), setMIDIEffet1Ton);
  e.nombre(kOptions, k("setMIDIINBasicChannel"), setMIDIINBasicChannel);
  e.nombre(kOptions, k("setMIDIInDevice"), setMIDIInDevice);
  e.texte(kOptions, k("setSoundFont"), setSoundFont);
  e.texte(kOptions, k("setAvisSonDits"), setAvisSonDits);
  e.nombre(kOptions, k("setManche"), setManche);
  e.texte(kOptions, k("strSkinPath"), strSkinPath);
  e.nombre(kOptions, k("Show Tips at Startup"), setTipsStartup);

  for (int i = 1; i <= 4; ++i)
    e.texte(kTab, k("setTabLastOpenFile", i), setTabLastOpenFile[static_cast<std::size_t>(i)]);
  e.nombre(kTab, k("cfgPrintNB"), cfgPrintNB);
  e.nombre(kTab, k("cfgCurseurColor"), cfgCurseurColor);
  e.nombre(kTab, k("cfgEventColor"), cfgEventColor);
  e.nombre(kTab, k("cfgLineColor"), cfgLineColor);
  e.nombre(kTab, k("cfgBackColor"), cfgBackColor);
  e.texte(kTab, k("cfgFontName"), cfgFontName);
  e.nombre(kTab, k("cfgFontSize"), cfgFontSize);
  e.booleen(kTab, k("cfgFontBold"), cfgFontBold);
  e.booleen(kTab, k("cfgAffichePortée"), cfgAffichePortée);
  e.nombre(kTab, k("cfgASCIILargeur"), cfgASCIILargeur);
  e.booleen(kTab, k("cfgPrintAccords"), cfgPrintAccords);
  e.booleen(kTab, k("cfgPrintPortée"), cfgPrintPortée);
  e.booleen(kTab, k("cfgPrintTabRythme"), cfgPrintTabRythme);
  e.booleen(kTab, k("cfgPrintPortéeSilence"), cfgPrintPortéeSilence);
  e.booleen(kTab, k("cfgPrintPortéeSilence1Mesure"), cfgPrintPortéeSilence1Mesure);
  e.booleen(kTab, k("cfgFontTransparent"), cfgFontTransparent);
  e.booleen(kTab, k("cfgPrintNumMesure"), cfgPrintNumMesure);
  e.booleen(kTab, k("cfgTabSynchronise"), cfgTabSynchronise);
  e.texte(kTab, k("cfgTabBarresCachées"), cfgTabBarresCachées);
  e.nombre(kTab, k("TAB_VIEW_MARGIN_LEFT"), TAB_VIEW_MARGIN_LEFT);
  e.nombre(kTab, k("TAB_VIEW_MARGIN_RIGHT"), TAB_VIEW_MARGIN_RIGHT);
  e.nombre(kTab, k("TAB_VIEW_MARGIN_TOP"), TAB_VIEW_MARGIN_TOP);
  e.nombre(kTab, k("TAB_VIEW_MARGIN_TOP_TAB"), TAB_VIEW_MARGIN_TOP_TAB);
  e.nombre(kTab, k("TAB_VIEW_MARGIN_TOP_PORTEE"), TAB_VIEW_MARGIN_TOP_PORTEE);
  e.nombre(kTab, k("TAB_VIEW_INTER_STRINGS"), TAB_VIEW_INTER_STRINGS);
  e.nombre(kTab, k("TAB_VIEW_INTER_NOTE"), TAB_VIEW_INTER_NOTE);
  e.nombre(kTab, k("TAB_VIEW_INTER_MESURE"), TAB_VIEW_INTER_MESURE);
  e.nombre(kTab, k("PRN_SET_VIEW_MARGIN_LEFT"), PRN_SET_VIEW_MARGIN_LEFT);
  e.nombre(kTab, k("PRN_SET_VIEW_MARGIN_RIGHT"), PRN_SET_VIEW_MARGIN_RIGHT);
  e.nombre(kTab, k("PRN_SET_VIEW_MARGIN_TOP"), PRN_SET_VIEW_MARGIN_TOP);
  e.nombre(kTab, k("PRN_SET_VIEW_INTER_STRINGS"), PRN_SET_VIEW_INTER_STRINGS);
  e.nombre(kTab, k("PRN_SET_VIEW_INTER_NOTE"), PRN_SET_VIEW_INTER_NOTE);
  e.nombre(kTab, k("PRN_SET_VIEW_INTER_MESURE"), PRN_SET_VIEW_INTER_MESURE);
  e.simple(kTab, k("cfgPrintFactor"), cfgPrintFactor);

  e.nombre(kGammes, k("setGAMTimer"), setGAMTimer);
  e.nombre(kGammes, k("setGAMConst"), setGAMConst);
  e.nombre(kGammes, k("setGAMPiano"), setGAMPiano);
  e.nombre(kGammes, k("setGAMMode"), setGAMMode);
  e.nombre(kAccords, k("setAccordConst"), setAccordConst);
  const tAccordParametres& a = AccordParametres;
  e.nombre(kAccords, k("AccordParametres.ADJ_SCORE"), a.ADJ_SCORE);
  e.nombre(kAccords, k("AccordParametres.MAXSPAN"), a.MAXSPAN);
  e.nombre(kAccords, k("AccordParametres.OPENS_SCORE"), a.OPENS_SCORE);
  e.nombre(kAccords, k("AccordParametres.POSITION_SCORE"), a.POSITION_SCORE);
  e.nombre(kAccords, k("AccordParametres.ROOT_SCORE"), a.ROOT_SCORE);
  e.nombre(kAccords, k("AccordParametres.SPAN_SCORE"), a.SPAN_SCORE);
  e.nombre(kAccords, k("AccordParametres.TSPAN_SCORE"), a.TSPAN_SCORE);
  e.nombre(kAccordeur, k("setGuitare"), setGuitare);
  e.texte(kMCI, k("mciDrive"), mciDrive);
  e.texte(kMCI, k("mciPath"), mciPath);
  e.nombre(kMétronome, k("TempoH"), TempoH);
  e.nombre(kMétronome, k("TempoM"), TempoM);
  e.nombre(kMétronome, k("TempoL"), TempoL);
  e.nombre(kMétronome, k("Temps"), Temps);
  e.booleen(kMétronome, k("setMétronomeAccent"), setMétronomeAccent);

  e.nombre(kVersion, k("App.Major"), VT_VERSION_MAJOR);
  e.nombre(kVersion, k("App.Minor"), VT_VERSION_MINOR);
  e.nombre(kVersion, k("App.Revision"), VT_VERSION_PATCH);
  e.texte(kVersion, k("App.Path"), strAppPath);
  store.sync();
}

}  // namespace vt
