// Whole-file reads and safe replacement of a file, shared by every reader and
// writer of the program's formats. No user's file is ever left half written.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace vt {

// String ids of the messages about files.
namespace msg {
inline constexpr int kFichierIntrouvable = 6001;  // "This file is missing."
inline constexpr int kLectureImpossible = 6121;   // the file exists but cannot be read
inline constexpr int kEcritureImpossible = 6122;  // a save failed; the old file is intact
}  // namespace msg

struct FileRead {
  std::vector<std::uint8_t> octets;
  int message = 0;     // 0, kFichierIntrouvable or kLectureImpossible
  std::string détail;  // what the system said, for the curious
  bool ok() const { return message == 0; }
};

// Reads the whole file in one block.
FileRead readWholeFile(const std::filesystem::path& fichier);

// Writes the bytes to a new file in the target's folder, flushes it to the
// disk and renames it over the target, which keeps its permissions. On any
// failure the temporary file is removed and the target is as it was. Returns
// an empty string on success, otherwise what went wrong.
std::string writeFileAtomically(const std::filesystem::path& fichier,
                                std::span<const std::uint8_t> octets);

// The steps of writeFileAtomically, in their order. A process that dies after
// any of them leaves the target either as it was or wholly replaced.
enum class SaveStep { Opened, HalfWritten, Written, Flushed, Closed, Renamed };

// Called after each step: the tests of a save cut short end the process there.
// Null (the default) in the program.
using SaveStepHook = void (*)(SaveStep);
void setSaveStepHook(SaveStepHook hook);

}  // namespace vt
