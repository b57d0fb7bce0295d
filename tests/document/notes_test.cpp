// setNoteWhole and the note list of one string.
#include <gtest/gtest.h>

#include "test_support.h"

namespace vt {
namespace {

using test::corde;
using test::NoteVue;

TEST(SetNoteWhole, CutsAtTheNextNoteOrRoundsAtTheBarEndAndShortensTheNoteBefore) {
  const struct {
    const char* quoi;
    std::vector<NoteVue> entrées;  // typed in this order on string 1
    std::vector<NoteVue> attendu;
  } cas[] = {
      {"cut at the next note", {{48, 5, 48}, {24, 3, 48}}, {{24, 3, 24}, {48, 5, 48}}},
      {"not rounded: 41 ticks stay 41", {{48, 5, 48}, {7, 3, 96}}, {{7, 3, 41}, {48, 5, 48}}},
      {"cut at the bar end", {{144, 0, 96}}, {{144, 0, 48}}},
      {"42 left in the bar, rounded down to 36", {{150, 0, 96}}, {{150, 0, 36}}},
      {"the note before is shortened", {{0, 2, 48}, {24, 3, 24}}, {{0, 2, 24}, {24, 3, 24}}},
      {"shortened to 20, rounded down to 18: a gap of 2 ticks",
       {{0, 2, 48}, {20, 3, 24}},
       {{0, 2, 18}, {20, 3, 24}}},
      {"sorted whatever the order of entry",
       {{96, 4, 24}, {0, 0, 24}, {144, 6, 24}, {48, 2, 24}, {24, 1, 24}, {120, 5, 24}},
       {{0, 0, 24}, {24, 1, 24}, {48, 2, 24}, {96, 4, 24}, {120, 5, 24}, {144, 6, 24}}},
  };
  for (const auto& k : cas) {
    SCOPED_TRACE(k.quoi);
    CVantoroTablature doc;
    for (const NoteVue& n : k.entrées)
      doc.setNoteWhole(1, 1, 1, n.x, n.fret, n.dur);
    EXPECT_EQ(corde(doc, 1, 1, 1), k.attendu);
  }
  CVantoroTablature doc;
  EXPECT_EQ(doc.setNoteWhole(1, 1, 1, 48, 5, 48), 1);
  EXPECT_EQ(doc.setNoteWhole(1, 1, 1, 24, 3, 48), 1);  // its place in the list
}

TEST(SetNoteWhole, OverwritingKeepsAttackAndNuanceANewNoteStartsAtZeroAWholeAtMost) {
  CVantoroTablature doc;
  int n = doc.setNoteWhole(1, 1, 3, 48, 7, 48);
  doc.setNoteAttaque(1, 1, 3, n, attaque::kPalmMute);
  doc.setNoteVolume(1, 1, 3, n, nuance::kPP);
  doc.setNoteEffet(1, 1, 3, n, effet::kVibrato);
  n = doc.setNoteWhole(1, 1, 3, 48, 9, 24);
  EXPECT_EQ(doc.getNoteLast(1, 1, 3), 1);
  EXPECT_EQ(*doc.getNote(1, 1, 3, n),
            (tNote{9, 24, 48, effet::kAucun, 0, attaque::kPalmMute, nuance::kPP}));
  // A new note in the middle starts with attack and nuance zero.
  for (int x : {0, 96}) {
    n = doc.setNoteWhole(1, 1, 1, x, 1, 24);
    doc.setNoteAttaque(1, 1, 1, n, attaque::kTap);
    doc.setNoteVolume(1, 1, 1, n, nuance::kFFF);
  }
  EXPECT_EQ(doc.setNoteWhole(1, 1, 1, 48, 2, 24), 2);
  EXPECT_EQ(*doc.getNote(1, 1, 1, 2), (tNote{2, 24, 48, 0, 0, 0, 0}));
  EXPECT_EQ(doc.getNoteAttaque(1, 1, 1, 3), attaque::kTap);  // the moved note kept its own
  // Longer than a whole becomes a whole.
  doc.setMesureSignature(1, 8, 4);
  doc.setNoteWhole(1, 1, 5, 0, 0, 250);
  EXPECT_EQ(doc.getNoteDurée(1, 1, 5, 1), 192);
}

TEST(SetNoteWhole, RefusesAFullStringAndBadCoordinates) {
  CVantoroTablature doc;
  doc.setMesureSignature(1, 16, 1);  // 3072 ticks, room for 255 notes of 12
  for (int i = 0; i < kMaxEntrees; ++i)
    ASSERT_NE(doc.setNoteWhole(1, 1, 1, i * 12, 1, 12), 0);
  const CVantoroTablature avant = doc;
  EXPECT_EQ(doc.setNoteWhole(1, 1, 1, 3060, 1, 12), 0);
  EXPECT_FALSE(doc.addNote(1, 1, 1));
  EXPECT_EQ(doc, avant);
  // Overwriting a note of a full string is still allowed.
  EXPECT_EQ(doc.setNoteWhole(1, 1, 1, 0, 5, 12), 1);
  for (const auto& [p, m, c, x] :
       {std::tuple{2, 1, 1, 0}, {1, 2, 1, 0}, {1, 1, 7, 0}, {1, 1, 0, 0}, {1, 1, 2, -1}})
    EXPECT_EQ(doc.setNoteWhole(p, m, c, x, 5, 12), 0) << p << "/" << m << "/" << c << "/" << x;
}

TEST(NoteSearch, BeforeAfterAndExact) {
  CVantoroTablature doc;
  for (int x : {0, 48, 96})
    doc.setNoteWhole(1, 1, 1, x, 1, 24);
  // The last search starts past the count.
  EXPECT_EQ((std::vector<int>{doc.searchNote(1, 1, 1, 48), doc.searchNote(1, 1, 1, 50),
                              doc.searchNoteBeforeX(1, 1, 1, 0), doc.searchNoteBeforeX(1, 1, 1, 48),
                              doc.searchNoteBeforeX(1, 1, 1, 500)}),
            (std::vector<int>{2, 0, 0, 1, 3}));
  EXPECT_EQ(
      (std::vector<int>{doc.searchNoteAfterX(1, 1, 1, 48, 1), doc.searchNoteAfterX(1, 1, 1, 49, 1),
                        doc.searchNoteAfterX(1, 1, 1, 0, 3), doc.searchNoteAfterX(1, 1, 1, 0, 4)}),
      (std::vector<int>{2, 3, 3, 0}));
  EXPECT_EQ(std::pair(doc.searchNoteAfterXExcludeCurrent(1, 1, 1, 48, 1),
                      doc.searchNoteAfterXExcludeCurrent(1, 1, 1, 96, 1)),
            std::pair(3, 0));
  // Several at one tick, as a loader may store them: the last answers.
  doc.setNoteX(1, 1, 1, 3, 48);
  EXPECT_EQ(doc.searchNote(1, 1, 1, 48), 3);
}

TEST(DeleteNote, ClosesTheGapAndFieldsOutsideTheDocumentAreZero) {
  CVantoroTablature doc;
  for (int x : {0, 48, 96})
    doc.setNoteWhole(1, 1, 1, x, x / 48, 24);
  EXPECT_EQ(doc.deleteNote(1, 1, 1, 2), 0);
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{0, 0, 24}, {96, 2, 24}}));
  doc.deleteNote(1, 1, 1, 5);  // no such note: nothing happens
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 2);
  doc.deleteNote(1, 1, 1, 1);
  doc.deleteNote(1, 1, 1, 1);
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 0);
  // Fields outside the document are answered zero; a write there is ignored.
  doc.setNoteCase(1, 1, 1, 1, 5);
  EXPECT_EQ(
      std::tuple(doc.getNoteCase(1, 1, 1, 1), doc.getNoteX(9, 9, 9, 9), doc.getNote(1, 1, 1, 0)),
      std::tuple(0, 0, nullptr));
  EXPECT_FALSE(doc.setCordeNbNotes(1, 1, 1, 256));
  EXPECT_TRUE(doc.setCordeNbNotes(1, 1, 1, 2));
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 2);
}

}  // namespace
}  // namespace vt
