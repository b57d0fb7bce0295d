#include "music/accordage.h"

#include <array>
#include <cmath>

namespace vt {

namespace {
constexpr std::array<const char*, 12> kNoms = {"A",  "A#", "B", "C",  "C#", "D",
                                               "D#", "E",  "F", "F#", "G",  "G#"};
}  // namespace

double midiDeHz(double hz) {
  return 69.0 + 12.0 * std::log2(hz / 440.0);
}

double hzDeMidi(double midi) {
  return 440.0 * std::exp2((midi - 69.0) / 12.0);
}

const char* nomNote(int midi) {
  return kNoms[static_cast<std::size_t>(((midi + 3) % 12 + 12) % 12)];
}

NoteEntendue noteEntendue(double hz, std::span<const int> cordes) {
  NoteEntendue n;
  if (!(hz > 0)) return n;
  const double m = midiDeHz(hz);
  n.midi = static_cast<int>(std::lround(m));
  n.cents = 100.0 * (m - n.midi);
  double écart = 0;
  for (std::size_t i = 0; i < cordes.size(); ++i) {
    if (cordes[i] <= 0) continue;
    const double e = m - cordes[i];
    if (n.corde == 0 || std::abs(e) < std::abs(écart)) {
      n.corde = static_cast<int>(i) + 1;
      écart = e;
    }
  }
  n.centsCorde = 100.0 * écart;
  return n;
}

}  // namespace vt
