// The MIDI reader on hand-made files: headers, chunks, events, and every way a
// file can be broken.
#include <gtest/gtest.h>

#include "formats/midi_reader.h"
#include "formats/string_table.h"
#include "interchange_test_util.h"
#include "midi_test_files.h"

namespace vt {
namespace {

using test::octets;
using test::Octets;
using test::smf;

TEST(MidiReaderHeader, RefusalsBeforeAnyTrack) {
  MidiFichier f;
  EXPECT_EQ(lireMidi({}, f).stringId, kMsgMidiInvalide);
  EXPECT_EQ(lireMidi(octets({'R', 'I', 'F', 'F', 0, 0, 0, 6, 0, 1, 0, 1, 0, 96}), f).stringId,
            kMsgMidiInvalide);
  EXPECT_EQ(lireMidi(octets({'M', 'T', 'h', 'd', 0, 0, 0}), f).stringId, kMsgMidiErreur);
  EXPECT_EQ(lireMidi(octets({'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 0, 0, 96}), f).stringId,
            kMsgMidiAucunePiste);
  // Declared but absent.
  EXPECT_EQ(lireMidi(octets({'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 1, 0, 96}), f).stringId,
            kMsgMidiAucunePiste);
  auto division = [](int hi, int lo) {
    return octets({'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, 1, hi, lo, 'M', 'T', 'r', 'k', 0, 0, 0, 0});
  };
  EXPECT_EQ(lireMidi(division(0, 0), f).stringId, kMsgMidiErreur);
  EXPECT_EQ(lireMidi(division(0xE7, 0x28), f).stringId, kMsgMidiErreur);  // time code
  EXPECT_TRUE(lireMidi(division(0, 96), f).ok());
}

TEST(MidiReaderHeader, ChunksFollowTheHeaderLengthOthersSkippedFormatZeroNoticed) {
  Octets o = octets({'M', 'T', 'h', 'd', 0, 0, 0, 8, 0, 0, 0, 1, 0, 96, 0xAA, 0xBB,
                     'X', 'Y', 'Z', 'W', 0, 0, 0, 2, 1, 2,
                     'M', 'T', 'r', 'k', 0, 0, 0, 4, 0, 0xFF, 0x2F, 0});
  MidiFichier f;
  const InterchangeResult r = lireMidi(o, f);
  ASSERT_TRUE(r.ok());
  EXPECT_EQ(r.notices, std::vector<int>{kMsgMidiFormat0});
  EXPECT_EQ(f.format, 0);
  ASSERT_EQ(f.pistes.size(), 1u);
  EXPECT_EQ(f.pistes[0].début, 34u);
  EXPECT_EQ(f.pistes[0].taille, 4u);
}

TEST(MidiReaderEvents, RunningStatusReleasesAndChannels) {
  MidiFichier f;
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0x90, 60, 100, 0x00, 64, 90,  // running status
                                           0x60, 0x80, 60, 50, 0x00, 64, 0,     // note off, running
                                           0x10, 0x93, 67, 0,                   // velocity 0
                                           0x00, 0xFF, 0x2F, 0x00})}),
                       f).ok());
  PisteMidiLue p;
  ASSERT_TRUE(lirePisteMidi(f, 0, p).ok());
  ASSERT_EQ(p.notes.size(), 5u);
  EXPECT_EQ(p.notes[1].hauteur, 64);
  EXPECT_EQ(p.notes[1].vélocité, 90);
  EXPECT_EQ(p.notes[2].tick, 96);
  EXPECT_EQ(p.notes[2].vélocité, 0);  // a Note Off keeps no velocity
  EXPECT_EQ(p.notes[3].hauteur, 64);
  EXPECT_EQ(p.notes[4].canal, 3);
  EXPECT_EQ(p.notes[4].tick, 112);
  EXPECT_EQ(p.événements, 6);
  EXPECT_EQ(p.notesParCanal[0], 2);
  EXPECT_EQ(p.fin, 112);
}

TEST(MidiReaderEvents, MetaEventsAndTheRmtfNoteEventBelongsToTheNextNoteStart) {
  MidiFichier f;
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({
                           0x00, 0xFF, 0x03, 2, 'G', 't',
                           0x00, 0xFF, 0x03, 2, 'X', 'X',  // only the first names the track
                           0x00, 0xFF, 0x51, 0x03, 0x07, 0xA1, 0x20,
                           0x00, 0xFF, 0x58, 0x04, 6, 3, 24, 8,
                           0x00, 0xFF, 0x59, 0x02, 0xFD, 0x01,
                           0x00, 0xFF, 0x10, 6, 2, 3, 62, 57, 52, 47,
                           0x00, 0xFF, 0x12, 5, 0, 2, 2, 1, 'E',
                           0x00, 0xFF, 0x11, 0x02, 1, 0x0C,
                           0x00, 0x80, 40, 0,  // a release does not take it
                           0x00, 0x90, 60, 100, 0x00, 0x90, 62, 100,
                           0x00, 0xFF, 0x11, 0x01, 3,
                           0x00, 0x90, 64, 100,
                           0x00, 0xC2, 30, 0x00, 0xC2, 31,
                           0x00, 0xFF, 0x06, 1, 'M',
                           0x00, 0xFF, 0x2F, 0x00,
                           0x00, 0x90, 70, 100})}),  // after the end: not read
                       f).ok());
  PisteMidiLue p;
  ASSERT_TRUE(lirePisteMidi(f, 0, p).ok());
  EXPECT_EQ(p.nom, "Gt");
  ASSERT_EQ(p.tempos.size(), 1u);
  EXPECT_EQ(p.tempos[0].a, 500000);
  ASSERT_EQ(p.signatures.size(), 1u);
  EXPECT_EQ(p.signatures[0].a, 6);
  EXPECT_EQ(p.signatures[0].b, 3);
  ASSERT_EQ(p.tonalités.size(), 1u);
  EXPECT_EQ(p.tonalités[0].a, -3);
  EXPECT_EQ(p.tonalités[0].b, 1);
  EXPECT_TRUE(p.tête.présente);
  EXPECT_EQ(p.tête.cordes, 4);
  EXPECT_EQ(p.tête.capodastre, 3);
  EXPECT_EQ(p.tête.ouvertes[4], 47);
  ASSERT_EQ(p.accords.size(), 1u);
  EXPECT_EQ(p.accords[0].données, std::string("\0\2\2\1E", 5));
  ASSERT_EQ(p.notes.size(), 4u);
  EXPECT_EQ(p.notes[1].corde, 2);
  EXPECT_EQ(p.notes[1].attribut, 0x0C);
  EXPECT_EQ(p.notes[2].corde, 0);
  EXPECT_EQ(p.notes[3].corde, 4);
  EXPECT_EQ(p.notes[3].attribut, 0);
  EXPECT_EQ(p.programmes[2], 30);
  ASSERT_EQ(p.textes.size(), 3u);
  EXPECT_EQ(p.textes[2].type, 0x06);
}

