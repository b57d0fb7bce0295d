// The exported MIDI file, byte for byte where the layout is fixed; and read by
// an independent reader, midicsv, whose listing must hold exactly the events
// that the documents imply, worked out here by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "formats/file_io.h"
#include "formats/midi_export.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::poser;
using Octets = std::vector<byt>;

// The data of track chunk `n` (0 the conductor), in hex.
std::string chunk(const Octets& f, int n) {
  std::size_t pos = 14;
  for (int i = 0;; ++i) {
    if (pos + 8 > f.size()) {
      ADD_FAILURE() << "no chunk " << n;
      return {};
    }
    const std::size_t len = (std::size_t{f[pos + 4]} << 24) | (std::size_t{f[pos + 5]} << 16) |
                            (std::size_t{f[pos + 6]} << 8) | f[pos + 7];
    if (i == n) return test::hex({f.data() + pos + 8, len});
    pos += 8 + len;
  }
}

std::string chunk(CVantoroTablature& doc, int n, MidiExportOptions o = {}) {
  return chunk(io_enregistrer_mid(doc, o), n);
}

bool contient(const std::string& o, const std::string& motif) {
  return o.find(motif) != std::string::npos;
}

// Program change, name, bend range, bank and controllers of a default track 1.
const std::string kPrologue =
    "00 C0 1B 00 FF 03 07 54 72 61 63 6B 20 31 00 B0 65 00 00 64 00 00 06 0C 00 26 00 00 B0 20 "
    "00 00 B0 00 00 00 B0 5F 00 00 B0 5D 00 00 B0 5C 00 00 B0 5B 00 00 B0 08 40 00 B0 0A 40 ";
const std::string kFin = "00 FF 2F 00";

TEST(MidiExportLayout, EmptyDocumentWholeFile) {
  const std::string conducteur =
      "00 FF 51 03 07 A1 20 00 FF 58 04 04 02 18 08 00 FF 59 02 00 00 " + kFin;
  const std::string piste = kPrologue + kFin;
  CVantoroTablature doc = test::document(1);
  EXPECT_EQ(test::hex(io_enregistrer_mid(doc)),
            "4D 54 68 64 00 00 00 06 00 01 00 02 00 78 4D 54 72 6B 00 00 00 19 " + conducteur +
                " 4D 54 72 6B 00 00 00 3F " + piste);
}

TEST(MidiExportLayout, DeltasAreTicksTimesTwoAndAHalfRoundedHalfToEven) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 1, 1, 2);  // on at 1 (2.5 -> 2), off at 3 (5)
  poser(doc, 1, 1, 1, 4, 1, 1);  // on at 4 (2.5 -> 2), off at 5 (2.5 -> 2)
  poser(doc, 1, 1, 1, 8, 1, 1);  // on at 8 (7.5 -> 8), off at 9 (2)
  EXPECT_EQ(chunk(doc, 1), kPrologue +
                               "02 90 41 7F 05 80 41 7F 02 90 41 7F 02 80 41 7F 08 90 41 7F "
                               "02 80 41 7F " +
                               kFin);
}

