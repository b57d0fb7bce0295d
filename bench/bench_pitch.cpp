// The tuner's pitch detector on one frame: 2,048 samples (46 ms at 44.1 kHz),
// and the 8,192 the tuner's Listen page and vantoro-cli pitch analyse (186 ms,
// enough for the low B of a five-string bass). The sound is a guitar-like
// tone with a little noise, at the low E, the A of the fifth string and the
// high E of the 12th fret.
#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "music/hauteur.h"

namespace {

using namespace vt;

std::vector<float> ton(double hz, std::size_t n) {
  std::mt19937 g(1);
  std::normal_distribution<double> bruit(0, 0.005);
  std::vector<float> x(n);
  for (std::size_t i = 0; i < n; ++i) {
    const double t = double(i) / 44100;
    double v = 0;
    for (int k = 1; k <= 10; ++k)
      v += std::sin(2 * std::numbers::pi * k * hz * t) / k;
    x[i] = static_cast<float>(0.2 * v + bruit(g));
  }
  return x;
}

void analyse(benchmark::State& state) {
  RéglagesHauteur r;
  r.taille = static_cast<int>(state.range(0));
  DétecteurHauteur d(r);
  const auto x = ton(double(state.range(1)) / 100, static_cast<std::size_t>(r.taille));
  for (auto _ : state) {
    const Hauteur h = d.analyse(x);
    benchmark::DoNotOptimize(h);
  }
}
BENCHMARK(analyse)
    ->ArgNames({"frame", "centiHz"})
    ->Args({2048, 8241})
    ->Args({2048, 11000})
    ->Args({2048, 65926})
    ->Args({8192, 8241})
    ->Args({8192, 65926})
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
