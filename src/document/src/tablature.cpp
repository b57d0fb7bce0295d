// Construction, initialize, and the checked access to records.
#include "document/tablature.h"

namespace vt {

CVantoroTablature::CVantoroTablature(const tGuitare& guitare, byt bytPatch) {
  initialize(guitare, bytPatch);
}

tPiste CVantoroTablature::defaultPiste(const tGuitare& guitare, byt bytPatch) const {
  tPiste p;
  p.bytPatch = bytPatch;
  p.strGuitareNom = guitare.nom.substr(0, kMaxTexte);
  p.bytNbrCordes = static_cast<byt>(
      guitare.nbrCordes >= 1 && guitare.nbrCordes <= kMaxCordes ? guitare.nbrCordes : 6);
  p.bytNbrCases = guitare.nbrCases;
  p.bytCordes = guitare.corde;
  p.bytCordes[0] = 0;
  p.bytCapodastre = guitare.capodastre;
  return p;
}

void CVantoroTablature::initialize(const tGuitare& guitare, byt bytPatch) {
  modifi = kFaux;
  tempo = 120;
  titre.clear();
  Auteur.clear();
  Copy.clear();
  SousTitre.clear();
  Comments.clear();
  m_lngScrollValue = 1;
  intSelStartMesure = intSelStartX = intSelStopMesure = intSelStopX = 0;
  bytSelStartCorde = bytSelStopCorde = 0;
  m_TripleFeel = kFaux;
  m_CurseurX = 0;
  m_CurseurCorde = 1;
  m_CurseurMesure = 1;
  m_CurseurPiste = 1;

  m_tabUndo.clear();
  m_tabRedo.clear();
  m_tabMesures.clear();
  m_tabMesures.push_back(tMesure{});  // 4/4, plain lines, C major, no tempo

  m_tabPistes.clear();
  tPiste p = defaultPiste(guitare, bytPatch);
  p.tabMesures.push_back(tPisteMesure::vide(p.bytNbrCordes));
  m_tabPistes.push_back(std::move(p));

  m_marqueurs = tMarqueurs{};
}

const tPisteMesure* CVantoroTablature::pisteMesure(int p, int m) const {
  if (!m_tabPistes.has(p)) return nullptr;
  const auto& mes = m_tabPistes[p].tabMesures;
  return mes.has(m) ? &mes[m] : nullptr;
}

tPisteMesure* CVantoroTablature::pisteMesure(int p, int m) {
  if (!m_tabPistes.has(p)) return nullptr;
  auto& mes = m_tabPistes[p].tabMesures;
  return mes.has(m) ? &mes[m] : nullptr;
}

const OneBased<tNote>* CVantoroTablature::notes(int p, int m, int c) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !pm->tabCordes.has(c)) return nullptr;
  return &pm->tabCordes[c];
}

OneBased<tNote>* CVantoroTablature::cordeMut(int p, int m, int c) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !pm->tabCordes.has(c)) return nullptr;
  return &pm->tabCordes[c];
}

tNote* CVantoroTablature::noteMut(int p, int m, int c, int n) {
  OneBased<tNote>* l = cordeMut(p, m, c);
  return (l != nullptr && l->has(n)) ? &(*l)[n] : nullptr;
}

const tNote* CVantoroTablature::getNote(int p, int m, int c, int n) const {
  const OneBased<tNote>* l = notes(p, m, c);
  return (l != nullptr && l->has(n)) ? &(*l)[n] : nullptr;
}

}  // namespace vt
