// Integer widths and stored codes shared by every layer that reads a tablature.
#pragma once

#include <cstdint>

namespace vt {

// Widths follow the prefixes of the field names: byt, int, lng, bool.
using byt = std::uint8_t;
using i16 = std::int16_t;
using u16 = std::uint16_t;
using lng = std::int32_t;
// A truth value as it crosses a file or the player interface: 0 false, -1 true.
using vbool = std::int16_t;
inline constexpr vbool kVrai = -1;
inline constexpr vbool kFaux = 0;
inline constexpr vbool toVbool(bool b) {
  return b ? kVrai : kFaux;
}

// Ticks: 192 to the whole note, 48 to the quarter.
inline constexpr int kTicksRonde = 192;
inline constexpr int kTicksNoire = 48;

// Fret value of a blank note (and of a string not played in a chord).
inline constexpr byt kCaseVide = 255;

// Limits that follow from the widths and from the file format.
inline constexpr int kMaxPistes = 255;
inline constexpr int kMaxMesures = 32767;
inline constexpr int kMaxCordes = 7;
inline constexpr int kMaxEntrees = 255;  // notes per string and bar, chords, texts, tempos
inline constexpr int kMaxTexte = 255;    // bytes of a stored string

// Undo and redo keep this many whole-track snapshots.
inline constexpr int kProfondeurUndo = 5;

// Effect codes (bytEffet).
namespace effet {
inline constexpr byt kAucun = 0;
inline constexpr byt kSlideUp = 1;
inline constexpr byt kSlideDown = 2;
inline constexpr byt kHammerOn = 3;
inline constexpr byt kPullOff = 4;
inline constexpr byt kVibrato = 9;
inline constexpr byt kBendUp = 20;
inline constexpr byt kBendUpDown = 21;
inline constexpr byt kBendReturn = 22;
inline constexpr byt kBendDown = 23;
inline constexpr byt kTremolo = 24;
inline constexpr byt kTrill = 25;
inline constexpr byt kLiaison = 27;  // tie to the next note
}  // namespace effet

// Attack codes (bytAttaque).
namespace attaque {
inline constexpr byt kStandard = 0;
inline constexpr byt kHarmoniqueNaturelle = 1;
inline constexpr byt kHarmoniqueArtificielle = 2;
inline constexpr byt kTap = 3;
inline constexpr byt kSlap = 4;
inline constexpr byt kPop = 5;
inline constexpr byt kPalmMute = 6;
inline constexpr byt kStrokeUp = 7;
inline constexpr byt kStrokeDown = 8;
inline constexpr byt kDeadNote = 9;
inline constexpr byt kBrushUp = 10;
inline constexpr byt kBrushDown = 11;
}  // namespace attaque

// Nuance codes (bytVolume): level * 16 - 1, level 1 (ppp) to 8 (fff).
namespace nuance {
inline constexpr byt fromLevel(int level) {
  return static_cast<byt>(level * 16 - 1);
}
inline constexpr byt kPPP = 15;
inline constexpr byt kPP = 31;
inline constexpr byt kP = 47;
inline constexpr byt kMP = 63;
inline constexpr byt kMF = 79;
inline constexpr byt kF = 95;
inline constexpr byt kFF = 111;
inline constexpr byt kFFF = 127;
}  // namespace nuance

// Bar-line types (bytLoopGaucheType / bytLoopDroiteType).
namespace barre {
inline constexpr byt kSimple = 0;
inline constexpr byt kDouble = 1;
inline constexpr byt kRepetition = 2;  // left: start of repeat; right: end of repeat
inline constexpr byt kFinale = 3;      // right only
}  // namespace barre

// Staff types (bytStaffType).
inline constexpr byt kStaffGuitare = 0;
inline constexpr byt kStaffBatterie = 1;

}  // namespace vt
