// Chords and texts of one track in one bar.
#include <algorithm>

#include "document/tablature.h"
#include "sorted_list.h"

namespace vt {

using detail::insertSorted;
using detail::searchLast;

namespace {
bool estTexteDuHaut(vbool TexteDuHaut) {
  return TexteDuHaut == kVrai;
}
bool tickValide(int intX) {
  return intX >= 0 && intX <= 0xFFFF;
}
}  // namespace

int CVantoroTablature::addandplaceMesureAccord(int p, int m, int intX) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !tickValide(intX)) return 0;
  tAccord a;
  a.intX = static_cast<u16>(intX);
  a.tabCordes.resize(m_tabPistes[p].bytNbrCordes, kCaseVide);
  return insertSorted(pm->tabAccords, std::move(a));
}

int CVantoroTablature::searchMesureAccord(int p, int m, int intX) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return pm != nullptr ? searchLast(pm->tabAccords, intX) : 0;
}

bool CVantoroTablature::setMesureAccord(int p, int m, int n, const std::string& strNom,
                                        const OneBased<byt>& frettes) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !pm->tabAccords.has(n) || strNom.size() > kMaxTexte) return false;
  tAccord& a = pm->tabAccords[n];
  a.strNom = strNom;
  const int cordes = std::min<int>(m_tabPistes[p].bytNbrCordes, frettes.last());
  for (int c = 1; c <= cordes && c <= a.tabCordes.last(); ++c)
    a.tabCordes[c] = frettes[c];
  return true;
}

bool CVantoroTablature::setMesureAccordNom(int p, int m, int n, const std::string& strNom) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !pm->tabAccords.has(n) || strNom.size() > kMaxTexte) return false;
  pm->tabAccords[n].strNom = strNom;
  return true;
}

std::string CVantoroTablature::getMesureAccordNom(int p, int m, int n) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return (pm != nullptr && pm->tabAccords.has(n)) ? pm->tabAccords[n].strNom : std::string();
}

void CVantoroTablature::setMesureAccordCorde(int p, int m, int n, int c, byt bytCase) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm != nullptr && pm->tabAccords.has(n) && pm->tabAccords[n].tabCordes.has(c))
    pm->tabAccords[n].tabCordes[c] = bytCase;
}

int CVantoroTablature::getMesureAccordCorde(int p, int m, int n, int c) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !pm->tabAccords.has(n) || !pm->tabAccords[n].tabCordes.has(c)) return 0;
  return pm->tabAccords[n].tabCordes[c];
}

int CVantoroTablature::getMesureAccordX(int p, int m, int n) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return (pm != nullptr && pm->tabAccords.has(n)) ? pm->tabAccords[n].intX : 0;
}

int CVantoroTablature::getMesureAccordLast(int p, int m) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return pm != nullptr ? pm->tabAccords.last() : 0;
}

void CVantoroTablature::deleteAccord(int p, int m, int n) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm != nullptr && pm->tabAccords.has(n)) pm->tabAccords.erase(n);
}

bool CVantoroTablature::setMesureTexte(int p, int m, int intX, const std::string& strValeur,
                                       vbool TexteDuHaut) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr || !tickValide(intX) || strValeur.size() > kMaxTexte) return false;
  OneBased<tTexte>& liste = estTexteDuHaut(TexteDuHaut) ? pm->tabTextesUp : pm->tabTextesDn;
  if (int n = searchLast(liste, intX)) {
    liste[n].strContenu = strValeur;
    return true;
  }
  return insertSorted(liste, tTexte{static_cast<u16>(intX), strValeur}) != 0;
}

std::string CVantoroTablature::getMesureTexte(int p, int m, int intX, vbool TexteDuHaut) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr) return {};
  const OneBased<tTexte>& liste = estTexteDuHaut(TexteDuHaut) ? pm->tabTextesUp : pm->tabTextesDn;
  const int n = searchLast(liste, intX);
  return n != 0 ? liste[n].strContenu : std::string();
}

int CVantoroTablature::searchMesureTexte(int p, int m, int intX, vbool TexteDuHaut) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr) return 0;
  return searchLast(estTexteDuHaut(TexteDuHaut) ? pm->tabTextesUp : pm->tabTextesDn, intX);
}

void CVantoroTablature::deleteTexte(int p, int m, int n, vbool TexteDuHaut) {
  tPisteMesure* pm = pisteMesure(p, m);
  if (pm == nullptr) return;
  OneBased<tTexte>& liste = estTexteDuHaut(TexteDuHaut) ? pm->tabTextesUp : pm->tabTextesDn;
  if (liste.has(n)) liste.erase(n);
}

int CVantoroTablature::getMesureTexteUpLast(int p, int m) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return pm != nullptr ? pm->tabTextesUp.last() : 0;
}

int CVantoroTablature::getMesureTexteDnLast(int p, int m) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return pm != nullptr ? pm->tabTextesDn.last() : 0;
}

std::string CVantoroTablature::getMesureTexteUpContenu(int p, int m, int n) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return (pm != nullptr && pm->tabTextesUp.has(n)) ? pm->tabTextesUp[n].strContenu : std::string();
}

std::string CVantoroTablature::getMesureTexteDnContenu(int p, int m, int n) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return (pm != nullptr && pm->tabTextesDn.has(n)) ? pm->tabTextesDn[n].strContenu : std::string();
}

int CVantoroTablature::getMesureTexteUpX(int p, int m, int n) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return (pm != nullptr && pm->tabTextesUp.has(n)) ? pm->tabTextesUp[n].intX : 0;
}

int CVantoroTablature::getMesureTexteDnX(int p, int m, int n) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  return (pm != nullptr && pm->tabTextesDn.has(n)) ? pm->tabTextesDn[n].intX : 0;
}

}  // namespace vt
