// The MIDI devices as the settings number them. Outputs: 0 is the built-in
// synthesizer, then the ALSA sequencer's output ports (1 is the first);
// -1, the system's default, is the built-in synthesizer as well. Inputs: the
// ALSA sequencer's input ports from 0.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sound/message_son.h"
#include "sound/midi_in.h"
#include "sound/midi_out.h"
#include "sound/synthe_integre.h"

namespace vt {

// Names for the options dialog, in the language `setLang` (0 or 10000).
std::vector<std::string> nomsSortiesMidi(int setLang);
std::vector<std::string> nomsEntréesMidi();

struct OuvertureSortie {
  std::shared_ptr<MidiOut> sortie;  // never null
  std::vector<MessageSon> messages;
};
// A port that cannot be opened gives the built-in synthesizer and a message.
OuvertureSortie ouvreSortieMidi(int device, const OptionsSynthé& synthé = {});

struct OuvertureEntrée {
  std::unique_ptr<MidiIn> entrée;  // null when nothing is open
  std::vector<MessageSon> messages;
};
// A machine without any input port opens nothing and says nothing: most
// desktops have no MIDI controller. A port that exists but cannot be opened,
// or a device number past the list, gives a message.
OuvertureEntrée ouvreEntréeMidi(int device);

}  // namespace vt
