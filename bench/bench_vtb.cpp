// Load and save of a large tablature (7 tracks of 4,000 bars, sixteenths on
// every string), each set beside copying the same bytes with cp in the same run.
// The counter x_cp is the time of one operation divided by the time of cp.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "formats/vtb.h"

namespace {

namespace fs = std::filesystem;
using namespace vt;

constexpr int kPistes = 7;
constexpr int kMesures = 4000;

struct Banc {
  fs::path dossier;
  fs::path source;
  CVantoroTablature doc;
  std::vector<std::uint8_t> octets;
  double cp = 0;      // seconds, median of a few runs
  double cpSync = 0;  // the same, the copy flushed to the disk
};

CVantoroTablature grandDocument() {
  tGuitare g;
  g.nom = "Seven-string guitar";
  g.nbrCordes = 7;
  g.corde = {0, 64, 59, 55, 50, 45, 40, 35};
  CVantoroTablature d(g);
  while (d.getPisteLast() < kPistes)
    d.addPiste(d.getPisteLast(), g);
  while (d.getMesureLast() < kMesures)
    d.addMesure();
  for (int p = 1; p <= kPistes; ++p)
    for (int m = 1; m <= kMesures; ++m)
      for (int c = 1; c <= 7; ++c) {
        OneBased<tNote>& notes = d.pisteMesure(p, m)->tabCordes[c];
        notes.resize(16);
        for (int k = 1; k <= 16; ++k)
          notes[k] = tNote{static_cast<byt>((p + m + c + k) % 20),
                           12,
                           static_cast<u16>((k - 1) * 12),
                           0,
                           0,
                           0,
                           nuance::kMF};
      }
  return d;
}

double médianeCommande(const std::string& commande) {
  std::vector<double> t;
  for (int i = 0; i < 7; ++i) {
    const auto a = std::chrono::steady_clock::now();
    if (std::system(commande.c_str()) != 0) std::abort();
    t.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - a).count());
  }
  std::sort(t.begin(), t.end());
  return t[t.size() / 2];
}

Banc& banc() {
  static Banc b = [] {
    Banc x;
    x.dossier = fs::temp_directory_path() / ("vt_bench_vtb_" + std::to_string(::getpid()));
    fs::create_directories(x.dossier);
    x.source = x.dossier / "large.vtb";
    x.doc = grandDocument();
    x.octets = io_enregistrer_vtb(x.doc).octets;
    if (!io_enregistrer_vtb(x.doc, x.source).ok()) std::abort();
    const std::string cp =
        "cp '" + x.source.string() + "' '" + (x.dossier / "copy.vtb").string() + "'";
    x.cp = médianeCommande(cp);
    x.cpSync = médianeCommande(cp + " && sync '" + (x.dossier / "copy.vtb").string() + "'");
    return x;
  }();
  return b;
}

using Horloge = std::chrono::steady_clock;

// `début` is when the timed loop began; it ends now.
void compter(benchmark::State& state, Horloge::time_point début, double référence) {
  const double s = std::chrono::duration<double>(Horloge::now() - début).count();
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * banc().octets.size()));
  state.counters["MB"] = static_cast<double>(banc().octets.size()) / 1e6;
  state.counters["cp_ms"] = référence * 1e3;
  state.counters["x_cp"] = s / static_cast<double>(state.iterations()) / référence;
}

// Reading the file from disk and building the document, checks included.
void BM_LoadFile(benchmark::State& state) {
  Banc& b = banc();
  VtbContexte ctx;
  const auto début = Horloge::now();
  for (auto _ : state) {
    VtbLecture r = io_ouvrir_vtb(b.source, ctx);
    if (!r.ok()) state.SkipWithError("refused");
    benchmark::DoNotOptimize(r);
  }
  compter(state, début, b.cp);
}

// Encoding and writing through a temporary file, flushed to the disk and renamed.
void BM_SaveFile(benchmark::State& state) {
  Banc& b = banc();
  const fs::path cible = b.dossier / "saved.vtb";
  const auto début = Horloge::now();
  for (auto _ : state)
    if (!io_enregistrer_vtb(b.doc, cible).ok()) state.SkipWithError("refused");
  compter(state, début, b.cpSync);
}

// The same without the disk: what the format itself costs.
void BM_DecodeBytes(benchmark::State& state) {
  Banc& b = banc();
  VtbContexte ctx;
  const auto début = Horloge::now();
  for (auto _ : state)
    benchmark::DoNotOptimize(io_ouvrir_vtb(b.octets, ctx));
  compter(state, début, b.cp);
}

void BM_EncodeBytes(benchmark::State& state) {
  Banc& b = banc();
  const auto début = Horloge::now();
  for (auto _ : state)
    benchmark::DoNotOptimize(io_enregistrer_vtb(b.doc));
  compter(state, début, b.cp);
}

BENCHMARK(BM_LoadFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_SaveFile)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_DecodeBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_EncodeBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  std::error_code ec;
  fs::remove_all(banc().dossier, ec);
  return 0;
}
