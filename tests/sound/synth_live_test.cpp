// The built-in synthesizer as the program opens it: which SoundFont it takes
// and what it says when there is none or no audio device; it keeps working
// either way, from two threads at once, and its reset silences it.
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

#include "sound/midi_out.h"
#include "sound/soundfont.h"
#include "sound/synthe_integre.h"
#include "sound_test_util.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

// No audio driver is asked for: the tests pull the sound themselves.
OptionsSynthé sansAudio() {
  OptionsSynthé o;
  o.pilotesAudio = {};
  return o;
}

std::vector<float> écoute(SynthéIntégré& s, double ms) {
  std::vector<std::int16_t> pcm(2 * std::size_t(ms * 44.1));
  EXPECT_TRUE(s.rends(pcm.data(), int(pcm.size() / 2)));
  return test::mono(pcm);
}

class Dossier : public ::testing::Test {
 protected:
  void SetUp() override {
    dossier = fs::temp_directory_path() /
              ("vt-sf-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dossier);
    fs::create_directories(dossier);
  }
  void TearDown() override { fs::remove_all(dossier); }
  std::string fichier(const std::string& nom, const std::string& contenu = "x") const {
    std::ofstream(dossier / nom) << contenu;
    return (dossier / nom).string();
  }
  fs::path dossier;
};

// ---- The choice of the SoundFont --------------------------------------------------

using SoundFontChoice = Dossier;

TEST_F(SoundFontChoice, TheChosenFileComesFirstThenTheSystemsInOrder) {
  const std::string choisie = fichier("mine.sf2");
  const std::string a = fichier("a.sf2");
  const std::string b = fichier("b.sf2");
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
}

TEST_F(SoundFontChoice, AChosenFileThatFailsIsSaidAndTheSystemsPlays) {
  const std::string choisie = fichier("broken.sf2");
  const std::string a = fichier("a.sf2");
  const ChoixSoundFont choix =
      choisitSoundFont(choisie, {a}, [&](const std::string& c) { return c == a; });
  EXPECT_EQ(choix.chemin, a);
  EXPECT_EQ(choix.messages, (std::vector<MessageSon>{{son::kSoundFontChoisieAbsente.id, choisie}}));

  const std::string absente = (dossier / "gone.sf2").string();
  const ChoixSoundFont choix2 =
      choisitSoundFont(absente, {a}, [](const std::string&) { return true; });
  EXPECT_EQ(choix2.chemin, a);
  EXPECT_EQ(choix2.messages,
            (std::vector<MessageSon>{{son::kSoundFontChoisieAbsente.id, absente}}));
}

TEST_F(SoundFontChoice, NothingLoadedGivesOneMessageThatSaysWhy) {
  // No file at all.
  ChoixSoundFont choix =
      choisitSoundFont("", {(dossier / "x.sf2").string()}, [](const std::string&) { return true; });
  EXPECT_TRUE(choix.chemin.empty());
  EXPECT_EQ(choix.messages, (std::vector<MessageSon>{{son::kAucuneSoundFont.id, ""}}));

  // Files that the loader refuses: its own words are the detail.
  const std::string a = fichier("a.sf2");
  choix = choisitSoundFont(
      fichier("b.sf2"), {a}, [](const std::string&) { return false; },
      [] { return std::string("not a SoundFont"); });
  EXPECT_TRUE(choix.chemin.empty());
  EXPECT_EQ(choix.messages,
            (std::vector<MessageSon>{{son::kSoundFontIllisible.id, "not a SoundFont"}}));
}

TEST_F(SoundFontChoice, AFileReachedThroughALinkIsTriedOnce) {
  const std::string a = fichier("a.sf2");
  const fs::path lien = dossier / "default.sf2";
  fs::create_symlink(a, lien);
  int essais = 0;
  choisitSoundFont("", {lien.string(), a}, [&](const std::string&) {
    ++essais;
    return false;
  });
  EXPECT_EQ(essais, 1);
}

TEST(SoundFontChoice2, TheSystemsListStartsWithTheDebianDefault) {
  const auto liste = soundFontsDuSystème();
  ASSERT_FALSE(liste.empty());
  EXPECT_EQ(liste.front(), "/usr/share/sounds/sf2/default-GM.sf2");
}

// ---- The synthesizer --------------------------------------------------------------

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
  const auto son = écoute(s, 600);
  EXPECT_NEAR(test::frequenceFondamentale(test::tranche(son, 44100, 150, 600), 44100), 440.0, 4.4);
}

TEST(BuiltInSynthesizer, ResetSilencesEveryChannel) {
  SynthéIntégré s(sansAudio());
  for (std::uint8_t canal = 0; canal < 16; ++canal)
    s.shortMsg(midiPack(std::uint8_t(0x90 | canal), 60, 100));
  s.shortMsg(midiPack(0xB0, 64, 127));  // sustain held on channel 0
  écoute(s, 50);
  EXPECT_GT(s.voixActives(), 0);
  s.reset();
  // Released notes die away: the voices end within a few seconds.
  for (int i = 0; i < 40 && s.voixActives() > 0; ++i)
    écoute(s, 100);
  EXPECT_EQ(s.voixActives(), 0);
  EXPECT_LT(test::crête(écoute(s, 50)), 1e-3);
}

TEST(BuiltInSynthesizer, AMissingSoundFontGivesTheMessageAndASilentWorkingOutput) {
  OptionsSynthé o = sansAudio();
  o.soundFont = "/nonexistent/piano.sf2";
  o.soundFontsSystème = {};
  SynthéIntégré s(o);
  EXPECT_TRUE(s.soundFont().empty());
  EXPECT_EQ(s.messages(),
            (std::vector<MessageSon>{{son::kAucuneSoundFont.id, "/nonexistent/piano.sf2"}}));
  s.shortMsg(midiPack(0x90, 69, 100));
  s.reset();
  EXPECT_EQ(s.voixActives(), 0);
  EXPECT_EQ(test::crête(écoute(s, 100)), 0.0);
}

TEST_F(Dossier, AFileThatIsNoSoundFontIsRefusedWithFluidSynthsWords) {
  OptionsSynthé o = sansAudio();
  o.soundFont = fichier("notes.sf2", "this is not a SoundFont");
  o.soundFontsSystème = {};
  SynthéIntégré s(o);
  EXPECT_TRUE(s.soundFont().empty());
  ASSERT_EQ(s.messages().size(), 1u);
  EXPECT_EQ(s.messages()[0].id, son::kSoundFontIllisible.id);
  EXPECT_NE(s.messages()[0].détail.find("notes.sf2"), std::string::npos);
  s.shortMsg(midiPack(0x90, 60, 100));
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
  auto joue = [&s](std::uint8_t canal) {
    for (int i = 0; i < 200; ++i) {
      const auto note = std::uint8_t(40 + i % 40);
      s.shortMsg(midiPack(std::uint8_t(0x90 | canal), note, 90));
      s.shortMsg(midiPack(std::uint8_t(0xE0 | canal), 0, std::uint8_t(i % 128)));
      s.shortMsg(midiPack(std::uint8_t(0x90 | canal), note, 0));
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  };
  std::thread a(joue, 0), b(joue, 1);
  a.join();
  b.join();
  fini = true;
  audio.join();
  for (int i = 0; i < 40 && s.voixActives() > 0; ++i)
    écoute(s, 100);
  EXPECT_EQ(s.voixActives(), 0) << "every Note On found its Note Off";
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
  for (int i = 0; i < 40 && s.voixActives() > 0; ++i)
    écoute(s, 100);
  EXPECT_EQ(s.voixActives(), 0);
}

}  // namespace
}  // namespace vt
