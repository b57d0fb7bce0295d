// The scale file and one scale in one key; the harmoniser's drawn pitch
// classes matched against "scales.dat", every shipped record found again.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "document/cp1252.h"
#include "formats/string_table.h"
#include "music/gamme.h"
#include "music/gammes.h"
#include "music/harmony.h"

namespace vt {
namespace {

constexpr byt X = kHorsGamme;

std::vector<std::uint8_t> enregistrement(const Demitons& d, std::string nom, std::string nomEN) {
  std::vector<std::uint8_t> r(d.begin(), d.end());
  nom.resize(kTailleNomGamme, ' ');
  nomEN.resize(kTailleNomGamme, ' ');
  r.insert(r.end(), nom.begin(), nom.end());
  r.insert(r.end(), nomEN.begin(), nomEN.end());
  return r;
}

const Demitons kMajeure = {0, X, 2, X, 4, 5, X, 7, X, 9, X, 11};
const Demitons kDorien = {10, X, 0, X, 2, 3, X, 5, X, 7, X, 9};

TEST(FichierGammes, ReadsWholeRecordsOfAnyBytes) {
  std::vector<std::uint8_t> octets = enregistrement(kMajeure, "Gamme majeure", "Major scale");
  const auto deux =
      enregistrement({0, 12, 254, X, X, X, X, X, X, X, X, X},
                     std::string("  Mode\0\x01x\x7F", 10) + std::string(4, '\0'), "Chord odd");
  octets.insert(octets.end(), deux.begin(), deux.end());

  struct Cas {
    std::size_t taille;
    int records;
    std::size_t reste;
  };
  for (const Cas& c :
       {Cas{0, 0, 0}, Cas{91, 0, 91}, Cas{92, 1, 0}, Cas{150, 1, 58}, Cas{184, 2, 0}}) {
    SCOPED_TRACE(c.taille);
    const auto f = FichierGammes::depuisOctets(std::span(octets).first(c.taille));
    EXPECT_EQ(f.count(), c.records);
    EXPECT_EQ(f.octetsEnTrop(), c.reste);
    EXPECT_EQ(f.message(), 0);
  }
  const auto f = FichierGammes::depuisOctets(octets);
  EXPECT_EQ(f.gamme(1).demitons, kMajeure);
  EXPECT_EQ(nomGamme(f.gamme(1), kLangFrançais), "Gamme majeure");
  EXPECT_EQ(nomGamme(f.gamme(1), kLangAnglais), "Major scale");
  // Bytes above 11 are kept as they are; control bytes show as "?", the
  // trailing NULs of a C writer's padding go with the blanks.
  EXPECT_EQ(f.gamme(2).demitons, (Demitons{0, 12, 254, X, X, X, X, X, X, X, X, X}));
  EXPECT_EQ(nomGamme(f.gamme(2), kLangFrançais), "Mode??x?");
  EXPECT_FALSE(estMode(f.gamme(2))) << "the raw name starts with blanks";
  EXPECT_TRUE(estAccord(f.gamme(2), kLangAnglais));
  EXPECT_FALSE(estAccord(f.gamme(2), kLangFrançais));
  // A missing file: no record, and its message.
  const auto absent = FichierGammes::load(std::filesystem::path(VT_SOURCE_DIR) / "no such.dat");
  EXPECT_EQ(std::make_pair(absent.count(), absent.message()), std::make_pair(0, 6001));
}

TEST(Gamme, ModesTurnOntoTheirOwnRootOnlyWhenAsked) {
  tGamme dorien{kDorien, "Mode dorien (II)", "Dorian mode (II)"};
  EXPECT_EQ(demitonsAffichés(dorien, kModeDansLaTonalitéDuParent), kDorien);
  const Demitons tourné = {0, X, 2, 3, X, 5, X, 7, X, 9, 10, X};
  EXPECT_EQ(demitonsAffichés(dorien, kModeSurSaFondamentale), tourné);

  // In key C, mode 1 shows C major's notes with the root on D; mode 2 puts
  // the Dorian root on C.
  const int enDo = 4;
  const auto parent = chargeNotesGamme(demitonsAffichés(dorien, 1), enDo);
  const auto propre = chargeNotesGamme(demitonsAffichés(dorien, 2), enDo);
  for (int p = 1; p <= 24; ++p) {
    SCOPED_TRACE(p);
    EXPECT_EQ(parent.notes[p], chargeNotesGamme(kMajeure, enDo).notes[p]);
    EXPECT_EQ(estFondamentale(parent, p), p == 6 || p == 18);  // D
    EXPECT_EQ(estFondamentale(propre, p), p == 4 || p == 16);  // C
  }
  EXPECT_TRUE(propre.notes[7]) << "E flat, the Dorian third on C";

  // A "Mode" record with no byte 0 turns by 12: unchanged. Scales never turn.
  tGamme sansZéro{{1, X, 3, X, X, X, X, X, X, X, X, X}, "Mode sans racine", "Rootless mode"};
  EXPECT_EQ(demitonsAffichés(sansZéro, 2), sansZéro.demitons);
  tGamme gamme{kDorien, "Gamme", "Scale"};
  EXPECT_EQ(demitonsAffichés(gamme, 2), kDorien);
}

TEST(Gamme, TwoOctavesFoldOntoEachOtherPlayFromRootToRootAndLieOnEveryTunedString) {
  // G# (key 12) writes its bytes onto positions 12 to 23; the folding fills
  // positions 1 to 11 and 24 from them: G (11) the seventh, A# (2) the second, no A (1).
  const auto n = chargeNotesGamme(kMajeure, 12);
  for (int p = 1; p <= 12; ++p) {
    EXPECT_EQ(std::make_pair(n.notes[p], n.intervalles[p]),
              std::make_pair(n.notes[p + 12], n.intervalles[p + 12]))
        << p;
    EXPECT_EQ(n.notes[p], !n.intervalles[p].empty()) << p;
  }
  EXPECT_EQ((std::vector<std::string>{n.intervalles[12], n.intervalles[24], n.intervalles[11],
                                      n.intervalles[2], n.intervalles[1]}),
            (std::vector<std::string>{"0", "0", "11", "2", ""}));
  struct Cas {
    Demitons d;
    int tonalité;
    std::vector<int> notes;
  };
  const Demitons seule = {0, X, X, X, X, X, X, X, X, X, X, X};
  for (const Cas& c : {Cas{kMajeure, 4, {48, 50, 52, 53, 55, 57, 59, 60}},
                       Cas{kMajeure, 1, {45, 47, 49, 50, 52, 54, 56, 57}}, Cas{seule, 12, {56, 68}},
                       Cas{kDorien, 4, {48, 50, 52, 53, 55, 57, 59, 60}}}) {
    EXPECT_EQ(listeLecture(chargeNotesGamme(c.d, c.tonalité), c.tonalité), c.notes) << c.tonalité;
  }

  // The places on the fretboard of every tuned string.
  tGuitare basse;
  basse.nbrCordes = 4;
  basse.corde = {0, 43, 38, 33, 28, 0, 0, 0};
  const auto la = chargeNotesGamme({0, X, X, X, X, X, X, X, X, X, X, X}, 1);  // A alone
  const std::vector<tCaseGamme> attendu = {
      {2, 1, 1},  {14, 1, 1}, {7, 2, 1}, {19, 2, 1}, {0, 3, 1},
      {12, 3, 1}, {24, 3, 1}, {5, 4, 1}, {17, 4, 1},
  };
  EXPECT_EQ(casesGamme(la, basse), attendu);
  // Every fret of a chromatic scale, on the six strings of the standard tuning.
  const auto chromatique = chargeNotesGamme({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, 5);
  EXPECT_EQ(casesGamme(chromatique, tGuitare{}).size(), 6u * 25u);
}

TEST(Gamme, LabelsFollowTheSettingIntervalsAndTitles) {
  const auto n = chargeNotesGamme(kMajeure, 4);  // C major
  struct Cas {
    int setGAMConst, setLang;
    const char* racine;  // C, position 4
    const char* tierce;  // E, position 8
    const char* texte;
  };
  for (const Cas& c : {Cas{0, kLangAnglais, "", "", ""},
                       Cas{1, kLangAnglais, "K", "4", "9 11 K 2 4 5 7 9 11 K 2 4 5 7"},
                       Cas{1, kLangFrançais, "T", "4", "9 11 T 2 4 5 7 9 11 T 2 4 5 7"},
                       Cas{2, kLangAnglais, "1", "3", "6 7 1 2 3 4 5 6 7 1 2 3 4 5"},
                       Cas{3, kLangFrançais, "C", "E", "A B C D E F G A B C D E F G"}}) {
    SCOPED_TRACE(c.setGAMConst);
    EXPECT_EQ(etiquetteNote(n, 4, c.setGAMConst, c.setLang), c.racine);
    EXPECT_EQ(etiquetteNote(n, 8, c.setGAMConst, c.setLang), c.tierce);
    EXPECT_EQ(texteConstruction(n, c.setGAMConst, c.setLang), c.texte);
  }

  // demitons2intervalle names twelve distances and nothing else.
  const std::array<const char*, 12> noms = {"1",  "2b", "2",  "3b", "3",  "4",
                                            "5b", "5",  "6b", "6",  "7b", "7"};
  for (int k = 0; k < 12; ++k)
    EXPECT_EQ(demitons2intervalle(std::to_string(k)), noms[static_cast<std::size_t>(k)]);
  for (const char* autre : {"", "12", "-1", "01", "255", " 1"})
    EXPECT_EQ(demitons2intervalle(autre), "") << autre;

  // The title of the one-note record is the key alone.
  EXPECT_EQ(titreGamme("Major scale", nomTonalité(4, kLangAnglais), kLangAnglais),
            "Major scale of C");
  EXPECT_EQ(titreGamme("Gamme majeure", nomTonalité(12, kLangFrançais), kLangFrançais),
            "Gamme majeure de Sol #");
  EXPECT_EQ(titreGamme("Single note", "A#", kLangAnglais), "A#");
  EXPECT_EQ(titreGamme("Note seule", "Ré", kLangFrançais), "Ré");
  // Only the first 11 characters are compared with the string.
  EXPECT_EQ(titreGamme("Single notes", "A", kLangAnglais), "A");
  EXPECT_EQ(titreGamme("Note seule!", "A", kLangFrançais), "Note seule! de A");
  EXPECT_EQ(nomTonalité(0, kLangAnglais), "");
}

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

TEST(Harmony, ANoteFlipsItsPitchClassInEveryOctaveOnEveryStringAndPitchesAreCBased) {
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
  // Pitch names and the folding are C-based.
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

  // Drawn pitches lie on every string of the neck.
  tGuitare g;  // standard tuning, six strings
  const auto cases = casesHarmony(tons({C}), g);
  // Octave shift by octave shift, string by string.
  const std::vector<std::pair<int, int>> attendu = {{12, 7}, {24, 7}, {1, 2},  {3, 5},  {8, 1},
                                                    {13, 2}, {5, 3},  {10, 4}, {15, 5}, {8, 6},
                                                    {20, 1}, {17, 3}, {22, 4}, {20, 6}};
  EXPECT_EQ(cases, attendu) << "string 7 has no tuning: its places lie off the board";
  EXPECT_TRUE(casesHarmony(tons({}), g).empty());
}

TEST(Harmony, IdentificationAndHarmonisationOfTheShippedFile) {
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

  // Harmonisation lists every chord at every drawn root.
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

TEST(Harmony, ChordRecordsFindTheirTypeInTheChordDictionary) {
  using Type = std::optional<std::string>;
  std::vector<Type> types;
  for (const char* nom : {"Chord 5 (power chord)",
                          "Chord major",
                          "Chord minor",
                          "Chord 7",
                          "Chord maj7",
                          "Chord m7",
                          "Chord m7b5 (half-diminished)",
                          "Chord dim",
                          "Chord aug",
                          "Chord sus2",
                          "Chord sus4",
                          "Chord 7sus4",
                          "Chord 6",
                          "Chord m6",
                          "Chord 9",
                          "Chord m(maj7)",
                          "Chord dim7",
                          "Chord add9",
                          "Chord 7#9",
                          "Major scale"})
    types.push_back(typeAccordStandard(livré().gamme(numéro(nom)).demitons));
  EXPECT_EQ(types, (std::vector<Type>{"sus", "maj",     "min",  "7",    "maj7",  "min7", "min7 5b",
                                      "dim", "aug",     "sus2", "sus4", "7sus4", "6",    "min6",
                                      "9",   "maj7 3b", {},     {},     {},      {}}));
  EXPECT_EQ(typeAccordStandard({0, 13, X, X, X, X, X, X, X, X, X, X}), std::nullopt);
}

}  // namespace
}  // namespace vt
