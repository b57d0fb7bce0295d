// A strings file on any bytes: every entry comes in both languages, below the
// English offset for French and above it for English.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "formats/string_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto table = vt::parseStringTable(
      std::string_view(reinterpret_cast<const char*>(data), size));
  for (const auto& [clé, texte] : table) {
    if (clé < 0 || clé >= 2 * vt::kLangAnglais) std::abort();
    const int autre = clé < vt::kLangAnglais ? clé + vt::kLangAnglais : clé - vt::kLangAnglais;
    if (!table.count(autre)) std::abort();
    if (texte.size() > size) std::abort();
  }
  return 0;
}