TEST(MidiReaderBroken, UnknownStatusAndDataWithoutStatus) {
  MidiFichier f;
  PisteMidiLue p;
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0x90, 60, 100, 0x00, 0xF4, 0x00})}), f).ok());
  InterchangeResult r = lirePisteMidi(f, 0, p);
  EXPECT_EQ(r.stringId, kMsgMidiCommandeInconnue);
  EXPECT_EQ(r.détail, "F4");
  EXPECT_EQ(p.notes.size(), 1u);  // what came before stays

  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0x40, 0x40})}), f).ok());
  r = lirePisteMidi(f, 0, p);
  EXPECT_EQ(r.stringId, kMsgMidiCommandeInconnue);
  EXPECT_EQ(r.détail, "40");
}

TEST(MidiReaderBroken, QuantitiesAreAtMostFourBytes) {
  MidiFichier f;
  PisteMidiLue p;
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x81, 0x80, 0x80, 0x80, 0x00, 0x90, 60, 1})}), f).ok());
  EXPECT_EQ(lirePisteMidi(f, 0, p).stringId, kMsgMidiErreur);
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0xFF, 0xFF, 0xFF, 0x7F, 0x90, 60, 1})}), f).ok());
  ASSERT_TRUE(lirePisteMidi(f, 0, p).ok());
  EXPECT_EQ(p.notes.at(0).tick, 0x0FFFFFFF);
}

