// The pictures compiled into the program: the toolbar images and the
// fretboard's dot sprites, under ":/toolbar/".
#pragma once

namespace vt {

// Registers them; harmless to call again.
void initialiseRessourcesShell();

}  // namespace vt
