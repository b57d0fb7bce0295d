// The WAV export of a 4-track x 200-bar piece: the player's offline walk,
// then FluidSynth rendering the 400 seconds of music into a file. The counter
// "x_real_time" is the music's length over the time the export took.
#include <benchmark/benchmark.h>

#include <unistd.h>
#include <chrono>
#include <filesystem>
#include <string>

#include "document/tablature.h"
#include "player/play_start.h"
#include "sound/rendu_hors_ligne.h"

namespace {

using namespace vt;

// Eighth notes on every track, a two-note chord on every beat of track 1, a
// slide, a bend and a vibrato in every bar, tempo 120 throughout.
CVantoroTablature morceau() {
  CVantoroTablature doc;
  doc.tempo = 120;
  for (int p = 2; p <= 4; ++p)
    doc.addPiste(p - 1, tGuitare{});
  for (int m = 2; m <= 200; ++m)
    doc.addMesure();
  for (int m = 1; m <= 200; ++m) {
    for (int p = 1; p <= 4; ++p)
      for (int k = 0; k < 8; ++k) {
        const int c = 1 + (k + p + m) % 6;
        doc.setNoteVolume(p, m, c, doc.setNoteWhole(p, m, c, k * 24, (k * 3 + m + p) % 15, 24), 95);
        if (p == 1 && k % 2 == 0) {
          const int c2 = c == 6 ? 1 : c + 1;
          doc.setNoteVolume(p, m, c2, doc.setNoteWhole(p, m, c2, k * 24, 2, 24), 79);
        }
      }
    doc.setNoteEffet(2, m, 1 + (2 + m) % 6, 1, effet::kSlideUp);
    doc.setNoteEffet(3, m, 1 + (3 + m) % 6, 1, effet::kBendUp);
    doc.setNoteEffet(4, m, 1 + (4 + m) % 6, 1, effet::kVibrato);
  }
  return doc;
}

const CVantoroTablature& piece() {
  static const CVantoroTablature doc = morceau();
  return doc;
}

constexpr double kSecondesDeMusique = 200 * 2.0;  // 200 bars of 4/4 at 120

void BM_OfflineWalk(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(rendreDocument(piece()));
}

void BM_WavExport(benchmark::State& state) {
  const std::filesystem::path f =
      std::filesystem::temp_directory_path() / ("vt_bench_" + std::to_string(::getpid()) + ".wav");
  double secondes = 0;
  for (auto _ : state) {
    const auto début = std::chrono::steady_clock::now();
    const RésultatWav r = rendreWav(rendreDocument(piece()), f.string());
    secondes += std::chrono::duration<double>(std::chrono::steady_clock::now() - début).count();
    if (!r.ok) state.SkipWithError("no SoundFont, or the file could not be written");
  }
  std::error_code ec;
  state.counters["MB"] = static_cast<double>(std::filesystem::file_size(f, ec)) / 1e6;
  std::filesystem::remove(f, ec);
  state.counters["x_real_time"] =
      kSecondesDeMusique * static_cast<double>(state.iterations()) / secondes;
}

}  // namespace

BENCHMARK(BM_OfflineWalk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WavExport)->Unit(benchmark::kMillisecond)->Iterations(3);

BENCHMARK_MAIN();
