// What the player sends equals what the MIDI file export writes for the same
// document, track by track; and what it adds of its own (the tracks' set-up).
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "formats/midi_export.h"
#include "formats/midi_reader.h"
#include "formats/midi_walk.h"
#include "formats/walk_input.h"
#include "player_test_util.h"

namespace vt {
namespace {

using test::poser;

struct Évt {
  std::int64_t temps = 0;
  std::uint32_t message = 0;
  bool operator==(const Évt&) const = default;
};
std::ostream& operator<<(std::ostream& os, const Évt& e) {
  return os << e.temps << ":" << std::hex << e.message << std::dec;
}

struct Collecte : WalkSink {
  std::vector<Évt> évts;
  void event(const WalkEvent& e) override {
    if (e.taille > 0) évts.push_back({e.temps, midiPack(e.octets[0], e.octets[1], e.octets[2])});
  }
};

// The walk events of one track as the file export makes them, with the Note Offs of the end.
std::vector<Évt> export1(const CVantoroTablature& doc, int p, const OptionsJeu& o = {}) {
  WalkOptions wo;
  wo.effets.setMIDIEffet1Ton = o.setMIDIEffet1Ton;
  wo.effets.setMIDIPitchBendRange = o.setMIDIPitchBendRange;
  wo.effets.setMIDIPitchDemiTon = o.setMIDIPitchDemiTon;
  const WalkInput in = walkInputFromDocument(doc);
  MidiWalk w(in, wo, {p});
  Collecte c;
  w.run(c);
  w.silence(c);
  return c.évts;
}

// The player's messages of one track, from the walk (not the set-up).
std::vector<Évt> joués(const std::vector<MessageJoué>& tout, int p) {
  std::vector<Évt> r;
  for (const MessageJoué& m : tout)
    if (m.piste == p && m.temps >= 0) r.push_back({m.temps, m.message});
  return r;
}

// The frets struck on the first string (E4 is 64).
std::vector<int> frettes(const std::vector<MessageJoué>& tout) {
  std::vector<int> f;
  for (const MessageJoué& m : tout)
    if (test::estNoteOn(m.message)) f.push_back(midiData1(m.message) - 64);
  return f;
}

DemandeJeu avecRenvois() {
  DemandeJeu d;
  d.renvois = true;
  return d;
}

// Two tracks through every effect the walk performs: repeats, ties across a
// bar line, bends and slides, vibrato, harmonics, a dead note, a rest that
// lets a note ring, tempo changes, a chord diagram.
CVantoroTablature morceau() {
  CVantoroTablature doc = test::document(4, 2);
  doc.setMesureLoopGaucheType(2, barre::kRepetition);
  doc.setMesureLoopDroiteType(3, barre::kRepetition);
  doc.setMesureLoopDroiteData(3, 1);
  doc.setMesureTempo(2, 96, 90);
  doc.setMesureTempo(4, 0, 140);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kBendUp);
  poser(doc, 1, 1, 1, 48, 7, 48, effet::kVibrato);
  poser(doc, 1, 1, 1, 96, 3, 48, effet::kSlideDown);
  poser(doc, 1, 1, 1, 144, 1, 48, effet::kLiaison);
  poser(doc, 1, 2, 1, 0, 1, 48);
  poser(doc, 1, 2, 2, 24, 12, 24, 0, attaque::kHarmoniqueNaturelle);
  poser(doc, 1, 2, 3, 48, 5, 24, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 2, 4, 72, 2, 48, 0, attaque::kDeadNote);
  poser(doc, 1, 3, 5, 0, 3, 48, effet::kBendDown);
  poser(doc, 1, 3, 5, 48, 1, 48, effet::kBendReturn);
  poser(doc, 1, 3, 5, 96, 4, 48);
  poser(doc, 1, 4, 6, 0, 0, 48);
  doc.setNoteWhole(1, 4, 6, 48, kCaseVide, 48);  // rings on
  doc.setMesureAccord(1, 1, doc.addandplaceMesureAccord(1, 1, 0), "E", OneBased<byt>(6, 0));
  for (int m = 1; m <= 4; ++m)
    for (int x = 0; x < 192; x += 64)
      poser(doc, 2, m, 3, x, m + x / 64, 32, x == 64 ? effet::kVibrato : 0);
  return doc;
}

TEST(PlayerStream, EqualsTheExportTrackByTrackInBothBendModes) {
  CVantoroTablature doc = morceau();
  for (int mode : {0, -1}) {
    OptionsJeu o;
    o.setMIDIEffet1Ton = mode;
    o.setMIDIPitchBendRange = 7;
    o.setMIDIPitchDemiTon = 16;
    const std::vector<MessageJoué> tout = test::horsLigne(doc, avecRenvois(), o);
    for (int p = 1; p <= 2; ++p) {
      const std::vector<Évt> attendu = export1(doc, p, o);
      EXPECT_EQ(joués(tout, p), attendu) << "track " << p << ", bend mode " << mode;
      EXPECT_GT(attendu.size(), 20u);
    }
    // The walk of the two tracks goes forward in time.
    EXPECT_TRUE(std::is_sorted(tout.begin(), tout.end(),
                               [](const auto& a, const auto& b) { return a.temps < b.temps; }));
  }

  // The notes match the exported file read back.
  const std::vector<MessageJoué> tout = test::horsLigne(doc, avecRenvois());
  MidiFichier f;
  ASSERT_TRUE(lireMidi(io_enregistrer_mid(doc), f).ok());
  for (int p = 1; p <= 2; ++p) {
    SCOPED_TRACE(p);
    PisteMidiLue lue;
    ASSERT_TRUE(lirePisteMidi(f, p, lue).ok());
    // Each event's delta is rounded on its own in the file (120 to the quarter
    // note): the error grows with the note's rank among all the track's events.
    std::size_t rang = 0, i = 0;
    for (const MessageJoué& m : tout) {
      if (m.piste != p || m.temps < 0) continue;
      ++rang;
      if (!test::estNoteOn(m.message) && !test::estNoteOff(m.message)) continue;
      ASSERT_LT(i, lue.notes.size());
      const MidiEvenement& e = lue.notes[i++];
      EXPECT_EQ(std::make_tuple(e.hauteur, e.canal, e.vélocité > 0),
                std::make_tuple(midiData1(m.message), midiStatus(m.message) & 0x0F,
                                test::estNoteOn(m.message)));
      EXPECT_NEAR(double(e.tick), m.temps * 2.5, 0.5 * double(rang + 1)) << i;
    }
    EXPECT_EQ(i, lue.notes.size());
  }
}

TEST(PlayerStream, MutedAndNotSoloTracksSendNotEvenTheirSetUpSoTheyCannotChangeAHeardChannel) {
  CVantoroTablature doc = morceau();
  doc.addPiste(2, tGuitare{});
  poser(doc, 3, 1, 1, 0, 2, 48);
  doc.setPistePlayMute(1, kVrai);
  std::vector<MessageJoué> tout = test::horsLigne(doc, avecRenvois());
  std::map<int, int> parPiste;
  for (const MessageJoué& m : tout)
    ++parPiste[m.piste];
  EXPECT_EQ(parPiste.count(1), 0u);  // not even its set-up
  EXPECT_GT(parPiste[2], 0);
  EXPECT_EQ(joués(tout, 2), export1(doc, 2));
  EXPECT_EQ(joués(tout, 3), export1(doc, 3));

  doc.setPistePlaySolo(3, kVrai);
  tout = test::horsLigne(doc, avecRenvois());
  for (const MessageJoué& m : tout)
    EXPECT_EQ(m.piste, 3);
  EXPECT_EQ(joués(tout, 3), export1(doc, 3));

  // Each heard track is set up before its first note.
  CVantoroTablature deux = test::document(1, 2);
  deux.setMIDIPatch(2, 30);
  deux.setMIDIBank(2, 300);
  deux.setMIDIPan(2, 10);
  deux.setMIDIReverb(2, 20);
  poser(deux, 2, 1, 1, 0, 0, 48);
  OptionsJeu o;
  o.setMIDIvolume = 90;
  o.setMIDIPitchBendRange = 5;
  const std::vector<MessageJoué> réglé = test::horsLigne(deux, {}, o);
  std::vector<std::uint32_t> piste2;
  for (const MessageJoué& m : réglé)
    if (m.piste == 2 && m.temps < 0) piste2.push_back(m.message);
  // The bank, then the program, the bend range, volume, effects, pan, wheel, modulation.
  const std::vector<std::uint32_t> attendu = {
      midiPack(0xB1, 0x20, 300 & 0x7F), midiPack(0xB1, 0x00, 300 >> 7), midiPack(0xC1, 30),
      midiPack(0xB1, 0x65, 0),          midiPack(0xB1, 0x64, 0),        midiPack(0xB1, 0x06, 5),
      midiPack(0xB1, 0x26, 0),          midiPack(0xB1, 0x07, 90),       midiPack(0xB1, 0x5F, 0),
      midiPack(0xB1, 0x5D, 0),          midiPack(0xB1, 0x5C, 0),        midiPack(0xB1, 0x5B, 20),
      midiPack(0xB1, 0x08, 64),         midiPack(0xB1, 0x0A, 10),       midiPack(0xE1, 0x00, 0x40),
      midiPack(0xB1, 0x01, 0)};
  EXPECT_EQ(piste2, attendu);
  // All of it at the start, before any note.
  const auto note = std::find_if(réglé.begin(), réglé.end(),
                                 [](const MessageJoué& m) { return test::estNoteOn(m.message); });
  EXPECT_TRUE(std::all_of(note, réglé.end(), [](const MessageJoué& m) { return m.temps >= 0; }));
}

TEST(PlayerStream, StartAtBarTwoRunsStraightThroughTheRepeats) {
  CVantoroTablature doc = test::document(3);
  for (int m = 1; m <= 3; ++m)
    poser(doc, 1, m, 1, 0, m, 48);
  doc.setMesureLoopGaucheType(1, barre::kRepetition);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 2);
  doc.setCurseurMesure(2);  // repeats asked for, but the start is not at bar 1
  EXPECT_EQ(frettes(test::horsLigne(doc, avecRenvois())), (std::vector<int>{2, 3}));
  doc.setCurseurMesure(1);
  EXPECT_EQ(frettes(test::horsLigne(doc, avecRenvois())), (std::vector<int>{1, 2, 1, 2, 1, 2, 3}));
}

