#include "player_test_util.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <utility>

#include "sound/midi_handles.h"

namespace vt::test {

PlayArrays tableaux(const CVantoroTablature& doc, const DemandeJeu& demande,
                    const OptionsJeu& options) {
  PlayArrays a;
  préparerJeu(doc, a, options, demande);
  return a;
}

std::vector<MessageJoué> horsLigne(const CVantoroTablature& doc, const DemandeJeu& demande,
                                   const OptionsJeu& options) {
  const PlayArrays a = tableaux(doc, demande, options);
  return jouerHorsLigne(a.notes, a.params, a.mesures, a.pistes, doc.tempo);
}

JournalOuvert::JournalOuvert()
    : sortie(std::make_shared<SortieJournal>()), handle(midiHandleOuvrir(sortie)) {}

JournalOuvert::~JournalOuvert() {
  midiHandleFermer(handle);
}

bool attendreQue(const std::function<bool()>& condition, std::chrono::milliseconds limite) {
  const auto fin = std::chrono::steady_clock::now() + limite;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > fin) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

bool estNoteOn(std::uint32_t m) {
  return (midiStatus(m) & 0xF0) == 0x90 && midiData2(m) > 0;
}
bool estNoteOff(std::uint32_t m) {
  return (midiStatus(m) & 0xF0) == 0x80 || ((midiStatus(m) & 0xF0) == 0x90 && midiData2(m) == 0);
}

bool toutRelâché(const MessagesDates& messages) {
  std::map<std::pair<int, int>, int> sonnent;  // (channel, note) -> Note Ons outstanding
  for (const MessageDate& m : messages) {
    const std::pair<int, int> clé{midiStatus(m.message) & 0x0F, midiData1(m.message)};
    if (estNoteOn(m.message)) ++sonnent[clé];
    if (estNoteOff(m.message) && sonnent[clé] > 0) --sonnent[clé];
  }
  for (const auto& [clé, n] : sonnent)
    if (n > 0) return false;
  return true;
}

}  // namespace vt::test
