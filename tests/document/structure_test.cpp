// Bars and tracks coming and going, and content moving in time.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "test_support.h"

namespace vt {
namespace {

using test::corde;
using test::NoteVue;

TEST(AddMesure, CopiesSignatureAndKeyNotLinesOrTempos) {
  CVantoroTablature doc;
  doc.setMesureSignature(1, 3, 4);
  doc.setMesureTonalitéDétails(1, 1, kVrai);  // G major
  doc.setMesureLoopDroiteType(1, barre::kRepetition);
  doc.setMesureLoopDroiteData(1, 3);
  doc.setMesureTempo(1, 0, 90);
  ASSERT_TRUE(doc.addMesure());
  EXPECT_EQ(doc.getMesureSignatureUp(2), 3);
  EXPECT_EQ(doc.getMesureSignatureDn(2), 4);
  EXPECT_EQ(doc.getMesureTonalité(2), 9);
  EXPECT_EQ(doc.getMesureLoopDroiteType(2), 0);
  EXPECT_EQ(doc.getMesureLoopDroiteData(2), 0);
  EXPECT_EQ(doc.getMesureTempoLast(2), 0);
  EXPECT_EQ(doc.pisteMesure(1, 2)->tabCordes.last(), 6);
}

TEST(AddMesure, StopsAtTheBarLimit) {
  CVantoroTablature doc;
  while (doc.getMesureLast() < kMaxMesures)
    ASSERT_TRUE(doc.addMesure());
  EXPECT_FALSE(doc.addMesure());
  EXPECT_EQ(doc.getMesureLast(), kMaxMesures);
  EXPECT_FALSE(doc.insertMesure(1, 1, 1));
}

TEST(AddPiste, AtTheEnd) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setPisteNom(1, "Lead");
  ASSERT_TRUE(doc.addPiste(1, test::basse4(), 33));
  EXPECT_EQ(doc.getPisteLast(), 2);
  EXPECT_EQ(doc.getPisteNom(2), "");
  EXPECT_EQ(doc.getGuitareNom(2), "Bass");
  EXPECT_EQ(doc.getGuitareNbrCordes(2), 4);
  EXPECT_EQ(doc.getMIDIPatch(2), 33);
  EXPECT_EQ(doc.piste(2).tabMesures.last(), 2);
  EXPECT_EQ(doc.pisteMesure(2, 2)->tabCordes.last(), 4);
  EXPECT_EQ(doc.getPisteNom(1), "Lead");
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(AddPiste, InTheMiddleKeepsItsTwoOldEffects) {
  CVantoroTablature doc;
  doc.addPiste(1, tGuitare{});
  doc.addPiste(2, tGuitare{});
  for (int p = 1; p <= 3; ++p) {
    doc.setPisteNom(p, "T" + std::to_string(p));
    doc.setMIDIPatch(p, static_cast<byt>(40 + p));
    doc.setMIDIPan(p, static_cast<byt>(p));
    doc.setNoteWhole(p, 1, 1, 0, p, 48);
  }
  ASSERT_TRUE(doc.addPiste(2, test::basse4(), 27));  // behind track 2
  ASSERT_EQ(doc.getPisteLast(), 4);
  // Tracks before the insertion point are untouched.
  EXPECT_EQ(doc.getPisteNom(2), "T2");
  EXPECT_EQ(doc.getMIDIPatch(2), 42);
  // The new track 3: the defaults, the name of the track that stood there, no notes.
  EXPECT_EQ(doc.getPisteNom(3), "T3");
  EXPECT_EQ(doc.getMIDIPatch(3), 27);
  EXPECT_EQ(doc.getGuitareNbrCordes(3), 4);
  EXPECT_EQ(doc.getNoteLast(3, 1, 1), 0);
  // The old track 3, now 4: its notes, but the defaults from now on.
  EXPECT_EQ(doc.getPisteNom(4), "T3");
  EXPECT_EQ(doc.getNoteCase(4, 1, 1, 1), 3);
  EXPECT_EQ(doc.getMIDIPatch(4), 27);
  EXPECT_EQ(doc.getMIDIPan(4), 64);
  EXPECT_EQ(doc.getGuitareNbrCordes(4), 4);  // and its bars follow that string count
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(AddPiste, BeforeTheFirstAndAtTheLimit) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 7, 48);
  ASSERT_TRUE(doc.addPiste(0, tGuitare{}));
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 0);
  EXPECT_EQ(doc.getNoteCase(2, 1, 1, 1), 7);
  EXPECT_FALSE(doc.addPiste(3, tGuitare{}));  // behind a track that doesn't exist
  EXPECT_FALSE(doc.addPiste(-1, tGuitare{}));
  while (doc.getPisteLast() < kMaxPistes)
    ASSERT_TRUE(doc.addPiste(doc.getPisteLast(), tGuitare{}));
  EXPECT_FALSE(doc.addPiste(1, tGuitare{}));
  EXPECT_EQ(doc.getPisteLast(), kMaxPistes);
}

