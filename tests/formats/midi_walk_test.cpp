// The per-tick walk shared by the MIDI export and the player, checked through
// the events it reports and the state it exposes.
#include <gtest/gtest.h>

#include "formats/midi_walk.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::Enregistreur;
using test::marcher;
using test::poser;
using E = WalkEventType;

std::array<byt, 3> msg(int a, int b, int c) {
  return {static_cast<byt>(a), static_cast<byt>(b), static_cast<byt>(c)};
}

TEST(MidiWalkNotes, OnAndOffAtTheirTicksWithVolumeAsVelocity) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 48, 0, 0, 95);
  poser(doc, 1, 1, 1, 48, 5, 24);
  const Enregistreur r = marcher(doc);
  ASSERT_EQ(r.evts.size(), 4u);
  EXPECT_EQ(r.evts[0].e.type, E::NoteOn);
  EXPECT_EQ(r.evts[0].e.octets, msg(0x90, 67, 95));
  EXPECT_EQ(r.evts[1].e.type, E::NoteOff);  // the old note ends before the new one starts
  EXPECT_EQ(r.evts[1].e.octets, msg(0x80, 67, 0x7F));
  EXPECT_EQ(r.evts[1].e.temps, 48);
  EXPECT_EQ(r.evts[2].e.octets, msg(0x90, 69, 127));
  EXPECT_EQ(r.evts[3].e.temps, 72);
}

TEST(MidiWalkNotes, RestRightAfterANoteLetsItRingOnButNotAfterAGap) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 48);
  doc.setNoteWhole(1, 1, 1, 48, kCaseVide, 48);  // blank note at once: rings on
  poser(doc, 1, 1, 2, 0, 3, 24);
  doc.setNoteWhole(1, 1, 2, 48, kCaseVide, 48);  // after a gap: nothing
  const Enregistreur r = marcher(doc);
  const auto off = r.deType(E::NoteOff);
  ASSERT_EQ(off.size(), 2u);
  EXPECT_EQ(off[0].e.corde, 2);
  EXPECT_EQ(off[0].e.temps, 24);
  EXPECT_EQ(off[1].e.corde, 1);
  EXPECT_EQ(off[1].e.temps, 96);
}

TEST(MidiWalkNotes, TiesAddTheFollowingNotesAndEndOneTickEarlyAcrossABarLine) {
  CVantoroTablature doc = test::document(2);
  // Within the bar: a chain of two ties, exact.
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kLiaison);
  poser(doc, 1, 1, 1, 48, 5, 48, effet::kLiaison);
  poser(doc, 1, 1, 1, 96, 5, 24);
  // Across the bar line: ends at 239 instead of 240.
  poser(doc, 1, 1, 2, 144, 7, 48, effet::kLiaison);
  poser(doc, 1, 2, 2, 0, 7, 48);
  const Enregistreur r = marcher(doc);
  const auto on = r.deType(E::NoteOn);
  ASSERT_EQ(on.size(), 2u);  // tied notes are not struck again
  const auto off = r.deType(E::NoteOff);
  ASSERT_EQ(off.size(), 2u);
  EXPECT_EQ(off[0].e.corde, 1);
  EXPECT_EQ(off[0].e.temps, 120);
  EXPECT_EQ(off[1].e.corde, 2);
  EXPECT_EQ(off[1].e.temps, 239);
  EXPECT_EQ(off[1].e.mesure, 2);
  EXPECT_EQ(off[1].e.x, 47);
}

