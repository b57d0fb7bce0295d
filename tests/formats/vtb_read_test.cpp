// Reading: the messages of a refused head, the older versions upgraded, and
// damaged files: cut anywhere or scrambled, a file gives a document that holds
// together or a refusal, never a crash or a hang.
#include <gtest/gtest.h>

#include <random>

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
  ASSERT_EQ((std::vector<int>{d.tempo, d.TripleFeel(), d.getPisteLast(), d.getMesureLast()}),
            (std::vector<int>{100, kVrai, 2, 2}));

  // Key and left line of bar 1, its tempos, then width and right line of bar 2.
  EXPECT_EQ((std::vector<int>{d.getMesureTonalité(1), d.getMesureLoopGaucheType(1),
                              d.getMesureTempoLast(1), d.getMesureTempoX(1, 2),
                              d.getMesureTempoContenu(1, 2), d.getMesureLargeur(2),
                              d.getMesureLoopDroiteType(2), d.getMesureLoopDroiteData(2)}),
            (std::vector<int>{10, 2, 2, 96, 140, 144, 2, 2}));

  const tPiste& t1 = d.piste(1);
  EXPECT_EQ(std::pair(t1.strNom, t1.strGuitareNom),
            (std::pair<std::string, std::string>("Rythmique", "Drop D")));
  // Strings, low string, frets, bank, staff type, patch, pan, reverb,
  // tremolo, chorus, phaser, clef, balance, solo, mute.
  EXPECT_EQ((std::vector<long>{t1.bytNbrCordes, t1.bytCordes[6], t1.bytNbrCases, t1.lngBank,
                               t1.bytStaffType, t1.bytPatch, t1.bytPan, t1.bytReverb, t1.bytTremolo,
                               t1.bytChorus, t1.bytPhaser, t1.bytClef, t1.bytBalance,
                               t1.boolPlaySolo, t1.boolPlayMute}),
            (std::vector<long>{6, 38, 24, 0, 0, 29, 20, 30, 40, 50, 60, 1, 64, kVrai, kFaux}));
  EXPECT_EQ(
      (std::vector<std::string>{d.getMesureAccordNom(1, 1, 1), d.getMesureTexteUpContenu(1, 1, 1),
                                d.getMesureTexteDnContenu(2, 2, 1), r.guitare.nom}),
      (std::vector<std::string>{"D5", "riff", "fin", "Bass"}));
  EXPECT_EQ(
      (std::vector<int>{d.getMesureAccordCorde(1, 1, 1, 4), d.getMesureAccordCorde(1, 1, 1, 1)}),
      (std::vector<int>{7, 255}));
  ASSERT_EQ(d.getNoteLast(1, 1, 1), 2);
  EXPECT_EQ(*d.getNote(1, 1, 1, 2), (tNote{5, 48, 48, 1, 0, 6, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 6, 1), (tNote{0, 192, 0, 0, 0, 0, 63}));

  // Track 2; the last track with a known tuning gives the current instrument.
  const tPiste& t2 = d.piste(2);
  EXPECT_EQ((std::vector<int>{t2.bytNbrCordes, t2.bytCordes[5], t2.bytClef, t2.boolPlayMute,
                              d.getMesureTexteDnX(2, 2, 1), r.setGuitare}),
            (std::vector<int>{4, 0, 2, kVrai, 72, 3}));
  EXPECT_EQ(*d.getNote(2, 2, 1, 1), (tNote{2, 72, 0, 0, 0, 0, 111}));

  // Saved again, it is version 8 and reads back the same.
  const VtbEcriture e = io_enregistrer_vtb(d);
  ASSERT_TRUE(e.ok());
  const VtbLecture r8 = lire(e.octets);
  ASSERT_TRUE(r8.ok());
  EXPECT_EQ(std::pair(r8.version, *r8.document), std::pair(8, d));
}

