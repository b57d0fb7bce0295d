// The MIDI out handle of the player's records: a number that stands for an
// open output, as the platform's handle did. 0 means no output; the player
// then walks the piece in silence.
//
// An output registered here stays alive while anyone holds it: the player
// takes a shared pointer at its start, so closing the port while a piece plays
// neither crashes it nor cuts it short.
#pragma once

#include <cstdint>
#include <memory>

#include "sound/midi_out.h"

namespace vt {

// Registers an open output and gives its handle, never 0.
std::int32_t midiHandleOuvrir(std::shared_ptr<MidiOut> out);
// Forgets a handle; the output itself lives on in whoever still holds it.
void midiHandleFermer(std::int32_t handle);
// The output behind a handle, or nullptr for 0 and for a handle not open.
std::shared_ptr<MidiOut> midiHandleSortie(std::int32_t handle);

}  // namespace vt
