// What edits, the cursor and the selection leave on the picture.
#include <functional>
#include <string>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

class Peinture : public Editeur {
 protected:
  // Three bars with notes, the cursor on an empty place of bar 2.
  void prépare() {
    ouvre();
    mesures(3);
    for (int m = 1; m <= 3; ++m) {
      pose(m, 1, 0, 3);
      pose(m, 2, 24, 5);
      pose(m, 6, 96, 0, 48);
    }
    curseur(2, 48, 3);
  }
  // The columns of pixels that differ between two pictures.
  static std::pair<int, int> colonnesChangées(const QImage& a, const QImage& b) {
    int gauche = a.width();
    int droite = -1;
    for (int y = 0; y < a.height(); ++y)
      for (int x = 0; x < a.width(); ++x)
        if (a.pixel(x, y) != b.pixel(x, y)) {
          gauche = std::min(gauche, x);
          droite = std::max(droite, x);
        }
    return {gauche, droite};
  }
  // The picture as the partial repaints left it is the one a full paint draws.
  void sansTrace(const std::string& quoi) {
    const QImage partiel = ftab->image().copy();
    ftab->refreshPicture();
    const auto [g, d] = colonnesChangées(partiel, ftab->image());
    EXPECT_GT(g, d) << quoi << ": traces between x " << g << " and " << d;
  }
};

// A one-note edit changes its bar only and draws it as a full paint would;
// changing and deleting notes, even those whose marks reach another bar, leave no trace.
TEST_F(Peinture, EditsChangeTheirBarOnlyAndLeaveNoTrace) {
  prépare();
  const QImage avant = ftab->image().copy();
  tape("7");
  ASSERT_EQ(fret(2, 3, 48), 7);
  const auto [gauche, droite] = colonnesChangées(avant, ftab->image());
  // Bar 2 lies between its bar lines at 35 + 200 and 35 + 400.
  EXPECT_GE(gauche, 235);
  EXPECT_LE(droite, 435);
  EXPECT_LT(gauche, droite) << "the new fret is on the picture";
  sansTrace("a fret");
  curseur(2, 24, 2);
  touche(Qt::Key_Plus, Qt::KeypadModifier);
  sansTrace("+");
  touches({{Qt::Key_V, Qt::NoModifier}, {Qt::Key_T, Qt::NoModifier}});
  sansTrace("an effect over another");
  // A hammer-on from the bar's last note reaches the first note of the next bar.
  touche(Qt::Key_H);
  sansTrace("hammer-on");
  touche(Qt::Key_Delete);
  sansTrace("delete");
  curseur(3, 24, 2);
  touche(Qt::Key_Delete);
  sansTrace("the note a tie of the bar before ended on");
}

// The cursor and the selection, moved by keys, clicks and drags over frets,
// strings, the staff, stems and the letter of a hammer-on across a bar line,
// leave the picture as a full paint draws it.
TEST_F(Peinture, TheCursorAndTheSelectionLeaveNoTintOnTheInkTheyCrossed) {
  struct Script {
    const char* nom;
    std::function<void()> joue;
  };
  const auto touches = [this](std::vector<int> l) {
    return [this, l] {
      for (const int key : l)
        touche(key);
    };
  };
  const std::vector<Script> scripts = {
      {"keys",
       touches({Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down,
                Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right,
                Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up, Qt::Key_Home})},
      {"a click, then keys",
       [this] {
         clic(cellule(2, 1, 2));
         for (const int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left})
           touche(key);
         touche(Qt::Key_Right, Qt::ShiftModifier);
       }},
      {"over the hammer-on's letter",
       [this] {
         clic(cellule(1, 3, 1));
         for (int i = 0; i < 5; ++i)
           touche(Qt::Key_Right);
         clic(cellule(2, 0, 1));
         clic(cellule(1, 7, 2));
       }},
      {"a drag that grows and shrinks",
       [this] {
         envoie(QEvent::MouseButtonPress, cellule(1, 1, 1), Qt::LeftButton, Qt::LeftButton);
         envoie(QEvent::MouseMove, cellule(2, 3, 4), Qt::NoButton, Qt::LeftButton);
         envoie(QEvent::MouseMove, cellule(1, 2, 2), Qt::NoButton, Qt::LeftButton);
         envoie(QEvent::MouseButtonRelease, cellule(1, 2, 2), Qt::LeftButton, Qt::NoButton);
         touche(Qt::Key_Down);
         clic(cellule(3, 0, 6));
       }},
  };
  prépare();
  // A hammer-on from bar 1's last note on string 1 to bar 2's first: its "H"
  // stands over bar 1's right half.
  curseur(1, 0, 1);
  touche(Qt::Key_H);
  for (const Script& script : scripts) {
    SCOPED_TRACE(script.nom);
    curseur(2, 0, 1);
    script.joue();
    sansTrace(script.nom);
  }
}

// A click selects the cell under it; the cursor marks it, and when the cursor
// moves on nothing is left there that looks like a second cursor.
TEST_F(Peinture, AClickLeavesNoSecondCursorBehind) {
  prépare();
  // Inside the box of bar 1's empty cell at tick 72 on string 3, off its string line.
  const QPoint dansLaCase(55 + 4 * 20 - 5, 140 + 2 * 13 - 4);
  const QRgb blanc = qRgb(255, 255, 255);
  ASSERT_EQ(ftab->image().pixel(dansLaCase), blanc);
  clic(cellule(1, 3, 3));
  EXPECT_EQ(ftab->image().pixel(dansLaCase), qRgb(127, 255, 255)) << "the cursor";
  touche(Qt::Key_Right);
  EXPECT_EQ(ftab->image().pixel(dansLaCase), blanc);
  EXPECT_EQ(doc().intSelStartMesure, 0) << "the one-cell selection went with the cursor";
}

}  // namespace
}  // namespace vt::essai
