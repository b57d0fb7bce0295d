// Where the beams of a note start and how long they are, from its place in the
// beat and its neighbours. The columns differ on purpose so that the beams of
// mixed groups meet.
#pragma once

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

}  // namespace vt
