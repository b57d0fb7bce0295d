// What the MIDI walk plays: the records that the player library receives from
// the document (per-track MIDI settings, bar headers with their bar lines and
// tempos, and one note list per track, bar and string), held as plain values.
//
// The file export builds one from the document; the player builds one from the
// arrays handed to it at start. Nothing here refers back to the document, so a
// walk can run while the document is edited elsewhere.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <vector>

#include "document/list_pool.h"
#include "document/one_based.h"
#include "document/records.h"
#include "document/types.h"

namespace vt {

class CVantoroTablature;

// One track as the walk sees it (the musical part of the player's track record).
struct WalkPiste {
  byt bytNbrCordes = 6;
  std::array<byt, 8> bytCordes{0, 64, 59, 55, 50, 45, 40, 0};  // open strings 1..7
  byt bytCanal = 0;       // MIDI channel 0..15
  vbool boolMuet = kFaux;  // walked, so that its state is known, but not heard
  bool operator==(const WalkPiste&) const = default;
};

// One bar header: the player's bar record.
struct WalkMesure {
  byt bytSignatureUp = 4;
  byt bytSignatureDn = 4;
  byt bytLoopDroiteType = 0;
  byt bytLoopDroiteData = 0;
  byt bytLoopGaucheType = 0;
  byt bytLoopGaucheData = 0;
  OneBased<tTempo> tabTempos;
  bool operator==(const WalkMesure&) const = default;

  // The width in ticks: numerator * 192 / denominator (0 for a zero denominator).
  int largeur() const {
    return bytSignatureDn == 0 ? 0 : bytSignatureUp * kTicksRonde / bytSignatureDn;
  }
};

class WalkInput {
 public:
  WalkInput() = default;
  // `pistes` tracks over `mesures` default bars, every note list empty.
  WalkInput(int pistes, int mesures);

  int getPisteLast() const { return m_pistes.last(); }
  int getMesureLast() const { return m_mesures.last(); }
  bool hasPiste(int p) const { return m_pistes.has(p); }
  bool hasMesure(int m) const { return m_mesures.has(m); }

  const WalkPiste& piste(int p) const { return m_pistes[p]; }
  WalkPiste& piste(int p) { return m_pistes[p]; }
  const WalkMesure& mesure(int m) const { return m_mesures[m]; }
  WalkMesure& mesure(int m) { return m_mesures[m]; }

  // The notes of string c (1..7) of track p in bar m; an empty list outside.
  OneBasedView<tNote> notes(int p, int m, int c) const;
  // Keeps a copy of the list.
  void setNotes(int p, int m, int c, OneBasedView<tNote> notes);

  // Ticks at which track p shows a chord diagram in bar m, rising. Only the
  // file export fills them; the walk reports each as an event.
  const std::vector<u16>& accords(int p, int m) const;
  void setAccords(int p, int m, std::vector<u16> x);

  // Appends an empty bar with the signature of the last one (as the
  // document's addMesure does); a walk sees it from its next step. The note
  // and chord lists already handed out stay where they are.
  void addMesure();
  // Bars appended since construction.
  int mesuresAjoutées() const { return m_ajoutées; }

 private:
  std::size_t cellule(int p, int m) const;

  OneBased<WalkPiste> m_pistes;
  OneBased<WalkMesure> m_mesures;
  // Bar-major, then track, then string: appending a bar appends cells, and a
  // deque keeps the others in place.
  std::deque<OneBasedView<tNote>> m_notes;
  ListPool<tNote> m_listes;  // what the views of m_notes show
  std::deque<std::vector<u16>> m_accords;
  int m_ajoutées = 0;
};

// The MIDI channel of a track: 9 for a drum staff, else the track number less
// one. A channel is four bits, so tracks past the sixteenth wrap round.
int canalMidi(const CVantoroTablature& doc, int p);

struct WalkInputOptions {
  bool accords = false;  // fill the chord positions (the file export writes them)
  // Apply the player's rule: as soon as one track is solo, every track that
  // is not solo is muted; otherwise each track's own mute flag.
  bool soloMute = false;
};

// The document's records, copied (the copy made at every play start).
WalkInput walkInputFromDocument(const CVantoroTablature& doc, WalkInputOptions options = {});

}  // namespace vt
