// The export and import commands of the editor: MIDI, text tablature, WAV.
#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>
#include <deque>

#include "ftab_banc.h"
#include "player/export_wav.h"

namespace vt::essai {
namespace {

class Exports : public Editeur {
 protected:
  void prépare() {
    ouvre();
    ftab->question = [this](const QString& texte, QMessageBox::StandardButtons b) {
      questions.push_back(texte);
      boutons.push_back(b);
      const QMessageBox::StandardButton r = réponses.empty() ? QMessageBox::No : réponses.front();
      if (!réponses.empty()) réponses.pop_front();
      return r;
    };
    ftab->choisitFichier = [this](bool, const QString& proposé, const QString&,
                                  const QString& titre) {
      proposés.push_back(proposé);
      titres.push_back(titre);
      return chemin;
    };
    ftab->message = [this](const QString& t, QMessageBox::Icon) { messages.push_back(t); };
  }
  QByteArray contenu(const QString& c) {
    QFile f(c);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }

  QTemporaryDir dossier;
  QString chemin;
  std::deque<QMessageBox::StandardButton> réponses;
  std::vector<QString> questions, proposés, titres, messages;
  std::vector<QMessageBox::StandardButtons> boutons;
};

TEST_F(Exports, TheMidiFileTakesTheMetaEventsOnlyWhenAskedTheTextTheCursorsTrack) {
  prépare();
  tape("5");
  réponses = {QMessageBox::Yes, QMessageBox::No};
  QByteArray fichiers[2];
  for (QByteArray& octets : fichiers) {
    chemin = dossier.filePath(QStringLiteral("f%1.mid").arg(&octets - fichiers));
    ftab->mnuTabFileExportMIDI();
    octets = contenu(chemin);
    ASSERT_TRUE(octets.startsWith("MThd"));
  }
  EXPECT_TRUE(questions[0].startsWith("Add Rich MIDI Tablature Format (RMTF) information?"));
  EXPECT_EQ(boutons[0], QMessageBox::Yes | QMessageBox::No | QMessageBox::Help);
  EXPECT_EQ(titres[0], "Export as a MIDI file");
  EXPECT_EQ(proposés[0], dossierDocuments()) << "an unnamed tablature proposes no name";
  // FF 11 carries each note's string: only the file with the meta-events has it.
  EXPECT_TRUE(fichiers[0].contains(QByteArray("\xFF\x11", 2)));
  EXPECT_FALSE(fichiers[1].contains(QByteArray("\xFF\x11", 2)));
  EXPECT_TRUE(messages.empty());
  EXPECT_TRUE(doc().modifi) << "an export is no save";

  // The text tablature is the cursor's track; cancelled, nothing is written.
  ASSERT_TRUE(doc().addPiste(1, vt->guitare()));
  doc().setNoteWhole(2, 1, 1, 0, 12, 48);
  ftab->tbPistesUpdate();
  ftab->mnutabPistes(6);
  chemin = dossier.filePath("piste.txt");
  ftab->mnuTabFileExportASCII();
  EXPECT_TRUE(contenu(chemin).contains("12"));
  EXPECT_EQ(titres.back(), "Export as an ASCII tablature");
  QFile::remove(chemin);
  chemin.clear();
  ftab->mnuTabFileExportASCII();
  EXPECT_FALSE(QFile::exists(dossier.filePath("piste.txt")));

  // A broken repeat writes nothing and Yes shows it.
  mesures(4);
  doc().setMesureLoopGaucheType(2, 2);
  doc().setMesureLoopGaucheType(3, 2);  // a start inside an open repeat
  chemin = dossier.filePath("x.mid");
  questions.clear();
  proposés.clear();
  réponses = {QMessageBox::No, QMessageBox::Yes};
  ftab->mnuTabFileExportMIDI();
  EXPECT_EQ(doc().CurseurMesure(), 1);
  ftab->entrée("mnuTabFileExportMIDI")->trigger();
  EXPECT_EQ(questions, std::vector<QString>(2,
                                            "There is a problem of repeat bar at measure 3. "
                                            "Go to this measure?"));
  EXPECT_TRUE(proposés.empty()) << "no dialog";
  EXPECT_EQ(doc().CurseurMesure(), 3);
  EXPECT_FALSE(QFile::exists(chemin));
}

TEST_F(Exports, AnImportAsksAboutTheChangesAndLeavesThePieceUnnamed) {
  prépare();
  tape("5");
  chemin = dossier.filePath("piece.mid");
  std::vector<std::pair<bool, QString>> imports;
  ftab->dialogueImport = [&](bool midi, const QString& c) {
    imports.emplace_back(midi, c);
    if (midi) return false;
    CVantoroTablature nouveau(vt->guitare());
    nouveau.addPiste(1, vt->guitare());
    vt->document() = std::move(nouveau);
    return true;
  };
  // Cancel in the question: no dialog at all; No, then the MIDI dialog turned
  // down: the document stays; the text tablature replaces it, unnamed.
  réponses = {QMessageBox::Cancel, QMessageBox::No, QMessageBox::No};
  ftab->entrée("mnuTabFileImportMIDI")->trigger();
  EXPECT_TRUE(imports.empty());
  ftab->mnuTabFileImportMIDI();
  EXPECT_EQ(fret(1, 1, 0), 5);
  chemin = dossier.filePath("piece.txt");
  ftab->mnuTabFileImportASCII();
  EXPECT_EQ(imports, (std::vector<std::pair<bool, QString>>{{true, dossier.filePath("piece.mid")},
                                                            {false, chemin}}));
  EXPECT_EQ(titres, (std::vector<QString>{"Import a MIDI file", "Import an ASCII tablature"}));
  EXPECT_NE(ftab->bouton("tbPistes", "2"), nullptr) << "the buttons rebuilt";
  EXPECT_EQ(ftab->windowTitle(), "Tablature[*]");
}

// File > Export > Audio writes what `convert x.vtb x.wav` writes, byte for
// byte, under a progress bar whose Cancel leaves the earlier file alone.
TEST_F(Exports, TheWavExportWritesWhatTheCommandLineWritesAndCancelKeepsTheOldFile) {
  prépare();
  tape("3");
  touche(Qt::Key_Right);
  tape("5");
  chemin = dossier.filePath("piece");  // the extension is added
  QString titreProgrès;
  QTimer::singleShot(0, ftab, [&] {
    if (auto* p = ftab->findChild<QProgressDialog*>("progresWav")) titreProgrès = p->windowTitle();
  });
  ftab->entrée("mnuTabFileExportWAV")->trigger();
  EXPECT_EQ(titres.back(), "Export as a WAV audio file");
  EXPECT_EQ(titreProgrès, "Export as a WAV audio file");
  const QByteArray menu = contenu(chemin + ".wav");
  ASSERT_GT(menu.size(), 44);
  const QString cli = dossier.filePath("cli.wav");
  ASSERT_TRUE(exporterWav(doc(), QFile::encodeName(cli).toStdString()).ok);
  EXPECT_TRUE(menu == contenu(cli)) << "the same rendering as the command line";

  // A long piece, cancelled as soon as the bar shows: the earlier file stays.
  doc().tempo = 40;
  mesures(151);
  for (int m = 1; m <= doc().getMesureLast(); ++m)
    pose(m, 1, 0, 3, 192);
  chemin += ".wav";
  QTimer::singleShot(0, ftab, [&] {
    if (auto* p = ftab->findChild<QProgressDialog*>("progresWav")) p->cancel();
  });
  ftab->mnuTabFileExportWAV();
  EXPECT_TRUE(contenu(chemin) == menu);
  EXPECT_TRUE(messages.empty()) << "a cancel says nothing";
  EXPECT_EQ(QDir(dossier.path()).entryList(QDir::Files), (QStringList{"cli.wav", "piece.wav"}))
      << "no temporary file left";
}

TEST_F(Exports, TheEditorsQuestionKeepsItsBoxOpenForHelpAndWarnsOnlyBeforeWorkIsDropped) {
  ouvre();
  FTab propre(*vt);  // the editor's own boxes
  const std::pair<QMessageBox::StandardButtons, QMessageBox::Icon> kCas[] = {
      {QMessageBox::Yes | QMessageBox::No | QMessageBox::Help, QMessageBox::Question},
      {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Warning}};
  for (const auto& [types, icône] : kCas) {
    // Should the box not come, the guard closes whatever is modal.
    QTimer garde;
    garde.setSingleShot(true);
    QObject::connect(&garde, &QTimer::timeout, [] {
      if (QWidget* w = QApplication::activeModalWidget()) w->close();
    });
    garde.start(5000);
    QTimer::singleShot(0, [&, icône = icône] {
      auto* boîte = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(boîte, nullptr);
      EXPECT_EQ(boîte->icon(), icône);
      if (QAbstractButton* aide = boîte->button(QMessageBox::Help)) {
        aide->click();
        EXPECT_TRUE(boîte->isVisible()) << "Help leaves the question open";
      }
      boîte->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(propre.question("?", types), QMessageBox::No);
  }
}

}  // namespace
}  // namespace vt::essai
