// Standard MIDI files assembled in tests.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "formats/hex.h"

namespace vt::test {

using Octets = std::vector<std::uint8_t>;

// A header of the format and division, then one MTrk chunk per entry.
inline Octets smf(int format, int division, const std::vector<Octets>& pistes) {
  const auto n = static_cast<int>(pistes.size());
  Octets o{'M',
           'T',
           'h',
           'd',
           0,
           0,
           0,
           6,
           0,
           static_cast<std::uint8_t>(format),
           static_cast<std::uint8_t>(n >> 8),
           static_cast<std::uint8_t>(n),
           static_cast<std::uint8_t>(division >> 8),
           static_cast<std::uint8_t>(division)};
  for (const Octets& p : pistes) {
    const auto t = static_cast<std::uint32_t>(p.size());
    o.insert(o.end(), {'M', 'T', 'r', 'k', static_cast<std::uint8_t>(t >> 24),
                       static_cast<std::uint8_t>(t >> 16), static_cast<std::uint8_t>(t >> 8),
                       static_cast<std::uint8_t>(t)});
    o.insert(o.end(), p.begin(), p.end());
  }
  return o;
}

// A track chunk's events written at absolute ticks, in rising order.
class PisteMidi {
 public:
  PisteMidi& on(long tick, int note, int vélocité = 100, int canal = 0) {
    return evt(tick, {0x90 | canal, note, vélocité});
  }
  PisteMidi& off(long tick, int note, int canal = 0) { return evt(tick, {0x80 | canal, note, 0}); }
  PisteMidi& meta(long tick, int type, const std::string& données) {
    delta(tick);
    m_o.insert(m_o.end(), {0xFF, static_cast<std::uint8_t>(type)});
    appendVarLen(m_o, static_cast<std::uint32_t>(données.size()));
    m_o.insert(m_o.end(), données.begin(), données.end());
    return *this;
  }
  PisteMidi& evt(long tick, std::initializer_list<int> octets) {
    delta(tick);
    for (int b : octets)
      m_o.push_back(static_cast<std::uint8_t>(b));
    return *this;
  }
  Octets fin(long tick) {
    meta(tick, 0x2F, "");
    return m_o;
  }

 private:
  void delta(long tick) {
    if (tick < m_t) throw std::logic_error("events out of order");
    appendVarLen(m_o, static_cast<std::uint32_t>(tick - m_t));
    m_t = tick;
  }
  Octets m_o;
  long m_t = 0;
};

}  // namespace vt::test
