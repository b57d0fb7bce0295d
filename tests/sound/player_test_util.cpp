#include "player_test_util.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <utility>

#include "sound/midi_handles.h"

namespace vt::test {

CVantoroTablature document(int mesures, int pistes) {
  CVantoroTablature doc;
  for (int m = 2; m <= mesures; ++m)
    doc.addMesure();
  for (int p = 2; p <= pistes; ++p)
    doc.addPiste(p - 1, tGuitare{});
  return doc;
}

int poser(CVantoroTablature& doc, int p, int m, int c, int x, int frette, int durée, int effet,
          int attaque, int volume) {
  const int n = doc.setNoteWhole(p, m, c, x, frette, durée);
  if (n == 0) {
    ADD_FAILURE() << "note refused at " << p << "/" << m << "/" << c << "/" << x;
    return 0;
  }
  doc.setNoteEffet(p, m, c, n, static_cast<byt>(effet));
  doc.setNoteAttaque(p, m, c, n, static_cast<byt>(attaque));
  doc.setNoteVolume(p, m, c, n, static_cast<byt>(volume));
  return n;
}

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
