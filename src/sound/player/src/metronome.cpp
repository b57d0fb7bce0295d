#include "player/metronome.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <thread>

#include "player/play_timing.h"
#include "reveil.h"
#include "sound/midi_handles.h"
#include "sound/midi_out.h"

namespace vt {

namespace {

struct Métronome {
  std::mutex commande;
  std::thread fil;
  Réveil réveil;
  std::atomic<std::int32_t> compteur{0};

  ~Métronome() { arrêterFil(); }

  void arrêterFil() {
    if (!fil.joinable()) return;
    réveil.arrêter();
    fil.join();
  }
};

Métronome& métronome() {
  static Métronome m;
  return m;
}

byt octet(int v) {
  return static_cast<byt>(std::clamp(v, 0, 127));
}

// Step k of a beat lies k / steps of the beat after its start, counted from
// the beat, so that no rounding builds up.
void battre(Métronome& m, tMetronomeParams p, std::int64_t nsTemps,
            std::shared_ptr<MidiOut> sortie) {
  préciserFilHorloge();
  MidiOut* out = p.boolAudible != kFaux ? sortie.get() : nullptr;
  const int pas = std::max<int>(p.intCompteurMax, 0) + 1;
  const int temps = std::max<int>(p.intTemps, 1);
  const byt canal = p.bytCanal & 0x0F;
  if (out != nullptr) out->shortMsg(midiPack(static_cast<byt>(0xC0 | canal), octet(p.bytPatch)));
  const Horloge::time_point origine = Horloge::now();
  int clic = -1;  // the note that sounds
  for (std::int64_t n = 0;; ++n) {
    const std::int64_t battement = n / pas;
    const int k = static_cast<int>(n % pas);
    const std::int64_t ns = battement * nsTemps + k * nsTemps / pas;
    if (!m.réveil.attendre(origine + std::chrono::nanoseconds(ns))) break;
    m.compteur.store(k);
    if (k != 0 || out == nullptr) continue;
    if (clic >= 0)
      out->shortMsg(midiPack(static_cast<byt>(0x80 | canal), static_cast<byt>(clic), 0x7F));
    clic = octet(battement % temps == 0 ? p.bytNoteForte : p.bytNoteFaible);
    out->shortMsg(
        midiPack(static_cast<byt>(0x90 | canal), static_cast<byt>(clic), octet(p.bytVolume)));
  }
  if (clic >= 0)
    out->shortMsg(midiPack(static_cast<byt>(0x80 | canal), static_cast<byt>(clic), 0x7F));
}

}  // namespace

tMetronomeParams métronomeParams(int tempo, int temps, const OptionsMétronome& o,
                                 std::int32_t midiOut) {
  tMetronomeParams p;
  const bool canal10 = o.setMétronomeMIDICanal10 == 1;
  p.bytPatch = static_cast<byt>(canal10 ? 0 : o.setMIDIinstru);
  // The setting counts channels from 1, the record from 0: a metronome off
  // channel 10 sounds one channel above the one the options show.
  p.bytCanal = static_cast<byt>(canal10 ? 9 : o.setMIDIchannel);
  p.bytNoteFaible = static_cast<byt>(o.setMétronomeMIDINote2);
  p.bytNoteForte = static_cast<byt>(o.accent ? o.setMétronomeMIDINote1 : o.setMétronomeMIDINote2);
  p.bytVolume = static_cast<byt>(o.setMIDIvolume);
  // 5000 / (3 * tempo) never ends in exactly one half, so how ties round
  // does not matter here.
  p.lngPériode = tempo > 0 ? static_cast<lng>(std::lround(60000.0 / tempo / 36.0)) : 0;
  p.boolAudible = toVbool(o.setMétro != 0);
  p.lngMidiOut = midiOut;
  p.intTemps = static_cast<i16>(temps);
  p.intCompteurMax = 35;
  return p;
}

void StartMetronome(const tMetronomeParams& params, int tempo) {
  Métronome& m = métronome();
  std::lock_guard verrou(m.commande);
  m.arrêterFil();
  const int pas = std::max<int>(params.intCompteurMax, 0) + 1;
  std::int64_t nsTemps =
      tempo > 0 ? 60'000'000'000LL / tempo : std::int64_t{params.lngPériode} * pas * 1'000'000;
  if (nsTemps <= 0) nsTemps = 500'000'000;  // no tempo at all: 120
  m.compteur.store(0);
  m.réveil.réarmer();
  m.fil = std::thread(battre, std::ref(m), params, nsTemps, midiHandleSortie(params.lngMidiOut));
}

void StopMetronome() {
  Métronome& m = métronome();
  std::lock_guard verrou(m.commande);
  m.arrêterFil();
  m.compteur.store(0);
}

std::int32_t GetCompteur() {
  return métronome().compteur.load();
}

}  // namespace vt
