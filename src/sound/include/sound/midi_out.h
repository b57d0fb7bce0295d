// A MIDI output: where channel messages go. The built-in synthesizer, an ALSA
// sequencer port and the logging output all take the same calls.
//
// Calls come from the user-interface thread (live notes of the tools) and from
// the player's clock thread at once: every implementation serialises them
// itself, and none blocks for longer than it takes to hand the bytes on.
#pragma once

#include <cstdint>
#include <string>

namespace vt {

// A short message packed as the platform's MIDI calls pack it: status in the
// low byte, then data 1, then data 2.
constexpr std::uint32_t midiPack(std::uint8_t status, std::uint8_t data1 = 0,
                                 std::uint8_t data2 = 0) {
  return std::uint32_t(status) | (std::uint32_t(data1) << 8) | (std::uint32_t(data2) << 16);
}
constexpr std::uint8_t midiStatus(std::uint32_t m) { return std::uint8_t(m & 0xFF); }
constexpr std::uint8_t midiData1(std::uint32_t m) { return std::uint8_t((m >> 8) & 0xFF); }
constexpr std::uint8_t midiData2(std::uint32_t m) { return std::uint8_t((m >> 16) & 0xFF); }
// Bytes a channel message takes with its status: 2 for program change and
// channel pressure, 3 for the others; 1 for anything that is not a channel
// message (never sent by this program).
constexpr int midiLongueur(std::uint32_t m) {
  const std::uint8_t s = midiStatus(m) & 0xF0;
  if (s < 0x80 || s == 0xF0) return 1;
  return (s == 0xC0 || s == 0xD0) ? 2 : 3;
}

class MidiOut {
 public:
  virtual ~MidiOut() = default;
  // Sends one channel message (midiOutShortMsg). Fails silently when the
  // device has gone away.
  virtual void shortMsg(std::uint32_t message) = 0;
  // Silences the output: every sounding note off and the controllers back to
  // their defaults on all sixteen channels (midiOutReset).
  virtual void reset() = 0;
  // The name the device list shows.
  virtual std::string nom() const = 0;
};

}  // namespace vt
