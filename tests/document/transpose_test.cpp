// Transposition within a fret range, passing notes to neighbouring strings.
#include <gtest/gtest.h>

#include "test_support.h"

namespace vt {
namespace {

using test::corde;
using test::NoteVue;

const tGuitare kStandard{};  // 64 59 55 50 45 40

TEST(Transpose, UpWithinTheRange) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 3, 0, 3, 48);
  ASSERT_TRUE(doc.transpose(1, 2, 22, 0, 1, 1, kStandard));
  EXPECT_EQ(corde(doc, 1, 1, 3), (std::vector<NoteVue>{{0, 5, 48}}));
}

TEST(Transpose, UpPastTheRangeGoesToTheHigherString) {
  CVantoroTablature doc;
  const int n = doc.setNoteWhole(1, 1, 3, 0, 21, 48);
  doc.setNoteEffet(1, 1, 3, n, effet::kVibrato);
  doc.setNoteAttaque(1, 1, 3, n, attaque::kHarmoniqueNaturelle);
  doc.setNoteVolume(1, 1, 3, n, nuance::kF);
  doc.transpose(1, 2, 22, 0, 1, 1, kStandard);
  EXPECT_EQ(doc.getNoteLast(1, 1, 3), 0);
  // 23 on the G string is 19 on the B string: 23 + 55 - 59.
  EXPECT_EQ(corde(doc, 1, 1, 2), (std::vector<NoteVue>{{0, 19, 48}}));
  EXPECT_EQ(doc.getNoteEffet(1, 1, 2, 1), effet::kVibrato);
  EXPECT_EQ(doc.getNoteAttaque(1, 1, 2, 1), attaque::kHarmoniqueNaturelle);
  EXPECT_EQ(doc.getNoteVolume(1, 1, 2, 1), nuance::kF);
}

TEST(Transpose, UpOnTheFirstStringOrOntoAnOccupiedPlaceIsLost) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 21, 48);
  doc.setNoteWhole(1, 1, 3, 48, 21, 48);
  doc.setNoteWhole(1, 1, 2, 48, 1, 48);
  doc.transpose(1, 2, 22, 0, 1, 1, kStandard);
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 0);
  EXPECT_EQ(doc.getNoteLast(1, 1, 3), 0);
  // The note standing on string 2 stays, transposed itself.
  EXPECT_EQ(corde(doc, 1, 1, 2), (std::vector<NoteVue>{{48, 3, 48}}));
}

TEST(Transpose, DownPastTheRangeGoesToTheLowerString) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 2, 0, 1, 24);
  doc.setNoteWhole(1, 1, 6, 24, 0, 24);
  doc.transpose(1, -3, 24, 0, 1, 1, kStandard);
  // -2 on the B string is 2 on the G string: -2 + 59 - 55.
  EXPECT_EQ(corde(doc, 1, 1, 3), (std::vector<NoteVue>{{0, 2, 24}}));
  EXPECT_EQ(doc.getNoteLast(1, 1, 2), 0);
  EXPECT_EQ(doc.getNoteLast(1, 1, 6), 0);  // no lower string than the last
}

TEST(Transpose, EachNoteMovesOnceAndBlanksStay) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 4, 0, 11, 48);  // 13 > 12: to string 3 as 8
  const int n = doc.setNoteWhole(1, 1, 4, 48, 255, 48);
  doc.setNoteEffet(1, 1, 4, n, effet::kBendUp);
  doc.transpose(1, 2, 12, 0, 1, 1, kStandard);
  EXPECT_EQ(corde(doc, 1, 1, 3), (std::vector<NoteVue>{{0, 8, 48}}));
  EXPECT_EQ(corde(doc, 1, 1, 4), (std::vector<NoteVue>{{48, 255, 48}}));
}

TEST(Transpose, OnlyTheChosenBarsAndOnlyValidAmounts) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.addMesure();
  for (int m = 1; m <= 3; ++m)
    doc.setNoteWhole(1, m, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  EXPECT_FALSE(doc.transpose(1, 0, 24, 0, 1, 3, kStandard));
  EXPECT_FALSE(doc.transpose(1, 25, 24, 0, 1, 3, kStandard));
  EXPECT_FALSE(doc.transpose(1, -25, 24, 0, 1, 3, kStandard));
  EXPECT_EQ(doc, avant);
  doc.transpose(1, 1, 24, 0, 2, 2, kStandard);
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 5);
  EXPECT_EQ(doc.getNoteCase(1, 2, 1, 1), 6);
  EXPECT_EQ(doc.getNoteCase(1, 3, 1, 1), 5);
}

TEST(Transpose, NeverMakesABlankNote) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 250, 48);
  doc.transpose(1, 10, 255, 0, 1, 1, kStandard);
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 0);  // 260 fits no fret: lost, not wrapped
}

}  // namespace
}  // namespace vt
