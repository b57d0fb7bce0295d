// The MIDI calls the shell itself makes: the ports at start and at the end,
// and the live notes of the fretboard. Channels are 1-based.
#pragma once

#include <memory>

namespace vt {

class Settings;

class SonLive {
 public:
  virtual ~SonLive() = default;
  virtual void midiOpenOut() = 0;
  virtual void midiOpenIn() = 0;
  virtual void midiCloseOut() = 0;
  virtual void midiCloseIn() = 0;
  // A note on the settings' channel, at the settings' volume; off is velocity 0.
  virtual void midiNoteOnGlobal(int note) = 0;
  virtual void midiNoteOffGlobal(int note) = 0;
  virtual void midiController(int controller, int value, int canal) = 0;
};

// The program's MIDI output and input, on the settings of the session.
std::unique_ptr<SonLive> sonSysteme(const Settings& settings);

}  // namespace vt
