// One scale in one key, as the scale window shows it: the bytes of a record
// (a mode's rotated onto its own root when asked), laid over two octaves
// counted from A, the labels of its notes, the notes it plays and the places
// it takes on the fretboard.
//
// Keys and positions are A-based here: key 1 is A, 2 A#, ... 12 G#; position
// 1 is A, 13 the A above, 24 the last G#.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "document/records.h"
#include "music/gammes.h"

namespace vt {

// The fixed note names, index 0 being A: the pitch class of MIDI note m is (m + 3) % 12.
inline constexpr std::array<const char*, 12> kNomsNotesLa = {"A",  "A#", "B", "C",  "C#", "D",
                                                             "D#", "E",  "F", "F#", "G",  "G#"};

// What the dots and the construction text say (setGAMConst).
namespace etiquette {
inline constexpr int kAucune = 0;
inline constexpr int kDemitons = 1;    // the distance in semitones; the root "T" / "K"
inline constexpr int kIntervalle = 2;  // 1, 2b, 2, ... 7
inline constexpr int kNomNote = 3;     // from kNomsNotesLa
}  // namespace etiquette

// setGAMMode: 1 a mode in its parent's key, 2 the mode's own root on the key.
inline constexpr int kModeDansLaTonalitéDuParent = 1;
inline constexpr int kModeSurSaFondamentale = 2;

// A mode's bytes turned so that its root comes first: entry k takes the entry
// (i + k) % 12, i being the first index holding 0. With no 0 at all, i is 12
// and nothing moves.
Demitons tourneMode(const Demitons& d);

// The bytes a window works with: a mode's rotated when setGAMMode is 2.
Demitons demitonsAffichés(const tGamme& g, int setGAMMode);

// Semitone text to interval name: "0" "1", "1" "2b", "2" "2", "3" "3b", "4"
// "3", "5" "4", "6" "5b", "7" "5", "8" "6b", "9" "6", "10" "7b", "11" "7";
// anything else the empty text.
std::string demitons2intervalle(std::string_view texte);

// The scale over two octaves from A.
struct tNotesGamme {
  std::array<bool, 25> notes{};               // 1..24; element 0 unused
  std::array<std::string, 25> intervalles{};  // the byte as decimal text, empty when absent
  bool operator==(const tNotesGamme&) const = default;
};

// Lays the bytes from key `tonalité` (1..12) and folds the two octaves onto
// each other, so that both repeat with period 12.
tNotesGamme chargeNotesGamme(const Demitons& d, int tonalité);

// The root is the position whose distance is "0".
bool estFondamentale(const tNotesGamme& n, int position);

// The label of a position by setGAMConst, in the language setLang (UTF-8).
std::string etiquetteNote(const tNotesGamme& n, int position, int setGAMConst, int setLang);

// The construction text: the label of each of the 24 positions that is in the
// scale, in order, separated by blanks; empty for setGAMConst 0.
std::string texteConstruction(const tNotesGamme& n, int setGAMConst, int setLang);

// The notes to play: from the key to the octave above, both roots included,
// position p being MIDI note p + 44 (so A is 45).
std::vector<int> listeLecture(const tNotesGamme& n, int tonalité);

// The name of key `tonalité` in the scale tools (strings 2806 to 2817), UTF-8.
std::string nomTonalité(int tonalité, int setLang);

// The caption of the scale: the key alone for the one-note record (a name
// whose first 11 characters are string 2802), else "<scale> of <key>". UTF-8.
std::string titreGamme(const std::string& nomGamme, const std::string& nomTon, int setLang);

// The A-based position 1..12 of a MIDI note (0 or more).
int positionDeNote(int note);

// A place of the scale on the fretboard.
struct tCaseGamme {
  int c = 0;         // fret, 0 (open) to 24
  int corde = 0;     // string, 1 to 7
  int position = 0;  // the position 1..12 of the scale it sounds
  bool operator==(const tCaseGamme&) const = default;
};

// Every place of the scale on frets 0 to 24 of the strings 1 to 7 that have a
// tuning, string by string, fret by fret.
std::vector<tCaseGamme> casesGamme(const tNotesGamme& n, const tGuitare& g);

}  // namespace vt
