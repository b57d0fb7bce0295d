// Any bytes as a text tablature: convert with a rhythm taken from the input,
// check the document, and write it out again.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "document/validate.h"
#include "formats/ascii_export.h"
#include "formats/ascii_import.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vt;
  AsciiImportOptions o;
  o.rythme = rythmeAscii(size > 0 ? 1 + data[0] % 7 : 4);
  CVantoroTablature doc;
  const std::string_view texte(reinterpret_cast<const char*>(data), size);
  if (!convertirAscii(texte, o, doc).ok()) return 0;
  const std::string faute = validateDocument(doc);
  if (!faute.empty()) {
    std::fprintf(stderr, "imported document broken: %s\n", faute.c_str());
    std::abort();
  }
  const std::string sortie = io_enregistrer_txt(doc, 1, 40);
  CVantoroTablature relu;
  convertirAscii(sortie, o, relu);
  return 0;
}