TEST(MidiExportLayout, TrackSettingsBendRangeAndABankInSevenBitBytesSinceADataByteStopsAt127) {
  CVantoroTablature doc = test::document(1);
  doc.setPisteNom(1, "Lead");
  doc.setMIDIPatch(1, 30);
  doc.setMIDIBank(1, 300);  // 300 = 2 * 128 + 44
  doc.setMIDIPhaser(1, 1);
  doc.setMIDIChorus(1, 2);
  doc.setMIDITremolo(1, 3);
  doc.setMIDIReverb(1, 4);
  doc.setMIDIBalance(1, 5);
  doc.setMIDIPan(1, 6);
  MidiExportOptions o;
  o.effets.setMIDIPitchBendRange = 7;
  EXPECT_EQ(chunk(doc, 1, o),
            "00 C0 1E 00 FF 03 04 4C 65 61 64 00 B0 65 00 00 64 00 00 06 07 00 26 00 00 B0 20 2C "
            "00 B0 00 02 00 B0 5F 01 00 B0 5D 02 00 B0 5C 03 00 B0 5B 04 00 B0 08 05 00 B0 0A 06 " +
                kFin);
  o.effets.setMIDIEffet1Ton = -1;  // whole-tone bends: a range of 2
  EXPECT_TRUE(contient(chunk(doc, 1, o), "06 02 00 26"));
  // Channels: the drum track on 10, and a channel is four bits: track 17 wraps to 0.
  doc = test::document(1, 17);
  doc.setStaffType(2, kStaffBatterie);
  const Octets f = io_enregistrer_mid(doc);
  EXPECT_EQ(f[11], 18);  // track count: conductor + 17
  // A channel is four bits: track 17 wraps to 0.
  EXPECT_EQ((std::vector<std::string>{chunk(f, 1).substr(0, 5), chunk(f, 2).substr(0, 5),
                                      chunk(f, 3).substr(0, 5), chunk(f, 17).substr(0, 5)}),
            (std::vector<std::string>{"00 C0", "00 C9", "00 C2", "00 C0"}));
}

TEST(MidiExportRmtf, TrackHeaderAndNoteEventsBeforeTheirNoteOnChordDiagramsAlways) {
  CVantoroTablature doc = test::document(1);
  doc.setGuitareCapodastre(1, 2);
  poser(doc, 1, 1, 2, 0, 3, 48, effet::kHammerOn);
  poser(doc, 1, 1, 3, 48, 2, 48);
  poser(doc, 1, 1, 1, 96, 3, 24, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 1, 4, 144, 5, 24, 0, attaque::kHarmoniqueNaturelle);
  MidiExportOptions o;
  o.rmtf = true;
  const std::string p = chunk(doc, 1, o);
  EXPECT_TRUE(
      contient(p, kPrologue + "00 FF 10 08 01 02 40 3B 37 32 2D 28 00 FF 11 02 01 01 00 90 3E 7F"));
  // A plain note: one data byte, after the Note Off that shares its time.
  EXPECT_TRUE(contient(p, "78 80 3E 7F 00 FF 11 01 02 00 90 39 7F"));
  // Artificial harmonic writes 07, natural 08.
  EXPECT_TRUE(contient(p, "FF 11 02 00 07 00 90 4F 7F"));
  EXPECT_TRUE(contient(p, "FF 11 02 03 08 00 90 4A 7F"));
  const std::string sans = chunk(doc, 1);
  EXPECT_FALSE(contient(sans, "FF 10") || contient(sans, "FF 11"));
  // A chord diagram is written with or without the option.
  doc = test::document(1);
  const int n = doc.addandplaceMesureAccord(1, 1, 24);
  OneBased<byt> frettes(6);
  const int f[] = {0, 1, 2, 2, 0, 255};
  for (int c = 1; c <= 6; ++c)
    frettes[c] = static_cast<byt>(f[c - 1]);
  doc.setMesureAccord(1, 1, n, "Am", frettes);
  for (const MidiExportOptions& options : {MidiExportOptions{}, o})
    EXPECT_TRUE(contient(chunk(doc, 1, options), "3C FF 12 08 00 01 02 02 00 FF 41 6D"));
}

TEST(MidiExportRmtf, AttributeTableEffectFirstThenAttack) {
  const struct {
    int effet, attaque, code;
  } cas[] = {{20, 0, 0x0C}, {3, 0, 0x01}, {4, 0, 0x02},
             {1, 0, 0x03},  {2, 0, 0x04}, {24, 0, 0x0A},
             {25, 0, 0x0B}, {9, 0, 0x09}, {21, 0, -1},
             {27, 0, -1},   {0, 3, 0x0F}, {0, 2, 0x07},
             {0, 1, 0x08},  {0, 6, 0x0D}, {0, 9, 0x0E},
             {0, 4, -1},    {0, 10, -1},  {effet::kVibrato, attaque::kTap, 0x09}};
  for (const auto& k : cas) {
    tNote n;
    n.bytEffet = static_cast<byt>(k.effet);
    n.bytAttaque = static_cast<byt>(k.attaque);
    EXPECT_EQ(codeAttributRmtf(n), k.code) << "effect " << k.effet << ", attack " << k.attaque;
  }
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
  EXPECT_EQ(chunk(doc, 0),
            "00 FF 03 01 54 00 FF 02 01 43 00 FF 01 01 4B 00 FF 51 03 09 27 C0 00 FF 58 04 04 02 "
            "18 08 00 FF 59 02 00 00 81 7A FF 06 01 61 00 FF 06 01 62 00 FF 06 01 63 81 66 FF 58 "
            "04 03 02 18 08 00 FF 59 02 01 01 78 FF 51 03 0A 2C 2A 00 FF 51 03 0A 2C 2A " +
                kFin);
}

