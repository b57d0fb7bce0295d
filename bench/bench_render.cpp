// The editor's strip on a 1920 x 800 picture full of sixteenths, every string
// playing, with the staff: the full paint and the partial repaint of the
// cursor's bar that every typed note costs.
#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include "render/strip_renderer.h"
#include "render_qt/painter_surface.h"
#include "render_qt/resources.h"

namespace {

using namespace vt;

CVantoroTablature pleinDeDoubles() {
  CVantoroTablature doc;
  for (int i = 0; i < 11; ++i) doc.addMesure();
  for (int m = 1; m <= doc.getMesureLast(); ++m) {
    doc.setMesureTonalitéDétails(m, m % 5 - 2, kVrai);
    for (int c = 1; c <= 6; ++c)
      for (int x = 0; x < 192; x += 12) {
        const int n = doc.setNoteWhole(1, m, c, x, (x / 12 + c + m) % 15, 12);
        doc.setNoteVolume(1, m, c, n, 127);
      }
  }
  doc.setCurseurMesure(3);
  doc.setCurseurX(96);
  doc.setCurseurCorde(3);
  return doc;
}

struct Banc {
  CVantoroTablature doc = pleinDeDoubles();
  TabSettings s;
  PainterSurface surface{1920, 800};
  tGuitare guitare;
  CStripRenderer r{doc, s, surface, guitare, &sourcePortée()};
  Banc() { s.setViewMode(3, false); }  // one column per sixteenth: nothing overlaps
};

void BM_DrawInLine(benchmark::State& state) {
  Banc b;
  for (auto _ : state) b.r.drawInLine();
  state.counters["bars"] = b.r.dernièreMesureVisible();
}
BENCHMARK(BM_DrawInLine)->Unit(benchmark::kMillisecond);

void BM_RepaintCursorBar(benchmark::State& state) {
  Banc b;
  b.r.drawInLine();
  for (auto _ : state) {
    b.r.curEfface();
    b.r.effaceCurrentMesure();
    b.r.drawCurrentMesure();
    b.r.curAffiche();
  }
}
BENCHMARK(BM_RepaintCursorBar)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  installeMusicalFont(QCoreApplication::applicationDirPath().toStdString() + "/../bin/");
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
