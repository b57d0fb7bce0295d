// A document that holds every sign the strip can draw: effects, attacks,
// nuances, rhythms, tempos, texts, chords, keys, signatures and bar lines.
#pragma once

#include "document/tablature.h"

namespace vt::test {

CVantoroTablature showcaseDocument();

// Places a note with its attack, nuance and effect; returns its number.
int note(CVantoroTablature& doc, int m, int c, int x, int fret, int durée, int attaque = 0,
         int effet = 0, int volume = 127);

}  // namespace vt::test
