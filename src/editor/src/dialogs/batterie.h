// The drum sounds of General MIDI that the drum picker offers (notes 35 to
// 63), grouped in the seven families of its buttons.
#pragma once

#include <array>
#include <vector>

#include "formats/string_table.h"

namespace vt {

inline constexpr int kPremiereBatterie = 35;
inline constexpr int kDerniereBatterie = 63;

struct FamilleBatterie {
  const char* bouton;      // objectName of its button
  StringId libelle;        // the family's name
  int parDefaut;           // the sound a plain click gives
  std::vector<int> notes;  // in the order of the menu
};

// btnP, btnRC, btnCC, btnHH, btnT, btnSD, btnBD.
const std::array<FamilleBatterie, 7>& famillesBatterie();

// The string of a drum's name; 0 outside 35..63.
int libelleBatterie(int note);

}  // namespace vt
