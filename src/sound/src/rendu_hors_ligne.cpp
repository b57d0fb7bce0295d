#include "sound/rendu_hors_ligne.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "fichier_wav.h"
#include "fluid_commun.h"

namespace vt {

namespace {

constexpr int kBloc = 64;              // FluidSynth's own block of frames
constexpr int kTramesParAppel = 4096;  // a multiple of kBloc

// The block edge nearest to a time, in frames.
std::int64_t trameDe(double ms) {
  if (!(ms > 0)) return 0;  // negative and NaN alike
  const double trame = ms * kFréquenceRendu / 1000.0;
  return std::llround(trame / kBloc) * kBloc;
}

using Puits = std::function<bool(const std::int16_t* stéréo, std::size_t trames)>;

struct Rendu {
  std::string soundFont;
  std::vector<MessageSon> messages;
  bool ok = true;  // false when the sink refused or the rendering was stopped
  bool annulé = false;
};

// Renders everything into `puits`, a block at a time. Without a SoundFont the
// same loop gives zeros, so that both have one length, unless `muetInutile`
// asks to stop at once.
Rendu rends(const MessagesDates& entrée, const OptionsRendu& options, bool muetInutile,
            const Puits& puits) {
  Rendu r;
  fluid::Réglages réglages = fluid::nouveauxRéglages();
  if (réglages && !options.effets) {
    fluid_settings_setint(réglages.get(), "synth.chorus.active", 0);
    fluid_settings_setint(réglages.get(), "synth.reverb.active", 0);
  }
  ChoixSoundFont choix;
  fluid::Synthé synth =
      fluid::nouveauSynthé(réglages.get(), options.soundFont, options.soundFontsSystème, choix);
  r.soundFont = choix.chemin;
  r.messages = choix.messages;
  fluid_synth_t* s = choix.chemin.empty() ? nullptr : synth.get();
  if (!s && muetInutile) return r;

  std::vector<MessageDate> messages(entrée.begin(), entrée.end());
  std::stable_sort(messages.begin(), messages.end(),
                   [](const MessageDate& a, const MessageDate& b) { return a.ms < b.ms; });
  const double dernier = messages.empty() ? 0.0 : std::max(0.0, messages.back().ms);
  const double traîne = std::isfinite(options.traîneMs) ? std::max(0.0, options.traîneMs) : 0.0;
  const std::int64_t fin = trameDe(dernier + traîne);

  std::vector<std::int16_t> tampon(2 * kTramesParAppel);
  std::vector<float> travail;
  std::int64_t position = 0;
  auto avanceJusquà = [&](std::int64_t cible) {
    while (r.ok && position < cible) {
      const int n = int(std::min<std::int64_t>(cible - position, kTramesParAppel));
      if (s) {
        fluid::rends(s, tampon.data(), n, travail);
      } else {
        std::fill(tampon.begin(), tampon.begin() + 2 * n, std::int16_t{0});
      }
      r.ok = puits(tampon.data(), std::size_t(n));
      position += n;
      if (r.ok && options.avancement &&
          !options.avancement(fin > 0 ? std::min(1.0, double(position) / double(fin)) : 1.0)) {
        r.ok = false;
        r.annulé = true;
      }
    }
  };
  for (const MessageDate& m : messages) {
    avanceJusquà(trameDe(m.ms));
    if (!r.ok) break;
    if (s) fluid::envoie(s, m.message);
  }
  avanceJusquà(fin);
  return r;
}

}  // namespace

RenduPcm rendrePcm(const MessagesDates& messages, const OptionsRendu& options) {
  RenduPcm pcm;
  Rendu r = rends(messages, options, false, [&](const std::int16_t* stéréo, std::size_t trames) {
    pcm.échantillons.insert(pcm.échantillons.end(), stéréo, stéréo + 2 * trames);
    return true;
  });
  pcm.soundFont = std::move(r.soundFont);
  pcm.messages = std::move(r.messages);
  return pcm;
}

RésultatWav rendreWav(const MessagesDates& messages, const std::string& chemin,
                      const OptionsRendu& options) {
  RésultatWav résultat;
  FichierWav fichier(chemin, kFréquenceRendu);
  if (!fichier.ouvert()) {
    résultat.messages.push_back({son::kEcritureImpossible.id, chemin + ": " + fichier.erreur()});
    return résultat;
  }
  Rendu r = rends(messages, options, true, [&](const std::int16_t* stéréo, std::size_t trames) {
    return fichier.écrit(stéréo, trames);
  });
  résultat.soundFont = r.soundFont;
  résultat.messages = r.messages;
  // A silent file is not what was asked for: the messages say why, and the
  // temporary file goes. So does the file of a rendering stopped on the way.
  if (r.soundFont.empty()) return résultat;
  if (r.annulé) {
    résultat.annulé = true;
    return résultat;
  }
  if (!r.ok || !fichier.termine()) {
    résultat.messages.insert(résultat.messages.begin(),
                             {son::kEcritureImpossible.id, chemin + ": " + fichier.erreur()});
    return résultat;
  }
  résultat.ok = true;
  return résultat;
}

}  // namespace vt
