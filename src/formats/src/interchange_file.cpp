#include "interchange_file.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <system_error>
#include <filesystem>

namespace vt::detail {

std::optional<std::vector<std::uint8_t>> lireFichierEntier(const std::string& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  if (!f) return std::nullopt;
  std::vector<std::uint8_t> octets((std::istreambuf_iterator<char>(f)),
                                   std::istreambuf_iterator<char>());
  if (f.bad()) return std::nullopt;
  return octets;
}

bool écrireFichierAtomique(const std::string& chemin, std::span<const std::uint8_t> octets) {
  namespace fs = std::filesystem;
  const fs::path cible(chemin);
  fs::path temp = cible;
  temp += ".part";
  {
    std::ofstream f(temp, std::ios::binary | std::ios::trunc);
    if (!f) return false;
    f.write(reinterpret_cast<const char*>(octets.data()),
            static_cast<std::streamsize>(octets.size()));
    f.flush();
    if (!f) {
      f.close();
      std::error_code ec;
      fs::remove(temp, ec);
      return false;
    }
  }
  std::error_code ec;
  fs::rename(temp, cible, ec);
  if (ec) {
    fs::remove(temp, ec);
    return false;
  }
  return true;
}

}  // namespace vt::detail
