// What the strip and the page are drawn with: the "Tab" settings of the layout,
// colours and fonts, with their defaults. The settings store fills one of
// these at start; the renderer only reads it.
#pragma once

#include <string>

#include "document/types.h"
#include "render/surface.h"

namespace vt {

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
  bool cfgPrintPortée = true;

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
