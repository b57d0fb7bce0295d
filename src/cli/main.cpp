// vantoro-cli: the batch converter and inspector.
#include <iostream>
#include <map>

#include "command.h"
#include "formats/string_table.h"

namespace vt::cli {

namespace {
std::map<std::string, Registrar>& registry() {
  static std::map<std::string, Registrar> r;
  return r;
}
}  // namespace

CommandRegistration::CommandRegistration(const char* name, Registrar registrar) {
  registry()[name] = std::move(registrar);
}

void refuse(Context& ctx, int stringId, const std::string& detail) {
  std::cerr << loadString(stringId, ctx.setLang);
  if (!detail.empty()) std::cerr << " (" << detail << ")";
  std::cerr << '\n';
  ctx.exitCode = kRefused;
}

}  // namespace vt::cli

int main(int argc, char** argv) {
  using namespace vt::cli;
  CLI::App app{"vantoro-cli: convert and inspect tablatures"};
  app.require_subcommand(1);
  Context ctx;
  app.add_option_function<std::string>(
         "--lang",
         [&](const std::string& lang) {
           ctx.setLang = lang == "fr" ? vt::kLangFrançais : vt::kLangAnglais;
         },
         "language of the messages (en by default)")
      ->check(CLI::IsMember({"fr", "en"}));
  for (auto& [name, reg] : registry())
    reg(app, ctx);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    const int code = app.exit(e);
    return code == 0 ? kOk : kUsage;
  }
  return ctx.exitCode;
}
