// ALSA's library writes its own diagnostics to the terminal (no sound card, no
// sequencer device). The program reports those cases itself, as messages the
// window shows: the library's lines are silenced once for the process.
#pragma once

namespace vt {

void rendAlsaDiscret();

}  // namespace vt
