// The player's walk heard: a document rendered offline through FluidSynth and
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

// At 120 a bar lasts two seconds; each sounding bar is followed by a silent one so that no
// tail reaches the next.
const std::vector<float>& rendu() {
  static const std::vector<float> son = [] {
    CVantoroTablature doc = test::document(9);
    doc.tempo = 120;
    poser(doc, 1, 1, 1, 0, 5, 192);
    poser(doc, 1, 3, 1, 0, 12, 192, 0, attaque::kHarmoniqueNaturelle);
    poser(doc, 1, 5, 1, 0, 7, 192, 0, attaque::kHarmoniqueNaturelle);
    poser(doc, 1, 7, 1, 0, 5, 192, 0, attaque::kHarmoniqueArtificielle);
    poser(doc, 1, 9, 1, 0, 5, 96, effet::kBendUp);
    poser(doc, 1, 9, 1, 96, 7, 96);
    const RenduPcm pcm = rendrePcm(rendreDocument(doc));
    EXPECT_FALSE(pcm.soundFont.empty()) << "no General MIDI SoundFont: scripts/setup installs one";
    EXPECT_EQ(pcm.fréquence, 44100);
    return test::mono(pcm.échantillons);
  }();
  return son;
}
// The pitch in bar `mesure` (from 1) between two times of it.
double hz(int mesure, double débutMs, double finMs) {
  const double t = (mesure - 1) * 2000.0;
  return test::hzEntre(rendu(), 44100, t + débutMs, t + finMs);
}

// Fret 5 on the first string is A 440 and stops with the note. A natural harmonic sounds
// at its node: over the twelfth fret it is that fret's note, an octave above the open
// string, no higher; over the seventh fret, the nineteenth fret's note. An artificial
// harmonic sounds an octave above the fretted note. A bend from fret 5 to fret 7 over two
// beats: the wheel rises on the A and holds the B without a new attack; the bend range the
// track's set-up tells the synthesiser (12 semitones) makes the wheel's steps the right size.
TEST(PlayerSound, FretsHarmonicsAndABendSoundAtTheirPitch) {
  EXPECT_NEAR(hz(1, 200, 900), 440.0, 4.4);
  EXPECT_LT(test::rms(test::tranche(rendu(), 44100, 3500, 4000)),
            0.1 * test::rms(test::tranche(rendu(), 44100, 200, 900)));
  EXPECT_NEAR(hz(3, 200, 900), 2 * hertz(64), 0.01 * 2 * hertz(64));
  EXPECT_NEAR(hz(5, 200, 900), hertz(64 + 19), 0.01 * hertz(64 + 19));
  EXPECT_NEAR(hz(7, 200, 900), 880.0, 8.8);
  const double avant = hz(9, 20, 150), milieu = hz(9, 450, 550);
  EXPECT_NEAR(avant, 440.0, 0.02 * 440.0);
  EXPECT_GT(milieu, avant * 1.03);
  EXPECT_LT(milieu, hertz(71) * 0.98);
  EXPECT_NEAR(hz(9, 1150, 1800), hertz(71), 0.01 * hertz(71));
}

}  // namespace
}  // namespace vt
