// The player's clock in real time: a two-minute piece at tempo 120 played
// through the logging output while a busy thread holds the other core. Each
// message's time as sent is set against its ideal time (the offline walk of
// the same records); the table gives the median, 99th percentile and largest
// deviation, and the error of the piece's whole length.
//
// Then the same piece with a clock that ticks at the editor's whole period
// (10 ms instead of 10.417 at tempo 120), as a clock that waited the
// record's integer period on every tick would: the difference it makes.
//
// Then the metronome's clock at tempo 120 for as long: each click's time as
// sent against a click every 500 ms from the first.
//
// Last, for reference, the machine's own wake-up latency: a thread that only
// sleeps until each tick's deadline.
//
// Usage: bench_player_timing [SECONDS]   (120 by default; three runs of about
// that length each). Not a Google Benchmark: it runs in real time.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "document/tablature.h"
#include "player/metronome.h"
#include "player/play_offline.h"
#include "player/play_start.h"
#include "player/play_timing.h"
#include "player/player.h"
#include "sound/midi_handles.h"
#include "sound/sortie_journal.h"

namespace {

using namespace vt;
using Horloge = std::chrono::steady_clock;

// Two tracks: eighths on the first, a three-note chord on every beat of the
// second, and a whole note that ends on the last bar line.
CVantoroTablature morceau(int mesures) {
  CVantoroTablature doc;
  doc.tempo = 120;
  doc.addPiste(1, tGuitare{});
  for (int m = 2; m <= mesures; ++m)
    doc.addMesure();
  for (int m = 1; m <= mesures; ++m) {
    for (int k = 0; k < 8; ++k) {
      const int c = 1 + (k + m) % 3;
      doc.setNoteVolume(1, m, c, doc.setNoteWhole(1, m, c, k * 24, (k * 5 + m) % 12, 24), 95);
    }
    for (int t = 0; t < 4; ++t)
      for (int c = 4; c <= 6; ++c)
        doc.setNoteVolume(2, m, c, doc.setNoteWhole(2, m, c, t * 48, 2 + t, 36), 79);
  }
  doc.setNoteWhole(1, mesures, 6, 0, 0, 192);
  return doc;
}

struct Mesure {
  double médiane = 0, p99 = 0, max = 0;  // ms from the ideal time, either way
  double durée = 0, duréeIdéale = 0;     // ms, first to last message
  std::size_t messages = 0;
};

double quantile(std::vector<double> v, double q) {
  if (v.empty()) return 0;
  std::sort(v.begin(), v.end());
  return v[static_cast<std::size_t>(q * static_cast<double>(v.size() - 1))];
}

Mesure jouer(const CVantoroTablature& doc, int tempoHorloge) {
  auto journal = std::make_shared<SortieJournal>();
  const std::int32_t handle = midiHandleOuvrir(journal);
  DemandeJeu d;
  d.périodeTick = périodeTickMs(doc.tempo);
  d.midiOut = handle;
  PlayArrays a;
  préparerJeu(doc, a, {}, d);
  const std::vector<MessageJoué> idéal =
      jouerHorsLigne(a.notes, a.params, a.mesures, a.pistes, doc.tempo);

  journal->setDébut(Horloge::now());
  SetPlayTabPiste(1);
  StartTab(a.notes, a.params, a.mesures, a.pistes, tempoHorloge);
  while (GetPlayTabX() != -1)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  StopTab();
  midiHandleFermer(handle);

  const MessagesDates reçu = journal->messages();
  Mesure r;
  r.messages = reçu.size();
  if (reçu.size() != idéal.size() || reçu.empty()) {
    std::fprintf(stderr, "%zu messages sent, %zu expected\n", reçu.size(), idéal.size());
    return r;
  }
  // Times from the clock's start, which the log does not see: the first
  // message goes out at once, so its time stands for it (any delay of that
  // first message is then counted in every other).
  const double origine = reçu.front().ms - idéal.front().ms;
  std::vector<double> retards;
  for (std::size_t i = 0; i < reçu.size(); ++i)
    retards.push_back(std::abs(reçu[i].ms - origine - idéal[i].ms));
  r.médiane = quantile(retards, 0.5);
  r.p99 = quantile(retards, 0.99);
  r.max = *std::max_element(retards.begin(), retards.end());
  r.durée = reçu.back().ms - reçu.front().ms;
  r.duréeIdéale = idéal.back().ms - idéal.front().ms;
  return r;
}

// The metronome's clicks (note-ons) for `secondes` against their ideal times.
Mesure métronome(int tempo, int secondes) {
  auto journal = std::make_shared<SortieJournal>();
  const std::int32_t handle = midiHandleOuvrir(journal);
  OptionsMétronome o;
  o.setMétronomeMIDICanal10 = 1;
  journal->setDébut(Horloge::now());
  StartMetronome(métronomeParams(tempo, 4, o, handle), tempo);
  std::this_thread::sleep_for(std::chrono::seconds(secondes));
  StopMetronome();
  midiHandleFermer(handle);
  std::vector<double> clics;
  for (const MessageDate& m : journal->messages())
    if ((midiStatus(m.message) & 0xF0) == 0x90 && midiData2(m.message) > 0) clics.push_back(m.ms);
  Mesure r;
  r.messages = clics.size();
  if (clics.size() < 2) return r;
  const double temps = 60000.0 / tempo;
  std::vector<double> écarts;
  for (std::size_t k = 0; k < clics.size(); ++k)
    écarts.push_back(std::abs(clics[k] - clics.front() - double(k) * temps));
  r.médiane = quantile(écarts, 0.5);
  r.p99 = quantile(écarts, 0.99);
  r.max = *std::max_element(écarts.begin(), écarts.end());
  r.durée = clics.back() - clics.front();
  r.duréeIdéale = double(clics.size() - 1) * temps;
  return r;
}

// The machine's own floor: a thread that does nothing but sleep until each
// tick's deadline (sleep_until, no active wait), with the clock thread's
// timer slack and priority, for as many ticks as the piece has.
Mesure sommeilSeul(std::int64_t ticks) {
  Mesure r;
  std::thread t([&] {
    préciserFilHorloge();
    std::vector<double> retards;
    retards.reserve(static_cast<std::size_t>(ticks));
    const Horloge::time_point origine = Horloge::now();
    Horloge::time_point échéance = origine;
    for (std::int64_t k = 0; k < ticks; ++k) {
      échéance = origine + std::chrono::nanoseconds(k * kNsTickFoisTempo / 120);
      std::this_thread::sleep_until(échéance);
      retards.push_back(
          std::chrono::duration<double, std::milli>(Horloge::now() - échéance).count());
    }
    r.messages = retards.size();
    r.médiane = quantile(retards, 0.5);
    r.p99 = quantile(retards, 0.99);
    r.max = *std::max_element(retards.begin(), retards.end());
    r.duréeIdéale = std::chrono::duration<double, std::milli>(échéance - origine).count();
    r.durée = r.duréeIdéale + retards.back();
  });
  t.join();
  return r;
}

void ligne(const char* nom, const Mesure& m) {
  std::printf("| %s | %zu | %.3f | %.3f | %.3f | %.1f | %.1f | %+.4f %% |\n", nom, m.messages,
              m.médiane, m.p99, m.max, m.durée, m.duréeIdéale,
              m.duréeIdéale > 0 ? 100.0 * (m.durée - m.duréeIdéale) / m.duréeIdéale : 0.0);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  int secondes = 120;
  for (int i = 1; i < argc; ++i)
    if (argv[i][0] != '-') secondes = std::max(2, std::atoi(argv[i]));
  const CVantoroTablature doc = morceau(secondes / 2);  // a bar of 4/4 at 120: 2 s

  // The other core is kept busy for the whole run.
  std::atomic<bool> fini{false};
  std::thread occupé([&] {
    volatile std::uint64_t x = 1;
    while (!fini.load(std::memory_order_relaxed))
      x = x * 6364136223846793005ULL + 1;
  });

  std::printf(
      "| Clock | Messages | Median deviation (ms) | p99 deviation (ms) | Max deviation (ms) | "
      "Length (ms) | Ideal (ms) | Length error |\n");
  std::printf("|---|---|---|---|---|---|---|---|\n");
  ligne("exact tempo (60000 / (120 * 48) ms a tick as a fraction)", jouer(doc, 120));
  // 60000 / (125 * 48) is exactly 10 ms: the whole period of tempo 120.
  ligne("whole-millisecond period (10 ms a tick)", jouer(doc, 125));
  ligne("metronome clock at tempo 120 (a click every 500 ms)", métronome(120, secondes));
  ligne("the machine alone: sleep_until every tick, nothing sent", sommeilSeul(secondes * 2 * 48));

  fini = true;
  occupé.join();
  return 0;
}
