#include "ftab_print.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "render_qt/page_documents.h"

namespace vt {

bool dialogueImpressionSysteme(QWidget* parent, QPrinter& printer, int pages) {
  QPrintDialog dialogue(&printer, parent);
  dialogue.setOption(QAbstractPrintDialog::PrintPageRange, true);
  dialogue.setMinMax(1, pages);
  dialogue.setFromTo(1, pages);
  dialogue.setPrintRange(QAbstractPrintDialog::AllPages);
  return dialogue.exec() == QDialog::Accepted;
}

Impression imprimePiste(QPrinter& printer, const CVantoroTablature& doc, const TabSettings& s,
                        int piste, const std::function<bool(QPrinter&, int pages)>& dialogue) {
  const int pages = miseEnPagePiste(doc, s, piste, printer.pageLayout()).nombrePages();
  if (!dialogue(printer, pages)) return Impression::Annulee;
  if (s.cfgPrintNB != 1) printer.setColorMode(QPrinter::Color);
  const int de = printer.fromPage() > 0 ? printer.fromPage() : 1;
  const int à = printer.toPage() > 0 ? std::min(printer.toPage(), pages) : pages;
  // A range that starts after it ends prints nothing.
  if (de > à) return Impression::Imprimee;
  // A printer that makes the copies itself gets the pages once.
  const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
  QPainter painter;
  if (!painter.begin(&printer)) return Impression::Echouee;
  bool ok = true;
  for (int copie = 0; copie < copies && ok; ++copie) {
    if (copie > 0 && !printer.newPage()) ok = false;
    if (ok && peintPages(painter, printer, doc, s, {piste}, de, à) < 0) ok = false;
  }
  if (!ok) printer.abort();
  painter.end();
  return ok && printer.printerState() != QPrinter::Error ? Impression::Imprimee
                                                         : Impression::Echouee;
}

FTabPrint::FTabPrint(std::function<TabSettings()> reglages, const CVantoroTablature& doc, int piste,
                     QPrinter& printer, std::function<QString(int)> texte, QWidget* parent)
    : QDialog(parent),
      m_reglages(std::move(reglages)),
      m_doc(doc),
      m_piste(piste),
      m_printer(printer),
      m_texte(std::move(texte)) {
  setObjectName(QStringLiteral("FTabPrint"));
  setWindowTitle(m_texte(1234));
  dialogueImpression = [this](QPrinter& p, int pages) {
    return dialogueImpressionSysteme(this, p, pages);
  };
  auto* colonne = new QVBoxLayout(this);
  m_picFond = new QScrollArea(this);
  m_picFond->setObjectName(QStringLiteral("picFond"));
  m_picFond->setBackgroundRole(QPalette::Dark);
  QPalette gris = m_picFond->palette();
  gris.setColor(QPalette::Dark, QColor(128, 128, 128));
  m_picFond->setPalette(gris);
  m_picFond->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  m_picTab = new QLabel;
  m_picTab->setObjectName(QStringLiteral("picTab"));
  m_picTab->setContentsMargins(12, 12, 12, 12);
  m_picFond->setWidget(m_picTab);
  m_picFond->setWidgetResizable(false);
  colonne->addWidget(m_picFond, 1);

  auto* pages = new QHBoxLayout;
  m_labPage = new QLabel(this);
  m_labPage->setObjectName(QStringLiteral("labPage"));
  m_hsbPage = new QScrollBar(Qt::Horizontal, this);
  m_hsbPage->setObjectName(QStringLiteral("hsbPage"));
  m_hsbPage->setPageStep(1);
  pages->addWidget(m_labPage);
  pages->addWidget(m_hsbPage, 1);
  colonne->addLayout(pages);
  connect(m_hsbPage, &QScrollBar::valueChanged, this, [this] { dessinePage(); });

  auto* boutons = new QHBoxLayout;
  const auto bouton = [&](const char* nom, int id, void (FTabPrint::*action)()) {
    auto* b = new QPushButton(m_texte(id), this);
    b->setObjectName(QString::fromLatin1(nom));
    b->setAutoDefault(false);
    connect(b, &QPushButton::clicked, this, action);
    boutons->addWidget(b);
    return b;
  };
  bouton("btnImprimer", 1236, &FTabPrint::btnImprimer_Click)->setDefault(true);
  bouton("btnCopy", 1237, &FTabPrint::btnCopy_Click);
  bouton("btnMiseEnPage", 1238, &FTabPrint::btnMiseEnPage_Click);
  boutons->addStretch(1);
  bouton("btnAnnuler", 92, &FTabPrint::reject);
  colonne->addLayout(boutons);
  resize(900, 960);
  affiche();
}

QScrollBar* FTabPrint::vsbPage() const {
  return m_picFond->verticalScrollBar();
}

void FTabPrint::affiche() {
  m_pages = std::max(
      1, miseEnPagePiste(m_doc, m_reglages(), m_piste, m_printer.pageLayout()).nombrePages());
  const QSignalBlocker bloque(m_hsbPage);
  // A document of one page leaves the bar with no range.
  m_hsbPage->setRange(1, m_pages);
  m_hsbPage->setEnabled(m_pages > 1);
  dessinePage();
}

void FTabPrint::dessinePage() {
  const int page = std::clamp(m_hsbPage->value(), 1, m_pages);
  const int dpi = std::max(72, logicalDpiX());
  m_image = imagePage(m_doc, m_reglages(), m_piste, page, m_printer.pageLayout(), dpi);
  m_picTab->setPixmap(QPixmap::fromImage(m_image));
  m_picTab->adjustSize();
  m_labPage->setText(m_texte(1379).arg(page).arg(m_pages));
}

void FTabPrint::btnImprimer_Click() {
  switch (imprimePiste(m_printer, m_doc, m_reglages(), m_piste, dialogueImpression)) {
    case Impression::Echouee:
      if (message) message(m_texte(1378));
      break;
    default:
      break;
  }
}

void FTabPrint::btnCopy_Click() {
  QClipboard* pressePapier = QGuiApplication::clipboard();
  pressePapier->clear();
  pressePapier->setImage(m_image);
}

void FTabPrint::btnMiseEnPage_Click() {
  if (miseEnPage && miseEnPage()) affiche();
}

}  // namespace vt
