// What the live synthesizer and the offline renderer share, so that both sound
// alike: FluidSynth's settings, the SoundFont loading, and the translation of a
// packed channel message into FluidSynth's calls.
#pragma once

#include <fluidsynth.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "sound/soundfont.h"

namespace vt::fluid {

inline constexpr int kFréquence = 44100;

struct SupprimeRéglages {
  void operator()(fluid_settings_t* s) const { delete_fluid_settings(s); }
};
struct SupprimeSynthé {
  void operator()(fluid_synth_t* s) const { delete_fluid_synth(s); }
};
using Réglages = std::unique_ptr<fluid_settings_t, SupprimeRéglages>;
using Synthé = std::unique_ptr<fluid_synth_t, SupprimeSynthé>;

// FluidSynth's log goes to us, not to the terminal: errors are kept for the
// messages (the last one per thread), the rest is dropped. Idempotent.
void détourneJournal();
// The last error FluidSynth reported on this thread, then forgotten.
std::string dernièreErreur();

// The settings of every synthesizer of the program.
Réglages nouveauxRéglages();
// A synthesizer on those settings with a SoundFont chosen as `choisitSoundFont`
// says; `choix` tells which one and what the user should know. With a
// `programme` from 0 to 127 every melodic channel starts on it.
Synthé nouveauSynthé(fluid_settings_t* réglages, const std::string& soundFontChoisie,
                     const std::vector<std::string>& soundFontsSystème, ChoixSoundFont& choix,
                     int programme = -1);

// One packed channel message. Data bytes are taken on seven bits; anything
// that is not a channel message is ignored.
void envoie(fluid_synth_t* synth, std::uint32_t message);
// The next `trames` frames as interleaved 16-bit stereo. Rendered in floating
// point and rounded here, without FluidSynth's dither: silence is zeros, and
// the same messages always give the same samples.
void rends(fluid_synth_t* synth, std::int16_t* stéréo, int trames, std::vector<float>& travail);
// A sample of the synthesizer's output (full scale 1) as it is written: the
// loud chords of a whole band are rounded off below full scale, not clipped.
float limite(float x);
// Every sounding note released and the controllers back to their defaults, on
// the sixteen channels; programs stay.
void silence(fluid_synth_t* synth);

}  // namespace vt::fluid
