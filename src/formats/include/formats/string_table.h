// The one string table of the program, compiled in from data/strings.tsv:
// French at N, English at N + 10000. `setLang` is 0 for French, 10000 for English.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vt {

inline constexpr int kLangFrançais = 0;
inline constexpr int kLangAnglais = 10000;

// The text of setLang + id, in UTF-8; "[id]" when the table has no such entry.
std::string loadString(int id, int setLang);

// A string id kept as a value. Tables of ids in the code are written with it,
// {"nouveau", StringId{1201}}, so that the test of the string table finds every
// id the code uses (it also finds literal ids in loadString(...) calls).
struct StringId {
  int id = 0;
};

inline std::string loadString(StringId s, int setLang) {
  return loadString(s.id, setLang);
}

// True when the table has the entry setLang + id.
bool hasString(int id, int setLang);

// The table from the text of a strings file (a header line, then "id TAB
// French TAB English" lines; "#" starts a comment line), keyed by setLang + id.
// Lines that do not read so, and ids of 10000 or more, are left out.
std::map<int, std::string> parseStringTable(std::string_view tsv);

// Every id (below 10000) that the table knows, in rising order.
std::vector<int> stringIds();

}  // namespace vt
