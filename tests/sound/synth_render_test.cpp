// Offline rendering through FluidSynth, listened to: the pitch of a note, a
// pitch-wheel bend, where a note starts, the length with its tail, silence,
// the WAV file and its failures, and a missing SoundFont.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

#include "sound/midi_out.h"
#include "sound/rendu_hors_ligne.h"
#include "sound_test_util.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kSteel = midiPack(0xC0, 25);  // Acoustic Guitar (steel)
constexpr std::uint32_t kLa440 = midiPack(0x90, 69, 100);
constexpr std::uint32_t kLa440Off = midiPack(0x90, 69, 0);

// A note of one second, and its rendering with the system's SoundFont.
const MessagesDates kUneSeconde = {{0, kSteel}, {0, kLa440}, {1000, kLa440Off}};

RenduPcm rendAvecSoundFont(const MessagesDates& m, double traîneMs = 2000) {
  OptionsRendu o;
  o.traîneMs = traîneMs;
  RenduPcm pcm = rendrePcm(m, o);
  EXPECT_FALSE(pcm.soundFont.empty()) << "no General MIDI SoundFont: scripts/setup installs one";
  return pcm;
}

double hz(const RenduPcm& pcm, double débutMs, double finMs) {
  return test::frequenceFondamentale(
      test::tranche(test::mono(pcm.échantillons), pcm.fréquence, débutMs, finMs), pcm.fréquence);
}

