// The one string table of the program, compiled in from data/strings.tsv:
// French at N, English at N + 10000. `setLang` is 0 for French, 10000 for English.
#pragma once

#include <string>
#include <vector>

namespace vt {

inline constexpr int kLangFrançais = 0;
inline constexpr int kLangAnglais = 10000;

// The text of setLang + id, in UTF-8; "[id]" when the table has no such entry.
std::string loadString(int id, int setLang);

// True when the table has the entry setLang + id.
bool hasString(int id, int setLang);

// Every id (below 10000) that the table knows, in rising order.
std::vector<int> stringIds();

}  // namespace vt
