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
  EXPECT_EQ((std::vector<int>{doc.getMesureSignatureUp(2), doc.getMesureSignatureDn(2),
                              doc.getMesureTonalité(2), doc.getMesureLoopDroiteType(2),
                              doc.getMesureLoopDroiteData(2), doc.getMesureTempoLast(2),
                              doc.pisteMesure(1, 2)->tabCordes.last()}),
            (std::vector<int>{3, 4, 9, 0, 0, 0, 6}));
  // It stops at the bar limit.
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
  EXPECT_EQ(
      (std::vector<std::string>{doc.getPisteNom(1), doc.getPisteNom(2), doc.getGuitareNom(2)}),
      (std::vector<std::string>{"Lead", "", "Bass"}));
  EXPECT_EQ(
      (std::vector<int>{doc.getPisteLast(), doc.getGuitareNbrCordes(2), doc.getMIDIPatch(2),
                        doc.piste(2).tabMesures.last(), doc.pisteMesure(2, 2)->tabCordes.last()}),
      (std::vector<int>{2, 4, 33, 2, 4}));
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
  // Track 2 is untouched. The new track 3 has the defaults, the name of the
  // track that stood there and no notes. The old track 3, now 4, keeps its
  // name and notes but takes the defaults, and its bars follow that string count.
  const auto vue = [&](int p) {
    return std::tuple(doc.getPisteNom(p), doc.getMIDIPatch(p), doc.getMIDIPan(p),
                      doc.getGuitareNbrCordes(p), doc.getNoteLast(p, 1, 1),
                      doc.getNoteCase(p, 1, 1, 1));
  };
  EXPECT_EQ(vue(2), std::tuple("T2", 42, 2, 6, 1, 2));
  EXPECT_EQ(vue(3), std::tuple("T3", 27, 64, 4, 0, 0));
  EXPECT_EQ(vue(4), std::tuple("T3", 27, 64, 4, 1, 3));
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
  EXPECT_EQ(std::pair(doc.getPisteLast(), doc.getPisteNom(2)), std::pair(2, std::string("third")));
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
  const tAccord& a = doc.pisteMesure(1, 2)->tabAccords[n];
  EXPECT_EQ((std::vector<int>{doc.pisteMesure(1, 1)->tabCordes.last(),
                              doc.pisteMesure(1, 2)->tabCordes.last(), doc.getNoteCase(1, 2, 4, 1),
                              a.tabCordes.last(), a.tabCordes[4]}),
            (std::vector<int>{4, 4, 4, 4, 4}));
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
  // Drops bar 5, not bar 2; limited to the range that ends at the last bar;
  // a document keeps one bar.
  std::vector<int> restent;
  for (const auto& [m, n] : {std::pair{2, 1}, {3, 10}, {1, 2}, {1, 1}}) {
    doc.garbageMesure(m, n);
    restent.push_back(doc.getMesureLast());
  }
  EXPECT_EQ(restent, (std::vector<int>{4, 2, 1, 1}));
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
  EXPECT_EQ((std::vector<int>{doc.getMesureLast(), doc.getNoteLast(1, 1, 1),
                              doc.getNoteLast(1, 2, 1), doc.getNoteCase(1, 3, 1, 1),
                              doc.getNoteCase(1, 4, 1, 1), doc.getNoteCase(2, 1, 1, 1),
                              doc.getMesureSignatureUp(1), doc.getMesureSignatureUp(2)}),
            (std::vector<int>{4, 0, 0, 1, 2, 9, 4, 3}));
  EXPECT_EQ(doc.getMesureTexteUpContenu(1, 4, 1), "two");
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(DeleteMesure, ClosesUpOneTrackAndEmptiesItsLastBar) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.addMesure();
  for (int m = 1; m <= 3; ++m)
    doc.setNoteWhole(1, m, 1, 0, m, 48);
  doc.deleteMesure(1, 2);
  // The bar count is garbageMesure's business.
  EXPECT_EQ((std::vector<int>{doc.getMesureLast(), doc.getNoteCase(1, 1, 1, 1),
                              doc.getNoteCase(1, 2, 1, 1), doc.getNoteLast(1, 3, 1)}),
            (std::vector<int>{3, 1, 3, 0}));
  // With one bar, it empties it.
  CVantoroTablature un;
  un.setNoteWhole(1, 1, 1, 0, 1, 48);
  un.setMesureTexte(1, 1, 0, "x", kFaux);
  un.deleteMesure(1, 1);
  EXPECT_EQ((std::vector<int>{un.getMesureLast(), un.getNoteLast(1, 1, 1),
                              un.getMesureTexteDnLast(1, 1)}),
            (std::vector<int>{1, 0, 0}));
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
  EXPECT_EQ(*doc.getNote(1, 2, 1, 1),
            (tNote{4, 48, 0, effet::kHammerOn, 0, attaque::kSlap, nuance::kMF}));
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
  EXPECT_EQ((std::vector<int>{doc.getMesureTexteDnX(1, 3, 1), doc.getMesureAccordX(1, 3, 1),
                              doc.getMesureAccordLast(1, 2)}),
            (std::vector<int>{12, 2, 0}));
  EXPECT_EQ(doc.getMesureAccordNom(1, 3, 1), "G");
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
  EXPECT_EQ((std::vector<int>{doc.getNoteEffet(1, 2, 1, 1), doc.getMesureTexteUpX(1, 1, 1),
                              doc.getMesureTexteUpLast(1, 2), doc.getMesureLast()}),
            (std::vector<int>{effet::kSlideUp, 144, 0, 2}));
}

TEST(RemoveNotes, ANoteMovingBackIsCutToTheBarAndANoteBeforeNoLongerReachesOverTheGap) {
  CVantoroTablature doc;
  doc.addMesure();
  doc.setNoteWhole(1, 2, 1, 24, 5, 96);
  ASSERT_TRUE(doc.removeNotes(1, 1, 120, 48));
  // Tick 24 of bar 2 less 48 lands at 168 of bar 1, where only 24 ticks are left.
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{168, 5, 24}}));

  CVantoroTablature avant;
  avant.setNoteWhole(1, 1, 1, 0, 1, 96);
  avant.setNoteWhole(1, 1, 1, 96, 2, 48);
  ASSERT_TRUE(avant.removeNotes(1, 1, 48, 48));
  EXPECT_EQ(corde(avant, 1, 1, 1), (std::vector<NoteVue>{{0, 1, 48}, {48, 2, 48}}));
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
