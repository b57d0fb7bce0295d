// metronome --tempo T: the metronome's clock for a number of bars, heard
// through the built-in synthesizer, or with --log sent to the logging output
// and printed one message a line as it goes out, in the format of play --log,
// so that the click times and the accent can be read. The clicks are those of
// a fresh settings file with the percussion channel chosen: the metronome
// click (note 33) on the first beat, the bell (34) on the others, channel 10.
// Without --bars it runs until Ctrl-C.
#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <thread>

#include "command.h"
#include "formats/string_table.h"
#include "music/tempo_metronome.h"
#include "player/metronome.h"
#include "sound/midi_handles.h"
#include "sound/midi_out.h"
#include "sound/peripheriques.h"
#include "sound/sortie_journal.h"

namespace vt::cli {
namespace {

struct MetronomeArgs {
  int tempo = 0;
  int temps = 4;
  int mesures = 0;
  bool sansAccent = false;
  bool journal = false;
};

volatile std::sig_atomic_t g_arrêt = 0;
extern "C" void surArrêt(int) {
  g_arrêt = 1;
}

// Counts the clicks as they are sent, from the clock's thread.
class Compteur : public MidiOut {
 public:
  explicit Compteur(std::shared_ptr<MidiOut> suite) : m_suite(std::move(suite)) {}
  void shortMsg(std::uint32_t m) override {
    if ((midiStatus(m) & 0xF0) == 0x90 && midiData2(m) > 0) m_clics.fetch_add(1);
    m_suite->shortMsg(m);
  }
  void reset() override { m_suite->reset(); }
  std::string nom() const override { return m_suite->nom(); }
  int clics() const { return m_clics.load(); }

 private:
  std::shared_ptr<MidiOut> m_suite;
  std::atomic<int> m_clics{0};
};

void metronome(Context& ctx, const MetronomeArgs& a) {
  std::shared_ptr<MidiOut> sortie;
  std::shared_ptr<SortieJournal> journal;
  if (a.journal) {
    journal = std::make_shared<SortieJournal>();
    journal->setEcouteur([](const MessageDate& m) { std::cout << ligneJournal(m) << std::endl; });
    sortie = journal;
  } else {
    OuvertureSortie o = ouvreSortieMidi(0);
    for (const MessageSon& m : o.messages) {
      std::cerr << loadString(m.id, ctx.setLang);
      if (!m.détail.empty()) std::cerr << " (" << m.détail << ")";
      std::cerr << '\n';
    }
    sortie = std::move(o.sortie);
  }
  auto compteur = std::make_shared<Compteur>(sortie);
  const std::int32_t handle = midiHandleOuvrir(compteur);

  OptionsMétronome o;
  o.setMétronomeMIDICanal10 = 1;
  o.accent = !a.sansAccent;
  const tMetronomeParams p = métronomeParams(a.tempo, a.temps, o, handle);

  g_arrêt = 0;
  auto avant = std::signal(SIGINT, surArrêt);
  const auto début = SortieJournal::Horloge::now();
  if (journal) journal->setDébut(début);
  StartMetronome(p, a.tempo);
  // The last click of the last bar sounds for half a beat, then the clock
  // stops, half a beat before another would come.
  const long clics = static_cast<long>(a.mesures) * a.temps;
  const auto fin = début + std::chrono::nanoseconds((2 * clics - 1) * 30'000'000'000LL / a.tempo);
  while (g_arrêt == 0 &&
         (clics == 0 || compteur->clics() < clics || SortieJournal::Horloge::now() < fin))
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  StopMetronome();
  std::signal(SIGINT, avant == SIG_ERR ? SIG_DFL : avant);
  if (!journal) std::this_thread::sleep_for(std::chrono::milliseconds(500));
  midiHandleFermer(handle);
  std::cout << std::flush;
}

const CommandRegistration kMetronome("metronome", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("metronome",
                                 "the metronome's clicks for a number of bars (or until Ctrl-C)");
  auto a = std::make_shared<MetronomeArgs>();
  sub->add_option("--tempo", a->tempo, "beats per minute, 1 to 999")
      ->required()
      ->check(CLI::Range(kTempoMin, kTempoMax));
  sub->add_option("--beats", a->temps, "beats to the bar, 1 to 16 (4 by default)")
      ->check(CLI::Range(1, 16));
  sub->add_option("--bars", a->mesures, "bars to play; 0 (the default) runs until Ctrl-C")
      ->check(CLI::Range(0, 100000));
  sub->add_flag("--no-accent", a->sansAccent, "the first beat of the bar like the others");
  sub->add_flag("--log", a->journal,
                "print every MIDI message as it is sent, with its time in ms, instead of "
                "sounding it");
  sub->callback([&ctx, a] { metronome(ctx, *a); });
});

}  // namespace
}  // namespace vt::cli
