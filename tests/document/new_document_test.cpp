// A new document, the length table, the key byte, beats, the silence before a
// track's first note, the beam test and the printing scale.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "test_support.h"

namespace vt {
namespace {

TEST(NewDocument, HasOneTrackOfOneEmptyFourFourBar) {
  CVantoroTablature doc;
  int notes = 0;
  for (int c = 1; c <= 7; ++c)  // no seventh string: answered, not reached
    notes += doc.getNoteLast(1, 1, c);
  EXPECT_EQ((std::vector<int>{doc.getPisteLast(), doc.getMesureLast(), doc.getMesureLargeur(1),
                              notes, doc.getMesureTempoLast(1), doc.getMesureTonalitéAltérations(1),
                              doc.getMesureTonalitéMode(1), doc.isMarkerCorrect(), doc.tempo,
                              doc.modifi}),
            (std::vector<int>{1, 1, 192, 0, 0, 0, kVrai, kFaux, 120, kFaux}));
  EXPECT_EQ(validateDocument(doc), "");
}

TEST(NewDocument, TrackTakesTheCurrentInstrumentAndPatchAndInitializeForgetsEverything) {
  tGuitare g = test::basse4();
  g.capodastre = 2;
  CVantoroTablature doc(g, 33);
  EXPECT_EQ(doc.getGuitareNom(1), "Bass");
  // Strings, frets, string 1, string 4, capo, patch, pan, balance, clef, strings of bar 1.
  EXPECT_EQ((std::vector<int>{doc.getGuitareNbrCordes(1), doc.getGuitareNbrCases(1),
                              doc.getGuitareCorde(1, 1), doc.getGuitareCorde(1, 4),
                              doc.getGuitareCapodastre(1), doc.getMIDIPatch(1), doc.getMIDIPan(1),
                              doc.getMIDIBalance(1), doc.getPortéeClef(1),
                              doc.pisteMesure(1, 1)->tabCordes.last()}),
            (std::vector<int>{4, 20, 43, 28, 2, 33, 64, 64, 1, 4}));
  doc.setNoteWhole(1, 1, 1, 0, 3, 48);
  doc.addMesure();
  doc.addPiste(1, tGuitare{});
  doc.storeUndo(true);
  doc.titre = "Titre";
  doc.setCurseurMesure(2);
  doc.setMarqueurStop(2, 24);
  doc.modifi = kVrai;
  doc.initialize(tGuitare{});
  EXPECT_EQ(doc, CVantoroTablature());
}

TEST(NoteLengths, RoundDownOntoTheSeventeenValuesWhichMapToThemselves) {
  const std::pair<int, int> cas[] = {{191, 144}, {143, 128}, {7, 6},    {5, 4},    {0, 4},
                                     {192, 192}, {200, 192}, {-1, 192}, {47, 36},  {48, 48},
                                     {35, 32},   {9, 9},     {11, 9},   {17, 16},  {23, 18},
                                     {63, 48},   {71, 64},   {95, 72},  {127, 96}, {8, 8}};
  for (auto [entrée, attendu] : cas)
    EXPECT_EQ(CVantoroTablature::makeNoteDuréeExiste(entrée), attendu) << "length " << entrée;
  for (int d : {4, 6, 8, 9, 12, 16, 18, 24, 32, 36, 48, 64, 72, 96, 128, 144, 192})
    EXPECT_EQ(CVantoroTablature::makeNoteDuréeExiste(d), d);
}

TEST(KeyByte, DecodesAccidentalsAndMode) {
  // C sharp minor (64 + 8 + 7), C flat major (8 - 7), F major, F sharp minor.
  const struct {
    int octet, altérations;
    vbool majeur;
  } cas[] = {{79, 7, kFaux}, {1, -7, kVrai}, {7, -1, kVrai}, {75, 3, kFaux}};
  for (const auto& k : cas) {
    CVantoroTablature doc;
    doc.setMesureTonalité(1, static_cast<byt>(k.octet));
    EXPECT_EQ(std::pair(doc.getMesureTonalitéAltérations(1), doc.getMesureTonalitéMode(1)),
              std::pair(k.altérations, k.majeur));
    doc.setMesureTonalité(1, 0);
    doc.setMesureTonalitéDétails(1, k.altérations, k.majeur);
    EXPECT_EQ(doc.getMesureTonalité(1), k.octet);
  }
}

TEST(Beats, FollowTheNumeratorRuleAndTheSignatureGivesTheWidth) {
  CVantoroTablature doc;
  doc.setNoteWhole(1, 1, 1, 100, 0, 12);
  EXPECT_EQ(doc.getTempsNote(1, 1, 1, 1), 3);  // 100 / 48 + 1
  const struct {
    int up, dn, beat, w;
  } cas[] = {{6, 8, 72, 144},   {5, 4, 48, 240},   {4, 4, 48, 192}, {3, 4, 48, 144},
             {9, 8, 72, 216},   {12, 8, 72, 288},  {7, 8, 24, 168}, {2, 2, 96, 192},
             {10, 8, 0, 240},   {15, 16, 36, 180}, {1, 4, 48, 48},  {5, 8, 24, 120},
             {12, 16, 36, 144}, {8, 8, 0, 192}};
  for (auto c : cas) {
    ASSERT_TRUE(doc.setMesureSignature(1, c.up, c.dn));
    EXPECT_EQ(std::pair(doc.getTempsDurée(1), doc.getMesureLargeur(1)), std::pair(c.beat, c.w))
        << c.up << "/" << c.dn;
  }
  // 8/8 has no beat rule: no division by zero, no beat number.
  ASSERT_EQ(doc.setNoteWhole(1, 1, 1, 100, 0, 12), 1);
  EXPECT_EQ(doc.getTempsNote(1, 1, 1, 1), 0);
}

TEST(Signature, RefusesWhatWouldBreakTheTickArithmetic) {
  CVantoroTablature doc;
  // 255/1 is 48960 ticks, past 16 bits; there is no bar 2.
  for (const auto& [m, haut, bas] :
       {std::tuple{1, 0, 4}, {1, 4, 0}, {1, 4, 3}, {1, 255, 1}, {2, 3, 4}})
    EXPECT_FALSE(doc.setMesureSignature(m, haut, bas)) << haut << "/" << bas;
  EXPECT_EQ(std::pair(doc.getMesureSignatureUp(1), doc.getMesureSignatureDn(1)), std::pair(4, 4));
  EXPECT_TRUE(doc.setMesureSignature(1, 170, 1));
}

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
  doc.setNoteWhole(1, 1, 5, 0, 0, 12);
  EXPECT_EQ(doc.getPremierSilence(1), 0);  // a note on the first tick: no silence before it
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
