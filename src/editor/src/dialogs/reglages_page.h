// What the pages are drawn with, from the settings: the print layout, the
// head's styles and the options of the "Tab" section, the colours and the
// tablature's font, and the words of a page in the language in use.
#pragma once

#include "render/tab_settings.h"
#include "textes_dialogue.h"

namespace vt {

class Settings;

TabSettings réglagesPage(const Settings& s, const Textes& t);

// The sliders' values of the print layout as they are at a first start.
struct MiseEnPageParDéfaut {
  static constexpr float cfgPrintFactor = 3;
  static constexpr i16 PRN_SET_VIEW_MARGIN_LEFT = 35;
  static constexpr i16 PRN_SET_VIEW_MARGIN_TOP = 140;
  static constexpr i16 PRN_SET_VIEW_INTER_STRINGS = 13;
  static constexpr i16 PRN_SET_VIEW_INTER_NOTE = 20;
  static constexpr i16 PRN_SET_VIEW_INTER_MESURE = 20;
};

}  // namespace vt
