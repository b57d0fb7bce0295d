// Notes as people type them, for the command line: "C", "c#", "Db", "Do",
// "Ré #", "sol", with an optional octave ("E2", "C#4", C4 being MIDI 60), or
// a MIDI number.
#pragma once

#include <optional>
#include <string_view>

namespace vt {

// The pitch class of a note name, A-based (0 A ... 11 G#), French or English,
// sharps and flats as "#" or "b", blanks allowed before them; an octave
// number after the name is allowed and ignored. None for anything else.
std::optional<int> classeDeNom(std::string_view texte);

// A MIDI note: a number 0 to 127, or a name with its octave ("E2" is 40).
std::optional<int> noteDeTexte(std::string_view texte);

// A note given to the harmoniser: a MIDI number 0 to 127, or a name (its
// pitch class, put in the octave of middle C: "E" is 64).
std::optional<int> noteOuClasse(std::string_view texte);

}  // namespace vt
