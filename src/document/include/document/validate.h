// The structural invariants of a document, checked as a whole. Readers use it
// to refuse a file whose body contradicts itself; tests use it after edits.
#pragma once

#include <string>

#include "document/tablature.h"

namespace vt {

// Empty when the document holds together, else a description of the first fault.
std::string validateDocument(const CVantoroTablature& doc);

}  // namespace vt
