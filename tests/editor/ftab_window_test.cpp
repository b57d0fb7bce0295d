// The editor as a window of the main window: menus, keys, tracks, live notes, dialogs, To tab.
#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>

#include "dialogs/ftab_drums.h"
#include "formats/vtb.h"
#include "ftab_banc.h"
#include "shell/manche.h"
#include "tools/faccords.h"

namespace vt::essai {
namespace {

using Fenetre = Editeur;

TEST_F(Fenetre, TheWindowMenuOpensTheEditorOnAFreshDocumentWithItsMenus) {
  crée();
  vt->fenetres().enregistrer(fen::FTab, [](VT& v) { return new FTab(v); });
  ASSERT_TRUE(démarre());
  vt->document().addMesure();
  vt->mnuFen(5)->trigger();
  auto* f = vt->fenetres().interface<FTab>(fen::FTab);
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(vt->document().getMesureLast(), 1) << "opening the editor starts a new tablature";
  EXPECT_EQ(f->windowTitle(), "Tablature[*]");
  EXPECT_EQ(f->image().format(), QImage::Format_RGB32);
  // Its menus, its own entries, stand in the main menu bar while it is active.
  ASSERT_EQ(vt->menuBar()->actions().size(), 9);
  EXPECT_EQ(vt->menuBar()->actions()[6]->text(), "T&racks");
  EXPECT_TRUE(f->barreMenus()->isHidden()) << "one bar holds each menu's key";
  EXPECT_EQ(vt->menuBar()->actions().front()->menu(), f->entrée("mnuTabFile_0")->parent());
  qobject_cast<QMdiSubWindow*>(f->parentWidget())->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QCoreApplication::processEvents();
  EXPECT_EQ(vt->menuBar()->actions().size(), 3) << "the main window's own menus are back";
}

TEST_F(Fenetre, MenusCarryTheStringTableAndLaterCommandsAreDisabled) {
  ouvre();
  const std::pair<const char*, const char*> kTextes[] = {
      {"mnuTabFile_0", "&New tablature"},
      {"mnuTabEdit_0", "&Undo"},
      {"mnuTabPopUp_0", "&Upper string"},
      {"mnuTabToolAttaque_6", "&Natural harmonic"}};
  for (const auto& [nom, texte] : kTextes)
    EXPECT_EQ(ftab->entrée(nom)->text().section('\t', 0, 0), texte);
  using Actif = std::pair<const char*, bool>;
  for (const auto& [nom, actif] :
       {Actif("mnuTabTool_6", false), Actif("mnuTabEdit_3", false), Actif("mnuTabEdit_9", false),
        Actif("mnutabPistes_2", false), Actif("mnuTabFile_2", true), Actif("mnuTabFile_11", true),
        Actif("mnuTabFile_17", true), Actif("mnuTabPlay_1", true), Actif("mnuTabDisplay_0", true),
        Actif("mnuTabEffet_0", true), Actif("mnutabPistes_1", true)})
    EXPECT_EQ(ftab->entrée(nom)->isEnabled(), actif) << nom;
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
  const auto montrée = [&](int y) {
    const int y0 = ftab->picTab()->mapTo(vue, QPoint(0, y)).y();
    return y0 >= 0 && y0 < vue->height();
  };
  const int basPortée = 140 + 150 + 4 * 2 * 4;  // in the default layout
  ASSERT_LT(vue->height(), basPortée) << "a short strip";
  ASSERT_TRUE(barre->isVisible());
  barre->setValue(barre->maximum());
  EXPECT_TRUE(montrée(basPortée));
  // The cursor's string comes back into view when the cursor moves.
  touche(Qt::Key_Up);
  EXPECT_TRUE(montrée(140));
}

TEST_F(Fenetre, EscapeIsTheProgramsExit) {
  ouvre();
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
  EXPECT_EQ(deux->text(), "Track 2 : Basse");
  deux->trigger();
  // The current instrument follows the track: the catalogue's drop D is number 2.
  const auto vue = [this] {
    return std::tuple(doc().CurseurPiste(), ftab->entrée("mnutabPistes_6")->isChecked(),
                      vt->settings().setGuitare, vt->guitare().corde[6]);
  };
  EXPECT_EQ(vue(), std::tuple(2, true, 2, 38));
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(vue(), std::tuple(1, false, 1, 40));
  EXPECT_EQ(fret(1, 1, 0), -1);
}

TEST_F(Fenetre, ATypedFretSoundsOnTheTracksChannelWhileItsKeyIsHeld) {
  ouvre();
  doc().setMIDIPan(1, 30);
  ftab->mnuTabToolVolume(4);  // mf
  ftab->picTab_KeyDown(Qt::Key_5, Qt::NoModifier);
  ftab->picTab_KeyUp(Qt::Key_5, Qt::NoModifier);
  EXPECT_EQ(sons,
            (Journal{"program 1 27", "ctl 8 64 1", "ctl 10 30 1", "ctl 91 0 1", "ctl 92 0 1",
                     "ctl 93 0 1", "ctl 95 0 1", "wheel 1 64", "noteOn 69 1 79", "noteOff 69 1"}));
  // Enter sounds the column, each note at its own nuance.
  pose(1, 6, 0, 3);
  doc().setNoteVolume(1, 1, 6, 1, 47);
  sons.clear();
  ftab->picTab_KeyDown(Qt::Key_Return, Qt::NoModifier);
  ftab->picTab_KeyUp(Qt::Key_Return, Qt::NoModifier);
  for (const char* son : {"noteOn 69 1 79", "noteOn 43 1 47", "noteOff 43 1", "noteOff 69 1"})
    EXPECT_TRUE(contient(sons, son)) << son;
  // A drum track plays on channel 10, the fret being the drum.
  doc().setStaffType(1, kStaffBatterie);
  curseur(1, 24, 1);
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
  EXPECT_FALSE(ftab->entrée("mnuTabEdit_15")->isEnabled()) << "a dialog that does not exist";
  touche(Qt::Key_Return, Qt::AltModifier);
  EXPECT_FALSE(doc().modifi) << "a cancelled dialog changes nothing";
  touches({{Qt::Key_S, Qt::NoModifier}, {Qt::Key_A, Qt::NoModifier}, {Qt::Key_Q, Qt::NoModifier}});
  EXPECT_EQ(ouverts, (std::vector<DialogueTab>{DialogueTab::Proprietes, DialogueTab::Signature,
                                               DialogueTab::Accord, DialogueTab::Tonalite}));
  EXPECT_EQ(doc().getMesureAccordLast(1, 1), 1);
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
  const QString nom = dossier.filePath("essai.vtb");
  ASSERT_TRUE(io_enregistrer_vtb(source, QFile::encodeName(nom).toStdString()).ok());
  tape("5");
  ftab->ouvreLigneDeCommande(nom);
  EXPECT_EQ(std::tuple(doc().getMesureLast(), fret(2, 3, 48), fret(1, 1, 0), doc().modifi),
            std::tuple(2, 7, -1, kFaux));
  EXPECT_EQ(ftab->windowTitle(), "Tablature - " + nom + "[*]");
  EXPECT_FALSE(ftab->entrée("mnuTabEdit_0")->isEnabled());
}

using Dictionnaire = Editeur;

// "Chord from the dictionary" waits for the dictionary, then opens it; its To
// tab button writes the fingering at the cursor, a second replaces the first.
TEST_F(Dictionnaire, ToTabWritesTheFingeringAtTheCursorAndUndoTakesItBack) {
  ouvre();
  const auto actif = [this] {
    return std::pair(ftab->entrée("mnuTabTool_6")->isEnabled(),
                     ftab->bouton("tbGeneral", "accordcreate")->isEnabled());
  };
  EXPECT_EQ(actif(), std::pair(false, false));
  vt->fenetres().enregistrer(fen::FAccords, [](VT& v) { return new FAccords(v); });
  touche(Qt::Key_Right);  // the menus follow the windows that exist
  EXPECT_EQ(actif(), std::pair(true, true));
  ftab->entrée("mnuTabTool_6")->trigger();
  auto* fa = vt->fenetres().interface<FAccords>(fen::FAccords);
  ASSERT_NE(fa, nullptr);
  const auto accord = [this] {
    const int n = doc().searchMesureAccord(1, 1, 48);
    std::vector<int> f;
    for (int c = 1; c <= 6 && n != 0; ++c)
      f.push_back(doc().getMesureAccordCorde(1, 1, n, c));
    return f;
  };
  const std::vector<int> doMajeur = {0, 1, 0, 2, 3, 255};
  curseur(1, 48, 1);
  fa->lstTonalite()->setCurrentRow(3);  // C, "maj" is chosen at the start
  fa->btnToTab_Click();
  EXPECT_EQ(doc().getMesureAccordNom(1, 1, 1), "C");
  EXPECT_EQ(accord(), doMajeur);
  fa->sldPositions()->setValue(2);
  fa->btnToTab_Click();
  EXPECT_EQ(doc().getMesureAccordLast(1, 1), 1);
  EXPECT_NE(accord(), doMajeur);
  ftab->entrée("mnuTabEdit_0")->trigger();
  EXPECT_EQ(accord(), doMajeur);
  ftab->entrée("mnuTabEdit_0")->trigger();
  EXPECT_EQ(accord(), std::vector<int>{});
}

class Pistes : public Editeur {
 protected:
  FTab& prépare() {
    ouvre();
    ftab->question = [this](const QString& texte, QMessageBox::StandardButtons) {
      questions.push_back(texte);
      return réponse;
    };
    return *ftab;
  }
  int boutons() const { return static_cast<int>(ftab->barre("tbPistes")->actions().size()); }
  // The track buttons from the left: down or up, and their tool tips.
  QString états() const {
    QString s;
    for (int p = 1; p <= doc().getPisteLast(); ++p)
      s += ftab->bouton("tbPistes", QString::number(p))->isChecked() ? 'X' : '-';
    return s;
  }
  CVantoroTablature& doc() const { return vt->document(); }

