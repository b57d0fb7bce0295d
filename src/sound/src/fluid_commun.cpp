#include "fluid_commun.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <mutex>

#include "sound/midi_out.h"

namespace vt::fluid {

namespace {

thread_local std::string tDernièreErreur;

void journal(int niveau, const char* texte, void*) {
  if ((niveau == FLUID_PANIC || niveau == FLUID_ERR) && texte) tDernièreErreur = texte;
}

// A SoundFont (SF2, or SF3 with compressed samples) is a RIFF file of form
// "sfbk". Anything else is refused here: FluidSynth would hand it to its other
// loaders, whose libraries complain on the terminal.
bool estUneSoundFont(const std::string& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  char entête[12] = {};
  return f.read(entête, sizeof entête) && std::memcmp(entête, "RIFF", 4) == 0 &&
         std::memcmp(entête + 8, "sfbk", 4) == 0;
}

}  // namespace

void détourneJournal() {
  static std::once_flag fait;
  std::call_once(fait, [] {
    for (int niveau : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
      fluid_set_log_function(niveau, journal, nullptr);
  });
}

std::string dernièreErreur() {
  std::string e;
  e.swap(tDernièreErreur);
  return e;
}

Réglages nouveauxRéglages() {
  détourneJournal();
  Réglages r(new_fluid_settings());
  if (!r) return r;
  fluid_settings_setnum(r.get(), "synth.sample-rate", kFréquence);
  // The default 0.2 is faint beside other programs; a six-string chord with
  // reverb still stays clear of clipping at this level.
  fluid_settings_setnum(r.get(), "synth.gain", 0.5);
  // Live notes come from the user-interface thread and the player's clock at
  // once: FluidSynth's own lock serialises them.
  fluid_settings_setint(r.get(), "synth.threadsafe-api", 1);
  // A General MIDI SoundFont is large; only the samples of the programs in use
  // are read, which makes opening the synthesizer several times faster.
  fluid_settings_setint(r.get(), "synth.dynamic-sample-loading", 1);
  return r;
}

Synthé nouveauSynthé(fluid_settings_t* réglages, const std::string& soundFontChoisie,
                     const std::vector<std::string>& soundFontsSystème, ChoixSoundFont& choix,
                     int programme) {
  Synthé s(réglages ? new_fluid_synth(réglages) : nullptr);
  if (!s) {
    choix = {};
    choix.messages.push_back({son::kSoundFontIllisible.id, dernièreErreur()});
    return s;
  }
  std::string raison;
  choix = choisitSoundFont(
      soundFontChoisie, soundFontsSystème,
      [&](const std::string& chemin) {
        if (!estUneSoundFont(chemin)) {
          raison = chemin + ": not a SoundFont (.sf2) file";
          return false;
        }
        const bool choisi = programme >= 0 && programme <= 127;
        if (fluid_synth_sfload(s.get(), chemin.c_str(), choisi ? 0 : 1) != FLUID_FAILED) {
          if (choisi)
            for (int canal = 0; canal < 16; ++canal)
              fluid_synth_program_change(s.get(), canal, canal == 9 ? 0 : programme);
          return true;
        }
        raison = chemin + ": " + dernièreErreur();
        return false;
      },
      [&] { return raison; });
  return s;
}

void envoie(fluid_synth_t* synth, std::uint32_t message) {
  const int statut = midiStatus(message);
  const int canal = statut & 0x0F;
  const int d1 = midiData1(message) & 0x7F;
  const int d2 = midiData2(message) & 0x7F;
  switch (statut & 0xF0) {
    case 0x80:
      fluid_synth_noteoff(synth, canal, d1);
      break;
    case 0x90:
      // A Note On of velocity 0 is a Note Off.
      if (d2 == 0) {
        fluid_synth_noteoff(synth, canal, d1);
      } else {
        fluid_synth_noteon(synth, canal, d1, d2);
      }
      break;
    case 0xA0:
      fluid_synth_key_pressure(synth, canal, d1, d2);
      break;
    case 0xB0:
      fluid_synth_cc(synth, canal, d1, d2);
      break;
    case 0xC0:
      fluid_synth_program_change(synth, canal, d1);
      break;
    case 0xD0:
      fluid_synth_channel_pressure(synth, canal, d1);
      break;
    case 0xE0:
      fluid_synth_pitch_bend(synth, canal, d1 | (d2 << 7));
      break;
    default:
      break;
  }
}

float limite(float x) {
  // Linear up to the knee; above it the peaks bend towards full scale, with
  // the slope still 1 at the knee, and approach it only slowly: twice full
  // scale comes out at 0.96, ten times at 0.99. Cut flat, they would crackle.
  constexpr float kGenou = 0.75f;
  constexpr float kMarge = 1.0f - kGenou;
  const float a = std::fabs(x);
  if (!(a > kGenou)) return x;
  const float d = a - kGenou;
  return std::copysign(kGenou + kMarge * d / (d + kMarge), x);
}

void rends(fluid_synth_t* synth, std::int16_t* stéréo, int trames, std::vector<float>& travail) {
  const std::size_t n = 2 * std::size_t(trames);
  if (travail.size() < n) travail.resize(n);
  if (fluid_synth_write_float(synth, trames, travail.data(), 0, 2, travail.data(), 1, 2) !=
      FLUID_OK) {
    std::fill(stéréo, stéréo + n, std::int16_t{0});
    return;
  }
  for (std::size_t i = 0; i < n; ++i) {
    const float v = std::nearbyint(limite(travail[i]) * 32767.0f);
    stéréo[i] = std::isnan(v) ? std::int16_t{0} : std::int16_t(std::clamp(v, -32768.0f, 32767.0f));
  }
}

void silence(fluid_synth_t* synth) {
  for (int canal = 0; canal < 16; ++canal) {
    fluid_synth_all_notes_off(synth, canal);
    fluid_synth_cc(synth, canal, 121, 0);  // reset all controllers
  }
}

}  // namespace vt::fluid
