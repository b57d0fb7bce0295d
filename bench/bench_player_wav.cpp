// The WAV export of a 4-track x 200-bar piece: the player's offline walk,
// then FluidSynth rendering the 400 seconds of music into a file. The counter
// "x_real_time" is the music's length over the time the export took.
#include <benchmark/benchmark.h>

#include <unistd.h>
#include <chrono>
#include <filesystem>
#include <string>

#include "bench_piece.h"
#include "document/tablature.h"
#include "player/play_start.h"
#include "sound/rendu_hors_ligne.h"

namespace {

using namespace vt;

// 200 bars at tempo 120, neither tempo changes nor ties.
const CVantoroTablature& piece() {
  static const CVantoroTablature doc = banc::morceau({200, false});
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
