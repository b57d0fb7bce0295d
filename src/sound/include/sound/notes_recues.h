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

// A queue that one thread fills and another empties. It is bounded: a device
// that floods faster than the window can take the notes loses the newest
// ones, counted, rather than growing without end.
class FileNotesReçues {
 public:
  // More notes than a guitarist plays in several seconds of tremolo on every
  // string; the window drains the queue many times a second.
  static constexpr std::size_t kCapacité = 4096;

  enum class Ajout { Premier, Suivant, Perdu };
  // Premier when the queue was empty (the taker must be woken), Suivant when
  // a wake-up is already on its way, Perdu when the queue is full.
  Ajout ajoute(const NoteReçue& n);
  // Everything queued so far, oldest first; the queue is then empty.
  std::vector<NoteReçue> prendTout();
  // The notes lost to a full queue since the last call.
  std::uint64_t prendPerdues();

 private:
  std::mutex m_verrou;
  std::vector<NoteReçue> m_notes;
  std::uint64_t m_perdues = 0;
};

}  // namespace vt
