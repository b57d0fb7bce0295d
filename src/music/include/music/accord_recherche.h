// The chord search: every playable fingering of a chord on an instrument of 4
// to 7 strings, the best first, scored by the seven parameters the user sets
// (docs/chords.md says what each one weighs, with examples).
//
// Strings are slots, slot 0 the lowest string, as the dictionary's arrays
// hold them. A fret of -1 is a string not played, 0 an open string.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "music/accord_nom.h"

namespace vt {

inline constexpr int kCordesRechercheMin = 4;
inline constexpr int kCordesRechercheMax = 7;
// The highest fret a fingering reaches: a fingering above it repeats one an
// octave lower.
inline constexpr int kCaseMaxRecherche = 15;
// At most this many fingerings, the best ones, come back.
inline constexpr std::size_t kDoigtésMax = 1000;

// The seven parameters, in the order of SetAccordParametres.
struct ParametresAccord {
  std::uint8_t MAXSPAN = 4;         // frets one hand reaches, lowest to highest fretted
  std::uint8_t ADJ_SCORE = 9;       // penalty for neighbouring strings a tone or less apart
  std::uint8_t OPENS_SCORE = 10;    // reward for each open string
  std::uint8_t POSITION_SCORE = 2;  // penalty for each fret the hand sits up the neck
  std::uint8_t ROOT_SCORE = 50;     // reward for the root in the bass
  std::uint8_t SPAN_SCORE = 12;     // penalty for each fret between the fingers
  std::uint8_t TSPAN_SCORE =
      3;  // penalty for each fret from the lowest sounding place to the highest
  bool operator==(const ParametresAccord&) const = default;
};

struct Doigté {
  std::array<std::int8_t, kCordesRechercheMax> cases{-1, -1, -1, -1, -1, -1, -1};
  int score = 0;
  bool operator==(const Doigté&) const = default;
};

// The fingerings of `accord` on strings whose open pitch numbers (0 is A) are
// `cordes`, lowest string first. Nothing for fewer than 4 or more than 7
// strings or a pitch number outside 0 to 11.
std::vector<Doigté> chercheDoigtés(const ConstructionAccord& accord, std::span<const int> cordes,
                                   const ParametresAccord& p);

// The bass of a fingering as a guitarist writes it after the name: "" when
// the lowest note is the root, else "/" and the note's name. `notesMidi` are
// the open strings' MIDI notes, lowest string first.
std::string renversement(const Doigté& d, std::span<const int> notesMidi, int fondamentale);

}  // namespace vt
