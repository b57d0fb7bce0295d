#include "formats/walk_input.h"

#include <algorithm>

#include "document/tablature.h"

namespace vt {

namespace {
const std::vector<u16> kAucunAccord;
}  // namespace

WalkInput::WalkInput(int pistes, int mesures)
    : m_pistes(pistes), m_mesures(mesures) {
  const std::size_t n = static_cast<std::size_t>(std::max(pistes, 0)) *
                        static_cast<std::size_t>(std::max(mesures, 0));
  m_notes.resize(n * kMaxCordes);
  m_accords.resize(n);
}

std::size_t WalkInput::cellule(int p, int m) const {
  return static_cast<std::size_t>(m - 1) * static_cast<std::size_t>(m_pistes.last()) +
         static_cast<std::size_t>(p - 1);
}

OneBasedView<tNote> WalkInput::notes(int p, int m, int c) const {
  if (!m_pistes.has(p) || !m_mesures.has(m) || c < 1 || c > kMaxCordes) return {};
  return m_notes[cellule(p, m) * kMaxCordes + static_cast<std::size_t>(c - 1)];
}

void WalkInput::setNotes(int p, int m, int c, OneBasedView<tNote> notes) {
  if (!m_pistes.has(p) || !m_mesures.has(m) || c < 1 || c > kMaxCordes) return;
  m_notes[cellule(p, m) * kMaxCordes + static_cast<std::size_t>(c - 1)] = m_listes.add(notes);
}

const std::vector<u16>& WalkInput::accords(int p, int m) const {
  if (!m_pistes.has(p) || !m_mesures.has(m)) return kAucunAccord;
  return m_accords[cellule(p, m)];
}

void WalkInput::setAccords(int p, int m, std::vector<u16> x) {
  if (m_pistes.has(p) && m_mesures.has(m)) m_accords[cellule(p, m)] = std::move(x);
}

void WalkInput::addMesure() {
  WalkMesure h;
  if (!m_mesures.empty()) {
    h.bytSignatureUp = m_mesures.back().bytSignatureUp;
    h.bytSignatureDn = m_mesures.back().bytSignatureDn;
  }
  m_mesures.push_back(std::move(h));
  const std::size_t p = static_cast<std::size_t>(m_pistes.last());
  m_notes.resize(m_notes.size() + p * kMaxCordes);
  m_accords.resize(m_accords.size() + p);
  ++m_ajoutées;
}

int canalMidi(const CVantoroTablature& doc, int p) {
  if (doc.getStaffType(p) == kStaffBatterie) return 9;
  return (p - 1) & 0x0F;
}

WalkInput walkInputFromDocument(const CVantoroTablature& doc, WalkInputOptions options) {
  const int pistes = doc.getPisteLast();
  const int mesures = doc.getMesureLast();
  WalkInput in(pistes, mesures);

  bool solo = false;
  for (int p = 1; p <= pistes; ++p) solo = solo || doc.getPistePlaySolo(p) != kFaux;

  for (int p = 1; p <= pistes; ++p) {
    const tPiste& src = doc.piste(p);
    WalkPiste& w = in.piste(p);
    w.bytNbrCordes = static_cast<byt>(std::clamp<int>(src.bytNbrCordes, 0, kMaxCordes));
    w.bytCordes = src.bytCordes;
    w.bytCanal = static_cast<byt>(canalMidi(doc, p));
    if (options.soloMute)
      w.boolMuet = (solo && src.boolPlaySolo == kFaux) ? kVrai : src.boolPlayMute;
  }
  for (int m = 1; m <= mesures; ++m) {
    const tMesure& h = doc.mesure(m);
    WalkMesure& w = in.mesure(m);
    w.bytSignatureUp = h.bytSignatureUp;
    w.bytSignatureDn = h.bytSignatureDn;
    w.bytLoopDroiteType = h.bytLoopDroiteType;
    w.bytLoopDroiteData = h.bytLoopDroiteData;
    w.bytLoopGaucheType = h.bytLoopGaucheType;
    w.bytLoopGaucheData = h.bytLoopGaucheData;
    w.tabTempos = h.tabTempos;
    for (int p = 1; p <= pistes; ++p) {
      const tPisteMesure* pm = doc.pisteMesure(p, m);
      if (pm == nullptr) continue;
      const int cordes = std::min(pm->tabCordes.last(), kMaxCordes);
      for (int c = 1; c <= cordes; ++c)
        if (!pm->tabCordes[c].empty()) in.setNotes(p, m, c, pm->tabCordes[c]);
      if (options.accords && !pm->tabAccords.empty()) {
        std::vector<u16> x;
        x.reserve(static_cast<std::size_t>(pm->tabAccords.last()));
        for (const tAccord& a : pm->tabAccords) x.push_back(a.intX);
        std::sort(x.begin(), x.end());
        x.erase(std::unique(x.begin(), x.end()), x.end());
        in.setAccords(p, m, std::move(x));
      }
    }
  }
  return in;
}

}  // namespace vt
