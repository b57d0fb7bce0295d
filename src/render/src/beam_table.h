// Where the beams of a note start and how long they are, from its place in the
// beat and its neighbours. The columns differ on purpose so that the beams of
// mixed groups meet.
#pragma once

#include "document/tablature.h"

namespace vt {

enum class Famille { Aucune, Ronde, Blanche, Noire, Croche, DoubleCroche, TripleCroche };
Famille familleDeDurée(int d);
bool estTriolet(int d);
bool estPointée(int d);

struct Barre {
  int dx = 0;
  int len = 0;
};

// position: 0 on the beat, 1 inside and ending inside, 2 inside and ending on
// the next beat. F is the flag length, U the note's unit.
Barre étendueBarre(int position, bool P, bool N, bool M, bool L, Famille famille, int d, int U,
                   int F);

// Beams a family draws: one for an eighth, two for a sixteenth, three for a
// thirty-second, none for the longer notes.
int nombreDeBarres(Famille f);

// The beam unit of a bar: its width divided by the groups of its numerator;
// 0 for a numerator without a rule.
int uniteDeBarre(const CVantoroTablature& doc, int m);

// Whether a note joins the note before and the note after in its beat, and
// where it stands in the beat; the strip and the page read the same state.
struct EtatRythme {
  bool précédent = false;          // a note ends where this one starts, in its beat
  bool suivant = false;            // a note starts where this one ends, in its beat
  bool suivantMêmeDurée = false;   // ... with this one's length
  bool suivantLong = false;        // ... of 32 ticks or more
  int position = 0;                // 0 on the beat, 1 inside, 2 inside and ending on the next
};
EtatRythme étatRythme(const CVantoroTablature& doc, int p, int m, int c, int n);

}  // namespace vt
