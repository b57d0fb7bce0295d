// Notes as the tuner and the command line read them: from a frequency to the
// nearest note, its cents and the nearest open string; note names as typed.
#include <gtest/gtest.h>

#include <vector>

#include "music/accordage.h"
#include "music/gamme_texte.h"

namespace vt {
namespace {

TEST(Accordage, NearestNoteAndNearestOpenString) {
  const std::vector<int> standard = {64, 59, 55, 50, 45, 40};
  const std::vector<int> basse4 = {43, 38, 33, 28, 0, 0, 0};  // past the count, 0
  struct Cas {
    double hz;
    const std::vector<int>* cordes;
    int midi;
    double cents;
    const char* nom;
    int corde;
    double centsCorde;
  };
  const Cas cas[] = {
      {82.4069, &standard, 40, 0, "E", 6, 0},
      {440.0, &standard, 69, 0, "A", 1, 500},     // above every string: string 1
      {73.4162, &standard, 38, 0, "D", 6, -200},  // drop D, still the low string
      {84.8, &standard, 40, 49.6, "E", 6, 49.6},
      {85.0, &standard, 41, -46.4, "F", 6, 53.6},  // the next note, the same string
      {30.8677, &basse4, 23, 0, "B", 4, -500},     // a five-string's low B on a four-string
      {116.54, &standard, 46, 0, "A#", 5, 100},
      {1318.51, &standard, 88, 0, "E", 1, 2400},
  };
  for (const Cas& c : cas) {
    SCOPED_TRACE(::testing::Message() << c.hz << " Hz");
    const NoteEntendue n = noteEntendue(c.hz, *c.cordes);
    EXPECT_EQ(n.midi, c.midi);
    EXPECT_NEAR(n.cents, c.cents, 0.1);
    EXPECT_STREQ(nomNote(n.midi), c.nom);
    EXPECT_EQ(n.corde, c.corde);
    EXPECT_NEAR(n.centsCorde, c.centsCorde, 0.1);
  }
  // Exactly between two strings: the lower number.
  const std::vector<int> égales = {47, 45};
  EXPECT_EQ(noteEntendue(hzDeMidi(46), égales).corde, 1);
  EXPECT_EQ(noteEntendue(0, standard).corde, 0);
  EXPECT_EQ(noteEntendue(110, {}).corde, 0);
  EXPECT_STREQ(nomNote(-1), "B");  // below MIDI's first note, the names go on

  // Note names as typed, in both languages, with sharps, flats and octaves.
  struct Nom {
    const char* texte;
    std::optional<int> classe;  // A-based
    std::optional<int> note;    // with its octave
    std::optional<int> noteOuClasse;
  };
  const std::optional<int> aucune;
  for (const Nom& n : {Nom{"A", 0, aucune, 69},
                       Nom{"c", 3, aucune, 60},
                       Nom{"C#", 4, aucune, 61},
                       Nom{"Db", 4, aucune, 61},
                       Nom{"bb", 1, aucune, 70},
                       Nom{"B", 2, aucune, 71},
                       Nom{"Do", 3, aucune, 60},
                       Nom{"R\xC3\xA9 #", 6, aucune, 63},
                       Nom{"R\xC3\x89", 5, aucune, 62},
                       Nom{"re", 5, aucune, 62},
                       Nom{"Sol #", 11, aucune, 68},
                       Nom{"sib", 1, aucune, 70},
                       Nom{"Mi", 7, aucune, 64},
                       Nom{"C4", 3, 60, 60},
                       Nom{"E2", 7, 40, 40},
                       Nom{"Eb4", 6, 63, 63},
                       Nom{"C-1", 3, 0, 0},
                       Nom{"G9", 10, 127, 127},
                       Nom{"G#9", 11, aucune, 68},  // past MIDI: the pitch class alone
                       Nom{"60", aucune, 60, 60},
                       Nom{"0", aucune, 0, 0},
                       Nom{"128", aucune, aucune, aucune},
                       Nom{"-1", aucune, aucune, aucune},
                       Nom{"H", aucune, aucune, aucune},
                       Nom{"", aucune, aucune, aucune},
                       Nom{"Dom", aucune, aucune, aucune},
                       Nom{"C#x", aucune, aucune, aucune},
                       Nom{"E10", aucune, aucune, aucune}}) {
    SCOPED_TRACE(n.texte);
    EXPECT_EQ(classeDeNom(n.texte), n.classe);
    EXPECT_EQ(noteDeTexte(n.texte), n.note);
    EXPECT_EQ(noteOuClasse(n.texte), n.noteOuClasse);
  }
}

}  // namespace
}  // namespace vt
