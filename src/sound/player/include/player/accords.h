// The player library's three chord functions, in the shapes the chord
// dictionary calls them with. They answer from the chord search of the tools'
// library; the dictionary, the command-line tool and the tests share it.
//
// Names cross as single-byte strings ("Cadd7", "F#minadd6"): the key, then
// the search's spelling of the type (music/accord_nom.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vt {

// positions[p][s]: the fret of string slot s in fingering p, both from 0; -1
// for a string not played, 0 for an open string. Slot s is string
// nbrCordes - s: slot 0 is the lowest string. The best fingering comes first.
using PositionsAccord = std::vector<std::vector<int>>;

// The seven search parameters, kept for the searches that follow. Called
// before every search.
void SetAccordParametres(std::uint8_t MAXSPAN, std::uint8_t ADJ_SCORE, std::uint8_t OPENS_SCORE,
                         std::uint8_t POSITION_SCORE, std::uint8_t ROOT_SCORE,
                         std::uint8_t SPAN_SCORE, std::uint8_t TSPAN_SCORE);

// Every fingering of chord `nom` on `nbrCordes` strings. Element i of
// `cordes` is a one-character string whose code is the pitch number (0 is A)
// of string nbrCordes - i, the lowest string first; elements past the count
// are empty. `positions` is replaced: empty when nothing was found, when the
// name is not understood, or for fewer than 4 or more than 7 strings.
void GetAccordPositions(PositionsAccord& positions, std::string& nom, std::uint8_t nbrCordes,
                        const std::array<std::string, 8>& cordes);

// The tones of chord `nom`: 12 entries, one per semitone above the root, each
// the tone's pitch number or -1. Empty when the name is not understood.
void GetAccordConstruction(std::vector<int>& résultat, std::string& nom);

}  // namespace vt
