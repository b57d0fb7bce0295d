// Transposition of a track, passing notes to a neighbouring string when they
// leave the fret range.
#include <algorithm>

#include "document/tablature.h"

namespace vt {

bool CVantoroTablature::transpose(int p, int demitons, int fretteMax, int fretteMin, int mesureMin,
                                  int mesureMax, const tGuitare& guitare) {
  if (!m_tabPistes.has(p) || demitons == 0 || demitons < -24 || demitons > 24) return false;
  mesureMin = std::max(mesureMin, 1);
  mesureMax = std::min(mesureMax, getMesureLast());
  // 255 is the blank note: no transposed note may become one.
  fretteMax = std::min(fretteMax, 254);
  fretteMin = std::max(fretteMin, 0);
  const bool monte = demitons > 0;
  const int cordes = m_tabPistes[p].bytNbrCordes;
  const tPiste avant = m_tabPistes[p];

  for (int m = mesureMin; m <= mesureMax; ++m) {
    // Upward from string 1, downward from the last: a note passed to its
    // neighbour lands on a string already handled and is not moved twice.
    for (int k = 0; k < cordes; ++k) {
      const int c = monte ? 1 + k : cordes - k;
      const int voisine = monte ? c - 1 : c + 1;
      int i = 1;
      while (i <= getNoteLast(p, m, c)) {
        const tNote note = *getNote(p, m, c, i);
        if (note.bytCase == kCaseVide) {
          ++i;
          continue;
        }
        const int nf = note.bytCase + demitons;
        if (monte ? nf <= fretteMax : nf >= fretteMin) {
          setNoteCase(p, m, c, i, static_cast<byt>(nf));
          ++i;
          continue;
        }
        if (voisine >= 1 && voisine <= cordes && searchNote(p, m, voisine, note.intX) == 0) {
          // The open strings come from the current instrument, not from the track.
          const int f = nf + guitare.corde[c] - guitare.corde[voisine];
          const bool placable = monte ? f >= 0 && f <= fretteMax : f >= fretteMin && f <= 254;
          if (placable) {
            const int n = setNoteWhole(p, m, voisine, note.intX, f, note.bytDurée);
            if (n == 0) {
              m_tabPistes[p] = avant;
              return false;
            }
            setNoteAttaque(p, m, voisine, n, note.bytAttaque);
            setNoteEffet(p, m, voisine, n, note.bytEffet);
            setNoteVolume(p, m, voisine, n, note.bytVolume);
          }
        }
        // Moved or lost, the note leaves its string.
        deleteNote(p, m, c, i);
      }
    }
  }
  return true;
}

int CVantoroTablature::getOnPageViewMode(int p, int m) const {
  const tPisteMesure* pm = pisteMesure(p, m);
  int d = 32767;
  if (pm != nullptr)
    for (const auto& corde : pm->tabCordes)
      for (const tNote& n : corde)
        if (n.bytEffet != effet::kLiaison && n.bytDurée < d) d = n.bytDurée;
  if (d <= 6) return 6;
  if (d <= 12) return 12;
  if (d <= 24) return 24;
  if (d <= 48) return 48;
  if (d <= 96) return 96;
  return 192;
}

}  // namespace vt
