#include "sound/synthe_integre.h"

#include <algorithm>

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

struct SynthéIntégré::Fluid {
  fluid::Réglages réglages;
  fluid::Synthé synth;
  // Declared last: the driver stops pulling audio before the synthesizer goes.
  std::unique_ptr<fluid_audio_driver_t, SupprimePilote> pilote;
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
      m_fluid->pilote.reset(new_fluid_audio_driver(m_fluid->réglages.get(), m_fluid->synth.get()));
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
  if (m_fluid->synth) fluid::envoie(m_fluid->synth.get(), message);
}

void SynthéIntégré::reset() {
  if (m_fluid->synth) fluid::silence(m_fluid->synth.get());
}

std::string SynthéIntégré::nom() const {
  return "FluidSynth";
}

int SynthéIntégré::voixActives() const {
  return m_fluid->synth ? fluid_synth_get_active_voice_count(m_fluid->synth.get()) : 0;
}

bool SynthéIntégré::rends(std::int16_t* stéréo, int trames) {
  if (m_fluid->pilote || trames <= 0 || !stéréo) return false;
  if (!m_fluid->synth) {
    std::fill(stéréo, stéréo + 2 * trames, std::int16_t{0});
    return true;
  }
  std::vector<float> travail;
  fluid::rends(m_fluid->synth.get(), stéréo, trames, travail);
  return true;
}

}  // namespace vt
