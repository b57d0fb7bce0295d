// The rests of a bar on the staff, for the strip and the page alike: each run
// of ticks where no string sounds is cut into rests from the whole down to the
// thirty-second, each centred on the middle of what is left of the run.
#pragma once

#include "document/tablature.h"

namespace vt {

// `pose(durée, milieu)` is told each rest: its length in ticks (192, 96, 48,
// 24, 12 or 6) and the tick its sign centres on.
template <typename Pose>
void silencesPortée(const CVantoroTablature& doc, int p, int m, int nbCordes, Pose&& pose) {
  static constexpr int kDurées[] = {192, 96, 48, 24, 12, 6};
  const int largeur = doc.getMesureLargeur(m);
  // Walk the ticks; `occupé` counts down the longest note sounding at each.
  int occupé = 0;
  int longueur = 0;
  int début = 0;
  for (int t = 0; t <= largeur; ++t) {
    for (int c = 1; c <= nbCordes; ++c) {
      const int k = doc.searchNote(p, m, c, t);
      if (k == 0) continue;
      const tNote* note = doc.getNote(p, m, c, k);
      if (note->bytCase != kCaseVide && note->bytDurée > occupé) occupé = note->bytDurée;
    }
    if (t == largeur) occupé = 1;
    if (occupé == 0) {
      if (longueur == 0) début = t;
      ++longueur;
    } else if (longueur > 0) {
      int reste = CVantoroTablature::makeNoteDuréeExiste(longueur);
      for (const int durée : kDurées) {
        while (reste >= durée) {
          reste -= durée;
          pose(durée, (t - début) / 2 + début);
          début += durée;
        }
      }
      longueur = 0;
    }
    if (occupé > 0) --occupé;
  }
}

}  // namespace vt