TEST(MidiReaderBroken, CutShortAnywhereKeepsWhatItHolds) {
  // A whole track, then every shorter cut of it, with a chunk length that
  // claims the whole: the reader never reads past the bytes.
  const Octets données = octets({0x00, 0x90, 60, 100, 0x60, 0x80, 60, 0, 0x00, 0xF0, 0x03, 1, 2, 0xF7,
                                 0x00, 0xFF, 0x03, 0x04, 'a', 'b', 'c', 'd', 0x00, 0xFF, 0x2F, 0x00});
  const Octets complet = smf(1, 96, {données});
  for (std::size_t n = 14; n <= complet.size(); ++n) {
    MidiFichier f;
    const Octets coupé(complet.begin(), complet.begin() + static_cast<long>(n));
    const InterchangeResult r = lireMidi(coupé, f);
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

TEST(MidiReaderBroken, SystemExclusiveWithoutItsEndOrLongerThanTheTrack) {
  MidiFichier f;
  PisteMidiLue p;
  // No F7 at the end: the length still says where it stops.
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0xF0, 0x02, 0x41, 0x10, 0x00, 0x90, 60, 100})}), f).ok());
  ASSERT_TRUE(lirePisteMidi(f, 0, p).ok());
  EXPECT_EQ(p.notes.size(), 1u);
  // A length past the chunk ends the track.
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0xF0, 0x8F, 0x7F, 0x41, 0x00, 0x90, 60, 100})}), f).ok());
  ASSERT_TRUE(lirePisteMidi(f, 0, p).ok());
  EXPECT_TRUE(p.notes.empty());
  // So does a meta-event that claims more than there is.
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0xFF, 0x01, 0x7F, 'a', 'b'})}), f).ok());
  ASSERT_TRUE(lirePisteMidi(f, 0, p).ok());
  ASSERT_EQ(p.textes.size(), 1u);
  EXPECT_EQ(p.textes[0].texte, "ab");
}

TEST(MidiReaderSources, TracksByNameAndIndexChannelsForFormatZero) {
  MidiFichier f;
  ASSERT_TRUE(lireMidi(smf(1, 96, {octets({0x00, 0xFF, 0x03, 3, 'S', 'o', 'l', 0x00, 0xFF, 0x2F, 0x00}),
                                   octets({0x00, 0x90, 60, 100, 0x10, 0x90, 60, 0}),
                                   octets({0x00, 0xFF, 0x03, 4, 'B', 'a', 's', 's', 0x00, 0x91, 40, 1})}),
                       f).ok());
  const auto s = sourcesMidi(f, kLangAnglais);
  ASSERT_EQ(s.size(), 3u);
  EXPECT_EQ(s[0].libellé, "Sol: 0");
  EXPECT_EQ(s[0].notes, 0);
  EXPECT_EQ(s[1].libellé, loadString(kMsgMidiSansNom, kLangAnglais) + ": 1");
  EXPECT_EQ(s[1].notes, 1);
  EXPECT_EQ(s[1].événements, 2);
  EXPECT_EQ(s[2].libellé, "Bass: 2");

  ASSERT_TRUE(lireMidi(smf(0, 96, {octets({0x00, 0x90, 60, 100, 0x00, 0x95, 40, 1, 0x00, 45, 1})}), f).ok());
  const auto c = sourcesMidi(f, kLangFrançais);
  ASSERT_EQ(c.size(), 16u);
  EXPECT_EQ(c[0].libellé, "Canal 1");
  EXPECT_EQ(c[0].notes, 1);
  EXPECT_EQ(c[5].numéro, 6);
  EXPECT_EQ(c[5].notes, 2);
  EXPECT_EQ(c[15].notes, 0);
}

}  // namespace
}  // namespace vt
