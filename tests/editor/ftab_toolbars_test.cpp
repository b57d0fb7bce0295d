// The editor's toolbars: each button does what its menu entry does and shows
// its state; the rhythm, attack and nuance buttons change the note under the
// cursor with undo; the objects' buttons show what stands at the cursor; a
// toolbar floats and docks again, and the hidden ones are remembered.
#include <QAction>
#include <QToolBar>

#include "ftab_banc.h"
#include "ftab_toolbar.h"

namespace vt::essai {
namespace {

using Barres = Editeur;

// A quarter note (48 ticks), fret 5 on string 2 at the start of bar 1, under
// the cursor.
void noteSousLeCurseur(CVantoroTablature& d, FTab& f) {
  const int n = d.setNoteWhole(1, 1, 2, 0, 5, 48);
  d.setNoteVolume(1, 1, 2, n, 127);
  d.setCurseurCorde(2);
  d.setCurseurX(0);
  f.refreshPicture();
  f.tbUpdate();
}

TEST_F(Barres, ARhythmClickGivesTheNoteItsLengthWithUndo) {
  ouvre();
  noteSousLeCurseur(doc(), *ftab);
  QAction* blanche = ftab->bouton("tbRythme", "blanche");
  ASSERT_NE(blanche, nullptr);
  EXPECT_TRUE(ftab->bouton("tbRythme", "noire")->isChecked()) << "the note's length is shown";
  blanche->trigger();
  const int n = doc().searchNote(1, 1, 2, 0);
  EXPECT_EQ(doc().getNoteDurée(1, 1, 2, n), 96);
  EXPECT_EQ(doc().getNoteCase(1, 1, 2, n), 5);
  EXPECT_TRUE(blanche->isChecked());
  EXPECT_FALSE(ftab->bouton("tbRythme", "noire")->isChecked()) << "one length at a time";
  EXPECT_TRUE(doc().modifi);
  ftab->bouton("tbToolbar", "undo")->trigger();
  EXPECT_EQ(doc().getNoteDurée(1, 1, 2, doc().searchNote(1, 1, 2, 0)), 48);
}

TEST_F(Barres, AttackAndNuanceClicksChangeTheNoteUnderTheCursor) {
  ouvre();
  noteSousLeCurseur(doc(), *ftab);
  ftab->bouton("tbAttaque", "attaque palmmute")->trigger();
  ftab->bouton("tbVolume", "p")->trigger();
  const int n = doc().searchNote(1, 1, 2, 0);
  EXPECT_EQ(doc().getNoteAttaque(1, 1, 2, n), ftab->outils().getNoteAttaque());
  EXPECT_NE(doc().getNoteAttaque(1, 1, 2, n), 0);
  EXPECT_EQ(doc().getNoteVolume(1, 1, 2, n), ftab->outils().getNoteVolume());
  EXPECT_LT(doc().getNoteVolume(1, 1, 2, n), 127);
  EXPECT_TRUE(ftab->bouton("tbVolume", "p")->isChecked());
  EXPECT_FALSE(ftab->bouton("tbVolume", "fff")->isChecked());
  // Two edits, two undos.
  touche(Qt::Key_Z, Qt::ControlModifier);
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(doc().getNoteAttaque(1, 1, 2, n), 0);
  EXPECT_EQ(doc().getNoteVolume(1, 1, 2, n), 127);
}

TEST_F(Barres, AnEffectButtonTypesItsKey) {
  ouvre();
  noteSousLeCurseur(doc(), *ftab);
  ftab->bouton("tbEffet", "hammer-on")->trigger();
  EXPECT_EQ(doc().getNoteEffet(1, 1, 2, doc().searchNote(1, 1, 2, 0)), effet::kHammerOn);
  EXPECT_TRUE(ftab->bouton("tbEffet", "hammer-on")->isChecked());
  EXPECT_EQ(ftab->bouton("tbEffet", "hammer-on")->toolTip(), vt->loadString(5100));
}

TEST_F(Barres, TheObjectsButtonsShowWhatStandsAtTheCursor) {
  ouvre();
  QAction* tempo = ftab->bouton("tbGeneral", "tempo");
  EXPECT_FALSE(tempo->isChecked());
  doc().addMesure();
  ASSERT_TRUE(doc().setMesureTempo(2, 0, 90));
  curseur(2, 0, 1);
  ftab->tbUpdate();
  EXPECT_TRUE(tempo->isChecked());
  touche(Qt::Key_Left);
  EXPECT_FALSE(tempo->isChecked());
}

TEST_F(Barres, AFloatingToolbarSharesItsButtonsAndDocksWhenClosed) {
  ouvre();
  FTabToolBar* f = ftab->détacheBarre("tbRythme");
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(ftab->Find_tabFloatingToolBars("tbRythme"), f);
  EXPECT_TRUE(ftab->barre("tbRythme")->isHidden());
  EXPECT_EQ(f->barre()->actions(), ftab->barre("tbRythme")->actions());
  // The cursor's note moves the floating buttons as it moved the docked ones.
  doc().setNoteWhole(1, 1, 1, 24, 7, 12);
  touche(Qt::Key_Right);
  ASSERT_EQ(doc().CurseurX(), 24);
  EXPECT_TRUE(ftab->bouton("tbRythme", "double")->isChecked());
  EXPECT_TRUE(f->barre()->actions()[4]->isChecked());

  // Hidden from the View menu, the floating window hides; closed, it docks.
  ftab->mnuTabDisplayToolbar(2);
  EXPECT_FALSE(f->isVisible());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplayToolbar_2")->isChecked());
  ftab->mnuTabDisplayToolbar(2);
  f->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ftab->Find_tabFloatingToolBars("tbRythme"), nullptr);
  EXPECT_FALSE(ftab->barre("tbRythme")->isHidden());

