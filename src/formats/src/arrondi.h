// Rounding to the nearest integer with ties to even, the rounding of the
// program's integer conversions (deltas of a MIDI file, bend steps, the X of an
// imported note, the column of an ASCII note).
#pragma once

#include <cmath>
#include <cstdint>

namespace vt::detail {

// num / den rounded half to even; den must be positive.
inline std::int64_t arrondiPair(std::int64_t num, std::int64_t den) {
  std::int64_t q = num / den;
  std::int64_t r = num % den;
  if (r < 0) {  // floor division
    r += den;
    --q;
  }
  const std::int64_t deux = 2 * r;
  if (deux > den || (deux == den && (q % 2) != 0)) ++q;
  return q;
}

inline std::int64_t arrondiPair(double x) {
  const double bas = std::floor(x);
  const double reste = x - bas;
  auto q = static_cast<std::int64_t>(bas);
  if (reste > 0.5 || (reste == 0.5 && (q % 2) != 0)) ++q;
  return q;
}

}  // namespace vt::detail
