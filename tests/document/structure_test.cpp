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

TEST(AddPiste, AtTheEndInTheMiddleFirstUpToTheLimitAndDeletedDownToOne) {
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

  // In the middle: the new track 3 has the defaults, the name of the track that
  // stood there and no notes; the old track 3, now 4, keeps its name and notes
  // but takes the defaults, and its bars follow that string count.
  CVantoroTablature mil;
  mil.addPiste(1, tGuitare{});
  mil.addPiste(2, tGuitare{});
  for (int p = 1; p <= 3; ++p) {
    mil.setPisteNom(p, "T" + std::to_string(p));
    mil.setMIDIPatch(p, static_cast<byt>(40 + p));
    mil.setMIDIPan(p, static_cast<byt>(p));
    mil.setNoteWhole(p, 1, 1, 0, p, 48);
  }
  ASSERT_TRUE(mil.addPiste(2, test::basse4(), 27));
  const auto vue = [&](int p) {
    return std::tuple(mil.getPisteNom(p), mil.getMIDIPatch(p), mil.getMIDIPan(p),
                      mil.getGuitareNbrCordes(p), mil.getNoteLast(p, 1, 1),
                      mil.getNoteCase(p, 1, 1, 1));
  };
  ASSERT_EQ(mil.getPisteLast(), 4);
  EXPECT_EQ(vue(2), std::tuple("T2", 42, 2, 6, 1, 2));
  EXPECT_EQ(vue(3), std::tuple("T3", 27, 64, 4, 0, 0));
  EXPECT_EQ(vue(4), std::tuple("T3", 27, 64, 4, 1, 3));
  EXPECT_EQ(validateDocument(mil), "");

  // Before the first; not behind a track that does not exist; up to the limit.
  CVantoroTablature un;
  un.setNoteWhole(1, 1, 1, 0, 7, 48);
  ASSERT_TRUE(un.addPiste(0, tGuitare{}));
  EXPECT_EQ(std::pair(un.getNoteLast(1, 1, 1), un.getNoteCase(2, 1, 1, 1)), std::pair(0, 7));
  EXPECT_FALSE(un.addPiste(3, tGuitare{}));
  EXPECT_FALSE(un.addPiste(-1, tGuitare{}));
  while (un.getPisteLast() < kMaxPistes)
    ASSERT_TRUE(un.addPiste(un.getPisteLast(), tGuitare{}));
  EXPECT_FALSE(un.addPiste(1, tGuitare{}));
  EXPECT_EQ(un.getPisteLast(), kMaxPistes);

  // Deleting moves the later tracks down, and one track always stays.
  ASSERT_TRUE(mil.deletePiste(2));
  EXPECT_EQ(std::pair(mil.getPisteLast(), mil.getPisteNom(2)), std::pair(3, std::string("T3")));
  ASSERT_TRUE(mil.deletePiste(2));
  ASSERT_TRUE(mil.deletePiste(2));
  EXPECT_FALSE(mil.deletePiste(1));
  EXPECT_EQ(mil.getPisteLast(), 1);
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

TEST(GarbageMesure, ShortensFromTheEndOnlyAndDeleteMesureClosesUpOneTrack) {
  CVantoroTablature doc;
  for (int i = 0; i < 4; ++i)
    doc.addMesure();
  for (int m = 1; m <= 5; ++m)
    doc.setNoteWhole(1, m, 1, 0, m, 48);
  // deleteMesure closes up one track and empties its last bar; the bar count
  // is garbageMesure's business.
  doc.deleteMesure(1, 2);
  EXPECT_EQ((std::vector<int>{doc.getMesureLast(), doc.getNoteCase(1, 1, 1, 1),
                              doc.getNoteCase(1, 2, 1, 1), doc.getNoteLast(1, 5, 1)}),
            (std::vector<int>{5, 1, 3, 0}));
  // Drops bar 5, not bar 2; limited to the range that ends at the last bar;
  // a document keeps one bar.
  std::vector<int> restent;
  for (const auto& [m, n] : {std::pair{2, 1}, {3, 10}, {1, 2}, {1, 1}}) {
    doc.garbageMesure(m, n);
    restent.push_back(doc.getMesureLast());
  }
  EXPECT_EQ(restent, (std::vector<int>{4, 2, 1, 1}));
  EXPECT_EQ(validateDocument(doc), "");
  // With one bar, deleteMesure empties it.
  doc.setMesureTexte(1, 1, 0, "x", kFaux);
  doc.deleteMesure(1, 1);
  EXPECT_EQ((std::vector<int>{doc.getMesureLast(), doc.getNoteLast(1, 1, 1),
                              doc.getMesureTexteDnLast(1, 1)}),
            (std::vector<int>{1, 0, 0}));
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

TEST(InsertSilence, PushesWhatFollowsThePointAndCutsWhatNoLongerFits) {
  CVantoroTablature doc = mesurePleine();
  ASSERT_TRUE(doc.insertSilence(1, 1, 0, 48));
  ASSERT_EQ(doc.getMesureLast(), 2);
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{48, 1, 48}, {96, 2, 48}, {144, 3, 48}}));
  // The last beat went into a new bar, keeping its effect, attack and nuance.
  EXPECT_EQ(*doc.getNote(1, 2, 1, 1),
            (tNote{4, 48, 0, effet::kHammerOn, 0, attaque::kSlap, nuance::kMF}));
  EXPECT_EQ(validateDocument(doc), "");

  CVantoroTablature avant;
  avant.setNoteWhole(1, 1, 1, 0, 1, 24);
  avant.setNoteWhole(1, 1, 1, 96, 2, 96);
  avant.setMesureTexte(1, 1, 96, "here", kVrai);
  ASSERT_TRUE(avant.insertSilence(1, 1, 48, 24));
  EXPECT_EQ(corde(avant, 1, 1, 1), (std::vector<NoteVue>{{0, 1, 24}, {120, 2, 72}}));
  EXPECT_EQ(std::pair(avant.getMesureTexteUpX(1, 1, 1), avant.getMesureLast()), std::pair(120, 1));

  // 96 asked at tick 150: only 42 remain, rounded down to 36. The note moves to
  // 186, stays in the bar, and is cut to the 6 ticks left.
  CVantoroTablature reste = mesurePleine();
  reste.setNoteWhole(1, 1, 2, 150, 9, 12);
  ASSERT_TRUE(reste.insertSilence(1, 1, 150, 96));
  EXPECT_EQ(corde(reste, 1, 1, 2), (std::vector<NoteVue>{{186, 9, 6}}));
  EXPECT_EQ(std::pair(corde(reste, 1, 1, 1).size(), reste.getMesureLast()), std::pair(4ul, 1));
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

