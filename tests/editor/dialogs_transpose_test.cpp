// FTabTranspose: one track's notes moved by semitones within a fret range.
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <array>
#include <tuple>

#include "dialogs/ftab_transpose.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

using Notes = std::vector<Note>;

// Up `demiTons` within `min`..`max` over the whole track, then OK.
void transpose(FTabTranspose& d, int demiTons, int min, int max) {
  enfant<QSpinBox>(&d, "udDemiTons")->setValue(demiTons);
  enfant<QSpinBox>(&d, "udMin")->setValue(min);
  enfant<QSpinBox>(&d, "udMax")->setValue(max);
  enfant<QRadioButton>(&d, "optPiste")->setChecked(true);
  ok(d);
}

// The frets of string 1 in each bar of track `p`.
std::vector<int> frets(const CVantoroTablature& doc, int p) {
  std::vector<int> l;
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    l.push_back(doc.getNoteCase(p, m, 1, 1));
  return l;
}

TEST(Transpose, TheFourWaysANoteGoesUpWithinTheFrets) {
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 4, 0, 3, 48);     // up 2 within the range: fret 5
  doc.setNoteWhole(1, 1, 3, 48, 21, 48);   // 23 > 22: to string 2 as 23 + 55 - 59 = 19
  doc.setNoteWhole(1, 1, 1, 96, 21, 48);   // 23 > 22 on the top string: lost
  doc.setNoteWhole(1, 1, 3, 144, 21, 48);  // string 2 taken at this tick: lost
  doc.setNoteWhole(1, 1, 2, 144, 7, 48);   // ... and this one stays, moved itself
  const CVantoroTablature avant = doc;
  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  transpose(d, 2, 0, 22);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.modifi, kVrai);
  const std::vector<Notes> attendues = {{}, {{48, 19, 48}, {144, 9, 48}}, {}, {{0, 5, 48}}};
  for (int c = 1; c <= 4; ++c)
    EXPECT_EQ(corde(doc, 1, 1, c), attendues[static_cast<std::size_t>(c - 1)]) << c;
  ASSERT_EQ(doc.getUndoDepth(), 1);
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
  // The neighbour string's fret comes from the current instrument, whose
  // second string is a semitone above the track's: 23 + 55 - 60.
  tGuitare g = guitareSixCordes();
  g.corde[2] = 60;
  FTabTranspose e(kAnglais, doc, 1, g);
  transpose(e, 2, 0, 22);
  EXPECT_EQ(corde(doc, 1, 1, 2), (Notes{{48, 18, 48}, {144, 9, 48}}));
}

TEST(Transpose, NoAmountCancelOrAMinimumNotBelowTheMaximumWriteNothing) {
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  {
    FTabTranspose d(kFrancais, doc, 1, guitareSixCordes());
    EXPECT_EQ(d.windowTitle(), "Transposer");
    auto* okBouton = enfant<QPushButton>(&d, "btnOk");
    EXPECT_FALSE(okBouton->isEnabled()) << "no amount yet";
    EXPECT_EQ(enfant<QSpinBox>(&d, "udMax")->value(), 24) << "the track's fret count";
    enfant<QSpinBox>(&d, "udDemiTons")->setValue(-1);
    EXPECT_TRUE(okBouton->isEnabled());
    annuler(d);
  }
  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  d.show();
  transpose(d, 3, 12, 12);
  EXPECT_TRUE(d.isVisible());
  EXPECT_FALSE(d.modifie());
  EXPECT_EQ(enfant<QLabel>(&d, "lblErreur")->text(),
            "The min fret must be inferior to the max fret!");
  EXPECT_TRUE(doc == avant);  // no undo step either
  // Corrected, the same dialog goes through.
  enfant<QSpinBox>(&d, "udMin")->setValue(0);
  ok(d);
  EXPECT_FALSE(d.isVisible());
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 8);
}

TEST(Transpose, TheSelectionsBarsEitherWayRoundOrTheWholeTrack) {
  CVantoroTablature doc = document(1, 4);
  for (int m = 1; m <= 4; ++m)
    doc.setNoteWhole(1, m, 1, 0, 5, 48);
  const auto sélection = [&doc](int m0, int x0, int m1, int x1) {
    doc.intSelStartMesure = static_cast<i16>(m0);
    doc.intSelStartX = static_cast<i16>(x0);
    doc.intSelStopMesure = static_cast<i16>(m1);
    doc.intSelStopX = static_cast<i16>(x1);
    doc.bytSelStartCorde = doc.bytSelStopCorde = 1;
  };
  // Dragged from bar 3 back to bar 2: what the user means to move; a click
  // selects one cell: the whole track comes first; no selection: only the track.
  const struct {
    std::array<int, 4> sélection;
    bool surSélection, sélectionPossible;
    int demiTons;
    std::vector<int> frets;
  } kCas[] = {{{3, 96, 2, 0}, true, true, 1, {5, 6, 6, 5}},
              {{4, 0, 4, 0}, false, true, -2, {3, 4, 4, 3}},
              {{0, 0, 0, 0}, false, false, 1, {4, 5, 5, 4}}};
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.demiTons);
    sélection(c.sélection[0], c.sélection[1], c.sélection[2], c.sélection[3]);
    FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
    EXPECT_EQ(enfant<QRadioButton>(&d, "optSelection")->isChecked(), c.surSélection);
    EXPECT_EQ(enfant<QRadioButton>(&d, "optSelection")->isEnabled(), c.sélectionPossible);
    enfant<QSpinBox>(&d, "udDemiTons")->setValue(c.demiTons);
    ok(d);
    EXPECT_EQ(frets(doc, 1), c.frets);
  }
}

TEST(Transpose, AnotherTrackThanTheCursorsIsMovedAndUndoneAloneAndBlanksLeaveNoUndoStep) {
  CVantoroTablature doc = document(2, 1);
  doc.setCurseurPiste(1);
  doc.setNoteWhole(1, 1, 1, 0, 5, 48);
  doc.setNoteWhole(2, 1, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  {
    FTabTranspose d(kAnglais, doc, 2, guitareSixCordes());
    transpose(d, 4, 0, 24);
  }
  EXPECT_EQ(std::tuple(frets(doc, 1), frets(doc, 2), doc.CurseurPiste()),
            std::tuple(std::vector<int>{5}, std::vector<int>{9}, 1));
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
  // A track of blank notes only is left as it is, without an undo step.
  CVantoroTablature vide = document(1, 2);
  const int n = vide.setNoteWhole(1, 1, 1, 0, kCaseVide, 48);
  vide.setNoteEffet(1, 1, 1, n, effet::kVibrato);
  const CVantoroTablature blanc = vide;
  FTabTranspose d(kAnglais, vide, 1, guitareSixCordes());
  transpose(d, 5, 0, 24);
  EXPECT_FALSE(d.modifie());
  EXPECT_TRUE(vide == blanc);
}

}  // namespace
}  // namespace vt::essai