TEST(MidiExportConductor, AJumpBackWritesTheSignatureInForceAgainSoTheSecondPassKeepsItsMetre) {
  // 4/4 | :4/4 | 3/4 | 3/4: | — the second pass must return to 4/4 at bar 2.
  CVantoroTablature doc = test::document(4);
  doc.setMesureSignature(3, 3, 4);
  doc.setMesureSignature(4, 3, 4);
  doc.setMesureLoopGaucheType(2, barre::kRepetition);
  doc.setMesureLoopDroiteType(4, barre::kRepetition);
  doc.setMesureLoopDroiteData(4, 1);
  const std::string c = chunk(doc, 0);
  std::vector<int> numérateurs;
  for (auto i = c.find("FF 58 04 "); i != std::string::npos; i = c.find("FF 58 04 ", i + 1))
    numérateurs.push_back(std::stoi(c.substr(i + 9, 2), nullptr, 16));
  EXPECT_EQ(numérateurs, (std::vector<int>{4, 3, 4, 3}));
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
  // 4 bars * 192 * 2.5 = 1920 = 0x8F 0x00
  EXPECT_TRUE(contient(chunk(doc, 2), "8F 00 91 45 7F"));
  // A repeat ending the last bar appends a bar, where the second pass starts.
  for (int mesures : {1, 2}) {
    doc = test::document(mesures);
    poser(doc, 1, 1, 1, 0, 3, 192);
    doc.setMesureLoopGaucheType(1, barre::kRepetition);
    doc.setMesureLoopDroiteType(1, barre::kRepetition);
    doc.setMesureLoopDroiteData(1, 1);
    // The second pass starts right where the first one ends.
    EXPECT_TRUE(contient(chunk(doc, 1), "83 60 80 43 7F 00 90 43 7F 83 60 80 43 7F"));
    EXPECT_EQ(doc.getMesureLast(), 2);
  }
}

TEST(MidiExportEnd, ANoteRunningPastTheLastBarIsReleasedSoNoPlayerHangsOnIt) {
  CVantoroTablature doc = test::document(1);
  const int n = poser(doc, 1, 1, 1, 144, 3, 48);
  doc.setNoteDurée(1, 1, 1, n, 96);
  EXPECT_TRUE(contient(chunk(doc, 1), "78 80 43 7F " + kFin));
}

TEST(MidiExportFile, BrokenRepeatRefusedNothingWritten) {
  CVantoroTablature doc = test::document(2);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);  // never closed
  test::Temporaire t("refus.mid");
  const InterchangeResult r = exporterMidi(doc, t.chemin.string());
  EXPECT_EQ(std::make_pair(r.stringId, r.détail), std::make_pair(1301, std::string("2")));
  EXPECT_FALSE(std::filesystem::exists(t.chemin));

  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  EXPECT_TRUE(exporterMidi(doc, t.chemin.string()).ok());
  EXPECT_EQ(test::lireOctets(t.chemin), io_enregistrer_mid(doc));
  EXPECT_EQ(exporterMidi(doc, "/nonexistent-folder/x.mid").stringId, msg::kEcritureImpossible);
}

