// What the sound layer has to tell the user: a string of the table and a
// detail (a path, the library's own words) that the window shows under it.
// The sound layer never prints and never shows anything itself.
#pragma once

#include <string>

#include "formats/string_table.h"

namespace vt {

struct MessageSon {
  int id = 0;          // string id, shown through loadString
  std::string détail;  // may be empty
  bool operator==(const MessageSon&) const = default;
};

namespace son {
// The first entry of the list of outputs.
inline constexpr StringId kSynthétiseurIntégré = StringId{3100};
// No SoundFont anywhere: the built-in synthesizer stays silent.
inline constexpr StringId kAucuneSoundFont = StringId{3101};
// The SoundFont of the settings is missing or unreadable; the system's own plays.
inline constexpr StringId kSoundFontChoisieAbsente = StringId{3102};
// SoundFont files exist but none could be read: silent.
inline constexpr StringId kSoundFontIllisible = StringId{3103};
// No audio output: the synthesizer works, but only offline rendering is heard.
inline constexpr StringId kAucuneSortieAudio = StringId{3104};
// An ALSA output port could not be opened; the built-in synthesizer plays instead.
inline constexpr StringId kSortieMidiImpossible = StringId{3105};
// An ALSA input port could not be opened.
inline constexpr StringId kEntréeMidiImpossible = StringId{3106};
// The caption of the window that shows these messages.
inline constexpr StringId kTitreMessages = StringId{3107};
// A file could not be written; an earlier file of that name is left as it was.
inline constexpr StringId kEcritureImpossible = StringId{6122};
}  // namespace son

}  // namespace vt
