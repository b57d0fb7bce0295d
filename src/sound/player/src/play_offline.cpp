#include "player/play_offline.h"

#include "play_session.h"

namespace vt {

std::vector<MessageJoué> jouerHorsLigne(const PlayNotes& notes, const tPlayParams& params,
                                        const PlayMesures& mesures,
                                        const OneBased<tPlayPiste>& pistes, int tempo) {
  SessionJeu session(notes, params, mesures, pistes, tempo, /*suivreBoucle=*/false);
  std::vector<MessageJoué> tout;
  ÉtapeJeu e;
  while (session.prochaine(e))
    tout.insert(tout.end(), e.messages.begin(), e.messages.end());
  return tout;
}

MessagesDates rendreHorsLigne(const PlayNotes& notes, const tPlayParams& params,
                              const PlayMesures& mesures, const OneBased<tPlayPiste>& pistes,
                              int tempo) {
  MessagesDates dates;
  for (const MessageJoué& m : jouerHorsLigne(notes, params, mesures, pistes, tempo))
    dates.push_back({m.ms, m.message});
  return dates;
}

}  // namespace vt
