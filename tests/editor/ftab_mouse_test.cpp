// The mouse on the strip: a click, a drag, the pop-up of a note (the
// positions come from the bench's cellule, the default layout).
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

class Souris : public Editeur {
 protected:
  void selection(int& m1, int& x1, int& c1, int& m2, int& x2, int& c2) {
    m1 = doc().intSelStartMesure;
    x1 = doc().intSelStartX;
    c1 = doc().bytSelStartCorde;
    m2 = doc().intSelStopMesure;
    x2 = doc().intSelStopX;
    c2 = doc().bytSelStopCorde;
  }
};

TEST_F(Souris, AClickPlacesTheCursorOnTheBarTickAndStringUnderIt) {
  ouvre();
  doc().addMesure();
  doc().addMesure();
  ftab->refreshPicture();
  clic(cellule(2, 3, 4));
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().CurseurX(), 72);
  EXPECT_EQ(doc().CurseurCorde(), 4);
  // Half a column either way still hits the same note head.
  clic(cellule(2, 3, 4) + QPointF(9, 5));
  EXPECT_EQ(doc().CurseurX(), 72);
  EXPECT_EQ(doc().CurseurCorde(), 4);
  clic(cellule(2, 3, 4) + QPointF(-11, 0));
  EXPECT_EQ(doc().CurseurX(), 48);
  // The press collapses the selection to the cursor.
  int m1, x1, c1, m2, x2, c2;
  selection(m1, x1, c1, m2, x2, c2);
  EXPECT_EQ(m1, 2);
  EXPECT_EQ(m2, 2);
  EXPECT_EQ(x1, 48);
  EXPECT_EQ(x2, 48);
  EXPECT_EQ(c1, 4);
  EXPECT_EQ(c2, 4);
}

TEST_F(Souris, ClicksOutsideTheBarsStopAtTheirEdges) {
  ouvre();
  doc().addMesure();
  ftab->refreshPicture();
  clic({10, 100});  // left of the margin, above the strings
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().CurseurX(), 0);
  EXPECT_EQ(doc().CurseurCorde(), 1);
  clic({1000, 400});  // right of the last bar, below the strings
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().CurseurX(), 168) << "its last column";
  EXPECT_EQ(doc().CurseurCorde(), 6);
}

TEST_F(Souris, DraggingStretchesTheSelectionOverBarsAndScrollsNothing) {
  ouvre();
  for (int i = 0; i < 9; ++i)
    doc().addMesure();
  ftab->refreshPicture();
  envoie(QEvent::MouseButtonPress, cellule(1, 1, 2), Qt::LeftButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, cellule(2, 5, 3), Qt::NoButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, cellule(3, 2, 5), Qt::NoButton, Qt::LeftButton);
  envoie(QEvent::MouseButtonRelease, cellule(3, 2, 5), Qt::LeftButton, Qt::NoButton);
  int m1, x1, c1, m2, x2, c2;
  selection(m1, x1, c1, m2, x2, c2);
  EXPECT_EQ(m1, 1);
  EXPECT_EQ(x1, 24);
  EXPECT_EQ(c1, 2);
  EXPECT_EQ(m2, 3);
  EXPECT_EQ(x2, 48);
  EXPECT_EQ(c2, 5);
  EXPECT_EQ(doc().CurseurMesure(), 3);
  // Over the last bar on screen, clipped at the edge, the view stays.
  const int largeur = ftab->picTab()->width();
  envoie(QEvent::MouseButtonPress, cellule(1, 0, 1), Qt::LeftButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, {largeur - 2.0, 150}, Qt::NoButton, Qt::LeftButton);
  EXPECT_EQ(doc().m_lngScrollValue, 1);
  EXPECT_GT(doc().intSelStopMesure, 3);
  // A move without the button selects nothing.
  envoie(QEvent::MouseButtonRelease, {largeur - 2.0, 150}, Qt::LeftButton, Qt::NoButton);
  const int avant = doc().intSelStopMesure;
  envoie(QEvent::MouseMove, cellule(1, 0, 1), Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(doc().intSelStopMesure, avant);
}

TEST_F(Souris, TheRightButtonOnANoteOpensThePopUpAndElsewhereNothing) {
  ouvre();
  pose(1, 2, 48, 3);
  ftab->refreshPicture();
  auto* popup = ftab->findChild<QMenu*>("mnuTabPopUp");
  ASSERT_NE(popup, nullptr);
  clic(cellule(1, 3, 2), Qt::RightButton);
  EXPECT_FALSE(popup->isVisible());
  EXPECT_EQ(doc().CurseurX(), 72) << "the right button moves the cursor too";
  clic(cellule(1, 2, 2), Qt::RightButton);
  EXPECT_TRUE(popup->isVisible());
  popup->hide();
  EXPECT_EQ(fret(1, 2, 48), 3) << "the right button enters nothing";
}

}  // namespace
}  // namespace vt::essai
