// MIDI file to tablature. The caller (the import dialog, the command line)
// lists the sources with sourcesMidi, chooses a source for each target track,
// and runs convertirMidi on a fresh document, which it takes over on success.
//
//   MidiFichier f;
//   if (auto r = ouvrirMidi(path, f); !r.ok()) show(r);
//   auto sources = sourcesMidi(f, setLang);           // the dialog's lists
//   MidiImportOptions o;  o.sources = {1, 2};          // targets 1 and 2
//   CVantoroTablature nouveau(guitare);
//   auto r = convertirMidi(f, o, nouveau, {onStep, onProgress});
//   if (r.ok()) doc = std::move(nouveau); else show(r);
//
// The steps reported, by string id: 1012 reading the tracks, 1008 pairing the
// notes, 1009 writing the tablature, 1010 arranging the notes.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "document/records.h"
#include "formats/interchange_result.h"
#include "formats/midi_reader.h"

namespace vt {

class CVantoroTablature;

inline constexpr int kEtapeLecturePistes = 1012;
inline constexpr int kEtapeNotes = 1008;
inline constexpr int kEtapeTablature = 1009;
inline constexpr int kEtapeArrangement = 1010;

struct MidiImportOptions {
  // Target track k (from 1) takes sources[k - 1]: a track chunk counted from
  // 0 in a format 1 file, a channel 1..16 in a format 0 file.
  std::vector<int> sources;
  int transposition = 0;  // semitones added to every note
  bool tempos = true;     // take the tempo changes
  tGuitare guitare;       // the instrument of new tracks (an RMTF header overrides it)
  byt patch = kPatchParDéfaut;
};

struct MidiImportProgress {
  std::function<void(int stringId)> étape;
  MidiProgression progression;  // bytes of the track being read
};

// A note paired with its release.
struct MidiNote {
  std::int64_t tick = 0;   // start, file ticks
  std::int64_t durée = 0;  // file ticks up to the release
  byt hauteur = 0;         // transposed, held to 0..127
  byt corde = 0;           // RMTF string hint
  byt attribut = 0;        // RMTF attribute
  byt vélocité = 0;
};

// Pairs each note start with the first later release of the same pitch (a
// Note Off or a Note On of velocity 0); a note never released lasts to `fin`.
std::vector<MidiNote> arrangeNoteOn(std::span<const MidiEvenement> événements, int transposition,
                                    std::int64_t fin);

// The sources that hold notes, in order, at most seven: the choice made when
// the user makes none.
std::vector<int> sourcesParDéfaut(const std::vector<MidiSource>& sources);

// Fills `doc` (initialised first) from the file. Refuses with 2507 (no
// target or a source that does not exist), 2506 (a target without notes),
// 2502 or 2509 (a track that cannot be read). On refusal `doc` is in whatever
// state the work reached: convert into a document of your own and keep it
// only on success.
InterchangeResult convertirMidi(const MidiFichier& f, const MidiImportOptions& options,
                                CVantoroTablature& doc, const MidiImportProgress& progress = {});

}  // namespace vt
