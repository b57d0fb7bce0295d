// Document texts (Windows-1252 bytes) as the surface prints them (UTF-8).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/cp1252.h"

namespace vt {

inline std::string utf8DepuisCp1252(std::string_view octets) { return cp1252ToUtf8(octets); }

// The lines of a text, split at the two characters backslash and n.
std::vector<std::string> lignesDeTexte(std::string_view texte);

}  // namespace vt
