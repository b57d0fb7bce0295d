#include "editor/ftab_toolstate.h"

#include <utility>

namespace vt {

namespace {
constexpr std::array<byt, kNbAttaques> kAttaquesMenu{attaque::kStandard,
                                                     attaque::kTap,
                                                     attaque::kSlap,
                                                     attaque::kPop,
                                                     attaque::kStrokeUp,
                                                     attaque::kStrokeDown,
                                                     attaque::kHarmoniqueNaturelle,
                                                     attaque::kHarmoniqueArtificielle,
                                                     attaque::kDeadNote,
                                                     attaque::kPalmMute,
                                                     attaque::kBrushUp,
                                                     attaque::kBrushDown};

int durée(int rythme, bool pointée, bool triolet) {
  int d = kDuréesRythme[static_cast<std::size_t>(rythme)];
  if (pointée) d += d / 2;
  if (triolet) d = d * 2 / 3;
  return d;
}
}  // namespace

int EtatOutils::tbGetNoteDurée() const {
  const int r = rythme >= 0 && rythme < static_cast<int>(kDuréesRythme.size()) ? rythme : 3;
  return durée(r, pointée, triolet);
}

void EtatOutils::suisNote(const tNote& note) {
  // Plain lengths first: a dotted triplet equals the plain one.
  bool trouvé = false;
  constexpr std::array<std::pair<bool, bool>, 3> kVariantes{
      std::pair{false, false}, std::pair{true, false}, std::pair{false, true}};
  for (const auto& [p, t] : kVariantes) {
    for (int r = 0; r < static_cast<int>(kDuréesRythme.size()) && !trouvé; ++r) {
      if (durée(r, p, t) != note.bytDurée) continue;
      rythme = r;
      pointée = p;
      triolet = t;
      trouvé = true;
    }
    if (trouvé) break;
  }
  if (indexMenuAttaque(note.bytAttaque) >= 0) attaque = note.bytAttaque;
  if ((note.bytVolume + 1) % 16 == 0 && note.bytVolume >= 15) nuance = (note.bytVolume + 1) / 16;
  effet = note.bytEffet;
}

byt attaqueDuMenu(int index) {
  if (index < 0 || index >= kNbAttaques) return attaque::kStandard;
  return kAttaquesMenu[static_cast<std::size_t>(index)];
}

int indexMenuAttaque(byt code) {
  for (int i = 0; i < kNbAttaques; ++i)
    if (kAttaquesMenu[static_cast<std::size_t>(i)] == code) return i;
  return -1;
}

}  // namespace vt
