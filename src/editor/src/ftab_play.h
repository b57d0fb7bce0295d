// Playback's state inside the editor: the screen timer that polls the player,
// the arrays handed to it, the modes of the run, the notes shown on the
// fretboard and the notes being recorded.
#pragma once

namespace vt {

struct LectureTab {};

}  // namespace vt
