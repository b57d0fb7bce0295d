#include "formats/hex.h"

#include <algorithm>

namespace vt {

namespace {

int chiffre(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return 0;
}

std::string hexPad(std::uint32_t n, std::size_t largeur) {
  static const char kChiffres[] = "0123456789ABCDEF";
  std::string s;
  do {
    s.insert(s.begin(), kChiffres[n & 0xF]);
    n >>= 4;
  } while (n != 0);
  if (s.size() < largeur) s.insert(0, largeur - s.size(), '0');
  return s;
}

}  // namespace

std::vector<std::uint8_t> hexToBytes(std::string_view hex) {
  std::vector<std::uint8_t> out;
  if (hex == "0") return {0};
  out.reserve(hex.size() / 2 + 1);
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    if (i + 1 < hex.size())
      out.push_back(static_cast<std::uint8_t>(chiffre(hex[i]) * 16 + chiffre(hex[i + 1])));
    else
      out.push_back(static_cast<std::uint8_t>(chiffre(hex[i])));
  }
  return out;
}

std::string hexPad2(std::uint32_t n) { return hexPad(n, 2); }
std::string hexPad4(std::uint32_t n) { return hexPad(n, 4); }
std::string hexPad6(std::uint32_t n) { return hexPad(n, 6); }
std::string hexPad8(std::uint32_t n) { return hexPad(n, 8); }

std::string hexPadEven(std::string_view hex) {
  std::string s(hex);
  if (s.size() % 2 != 0) s.insert(s.begin(), '0');
  return s;
}

void appendVarLen(std::vector<std::uint8_t>& out, std::uint32_t n) {
  n = std::min<std::uint32_t>(n, 0x0FFFFFFF);
  std::uint8_t tampon[4];
  int k = 0;
  tampon[k++] = static_cast<std::uint8_t>(n & 0x7F);
  while ((n >>= 7) != 0) tampon[k++] = static_cast<std::uint8_t>(0x80 | (n & 0x7F));
  while (k > 0) out.push_back(tampon[--k]);
}

std::string bytesToVarLen(std::uint32_t n) {
  std::vector<std::uint8_t> octets;
  appendVarLen(octets, n);
  std::string s;
  for (std::uint8_t b : octets) s += hexPad2(b);
  return s;
}

std::string textToHex(std::string_view texte) {
  std::string s;
  s.reserve(texte.size() * 2);
  for (char c : texte) s += hexPad2(static_cast<std::uint8_t>(c));
  return s;
}

std::uint32_t varLenToNumber(std::span<const std::uint8_t> octets) {
  std::uint32_t n = 0;
  for (std::size_t i = 0; i < octets.size() && i < 4; ++i) {
    n = (n << 7) | (octets[i] & 0x7F);
    if (octets[i] < 0x80) break;
  }
  return n;
}

std::uint32_t bytesToNumber(std::span<const std::uint8_t> octets) {
  std::uint32_t n = 0;
  for (std::uint8_t b : octets) n = (n << 8) | b;
  return n;
}

std::string wheelToHex(int valeur) {
  valeur = std::clamp(valeur, 0, 16383);
  return hexPad2(static_cast<std::uint32_t>(valeur & 0x7F)) +
         hexPad2(static_cast<std::uint32_t>(valeur >> 7));
}

}  // namespace vt
