#include "player/player.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <thread>

#include "play_session.h"
#include "player/play_timing.h"
#include "reveil.h"
#include "sound/midi_handles.h"

namespace vt {

namespace {

// What the clock thread shares with the pollers: atomic values, nothing else.
struct Lecteur {
  std::mutex commande;  // StartTab and StopTab, from the user interface
  std::thread fil;
  Réveil réveil;

  std::atomic<std::int32_t> mesure{0};
  std::atomic<std::int32_t> x{-1};
  std::atomic<bool> saut{false};
  std::atomic<std::int32_t> piste{1};
  std::array<std::atomic<std::int32_t>, kMaxCordes + 1> note{};
  std::array<std::atomic<std::int32_t>, kMaxCordes + 1> durée{};

  ~Lecteur() { arrêterFil(); }

  void arrêterFil() {
    if (!fil.joinable()) return;
    réveil.arrêter();
    fil.join();
  }

  void publierCordes(const SessionJeu& s) {
    const int p = piste.load(std::memory_order_relaxed);
    for (int c = 1; c <= kMaxCordes; ++c) {
      const CordeEtat e = s.corde(p, c);
      const auto i = static_cast<std::size_t>(c);
      note[i].store(e.sonne ? e.hauteur : 0, std::memory_order_relaxed);
      durée[i].store(e.sonne ? std::clamp(e.restant, 0, 32766) : 0, std::memory_order_relaxed);
    }
  }
  void effacerCordes() {
    for (std::size_t c = 0; c < note.size(); ++c) {
      note[c].store(0, std::memory_order_relaxed);
      durée[c].store(0, std::memory_order_relaxed);
    }
  }
};

Lecteur& lecteur() {
  static Lecteur l;
  return l;
}

void envoyer(MidiOut* out, const std::vector<MessageJoué>& messages) {
  if (out == nullptr) return;
  for (const MessageJoué& m : messages)
    out->shortMsg(m.message);
}

bool estNoteOff(std::uint32_t m) {
  return (midiStatus(m) & 0xF0) == 0x80;
}

// The clock thread: each step is sent at its ideal time, counted from the
// start on steady_clock, so that a late wake-up delays one step and not the
// rest of the piece.
void jouer(Lecteur& l, std::unique_ptr<SessionJeu> session, std::shared_ptr<MidiOut> sortie) {
  préciserFilHorloge();
  MidiOut* out = sortie.get();
  const Horloge::time_point origine = Horloge::now();
  ÉtapeJeu e;
  e.messages.reserve(256);
  while (session->prochaine(e)) {
    if (!l.réveil.attendre(origine + std::chrono::nanoseconds(e.ns))) {
      // Stopped before this step was sent. The walk has already taken it, so
      // the notes it ends count as ended: release them now, then everything
      // the walk still holds.
      std::vector<MessageJoué> fin;
      for (const MessageJoué& m : e.messages)
        if (estNoteOff(m.message)) fin.push_back(m);
      session->silence(fin);
      envoyer(out, fin);
      break;
    }
    envoyer(out, e.messages);
    l.mesure.store(e.mesure);
    l.x.store(e.x);
    if (e.saut) l.saut.store(true);
    if (e.fin) break;
    l.publierCordes(*session);
  }
  l.effacerCordes();
  l.x.store(-1);
}

}  // namespace

void StartTab(const PlayNotes& notes, const tPlayParams& params, const PlayMesures& mesures,
              const OneBased<tPlayPiste>& pistes, int tempo) {
  Lecteur& l = lecteur();
  std::lock_guard verrou(l.commande);
  l.arrêterFil();
  auto session = std::make_unique<SessionJeu>(notes, params, mesures, pistes, tempo, true);
  // The output is held for the whole run: closing its handle meanwhile
  // neither crashes the clock nor cuts the piece short.
  std::shared_ptr<MidiOut> sortie = midiHandleSortie(params.lngMidiOut);
  // Until the clock's first step, the pollers see the start position, not
  // the -1 that would end the editor's run at once.
  l.mesure.store(std::max<lng>(params.lngStartMesure, 1));
  l.x.store(std::max<int>(params.intStartX, 0));
  l.saut.store(false);
  l.effacerCordes();
  l.réveil.réarmer();
  l.fil = std::thread(jouer, std::ref(l), std::move(session), std::move(sortie));
}

void StopTab() {
  Lecteur& l = lecteur();
  std::lock_guard verrou(l.commande);
  l.arrêterFil();
  l.x.store(-1);
}

std::int32_t GetPlayTabMesure() {
  return lecteur().mesure.load();
}

std::int32_t GetPlayTabX() {
  return lecteur().x.load();
}

std::int32_t GetPlayTabRenvoiHasOccured() {
  return lecteur().saut.exchange(false) ? -1 : 0;
}

std::int32_t GetMIDINote(std::int16_t corde) {
  if (corde < 1 || corde > kMaxCordes) return 0;
  return lecteur().note[static_cast<std::size_t>(corde)].load(std::memory_order_relaxed);
}

std::int32_t GetMIDINoteDuree(std::int16_t corde) {
  if (corde < 1 || corde > kMaxCordes) return 0;
  return lecteur().durée[static_cast<std::size_t>(corde)].load(std::memory_order_relaxed);
}

void SetPlayTabPiste(std::int16_t piste) {
  lecteur().piste.store(piste);
}

}  // namespace vt
