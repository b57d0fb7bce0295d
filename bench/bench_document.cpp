// The document core on a big piece: 7 tracks x 2,000 bars with sixteenths on
// all six strings (1,344,000 notes).
#include <benchmark/benchmark.h>

#include "document/tablature.h"

namespace {

constexpr int kPistes = 7;
constexpr int kMesures = 2000;

vt::CVantoroTablature construire() {
  vt::CVantoroTablature doc;
  for (int p = 2; p <= kPistes; ++p)
    doc.addPiste(p - 1, vt::tGuitare{});
  while (doc.getMesureLast() < kMesures)
    doc.addMesure();
  for (int p = 1; p <= kPistes; ++p)
    for (int m = 1; m <= kMesures; ++m)
      for (int c = 1; c <= 6; ++c)
        for (int x = 0; x < 192; x += 12) {
          const int n = doc.setNoteWhole(p, m, c, x, (x / 12 + c) % 20, 12);
          doc.setNoteAttaque(p, m, c, n, 0);
          doc.setNoteVolume(p, m, c, n, 127);
        }
  return doc;
}

const vt::CVantoroTablature& grand() {
  static const vt::CVantoroTablature doc = construire();
  return doc;
}

void BM_BuildNoteByNote(benchmark::State& state) {
  for (auto _ : state) {
    vt::CVantoroTablature doc = construire();
    benchmark::DoNotOptimize(doc.getMesureLast());
  }
  state.counters["notes"] = kPistes * kMesures * 6 * 16;
}
BENCHMARK(BM_BuildNoteByNote)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_StoreUndoMakeUndo(benchmark::State& state) {
  vt::CVantoroTablature doc = grand();
  doc.setCurseurPiste(4);
  for (auto _ : state) {
    doc.storeUndo(true);
    doc.makeUndo();
  }
}
BENCHMARK(BM_StoreUndoMakeUndo)->Unit(benchmark::kMillisecond);

void BM_InsertSilenceAtBar1(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    vt::CVantoroTablature doc = grand();
    state.ResumeTiming();
    doc.insertSilence(1, 1, 0, 12);
    benchmark::DoNotOptimize(doc.getMesureLast());
  }
}
BENCHMARK(BM_InsertSilenceAtBar1)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_RemoveNotesAtBar1(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    vt::CVantoroTablature doc = grand();
    state.ResumeTiming();
    doc.removeNotes(1, 1, 0, 12);
    benchmark::DoNotOptimize(doc.getMesureLast());
  }
}
BENCHMARK(BM_RemoveNotesAtBar1)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace

BENCHMARK_MAIN();
