// FTabTranspose: the notes of one track moved by semitones within a fret
// range, passed to a neighbouring string when they leave it.
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "dialogs/ftab_transpose.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

// Up `demiTons` within 0..`max` over the whole track, then OK.
void transpose(FTabTranspose& d, int demiTons, int min, int max) {
  enfant<QSpinBox>(&d, "udDemiTons")->setValue(demiTons);
  enfant<QSpinBox>(&d, "udMin")->setValue(min);
  enfant<QSpinBox>(&d, "udMax")->setValue(max);
  enfant<QRadioButton>(&d, "optPiste")->setChecked(true);
  ok(d);
}

TEST(Transpose, TheFourWaysANoteGoesUpWithinTheFrets) {
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 4, 0, 3, 48);  // up 2 within the range: fret 5
  doc.setNoteWhole(1, 1, 3, 48, 21,
                   48);                    // 23 > 22: to string 2 as 23 + 55 - 59 = 19
  doc.setNoteWhole(1, 1, 1, 96, 21, 48);   // 23 > 22 on the top string: lost
  doc.setNoteWhole(1, 1, 3, 144, 21, 48);  // string 2 taken at this tick: lost
  doc.setNoteWhole(1, 1, 2, 144, 7, 48);   // ... and this one stays, moved itself
  const CVantoroTablature avant = doc;

  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  transpose(d, 2, 0, 22);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.modifi, kVrai);
  EXPECT_EQ(corde(doc, 1, 1, 4), (std::vector<Note>{{0, 5, 48}}));
  EXPECT_EQ(corde(doc, 1, 1, 3), (std::vector<Note>{}));
  EXPECT_EQ(corde(doc, 1, 1, 2), (std::vector<Note>{{48, 19, 48}, {144, 9, 48}}));
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<Note>{}));

  ASSERT_EQ(doc.getUndoDepth(), 1);
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
}

TEST(Transpose, TheNeighbourStringsFretComesFromTheCurrentInstrument) {
  // The track is in standard tuning; the current instrument has its second
  // string a semitone higher, and that is the one the fret is counted on.
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 3, 0, 21, 48);
  tGuitare g = guitareSixCordes();
  g.corde[2] = 60;
  FTabTranspose d(kAnglais, doc, 1, g);
  transpose(d, 2, 0, 22);
  EXPECT_EQ(corde(doc, 1, 1, 2), (std::vector<Note>{{0, 18, 48}}));  // 23 + 55 - 60
}

TEST(Transpose, NoAmountCancelOrAMinimumNotBelowTheMaximumWriteNothing) {
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  {
    FTabTranspose d(kFrancais, doc, 1, guitareSixCordes());
    EXPECT_EQ(d.windowTitle(), "Transposer");
    auto* demiTons = enfant<QSpinBox>(&d, "udDemiTons");
    EXPECT_EQ(demiTons->value(), 0);
    auto* okBouton = enfant<QPushButton>(&d, "btnOk");
    EXPECT_FALSE(okBouton->isEnabled());
    // The highest fret starts at the track's fret count.
    EXPECT_EQ(enfant<QSpinBox>(&d, "udMax")->value(), 24);
    demiTons->setValue(-1);
    EXPECT_TRUE(okBouton->isEnabled());
    annuler(d);
  }
  EXPECT_TRUE(doc == avant);

  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  d.show();
  transpose(d, 3, 12, 12);
  EXPECT_TRUE(d.isVisible());
  EXPECT_FALSE(d.modifie());
  auto* erreur = enfant<QLabel>(&d, "lblErreur");
  EXPECT_FALSE(erreur->isHidden());
  EXPECT_EQ(erreur->text(), "The min fret must be inferior to the max fret!");
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
  // Dragged from bar 3 back to bar 2.
  doc.intSelStartMesure = 3;
  doc.intSelStartX = 96;
  doc.intSelStopMesure = 2;
  doc.intSelStopX = 0;
  doc.bytSelStartCorde = doc.bytSelStopCorde = 1;
  {
    FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
    // A selection of several cells is what the user means to move.
    EXPECT_TRUE(enfant<QRadioButton>(&d, "optSelection")->isChecked());
    enfant<QSpinBox>(&d, "udDemiTons")->setValue(1);
    ok(d);
  }
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 5);
  EXPECT_EQ(doc.getNoteCase(1, 2, 1, 1), 6);
  EXPECT_EQ(doc.getNoteCase(1, 3, 1, 1), 6);
  EXPECT_EQ(doc.getNoteCase(1, 4, 1, 1), 5);

  // A click selects one cell: the whole track is offered first.
  doc.intSelStartMesure = doc.intSelStopMesure = 4;
  doc.intSelStartX = doc.intSelStopX = 0;
  {
    FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
    EXPECT_TRUE(enfant<QRadioButton>(&d, "optPiste")->isChecked());
    EXPECT_TRUE(enfant<QRadioButton>(&d, "optSelection")->isEnabled());
    enfant<QSpinBox>(&d, "udDemiTons")->setValue(-2);
    ok(d);
  }
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 3);
  EXPECT_EQ(doc.getNoteCase(1, 4, 1, 1), 3);

  // Without a selection there is only the whole track.
  doc.intSelStartMesure = doc.intSelStopMesure = 0;
  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  EXPECT_FALSE(enfant<QRadioButton>(&d, "optSelection")->isEnabled());
  EXPECT_TRUE(enfant<QRadioButton>(&d, "optPiste")->isChecked());
}

TEST(Transpose, AnotherTrackThanTheCursorsIsMovedAndUndoneAlone) {
  CVantoroTablature doc = document(2, 1);
  doc.setCurseurPiste(1);
  doc.setNoteWhole(1, 1, 1, 0, 5, 48);
  doc.setNoteWhole(2, 1, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  FTabTranspose d(kAnglais, doc, 2, guitareSixCordes());
  transpose(d, 4, 0, 24);
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 5);
  EXPECT_EQ(doc.getNoteCase(2, 1, 1, 1), 9);
  EXPECT_EQ(doc.CurseurPiste(), 1);
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
}

TEST(Transpose, ATrackWithoutNotesLeavesNoUndoStep) {
  CVantoroTablature doc = document(1, 2);
  const int n = doc.setNoteWhole(1, 1, 1, 0, kCaseVide, 48);  // a blank stays as it is
  doc.setNoteEffet(1, 1, 1, n, effet::kVibrato);
  const CVantoroTablature avant = doc;
  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  transpose(d, 5, 0, 24);
  EXPECT_FALSE(d.modifie());
  EXPECT_TRUE(doc == avant);
}

}  // namespace
}  // namespace vt::essai