TEST(MidiExportSilence, PendingCountOncePerBar) {
  CVantoroTablature doc = test::document(3);
  EXPECT_EQ(midCalculSilence(doc, 5, 2, 30, 2, 100), 70);
  EXPECT_EQ(midCalculSilence(doc, 0, 1, 150, 3, 10), 42 + 192 + 10);
  EXPECT_EQ(midCalculSilence(doc, 5, 1, 150, 3, 10), 5 + 42 + 5 + 192 + 5 + 10);
}

using test::poser;

using Listing = std::vector<std::string>;

// An expected event: document tick and the record without its track and time.
struct Attendu {
  long t;
  std::string record;
};

// Rows of one midicsv track whose type is one of `types` (for Control_c only
// the modulation wheel, controller 1), as "track, time, record".
Listing lignes(const std::vector<std::vector<std::string>>& csv, int piste,
               std::initializer_list<const char*> types) {
  Listing out;
  for (const auto& r : csv) {
    if (r.size() < 3 || r[0] != std::to_string(piste)) continue;
    if (std::none_of(types.begin(), types.end(), [&](const char* t) { return r[2] == t; }))
      continue;
    if (r[2] == "Control_c" && (r.size() < 5 || r[4] != "1")) continue;
    std::string s;
    for (const auto& champ : r)
      s += (s.empty() ? "" : ", ") + champ;
    out.push_back(s);
  }
  return out;
}

// The same from expected events in document time: 120 file ticks to the
// quarter against 48, each delta rounded half to even.
Listing lignes(int piste, const std::vector<Attendu>& attendus) {
  Listing out;
  long fichier = 0, avant = 0;
  for (const Attendu& a : attendus) {
    const long d5 = (a.t - avant) * 5;
    long d = d5 / 2;
    if (d5 % 2 != 0 && d % 2 != 0) ++d;
    fichier += d;
    avant = a.t;
    out.push_back(std::to_string(piste) + ", " + std::to_string(fichier) + ", " + a.record);
  }
  return out;
}

std::string on(int canal, int note, int vel = 127) {
  return "Note_on_c, " + std::to_string(canal) + ", " + std::to_string(note) + ", " +
         std::to_string(vel);
}
std::string off(int canal, int note) {
  return "Note_off_c, " + std::to_string(canal) + ", " + std::to_string(note) + ", 127";
}

// Three tracks over four bars: bars 1-2 repeated once, a tie across the bar
// line 3|4, harmonics, a bass entering in bar 3, a drum track in bar 1, a
// tempo change in bar 3. Play order 1 2 1 2 3 4, bar starts 0 192 384 576 768 960.
CVantoroTablature morceau() {
  CVantoroTablature doc = test::document(4, 3);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  doc.setMesureTempo(3, 0, 90);
  poser(doc, 1, 1, 1, 0, 0, 96);
  poser(doc, 1, 1, 1, 96, 12, 96, 0, attaque::kHarmoniqueNaturelle);
  poser(doc, 1, 2, 1, 0, 2, 48);
  poser(doc, 1, 2, 2, 48, 1, 48, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 3, 1, 144, 3, 48, effet::kLiaison);
  poser(doc, 1, 4, 1, 0, 3, 96);
  poser(doc, 1, 4, 1, 96, 5, 48, effet::kLiaison);
  poser(doc, 1, 4, 1, 144, 5, 48);
  poser(doc, 2, 3, 6, 0, 0, 192, 0, 0, 95);
  poser(doc, 2, 4, 5, 0, 2, 96, 0, 0, 95);
  doc.setStaffType(3, kStaffBatterie);
  for (int x = 0; x < 192; x += 48)
    poser(doc, 3, 1, 6, x, 2, 24, 0, 0, 111);
  return doc;
}

