// Chords: names read into the tones a guitarist expects, and the search's
// fingerings against a chord book, each of them a playable chord.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "music/accord_nom.h"
#include "music/accord_recherche.h"
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

// Created names: "m" is the minor base, "dim" and "aug" before a number are degrees.
TEST(AccordNom, TheStandardTypesAndTheCreatedOnesBuildTheirTones) {
  const struct {
    const char* nom;
    const char* degrés;
  } cas[] = {// The 19 standard suffixes, then created ones.
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
  for (const auto& c : cas)
    EXPECT_EQ(degrés(c.nom), c.degrés) << c.nom;
  // Names outside the grammar.
  for (const char* nom : {"", "H", "c", "#", "C7", "Cmaj7", "Cadd", "Cadd8", "Cadd1", "Cadd77",
                          "Csus", "Csus3", "C ", "Caddd7", "Cm7", "C9x", "C2", "Cb5"})
    EXPECT_EQ(degrés(nom), "refused") << nom;
}

TEST(AccordTypes, EveryNameTheListsBuildIsUnderstoodAndTextsAsTypedFindTheirEntries) {
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

  // The names follow the lists; texts as typed find their entries.
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
  // Texts as typed find their entries.
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

// Open strings as MIDI notes, lowest first.
const std::vector<int> kStandard = {40, 45, 50, 55, 59, 64};
const std::vector<int> kDropD = {38, 45, 50, 55, 59, 64};
const std::vector<int> kDADGAD = {38, 45, 50, 55, 57, 62};
const std::vector<int> kOpenG = {38, 43, 50, 55, 59, 62};
const std::vector<int> kBasse = {28, 33, 38, 43};
const std::vector<int> kSeptCordes = {35, 40, 45, 50, 55, 59, 64};

std::vector<int> hauteurs(const std::vector<int>& midi) {
  std::vector<int> h;
  for (int m : midi)
    h.push_back(hauteurDeNote(m));
  return h;
}

std::vector<Doigté> cherche(const std::string& nom, const std::vector<int>& midi,
                            const ParametresAccord& p = {}) {
  const auto c = lisNomAccord(nom);
  EXPECT_TRUE(c) << nom;
  return c ? chercheDoigtés(*c, hauteurs(midi), p) : std::vector<Doigté>{};
}

// "x32010": lowest string first, "(10)" for a fret past 9.
std::string texte(const Doigté& d, std::size_t n) {
  std::string s;
  for (std::size_t i = 0; i < n; ++i) {
    const int f = d.cases[i];
    s += f < 0 ? "x" : f < 10 ? std::to_string(f) : "(" + std::to_string(f) + ")";
  }
  return s;
}

// The place of a fingering in the list, from 1; 0 when it is not there.
int rang(const std::vector<Doigté>& liste, const std::string& doigté, std::size_t n) {
  const auto it = std::find_if(liste.begin(), liste.end(),
                               [&](const Doigté& d) { return texte(d, n) == doigté; });
  return it == liste.end() ? 0 : static_cast<int>(it - liste.begin() + 1);
}

// A muted string between two that sound.
bool muetIntérieur(const Doigté& d, std::size_t n) {
  const std::string t = texte(d, n);
  const auto bas = t.find_first_not_of('x'), haut = t.find_last_not_of('x');
  return bas != std::string::npos && t.substr(bas, haut - bas).find('x') != std::string::npos;
}

struct Attendu {
  const char* nom;  // the search's spelling
  const char* doigté;
  int rangMax;  // 1: the first one shown
};

void vérifie(const std::vector<Attendu>& table, const std::vector<int>& accordage) {
  for (const Attendu& a : table) {
    const auto liste = cherche(a.nom, accordage);
    const int r = rang(liste, a.doigté, accordage.size());
    SCOPED_TRACE(std::string(a.nom) + " " + a.doigté + ", first " +
                 (liste.empty() ? "none" : texte(liste[0], accordage.size())));
    EXPECT_GE(r, 1);
    EXPECT_LE(r, a.rangMax);
  }
}

TEST(AccordRecherche, OpenChordsComeFirstThenBarreChords) {
  // Major, minor, sevenths, sixths, suspended, augmented, diminished, half-diminished;
  // then the barre chords of the A and E shapes, right after the open chord; then 9 and 13.
  // Esus2's highest fret is the reach's last, 4: an open position still, its
  // open strings rewarded (unrewarded, the ninth fret's shape would lead).
  vérifie({{"C", "x32010", 1},          {"A", "x02220", 1},         {"E", "022100", 1},
           {"G", "320003", 1},          {"D", "xx0232", 1},         {"Amin", "x02210", 1},
           {"Emin", "022000", 1},       {"Dmin", "xx0231", 1},      {"Eadd7", "020100", 1},
           {"Aadd7", "x02020", 1},      {"Dadd7", "xx0212", 1},     {"Gadd7", "320001", 1},
           {"Cadd7", "x32310", 1},      {"Badd7", "x21202", 1},     {"Caug7", "x32000", 1},
           {"Aaug7", "x02120", 1},      {"Daug7", "xx0222", 1},     {"Gaug7", "320002", 1},
           {"Eaug7", "021100", 1},      {"Faug7", "xx3210", 4},     {"Aminadd7", "x02010", 1},
           {"Eminadd7", "020000", 2},   {"Dminadd7", "xx0211", 1},  {"Aadd6", "x02222", 1},
           {"Dadd6", "xx0202", 1},      {"Eadd6", "022120", 1},     {"Cadd6", "x32210", 2},
           {"Gadd6", "320000", 2},      {"Aminadd6", "x02212", 1},  {"Dminadd6", "xx0201", 1},
           {"Eminadd6", "022020", 1},   {"Dsus4", "xx0233", 1},     {"Asus4", "x02230", 2},
           {"Esus4", "022200", 2},      {"Asus2", "x02200", 1},     {"Dsus2", "xx0230", 1},
           {"Esus4add7", "020200", 2},  {"Asus2add7", "x02000", 1}, {"Esus0", "022xxx", 1},
           {"Asus0", "x022xx", 1},      {"Aminaug7", "x02110", 1},  {"Eminaug7", "021000", 1},
           {"Dminaug7", "xx0221", 1},   {"Caug", "x32110", 1},      {"Aaug", "x03221", 1},
           {"Eaug", "032110", 2},       {"Cdim", "x3454x", 1},      {"Ddim", "xx0131", 1},
           {"Bdim", "x2343x", 2},       {"Dddm", "xx0111", 1},      {"Bddm", "x2323x", 3},
           {"C", "x35553", 4},          {"C", "8(10)(10)988", 4},   {"F", "133211", 2},
           {"B", "x24442", 2},          {"A#", "x13331", 2},        {"Bmin", "x24432", 2},
           {"F#min", "244222", 2},      {"Cmin", "x35543", 3},      {"Gmin", "355333", 4},
           {"Cmin", "8(10)(10)888", 4}, {"E9", "020102", 1},        {"C9", "x32333", 2},
           {"D9", "x54555", 1},         {"A13", "x02022", 1},       {"E13", "020120", 1},
           {"C13", "x35355", 1},        {"Esus2", "024400", 1}},
          kStandard);
  // Other tunings have their own first fingerings.
  vérifie({{"D", "000232", 1}, {"A", "x02220", 1}, {"C", "x32010", 1}, {"Dsus0", "000xxx", 1}},
          kDropD);
  vérifie({{"Dsus4", "000000", 1}, {"Dsus0", "000xxx", 1}}, kDADGAD);
  vérifie({{"G", "x00000", 1}, {"C", "x55555", 2}}, kOpenG);
  vérifie({{"C", "x320", 1}, {"G", "3200", 1}, {"E", "0221", 1}}, kBasse);
  vérifie({{"E", "x022100", 1}, {"A", "xx02220", 1}, {"C", "xx32010", 1}, {"G", "x320003", 1}},
          kSeptCordes);
}

TEST(AccordRecherche, ExtendedChordsAreFourOrFiveNoteVoicings) {
  // In every key, the first fingering of a 9, 11 or 13 chord has the root in
  // the bass and at most five tones: the fifth, the ninth or the eleventh
  // gives way as a guitarist leaves it out.
  for (const char* type : {"9", "11", "13"}) {
    for (int t = 0; t < 12; ++t) {
      const std::string nom = nomAccordStandard(t, *indexTypeAccord(type));
      const auto liste = cherche(nom, kStandard);
      ASSERT_FALSE(liste.empty()) << nom;
      std::set<int> tons;
      for (std::size_t s = 0; s < kStandard.size(); ++s)
        if (liste[0].cases[s] >= 0) tons.insert(hauteurDeNote(kStandard[s] + liste[0].cases[s]));
      SCOPED_TRACE(nom + " " + texte(liste[0], 6));
      EXPECT_EQ(renversement(liste[0], kStandard, lisNomAccord(nom)->fondamentale), "");
      EXPECT_GE(tons.size(), 4u);
      EXPECT_LE(tons.size(), 5u);
    }
  }
}

// What every fingering of every standard chord keeps, on every tuning.
TEST(AccordRecherche, EveryFingeringIsAPlayableChord) {
  for (const auto* accordage : {&kStandard, &kDropD, &kDADGAD, &kOpenG, &kBasse, &kSeptCordes}) {
    const std::size_t n = accordage->size();
    for (int t = 0; t < 12; ++t) {
      for (int type = 0; type < static_cast<int>(kTypesAccord.size()); ++type) {
        const std::string nom = nomAccordStandard(t, type);
        SCOPED_TRACE(nom + " on " + std::to_string(n) + " strings");
        const auto c = lisNomAccord(nom);
        const auto liste = cherche(nom, *accordage);
        ASSERT_FALSE(liste.empty());
        std::set<std::string> vus;
        std::set<bool> muetsIntérieurs;
        for (std::size_t i = 0; i < liste.size(); ++i) {
          const Doigté& d = liste[i];
          const std::string x = texte(d, n);
          EXPECT_TRUE(vus.insert(x).second) << "twice: " << x;
          if (i > 0) {
            EXPECT_GE(liste[i - 1].score, d.score);
          }
          int min = 99, max = 0, jouées = 0;
          std::set<int> tons;
          for (std::size_t s = 0; s < n; ++s) {
            const int f = d.cases[s];
            if (f < 0) continue;
            const int demiTons = (hauteurDeNote((*accordage)[s] + f) - c->fondamentale + 12) % 12;
            ASSERT_NE(c->ton(demiTons), nullptr) << x << " sounds a stranger";
            tons.insert(demiTons);
            ++jouées;
            if (f > 0) min = std::min(min, f), max = std::max(max, f);
          }
          EXPECT_GE(jouées, 3);
          if (max > 0) {
            EXPECT_LT(max - min, 4) << x;
          }
          EXPECT_LE(max, kCaseMaxRecherche);
          for (const TonAccord& ton : c->tons)
            if (ton.essentiel) {
              EXPECT_TRUE(tons.count(ton.demiTons)) << x << " lacks " << ton.degré;
            }
          muetsIntérieurs.insert(muetIntérieur(d, n));
        }
        // A muted string between two that sound only when no chord can do without.
        EXPECT_EQ(muetsIntérieurs.size(), 1u);
      }
    }
  }
}

TEST(AccordRecherche, TheParametersMoveTheRankingAndAMutedStringInsideComesOnlyWhenItMust) {
  // Strings tuned C, C#, D#, E and a reach of one fret: no two neighbouring
  // strings make two tones of C on one fret, so every C skips a string.
  ParametresAccord unDoigt;
  unDoigt.MAXSPAN = 1;
  const auto liste = cherche("C", {48, 49, 51, 52}, unDoigt);
  ASSERT_FALSE(liste.empty());
  for (const Doigté& d : liste)
    EXPECT_TRUE(muetIntérieur(d, 4)) << texte(d, 4);

  // Without a reward for open strings nor a cost for the place on the neck,
  // the A-shape barre of C is as good as the open C.
  ParametresAccord sansVide;
  sansVide.OPENS_SCORE = 0;
  sansVide.POSITION_SCORE = 0;
  EXPECT_LE(rang(cherche("C", kStandard, sansVide), "x35553", 6), 2);
  // A reach of two frets leaves out the open C, which needs three.
  ParametresAccord court;
  court.MAXSPAN = 2;
  EXPECT_EQ(rang(cherche("C", kStandard, court), "x32010", 6), 0);
  // Without the root's reward, an inversion rich in open strings leads.
  ParametresAccord sansFondamentale;
  sansFondamentale.ROOT_SCORE = 0;
  EXPECT_NE(renversement(cherche("C", kStandard, sansFondamentale)[0], kStandard, 3), "");

  // Bad input gives nothing; extreme parameters stay bounded.
  const auto c = lisNomAccord("C");
  ASSERT_TRUE(c);
  for (const std::vector<int>& cordes :
       {std::vector<int>{}, {7, 0, 5}, {7, 0, 5, 10, 2, 7, 0, 5}, {7, 0, 5, 12}, {7, 0, -1, 5}})
    EXPECT_TRUE(chercheDoigtés(*c, cordes, {}).empty());
  EXPECT_TRUE(chercheDoigtés(ConstructionAccord{}, hauteurs(kStandard), {}).empty());
  // No reach at all: only the open strings, and they make no C.
  ParametresAccord zéro{0, 0, 0, 0, 0, 0, 0};
  EXPECT_TRUE(cherche("C", kStandard, zéro).empty());
  const auto eMineur = cherche("Emin", kStandard, zéro);
  ASSERT_EQ(eMineur.size(), 1u);
  EXPECT_EQ(texte(eMineur[0], 6), "xxx000");
  // The widest reach and the heaviest weights end with the best thousand.
  ParametresAccord plein{255, 255, 255, 255, 255, 255, 255};
  EXPECT_EQ(cherche("C13", kSeptCordes, plein).size(), kDoigtésMax);
}

TEST(AccordRecherche, TheInversionNamesTheLowestNote) {
  // C is pitch 3 and D pitch 5; the open A sounds under the D of the low string's tenth fret.
  const struct {
    std::array<std::int8_t, kCordesRechercheMax> cases;
    int fondamentale;
    const char* attendu;
  } cas[] = {
      {{-1, 3, 2, 0, 1, 0, -1}, 3, ""},      {{0, 3, 2, 0, 1, 0, -1}, 3, "/E"},
      {{3, 3, 2, 0, 1, 0, -1}, 3, "/G"},     {{10, 0, 0, 10, 10, 10, -1}, 5, "/A"},
      {{-1, -1, -1, -1, -1, -1, -1}, 3, ""},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.attendu);
    EXPECT_EQ(renversement(Doigté{c.cases, 0}, kStandard, c.fondamentale), c.attendu);
  }
}

}  // namespace
}  // namespace vt
