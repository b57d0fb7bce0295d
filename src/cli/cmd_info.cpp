// info FILE: a summary of a tablature as one JSON object.
#include <iostream>
#include <memory>

#include "command.h"
#include "document_files.h"
#include "document_json.h"

namespace vt::cli {
namespace {

// Notes that sound: blank notes (fret 255) only carry an effect.
long compterNotes(const CVantoroTablature& doc) {
  long n = 0;
  for (const tPiste& piste : doc.pistes())
    for (const tPisteMesure& pm : piste.tabMesures)
      for (const auto& notes : pm.tabCordes)
        for (const tNote& note : notes)
          n += note.bytCase != kCaseVide ? 1 : 0;
  return n;
}

const CommandRegistration kInfo("info", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("info", "summary of a tablature as JSON");
  auto entrée = std::make_shared<std::string>();
  sub->add_option("FILE", *entrée, "the file to read")->required();
  sub->callback([&ctx, entrée] {
    const auto lu = lireDocument(ctx, *entrée);
    if (!lu) return;
    const Json info = {{"format", lu->format},
                       {"version", lu->version},
                       {"tracks", lu->doc.getPisteLast()},
                       {"bars", lu->doc.getMesureLast()},
                       {"notes", compterNotes(lu->doc)},
                       {"title", texteJson(lu->doc.titre)}};
    std::cout << info.dump() << '\n';
  });
});

}  // namespace
}  // namespace vt::cli
