// Transposition within a fret range, passing notes to neighbouring strings.
#include <gtest/gtest.h>

#include "test_support.h"

namespace vt {
namespace {

using test::corde;
using test::NoteVue;

const tGuitare kStandard{};  // 64 59 55 50 45 40

// Every note of bar 1 as "string:x:fret:length", strings in order.
std::vector<std::string> notes(const CVantoroTablature& doc) {
  std::vector<std::string> v;
  for (int c = 1; c <= 6; ++c)
    for (const NoteVue& n : corde(doc, 1, 1, c))
      v.push_back(std::to_string(c) + ":" + std::to_string(n.x) + ":" + std::to_string(n.fret) +
                  ":" + std::to_string(n.dur));
  return v;
}

TEST(Transpose, WithinTheRangeOrToTheNeighbouringStringOrLost) {
  struct Note {
    int c, x, fret, dur;
  };
  const struct {
    const char* quoi;
    std::vector<Note> avant;
    int demiTons, max;
    std::vector<std::string> attendu;
  } cas[] = {
      {"up within the range", {{3, 0, 3, 48}}, 2, 22, {"3:0:5:48"}},
      {"down onto the open string", {{3, 0, 2, 48}}, -2, 22, {"3:0:0:48"}},
      // None above string 1; a place already taken loses the note, and the
      // note standing there is transposed itself.
      {"up on string 1 or onto a taken place is lost",
       {{1, 0, 21, 48}, {3, 48, 21, 48}, {2, 48, 1, 48}},
       2,
       22,
       {"2:48:3:48"}},
      // -2 on the B string is 2 on the G string: -2 + 59 - 55; none below the last string.
      {"down past the range", {{2, 0, 1, 24}, {6, 24, 0, 24}}, -3, 24, {"3:0:2:24"}},
      // 13 > 12: to string 3 as 8, and moved once only; a blank stays as it is.
      {"each note moves once",
       {{4, 0, 11, 48}, {4, 48, kCaseVide, 48}},
       2,
       12,
       {"3:0:8:48", "4:48:255:48"}},
      {"260 fits no fret: lost, not wrapped", {{1, 0, 250, 48}}, 10, 255, {}},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.quoi);
    CVantoroTablature doc;
    for (const Note& n : k.avant)
      doc.setNoteWhole(1, 1, n.c, n.x, n.fret, n.dur);
    doc.transpose(1, k.demiTons, k.max, 0, 1, 1, kStandard);
    EXPECT_EQ(notes(doc), k.attendu);
  }
}

TEST(Transpose, UpPastTheRangeGoesToTheHigherString) {
  CVantoroTablature doc;
  const int n = doc.setNoteWhole(1, 1, 3, 0, 21, 48);
  doc.setNoteEffet(1, 1, 3, n, effet::kVibrato);
  doc.setNoteAttaque(1, 1, 3, n, attaque::kHarmoniqueNaturelle);
  doc.setNoteVolume(1, 1, 3, n, nuance::kF);
  doc.transpose(1, 2, 22, 0, 1, 1, kStandard);
  // 23 on the G string is 19 on the B string: 23 + 55 - 59.
  EXPECT_EQ(notes(doc), std::vector<std::string>{"2:0:19:48"});
  EXPECT_EQ(*doc.getNote(1, 1, 2, 1),
            (tNote{19, 48, 0, effet::kVibrato, 0, attaque::kHarmoniqueNaturelle, nuance::kF}));
}

TEST(Transpose, OnlyTheChosenBarsAndOnlyValidAmounts) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.addMesure();
  for (int m = 1; m <= 3; ++m)
    doc.setNoteWhole(1, m, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  for (int demiTons : {0, 25, -25})
    EXPECT_FALSE(doc.transpose(1, demiTons, 24, 0, 1, 3, kStandard));
  EXPECT_EQ(doc, avant);
  doc.transpose(1, 1, 24, 0, 2, 2, kStandard);
  EXPECT_EQ((std::vector<int>{doc.getNoteCase(1, 1, 1, 1), doc.getNoteCase(1, 2, 1, 1),
                              doc.getNoteCase(1, 3, 1, 1)}),
            (std::vector<int>{5, 6, 5}));
}

}  // namespace
}  // namespace vt
