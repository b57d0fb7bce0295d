#include "document/validate.h"

#include <string>

namespace vt {

namespace {

std::string lieu(int p, int m) {
  return "track " + std::to_string(p) + ", bar " + std::to_string(m);
}

// Sorted by tick; strictly when at most one entry may stand at a tick.
template <class T>
bool trie(const OneBased<T>& liste, bool strict) {
  for (int i = 2; i <= liste.last(); ++i) {
    if (strict ? liste[i].intX <= liste[i - 1].intX : liste[i].intX < liste[i - 1].intX)
      return false;
  }
  return true;
}

}  // namespace

std::string validateDocument(const CVantoroTablature& doc) {
  const int mesures = doc.getMesureLast();
  if (doc.getPisteLast() < 1 || mesures < 1) return "a document needs a track and a bar";
  if (doc.getPisteLast() > kMaxPistes) return "too many tracks";
  if (mesures > kMaxMesures) return "too many bars";

  for (int m = 1; m <= mesures; ++m) {
    const tMesure& h = doc.mesure(m);
    if (h.bytSignatureDn == 0 || h.bytSignatureUp == 0)
      return "bar " + std::to_string(m) + ": signature with a zero";
    if (h.tabTempos.last() > kMaxEntrees || !trie(h.tabTempos, true))
      return "bar " + std::to_string(m) + ": tempo list";
  }

  for (int p = 1; p <= doc.getPisteLast(); ++p) {
    const tPiste& piste = doc.piste(p);
    const int s = piste.bytNbrCordes;
    if (s < 1 || s > kMaxCordes) return "track " + std::to_string(p) + ": string count";
    if (piste.strNom.size() > kMaxTexte || piste.strGuitareNom.size() > kMaxTexte)
      return "track " + std::to_string(p) + ": name too long";
    if (piste.tabMesures.last() != mesures)
      return "track " + std::to_string(p) + ": bar count differs from the document";
    for (int m = 1; m <= mesures; ++m) {
      const tPisteMesure& pm = piste.tabMesures[m];
      if (pm.tabCordes.last() != s) return lieu(p, m) + ": string lists";
      for (int c = 1; c <= s; ++c) {
        const auto& notes = pm.tabCordes[c];
        if (notes.last() > kMaxEntrees || !trie(notes, true))
          return lieu(p, m) + ", string " + std::to_string(c) + ": note list";
      }
      if (pm.tabAccords.last() > kMaxEntrees || !trie(pm.tabAccords, false))
        return lieu(p, m) + ": chord list";
      for (const tAccord& a : pm.tabAccords)
        if (a.tabCordes.last() != s || a.strNom.size() > kMaxTexte)
          return lieu(p, m) + ": chord strings";
      for (const auto* textes : {&pm.tabTextesUp, &pm.tabTextesDn}) {
        if (textes->last() > kMaxEntrees || !trie(*textes, true)) return lieu(p, m) + ": texts";
        for (const tTexte& t : *textes)
          if (t.strContenu.size() > kMaxTexte) return lieu(p, m) + ": text too long";
      }
    }
  }
  return {};
}

}  // namespace vt
