// The built-in synthesizer: FluidSynth with a General MIDI SoundFont, heard
// through the desktop's audio (PulseAudio, PipeWire when FluidSynth has it,
// ALSA). Device 0 of the list of outputs, and what a fresh installation
// sounds through.
//
// It never fails to open: without a SoundFont it is silent, without an audio
// device it still takes every message (and can be rendered by hand); both
// cases are told once, through messages().
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sound/message_son.h"
#include "sound/midi_out.h"
#include "sound/soundfont.h"

namespace vt {

struct OptionsSynthé {
  std::string soundFont;  // the file the settings name; empty: the system's
  std::vector<std::string> soundFontsSystème = soundFontsDuSystème();
  // FluidSynth's audio drivers, tried in order; those this FluidSynth was built
  // without are skipped. Empty: no audio at all (rendered by hand).
  std::vector<std::string> pilotesAudio = {"pulseaudio", "pipewire", "alsa"};
  // The program every melodic channel starts on (the drums' channel on its
  // kit). Only the samples of the programs in use are read: starting on the
  // instrument the user plays spares reading the piano's. -1: the SoundFont's
  // own first program on every channel.
  int programme = -1;
};

class SynthéIntégré : public MidiOut {
 public:
  explicit SynthéIntégré(const OptionsSynthé& options = {});
  ~SynthéIntégré() override;
  SynthéIntégré(const SynthéIntégré&) = delete;
  SynthéIntégré& operator=(const SynthéIntégré&) = delete;

  void shortMsg(std::uint32_t message) override;
  void reset() override;
  std::string nom() const override;

  // What the opening found that the user should know (no SoundFont, no audio).
  const std::vector<MessageSon>& messages() const { return m_messages; }
  // The SoundFont that plays; empty when the synthesizer is silent.
  const std::string& soundFont() const { return m_soundFont; }
  // The audio driver that plays; empty without audio.
  const std::string& piloteAudio() const { return m_pilote; }
  // Voices sounding now (a note of a General MIDI program takes one or two).
  int voixActives() const;
  // Without an audio driver: the next `trames` frames as interleaved 16-bit
  // stereo at 44100 Hz. False (and nothing written) while a driver plays.
  bool rends(std::int16_t* stéréo, int trames);

 private:
  struct Fluid;
  std::unique_ptr<Fluid> m_fluid;
  std::vector<MessageSon> m_messages;
  std::string m_soundFont;
  std::string m_pilote;
};

}  // namespace vt
