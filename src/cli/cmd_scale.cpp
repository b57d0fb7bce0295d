// scale NAME KEY: one scale in one key as the scale window shows it: the 12
// bytes it is laid with (a mode's turned onto its own root with --mode 2, the
// default), its notes and intervals from the key, the notes it plays, and
// its frets from 0 to 24 on each string of the instrument.
#include <memory>

#include "document_files.h"
#include "document_json.h"
#include "scale_files.h"

namespace vt::cli {
namespace {

struct ScaleArgs {
  std::string nom, tonalité, fichier, accordage;
  int mode = kModeSurSaFondamentale;
};

void scale(Context& ctx, const ScaleArgs& a) {
  const auto f = lireGammes(ctx, a.fichier);
  if (!f) return;
  const int g = chercheGamme(*f, a.nom, ctx.setLang);
  if (g == 0) {
    refuse(ctx, kGammeInconnue, a.nom);
    return;
  }
  const auto classe = classeDeNom(a.tonalité);
  if (!classe) {
    refuse(ctx, kTonalitéInconnue, a.tonalité);
    return;
  }
  const auto guitare = accordage(ctx, a.accordage, guitareCourante(ctx));
  if (!guitare) return;

  const int tonalité = *classe + 1;
  const tGamme& gamme = f->gamme(g);
  const Demitons d = demitonsAffichés(gamme, a.mode);
  const tNotesGamme n = chargeNotesGamme(d, tonalité);
  Json octets = Json::array(), notes = Json::array(), intervalles = Json::array(),
       demitons = Json::array();
  for (byt b : d)
    octets.push_back(b);
  for (int p = tonalité; p < tonalité + 12; ++p) {
    if (!n.notes[static_cast<std::size_t>(p)]) continue;
    notes.push_back(kNomsNotesLa[static_cast<std::size_t>((p - 1) % 12)]);
    const std::string& texte = n.intervalles[static_cast<std::size_t>(p)];
    intervalles.push_back(demitons2intervalle(texte));
    demitons.push_back(std::stoi(texte));
  }
  Json cordes = Json::array();
  const auto cases = casesGamme(n, *guitare);
  for (int s = 1; s <= guitare->nbrCordes; ++s) {
    Json frettes = Json::array(), racines = Json::array();
    for (const tCaseGamme& c : cases) {
      if (c.corde != s) continue;
      frettes.push_back(c.c);
      if (estFondamentale(n, c.position)) racines.push_back(c.c);
    }
    cordes.push_back({{"string", s},
                      {"open", guitare->corde[static_cast<std::size_t>(s)]},
                      {"frets", std::move(frettes)},
                      {"roots", std::move(racines)}});
  }
  const std::string nom = cp1252ToUtf8(nomGamme(gamme, ctx.setLang));
  const Json sortie = {{"number", g},
                       {"name", nom},
                       {"kind", genreGamme(gamme, ctx.setLang)},
                       {"key", kNomsNotesLa[static_cast<std::size_t>(*classe)]},
                       {"title", titreGamme(nom, nomTonalité(tonalité, ctx.setLang), ctx.setLang)},
                       {"mode", a.mode},
                       {"demitons", std::move(octets)},
                       {"notes", std::move(notes)},
                       {"semitones", std::move(demitons)},
                       {"intervals", std::move(intervalles)},
                       {"play", listeLecture(n, tonalité)},
                       {"strings", std::move(cordes)}};
  std::cout << sortie.dump() << '\n';
}

const CommandRegistration kScale("scale", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("scale", "one scale in one key, with its frets, as JSON");
  auto a = std::make_shared<ScaleArgs>();
  sub->add_option("NAME", a->nom, "the scale's name (as `scales` lists it) or number")->required();
  sub->add_option("KEY", a->tonalité, "the key: C, F#, Bb, Do, R\xC3\xA9 #...")->required();
  sub->add_option("--mode", a->mode,
                  "1: a mode in its parent's key; 2: the mode's own root on the key (default)")
      ->check(CLI::IsMember({1, 2}));
  sub->add_option("--tuning", a->accordage,
                  "open strings from string 1: 64,59,55,50,45,40 or E4,B3,G3,D3,A2,E2 "
                  "(default: the first instrument of vt.ini)");
  sub->add_option("--scales-file", a->fichier, "another scale file than the program's");
  sub->callback([&ctx, a] { scale(ctx, *a); });
});

}  // namespace
}  // namespace vt::cli
