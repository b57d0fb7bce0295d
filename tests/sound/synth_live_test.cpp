// The built-in synthesizer as the program opens it: which SoundFont it takes
// and what it says when there is none or no audio device; it keeps working
// either way, from two threads at once, and its reset silences it.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "sound/midi_out.h"
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

TEST_F(SoundFontChoice, TheChosenFileComesFirstThenTheSystemsInOrder) {
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
}

TEST_F(SoundFontChoice, AChosenFileThatFailsOrIsGoneIsSaidAndTheSystemsPlays) {
  const std::string a = fichier("a.sf2");
  for (const std::string& choisie : {fichier("broken.sf2"), (dossier / "gone.sf2").string()}) {
    const ChoixSoundFont choix =
        choisitSoundFont(choisie, {a}, [&](const std::string& c) { return c == a; });
    EXPECT_EQ(choix.chemin, a);
    EXPECT_EQ(choix.messages, (Messages{{son::kSoundFontChoisieAbsente.id, choisie}}));
  }
}

TEST_F(SoundFontChoice, NothingLoadedGivesOneMessageThatSaysWhy) {
  ChoixSoundFont choix =
      choisitSoundFont("", {(dossier / "x.sf2").string()}, [](const std::string&) { return true; });
  EXPECT_TRUE(choix.chemin.empty());
  EXPECT_EQ(choix.messages, (Messages{{son::kAucuneSoundFont.id, ""}}));
  // Files that the loader refuses: its own words are the detail.
  choix = choisitSoundFont(
      fichier("b.sf2"), {fichier("a.sf2")}, [](const std::string&) { return false; },
      [] { return std::string("not a SoundFont"); });
  EXPECT_TRUE(choix.chemin.empty());
  EXPECT_EQ(choix.messages, (Messages{{son::kSoundFontIllisible.id, "not a SoundFont"}}));
}

TEST_F(SoundFontChoice, AFileReachedThroughALinkIsTriedOnce) {
  const std::string a = fichier("a.sf2");
  fs::create_symlink(a, dossier / "default.sf2");
  int essais = 0;
  choisitSoundFont("", {(dossier / "default.sf2").string(), a}, [&](const std::string&) {
    ++essais;
    return false;
  });
  EXPECT_EQ(essais, 1);
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

TEST(BuiltInSynthesizer, ResetSilencesEveryChannel) {
  SynthéIntégré s(sansAudio());
  for (std::uint8_t canal = 0; canal < 16; ++canal)
    s.shortMsg(midiPack(std::uint8_t(0x90 | canal), 60, 100));
  s.shortMsg(midiPack(0xB0, 64, 127));  // sustain held on channel 0
  écoute(s, 50);
  EXPECT_GT(s.voixActives(), 0);
  s.reset();
  EXPECT_EQ(voixAprèsExtinction(s), 0);
  EXPECT_LT(test::crête(écoute(s, 50)), 1e-3);
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
  // The audio side pulls all along, as a driver would.
  std::atomic<bool> fini{false};
  std::thread audio([&] {
    std::vector<std::int16_t> bloc(2 * 64);
    while (!fini)
      s.rends(bloc.data(), 64);
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

TEST(BuiltInSynthesizer, BytesOutOfRangeAndSystemMessagesDoNoHarm) {
  SynthéIntégré s(sansAudio());
  s.shortMsg(0xFFFFFFFF);  // a system reset byte: not a channel message
  s.shortMsg(midiPack(0xF0, 0x7E, 0x7F));
  s.shortMsg(0);
  EXPECT_EQ(s.voixActives(), 0);
  s.shortMsg(midiPack(0x90, 0xBC, 0xFF));  // read on seven bits: note 60, velocity 127
  EXPECT_GT(s.voixActives(), 0);
  s.shortMsg(midiPack(0x80, 0xBC, 0));  // and released as note 60
  EXPECT_EQ(voixAprèsExtinction(s), 0);
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

}  // namespace
}  // namespace vt
