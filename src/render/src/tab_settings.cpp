#include "render/tab_settings.h"

#include <cmath>

namespace vt {

int viewModeScale(int mode, bool triolet) {
  int base = 24;
  switch (mode) {
    case 1: base = 48; break;
    case 2: base = 24; break;
    case 3: base = 12; break;
    case 4: base = 6; break;
    default: break;
  }
  return triolet ? base * 2 / 3 : base;
}

void TabSettings::setViewMode(int mode, bool triolet) {
  viewMode = mode >= 1 && mode <= 4 ? mode : 2;
  viewModeTriolet = triolet;
  TAB_VIEW_SCALE = static_cast<i16>(viewModeScale(viewMode, triolet));
}

std::array<StyleEntête, 8> stylesEntêteParDéfaut() {
  std::array<StyleEntête, 8> styles{};
  for (int i = 0; i < 8; ++i) {
    StyleEntête& s = styles[static_cast<std::size_t>(i)];
    s.taille = (i == kEntêteTitre || i == kEntêteSousTitre || i == kEntêteNomPiste) ? 20 : 10;
    s.gras = i == kEntêteTitre || i == kEntêteAuteur;
    s.italique = i == kEntêteCommentaires;
  }
  return styles;
}

FontSpec TabSettings::policeTablature() const {
  return FontSpec{cfgFontName, static_cast<double>(cfgFontSize), cfgFontBold, false};
}

namespace {
// The product of a stored value and the single-precision zoom, rounded half to even.
lng scaled(double value, float factor) {
  return static_cast<lng>(std::nearbyint(value * static_cast<double>(factor)));
}
}  // namespace

PrintMetrics derivePrintMetrics(const TabSettings& s) {
  PrintMetrics m;
  const float f = s.cfgPrintFactor;
  m.PRN_VIEW_MARGIN_LEFT = scaled(s.PRN_SET_VIEW_MARGIN_LEFT, f);
  m.PRN_VIEW_MARGIN_RIGHT = scaled(s.PRN_SET_VIEW_MARGIN_RIGHT, f);
  m.PRN_VIEW_MARGIN_TOP = scaled(s.PRN_SET_VIEW_MARGIN_TOP, f);
  m.PRN_VIEW_INTER_STRINGS = scaled(s.PRN_SET_VIEW_INTER_STRINGS, f);
  m.PRN_VIEW_INTER_NOTE = scaled(s.PRN_SET_VIEW_INTER_NOTE, f);
  m.PRN_VIEW_INTER_MESURE = scaled(s.PRN_SET_VIEW_INTER_MESURE, f);
  m.PRN_VIEW_INTER_PORTEE = scaled(s.PRN_SET_VIEW_INTER_PORTEE, f);
  // The staff's room takes the already scaled half step and scales it once more.
  m.PRN_VIEW_MARGIN_TOP_TAB =
      s.cfgPrintPortée ? scaled(static_cast<double>(m.PRN_VIEW_INTER_PORTEE) * 8, f) : 0;
  m.PRN_VIEW_MARGIN_TOP_PORTEE = 0;
  m.PRN_VIEW_FACTOR = f;
  return m;
}

}  // namespace vt
