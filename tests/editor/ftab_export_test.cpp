// The export commands of the editor: a broken repeat writes nothing and
// offers to show it; the MIDI file is proposed beside the tablature, with or
// without the tablature's meta-events; the text tablature is the cursor's
// track.
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
    ftab->question = [this](const QString& texte, QMessageBox::StandardButtons) {
      questions.push_back(texte);
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
    ftab->message = [this](const QString& t) { messages.push_back(t); };
  }
  QByteArray contenu(const QString& c) {
    QFile f(c);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }

  QTemporaryDir dossier;
  QString chemin;
  std::deque<QMessageBox::StandardButton> réponses;
  std::vector<QString> questions, proposés, titres, messages;
};

TEST_F(Exports, ABrokenRepeatWritesNothingAndYesShowsIt) {
  prépare();
  for (int i = 0; i < 3; ++i)
    doc().addMesure();
  doc().setMesureLoopGaucheType(2, 2);
  doc().setMesureLoopGaucheType(3, 2);  // a start inside an open repeat
  chemin = dossier.filePath("x.mid");
  réponses = {QMessageBox::No};
  ftab->mnuTabFileExportMIDI();
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0], "There is a problem of repeat bar at measure 3. Go to this measure?");
  EXPECT_TRUE(proposés.empty()) << "no dialog";
  EXPECT_EQ(doc().CurseurMesure(), 1);
  réponses = {QMessageBox::Yes};
  ftab->entrée("mnuTabFileExportMIDI")->trigger();
  EXPECT_EQ(doc().CurseurMesure(), 3);
  EXPECT_FALSE(QFile::exists(chemin));
}

TEST_F(Exports, TheMidiFileTakesTheMetaEventsOnlyWhenAsked) {
  prépare();
  tape("5");
  chemin = dossier.filePath("avec.mid");
  réponses = {QMessageBox::Yes};
  ftab->mnuTabFileExportMIDI();
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_TRUE(questions[0].startsWith("Add Rich MIDI Tablature Format (RMTF) information?"));
  EXPECT_EQ(titres[0], "Export as a MIDI file");
  EXPECT_EQ(proposés[0], dossierDocuments()) << "an unnamed tablature proposes no name";
  const QByteArray avec = contenu(chemin);
  ASSERT_TRUE(avec.startsWith("MThd"));

  chemin = dossier.filePath("sans.mid");
  réponses = {QMessageBox::No};
  ftab->mnuTabFileExportMIDI();
  const QByteArray sans = contenu(chemin);
  ASSERT_TRUE(sans.startsWith("MThd"));
  // FF 11 carries each note's string: only the file with the meta-events has it.
  EXPECT_TRUE(avec.contains(QByteArray("\xFF\x11", 2)));
  EXPECT_FALSE(sans.contains(QByteArray("\xFF\x11", 2)));
  EXPECT_TRUE(messages.empty());
  EXPECT_TRUE(doc().modifi) << "an export is no save";
}

TEST_F(Exports, TheTextTablatureIsTheCursorsTrackBesideTheFile) {
  prépare();
  ASSERT_TRUE(doc().addPiste(1, vt->guitare()));
  doc().setNoteWhole(2, 1, 1, 0, 12, 48);
  ftab->tbPistesUpdate();
  ftab->mnutabPistes(6);
  chemin = dossier.filePath("piste.txt");
  ftab->mnuTabFileExportASCII();
  const QByteArray texte = contenu(chemin);
  EXPECT_TRUE(texte.contains("12")) << texte.toStdString();
  EXPECT_EQ(titres[0], "Export as an ASCII tablature");

  // Cancelled: nothing is written.
  chemin.clear();
  QFile::remove(dossier.filePath("piste.txt"));
  ftab->mnuTabFileExportASCII();
  EXPECT_FALSE(QFile::exists(dossier.filePath("piste.txt")));
}

TEST_F(Exports, AnImportAsksAboutTheChangesAndLeavesThePieceUnnamed) {
  prépare();
  tape("5");
  chemin = dossier.filePath("piece.mid");
  std::vector<std::pair<bool, QString>> imports;
  bool remplace = false;
  ftab->dialogueImport = [&](bool midi, const QString& c) {
    imports.emplace_back(midi, c);
    if (remplace) {
      CVantoroTablature nouveau(vt->guitare());
      nouveau.addPiste(1, vt->guitare());
      nouveau.setNoteWhole(2, 1, 1, 0, 9, 48);
      vt->document() = std::move(nouveau);
    }
    return remplace;
  };
  // Cancel in the question: no dialog at all.
  réponses = {QMessageBox::Cancel};
  ftab->entrée("mnuTabFileImportMIDI")->trigger();
  EXPECT_TRUE(imports.empty());
  EXPECT_TRUE(titres.empty());
  // No, then the dialog turned down: the document stays.
  réponses = {QMessageBox::No};
  ftab->mnuTabFileImportMIDI();
  ASSERT_EQ(imports.size(), 1u);
  EXPECT_TRUE(imports[0].first);
  EXPECT_EQ(imports[0].second, chemin);
  EXPECT_EQ(titres.back(), "Import a MIDI file");
  EXPECT_EQ(fret(1, 1, 0), 5);
  // The text tablature replaces it: two tracks, no name, the buttons rebuilt.
  remplace = true;
  chemin = dossier.filePath("piece.txt");
  réponses = {QMessageBox::No};
  ftab->mnuTabFileImportASCII();
  ASSERT_EQ(imports.size(), 2u);
  EXPECT_FALSE(imports[1].first);
  EXPECT_EQ(titres.back(), "Import an ASCII tablature");
  EXPECT_EQ(doc().getPisteLast(), 2);
  EXPECT_NE(ftab->bouton("tbPistes", "2"), nullptr);
  EXPECT_TRUE(ftab->fichier().isEmpty());
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
  EXPECT_TRUE(messages.empty());
  const QByteArray menu = contenu(chemin + ".wav");
  ASSERT_GT(menu.size(), 44);
  const QString cli = dossier.filePath("cli.wav");
  ASSERT_TRUE(exporterWav(doc(), QFile::encodeName(cli).toStdString()).ok);
  EXPECT_TRUE(menu == contenu(cli)) << "the same rendering as the command line";
  EXPECT_TRUE(doc().modifi) << "an export is not a save";

  // A long piece, cancelled as soon as the bar shows: the earlier file stays.
  doc().tempo = 40;
  for (int i = 0; i < 150; ++i)
    doc().addMesure();
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

}  // namespace
}  // namespace vt::essai
