// The .vtb reader on any bytes. Beyond "no crash, no hang", a file the reader
// accepts must save and read back as the same document.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "document/validate.h"
#include "formats/catalogue.h"
#include "formats/vtb.h"

namespace {

const vt::CatalogueGuitares& catalogue() {
  static const vt::CatalogueGuitares c = vt::CatalogueGuitares::fromText(
      "[Accordeur]\nnbrGuitares=3\n"
      "[1]\nnomEN=Guitar\nnbrCordes=6\nnbrCases=24\ncorde1=64\ncorde2=59\ncorde3=55\n"
      "corde4=50\ncorde5=45\ncorde6=40\ncapodastre=0\n"
      "[2]\nnomEN=Bass\nnbrCordes=4\nnbrCases=20\ncorde1=43\ncorde2=38\ncorde3=33\ncorde4=28\n"
      "capodastre=0\n"
      "[3]\nnomEN=Seven\nnbrCordes=7\nnbrCases=24\ncorde1=64\ncorde2=59\ncorde3=55\ncorde4=50\n"
      "corde5=45\ncorde6=40\ncorde7=35\ncapodastre=0\n");
  return c;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vt::VtbContexte ctx;
  ctx.catalogue = &catalogue();
  const vt::VtbLecture r = vt::io_ouvrir_vtb(std::span<const std::uint8_t>(data, size), ctx);
  if (!r.ok()) {
    if (r.messages.empty()) std::abort();
    return 0;
  }
  if (!vt::validateDocument(*r.document).empty()) std::abort();
  const vt::VtbEcriture e = vt::io_enregistrer_vtb(*r.document);
  if (!e.ok()) std::abort();
  const vt::VtbLecture encore = vt::io_ouvrir_vtb(e.octets, ctx);
  if (!encore.ok() || !(*encore.document == *r.document)) std::abort();
  return 0;
}
