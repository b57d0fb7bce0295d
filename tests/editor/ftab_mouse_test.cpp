// The mouse on the strip: a click, a drag, the pop-up of a note (the
// positions come from the bench's cellule, the default layout).
#include <QMenu>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

using Souris = Editeur;
using Sélection = std::array<int, 6>;

TEST_F(Souris, AClickPlacesTheCursorOnTheCellUnderItAndStopsAtTheEdgesOfTheBars) {
  const struct {
    const char* quoi;
    QPointF point;
    Place place;
  } kCas[] = {
      {"a note head", cellule(2, 3, 4), {2, 72, 4}},
      {"half a column either way", cellule(2, 3, 4) + QPointF(9, 5), {2, 72, 4}},
      {"the column before", cellule(2, 3, 4) + QPointF(-11, 0), {2, 48, 4}},
      {"left of the margin, above the strings", {10, 100}, {1, 0, 1}},
      {"right of the last bar, below the strings: its last column", {1000, 400}, {3, 168, 6}},
  };
  ouvre();
  mesures(3);
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.quoi);
    clic(c.point);
    EXPECT_EQ(place(), c.place);
    // The press collapses the selection to the cursor.
    EXPECT_EQ(sélection(),
              (Sélection{c.place[0], c.place[1], c.place[2], c.place[0], c.place[1], c.place[2]}));
  }
}

TEST_F(Souris, DraggingStretchesTheSelectionOverBarsAndScrollsNothing) {
  ouvre();
  mesures(10);
  envoie(QEvent::MouseButtonPress, cellule(1, 1, 2), Qt::LeftButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, cellule(2, 5, 3), Qt::NoButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, cellule(3, 2, 5), Qt::NoButton, Qt::LeftButton);
  envoie(QEvent::MouseButtonRelease, cellule(3, 2, 5), Qt::LeftButton, Qt::NoButton);
  EXPECT_EQ(sélection(), (Sélection{1, 24, 2, 3, 48, 5}));
  EXPECT_EQ(doc().CurseurMesure(), 3);
  // Over the last bar on screen, clipped at the edge, the view stays.
  const int largeur = ftab->picTab()->width();
  envoie(QEvent::MouseButtonPress, cellule(1, 0, 1), Qt::LeftButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, {largeur - 2.0, 150}, Qt::NoButton, Qt::LeftButton);
  EXPECT_EQ(doc().m_lngScrollValue, 1);
  EXPECT_GT(doc().intSelStopMesure, 3);
  // A move without the button selects nothing.
  envoie(QEvent::MouseButtonRelease, {largeur - 2.0, 150}, Qt::LeftButton, Qt::NoButton);
  const Sélection avant = sélection();
  envoie(QEvent::MouseMove, cellule(1, 0, 1), Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(sélection(), avant);
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