TEST(PlayerStream, MarkersPlayFromStartToStopAndReleaseWhatRingsNothingPlaysPastTheEnd) {
  CVantoroTablature doc = test::document(2);
  for (int x = 0; x < 192; x += 48)
    poser(doc, 1, 1, 1, x, x / 48, 48);
  poser(doc, 1, 2, 1, 0, 9, 96);
  doc.setMarqueurStart(1, 48);
  doc.setMarqueurStop(2, 48);
  DemandeJeu d;
  d.marker = true;
  const std::vector<MessageJoué> tout = test::horsLigne(doc, d);
  EXPECT_EQ(frettes(tout), (std::vector<int>{1, 2, 3, 9}));
  // The fret 9 note, cut at the stop, is released there: 4 beats from X 48 of bar 1.
  ASSERT_FALSE(tout.empty());
  EXPECT_EQ(std::make_pair(tout.back().message, tout.back().temps),
            std::make_pair(midiPack(0x80, 64 + 9, 0x7F), std::int64_t{192}));
  MessagesDates dates;
  for (const MessageJoué& m : tout)
    dates.push_back({m.ms, m.message});
  EXPECT_TRUE(test::toutRelâché(dates));

  // An empty document, and a start past the end, give the set-up only.
  CVantoroTablature vide = test::document(2);
  const std::vector<MessageJoué> réglages = test::horsLigne(vide);
  for (const MessageJoué& m : réglages)
    EXPECT_LT(m.temps, 0);
  vide.setCurseurMesure(9);
  EXPECT_EQ(test::horsLigne(vide).size(), réglages.size());
}

}  // namespace
}  // namespace vt
