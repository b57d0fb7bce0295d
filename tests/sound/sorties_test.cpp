// The outputs: the built-in synthesizer and its SoundFont, the devices by number
// (no ALSA sequencer on the test machines), the MIDI out handles, the log.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "sound/midi_handles.h"
#include "sound/midi_out.h"
#include "sound/peripheriques.h"
#include "sound/ports_alsa.h"
#include "sound/sortie_journal.h"
#include "sound/soundfont.h"
#include "sound/synthe_integre.h"
#include "sound_test_util.h"

namespace vt {
namespace {

namespace fs = std::filesystem;
using test::sansAudio;
using Messages = std::vector<MessageSon>;

std::vector<float> écoute(SynthéIntégré& s, double ms) {
  std::vector<std::int16_t> pcm(2 * std::size_t(ms * 44.1));
  EXPECT_TRUE(s.rends(pcm.data(), int(pcm.size() / 2)));
  return test::mono(pcm);
}
// Released notes die away: the voices end within a few seconds.
int voixAprèsExtinction(SynthéIntégré& s) {
  for (int i = 0; i < 40 && s.voixActives() > 0; ++i)
    écoute(s, 100);
  return s.voixActives();
}
std::vector<std::int16_t> joue(SynthéIntégré& s, int canal, int note) {
  s.shortMsg(midiPack(std::uint8_t(0x90 | canal), std::uint8_t(note), 100));
  std::vector<std::int16_t> pcm(2 * 44100 / 4);
  EXPECT_TRUE(s.rends(pcm.data(), int(pcm.size() / 2)));
  return pcm;
}

using SoundFontChoice = test::Dossier;

TEST_F(SoundFontChoice, TheChosenFileComesFirstThenTheSystemsInOrderAndFailuresAreSaid) {
  const std::string choisie = fichier("mine.sf2"), a = fichier("a.sf2"), b = fichier("b.sf2");
  std::vector<std::string> essais;
  auto charge = [&](const std::string& c) {
    essais.push_back(c);
    return true;
  };
  ChoixSoundFont choix = choisitSoundFont(choisie, {a, b}, charge);
  EXPECT_EQ(choix.chemin, choisie);
  EXPECT_TRUE(choix.messages.empty());
  essais.clear();
  choix = choisitSoundFont("", {(dossier / "absent.sf2").string(), a, b}, charge);
  EXPECT_EQ(choix.chemin, a);
  EXPECT_EQ(essais, std::vector<std::string>{a}) << "a missing file is not handed to the loader";
  EXPECT_TRUE(choix.messages.empty());
  EXPECT_EQ(soundFontsDuSystème().at(0), "/usr/share/sounds/sf2/default-GM.sf2");

  // A chosen file that fails or is gone is said, and the system's plays.
  for (const std::string& c : {fichier("broken.sf2"), (dossier / "gone.sf2").string()}) {
    choix = choisitSoundFont(c, {a}, [&](const std::string& x) { return x == a; });
    EXPECT_EQ(choix.chemin, a);
    EXPECT_EQ(choix.messages, (Messages{{son::kSoundFontChoisieAbsente.id, c}}));
  }
  // Nothing loaded: one message that says why, the loader's own words if it refused.
  choix = choisitSoundFont("", {(dossier / "x.sf2").string()}, charge);
  EXPECT_EQ(std::make_pair(choix.chemin, choix.messages),
            std::make_pair(std::string(), Messages{{son::kAucuneSoundFont.id, ""}}));
  essais.clear();
  fs::create_symlink(a, dossier / "default.sf2");
  choix = choisitSoundFont(
      b, {(dossier / "default.sf2").string(), a}, [&](const std::string& c) { return !charge(c); },
      [] { return std::string("not a SoundFont"); });
  EXPECT_EQ(
      std::make_pair(choix.chemin, choix.messages),
      std::make_pair(std::string(), Messages{{son::kSoundFontIllisible.id, "not a SoundFont"}}));
  EXPECT_EQ(essais, (std::vector<std::string>{b, (dossier / "default.sf2").string()}))
      << "a file reached through a link is tried once";
}

TEST(BuiltInSynthesizer, WithoutAudioDeviceItSaysSoOnceAndStillPlays) {
  OptionsSynthé o;
  o.pilotesAudio = {"no-such-driver"};
  SynthéIntégré s(o);
  EXPECT_FALSE(s.soundFont().empty());
  EXPECT_TRUE(s.piloteAudio().empty());
  ASSERT_EQ(s.messages().size(), 1u);
  EXPECT_EQ(s.messages()[0].id, son::kAucuneSortieAudio.id);
  s.shortMsg(midiPack(0xC0, 25));
  s.shortMsg(midiPack(0x90, 69, 100));
  EXPECT_GT(s.voixActives(), 0);
  EXPECT_NEAR(test::hzEntre(écoute(s, 600), 44100, 150, 600), 440.0, 4.4);
}

TEST(BuiltInSynthesizer, ResetSilencesEveryChannelAndBytesOutOfRangeDoNoHarm) {
  SynthéIntégré s(sansAudio());
  for (std::uint8_t canal = 0; canal < 16; ++canal)
    s.shortMsg(midiPack(std::uint8_t(0x90 | canal), 60, 100));
  s.shortMsg(midiPack(0xB0, 64, 127));  // sustain held on channel 0
  écoute(s, 50);
  EXPECT_GT(s.voixActives(), 0);
  s.reset();
  EXPECT_EQ(voixAprèsExtinction(s), 0);
  EXPECT_LT(test::crête(écoute(s, 50)), 1e-3);

  // Bytes out of range and system messages do no harm.
  s.shortMsg(0xFFFFFFFF);  // a system reset byte: not a channel message
  s.shortMsg(midiPack(0xF0, 0x7E, 0x7F));
  s.shortMsg(0);
  EXPECT_EQ(s.voixActives(), 0);
  s.shortMsg(midiPack(0x90, 0xBC, 0xFF));  // read on seven bits: note 60, velocity 127
  EXPECT_GT(s.voixActives(), 0);
  s.shortMsg(midiPack(0x80, 0xBC, 0));  // and released as note 60
  EXPECT_EQ(voixAprèsExtinction(s), 0);
}

TEST_F(SoundFontChoice, AMissingSoundFontOrAFileThatIsNoneLeavesASilentWorkingOutput) {
  OptionsSynthé o = sansAudio();
  o.soundFontsSystème = {};
  o.soundFont = "/nonexistent/piano.sf2";
  SynthéIntégré s(o);
  EXPECT_TRUE(s.soundFont().empty());
  EXPECT_EQ(s.messages(), (Messages{{son::kAucuneSoundFont.id, "/nonexistent/piano.sf2"}}));
  s.shortMsg(midiPack(0x90, 69, 100));
  s.reset();
  EXPECT_EQ(s.voixActives(), 0);
  EXPECT_EQ(test::crête(écoute(s, 100)), 0.0);
  // Refused with FluidSynth's words.
  o.soundFont = fichier("notes.sf2", "this is not a SoundFont");
  SynthéIntégré t(o);
  EXPECT_TRUE(t.soundFont().empty());
  ASSERT_EQ(t.messages().size(), 1u);
  EXPECT_EQ(t.messages()[0].id, son::kSoundFontIllisible.id);
  EXPECT_NE(t.messages()[0].détail.find("notes.sf2"), std::string::npos);
  t.shortMsg(midiPack(0x90, 60, 100));
}

TEST(BuiltInSynthesizer, TakesMessagesFromTwoThreadsAtOnce) {
  SynthéIntégré s(sansAudio());
  // The audio side renders all along in long buffers, as a driver does when it
  // catches up under load; the two players sound more voices than the
  // polyphony holds, so voices are stolen and ended while the others send.
  std::atomic<bool> fini{false};
  std::thread audio([&] {
    std::vector<std::int16_t> bloc(2 * 2048);
    while (!fini) {
      s.rends(bloc.data(), 2048);
      std::this_thread::yield();
    }
  });
  // Two players as fast as fingers go, a note each millisecond.
  auto joueVite = [&s](std::uint8_t canal) {
    for (int i = 0; i < 200; ++i) {
      const auto note = std::uint8_t(40 + i % 40);
      s.shortMsg(midiPack(std::uint8_t(0x90 | canal), note, 90));
      s.shortMsg(midiPack(std::uint8_t(0xE0 | canal), 0, std::uint8_t(i % 128)));
      s.shortMsg(midiPack(std::uint8_t(0x90 | canal), note, 0));
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  };
  std::thread a(joueVite, 0), b(joueVite, 1);
  a.join();
  b.join();
  fini = true;
  audio.join();
  EXPECT_EQ(voixAprèsExtinction(s), 0) << "every Note On found its Note Off";
}

// Opened on the user's instrument, it sounds from its first note as one told
// that program by a Program Change; the drums' channel keeps its kit.
TEST(BuiltInSynthesizer, OpenedOnAProgramItSoundsAsAfterItsProgramChange) {
  for (const int programme : {25, 40}) {
    SCOPED_TRACE(programme);
    SynthéIntégré surLeProgramme(sansAudio(programme)), changé(sansAudio()), piano(sansAudio());
    ASSERT_FALSE(surLeProgramme.soundFont().empty()) << "no SoundFont on this machine";
    changé.shortMsg(midiPack(0xC0, std::uint8_t(programme)));
    const auto son = joue(surLeProgramme, 0, 52);
    EXPECT_EQ(son, joue(changé, 0, 52));
    EXPECT_NE(son, joue(piano, 0, 52)) << "the piano sounds otherwise";
  }
  SynthéIntégré guitare(sansAudio(25)), piano(sansAudio());
  EXPECT_EQ(joue(guitare, 9, 38), joue(piano, 9, 38));
}

bool intégré(const OuvertureSortie& o) {
  return dynamic_cast<SynthéIntégré*>(o.sortie.get()) != nullptr;
}

TEST(Devices, TheBuiltInSynthesizerIsOutputZeroAndWhatIsNotThereStaysQuiet) {
  const auto en = nomsSortiesMidi(kLangAnglais);
  ASSERT_FALSE(en.empty());
  EXPECT_EQ(en[0], "Built-in synthesizer");
  EXPECT_EQ(nomsSortiesMidi(kLangFrançais)[0], "Synthétiseur intégré");
  EXPECT_EQ(en.size(), portsSortieAlsa().size() + 1);
  EXPECT_EQ(nomsEntréesMidi(), portsEntréeAlsa());

  // Outputs 0 and -1 are the built-in synthesizer, and so is a port that fails.
  for (int device : {0, -1}) {
    const OuvertureSortie o = ouvreSortieMidi(device, sansAudio());
    EXPECT_TRUE(intégré(o)) << device;
    EXPECT_TRUE(o.messages.empty()) << device;
  }
  const OuvertureSortie o = ouvreSortieMidi(5000, sansAudio());
  EXPECT_TRUE(intégré(o));
  ASSERT_FALSE(o.messages.empty());
  EXPECT_EQ(o.messages[0].id, son::kSortieMidiImpossible.id);
  EXPECT_FALSE(o.messages[0].détail.empty());
  o.sortie->shortMsg(midiPack(0x90, 60, 100));

  // An ALSA port that is not there stays closed and takes messages silently.
  PortAlsaSortie sortie(5000);
  EXPECT_FALSE(sortie.ouvert());
  EXPECT_FALSE(sortie.erreur().empty());
  sortie.shortMsg(midiPack(0x90, 60, 100));
  sortie.reset();
  PortAlsaEntrée entrée(5000);
  EXPECT_FALSE(entrée.ouvert());
  EXPECT_FALSE(entrée.erreur().empty());
  entrée.démarre([](std::uint32_t) {});
  entrée.arrête();
  // With no input on the machine, nothing opens, quietly; with some, a number past the list
  // says so.
  const bool aucune = portsEntréeAlsa().empty();
  const OuvertureEntrée e = ouvreEntréeMidi(aucune ? 0 : 5000);
  EXPECT_EQ(e.entrée, nullptr);
  EXPECT_EQ(e.messages.size(), aucune ? 0u : 1u);
  if (!aucune) {
    EXPECT_EQ(e.messages[0].id, son::kEntréeMidiImpossible.id);
  }
}

// 0 and unknown handles are no output; closing a handle leaves the output
// alive for whoever holds it.
TEST(MidiHandles, AClosedHandleKeepsARunningHolderAlive) {
  EXPECT_EQ(midiHandleSortie(0), nullptr);
  EXPECT_EQ(midiHandleSortie(-5), nullptr);
  EXPECT_EQ(midiHandleOuvrir(nullptr), 0);
  std::weak_ptr<SortieJournal> témoin;
  std::shared_ptr<MidiOut> tenue;
  {
    auto sortie = std::make_shared<SortieJournal>();
    témoin = sortie;
    const std::int32_t h = midiHandleOuvrir(sortie);
    sortie.reset();
    tenue = midiHandleSortie(h);  // what the player takes at its start
    midiHandleFermer(h);
    midiHandleFermer(h);  // twice is harmless
    EXPECT_EQ(midiHandleSortie(h), nullptr);
  }
  ASSERT_FALSE(témoin.expired());
  tenue->shortMsg(midiPack(0x90, 60, 100));  // still plays
  EXPECT_EQ(témoin.lock()->messages().size(), 1u);
  tenue.reset();
  EXPECT_TRUE(témoin.expired()) << "the table keeps nothing after the close";
}

TEST(LogOutput, ALineHasTheTimeWithThreeDecimalsThenTheBytesAndTimesCountFromTheStart) {
  EXPECT_EQ(ligneJournal({1041.6666, midiPack(0x90, 0x45, 0x7F)}), "1041.667 90 45 7F");
  EXPECT_EQ(ligneJournal({0, midiPack(0xC0, 25)}), "0.000 C0 19");      // program: 2 bytes
  EXPECT_EQ(ligneJournal({2.5, midiPack(0xD3, 0x40)}), "2.500 D3 40");  // pressure: 2 bytes
  EXPECT_EQ(ligneJournal({12, midiPack(0xEF, 0x00, 0x60)}), "12.000 EF 00 60");
  EXPECT_EQ(ligneJournal({-0.0001, midiPack(0x80, 0x3C, 0x00)}), "0.000 80 3C 00");
  EXPECT_EQ(ligneJournal({0.0005, midiPack(0x90, 1, 2)}), "0.001 90 01 02");

  // Times count from the first message or from the start given; resets are not listed.
  SortieJournal j;
  j.reset();
  j.shortMsg(midiPack(0x90, 60, 100));
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  j.shortMsg(midiPack(0x90, 60, 0));
  j.reset();
  EXPECT_EQ(j.resets(), 2);
  MessagesDates m = j.messages();
  ASSERT_EQ(m.size(), 2u);
  EXPECT_EQ(m[0].ms, 0.0);
  EXPECT_GE(m[1].ms, 19.0);
  EXPECT_EQ(m[1].message, midiPack(0x90, 60, 0));
  j.efface();
  j.setDébut(SortieJournal::Horloge::now() - std::chrono::milliseconds(100));
  j.shortMsg(midiPack(0xC0, 25));
  m = j.messages();
  ASSERT_EQ(m.size(), 1u);
  EXPECT_GE(m[0].ms, 100.0);
}

TEST(LogOutput, TwoThreadsAtOnceLoseNothingAndTheListenerSeesTheListsOrder) {
  SortieJournal j;
  MessagesDates vus;
  j.setEcouteur([&vus](const MessageDate& m) { vus.push_back(m); });
  auto envoie = [&j](std::uint8_t canal) {
    for (int i = 0; i < 1000; ++i)
      j.shortMsg(
          midiPack(std::uint8_t(0x90 | canal), std::uint8_t(i % 128), std::uint8_t(i / 128)));
  };
  std::thread a(envoie, 0), b(envoie, 1);
  a.join();
  b.join();
  const MessagesDates m = j.messages();
  ASSERT_EQ(m.size(), 2000u);
  EXPECT_EQ(vus, m);
  // Each thread's messages keep their order, and time never goes back.
  int suivant[2] = {0, 0};
  for (std::size_t i = 0; i < m.size(); ++i) {
    const int canal = midiStatus(m[i].message) & 0x0F;
    EXPECT_EQ(midiData1(m[i].message) + 128 * midiData2(m[i].message), suivant[canal]++);
    if (i > 0) {
      EXPECT_GE(m[i].ms, m[i - 1].ms);
    }
  }
}

}  // namespace
}  // namespace vt
