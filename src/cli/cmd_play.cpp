// play FILE: the piece in real time through the player library, heard through
// the built-in synthesizer, or with --log sent to the logging output and
// printed one message a line as it goes out ("1041.667 90 45 7F": ms since
// the start, then the bytes). Ctrl-C stops it cleanly, every note released.
#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <thread>

#include "command.h"
#include "document_files.h"
#include "player/play_start.h"
#include "player/play_timing.h"
#include "player/player.h"
#include "sound/midi_handles.h"
#include "sound/peripheriques.h"
#include "sound/sortie_journal.h"

namespace vt::cli {
namespace {

struct PlayArgs {
  std::string fichier;
  int depuis = 1;
  bool marqueurs = false;
  bool boucle = false;
  bool décompte = false;
  int tempo = 0;
  bool journal = false;
};

volatile std::sig_atomic_t g_interrompu = 0;
extern "C" void surInterruption(int) {
  g_interrompu = 1;
}

// SIGINT sets a flag for the waiting loop while the piece plays; the handler
// that stood before comes back afterwards.
class InterruptionSurveillée {
 public:
  InterruptionSurveillée() {
    g_interrompu = 0;
    m_avant = std::signal(SIGINT, surInterruption);
  }
  ~InterruptionSurveillée() { std::signal(SIGINT, m_avant == SIG_ERR ? SIG_DFL : m_avant); }
  InterruptionSurveillée(const InterruptionSurveillée&) = delete;
  InterruptionSurveillée& operator=(const InterruptionSurveillée&) = delete;

 private:
  void (*m_avant)(int) = SIG_DFL;
};

void montrer(const Context& ctx, const std::vector<MessageSon>& messages) {
  for (const MessageSon& m : messages) {
    std::cerr << loadString(m.id, ctx.setLang);
    if (!m.détail.empty()) std::cerr << " (" << m.détail << ")";
    std::cerr << '\n';
  }
}

void jouer(Context& ctx, const PlayArgs& a) {
  auto lu = lireDocument(ctx, a.fichier);
  if (!lu) return;
  CVantoroTablature& doc = lu->doc;
  if (a.depuis > doc.getMesureLast()) {
    std::cerr << "--from: the tablature has " << doc.getMesureLast() << " bar"
              << (doc.getMesureLast() > 1 ? "s" : "") << '\n';
    ctx.exitCode = kUsage;
    return;
  }
  if (a.marqueurs && doc.isMarkerCorrect() == kFaux) {
    std::cerr << "--markers: the start and end markers stand at the same place\n";
    ctx.exitCode = kUsage;
    return;
  }
  if (a.tempo > 0) doc.tempo = static_cast<byt>(a.tempo);
  doc.setCurseurMesure(static_cast<i16>(a.depuis));
  doc.setCurseurX(0);

  DemandeJeu d;
  d.périodeTick = périodeTickMs(doc.tempo);
  d.loop = a.boucle;
  d.beatsAtStart = a.décompte;
  d.beatDurée = duréeTempsMs(doc.tempo);
  d.marker = a.marqueurs;
  // As the editor does: repeats only from bar 1; broken marks are told, and
  // the piece plays straight through.
  if (!a.marqueurs && a.depuis == 1) {
    const int cassée = doc.checkMesureRenvois();
    if (cassée > 0) std::cerr << loadString(1301, ctx.setLang) << cassée << '\n';
    d.renvois = cassée <= 0;
  }

  std::shared_ptr<MidiOut> sortie;
  std::shared_ptr<SortieJournal> journal;
  if (a.journal) {
    journal = std::make_shared<SortieJournal>();
    journal->setEcouteur([](const MessageDate& m) { std::cout << ligneJournal(m) << std::endl; });
    sortie = journal;
  } else {
    OuvertureSortie o = ouvreSortieMidi(0);
    montrer(ctx, o.messages);
    sortie = std::move(o.sortie);
  }
  const std::int32_t handle = midiHandleOuvrir(sortie);
  d.midiOut = handle;

  InterruptionSurveillée interruption;
  PlayArrays tableaux;
  if (journal) journal->setDébut(SortieJournal::Horloge::now());
  playStart(doc, tableaux, OptionsJeu{}, d);
  while (g_interrompu == 0 && GetPlayTabX() != -1)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  const bool interrompu = g_interrompu != 0;
  playStop();
  // Let the last notes die away in the synthesizer before it closes.
  if (!journal && !interrompu) std::this_thread::sleep_for(std::chrono::milliseconds(1500));
  midiHandleFermer(handle);
  std::cout << std::flush;
}

const CommandRegistration kPlay("play", [](CLI::App& app, Context& ctx) {
  auto* sub = app.add_subcommand("play", "play a tablature in real time");
  auto a = std::make_shared<PlayArgs>();
  sub->add_option("FILE", a->fichier, "the tablature to play")->required();
  sub->add_option("--from", a->depuis, "bar to start from (1 by default; repeats only from 1)")
      ->check(CLI::Range(1, 32767));
  sub->add_flag("--markers", a->marqueurs, "play between the start and end markers");
  sub->add_flag("--loop", a->boucle, "start again at the end, until Ctrl-C");
  sub->add_flag("--beats", a->décompte, "a bar of clicks before the first note");
  sub->add_option("--tempo", a->tempo, "beats per minute in place of the tablature's")
      ->check(CLI::Range(1, 255));
  sub->add_flag("--log", a->journal,
                "print every MIDI message as it is sent, with its time in ms, instead of "
                "sounding it");
  sub->callback([&ctx, a] { jouer(ctx, *a); });
});

}  // namespace
}  // namespace vt::cli
