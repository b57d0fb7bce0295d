// Notes from the MIDI input, on their way from the input's thread to the
// user-interface thread. A guitar controller sends each string on its own
// channel, counted from the basic channel: the channel gives the string.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

namespace vt {

struct NoteReçue {
  int corde = 1;  // the channel digit + 2 - the basic channel, at least 1
  int note = 0;
  bool enfoncée = false;  // Note On; a Note Off or a Note On of velocity 0 is false
  bool operator==(const NoteReçue&) const = default;
};

// The note a channel message carries, or nothing for any other message.
// `canalDeBase` is the setting, 1-based.
std::optional<NoteReçue> noteReçue(std::uint32_t message, int canalDeBase);

// A queue that one thread fills and another empties.
class FileNotesReçues {
 public:
  void ajoute(const NoteReçue& n);
  // Everything queued so far, oldest first; the queue is then empty.
  std::vector<NoteReçue> prendTout();

 private:
  std::mutex m_verrou;
  std::vector<NoteReçue> m_notes;
};

}  // namespace vt