class Temporaire : public ::testing::Test {
 protected:
  void SetUp() override {
    dossier = fs::temp_directory_path() /
              ("vt-son-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(dossier);
    fs::create_directories(dossier);
  }
  void TearDown() override { fs::remove_all(dossier); }
  std::vector<std::string> contenu() const {
    std::vector<std::string> noms;
    for (const auto& e : fs::directory_iterator(dossier))
      noms.push_back(e.path().filename().string());
    return noms;
  }
  fs::path dossier;
};

std::vector<std::uint8_t> litFichier(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
std::uint32_t lit32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return std::uint32_t(b[at]) | std::uint32_t(b[at + 1]) << 8 | std::uint32_t(b[at + 2]) << 16 |
         std::uint32_t(b[at + 3]) << 24;
}
std::uint16_t lit16(const std::vector<std::uint8_t>& b, std::size_t at) {
  return std::uint16_t(b[at] | b[at + 1] << 8);
}

// ---- Rendering ------------------------------------------------------------------

TEST(OfflineRendering, APitchWheelMessageRaisesThePitchFromItsTime) {
  MessagesDates m = kUneSeconde;
  // En 00 60: the wheel at 0x3000, half way up; the default range of two
  // semitones makes it one semitone: A#4.
  m.push_back({500, midiPack(0xE0, 0x00, 0x60)});
  const RenduPcm pcm = rendAvecSoundFont(m);
  const double avant = hz(pcm, 150, 480);
  const double après = hz(pcm, 560, 950);
  EXPECT_NEAR(avant, 440.0, 4.4);
  EXPECT_NEAR(après, 466.16, 4.7);
}

TEST(OfflineRendering, ANoteStartsAtItsTimeAndTheLengthIsTheLastMessagePlusTheTail) {
  // The sample itself may begin with a few quiet frames: the note at 0 gives
  // the reference.
  const RenduPcm àZéro = rendAvecSoundFont({{0, kSteel}, {0, kLa440}, {400, kLa440Off}}, 100);
  const RenduPcm pcm = rendAvecSoundFont({{0, kSteel}, {500, kLa440}, {900, kLa440Off}}, 1000);
  const auto son = test::mono(pcm.échantillons);
  const double référence = test::débutDuSon(test::mono(àZéro.échantillons), pcm.fréquence, 1e-6f);
  ASSERT_GE(référence, 0);
  EXPECT_LT(référence, 20);
  // Nothing before the note, and its start within FluidSynth's 0.73 ms of 500 ms.
  EXPECT_EQ(test::crête(test::tranche(son, pcm.fréquence, 0, 499)), 0.0);
  const double début = test::débutDuSon(son, pcm.fréquence, 1e-6f) - référence;
  EXPECT_GE(début, 499.2);
  EXPECT_LE(début, 500.8);
  EXPECT_NEAR(double(pcm.trames()), 1.9 * 44100, 32);
}

TEST(OfflineRendering, ALoudBandIsRoundedOffBelowFullScaleNotClipped) {
  // Two guitars and a bass, every note at full velocity with reverb and
  // chorus: six-string chords struck together on two channels.
  MessagesDates m;
  for (int canal = 0; canal < 3; ++canal) {
    m.push_back({0, midiPack(0xC0 + canal, canal == 2 ? 33 : 25)});
    m.push_back({0, midiPack(0xB0 + canal, 91, 127)});
    m.push_back({0, midiPack(0xB0 + canal, 93, 127)});
  }
  for (int coup = 0; coup < 4; ++coup) {
    const double t = coup * 250.0;
    for (int canal = 0; canal < 2; ++canal)
      for (const int note : {40, 47, 52, 55, 59, 64})
        m.push_back({t, midiPack(0x90 + canal, note, 127)});
    m.push_back({t, midiPack(0x92, 28, 127)});
  }
  const RenduPcm pcm = rendAvecSoundFont(m, 1500);
  ASSERT_FALSE(pcm.échantillons.empty());
  int crête = 0;
  for (const std::int16_t e : pcm.échantillons)
    crête = std::max(crête, std::abs(int(e)));
  EXPECT_GT(crête, 24576) << "loud enough to reach the rounding";
  EXPECT_LT(crête, 32767) << "no sample cut flat at full scale";
}

TEST(OfflineRendering, WithoutANoteThereIsSilence) {
  for (const MessagesDates& m :
       {MessagesDates{}, MessagesDates{{0, kSteel}, {300, midiPack(0xB0, 7, 100)}}}) {
    const RenduPcm pcm = rendAvecSoundFont(m, 500);
    ASSERT_GT(pcm.trames(), 0u);
    EXPECT_EQ(test::crête(test::mono(pcm.échantillons)), 0.0);
  }
}

TEST(OfflineRendering, MessagesOutOfOrderAndBeforeZeroAreTakenInTimeOrder) {
  // The Note Off written first still comes after the Note On; a time below 0
  // is the start.
  const MessagesDates m = {{600, kLa440Off}, {-50, kSteel}, {0, kLa440}};
  const RenduPcm pcm = rendAvecSoundFont(m, 400);
  EXPECT_NEAR(hz(pcm, 150, 550), 440.0, 4.4);
  EXPECT_NEAR(double(pcm.trames()), 1.0 * 44100, 32);
}

TEST(OfflineRendering, AMissingSoundFontGivesItsMessageAndSilenceOfTheRightLength) {
  OptionsRendu o;
  o.soundFont = "/nonexistent/piano.sf2";
  o.soundFontsSystème = {};
  o.traîneMs = 0;
  const RenduPcm pcm = rendrePcm(kUneSeconde, o);
  EXPECT_TRUE(pcm.soundFont.empty());
  ASSERT_EQ(pcm.messages.size(), 1u);
  EXPECT_EQ(pcm.messages[0].id, son::kAucuneSoundFont.id);
  EXPECT_EQ(pcm.messages[0].détail, "/nonexistent/piano.sf2");
  EXPECT_NEAR(double(pcm.trames()), 44100, 32);
  EXPECT_EQ(test::crête(test::mono(pcm.échantillons)), 0.0);
}

// ---- WAV files -------------------------------------------------------------------

using WavFile = Temporaire;

TEST_F(WavFile, HoldsTheRenderedSamplesOfA440BehindACanonicalHeader) {
  const fs::path chemin = dossier / "la.wav";
  const RésultatWav r = rendreWav(kUneSeconde, chemin.string());
  ASSERT_TRUE(r.ok);
  EXPECT_TRUE(r.messages.empty());
  const auto b = litFichier(chemin);
  ASSERT_GT(b.size(), 44u);
  EXPECT_EQ(std::memcmp(b.data(), "RIFF", 4), 0);
  EXPECT_EQ(lit32(b, 4), b.size() - 8);
  EXPECT_EQ(std::memcmp(&b[8], "WAVEfmt ", 8), 0);
  EXPECT_EQ(lit32(b, 16), 16u);
  EXPECT_EQ(lit16(b, 20), 1);  // PCM
  EXPECT_EQ(lit16(b, 22), 2);
  EXPECT_EQ(lit32(b, 24), 44100u);
  EXPECT_EQ(lit32(b, 28), 44100u * 4);
  EXPECT_EQ(lit16(b, 32), 4);
  EXPECT_EQ(lit16(b, 34), 16);
  EXPECT_EQ(std::memcmp(&b[36], "data", 4), 0);
  EXPECT_EQ(lit32(b, 40), b.size() - 44);

  // The same samples as the rendering in memory, which sounds A4 at 440 Hz in
  // a steady stretch after the attack, loud enough to be heard.
  const RenduPcm pcm = rendAvecSoundFont(kUneSeconde);
  EXPECT_TRUE(pcm.messages.empty());
  EXPECT_EQ(pcm.fréquence, 44100);
  EXPECT_NEAR(hz(pcm, 200, 800), 440.0, 4.4);
  EXPECT_GT(test::rms(test::tranche(test::mono(pcm.échantillons), pcm.fréquence, 100, 900)), 0.01);
  ASSERT_EQ(b.size() - 44, pcm.échantillons.size() * 2);
  std::size_t différents = 0;
  for (std::size_t i = 0; i < pcm.échantillons.size(); ++i)
    différents += std::int16_t(lit16(b, 44 + 2 * i)) != pcm.échantillons[i];
  EXPECT_EQ(différents, 0u);
  EXPECT_EQ(contenu(), std::vector<std::string>{"la.wav"}) << "no temporary file is left";
}

// A folder that does not exist, or a folder where the file should go (all is
// written, then the renaming fails): the message, and no partial file.
TEST_F(WavFile, AFileThatCannotBeWrittenGivesTheMessageAndNoPartialFile) {
  const fs::path absent = dossier / "absent" / "la.wav";
  const fs::path occupé = dossier / "la.wav";
  fs::create_directory(occupé);
  for (const fs::path& chemin : {absent, occupé}) {
    SCOPED_TRACE(chemin);
    const RésultatWav r = rendreWav(kUneSeconde, chemin.string());
    EXPECT_FALSE(r.ok);
    ASSERT_FALSE(r.messages.empty());
    EXPECT_EQ(r.messages[0].id, son::kEcritureImpossible.id);
    EXPECT_NE(r.messages[0].détail.find("la.wav"), std::string::npos);
    EXPECT_EQ(contenu(), std::vector<std::string>{"la.wav"});  // the folder alone
  }
  EXPECT_TRUE(fs::is_directory(occupé));
}

TEST_F(WavFile, WithoutASoundFontNothingIsWrittenAndAnEarlierFileStays) {
  const fs::path chemin = dossier / "la.wav";
  { std::ofstream(chemin) << "earlier"; }
  OptionsRendu o;
  o.soundFont = (dossier / "none.sf2").string();
  o.soundFontsSystème = {};
  const RésultatWav r = rendreWav(kUneSeconde, chemin.string(), o);
  EXPECT_FALSE(r.ok);
  ASSERT_EQ(r.messages.size(), 1u);
  EXPECT_EQ(r.messages[0].id, son::kAucuneSoundFont.id);
  const auto b = litFichier(chemin);
  EXPECT_EQ(std::string(b.begin(), b.end()), "earlier");
  EXPECT_EQ(contenu(), std::vector<std::string>{"la.wav"});
}

// The progress goes up to the whole, block by block; stopped at any point,
// nothing is written and an earlier file stays.
TEST_F(WavFile, TheProgressRisesToTheWholeAndAStopLeavesTheEarlierFile) {
  const fs::path chemin = dossier / "la.wav";
  std::vector<double> étapes;
  OptionsRendu o;
  o.avancement = [&étapes](double f) {
    étapes.push_back(f);
    return true;
  };
  ASSERT_TRUE(rendreWav(kUneSeconde, chemin.string(), o).ok);
  ASSERT_GT(étapes.size(), 10u);
  EXPECT_TRUE(std::is_sorted(étapes.begin(), étapes.end()));
  EXPECT_GT(étapes.front(), 0.0);
  EXPECT_EQ(étapes.back(), 1.0);
  const auto avant = litFichier(chemin);
  for (const std::size_t arrêt : {std::size_t{1}, étapes.size() / 2, étapes.size()}) {
    SCOPED_TRACE(arrêt);
    std::size_t appels = 0;
    o.avancement = [&appels, arrêt](double) { return ++appels < arrêt; };
    const RésultatWav r = rendreWav(kUneSeconde, chemin.string(), o);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.annulé);
    EXPECT_TRUE(r.messages.empty());
    EXPECT_EQ(appels, arrêt) << "no block after the stop";
    EXPECT_EQ(litFichier(chemin), avant);
    EXPECT_EQ(contenu(), std::vector<std::string>{"la.wav"});
  }
}

}  // namespace
}  // namespace vt