  // The track buttons, rebuilt with the tracks, reach the floating track bar.
  FTabToolBar* pistes = ftab->détacheBarre("tbPistes");
  ftab->mnutabPistes(1);
  EXPECT_EQ(pistes->barre()->actions(), ftab->barre("tbPistes")->actions());
  EXPECT_EQ(pistes->barre()->actions().size(), 6);
}

TEST_F(Barres, HiddenToolbarsAreRememberedForTheNextEditor) {
  ouvre();
  ftab->mnuTabDisplayToolbar(1);  // tbAttaque
  ftab->mnuTabDisplayToolbar(4);  // tbVolume
  EXPECT_TRUE(ftab->barre("tbAttaque")->isHidden());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplayToolbar_1")->isChecked());
  EXPECT_TRUE(ftab->entrée("mnuTabDisplayToolbar_0")->isChecked());
  EXPECT_EQ(vt->settings().cfgTabBarresCachées, "tbAttaque,tbVolume");

  FTab autre(*vt);
  EXPECT_TRUE(autre.barre("tbAttaque")->isHidden());
  EXPECT_TRUE(autre.barre("tbVolume")->isHidden());
  EXPECT_FALSE(autre.barre("tbRythme")->isHidden());
}

TEST_F(Barres, TheOptionsOpenOnTheEditorsPageFromTheButtonAndOnTheLastOneFromTheMenu) {
  ouvre();
  struct Options : QDialog, FenetreOptions {
    explicit Options(Journal& j) : m_j(j) {}
    void Form_Load() override { m_j.push_back("load"); }
    void selectTab(const QString& clé) override { m_j.push_back("tab " + clé); }
    Journal& m_j;
  };
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT&) { return new Options(journal); },
      RegistreFenetres::Genre::Dialogue);
  journal.clear();
  ftab->bouton("tbToolbar", "options")->trigger();
  EXPECT_EQ(journal, (Journal{"load", "tab KeyTab"}));
  journal.clear();
  ftab->entrée("mnuTabFile_16")->trigger();
  EXPECT_EQ(journal, (Journal{"load"}));
  EXPECT_EQ(modales, (std::vector<QString>{fen::FOptions, fen::FOptions}));
}

}  // namespace
}  // namespace vt::essai
