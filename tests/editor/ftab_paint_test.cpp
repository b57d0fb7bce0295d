// What a one-note edit does to the picture: only its bar changes, and the bar
// ends as a full paint would draw it; edits that move later notes repaint all.
#include "ftab_banc.h"

namespace vt::essai {
namespace {

class Peinture : public Editeur {
 protected:
  // Three bars with notes, the cursor on an empty place of bar 2.
  void prépare() {
    ouvre();
    doc().addMesure();
    doc().addMesure();
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
};

TEST_F(Peinture, AOneNoteEditChangesItsBarOnlyAndDrawsItAsAFullPaintWould) {
  prépare();
  const QImage avant = ftab->image().copy();
  tape("7");
  ASSERT_EQ(fret(2, 3, 48), 7);
  const QImage après = ftab->image().copy();
  const auto [gauche, droite] = colonnesChangées(avant, après);
  // Bar 2 lies between its bar lines at 35 + 200 and 35 + 400.
  EXPECT_GE(gauche, 235);
  EXPECT_LE(droite, 435);
  EXPECT_LT(gauche, droite) << "the new fret is on the picture";

  ftab->refreshPicture();
  const auto [g2, d2] = colonnesChangées(après, ftab->image());
  EXPECT_GT(g2, d2) << "the partial repaint differs from a full paint between x " << g2 << " and "
                    << d2;
}

TEST_F(Peinture, ChangingAndDeletingNotesLeaveNoTrace) {
  prépare();
  const auto sansTrace = [this](const char* quoi) {
    const QImage partiel = ftab->image().copy();
    ftab->refreshPicture();
    const auto [g, d] = colonnesChangées(partiel, ftab->image());
    EXPECT_GT(g, d) << quoi << ": traces between x " << g << " and " << d;
  };
  curseur(2, 24, 2);
  touche(Qt::Key_Plus, Qt::KeypadModifier);
  sansTrace("+");
  touche(Qt::Key_V);
  touche(Qt::Key_T);
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

TEST_F(Peinture, TheCursorLeavesNoTintOnTheInkItCrossedSoNotesAndLinesReadTrue) {
  prépare();
  curseur(2, 0, 1);
  // Over a fret, the strings, the staff and a stem, then away by every key.
  for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down,
                        Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right,
                        Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up})
    touche(key);
  touche(Qt::Key_Right, Qt::ShiftModifier);
  touche(Qt::Key_Home);
  const QImage partiel = ftab->image().copy();
  ftab->refreshPicture();
  const auto [g, d] = colonnesChangées(partiel, ftab->image());
  EXPECT_GT(g, d) << "tints between x " << g << " and " << d;
}

TEST_F(Peinture, InsertingTimeRedrawsTheFollowingBars) {
  prépare();
  curseur(1, 0, 1);
  const QImage avant = ftab->image().copy();
  touche(Qt::Key_Insert);
  const auto [gauche, droite] = colonnesChangées(avant, ftab->image());
  EXPECT_LT(gauche, 235);
  EXPECT_GT(droite, 435) << "bar 3's notes moved too";
}

}  // namespace
}  // namespace vt::essai
