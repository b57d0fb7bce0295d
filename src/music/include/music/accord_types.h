// The chord dictionary's lists and how a choice in them becomes a name for the
// chord search: the keys, the 19 standard types with the search's spelling of
// each, and the create mode's bases and degree lists.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vt {

// The key list, index 0 to 11; the index is the key's pitch number.
inline constexpr std::array<const char*, 12> kTonalitésAccord = {"A",  "A#", "B", "C",  "C#", "D",
                                                                 "D#", "E",  "F", "F#", "G",  "G#"};

struct TypeAccord {
  const char* affiché;  // the list's text
  const char* suffixe;  // what the search reads after the key
};

inline constexpr std::array<TypeAccord, 19> kTypesAccord = {{
    {"6", "add6"},         {"7", "add7"},      {"7sus2", "sus2add7"},
    {"7sus4", "sus4add7"}, {"9", "9"},         {"11", "11add9"},
    {"13", "13"},          {"maj", ""},        {"maj7 3b", "minaug7"},
    {"maj7", "aug7"},      {"min", "min"},     {"min6", "minadd6"},
    {"min7", "minadd7"},   {"min7 5b", "ddm"}, {"sus", "sus0"},
    {"sus2", "sus2"},      {"sus4", "sus4"},   {"dim", "dim"},
    {"aug", "aug"},
}};

// Create mode: the bases, and one list per degree with four entries each:
// nothing, "dim", "add" and "aug" followed by the degree.
inline constexpr std::array<const char*, 6> kBasesAccord = {"M", "m", "sus2", "sus4", "dim", "aug"};
inline constexpr std::array<int, 7> kDegrésAccord = {2, 4, 6, 7, 9, 11, 13};
inline constexpr std::array<const char*, 4> kChoixDegré = {"", "dim", "add", "aug"};

// The text of entry `choix` (0 to 3) of the list of `degré`: "", "dim9", ...
std::string entréeDegré(int degré, int choix);
// Bases "dim" and "aug" take no degrees: their lists are disabled.
bool baseSansDegrés(int base);

// The search's name of a standard chord: the key and the type's suffix.
std::string nomAccordStandard(int tonalité, int type);
// The search's name of a created chord: the key, the base ("M" adds nothing),
// then the entry of each degree list, unless the base takes none.
std::string nomAccordCréé(int tonalité, int base, const std::array<int, 7>& choix);

// A key as typed ("C", "c#", "Bb"), as an index of the key list.
std::optional<int> indexTonalité(std::string_view texte);
// A standard type by its list text ("maj", "min7 5b").
std::optional<int> indexTypeAccord(std::string_view affiché);
// A base by its list text ("M", "m", "sus2", ...).
std::optional<int> indexBaseAccord(std::string_view texte);
// An entry of the list of `degré`, written "add9", "add", "9" (add), or
// empty; nothing when the text is not one of the four.
std::optional<int> indexChoixDegré(int degré, std::string_view texte);

}  // namespace vt
