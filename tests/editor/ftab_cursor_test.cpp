// The cursor under the keys: by column with the bar roll-over and the bar added
// at the end, by string within the instrument, by bar, to the ends of the
// piece, and the view that follows it.
#include <QLabel>
#include <QScrollBar>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

using Curseur = Editeur;

TEST_F(Curseur, LeftStaysAtTheStartOfThePieceAndRollsBackIntoThePreviousBar) {
  ouvre();
  touche(Qt::Key_Left);
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().CurseurX(), 0);
  doc().addMesure();
  curseur(2, 24, 1);
  touche(Qt::Key_Left);
  EXPECT_EQ(doc().CurseurX(), 0);
  touche(Qt::Key_Left);
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().CurseurX(), 168) << "the last column of a 4/4 bar at an eighth per column";
}

TEST_F(Curseur, RightRollsOverAndAddsABarAtTheEndOfThePiece) {
  ouvre();
  for (int i = 0; i < 7; ++i)
    touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurX(), 168);
  EXPECT_EQ(doc().getMesureLast(), 1);
  EXPECT_FALSE(doc().modifi);
  touche(Qt::Key_Right);
  EXPECT_EQ(doc().getMesureLast(), 2);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().CurseurX(), 0);
  EXPECT_TRUE(doc().modifi);
  EXPECT_EQ(ftab->hScroll()->maximum(), 2);
  // Back and on again: the bar exists now, nothing is added.
  touche(Qt::Key_Left);
  touche(Qt::Key_Right);
  EXPECT_EQ(doc().getMesureLast(), 2);
}

TEST_F(Curseur, ABarWhoseWidthIsNotAWholeNumberOfColumnsKeepsItsWholeColumns) {
  ouvre();
  ASSERT_TRUE(doc().setMesureSignature(1, 5, 8));  // 120 ticks
  ftab->mnuTabDisplay(0);                          // one column per quarter: 48
  touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurX(), 48);
  touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  touche(Qt::Key_Left);
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().CurseurX(), 48);
}

TEST_F(Curseur, UpAndDownStayOnTheInstrumentsStrings) {
  ouvre();
  touche(Qt::Key_Up);
  EXPECT_EQ(doc().CurseurCorde(), 1);
  for (int i = 0; i < 9; ++i)
    touche(Qt::Key_Down);
  EXPECT_EQ(doc().CurseurCorde(), 6);
  touche(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(doc().CurseurCorde(), 5);
  touche(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(doc().CurseurCorde(), 6);
  // The fretboard reaches the editor through the same keys.
  ftab->picTab_KeyDown(Qt::Key_Up);
  EXPECT_EQ(ftab->CurseurCorde(), 5);
}

TEST_F(Curseur, BarKeysAndTheEndsOfThePiece) {
  ouvre();
  for (int i = 0; i < 39; ++i)
    doc().addMesure();
  curseur(1, 48, 3);
  touche(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().CurseurX(), 0);
  touche(Qt::Key_Left, Qt::ShiftModifier);
  touche(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(doc().CurseurMesure(), 1);

  touche(Qt::Key_End);
  EXPECT_EQ(doc().CurseurMesure(), 40);
  EXPECT_GT(doc().m_lngScrollValue, 1) << "the view follows the cursor";
  EXPECT_LE(doc().m_lngScrollValue, 40);
  EXPECT_EQ(ftab->hScroll()->value(), doc().m_lngScrollValue);
  touche(Qt::Key_Right, Qt::ShiftModifier);  // no bar after the last
  EXPECT_EQ(doc().CurseurMesure(), 40);
  touche(Qt::Key_Home);
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().m_lngScrollValue, 1);
  touche(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(doc().CurseurMesure(), 40);
  touche(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(doc().CurseurMesure(), 1);
}

TEST_F(Curseur, WalkingRightScrollsTheViewOneBarAtATime) {
  ouvre();
  for (int i = 0; i < 19; ++i)
    doc().addMesure();
  ftab->refreshPicture();
  int bars = 0;
  while (doc().m_lngScrollValue == 1 && bars < 20) {
    for (int i = 0; i < 8; ++i)
      touche(Qt::Key_Right);
    ++bars;
  }
  EXPECT_EQ(doc().m_lngScrollValue, 2) << "the first step past the edge scrolls by one bar";
  EXPECT_GT(bars, 2);
  EXPECT_EQ(doc().CurseurX(), 0);
}

TEST_F(Curseur, InAWindowNarrowerThanABarTheViewStillFollowsTheCursor) {
  ouvre();
  for (int i = 0; i < 3; ++i)
    doc().addMesure();
  qobject_cast<QMdiSubWindow*>(ftab->parentWidget())->resize(200, 640);
  QCoreApplication::processEvents();
  ASSERT_LT(ftab->picTab()->width(), 255) << "not even bar 1 fits whole";
  for (int i = 0; i < 8; ++i)
    touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().m_lngScrollValue, 2);
  touche(Qt::Key_Left);
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().m_lngScrollValue, 1);
}

TEST_F(Curseur, TheScrollBarKeepsTheCursorOnScreen) {
  ouvre();
  for (int i = 0; i < 29; ++i)
    doc().addMesure();
  ftab->refreshPicture();
  curseur(1, 168, 1);
  ftab->hScroll()->setValue(10);
  EXPECT_EQ(doc().m_lngScrollValue, 10);
  EXPECT_EQ(doc().CurseurMesure(), 10);
  EXPECT_EQ(doc().CurseurX(), 168);
  ftab->hScroll()->setValue(1);
  EXPECT_LT(doc().CurseurMesure(), 10) << "back into the bars that fit";
  ASSERT_TRUE(doc().setMesureSignature(doc().CurseurMesure(), 2, 4));
  ftab->hScroll()->setValue(2);
  ftab->hScroll()->setValue(1);
  EXPECT_LT(doc().CurseurX(), doc().getMesureLargeur(doc().CurseurMesure()));
}

TEST_F(Curseur, AChangeOfViewSnapsTheCursorToTheNewGrid) {
  ouvre();
  ftab->mnuTabDisplay(0);  // quarters
  ftab->mnuTabDisplay(4);  // in triplets: 32
  curseur(1, 32, 1);
  ftab->mnuTabDisplay(1);  // eighths in triplets: 16, on which 32 lies
  EXPECT_EQ(doc().CurseurX(), 32);
  ftab->mnuTabDisplay(4);  // plain eighths: 24
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 24);
  EXPECT_EQ(doc().CurseurX(), 24);
  EXPECT_TRUE(ftab->entrée("mnuTabDisplay_1")->isChecked());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplay_0")->isChecked());
}

TEST_F(Curseur, TheGridFollowsTheChosenRhythm) {
  ouvre();
  touche(Qt::Key_5, Qt::ControlModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 12);
  touche(Qt::Key_9, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 8);
  ftab->mnuTabDisplay(7);  // the grid no longer follows
  touche(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 8);
}

TEST_F(Curseur, TheStatusBarShowsTheBarAndTheBeat) {
  ouvre();
  doc().addMesure();
  curseur(2, 0, 1);
  touche(Qt::Key_Right);
  touche(Qt::Key_Right);
  const QString texte = vt->panneau("position")->text();
  EXPECT_TRUE(texte.startsWith("2 : ")) << texte.toStdString();
  EXPECT_TRUE(texte.contains("1")) << texte.toStdString();  // 48 ticks: one beat
}

}  // namespace
}  // namespace vt::essai
