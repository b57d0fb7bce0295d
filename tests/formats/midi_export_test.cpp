// The exported MIDI file, byte for byte where the layout is fixed.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "formats/file_io.h"
#include "formats/midi_export.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::octets;
using test::poser;
using Octets = std::vector<byt>;

// The data of track chunk `n` (0 the conductor).
Octets chunk(const Octets& f, int n) {
  std::size_t pos = 14;
  for (int i = 0;; ++i) {
    if (pos + 8 > f.size()) {
      ADD_FAILURE() << "no chunk " << n;
      return {};
    }
    const std::size_t len = (std::size_t{f[pos + 4]} << 24) | (std::size_t{f[pos + 5]} << 16) |
                            (std::size_t{f[pos + 6]} << 8) | f[pos + 7];
    if (i == n)
      return Octets(f.begin() + static_cast<long>(pos) + 8,
                    f.begin() + static_cast<long>(pos + 8 + len));
    pos += 8 + len;
  }
}

bool contient(const Octets& o, const Octets& motif) {
  return std::search(o.begin(), o.end(), motif.begin(), motif.end()) != o.end();
}

Octets operator+(Octets a, const Octets& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// Program change, name, bend range, bank and controllers of a default track 1.
Octets prologue(int portée = 12) {
  return octets({0x00, 0xC0, 27,   0x00, 0xFF, 0x03, 7,    'T',  'r',  'a',  'c',  'k',
                 ' ',  '1',  0x00, 0xB0, 0x65, 0x00, 0x00, 0x64, 0x00, 0x00, 0x06, portée,
                 0x00, 0x26, 0x00, 0x00, 0xB0, 0x20, 0x00, 0x00, 0xB0, 0x00, 0x00, 0x00,
                 0xB0, 0x5F, 0,    0x00, 0xB0, 0x5D, 0,    0x00, 0xB0, 0x5C, 0,    0x00,
                 0xB0, 0x5B, 0,    0x00, 0xB0, 0x08, 64,   0x00, 0xB0, 0x0A, 64});
}

const Octets kFin = octets({0x00, 0xFF, 0x2F, 0x00});

TEST(MidiExportLayout, EmptyDocumentWholeFile) {
  CVantoroTablature doc = test::document(1);
  const Octets f = io_enregistrer_mid(doc);
  const Octets conducteur =
      octets({0x00, 0xFF, 0x51, 0x03, 0x07, 0xA1, 0x20, 0x00, 0xFF, 0x58, 0x04,
              4,    2,    0x18, 0x08, 0x00, 0xFF, 0x59, 0x02, 0x00, 0x00}) +
      kFin;
  const Octets piste = prologue() + kFin;
  Octets attendu = octets({'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 2, 0, 0x78});
  attendu = attendu + octets({'M', 'T', 'r', 'k', 0, 0, 0, static_cast<int>(conducteur.size())}) +
            conducteur;
  attendu = attendu + octets({'M', 'T', 'r', 'k', 0, 0, 0, static_cast<int>(piste.size())}) + piste;
  EXPECT_EQ(test::hex(f), test::hex(attendu));
}

TEST(MidiExportLayout, DeltasAreTicksTimesTwoAndAHalfRoundedHalfToEven) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 1, 1, 2);  // on at 1 (2.5 -> 2), off at 3 (5)
  poser(doc, 1, 1, 1, 4, 1, 1);  // on at 4 (2.5 -> 2), off at 5 (2.5 -> 2)
  poser(doc, 1, 1, 1, 8, 1, 1);  // on at 8 (7.5 -> 8), off at 9 (2)
  const Octets attendu = prologue() +
                         octets({2, 0x90, 65, 127,  5, 0x80, 65, 0x7F, 2, 0x90, 65, 127,
                                 2, 0x80, 65, 0x7F, 8, 0x90, 65, 127,  2, 0x80, 65, 0x7F}) +
                         kFin;
  EXPECT_EQ(test::hex(chunk(io_enregistrer_mid(doc), 1)), test::hex(attendu));
}

TEST(MidiExportLayout, TrackSettingsBendRangeAndABankInSevenBitBytesSinceADataByteStopsAt127) {
  CVantoroTablature doc = test::document(1);
  doc.setPisteNom(1, "Lead");
  doc.setMIDIPatch(1, 30);
  doc.setMIDIBank(1, 300);
  doc.setMIDIPhaser(1, 1);
  doc.setMIDIChorus(1, 2);
  doc.setMIDITremolo(1, 3);
  doc.setMIDIReverb(1, 4);
  doc.setMIDIBalance(1, 5);
  doc.setMIDIPan(1, 6);
  MidiExportOptions o;
  o.effets.setMIDIPitchBendRange = 7;
  const Octets attendu =
      octets({0x00, 0xC0, 30,   0x00,       0xFF, 0x03, 4,    'L',      'e',  'a',  'd',  0x00,
              0xB0, 0x65, 0x00, 0x00,       0x64, 0x00, 0x00, 0x06,     7,    0x00, 0x26, 0x00,
              0x00, 0xB0, 0x20, 300 & 0x7F, 0x00, 0xB0, 0x00, 300 >> 7, 0x00, 0xB0, 0x5F, 1,
              0x00, 0xB0, 0x5D, 2,          0x00, 0xB0, 0x5C, 3,        0x00, 0xB0, 0x5B, 4,
              0x00, 0xB0, 0x08, 5,          0x00, 0xB0, 0x0A, 6}) +
      kFin;
  EXPECT_EQ(test::hex(chunk(io_enregistrer_mid(doc, o), 1)), test::hex(attendu));

  o.effets.setMIDIEffet1Ton = -1;  // whole-tone bends: a range of 2
  EXPECT_TRUE(contient(chunk(io_enregistrer_mid(doc, o), 1), octets({0x06, 2, 0x00, 0x26})));
}

TEST(MidiExportLayout, ChannelsDrumTrackAndTracksPastSixteen) {
  CVantoroTablature doc = test::document(1, 17);
  doc.setStaffType(2, kStaffBatterie);
  const Octets f = io_enregistrer_mid(doc);
  EXPECT_EQ(f[11], 18);  // track count: conductor + 17
  EXPECT_EQ(chunk(f, 1)[1], 0xC0);
  EXPECT_EQ(chunk(f, 2)[1], 0xC9);
  EXPECT_EQ(chunk(f, 3)[1], 0xC2);
  EXPECT_EQ(chunk(f, 17)[1], 0xC0);  // a channel is four bits: track 17 wraps to 0
}

TEST(MidiExportRmtf, TrackHeaderAndNoteEventsBeforeTheirNoteOn) {
  CVantoroTablature doc = test::document(1);
  doc.setGuitareCapodastre(1, 2);
  poser(doc, 1, 1, 2, 0, 3, 48, effet::kHammerOn);
  poser(doc, 1, 1, 3, 48, 2, 48);
  poser(doc, 1, 1, 1, 96, 3, 24, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 1, 4, 144, 5, 24, 0, attaque::kHarmoniqueNaturelle);
  MidiExportOptions o;
  o.rmtf = true;
  const Octets p = chunk(io_enregistrer_mid(doc, o), 1);
  EXPECT_TRUE(
      contient(p, prologue() + octets({0x00, 0xFF, 0x10, 8,    1, 2,    64,   59,   55, 50, 45, 40,
                                       0x00, 0xFF, 0x11, 0x02, 1, 0x01, 0x00, 0x90, 62, 127})));
  // A plain note: one data byte, after the Note Off that shares its time.
  EXPECT_TRUE(
      contient(p, octets({120, 0x80, 62, 0x7F, 0x00, 0xFF, 0x11, 0x01, 2, 0x00, 0x90, 57, 127})));
  // Artificial harmonic writes 07, natural 08.
  EXPECT_TRUE(contient(p, octets({0xFF, 0x11, 0x02, 0, 0x07, 0x00, 0x90, 64 + 15, 127})));
  EXPECT_TRUE(contient(p, octets({0xFF, 0x11, 0x02, 3, 0x08, 0x00, 0x90, 50 + 24, 127})));

  const Octets sans = chunk(io_enregistrer_mid(doc), 1);
  EXPECT_FALSE(contient(sans, octets({0xFF, 0x10})));
  EXPECT_FALSE(contient(sans, octets({0xFF, 0x11})));
}

TEST(MidiExportRmtf, AttributeTableEffectFirstThenAttack) {
  tNote n;
  const std::pair<int, int> effets[] = {{20, 0x0C}, {3, 0x01},  {4, 0x02}, {1, 0x03}, {2, 0x04},
                                        {24, 0x0A}, {25, 0x0B}, {9, 0x09}, {21, -1},  {27, -1}};
  for (const auto& [e, code] : effets) {
    n.bytEffet = static_cast<byt>(e);
    EXPECT_EQ(codeAttributRmtf(n), code) << "effect " << e;
  }
  n.bytEffet = 0;
  const std::pair<int, int> attaques[] = {{3, 0x0F}, {2, 0x07}, {1, 0x08}, {6, 0x0D},
                                          {9, 0x0E}, {4, -1},   {10, -1}};
  for (const auto& [a, code] : attaques) {
    n.bytAttaque = static_cast<byt>(a);
    EXPECT_EQ(codeAttributRmtf(n), code) << "attack " << a;
  }
  n.bytEffet = effet::kVibrato;
  n.bytAttaque = attaque::kTap;
  EXPECT_EQ(codeAttributRmtf(n), 0x09);
}

TEST(MidiExportRmtf, ChordDiagramWithAndWithoutTheOption) {
  CVantoroTablature doc = test::document(1);
  const int n = doc.addandplaceMesureAccord(1, 1, 24);
  OneBased<byt> frettes(6);
  const int f[] = {0, 1, 2, 2, 0, 255};
  for (int c = 1; c <= 6; ++c)
    frettes[c] = static_cast<byt>(f[c - 1]);
  doc.setMesureAccord(1, 1, n, "Am", frettes);
  const Octets attendu = octets({60, 0xFF, 0x12, 8, 0, 1, 2, 2, 0, 255, 'A', 'm'});
  EXPECT_TRUE(contient(chunk(io_enregistrer_mid(doc), 1), attendu));
  MidiExportOptions o;
  o.rmtf = true;
  EXPECT_TRUE(contient(chunk(io_enregistrer_mid(doc, o), 1), attendu));
}

TEST(MidiExportConductor, HeadTextsSignaturesKeysTextsAndTempoOncePerTrack) {
  CVantoroTablature doc = test::document(2, 2);
  doc.titre = "T";
  doc.Copy = "C";
  doc.Comments = "K";
  doc.tempo = 100;
  doc.setMesureSignature(2, 3, 4);
  doc.setMesureTonalité(2, 73);  // one sharp, minor
  doc.setMesureTexte(1, 1, 100, "a", kVrai);
  doc.setMesureTexte(1, 1, 100, "b", kFaux);
  doc.setMesureTexte(2, 1, 10, "c", kVrai);  // earlier than the text before it: delta 0
  doc.setMesureTempo(2, 48, 90);
  const Octets attendu =
      octets({0x00, 0xFF, 0x03, 1,    'T',  0x00, 0xFF, 0x02, 1,    'C',  0x00, 0xFF, 0x01, 1,
              'K',  0x00, 0xFF, 0x51, 0x03, 0x09, 0x27, 0xC0, 0x00, 0xFF, 0x58, 0x04, 4,    2,
              0x18, 0x08, 0x00, 0xFF, 0x59, 0x02, 0x00, 0x00, 0x81, 0x7A, 0xFF, 0x06, 1,    'a',
              0x00, 0xFF, 0x06, 1,    'b',  0x00, 0xFF, 0x06, 1,    'c',  0x81, 0x66, 0xFF, 0x58,
              0x04, 3,    2,    0x18, 0x08, 0x00, 0xFF, 0x59, 0x02, 1,    1,    0x78, 0xFF, 0x51,
              0x03, 0x0A, 0x2C, 0x2A, 0x00, 0xFF, 0x51, 0x03, 0x0A, 0x2C, 0x2A}) +
      kFin;
  EXPECT_EQ(test::hex(chunk(io_enregistrer_mid(doc), 0)), test::hex(attendu));
}

TEST(MidiExportConductor, AJumpBackWritesTheSignatureInForceAgainSoTheSecondPassKeepsItsMetre) {
  // 4/4 | :4/4 | 3/4 | 3/4: | — the second pass must return to 4/4 at bar 2.
  CVantoroTablature doc = test::document(4);
  doc.setMesureSignature(3, 3, 4);
  doc.setMesureSignature(4, 3, 4);
  doc.setMesureLoopGaucheType(2, barre::kRepetition);
  doc.setMesureLoopDroiteType(4, barre::kRepetition);
  doc.setMesureLoopDroiteData(4, 1);
  const Octets c = chunk(io_enregistrer_mid(doc), 0);
  std::vector<int> numérateurs;
  for (std::size_t i = 0; i + 3 < c.size(); ++i)
    if (c[i] == 0xFF && c[i + 1] == 0x58) numérateurs.push_back(c[i + 3]);
  EXPECT_EQ(numérateurs, (std::vector<int>{4, 3, 4, 3}));
}

TEST(MidiExportRepeats, ARepeatEndingTheLastBarAppendsABar) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 192);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(1, barre::kRepetition);
  doc.setMesureLoopDroiteData(1, 1);
  const Octets p = chunk(io_enregistrer_mid(doc), 1);
  EXPECT_EQ(doc.getMesureLast(), 2);
  // The second pass starts right where the first one ends.
  EXPECT_TRUE(contient(
      p, octets({0x83, 0x60, 0x80, 67, 0x7F, 0x00, 0x90, 67, 127, 0x83, 0x60, 0x80, 67, 0x7F})));

  CVantoroTablature deux = test::document(2);
  poser(deux, 1, 1, 1, 0, 3, 192);
  deux.setMesureLoopDroiteType(1, barre::kRepetition);
  deux.setMesureLoopDroiteData(1, 1);
  io_enregistrer_mid(deux);
  EXPECT_EQ(deux.getMesureLast(), 2);
}

