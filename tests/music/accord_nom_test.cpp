// Chord names: every name the dictionary's lists can build is read into the
// tones a guitarist expects, and anything else is refused.
#include <gtest/gtest.h>

#include <string>

#include "music/accord_nom.h"
#include "music/accord_types.h"

namespace vt {
namespace {

// The degrees of a name, "?" after those a fingering may leave out.
std::string degrés(const std::string& nom) {
  const auto c = lisNomAccord(nom);
  if (!c) return "refused";
  std::string s;
  for (const TonAccord& t : c->tons)
    s += (s.empty() ? "" : " ") + t.degré + (t.essentiel ? "" : "?");
  return s;
}

TEST(AccordNom, TheStandardTypesAndTheCreatedOnesBuildTheirTones) {
  const struct {
    const char* nom;
    const char* degrés;
  } cas[] = {// The 19 standard suffixes.
             {"C", "1 3 5"},
             {"Cadd6", "1 3 5? 6"},
             {"Cadd7", "1 3 5? b7"},
             {"Csus2add7", "1 2 5? b7"},
             {"Csus4add7", "1 4 5? b7"},
             {"C9", "1 3 5? b7 9"},
             {"C11add9", "1 3 5? b7 9? 11"},
             {"C13", "1 3 5? b7 9? 13"},
             {"Cminaug7", "1 b3 5? 7"},
             {"Caug7", "1 3 5? 7"},
             {"Cmin", "1 b3 5"},
             {"Cminadd6", "1 b3 5? 6"},
             {"Cminadd7", "1 b3 5? b7"},
             {"Cddm", "1 b3 b5 b7"},
             {"Csus0", "1 5"},
             {"Csus2", "1 2 5"},
             {"Csus4", "1 4 5"},
             {"Cdim", "1 b3 b5"},
             {"Caug", "1 3 #5"},
             // Created: "m" is the minor base, "dim"/"aug" before a number are
             // degrees.
             {"Cmadd7add9", "1 b3 5? b7 9"},
             {"Cdim2", "1 b2 3 5?"},
             {"Caug4", "1 3 #4 5?"},
             {"Cdim7", "1 3 5? bb7"},
             {"Cadd9", "1 3 5? 9"},
             {"Caug9add13", "1 3 5? #9 13"},
             {"Cadd7dim9aug11", "1 3 5? b7 b9 #11"},
             {"Cadd7add9add11add13", "1 3 5? b7 9? 11? 13"},
             {"Csus2add9", "1 2 5"},  // the ninth is the sus tone again
             {"Cdim4", "1 3 5"},      // a diminished fourth is the third
             {"Cdimadd7", "1 b3 b5 b7"},
             {"Bb", "1 3 5"}};
  for (const auto& c : cas) {
    SCOPED_TRACE(c.nom);
    EXPECT_EQ(degrés(c.nom), c.degrés);
  }
}

TEST(AccordNom, TheTableHoldsOnePitchPerSemitoneAboveTheRoot) {
  // C is pitch 3; the tones of C7 are C, E, G and Bb.
  const auto c = lisNomAccord("Cadd7");
  ASSERT_TRUE(c);
  EXPECT_EQ(c->tableau(), (std::array<int, 12>{3, -1, -1, -1, 7, -1, -1, 10, -1, -1, 1, -1}));
  const auto gd = lisNomAccord("G#dim");
  ASSERT_TRUE(gd);
  EXPECT_EQ(gd->fondamentale, 11);
  EXPECT_EQ(gd->tableau(), (std::array<int, 12>{11, -1, -1, 2, -1, -1, 5, -1, -1, -1, -1, -1}));
}

TEST(AccordNom, NamesOutsideTheGrammarAreRefused) {
  for (const char* nom : {"", "H", "c", "#", "C7", "Cmaj7", "Cadd", "Cadd8", "Cadd1", "Cadd77",
                          "Csus", "Csus3", "C ", "Caddd7", "Cm7", "C9x", "C2", "Cb5"}) {
    SCOPED_TRACE(nom);
    EXPECT_FALSE(lisNomAccord(nom));
  }
}

TEST(AccordTypes, EveryNameTheListsBuildIsUnderstood) {
  for (int t = 0; t < 12; ++t) {
    for (int type = 0; type < static_cast<int>(kTypesAccord.size()); ++type)
      ASSERT_TRUE(lisNomAccord(nomAccordStandard(t, type))) << nomAccordStandard(t, type);
  }
  // Every base with every choice in the seven degree lists.
  std::array<int, 7> choix{};
  for (int base = 0; base < static_cast<int>(kBasesAccord.size()); ++base) {
    for (int code = 0; code < 1 << 14; ++code) {
      for (std::size_t d = 0; d < 7; ++d)
        choix[d] = (code >> (2 * d)) & 3;
      const std::string nom = nomAccordCréé(3, base, choix);
      ASSERT_TRUE(lisNomAccord(nom)) << nom;
    }
  }
}

TEST(AccordTypes, TheNamesFollowTheLists) {
  EXPECT_EQ(nomAccordStandard(3, *indexTypeAccord("maj")), "C");
  EXPECT_EQ(nomAccordStandard(0, *indexTypeAccord("min7 5b")), "Addm");
  EXPECT_EQ(nomAccordStandard(1, *indexTypeAccord("11")), "A#11add9");
  EXPECT_EQ(nomAccordStandard(12, 0), "");
  EXPECT_EQ(nomAccordStandard(0, 19), "");
  // "M" adds nothing; the lists add their texts in the order of the degrees;
  // "dim" and "aug" take none.
  EXPECT_EQ(nomAccordCréé(3, 0, {0, 0, 0, 2, 1, 0, 3}), "Cadd7dim9aug13");
  EXPECT_EQ(nomAccordCréé(3, 1, {2, 0, 0, 0, 0, 0, 0}), "Cmadd2");
  EXPECT_EQ(nomAccordCréé(3, 4, {2, 2, 2, 2, 2, 2, 2}), "Cdim");
  EXPECT_EQ(nomAccordCréé(3, 5, {1, 0, 0, 0, 0, 0, 0}), "Caug");
  EXPECT_EQ(nomAccordCréé(3, 6, {}), "");
}

TEST(AccordTypes, TextsAsTypedFindTheirEntries) {
  const struct {
    const char* texte;
    std::optional<int> index;
  } tonalités[] = {{"C", 3},  {"c#", 4}, {"Bb", 1},   {"Ab", 11}, {"G#", 11},
                   {"H", {}}, {"", {}},  {"C##", {}}, {"Cx", {}}};
  for (const auto& t : tonalités) {
    SCOPED_TRACE(t.texte);
    EXPECT_EQ(indexTonalité(t.texte), t.index);
  }
  EXPECT_EQ(indexTypeAccord("maj7 3b"), 8);
  EXPECT_FALSE(indexTypeAccord("major"));
  EXPECT_EQ(indexBaseAccord("sus4"), 3);
  EXPECT_FALSE(indexBaseAccord("M7"));
  const struct {
    int degré;
    const char* texte;
    std::optional<int> choix;
  } degrés[] = {{9, "", 0},  {9, "dim9", 1}, {9, "dim", 1},   {9, "add9", 2},
                {9, "9", 2}, {9, "aug", 3},  {9, "add7", {}}, {13, "aug13", 3}};
  for (const auto& d : degrés) {
    SCOPED_TRACE(d.texte);
    EXPECT_EQ(indexChoixDegré(d.degré, d.texte), d.choix);
  }
}

}  // namespace
}  // namespace vt