TEST(DeletePiste, LaterTracksMoveDownAndOneAlwaysStays) {
  CVantoroTablature doc;
  doc.addPiste(1, tGuitare{});
  doc.addPiste(2, tGuitare{});
  doc.setPisteNom(3, "third");
  ASSERT_TRUE(doc.deletePiste(2));
  EXPECT_EQ(doc.getPisteLast(), 2);
  EXPECT_EQ(doc.getPisteNom(2), "third");
  ASSERT_TRUE(doc.deletePiste(2));
  EXPECT_FALSE(doc.deletePiste(1));
  EXPECT_EQ(doc.getPisteLast(), 1);
}

TEST(ChangePisteNbrCordes, DropsStringsAndTrimsChords) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setNoteWhole(1, 2, 4, 0, 4, 48);
  doc.setNoteWhole(1, 2, 6, 0, 6, 48);
  const int n = doc.addandplaceMesureAccord(1, 2, 0);
  for (int c = 1; c <= 6; ++c)
    doc.setMesureAccordCorde(1, 2, n, c, static_cast<byt>(c));
  doc.setGuitareNbrCordes(1, 4);
  doc.changePisteNbrCordes(1);
  EXPECT_EQ(doc.pisteMesure(1, 1)->tabCordes.last(), 4);
  EXPECT_EQ(doc.pisteMesure(1, 2)->tabCordes.last(), 4);
  EXPECT_EQ(doc.getNoteCase(1, 2, 4, 1), 4);
  const tAccord& a = doc.pisteMesure(1, 2)->tabAccords[n];
  EXPECT_EQ(a.tabCordes.last(), 4);
  EXPECT_EQ(a.tabCordes[4], 4);
  // Growing again brings empty strings and unplayed chord strings.
  doc.setGuitareNbrCordes(1, 7);
  doc.changePisteNbrCordes(1);
  EXPECT_EQ(doc.getNoteLast(1, 2, 6), 0);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 2, n, 7), 255);
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(GarbageMesure, ShortensFromTheEndOnly) {
  CVantoroTablature doc;
  for (int i = 0; i < 4; ++i)
    doc.addMesure();  // 5 bars
  doc.setNoteWhole(1, 5, 1, 0, 5, 48);
  doc.garbageMesure(2, 1);  // drops bar 5, not bar 2
  EXPECT_EQ(doc.getMesureLast(), 4);
  doc.garbageMesure(3, 10);  // limited to the range that ends at the last bar
  EXPECT_EQ(doc.getMesureLast(), 2);
  doc.garbageMesure(1, 2);  // a document keeps one bar
  EXPECT_EQ(doc.getMesureLast(), 1);
  doc.garbageMesure(1, 1);
  EXPECT_EQ(doc.getMesureLast(), 1);
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(InsertMesure, ShiftsOneTrackAndLeavesHeadersAndOtherTracks) {
  CVantoroTablature doc;
  doc.addPiste(1, tGuitare{});
  doc.addMesure();
  doc.setMesureSignature(2, 3, 4);
  doc.setNoteWhole(1, 1, 1, 0, 1, 48);
  doc.setNoteWhole(1, 2, 1, 0, 2, 48);
  doc.setMesureTexte(1, 2, 0, "two", kVrai);
  doc.setNoteWhole(2, 1, 1, 0, 9, 48);
  ASSERT_TRUE(doc.insertMesure(1, 1, 2));
  EXPECT_EQ(doc.getMesureLast(), 4);
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 0);
  EXPECT_EQ(doc.getNoteLast(1, 2, 1), 0);
  EXPECT_EQ(doc.getNoteCase(1, 3, 1, 1), 1);
  EXPECT_EQ(doc.getNoteCase(1, 4, 1, 1), 2);
  EXPECT_EQ(doc.getMesureTexteUpContenu(1, 4, 1), "two");
  EXPECT_EQ(doc.getNoteCase(2, 1, 1, 1), 9);
  EXPECT_EQ(doc.getMesureSignatureUp(2), 3);
  EXPECT_EQ(doc.getMesureSignatureUp(1), 4);
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(DeleteMesure, ClosesUpOneTrackAndEmptiesItsLastBar) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.addMesure();
  for (int m = 1; m <= 3; ++m)
    doc.setNoteWhole(1, m, 1, 0, m, 48);
  doc.deleteMesure(1, 2);
  EXPECT_EQ(doc.getMesureLast(), 3);  // the bar count is garbageMesure's business
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 1);
  EXPECT_EQ(doc.getNoteCase(1, 2, 1, 1), 3);
  EXPECT_EQ(doc.getNoteLast(1, 3, 1), 0);
}

