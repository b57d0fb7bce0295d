// new OUT.vtb: a new tablature, one track of the catalogue's first instrument.
#include <memory>

#include "command.h"
#include "document_files.h"

namespace vt::cli {
namespace {

const CommandRegistration kNew("new", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("new", "write a new tablature (the first instrument of vt.ini)");
  auto sortie = std::make_shared<std::string>();
  sub->add_option("OUT", *sortie, "the .vtb file to write")->required();
  sub->callback([&ctx, sortie] {
    if (!sortieConnue(ctx, *sortie)) return;
    CVantoroTablature doc(guitareCourante(ctx));
    écrireDocument(ctx, doc, *sortie);
  });
});

}  // namespace
}  // namespace vt::cli
