// The metronome's clock in the player library: a counter that runs from 0 to
// its maximum once per beat, and a click at the start of every beat. It runs
// on a thread of its own, beside a piece that plays or not.
#pragma once

#include <cstdint>

#include "player/play_records.h"

namespace vt {

// The options the metronome's record is made from (section "Options").
struct OptionsMétronome {
  int setMétronomeMIDICanal10 = 0;
  int setMIDIinstru = 27;
  int setMIDIchannel = 1;  // 1 to 16
  int setMétronomeMIDINote1 = 33;
  int setMétronomeMIDINote2 = 34;
  int setMIDIvolume = 127;
  int setMétro = 1;
  // The first beat of the bar sounds its own note; without the accent every
  // beat takes the weak note.
  bool accent = true;
};

// The start record for `tempo` beats per minute and `temps` beats to the bar.
tMetronomeParams métronomeParams(int tempo, int temps, const OptionsMétronome& o,
                                 std::int32_t midiOut);

// Starts the clock (stopping a running one first): the counter from 0, the
// program change of the record's patch, a click at step 0 of every beat when
// the record says it is audible (the strong note on beat 1 of the bar, the
// weak one on the others, on the record's channel, 0-based, with its volume).
//
// `tempo` is the metronome's tempo in beats per minute: the record's period
// is a whole number of milliseconds per step (46 for the 46.3 of tempo 36),
// 36 of which would make a beat 0.6% short, so the clock keeps the true beat
// and divides it into 36 steps. 0 takes 36 periods as the beat.
void StartMetronome(const tMetronomeParams& params, int tempo);
// Stops the clock and releases the last click. Safe when it is not running.
void StopMetronome();
// The counter, 0 to the record's maximum; one cycle per beat.
std::int32_t GetCompteur();

}  // namespace vt
