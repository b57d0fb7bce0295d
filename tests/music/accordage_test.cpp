// From a frequency to the tuner's reading: the nearest note and its cents,
// the nearest open string of a tuning and the cents off it.
#include <gtest/gtest.h>

#include <vector>

#include "music/accordage.h"

namespace vt {
namespace {

TEST(Accordage, NearestNoteAndNearestOpenString) {
  const std::vector<int> standard = {64, 59, 55, 50, 45, 40};
  const std::vector<int> basse4 = {43, 38, 33, 28, 0, 0, 0};  // past the count, 0
  struct Cas {
    double hz;
    const std::vector<int>* cordes;
    int midi;
    double cents;
    const char* nom;
    int corde;
    double centsCorde;
  };
  const Cas cas[] = {
      {82.4069, &standard, 40, 0, "E", 6, 0},
      {440.0, &standard, 69, 0, "A", 1, 500},     // above every string: string 1
      {73.4162, &standard, 38, 0, "D", 6, -200},  // drop D, still the low string
      {84.8, &standard, 40, 49.6, "E", 6, 49.6},
      {85.0, &standard, 41, -46.4, "F", 6, 53.6},  // the next note, the same string
      {30.8677, &basse4, 23, 0, "B", 4, -500},     // a five-string's low B on a four-string
      {116.54, &standard, 46, 0, "A#", 5, 100},
      {1318.51, &standard, 88, 0, "E", 1, 2400},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(::testing::Message() << c.hz << " Hz");
    const NoteEntendue n = noteEntendue(c.hz, *c.cordes);
    EXPECT_EQ(n.midi, c.midi);
    EXPECT_NEAR(n.cents, c.cents, 0.1);
    EXPECT_STREQ(nomNote(n.midi), c.nom);
    EXPECT_EQ(n.corde, c.corde);
    EXPECT_NEAR(n.centsCorde, c.centsCorde, 0.1);
  }
  // Exactly between two strings: the lower number.
  const std::vector<int> égales = {47, 45};
  EXPECT_EQ(noteEntendue(hzDeMidi(46), égales).corde, 1);
  EXPECT_EQ(noteEntendue(0, standard).corde, 0);
  EXPECT_EQ(noteEntendue(110, {}).corde, 0);
}

TEST(Accordage, NotesAndFrequenciesBothWays) {
  EXPECT_DOUBLE_EQ(hzDeMidi(69), 440);
  EXPECT_NEAR(hzDeMidi(40), 82.4069, 1e-4);
  EXPECT_NEAR(midiDeHz(hzDeMidi(23.37)), 23.37, 1e-9);
  EXPECT_STREQ(nomNote(-1), "B");
  EXPECT_STREQ(nomNote(60), "C");
}

}  // namespace
}  // namespace vt
