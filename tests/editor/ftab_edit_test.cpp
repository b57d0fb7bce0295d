// The Edit menu's clipboards and bar commands as the editor runs them.
#include <QAction>
#include <utility>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

class Edition : public Editeur {
 protected:
  bool actif(const char* nom) { return ftab->entrée(nom)->isEnabled(); }
};

// Ctrl+X, Ctrl+C and Ctrl+V work the note clipboards as the Edit menu does,
// on the selection they find; the other Ctrl keys still end it. Paste waits
// for a copy and copy for a selection.
TEST_F(Edition, CtrlXCAndVCutCopyAndPasteTheSelection) {
  ouvre();
  pose(1, 1, 0, 3);
  pose(1, 2, 24, 5);
  pose(1, 1, 48, 7);
  ftab->refreshPicture();
  EXPECT_TRUE(ftab->entrée("mnuTabEdit_4")->text().endsWith("\tCtrl+C"));
  for (const char* nom : {"mnuTabEdit_3", "mnuTabEdit_4", "mnuTabEdit_5", "mnuTabEdit_9"})
    EXPECT_FALSE(actif(nom)) << nom;
  EXPECT_FALSE(ftab->bouton("tbToolbar", "coller")->isEnabled());

  // Two columns over two strings, dragged with the mouse.
  glisse(cellule(1, 0, 1), cellule(1, 1, 2));
  ASSERT_TRUE(actif("mnuTabEdit_4"));
  EXPECT_TRUE(ftab->bouton("tbToolbar", "copier")->isEnabled());
  touche(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(actif("mnuTabEdit_5")) << "copied";
  EXPECT_TRUE(ftab->bouton("tbToolbar", "coller")->isEnabled());
  EXPECT_FALSE(doc().modifi) << "a copy changes nothing";
  EXPECT_NE(doc().intSelStartMesure, 0) << "the selection stays";
  touche(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(std::pair(frets(1, 1), frets(1, 2)), std::pair(Frets{{48, 7}}, Frets{}))
      << "the later note keeps its place";
  curseur(1, 96, 1);
  touche(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(std::pair(frets(1, 1), frets(1, 2)),
            std::pair(Frets{{48, 7}, {96, 3}}, Frets{{120, 5}}));
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(fret(1, 1, 96), -1) << "Ctrl+Z undoes the paste";
  touche(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(fret(1, 1, 96), 3) << "Ctrl+Y redoes it";

  // The menu's cut and copy, and the button's paste at the second bar, which Right adds.
  glisse(cellule(1, 2, 1), cellule(1, 2, 1));
  ftab->mnuTabEdit(3);
  EXPECT_EQ(fret(1, 1, 48), -1);
  glisse(cellule(1, 4, 1), cellule(1, 5, 2));
  ftab->entrée("mnuTabEdit_4")->trigger();
  ftab->selClear();
  curseur(1, 168, 1);
  touche(Qt::Key_Right);
  ASSERT_EQ(doc().CurseurMesure(), 2);
  ftab->bouton("tbToolbar", "coller")->trigger();
  EXPECT_EQ(std::pair(frets(2, 1), frets(2, 2)), std::pair(Frets{{0, 3}}, Frets{{24, 5}}));

  // Another Ctrl chord ends a selection before it acts.
  glisse(cellule(1, 0, 1), cellule(1, 1, 2));
  touche(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(doc().intSelStartMesure, 0);
  // An edit after an undo ends the redo.
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(actif("mnuTabEdit_1"));
  tape("7");
  EXPECT_FALSE(actif("mnuTabEdit_1"));
  EXPECT_EQ(doc().getRedoDepth(), 0);
}

TEST_F(Edition, BarCommandsTakeTheirRangeFromTheDialog) {
  ouvre();
  pose(1, 1, 0, 3);
  std::vector<int> modes;
  PositionsMesures réponse;
  bool ok = true;
  ftab->demandeMesures = [&](int mode, PositionsMesures& p) {
    modes.push_back(mode);
    EXPECT_EQ(p.première, doc().CurseurMesure()) << "the dialog starts at the cursor's bar";
    p = réponse;
    return ok;
  };
  // Insert two bars on every track at bar 1: the note moves to bar 3.
  réponse = {1, 2, true};
  ftab->mnuTabEdit(10);
  EXPECT_EQ(std::pair(doc().getMesureLast(), fret(3, 1, 0)), std::pair(3, 3));
  // Copy bar 3, paste it at bar 1.
  réponse = {3, 1, false};
  ftab->mnuTabEdit(8);
  EXPECT_TRUE(actif("mnuTabEdit_9"));
  curseur(1, 0, 1);
  ftab->mnuTabEdit(9);
  EXPECT_EQ(std::pair(doc().getMesureLast(), fret(1, 1, 0)), std::pair(4, 3));
  // Cancelled: nothing happens.
  ok = false;
  ftab->mnuTabEdit(11);
  EXPECT_EQ(doc().getMesureLast(), 4);
  // Deleted from every track, the cursor comes back inside.
  ok = true;
  réponse = {2, 3, true};
  curseur(4, 0, 1);
  ftab->mnuTabEdit(11);
  EXPECT_EQ(place(), (Place{1, 0, 1}));
  EXPECT_EQ(doc().getMesureLast(), 1);
  EXPECT_EQ(modes, (std::vector<int>{1, 2, 4, 4}));
}

}  // namespace
}  // namespace vt::essai
