// Reading: the messages of a refused head, and the older versions upgraded.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "formats/vtb.h"
#include "old_files.h"

namespace vt {
namespace {

using test::Octets;

VtbLecture lire(const std::vector<std::uint8_t>& f, const VtbContexte& ctx = test::contexte()) {
  return io_ouvrir_vtb(f, ctx);
}

TEST(VtbRead, RefusedHeadsShowTheirMessagesInOrder) {
  const auto messages = [](std::vector<std::uint8_t> f) { return lire(f).messages; };
  using V = std::vector<int>;
  EXPECT_EQ(messages({}), (V{6005, 6004}));
  EXPECT_EQ(messages({'V', 'T'}), (V{6005, 6004}));
  EXPECT_EQ(messages({'V', 'T', 'B'}), (V{6005}));
  EXPECT_EQ(messages({'M', 'T', 'h', 'd', 0, 0, 0, 6}), (V{6004}));
  EXPECT_EQ(messages({'V', 'T', 'B', 3, 1, 0, 0, 0, 0, 0}), (V{6006}));
  EXPECT_EQ(messages({'V', 'T', 'B', 0}), (V{6006}));
  EXPECT_EQ(messages({'V', 'T', 'B', 9, 1, 0, 0, 0, 0, 0}), (V{6014}));
  EXPECT_EQ(messages({'V', 'T', 'B', 8}), (V{6005}));  // a body that ends at once
  for (const auto& f : {std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{'V', 'T', 'B', 9}}) {
    const VtbLecture r = lire(f);
    EXPECT_FALSE(r.ok());
    EXPECT_EQ(r.guitare, test::guitareInconnue());  // the current instrument stays
    EXPECT_EQ(r.setGuitare, 0);
  }
}

TEST(VtbRead, Version7IsUpgradedWithBankAndStaffTypeZero) {
  const VtbLecture r = lire(test::fichierVersion7());
  ASSERT_TRUE(r.ok()) << r.détail;
  EXPECT_EQ(r.version, 7);
  const CVantoroTablature& d = *r.document;
  EXPECT_EQ((std::vector<std::string>{d.Auteur, d.titre, d.Copy, d.SousTitre, d.Comments}),
            (std::vector<std::string>{"Auteur", "Titre \xE9t\xE9", "Copy", "Sous", "Notes"}));
  EXPECT_EQ(d.tempo, 100);
  EXPECT_EQ(d.TripleFeel(), kVrai);
  ASSERT_EQ(d.getPisteLast(), 2);
  ASSERT_EQ(d.getMesureLast(), 2);

  // Key and left line of bar 1, its tempos, then width and right line of bar 2.
  EXPECT_EQ((std::vector<int>{d.getMesureTonalité(1), d.getMesureLoopGaucheType(1),
                              d.getMesureTempoLast(1), d.getMesureTempoX(1, 2),
                              d.getMesureTempoContenu(1, 2), d.getMesureLargeur(2),
                              d.getMesureLoopDroiteType(2), d.getMesureLoopDroiteData(2)}),
            (std::vector<int>{10, 2, 2, 96, 140, 144, 2, 2}));

  const tPiste& t1 = d.piste(1);
  EXPECT_EQ(t1.strNom, "Rythmique");
  EXPECT_EQ(t1.strGuitareNom, "Drop D");
  // Strings, low string, frets, bank, staff type, patch, pan, reverb,
  // tremolo, chorus, phaser, clef, balance, solo, mute.
  EXPECT_EQ((std::vector<long>{t1.bytNbrCordes, t1.bytCordes[6], t1.bytNbrCases, t1.lngBank,
                               t1.bytStaffType, t1.bytPatch, t1.bytPan, t1.bytReverb, t1.bytTremolo,
                               t1.bytChorus, t1.bytPhaser, t1.bytClef, t1.bytBalance,
                               t1.boolPlaySolo, t1.boolPlayMute}),
            (std::vector<long>{6, 38, 24, 0, 0, 29, 20, 30, 40, 50, 60, 1, 64, kVrai, kFaux}));
  EXPECT_EQ(d.getMesureAccordNom(1, 1, 1), "D5");
  EXPECT_EQ(d.getMesureAccordCorde(1, 1, 1, 4), 7);
  EXPECT_EQ(d.getMesureAccordCorde(1, 1, 1, 1), 255);
  EXPECT_EQ(d.getMesureTexteUpContenu(1, 1, 1), "riff");
  ASSERT_EQ(d.getNoteLast(1, 1, 1), 2);
  EXPECT_EQ(*d.getNote(1, 1, 1, 2), (tNote{5, 48, 48, 1, 0, 6, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 6, 1), (tNote{0, 192, 0, 0, 0, 0, 63}));

  const tPiste& t2 = d.piste(2);
  EXPECT_EQ(t2.bytNbrCordes, 4);
  EXPECT_EQ(t2.bytCordes[5], 0);
  EXPECT_EQ(t2.bytClef, 2);
  EXPECT_EQ(t2.boolPlayMute, kVrai);
  EXPECT_EQ(d.getMesureTexteDnContenu(2, 2, 1), "fin");
  EXPECT_EQ(d.getMesureTexteDnX(2, 2, 1), 72);
  EXPECT_EQ(*d.getNote(2, 2, 1, 1), (tNote{2, 72, 0, 0, 0, 0, 111}));

  // The last track with a known tuning gives the current instrument.
  EXPECT_EQ(r.setGuitare, 3);
  EXPECT_EQ(r.guitare.nom, "Bass");

  // Saved again, it is version 8 and reads back the same.
  const VtbEcriture e = io_enregistrer_vtb(d);
  ASSERT_TRUE(e.ok());
  EXPECT_EQ(e.octets[3], 8);
  const VtbLecture r8 = lire(e.octets);
  ASSERT_TRUE(r8.ok());
  EXPECT_EQ(*r8.document, d);
}

TEST(VtbRead, Version6NotesGetFullNuance) {
  const VtbLecture r = lire(test::fichierVersion6());
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature& d = *r.document;
  ASSERT_EQ(d.getPisteLast(), 1);
  ASSERT_EQ(d.getMesureLast(), 2);
  EXPECT_EQ(d.tempo, 90);
  EXPECT_EQ(d.TripleFeel(), kVrai);
  const tPiste& t = d.piste(1);
  EXPECT_EQ(t.strNom, "");
  EXPECT_EQ(t.strGuitareNom, "Drop D");
  // Frets, patch (not in the file: the patch of new tracks), pan, reverb, tremolo, chorus, phaser.
  EXPECT_EQ((std::vector<int>{t.bytNbrCases, t.bytPatch, t.bytPan, t.bytReverb, t.bytTremolo,
                              t.bytChorus, t.bytPhaser}),
            (std::vector<int>{22, 25, 30, 40, 5, 6, 7}));
  const tMesure& h = d.mesure(1);
  EXPECT_EQ(
      (std::vector<int>{h.bytTonalité, h.bytSignatureUp, h.bytSignatureDn, h.bytLoopGaucheType,
                        h.bytLoopGaucheData, h.bytLoopDroiteType, h.bytLoopDroiteData}),
      (std::vector<int>{9, 6, 8, 1, 0, 2, 4}));
  EXPECT_EQ(d.getMesureLoopDroiteType(2), 3);
  EXPECT_EQ(d.getMesureTempoLast(1), 0);
  EXPECT_EQ(d.getMesureAccordNom(1, 1, 1), "Dm");
  EXPECT_EQ(d.getMesureAccordCorde(1, 1, 1, 2), 3);
  EXPECT_EQ(d.getMesureTexteUpX(1, 1, 1), 36);
  ASSERT_EQ(d.getNoteLast(1, 1, 1), 2);
  EXPECT_EQ(*d.getNote(1, 1, 1, 1), (tNote{0, 36, 0, 0, 0, 0, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 1, 2), (tNote{2, 36, 36, 3, 0, 3, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 6, 1), (tNote{0, 72, 0, 0, 0, 6, 127}));
  EXPECT_EQ(r.setGuitare, 2);
  EXPECT_EQ(r.guitare.nom, "Drop D guitar");
}

// What both event files hold, the texts and chords of version 5 aside.
void vérifierHistoire(const CVantoroTablature& d) {
  ASSERT_EQ(d.getMesureLast(), 3);
  for (int m = 1; m <= 3; ++m)
    EXPECT_EQ(d.getMesureLargeur(m), 144);
  EXPECT_EQ(d.tempo, 132);
  // A column at tick 0: quarter notes in palm mute, then the effects of event 3.
  EXPECT_EQ(*d.getNote(1, 1, 1, 1), (tNote{0, 48, 0, effet::kSlideUp, 0, attaque::kPalmMute, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 2, 1), (tNote{1, 48, 0, effet::kBendUp, 0, attaque::kPalmMute, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 6, 1),
            (tNote{3, 48, 0, effet::kBendDown, 0, attaque::kPalmMute, 127}));
  // A dotted, tied quarter whose attack 1 is dropped.
  EXPECT_EQ(*d.getNote(1, 1, 3, 1), (tNote{2, 72, 48, effet::kLiaison, 0, 0, 127}));
  EXPECT_EQ(d.getNoteLast(1, 1, 4), 0);
  // The rest filled bar 1; the double line at the start of bar 2 closes bar 1.
  EXPECT_EQ(d.getMesureLoopDroiteType(1), barre::kDouble);
  EXPECT_EQ(d.getMesureLoopGaucheType(2), barre::kRepetition);
  EXPECT_EQ(*d.getNote(1, 2, 1, 1), (tNote{5, 96, 0, 0, 0, attaque::kTap, 127}));
  // The whole note at tick 96 is cut at the bar's end and opens bar 3.
  EXPECT_EQ(*d.getNote(1, 2, 6, 1), (tNote{0, 48, 96, 0, 0, 0, 127}));
  // The repeat end came twice: inside bar 2 (3 plays), then at bar 3's start (2 plays).
  EXPECT_EQ(d.getMesureLoopDroiteType(2), barre::kRepetition);
  EXPECT_EQ(d.getMesureLoopDroiteData(2), 2);
  EXPECT_EQ(d.getMesureLoopDroiteType(3), 0);
  // Texts land behind the event they came with.
  EXPECT_EQ(d.getMesureTexte(1, 1, 48, kVrai), "Intro");
  EXPECT_EQ(d.getMesureTexte(1, 2, 0, kVrai), "B2");
  EXPECT_EQ(d.getMesureTexteUpLast(1, 1), 1);
  EXPECT_EQ(validateDocument(d), "");
}

TEST(VtbRead, Version5EventsTextsAndChords) {
  const VtbLecture r = lire(test::fichierVersion5({64, 59, 55, 50, 45, 38}));
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature& d = *r.document;
  vérifierHistoire(d);
  EXPECT_EQ(d.titre, "Titre \xE9t\xE9");
  // The tuning of the file found drop D, which gives the rest of the instrument.
  EXPECT_EQ(r.setGuitare, 2);
  EXPECT_EQ(d.piste(1).bytCordes[6], 38);
  EXPECT_EQ(d.piste(1).strGuitareNom, "Drop D guitar");
  EXPECT_EQ(d.piste(1).bytNbrCases, 24);
  EXPECT_EQ(d.getMesureTexte(1, 1, 48, kFaux), "doux");
  ASSERT_EQ(d.getMesureAccordLast(1, 1), 1);
  EXPECT_EQ(d.getMesureAccordX(1, 1, 1), 48);
  EXPECT_EQ(d.getMesureAccordNom(1, 1, 1), "C");
  EXPECT_EQ(d.getMesureAccordCorde(1, 1, 1, 4), 2);
  EXPECT_EQ(d.getMesureAccordCorde(1, 1, 1, 6), 255);
  ASSERT_EQ(d.getMesureAccordLast(1, 2), 1);  // the chord named by a single 0 byte is not one
  EXPECT_EQ(d.getMesureAccordNom(1, 2, 1), "G");
  EXPECT_EQ(d.getMesureAccordCorde(1, 2, 1, 1), 3);
}

TEST(VtbRead, Version5WithAnUnknownTuningKeepsTheCurrentInstrument) {
  const VtbLecture r = lire(test::fichierVersion5({62, 57, 53, 48, 43, 36}));
  ASSERT_TRUE(r.ok()) << r.détail;
  EXPECT_EQ(r.setGuitare, 0);
  EXPECT_EQ(r.guitare, test::guitareInconnue());
  const tPiste& t = r.document->piste(1);
  EXPECT_EQ(t.bytNbrCordes, 6);
  EXPECT_EQ(t.bytCordes[6], 36);
  vérifierHistoire(*r.document);
}

TEST(VtbRead, Version4TakesTheFirstInstrument) {
  const VtbLecture r = lire(test::fichierVersion4());
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature& d = *r.document;
  vérifierHistoire(d);
  EXPECT_EQ(d.getMesureTexteDnLast(1, 1), 0);
  EXPECT_EQ(d.getMesureAccordLast(1, 1), 0);
  EXPECT_EQ(d.piste(1).strGuitareNom, "Standard guitar");
  EXPECT_EQ(d.piste(1).bytCordes[1], 64);
  EXPECT_EQ(r.guitare.nom, "Standard guitar");
  EXPECT_EQ(r.setGuitare, 0);  // no search was made

  const VtbLecture fr = lire(test::fichierVersion4(), test::contexte(test::guitareInconnue(), 0));
  ASSERT_TRUE(fr.ok());
  EXPECT_EQ(fr.document->piste(1).strGuitareNom, "Guitare standard");
}

TEST(VtbRead, EventStreamRefusesWhatItCannotPlace) {
  // A rhythm byte that selects no length, and a column shorter than the strings.
  for (const auto& charge : {std::vector<int>{0, 0, 0, 0, 0, 0, 7, 0}, std::vector<int>{0, 0, 0}}) {
    test::Octets o = test::têteAncienne(4, 1);
    o.raw("TRK").b(1).b(0).b(120);
    test::écrireÉvénement(o, 4, 6, {1, charge, "", "", "", {}});
    o.raw("END");
    const VtbLecture r = lire(o.v);
    EXPECT_EQ(r.messages, std::vector<int>{6005});
    EXPECT_FALSE(r.détail.empty());
  }
}

}  // namespace
}  // namespace vt
