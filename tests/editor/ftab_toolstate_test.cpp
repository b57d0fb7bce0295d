// The entry state: the lengths the rhythm group gives, the nuance codes, the
// order of the attack commands, and how the state follows a note.
#include <gtest/gtest.h>

#include "editor/ftab_toolstate.h"

namespace vt {
namespace {

TEST(EtatOutils, LengthsOfTheRhythmGroupDottedAndTriplet) {
  EtatOutils e;
  const int plain[] = {192, 96, 48, 24, 12, 6};
  const int dotted[] = {288, 144, 72, 36, 18, 9};
  const int triplet[] = {128, 64, 32, 16, 8, 4};
  for (int r = 0; r < 6; ++r) {
    e.rythme = r;
    e.pointée = e.triolet = false;
    EXPECT_EQ(e.tbGetNoteDurée(), plain[r]);
    e.pointée = true;
    EXPECT_EQ(e.tbGetNoteDurée(), dotted[r]);
    e.pointée = false;
    e.triolet = true;
    EXPECT_EQ(e.tbGetNoteDurée(), triplet[r]);
  }
  // Both toggles: half as long again, then two thirds of it.
  e.rythme = 3;
  e.pointée = e.triolet = true;
  EXPECT_EQ(e.tbGetNoteDurée(), 24);
}

TEST(EtatOutils, NuanceCodesAreLevelTimesSixteenLessOne) {
  EtatOutils e;
  EXPECT_EQ(e.getNoteVolume(), 127) << "fff until another is chosen";
  e.nuance = 1;
  EXPECT_EQ(e.getNoteVolume(), 15);
  e.nuance = 4;
  EXPECT_EQ(e.getNoteVolume(), 63);
}

TEST(EtatOutils, TheAttackCommandsFollowTheShiftKeysOrder) {
  const byt attendu[] = {0, 3, 4, 5, 7, 8, 1, 2, 9, 6, 10, 11};
  for (int i = 0; i < kNbAttaques; ++i) {
    EXPECT_EQ(attaqueDuMenu(i), attendu[i]) << i;
    EXPECT_EQ(indexMenuAttaque(attendu[i]), i);
  }
  EXPECT_EQ(indexMenuAttaque(12), -1);
  EXPECT_EQ(attaqueDuMenu(12), attaque::kStandard);
}

TEST(EtatOutils, TheStateFollowsANoteWhereItCan) {
  EtatOutils e;
  tNote n;
  n.bytDurée = 144;
  n.bytAttaque = attaque::kPalmMute;
  n.bytVolume = nuance::kP;
  n.bytEffet = effet::kVibrato;
  e.suisNote(n);
  EXPECT_EQ(e.rythme, 1);
  EXPECT_TRUE(e.pointée);
  EXPECT_FALSE(e.triolet);
  EXPECT_EQ(e.attaque, attaque::kPalmMute);
  EXPECT_EQ(e.nuance, 3);
  EXPECT_EQ(e.effet, effet::kVibrato);

  n.bytDurée = 4;  // a triplet thirty-second
  e.suisNote(n);
  EXPECT_EQ(e.rythme, 5);
  EXPECT_FALSE(e.pointée);
  EXPECT_TRUE(e.triolet);

  // A length no button gives (cut by the next note), a nuance between the
  // eight and an unknown attack leave the buttons as they were.
  const EtatOutils avant = e;
  n.bytDurée = 42;
  n.bytVolume = 100;
  n.bytAttaque = 40;
  n.bytEffet = 0;
  e.suisNote(n);
  EXPECT_EQ(e.rythme, avant.rythme);
  EXPECT_EQ(e.triolet, avant.triolet);
  EXPECT_EQ(e.nuance, avant.nuance);
  EXPECT_EQ(e.attaque, avant.attaque);
  EXPECT_EQ(e.effet, effet::kAucun);
}

}  // namespace
}  // namespace vt
