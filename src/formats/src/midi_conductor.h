// The conductor track of an exported MIDI file.
#pragma once

#include "midi_chunk.h"

namespace vt {
class CVantoroTablature;
class WalkInput;
}  // namespace vt

namespace vt::detail {

// Head texts, the start tempo, then bar by bar (repeats unrolled) the time
// signatures, keys, every track's texts and the bar's tempos once per track.
void écrireConducteur(const CVantoroTablature& doc, WalkInput& in, ChunkMidi& k);

// 60000000 / tempo as three bytes of a Set Tempo event.
std::uint32_t microsecondesParNoire(int tempo);

}  // namespace vt::detail
