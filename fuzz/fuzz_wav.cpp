// A WAV file on any bytes: the reader, then the tuner's detector over what it
// read. The reader answers with samples or with one of its messages; the
// detector answers a pitch within its range or none, and never reads out of
// its frame.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "music/hauteur.h"
#include "sound/lecture_wav.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const vt::SonLu son = vt::lireWav(std::span<const std::uint8_t>(data, size));
  if (!son.ok()) {
    if (!son.mono.empty()) std::abort();
    return 0;
  }
  if (son.canaux < 1 || son.fréquence < 1000 || son.fréquence > 768000) std::abort();
  // The detector on a slice of it, at rates whose frames stay small.
  if (son.fréquence > 96000) return 0;
  std::vector<float> x(son.mono.begin(),
                       son.mono.begin() + std::ptrdiff_t(std::min<std::size_t>(son.mono.size(), 40000)));
  for (float& v : x)
    if (!std::isfinite(v)) v = 0;
  for (const vt::TrameHauteur& t : vt::hauteursDesTrames(x, son.fréquence)) {
    const double hz = t.hauteur.hz;
    if (hz != 0 && (!(hz >= 29) || hz > 1450)) std::abort();
  }
  return 0;
}