TEST(MidiWalkNotes, HarmonicsSoundAtTheirNodeArtificialOnesAnOctaveUp) {
  CVantoroTablature doc = test::document(1);
  const std::pair<int, int> cas[] = {{12, 12}, {7, 19}, {5, 24}, {9, 28}, {4, 28}, {3, 3}};
  int x = 0;
  for (const auto& [frette, sonore] : cas) {
    poser(doc, 1, 1, 6, x, frette, 12, 0, attaque::kHarmoniqueNaturelle);
    x += 24;
  }
  poser(doc, 1, 1, 1, 0, 3, 24, 0, attaque::kHarmoniqueArtificielle);
  const Enregistreur r = marcher(doc);
  std::vector<int> hauteurs;
  for (const auto& e : r.deType(E::NoteOn))
    if (e.e.corde == 6) hauteurs.push_back(e.e.octets[1]);
  EXPECT_EQ(hauteurs, (std::vector<int>{52, 59, 64, 68, 68, 43}));
  EXPECT_EQ(r.deType(E::NoteOn)[0].e.octets[1], 64 + 15);
}

TEST(MidiWalkNotes, DeadNoteLastsOneTick) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 3, 10, 0, 48, 0, attaque::kDeadNote);
  const auto off = marcher(doc).deType(E::NoteOff);
  ASSERT_EQ(off.size(), 1u);
  EXPECT_EQ(off[0].e.temps, 11);
}

TEST(MidiWalkEffects, VibratoControllerAfterTheNoteAndResetBeforeTheNext) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 48, effet::kVibrato);
  poser(doc, 1, 1, 1, 48, 3, 48);
  const Enregistreur r = marcher(doc);
  ASSERT_GE(r.evts.size(), 5u);
  EXPECT_EQ(r.evts[0].e.type, E::NoteOn);
  EXPECT_EQ(r.evts[1].e.octets, msg(0xB0, 1, 50));
  EXPECT_EQ(r.evts[2].e.type, E::NoteOff);
  EXPECT_EQ(r.evts[3].e.octets, msg(0xB0, 1, 0));
  EXPECT_EQ(r.evts[4].e.type, E::NoteOn);
}

// A bend up from fret 5 to fret 7 over 48 ticks, range 12: the step is
// (2 * 8192 / 12) / 48 = 28.44, rounded 28, doubled for every second tick.
TEST(MidiWalkEffects, GlideOverTheBendRangeEverySecondTickWithoutANewAttack) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kBendUp);
  poser(doc, 1, 1, 1, 48, 7, 48);
  poser(doc, 1, 1, 1, 96, 3, 48);
  const Enregistreur r = marcher(doc);
  const auto roues = r.deType(E::PitchWheel);
  ASSERT_EQ(roues.size(), 25u);  // 24 steps from X 2 to X 48, then the reset
  for (int k = 0; k < 24; ++k) {
    const int v = 8192 + 56 * (k + 1);
    EXPECT_EQ(roues[static_cast<std::size_t>(k)].e.temps, 2 * (k + 1));
    EXPECT_EQ(roues[static_cast<std::size_t>(k)].e.octets, msg(0xE0, v & 0x7F, v >> 7));
  }
  EXPECT_EQ(roues[24].e.octets, msg(0xE0, 0x00, 0x40));
  EXPECT_EQ(roues[24].e.temps, 96);

  const auto on = r.deType(E::NoteOn);
  ASSERT_EQ(on.size(), 2u);  // the bent note glides into fret 7
  EXPECT_EQ(on[1].e.temps, 96);
  const auto off = r.deType(E::NoteOff);
  ASSERT_EQ(off.size(), 2u);
  EXPECT_EQ(off[0].e.temps, 96);
  EXPECT_EQ(off[0].e.octets[1], 69);  // releases the pitch that was struck
}

TEST(MidiWalkEffects, GlideWiderThanTheRangeTakesTheWholeRange) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kSlideUp);
  poser(doc, 1, 1, 1, 48, 9, 48);
  WalkOptions o;
  o.effets.setMIDIPitchBendRange = 2;  // diff 4 > 2: 8192 / 48 = 170.67, rounded 171
  const auto roues = marcher(doc, o).deType(E::PitchWheel);
  ASSERT_GE(roues.size(), 1u);
  const int v = 8192 + 342;
  EXPECT_EQ(roues[0].e.octets, msg(0xE0, v & 0x7F, v >> 7));
}

