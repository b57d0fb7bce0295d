// One track chunk of a MIDI file being written: the event bytes and the clock
// that turns document time into deltas.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "arrondi.h"
#include "formats/hex.h"

namespace vt::detail {

class ChunkMidi {
 public:
  // The delta of an event at `temps` (document ticks): the ticks since the
  // latest event times 2.5, rounded half to even. Time only moves forward: an
  // event written out of order (the conductor writes by kind and by track)
  // gets a delta of 0 and leaves the clock where it was.
  void delta(std::int64_t temps) {
    const std::int64_t d = std::max<std::int64_t>(temps - m_dernier, 0);
    const std::int64_t fichier = arrondiPair(d * 5, 2);
    appendVarLen(m_octets, static_cast<std::uint32_t>(std::min<std::int64_t>(fichier, 0x0FFFFFFF)));
    m_dernier = std::max(m_dernier, temps);
  }

  // The growth rule of the repeats: the first event after a jump is placed as
  // if its bar followed the bar of the latest event; when that bar lies past
  // the document, the document gains one bar. Answers whether it must grow.
  bool noterMesure(int mesure, bool aprèsSaut, int sauts, int mesureLast) {
    bool grandir = false;
    if (aprèsSaut && sauts != m_sautTraité) {
      m_sautTraité = sauts;
      grandir = m_dernièreMesure + 1 > mesureLast;
    }
    m_dernièreMesure = std::max(m_dernièreMesure, mesure);
    return grandir;
  }

  void octet(int b) { m_octets.push_back(static_cast<std::uint8_t>(b)); }
  void octets(std::initializer_list<int> l) {
    for (int b : l) octet(b);
  }
  void texte(std::string_view s) { m_octets.insert(m_octets.end(), s.begin(), s.end()); }
  // Meta-event: FF, type, length as a variable-length quantity, data.
  void meta(int type, std::string_view données) {
    octets({0xFF, type});
    appendVarLen(m_octets, static_cast<std::uint32_t>(données.size()));
    texte(données);
  }

  // "MTrk", the length, the events.
  void ajouterA(std::vector<std::uint8_t>& fichier) const {
    const auto n = static_cast<std::uint32_t>(m_octets.size());
    fichier.insert(fichier.end(), {'M', 'T', 'r', 'k', static_cast<std::uint8_t>(n >> 24),
                                   static_cast<std::uint8_t>(n >> 16),
                                   static_cast<std::uint8_t>(n >> 8), static_cast<std::uint8_t>(n)});
    fichier.insert(fichier.end(), m_octets.begin(), m_octets.end());
  }

 private:
  std::vector<std::uint8_t> m_octets;
  std::int64_t m_dernier = 0;
  int m_dernièreMesure = 1;
  int m_sautTraité = 0;
};

}  // namespace vt::detail
