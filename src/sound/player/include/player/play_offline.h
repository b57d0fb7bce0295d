// The player's walk without a clock: every message a start would send, with
// the time at which the clock sends it. The WAV export renders this list, and
// the tests read it; the real-time clock walks the same steps with the same
// timing function, waiting for each time instead of noting it.
#pragma once

#include <cstdint>
#include <vector>

#include "document/one_based.h"
#include "player/play_records.h"
#include "sound/message_date.h"

namespace vt {

struct MessageJoué {
  double ms = 0;              // from the start
  std::uint32_t message = 0;  // packed as midiPack
  int piste = 0;              // the track; 0 for the clicks before the piece
  std::int64_t temps = -1;    // ticks of the walk since the start position; -1 before it
  int mesure = 0;             // where the walk stood
  int x = 0;
  bool operator==(const MessageJoué&) const = default;
};

// The whole piece once through, as StartTab would play it (`tempo` as for
// StartTab). A loop is not followed: the list would never end.
std::vector<MessageJoué> jouerHorsLigne(const PlayNotes& notes, const tPlayParams& params,
                                        const PlayMesures& mesures,
                                        const OneBased<tPlayPiste>& pistes, int tempo);

// The same as times and messages, as the offline synthesizer takes them.
MessagesDates rendreHorsLigne(const PlayNotes& notes, const tPlayParams& params,
                              const PlayMesures& mesures, const OneBased<tPlayPiste>& pistes,
                              int tempo);

}  // namespace vt
