// scales: the names of "scales.dat" in --lang, one JSON object each.
#include <memory>

#include "document_json.h"
#include "scale_files.h"

namespace vt::cli {
namespace {

const CommandRegistration kScales("scales", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("scales", "the scales, modes and chords of scales.dat as JSON");
  auto fichier = std::make_shared<std::string>();
  sub->add_option("--scales-file", *fichier, "another scale file than the program's");
  sub->callback([&ctx, fichier] {
    const auto f = lireGammes(ctx, *fichier);
    if (!f) return;
    Json liste = Json::array();
    for (int g = 1; g <= f->count(); ++g)
      liste.push_back({{"number", g},
                       {"name", texteJson(nomGamme(f->gamme(g), ctx.setLang))},
                       {"kind", genreGamme(f->gamme(g), ctx.setLang)}});
    écrireListe(liste);
  });
});

}  // namespace
}  // namespace vt::cli
