// All user preferences, read once at start and written once at the end. The
// members carry the names of their keys; this is the one place that talks to
// the settings store. Like the globals they stand for, every value starts at
// zero: a key that is absent takes its default, a key whose text does not
// convert leaves the value as it was.
#pragma once

#include <QString>
#include <array>
#include <functional>

#include "document/types.h"

class QSettings;

namespace vt {

// One page-head font of the print layout.
struct tCfgFont {
  QString nom;
  float taille = 0;
  vbool souligné = kFaux;
  vbool barrée = kFaux;
  vbool gras = kFaux;
  vbool italique = kFaux;
  lng couleur = 0;
};

// The chord search's parameters.
struct tAccordParametres {
  byt ADJ_SCORE = 0;
  byt MAXSPAN = 0;
  byt OPENS_SCORE = 0;
  byt POSITION_SCORE = 0;
  byt ROOT_SCORE = 0;
  byt SPAN_SCORE = 0;
  byt TSPAN_SCORE = 0;
};

// The desktop's work area in twips, the source of the window's default geometry.
struct WorkArea {
  float gauche = 0;
  float haut = 0;
  float largeur = 0;
  float hauteur = 0;
};

// The main window's state as the store keeps it.
inline constexpr i16 kEtatNormal = 0;
inline constexpr i16 kEtatMinimise = 1;
inline constexpr i16 kEtatMaximise = 2;

class Settings {
 public:
  // ---- "Fenetre" ----
  i16 Etat = 0;
  float Hauteur = 0;
  float Largeur = 0;
  float Haut = 0;
  float Gauche = 0;

  // ---- "Options" ----
  i16 setLang = 0;  // 0 French, 10000 English, -1 not chosen yet
  std::array<vbool, 7> setStartWith{};
  vbool setLoadHelpAccessWndAtStartup = kFaux;
  vbool setMancheVisible = kFaux;
  vbool setLeftHanded = kFaux;
  byt setDémarrage = 0;
  byt setToolBar = 0;
  byt setStatusBar = 0;
  vbool setTabRememberFolder = kFaux;
  QString setTabFolderOpen;
  byt setMétronomeMIDICanal10 = 0;
  byt setMétro = 0;
  byt setMétronomeMIDINote1 = 0;
  byt setMétronomeMIDINote2 = 0;
  byt setMIDIchannel = 0;
  byt setMIDIinstru = 0;
  byt setMIDIvolume = 0;
  i16 setMIDIdevice = 0;
  i16 setMIDIPitchDemiTon = 0;
  byt setMIDIPitchBendRange = 0;
  vbool setMIDIEffet1Ton = kFaux;
  byt setMIDIINBasicChannel = 0;
  i16 setMIDIInDevice = 0;
  QString setSoundFont;  // the built-in synthesizer's SoundFont; empty: the system's
  // The sound notices about this machine already said once (no audio output,
  // no SoundFont): their string ids, comma-separated.
  QString setAvisSonDits;
  byt setManche = 0;
  QString strSkinPath;
  byt setTipsStartup = 0;  // key "Show Tips at Startup"

  // ---- "Tab" ----
  QString cfgPrintNumpage;
  std::array<byt, 8> cfgPrint{};
  std::array<byt, 8> cfgPrintAlign{};
  std::array<tCfgFont, 8> cfgFont{};
  std::array<QString, 5> setTabLastOpenFile{};  // 1..4; element 0 unused
  byt cfgPrintNB = 0;
  lng cfgCurseurColor = 0;
  lng cfgEventColor = 0;
  lng cfgLineColor = 0;
  lng cfgBackColor = 0;
  QString cfgFontName;
  byt cfgFontSize = 0;
  vbool cfgFontBold = kFaux;
  vbool cfgAffichePortée = kFaux;
  i16 cfgASCIILargeur = 0;
  vbool cfgPrintAccords = kFaux;
  vbool cfgPrintPortée = kFaux;
  vbool cfgPrintTabRythme = kFaux;
  vbool cfgPrintPortéeSilence = kFaux;
  vbool cfgPrintPortéeSilence1Mesure = kFaux;
  vbool cfgFontTransparent = kFaux;
  vbool cfgPrintNumMesure = kFaux;
  vbool cfgTabSynchronise = kFaux;
  QString cfgTabBarresCachées;  // the editor's hidden toolbars, by name, comma-separated
  i16 TAB_VIEW_MARGIN_LEFT = 0;
  i16 TAB_VIEW_MARGIN_RIGHT = 0;
  i16 TAB_VIEW_MARGIN_TOP = 0;
  i16 TAB_VIEW_MARGIN_TOP_TAB = 0;
  i16 TAB_VIEW_MARGIN_TOP_PORTEE = 0;
  i16 TAB_VIEW_INTER_STRINGS = 0;
  i16 TAB_VIEW_INTER_NOTE = 0;
  i16 TAB_VIEW_INTER_MESURE = 0;
  i16 PRN_SET_VIEW_MARGIN_LEFT = 0;
  i16 PRN_SET_VIEW_MARGIN_RIGHT = 0;
  i16 PRN_SET_VIEW_MARGIN_TOP = 0;
  i16 PRN_SET_VIEW_INTER_STRINGS = 0;
  i16 PRN_SET_VIEW_INTER_NOTE = 0;
  i16 PRN_SET_VIEW_INTER_MESURE = 0;
  float cfgPrintFactor = 0;
  // Not stored: the half step of the staff, set to 4 at every load.
  i16 TAB_VIEW_INTER_PORTEE = 0;
  i16 PRN_SET_VIEW_INTER_PORTEE = 0;

  // ---- "Gammes" ----
  i16 setGAMTimer = 0;
  byt setGAMConst = 0;
  byt setGAMPiano = 0;
  byt setGAMMode = 0;

  // ---- "Accords" ----
  byt setAccordConst = 0;
  tAccordParametres AccordParametres;

  // ---- "Accordeur" ----
  byt setGuitare = 0;

  // ---- "MCI" ----
  QString mciDrive;
  QString mciPath;

  // ---- "Metronome": the tempo's three digits, the beats to the bar, and
  // whether the first beat of the bar has its own note ----
  byt TempoH = 0;
  byt TempoM = 0;
  byt TempoL = 0;
  byt Temps = 0;
  vbool setMétronomeAccent = kFaux;

  // Reads every key in the order of the boot sequence. `choisirLangue` is
  // asked when no language is stored (the language dialog) and answers 0 or
  // 10000.
  void load_ini(QSettings& store, const WorkArea& zone, const std::function<i16()>& choisirLangue);

  // Writes every key. `etatFenetre` is the main window's state at close: a
  // minimized window leaves the geometry as it was stored, a maximized one
  // keeps its last normal geometry.
  void save_ini(QSettings& store, i16 etatFenetre, const QString& strAppPath) const;
};

// The user's documents folder with its trailing separator, the home folder
// when there is none: where the file dialogs open the first time.
QString dossierDocuments();

// The text the store holds for a truth value, and its reading.
QString texteBool(vbool v);

}  // namespace vt
