// Costs against the length of a piece, up to the format's 32,767 bars: the
// piece of bench_limite.h at 1,000, 10,000 and 32,767 bars. Each operation's
// time per bar ("us_per_bar") stays flat when its cost grows linearly.
//
// Usage: bench_limits [Google Benchmark flags]. The peak memory of the same
// operations, each in a process of its own, comes from bench/limits.sh.
#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <memory>
#include <thread>

#include "bench_limite.h"
#include "formats/ascii_export.h"
#include "formats/midi_export.h"
#include "formats/midi_import.h"
#include "formats/midi_reader.h"
#include "formats/string_table.h"
#include "formats/vtb.h"
#include "player/play_start.h"
#include "player/play_timing.h"
#include "player/player.h"
#include "sound/midi_handles.h"
#include "sound/sortie_journal.h"

namespace {

using namespace vt;

const CVantoroTablature& piece(int mesures) {
  static std::map<int, std::unique_ptr<CVantoroTablature>> pièces;
  auto& p = pièces[mesures];
  if (!p) p = std::make_unique<CVantoroTablature>(banc::morceauLimite(mesures));
  return *p;
}

const std::vector<byt>& fichierVtb(int mesures) {
  static std::map<int, std::vector<byt>> fichiers;
  auto& f = fichiers[mesures];
  if (f.empty()) f = io_enregistrer_vtb(piece(mesures)).octets;
  return f;
}

const std::vector<byt>& fichierMidi(int mesures) {
  static std::map<int, std::vector<byt>> fichiers;
  auto& f = fichiers[mesures];
  if (f.empty()) {
    CVantoroTablature doc = piece(mesures);
    f = io_enregistrer_mid(doc, {});
  }
  return f;
}

// Times the loop of a benchmark and gives its time per bar of the piece.
class ParMesure {
 public:
  explicit ParMesure(benchmark::State& state)
      : m_state(state), m_début(std::chrono::steady_clock::now()) {}
  ~ParMesure() {
    const double us =
        std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - m_début)
            .count();
    const double n =
        static_cast<double>(std::max<benchmark::IterationCount>(1, m_state.iterations()));
    m_state.counters["us_per_bar"] = us / n / static_cast<double>(m_state.range(0));
  }

 private:
  benchmark::State& m_state;
  std::chrono::steady_clock::time_point m_début;
};

void BM_Save(benchmark::State& state) {
  const CVantoroTablature& doc = piece(static_cast<int>(state.range(0)));
  {
    const ParMesure chrono(state);
    for (auto _ : state)
      benchmark::DoNotOptimize(io_enregistrer_vtb(doc).octets.size());
  }
}

void BM_Load(benchmark::State& state) {
  const std::vector<byt>& octets = fichierVtb(static_cast<int>(state.range(0)));
  VtbContexte ctx;
  {
    const ParMesure chrono(state);
    for (auto _ : state)
      benchmark::DoNotOptimize(io_ouvrir_vtb(octets, ctx).ok());
  }
}

// A bar inserted at bar 1 of the busy track, as the editor does it (the undo
// snapshot first), then taken back by the undo.
void BM_InsertBarAtBar1ThenUndo(benchmark::State& state) {
  CVantoroTablature doc = piece(static_cast<int>(state.range(0)));
  double insertion = 0, annulation = 0;
  for (auto _ : state) {
    const auto a = std::chrono::steady_clock::now();
    doc.storeUndo(false);
    doc.insertMesure(1, 1, 1);
    const auto b = std::chrono::steady_clock::now();
    doc.makeUndo();
    const auto c = std::chrono::steady_clock::now();
    insertion += std::chrono::duration<double, std::milli>(b - a).count();
    annulation += std::chrono::duration<double, std::milli>(c - b).count();
    // An undo gives the track its bars back and leaves the document's count:
    // the empty bar at the end goes, for the next round to insert again.
    state.PauseTiming();
    doc.garbageMesure(doc.getMesureLast(), 1);
    state.ResumeTiming();
  }
  if (doc.getMesureLast() != state.range(0)) state.SkipWithError("the piece changed length");
  const double n = static_cast<double>(state.iterations());
  state.counters["insert_ms"] = insertion / n;
  state.counters["undo_ms"] = annulation / n;
}

// From the press of Play with the cursor 767 bars before the end to the first
// note heard: the records filled from the document, the clock started, the
// prologue sent.
void BM_PlayFromNearTheEndToTheFirstNote(benchmark::State& state) {
  CVantoroTablature doc = piece(static_cast<int>(state.range(0)));
  doc.setCurseurMesure(static_cast<i16>(std::max(1, static_cast<int>(state.range(0)) - 767)));
  for (auto _ : state) {
    auto journal = std::make_shared<SortieJournal>();
    const std::int32_t handle = midiHandleOuvrir(journal);
    DemandeJeu d;
    d.périodeTick = périodeTickMs(doc.tempo);
    d.midiOut = handle;
    PlayArrays a;
    const auto t0 = std::chrono::steady_clock::now();
    journal->setDébut(t0);
    préparerJeu(doc, a, {}, d);
    SetPlayTabPiste(1);
    StartTab(a.notes, a.params, a.mesures, a.pistes, doc.tempo);
    double premier = -1;
    while (premier < 0) {
      for (const auto& m : journal->messages())
        if ((midiStatus(m.message) & 0xF0) == 0x90 && midiData2(m.message) > 0) {
          premier = m.ms;
          break;
        }
      if (premier < 0) std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    StopTab();
    midiHandleFermer(handle);
    state.SetIterationTime(premier / 1000.0);
  }
}

void BM_MidiExport(benchmark::State& state) {
  CVantoroTablature doc = piece(static_cast<int>(state.range(0)));
  {
    const ParMesure chrono(state);
    for (auto _ : state)
      benchmark::DoNotOptimize(io_enregistrer_mid(doc, {}).size());
  }
}

void BM_MidiImport(benchmark::State& state) {
  const std::vector<byt>& octets = fichierMidi(static_cast<int>(state.range(0)));
  {
    const ParMesure chrono(state);
    for (auto _ : state) {
      MidiFichier f;
      lireMidi(octets, f);
      MidiImportOptions o;
      o.sources = sourcesParDéfaut(sourcesMidi(f, kLangAnglais));
      CVantoroTablature doc;
      convertirMidi(f, o, doc);
      benchmark::DoNotOptimize(doc.getMesureLast());
    }
  }
}

void BM_AsciiExport(benchmark::State& state) {
  const CVantoroTablature& doc = piece(static_cast<int>(state.range(0)));
  {
    const ParMesure chrono(state);
    for (auto _ : state)
      benchmark::DoNotOptimize(io_enregistrer_txt(doc, 1).size());
  }
}

#define VT_LONGUEURS ->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond)
BENCHMARK(BM_Save) VT_LONGUEURS;
BENCHMARK(BM_Load) VT_LONGUEURS;
// One bar short of the limit at the longest, so that the insertion happens.
BENCHMARK(BM_InsertBarAtBar1ThenUndo)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(32766)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlayFromNearTheEndToTheFirstNote) VT_LONGUEURS->UseManualTime()->Iterations(5);
BENCHMARK(BM_MidiExport) VT_LONGUEURS;
BENCHMARK(BM_MidiImport) VT_LONGUEURS;
BENCHMARK(BM_AsciiExport) VT_LONGUEURS;

}  // namespace

BENCHMARK_MAIN();
