// The player library: plays a piece from the records it is handed, on a clock
// thread of its own, while the editor's timer polls where it stands.
//
// One piece plays at a time. StartTab returns at once; the getters are single
// atomic reads that neither lock nor allocate, made for a timer of the user
// interface running at the tick period. Nothing here reads the document: the
// records are copied at the start.
#pragma once

#include <cstdint>

#include "document/one_based.h"
#include "player/play_records.h"

namespace vt {

// Starts playing (stopping any piece that plays first): the prologue of every
// track that is heard, the clicks before the piece when asked, then the walk
// from the start position.
//
// `tempo` is the document's tempo in beats per minute. The records carry it
// only as the editor's tick period, a whole number of milliseconds (10 for
// the 10.417 of tempo 120): too coarse for the clock, which plays the true
// tempo. 0 takes the tempo the tick period stands for.
void StartTab(const PlayNotes& notes, const tPlayParams& params, const PlayMesures& mesures,
              const OneBased<tPlayPiste>& pistes, int tempo);

// Ends the piece: every sounding note is released at once and the clock
// thread is gone when this returns. Safe when nothing plays, and twice.
void StopTab();

// The bar being played.
std::int32_t GetPlayTabMesure();
// The X being played; -1 once the piece has ended (and when nothing plays).
std::int32_t GetPlayTabX();
// Not 0 when a repeat jump has occurred since the last call: each jump is
// reported once.
std::int32_t GetPlayTabRenvoiHasOccured();
// The MIDI note sounding on string `corde` (1-based) of the cursor's track.
std::int32_t GetMIDINote(std::int16_t corde);
// Ticks left of that note; 0 or less when the string sounds nothing.
std::int32_t GetMIDINoteDuree(std::int16_t corde);

// The track whose strings GetMIDINote and GetMIDINoteDuree report: the
// cursor's track. The records do not say which it is, and the user may move
// the cursor to another track while the piece plays, so the editor tells it
// here, before StartTab and whenever it changes; it is read at every tick.
void SetPlayTabPiste(std::int16_t piste);

}  // namespace vt
