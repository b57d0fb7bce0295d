// A key press in the editor on a tablature of 2,000 bars of eighths on every
// string, staff shown, the strip 1600 x 620 pixels, the cursor in bar 1,000,
// the fretboard shown: from the key event to the strip's widget and the
// fretboard painted on screen again, offscreen. A typed fret in overwrite mode
// repaints its bar; in insert mode it pushes the rest of the track and
// repaints the strip; a cursor move repaints the bar it leaves. The notes go
// to a silent output: the synthesizer's own time is not the editor's.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <memory>

#include "editor/ftab.h"
#include "shell/vt.h"

namespace {

using namespace vt;

constexpr int kMesures = 2000;

class SonMuet : public SonLive {
 public:
  void midiOpenOut() override {}
  void midiOpenIn() override {}
  void midiCloseOut() override {}
  void midiCloseIn() override {}
  void midiNoteOnGlobal(int) override {}
  void midiNoteOffGlobal(int) override {}
  void midiController(int, int, int) override {}
};

struct Editeur {
  QTemporaryDir dossier;
  std::unique_ptr<VT> vt;
  FTab* ftab = nullptr;

  Editeur() {
    const QString réglages = dossier.filePath("settings.ini");
    {
      QSettings s(réglages, QSettings::IniFormat);
      s.setValue("Options/setLang", "10000");
      s.setValue(QString::fromUtf8("Options/setDémarrage"), "0");
      s.setValue("Options/Show Tips at Startup", "0");
      s.setValue("Options/setLoadHelpAccessWndAtStartup", "False");
      s.setValue("Options/setMancheVisible", "True");
    }
    qputenv("VANTORO_SETTINGS", réglages.toUtf8());
    vt = std::make_unique<VT>();
    VT::Interactions i;
    i.getLang = [] { return static_cast<i16>(10000); };
    i.exec = [](QDialog&) {};
    i.critique = [](const QString&, const QString&) {};
    i.information = [](const QString&) {};
    i.avertissement = [](const QString&) {};
    vt->setInteractions(i);
    vt->setSon(std::make_unique<SonMuet>());
    vt->fenetres().enregistrer(fen::FTab, [](VT& v) { return new FTab(v); });
    VT::Démarrage d;
    d.strAppPath = QStringLiteral(VT_BIN_DIR "/");
    d.dossierDonnéesUtilisateur = dossier.filePath("data");
    d.rafraîchirBureau = false;
    if (!vt->MDIForm_Load(d)) std::abort();
    vt->resize(1700, 1000);
    ftab = dynamic_cast<FTab*>(vt->montreFenetre(fen::FTab));
    if (ftab == nullptr) std::abort();
    ftab->setOuvreDialogue({}, {});
    if (auto* cadre = qobject_cast<QMdiSubWindow*>(ftab->parentWidget())) cadre->resize(1610, 700);

    CVantoroTablature& doc = vt->document();
    while (doc.getMesureLast() < kMesures)
      doc.addMesure();
    for (int m = 1; m <= kMesures; ++m)
      for (int c = 1; c <= 6; ++c)
        for (int x = 0; x < 192; x += 24) {
          const int n = doc.setNoteWhole(1, m, c, x, (m + c + x / 24) % 13, 24);
          doc.setNoteVolume(1, m, c, n, 127);
        }
    doc.setCurseurMesure(kMesures / 2);
    doc.setCurseurX(48);
    doc.setCurseurCorde(3);
    doc.m_lngScrollValue = kMesures / 2 - 1;
    ftab->refreshPicture();
    QApplication::processEvents();
  }

  // The key as the window system sends it, then what it changed painted.
  void touche(int key) {
    QWidget* pic = ftab->picTab();
    QKeyEvent appui(QEvent::KeyPress, key, Qt::NoModifier, QString());
    QApplication::sendEvent(pic, &appui);
    QKeyEvent relâche(QEvent::KeyRelease, key, Qt::NoModifier, QString());
    QApplication::sendEvent(pic, &relâche);
    QApplication::processEvents();
  }
};

// Made on first use, gone before the application: the main window needs it.
std::unique_ptr<Editeur> g_banc;
Editeur& banc() {
  if (!g_banc) g_banc = std::make_unique<Editeur>();
  return *g_banc;
}

void BM_TypedFretRepaintsItsBar(benchmark::State& state) {
  Editeur& e = banc();
  if (e.vt->booInsert()) e.vt->toggleInsert();
  int k = 0;
  for (auto _ : state) {
    // 5 and 7 in turn: no two-digit fret, a real change each time.
    e.touche(k++ % 2 == 0 ? Qt::Key_5 : Qt::Key_7);
  }
  state.counters["bars"] = e.vt->document().getMesureLast();
}
BENCHMARK(BM_TypedFretRepaintsItsBar)->Unit(benchmark::kMillisecond);

void BM_CursorMove(benchmark::State& state) {
  Editeur& e = banc();
  int k = 0;
  for (auto _ : state)
    e.touche(k++ % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
}
BENCHMARK(BM_CursorMove)->Unit(benchmark::kMillisecond);

void BM_TypedFretInInsertMode(benchmark::State& state) {
  Editeur& e = banc();
  if (!e.vt->booInsert()) e.vt->toggleInsert();
  CVantoroTablature& doc = e.vt->document();
  for (auto _ : state) {
    doc.setCurseurMesure(kMesures / 2);
    doc.setCurseurX(48);
    e.touche(Qt::Key_5);
  }
  e.vt->toggleInsert();
}
BENCHMARK(BM_TypedFretInInsertMode)->Unit(benchmark::kMillisecond)->Iterations(50);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  g_banc.reset();
  return 0;
}
