// Notes as the command line reads them.
#include <gtest/gtest.h>

#include "music/gamme_texte.h"

namespace vt {
namespace {

TEST(GammeTexte, NamesInBothLanguagesWithSharpsFlatsAndOctaves) {
  struct Cas {
    const char* texte;
    std::optional<int> classe;  // A-based
    std::optional<int> note;    // with its octave
    std::optional<int> noteOuClasse;
  };
  const std::optional<int> aucune;
  for (const Cas& c : {Cas{"A", 0, aucune, 69},
                       Cas{"c", 3, aucune, 60},
                       Cas{"C#", 4, aucune, 61},
                       Cas{"Db", 4, aucune, 61},
                       Cas{"bb", 1, aucune, 70},
                       Cas{"B", 2, aucune, 71},
                       Cas{"Do", 3, aucune, 60},
                       Cas{"R\xC3\xA9 #", 6, aucune, 63},
                       Cas{"R\xC3\x89", 5, aucune, 62},
                       Cas{"re", 5, aucune, 62},
                       Cas{"Sol #", 11, aucune, 68},
                       Cas{"sib", 1, aucune, 70},
                       Cas{"Mi", 7, aucune, 64},
                       Cas{"C4", 3, 60, 60},
                       Cas{"E2", 7, 40, 40},
                       Cas{"Eb4", 6, 63, 63},
                       Cas{"C-1", 3, 0, 0},
                       Cas{"G9", 10, 127, 127},
                       Cas{"G#9", 11, aucune, 68},  // past MIDI: the pitch class alone
                       Cas{"60", aucune, 60, 60},
                       Cas{"0", aucune, 0, 0},
                       Cas{"128", aucune, aucune, aucune},
                       Cas{"-1", aucune, aucune, aucune},
                       Cas{"H", aucune, aucune, aucune},
                       Cas{"", aucune, aucune, aucune},
                       Cas{"Dom", aucune, aucune, aucune},
                       Cas{"C#x", aucune, aucune, aucune},
                       Cas{"E10", aucune, aucune, aucune}}) {
    SCOPED_TRACE(c.texte);
    EXPECT_EQ(classeDeNom(c.texte), c.classe);
    EXPECT_EQ(noteDeTexte(c.texte), c.note);
    EXPECT_EQ(noteOuClasse(c.texte), c.noteOuClasse);
  }
}

}  // namespace
}  // namespace vt
