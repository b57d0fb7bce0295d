// scales.dat: 92-byte records made from data/scales.src.tsv, read back here the
// way the scale window and the harmoniser read them.
#include <gtest/gtest.h>

#include <array>
#include <set>

#include "data_files.h"
#include "formats/string_table.h"

namespace vt::test {
namespace {

constexpr std::size_t kRecord = 92;

struct Scale {
  std::array<int, 12> demitons{};
  std::string nom, nomEN;  // Windows-1252 bytes, blanks trimmed
};

std::string trimmed(const std::string& s) {
  const auto end = s.find_last_not_of(' ');
  return end == std::string::npos ? std::string() : s.substr(0, end + 1);
}

std::vector<Scale> readScales() {
  const std::string bytes = readFile(dataDir() / "scales.dat");
  std::vector<Scale> scales;
  for (std::size_t at = 0; at + kRecord <= bytes.size(); at += kRecord) {
    Scale s;
    for (std::size_t k = 0; k < 12; ++k)
      s.demitons[k] = static_cast<unsigned char>(bytes[at + k]);
    s.nom = trimmed(bytes.substr(at + 12, 40));
    s.nomEN = trimmed(bytes.substr(at + 52, 40));
    scales.push_back(s);
  }
  return scales;
}

const Scale* find(const std::vector<Scale>& scales, const std::string& nomEN) {
  for (const auto& s : scales)
    if (s.nomEN == nomEN) return &s;
  return nullptr;
}

std::array<int, 12> pattern(std::initializer_list<int> values) {
  std::array<int, 12> a{};
  std::size_t k = 0;
  for (int v : values)
    a[k++] = v;
  return a;
}

constexpr int X = 255;

bool startsWith(const std::string& s, const std::string& prefix) {
  return s.compare(0, prefix.size(), prefix) == 0;
}

// That scales.dat holds the records of scales.src.tsv, each well formed (one
// root, rising distances, names that fit and the kinds they say), is the check
// of make_scales.py; here the file is read back as the windows read it.
TEST(ScalesFile, KnownRecords) {
  const std::string bytes = readFile(dataDir() / "scales.dat");
  EXPECT_EQ(bytes.size() % kRecord, 0u);
  EXPECT_LE(bytes.size() / kRecord, 255u) << "the scale window counts the records in one byte";
  const auto scales = readScales();
  ASSERT_FALSE(scales.empty());
  EXPECT_EQ(scales[0].nom, "Gamme majeure");
  EXPECT_EQ(scales[0].demitons, pattern({0, X, 2, X, 4, 5, X, 7, X, 9, X, 11}));

  // Names are Windows-1252, not UTF-8; a mode keeps its parent's layout: Dorian
  // has its root on the parent's D.
  const struct {
    const char *en, *fr;
    std::array<int, 12> demitons;
  } connus[] = {
      {"Melodic minor scale", "Gamme mineure m\xE9lodique",
       pattern({0, X, 2, 3, X, 5, X, 7, X, 9, X, 11})},
      {"Dorian mode (II)", "Mode dorien (II)", pattern({10, X, 0, X, 2, 3, X, 5, X, 7, X, 9})},
      {"Blues scale", "Gamme blues", pattern({0, X, X, 3, X, 5, 6, 7, X, X, 10, X})},
      {"Chord major", "Accord majeur", pattern({0, X, X, X, 4, X, X, 7, X, X, X, X})},
  };
  for (const auto& k : connus) {
    const auto* s = find(scales, k.en);
    ASSERT_NE(s, nullptr) << k.en;
    EXPECT_EQ(std::pair(s->nom, s->demitons), std::pair(std::string(k.fr), k.demitons));
  }
}

TEST(ScalesFile, HoldsTheScalesModesAndChordsTheToolsNeed) {
  const auto scales = readScales();
  // clang-format off
  const char* const needed[] = {
      "Natural minor scale", "Harmonic minor scale", "Major pentatonic", "Minor pentatonic",
      "Whole-tone scale", "Diminished (half-whole)", "Diminished (whole-half)", "Chromatic scale",
      "Chord minor", "Chord 7", "Chord maj7", "Chord m7", "Chord dim", "Chord aug", "Chord sus2",
      "Chord sus4", "Chord 6", "Chord m6", "Chord 9", "Chord add9", "Chord m7b5 (half-diminished)",
      "Chord dim7"};
  // clang-format on
  for (const char* name : needed)
    EXPECT_NE(find(scales, name), nullptr) << name;

  // The seven modes of the major scale: each is the major scale's notes.
  const auto majorNotes = scales[0].demitons;
  const std::set<std::string> degrees = {"(I)", "(II)", "(III)", "(IV)", "(V)", "(VI)", "(VII)"};
  int modes = 0;
  for (const auto& s : scales) {
    const auto open = s.nomEN.rfind('(');
    if (!startsWith(s.nom, "Mode") || open == std::string::npos ||
        degrees.count(s.nomEN.substr(open)) == 0)
      continue;
    ++modes;
    for (std::size_t k = 0; k < 12; ++k)
      EXPECT_EQ(s.demitons[k] == X, majorNotes[k] == X) << s.nomEN;
  }
  EXPECT_EQ(modes, 7);

  // The one-note record carries the name the scale window compares with string 2802.
  const auto* single = find(scales, loadString(2802, kLangAnglais));
  ASSERT_NE(single, nullptr);
  EXPECT_EQ(single->nom, loadString(2802, kLangFrançais));
  EXPECT_EQ(single->demitons, pattern({0, X, X, X, X, X, X, X, X, X, X, X}));
}

}  // namespace
}  // namespace vt::test
