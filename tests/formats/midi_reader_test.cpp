// The MIDI reader on hand-made files: headers, chunks, events, and every way a
// file can be broken; and the hex and variable-length helpers both ways use.
#include <gtest/gtest.h>

#include "formats/hex.h"
#include "formats/midi_reader.h"
#include "formats/string_table.h"
#include "interchange_test_util.h"
#include "midi_test_files.h"

namespace vt {
namespace {

using test::deHex;
using test::Octets;
using test::smf;
using V = std::vector<std::string>;

// Track 1 of a one-track file of division 96 whose track data is `hex`.
InterchangeResult lirePiste(const std::string& hex, PisteMidiLue& p, int format = 1) {
  MidiFichier f;
  const InterchangeResult r = lireMidi(smf(format, 96, {deHex(hex)}), f);
  EXPECT_TRUE(r.ok());
  return lirePisteMidi(f, 0, p);
}

// The note events as "tick:channel:pitch:velocity:string:attribute".
V notes(const PisteMidiLue& p) {
  V v;
  for (const MidiEvenement& n : p.notes)
    v.push_back(std::to_string(n.tick) + ":" + std::to_string(n.canal) + ":" +
                std::to_string(n.hauteur) + ":" + std::to_string(n.vélocité) + ":" +
                std::to_string(n.corde) + ":" + std::to_string(n.attribut));
  return v;
}

TEST(Hex, VariableLengthQuantities) {
  // Held to four bytes.
  EXPECT_EQ((std::vector<std::string>{bytesToVarLen(0), bytesToVarLen(0x7F), bytesToVarLen(0x80),
                                      bytesToVarLen(0xFF), bytesToVarLen(0x3FFF),
                                      bytesToVarLen(0x0FFFFFFF), bytesToVarLen(0xFFFFFFFF)}),
            (std::vector<std::string>{"00", "7F", "8100", "817F", "FF7F", "FFFFFF7F", "FFFFFF7F"}));
  for (std::uint32_t n : {0u, 1u, 127u, 128u, 300u, 16383u, 16384u, 0x0FFFFFFFu})
    EXPECT_EQ(varLenToNumber(hexToBytes(bytesToVarLen(n))), n);
  // Never more than four bytes are read, whatever follows.
  EXPECT_EQ(varLenToNumber(test::octets({0x81, 0x80, 0x80, 0x80, 0x80, 0x00})), 0x0200000u);
  EXPECT_EQ(bytesToNumber(test::octets({0x07, 0xA1, 0x20})), 500000u);
  // Padding and bytes.
  // hexPad2 never cuts.
  EXPECT_EQ((std::vector<std::string>{hexPad2(0x5), hexPad2(0x1AB), hexPad6(500000), hexPad8(0),
                                      hexPadEven("ABC"), hexPadEven("AB"), textToHex("Ab")}),
            (std::vector<std::string>{"05", "1AB", "07A120", "00000000", "0ABC", "AB", "4162"}));
  EXPECT_EQ(hexToBytes("0"), test::octets({0}));
  EXPECT_EQ(hexToBytes("4D5468"), test::octets({0x4D, 0x54, 0x68}));
  EXPECT_EQ(hexToBytes("4D5"), test::octets({0x4D, 0x05}));
  // The wheel: low seven bits first.
  EXPECT_EQ((std::vector<std::string>{wheelToHex(8192), wheelToHex(9536), wheelToHex(16383),
                                      wheelToHex(-5)}),
            (std::vector<std::string>{"0040", "404A", "7F7F", "0000"}));
}

TEST(MidiReaderHeader, RefusalsBeforeAnyTrackThenChunksFollowTheHeaderLength) {
  const std::string un = "4D 54 68 64 00 00 00 06 00 01 00 01 ", piste = " 4D 54 72 6B 00 00 00 00";
  const std::pair<std::string, int> cas[] = {
      {"", kMsgMidiInvalide},
      {"52 49 46 46 00 00 00 06 00 01 00 01 00 60", kMsgMidiInvalide},
      {"4D 54 68 64 00 00 00", kMsgMidiErreur},
      {"4D 54 68 64 00 00 00 06 00 01 00 00 00 60", kMsgMidiAucunePiste},
      {un + "00 60", kMsgMidiAucunePiste},  // declared but absent
      {un + "00 00" + piste, kMsgMidiErreur},
      {un + "E7 28" + piste, kMsgMidiErreur},  // time code
      {un + "00 60" + piste, 0},
  };
  for (const auto& [octets, id] : cas) {
    MidiFichier f;
    const InterchangeResult r = lireMidi(deHex(octets), f);
    EXPECT_EQ(r.ok() ? 0 : r.stringId, id) << octets;
  }
  // Chunks follow the header's length, others are skipped, format 0 is noticed.
  MidiFichier f;
  const InterchangeResult r =
      lireMidi(deHex("4D 54 68 64 00 00 00 08 00 00 00 01 00 60 AA BB 58 59 5A 57 00 00 00 02 01 "
                     "02 4D 54 72 6B 00 00 00 04 00 FF 2F 00"),
               f);
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.notices, std::vector<int>{kMsgMidiFormat0});
  ASSERT_EQ(f.pistes.size(), 1u);
  EXPECT_EQ((std::vector<std::size_t>{static_cast<std::size_t>(f.format), f.pistes[0].début,
                                      f.pistes[0].taille}),
            (std::vector<std::size_t>{0, 34, 4}));
}

TEST(MidiReaderEvents, RunningStatusReleasesChannelsMetaEventsAndRmtfNoteEvents) {
  PisteMidiLue p;
  // Running status, a Note Off and a running one, a velocity 0.
  ASSERT_TRUE(
      lirePiste("00 90 3C 64 00 40 5A 60 80 3C 32 00 40 00 10 93 43 00 00 FF 2F 00", p).ok());
  // A Note Off keeps no velocity.
  EXPECT_EQ(notes(p), (V{"0:0:60:100:0:0", "0:0:64:90:0:0", "96:0:60:0:0:0", "96:0:64:0:0:0",
                         "112:3:67:0:0:0"}));
  EXPECT_EQ((std::vector<long>{p.événements, p.notesParCanal[0], p.fin}),
            (std::vector<long>{6, 2, 112}));
  // Meta-events; the RMTF note event belongs to the next note start.
  PisteMidiLue m;
  ASSERT_TRUE(lirePiste("00 FF 03 02 47 74 "
                        "00 FF 03 02 58 58 "  // only the first names the track
                        "00 FF 51 03 07 A1 20 00 FF 58 04 06 03 18 08 00 FF 59 02 FD 01 "
                        "00 FF 10 06 02 03 3E 39 34 2F 00 FF 12 05 00 02 02 01 45 "
                        "00 FF 11 02 01 0C "
                        "00 80 28 00 "  // a release does not take it
                        "00 90 3C 64 00 90 3E 64 00 FF 11 01 03 00 90 40 64 "
                        "00 C2 1E 00 C2 1F 00 FF 06 01 4D 00 FF 2F 00 "
                        "00 90 46 64",  // after the end: not read
                        m)
                  .ok());
  EXPECT_EQ(m.nom, "Gt");
  ASSERT_EQ((std::vector<std::size_t>{m.tempos.size(), m.signatures.size(), m.tonalités.size(),
                                      m.accords.size(), m.textes.size()}),
            (std::vector<std::size_t>{1, 1, 1, 1, 3}));
  // Tempo, signature, key, head of the track (strings, capo, string 4), program of channel 3.
  EXPECT_EQ((std::vector<int>{m.tempos[0].a, m.signatures[0].a, m.signatures[0].b, m.tonalités[0].a,
                              m.tonalités[0].b, m.tête.présente, m.tête.cordes, m.tête.capodastre,
                              m.tête.ouvertes[4], m.programmes[2], m.textes[2].type}),
            (std::vector<int>{500000, 6, 3, -3, 1, 1, 4, 3, 47, 30, 6}));
  EXPECT_EQ(m.accords[0].données, std::string("\0\2\2\1E", 5));
  EXPECT_EQ(notes(m), (V{"0:0:40:0:0:0", "0:0:60:100:2:12", "0:0:62:100:0:0", "0:0:64:100:4:0"}));
}

TEST(MidiReaderBroken, UnknownStatusDataWithoutStatusLongQuantitiesAndBrokenSystemExclusive) {
  const struct {
    std::string octets, détail;
    std::size_t notes;  // what came before stays
  } cas[] = {{"00 90 3C 64 00 F4 00", "F4", 1}, {"00 40 40", "40", 0}};
  for (const auto& k : cas) {
    PisteMidiLue p;
    const InterchangeResult r = lirePiste(k.octets, p);
    EXPECT_EQ(std::make_pair(r.stringId, r.détail),
              std::make_pair(kMsgMidiCommandeInconnue, k.détail));
    EXPECT_EQ(p.notes.size(), k.notes);
  }
  // Quantities are at most four bytes.
  PisteMidiLue longue;
  EXPECT_EQ(lirePiste("81 80 80 80 00 90 3C 01", longue).stringId, kMsgMidiErreur);
  ASSERT_TRUE(lirePiste("FF FF FF 7F 90 3C 01", longue).ok());
  EXPECT_EQ(longue.notes.at(0).tick, 0x0FFFFFFF);
  // System exclusive without its end, or longer than the track.
  const struct {
    const char *quoi, *octets;
    std::size_t notes;
    std::size_t textes;
  } sysex[] = {
      {"no F7 at the end: the length still says where it stops", "00 F0 02 41 10 00 90 3C 64", 1,
       0},
      {"a length past the chunk ends the track", "00 F0 8F 7F 41 00 90 3C 64", 0, 0},
      {"so does a meta-event that claims more than there is", "00 FF 01 7F 61 62", 0, 1},
  };
  for (const auto& k : sysex) {
    SCOPED_TRACE(k.quoi);
    PisteMidiLue q;
    ASSERT_TRUE(lirePiste(k.octets, q).ok());
    EXPECT_EQ(q.notes.size(), k.notes);
    EXPECT_EQ(q.textes.size(), k.textes);
    for (const MidiTexte& t : q.textes)
      EXPECT_EQ(t.texte, "ab");
  }
}

TEST(MidiReaderBroken, CutShortAnywhereKeepsWhatItHolds) {
  // A whole track, then every shorter cut of it, with a chunk length that
  // claims the whole: the reader never reads past the bytes.
  const Octets complet = smf(1, 96,
                             {deHex("00 90 3C 64 60 80 3C 00 00 F0 03 01 02 F7 00 FF 03 04 61 62 "
                                    "63 64 00 FF 2F 00")});
  for (std::size_t n = 14; n <= complet.size(); ++n) {
    MidiFichier f;
    const InterchangeResult r =
        lireMidi(Octets(complet.begin(), complet.begin() + static_cast<long>(n)), f);
    if (n < 22) {
      EXPECT_EQ(r.stringId, kMsgMidiAucunePiste) << n;
      continue;
    }
    ASSERT_TRUE(r.ok()) << n;
    EXPECT_EQ(f.pistes[0].taille, n - 22);
    PisteMidiLue p;
    EXPECT_TRUE(lirePisteMidi(f, 0, p).ok()) << n;
    EXPECT_EQ(p.notes.size(), n >= 26 ? (n >= 30 ? 2u : 1u) : 0u) << n;
  }
}

TEST(MidiReaderSources, TracksByNameAndIndexChannelsForFormatZero) {
  MidiFichier f;
  ASSERT_TRUE(
      lireMidi(smf(1, 96,
                   {deHex("00 FF 03 03 53 6F 6C 00 FF 2F 00"), deHex("00 90 3C 64 10 90 3C 00"),
                    deHex("00 FF 03 04 42 61 73 73 00 91 28 01")}),
               f)
          .ok());
  const auto s = sourcesMidi(f, kLangAnglais);
  ASSERT_EQ(s.size(), 3u);
  EXPECT_EQ((V{s[0].libellé, s[1].libellé, s[2].libellé}),
            (V{"Sol: 0", loadString(kMsgMidiSansNom, kLangAnglais) + ": 1", "Bass: 2"}));
  EXPECT_EQ((std::vector<int>{s[0].notes, s[1].notes, s[1].événements}),
            (std::vector<int>{0, 1, 2}));

  ASSERT_TRUE(lireMidi(smf(0, 96, {deHex("00 90 3C 64 00 95 28 01 00 2D 01")}), f).ok());
  const auto c = sourcesMidi(f, kLangFrançais);
  ASSERT_EQ(c.size(), 16u);
  EXPECT_EQ(c[0].libellé, "Canal 1");
  EXPECT_EQ((std::vector<int>{c[0].notes, c[5].numéro, c[5].notes, c[15].notes}),
            (std::vector<int>{1, 6, 2, 0}));
}

}  // namespace
}  // namespace vt
