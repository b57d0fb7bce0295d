// The chord dictionary's fingering at the editor's cursor.
#include "dialogs/commun.h"
#include "editor/ftab.h"
#include "shell/vt.h"

namespace vt {

bool FTab::placeAccordAuCurseur(const std::string& nom, const std::vector<byt>& cases) {
  if (m_joue) return false;
  CVantoroTablature& d = doc();
  const int p = d.CurseurPiste();
  const int m = d.CurseurMesure();
  const int x = d.CurseurX();
  if (!d.hasPiste(p) || !d.hasMesure(m)) return false;
  int n = d.searchMesureAccord(p, m, x);
  if (n == 0 && d.getMesureAccordLast(p, m) >= kMaxEntrees) return false;
  arrêteNotes();
  // The snapshot comes first, so that undo takes the chord away again.
  d.storeUndo(true);
  if (n == 0) n = d.addandplaceMesureAccord(p, m, x);
  const int nbrCordes = d.getGuitareNbrCordes(p);
  OneBased<byt> frettes(nbrCordes);
  for (int c = 1; c <= nbrCordes; ++c)
    frettes[c] =
        static_cast<std::size_t>(c) < cases.size() ? cases[static_cast<std::size_t>(c)] : kCaseVide;
  const bool ok = n != 0 && d.setMesureAccord(p, m, n, nom, frettes);
  marqueModifié();
  termine(true);
  return ok;
}

}  // namespace vt
