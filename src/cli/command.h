// Subcommands of vantoro-cli register themselves: each lives in its own file
// cmd_<name>.cpp with one static CommandRegistration.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>

namespace vt::cli {

// Exit codes of the tool.
inline constexpr int kOk = 0;
inline constexpr int kRefused = 1;  // the input was refused; the message is on stderr
inline constexpr int kUsage = 2;

struct Context {
  int setLang = 10000;  // messages in English unless --lang fr
  int exitCode = kOk;
};

using Registrar = std::function<void(CLI::App& app, Context& ctx)>;

struct CommandRegistration {
  CommandRegistration(const char* name, Registrar registrar);
};

// Prints the system's own message for a string id on stderr and sets exit code 1.
void refuse(Context& ctx, int stringId, const std::string& detail = {});

}  // namespace vt::cli