TEST(MidiWalkEffects, WholeToneModeStepsInWheelUnitsNotDoubled) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kSlideDown);
  poser(doc, 1, 1, 1, 48, 3, 48);  // diff -2, within 64 \ 32 = 2
  poser(doc, 1, 1, 2, 0, 5, 48, effet::kBendDown);
  poser(doc, 1, 1, 2, 48, 8, 48);  // diff 3: held to 2, and the next note is struck
  WalkOptions o;
  o.effets.setMIDIEffet1Ton = -1;
  const Enregistreur r = marcher(doc, o);
  std::vector<int> premiers;
  for (const auto& e : r.deType(E::PitchWheel))
    if (e.e.temps == 2) premiers.push_back((e.e.octets[2] << 7 | e.e.octets[1]) - 8192);
  // (32 * diff * 256) / 48 = -341.33 and 341.33
  EXPECT_EQ(premiers, (std::vector<int>{-341, 341}));
  int onCorde1 = 0, onCorde2 = 0;
  for (const auto& e : r.deType(E::NoteOn))
    (e.e.corde == 1 ? onCorde1 : onCorde2)++;
  EXPECT_EQ(onCorde1, 1);
  EXPECT_EQ(onCorde2, 2);
}

TEST(MidiWalkEffects, GlideTargetInTheNextBarAtXZero) {
  CVantoroTablature doc = test::document(2);
  poser(doc, 1, 1, 1, 144, 5, 48, effet::kSlideUp);
  poser(doc, 1, 2, 1, 0, 7, 48);
  const Enregistreur r = marcher(doc);
  const auto roues = r.deType(E::PitchWheel);
  // 48 ticks of glide from X 144: wheel steps at X 146 .. 192 of bar 1.
  ASSERT_EQ(roues.size(), 24u);
  EXPECT_EQ(roues.front().e.temps, 146);
  EXPECT_EQ(r.deType(E::NoteOn).size(), 1u);
}

TEST(MidiWalkRepeats, APassagePlaysDataPlusOneTimes) {
  for (int data : {0, 1, 2}) {
    CVantoroTablature doc = test::document(3);
    for (int m = 1; m <= 3; ++m)
      poser(doc, 1, m, 1, 0, m, 48);
    doc.setMesureLoopGaucheType(1, barre::kRepetition);
    doc.setMesureLoopDroiteType(2, barre::kRepetition);
    doc.setMesureLoopDroiteData(2, static_cast<byt>(data));
    WalkInput in = walkInputFromDocument(doc);
    MidiWalk w(in, {});
    Enregistreur r;
    w.run(r);
    std::vector<int> frettes;
    for (const auto& e : r.deType(E::NoteOn))
      frettes.push_back(e.e.octets[1] - 64);
    std::vector<int> attendues;
    for (int k = 0; k <= data; ++k)
      attendues.insert(attendues.end(), {1, 2});
    attendues.push_back(3);
    EXPECT_EQ(frettes, attendues) << "data " << data;
    EXPECT_EQ(w.sauts(), data);
    const auto on = r.deType(E::NoteOn);
    for (std::size_t i = 0; i < on.size(); ++i)
      EXPECT_EQ(on[i].e.temps, 192 * static_cast<int>(i));
  }
}

TEST(MidiWalkRepeats, WithoutRepeatsOrFromTheStartWhenNoLeftRepeat) {
  CVantoroTablature doc = test::document(3);
  for (int m = 1; m <= 3; ++m)
    poser(doc, 1, m, 1, 0, m, 48);
  doc.setMesureLoopDroiteType(2, barre::kRepetition);
  doc.setMesureLoopDroiteData(2, 1);
  WalkOptions sans;
  sans.repeats = false;
  EXPECT_EQ(marcher(doc, sans).deType(E::NoteOn).size(), 3u);
  const auto on = marcher(doc).deType(E::NoteOn);
  ASSERT_EQ(on.size(), 5u);
  EXPECT_TRUE(on[2].e.aprèsSaut);
  EXPECT_EQ(on[2].e.mesure, 1);
  EXPECT_FALSE(on[3].e.aprèsSaut);
}