  QMessageBox::StandardButton réponse = QMessageBox::Yes;
  std::vector<QString> questions;
};

TEST_F(Pistes, AddPutsTheNewTrackBehindTheCurrentOneUpToSeven) {
  prépare();
  ASSERT_EQ(boutons(), 5) << "three commands, a separator, one track";
  ftab->bouton("tbPistes", "add")->trigger();
  ftab->bouton("tbPistes", "add")->trigger();
  ASSERT_EQ(doc().getPisteLast(), 3);
  doc().setPisteNom(3, "Trois");
  doc().setNoteWhole(3, 1, 1, 0, 12, 24);
  ftab->mnutabPistes(6);  // track 2
  ftab->mnutabPistes(1);
  EXPECT_EQ(doc().CurseurPiste(), 3) << "the new track stands behind track 2";
  EXPECT_EQ(doc().getNoteCase(4, 1, 1, doc().searchNote(4, 1, 1, 0)), 12) << "old 3 is now 4";
  EXPECT_EQ(états(), "--X-");
  EXPECT_TRUE(doc().modifi);
  // The pictures read 1, 2, 3, 4 from the left; the tips carry the names (the
  // new track carries the name of the track that stood at its place, as always).
  QStringList noms, bulles;
  for (QAction* a : ftab->barre("tbPistes")->actions().mid(4)) {
    noms << a->objectName();
    bulles << a->toolTip();
  }
  EXPECT_EQ(noms, (QStringList{"tbPistes_1", "tbPistes_2", "tbPistes_3", "tbPistes_4"}));
  EXPECT_EQ(bulles, (QStringList{"Track 1", "Track 2", "Track 3 : Trois", "Track 4 : Trois"}));
  EXPECT_EQ(ftab->entrée("mnutabPistes_8")->text(), "Track 4 : Trois");

  for (int i = 0; i < 5; ++i)
    ftab->mnutabPistes(1);
  EXPECT_EQ(doc().getPisteLast(), 7);
  EXPECT_EQ(boutons(), 11);
  EXPECT_FALSE(ftab->entrée("mnutabPistes_1")->isEnabled());
  EXPECT_FALSE(ftab->bouton("tbPistes", "add")->isEnabled());
  EXPECT_TRUE(questions.empty()) << "a full toolbar adds nothing, silently";
}

TEST_F(Pistes, DeleteAsksAndKeepsAtLeastOneTrack) {
  prépare();
  ftab->mnutabPistes(2);
  EXPECT_TRUE(questions.empty()) << "one track: nothing to ask";
  EXPECT_EQ(doc().getPisteLast(), 1);

  ftab->mnutabPistes(1);
  ftab->mnutabPistes(1);
  ASSERT_EQ(doc().CurseurPiste(), 3);
  réponse = QMessageBox::No;
  ftab->mnutabPistes(2);
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0], "Do you really want to delete this track?");
  EXPECT_EQ(doc().getPisteLast(), 3);

