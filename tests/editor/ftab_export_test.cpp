// The exports, imports and printing of the editor: MIDI, text, WAV, the printer, PDF.
#include <QAbstractButton>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <cstdio>
#include <deque>
#include <tuple>

#include "dialogs/ftab_page_setup.h"
#include "dialogs/ftab_print.h"
#include "ftab_banc.h"
#include "player/export_wav.h"
#include "render_qt/page_documents.h"

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

// The pages of a PDF as pdfinfo counts them; -1 without pdfinfo or file.
int pagesPdf(const QString& chemin) {
  if (!QFile::exists(chemin)) return -1;
  FILE* f = popen(("pdfinfo '" + chemin.toStdString() + "' 2>/dev/null").c_str(), "r");
  if (f == nullptr) return -1;
  char ligne[512];
  int pages = -1;
  while (std::fgets(ligne, sizeof ligne, f) != nullptr)
    if (std::sscanf(ligne, "Pages: %d", &pages) == 1) break;
  pclose(f);
  return pages;
}

class Impressions : public Editeur {
 protected:
  void prépare(int mesures) {
    ouvre();
    ftab->message = [this](const QString& t, QMessageBox::Icon) { messages.push_back(t); };
    Editeur::mesures(mesures);
    for (int m = 1; m <= mesures; ++m)
      for (int k = 0; k < 8; ++k)
        pose(m, 1 + k % 6, k * 24, (m + k) % 12);
    doc().titre = "Etude";
  }
  int pagesPiste(int piste) {
    return miseEnPagePiste(doc(), ftab->réglagesPage(), piste, vt->printer().pageLayout())
        .nombrePages();
  }
  QTemporaryDir dossier;
  std::vector<QString> messages;
};

TEST_F(Impressions, ThePrinterGetsThePagesAndCopiesOfTheDialogAndAFailureIsTold) {
  prépare(40);
  const int total = pagesPiste(1);
  ASSERT_GE(total, 3);
  const struct {
    int de, à, copies, attendues;
  } cas[] = {{0, 0, 1, total}, {2, 3, 1, 2}, {2, 2, 2, 1}, {total + 1, total + 2, 1, -1}};
  for (const auto& c : cas) {
    SCOPED_TRACE(c.de);
    const QString chemin = dossier.filePath(QStringLiteral("p%1-%2.pdf").arg(c.de).arg(c.copies));
    int copies = 1;
    ftab->dialogueImpression = [&](QPrinter& printer, int pages) {
      EXPECT_EQ(pages, total);
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(chemin);
      printer.setFromTo(c.de, c.à);
      printer.setCopyCount(c.copies);
      // A printer that makes copies itself gets the pages once; one that
      // cannot gets them as many times.
      copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
      return true;
    };
    ftab->MenuTabFile(11);
    // A range past the last page prints nothing.
    EXPECT_EQ(pagesPdf(chemin), c.attendues < 0 ? -1 : c.attendues * copies);
  }
  EXPECT_TRUE(messages.empty());
  vt->printer().setFromTo(0, 0);
  vt->printer().setCopyCount(1);
  // A failing printer says so and changes nothing.
  const CVantoroTablature avant = doc();
  const QString absent = dossier.filePath("absent/p.pdf");
  ftab->dialogueImpression = [&](QPrinter& printer, int) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(absent);
    return true;
  };
  ftab->MenuTabFile(11);
  EXPECT_EQ(messages, std::vector<QString>{vt->loadString(1378)});
  EXPECT_EQ(doc(), avant);
  EXPECT_FALSE(QFile::exists(absent));
}

TEST_F(Impressions, PreviewPagesZoomAndCopy) {
  prépare(40);
  TabSettings réglages = ftab->réglagesPage();
  FTabPrint aperçu([&] { return réglages; }, doc(), 1, vt->printer(),
                   [this](int id) { return vt->loadString(id); });
  const int pages = aperçu.nombrePages();
  EXPECT_EQ(pages, pagesPiste(1));
  EXPECT_EQ(std::pair(aperçu.hsbPage()->minimum(), aperçu.hsbPage()->maximum()),
            std::pair(1, pages));
  const QImage page1 = aperçu.image();
  aperçu.hsbPage()->setValue(2);
  EXPECT_NE(aperçu.image(), page1);
  EXPECT_EQ(aperçu.findChild<QLabel*>("labPage")->text(),
            QStringLiteral("Page 2 of %1").arg(pages));
  aperçu.btnCopy_Click();
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), aperçu.image().size());

  // A larger zoom makes more pages; the page setup's OK shows them.
  réglages.cfgPrintFactor = 4.5f;
  aperçu.miseEnPage = [] { return true; };
  aperçu.btnMiseEnPage_Click();
  EXPECT_GT(aperçu.nombrePages(), pages);
  EXPECT_EQ(aperçu.hsbPage()->maximum(), aperçu.nombrePages());
}