TEST(MidiWalkRepeats, NoArrangementOfBarLinesWalksForever) {
  // Two repeat ends without a start: the second keeps re-arming the counter
  // that the first one spends. The walk still ends.
  CVantoroTablature doc = test::document(2);
  poser(doc, 1, 1, 1, 0, 1, 48);
  for (int m = 1; m <= 2; ++m) {
    doc.setMesureLoopDroiteType(m, barre::kRepetition);
    doc.setMesureLoopDroiteData(m, 1);
  }
  WalkInput in = walkInputFromDocument(doc);
  MidiWalk w(in, {});
  Enregistreur r;
  int pas = 0;
  while (!w.fini() && pas < 10'000'000) {
    w.step(r);
    ++pas;
  }
  EXPECT_TRUE(w.fini());
  EXPECT_LE(r.deType(E::NoteOn).size(), 256u);
}

TEST(MidiWalkPlayer, StepByStepStateStartStopAndMute) {
  CVantoroTablature doc = test::document(3, 2);
  poser(doc, 1, 2, 1, 48, 3, 48);
  poser(doc, 2, 2, 1, 48, 5, 48);
  doc.setPistePlaySolo(1, kVrai);  // track 2 is muted by the solo rule
  WalkInputOptions wio;
  wio.soloMute = true;
  WalkInput in = walkInputFromDocument(doc, wio);
  WalkOptions o;
  o.repeats = false;
  o.startMesure = 2;
  o.startX = 40;
  o.stopMesure = 3;
  o.stopX = 0;
  MidiWalk w(in, o);
  Enregistreur r;
  for (int i = 0; i < 9; ++i)
    w.step(r);  // X 40 .. 48
  EXPECT_EQ(w.mesure(), 2);
  EXPECT_EQ(w.x(), 49);
  EXPECT_EQ(w.temps(), 9);
  EXPECT_EQ(w.corde(1, 1).hauteur, 67);
  EXPECT_EQ(w.corde(1, 1).restant, 47);
  EXPECT_EQ(w.corde(2, 1).restant, 47);  // walked although silent
  EXPECT_EQ(r.evts.size(), 1u);
  w.run(r);
  EXPECT_TRUE(w.fini());
  EXPECT_EQ(w.mesure(), 3);
  EXPECT_EQ(w.x(), 0);
  ASSERT_EQ(r.evts.size(), 2u);
  for (const auto& e : r.evts)
    EXPECT_EQ(e.e.piste, 1);
  Enregistreur fin;
  w.silence(fin);
  EXPECT_TRUE(fin.evts.empty());  // the note had ended
}

TEST(MidiWalkPlayer, TempoChangesReportedOnceWhateverTheTracks) {
  CVantoroTablature doc = test::document(2, 3);
  doc.setMesureTempo(2, 96, 90);
  const auto tempos = marcher(doc).deType(E::Tempo);
  ASSERT_EQ(tempos.size(), 1u);
  EXPECT_EQ(tempos[0].e.temps, 288);
  EXPECT_EQ(tempos[0].e.tempo, 90);
  EXPECT_EQ(tempos[0].e.piste, 0);
}

TEST(MidiWalkPlayer, SilenceReleasesWhatSounds) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 2, 0, 1, 96);
  WalkInput in = walkInputFromDocument(doc);
  MidiWalk w(in, {});
  Enregistreur r;
  for (int i = 0; i < 10; ++i)
    w.step(r);
  w.silence(r);
  ASSERT_EQ(r.evts.size(), 2u);
  EXPECT_EQ(r.evts[1].e.octets, msg(0x80, 60, 0x7F));
  EXPECT_EQ(r.evts[1].e.temps, 10);
  EXPECT_FALSE(w.corde(1, 2).sonne);
}

}  // namespace
}  // namespace vt
