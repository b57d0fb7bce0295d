// The records handed to the player library: the start record of a piece, one
// record per track and per bar, the notes, and the metronome's start record.
// They are a wire format: every field sits at the offset and has the width it
// always had (checked below), 16-bit truth values are 0 / -1, and a reserved
// field is zero.
//
// The arrays keep their bounds: track, bar and list entries count from 1 with
// an unused element 0 (OneBased), the notes are one list per (track, bar,
// string - 1), and a cell without notes is an empty list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "document/list_pool.h"
#include "document/one_based.h"
#include "document/records.h"
#include "document/types.h"

namespace vt {

// The start record of a piece.
struct tPlayParams {
  vbool boolRenvois = kFaux;  // honour repeat bar lines
  vbool boolLoop = kFaux;     // start again at the start position when the end is reached
  vbool TripleFeel = kFaux;   // play pairs of eighths long-short
  i16 intPériodeTick = 0;     // ms per tick, the integer 60000 / (tempo * 48): the editor's timer
  lng lngStartMesure = 1;
  i16 intStartX = 0;
  i16 réservé14 = 0;
  lng lngStopMesure = 0;  // marker mode only
  i16 intStopX = 0;
  i16 setMIDIPitchDemiTon = 32;
  vbool boolBeatsAtStart = kFaux;  // a bar of clicks before the first note
  byt bytClickNote = 33;
  byt bytClickCanal = 1;   // 1-based
  lng lngBeatDurée = 0;    // ms per beat, the integer 60000 / tempo, with the clicks only
  i16 intTempsMesure = 4;  // beats in the bar under the cursor: (4 * Up) \ Dn
  i16 réservé34 = 0;
  lng lngMidiOut = 0;        // MIDI out handle; 0 plays in silence
  vbool boolMarker = kFaux;  // play from the start to the stop position, then end
  i16 setMIDIEffet1Ton = 0;
  i16 setMIDIPitchBendRange = 12;
  i16 réservé46 = 0;
};

// One track.
struct tPlayPiste {
  byt bytNbrCordes = 6;
  std::array<byt, 7> bytCordes{64, 59, 55, 50, 45, 40, 0};  // open strings 1..7 at [0..6]
  byt bytPatch = kPatchParDéfaut;
  byt bytVolume = 127;
  byt bytCanal = 0;  // 0-based
  byt bytBalance = 64;
  byt bytPan = 64;
  byt bytReverb = 0;
  byt bytTremolo = 0;
  byt bytChorus = 0;
  byt bytPhaser = 0;
  byt réservé17 = 0;
  vbool boolSolo = kFaux;
  vbool boolMute = kFaux;  // -1 for every track that is not solo while one is
  i16 réservé22 = 0;
  lng lngBank = 0;

