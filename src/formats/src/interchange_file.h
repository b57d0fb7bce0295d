// Whole-file reads and writes for the interchange formats. A write goes to a
// temporary file beside the target and is renamed into place, so a failed or
// interrupted export never leaves half a file where the old one stood.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vt::detail {

// The file's bytes, or nothing when it cannot be read.
std::optional<std::vector<std::uint8_t>> lireFichierEntier(const std::string& chemin);

// True when the bytes are in place under `chemin`.
bool écrireFichierAtomique(const std::string& chemin, std::span<const std::uint8_t> octets);

}  // namespace vt::detail
