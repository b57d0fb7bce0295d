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

#include "document/tablature.h"
#include "formats/ascii_export.h"
#include "formats/ascii_import.h"
#include "formats/midi_export.h"
#include "formats/midi_import.h"
#include "formats/string_table.h"

namespace {

using namespace vt;

// Eighth notes on every track, a chord every beat on track 1, a slide, a
// bend, a vibrato and a tie in every bar, a tempo change every 50 bars.
CVantoroTablature morceau() {
  CVantoroTablature doc;
  for (int p = 2; p <= 4; ++p) doc.addPiste(p - 1, tGuitare{});
  for (int m = 2; m <= 1000; ++m) doc.addMesure();
  for (int m = 1; m <= 1000; ++m) {
    if (m % 50 == 0) doc.setMesureTempo(m, 0, static_cast<byt>(100 + m % 40));
    for (int p = 1; p <= 4; ++p) {
      for (int k = 0; k < 8; ++k) {
        const int c = 1 + (k + p + m) % 6;
        const int n = doc.setNoteWhole(p, m, c, k * 24, (k * 3 + m + p) % 15, 24);
        doc.setNoteVolume(p, m, c, n, 95);
        if (p == 1 && k % 2 == 0) {
          const int c2 = c == 6 ? 1 : c + 1;
          const int n2 = doc.setNoteWhole(p, m, c2, k * 24, 2, 24);
          doc.setNoteVolume(p, m, c2, n2, 79);
        }
      }
      doc.setNoteWhole(p, m, 6, 168, 5, 24);
      doc.setNoteEffet(p, m, 6, doc.searchNote(p, m, 6, 168), effet::kLiaison);
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
