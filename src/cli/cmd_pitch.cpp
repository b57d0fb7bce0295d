// pitch FILE.wav: the tuner's detector over a recording, as one JSON object:
// the median pitch of the voiced frames, its nearest note and how many cents
// off it, the nearest open string of a tuning, and how many frames were
// analysed and voiced. --frames adds every frame.
#include <cmath>
#include <iostream>
#include <memory>
#include <sstream>

#include "command.h"
#include "document_json.h"
#include "music/accordage.h"
#include "music/hauteur.h"
#include "sound/lecture_wav.h"

namespace vt::cli {
namespace {

struct PitchArgs {
  std::string fichier;
  std::string accordage = "64,59,55,50,45,40";
  bool trames = false;
};

double arrondi(double v, double pas) {
  return std::round(v / pas) * pas;
}

// "64,59,55,50,45,40": one to seven MIDI notes, string 1 first.
bool lireAccordage(const std::string& texte, std::vector<int>& cordes) {
  std::stringstream ss(texte);
  std::string morceau;
  while (std::getline(ss, morceau, ',')) {
    std::size_t fin = 0;
    int n = -1;
    try {
      n = std::stoi(morceau, &fin);
    } catch (...) {
      return false;
    }
    if (fin != morceau.size() || n < 0 || n > 127) return false;
    cordes.push_back(n);
  }
  return !cordes.empty() && cordes.size() <= 7;
}

Json hauteurJson(double hz, const std::vector<int>& cordes) {
  if (!(hz > 0))
    return {{"hz", nullptr},
            {"midi", nullptr},
            {"note", nullptr},
            {"cents", nullptr},
            {"string", nullptr}};
  const NoteEntendue n = noteEntendue(hz, cordes);
  return {{"hz", arrondi(hz, 0.01)},
          {"midi", n.midi},
          {"note", nomNote(n.midi)},
          {"cents", arrondi(n.cents, 0.1)},
          {"string", n.corde}};
}

void pitch(Context& ctx, const PitchArgs& a) {
  std::vector<int> cordes;
  if (!lireAccordage(a.accordage, cordes)) {
    std::cerr << "--tuning: one to seven MIDI notes from 0 to 127, separated by commas, string 1 "
                 "first (64,59,55,50,45,40)\n";
    ctx.exitCode = kUsage;
    return;
  }
  const SonLu son = lireFichierWav(a.fichier);
  if (!son.ok()) {
    refuse(ctx, son.message, son.détail);
    return;
  }
  const std::vector<TrameHauteur> trames = hauteursDesTrames(son.mono, son.fréquence);
  int voisées = 0;
  for (const TrameHauteur& t : trames)
    voisées += t.hauteur.voisée() ? 1 : 0;
  Json r = hauteurJson(hauteurMédiane(trames), cordes);
  r["frames"] = trames.size();
  r["voiced"] = voisées;
  if (a.trames) {
    Json liste = Json::array();
    for (const TrameHauteur& t : trames) {
      Json j = hauteurJson(t.hauteur.hz, cordes);
      j["t"] = arrondi(t.secondes, 0.001);
      j["clarity"] = arrondi(t.hauteur.clarté, 0.001);
      liste.push_back(j);
    }
    r["frame_list"] = liste;
  }
  std::cout << r.dump() << '\n';
}

const CommandRegistration kPitch("pitch", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand(
      "pitch",
      "the tuner's pitch detector over a WAV file, as JSON: the median pitch of the voiced "
      "frames, its note, cents and nearest open string");
  auto a = std::make_shared<PitchArgs>();
  sub->add_option(
         "FILE", a->fichier,
         "a WAV file: PCM of 8, 16, 24 or 32 bits or floating point, any channels and rate")
      ->required();
  sub->add_option("--tuning", a->accordage,
                  "the open strings as MIDI notes, string 1 first (64,59,55,50,45,40 by default)");
  sub->add_flag("--frames", a->trames, "add every frame's pitch (\"frame_list\")");
  sub->callback([&ctx, a] { pitch(ctx, *a); });
});

}  // namespace
}  // namespace vt::cli
