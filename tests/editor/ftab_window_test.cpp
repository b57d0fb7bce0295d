// The editor as a window of the main window: how it opens, its menus and their
// captions, the entry mode, the fretboard, the live notes, the instrument of
// the current track, the document's dialogs and a file from the command line.
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>

#include "formats/vtb.h"
#include "ftab_banc.h"
#include "shell/manche.h"

namespace vt::essai {
namespace {

using Fenetre = Editeur;

TEST_F(Fenetre, TheWindowMenuOpensTheEditorOnAFreshDocument) {
  crée();
  vt->fenetres().enregistrer(fen::FTab, [](VT& v) { return new FTab(v); });
  ASSERT_TRUE(démarre());
  EXPECT_TRUE(vt->mnuFen(5)->isEnabled());
  vt->document().addMesure();
  vt->mnuFen(5)->trigger();
  ASSERT_TRUE(vt->isFormLoaded(fen::FTab));
  auto* f = vt->fenetres().interface<FTab>(fen::FTab);
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(vt->document().getMesureLast(), 1) << "opening the editor starts a new tablature";
  EXPECT_EQ(f->windowTitle(), "Tablature[*]");
  EXPECT_EQ(f->image().format(), QImage::Format_RGB32);
  EXPECT_EQ(f->réglagesVue().TAB_VIEW_SCALE, 24);
}

TEST_F(Fenetre, MenusCarryTheStringTableAndLaterCommandsAreDisabled) {
  ouvre();
  EXPECT_TRUE(ftab->entrée("mnuTabEdit_0")->text().startsWith("&Undo\t"));
  EXPECT_EQ(ftab->entrée("mnuTabFile_0")->text(), "&New tablature\tCtrl+N");
  EXPECT_EQ(ftab->entrée("mnuTabPopUp_0")->text().section('\t', 0, 0), "&Upper string");
  EXPECT_EQ(ftab->entrée("mnuTabToolAttaque_6")->text().section('\t', 0, 0), "&Natural harmonic");
  for (const char* nom : {"mnuTabTool_6", "mnuTabEdit_3", "mnuTabEdit_9", "mnutabPistes_2"})
    EXPECT_FALSE(ftab->entrée(nom)->isEnabled()) << nom;
  for (const char* nom : {"mnuTabFile_0", "mnuTabFile_2", "mnuTabFile_11", "mnuTabFile_17",
                          "mnuTabPlay_1", "mnuTabDisplay_0", "mnuTabEffet_0", "mnutabPistes_1"})
    EXPECT_TRUE(ftab->entrée(nom)->isEnabled()) << nom;
  // The toolbar's buttons follow their entries.
  EXPECT_TRUE(ftab->bouton("tbToolbar", "nouveau")->isEnabled());
  EXPECT_FALSE(ftab->bouton("tbToolbar", "couper")->isEnabled());
  EXPECT_FALSE(ftab->bouton("tbPistes", "remove")->isEnabled());
  EXPECT_EQ(ftab->bouton("tbToolbar", "enregistrer")->toolTip(), "Save the tablature");
  // Without the document's dialogs their entries and keys do nothing.
  EXPECT_FALSE(ftab->entrée("mnuTabEdit_13")->isEnabled());
  touche(Qt::Key_Return, Qt::AltModifier);
  touche(Qt::Key_S);
  EXPECT_FALSE(doc().modifi);

  vt->mnuFileLang_Click(0);
  EXPECT_EQ(ftab->entrée("mnuTabFile_0")->text(), "&Nouvelle tablature\tCtrl+N");
  EXPECT_TRUE(ftab->entrée("mnuTabFileLang_0")->isChecked());
  EXPECT_FALSE(ftab->entrée("mnuTabFileLang_1")->isChecked());
}

// Tiled in a short main window, the strip keeps all it draws and scrolls up
// and down to it: the staff's bottom line can be brought into view.
TEST_F(Fenetre, AfterTilingTheStripScrollsDownToTheStaff) {
  ouvre();
  QScrollBar* barre = ftab->zoneBande()->verticalScrollBar();
  QWidget* vue = ftab->zoneBande()->viewport();
  EXPECT_FALSE(barre->isVisible()) << "the editor's own size shows it all";
  vt->fenetres().enregistrer(fen::FAccords,
                             [this](VT& v) { return new FenetreEssai(v, fen::FAccords, journal); });
  vt->montreFenetre(fen::FAccords);
  vt->resize(1300, 760);
  vt->mnuFen(9)->trigger();
  QCoreApplication::processEvents();
  // The staff's bottom line in the default layout.
  const int basPortée = 140 + 150 + 4 * 2 * 4;
  ASSERT_LT(vue->height(), basPortée) << "a short strip";
  EXPECT_GT(ftab->picTab()->height(), basPortée);
  ASSERT_TRUE(barre->isVisible());
  barre->setValue(barre->maximum());
  const int y = ftab->picTab()->mapTo(vue, QPoint(0, basPortée)).y();
  EXPECT_GE(y, 0);
  EXPECT_LT(y, vue->height());
  // The cursor's string comes back into view when the cursor moves.
  touche(Qt::Key_Up);
  const int yCorde = ftab->picTab()->mapTo(vue, QPoint(0, 140)).y();
  EXPECT_GE(yCorde, 0);
  EXPECT_LT(yCorde, vue->height());
}

TEST_F(Fenetre, EscapeIsTheProgramsExit) {
  ouvre();
  ASSERT_TRUE(vt->isVisible());
  touche(Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(vt->isVisible());
  EXPECT_FALSE(vt->isFormLoaded(fen::FTab));
  ftab = nullptr;
}

TEST_F(Fenetre, TheTracksMenuListsTheTracksSelectsOneAndUndoReturnsToTheSnapshotsTrack) {
  ouvre();
  tGuitare dropD;
  dropD.corde[6] = 38;
  ASSERT_TRUE(doc().addPiste(1, dropD));
  doc().setPisteNom(2, "Basse");
  ftab->tbPistesUpdate();
  tape("5");
  QAction* deux = ftab->entrée("mnutabPistes_6");
  ASSERT_NE(deux, nullptr);
  EXPECT_EQ(deux->text(), "Track 2 : Basse");
  EXPECT_TRUE(ftab->entrée("mnutabPistes_5")->isChecked());
  deux->trigger();
  EXPECT_EQ(doc().CurseurPiste(), 2);
  EXPECT_TRUE(ftab->entrée("mnutabPistes_6")->isChecked());
  // The current instrument follows the track: the catalogue's drop D is number 2.
  EXPECT_EQ(vt->settings().setGuitare, 2);
  EXPECT_EQ(vt->guitare().corde[6], 38);
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(doc().CurseurPiste(), 1);
  EXPECT_TRUE(ftab->entrée("mnutabPistes_5")->isChecked());
  EXPECT_EQ(vt->settings().setGuitare, 1);
  EXPECT_EQ(fret(1, 1, 0), -1);
}

TEST_F(Fenetre, ATypedFretSoundsOnTheTracksChannelWhileItsKeyIsHeld) {
  ouvre();
  doc().setMIDIPan(1, 30);
  ftab->mnuTabToolVolume(4);  // mf
  ftab->picTab_KeyDown(Qt::Key_5, Qt::NoModifier);
  const Journal attendu = {"program 1 27", "ctl 8 64 1", "ctl 10 30 1",
                           "ctl 91 0 1",   "ctl 92 0 1", "ctl 93 0 1",
                           "ctl 95 0 1",   "wheel 1 64", "noteOn 69 1 79"};
  EXPECT_EQ(sons, attendu);
  ftab->picTab_KeyUp(Qt::Key_5, Qt::NoModifier);
  EXPECT_EQ(sons.back(), "noteOff 69 1");

  // Enter sounds the column, each note at its own nuance.
  pose(1, 6, 0, 3);
  doc().setNoteVolume(1, 1, 6, 1, 47);
  sons.clear();
  ftab->picTab_KeyDown(Qt::Key_Return, Qt::NoModifier);
  EXPECT_TRUE(contient(sons, "noteOn 69 1 79"));
  EXPECT_TRUE(contient(sons, "noteOn 43 1 47"));
  ftab->picTab_KeyUp(Qt::Key_Return, Qt::NoModifier);
  EXPECT_TRUE(contient(sons, "noteOff 43 1"));
  EXPECT_TRUE(contient(sons, "noteOff 69 1"));

  // A drum track plays on channel 10, the fret being the drum.
  doc().setStaffType(1, kStaffBatterie);
  curseur(1, 24, 1);
  sons.clear();
  tape("36");
  EXPECT_TRUE(contient(sons, "noteOn 36 10 79"));
}

TEST_F(Fenetre, TheDocumentsDialogsComeThroughOneHook) {
  ouvre();
  EXPECT_TRUE(dialoguesDuProgramme) << "the editor connects the program's dialogs at load";
  std::vector<DialogueTab> ouverts;
  ftab->setOuvreDialogue(
      [&](DialogueTab d) {
        ouverts.push_back(d);
        if (d == DialogueTab::Signature) return doc().setMesureSignature(1, 3, 4);
        if (d == DialogueTab::Accord) {
          const int n = doc().addandplaceMesureAccord(1, 1, doc().CurseurX());
          return doc().setMesureAccordNom(1, 1, n, "Am");
        }
        return false;  // cancelled
      },
      {DialogueTab::Proprietes, DialogueTab::Signature, DialogueTab::Accord,
       DialogueTab::Tonalite});
  EXPECT_TRUE(ftab->entrée("mnuTabEdit_13")->isEnabled());
  EXPECT_FALSE(ftab->entrée("mnuTabEdit_15")->isEnabled()) << "a dialog that does not exist";
  touche(Qt::Key_Return, Qt::AltModifier);
  EXPECT_FALSE(doc().modifi) << "a cancelled dialog changes nothing";
  touche(Qt::Key_S);
  EXPECT_EQ(doc().getMesureSignatureUp(1), 3);
  EXPECT_TRUE(doc().modifi);
  touche(Qt::Key_A);
  EXPECT_EQ(doc().getMesureAccordLast(1, 1), 1);
  touche(Qt::Key_Q);
  EXPECT_EQ(ouverts, (std::vector<DialogueTab>{DialogueTab::Proprietes, DialogueTab::Signature,
                                               DialogueTab::Accord, DialogueTab::Tonalite}));
  // The chord went into the track: one undo takes it away, the signature stays.
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(doc().getMesureAccordLast(1, 1), 0);
  EXPECT_EQ(doc().getMesureSignatureUp(1), 3);
}

TEST_F(Fenetre, AFileFromTheCommandLineReplacesTheDocument) {
  ouvre();
  QTemporaryDir dossier;
  CVantoroTablature source(vt->guitare());
  source.addMesure();
  source.setNoteWhole(1, 2, 3, 48, 7, 24);
  source.titre = "Essai";
  const QString nom = dossier.filePath("essai.vtb");
  ASSERT_TRUE(io_enregistrer_vtb(source, QFile::encodeName(nom).toStdString()).ok());
  tape("5");
  ftab->ouvreLigneDeCommande(nom);
  EXPECT_EQ(doc().getMesureLast(), 2);
  EXPECT_EQ(fret(2, 3, 48), 7);
  EXPECT_EQ(fret(1, 1, 0), -1);
  EXPECT_EQ(doc().titre, "Essai");
  EXPECT_FALSE(doc().modifi);
  EXPECT_EQ(ftab->windowTitle(), "Tablature - " + nom + "[*]");
  EXPECT_FALSE(ftab->entrée("mnuTabEdit_0")->isEnabled());
}

TEST_F(Fenetre, TheEditorsMenusStandInTheMainMenuBarWhileItIsActive) {
  ouvre();
  const auto titres = [this] {
    QStringList l;
    for (const QAction* a : vt->menuBar()->actions())
      l << a->text();
    return l;
  };
  QMenuBar* propre = ftab->barreMenus();
  ASSERT_NE(propre, nullptr);
  const QStringList avecEditeur = titres();
  ASSERT_EQ(avecEditeur.size(), 9) << avecEditeur.join(' ').toStdString();
  EXPECT_EQ(avecEditeur.front(), "&File");
  EXPECT_EQ(avecEditeur[6], "T&racks");
  EXPECT_TRUE(propre->isHidden()) << "one bar holds each menu's key";
  // The entries are the editor's own.
  EXPECT_EQ(vt->menuBar()->actions().front()->menu(), ftab->entrée("mnuTabFile_0")->parent());

  auto* cadre = qobject_cast<QMdiSubWindow*>(ftab->parentWidget());
  cadre->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
  ftab = nullptr;
  EXPECT_EQ(titres().size(), 3) << "the main window's own menus are back";
}

}  // namespace
}  // namespace vt::essai
