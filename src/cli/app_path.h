// The program's data folder: the folder of its executable.
#pragma once

#include <filesystem>
#include <system_error>

namespace vt::cli {

inline std::filesystem::path dossierProgramme() {
  std::error_code ec;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::filesystem::current_path(ec) : exe.parent_path();
}

}  // namespace vt::cli
