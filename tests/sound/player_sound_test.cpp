// The player's walk heard: documents rendered offline through FluidSynth and
// the pitch of what sounds found in the samples.
#include <gtest/gtest.h>

#include <cmath>

#include "player_test_util.h"
#include "sound/rendu_hors_ligne.h"
#include "sound_test_util.h"

namespace vt {
namespace {

using test::poser;

double hertz(double midi) {
  return 440.0 * std::pow(2.0, (midi - 69) / 12.0);
}

struct Écoute {
  RenduPcm pcm;
  std::vector<float> son;
  double hz(double débutMs, double finMs) const {
    return test::frequenceFondamentale(test::tranche(son, pcm.fréquence, débutMs, finMs),
                                       pcm.fréquence);
  }
};

Écoute écouter(const CVantoroTablature& doc) {
  Écoute e;
  e.pcm = rendrePcm(rendreDocument(doc));
  EXPECT_FALSE(e.pcm.soundFont.empty()) << "no General MIDI SoundFont: scripts/setup installs one";
  e.son = test::mono(e.pcm.échantillons);
  return e;
}

// One rendering for every case: at 120 a bar lasts two seconds, and each
// sounding bar is followed by a silent one so that no tail reaches the next.
// Bar 1: fret 5 on the first string; bar 3: a natural harmonic over the
// twelfth fret, bar 5 over the seventh; bar 7: an artificial harmonic on fret
// 5; bar 9: a bend from fret 5 to fret 7 over two beats.
const Écoute& rendu() {
  static const Écoute e = [] {
    CVantoroTablature doc = test::document(9);
    doc.tempo = 120;
    poser(doc, 1, 1, 1, 0, 5, 192);
    poser(doc, 1, 3, 1, 0, 12, 192, 0, attaque::kHarmoniqueNaturelle);
    poser(doc, 1, 5, 1, 0, 7, 192, 0, attaque::kHarmoniqueNaturelle);
    poser(doc, 1, 7, 1, 0, 5, 192, 0, attaque::kHarmoniqueArtificielle);
    poser(doc, 1, 9, 1, 0, 5, 96, effet::kBendUp);
    poser(doc, 1, 9, 1, 96, 7, 96);
    return écouter(doc);
  }();
  return e;
}
constexpr double kBar = 2000;

TEST(PlayerSound, FretFiveOnTheFirstStringIsA440AndStopsWithTheNote) {
  const Écoute& e = rendu();
  EXPECT_NEAR(e.hz(200, 900), 440.0, 4.4);
  EXPECT_LT(test::rms(test::tranche(e.son, e.pcm.fréquence, 3500, 4000)),
            0.1 * test::rms(test::tranche(e.son, e.pcm.fréquence, 200, 900)));
}

// A natural harmonic sounds at its node: over the twelfth fret it is that
// fret's note, an octave above the open string, no higher; over the seventh
// fret, the nineteenth fret's note. An artificial harmonic sounds an octave
// above the fretted note.
TEST(PlayerSound, HarmonicsSoundWhereTheirNodeSays) {
  const Écoute& e = rendu();
  const double ouverte = hertz(64);
  EXPECT_NEAR(e.hz(2 * kBar + 200, 2 * kBar + 900), 2 * ouverte, 0.01 * 2 * ouverte);
  EXPECT_NEAR(e.hz(4 * kBar + 200, 4 * kBar + 900), hertz(64 + 19), 0.01 * hertz(64 + 19));
  EXPECT_NEAR(e.hz(6 * kBar + 200, 6 * kBar + 900), 880.0, 8.8);
}

// A bend from fret 5 to fret 7 over two beats: the wheel rises on the A and
// holds the B without a new attack; the bend range the track's set-up tells
// the synthesiser (12 semitones) makes the wheel's steps the right size.
TEST(PlayerSound, ABendRaisesThePitchToTheTargetFret) {
  const Écoute& e = rendu();
  const double avant = e.hz(8 * kBar + 20, 8 * kBar + 150);
  const double milieu = e.hz(8 * kBar + 450, 8 * kBar + 550);
  const double après = e.hz(8 * kBar + 1150, 8 * kBar + 1800);
  EXPECT_NEAR(avant, 440.0, 0.02 * 440.0);
  EXPECT_GT(milieu, avant * 1.03);
  EXPECT_LT(milieu, hertz(71) * 0.98);
  EXPECT_NEAR(après, hertz(71), 0.01 * hertz(71));
}

}  // namespace
}  // namespace vt
