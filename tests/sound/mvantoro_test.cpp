// MVantoro through the logging output and a stand-in input: the bytes of every
// routine, the output's handle, the messages said once, and the input's queue.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "sound/midi_handles.h"
#include "sound/mvantoro.h"
#include "sound/sortie_journal.h"

namespace vt {
namespace {

// An input whose messages the test sends, from whatever thread it likes.
class EntréeEssai : public MidiIn {
 public:
  explicit EntréeEssai(int& arrêts) : m_arrêts(arrêts) {}
  void démarre(Rappel r) override {
    std::lock_guard lock(m_verrou);
    m_rappel = std::move(r);
  }
  void arrête() override {
    std::lock_guard lock(m_verrou);
    m_rappel = nullptr;
    ++m_arrêts;
  }
  std::string nom() const override { return "test"; }
  void envoie(std::uint32_t message) {
    std::lock_guard lock(m_verrou);
    if (m_rappel) m_rappel(message);
  }

 private:
  int& m_arrêts;  // outlives the input, which its closing destroys
  std::mutex m_verrou;
  Rappel m_rappel;
};

class Module : public ::testing::Test {
 protected:
  Module()
      : midi(
            [this](int device, const std::string& soundFont) {
              ouvertures.push_back({device, soundFont});
              journal = std::make_shared<SortieJournal>();
              return OuvertureSortie{journal, messagesSortie};
            },
            [this](int device) {
              entréesDemandées.push_back(device);
              OuvertureEntrée o;
              o.messages = messagesEntrée;
              if (messagesEntrée.empty()) {
                auto e = std::make_unique<EntréeEssai>(arrêts);
                entrée = e.get();
                o.entrée = std::move(e);
              }
              return o;
            }) {}

  // Opens the output with these settings and forgets what the opening sent.
  void ouvreAvec(int canal, int instru, int volume) {
    RéglagesMidi r;
    r.setMIDIchannel = canal;
    r.setMIDIinstru = instru;
    r.setMIDIvolume = volume;
    midi.setRéglages(r);
    midi.midiOpenOut();
  }
  // The bytes sent, one string per message, as the log prints them.
  std::vector<std::string> octets() const {
    std::vector<std::string> l;
    for (const MessageDate& m : journal->messages()) {
      const std::string ligne = ligneJournal(m);
      l.push_back(ligne.substr(ligne.find(' ') + 1));
    }
    return l;
  }

