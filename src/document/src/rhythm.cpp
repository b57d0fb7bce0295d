// Beats, the silence before a track's first note, and the beam test of the staff.
#include "document/tablature.h"

namespace vt {

int CVantoroTablature::getTempsDurée(int m) const {
  if (!m_tabMesures.has(m)) return 0;
  // Compound times (6, 9, 12, 15) have dotted beats; a numerator without a rule
  // (8, 10, 13, ...) deliberately has no beat.
  int diviseur = 0;
  switch (m_tabMesures[m].bytSignatureUp) {
    case 1:
      diviseur = 1;
      break;
    case 2:
      diviseur = 2;
      break;
    case 3:
      diviseur = 3;
      break;
    case 4:
      diviseur = 4;
      break;
    case 5:
      diviseur = 5;
      break;
    case 6:
      diviseur = 2;
      break;
    case 7:
      diviseur = 7;
      break;
    case 9:
      diviseur = 3;
      break;
    case 11:
      diviseur = 11;
      break;
    case 12:
      diviseur = 4;
      break;
    case 15:
      diviseur = 5;
      break;
    default:
      return 0;
  }
  return getMesureLargeur(m) / diviseur;
}

int CVantoroTablature::getTempsNote(int p, int m, int c, int n) const {
  const tNote* note = getNote(p, m, c, n);
  const int temps = getTempsDurée(m);
  // A bar without a beat rule has no beat number; answer 0 instead of dividing by it.
  if (note == nullptr || temps == 0) return 0;
  return note->intX / temps + 1;
}

lng CVantoroTablature::getPremierSilence(int p) const {
  if (!m_tabPistes.has(p)) return 0;
  const tPiste& piste = m_tabPistes[p];
  lng total = 0;
  for (int m = 1; m <= getMesureLast() && m <= piste.tabMesures.last(); ++m) {
    const tPisteMesure& pm = piste.tabMesures[m];
    int premier = -1;
    for (const auto& corde : pm.tabCordes)
      if (!corde.empty() && (premier < 0 || corde[1].intX < premier)) premier = corde[1].intX;
    if (premier >= 0) return total + premier;
    total += getMesureLargeur(m);
  }
  return total;
}

vbool CVantoroTablature::isRythmContinueInTemps(int p, int m, int c, int intX) const {
  const OneBased<tNote>* l = notes(p, m, c);
  if (l == nullptr || !m_tabMesures.has(m)) return kFaux;
  const int dn = m_tabMesures[m].bytSignatureDn;
  if (dn == 0 || dn > 192) return kFaux;
  // The beat is a window of 48 ticks whose index comes from the denominator:
  // exact for quarter-note beats only, as the staff has always drawn it.
  const int q = 192 / dn;
  const int start = (intX / q) * 48;
  const int last = start + 47;

  const int premier = searchNoteAfterX(p, m, c, start, 1);
  if (premier == 0) return kFaux;
  int dernier = premier;
  while (dernier < l->last() && (*l)[dernier + 1].intX < last)
    ++dernier;

  if (premier == dernier && (*l)[premier].bytDurée != 48) return kFaux;
  if ((*l)[dernier].intX + (*l)[dernier].bytDurée != last + 1) return kFaux;
  for (int n = premier; n < dernier; ++n)
    if ((*l)[n].intX + (*l)[n].bytDurée != (*l)[n + 1].intX) return kFaux;
  return kVrai;
}

}  // namespace vt