TEST(MidiCrossCheck, RepeatsTiesHarmonicsTempoChangesSeveralTracksAndDrums) {
  CVantoroTablature doc = morceau();
  const auto csv = test::midicsv(io_enregistrer_mid(doc));
  ASSERT_FALSE(csv.empty());
  EXPECT_EQ(csv[0], (std::vector<std::string>{"0", "0", "Header", "1", "4", "120"}));

  // Conductor: the signature comes again at the second pass of bar 1; the
  // tempo change of bar 3 once per track.
  EXPECT_EQ(
      lignes(csv, 1, {"Tempo", "Time_signature", "Key_signature"}),
      (Listing{"1, 0, Tempo, 500000", "1, 0, Time_signature, 4, 2, 24, 8",
               "1, 0, Key_signature, 0, \"major\"", "1, 960, Time_signature, 4, 2, 24, 8",
               "1, 1920, Tempo, 666666", "1, 1920, Tempo, 666666", "1, 1920, Tempo, 666666"}));

  std::vector<Attendu> guitare;
  for (long passe : {0L, 384L}) {
    const std::vector<Attendu> deux = {{passe + 0, on(0, 64)},   {passe + 96, off(0, 64)},
                                       {passe + 96, on(0, 76)},  {passe + 192, off(0, 76)},
                                       {passe + 192, on(0, 66)}, {passe + 240, off(0, 66)},
                                       {passe + 240, on(0, 72)}, {passe + 288, off(0, 72)}};
    guitare.insert(guitare.end(), deux.begin(), deux.end());
  }
  // The tie from bar 3 into bar 4 ends a tick early; the one inside bar 4 does not.
  const std::vector<Attendu> fin = {
      {912, on(0, 67)}, {912 + 144 - 1, off(0, 67)}, {1056, on(0, 69)}, {1152, off(0, 69)}};
  guitare.insert(guitare.end(), fin.begin(), fin.end());
  EXPECT_EQ(lignes(csv, 2, {"Note_on_c", "Note_off_c"}), lignes(2, guitare));

  EXPECT_EQ(
      lignes(csv, 3, {"Note_on_c", "Note_off_c"}),
      lignes(3,
             {{768, on(1, 40, 95)}, {960, off(1, 40)}, {960, on(1, 47, 95)}, {1056, off(1, 47)}}));

  std::vector<Attendu> batterie;
  for (long passe : {0L, 384L})
    for (long x = 0; x < 192; x += 48) {
      batterie.push_back({passe + x, on(9, 42, 111)});
      batterie.push_back({passe + x + 24, off(9, 42)});
    }
  EXPECT_EQ(lignes(csv, 4, {"Note_on_c", "Note_off_c"}), lignes(4, batterie));
  EXPECT_EQ(lignes(csv, 4, {"Program_c"}), (Listing{"4, 0, Program_c, 9, 27"}));
  EXPECT_EQ(doc.getMesureLast(), 4);
}

// A vibrato, then a bend up of two frets over 48 ticks, then a plain note.
CVantoroTablature effets() {
  CVantoroTablature doc = test::document(2);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kVibrato);
  poser(doc, 1, 1, 1, 48, 5, 48);
  poser(doc, 1, 1, 1, 96, 5, 48, effet::kBendUp);
  poser(doc, 1, 1, 1, 144, 7, 48);
  poser(doc, 1, 2, 1, 0, 3, 48);
  return doc;
}

TEST(MidiCrossCheck, RmtfEventsAreMetaEventsOtherReadersSkip) {
  CVantoroTablature doc = effets();
  MidiExportOptions o;
  o.rmtf = true;
  const auto csv = test::midicsv(io_enregistrer_mid(doc, o));
  EXPECT_EQ(
      lignes(csv, 2, {"Unknown_meta_event"}),
      (Listing{"2, 0, Unknown_meta_event, 16, 8, 1, 0, 64, 59, 55, 50, 45, 40",
               "2, 0, Unknown_meta_event, 17, 2, 0, 9", "2, 120, Unknown_meta_event, 17, 1, 0",
               "2, 240, Unknown_meta_event, 17, 2, 0, 12",
               "2, 480, Unknown_meta_event, 17, 1, 0"}));
  // The notes are those of the file without RMTF.
  EXPECT_EQ(lignes(csv, 2, {"Note_on_c", "Note_off_c", "Pitch_bend_c"}),
            lignes(test::midicsv(io_enregistrer_mid(doc)), 2,
                   {"Note_on_c", "Note_off_c", "Pitch_bend_c"}));
}

}  // namespace
}  // namespace vt
