// The records of a tablature document. Plain copyable values: a saved-then-read
// document, or an undone edit, is checked with one comparison.
//
// Strings are kept as bytes of Windows-1252, as they stand in the files; they
// are converted to UTF-8 only at the user interface and the command line.
#pragma once

#include <array>
#include <string>

#include "document/one_based.h"
#include "document/types.h"

namespace vt {

struct tNote {
  byt bytCase = 0;     // fret; 0 the open string, 255 a blank note
  byt bytDurée = 0;    // length in ticks, at most 192
  u16 intX = 0;        // tick in the bar
  byt bytEffet = 0;    // effect code
  byt bytReserve = 0;  // copied with the note, cleared by setNoteWhole, never stored
  byt bytAttaque = 0;  // attack code
  byt bytVolume = 0;   // nuance code
  bool operator==(const tNote&) const = default;
};

struct tAccord {
  u16 intX = 0;
  std::string strNom;
  OneBased<byt> tabCordes;  // fret per string 1..bytNbrCordes; 255 = not played
  bool operator==(const tAccord&) const = default;
};

struct tTexte {
  u16 intX = 0;
  std::string strContenu;
  bool operator==(const tTexte&) const = default;
};

struct tTempo {
  u16 intX = 0;
  byt bytTempo = 0;  // beats per minute
  bool operator==(const tTempo&) const = default;
};

// The content of one bar on one track.
struct tPisteMesure {
  OneBased<OneBased<tNote>> tabCordes;  // one sorted note list per string
  OneBased<tAccord> tabAccords;
  OneBased<tTexte> tabTextesUp;
  OneBased<tTexte> tabTextesDn;
  bool operator==(const tPisteMesure&) const = default;

  // A bar with `cordes` empty strings and no chord or text.
  static tPisteMesure vide(int cordes) {
    tPisteMesure m;
    m.tabCordes.resize(cordes);
    return m;
  }
};

// The bar header, shared by all tracks.
struct tMesure {
  byt bytTonalité = 8;  // 8 + accidentals (sharps positive), + 64 for minor
  byt bytSignatureUp = 4;
  byt bytSignatureDn = 4;
  byt bytLoopDroiteType = 0;
  byt bytLoopDroiteData = 0;
  byt bytLoopGaucheType = 0;
  byt bytLoopGaucheData = 0;
  OneBased<tTempo> tabTempos;
  bool operator==(const tMesure&) const = default;
};

// The current instrument: name in the current language, strings as MIDI notes.
struct tGuitare {
  std::string nom;
  byt nbrCordes = 6;
  byt nbrCases = 24;
  std::array<byt, 8> corde{0, 64, 59, 55, 50, 45, 40, 0};  // 1..7; past nbrCordes 0
  byt capodastre = 0;
  bool operator==(const tGuitare&) const = default;
};

// General MIDI program a new track gets unless the caller says otherwise.
inline constexpr byt kPatchParDéfaut = 27;

// One track.
struct tPiste {
  byt bytStaffType = 0;  // 0 guitar staff, 1 drum staff
  byt bytClef = 1;       // 1 treble, other values bass
  byt bytReverb = 0;
  byt bytPan = 64;
  byt bytChorus = 0;
  byt bytPhaser = 0;
  byt bytTremolo = 0;
  byt bytBalance = 64;  // kept in memory, not stored in files
  byt bytPatch = kPatchParDéfaut;
  lng lngBank = 0;
  std::string strNom;
  std::string strGuitareNom;
  byt bytNbrCordes = 6;
  byt bytNbrCases = 24;
  std::array<byt, 8> bytCordes{0, 64, 59, 55, 50, 45, 40, 0};  // strings 1..7
  byt bytCapodastre = 0;
  OneBased<tPisteMesure> tabMesures;
  vbool boolPlaySolo = kFaux;
  vbool boolPlayMute = kFaux;
  bool operator==(const tPiste&) const = default;
};

// One snapshot of the undo and redo stacks: a whole track and where it came from.
struct tUndo {
  tPiste piste;
  byt bytPiste = 0;
  bool operator==(const tUndo&) const = default;
};

// The four play markers.
struct tMarqueurs {
  i16 startMesure = 1;
  i16 startX = 0;
  i16 stopMesure = 1;
  i16 stopX = 0;
  bool operator==(const tMarqueurs&) const = default;
};

}  // namespace vt
