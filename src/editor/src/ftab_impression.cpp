// Printing from the editor: File > Print (the print dialog, then the cursor's
// track on the program's printer), Print preview (FTabPrint), Page setup
// (FTabPageSetup), and Export > PDF of every track or of the cursor's. None of
// them touches the document.
#include <QFile>
#include <QFileInfo>
#include <QPrinter>

#include "dialogs/ftab_page_setup.h"
#include "dialogs/ftab_print.h"
#include "dialogs/reglages_page.h"
#include "editor/ftab.h"
#include "render_qt/page_documents.h"
#include "shell/vt.h"

namespace vt {

TabSettings FTab::réglagesPage() const {
  return vt::réglagesPage(m_vt.settings(), Textes{m_vt.setLang()});
}

void FTab::connecteImpression() {
  dialogueImpression = [this](QPrinter& printer, int pages) {
    return dialogueImpressionSysteme(this, printer, pages);
  };
  ouvreMiseEnPage = [this] {
    return FTabPageSetup::editer(this, Textes{m_vt.setLang()}, m_vt.settings(),
                                 [this](const QString& page) { m_vt.montreAide(page); });
  };
  ouvreApercu = [this] {
    const Textes t{m_vt.setLang()};
    FTabPrint aperçu([this] { return réglagesPage(); }, doc(), piste(), m_vt.printer(),
                     [t](int id) { return t.loadString(id); }, this);
    aperçu.dialogueImpression = [this](QPrinter& printer, int pages) {
      return dialogueImpression(printer, pages);
    };
    aperçu.message = [this](const QString& texte) { message(texte, QMessageBox::Critical); };
    aperçu.miseEnPage = [this] { return ouvreMiseEnPage(); };
    aperçu.exec();
  };
}

void FTab::imprime() {
  TimerMIDIStop(true);
  // The hourglass while the pages go to the printer, not over the dialog.
  const Impression r = imprimePiste(m_vt.printer(), doc(), réglagesPage(), piste(),
                                    [this](QPrinter& printer, int pages) {
                                      const bool ok = dialogueImpression(printer, pages);
                                      if (ok) m_vt.showHourglass(true);
                                      return ok;
                                    });
  m_vt.showHourglass(false);
  if (r == Impression::Echouee) message(m_vt.loadString(1378), QMessageBox::Critical);
}

void FTab::mnuTabFileExportPDF(bool toutesLesPistes) {
  TimerMIDIStop(true);
  QString proposé;
  if (!m_fichier.isEmpty()) {
    const QFileInfo info(m_fichier);
    proposé = info.path() + QLatin1Char('/') + info.completeBaseName() + QStringLiteral(".pdf");
  }
  QString fichier = choisitFichier(true, proposé, m_vt.loadString(1279), m_vt.loadString(1280));
  if (fichier.isEmpty()) return;
  if (QFileInfo(fichier).suffix().isEmpty()) fichier += QStringLiteral(".pdf");
  std::vector<int> pistes;
  if (toutesLesPistes) {
    for (int p = 1; p <= doc().getPisteLast(); ++p)
      pistes.push_back(p);
  } else {
    pistes.push_back(piste());
  }
  // The sheet of the program's printer, with the pages' own margins.
  QPageLayout page = pageParDéfaut();
  page.setPageSize(m_vt.printer().pageLayout().pageSize());
  page.setOrientation(m_vt.printer().pageLayout().orientation());
  m_vt.showHourglass(true);
  const RésultatPdf r =
      écritPdf(doc(), réglagesPage(), pistes, QFile::encodeName(fichier).toStdString(), page);
  m_vt.showHourglass(false);
  if (!r.ok)
    message(m_vt.loadString(6122) + QLatin1Char('\n') + fichier + QStringLiteral(": ") +
                QString::fromStdString(r.erreur),
            QMessageBox::Critical);
}

}  // namespace vt
