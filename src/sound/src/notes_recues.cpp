#include "sound/notes_recues.h"

#include <algorithm>

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

void FileNotesReçues::ajoute(const NoteReçue& n) {
  std::lock_guard lock(m_verrou);
  m_notes.push_back(n);
}

std::vector<NoteReçue> FileNotesReçues::prendTout() {
  std::vector<NoteReçue> notes;
  std::lock_guard lock(m_verrou);
  notes.swap(m_notes);
  return notes;
}

}  // namespace vt
