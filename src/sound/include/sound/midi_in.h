// A MIDI input: where channel messages come from (a guitar controller, a
// keyboard). Messages arrive on the input's own thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace vt {

class MidiIn {
 public:
  // A channel message packed as midiPack packs it.
  using Rappel = std::function<void(std::uint32_t message)>;

  virtual ~MidiIn() = default;
  // Delivers every channel message to `rappel`, on the input's thread, until
  // `arrête`. System messages (sysex, clock, active sensing) are left out.
  virtual void démarre(Rappel rappel) = 0;
  // When it returns, the callback is not running and will not run again.
  virtual void arrête() = 0;
  // The name the device list shows.
  virtual std::string nom() const = 0;
};

}  // namespace vt
