#include "batterie.h"

namespace vt {

const std::array<FamilleBatterie, 7>& famillesBatterie() {
  // Every note from 35 to 63 stands in exactly one family.
  static const std::array<FamilleBatterie, 7> familles = {{
      {"btnP", StringId{2542}, 54, {39, 54, 56, 58, 60, 61, 62, 63}},
      {"btnRC", StringId{2543}, 51, {51, 59, 53}},
      {"btnCC", StringId{2544}, 49, {49, 57, 52, 55}},
      {"btnHH", StringId{2545}, 42, {42, 44, 46}},
      {"btnT", StringId{2546}, 45, {41, 43, 45, 47, 48, 50}},
      {"btnSD", StringId{2547}, 38, {38, 40, 37}},
      {"btnBD", StringId{2548}, 36, {36, 35}},
  }};
  return familles;
}

int libelleBatterie(int note) {
  constexpr StringId kPremierNom = StringId{2513};
  return note >= kPremiereBatterie && note <= kDerniereBatterie
             ? kPremierNom.id + note - kPremiereBatterie
             : 0;
}

}  // namespace vt
