// Reading a WAV file into samples: PCM of 8, 16, 24 or 32 bits, floating
// point of 32 or 64 bits, plain or "extensible", any number of channels and
// any common rate. Every byte is bounds-checked; a file that says it holds
// more than it does is refused, not read in part.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "formats/string_table.h"

namespace vt {

namespace son {
// The file ends before what its header announces.
inline constexpr StringId kWavTronqué = StringId{3108};
// An encoding this reader does not know (compressed, 12 bits, ...).
inline constexpr StringId kWavEncodage = StringId{3109};
// Not a RIFF WAVE file at all.
inline constexpr StringId kPasUnWav = StringId{3110};
// No such file.
inline constexpr StringId kFichierAbsent = StringId{6001};
// The file cannot be opened or read.
inline constexpr StringId kFichierIllisible = StringId{6121};
}  // namespace son

struct SonLu {
  int message = 0;     // 0, or the string id of why the file was refused
  std::string détail;  // what exactly, in the file's own terms
  int fréquence = 0;   // samples per second
  int canaux = 0;
  int bits = 0;
  bool flottant = false;
  std::vector<float> mono;  // the channels averaged, full scale -1..1
  bool ok() const { return message == 0; }
  double secondes() const { return fréquence > 0 ? double(mono.size()) / fréquence : 0.0; }
};

SonLu lireWav(std::span<const std::uint8_t> octets);
SonLu lireFichierWav(const std::string& chemin);

}  // namespace vt