  std::vector<std::pair<int, std::string>> ouvertures;
  std::vector<int> entréesDemandées;
  std::vector<MessageSon> messagesSortie, messagesEntrée;
  std::shared_ptr<SortieJournal> journal;
  EntréeEssai* entrée = nullptr;
  int arrêts = 0;
  MVantoro midi;
};

TEST_F(Module, OpenOutTakesTheSettingsResetsSendsTheProgramAndReopeningClosesTheHandle) {
  RéglagesMidi r;
  r.setMIDIchannel = 3;
  r.setMIDIinstru = 25;
  r.setMIDIdevice = 2;
  r.setSoundFont = "/home/me/piano.sf2";
  midi.setRéglages(r);
  midi.midiOpenOut();
  EXPECT_EQ(ouvertures, (std::vector<std::pair<int, std::string>>{{2, "/home/me/piano.sf2"}}));
  EXPECT_EQ(journal->resets(), 1);
  EXPECT_EQ(octets(), std::vector<std::string>{"C2 19"});
  EXPECT_TRUE(midi.sortieOuverte());
  EXPECT_EQ(midi.dernierRésultat(), 0);
  EXPECT_EQ(midiHandleSortie(midi.midiOutHandle()), journal);

  // Reopening closes the previous handle; closing silences the routines.
  const std::int32_t premier = midi.midiOutHandle();
  auto premierJournal = journal;
  midi.midiOpenOut();
  const std::int32_t second = midi.midiOutHandle();
  EXPECT_NE(premier, second);
  EXPECT_EQ(midiHandleSortie(premier), nullptr);
  EXPECT_EQ(midiHandleSortie(second), journal);
  EXPECT_NE(premierJournal, journal);
  midi.midiCloseOut();
  EXPECT_EQ(midi.midiOutHandle(), 0);
  EXPECT_EQ(midiHandleSortie(second), nullptr);
  const std::size_t avant = journal->messages().size();
  midi.midiNoteOnGlobal(60);  // a closed output: nothing, no failure
  EXPECT_EQ(journal->messages().size(), avant);
  midi.midiCloseOut();
}

TEST_F(Module, EveryRoutineSendsItsBytesWithOneBasedChannelsAndValuesHeldToTheirRange) {
  ouvreAvec(10, 0, 90);
  journal->efface();
  midi.midiProgram(1, 0);
  midi.midiProgram(16, 127);
  midi.midiProgramGlobal(40);
  midi.midiNoteOn(64, 2, 90);
  midi.midiNoteOff(64, 2);
  midi.midiController(7, 100, 10);
  midi.midiNoteOnGlobal(52);
  midi.midiNoteOffGlobal(52);
  midi.midiWheel(1, 0x60);
  EXPECT_EQ(octets(), (std::vector<std::string>{"C0 00", "CF 7F", "C9 28", "91 40 5A", "91 40 00",
                                                "B9 07 64", "99 34 5A", "99 34 00", "E0 00 60"}));

  ouvreAvec(0, 300, 200);  // a hand-edited settings file
  midi.midiNoteOnGlobal(-3);
  midi.midiNoteOn(200, 17, 128);
  midi.midiWheel(5, 255);
  EXPECT_EQ(octets(), (std::vector<std::string>{"C0 7F", "90 00 7F", "9F 7F 7F", "E4 00 7F"}));
}

TEST_F(Module, EachKindOfMessageIsGivenOnce) {
  messagesSortie = {{son::kAucuneSortieAudio.id, "pulseaudio: refused"}};
  midi.midiOpenOut();
  EXPECT_EQ(midi.dernierRésultat(), son::kAucuneSortieAudio.id);
  EXPECT_EQ(midi.prendMessages(), messagesSortie);
  EXPECT_TRUE(midi.prendMessages().empty());
  midi.midiOpenOut();  // the options dialog opens it again: nothing new to say
  EXPECT_TRUE(midi.prendMessages().empty());
  EXPECT_EQ(midi.dernierRésultat(), son::kAucuneSortieAudio.id);

  messagesEntrée = {{son::kEntréeMidiImpossible.id, "port 3"}};
  midi.midiOpenIn();
  EXPECT_FALSE(midi.entréeOuverte());
  EXPECT_EQ(midi.prendMessages(), messagesEntrée);
}

TEST_F(Module, NotesFromTheInputsThreadAreQueuedInOrderAndTheNotifierIsCalled) {
  RéglagesMidi r;
  r.setMIDIInDevice = 4;
  r.setMIDIINBasicChannel = 2;
  midi.setRéglages(r);
  std::atomic<int> appels{0};
  midi.setNotificateur([&appels] { ++appels; });
  midi.midiOpenIn();
  ASSERT_TRUE(midi.entréeOuverte());
  EXPECT_EQ(entréesDemandées, std::vector<int>{4});

  constexpr int kNotes = 500;
  std::vector<NoteReçue> attendues;
  for (int i = 0; i < kNotes; ++i) {
    attendues.push_back({i % 6 + 1, 40 + i % 50, true});
    attendues.push_back({i % 6 + 1, 40 + i % 50, false});
  }
  std::thread fil([this] {
    for (int i = 0; i < kNotes; ++i) {
      entrée->envoie(midiPack(std::uint8_t(0x90 | (i % 6 + 1)), std::uint8_t(40 + i % 50), 90));
      entrée->envoie(midiPack(0xB1, 64, 0));  // not a note: not queued
      entrée->envoie(midiPack(std::uint8_t(0x80 | (i % 6 + 1)), std::uint8_t(40 + i % 50), 0));
    }
  });
  // The window drains while the notes still come.
  std::vector<NoteReçue> reçues;
  while (reçues.size() < 2 * kNotes) {
    for (const NoteReçue& n : midi.prendNotesReçues())
      reçues.push_back(n);
    std::this_thread::yield();
  }
  fil.join();
  // One wake-up for each run of notes that found the queue empty.
  EXPECT_GE(appels.load(), 1);
  EXPECT_LE(appels.load(), 2 * kNotes);
  EXPECT_EQ(reçues, attendues);
  EXPECT_TRUE(midi.prendNotesReçues().empty());
}

TEST_F(Module, AFloodingInputIsHeldToTheQueuesCapacityWithTheLossCountedAndOneWakeUp) {
  std::atomic<int> appels{0};
  midi.setNotificateur([&appels] { ++appels; });
  midi.midiOpenIn();
  constexpr std::size_t kEnvoyées = 10000;
  for (std::size_t i = 0; i < kEnvoyées; ++i)
    entrée->envoie(midiPack(0x90, std::uint8_t(40 + i % 50), 90));
  EXPECT_EQ(appels.load(), 1);
  const std::vector<NoteReçue> reçues = midi.prendNotesReçues();
  ASSERT_EQ(reçues.size(), FileNotesReçues::kCapacité);
  EXPECT_EQ(reçues.back().note, 40 + int((FileNotesReçues::kCapacité - 1) % 50));  // the oldest
  EXPECT_EQ(midi.prendNotesPerdues(), kEnvoyées - FileNotesReçues::kCapacité);
  EXPECT_EQ(midi.prendNotesPerdues(), 0u);
  // Once taken, the queue takes notes again and wakes its taker again.
  entrée->envoie(midiPack(0x90, 60, 90));
  EXPECT_EQ(appels.load(), 2);
  EXPECT_EQ(midi.prendNotesReçues().size(), 1u);
}

TEST_F(Module, ClosingTheInputStopsItAndTheChannelCountedFromTheBasicChannelIsTheString) {
  midi.midiOpenIn();
  ASSERT_NE(entrée, nullptr);
  RéglagesMidi r;
  r.setMIDIINBasicChannel = 4;
  midi.setRéglages(r);
  entrée->envoie(midiPack(0x95, 60, 80));
  EXPECT_EQ(midi.prendNotesReçues(), (std::vector<NoteReçue>{{3, 60, true}}));

  midi.midiOpenIn();  // reopening closes the first
  EXPECT_EQ(arrêts, 1);
  EXPECT_EQ(entréesDemandées.size(), 2u);
  midi.midiCloseIn();
  EXPECT_EQ(arrêts, 2);
  EXPECT_FALSE(midi.entréeOuverte());
  midi.midiCloseIn();

  // The channel counted from the basic channel is the string.
  using N = NoteReçue;
  EXPECT_EQ(noteReçue(midiPack(0x90, 64, 100), 1), (N{1, 64, true}));
  EXPECT_EQ(noteReçue(midiPack(0x95, 50, 1), 1), (N{6, 50, true}));
  EXPECT_EQ(noteReçue(midiPack(0x92, 50, 1), 3), (N{1, 50, true}));
  EXPECT_EQ(noteReçue(midiPack(0x97, 50, 1), 3), (N{6, 50, true}));
  EXPECT_EQ(noteReçue(midiPack(0x90, 40, 90), 5), (N{1, 40, true}));  // below: the first string
  EXPECT_EQ(noteReçue(midiPack(0x8F, 40, 90), 1), (N{16, 40, false}));
  EXPECT_EQ(noteReçue(midiPack(0x93, 40, 0), 1), (N{4, 40, false}));
  for (std::uint8_t statut : {0xA0, 0xB0, 0xC0, 0xD0, 0xE0, 0xF0, 0x7F})
    EXPECT_FALSE(noteReçue(midiPack(statut, 40, 90), 1)) << int(statut);
}

}  // namespace
}  // namespace vt