  // Open string c, 1..7.
  byt corde(int c) const {
    return c >= 1 && c <= 7 ? bytCordes[static_cast<std::size_t>(c - 1)] : 0;
  }
};

// One tempo change of a bar.
struct tPlayTempo {
  u16 intX = 0;
  byt bytTempo = 0;  // beats per minute
  byt réservé3 = 0;
};

// One bar header. Its tempo changes are an array of their own: the last field
// is the reference to it, here the number of the list within the PlayMesures
// that carries the record (0: the bar has none), since a pointer would not
// fit the record's four bytes.
struct tPlayMesure {
  byt bytSignatureUp = 4;
  byt bytSignatureDn = 4;
  byt bytLoopDroiteType = 0;
  byt bytLoopDroiteData = 0;
  byt bytLoopGaucheType = 0;
  byt bytLoopGaucheData = 0;
  std::array<byt, 2> réservé6{};
  std::uint32_t refTempos = 0;
};

// The metronome's start record.
struct tMetronomeParams {
  byt bytPatch = 0;
  byt bytCanal = 9;  // 0-based
  byt bytNoteFaible = 34;
  byt bytNoteForte = 33;
  byt bytVolume = 127;
  std::array<byt, 3> réservé5{};
  lng lngPériode = 0;  // ms per counter step: 60000 / tempo / 36, rounded
  vbool boolAudible = kVrai;
  i16 réservé14 = 0;
  lng lngMidiOut = 0;
  i16 intTemps = 4;  // beats per bar
  i16 intCompteurMax = 35;
};

static_assert(sizeof(tNote) == 8);
static_assert(offsetof(tNote, bytCase) == 0 && offsetof(tNote, bytDurée) == 1 &&
              offsetof(tNote, intX) == 2 && offsetof(tNote, bytEffet) == 4 &&
              offsetof(tNote, bytReserve) == 5 && offsetof(tNote, bytAttaque) == 6 &&
              offsetof(tNote, bytVolume) == 7);

static_assert(sizeof(tPlayParams) == 48);
static_assert(offsetof(tPlayParams, boolRenvois) == 0);
static_assert(offsetof(tPlayParams, boolLoop) == 2);
static_assert(offsetof(tPlayParams, TripleFeel) == 4);
static_assert(offsetof(tPlayParams, intPériodeTick) == 6);
static_assert(offsetof(tPlayParams, lngStartMesure) == 8);
static_assert(offsetof(tPlayParams, intStartX) == 12);
static_assert(offsetof(tPlayParams, réservé14) == 14);
static_assert(offsetof(tPlayParams, lngStopMesure) == 16);
static_assert(offsetof(tPlayParams, intStopX) == 20);
static_assert(offsetof(tPlayParams, setMIDIPitchDemiTon) == 22);
static_assert(offsetof(tPlayParams, boolBeatsAtStart) == 24);
static_assert(offsetof(tPlayParams, bytClickNote) == 26);
static_assert(offsetof(tPlayParams, bytClickCanal) == 27);
static_assert(offsetof(tPlayParams, lngBeatDurée) == 28);
static_assert(offsetof(tPlayParams, intTempsMesure) == 32);
static_assert(offsetof(tPlayParams, réservé34) == 34);
static_assert(offsetof(tPlayParams, lngMidiOut) == 36);
static_assert(offsetof(tPlayParams, boolMarker) == 40);
static_assert(offsetof(tPlayParams, setMIDIEffet1Ton) == 42);
static_assert(offsetof(tPlayParams, setMIDIPitchBendRange) == 44);
static_assert(offsetof(tPlayParams, réservé46) == 46);

static_assert(sizeof(tPlayPiste) == 28);
static_assert(offsetof(tPlayPiste, bytNbrCordes) == 0);
static_assert(offsetof(tPlayPiste, bytCordes) == 1);
static_assert(offsetof(tPlayPiste, bytPatch) == 8);
static_assert(offsetof(tPlayPiste, bytVolume) == 9);
static_assert(offsetof(tPlayPiste, bytCanal) == 10);
static_assert(offsetof(tPlayPiste, bytBalance) == 11);
static_assert(offsetof(tPlayPiste, bytPan) == 12);
static_assert(offsetof(tPlayPiste, bytReverb) == 13);
static_assert(offsetof(tPlayPiste, bytTremolo) == 14);
static_assert(offsetof(tPlayPiste, bytChorus) == 15);
static_assert(offsetof(tPlayPiste, bytPhaser) == 16);
static_assert(offsetof(tPlayPiste, réservé17) == 17);
static_assert(offsetof(tPlayPiste, boolSolo) == 18);
static_assert(offsetof(tPlayPiste, boolMute) == 20);
static_assert(offsetof(tPlayPiste, réservé22) == 22);
static_assert(offsetof(tPlayPiste, lngBank) == 24);

static_assert(sizeof(tPlayTempo) == 4);
static_assert(offsetof(tPlayTempo, intX) == 0 && offsetof(tPlayTempo, bytTempo) == 2 &&
              offsetof(tPlayTempo, réservé3) == 3);

static_assert(sizeof(tPlayMesure) == 12);
static_assert(offsetof(tPlayMesure, bytSignatureUp) == 0);
static_assert(offsetof(tPlayMesure, bytSignatureDn) == 1);
static_assert(offsetof(tPlayMesure, bytLoopDroiteType) == 2);
static_assert(offsetof(tPlayMesure, bytLoopDroiteData) == 3);
static_assert(offsetof(tPlayMesure, bytLoopGaucheType) == 4);
static_assert(offsetof(tPlayMesure, bytLoopGaucheData) == 5);
static_assert(offsetof(tPlayMesure, réservé6) == 6);
static_assert(offsetof(tPlayMesure, refTempos) == 8);

static_assert(sizeof(tMetronomeParams) == 24);
static_assert(offsetof(tMetronomeParams, bytPatch) == 0);
static_assert(offsetof(tMetronomeParams, bytCanal) == 1);
static_assert(offsetof(tMetronomeParams, bytNoteFaible) == 2);
static_assert(offsetof(tMetronomeParams, bytNoteForte) == 3);
static_assert(offsetof(tMetronomeParams, bytVolume) == 4);
static_assert(offsetof(tMetronomeParams, réservé5) == 5);
static_assert(offsetof(tMetronomeParams, lngPériode) == 8);
static_assert(offsetof(tMetronomeParams, boolAudible) == 12);
static_assert(offsetof(tMetronomeParams, réservé14) == 14);
static_assert(offsetof(tMetronomeParams, lngMidiOut) == 16);
static_assert(offsetof(tMetronomeParams, intTemps) == 20);
static_assert(offsetof(tMetronomeParams, intCompteurMax) == 22);

// The bar records with their tempo arrays.
class PlayMesures {
 public:
  int getMesureLast() const { return m_mesures.last(); }
  // Drops every bar and tempo list and makes `n` default bars.
  void redim(int n);
  tPlayMesure& operator[](int m) { return m_mesures[m]; }
  const tPlayMesure& operator[](int m) const { return m_mesures[m]; }
  const OneBased<tPlayMesure>& mesures() const { return m_mesures; }

  // The tempo changes of bar m (element 0 unused); an empty list for a bar
  // without any or a reference that leads nowhere.
  const OneBased<tPlayTempo>& tempos(int m) const;
  // Gives bar m its list and sets the record's reference to it.
  void setTempos(int m, OneBased<tPlayTempo> tempos);

 private:
  OneBased<tPlayMesure> m_mesures;
  OneBased<OneBased<tPlayTempo>> m_tempos;
};

// The notes: one list of tNote per (track, bar, string - 1), the track
// varying fastest, each a verbatim copy of the document's list.
class PlayNotes {
 public:
  int getPisteLast() const { return m_pistes; }
  int getMesureLast() const { return m_mesures; }
  // Drops every cell: `pistes` x `mesures` x 7 empty lists.
  void redim(int pistes, int mesures);
  // String index 0..6 (string - 1); an empty list outside the bounds.
  OneBasedView<tNote> cellule(int p, int m, int corde0) const;
  // Keeps a copy of the list; nothing happens outside the bounds.
  void setCellule(int p, int m, int corde0, OneBasedView<tNote> notes);

 private:
  std::size_t index(int p, int m, int corde0) const;
  bool dedans(int p, int m, int corde0) const;

  int m_pistes = 0;
  int m_mesures = 0;
  std::vector<OneBasedView<tNote>> m_cellules;
  // The lists the cells show, side by side: a piece of thousands of bars
  // costs a few allocations, not one a cell.
  ListPool<tNote> m_listes;
};

}  // namespace vt
