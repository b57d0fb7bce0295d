#include "sound/notes_recues.h"

#include <algorithm>
#include <utility>

#include "sound/midi_out.h"

namespace vt {

std::optional<NoteReçue> noteReçue(std::uint32_t message, int canalDeBase) {
  const int genre = midiStatus(message) >> 4;
  if (genre != 0x8 && genre != 0x9) return std::nullopt;
  NoteReçue n;
  n.corde = std::max(1, (midiStatus(message) & 0x0F) + 2 - canalDeBase);
  n.note = midiData1(message) & 0x7F;
  n.enfoncée = genre == 0x9 && (midiData2(message) & 0x7F) != 0;
  return n;
}

FileNotesReçues::Ajout FileNotesReçues::ajoute(const NoteReçue& n) {
  std::lock_guard lock(m_verrou);
  if (m_notes.size() >= kCapacité) {
    ++m_perdues;
    return Ajout::Perdu;
  }
  m_notes.push_back(n);
  return m_notes.size() == 1 ? Ajout::Premier : Ajout::Suivant;
}

std::uint64_t FileNotesReçues::prendPerdues() {
  std::lock_guard lock(m_verrou);
  return std::exchange(m_perdues, 0);
}

std::vector<NoteReçue> FileNotesReçues::prendTout() {
  std::vector<NoteReçue> notes;
  std::lock_guard lock(m_verrou);
  notes.swap(m_notes);
  return notes;
}

}  // namespace vt
