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

// Appends `v` on `n` bytes, little-endian, or four characters.
Octets& mets(Octets& o, std::uint64_t v, int n) {
  for (int i = 0; i < n; ++i)
    o.push_back(std::uint8_t(v >> (8 * i)));
  return o;
}
Octets& mets(Octets& o, const char* quatre) {
  o.insert(o.end(), quatre, quatre + 4);
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

TEST(LectureWav, EveryEncodingToMonoFullScale) {
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
}

TEST(LectureWav, ChunksBeforeTheSamplesAndAStreamedSizeAreRead) {
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

TEST(LectureWav, DamagedAndUnknownFilesAreRefusedWithTheirMessage) {
  const auto coupé = [](Octets o, std::size_t n) {
    o.resize(o.size() - n);
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
