// Reading WAV files: every encoding the tuner's command line takes, and the
// files it refuses, each with its message and nothing read in part.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "sound/lecture_wav.h"

namespace vt {
namespace {

using Octets = std::vector<std::uint8_t>;

void u16(Octets& o, unsigned v) {
  o.push_back(std::uint8_t(v & 0xFF));
  o.push_back(std::uint8_t(v >> 8));
}
void u32(Octets& o, std::uint32_t v) {
  for (int i = 0; i < 4; ++i)
    o.push_back(std::uint8_t(v >> (8 * i)));
}
void texte(Octets& o, const char* quatre) {
  for (int i = 0; i < 4; ++i)
    o.push_back(std::uint8_t(quatre[i]));
}
void ajoute(Octets& o, const Octets& suite) {
  for (std::uint8_t b : suite)
    o.push_back(b);
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
  texte(o, "RIFF");
  u32(o, 0);
  texte(o, "WAVE");
  texte(o, "fmt ");
  const bool ext = f.format == 0xFFFE;
  u32(o, ext ? 40 : 16);
  u16(o, f.format);
  u16(o, f.canaux);
  u32(o, f.fréquence);
  u32(o, f.fréquence * f.canaux * f.bits / 8);
  u16(o, f.canaux * f.bits / 8);
  u16(o, f.bits);
  if (ext) {
    u16(o, 22);
    u16(o, f.bits);
    u32(o, 0);
    u16(o, f.sous);
    ajoute(o, Octets(14, 0));
  }
  ajoute(o, avant);
  texte(o, "data");
  u32(o, tailleDéclarée ? tailleDéclarée : std::uint32_t(échantillons.size()));
  ajoute(o, échantillons);
  return o;
}

Octets flottants(std::initializer_list<float> v) {
  Octets o;
  for (float f : v) {
    std::uint32_t u;
    std::memcpy(&u, &f, 4);
    u32(o, u);
  }
  return o;
}

TEST(LectureWav, EveryEncodingToMonoFullScale) {
  struct Cas {
    const char* quoi;
    Format f;
    Octets données;
    std::vector<float> attendu;
  };
  Octets double64;
  for (double d : {0.25, -1.0}) {
    std::uint64_t u;
    std::memcpy(&u, &d, 8);
    for (int i = 0; i < 8; ++i)
      double64.push_back(std::uint8_t(u >> (8 * i)));
  }
  const Cas cas[] = {
      {"8 bits, unsigned", {1, 1, 1, 8000, 8}, {128, 255, 0}, {0, 127 / 128.0f, -1}},
      {"16 bits", {1, 1, 1, 44100, 16}, {0x00, 0x40, 0x00, 0x80}, {0.5f, -1}},
      {"24 bits",
       {1, 1, 1, 48000, 24},
       {0x00, 0x00, 0x40, 0xFF, 0xFF, 0xFF},
       {0.5f, -1 / 8388608.0f}},
      {"32 bits", {1, 1, 1, 96000, 32}, {0, 0, 0, 0xC0}, {-0.5f}},
      {"float", {3, 1, 1, 44100, 32}, flottants({0.125f, -0.75f}), {0.125f, -0.75f}},
      {"double", {3, 1, 1, 44100, 64}, double64, {0.25f, -1}},
      {"stereo, averaged",
       {1, 1, 2, 44100, 16},
       {0x00, 0x40, 0x00, 0xC0, 0x00, 0x20, 0x00, 0x20},
       {0, 0.25f}},
      {"extensible PCM", {0xFFFE, 1, 1, 44100, 16}, {0x00, 0x40}, {0.5f}},
      {"extensible float", {0xFFFE, 3, 1, 44100, 32}, flottants({0.5f}), {0.5f}},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.quoi);
    const SonLu s = lireWav(wav(c.f, c.données));
    ASSERT_TRUE(s.ok()) << s.message << " " << s.détail;
    EXPECT_EQ(s.fréquence, int(c.f.fréquence));
    EXPECT_EQ(s.canaux, int(c.f.canaux));
    ASSERT_EQ(s.mono.size(), c.attendu.size());
    for (std::size_t i = 0; i < c.attendu.size(); ++i)
      EXPECT_FLOAT_EQ(s.mono[i], c.attendu[i]);
  }
}

TEST(LectureWav, ChunksBeforeTheSamplesAndAStreamedSizeAreRead) {
  Octets liste;
  texte(liste, "LIST");
  u32(liste, 3);
  ajoute(liste, {'a', 'b', 'c', 0});  // odd size, padded
  const SonLu s = lireWav(wav({}, {0x00, 0x40, 0x00, 0x40}, liste));
  ASSERT_TRUE(s.ok());
  EXPECT_EQ(s.mono.size(), 2u);
  // A writer that could not go back leaves the size at its largest.
  const SonLu flux = lireWav(wav({}, {0x00, 0x40, 0x00, 0x40, 0x00}, {}, 0xFFFFFFFF));
  ASSERT_TRUE(flux.ok());
  EXPECT_EQ(flux.mono.size(), 2u);
  EXPECT_DOUBLE_EQ(flux.secondes(), 2.0 / 44100);
}

TEST(LectureWav, DamagedAndUnknownFilesAreRefusedWithTheirMessage) {
  Octets tronqué = wav({}, {0x00, 0x40, 0x00, 0x40});
  tronqué.resize(tronqué.size() - 1);
  Octets sansDonnées = wav({}, {});
  sansDonnées.resize(sansDonnées.size() - 8);
  Octets donnéesAvant;
  texte(donnéesAvant, "RIFF");
  u32(donnéesAvant, 12);
  texte(donnéesAvant, "WAVE");
  texte(donnéesAvant, "data");
  u32(donnéesAvant, 0);
  Octets chunkTropLong = wav({}, {});
  chunkTropLong.resize(36);
  texte(chunkTropLong, "junk");
  u32(chunkTropLong, 1000);
  struct Cas {
    const char* quoi;
    Octets octets;
    StringId message;
  };
  const Cas cas[] = {
      {"empty", {}, son::kPasUnWav},
      {"another format", {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 0, 0, 0}, son::kPasUnWav},
      {"a header cut short", {'R', 'I', 'F', 'F', 4, 0, 0}, son::kWavTronqué},
      {"samples cut short", tronqué, son::kWavTronqué},
      {"no samples", sansDonnées, son::kWavTronqué},
      {"a chunk past the end", chunkTropLong, son::kWavTronqué},
      {"samples before their format", donnéesAvant, son::kWavEncodage},
      {"ADPCM", wav({2, 1, 1, 44100, 4}, {0}), son::kWavEncodage},
      {"12 bits", wav({1, 1, 1, 44100, 12}, {0, 0}), son::kWavEncodage},
      {"no channel", wav({1, 1, 0, 44100, 16}, {}), son::kWavEncodage},
      {"a rate of 10 Hz", wav({1, 1, 1, 10, 16}, {0, 0}), son::kWavEncodage},
      {"extensible ADPCM", wav({0xFFFE, 2, 1, 44100, 16}, {0, 0}), son::kWavEncodage},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(c.quoi);
    const SonLu s = lireWav(c.octets);
    EXPECT_EQ(s.message, c.message.id);
    EXPECT_TRUE(s.mono.empty());
  }
}

TEST(LectureWav, FilesThatAreMissingOrNoFiles) {
  namespace fs = std::filesystem;
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
