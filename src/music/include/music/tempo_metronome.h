// The metronome's tempo: three digits joined as text, and the tempo tapped
// by hand.
#pragma once

#include <array>
#include <vector>

namespace vt {

inline constexpr int kTempoMin = 1;
inline constexpr int kTempoMax = 999;

// The number the three digits make ("0", "9", "6" make 96); -1 when a digit
// is outside 0..9 or the tempo would be 0.
int tempoDesChiffres(int h, int m, int l);
// The digits of a tempo held to 1..999: hundreds, tens, units.
std::array<int, 3> chiffresDuTempo(int tempo);

// Tap tempo: the mean interval of the last taps. A pause of more than
// kPauseMs, or a tap that breaks the pace (an interval off the mean by more
// than a third), starts a new series from the tap before it.
class TapTempo {
 public:
  static constexpr double kPauseMs = 3000;
  static constexpr int kIntervalles = 4;

  // A tap at `ms` (any steady clock in milliseconds; taps in order). Returns
  // the tempo now, or 0 while the series has only one tap.
  int tape(double ms);
  int tempo() const;
  void oublie() { m_taps.clear(); }

 private:
  std::vector<double> m_taps;
};

}  // namespace vt
