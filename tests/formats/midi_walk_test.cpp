// The per-tick walk shared by the MIDI export and the player, checked through
// the events it reports and the state it exposes.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "formats/midi_walk.h"
#include "interchange_test_util.h"

namespace vt {
namespace {

using test::Enregistreur;
using test::marcher;
using test::poser;
using E = WalkEventType;
using V = std::vector<std::string>;

// The events of a walk, all or of one type, as "tick:string bytes" in hex.
V vue(const Enregistreur& r, std::optional<E> type = std::nullopt) {
  V v;
  for (const auto& e : r.evts)
    if (!type || e.e.type == *type)
      v.push_back(std::to_string(e.e.temps) + ":" + std::to_string(e.e.corde) + " " +
                  test::hex({e.e.octets.data(), static_cast<std::size_t>(e.e.taille)}));
  return v;
}

TEST(MidiWalkNotes, OnAndOffAtTheirTicksWithVolumeAsVelocityAndARestRightAfterANoteRingsOn) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 48, 0, 0, 95);
  poser(doc, 1, 1, 1, 48, 5, 24);
  EXPECT_EQ(vue(marcher(doc)),
            (V{"0:1 90 43 5F", "48:1 80 43 7F", "48:1 90 45 7F", "72:1 80 45 7F"}));
  // A rest right after a note lets it ring on, but not after a gap.
  doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 48);
  doc.setNoteWhole(1, 1, 1, 48, kCaseVide, 48);  // blank note at once: rings on
  poser(doc, 1, 1, 2, 0, 3, 24);
  doc.setNoteWhole(1, 1, 2, 48, kCaseVide, 48);  // after a gap: nothing
  EXPECT_EQ(vue(marcher(doc), E::NoteOff), (V{"24:2 80 3E 7F", "96:1 80 43 7F"}));
}

TEST(MidiWalkNotes, TiesEndOneTickEarlyAcrossABarLineHarmonicsSoundAtTheirNodeDeadNotesOneTick) {
  CVantoroTablature doc = test::document(2);
  // Within the bar: a chain of two ties, exact.
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kLiaison);
  poser(doc, 1, 1, 1, 48, 5, 48, effet::kLiaison);
  poser(doc, 1, 1, 1, 96, 5, 24);
  // Across the bar line: ends at 239 instead of 240.
  poser(doc, 1, 1, 2, 144, 7, 48, effet::kLiaison);
  poser(doc, 1, 2, 2, 0, 7, 48);
  const Enregistreur r = marcher(doc);
  EXPECT_EQ(vue(r), (V{"0:1 90 45 7F", "120:1 80 45 7F", "144:2 90 42 7F", "239:2 80 42 7F"}));
  EXPECT_EQ(std::make_pair(r.evts[3].e.mesure, r.evts[3].e.x), std::make_pair(2, 47));
  // Harmonics sound at their node, artificial ones an octave up; dead notes last one tick.
  doc = test::document(1);
  const std::pair<int, int> cas[] = {{12, 12}, {7, 19}, {5, 24}, {9, 28}, {4, 28}, {3, 3}};
  int x = 0;
  for (const auto& [frette, sonore] : cas) {
    poser(doc, 1, 1, 6, x, frette, 12, 0, attaque::kHarmoniqueNaturelle);
    x += 24;
  }
  poser(doc, 1, 1, 1, 0, 3, 24, 0, attaque::kHarmoniqueArtificielle);
  poser(doc, 1, 1, 3, 10, 0, 48, 0, attaque::kDeadNote);
  const Enregistreur h = marcher(doc);
  std::vector<int> hauteurs;
  for (const auto& e : h.deType(E::NoteOn))
    hauteurs.push_back(e.e.octets[1]);
  EXPECT_EQ(hauteurs, (std::vector<int>{64 + 15, 52, 55, 59, 64, 68, 68, 43}));
  const V off = vue(h, E::NoteOff);
  EXPECT_NE(std::find(off.begin(), off.end(), "11:3 80 37 7F"), off.end());
}

TEST(MidiWalkEffects, VibratoControllerAfterTheNoteAndWholeToneModeStepsNotDoubled) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 3, 48, effet::kVibrato);
  poser(doc, 1, 1, 1, 48, 3, 48);
  EXPECT_EQ(vue(marcher(doc)), (V{"0:1 90 43 7F", "0:0 B0 01 32", "48:1 80 43 7F", "48:0 B0 01 00",
                                  "48:1 90 43 7F", "96:1 80 43 7F"}));
  // Whole-tone mode steps in wheel units, not doubled.
  doc = test::document(1);
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
  EXPECT_EQ(vue(r, E::NoteOn), (V{"0:1 90 45 7F", "0:2 90 40 7F", "48:2 90 43 7F"}));
}

