// Bars and tracks coming and going.
#include <utility>

#include "document/tablature.h"

namespace vt {

bool CVantoroTablature::addMesure() {
  if (getMesureLast() >= kMaxMesures) return false;
  tMesure h;
  const tMesure& avant = m_tabMesures[getMesureLast()];
  h.bytSignatureUp = avant.bytSignatureUp;
  h.bytSignatureDn = avant.bytSignatureDn;
  h.bytTonalité = avant.bytTonalité;
  m_tabMesures.push_back(std::move(h));
  for (tPiste& piste : m_tabPistes)
    piste.tabMesures.push_back(tPisteMesure::vide(piste.bytNbrCordes));
  return true;
}

void CVantoroTablature::truncateMesures(int last) {
  if (last < 1) last = 1;
  m_tabMesures.truncateFrom(last + 1);
  for (tPiste& piste : m_tabPistes)
    piste.tabMesures.truncateFrom(last + 1);
}

bool CVantoroTablature::addPiste(int bytFromPiste, const tGuitare& guitare, byt bytPatch) {
  if (getPisteLast() >= kMaxPistes || bytFromPiste < 0 || bytFromPiste > getPisteLast())
    return false;
  const int k = bytFromPiste + 1;
  m_tabPistes.push_back(tPiste{});
  const int last = getPisteLast();

  // The defaults go into the record at k, whose name and bars stay as they are.
  {
    tPiste& r = m_tabPistes[k];
    tPiste def = defaultPiste(guitare, bytPatch);
    def.strNom = std::move(r.strNom);
    def.tabMesures = std::move(r.tabMesures);
    r = std::move(def);
  }
  // Inserted in the middle, the records from k move up by one, each a copy of
  // the one below. Kept as it has always been: the new track carries the
  // defaults and the name of the track that stood at k, and that track keeps
  // its notes but carries the defaults from then on.
  if (k < last) {
    for (int i = last; i >= k + 2; --i)
      m_tabPistes[i] = std::move(m_tabPistes[i - 1]);
    tPiste copie = m_tabPistes[k];  // settings only: its bars are replaced below
    copie.tabMesures = OneBased<tPisteMesure>();
    m_tabPistes[k + 1] = std::move(m_tabPistes[k]);
    m_tabPistes[k] = std::move(copie);
    // The moved track's bars follow its new string count.
    changePisteNbrCordes(k + 1);
  }
  tPiste& r = m_tabPistes[k];
  r.tabMesures = OneBased<tPisteMesure>(getMesureLast(), tPisteMesure::vide(r.bytNbrCordes));
  return true;
}

bool CVantoroTablature::deletePiste(int bytPiste) {
  // A document keeps at least one track.
  if (!m_tabPistes.has(bytPiste) || getPisteLast() <= 1) return false;
  m_tabPistes.erase(bytPiste);
  return true;
}

void CVantoroTablature::changePisteNbrCordes(int bytPiste) {
  if (!m_tabPistes.has(bytPiste)) return;
  tPiste& piste = m_tabPistes[bytPiste];
  const int s = piste.bytNbrCordes;
  if (piste.tabMesures.empty() || piste.tabMesures[1].tabCordes.last() == s) return;
  for (tPisteMesure& pm : piste.tabMesures) {
    pm.tabCordes.resize(s);  // strings that go away lose their notes; new ones are empty
    for (tAccord& a : pm.tabAccords)
      a.tabCordes.resize(s, kCaseVide);  // new string: not played
  }
}

void CVantoroTablature::garbageMesure(int intFromMesure, int intNbMesures) {
  const int last = getMesureLast();
  if (last <= 1 || intNbMesures <= 0) return;
  if (intFromMesure < 1) intFromMesure = 1;
  if (intFromMesure + intNbMesures - 1 > last) intNbMesures = last - intFromMesure + 1;
  if (intNbMesures >= last) intNbMesures = last - 1;  // a document keeps one bar
  if (intNbMesures <= 0) return;
  truncateMesures(last - intNbMesures);
}

bool CVantoroTablature::insertMesure(int bytPiste, int intFromMesure, int intNbMesures) {
  if (!m_tabPistes.has(bytPiste) || intNbMesures < 1 || intFromMesure < 1 ||
      intFromMesure > getMesureLast() + 1 || getMesureLast() + intNbMesures > kMaxMesures)
    return false;
  for (int i = 0; i < intNbMesures; ++i)
    addMesure();
  auto& mesures = m_tabPistes[bytPiste].tabMesures;
  for (int b = getMesureLast(); b >= intFromMesure + intNbMesures; --b)
    mesures[b] = std::move(mesures[b - intNbMesures]);
  const int cordes = m_tabPistes[bytPiste].bytNbrCordes;
  for (int b = intFromMesure; b < intFromMesure + intNbMesures; ++b)
    mesures[b] = tPisteMesure::vide(cordes);
  return true;
}

void CVantoroTablature::deleteMesure(int bytPiste, int intMesure) {
  if (!m_tabPistes.has(bytPiste) || !m_tabMesures.has(intMesure)) return;
  auto& mesures = m_tabPistes[bytPiste].tabMesures;
  const int last = mesures.last();
  for (int b = intMesure; b < last; ++b)
    mesures[b] = std::move(mesures[b + 1]);
  // The last bar is emptied, not removed: garbageMesure shortens the document.
  // With one bar only, that bar is emptied.
  mesures[last] = tPisteMesure::vide(m_tabPistes[bytPiste].bytNbrCordes);
}

}  // namespace vt
