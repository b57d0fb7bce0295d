// Playback's state inside the editor: the screen timer that polls the player,
// the arrays handed to it, the modes of the run, the notes shown on the
// fretboard and the notes being recorded.
#pragma once

#include <QTimer>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "document/types.h"
#include "player/play_start.h"

namespace vt {

class CVantoroTablature;
class Settings;

// The settings a start reads (section "Options"), as the player takes them.
OptionsJeu optionsJeu(const Settings& s);

// What the editor asks of the player library: the start, the stop and the
// pollers. The library itself by default; a test puts a stand-in whose
// position it sets by hand.
class JoueurTab {
 public:
  virtual ~JoueurTab() = default;
  // playStart: the arrays filled from the document and the options, the
  // cursor's track told, then StartTab.
  virtual void start(const CVantoroTablature& doc, PlayArrays& tableaux, const OptionsJeu& options,
                     const DemandeJeu& demande);
  virtual void stop();
  virtual std::int32_t x();
  virtual std::int32_t mesure();
  virtual std::int32_t renvoi();
  virtual std::int32_t note(std::int16_t corde);
  virtual std::int32_t durée(std::int16_t corde);
  // The track whose strings note() and durée() report.
  virtual void piste(std::int16_t p);
};

// A note of the MIDI input held while recording: where it began and what it is.
struct NoteEnregistrée {
  bool active = false;
  int piste = 0;
  int mesure = 0;
  int x = 0;
  int note = 0;  // the MIDI note, to match its release
  int fret = 0;
};

struct LectureTab {
  LectureTab();
  // A window closed while the piece plays leaves nothing sounding.
  ~LectureTab();
  LectureTab(const LectureTab&) = delete;
  LectureTab& operator=(const LectureTab&) = delete;

  std::unique_ptr<JoueurTab> joueur;
  // Polls the player at the tick period while a piece plays.
  QTimer tmrGFX;
  // Handed to the player at each start and kept until the next: the player
  // reads them while the piece plays.
  PlayArrays tableaux;
  bool marker = false;   // this run plays between the markers
  bool renvois = false;  // this run honours the repeats
  // The MIDI note shown on the fretboard for each string, -1 for none;
  // element 0 is unused.
  std::array<int, kMaxCordes + 1> notesMontrées{};
  // The track the player reports the strings of.
  int pisteAnnoncée = 0;
  // The notes received and not yet released, by string (element 0 unused).
  std::array<NoteEnregistrée, kMaxCordes + 1> enAttente{};
  // The tracks whose undo snapshot this take has already stored.
  std::vector<int> pistesSauvées;
};

}  // namespace vt