TEST(RemoveNotes, ClosesUpAcrossTheBarLineAndInsertSilenceRestoresTheTiming) {
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

  // Tick 24 of bar 2 less 48 lands at 168 of bar 1, where only 24 ticks are left.
  CVantoroTablature cut;
  cut.addMesure();
  cut.setNoteWhole(1, 2, 1, 24, 5, 96);
  ASSERT_TRUE(cut.removeNotes(1, 1, 120, 48));
  EXPECT_EQ(corde(cut, 1, 1, 1), (std::vector<NoteVue>{{168, 5, 24}}));
  // A note before the point no longer reaches over the gap.
  CVantoroTablature avant;
  avant.setNoteWhole(1, 1, 1, 0, 1, 96);
  avant.setNoteWhole(1, 1, 1, 96, 2, 48);
  ASSERT_TRUE(avant.removeNotes(1, 1, 48, 48));
  EXPECT_EQ(corde(avant, 1, 1, 1), (std::vector<NoteVue>{{0, 1, 48}, {48, 2, 48}}));

  // Removing a beat then inserting one gives back the timing of everything else.
  CVantoroTablature plein = mesurePleine();
  plein.addMesure();
  plein.setNoteWhole(1, 2, 6, 24, 0, 24);
  const CVantoroTablature original = plein;
  ASSERT_TRUE(plein.removeNotes(1, 1, 0, 48));
  ASSERT_TRUE(plein.insertSilence(1, 1, 0, 48));
  for (int m = 1; m <= 2; ++m)
    for (int c = 1; c <= 6; ++c) {
      auto a = corde(original, 1, m, c);
      if (m == 1 && c == 1) a.erase(a.begin());  // the removed beat stays removed
      EXPECT_EQ(a, corde(plein, 1, m, c)) << "bar " << m << " string " << c;
    }
}

}  // namespace
}  // namespace vt
