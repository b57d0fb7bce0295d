// Offline rendering through FluidSynth, listened to, of messages and of a document
// through the player's walk; the WAV file written, and WAV files read in every encoding
// or refused with their message.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "player_test_util.h"
#include "sound/lecture_wav.h"
#include "sound/midi_out.h"
#include "sound/rendu_hors_ligne.h"
#include "sound_test_util.h"

namespace vt {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kSteel = midiPack(0xC0, 25);  // Acoustic Guitar (steel)
constexpr std::uint32_t kLa440 = midiPack(0x90, 69, 100);
constexpr std::uint32_t kLa440Off = midiPack(0x90, 69, 0);
const MessagesDates kUneSeconde = {{0, kSteel}, {0, kLa440}, {1000, kLa440Off}};

RenduPcm rendAvecSoundFont(const MessagesDates& m, double traîneMs = 2000) {
  OptionsRendu o;
  o.traîneMs = traîneMs;
  RenduPcm pcm = rendrePcm(m, o);
  EXPECT_FALSE(pcm.soundFont.empty()) << "no General MIDI SoundFont: scripts/setup installs one";
  return pcm;
}
double hz(const RenduPcm& pcm, double débutMs, double finMs) {
  return test::hzEntre(test::mono(pcm.échantillons), pcm.fréquence, débutMs, finMs);
}
std::vector<std::uint8_t> litFichier(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}
std::uint32_t lit32(const std::vector<std::uint8_t>& b, std::size_t at) {
  return std::uint32_t(b[at]) | std::uint32_t(b[at + 1]) << 8 | std::uint32_t(b[at + 2]) << 16 |
         std::uint32_t(b[at + 3]) << 24;
}

TEST(OfflineRendering, ANoteStartsAtItsTimeInTimeOrderTheLengthIsTheLastMessagePlusTheTail) {
  // The sample may begin with a few quiet frames: the note at 0 is the reference.
  const RenduPcm àZéro = rendAvecSoundFont({{0, kSteel}, {0, kLa440}, {400, kLa440Off}}, 100);
  const RenduPcm pcm = rendAvecSoundFont({{0, kSteel}, {500, kLa440}, {900, kLa440Off}}, 1000);
  const auto son = test::mono(pcm.échantillons);
  const double référence = test::débutDuSon(test::mono(àZéro.échantillons), pcm.fréquence, 1e-6f);
  ASSERT_GE(référence, 0);
  EXPECT_LT(référence, 20);
  // Nothing before the note, and its start within FluidSynth's 0.73 ms of 500 ms.
  EXPECT_EQ(test::crête(test::tranche(son, pcm.fréquence, 0, 499)), 0.0);
  EXPECT_NEAR(test::débutDuSon(son, pcm.fréquence, 1e-6f) - référence, 500, 0.8);
  EXPECT_NEAR(double(pcm.trames()), 1.9 * 44100, 32);

  // Silence without a note; the Note Off written first still comes after the Note On; a
  // time below 0 is the start.
  for (const MessagesDates& m :
       {MessagesDates{}, MessagesDates{{0, kSteel}, {300, midiPack(0xB0, 7, 100)}}}) {
    const RenduPcm silence = rendAvecSoundFont(m, 500);
    ASSERT_GT(silence.trames(), 0u);
    EXPECT_EQ(test::crête(test::mono(silence.échantillons)), 0.0);
  }
  const RenduPcm désordre = rendAvecSoundFont({{600, kLa440Off}, {-50, kSteel}, {0, kLa440}}, 400);
  EXPECT_NEAR(hz(désordre, 150, 550), 440.0, 4.4);
  EXPECT_NEAR(double(désordre.trames()), 1.0 * 44100, 32);

  // A missing SoundFont gives its message, and silence of the right length.
  OptionsRendu o;
  o.soundFont = "/nonexistent/piano.sf2";
  o.soundFontsSystème = {};
  o.traîneMs = 0;
  const RenduPcm sans = rendrePcm(kUneSeconde, o);
  EXPECT_TRUE(sans.soundFont.empty());
  EXPECT_EQ(sans.messages,
            (std::vector<MessageSon>{{son::kAucuneSoundFont.id, "/nonexistent/piano.sf2"}}));
  EXPECT_NEAR(double(sans.trames()), 44100, 32);
  EXPECT_EQ(test::crête(test::mono(sans.échantillons)), 0.0);
}

TEST(OfflineRendering, ALoudBandIsRoundedOffBelowFullScaleNotClipped) {
  // Two guitars and a bass at full velocity with reverb and chorus, six-string chords.
  MessagesDates m;
  for (int canal = 0; canal < 3; ++canal) {
    m.push_back({0, midiPack(0xC0 + canal, canal == 2 ? 33 : 25)});
    m.push_back({0, midiPack(0xB0 + canal, 91, 127)});
    m.push_back({0, midiPack(0xB0 + canal, 93, 127)});
  }
  for (int coup = 0; coup < 4; ++coup) {
    for (int canal = 0; canal < 2; ++canal)
      for (const int note : {40, 47, 52, 55, 59, 64})
        m.push_back({coup * 250.0, midiPack(0x90 + canal, note, 127)});
    m.push_back({coup * 250.0, midiPack(0x92, 28, 127)});
  }
  const RenduPcm pcm = rendAvecSoundFont(m, 1500);
  ASSERT_FALSE(pcm.échantillons.empty());
  const auto [bas, haut] = std::minmax_element(pcm.échantillons.begin(), pcm.échantillons.end());
  const int crête = std::max(-int(*bas), int(*haut));
  EXPECT_GT(crête, 24576) << "loud enough to reach the rounding";
  EXPECT_LT(crête, 32767) << "no sample cut flat at full scale";
}

// The player's walk heard: a document rendered offline and the pitch of what sounds.
double hertz(double midi) {
  return 440.0 * std::pow(2.0, (midi - 69) / 12.0);
}

// At 120 a bar lasts two seconds; each sounding bar is followed by a silent one so that no
// tail reaches the next.
const std::vector<float>& rendu() {
  static const std::vector<float> son = [] {
    CVantoroTablature doc = test::document(9);
    doc.tempo = 120;
    test::poser(doc, 1, 1, 1, 0, 5, 192);
    test::poser(doc, 1, 3, 1, 0, 12, 192, 0, attaque::kHarmoniqueNaturelle);
    test::poser(doc, 1, 5, 1, 0, 7, 192, 0, attaque::kHarmoniqueNaturelle);
    test::poser(doc, 1, 7, 1, 0, 5, 192, 0, attaque::kHarmoniqueArtificielle);
    test::poser(doc, 1, 9, 1, 0, 5, 96, effet::kBendUp);
    test::poser(doc, 1, 9, 1, 96, 7, 96);
    const RenduPcm pcm = rendrePcm(rendreDocument(doc));
    EXPECT_FALSE(pcm.soundFont.empty()) << "no General MIDI SoundFont: scripts/setup installs one";
    EXPECT_EQ(pcm.fréquence, 44100);
    return test::mono(pcm.échantillons);
  }();
  return son;
}
// The pitch in bar `mesure` (from 1) between two times of it.
double hzMesure(int mesure, double débutMs, double finMs) {
  const double t = (mesure - 1) * 2000.0;
  return test::hzEntre(rendu(), 44100, t + débutMs, t + finMs);
}

// Fret 5 on the first string is A 440 and stops with the note. A natural harmonic sounds
// at its node: over the twelfth fret it is that fret's note, an octave above the open
// string, no higher; over the seventh fret, the nineteenth fret's note. An artificial
// harmonic sounds an octave above the fretted note. A bend from fret 5 to fret 7 over two
// beats: the wheel rises on the A and holds the B without a new attack; the bend range the
// track's set-up tells the synthesiser (12 semitones) makes the wheel's steps the right size.
TEST(PlayerSound, FretsHarmonicsAndABendSoundAtTheirPitch) {
  EXPECT_NEAR(hzMesure(1, 200, 900), 440.0, 4.4);
  EXPECT_LT(test::rms(test::tranche(rendu(), 44100, 3500, 4000)),
            0.1 * test::rms(test::tranche(rendu(), 44100, 200, 900)));
  EXPECT_NEAR(hzMesure(3, 200, 900), 2 * hertz(64), 0.01 * 2 * hertz(64));
  EXPECT_NEAR(hzMesure(5, 200, 900), hertz(64 + 19), 0.01 * hertz(64 + 19));
  EXPECT_NEAR(hzMesure(7, 200, 900), 880.0, 8.8);
  const double avant = hzMesure(9, 20, 150), milieu = hzMesure(9, 450, 550);
  EXPECT_NEAR(avant, 440.0, 0.02 * 440.0);
  EXPECT_GT(milieu, avant * 1.03);
  EXPECT_LT(milieu, hertz(71) * 0.98);
  EXPECT_NEAR(hzMesure(9, 1150, 1800), hertz(71), 0.01 * hertz(71));
}

using WavFile = test::Dossier;

TEST_F(WavFile, HoldsTheRenderedSamplesOfA440BehindACanonicalHeader) {
  const fs::path chemin = dossier / "la.wav";
  const RésultatWav r = rendreWav(kUneSeconde, chemin.string());
  ASSERT_TRUE(r.ok);
  EXPECT_TRUE(r.messages.empty());
  const auto b = litFichier(chemin);
  ASSERT_GT(b.size(), 44u);
  // PCM, two channels, 44100 frames of 4 bytes a second, 16 bits.
  const char kEntête[] = "WAVEfmt \x10\0\0\0\x01\0\x02\0\x44\xAC\0\0\x10\xB1\x02\0\x04\0\x10\0data";
  EXPECT_EQ(std::memcmp(b.data(), "RIFF", 4), 0);
  EXPECT_EQ(std::memcmp(&b[8], kEntête, 32), 0);
  EXPECT_EQ(lit32(b, 4), b.size() - 8);
  EXPECT_EQ(lit32(b, 40), b.size() - 44);

  // The same samples as the rendering in memory: A4 at 440 Hz, loud enough to be heard.
  const RenduPcm pcm = rendAvecSoundFont(kUneSeconde);
  EXPECT_TRUE(pcm.messages.empty());
  EXPECT_EQ(pcm.fréquence, 44100);
  EXPECT_NEAR(hz(pcm, 200, 800), 440.0, 4.4);
  EXPECT_GT(test::rms(test::tranche(test::mono(pcm.échantillons), pcm.fréquence, 100, 900)), 0.01);
  ASSERT_EQ(b.size() - 44, pcm.échantillons.size() * 2);
  EXPECT_EQ(std::memcmp(&b[44], pcm.échantillons.data(), b.size() - 44), 0);
  EXPECT_EQ(contenu(), std::vector<std::string>{"la.wav"}) << "no temporary file is left";
}

// A folder that does not exist, or a folder where the file should go (all is
// written, then the renaming fails), or no SoundFont: the message, and no partial file.
TEST_F(WavFile, AFileThatCannotBeWrittenGivesTheMessageAndNoPartialFile) {
  const fs::path occupé = dossier / "la.wav";
  fs::create_directory(occupé);
  for (const fs::path& chemin : {dossier / "absent" / "la.wav", occupé}) {
    SCOPED_TRACE(chemin);
    const RésultatWav r = rendreWav(kUneSeconde, chemin.string());
    EXPECT_FALSE(r.ok);
    ASSERT_FALSE(r.messages.empty());
    EXPECT_EQ(r.messages[0].id, son::kEcritureImpossible.id);
    EXPECT_NE(r.messages[0].détail.find("la.wav"), std::string::npos);
    EXPECT_EQ(contenu(), std::vector<std::string>{"la.wav"});  // the folder alone
  }
  EXPECT_TRUE(fs::is_directory(occupé));
  // Without a SoundFont nothing is written and an earlier file stays.
  fs::remove(occupé);
  const std::string chemin = fichier("la.wav", "earlier");
  OptionsRendu o;
  o.soundFont = (dossier / "none.sf2").string();
  o.soundFontsSystème = {};
  const RésultatWav r = rendreWav(kUneSeconde, chemin, o);
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.messages, (std::vector<MessageSon>{{son::kAucuneSoundFont.id, o.soundFont}}));
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

using Octets = std::vector<std::uint8_t>;

// Appends `v` on `n` bytes, little-endian, or four characters.
Octets& mets(Octets& o, std::uint64_t v, int n) {
  for (int i = 0; i < n; ++i)
    o.push_back(std::uint8_t(v >> (8 * i)));
  return o;
}
Octets& mets(Octets& o, const char* quatre) {
  for (int i = 0; i < 4; ++i)
    o.push_back(std::uint8_t(quatre[i]));
  return o;
}
template <class F>
Octets flottants(std::initializer_list<F> v) {
  Octets o;
  for (F f : v) {
    std::uint64_t u = 0;
    std::memcpy(&u, &f, sizeof(F));
    mets(o, u, sizeof(F));
  }
  return o;
}

struct Format {
  unsigned format = 1;  // 1 PCM, 3 float, 0xFFFE extensible
  unsigned sous = 1;    // the extensible's own format
  unsigned canaux = 1;
  std::uint32_t fréquence = 44100;
  unsigned bits = 16;
};

// A RIFF WAVE file: the format chunk, any chunks given, then the samples.
Octets wav(const Format& f, const Octets& échantillons, const Octets& avant = {},
           std::uint32_t tailleDéclarée = 0) {
  Octets o;
  const bool ext = f.format == 0xFFFE;
  mets(mets(mets(mets(o, "RIFF"), 0, 4), "WAVE"), "fmt ");
  mets(mets(mets(o, ext ? 40 : 16, 4), f.format, 2), f.canaux, 2);
  mets(mets(o, f.fréquence, 4), f.fréquence * f.canaux * f.bits / 8, 4);
  mets(mets(o, f.canaux * f.bits / 8, 2), f.bits, 2);
  if (ext) mets(mets(mets(mets(mets(mets(o, 22, 2), f.bits, 2), 0, 4), f.sous, 2), 0, 7), 0, 7);
  o.insert(o.end(), avant.begin(), avant.end());
  mets(mets(o, "data"), tailleDéclarée ? tailleDéclarée : échantillons.size(), 4);
  o.insert(o.end(), échantillons.begin(), échantillons.end());
  return o;
}

TEST(LectureWav, EveryEncodingToMonoFullScaleAfterAnyChunksAndAStreamedSize) {
  const struct {
    const char* quoi;
    Format f;
    Octets données;
    std::vector<float> attendu;
  } cas[] = {
      {"8 bits, unsigned", {1, 1, 1, 8000, 8}, {128, 255, 0}, {0, 127 / 128.0f, -1}},
      {"16 bits", {1, 1, 1, 44100, 16}, {0x00, 0x40, 0x00, 0x80}, {0.5f, -1}},
      {"24 bits", {1, 1, 1, 48000, 24}, {0, 0, 0x40, 0xFF, 0xFF, 0xFF}, {0.5f, -1 / 8388608.0f}},
      {"32 bits", {1, 1, 1, 96000, 32}, {0, 0, 0, 0xC0}, {-0.5f}},
      {"float", {3, 1, 1, 44100, 32}, flottants({0.125f, -0.75f}), {0.125f, -0.75f}},
      {"double", {3, 1, 1, 44100, 64}, flottants({0.25, -1.0}), {0.25f, -1}},
      {"stereo, averaged", {1, 1, 2, 44100, 16}, {0, 0x40, 0, 0xC0, 0, 0x20, 0, 0x20}, {0, 0.25f}},
      {"extensible PCM", {0xFFFE, 1, 1, 44100, 16}, {0x00, 0x40}, {0.5f}},
      {"extensible float", {0xFFFE, 3, 1, 44100, 32}, flottants({0.5f}), {0.5f}},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.quoi);
    const SonLu s = lireWav(wav(c.f, c.données));
    ASSERT_TRUE(s.ok()) << s.message << " " << s.détail;
    EXPECT_EQ(s.fréquence, int(c.f.fréquence));
    EXPECT_EQ(s.canaux, int(c.f.canaux));
    EXPECT_EQ(s.mono, c.attendu);
  }
  // Chunks before the samples, and a streamed size, are read.
  Octets liste;
  mets(mets(mets(liste, "LIST"), 3, 4), "abc");  // odd size, padded
  const SonLu s = lireWav(wav({}, {0x00, 0x40, 0x00, 0x40}, liste));
  ASSERT_TRUE(s.ok());
  EXPECT_EQ(s.mono.size(), 2u);
  // A writer that could not go back leaves the size at its largest.
  const SonLu flux = lireWav(wav({}, {0x00, 0x40, 0x00, 0x40, 0x00}, {}, 0xFFFFFFFF));
  ASSERT_TRUE(flux.ok());
  EXPECT_EQ(flux.mono.size(), 2u);
  EXPECT_DOUBLE_EQ(flux.secondes(), 2.0 / 44100);
}

