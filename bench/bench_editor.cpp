// A key press in the editor on a tablature of 2,000 bars of eighths on every
// string, staff shown, the strip 1600 x 620 pixels, the cursor in bar 1,000,
// the fretboard shown: from the key event to the strip's widget and the
// fretboard painted on screen again, offscreen. A typed fret in overwrite mode
// repaints its bar; in insert mode it pushes the rest of the track and
// repaints the strip; a cursor move repaints the bar it leaves. The notes go
// to a silent output: the synthesizer's own time is not the editor's.
//
// Then the opening of a large file into the editor, as from the command line:
// a ".vtb" of 7 tracks x 4,000 bars is read, the document refilled, the strip
// drawn and the widget painted on screen.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <memory>
#include <string>

#include "bench_editeur.h"
#include "document/tablature.h"
#include "editor/ftab.h"
#include "formats/vtb.h"
#include "shell/vt.h"

namespace {

using namespace vt;

constexpr int kMesures = 2000;

struct Editeur : banc::EditeurBanc {
  Editeur() {
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
};

// Made on first use, gone before the application: the main window needs it.
std::unique_ptr<Editeur> g_banc;
Editeur& éditeur() {
  if (!g_banc) g_banc = std::make_unique<Editeur>();
  return *g_banc;
}

void BM_TypedFretRepaintsItsBar(benchmark::State& state) {
  Editeur& e = éditeur();
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
  Editeur& e = éditeur();
  int k = 0;
  for (auto _ : state)
    e.touche(k++ % 2 == 0 ? Qt::Key_Down : Qt::Key_Up);
}
BENCHMARK(BM_CursorMove)->Unit(benchmark::kMillisecond);

void BM_TypedFretInInsertMode(benchmark::State& state) {
  Editeur& e = éditeur();
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

// ---- Opening a large file ------------------------------------------------------

constexpr int kGrandesPistes = 7;
constexpr int kGrandesMesures = 4000;

// A note with its nuance, as the editor enters it.
int note(CVantoroTablature& d, int p, int m, int c, int x, int fret, int durée,
         byt volume = nuance::kMF) {
  const int n = d.setNoteWhole(p, m, c, x, fret, durée);
  d.setNoteVolume(p, m, c, n, volume);
  return n;
}

// A piece as a band writes it, 7 tracks of 4,000 bars of 4/4: a lead in
// eighths and sixteenths with hammer-ons, pull-offs, slides, bends and
// vibrato; a rhythm guitar with four-note chords on the beats, palm-muted
// now and then, a chord diagram every four bars; a bass on a four-string
// bass; three guitars in arpeggios with ties; a drum track. A tempo change
// every 64 bars, a text every 32.
CVantoroTablature grandePièce() {
  tGuitare guitare;
  guitare.nom = "Guitar";
  tGuitare basse;
  basse.nom = "Bass";
  basse.nbrCordes = 4;
  basse.corde = {0, 43, 38, 33, 28, 0, 0, 0};
  CVantoroTablature d(guitare);
  for (int p = 2; p <= kGrandesPistes; ++p)
    d.addPiste(p - 1, p == 3 ? basse : guitare);
  d.setStaffType(7, kStaffBatterie);
  d.setPisteNom(1, "Lead");
  d.setPisteNom(2, "Rhythm");
  d.setPisteNom(3, "Bass");
  d.setPisteNom(7, "Drums");
  d.titre = "Long piece";
  while (d.getMesureLast() < kGrandesMesures)
    d.addMesure();

  // The shapes the rhythm guitar plays, strings 1 to 6 (255: not played).
  static constexpr std::array<std::array<int, 7>, 4> kFormes{{{0, 0, 1, 0, 2, 3, 255},
                                                              {0, 3, 0, 0, 0, 2, 3},
                                                              {0, 0, 1, 2, 2, 0, 255},
                                                              {0, 2, 3, 2, 0, 255, 255}}};
  static const std::array<const char*, 4> kNoms{"C", "G", "Am", "D"};
  for (int m = 1; m <= kGrandesMesures; ++m) {
    if (m % 64 == 1) d.setMesureTempo(m, 0, static_cast<byt>(96 + (m / 64) % 40));
    if (m % 32 == 1) d.setMesureTexte(1, m, 0, "Part " + std::to_string(m / 32 + 1), kVrai);
    // Lead: eighths on strings 1 to 3, the last beat in sixteenths.
    for (int k = 0; k < 6; ++k)
      note(d, 1, m, 1 + (k + m) % 3, k * 24, 5 + (k * 2 + m) % 12, 24);
    for (int k = 0; k < 4; ++k)
      note(d, 1, m, 1 + k % 2, 144 + k * 12, 7 + k, 12);
    const int c = 1 + m % 3;
    static constexpr std::array<byt, 6> kEffets{effet::kHammerOn,  effet::kPullOff,
                                                effet::kSlideUp,   effet::kBendUp,
                                                effet::kSlideDown, effet::kVibrato};
    d.setNoteEffet(1, m, c, 1, kEffets[static_cast<std::size_t>(m % 6)]);
    // Rhythm: a chord on every beat.
    const auto& forme = kFormes[static_cast<std::size_t>((m / 4) % 4)];
    for (int beat = 0; beat < 4; ++beat)
      for (int s = 1; s <= 6; ++s)
        if (forme[static_cast<std::size_t>(s)] != 255) {
          const int n =
              note(d, 2, m, s, beat * 48, forme[static_cast<std::size_t>(s)], 48, nuance::kF);
          if (m % 8 == 0) d.setNoteAttaque(2, m, s, n, attaque::kPalmMute);
        }
    if (m % 4 == 1) {
      const int a = d.addandplaceMesureAccord(2, m, 0);
      OneBased<byt> frettes;
      for (int s = 1; s <= 6; ++s)
        frettes.push_back(static_cast<byt>(forme[static_cast<std::size_t>(s)]));
      d.setMesureAccord(2, m, a, kNoms[static_cast<std::size_t>((m / 4) % 4)], frettes);
    }
    // Bass: quarters on the lower strings.
    for (int beat = 0; beat < 4; ++beat)
      note(d, 3, m, 3 + beat % 2, beat * 48, (m + beat) % 5, 48, nuance::kFF);
    // Arpeggios: eighths across the strings, the last one tied into the next bar.
    for (int p = 4; p <= 6; ++p) {
      for (int k = 0; k < 8; ++k)
        note(d, p, m, 1 + (k + p) % 6, k * 24, (k + m + p) % 8, 24, nuance::kMP);
      d.setNoteEffet(p, m, 1 + (7 + p) % 6, 8, effet::kLiaison);
    }
    // Drums: hi-hat in eighths, kick and snare on the beats.
    for (int k = 0; k < 8; ++k)
      note(d, 7, m, 1, k * 24, 42, 24);
    for (int beat = 0; beat < 4; ++beat)
      note(d, 7, m, beat % 2 == 0 ? 5 : 3, beat * 48, beat % 2 == 0 ? 36 : 38, 48);
  }
  d.modifi = kFaux;
  return d;
}

int compteNotes(const CVantoroTablature& d) {
  int n = 0;
  for (int p = 1; p <= d.getPisteLast(); ++p)
    for (int m = 1; m <= d.getMesureLast(); ++m)
      for (int c = 1; c <= d.getGuitareNbrCordes(p); ++c)
        n += d.getNoteLast(p, m, c);
  return n;
}

// Counts the paints of the strip's widget.
class CompteurPeintures : public QObject {
 public:
  int n = 0;
  bool eventFilter(QObject* o, QEvent* e) override {
    if (e->type() == QEvent::Paint) ++n;
    return QObject::eventFilter(o, e);
  }
};

// From the file's name to the strip on screen: FTab reads the file, refills
// the document, rebuilds its track entries and draws the strip; the pending
// paint of the widget is then done.
void BM_OpenLargeFile(benchmark::State& state) {
  Editeur& e = éditeur();
  const QString fichier = e.dossier.filePath("large.vtb");
  const CVantoroTablature pièce = grandePièce();
  {
    CVantoroTablature copie = pièce;
    if (!io_enregistrer_vtb(copie, fichier.toStdString()).ok()) {
      state.SkipWithError("the file could not be written");
      return;
    }
  }
  CompteurPeintures peintures;
  e.ftab->picTab()->installEventFilter(&peintures);
  for (auto _ : state) {
    e.ftab->ouvreLigneDeCommande(fichier);
    QApplication::processEvents();
  }
  e.ftab->picTab()->removeEventFilter(&peintures);
  const CVantoroTablature& lu = e.vt->document();
  if (lu.getPisteLast() != kGrandesPistes || lu.getMesureLast() != kGrandesMesures)
    state.SkipWithError("the file did not open");
  state.counters["MB"] = static_cast<double>(QFileInfo(fichier).size()) / 1e6;
  state.counters["notes"] = compteNotes(lu);
  state.counters["paints"] = benchmark::Counter(peintures.n, benchmark::Counter::kAvgIterations);
}
// Registered last: it replaces the document the benchmarks above type into.
BENCHMARK(BM_OpenLargeFile)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

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
