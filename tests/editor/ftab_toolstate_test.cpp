// The entry state: the lengths the rhythm group gives, the nuance codes, the
// order of the attack commands, and how the state follows a note.
#include <gtest/gtest.h>

#include <tuple>

#include "editor/ftab_toolstate.h"

namespace vt {
namespace {

TEST(EtatOutils, TheAttackCommandsFollowTheShiftKeysOrder) {
  const byt attendu[] = {0, 3, 4, 5, 7, 8, 1, 2, 9, 6, 10, 11};
  for (int i = 0; i < kNbAttaques; ++i) {
    EXPECT_EQ(attaqueDuMenu(i), attendu[i]) << i;
    EXPECT_EQ(indexMenuAttaque(attendu[i]), i);
  }
  EXPECT_EQ(indexMenuAttaque(12), -1);
  EXPECT_EQ(attaqueDuMenu(12), attaque::kStandard);
}

TEST(EtatOutils, TheStateFollowsANoteWhereItCanAndGivesItsNuanceCode) {
  EtatOutils e;
  EXPECT_EQ(e.getNoteVolume(), 127) << "fff until another is chosen";
  // (rythme, dotted, triplet, attack, nuance, effect) as the state holds them.
  const auto état = [&e] {
    return std::tuple(e.rythme, e.pointée, e.triolet, e.attaque, e.nuance, e.effet);
  };
  tNote n{0, 144, 0, effet::kVibrato, 0, attaque::kPalmMute, nuance::kP};
  e.suisNote(n);
  EXPECT_EQ(état(), std::tuple(1, true, false, attaque::kPalmMute, 3, effet::kVibrato));
  EXPECT_EQ(e.getNoteVolume(), nuance::kP) << "the level times sixteen, less one";

  n.bytDurée = 4;  // a triplet thirty-second
  e.suisNote(n);
  EXPECT_EQ(état(), std::tuple(5, false, true, attaque::kPalmMute, 3, effet::kVibrato));

  // A length no button gives (cut by the next note), a nuance between the
  // eight and an unknown attack leave the buttons as they were.
  n = tNote{0, 42, 0, 0, 0, 40, 100};
  e.suisNote(n);
  EXPECT_EQ(état(), std::tuple(5, false, true, attaque::kPalmMute, 3, effet::kAucun));
}

}  // namespace
}  // namespace vt
