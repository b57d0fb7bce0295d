// The editor's two clipboards, of notes and of bars, and the commands on whole
// bars. They hold the document's own records and live as long as the editor
// window: nothing goes through the system's clipboard, so their contents never
// reach another program.
//
// Every command that changes the document first takes an undo snapshot of the
// cursor's track (storeUndo) and sets `modifi`, and answers what it changed so
// that the editor knows what to draw again.
#pragma once

#include "document/one_based.h"
#include "document/records.h"

namespace vt {

class CVantoroTablature;

// The bars a command reaches, as the bar range dialog hands them back.
struct PositionsMesures {
  int première = 1;           // the first bar
  int nombre = 1;             // how many bars
  bool toutesPistes = false;  // every track, or the cursor's track only
  bool operator==(const PositionsMesures&) const = default;
};

// What a command did to the document.
struct Changement {
  bool modifié = false;          // the document changed, and `modifi` is set
  int premièreMesure = 0;        // the bars whose content changed; 0 when none did
  int dernièreMesure = 0;        // (up to the end of the document when bars moved)
  bool longueurChangée = false;  // bars were added to the document or taken from it
  bool curseurRamené = false;    // the cursor's bar was gone: it stands on the last bar, at 0
};

// A selection is there from the first press of the mouse on the strip until
// selClear; a press alone selects the cell under the cursor.
bool aUneSélection(const CVantoroTablature& doc);

// Puts the selection in order: start bar and tick before stop bar and tick,
// start string above (not below) stop string.
void normaliseSélection(CVantoroTablature& doc);

// The note clipboard: one list of notes per string of the selection, string 1
// being the selection's top string. The `intX` of an entry is its distance in
// ticks from the start of the selection, counted across bar ends.
class PressePapierNotes {
 public:
  // Takes the notes of the selection on the cursor's track, the selection put
  // in order first. False, and the clipboard unchanged, without a selection.
  bool copier(CVantoroTablature& doc);
  // The copy, with an undo snapshot first; then the copied notes go from the
  // track. The bars keep their length: where the notes were, rests remain.
  Changement couper(CVantoroTablature& doc);
  // Writes the notes from the cursor: the first list on the cursor's string,
  // the next ones below; lists past the track's last string are left out. A
  // note's distance carries it over the ends of the bars it passes, whatever
  // their widths; bars are added at the end of the document as needed.
  Changement coller(CVantoroTablature& doc) const;

  // Paste has something to write from the first copy or cut on.
  bool aDuContenu() const { return !m_cordes.empty(); }
  const OneBased<OneBased<tNote>>& cordes() const { return m_cordes; }
  void vider() { m_cordes.clear(); }

 private:
  OneBased<OneBased<tNote>> m_cordes;
};

// The bar clipboard: bars 1..n of one track, each with its notes, chords and
// texts. Bar headers (signature, key, bar lines, tempos) stay in the document.
class PressePapierMesures {
 public:
  // Takes the bars of the cursor's track; the range is cut at the document's
  // end. False, and the clipboard unchanged, when no bar of it exists.
  bool copier(const CVantoroTablature& doc, const PositionsMesures& pos);
  // The copy, with an undo snapshot first, then the bars removed as
  // supprimeMesures does, on the cursor's track or on every track.
  Changement couper(CVantoroTablature& doc, const PositionsMesures& pos);
  // Opens as many empty bars as the clipboard holds at the cursor's bar of the
  // cursor's track, the later bars of that track moving on, and writes the
  // clipboard into them. The document grows by as many bars; the other tracks
  // get empty bars at their end.
  Changement coller(CVantoroTablature& doc) const;

  bool aDuContenu() const { return !m_mesures.empty(); }
  int nombre() const { return m_mesures.last(); }
  const OneBased<tPisteMesure>& mesures() const { return m_mesures; }
  void vider() { m_mesures.clear(); }

 private:
  OneBased<tPisteMesure> m_mesures;
};

// Opens `nombre` empty bars at `première`, on the cursor's track or on every
// track; the document grows by `nombre` bars. Nothing changes when the
// document would pass its limit of bars.
Changement insèreMesures(CVantoroTablature& doc, const PositionsMesures& pos);

// Removes bars from the cursor's track, its later bars moving back and empty
// bars filling its end, the document keeping its length; or from every track,
// the document then becoming shorter (never less than one bar). The cursor is
// brought back inside the document.
Changement supprimeMesures(CVantoroTablature& doc, const PositionsMesures& pos);

}  // namespace vt
