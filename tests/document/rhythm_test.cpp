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

TEST(RythmContinue, ABeatFilledWithoutGapsOrASingleQuarter) {
  struct Note {
    int x, dur;
  };
  const struct {
    const char* quoi;
    int haut;  // the signature's numerator over 4, or over 8 when it is 6
    std::vector<Note> notes;
    int x;
    bool continu;
  } cas[] = {
      {"two eighths", 4, {{48, 24}, {72, 24}}, 60, true},
      {"beat 1 holds nothing", 4, {{48, 24}, {72, 24}}, 0, false},
      {"a gap from 12 to 24", 4, {{0, 12}, {24, 24}}, 0, false},
      {"ends at 36, not at the end of the beat", 4, {{0, 24}, {24, 12}}, 0, false},
      {"a single quarter", 4, {{0, 48}}, 0, true},
      {"a single dotted eighth", 4, {{0, 36}}, 0, false},
      // In 6/8, tick 48 lies in the window of eighths number 2 (48 / 24), so the
      // 48-tick window examined starts at tick 96: exact for quarter beats only.
      {"6/8 at 48 examines 96 to 144", 6, {{96, 24}, {120, 24}}, 48, true},
      {"6/8 at 0", 6, {{96, 24}, {120, 24}}, 0, false},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.quoi);
    CVantoroTablature doc;
    doc.setMesureSignature(1, k.haut, k.haut == 6 ? 8 : 4);
    for (const Note& n : k.notes)
      doc.setNoteWhole(1, 1, 1, n.x, 0, n.dur);
    EXPECT_EQ(doc.isRythmContinueInTemps(1, 1, 1, k.x), k.continu ? kVrai : kFaux);
  }
}

TEST(PrintScale, FollowsTheFastestNoteAndIgnoresTies) {
  CVantoroTablature doc;
  std::vector<int> échelles{doc.getOnPageViewMode(1, 1)};  // an empty bar: one column
  // A triplet eighth prints at sixteenths.
  for (const auto& [c, x, dur] :
       {std::tuple{1, 0, 96}, {2, 0, 36}, {3, 0, 6}, {4, 96, 16}, {5, 96, 9}}) {
    const int n = doc.setNoteWhole(1, 1, c, x, 0, dur);
    échelles.push_back(doc.getOnPageViewMode(1, 1));
    if (c == 3) {
      doc.setNoteEffet(1, 1, 3, n, effet::kLiaison);
      échelles.push_back(doc.getOnPageViewMode(1, 1));
    }
  }
  EXPECT_EQ(échelles, (std::vector<int>{192, 96, 48, 6, 48, 24, 12}));
}

}  // namespace
}  // namespace vt
