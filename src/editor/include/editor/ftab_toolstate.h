// The entry state of the editor: the rhythm, attack and nuance chosen on the
// toolbars (and in the Tools menu), which a typed fret takes, and the effect of
// the note under the cursor, which the effect buttons show. It follows the note
// under the cursor as the cursor moves.
#pragma once

#include <array>

#include "document/records.h"
#include "document/types.h"

namespace vt {

// The exclusive rhythm group, whole to thirty-second, in the menu's order.
inline constexpr std::array<int, 6> kDuréesRythme{192, 96, 48, 24, 12, 6};
inline constexpr int kNbAttaques = 12;
inline constexpr int kNbNuances = 8;

struct EtatOutils {
  int rythme = 3;        // index in kDuréesRythme; an eighth by default, the default grid
  bool pointée = false;  // the "pointée" toggle: half as long again
  bool triolet = false;  // the "triolet" toggle: two thirds as long
  byt attaque = attaque::kStandard;  // the code of the pressed attack button
  int nuance = kNbNuances;           // the pressed nuance button, 1 (ppp) to 8 (fff)
  byt effet = effet::kAucun;         // the effect of the note under the cursor

  // The selected length: the base, a dotted one adds half, a triplet takes two thirds.
  int tbGetNoteDurée() const;
  // The code of the pressed nuance button: level * 16 - 1.
  int getNoteVolume() const { return nuance * 16 - 1; }
  int getNoteAttaque() const { return attaque; }

  // The buttons follow a note: its length when it is one of the group's
  // (plain, dotted or triplet), its attack, its nuance when it is one of the
  // eight, its effect.
  void suisNote(const tNote& note);

  bool operator==(const EtatOutils&) const = default;
};

// The attack of the Tools menu's attack command 0..11: standard, tap, slap,
// pop, stroke up, stroke down, natural harmonic, artificial harmonic, dead
// note, palm mute, brush up, brush down; and back.
byt attaqueDuMenu(int index);
int indexMenuAttaque(byt code);

}  // namespace vt
