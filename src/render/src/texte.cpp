#include "texte.h"

#include <array>
#include <cstdint>

namespace vt {

namespace {
// 0x80..0x9F of Windows-1252; 0 where the code page has no character.
constexpr std::array<std::uint16_t, 32> kCp1252Haut{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void ajouteUtf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}
}  // namespace

std::string utf8DepuisCp1252(std::string_view octets) {
  std::string out;
  out.reserve(octets.size());
  for (const char ch : octets) {
    const auto b = static_cast<unsigned char>(ch);
    std::uint32_t cp = b;
    if (b >= 0x80 && b < 0xA0) {
      cp = kCp1252Haut[b - 0x80];
      if (cp == 0) cp = 0xFFFD;
    }
    ajouteUtf8(out, cp);
  }
  return out;
}

std::vector<std::string> lignesDeTexte(std::string_view texte) {
  std::vector<std::string> lignes;
  std::size_t début = 0;
  for (;;) {
    const std::size_t fin = texte.find("\\n", début);
    if (fin == std::string_view::npos) {
      lignes.emplace_back(texte.substr(début));
      return lignes;
    }
    lignes.emplace_back(texte.substr(début, fin - début));
    début = fin + 2;
  }
}

}  // namespace vt
