// Identification and harmonisation over the whole shipped "scales.dat", for
// sets of pitch classes from none to all twelve; then the same with the file
// read from the disk first, as the harmoniser does on every click.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>

#include "formats/string_table.h"
#include "music/harmony.h"

namespace {

using namespace vt;

const std::filesystem::path kFichier = std::filesystem::path(VT_BIN_DIR) / kFichierGammes;

const FichierGammes& fichier() {
  static const FichierGammes f = [] {
    FichierGammes lu = FichierGammes::load(kFichier);
    if (lu.count() == 0) std::abort();
    return lu;
  }();
  return f;
}

// C-based pitch classes: nothing, one note, C major's triad, its scale, all twelve.
const std::array<std::vector<int>, 5> kEnsembles = {
    {{}, {1}, {1, 5, 8}, {1, 3, 5, 6, 8, 10, 12}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}}};

TonsDessinés tons(std::size_t i) {
  TonsDessinés t{};
  for (int c : kEnsembles[i])
    t[static_cast<std::size_t>(c)] = true;
  return t;
}

void BM_Identification(benchmark::State& state) {
  const TonsDessinés t = tons(static_cast<std::size_t>(state.range(0)));
  std::size_t lignes = 0;
  for (auto _ : state) {
    const auto l = computeHarmony(fichier(), t, kIdentification, 2, kLangAnglais);
    lignes = l.size();
    benchmark::DoNotOptimize(l.data());
  }
  state.counters["records"] = fichier().count();
  state.counters["pitches"] =
      static_cast<double>(kEnsembles[static_cast<std::size_t>(state.range(0))].size());
  state.counters["matches"] = static_cast<double>(lignes);
}
BENCHMARK(BM_Identification)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

void BM_Harmonisation(benchmark::State& state) {
  const TonsDessinés t = tons(3);
  for (auto _ : state) {
    const auto l = computeHarmony(fichier(), t, kHarmonisation, 2, kLangAnglais);
    benchmark::DoNotOptimize(l.data());
  }
}
BENCHMARK(BM_Harmonisation)->Unit(benchmark::kMicrosecond);

// What a click costs the harmoniser's list: the file read, matched, each
// line written in the language.
void BM_IdentificationWithTheFileRead(benchmark::State& state) {
  const TonsDessinés t = tons(3);
  for (auto _ : state) {
    const FichierGammes f = FichierGammes::load(kFichier);
    std::size_t octets = 0;
    for (const tHarmonie& h : computeHarmony(f, t, kIdentification, 2, kLangAnglais))
      octets += ligneHarmonie(f, h, kLangAnglais).size();
    benchmark::DoNotOptimize(octets);
  }
}
BENCHMARK(BM_IdentificationWithTheFileRead)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
