// Standard MIDI File export: format 1, 120 ticks to the quarter note, a
// conductor track, then one track per document track, with the repeats
// unrolled and every effect performed by messages. With RMTF the file also
// carries the tablature meta-events FF 10 (track header) and FF 11 (string and
// attribute of each note), from which our reader rebuilds strings, frets and
// effects; FF 12 (chord diagram) is written in any case.
#pragma once

#include <string>
#include <vector>

#include "document/types.h"
#include "formats/interchange_result.h"
#include "formats/midi_walk.h"

namespace vt {

class CVantoroTablature;

struct MidiExportOptions {
  bool rmtf = false;
  MidiEffetOptions effets;
};

// The whole file. A repeat that ends the last bar makes the document grow by
// one empty bar, as the export always has: the document is taken by reference
// for that. The repeat marks are not checked here (see exporterMidi).
std::vector<byt> io_enregistrer_mid(CVantoroTablature& doc, const MidiExportOptions& options = {});

// Checks the repeat marks, then writes the file through a temporary file.
// Refuses with string 1301 and the bar's number as detail when a repeat is
// broken; writes nothing then.
InterchangeResult exporterMidi(CVantoroTablature& doc, const std::string& chemin,
                               const MidiExportOptions& options = {});

// Ticks from (barA, xA) to (barB, xB). In different bars, the pending count is
// added once for every bar from barA to barB.
lng midCalculSilence(const CVantoroTablature& doc, lng enAttente, int barA, int xA, int barB,
                     int xB);

// The RMTF attribute of a note (FF 11 with two data bytes), or -1 for a plain
// note: the effect is tested first, then the attack.
int codeAttributRmtf(const tNote& note);

}  // namespace vt
