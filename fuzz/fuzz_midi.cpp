// Any bytes as a MIDI file: read, list, convert, and the document that comes
// out must hold together and go through both exports.
#include <cstdint>
#include <cstdlib>
#include <cstdio>

#include "document/validate.h"
#include "formats/ascii_export.h"
#include "formats/midi_export.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vt;
  MidiFichier f;
  if (!lireMidi({data, size}, f).ok()) return 0;
  const std::vector<MidiSource> sources = sourcesMidi(f, kLangAnglais);
  MidiImportOptions o;
  o.sources = sourcesParDéfaut(sources);
  if (o.sources.empty()) o.sources = {f.format == 0 ? 1 : 0};
  o.transposition = size > 20 ? static_cast<std::int8_t>(data[size - 1]) % 24 : 0;
  CVantoroTablature doc;
  if (!convertirMidi(f, o, doc).ok()) return 0;
  const std::string faute = validateDocument(doc);
  if (!faute.empty()) {
    std::fprintf(stderr, "imported document broken: %s\n", faute.c_str());
    std::abort();
  }
  // The walk over whatever came in; long pieces only cost time (the walk
  // visits every tick of every track).
  long ticks = 0;
  for (int m = 1; m <= doc.getMesureLast(); ++m) ticks += doc.getMesureLargeur(m);
  if (ticks * doc.getPisteLast() <= 200000) {
    MidiExportOptions e;
    e.rmtf = true;
    const std::vector<byt> octets = io_enregistrer_mid(doc, e);
    MidiFichier relu;
    if (!lireMidi(octets, relu).ok()) {
      std::fprintf(stderr, "our own export does not read back\n");
      std::abort();
    }
    io_enregistrer_txt(doc, 1);
  }
  return 0;
}
