// Which SoundFont the built-in synthesizer loads: the file the settings name,
// else the system's General MIDI default (Debian's alternative), else the
// usual files of the Debian packages. The same choice serves the live
// synthesizer and the offline renderer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "sound/message_son.h"

namespace vt {

// The system's candidates, in the order they are tried.
std::vector<std::string> soundFontsDuSystème();

struct ChoixSoundFont {
  std::string chemin;  // empty: none could be loaded, the synthesizer is silent
  std::vector<MessageSon> messages;
};

// Tries `choisie` (when not empty), then each of `système`, with `charge`,
// which answers whether the file loaded. Files that do not exist are skipped
// without calling `charge`. The messages say what the user should know: the
// chosen file was passed over, or nothing at all could be loaded.
// `détailEchec` gives the loader's own words for the last failure.
ChoixSoundFont choisitSoundFont(const std::string& choisie, const std::vector<std::string>& système,
                                const std::function<bool(const std::string&)>& charge,
                                const std::function<std::string()>& détailEchec = {});

}  // namespace vt
