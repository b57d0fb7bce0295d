// The harmoniser: drawn pitch classes, the matching against "scales.dat", and
// the round trip of every record of the shipped file through it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "document/cp1252.h"
#include "formats/string_table.h"
#include "music/gamme.h"
#include "music/harmony.h"

namespace vt {
namespace {

constexpr byt X = kHorsGamme;

const FichierGammes& livré() {
  static const FichierGammes f =
      FichierGammes::load(std::filesystem::path(VT_SOURCE_DIR) / "data" / kFichierGammes);
  return f;
}

int numéro(const std::string& nomEN) {
  for (int g = 1; g <= livré().count(); ++g)
    if (nomGamme(livré().gamme(g), kLangAnglais) == nomEN) return g;
  ADD_FAILURE() << "no record " << nomEN;
  return 0;
}

// C-based pitch classes of note names.
TonsDessinés tons(std::initializer_list<int> classes) {
  TonsDessinés t{};
  for (int c : classes)
    t[static_cast<std::size_t>(c)] = true;
  return t;
}

std::vector<std::string> lignes(const TonsDessinés& t, int optIdType, int setGAMMode = 2,
                                int setLang = kLangAnglais) {
  std::vector<std::string> l;
  for (const tHarmonie& h : computeHarmony(livré(), t, optIdType, setGAMMode, setLang))
    l.push_back(ligneHarmonie(livré(), h, setLang));
  return l;
}

constexpr int C = 1, Cd = 2, D = 3, Dd = 4, E = 5, F = 6, Fd = 7, G = 8, Gd = 9, A = 10, B = 12;

TEST(Harmony, ANoteFlipsItsPitchClassInEveryOctave) {
  TonsDessinés t{};
  EXPECT_TRUE(receiveNote(t, 60));
  EXPECT_EQ(t, tons({C}));
  EXPECT_TRUE(receiveNote(t, 0));  // another C turns it off
  EXPECT_EQ(t, tons({}));
  EXPECT_TRUE(receiveNote(t, 131));
  EXPECT_EQ(t, tons({B}));
  for (int hors : {132, 200, -1}) {
    EXPECT_FALSE(receiveNote(t, hors)) << hors;
    EXPECT_EQ(t, tons({B}));
  }
}

TEST(Harmony, PitchNamesAndFoldingAreCBased) {
  const std::array<const char*, 14> noms = {"",   "C", "C#", "D", "D#", "E", "F",
                                            "F#", "G", "G#", "A", "A#", "B", ""};
  for (int n = 0; n <= 13; ++n)
    EXPECT_EQ(tnumber2tname(n, kLangAnglais), noms[static_cast<std::size_t>(n)]) << n;
  EXPECT_EQ(tnumber2tname(C, kLangFrançais), "Do");
  EXPECT_EQ(tnumber2tname(Gd, kLangFrançais), "Sol #");
  for (int n = 1; n <= 23; ++n)
    EXPECT_EQ(zob(n), n <= 12 ? n : n - 12) << n;
  for (int n = 1; n <= 12; ++n)
    EXPECT_EQ(tnumber2tname(n, kLangAnglais), nomTonalité(tonalitéDeTon(n), kLangAnglais));
}

TEST(Harmony, IdentificationOfTheShippedFile) {
  using L = std::vector<std::string>;
  // No pitch: nothing, in both modes.
  EXPECT_EQ(lignes(tons({}), kIdentification), L{});
  EXPECT_EQ(lignes(tons({}), kHarmonisation), L{});
  // One pitch: the one-note entries, at that root.
  EXPECT_EQ(lignes(tons({Fd}), kIdentification), L{"Single note of F#"});
  EXPECT_EQ(lignes(tons({Fd}), kIdentification, 2, kLangFrançais), L{"Note seule de Fa #"});
  // A set with several possible roots is listed once for each of them.
  EXPECT_EQ(lignes(tons({C, E, Gd}), kIdentification),
            (L{"Chord aug of C", "Chord aug of E", "Chord aug of G#"}));
  EXPECT_EQ(lignes(tons({C, Dd, Fd, A}), kIdentification),
            (L{"Chord dim7 of C", "Chord dim7 of D#", "Chord dim7 of F#", "Chord dim7 of A"}));
  EXPECT_EQ(lignes(tons({C, E, G}), kIdentification), L{"Chord major of C"});
  EXPECT_EQ(lignes(tons({C, E, G, A}), kIdentification), (L{"Chord m7 of A", "Chord 6 of C"}));

  // C major's notes: the scale and each mode of it on its own degree...
  const auto majeure = tons({C, D, E, F, G, A, B});
  EXPECT_EQ(lignes(majeure, kIdentification),
            (L{"Major scale of C", "Natural minor scale of A", "Ionian mode (I) of C",
               "Dorian mode (II) of D", "Phrygian mode (III) of E", "Lydian mode (IV) of F",
               "Mixolydian mode (V) of G", "Aeolian mode (VI) of A", "Locrian mode (VII) of B"}));
  // ... or, with modes in their parent's key, every mode of it on C.
  const L parent = lignes(majeure, kIdentification, 1);
  EXPECT_EQ(std::count_if(parent.begin(), parent.end(),
                          [](const std::string& l) { return l.ends_with("mode (II) of C"); }),
            1);
  EXPECT_EQ(std::find(parent.begin(), parent.end(), "Dorian mode (II) of D"), parent.end());
}

TEST(Harmony, HarmonisationListsEveryChordAtEveryDrawnRoot) {
  int accords = 0;
  for (const tGamme& g : livré().gammes())
    accords += estAccord(g, kLangAnglais) ? 1 : 0;
  ASSERT_GT(accords, 0);
  const auto l = lignes(tons({D, B}), kHarmonisation, 2, kLangFrançais);
  ASSERT_EQ(l.size(), 2u * static_cast<std::size_t>(accords));
  EXPECT_EQ(l[0], "Accord 5 (quinte) de Ré");
  EXPECT_EQ(l[1], "Accord 5 (quinte) de Si");
  for (const std::string& ligne : l)
    EXPECT_TRUE(ligne.starts_with("Accord")) << ligne;
}

TEST(Harmony, RecordsOfAnyBytesMatchWithoutFault) {
  // A byte above 11 counts as a note of the scale; a mode with no byte 0 stays
  // as it is.
  std::vector<std::uint8_t> octets;
  for (const auto& [d, nom] :
       {std::pair<Demitons, std::string>{{0, 12, X, X, X, X, X, X, X, X, X, X}, "Scale odd"},
        {{X, 200, X, X, X, X, X, X, X, X, X, X}, "Mode odd"}}) {
    octets.insert(octets.end(), d.begin(), d.end());
    std::string n = nom;
    n.resize(2 * kTailleNomGamme, ' ');
    octets.insert(octets.end(), n.begin(), n.end());
  }
  octets.push_back(7);  // a stray byte after the last record
  const auto f = FichierGammes::depuisOctets(octets);
  EXPECT_EQ(computeHarmony(f, tons({C, Cd}), kIdentification, 2, kLangFrançais),
            (std::vector<tHarmonie>{{1, C}, {2, C}}));
  EXPECT_TRUE(computeHarmony(f, tons({Cd}), kIdentification, 2, kLangFrançais).empty());
}

TEST(Harmony, EveryRecordOfTheShippedFileIsFoundFromItsOwnNotesAtEveryKey) {
  ASSERT_GT(livré().count(), 0);
  for (const int setGAMMode : {1, 2})
    for (int g = 1; g <= livré().count(); ++g) {
      const Demitons d = demitonsAffichés(livré().gamme(g), setGAMMode);
      for (int tonalité = 1; tonalité <= 12; ++tonalité) {
        // The notes the scale window shows in one octave from its key, drawn on
        // the neck.
        const tNotesGamme n = chargeNotesGamme(d, tonalité);
        TonsDessinés t{};
        for (int p = tonalité; p < tonalité + 12; ++p)
          if (n.notes[static_cast<std::size_t>(p)]) receiveNote(t, p + 44);
        const int racine = (tonalité - 1 + 9) % 12 + 1;  // the key, C-based
        ASSERT_EQ(tonalitéDeTon(racine), tonalité);
        const auto l = computeHarmony(livré(), t, kIdentification, setGAMMode, kLangAnglais);
        EXPECT_NE(std::find(l.begin(), l.end(), tHarmonie{g, racine}), l.end())
            << nomGamme(livré().gamme(g), kLangAnglais) << " in key " << tonalité << ", setGAMMode "
            << setGAMMode;
      }
    }
}

TEST(Harmony, DrawnPitchesLieOnEveryStringOfTheNeck) {
  tGuitare g;  // standard tuning, six strings
  const auto cases = casesHarmony(tons({C}), g);
  // Octave shift by octave shift, string by string.
  const std::vector<std::pair<int, int>> attendu = {{12, 7}, {24, 7}, {1, 2},  {3, 5},  {8, 1},
                                                    {13, 2}, {5, 3},  {10, 4}, {15, 5}, {8, 6},
                                                    {20, 1}, {17, 3}, {22, 4}, {20, 6}};
  EXPECT_EQ(cases, attendu) << "string 7 has no tuning: its places lie off the board";
  EXPECT_TRUE(casesHarmony(tons({}), g).empty());
}

TEST(Harmony, ChordRecordsFindTheirTypeInTheChordDictionary) {
  const std::vector<std::pair<const char*, const char*>> types = {
      {"Chord 5 (power chord)", "sus"},
      {"Chord major", "maj"},
      {"Chord minor", "min"},
      {"Chord 7", "7"},
      {"Chord maj7", "maj7"},
      {"Chord m7", "min7"},
      {"Chord m7b5 (half-diminished)", "min7 5b"},
      {"Chord dim", "dim"},
      {"Chord aug", "aug"},
      {"Chord sus2", "sus2"},
      {"Chord sus4", "sus4"},
      {"Chord 7sus4", "7sus4"},
      {"Chord 6", "6"},
      {"Chord m6", "min6"},
      {"Chord 9", "9"},
      {"Chord m(maj7)", "maj7 3b"}};
  for (const auto& [nom, type] : types)
    EXPECT_EQ(typeAccordStandard(livré().gamme(numéro(nom)).demitons), type) << nom;
  for (const char* sans : {"Chord dim7", "Chord add9", "Chord 7#9", "Major scale"})
    EXPECT_EQ(typeAccordStandard(livré().gamme(numéro(sans)).demitons), std::nullopt) << sans;
  EXPECT_EQ(typeAccordStandard({0, 13, X, X, X, X, X, X, X, X, X, X}), std::nullopt);
}

}  // namespace
}  // namespace vt
