// From a string and fret to a place on the staff: the twelve spellings (black
// keys are always written as sharps), the drum positions, the alteration table
// of a bar's key, and the extreme note of a beat that sets the stems' height.
#pragma once

#include <array>

#include "document/tablature.h"

namespace vt {

// Letters in the order of the alteration table: A, B, C, D, E, F, G.
enum Lettre : int { kLa = 0, kSi, kDo, kRé, kMi, kFa, kSol };

struct Graphie {
  int u = 0;           // staff step: smaller is higher, 0 the bottom line, H pixels each
  int lettre = kDo;    // index into the alteration table
  bool dièse = false;  // the sharp spelling of a black key
};

// Spelling of a MIDI pitch on the treble staff, an octave above its sound.
Graphie graphie(int p);

// The staff step of a drum number, counted up from the bottom line.
int getNbUnitesFromStaffLowLineForDrums(int drum);

// The alteration in force per letter: -1 flat, 0 natural, 1 sharp.
using Altérations = std::array<i16, 7>;
// The table a key signature of `altérations` (-7 flats to 7 sharps) sets.
Altérations altérationsDeTonalité(int altérations);

// Which sign a note needs with the table in force, and what the table becomes:
// a natural spelling under a sharp or flat needs a natural, a sharp spelling
// not already sharp needs a sharp.
enum class Accident { Aucun, Dièse, Bécarre };
Accident accidentPour(const Graphie& g, Altérations& table);

// Staff steps of a key signature, counted below the staff origin, 1..7.
inline constexpr std::array<int, 8> kPorteeBémols{0, 6, 3, 7, 4, 8, 5, 9};
inline constexpr std::array<int, 8> kPorteeDièses{0, 2, 5, 1, 4, 7, 3, 6};

// The highest (or lowest) staff value among the notes that start in the beat of
// note n: a pitch on a pitched track (24 more under a bass clef), 52 less the
// drum step on a drum track.
int getTempsPortéeMaxMinNote(const CVantoroTablature& doc, int p, int m, int c, int n,
                             bool maximum);

}  // namespace vt
