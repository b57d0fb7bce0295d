// The editor on the piece at the format's limits (bench_limite.h) at 1,000,
// 10,000 and 32,767 bars: the file opened from the command line to the strip
// on screen; End (to the last bar) and a fret typed there, each to its
// repaint; a bar inserted at bar 1 of the busy track and that insertion
// undone, each through the editor's command to the strip repainted. The
// process's peak memory is given with each ("peak_MB"); run one benchmark per
// process (--benchmark_filter) for the peak of that operation alone.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QApplication>
#include <QTemporaryDir>
#include <chrono>
#include <map>

#include "bench_editeur.h"
#include "bench_limite.h"
#include "formats/vtb.h"

namespace {

using namespace vt;

std::unique_ptr<banc::EditeurBanc> g_éditeur;
banc::EditeurBanc& éditeur() {
  if (!g_éditeur) g_éditeur = std::make_unique<banc::EditeurBanc>();
  return *g_éditeur;
}

// The piece of `mesures` bars as a file, written once.
QString fichier(int mesures) {
  static std::map<int, QString> fichiers;
  QString& f = fichiers[mesures];
  if (f.isEmpty()) {
    f = éditeur().dossier.filePath(QStringLiteral("limit%1.vtb").arg(mesures));
    CVantoroTablature doc = banc::morceauLimite(mesures);
    if (!io_enregistrer_vtb(doc, f.toStdString()).ok()) std::abort();
  }
  return f;
}

double picMo() {
  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  return static_cast<double>(u.ru_maxrss) / 1024.0;
}

// Opens the piece unless it is the one open.
void ouvrir(banc::EditeurBanc& e, int mesures) {
  if (e.vt->document().getMesureLast() != mesures) {
    e.ftab->ouvreLigneDeCommande(fichier(mesures));
    QApplication::processEvents();
  }
}

void BM_OpenInTheEditor(benchmark::State& state) {
  banc::EditeurBanc& e = éditeur();
  const QString f = fichier(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    e.ftab->ouvreLigneDeCommande(f);
    QApplication::processEvents();
  }
  if (e.vt->document().getMesureLast() != state.range(0)) state.SkipWithError("not opened");
  state.counters["peak_MB"] = picMo();
}

// From the home of the piece: End, then a fret typed in the last bar.
void BM_EndThenTypeAFret(benchmark::State& state) {
  banc::EditeurBanc& e = éditeur();
  ouvrir(e, static_cast<int>(state.range(0)));
  if (e.vt->booInsert()) e.vt->toggleInsert();
  double fin = 0, frappe = 0;
  int k = 0;
  for (auto _ : state) {
    state.PauseTiming();
    e.touche(Qt::Key_Home);
    state.ResumeTiming();
    const auto a = std::chrono::steady_clock::now();
    e.touche(Qt::Key_End);
    const auto b = std::chrono::steady_clock::now();
    e.touche(k++ % 2 == 0 ? Qt::Key_5 : Qt::Key_7);
    const auto c = std::chrono::steady_clock::now();
    fin += std::chrono::duration<double, std::milli>(b - a).count();
    frappe += std::chrono::duration<double, std::milli>(c - b).count();
  }
  if (e.vt->document().CurseurMesure() != state.range(0)) state.SkipWithError("not at the end");
  const double n = static_cast<double>(state.iterations());
  state.counters["end_ms"] = fin / n;
  state.counters["fret_ms"] = frappe / n;
  state.counters["peak_MB"] = picMo();
}

// Bar 1 of the busy track: a bar inserted (the bar command), then undone.
void BM_InsertABarAtBar1ThenUndo(benchmark::State& state) {
  banc::EditeurBanc& e = éditeur();
  ouvrir(e, static_cast<int>(state.range(0)));
  // The bar dialog answers at once: one bar at the cursor's, this track only.
  e.ftab->demandeMesures = [](int, PositionsMesures& pos) {
    pos.nombre = 1;
    pos.toutesPistes = false;
    return true;
  };
  const int avant = e.vt->document().getMesureLast();
  double insertion = 0, annulation = 0;
  for (auto _ : state) {
    state.PauseTiming();
    e.touche(Qt::Key_Home);
    state.ResumeTiming();
    const auto a = std::chrono::steady_clock::now();
    e.ftab->mnuTabEdit(10);
    QApplication::processEvents();
    const auto b = std::chrono::steady_clock::now();
    e.ftab->mnuTabEdit(0);
    QApplication::processEvents();
    const auto c = std::chrono::steady_clock::now();
    insertion += std::chrono::duration<double, std::milli>(b - a).count();
    annulation += std::chrono::duration<double, std::milli>(c - b).count();
    // The undo gives the track its bars back and leaves the document's count:
    // the empty bar at the end goes, for the next round to insert again.
    state.PauseTiming();
    e.vt->document().garbageMesure(e.vt->document().getMesureLast(), 1);
    state.ResumeTiming();
  }
  if (e.vt->document().getMesureLast() != avant) state.SkipWithError("the undo left a bar");
  const double n = static_cast<double>(state.iterations());
  state.counters["insert_ms"] = insertion / n;
  state.counters["undo_ms"] = annulation / n;
  state.counters["peak_MB"] = picMo();
}

#define VT_LONGUEURS ->Arg(1000)->Arg(10000)->Arg(32767)->Unit(benchmark::kMillisecond)
BENCHMARK(BM_OpenInTheEditor) VT_LONGUEURS->Iterations(3);
BENCHMARK(BM_EndThenTypeAFret) VT_LONGUEURS->Iterations(20);
// One bar short of the limit at the longest, so that the insertion happens.
BENCHMARK(BM_InsertABarAtBar1ThenUndo)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(32766)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  g_éditeur.reset();
  return 0;
}