TEST(DeleteMesure, WithOneBarEmptiesIt) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 1, 48);
  doc.setMesureTexte(1, 1, 0, "x", kFaux);
  doc.deleteMesure(1, 1);
  EXPECT_EQ(doc.getMesureLast(), 1);
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 0);
  EXPECT_EQ(doc.getMesureTexteDnLast(1, 1), 0);
}

CVantoroTablature mesurePleine() {
  CVantoroTablature doc;
  for (int x = 0; x < 192; x += 48) {
    const int n = doc.setNoteWhole(1, 1, 1, x, x / 48 + 1, 48);
    doc.setNoteAttaque(1, 1, 1, n, attaque::kSlap);
    doc.setNoteVolume(1, 1, 1, n, nuance::kMF);
    doc.setNoteEffet(1, 1, 1, n, effet::kHammerOn);
  }
  return doc;
}

TEST(InsertSilence, PushesTheLastBeatIntoANewBar) {
  CVantoroTablature doc = mesurePleine();
  ASSERT_TRUE(doc.insertSilence(1, 1, 0, 48));
  ASSERT_EQ(doc.getMesureLast(), 2);
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{48, 1, 48}, {96, 2, 48}, {144, 3, 48}}));
  EXPECT_EQ(corde(doc, 1, 2, 1), (std::vector<NoteVue>{{0, 4, 48}}));
  // The moved note keeps its effect, attack and nuance.
  EXPECT_EQ(doc.getNoteEffet(1, 2, 1, 1), effet::kHammerOn);
  EXPECT_EQ(doc.getNoteAttaque(1, 2, 1, 1), attaque::kSlap);
  EXPECT_EQ(doc.getNoteVolume(1, 2, 1, 1), nuance::kMF);
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(InsertSilence, LeavesWhatStandsBeforeThePointAndCutsWhatNoLongerFits) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 1, 24);
  doc.setNoteWhole(1, 1, 1, 96, 2, 96);
  doc.setMesureTexte(1, 1, 96, "here", kVrai);
  ASSERT_TRUE(doc.insertSilence(1, 1, 48, 24));
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{0, 1, 24}, {120, 2, 72}}));
  EXPECT_EQ(doc.getMesureTexteUpX(1, 1, 1), 120);
  EXPECT_EQ(doc.getMesureLast(), 1);
}

TEST(InsertSilence, ShiftsEveryLaterBarAndCarriesChordsAndTexts) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setNoteWhole(1, 2, 3, 168, 7, 24);
  doc.setMesureTexte(1, 2, 180, "end", kFaux);
  const int n = doc.addandplaceMesureAccord(1, 2, 170);
  doc.setMesureAccordNom(1, 2, n, "G");
  ASSERT_TRUE(doc.insertSilence(1, 1, 0, 24));
  ASSERT_EQ(doc.getMesureLast(), 3);
  EXPECT_EQ(corde(doc, 1, 3, 3), (std::vector<NoteVue>{{0, 7, 24}}));
  EXPECT_EQ(doc.getMesureTexteDnX(1, 3, 1), 12);
  EXPECT_EQ(doc.getMesureAccordNom(1, 3, 1), "G");
  EXPECT_EQ(doc.getMesureAccordX(1, 3, 1), 2);
  EXPECT_EQ(doc.getMesureAccordLast(1, 2), 0);
}

