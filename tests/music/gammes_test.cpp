// The scale file and one scale in one key: reading records whatever the bytes,
// the rotation of modes, the two-octave folding, labels and the notes played.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "formats/string_table.h"
#include "music/gamme.h"
#include "music/gammes.h"

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
  EXPECT_EQ(f.gamme(2).demitons[1], 12);
  EXPECT_EQ(f.gamme(2).demitons[2], 254);
  EXPECT_EQ(nomGamme(f.gamme(2), kLangFrançais), "Mode??x?");
  EXPECT_FALSE(estMode(f.gamme(2))) << "the raw name starts with blanks";
  EXPECT_TRUE(estAccord(f.gamme(2), kLangAnglais));
  EXPECT_FALSE(estAccord(f.gamme(2), kLangFrançais));
}

TEST(FichierGammes, AMissingFileGivesNoRecordAndItsMessage) {
  const auto f = FichierGammes::load(std::filesystem::path(VT_SOURCE_DIR) / "no such scales.dat");
  EXPECT_EQ(f.count(), 0);
  EXPECT_EQ(f.message(), 6001);
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

TEST(Gamme, Demitons2IntervalleNamesTwelveDistancesAndNothingElse) {
  const std::array<const char*, 12> noms = {"1",  "2b", "2",  "3b", "3",  "4",
                                            "5b", "5",  "6b", "6",  "7b", "7"};
  for (int k = 0; k < 12; ++k)
    EXPECT_EQ(demitons2intervalle(std::to_string(k)), noms[static_cast<std::size_t>(k)]);
  for (const char* autre : {"", "12", "-1", "01", "255", " 1"})
    EXPECT_EQ(demitons2intervalle(autre), "") << autre;
}

TEST(Gamme, TwoOctavesFoldOntoEachOther) {
  // G# (key 12) writes its bytes onto positions 12 to 23; the folding fills
  // positions 1 to 11 and 24 from them.
  const auto n = chargeNotesGamme(kMajeure, 12);
  for (int p = 1; p <= 12; ++p) {
    SCOPED_TRACE(p);
    EXPECT_EQ(n.notes[p], n.notes[p + 12]);
    EXPECT_EQ(n.intervalles[p], n.intervalles[p + 12]);
    EXPECT_EQ(n.notes[p], !n.intervalles[p].empty());
  }
  EXPECT_EQ(n.intervalles[12], "0");
  EXPECT_EQ(n.intervalles[24], "0");
  EXPECT_EQ(n.intervalles[11], "11");  // G, the seventh of G# major
  EXPECT_EQ(n.intervalles[2], "2");    // A#
  EXPECT_FALSE(n.notes[1]);            // A
}

TEST(Gamme, PlaysTheOctaveFromRootToRoot) {
  struct Cas {
    Demitons d;
    int tonalité;
    std::vector<int> notes;
  };
  const Demitons seule = {0, X, X, X, X, X, X, X, X, X, X, X};
  for (const Cas& c : {Cas{kMajeure, 4, {48, 50, 52, 53, 55, 57, 59, 60}},
                       Cas{kMajeure, 1, {45, 47, 49, 50, 52, 54, 56, 57}}, Cas{seule, 12, {56, 68}},
                       Cas{kDorien, 4, {48, 50, 52, 53, 55, 57, 59, 60}}}) {
    SCOPED_TRACE(c.tonalité);
    EXPECT_EQ(listeLecture(chargeNotesGamme(c.d, c.tonalité), c.tonalité), c.notes);
  }
}

TEST(Gamme, LabelsFollowTheSetting) {
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
}

TEST(Gamme, TheTitleOfTheOneNoteRecordIsTheKeyAlone) {
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

TEST(Gamme, PlacesOnTheFretboardOfEveryTunedString) {
  tGuitare basse;
  basse.nbrCordes = 4;
  basse.corde = {0, 43, 38, 33, 28, 0, 0, 0};
  const auto n = chargeNotesGamme({0, X, X, X, X, X, X, X, X, X, X, X}, 1);  // A alone
  const std::vector<tCaseGamme> attendu = {
      {2, 1, 1},  {14, 1, 1}, {7, 2, 1}, {19, 2, 1}, {0, 3, 1},
      {12, 3, 1}, {24, 3, 1}, {5, 4, 1}, {17, 4, 1},
  };
  EXPECT_EQ(casesGamme(n, basse), attendu);
  // Every fret of a chromatic scale, on the six strings of the standard tuning.
  const auto chromatique = chargeNotesGamme({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, 5);
  EXPECT_EQ(casesGamme(chromatique, tGuitare{}).size(), 6u * 25u);
}

}  // namespace
}  // namespace vt
