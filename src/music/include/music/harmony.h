// The harmoniser's knowledge: the pitch classes drawn on the fretboard, what
// "scales.dat" finds in them, and where they lie on the neck.
//
// Pitch classes are C-based here: 1 is C, 2 C#, ... 12 B, unlike the A-based
// keys of the scale window.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "document/records.h"
#include "music/gammes.h"

namespace vt {

// tonsDessinés(1..12): the pitch classes that are on; element 0 unused.
using TonsDessinés = std::array<bool, 13>;

// What the list shows (optIdType).
inline constexpr int kIdentification = 0;
inline constexpr int kHarmonisation = 1;

// A MIDI note 0 to 131 flips its pitch class, in whatever octave; any other
// value is ignored. True when something flipped.
bool receiveNote(TonsDessinés& tons, int note);

// Folds 1..23 into 1..12: less 12 from 13 on.
int zob(int n);

// The name of pitch class n (1 C ... 12 B) from strings 2806 to 2817; another
// value gives the empty text. UTF-8.
std::string tnumber2tname(int n, int setLang);

// The A-based key (1 A ... 12 G#) of a C-based pitch class.
int tonalitéDeTon(int n);

// One line of the list: a record of the file at a root.
struct tHarmonie {
  int gamme = 0;         // record, 1-based
  int fondamentale = 0;  // C-based pitch class 1..12
  bool operator==(const tHarmonie&) const = default;
};

// The list, records in the file's order and for each the drawn roots from C.
// Identification (optIdType 0): the records whose notes, laid from a drawn
// root, are exactly the drawn pitch classes (a mode's bytes rotated onto its
// own root when setGAMMode is 2). Harmonisation (1): every chord record of
// the language, at every drawn root.
std::vector<tHarmonie> computeHarmony(const FichierGammes& f, const TonsDessinés& tons,
                                      int optIdType, int setGAMMode, int setLang);

// "<name> of <root>", UTF-8.
std::string ligneHarmonie(const FichierGammes& f, const tHarmonie& h, int setLang);

// The places of the drawn pitch classes: for each class from C, each octave
// shift -24 to 24 and each of the seven strings, the fret that lies in 0..24.
// Seven strings are walked whatever the instrument has: a string with no
// tuning gives places off the board. Pairs of fret and string, in that order.
std::vector<std::pair<int, int>> casesHarmony(const TonsDessinés& tons, const tGuitare& g);

// The type of the chord dictionary's standard list ("maj", "min7", "7sus4",
// ...) that has exactly the notes of a chord record, root first; none when the
// list has no such chord.
std::optional<std::string> typeAccordStandard(const Demitons& d);

}  // namespace vt
