// Printing from the editor: the print dialog, the preview, the page setup, the PDF export.
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTemporaryDir>
#include <QToolButton>
#include <cstdio>
#include <tuple>

#include "dialogs/ftab_page_setup.h"
#include "dialogs/ftab_print.h"
#include "ftab_banc.h"
#include "render_qt/page_documents.h"

namespace vt::essai {
namespace {

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