TEST(VtbRead, Version6NotesGetFullNuance) {
  const VtbLecture r = lire(test::fichierVersion6());
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature& d = *r.document;
  ASSERT_EQ((std::vector<int>{d.tempo, d.TripleFeel(), d.getPisteLast(), d.getMesureLast()}),
            (std::vector<int>{90, kVrai, 1, 2}));
  const tPiste& t = d.piste(1);
  EXPECT_EQ((std::vector<std::string>{t.strNom, t.strGuitareNom, d.getMesureAccordNom(1, 1, 1),
                                      r.guitare.nom}),
            (std::vector<std::string>{"", "Drop D", "Dm", "Drop D guitar"}));
  // Frets, patch (not in the file: the patch of new tracks), pan, reverb, tremolo, chorus, phaser.
  EXPECT_EQ((std::vector<int>{t.bytNbrCases, t.bytPatch, t.bytPan, t.bytReverb, t.bytTremolo,
                              t.bytChorus, t.bytPhaser}),
            (std::vector<int>{22, 25, 30, 40, 5, 6, 7}));
  const tMesure& h = d.mesure(1);
  EXPECT_EQ(
      (std::vector<int>{h.bytTonalité, h.bytSignatureUp, h.bytSignatureDn, h.bytLoopGaucheType,
                        h.bytLoopGaucheData, h.bytLoopDroiteType, h.bytLoopDroiteData}),
      (std::vector<int>{9, 6, 8, 1, 0, 2, 4}));
  // Right line of bar 2, no tempos, a chord and an upper text, the instrument found.
  EXPECT_EQ((std::vector<int>{d.getMesureLoopDroiteType(2), d.getMesureTempoLast(1),
                              d.getMesureAccordCorde(1, 1, 1, 2), d.getMesureTexteUpX(1, 1, 1),
                              r.setGuitare}),
            (std::vector<int>{3, 0, 3, 36, 2}));
  ASSERT_EQ(d.getNoteLast(1, 1, 1), 2);
  EXPECT_EQ(*d.getNote(1, 1, 1, 1), (tNote{0, 36, 0, 0, 0, 0, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 1, 2), (tNote{2, 36, 36, 3, 0, 3, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 6, 1), (tNote{0, 72, 0, 0, 0, 6, 127}));
}

// What both event files hold, the texts and chords of version 5 aside.
void vérifierHistoire(const CVantoroTablature& d) {
  ASSERT_EQ(d.getMesureLast(), 3);
  EXPECT_EQ((std::vector<int>{d.getMesureLargeur(1), d.getMesureLargeur(2), d.getMesureLargeur(3),
                              d.tempo}),
            (std::vector<int>{144, 144, 144, 132}));
  // A column at tick 0: quarter notes in palm mute, then the effects of event 3.
  EXPECT_EQ(*d.getNote(1, 1, 1, 1), (tNote{0, 48, 0, effet::kSlideUp, 0, attaque::kPalmMute, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 2, 1), (tNote{1, 48, 0, effet::kBendUp, 0, attaque::kPalmMute, 127}));
  EXPECT_EQ(*d.getNote(1, 1, 6, 1),
            (tNote{3, 48, 0, effet::kBendDown, 0, attaque::kPalmMute, 127}));
  // A dotted, tied quarter whose attack 1 is dropped.
  EXPECT_EQ(*d.getNote(1, 1, 3, 1), (tNote{2, 72, 48, effet::kLiaison, 0, 0, 127}));
  EXPECT_EQ(d.getNoteLast(1, 1, 4), 0);
  // The rest filled bar 1; the double line at the start of bar 2 closes bar 1.
  // The repeat end came twice: inside bar 2 (3 plays), then at bar 3's start (2 plays).
  EXPECT_EQ((std::vector<int>{d.getMesureLoopDroiteType(1), d.getMesureLoopGaucheType(2),
                              d.getMesureLoopDroiteType(2), d.getMesureLoopDroiteData(2),
                              d.getMesureLoopDroiteType(3)}),
            (std::vector<int>{barre::kDouble, barre::kRepetition, barre::kRepetition, 2, 0}));
  EXPECT_EQ(*d.getNote(1, 2, 1, 1), (tNote{5, 96, 0, 0, 0, attaque::kTap, 127}));
  // The whole note at tick 96 is cut at the bar's end and opens bar 3.
  EXPECT_EQ(*d.getNote(1, 2, 6, 1), (tNote{0, 48, 96, 0, 0, 0, 127}));
  // Texts land behind the event they came with.
  EXPECT_EQ(d.getMesureTexte(1, 1, 48, kVrai), "Intro");
  EXPECT_EQ(d.getMesureTexte(1, 2, 0, kVrai), "B2");
  EXPECT_EQ(d.getMesureTexteUpLast(1, 1), 1);
  EXPECT_EQ(validateDocument(d), "");
}

TEST(VtbRead, Version5EventsTextsAndChordsAndAnUnknownTuningKeepsTheInstrument) {
  const VtbLecture r = lire(test::fichierVersion5({64, 59, 55, 50, 45, 38}));
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature& d = *r.document;
  vérifierHistoire(d);
  EXPECT_EQ(d.titre, "Titre \xE9t\xE9");
  // The tuning of the file found drop D, which gives the rest of the instrument.
  // The chord named by a single 0 byte is not one.
  EXPECT_EQ(
      (std::vector<int>{r.setGuitare, d.piste(1).bytCordes[6], d.piste(1).bytNbrCases,
                        d.getMesureAccordLast(1, 1), d.getMesureAccordX(1, 1, 1),
                        d.getMesureAccordCorde(1, 1, 1, 4), d.getMesureAccordCorde(1, 1, 1, 6),
                        d.getMesureAccordLast(1, 2), d.getMesureAccordCorde(1, 2, 1, 1)}),
      (std::vector<int>{2, 38, 24, 1, 48, 2, 255, 1, 3}));
  EXPECT_EQ(
      (std::vector<std::string>{d.piste(1).strGuitareNom, d.getMesureTexte(1, 1, 48, kFaux),
                                d.getMesureAccordNom(1, 1, 1), d.getMesureAccordNom(1, 2, 1)}),
      (std::vector<std::string>{"Drop D guitar", "doux", "C", "G"}));
  // With an unknown tuning the current instrument stays.
  const VtbLecture u = lire(test::fichierVersion5({62, 57, 53, 48, 43, 36}));
  ASSERT_TRUE(u.ok()) << u.détail;
  EXPECT_EQ(std::pair(u.setGuitare, u.guitare), std::pair(0, test::guitareInconnue()));
  EXPECT_EQ(std::pair(u.document->piste(1).bytNbrCordes, u.document->piste(1).bytCordes[6]),
            std::pair(byt{6}, byt{36}));
  vérifierHistoire(*u.document);
}

TEST(VtbRead, Version4TakesTheFirstInstrument) {
  const VtbLecture r = lire(test::fichierVersion4());
  ASSERT_TRUE(r.ok()) << r.détail;
  const CVantoroTablature& d = *r.document;
  vérifierHistoire(d);
  // No search was made.
  EXPECT_EQ((std::vector<int>{d.getMesureTexteDnLast(1, 1), d.getMesureAccordLast(1, 1),
                              d.piste(1).bytCordes[1], r.setGuitare}),
            (std::vector<int>{0, 0, 64, 0}));
  EXPECT_EQ(std::pair(d.piste(1).strGuitareNom, r.guitare.nom),
            (std::pair<std::string, std::string>("Standard guitar", "Standard guitar")));

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

// A read either refuses with "Bad file size!" alone, or gives a document that
// keeps the rules and that saves and reads back as itself.
void lectureSaine(const std::vector<std::uint8_t>& f, int* chargés = nullptr) {
  const VtbLecture r = io_ouvrir_vtb(f, test::contexte());
  if (chargés != nullptr && r.ok()) ++*chargés;
  if (!r.ok()) {
    ASSERT_FALSE(r.messages.empty());
    EXPECT_EQ(r.guitare, test::guitareInconnue());
    EXPECT_EQ(r.setGuitare, 0);
    return;
  }
  EXPECT_TRUE(r.messages.empty());
  ASSERT_EQ(validateDocument(*r.document), "");
  const VtbEcriture e = io_enregistrer_vtb(*r.document);
  ASSERT_TRUE(e.ok()) << e.détail;
  const VtbLecture encore = io_ouvrir_vtb(e.octets, test::contexte());
  ASSERT_TRUE(encore.ok()) << encore.détail;
  EXPECT_EQ(*encore.document, *r.document);
}

std::vector<std::vector<std::uint8_t>> fichiers() {
  const VtbEcriture riche = io_enregistrer_vtb(test::documentRiche());
  return {riche.octets, test::fichierVersion7(), test::fichierVersion6(), test::fichierVersion5(),
          test::fichierVersion4()};
}

TEST(VtbDamage, EveryTruncationIsRefusedWholeSoNoHalfPieceIsEverLoaded) {
  for (const auto& f : fichiers()) {
    SCOPED_TRACE(int{f[3]});
    // The end marker is not read: the body is whole three bytes before the end.
    const std::size_t entier = f.size() - 3;
    for (std::size_t n = 0; n < f.size(); ++n) {
      const std::vector<std::uint8_t> coupé(f.begin(), f.begin() + static_cast<std::ptrdiff_t>(n));
      const VtbLecture r = io_ouvrir_vtb(coupé, test::contexte());
      if (f[3] >= 6 && n >= entier) {
        EXPECT_TRUE(r.ok()) << n;
        continue;
      }
      if (f[3] < 6 && n > 4) {
        // The event stream runs to three bytes before the end of what is
        // there: a cut between two records leaves a shorter, sound piece.
        ASSERT_NO_FATAL_FAILURE(lectureSaine(coupé)) << "cut at " << n;
        continue;
      }
      const std::vector<int> attendu =
          n < 3 ? std::vector<int>{6005, 6004} : std::vector<int>{6005};
      EXPECT_EQ(r.messages, attendu) << "cut at " << n;
      EXPECT_FALSE(r.ok());
      ASSERT_NO_FATAL_FAILURE(lectureSaine(coupé));
    }
  }
}

TEST(VtbDamage, RandomCorruptionNeverBreaksTheReader) {
  std::mt19937 g(20240601);
  for (const auto& f : fichiers()) {
    SCOPED_TRACE(int{f[3]});
    int chargés = 0;
    constexpr int kEssais = 400;
    for (int essai = 0; essai < kEssais; ++essai) {
      std::vector<std::uint8_t> abîmé = f;
      const int coups = std::uniform_int_distribution<int>(1, 6)(g);
      for (int k = 0; k < coups; ++k) {
        const std::size_t i = std::uniform_int_distribution<std::size_t>(4, abîmé.size() - 1)(g);
        abîmé[i] = static_cast<std::uint8_t>(g());
      }
      if (essai % 5 == 0)
        abîmé.resize(std::uniform_int_distribution<std::size_t>(4, abîmé.size())(g));
      ASSERT_NO_FATAL_FAILURE(lectureSaine(abîmé, &chargés)) << "trial " << essai;
    }
    // Both ways out are taken: the damage reaches past the checks that refuse.
    EXPECT_GT(chargés, 0);
    EXPECT_LT(chargés, kEssais);
  }
}

TEST(VtbDamage, CountsBeyondTheBytesOrStringCountsOutsideOneToSevenAreRefused) {
  // 255 tracks of 32767 bars announced by a file of a few bytes.
  test::Octets o;
  o.raw("VTB").b(8).b(255).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(32767).raw("TRK0");
  o.v.resize(o.v.size() + 4096, 0);
  EXPECT_EQ(io_ouvrir_vtb(o.v, test::contexte()).messages, std::vector<int>{6005});
  // A bar count past the document's limit, and none at all.
  for (int mesures : {0, 32768, 65535}) {
    test::Octets z;
    z.raw("VTB").b(8).b(1).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(mesures).raw("TRK0");
    z.v.resize(z.v.size() + 400000, 0);
    EXPECT_EQ(io_ouvrir_vtb(z.v, test::contexte()).messages, std::vector<int>{6005}) << mesures;
  }
  // String counts outside one to seven.
  for (int cordes : {0, 8, 255}) {
    o = test::têteAncienne(6, 1);
    o.raw("TRK").b(1).str("x").b(cordes);
    o.v.resize(o.v.size() + 300, 40);
    EXPECT_EQ(io_ouvrir_vtb(o.v, test::contexte()).messages, std::vector<int>{6005}) << cordes;
  }
}

TEST(VtbDamage, BodiesThatBreakTheRulesAreRefusedBytesAfterTheEndIgnored) {
  // Notes out of order on a string, and a zero denominator.
  test::Octets o;
  o.raw("VTB").b(8).b(1).bs({0, 0, 0, 0, 0}).b(120).b(0).b(0).be16(1).raw("TRK0");
  o.bs({8, 4, 4, 0, 0, 0, 0, 0});
  o.raw("TRK").b(1).str("").str("").b(1).b(40).b(0).b(24).b(0).be32(0).b(27).b(127).bs(
      {64, 0, 0, 0, 0, 1, 0, 0, 0});
  o.b(0).b(0).b(0).b(2).bs({1, 0, 0, 127, 0, 48, 12}).bs({2, 0, 0, 127, 0, 0, 12}).raw("END");
  const VtbLecture r = io_ouvrir_vtb(o.v, test::contexte());
  EXPECT_EQ(r.messages, std::vector<int>{6005});
  EXPECT_NE(r.détail.find("note list"), std::string::npos) << r.détail;
  ASSERT_EQ(o.v[21], 4);  // the bar's denominator
  o.v[21] = 0;
  EXPECT_EQ(io_ouvrir_vtb(o.v, test::contexte()).messages, std::vector<int>{6005});
  // A file written over a longer one keeps the old tail behind END: ignored.
  // A file written over a longer one keeps the old tail behind "END".
  for (auto f : fichiers()) {
    if (f[3] < 6) continue;
    f.insert(f.end(), {'g', 'a', 'r', 'b', 'a', 'g', 'e'});
    EXPECT_TRUE(io_ouvrir_vtb(f, test::contexte()).ok());
  }
}

}  // namespace
}  // namespace vt
