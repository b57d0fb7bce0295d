// A click on the fretboard strip with the harmoniser open, offscreen: from
// the mouse press to the strip's dots drawn again, the list made again from
// the file and both painted on screen. C, E and G are drawn; the click puts A
// on and off in turn, so that the list goes between three and four notes.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <cstdlib>
#include <memory>

#include "bench_programme.h"
#include "shell/manche.h"
#include "shell/manche_geometry.h"
#include "shell/vt.h"
#include "tools/fharmony.h"

namespace {

using namespace vt;

struct Banc : banc::ProgrammeBanc {
  FHarmony* harmony = nullptr;

  Banc()
      : ProgrammeBanc([](VT& v) {
          v.fenetres().enregistrer(fen::FHarmony, [](VT& w) { return new FHarmony(w); });
        }) {
    harmony = qobject_cast<FHarmony*>(vt->montreFenetre(fen::FHarmony));
    if (harmony == nullptr) std::abort();
    // C, E and G drawn.
    for (int note : {60, 64, 67})
      harmony->receiveNote(note);
    QApplication::processEvents();
  }

  // A press and a release on the strip at a fret and a string, then the paint.
  void clique(int c, int s) {
    Manche& m = vt->manche();
    const manche::Vue v = m.vue();
    const QPointF p(manche::centreCaseX(v, c) / manche::kTwipsParPixel,
                    manche::centreCordeY(v, s) / manche::kTwipsParPixel);
    QMouseEvent appui(QEvent::MouseButtonPress, p, m.mapToGlobal(p), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&m, &appui);
    QMouseEvent relâche(QEvent::MouseButtonRelease, p, m.mapToGlobal(p), Qt::LeftButton,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&m, &relâche);
    QApplication::processEvents();
  }
};

std::unique_ptr<Banc> g_banc;
Banc& banc() {
  if (!g_banc) g_banc = std::make_unique<Banc>();
  return *g_banc;
}

void BM_ClickOnTheStripRepaintsStripAndList(benchmark::State& state) {
  Banc& b = banc();
  for (auto _ : state) {
    // A on string 5 open, on and off in turn: C E G, then C E G A (Am7, C6).
    b.clique(0, 5);
  }
  state.counters["lines"] = b.harmony->lstGammes()->count();
}
BENCHMARK(BM_ClickOnTheStripRepaintsStripAndList)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  g_banc.reset();
  benchmark::Shutdown();
  return 0;
}
