// A MIDI input that floods the program: 10,000 notes a second (each a Note On
// and its Note Off) for ten seconds, into the main window with the editor open,
// through the session's real input path (the input's thread queues, the
// window's thread takes the notes and sounds them). Measured: how late a 10 ms
// timer of the window's thread fires at worst (the UI's responsiveness), the
// resident memory before, at the worst and after, and the notes sounded and
// dropped.
//   bench_midi_flood [seconds, 10 by default] [notes a second, 10000 by default]
#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>

#include "bench_editeur.h"
#include "son_systeme.h"
#include "sound/midi_in.h"
#include "sound/midi_out.h"

namespace {

using namespace vt;

// Resident memory now, in MB.
double résidentMo() {
  std::ifstream status("/proc/self/status");
  std::string ligne;
  while (std::getline(status, ligne))
    if (ligne.rfind("VmRSS:", 0) == 0) return std::stod(ligne.substr(6)) / 1024.0;
  return 0;
}

// The output counts the Note Ons it is asked to sound.
class SortieComptée : public MidiOut {
 public:
  explicit SortieComptée(std::atomic<long>& n) : m_n(n) {}
  void shortMsg(std::uint32_t m) override {
    if ((midiStatus(m) & 0xF0) == 0x90 && midiData2(m) != 0) ++m_n;
  }
  void reset() override {}
  std::string nom() const override { return "count"; }

 private:
  std::atomic<long>& m_n;
};

// The input plays a scale up and down on channel 1 at a steady rate from its
// own thread, as a keyboard's driver would deliver it.
class EntréeFlot : public MidiIn {
 public:
  EntréeFlot(double secondes, int parSeconde, std::atomic<long>& envoyées)
      : m_secondes(secondes), m_parSeconde(parSeconde), m_envoyées(envoyées) {}
  ~EntréeFlot() override { arrête(); }
  void démarre(Rappel rappel) override {
    m_fin = false;
    m_fil = std::thread([this, rappel = std::move(rappel)] {
      using horloge = std::chrono::steady_clock;
      const auto début = horloge::now();
      const auto pas = std::chrono::nanoseconds(1'000'000'000LL / m_parSeconde);
      long i = 0;
      const long total = static_cast<long>(m_secondes * m_parSeconde);
      while (!m_fin && i < total) {
        std::this_thread::sleep_until(début + pas * i);
        const auto note = static_cast<std::uint8_t>(40 + i % 40);
        rappel(midiPack(0x90, note, 100));
        rappel(midiPack(0x80, note, 0));
        ++i;
        ++m_envoyées;
      }
    });
  }
  void arrête() override {
    m_fin = true;
    if (m_fil.joinable()) m_fil.join();
  }
  std::string nom() const override { return "flood"; }

 private:
  double m_secondes;
  int m_parSeconde;
  std::atomic<long>& m_envoyées;
  std::atomic<bool> m_fin{false};
  std::thread m_fil;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const double secondes = argc > 1 ? std::stod(argv[1]) : 10.0;
  const int parSeconde = argc > 2 ? std::stoi(argv[2]) : 10000;

  banc::EditeurBanc e;
  std::atomic<long> sonnées{0}, envoyées{0};
  e.vt->settings().setMIDIInDevice = 0;
  e.vt->setSon(sonSysteme(
      e.vt->settings(),
      [&sonnées](int, const std::string&) {
        return OuvertureSortie{std::make_shared<SortieComptée>(sonnées), {}};
      },
      [&](int) {
        return OuvertureEntrée{std::make_unique<EntréeFlot>(secondes, parSeconde, envoyées), {}};
      }));
  e.vt->son().midiOpenOut();
  const double avant = résidentMo();

  // The window's thread: a 10 ms timer, and how late it comes at worst.
  QElapsedTimer montre;
  qint64 dernier = 0, pire = 0;
  double pic = avant;
  QTimer battement;
  battement.setTimerType(Qt::PreciseTimer);
  QObject::connect(&battement, &QTimer::timeout, [&] {
    const qint64 t = montre.nsecsElapsed();
    if (dernier != 0) pire = std::max(pire, t - dernier);
    dernier = t;
    pic = std::max(pic, résidentMo());
  });
  montre.start();
  battement.start(10);
  e.vt->son().midiOpenIn();
  QTimer::singleShot(static_cast<int>(secondes * 1000) + 500, &app, &QApplication::quit);
  app.exec();
  battement.stop();
  e.vt->son().midiCloseIn();
  QApplication::processEvents();
  const double après = résidentMo();

  rusage u{};
  getrusage(RUSAGE_SELF, &u);
  std::printf(
      "{\"seconds\":%.1f,\"notes_per_second\":%d,\"notes_sent\":%ld,\"notes_sounded\":%ld,"
      "\"worst_timer_gap_ms\":%.1f,\"rss_before_MB\":%.1f,\"rss_peak_MB\":%.1f,"
      "\"rss_after_MB\":%.1f,\"cpu_s\":%.2f}\n",
      secondes, parSeconde, envoyées.load(), sonnées.load(), static_cast<double>(pire) / 1e6,
      avant, pic, après,
      static_cast<double>(u.ru_utime.tv_sec + u.ru_stime.tv_sec) +
          static_cast<double>(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6);
  return 0;
}
