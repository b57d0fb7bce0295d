// MIDI to tablature: where notes land, what the meta-events become, and when
// the conversion refuses.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "formats/midi_import.h"
#include "interchange_test_util.h"
#include "midi_test_files.h"

namespace vt {
namespace {

using test::Octets;
using test::PisteMidi;
using test::smf;

InterchangeResult convertir(const Octets& octets, std::vector<int> sources, CVantoroTablature& doc,
                            MidiImportOptions o = {}) {
  MidiFichier f;
  InterchangeResult r = lireMidi(octets, f);
  if (!r.ok()) return r;
  o.sources = std::move(sources);
  r = convertirMidi(f, o, doc);
  if (r.ok()) {
    EXPECT_EQ(validateDocument(doc), "");
  }
  return r;
}

const tNote* note(const CVantoroTablature& doc, int p, int m, int c, int n = 1) {
  return doc.getNote(p, m, c, n);
}

TEST(MidiImportTime, XRoundedHalfToEvenDurationsTruncated) {
  CVantoroTablature doc;
  // Division 96: a file tick is half a document tick.
  const Octets f = smf(
      1, 96, {PisteMidi().on(1, 64).on(3, 59).off(4, 64).off(6, 59).on(7, 55).off(12, 55).fin(12)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  ASSERT_NE(note(doc, 1, 1, 1), nullptr);
  EXPECT_EQ(note(doc, 1, 1, 1)->intX, 0);      // 0.5
  EXPECT_EQ(note(doc, 1, 1, 1)->bytDurée, 1);  // 1.5
  EXPECT_EQ(note(doc, 1, 1, 2)->intX, 2);      // 1.5
  EXPECT_EQ(note(doc, 1, 1, 3)->intX, 4);      // 3.5
  EXPECT_EQ(note(doc, 1, 1, 3)->bytDurée, 2);  // 2.5
}

TEST(MidiImportTime, ReleasesAndNotesNeverReleased) {
  CVantoroTablature doc;
  const Octets f = smf(1, 96,
                       {PisteMidi()
                            .on(0, 64, 90)
                            .on(48, 64, 0)   // Note On of velocity 0
                            .on(96, 59, 70)  // never released
                            .fin(384)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  EXPECT_EQ(note(doc, 1, 1, 1)->bytDurée, 24);
  EXPECT_EQ(note(doc, 1, 1, 1)->bytVolume, 90);
  EXPECT_EQ(note(doc, 1, 1, 2)->intX, 48);
  EXPECT_EQ(note(doc, 1, 1, 2)->bytDurée, 144);  // to the track's end
  EXPECT_EQ(note(doc, 1, 1, 2)->bytVolume, 70);
}

TEST(MidiImportStrings, ChordsTakeSuccessiveStringsFromTheTop) {
  CVantoroTablature doc;
  const Octets f = smf(1, 96,
                       {PisteMidi()
                            .on(0, 48)
                            .on(0, 52)
                            .on(0, 55)  // C major, low
                            .off(96, 48)
                            .off(96, 52)
                            .off(96, 55)
                            .on(96, 64)
                            .on(96, 64, 100, 1)
                            .on(96, 64, 100, 2)
                            .fin(192)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  // C3 E3 G3 on strings 5, 4, 3; then the same E4 three times: the next string down each time.
  EXPECT_EQ(test::notes(doc), (std::vector<std::string>{"1:1:48:0", "1:2:48:5", "1:3:0:0",
                                                        "1:3:48:9", "1:4:0:2", "1:5:0:3"}));
}

TEST(MidiImportStrings, DroppedBelowTheStringsKeptAboveTheFrets) {
  CVantoroTablature doc;
  const Octets f = smf(1, 96,
                       {PisteMidi()
                            .on(0, 39)   // below the low E: dropped
                            .on(0, 100)  // string 1, fret 36
                            .off(48, 39)
                            .off(48, 100)
                            .on(96, 40)
                            .on(96, 40, 100, 1)  // the second has no string left
                            .fin(192)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  EXPECT_EQ(test::notes(doc), (std::vector<std::string>{"1:1:0:36", "1:6:48:0"}));
}

TEST(MidiImportStrings, TransposeHeldToTheMidiRange) {
  MidiImportOptions o;
  o.transposition = 100;
  CVantoroTablature haut;
  const Octets f = smf(1, 96, {PisteMidi().on(0, 60).off(96, 60).fin(96)});
  ASSERT_TRUE(convertir(f, {0}, haut, o).ok());
  EXPECT_EQ(note(haut, 1, 1, 1)->bytCase, 127 - 64);
  o.transposition = -100;
  CVantoroTablature bas;
  ASSERT_TRUE(convertir(f, {0}, bas, o).ok());  // note 0: below every string
  EXPECT_TRUE(test::notes(bas).empty());
}

TEST(MidiImportMeta, SignaturesKeysAndBarsBeyondTheEnd) {
  CVantoroTablature doc;
  PisteMidi p;
  p.meta(0, 0x58, std::string("\x03\x02\x18\x08", 4))
      .meta(0, 0x59, std::string("\xFD\x01", 2))               // three flats, minor
      .meta(96 * 6, 0x58, std::string("\x02\x02\x18\x08", 4))  // 2/4 from bar 3
      .on(96 * 6, 64)
      .off(96 * 7, 64)
      .on(96 * 4 * 999, 64)
      .off(96 * 4 * 999 + 96, 64);
  ASSERT_TRUE(convertir(smf(1, 96, {p.fin(96 * 4 * 1000)}), {0}, doc).ok());
  EXPECT_EQ(doc.getMesureSignatureUp(1), 3);
  EXPECT_EQ(doc.getMesureSignatureUp(2), 3);
  EXPECT_EQ(doc.getMesureSignatureUp(3), 2);
  EXPECT_EQ(doc.getMesureSignatureUp(4), 2);
  EXPECT_EQ(doc.getMesureTonalité(1), 8 - 3 + 64);
  EXPECT_EQ(doc.getMesureTonalité(doc.getMesureLast()), 8 - 3 + 64);
  EXPECT_EQ(doc.getNoteLast(1, 3, 1), 1);
  // 96 * 4 * 999 file ticks = 191808 document ticks: 288 in the 3/4 and
  // 2/4 bars before, then 96-tick bars.
  const int m = 3 + (191808 - 288) / 96;
  EXPECT_EQ(doc.getMesureLast(), m);
  EXPECT_EQ(doc.getNoteLast(1, m, 1), 1);
}

TEST(MidiImportMeta, PositionsPastTheLastPossibleBarAreDropped) {
  CVantoroTablature doc;
  const Octets f =
      smf(1, 96, {PisteMidi().on(0, 64).off(10, 64).on(0x0FFFFFF0, 64).fin(0x0FFFFFFF)});
  ASSERT_TRUE(convertir(f, {0}, doc).ok());
  EXPECT_LE(doc.getMesureLast(), kMaxMesures);
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 1);
}

TEST(MidiImportMeta, TheFirstChunksTemposAreReadUnchosenSoThePieceKeepsItsSpeed) {
  const Octets f = smf(1, 96,
                       {PisteMidi().meta(0, 0x51, std::string("\x07\xA1\x20", 3)).fin(0),
                        PisteMidi().on(0, 64).off(96, 64).fin(96),
                        PisteMidi()
                            .on(0, 59)
                            .off(96, 59)
                            .meta(192, 0x51, std::string("\x06\x1A\x80", 3))  // 150
                            .fin(192)});
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(f, {1, 2}, doc).ok());
  EXPECT_EQ(doc.tempo, 120);
  EXPECT_EQ(doc.getMesureTempoContenu(1, doc.searchMesureTempo(1, 96)), 150);
  EXPECT_EQ(doc.getMesureTempoContenu(1, doc.searchMesureTempo(1, 0)), 120);

  CVantoroTablature seul;
  ASSERT_TRUE(convertir(f, {1}, seul).ok());  // the third track is not read
  EXPECT_EQ(seul.searchMesureTempo(1, 96), 0);

  MidiImportOptions sans;
  sans.tempos = false;
  CVantoroTablature aucun;
  ASSERT_TRUE(convertir(f, {1, 2}, aucun, sans).ok());
  EXPECT_EQ(aucun.getMesureTempoLast(1), 0);
}

TEST(MidiImportMeta, HeadTextsAndATrackNameThatNamesItsTrackInsteadOfStandingAsAText) {
  const Octets f =
      smf(1, 96,
          {PisteMidi()
               .meta(0, 0x03, "Song")
               .meta(0, 0x02, "(c) me")
               .meta(0, 0x01, "Slowly")
               .meta(0, 0x01, "second")
               .meta(0, 0x04, "Piano")
               .meta(192, 0x06, "Chorus")
               .fin(192),
           PisteMidi().meta(0, 0x03, "Lead").on(0, 64).meta(96, 0x05, "la").off(96, 64).fin(96)});
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(f, {1}, doc).ok());
  EXPECT_EQ(doc.titre, "Song");
  EXPECT_EQ(doc.Copy, "(c) me");
  EXPECT_EQ(doc.Comments, "Slowly");
  EXPECT_EQ(doc.getPisteNom(1), "Lead");
  EXPECT_EQ(doc.getMesureTexte(1, 1, 0, kVrai), "second");
  EXPECT_EQ(doc.getMesureTexte(1, 1, 96, kVrai), "Chorus");
  EXPECT_EQ(doc.getMesureTexte(1, 1, 48, kVrai), "la");
  EXPECT_EQ(doc.getMesureTexteUpLast(1, 1), 3);  // the instrument name is not a text
}

TEST(MidiImportRmtf, AttributesBecomeEffectsAndAttacks) {
  PisteMidi p;
  for (int a = 1; a <= 15; ++a) {
    p.meta(a * 12, 0x11, std::string{'\0', static_cast<char>(a)});
    p.on(a * 12, 64).off(a * 12 + 6, 64);
  }
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(smf(1, 96, {p.fin(200)}), {0}, doc).ok());
  ASSERT_EQ(doc.getNoteLast(1, 1, 1), 15);
  const int effets[] = {3, 4, 1, 2, 0, 0, 0, 0, 9, 24, 25, 20, 0, 0, 0};
  const int attaques[] = {0, 0, 0, 0, 10, 0, 1, 2, 0, 0, 0, 0, 6, 9, 3};
  for (int a = 1; a <= 15; ++a) {
    EXPECT_EQ(doc.getNoteEffet(1, 1, 1, a), effets[a - 1]) << a;
    EXPECT_EQ(doc.getNoteAttaque(1, 1, 1, a), attaques[a - 1]) << a;
  }
  EXPECT_EQ(doc.getMesureTexte(1, 1, 36, kVrai), "Roll");
}

TEST(MidiImportRmtf, TrackHeaderRestoresTheInstrumentAndHintsTheStrings) {
  PisteMidi p;
  p.meta(0, 0x10, std::string("\x01\x02\x40\x3B\x37\x32\x2D\x28\x23", 9))  // seven strings, capo 2
      .meta(0, 0x12,
            std::string("\x00\x01\x02\x02\x00\xFF\xFF"
                        "Am",
                        9))
      .meta(0, 0x11, std::string("\x06", 1))
      .on(0, 38)  // string 7, fret 3
      .meta(0, 0x11, std::string("\x08", 1))
      .on(0, 64)  // no string 9: placed by the rule
      .meta(0, 0x11, std::string("\x00", 1))
      .on(0, 50)  // below string 1: placed by the rule
      .off(96, 38)
      .off(96, 64)
      .off(96, 50);
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(smf(1, 96, {p.fin(96)}), {0}, doc).ok());
  EXPECT_EQ(doc.getGuitareNbrCordes(1), 7);
  EXPECT_EQ(doc.getGuitareCapodastre(1), 2);
  EXPECT_EQ(doc.getGuitareCorde(1, 7), 35);
  EXPECT_EQ(note(doc, 1, 1, 7)->bytCase, 3);
  EXPECT_EQ(note(doc, 1, 1, 1)->bytCase, 0);
  EXPECT_EQ(note(doc, 1, 1, 4)->bytCase, 0);
  ASSERT_EQ(doc.getMesureAccordLast(1, 1), 1);
  EXPECT_EQ(doc.getMesureAccordNom(1, 1, 1), "Am");
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, 1, 3), 2);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, 1, 7), 255);
}

TEST(MidiImportChoice, FormatZeroChannelsFillTheirTargetsWithTheirFirstProgramSoTheSoundsComeBack) {
  const Octets f = smf(0, 96,
                       {PisteMidi()
                            .evt(0, {0xC1, 33})
                            .on(0, 64)
                            .on(0, 40, 80, 1)
                            .off(96, 64)
                            .off(96, 40, 1)
                            .fin(96)});
  CVantoroTablature doc;
  ASSERT_TRUE(convertir(f, {2, 1}, doc).ok());
  ASSERT_EQ(doc.getPisteLast(), 2);
  EXPECT_EQ(note(doc, 1, 1, 6)->bytCase, 0);  // channel 2 into track 1
  EXPECT_EQ(note(doc, 1, 1, 6)->bytVolume, 80);
  EXPECT_EQ(doc.getMIDIPatch(1), 33);
  EXPECT_EQ(note(doc, 2, 1, 1)->bytCase, 0);
  EXPECT_EQ(doc.getMIDIPatch(2), kPatchParDéfaut);
}

TEST(MidiImportChoice, Refusals) {
  const Octets f = smf(
      1, 96,
      {PisteMidi().meta(0, 0x03, "Conductor").fin(0), PisteMidi().on(0, 64).off(96, 64).fin(96)});
  CVantoroTablature doc;
  EXPECT_EQ(convertir(f, {}, doc).stringId, kMsgMidiAucuneCible);
  EXPECT_EQ(convertir(f, {7}, doc).stringId, kMsgMidiAucuneCible);
  EXPECT_EQ(convertir(f, {1, 0}, doc).stringId, kMsgMidiPisteSansNote);
  EXPECT_EQ(convertir(smf(0, 96, {PisteMidi().on(0, 64).fin(9)}), {3}, doc).stringId,
            kMsgMidiPisteSansNote);
  const InterchangeResult r =
      convertir(smf(1, 96, {PisteMidi().on(0, 64).evt(5, {0xF9}).fin(9)}), {0}, doc);
  EXPECT_EQ(r.stringId, kMsgMidiCommandeInconnue);
  EXPECT_EQ(r.détail, "F9");
}

TEST(MidiImportChoice, TheSourcesHoldingNotesAreChosenBeforehandAtMostSevenSoOkConvertsAtOnce) {
  std::vector<MidiSource> s(10);
  for (int i = 0; i < 10; ++i) {
    s[static_cast<std::size_t>(i)].numéro = i;
    s[static_cast<std::size_t>(i)].notes = i == 0 || i == 3 ? 0 : 5;
  }
  EXPECT_EQ(sourcesParDéfaut(s), (std::vector<int>{1, 2, 4, 5, 6, 7, 8}));
}

TEST(MidiImportSteps, ReportedInOrderWithProgress) {
  MidiFichier f;
  ASSERT_TRUE(lireMidi(smf(1, 96, {PisteMidi().on(0, 64).off(96, 64).fin(96)}), f).ok());
  std::vector<int> étapes;
  std::size_t dernier = 0;
  MidiImportProgress prog{[&](int id) { étapes.push_back(id); },
                          [&](std::size_t pos, std::size_t taille) {
                            EXPECT_LE(pos, taille);
                            dernier = pos;
                          }};
  MidiImportOptions o;
  o.sources = {0};
  CVantoroTablature doc;
  ASSERT_TRUE(convertirMidi(f, o, doc, prog).ok());
  EXPECT_EQ(étapes, (std::vector<int>{1012, 1008, 1009, 1010}));
  EXPECT_EQ(dernier, f.pistes[0].taille);
}

}  // namespace
}  // namespace vt