// A bend up from fret 5 to fret 7 over 48 ticks, range 12: the step is
// (2 * 8192 / 12) / 48 = 28.44, rounded 28, doubled for every second tick.
TEST(MidiWalkEffects, GlideOverTheBendRangeEverySecondTickWithoutANewAttackAndAcrossABarLine) {
  CVantoroTablature doc = test::document(1);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kBendUp);
  poser(doc, 1, 1, 1, 48, 7, 48);
  poser(doc, 1, 1, 1, 96, 3, 48);
  const Enregistreur r = marcher(doc);
  V attendu;  // 24 steps from X 2 to X 48, then the reset
  for (int k = 1; k <= 24; ++k) {
    const int v = 8192 + 56 * k;
    const auto b = test::octets({0xE0, v & 0x7F, v >> 7});
    attendu.push_back(std::to_string(2 * k) + ":1 " + test::hex(b));
  }
  attendu.push_back("96:1 E0 00 40");
  EXPECT_EQ(vue(r, E::PitchWheel), attendu);
  // The bent note glides into fret 7 and releases the pitch that was struck.
  EXPECT_EQ(vue(r, E::NoteOn), (V{"0:1 90 45 7F", "96:1 90 43 7F"}));
  EXPECT_EQ(vue(r, E::NoteOff), (V{"96:1 80 45 7F", "144:1 80 43 7F"}));
  // A glide wider than the range takes the whole range.
  doc = test::document(2);
  poser(doc, 1, 1, 1, 0, 5, 48, effet::kSlideUp);
  poser(doc, 1, 1, 1, 48, 9, 48);
  WalkOptions o;
  o.effets.setMIDIPitchBendRange = 2;  // diff 4 > 2: 8192 / 48 = 170.67, rounded 171
  EXPECT_EQ(vue(marcher(doc, o), E::PitchWheel)[0], "2:1 E0 56 42");  // 8192 + 342

  // The target at X 0 of the next bar: 48 ticks of glide from X 144, no new attack.
  doc = test::document(2);
  poser(doc, 1, 1, 1, 144, 5, 48, effet::kSlideUp);
  poser(doc, 1, 2, 1, 0, 7, 48);
  const Enregistreur barre = marcher(doc);
  const V roues = vue(barre, E::PitchWheel);
  ASSERT_EQ(roues.size(), 24u);
  EXPECT_EQ(roues.front().substr(0, 6), "146:1 ");
  EXPECT_EQ(barre.deType(E::NoteOn).size(), 1u);
}

TEST(MidiWalkRepeats, APassagePlaysDataPlusOneTimesFromTheLeftRepeatOrTheStart) {
  for (int data : {0, 1, 2}) {
    for (bool gauche : {true, false}) {
      SCOPED_TRACE(testing::Message() << "data " << data << (gauche ? "" : ", no left repeat"));
      CVantoroTablature doc = test::document(3);
      for (int m = 1; m <= 3; ++m)
        poser(doc, 1, m, 1, 0, m, 48);
      if (gauche) doc.setMesureLoopGaucheType(1, barre::kRepetition);
      doc.setMesureLoopDroiteType(2, barre::kRepetition);
      doc.setMesureLoopDroiteData(2, static_cast<byt>(data));
      WalkInput in = walkInputFromDocument(doc);
      MidiWalk w(in, {});
      Enregistreur r;
      w.run(r);
      std::vector<int> attendues, frettes;
      for (int k = 0; k <= data; ++k)
        attendues.insert(attendues.end(), {1, 2});
      attendues.push_back(3);
      const auto on = r.deType(E::NoteOn);
      for (std::size_t i = 0; i < on.size(); ++i) {
        frettes.push_back(on[i].e.octets[1] - 64);
        EXPECT_EQ(on[i].e.temps, 192 * static_cast<int>(i));
        EXPECT_EQ(on[i].e.aprèsSaut, data > 0 && i % 2 == 0 && i > 0 && i < on.size() - 1);
      }
      EXPECT_EQ(frettes, attendues);
      EXPECT_EQ(w.sauts(), data);
      WalkOptions sans;
      sans.repeats = false;
      EXPECT_EQ(marcher(doc, sans).deType(E::NoteOn).size(), 3u);
    }
  }
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
  for (int pas = 0; !w.fini() && pas < 10'000'000; ++pas)
    w.step(r);
  EXPECT_TRUE(w.fini());
  EXPECT_LE(r.deType(E::NoteOn).size(), 256u);
}

TEST(MidiWalkPlayer, StepByStepStateStartStopMuteAndSilence) {
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
  EXPECT_EQ((std::vector<int>{w.mesure(), w.x(), static_cast<int>(w.temps()), w.corde(1, 1).hauteur,
                              w.corde(1, 1).restant, w.corde(2, 1).restant}),
            (std::vector<int>{2, 49, 9, 67, 47, 47}));  // track 2 walked although silent
  w.run(r);
  EXPECT_TRUE(w.fini());
  EXPECT_EQ(std::make_pair(w.mesure(), w.x()), std::make_pair(3, 0));
  EXPECT_EQ(vue(r), (V{"8:1 90 43 7F", "56:1 80 43 7F"}));  // nothing of track 2
  Enregistreur fin;
  w.silence(fin);
  EXPECT_TRUE(fin.evts.empty());  // the note had ended

  CVantoroTablature un = test::document(1);
  poser(un, 1, 1, 2, 0, 1, 96);
  WalkInput in1 = walkInputFromDocument(un);
  MidiWalk w1(in1, {});
  Enregistreur r1;
  for (int i = 0; i < 10; ++i)
    w1.step(r1);
  w1.silence(r1);  // releases what sounds
  EXPECT_EQ(vue(r1), (V{"0:2 90 3C 7F", "10:2 80 3C 7F"}));
  EXPECT_FALSE(w1.corde(1, 2).sonne);
}

TEST(MidiWalkPlayer, TempoChangesReportedOnceWhateverTheTracks) {
  CVantoroTablature doc = test::document(2, 3);
  doc.setMesureTempo(2, 96, 90);
  const auto tempos = marcher(doc).deType(E::Tempo);
  ASSERT_EQ(tempos.size(), 1u);
  EXPECT_EQ((std::vector<long>{tempos[0].e.temps, tempos[0].e.tempo, tempos[0].e.piste}),
            (std::vector<long>{288, 90, 0}));
}

}  // namespace
}  // namespace vt
