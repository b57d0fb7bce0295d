// What the tracks tab edits of one track, read from the document and written
// back field by field: only what differs is written, and a new string count
// goes through the document's own resizing of the bars.
#pragma once

#include <QString>
#include <array>
#include <string>

#include "document/types.h"

namespace vt {

class CVantoroTablature;

struct ReglagesPiste {
  QString nom;             // as the widgets show it
  std::string guitareNom;  // Windows-1252, as stored
  int nbrCordes = 6;
  std::array<int, 8> cordes{};  // open strings 1..7 as MIDI notes
  int nbrCases = 24;
  int capodastre = 0;
  int patch = 0;
  lng bank = 0;
  int pan = 64;
  int reverb = 0;
  int chorus = 0;
  int tremolo = 0;
  int phaser = 0;
  int staffType = 0;  // 1 a drum staff, any other value a guitar staff
  int clef = 1;       // 1 treble, any other value bass
  bool solo = false;
  bool mute = false;
  bool operator==(const ReglagesPiste&) const = default;

  static ReglagesPiste lire(const CVantoroTablature& doc, int piste);
};

// Writes into track `piste` every field of `apres` that differs from `avant`;
// true when something was written.
bool ecrireReglages(CVantoroTablature& doc, int piste, const ReglagesPiste& avant,
                    const ReglagesPiste& apres);

// The notes (blank ones aside) a track would lose on strings past `nbrCordes`.
int notesPerdues(const CVantoroTablature& doc, int piste, int nbrCordes);

}  // namespace vt