TEST_F(Impressions, PageSetupWritesOnOkOnly) {
  prépare(1);
  Settings& s = vt->settings();
  const Settings avant = s;
  for (const bool ok : {false, true}) {
    SCOPED_TRACE(ok);
    FTabPageSetup d(Textes{vt->setLang()}, s);
    d.findChild<QSlider*>("sldTabPRN_VIEW_FACTOR")->setValue(25);
    d.findChild<QSlider*>("sldTabINTER_STRINGS")->setValue(16);
    d.findChild<QRadioButton*>("opt3")->click();
    EXPECT_EQ(d.element(), 3);
    d.findChild<QCheckBox*>("chk")->setChecked(false);
    d.findChild<QToolButton*>("imgAlignementDroite")->click();
    d.choisitPolice = [](QFont& f) {
      f.setFamily("Courier");
      f.setPointSizeF(14);
      f.setItalic(true);
      return true;
    };
    d.findChild<QPushButton*>("btnPolice")->click();
    d.findChild<QLineEdit*>("txtPrintNumpage")->setText("p. %c");
    d.findChild<QCheckBox*>("chkTabPrintAccords")->setChecked(false);
    if (ok)
      d.accept();
    else
      d.reject();
  }
  EXPECT_FLOAT_EQ(s.cfgPrintFactor, 2.5f);
  EXPECT_EQ(std::tuple(s.PRN_SET_VIEW_INTER_STRINGS, s.cfgPrint[3], s.cfgPrintAlign[3],
                       s.cfgPrintNumpage, s.cfgPrintAccords),
            std::tuple(16, 0, 2, "p. %c", 0));
  EXPECT_EQ(std::tuple(s.cfgFont[3].nom, s.cfgFont[3].taille, s.cfgFont[3].italique != 0),
            std::tuple("Courier", 14, true));
  // The other elements kept their own; the editor's page settings follow.
  EXPECT_EQ(std::tuple(s.cfgFont[0].nom, s.cfgPrint[0]),
            std::tuple(avant.cfgFont[0].nom, avant.cfgPrint[0]));
  EXPECT_EQ(ftab->réglagesPage().cfgFont[3].nom, "Courier");

  // Restore brings the layout's sliders back, not the head.
  FTabPageSetup d(Textes{vt->setLang()}, s);
  d.btnRestore_Click();
  d.accept();
  EXPECT_FLOAT_EQ(s.cfgPrintFactor, 3.0f);
  EXPECT_EQ(std::tuple(s.PRN_SET_VIEW_INTER_STRINGS, s.cfgFont[3].nom), std::tuple(13, "Courier"));
}

TEST_F(Impressions, PdfExportOfEveryTrackOrTheCurrentOne) {
  prépare(12);
  doc().addPiste(1, tGuitare{});
  QString chemin;
  ftab->choisitFichier = [&](bool enregistrer, const QString&, const QString& filtre,
                             const QString& titre) {
    EXPECT_TRUE(enregistrer);
    EXPECT_EQ(titre, "Export as PDF");
    EXPECT_TRUE(filtre.startsWith("PDF documents (*.pdf)"));
    return chemin;
  };
  const int une = pagesPiste(1);
  const int deux = pagesPiste(2);
  chemin = dossier.filePath("toutes");
  ftab->entrée("mnuTabFileExportPDF_0")->trigger();
  EXPECT_EQ(pagesPdf(chemin + ".pdf"), une + deux);
  chemin = dossier.filePath("une.pdf");
  ftab->entrée("mnuTabFileExportPDF_1")->trigger();
  EXPECT_EQ(pagesPdf(chemin), une);
  EXPECT_TRUE(messages.empty());

  chemin = dossier.filePath("absent/x.pdf");
  ftab->mnuTabFileExportPDF(true);
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_TRUE(messages[0].startsWith(vt->loadString(6122)));
  EXPECT_FALSE(QFile::exists(chemin));
}

}  // namespace
}  // namespace vt::essai
