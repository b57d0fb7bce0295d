#include "sound/synthe_integre.h"

#include <algorithm>
#include <mutex>

#include "alsa_discret.h"
#include "fluid_commun.h"

namespace vt {

namespace {

struct SupprimePilote {
  void operator()(fluid_audio_driver_t* p) const { delete_fluid_audio_driver(p); }
};

// The audio drivers this FluidSynth was built with.
std::vector<std::string> pilotesConnus(fluid_settings_t* réglages) {
  std::vector<std::string> connus;
  fluid_settings_foreach_option(réglages, "audio.driver", &connus,
                                [](void* d, const char*, const char* option) {
                                  static_cast<std::vector<std::string>*>(d)->emplace_back(option);
                                });
  return connus;
}

}  // namespace

// FluidSynth's own lock serialises the calls of several threads, but not those
// calls against the thread that renders: under load, with more voices sounding
// than its polyphony, the voices a rendering ends then overflow the ring that
// hands them back, and each one lost holds its slot (and may sound) for good.
// So the messages and the rendering take turns on one lock of ours, the audio
// driver's thread included, and every rendering hands its ended voices back.
struct SynthéIntégré::Fluid {
  fluid::Réglages réglages;
  fluid::Synthé synth;
  std::mutex verrou;
  // Declared last: the driver stops pulling audio before the synthesizer and
  // the lock go.
  std::unique_ptr<fluid_audio_driver_t, SupprimePilote> pilote;

  // What the audio driver calls for each buffer it wants: the buffers come
  // zeroed; without buffers of their own, the reverb and the chorus are mixed
  // into the dry ones, as the driver would do with the synthesizer alone.
  static int rendPourLePilote(void* data, int trames, int nfx, float* fx[], int nout,
                              float* out[]) {
    auto* f = static_cast<Fluid*>(data);
    std::lock_guard garde(f->verrou);
    int rendu;
    if (nfx == 0 && nout >= 2) {
      float* effets[4] = {out[0], out[1], out[0], out[1]};
      rendu = fluid_synth_process(f->synth.get(), trames, 4, effets, nout, out);
    } else {
      rendu = fluid_synth_process(f->synth.get(), trames, nfx, fx, nout, out);
    }
    f->rendVoixFinies();
    return rendu;
  }

  // The voices a rendering ended wait in a ring as large as the polyphony until
  // the next call of the programming interface takes them back; with no
  // message for a while (a piece's long last chord dying away), more of them
  // than the ring holds would be lost for good. Any call takes them back: ask
  // after every buffer. Called with the lock held.
  void rendVoixFinies() { fluid_synth_get_active_voice_count(synth.get()); }
};

SynthéIntégré::SynthéIntégré(const OptionsSynthé& options) : m_fluid(std::make_unique<Fluid>()) {
  m_fluid->réglages = fluid::nouveauxRéglages();
  ChoixSoundFont choix;
  m_fluid->synth = fluid::nouveauSynthé(m_fluid->réglages.get(), options.soundFont,
                                        options.soundFontsSystème, choix, options.programme);
  m_soundFont = choix.chemin;
  m_messages = choix.messages;
  if (!m_fluid->synth) return;

  if (!options.pilotesAudio.empty()) {
    rendAlsaDiscret();
    fluid::dernièreErreur();  // what follows is about audio only
    const std::vector<std::string> connus = pilotesConnus(m_fluid->réglages.get());
    for (const std::string& p : options.pilotesAudio) {
      if (std::find(connus.begin(), connus.end(), p) == connus.end()) continue;
      fluid_settings_setstr(m_fluid->réglages.get(), "audio.driver", p.c_str());
      m_fluid->pilote.reset(new_fluid_audio_driver2(m_fluid->réglages.get(),
                                                    &Fluid::rendPourLePilote, m_fluid.get()));
      if (m_fluid->pilote) {
        m_pilote = p;
        break;
      }
    }
    if (!m_fluid->pilote)
      m_messages.push_back({son::kAucuneSortieAudio.id, fluid::dernièreErreur()});
  }
}

SynthéIntégré::~SynthéIntégré() = default;

void SynthéIntégré::shortMsg(std::uint32_t message) {
  if (!m_fluid->synth) return;
  std::lock_guard garde(m_fluid->verrou);
  fluid::envoie(m_fluid->synth.get(), message);
}

void SynthéIntégré::reset() {
  if (!m_fluid->synth) return;
  std::lock_guard garde(m_fluid->verrou);
  fluid::silence(m_fluid->synth.get());
}

std::string SynthéIntégré::nom() const {
  return "FluidSynth";
}

int SynthéIntégré::voixActives() const {
  if (!m_fluid->synth) return 0;
  std::lock_guard garde(m_fluid->verrou);
  return fluid_synth_get_active_voice_count(m_fluid->synth.get());
}

bool SynthéIntégré::rends(std::int16_t* stéréo, int trames) {
  if (m_fluid->pilote || trames <= 0 || !stéréo) return false;
  if (!m_fluid->synth) {
    std::fill(stéréo, stéréo + 2 * trames, std::int16_t{0});
    return true;
  }
  std::vector<float> travail;
  std::lock_guard garde(m_fluid->verrou);
  fluid::rends(m_fluid->synth.get(), stéréo, trames, travail);
  m_fluid->rendVoixFinies();
  return true;
}

}  // namespace vt
