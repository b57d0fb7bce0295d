// When the player sends each message, walked offline with the timing
// function the real-time clock uses: exact tempo, tempo changes, triple feel,
// the clicks before the piece, a loop's continuing time.
#include <gtest/gtest.h>

#include "player/play_timing.h"
#include "player_test_util.h"

namespace vt {
namespace {

using test::poser;

// The times of the Note Ons (ms).
std::vector<double> attaques(const std::vector<MessageJoué>& tout) {
  std::vector<double> t;
  for (const MessageJoué& m : tout)
    if (test::estNoteOn(m.message)) t.push_back(m.ms);
  return t;
}

TEST(PlayerTiming, ABarAt120LastsTwoSecondsOnTheTrueTempoClockNotOnWholeMillisecondTicks) {
  CVantoroTablature doc = test::document(2);
  doc.tempo = 120;
  poser(doc, 1, 1, 1, 0, 0, 192);
  poser(doc, 1, 2, 2, 0, 0, 1);
  const std::vector<MessageJoué> tout = test::horsLigne(doc);
  std::vector<double> off;
  for (const MessageJoué& m : tout)
    if (test::estNoteOff(m.message)) off.push_back(m.ms);
  ASSERT_EQ(off.size(), 2u);
  // The whole note ends on the bar line, where the second bar begins.
  EXPECT_DOUBLE_EQ(off[0], 2000.0);
  EXPECT_DOUBLE_EQ(attaques(tout).at(1), 2000.0);
  EXPECT_NEAR(off[1], 2000.0 + 1250.0 / 120, 1e-6);  // one tick: 10.416666 ms
  // Not the editor's whole 10 ms: the piece would last 1920 ms.
  EXPECT_EQ(périodeTickMs(120), 10);
  EXPECT_EQ(périodeTickMs(255), 4);  // 4.9 truncated
  EXPECT_EQ(périodeTickMs(1), 1250);
}

TEST(PlayerTiming, LongPieceDoesNotDrift) {
  CVantoroTablature doc = test::document(1);
  for (int m = 2; m <= 500; ++m)
    doc.addMesure();
  doc.tempo = 97;
  poser(doc, 1, 500, 1, 0, 0, 48);
  const std::vector<double> t = attaques(test::horsLigne(doc));
  ASSERT_EQ(t.size(), 1u);
  // 499 bars of four beats at 97: 1996 beats of 60000 / 97 ms.
  EXPECT_NEAR(t[0], 1996 * 60000.0 / 97, 1e-5);
}

TEST(PlayerTiming, TempoChangeInTheMiddleOfABar) {
  CVantoroTablature doc = test::document(2);
  doc.tempo = 120;
  doc.setMesureTempo(1, 96, 60);
  for (int x : {0, 96, 144})
    poser(doc, 1, 1, 1, x, 0, 24);
  poser(doc, 1, 2, 1, 0, 0, 24);
  const std::vector<double> t = attaques(test::horsLigne(doc));
  ASSERT_EQ(t.size(), 4u);
  EXPECT_NEAR(t[1], 1000.0, 1e-6);  // two beats at 120
  EXPECT_NEAR(t[2], 2000.0, 1e-6);  // then one at 60
  EXPECT_NEAR(t[3], 3000.0, 1e-6);
}

TEST(PlayerTiming, AStartInTheMiddlePlaysAtTheTempoInForceThereSoThePassageKeepsItsPace) {
  CVantoroTablature doc = test::document(2);
  doc.tempo = 120;
  doc.setMesureTempo(1, 96, 60);
  poser(doc, 1, 2, 1, 0, 0, 24);
  doc.setCurseurMesure(2);
  poser(doc, 1, 2, 1, 48, 0, 24);
  const std::vector<double> suite = attaques(test::horsLigne(doc));
  ASSERT_EQ(suite.size(), 2u);
  EXPECT_NEAR(suite[1], 1000.0, 1e-6);  // a beat at 60, not half a second at 120
}

TEST(PlayerTiming, TripleFeelPutsTheOffBeatEighthAtTwoThirdsOfTheBeat) {
  CVantoroTablature doc = test::document(2);
  doc.tempo = 120;
  doc.setTripleFeel(kVrai);
  for (int x = 0; x < 192; x += 24)
    poser(doc, 1, 1, 1, x, 0, 24);
  poser(doc, 1, 2, 1, 0, 0, 12);
  poser(doc, 1, 2, 1, 12, 0, 12);
  const std::vector<double> t = attaques(test::horsLigne(doc));
  ASSERT_EQ(t.size(), 10u);
  for (int beat = 0; beat < 4; ++beat) {
    EXPECT_NEAR(t[static_cast<std::size_t>(2 * beat)], 500.0 * beat, 1e-6);
    EXPECT_NEAR(t[static_cast<std::size_t>(2 * beat + 1)], 500.0 * beat + 1000.0 / 3, 1e-6);
  }
  EXPECT_NEAR(t[8], 2000.0, 1e-6);                    // the bar keeps its length
  EXPECT_NEAR(t[9], 2000.0 + 500.0 * 16 / 48, 1e-6);  // a sixteenth: stretched by 4/3

  doc.setTripleFeel(kFaux);
  EXPECT_NEAR(attaques(test::horsLigne(doc))[1], 250.0, 1e-6);
}

TEST(PlayerTiming, TripleFeelLeavesABeatCutShortByTheBarLineAlone) {
  // In 7/8 the last beat has one eighth: played straight, so that time never
  // goes back at the bar line.
  PositionTick p;
  p.largeur = 168;
  std::int64_t avant = -1;
  for (p.x = 0; p.x <= 168; ++p.x) {
    p.temps = p.x;
    const std::int64_t t = HorlogeTicks::tiers(p, true);
    EXPECT_GT(t, avant) << p.x;
    avant = t;
  }
  p.x = 156;
  p.temps = 156;
  EXPECT_EQ(HorlogeTicks::tiers(p, true), 3 * 156);
  p.x = 24;
  p.temps = 24;
  EXPECT_EQ(HorlogeTicks::tiers(p, true), 3 * 32);
}

TEST(PlayerTiming, TempoElementOfZeroIsIgnored) {
  CVantoroTablature doc = test::document(1);
  doc.tempo = 120;
  doc.setMesureTempo(1, 48, 0);
  poser(doc, 1, 1, 1, 96, 0, 24);
  const std::vector<double> t = attaques(test::horsLigne(doc));
  ASSERT_EQ(t.size(), 1u);
  EXPECT_NEAR(t[0], 1000.0, 1e-6);
}

TEST(PlayerTiming, ClicksBeforeThePieceOnTheOneBasedChannelAtTheTrueBeat) {
  CVantoroTablature doc = test::document(1);
  doc.tempo = 90;
  doc.setMesureSignature(1, 3, 4);
  poser(doc, 1, 1, 1, 0, 0, 24);
  OptionsJeu o;
  o.setMétronomeMIDICanal10 = 1;
  o.setMétronomeMIDINote1 = 37;
  o.setMIDIvolume = 99;
  DemandeJeu d;
  d.beatsAtStart = true;
  d.beatDurée = duréeTempsMs(90);
  const std::vector<MessageJoué> tout = test::horsLigne(doc, d, o);
  std::vector<double> clics;
  std::vector<double> relâches;
  for (const MessageJoué& m : tout) {
    if (m.piste != 0) continue;
    if (test::estNoteOn(m.message)) {
      EXPECT_EQ(m.message, midiPack(0x99, 37, 99));  // channel 10, counted from 1
      clics.push_back(m.ms);
    } else {
      EXPECT_EQ(m.message, midiPack(0x89, 37, 0x7F));
      relâches.push_back(m.ms);
    }
  }
  const double temps = 60000.0 / 90;  // not the record's whole 666 ms
  ASSERT_EQ(clics.size(), 3u);        // the bar under the cursor has three beats
  ASSERT_EQ(relâches.size(), 3u);
  for (std::size_t k = 0; k < 3; ++k) {
    EXPECT_NEAR(clics[k], temps * static_cast<double>(k), 1e-6);
    EXPECT_NEAR(relâches[k], temps * static_cast<double>(k + 1), 1e-6);
  }
  const std::vector<double> t = attaques(tout);
  EXPECT_NEAR(t.back(), 3 * temps, 1e-6);  // the piece after the third beat

  o.setMétronomeMIDICanal10 = 0;
  o.setMIDIchannel = 1;
  for (const MessageJoué& m : test::horsLigne(doc, d, o))
    if (m.piste == 0) {
      EXPECT_EQ(midiStatus(m.message) & 0x0F, 0);
    }
}

TEST(PlayerTiming, ClockKeepsItsTimeAcrossATempoChangeAndALoop) {
  HorlogeTicks h(120, false);
  PositionTick p;
  p.largeur = 192;
  EXPECT_EQ(h.échéance(p), 0);
  p.x = 48;
  p.temps = 48;
  EXPECT_EQ(h.échéance(p), 500'000'000);
  h.changerTempo(60, p);
  p.x = 96;
  p.temps = 96;
  EXPECT_EQ(h.échéance(p), 1'500'000'000);
  h.reprendre(120, 1'500'000'000);
  p.x = 0;
  p.temps = 0;
  EXPECT_EQ(h.échéance(p), 1'500'000'000);
  p.x = 1;
  p.temps = 1;
  EXPECT_EQ(h.échéance(p), 1'500'000'000 + 10'416'666);
}

}  // namespace
}  // namespace vt
