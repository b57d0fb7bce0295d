// identify NOTE...: what the harmoniser lists for these notes, as JSON: the
// chords, scales and modes they make exactly, each at each possible root, or
// with --harmonise the chords to build on each of them.
#include <memory>

#include "document_json.h"
#include "music/harmony.h"
#include "scale_files.h"

namespace vt::cli {
namespace {

struct IdentifyArgs {
  std::vector<std::string> notes;
  bool harmonise = false;
  int mode = kModeSurSaFondamentale;
  std::string fichier;
};

void identify(Context& ctx, const IdentifyArgs& a) {
  // The notes make a set: one given twice, or in two octaves, counts once.
  TonsDessinés tons{};
  for (const std::string& texte : a.notes) {
    const auto note = noteOuClasse(texte);
    if (!note) {
      refuse(ctx, kNoteInconnue, texte);
      return;
    }
    TonsDessinés essai = tons;
    receiveNote(essai, *note);
    for (std::size_t k = 1; k < tons.size(); ++k)
      tons[k] = tons[k] || essai[k];
  }
  const auto f = lireGammes(ctx, a.fichier);
  if (!f) return;
  Json liste = Json::array();
  const int optIdType = a.harmonise ? kHarmonisation : kIdentification;
  for (const tHarmonie& h : computeHarmony(*f, tons, optIdType, a.mode, ctx.setLang)) {
    const tGamme& g = f->gamme(h.gamme);
    liste.push_back(
        {{"line", ligneHarmonie(*f, h, ctx.setLang)},
         {"number", h.gamme},
         {"name", texteJson(nomGamme(g, ctx.setLang))},
         {"kind", genreGamme(g, ctx.setLang)},
         {"root", kNomsNotesLa[static_cast<std::size_t>(tonalitéDeTon(h.fondamentale) - 1)]}});
  }
  écrireListe(liste);
}

const CommandRegistration kIdentify("identify", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("identify",
                                 "the chords, scales and modes that a set of notes makes, as JSON");
  auto a = std::make_shared<IdentifyArgs>();
  sub->add_option("NOTE", a->notes, "note names (C, Eb, Sol #) or MIDI numbers (60)")->required();
  sub->add_flag("--harmonise", a->harmonise, "list the chords to build on each note instead");
  sub->add_option("--mode", a->mode,
                  "1: modes found in their parent's key; 2: on their own root (default)")
      ->check(CLI::IsMember({1, 2}));
  sub->add_option("--scales-file", a->fichier, "another scale file than the program's");
  sub->callback([&ctx, a] { identify(ctx, *a); });
});

}  // namespace
}  // namespace vt::cli
