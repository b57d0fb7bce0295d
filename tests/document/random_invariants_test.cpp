// Thousands of mixed operations with fixed seeds, some with coordinates outside
// the document: after each one the document must still hold together.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "document/validate.h"
#include "test_support.h"

namespace vt {
namespace {

class Melangeur {
 public:
  explicit Melangeur(unsigned seed) : rng_(seed) {}

  int entre(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
  bool piece() { return entre(0, 1) == 1; }

  // Mostly valid coordinates, sometimes one step outside.
  int piste() {
    return entre(0, 9) == 0 ? entre(-1, doc.getPisteLast() + 2) : entre(1, doc.getPisteLast());
  }
  int mesure() {
    return entre(0, 9) == 0 ? entre(-1, doc.getMesureLast() + 2) : entre(1, doc.getMesureLast());
  }
  int corde() { return entre(0, 9) == 0 ? entre(-1, 8) : entre(1, 6); }
  int tick() { return entre(0, 9) == 0 ? entre(-50, 400) : entre(0, 15) * 12; }
  int duree() {
    return std::vector<int>{6, 12, 16, 18, 24, 36, 48, 72, 96, 144, 192, 250}[entre(0, 11)];
  }
  int numero() { return entre(-1, 12); }
  byt octet(int lo, int hi) { return static_cast<byt>(entre(lo, hi)); }
  vbool vf() { return piece() ? kVrai : kFaux; }

  tGuitare guitare() {
    tGuitare g;
    g.nbrCordes = static_cast<byt>(entre(4, 7));
    for (int c = 1; c <= 7; ++c)
      g.corde[c] = c <= g.nbrCordes ? static_cast<byt>(70 - 5 * c) : 0;
    return g;
  }

  // The loader's primitives store without any check, so they may leave a list
  // out of order; every other operation must still stay inside the data.
  void unePrimitive() {
    const int p = piste(), m = mesure(), c = corde();
    switch (entre(0, 3)) {
      case 0:
        doc.addNote(p, m, c);
        break;
      case 1:
        doc.setCordeNbNotes(p, m, c, entre(-1, 20));
        break;
      case 2:
        doc.setNoteX(p, m, c, numero(), static_cast<u16>(entre(0, 65535)));
        break;
      default:
        doc.setNoteDurée(p, m, c, numero(), static_cast<byt>(entre(0, 255)));
        break;
    }
  }

  void uneOperation() {
    const std::vector<std::function<void()>> ops = {
        [&] { doc.setNoteWhole(piste(), mesure(), corde(), tick(), entre(0, 24), duree()); },
        [&] { doc.setNoteWhole(piste(), mesure(), corde(), tick(), 255, duree()); },
        [&] { doc.deleteNote(piste(), mesure(), corde(), numero()); },
        [&] { doc.setNoteEffet(piste(), mesure(), corde(), numero(), octet(0, 27)); },
        [&] { doc.setNoteAttaque(piste(), mesure(), corde(), numero(), octet(0, 11)); },
        [&] { doc.setNoteDurée(piste(), mesure(), corde(), numero(), octet(0, 255)); },
        [&] {
          const int p = piste(), m = mesure();
          const int n = doc.addandplaceMesureAccord(p, m, tick());
          OneBased<byt> f(entre(0, 8), 3);
          doc.setMesureAccord(p, m, n, "Am7", f);
        },
        [&] { doc.deleteAccord(piste(), mesure(), numero()); },
        [&] { doc.setMesureTexte(piste(), mesure(), tick(), "txt", vf()); },
        [&] { doc.deleteTexte(piste(), mesure(), numero(), vf()); },
        [&] { doc.setMesureTempo(mesure(), tick(), octet(40, 250)); },
        [&] { doc.deleteTempo(mesure(), numero()); },
        [&] {
          const int dn[] = {0, 1, 2, 3, 4, 8, 16};
          doc.setMesureSignature(mesure(), entre(0, 17), dn[entre(0, 6)]);
        },
        [&] { doc.setMesureTonalité(mesure(), octet(0, 255)); },
        [&] { doc.setMesureLoopGaucheType(mesure(), octet(0, 3)); },
        [&] { doc.setMesureLoopDroiteType(mesure(), octet(0, 3)); },
        [&] { doc.checkMesureRenvois(); },
        [&] { doc.setMarqueurStart(mesure(), tick()); },
        [&] { doc.setMarqueurStop(mesure(), tick()); },
        [&] {
          if (doc.getMesureLast() < 12) doc.addMesure();
        },
        [&] {
          if (doc.getPisteLast() < 4)
            doc.addPiste(entre(-1, doc.getPisteLast() + 1), guitare(), 27);
        },
        [&] { doc.deletePiste(piste()); },
        [&] {
          const int p = piste();
          doc.setGuitareNbrCordes(p, entre(0, 8));
          doc.changePisteNbrCordes(p);
        },
        [&] { doc.garbageMesure(mesure(), entre(-1, 3)); },
        [&] {
          if (doc.getMesureLast() < 12) doc.insertMesure(piste(), mesure(), entre(-1, 3));
        },
        [&] { doc.deleteMesure(piste(), mesure()); },
        [&] {
          if (doc.getMesureLast() < 12) doc.insertSilence(piste(), mesure(), tick(), duree());
        },
        [&] { doc.removeNotes(piste(), mesure(), tick(), duree()); },
        [&] {
          doc.setCurseurPiste(static_cast<byt>(piste()));
          doc.storeUndo(piece());
        },
        [&] { doc.storeRedo(); },
        [&] { doc.makeUndo(); },
        [&] { doc.makeRedo(); },
        [&] {
          doc.transpose(piste(), entre(-26, 26), entre(0, 30), entre(0, 5), mesure(), mesure(),
                        guitare());
        },
        [&] {
          const int p = piste(), m = mesure(), c = corde();
          doc.getTempsNote(p, m, c, numero());
          doc.isRythmContinueInTemps(p, m, c, tick());
          doc.getPremierSilence(p);
          doc.getOnPageViewMode(p, m);
        },
    };
    // Half of the operations place notes, so that the others find content to work on.
    if (piece()) {
      for (int i = entre(1, 8); i > 0; --i)
        doc.setNoteWhole(piste(), mesure(), corde(), tick(), entre(0, 24), duree());
      return;
    }
    ops[static_cast<std::size_t>(entre(0, static_cast<int>(ops.size()) - 1))]();
  }

  CVantoroTablature doc;

 private:
  std::mt19937 rng_;
};

class RandomInvariants : public ::testing::TestWithParam<unsigned> {};

TEST_P(RandomInvariants, HoldAfterEveryOperation) {
  Melangeur m(GetParam());
  for (int i = 0; i < 4000; ++i) {
    m.uneOperation();
    const std::string faute = validateDocument(m.doc);
    ASSERT_EQ(faute, "") << "after operation " << i << " with seed " << GetParam();
    ASSERT_LE(m.doc.getUndoDepth(), kProfondeurUndo);
    ASSERT_LE(m.doc.getRedoDepth(), kProfondeurUndo);
  }
  int notes = 0;
  for (int p = 1; p <= m.doc.getPisteLast(); ++p)
    for (int b = 1; b <= m.doc.getMesureLast(); ++b)
      for (int c = 1; c <= m.doc.getGuitareNbrCordes(p); ++c)
        notes += m.doc.getNoteLast(p, b, c);
  EXPECT_GT(notes, 50) << "the mix should leave content to work on";
}

// Whatever a command does to the cursor's track, undo brings that track back
// exactly, and redo brings the command's result back.
TEST_P(RandomInvariants, UndoRestoresTheTrackExactly) {
  Melangeur m(GetParam());
  for (int i = 0; i < 600; ++i) {
    m.uneOperation();
    const int p = m.doc.CurseurPiste();
    if (!m.doc.hasPiste(p)) m.doc.setCurseurPiste(1);
    const tPiste avant = m.doc.piste(m.doc.CurseurPiste());
    const int mesures = m.doc.getMesureLast();
    m.doc.storeUndo(true);
    for (int k = m.entre(1, 4); k > 0; --k) {
      const int piste = m.doc.CurseurPiste(), mes = m.entre(1, mesures);
      switch (m.entre(0, 4)) {
        case 0:
          m.doc.setNoteWhole(piste, mes, m.corde(), m.tick(), m.entre(0, 24), m.duree());
          break;
        case 1:
          m.doc.removeNotes(piste, mes, m.tick(), m.duree());
          break;
        case 2:
          m.doc.deleteMesure(piste, mes);
          break;
        case 3:
          m.doc.setMesureTexte(piste, mes, m.tick(), "t", kFaux);
          break;
        default:
          m.doc.transpose(piste, m.entre(-5, 5), 24, 0, 1, mesures, tGuitare{});
          break;
      }
    }
    const tPiste apres = m.doc.piste(m.doc.CurseurPiste());
    m.doc.makeUndo();
    ASSERT_EQ(m.doc.piste(m.doc.CurseurPiste()), avant) << "operation " << i;
    m.doc.makeRedo();
    ASSERT_EQ(m.doc.piste(m.doc.CurseurPiste()), apres) << "operation " << i;
    ASSERT_EQ(m.doc.getMesureLast(), mesures);
  }
}

TEST_P(RandomInvariants, RawLoaderCallsOnlyDisturbTheOrderOfNotes) {
  Melangeur m(GetParam());
  for (int i = 0; i < 3000; ++i) {
    if (m.entre(0, 4) == 0)
      m.unePrimitive();
    else
      m.uneOperation();
    const std::string faute = validateDocument(m.doc);
    ASSERT_TRUE(faute.empty() || faute.find("note list") != std::string::npos)
        << faute << " after operation " << i << " with seed " << GetParam();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomInvariants, ::testing::Values(1u, 7u, 42u, 2024u, 31337u));

}  // namespace
}  // namespace vt
