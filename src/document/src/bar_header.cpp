// The bar header shared by all tracks: signature, key, bar lines, tempos.
#include "document/tablature.h"
#include "sorted_list.h"

namespace vt {

namespace {
bool denominateurValide(int dn) {
  return dn == 1 || dn == 2 || dn == 4 || dn == 8 || dn == 16 || dn == 32 || dn == 64;
}
}  // namespace

int CVantoroTablature::getMesureLargeur(int m) const {
  if (!m_tabMesures.has(m)) return 0;
  const tMesure& h = m_tabMesures[m];
  if (h.bytSignatureDn == 0) return 0;
  return h.bytSignatureUp * kTicksRonde / h.bytSignatureDn;
}

bool CVantoroTablature::setMesureSignature(int m, int up, int dn) {
  if (!m_tabMesures.has(m) || up < 1 || up > 255 || !denominateurValide(dn)) return false;
  if (up * kTicksRonde / dn > 0x7FFF) return false;  // ticks are 16-bit
  tMesure& h = m_tabMesures[m];
  h.bytSignatureUp = static_cast<byt>(up);
  h.bytSignatureDn = static_cast<byt>(dn);
  const int largeur = getMesureLargeur(m);

  // Everything at or past the new width goes; the lengths of the notes that
  // stay are left alone, so a note may run past the end of a shortened bar.
  for (tPiste& piste : m_tabPistes) {
    if (!piste.tabMesures.has(m)) continue;
    tPisteMesure& pm = piste.tabMesures[m];
    for (auto& corde : pm.tabCordes)
      detail::cutFrom(corde, largeur);
    detail::cutFrom(pm.tabTextesDn, largeur);
    detail::cutFrom(pm.tabTextesUp, largeur);
    detail::cutFrom(pm.tabAccords, largeur);
  }
  detail::cutFrom(h.tabTempos, largeur);
  return true;
}

int CVantoroTablature::getMesureSignatureUp(int m) const {
  return m_tabMesures.has(m) ? m_tabMesures[m].bytSignatureUp : 0;
}

int CVantoroTablature::getMesureSignatureDn(int m) const {
  return m_tabMesures.has(m) ? m_tabMesures[m].bytSignatureDn : 0;
}

void CVantoroTablature::setMesureTonalité(int m, byt v) {
  if (m_tabMesures.has(m)) m_tabMesures[m].bytTonalité = v;
}

void CVantoroTablature::setMesureTonalitéDétails(int m, int altérations, vbool boolMajeur) {
  if (!m_tabMesures.has(m)) return;
  m_tabMesures[m].bytTonalité = static_cast<byt>(altérations + (boolMajeur == kVrai ? 8 : 72));
}

int CVantoroTablature::getMesureTonalité(int m) const {
  return m_tabMesures.has(m) ? m_tabMesures[m].bytTonalité : 0;
}

vbool CVantoroTablature::getMesureTonalitéMode(int m) const {
  return toVbool((getMesureTonalité(m) & 64) == 0);
}

int CVantoroTablature::getMesureTonalitéAltérations(int m) const {
  const int t = getMesureTonalité(m);
  return (t & 64) != 0 ? t - 72 : t - 8;
}

#define VT_BAR_FIELD(Get, Set, field)                       \
  int CVantoroTablature::Get(int m) const {                 \
    return m_tabMesures.has(m) ? m_tabMesures[m].field : 0; \
  }                                                         \
  void CVantoroTablature::Set(int m, byt v) {               \
    if (m_tabMesures.has(m)) m_tabMesures[m].field = v;     \
  }

VT_BAR_FIELD(getMesureLoopDroiteType, setMesureLoopDroiteType, bytLoopDroiteType)
VT_BAR_FIELD(getMesureLoopDroiteData, setMesureLoopDroiteData, bytLoopDroiteData)
VT_BAR_FIELD(getMesureLoopGaucheType, setMesureLoopGaucheType, bytLoopGaucheType)
VT_BAR_FIELD(getMesureLoopGaucheData, setMesureLoopGaucheData, bytLoopGaucheData)

#undef VT_BAR_FIELD

int CVantoroTablature::checkMesureRenvois() const {
  bool ouvert = false;
  bool vu = false;
  for (int m = 1; m <= getMesureLast(); ++m) {
    const tMesure& h = m_tabMesures[m];
    if (h.bytLoopGaucheType == barre::kRepetition) {
      if (ouvert) return m;
      ouvert = vu = true;
    }
    if (h.bytLoopDroiteType == barre::kRepetition) {
      // A first repeat end without a start repeats from the start of the
      // piece; after any repeat, an end needs a start of its own.
      if (!ouvert && vu) return m;
      ouvert = false;
      vu = true;
    }
  }
  return ouvert ? getMesureLast() : 0;
}

bool CVantoroTablature::setMesureTempo(int m, int intX, byt valeur) {
  if (!m_tabMesures.has(m) || intX < 0 || intX > 0xFFFF) return false;
  OneBased<tTempo>& liste = m_tabMesures[m].tabTempos;
  if (int n = detail::searchLast(liste, intX)) {
    liste[n].bytTempo = valeur;
    return true;
  }
  return detail::insertSorted(liste, tTempo{static_cast<u16>(intX), valeur}) != 0;
}

int CVantoroTablature::searchMesureTempo(int m, int intX) const {
  return m_tabMesures.has(m) ? detail::searchLast(m_tabMesures[m].tabTempos, intX) : 0;
}

void CVantoroTablature::deleteTempo(int m, int n) {
  if (m_tabMesures.has(m) && m_tabMesures[m].tabTempos.has(n)) m_tabMesures[m].tabTempos.erase(n);
}

int CVantoroTablature::getMesureTempoLast(int m) const {
  return m_tabMesures.has(m) ? m_tabMesures[m].tabTempos.last() : 0;
}

int CVantoroTablature::getMesureTempoContenu(int m, int n) const {
  return (m_tabMesures.has(m) && m_tabMesures[m].tabTempos.has(n))
             ? m_tabMesures[m].tabTempos[n].bytTempo
             : 0;
}

int CVantoroTablature::getMesureTempoX(int m, int n) const {
  return (m_tabMesures.has(m) && m_tabMesures[m].tabTempos.has(n))
             ? m_tabMesures[m].tabTempos[n].intX
             : 0;
}

void CVantoroTablature::setMarqueurStart(int m, int x) {
  const i16 mm = static_cast<i16>(m);
  const i16 xx = static_cast<i16>(x);
  tMarqueurs& k = m_marqueurs;
  if (m > k.stopMesure || (m == k.stopMesure && x > k.stopX)) {
    k = tMarqueurs{mm, xx, mm, xx};  // the stop marker is dragged along
  } else {
    k.startMesure = mm;
    k.startX = xx;
  }
}

void CVantoroTablature::setMarqueurStop(int m, int x) {
  const i16 mm = static_cast<i16>(m);
  const i16 xx = static_cast<i16>(x);
  tMarqueurs& k = m_marqueurs;
  if (m < k.startMesure || (m == k.startMesure && x < k.startX)) {
    k = tMarqueurs{mm, xx, mm, xx};
  } else {
    k.stopMesure = mm;
    k.stopX = xx;
  }
}

vbool CVantoroTablature::isMarkerCorrect() const {
  // Equal markers mean no marked region.
  return toVbool(!(m_marqueurs.startMesure == m_marqueurs.stopMesure &&
                   m_marqueurs.startX == m_marqueurs.stopX));
}

}  // namespace vt
