#include "reglages_page.h"

#include <algorithm>

#include "shell/settings.h"

namespace vt {

namespace {
Colour couleurDe(lng valeur) {
  return static_cast<Colour>(valeur) & 0xFFFFFFu;
}
}  // namespace

TabSettings réglagesPage(const Settings& s, const Textes& t) {
  TabSettings r;
  // A zero from a store that was never written keeps the default; a page of
  // no string spacing or column width has nothing to draw.
  const auto au = [](i16 v, i16 min, i16 défaut) { return v >= min ? v : défaut; };
  r.PRN_SET_VIEW_MARGIN_LEFT = au(s.PRN_SET_VIEW_MARGIN_LEFT, 0, 35);
  r.PRN_SET_VIEW_MARGIN_RIGHT = au(s.PRN_SET_VIEW_MARGIN_RIGHT, 0, 20);
  r.PRN_SET_VIEW_MARGIN_TOP = au(s.PRN_SET_VIEW_MARGIN_TOP, 0, 140);
  r.PRN_SET_VIEW_INTER_STRINGS = au(s.PRN_SET_VIEW_INTER_STRINGS, 1, 13);
  r.PRN_SET_VIEW_INTER_NOTE = au(s.PRN_SET_VIEW_INTER_NOTE, 1, 20);
  r.PRN_SET_VIEW_INTER_MESURE = au(s.PRN_SET_VIEW_INTER_MESURE, 0, 20);
  r.PRN_SET_VIEW_INTER_PORTEE = au(s.PRN_SET_VIEW_INTER_PORTEE, 1, 4);
  r.cfgPrintFactor = s.cfgPrintFactor > 0 ? std::min(s.cfgPrintFactor, 20.0f) : 3.0f;
  r.cfgPrintPortée = s.cfgPrintPortée != 0;
  r.cfgPrintAccords = s.cfgPrintAccords != 0;
  r.cfgPrintTabRythme = s.cfgPrintTabRythme != 0;
  r.cfgPrintPortéeSilence = s.cfgPrintPortéeSilence != 0;
  r.cfgPrintPortéeSilence1Mesure = s.cfgPrintPortéeSilence1Mesure != 0;
  r.cfgPrintNumMesure = s.cfgPrintNumMesure != 0;
  r.cfgPrintNB = s.cfgPrintNB;
  r.cfgPrintNumpage = s.cfgPrintNumpage.toStdString();
  for (std::size_t i = 0; i < 8; ++i) {
    r.cfgPrint[i] = s.cfgPrint[i];
    r.cfgPrintAlign[i] = s.cfgPrintAlign[i] <= 2 ? s.cfgPrintAlign[i] : 1;
    const tCfgFont& f = s.cfgFont[i];
    StyleEntête& st = r.cfgFont[i];
    if (!f.nom.isEmpty()) st.nom = f.nom.toStdString();
    if (f.taille > 0) st.taille = f.taille;
    st.gras = f.gras != 0;
    st.italique = f.italique != 0;
    st.souligné = f.souligné != 0;
    st.barrée = f.barrée != 0;
    st.couleur = couleurDe(f.couleur);
  }
  r.cfgEventColor = couleurDe(s.cfgEventColor);
  r.cfgLineColor = couleurDe(s.cfgLineColor);
  if (!s.cfgFontName.isEmpty()) r.cfgFontName = s.cfgFontName.toStdString();
  if (s.cfgFontSize > 0) r.cfgFontSize = s.cfgFontSize;
  r.cfgFontBold = s.cfgFontBold != 0;
  r.textesPage.tempo = t.loadString(1275).toStdString();
  r.textesPage.accordage = t.loadString(1601).toStdString();
  r.textesPage.capodastre = t.loadString(1276).toStdString();
  for (int k = 0; k < 12; ++k)
    r.textesPage.notes[static_cast<std::size_t>(k)] = t.loadString(2806 + k).toStdString();
  return r;
}

}  // namespace vt
