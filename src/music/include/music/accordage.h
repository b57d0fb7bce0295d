// From a frequency to what a tuner shows: the nearest note, how many cents
// off it, and the nearest open string of a tuning.
#pragma once

#include <span>

namespace vt {

// MIDI note numbers and frequencies, A4 (note 69) at 440 Hz; fractional notes
// are allowed both ways.
double midiDeHz(double hz);
double hzDeMidi(double midi);

// The name of a note as the program writes it, sharps only: "A" to "G#" (the
// pitch class of note m is (m + 3) modulo 12, counted from A).
const char* nomNote(int midi);

struct NoteEntendue {
  int midi = 0;           // the nearest note
  double cents = 0;       // from it, -50 to +50
  int corde = 0;          // the nearest open string, from 1; 0 without strings
  double centsCorde = 0;  // from that string's open note
};

// `cordes[0]` is string 1 (the string drawn on top), as MIDI notes; strings
// of note 0 (past the instrument's count) are left out. The nearest string is
// the one closest in pitch; between two equally close, the lower number.
NoteEntendue noteEntendue(double hz, std::span<const int> cordes);

}  // namespace vt