TEST(InsertSilence, LengthLimitedToTheRestOfTheBar) {
  CVantoroTablature doc = mesurePleine();
  // 96 asked at tick 150: only 42 remain, rounded down to 36. The note moves to
  // 186, stays in the bar, and is cut to the 6 ticks left.
  doc.setNoteWhole(1, 1, 2, 150, 9, 12);
  ASSERT_TRUE(doc.insertSilence(1, 1, 150, 96));
  EXPECT_EQ(corde(doc, 1, 1, 2), (std::vector<NoteVue>{{186, 9, 6}}));
  EXPECT_EQ(corde(doc, 1, 1, 1).size(), 4u);  // the notes before the point stay
  EXPECT_EQ(doc.getMesureLast(), 1);
}

TEST(InsertSilence, RefusedAtTheListLimitLeavesEverythingAsItWas) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setMesureSignature(1, 16, 1);  // 3072 ticks
  doc.setMesureSignature(2, 16, 1);
  for (int i = 0; i < kMaxEntrees; ++i)
    doc.setNoteWhole(1, 2, 1, i * 12, 1, 12);
  doc.setNoteWhole(1, 1, 1, 3066, 2, 6);  // will spill into the full bar 2
  const CVantoroTablature avant = doc;
  EXPECT_FALSE(doc.insertSilence(1, 1, 0, 12));
  EXPECT_EQ(doc, avant);
}

TEST(RemoveNotes, ClosesUpAcrossTheBarLine) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setNoteWhole(1, 1, 1, 0, 1, 48);
  doc.setNoteWhole(1, 1, 1, 48, 2, 48);
  doc.setNoteWhole(1, 2, 1, 0, 3, 48);
  const int n = doc.setNoteWhole(1, 2, 1, 48, 4, 48);
  doc.setNoteEffet(1, 2, 1, n, effet::kSlideUp);
  doc.setMesureTexte(1, 2, 0, "B", kVrai);
  ASSERT_TRUE(doc.removeNotes(1, 1, 0, 48));
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{0, 2, 48}, {144, 3, 48}}));
  EXPECT_EQ(corde(doc, 1, 2, 1), (std::vector<NoteVue>{{0, 4, 48}}));
  EXPECT_EQ(doc.getNoteEffet(1, 2, 1, 1), effet::kSlideUp);
  EXPECT_EQ(doc.getMesureTexteUpX(1, 1, 1), 144);
  EXPECT_EQ(doc.getMesureTexteUpLast(1, 2), 0);
  EXPECT_EQ(doc.getMesureLast(), 2);
}

TEST(RemoveNotes, ANoteMovingBackIsCutToWhatIsLeftOfTheBar) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setNoteWhole(1, 2, 1, 24, 5, 96);
  ASSERT_TRUE(doc.removeNotes(1, 1, 120, 48));
  // Tick 24 of bar 2 less 48 lands at 168 of bar 1, where only 24 ticks are left.
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{168, 5, 24}}));
}

TEST(RemoveNotes, ANoteBeforeTheStretchNoLongerReachesOverWhatClosedUp) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 0, 1, 96);
  doc.setNoteWhole(1, 1, 1, 96, 2, 48);
  ASSERT_TRUE(doc.removeNotes(1, 1, 48, 48));
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{0, 1, 48}, {48, 2, 48}}));
}

TEST(RemoveNotes, ThenInsertSilenceRestoresTheTiming) {
  CVantoroTablature doc = mesurePleine();
  doc.addMesure();
  doc.setNoteWhole(1, 2, 6, 24, 0, 24);
  const CVantoroTablature avant = doc;
  ASSERT_TRUE(doc.removeNotes(1, 1, 0, 48));
  ASSERT_TRUE(doc.insertSilence(1, 1, 0, 48));
  for (int m = 1; m <= 2; ++m)
    for (int c = 1; c <= 6; ++c) {
      auto a = corde(avant, 1, m, c);
      auto b = corde(doc, 1, m, c);
      if (m == 1 && c == 1) a.erase(a.begin());  // the removed beat stays removed
      EXPECT_EQ(a, b) << "bar " << m << " string " << c;
    }
}

}  // namespace
}  // namespace vt
