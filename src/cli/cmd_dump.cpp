// dump FILE: every field of every record as JSON.
#include <iostream>
#include <memory>

#include "command.h"
#include "document_files.h"
#include "document_json.h"

namespace vt::cli {
namespace {

const CommandRegistration kDump("dump", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("dump", "the whole document as JSON");
  auto entrée = std::make_shared<std::string>();
  sub->add_option("FILE", *entrée, "the file to read")->required();
  sub->callback([&ctx, entrée] {
    const auto lu = lireDocument(ctx, *entrée);
    if (!lu) return;
    écrireDocumentJson(std::cout, lu->doc);
    std::cout.flush();
  });
});

}  // namespace
}  // namespace vt::cli
