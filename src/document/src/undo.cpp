// Undo and redo by whole-track snapshots, five deep. Bar headers, tempos, the
// cursor and the document's properties are outside the snapshot on purpose.
#include <utility>

#include "document/tablature.h"

namespace vt {

namespace {
void empiler(OneBased<tUndo>& pile, tUndo entree) {
  pile.insert(1, std::move(entree));  // element 1 is the newest
  if (pile.last() > kProfondeurUndo) pile.pop_back();
}
}  // namespace

void CVantoroTablature::pushPiste(OneBased<tUndo>& pile) {
  if (!m_tabPistes.has(m_CurseurPiste)) return;
  empiler(pile, tUndo{m_tabPistes[m_CurseurPiste], m_CurseurPiste});
}

void CVantoroTablature::storeUndo(bool boolStoreFromScratch) {
  pushPiste(m_tabUndo);
  if (boolStoreFromScratch) m_tabRedo.clear();
}

void CVantoroTablature::storeRedo() {
  pushPiste(m_tabRedo);
}

bool CVantoroTablature::restoreFrom(OneBased<tUndo>& pile, OneBased<tUndo>& autre) {
  if (pile.empty()) return false;
  const byt cible = pile[1].bytPiste;
  if (!m_tabPistes.has(cible)) {
    // The track of the snapshot was deleted since: the snapshot has no place.
    pile.erase(1);
    return false;
  }
  const bool changeDePiste = cible != m_CurseurPiste;
  m_CurseurPiste = cible;

  // The present state goes on the other stack; it is moved, not copied, since
  // the snapshot takes its place at once.
  empiler(autre, tUndo{std::move(m_tabPistes[cible]), cible});
  m_tabPistes[cible] = std::move(pile[1].piste);
  pile.erase(1);

  // Bars added since the snapshot come back empty; bars removed since are
  // dropped, so that every track keeps the document's bar count.
  tPiste& piste = m_tabPistes[cible];
  if (piste.tabMesures.last() < getMesureLast())
    piste.tabMesures.resize(getMesureLast(), tPisteMesure::vide(piste.bytNbrCordes));
  else
    piste.tabMesures.truncateFrom(getMesureLast() + 1);
  return changeDePiste;
}

bool CVantoroTablature::makeUndo() {
  return restoreFrom(m_tabUndo, m_tabRedo);
}

bool CVantoroTablature::makeRedo() {
  return restoreFrom(m_tabRedo, m_tabUndo);
}

}  // namespace vt
