#include "music/tempo_metronome.h"

#include <algorithm>
#include <cmath>

namespace vt {

int tempoDesChiffres(int h, int m, int l) {
  for (int c : {h, m, l})
    if (c < 0 || c > 9) return -1;
  const int t = h * 100 + m * 10 + l;
  return t >= kTempoMin ? t : -1;
}

std::array<int, 3> chiffresDuTempo(int tempo) {
  const int t = std::clamp(tempo, kTempoMin, kTempoMax);
  return {t / 100, t / 10 % 10, t % 10};
}

int TapTempo::tape(double ms) {
  if (!m_taps.empty()) {
    const double intervalle = ms - m_taps.back();
    if (intervalle <= 0 || intervalle > kPauseMs) {
      m_taps.clear();
    } else if (m_taps.size() >= 2) {
      const double moyenne =
          (m_taps.back() - m_taps.front()) / static_cast<double>(m_taps.size() - 1);
      if (std::abs(intervalle - moyenne) > moyenne / 3)
        m_taps.erase(m_taps.begin(), m_taps.end() - 1);
    }
  }
  m_taps.push_back(ms);
  if (m_taps.size() > kIntervalles + 1) m_taps.erase(m_taps.begin());
  return tempo();
}

int TapTempo::tempo() const {
  if (m_taps.size() < 2) return 0;
  const double moyenne = (m_taps.back() - m_taps.front()) / static_cast<double>(m_taps.size() - 1);
  return std::clamp(static_cast<int>(std::lround(60000.0 / moyenne)), kTempoMin, kTempoMax);
}

}  // namespace vt
