#include "sound/lecture_wav.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace vt {

namespace {

constexpr std::uint16_t kFormatPcm = 1;
constexpr std::uint16_t kFormatFlottant = 3;
constexpr std::uint16_t kFormatExtensible = 0xFFFE;

struct Lecteur {
  std::span<const std::uint8_t> o;
  bool u16(std::size_t p, std::uint16_t& v) const {
    if (p + 2 > o.size()) return false;
    v = static_cast<std::uint16_t>(o[p] | (o[p + 1] << 8));
    return true;
  }
  bool u32(std::size_t p, std::uint32_t& v) const {
    if (p + 4 > o.size()) return false;
    v = std::uint32_t(o[p]) | (std::uint32_t(o[p + 1]) << 8) | (std::uint32_t(o[p + 2]) << 16) |
        (std::uint32_t(o[p + 3]) << 24);
    return true;
  }
  bool étiquette(std::size_t p, const char* quatre) const {
    return p + 4 <= o.size() && std::memcmp(o.data() + p, quatre, 4) == 0;
  }
};

SonLu refus(StringId id, std::string détail) {
  SonLu s;
  s.message = id.id;
  s.détail = std::move(détail);
  return s;
}

// One sample at `p`, full scale -1..1.
float échantillon(const std::uint8_t* p, int bits, bool flottant) {
  if (flottant) {
    if (bits == 32) {
      float f;
      std::uint32_t u = std::uint32_t(p[0]) | (std::uint32_t(p[1]) << 8) |
                        (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[3]) << 24);
      std::memcpy(&f, &u, 4);
      return f;
    }
    std::uint64_t u = 0;
    for (int i = 7; i >= 0; --i)
      u = (u << 8) | p[i];
    double d;
    std::memcpy(&d, &u, 8);
    return static_cast<float>(d);
  }
  switch (bits) {
    case 8:
      return (static_cast<int>(p[0]) - 128) / 128.0f;
    case 16:
      return static_cast<std::int16_t>(p[0] | (p[1] << 8)) / 32768.0f;
    case 24: {
      std::int32_t v = std::int32_t(p[0]) | (std::int32_t(p[1]) << 8) | (std::int32_t(p[2]) << 16);
      if (v & 0x800000) v -= 0x1000000;
      return static_cast<float>(v / 8388608.0);
    }
    default: {
      const std::uint32_t u = std::uint32_t(p[0]) | (std::uint32_t(p[1]) << 8) |
                              (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[3]) << 24);
      return static_cast<float>(static_cast<std::int32_t>(u) / 2147483648.0);
    }
  }
}

}  // namespace

SonLu lireWav(std::span<const std::uint8_t> octets) {
  const Lecteur l{octets};
  if (!l.étiquette(0, "RIFF") || !l.étiquette(8, "WAVE")) {
    if (octets.size() < 12 && l.étiquette(0, "RIFF")) return refus(son::kWavTronqué, "header");
    return refus(son::kPasUnWav, {});
  }
  SonLu s;
  bool formatVu = false;
  std::uint16_t bloc = 0;
  std::size_t p = 12;
  while (true) {
    std::uint32_t taille = 0;
    if (!l.u32(p + 4, taille)) {
      if (!formatVu) return refus(son::kWavTronqué, "no format chunk");
      return refus(son::kWavTronqué, "no data chunk");
    }
    const std::size_t corps = p + 8;
    if (l.étiquette(p, "fmt ")) {
      std::uint16_t format = 0, canaux = 0, bits = 0;
      std::uint32_t fréquence = 0;
      if (taille < 16 || corps + 16 > octets.size()) return refus(son::kWavTronqué, "format chunk");
      l.u16(corps, format);
      l.u16(corps + 2, canaux);
      l.u32(corps + 4, fréquence);
      l.u16(corps + 12, bloc);
      l.u16(corps + 14, bits);
      if (format == kFormatExtensible) {
        std::uint16_t sous = 0;
        if (taille < 26 || !l.u16(corps + 24, sous))
          return refus(son::kWavTronqué, "extensible format chunk");
        format = sous;
      }
      const bool flottant = format == kFormatFlottant;
      const bool bitsLus = flottant ? (bits == 32 || bits == 64)
                                    : (bits == 8 || bits == 16 || bits == 24 || bits == 32);
      if ((format != kFormatPcm && !flottant) || !bitsLus)
        return refus(son::kWavEncodage,
                     "format " + std::to_string(format) + ", " + std::to_string(bits) + " bits");
      if (canaux == 0 || fréquence < 1000 || fréquence > 768000 || bloc != canaux * (bits / 8))
        return refus(son::kWavEncodage,
                     std::to_string(canaux) + " channels, " + std::to_string(fréquence) + " Hz");
      s.canaux = canaux;
      s.fréquence = static_cast<int>(fréquence);
      s.bits = bits;
      s.flottant = flottant;
      formatVu = true;
    } else if (l.étiquette(p, "data")) {
      if (!formatVu) return refus(son::kWavEncodage, "data before the format chunk");
      std::size_t n = taille;
      // A writer that streamed the file may leave the size at its maximum.
      if (taille == 0xFFFFFFFFu) n = octets.size() - std::min(corps, octets.size());
      if (corps + n > octets.size())
        return refus(son::kWavTronqué, std::to_string(octets.size() - corps) + " of " +
                                           std::to_string(n) + " bytes of samples");
      const std::size_t trames = n / bloc;
      const int taillÉch = s.bits / 8;
      s.mono.resize(trames);
      for (std::size_t t = 0; t < trames; ++t) {
        const std::uint8_t* q = octets.data() + corps + t * bloc;
        float somme = 0;
        for (int c = 0; c < s.canaux; ++c)
          somme += échantillon(q + c * taillÉch, s.bits, s.flottant);
        s.mono[t] = somme / static_cast<float>(s.canaux);
      }
      return s;
    }
    const std::size_t suivant = corps + taille + (taille & 1);
    if (suivant <= p || suivant > octets.size()) {
      return refus(son::kWavTronqué, formatVu ? "no data chunk" : "no format chunk");
    }
    p = suivant;
  }
}

SonLu lireFichierWav(const std::string& chemin) {
  std::error_code ec;
  if (!std::filesystem::exists(chemin, ec)) return refus(son::kFichierAbsent, chemin);
  if (!std::filesystem::is_regular_file(chemin, ec)) return refus(son::kFichierIllisible, chemin);
  std::ifstream f(chemin, std::ios::binary);
  if (!f) return refus(son::kFichierIllisible, chemin);
  std::vector<std::uint8_t> octets((std::istreambuf_iterator<char>(f)),
                                   std::istreambuf_iterator<char>());
  if (f.bad()) return refus(son::kFichierIllisible, chemin);
  return lireWav(octets);
}

}  // namespace vt
