// The metronome's tempo: the three digits joined as text, and the tempo tapped
// by hand from given tap times.
#include <gtest/gtest.h>

#include <vector>

#include "music/tempo_metronome.h"

namespace vt {
namespace {

TEST(TempoMetronome, DigitsMakeTheTempoWithinTheDisplayAndTapTempoIsTheMeanOfTheLastTaps) {
  EXPECT_EQ(tempoDesChiffres(1, 2, 0), 120);
  EXPECT_EQ(tempoDesChiffres(0, 9, 6), 96);
  EXPECT_EQ(tempoDesChiffres(0, 0, 1), 1);
  EXPECT_EQ(tempoDesChiffres(9, 9, 9), 999);
  EXPECT_EQ(tempoDesChiffres(0, 0, 0), -1);
  EXPECT_EQ(tempoDesChiffres(1, 10, 0), -1);
  EXPECT_EQ(tempoDesChiffres(-1, 2, 0), -1);
  EXPECT_EQ(chiffresDuTempo(96), (std::array<int, 3>{0, 9, 6}));
  EXPECT_EQ(chiffresDuTempo(0), (std::array<int, 3>{0, 0, 1}));
  EXPECT_EQ(chiffresDuTempo(1500), (std::array<int, 3>{9, 9, 9}));

  // Tap tempo is the mean of the last taps.
  struct Cas {
    const char* quoi;
    std::vector<double> taps;
    int tempo;
  };
  const Cas cas[] = {
      {"one tap", {1000}, 0},
      {"steady at 120", {0, 500, 1000, 1500}, 120},
      {"the mean of uneven taps", {0, 480, 1000, 1520}, 118},  // 1520 / 3 ms a beat
      {"only the last four intervals", {0, 600, 1200, 1700, 2200, 2700, 3200}, 120},
      {"a pause starts again", {0, 600, 1200, 5000, 5500}, 120},
      {"a change of pace starts again", {0, 1000, 2000, 2400, 2800}, 150},
      {"taps out of order start again", {1000, 500, 1000}, 120},
      {"as fast as the display goes", {0, 50, 100}, 999},
      {"as slow as a pause allows", {0, 2990, 5980}, 20},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.quoi);
    TapTempo t;
    int dernier = -1;
    for (double ms : c.taps)
      dernier = t.tape(ms);
    EXPECT_EQ(dernier, c.tempo);
    EXPECT_EQ(t.tempo(), c.tempo);
  }
  TapTempo t;
  t.tape(0);
  t.tape(500);
  t.oublie();
  EXPECT_EQ(t.tempo(), 0);
}

}  // namespace
}  // namespace vt