TEST(MidiExportRepeats, ATrackSilentThroughARepeatEntersOnTimeByTheUnrolledClock) {
  // Track 2 enters after a repeated intro: its first note lies after both
  // passes, three bars in.
  CVantoroTablature doc = test::document(3, 2);
  poser(doc, 1, 1, 1, 0, 3, 48);
  poser(doc, 2, 3, 1, 0, 5, 48);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  const Octets p = chunk(io_enregistrer_mid(doc), 2);
  // 4 bars * 192 * 2.5 = 1920 = 0x8F 0x00
  EXPECT_TRUE(contient(p, octets({0x8F, 0x00, 0x91, 69, 127})));
}

TEST(MidiExportEnd, ANoteRunningPastTheLastBarIsReleasedSoNoPlayerHangsOnIt) {
  CVantoroTablature doc = test::document(1);
  const int n = poser(doc, 1, 1, 1, 144, 3, 48);
  doc.setNoteDurée(1, 1, 1, n, 96);
  const Octets p = chunk(io_enregistrer_mid(doc), 1);
  EXPECT_TRUE(contient(p, octets({120, 0x80, 67, 0x7F}) + kFin));
}

TEST(MidiExportFile, BrokenRepeatRefusedNothingWritten) {
  CVantoroTablature doc = test::document(2);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);  // never closed
  test::Temporaire t("refus.mid");
  const InterchangeResult r = exporterMidi(doc, t.chemin.string());
  EXPECT_EQ(r.stringId, 1301);
  EXPECT_EQ(r.détail, "2");
  EXPECT_FALSE(std::filesystem::exists(t.chemin));

  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  EXPECT_TRUE(exporterMidi(doc, t.chemin.string()).ok());
  EXPECT_EQ(test::lireOctets(t.chemin), io_enregistrer_mid(doc));

  const InterchangeResult échec = exporterMidi(doc, "/nonexistent-folder/x.mid");
  EXPECT_EQ(échec.stringId, msg::kEcritureImpossible);
}

TEST(MidiExportSilence, PendingCountOncePerBar) {
  CVantoroTablature doc = test::document(3);
  EXPECT_EQ(midCalculSilence(doc, 5, 2, 30, 2, 100), 70);
  EXPECT_EQ(midCalculSilence(doc, 0, 1, 150, 3, 10), 42 + 192 + 10);
  EXPECT_EQ(midCalculSilence(doc, 5, 1, 150, 3, 10), 5 + 42 + 5 + 192 + 5 + 10);
}

}  // namespace
}  // namespace vt
