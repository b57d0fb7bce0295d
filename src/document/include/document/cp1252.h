// Windows-1252, the code page of every text stored in a document and in the
// files it came from, converted to and from UTF-8 at the edges of the program
// (the user interface, the command line, the catalogue file).
#pragma once

#include <string>
#include <string_view>

namespace vt {

// Every byte has a character: the five bytes the code page leaves undefined
// (0x81, 0x8D, 0x8F, 0x90, 0x9D) become the C1 controls of the same number, so
// that any stored text survives a trip through UTF-8 and back.
std::string cp1252ToUtf8(std::string_view cp1252);

// A character the code page has no byte for, and every byte of a malformed
// UTF-8 sequence, becomes "?".
std::string utf8ToCp1252(std::string_view utf8);

// True when the text is well-formed UTF-8 (no overlong forms, no surrogates).
bool isValidUtf8(std::string_view text);

}  // namespace vt
