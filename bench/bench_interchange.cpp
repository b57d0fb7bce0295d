// A 4-track x 1,000-bar piece through the interchange formats: MIDI export
// and import, ASCII export and import. The import is also set against
// midicsv, an independent reader, on the same file: the counter
// "x_midicsv" is our import time over midicsv's (process start included).
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "bench_piece.h"
#include "document/tablature.h"
#include "formats/ascii_export.h"
#include "formats/ascii_import.h"
#include "formats/midi_export.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"

namespace {

using namespace vt;

// 1,000 bars with a tempo change every 50 and a tie in every bar.
const CVantoroTablature& piece() {
  static const CVantoroTablature doc = banc::morceau({1000, true});
  return doc;
}

const std::vector<byt>& fichierMidi() {
  static const std::vector<byt> octets = [] {
    CVantoroTablature doc = piece();
    MidiExportOptions o;
    o.rmtf = true;
    return io_enregistrer_mid(doc, o);
  }();
  return octets;
}

// The file that midicsv reads, removed when the program ends.
struct FichierTemporaire {
  std::filesystem::path chemin;
  FichierTemporaire()
      : chemin(std::filesystem::temp_directory_path() /
               ("vt_bench_" + std::to_string(::getpid()) + ".mid")) {
    std::ofstream f(chemin, std::ios::binary);
    f.write(reinterpret_cast<const char*>(fichierMidi().data()),
            static_cast<std::streamsize>(fichierMidi().size()));
  }
  ~FichierTemporaire() {
    std::error_code ec;
    std::filesystem::remove(chemin, ec);
  }
};

std::string fichierTemporaire() {
  static const FichierTemporaire f;
  return f.chemin.string();
}

// midicsv reading the same file, best of five runs, in seconds.
double tempsMidicsv() {
  static const double t = [] {
    double meilleur = 1e9;
    for (int i = 0; i < 5; ++i) {
      const auto a = std::chrono::steady_clock::now();
      const int r = std::system(("midicsv '" + fichierTemporaire() + "' > /dev/null").c_str());
      const auto b = std::chrono::steady_clock::now();
      if (r != 0) return 0.0;
      meilleur = std::min(meilleur, std::chrono::duration<double>(b - a).count());
    }
    return meilleur;
  }();
  return t;
}

void BM_MidiExport(benchmark::State& state) {
  CVantoroTablature doc = piece();  // no repeat: the export leaves it as it is
  MidiExportOptions o;
  o.rmtf = true;
  for (auto _ : state) benchmark::DoNotOptimize(io_enregistrer_mid(doc, o));
  state.counters["bytes"] = static_cast<double>(fichierMidi().size());
}

void BM_MidiImport(benchmark::State& state) {
  const std::vector<byt>& octets = fichierMidi();
  double total = 0;
  for (auto _ : state) {
    const auto a = std::chrono::steady_clock::now();
    MidiFichier f;
    lireMidi(octets, f);
    MidiImportOptions o;
    o.sources = sourcesParDéfaut(sourcesMidi(f, kLangAnglais));
    CVantoroTablature doc;
    convertirMidi(f, o, doc);
    benchmark::DoNotOptimize(doc.getMesureLast());
    total += std::chrono::duration<double>(std::chrono::steady_clock::now() - a).count();
  }
  const double midicsv = tempsMidicsv();
  state.counters["midicsv_ms"] = midicsv * 1000;
  if (midicsv > 0) state.counters["x_midicsv"] = total / static_cast<double>(state.iterations()) / midicsv;
}

void BM_Midicsv(benchmark::State& state) {
  const std::string commande = "midicsv '" + fichierTemporaire() + "' > /dev/null";
  for (auto _ : state) {
    if (std::system(commande.c_str()) != 0) state.SkipWithError("midicsv failed");
  }
}

void BM_AsciiExport(benchmark::State& state) {
  const CVantoroTablature& doc = piece();
  std::size_t taille = 0;
  for (auto _ : state) {
    taille = 0;
    for (int p = 1; p <= 4; ++p) taille += io_enregistrer_txt(doc, p).size();
  }
  state.counters["bytes"] = static_cast<double>(taille);
}

void BM_AsciiImport(benchmark::State& state) {
  std::string texte;
  for (int p = 1; p <= 4; ++p) texte += io_enregistrer_txt(piece(), p);
  for (auto _ : state) {
    CVantoroTablature doc;
    AsciiImportOptions o;
    convertirAscii(texte, o, doc);
    benchmark::DoNotOptimize(doc.getMesureLast());
  }
  state.counters["bytes"] = static_cast<double>(texte.size());
}

BENCHMARK(BM_MidiExport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MidiImport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Midicsv)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_AsciiExport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AsciiImport)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
