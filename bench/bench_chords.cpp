// The chord search as the dictionary runs it: all 12 keys x 19 standard types
// on the six-string guitar (target: under 200 ms for the whole set), and the
// longest searches on a seven-string guitar (target: under 50 ms each), with
// the default parameters and with the widest reach a user can set.
#include <benchmark/benchmark.h>

#include <vector>

#include "music/accord_nom.h"
#include "music/accord_recherche.h"
#include "music/accord_types.h"

namespace {

using namespace vt;

const std::vector<int> kGuitare = {7, 0, 5, 10, 2, 7};        // E A D G B E
const std::vector<int> kSeptCordes = {2, 7, 0, 5, 10, 2, 7};  // B E A D G B E

std::vector<ConstructionAccord> tousLesAccords() {
  std::vector<ConstructionAccord> a;
  for (int t = 0; t < 12; ++t)
    for (int type = 0; type < static_cast<int>(kTypesAccord.size()); ++type)
      a.push_back(*lisNomAccord(nomAccordStandard(t, type)));
  return a;
}

// The whole dictionary, one iteration: 228 searches.
void BM_ToutesLesTonalitesEtTypes(benchmark::State& state) {
  const auto accords = tousLesAccords();
  const ParametresAccord p;
  std::size_t doigtés = 0;
  for (auto _ : state) {
    for (const ConstructionAccord& a : accords) {
      const auto r = chercheDoigtés(a, kGuitare, p);
      doigtés += r.size();
      benchmark::DoNotOptimize(r.data());
    }
  }
  state.counters["fingerings"] =
      benchmark::Counter(static_cast<double>(doigtés), benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_ToutesLesTonalitesEtTypes)->Unit(benchmark::kMillisecond);

// One search on seven strings: the 13th chord (six tones, the most fingerings).
void BM_SeptCordes(benchmark::State& state) {
  const ConstructionAccord treize = *lisNomAccord("C13");
  ParametresAccord p;
  p.MAXSPAN = static_cast<std::uint8_t>(state.range(0));
  for (auto _ : state) {
    const auto r = chercheDoigtés(treize, kSeptCordes, p);
    benchmark::DoNotOptimize(r.data());
  }
}
BENCHMARK(BM_SeptCordes)->Arg(4)->Arg(255)->Unit(benchmark::kMillisecond);

// The 228 chords on seven strings, one after the other.
void BM_SeptCordesTousLesAccords(benchmark::State& state) {
  const auto accords = tousLesAccords();
  const ParametresAccord p;
  for (auto _ : state) {
    for (const ConstructionAccord& a : accords) {
      const auto r = chercheDoigtés(a, kSeptCordes, p);
      benchmark::DoNotOptimize(r.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<long>(accords.size()));
}
BENCHMARK(BM_SeptCordesTousLesAccords)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
