// One run of the player, as a sequence of steps each due at an ideal time:
// the tracks' set-up, the clicks before the piece, then one step per tick of
// the walk, and the Note Offs of the end. The real-time clock waits for each
// step's time and sends it; the offline walk only notes it down. Both take
// the steps from here, with the one timing function of play_timing.h.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "formats/midi_walk.h"
#include "formats/walk_input.h"
#include "player/play_offline.h"
#include "player/play_records.h"
#include "player/play_timing.h"

namespace vt {

struct ÉtapeJeu {
  std::int64_t ns = 0;  // ideal time from the start
  std::vector<MessageJoué> messages;
  // The position to show: the walk's bar and X at this step.
  int mesure = 0;
  int x = 0;
  bool saut = false;  // a repeat jump led here since the last step
  bool fin = false;   // the piece is over after this step
};

class SessionJeu {
 public:
  // Copies what it plays: the arrays may change once this returns.
  SessionJeu(const PlayNotes& notes, const tPlayParams& params, const PlayMesures& mesures,
             const OneBased<tPlayPiste>& pistes, int tempo, bool suivreBoucle);

  // The next step into `e` (its message list reused); false once the step
  // marked `fin` has been given.
  bool prochaine(ÉtapeJeu& e);
  // Note Offs for every note that sounds (the click's included), for a stop.
  void silence(std::vector<MessageJoué>& out);
  // The state of string c of track p, after the last step.
  CordeEtat corde(int p, int c) const;

 private:
  enum class Phase { Prologue, Clics, Marche, Terminée };
  class Collecteur;

  void prologue(ÉtapeJeu& e);
  void marcher(ÉtapeJeu& e);
  void démarrerMarche();
  void noter(std::vector<MessageJoué>& out, std::uint32_t message, int piste) const;
  void relâcherClic(std::vector<MessageJoué>& out);
  // When click k sounds: k beats of the starting tempo.
  std::int64_t nsClic(int k) const;
  PositionTick position() const;

  WalkInput m_in;
  OneBased<tPlayPiste> m_pistes;
  tPlayParams m_params;
  WalkOptions m_options;
  bool m_boucle;
  int m_tempoDépart;
  HorlogeTicks m_horloge;
  std::optional<MidiWalk> m_marche;
  Phase m_phase = Phase::Prologue;

  int m_clics = 0;  // clicks before the piece
  int m_clic = 0;   // the next one
  int m_canalClic = 0;
  bool m_clicSonne = false;
  std::uint8_t m_volumeClic = 127;

  std::int64_t m_dernierNs = 0;
  std::int64_t m_débutTour = 0;  // time at which the current walk began
  int m_sautsVus = 0;
};

}  // namespace vt
