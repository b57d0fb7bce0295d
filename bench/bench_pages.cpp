// Pages: the page count of one track (the preview's page bar recounts it on
// every zoom change) and the drawing of all its pages into a PDF, at 100,
// 1,000 and 10,000 bars to show that both grow linearly; then the whole
// 4-track x 1,000-bar piece to PDF through vantoro-cli, with its wall time and
// peak memory.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <chrono>
#include <filesystem>
#include <map>

#include "bench_piece.h"
#include "formats/vtb.h"
#include "render_qt/page_documents.h"
#include "render_qt/page_surface.h"
#include "render_qt/strip_image.h"

namespace {

using namespace vt;

const CVantoroTablature& piece(int mesures) {
  static std::map<int, CVantoroTablature> pièces;
  auto it = pièces.find(mesures);
  if (it == pièces.end()) it = pièces.emplace(mesures, banc::morceau({mesures, true})).first;
  return it->second;
}

void BM_GetNumberOfPages(benchmark::State& state) {
  const CVantoroTablature& doc = piece(static_cast<int>(state.range(0)));
  const TabSettings s;
  PageSurface mesure(nullptr, pageParDéfaut(), kUnitésParPouce, PageSurface::Origine::Zone);
  CPageRenderer r(doc, s);
  int pages = 0;
  for (auto _ : state) {
    pages = r.getNumberOfPages(mesure, 1, 1);
    benchmark::DoNotOptimize(pages);
  }
  state.counters["pages"] = pages;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_GetNumberOfPages)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

void BM_PdfOneTrack(benchmark::State& state) {
  const CVantoroTablature& doc = piece(static_cast<int>(state.range(0)));
  const TabSettings s;
  qint64 octets = 0;
  for (auto _ : state) {
    QBuffer tampon;
    tampon.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&tampon);
    pdf.setResolution(1200);
    pdf.setPageLayout(pageParDéfaut());
    QPainter painter(&pdf);
    benchmark::DoNotOptimize(peintPages(painter, pdf, doc, s, {1}));
    painter.end();
    octets = tampon.size();
  }
  state.counters["MB"] = static_cast<double>(octets) / 1e6;
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PdfOneTrack)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Complexity(benchmark::oN);

// The piece of every benchmark (4 tracks x 1,000 bars of eighths, chords and
// effects) saved, then converted by the tool as a user runs it.
void BM_CliPdf4x1000(benchmark::State& state) {
  const auto dossier =
      std::filesystem::temp_directory_path() / ("vt_bench_pages_" + std::to_string(::getpid()));
  std::filesystem::create_directories(dossier);
  const auto vtb = dossier / "piece.vtb";
  const auto pdf = dossier / "piece.pdf";
  CVantoroTablature copie = piece(1000);
  if (!io_enregistrer_vtb(copie, vtb).ok()) {
    state.SkipWithError("the piece could not be saved");
    return;
  }
  double secondes = 0;
  double cpu = 0;
  long pic = 0;
  for (auto _ : state) {
    const auto début = std::chrono::steady_clock::now();
    const pid_t pid = ::fork();
    if (pid == 0) {
      ::execl(VT_CLI, VT_CLI, "convert", vtb.c_str(), pdf.c_str(), static_cast<char*>(nullptr));
      ::_exit(127);
    }
    int statut = 0;
    rusage usage{};
    ::wait4(pid, &statut, 0, &usage);
    secondes = std::chrono::duration<double>(std::chrono::steady_clock::now() - début).count();
    state.SetIterationTime(secondes);
    pic = usage.ru_maxrss;
    cpu = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
          static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    if (!WIFEXITED(statut) || WEXITSTATUS(statut) != 0) state.SkipWithError("vantoro-cli failed");
  }
  state.counters["peak_MB"] = static_cast<double>(pic) / 1024.0;
  // The tool's own processor time, user and system: the wall time of a machine
  // that runs nothing else.
  state.counters["cpu_s"] = cpu;
  state.counters["PDF_MB"] =
      std::filesystem::exists(pdf) ? static_cast<double>(std::filesystem::file_size(pdf)) / 1e6 : 0;
  std::filesystem::remove_all(dossier);
}
BENCHMARK(BM_CliPdf4x1000)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
  vt::ApplicationHorsÉcran application;
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
