// A chord's name as the chord search spells it, and the tones it stands for.
//
// A name is a key ("A" to "G", then "#" or "b") followed by a suffix built
// from a base and degrees:
//   base     nothing (major), "m" or "min", "sus0" (no third: root and fifth),
//            "sus2", "sus4", "dim", "aug", "ddm" (half-diminished);
//   degrees  "dim", "add" or "aug" followed by 2, 4, 6, 7, 9, 11 or 13, and
//            the bare extensions "9", "11" and "13".
// "add" is the natural degree, except "add7", which is the minor seventh of
// the dominant chord; "aug7" is the major seventh, "dim7" the diminished one.
// A bare "9" or "11" brings the minor seventh with it; "13" brings the
// seventh and the ninth.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vt {

inline constexpr int kDemiTons = 12;

// A pitch number: an index into the note names, 0 being A.
inline constexpr int hauteurDeNote(int noteMidi) {
  return ((noteMidi + 3) % kDemiTons + kDemiTons) % kDemiTons;
}

// The note names of the chord tools, by pitch number.
inline constexpr std::array<const char*, kDemiTons> kNomsNotes = {
    "A", "A#", "B", "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#"};

struct TonAccord {
  int demiTons = 0;       // above the root, 0 to 11
  std::string degré;      // "1", "b3", "5", "b7", "9", "#11", ...
  bool essentiel = true;  // false: a fingering may leave it out
  bool operator==(const TonAccord&) const = default;
};

struct ConstructionAccord {
  int fondamentale = 0;         // pitch number of the root
  std::vector<TonAccord> tons;  // root first, then by degree
  bool operator==(const ConstructionAccord&) const = default;

  // One entry per semitone above the root: the tone's pitch number, or -1.
  std::array<int, kDemiTons> tableau() const;
  // The tone `demiTons` above the root, or nullptr.
  const TonAccord* ton(int demiTons) const;
};

// The tones of a name; nothing for a name the search does not understand.
std::optional<ConstructionAccord> lisNomAccord(std::string_view nom);

}  // namespace vt