  // Deleting the last track puts the cursor on the one before it.
  réponse = QMessageBox::Yes;
  ftab->bouton("tbPistes", "remove")->trigger();
  EXPECT_EQ(doc().getPisteLast(), 2);
  EXPECT_EQ(doc().CurseurPiste(), 2);
  EXPECT_EQ(états(), "-X");
  EXPECT_EQ(boutons(), 6);
  EXPECT_EQ(ftab->bouton("tbPistes", "3"), nullptr);
}

TEST_F(Pistes, ADrumTrackBringsUpThePickerAndKeepsTheInstrument) {
  prépare();
  ftab->mnutabPistes(1);
  doc().setStaffType(2, kStaffBatterie);
  const int guitare = vt->settings().setGuitare;
  ftab->mnutabPistes(6);
  ASSERT_NE(ftab->batterie(), nullptr);
  EXPECT_TRUE(ftab->batterie()->isVisible());
  EXPECT_EQ(vt->settings().setGuitare, guitare);

  // A drum chosen in the picker is entered as the track's fret.
  emit ftab->batterie()->drumChoisi(38);
  const int c = doc().CurseurCorde();
  EXPECT_EQ(doc().getNoteCase(2, 1, c, doc().searchNote(2, 1, c, 0)), 38);

  ftab->mnutabPistes(5);
  EXPECT_FALSE(ftab->batterie()->isVisible());
}

TEST_F(Pistes, TrackCommandsStopThePiece) {
  prépare();
  ftab->mnuTabPlay(0);
  ftab->mnutabPistes(1);
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_EQ(doc().getPisteLast(), 2);
}

}  // namespace
}  // namespace vt::essai
