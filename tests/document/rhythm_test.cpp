// The silence before a track's first note, the beam test, the printing scale.
#include <gtest/gtest.h>

#include "test_support.h"

namespace vt {
namespace {

TEST(PremierSilence, SumsEmptyBarsAndTheEarliestFirstNote) {
  CVantoroTablature doc;
  EXPECT_EQ(doc.getPremierSilence(1), 192);  // no note: the whole length
  doc.addMesure();
  doc.addMesure();
  doc.setMesureSignature(2, 3, 4);
  EXPECT_EQ(doc.getPremierSilence(1), 192 + 144 + 192);
  doc.setNoteWhole(1, 3, 4, 96, 0, 24);
  doc.setNoteWhole(1, 3, 2, 72, 0, 24);
  EXPECT_EQ(doc.getPremierSilence(1), 192 + 144 + 72);
  doc.setNoteWhole(1, 1, 6, 12, 0, 12);
  EXPECT_EQ(doc.getPremierSilence(1), 12);
  EXPECT_EQ(doc.getPremierSilence(2), 0);  // no such track
}

TEST(RythmContinue, ABeatFilledWithoutGaps) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 48, 0, 24);
  doc.setNoteWhole(1, 1, 1, 72, 0, 24);
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, 60), kVrai);
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, 0), kFaux);  // beat 1 holds nothing
}

TEST(RythmContinue, AGapOrAShortLastNoteBreaksIt) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 0, 12);
  doc.setNoteWhole(1, 1, 1, 24, 0, 24);  // a gap from 12 to 24
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, 0), kFaux);
  doc.setNoteWhole(1, 1, 2, 0, 0, 24);
  doc.setNoteWhole(1, 1, 2, 24, 0, 12);  // ends at 36, not at the end of the beat
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 2, 0), kFaux);
}

TEST(RythmContinue, ASingleNoteCountsOnlyWhenItIsAQuarter) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 0, 48);
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, 0), kVrai);
  doc.setNoteWhole(1, 1, 2, 0, 0, 36);
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 2, 0), kFaux);
}

TEST(RythmContinue, TheWindowIndexComesFromTheDenominator) {
  // In 6/8, tick 48 lies in the window of eighths number 2 (48 / 24), so the
  // 48-tick window examined starts at tick 96: exact for quarter beats only.
  CVantoroTablature doc;
  doc.setMesureSignature(1, 6, 8);
  doc.setNoteWhole(1, 1, 1, 96, 0, 24);
  doc.setNoteWhole(1, 1, 1, 120, 0, 24);
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, 48), kVrai);
  EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, 0), kFaux);
}

TEST(PrintScale, FollowsTheFastestNoteAndIgnoresTies) {
  CVantoroTablature doc;
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 192);  // an empty bar: one column
  doc.setNoteWhole(1, 1, 1, 0, 0, 96);
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 96);
  doc.setNoteWhole(1, 1, 2, 0, 0, 36);
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 48);
  const int n = doc.setNoteWhole(1, 1, 3, 0, 0, 6);
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 6);
  doc.setNoteEffet(1, 1, 3, n, effet::kLiaison);
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 48);
  doc.setNoteWhole(1, 1, 4, 96, 0, 16);  // a triplet eighth prints at sixteenths
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 24);
  doc.setNoteWhole(1, 1, 5, 96, 0, 9);
  EXPECT_EQ(doc.getOnPageViewMode(1, 1), 12);
}

}  // namespace
}  // namespace vt
