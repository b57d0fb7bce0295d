// Offline rendering: a list of timed messages through the built-in
// synthesizer's settings into 16-bit stereo PCM at 44100 Hz, as fast as the
// processor goes (no clock, no audio device). What the WAV export and the
// sound tests hear.
//
// FluidSynth renders in blocks of 64 frames and applies an event at a block's
// start: each message takes effect at the block edge nearest its time, within
// 32 frames (0.73 ms).
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "sound/message_date.h"
#include "sound/message_son.h"
#include "sound/soundfont.h"

namespace vt {

struct OptionsRendu {
  std::string soundFont;  // the file the settings name; empty: the system's
  std::vector<std::string> soundFontsSystème = soundFontsDuSystème();
  // Time left after the last message for the notes to die away.
  double traîneMs = 2000;
  // Reverberation and chorus as the live synthesizer has them; without them,
  // the instruments as a microphone close to them would hear them (the
  // tuner's tests measure pitch on such a dry sound).
  bool effets = true;
  // Told after each block how much is rendered, from 0 to 1, on the rendering's
  // own thread; answering false stops the rendering (a Cancel button).
  std::function<bool(double fait)> avancement;
};

inline constexpr int kFréquenceRendu = 44100;

struct RenduPcm {
  std::vector<std::int16_t> échantillons;  // interleaved left, right
  int fréquence = kFréquenceRendu;
  std::string soundFont;  // the one that played; empty: silence
  std::vector<MessageSon> messages;
  std::size_t trames() const { return échantillons.size() / 2; }
};

// The messages in time order (a message without a time before it keeps its
// place among equals); times below 0 count as 0. Length: the last message's
// time plus the tail. Without a SoundFont the samples are silence of that
// length, and the messages say why.
RenduPcm rendrePcm(const MessagesDates& messages, const OptionsRendu& options = {});

struct RésultatWav {
  bool ok = false;
  bool annulé = false;  // stopped by `avancement`: no file, and no message
  std::string soundFont;
  std::vector<MessageSon> messages;  // on failure, the first says why
};

// The same rendering written as a WAV file (PCM, 2 channels, 16 bits,
// 44100 Hz). The file is written beside its final name and renamed into place:
// on any failure no file is left, and an earlier file of that name is kept.
// Without a SoundFont nothing is written, nor when `avancement` stops it.
RésultatWav rendreWav(const MessagesDates& messages, const std::string& chemin,
                      const OptionsRendu& options = {});

}  // namespace vt
