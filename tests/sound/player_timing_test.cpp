// When the player sends each message, walked offline with the real-time clock's timing.
#include <gtest/gtest.h>

#include "player/play_timing.h"
#include "player_test_util.h"

namespace vt {
namespace {

using test::poser;
using Temps = std::vector<double>;

// The times of the Note Ons, or of the Note Offs (ms).
Temps attaques(const std::vector<MessageJoué>& tout,
               bool (*quoi)(std::uint32_t) = test::estNoteOn) {
  Temps t;
  for (const MessageJoué& m : tout)
    if (quoi(m.message)) t.push_back(m.ms);
  return t;
}
void attendsTemps(const Temps& t, const Temps& attendu) {
  ASSERT_EQ(t.size(), attendu.size());
  for (std::size_t i = 0; i < t.size(); ++i)
    EXPECT_NEAR(t[i], attendu[i], 1e-5) << i;
}
CVantoroTablature à120(int mesures) {
  CVantoroTablature doc = test::document(mesures);
  doc.tempo = 120;
  return doc;
}

TEST(PlayerTiming, ABarAt120LastsTwoSecondsOnTheTrueTempoClockNotOnWholeMillisecondTicks) {
  CVantoroTablature doc = à120(2);
  poser(doc, 1, 1, 1, 0, 0, 192);
  poser(doc, 1, 2, 2, 0, 0, 1);
  // The whole note ends on the bar line, where the second bar begins; one
  // tick is 10.416666 ms, not the editor's whole 10 ms (the piece would last 1920 ms).
  const std::vector<MessageJoué> tout = test::horsLigne(doc);
  attendsTemps(attaques(tout, test::estNoteOff), {2000.0, 2000.0 + 1250.0 / 120});
  attendsTemps(attaques(tout), {0, 2000.0});
  EXPECT_EQ(périodeTickMs(120), 10);
  EXPECT_EQ(périodeTickMs(255), 4);  // 4.9 truncated
  EXPECT_EQ(périodeTickMs(1), 1250);

  // The clock keeps its time across a tempo change and a loop.
  HorlogeTicks h(120, false);
  PositionTick p;
  p.largeur = 192;
  const auto à = [&p, &h](int x) {
    p.x = x;
    p.temps = x;
    return h.échéance(p);
  };
  EXPECT_EQ(à(0), 0);
  EXPECT_EQ(à(48), 500'000'000);
  h.changerTempo(60, p);
  EXPECT_EQ(à(96), 1'500'000'000);
  h.reprendre(120, 1'500'000'000);
  EXPECT_EQ(à(0), 1'500'000'000);
  EXPECT_EQ(à(1), 1'500'000'000 + 10'416'666);

  // Tempo changes inside a bar; elements of tempo 0 are ignored; long pieces do not drift.
  CVantoroTablature tempos = à120(2);
  tempos.setMesureTempo(1, 96, 60);
  for (int x : {0, 96, 144})
    poser(tempos, 1, 1, 1, x, 0, 24);
  poser(tempos, 1, 2, 1, 0, 0, 24);
  attendsTemps(attaques(test::horsLigne(tempos)), {0, 1000.0, 2000.0, 3000.0});  // 2 beats at 120

  CVantoroTablature zéro = à120(1);
  zéro.setMesureTempo(1, 48, 0);
  poser(zéro, 1, 1, 1, 96, 0, 24);
  attendsTemps(attaques(test::horsLigne(zéro)), {1000.0});

  CVantoroTablature long_ = test::document(1);
  for (int m = 2; m <= 500; ++m)
    long_.addMesure();
  long_.tempo = 97;
  poser(long_, 1, 500, 1, 0, 0, 48);
  attendsTemps(attaques(test::horsLigne(long_)), {1996 * 60000.0 / 97});  // 499 bars of 4 beats
}

TEST(PlayerTiming, AStartInTheMiddlePlaysAtTheTempoInForceThereSoThePassageKeepsItsPace) {
  CVantoroTablature doc = à120(2);
  doc.setMesureTempo(1, 96, 60);
  poser(doc, 1, 2, 1, 0, 0, 24);
  doc.setCurseurMesure(2);
  poser(doc, 1, 2, 1, 48, 0, 24);
  attendsTemps(attaques(test::horsLigne(doc)), {0, 1000.0});  // a beat at 60, not 500 ms at 120
}

TEST(PlayerTiming, TripleFeelPutsTheOffBeatEighthAtTwoThirdsOfTheBeat) {
  CVantoroTablature doc = à120(2);
  doc.setTripleFeel(kVrai);
  for (int x = 0; x < 192; x += 24)
    poser(doc, 1, 1, 1, x, 0, 24);
  poser(doc, 1, 2, 1, 0, 0, 12);
  poser(doc, 1, 2, 1, 12, 0, 12);
  Temps attendu;
  for (int beat = 0; beat < 4; ++beat)
    attendu.insert(attendu.end(), {500.0 * beat, 500.0 * beat + 1000.0 / 3});
  // The bar keeps its length; a sixteenth is stretched by 4/3.
  attendu.insert(attendu.end(), {2000.0, 2000.0 + 500.0 * 16 / 48});
  attendsTemps(attaques(test::horsLigne(doc)), attendu);
  doc.setTripleFeel(kFaux);
  EXPECT_NEAR(attaques(test::horsLigne(doc))[1], 250.0, 1e-6);

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
    if (p.x == 156) {
      EXPECT_EQ(t, 3 * 156);
    }
    if (p.x == 24) {
      EXPECT_EQ(t, 3 * 32);
    }
  }
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
  std::vector<MessageJoué> clics;
  std::copy_if(tout.begin(), tout.end(), std::back_inserter(clics),
               [](const MessageJoué& m) { return m.piste == 0; });
  // Three beats under the cursor, channel 10 counted from 1, at 60000 / 90 ms
  // (not the record's whole 666 ms); the piece after the third beat.
  const double temps = 60000.0 / 90;
  for (const MessageJoué& m : clics)
    EXPECT_EQ(m.message,
              test::estNoteOn(m.message) ? midiPack(0x99, 37, 99) : midiPack(0x89, 37, 0x7F));
  attendsTemps(attaques(clics), {0, temps, 2 * temps});
  attendsTemps(attaques(clics, test::estNoteOff), {temps, 2 * temps, 3 * temps});
  EXPECT_NEAR(attaques(tout).back(), 3 * temps, 1e-6);

  o.setMétronomeMIDICanal10 = 0;
  o.setMIDIchannel = 1;
  for (const MessageJoué& m : test::horsLigne(doc, d, o))
    if (m.piste == 0) {
      EXPECT_EQ(midiStatus(m.message) & 0x0F, 0);
    }
}

}  // namespace
}  // namespace vt
