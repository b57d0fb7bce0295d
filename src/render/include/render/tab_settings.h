// What the strip and the page are drawn with: the "Tab" settings of the layout,
// colours and fonts, with their defaults. The settings store fills one of
// these at start; the renderer only reads it.
#pragma once

#include <array>
#include <string>

#include "document/types.h"
#include "render/surface.h"

namespace vt {

// The style of one element of the page head.
struct StyleEntête {
  std::string nom = "Arial";
  double taille = 10;  // points
  bool souligné = false;
  bool barrée = false;
  bool gras = false;
  bool italique = false;
  Colour couleur = kNoir;
  bool operator==(const StyleEntête&) const = default;
};

// The elements of the page head, by their index.
enum ElémentEntête : int {
  kEntêteTitre = 0,
  kEntêteSousTitre = 1,
  kEntêteAuteur = 2,
  kEntêteCopyright = 3,
  kEntêteCommentaires = 4,
  kEntêteTempo = 5,
  kEntêteNuméroPage = 6,
  kEntêteNomPiste = 7,
};

// The initial style of each head element: the title large and bold, the
// subtitle and the track name large, the rest small; comments in italics.
std::array<StyleEntête, 8> stylesEntêteParDéfaut();

// What a page prints in words, from the string table of the language in use.
struct TextesPage {
  std::string tempo = "Tempo:";       // followed by the tempo
  std::string accordage = "Tuning:";  // followed by the open strings, low to high
  std::string capodastre = "Capo: fret %1";
  std::array<std::string, 12> notes{"A", "A#", "B", "C", "C#", "D",
                                    "D#", "E", "F", "F#", "G", "G#"};  // A first
};

struct TabSettings {
  // ---- Screen layout, in pixels --------------------------------------------
  i16 TAB_VIEW_MARGIN_LEFT = 35;   // x of the first bar line; string names stand left of it
  i16 TAB_VIEW_MARGIN_RIGHT = 20;  // stored and saved, read by no drawing
  i16 TAB_VIEW_MARGIN_TOP = 140;   // y of the notation's origin
  i16 TAB_VIEW_MARGIN_TOP_TAB = 0;        // first string, below the origin
  i16 TAB_VIEW_MARGIN_TOP_PORTEE = 150;   // top line of the staff, below the origin
  i16 TAB_VIEW_INTER_STRINGS = 13;
  i16 TAB_VIEW_INTER_NOTE = 20;    // width of one column
  i16 TAB_VIEW_INTER_MESURE = 20;  // padding on each side inside a bar
  i16 TAB_VIEW_INTER_PORTEE = 4;   // half a staff space; fixed, not stored

  // ---- View: ticks per column; set by the editor's view mode, not stored ---
  i16 TAB_VIEW_SCALE = 24;
  int viewMode = 2;             // 1 quarter, 2 eighth, 3 sixteenth, 4 thirty-second
  bool viewModeTriolet = false;  // the triplet variant of the view mode
  // Sets the view mode and the scale that follows from it.
  void setViewMode(int mode, bool triolet);

  // ---- Colours and fonts ----------------------------------------------------
  Colour cfgCurseurColor = 16777087;  // red 127, green 255, blue 255
  Colour cfgEventColor = kNoir;       // notes, rhythm, effects
  Colour cfgLineColor = kNoir;        // strings, bar lines, chords, texts
  Colour cfgBackColor = kBlanc;
  std::string cfgFontName = "Arial";  // tablature digits and texts
  int cfgFontSize = 8;
  bool cfgFontBold = true;
  bool cfgFontTransparent = false;  // digits without a background box
  bool cfgAffichePortée = true;     // the staff in the editor

  // The desktop's button colours for the ruler (the editor copies its palette).
  Colour couleurBoutonFace = rgb(240, 240, 240);
  Colour couleurBoutonOmbre = rgb(160, 160, 160);
  std::string policeRègle = "Small Fonts";
  std::string policeMusique = "MusicalSymbols";

  // ---- Print layout (the page multiplies these by the page zoom) ------------
  i16 PRN_SET_VIEW_MARGIN_LEFT = 35;
  i16 PRN_SET_VIEW_MARGIN_RIGHT = 20;
  i16 PRN_SET_VIEW_MARGIN_TOP = 140;
  i16 PRN_SET_VIEW_INTER_STRINGS = 13;
  i16 PRN_SET_VIEW_INTER_NOTE = 20;
  i16 PRN_SET_VIEW_INTER_MESURE = 20;
  i16 PRN_SET_VIEW_INTER_PORTEE = 4;  // fixed, not stored
  float cfgPrintFactor = 3;
  bool cfgPrintPortée = true;          // the staff above the tablature
  bool cfgPrintAccords = true;         // chord diagrams; off halves a system's top room
  bool cfgPrintTabRythme = true;       // stems and beams under the tablature
  bool cfgPrintPortéeSilence = true;   // rests on the staff
  bool cfgPrintPortéeSilence1Mesure = false;  // ... also in a bar with no note at all
  bool cfgPrintNumMesure = true;       // the number of a system's first bar
  int cfgPrintNB = 1;                  // 1: all in black; else in the colours of the settings
  std::string cfgPrintNumpage = "- %c -";      // %c stands for the page number
  std::array<int, 8> cfgPrint{1, 1, 1, 1, 1, 1, 1, 1};       // head elements printed
  std::array<int, 8> cfgPrintAlign{1, 1, 1, 1, 0, 0, 1, 1};  // 0 left, 1 centre, 2 right
  std::array<StyleEntête, 8> cfgFont = stylesEntêteParDéfaut();
  TextesPage textesPage;

  // The staff lies below the tablature exactly when its offset is the larger.
  bool portéeEnDessous() const { return TAB_VIEW_MARGIN_TOP_PORTEE > TAB_VIEW_MARGIN_TOP_TAB; }
  // The tablature font as the settings give it.
  FontSpec policeTablature() const;
};

// Ticks per column for a view mode (1 to 4) and its triplet variant.
int viewModeScale(int mode, bool triolet);

// The page metrics, recomputed from the print settings whenever the page zoom
// changes; every product is rounded half to even.
struct PrintMetrics {
  lng PRN_VIEW_MARGIN_LEFT = 0;
  lng PRN_VIEW_MARGIN_RIGHT = 0;
  lng PRN_VIEW_MARGIN_TOP = 0;
  lng PRN_VIEW_INTER_STRINGS = 0;
  lng PRN_VIEW_INTER_NOTE = 0;
  lng PRN_VIEW_INTER_MESURE = 0;
  lng PRN_VIEW_INTER_PORTEE = 0;
  lng PRN_VIEW_MARGIN_TOP_TAB = 0;
  lng PRN_VIEW_MARGIN_TOP_PORTEE = 0;
  float PRN_VIEW_FACTOR = 0;
  bool operator==(const PrintMetrics&) const = default;
};

PrintMetrics derivePrintMetrics(const TabSettings& s);

}  // namespace vt
