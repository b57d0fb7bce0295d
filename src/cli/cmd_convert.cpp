// convert IN OUT: reads by the input's extension, writes by the output's.
#include <memory>

#include "command.h"
#include "document_files.h"

namespace vt::cli {
namespace {

const CommandRegistration kConvert("convert", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("convert", "convert a tablature from one file format to another");
  auto entrée = std::make_shared<std::string>();
  auto sortie = std::make_shared<std::string>();
  sub->add_option("IN", *entrée, "the file to read")->required();
  sub->add_option("OUT", *sortie, "the file to write; its extension gives the format")->required();
  sub->callback([&ctx, entrée, sortie] {
    // Nothing is written unless the input was read in full.
    if (!sortieConnue(ctx, *sortie)) return;
    auto lu = lireDocument(ctx, *entrée);
    if (!lu) return;
    écrireDocument(ctx, lu->doc, *sortie);
  });
});

}  // namespace
}  // namespace vt::cli
