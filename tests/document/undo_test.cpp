// Undo and redo by whole-track snapshots.
#include <gtest/gtest.h>

#include "document/validate.h"
#include "test_support.h"

namespace vt {
namespace {

using test::corde;
using test::NoteVue;

TEST(Undo, FiveDeepTheOldestFallsOff) {
  CVantoroTablature doc;
  for (int i = 1; i <= 6; ++i) {
    doc.storeUndo(true);
    doc.setNoteWhole(1, 1, 1, 0, i, 48);
  }
  EXPECT_EQ(doc.getUndoDepth(), 5);
  EXPECT_EQ(doc.undoStack()[1].piste.tabMesures[1].tabCordes[1][1].bytCase, 5);
  EXPECT_EQ(doc.undoStack()[5].piste.tabMesures[1].tabCordes[1][1].bytCase, 1);
  for (int i = 0; i < 5; ++i)
    doc.makeUndo();
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 1);  // the empty first state is gone
  EXPECT_EQ(doc.getUndoDepth(), 0);
  EXPECT_FALSE(doc.makeUndo());  // nothing left: nothing happens
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 1);
}

TEST(Undo, AnEditAfterUndoEmptiesRedo) {
  CVantoroTablature doc;
  doc.storeUndo(true);
  doc.setNoteWhole(1, 1, 1, 0, 1, 48);
  doc.storeUndo(true);
  doc.setNoteWhole(1, 1, 1, 48, 2, 48);
  doc.makeUndo();
  doc.makeUndo();
  EXPECT_EQ(doc.getRedoDepth(), 2);
  doc.makeRedo();  // keeps the rest of the redo stack, and can be undone again
  EXPECT_EQ(doc.getRedoDepth(), 1);
  EXPECT_EQ(doc.getUndoDepth(), 1);
  EXPECT_EQ(corde(doc, 1, 1, 1), (std::vector<NoteVue>{{0, 1, 48}}));
  doc.storeUndo(true);
  doc.setNoteWhole(1, 1, 3, 0, 3, 48);
  EXPECT_EQ(doc.getRedoDepth(), 0);
}

TEST(Undo, ReturnsToTheTrackOfTheSnapshotUnlessThatTrackWasDeleted) {
  CVantoroTablature doc;
  doc.addPiste(1, tGuitare{});
  doc.storeUndo(true);
  doc.setNoteWhole(1, 1, 1, 0, 1, 48);
  doc.setCurseurPiste(2);
  EXPECT_TRUE(doc.makeUndo());
  EXPECT_EQ(std::pair(int{doc.CurseurPiste()}, doc.getNoteLast(1, 1, 1)), std::pair(1, 0));
  EXPECT_FALSE(doc.makeRedo());  // already on track 1
  EXPECT_EQ(doc.getNoteLast(1, 1, 1), 1);

  CVantoroTablature sup;
  sup.addPiste(1, tGuitare{});
  sup.setCurseurPiste(2);
  sup.storeUndo(true);
  sup.setCurseurPiste(1);
  sup.deletePiste(2);
  EXPECT_FALSE(sup.makeUndo());
  EXPECT_EQ(std::pair(sup.getUndoDepth(), sup.getPisteLast()), std::pair(0, 1));
  EXPECT_EQ(validateDocument(sup), "");
}

TEST(Undo, BarsAddedSinceTheSnapshotStayEmptyRemovedOnesDoNotComeBackNorDoesASignature) {
  CVantoroTablature doc;
  doc.storeUndo(true);
  doc.addMesure();
  doc.setNoteWhole(1, 2, 1, 0, 1, 48);
  doc.makeUndo();
  EXPECT_EQ((std::vector<int>{doc.getMesureLast(), doc.piste(1).tabMesures.last(),
                              doc.getNoteLast(1, 2, 1)}),
            (std::vector<int>{2, 2, 0}));
  EXPECT_EQ(validateDocument(doc), "");

  doc.addMesure();
  doc.storeUndo(true);
  doc.garbageMesure(2, 2);
  doc.setMesureSignature(1, 3, 4);
  doc.makeUndo();
  EXPECT_EQ(std::pair(doc.getMesureLast(), doc.getMesureSignatureUp(1)), std::pair(1, 3));
  EXPECT_EQ(validateDocument(doc), "");
}

}  // namespace
}  // namespace vt