TEST(LectureWav, DamagedUnknownAndMissingFilesAreRefusedWithTheirMessage) {
  const auto coupé = [](Octets o, std::size_t n) {
    o.resize(o.size() > n ? o.size() - n : 0);
    return o;
  };
  Octets donnéesAvant, chunkTropLong = coupé(wav({}, {}), 8);
  mets(mets(mets(mets(mets(donnéesAvant, "RIFF"), 12, 4), "WAVE"), "data"), 0, 4);
  mets(mets(chunkTropLong, "junk"), 1000, 4);
  const struct {
    const char* quoi;
    Octets octets;
    StringId message;
  } cas[] = {
      {"empty", {}, son::kPasUnWav},
      {"another format", {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 0, 0, 0}, son::kPasUnWav},
      {"a header cut short", {'R', 'I', 'F', 'F', 4, 0, 0}, son::kWavTronqué},
      {"samples cut short", coupé(wav({}, {0x00, 0x40, 0x00, 0x40}), 1), son::kWavTronqué},
      {"no samples", coupé(wav({}, {}), 8), son::kWavTronqué},
      {"a chunk past the end", chunkTropLong, son::kWavTronqué},
      {"samples before their format", donnéesAvant, son::kWavEncodage},
      {"ADPCM", wav({2, 1, 1, 44100, 4}, {0}), son::kWavEncodage},
      {"12 bits", wav({1, 1, 1, 44100, 12}, {0, 0}), son::kWavEncodage},
      {"no channel", wav({1, 1, 0, 44100, 16}, {}), son::kWavEncodage},
      {"a rate of 10 Hz", wav({1, 1, 1, 10, 16}, {0, 0}), son::kWavEncodage},
      {"extensible ADPCM", wav({0xFFFE, 2, 1, 44100, 16}, {0, 0}), son::kWavEncodage},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.quoi);
    const SonLu s = lireWav(c.octets);
    EXPECT_EQ(s.message, c.message.id);
    EXPECT_TRUE(s.mono.empty());
  }

  // Files that are missing, or no files.
  const fs::path dossier = fs::temp_directory_path();
  EXPECT_EQ(lireFichierWav((dossier / "vantoro-no-such-file.wav").string()).message,
            son::kFichierAbsent.id);
  EXPECT_EQ(lireFichierWav(dossier.string()).message, son::kFichierIllisible.id);
  const fs::path f = dossier / "vantoro-lecture-wav-test.wav";
  const Octets o = wav({}, {0x00, 0x40});
  std::ofstream(f, std::ios::binary)
      .write(reinterpret_cast<const char*>(o.data()), std::streamsize(o.size()));
  const SonLu s = lireFichierWav(f.string());
  EXPECT_TRUE(s.ok());
  EXPECT_EQ(s.mono.size(), 1u);
  fs::remove(f);
}

}  // namespace
}  // namespace vt
