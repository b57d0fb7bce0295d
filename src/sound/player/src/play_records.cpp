#include "player/play_records.h"

#include <algorithm>

namespace vt {

namespace {
const OneBased<tPlayTempo> kAucunTempo;
}  // namespace

void PlayMesures::redim(int n) {
  m_mesures.clear();
  m_mesures.resize(n);
  m_tempos.clear();
}

const OneBased<tPlayTempo>& PlayMesures::tempos(int m) const {
  if (!m_mesures.has(m)) return kAucunTempo;
  const auto ref = m_mesures[m].refTempos;
  if (ref == 0 || ref > static_cast<std::uint32_t>(m_tempos.last())) return kAucunTempo;
  return m_tempos[static_cast<int>(ref)];
}

void PlayMesures::setTempos(int m, OneBased<tPlayTempo> tempos) {
  if (!m_mesures.has(m)) return;
  std::uint32_t& ref = m_mesures[m].refTempos;
  if (ref == 0 || ref > static_cast<std::uint32_t>(m_tempos.last())) {
    m_tempos.push_back(std::move(tempos));
    ref = static_cast<std::uint32_t>(m_tempos.last());
  } else {
    m_tempos[static_cast<int>(ref)] = std::move(tempos);
  }
}

void PlayNotes::redim(int pistes, int mesures) {
  m_pistes = std::max(pistes, 0);
  m_mesures = std::max(mesures, 0);
  m_cellules.clear();
  m_listes.clear();
  m_cellules.resize(static_cast<std::size_t>(m_pistes) * static_cast<std::size_t>(m_mesures) *
                    kMaxCordes);
}

bool PlayNotes::dedans(int p, int m, int corde0) const {
  return p >= 1 && p <= m_pistes && m >= 1 && m <= m_mesures && corde0 >= 0 && corde0 < kMaxCordes;
}

std::size_t PlayNotes::index(int p, int m, int corde0) const {
  return (static_cast<std::size_t>(corde0) * static_cast<std::size_t>(m_mesures) +
          static_cast<std::size_t>(m - 1)) *
             static_cast<std::size_t>(m_pistes) +
         static_cast<std::size_t>(p - 1);
}

OneBasedView<tNote> PlayNotes::cellule(int p, int m, int corde0) const {
  return dedans(p, m, corde0) ? m_cellules[index(p, m, corde0)] : OneBasedView<tNote>{};
}

void PlayNotes::setCellule(int p, int m, int corde0, OneBasedView<tNote> notes) {
  if (dedans(p, m, corde0)) m_cellules[index(p, m, corde0)] = m_listes.add(notes);
}

}  // namespace vt
