#include "document/cp1252.h"

#include <array>
#include <cstdint>

namespace vt {

namespace {

// Code points of 0x80..0x9F; the undefined bytes keep their own number.
constexpr std::array<char32_t, 32> kHaut = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void ajouterUtf8(std::string& out, char32_t cp) {
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

// The byte of a code point, or '?' when the code page has none.
char versCp1252(char32_t cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (std::size_t i = 0; i < kHaut.size(); ++i)
    if (kHaut[i] == cp) return static_cast<char>(0x80 + i);
  return '?';
}

// Decodes one UTF-8 sequence at `i`; returns its length, 0 when malformed.
std::size_t décoder(std::string_view s, std::size_t i, char32_t& cp) {
  const auto o = [&](std::size_t k) { return static_cast<std::uint8_t>(s[k]); };
  const std::uint8_t b = o(i);
  std::size_t n = 0;
  char32_t min = 0;
  if (b < 0x80) {
    cp = b;
    return 1;
  } else if ((b & 0xE0) == 0xC0) {
    n = 2, cp = b & 0x1F, min = 0x80;
  } else if ((b & 0xF0) == 0xE0) {
    n = 3, cp = b & 0x0F, min = 0x800;
  } else if ((b & 0xF8) == 0xF0) {
    n = 4, cp = b & 0x07, min = 0x10000;
  } else {
    return 0;
  }
  if (i + n > s.size()) return 0;
  for (std::size_t k = 1; k < n; ++k) {
    if ((o(i + k) & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (o(i + k) & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return n;
}

}  // namespace

std::string cp1252ToUtf8(std::string_view cp1252) {
  std::string out;
  out.reserve(cp1252.size() + cp1252.size() / 4);
  for (char c : cp1252) {
    const auto b = static_cast<std::uint8_t>(c);
    if (b < 0x80)
      out += c;
    else
      ajouterUtf8(out, b < 0xA0 ? kHaut[b - 0x80] : char32_t{b});
  }
  return out;
}

std::string utf8ToCp1252(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    char32_t cp = 0;
    const std::size_t n = décoder(utf8, i, cp);
    if (n == 0) {
      out += '?';
      ++i;
    } else {
      out += versCp1252(cp);
      i += n;
    }
  }
  return out;
}

bool isValidUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    char32_t cp = 0;
    const std::size_t n = décoder(text, i, cp);
    if (n == 0) return false;
    i += n;
  }
  return true;
}

}  // namespace vt
