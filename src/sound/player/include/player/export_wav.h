// The tablature as a sound file: the whole piece from bar 1 as the player
// sounds it, rendered offline through the built-in synthesizer into a WAV
// file. One routine for `vantoro-cli convert x.vtb x.wav` and the editor's
// File > Export > Audio, so that both write the same bytes.
#pragma once

#include <string>

#include "player/play_start.h"
#include "sound/rendu_hors_ligne.h"

namespace vt {

class CVantoroTablature;

// Repeats are followed unless their marks are broken, in which case the bars
// play once in order: the callers refuse a broken repeat before, as the MIDI
// export does. The file is written beside its name and renamed into place;
// nothing is left of a failed or stopped rendering.
RésultatWav exporterWav(const CVantoroTablature& doc, const std::string& chemin,
                        const OptionsJeu& jeu = {}, const OptionsRendu& rendu = {});

}  // namespace vt
