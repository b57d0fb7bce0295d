#include "render_qt/page_documents.h"

#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <cmath>

#include "document/cp1252.h"
#include "render_qt/page_surface.h"

namespace vt {

QPageLayout pageParDéfaut() {
  const bool pouces = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageLayout(QPageSize(pouces ? QPageSize::Letter : QPageSize::A4), QPageLayout::Portrait,
                     QMarginsF(10, 12, 10, 12), QPageLayout::Millimeter);
}

double zoomPage(const TabSettings& settings) {
  return static_cast<double>(settings.cfgPrintFactor) / 3.0;
}

MiseEnPage miseEnPagePiste(const CVantoroTablature& doc, const TabSettings& settings, int piste,
                           const QPageLayout& page) {
  PageSurface mesure(nullptr, page, kUnitésParPouce, PageSurface::Origine::Zone);
  CPageRenderer r(doc, settings);
  return r.miseEnPage(mesure, zoomPage(settings), piste);
}

QImage imagePage(const CVantoroTablature& doc, const TabSettings& settings, int piste, int page,
                 const QPageLayout& mise, int dpi) {
  const QRect feuille = mise.fullRectPixels(dpi);
  QImage image(feuille.size(), QImage::Format_RGB32);
  const int parMètre = static_cast<int>(std::lround(dpi / 0.0254));
  image.setDotsPerMeterX(parMètre);
  image.setDotsPerMeterY(parMètre);
  image.fill(Qt::white);
  QPainter painter(&image);
  PageSurface surface(&painter, mise, dpi, PageSurface::Origine::Feuille);
  CPageRenderer r(doc, settings);
  const MiseEnPage m = r.miseEnPage(surface, zoomPage(settings), piste);
  r.drawOnPage(surface, m, page);
  return image;
}

int peintPages(QPainter& painter, QPagedPaintDevice& device, const CVantoroTablature& doc,
               const TabSettings& settings, const std::vector<int>& pistes, int de, int à) {
  const QPageLayout page = device.pageLayout();
  PageSurface surface(&painter, page, device.logicalDpiX(), PageSurface::Origine::Zone);
  CPageRenderer r(doc, settings);
  int numéro = 0;
  int peintes = 0;
  for (const int piste : pistes) {
    const MiseEnPage m = r.miseEnPage(surface, zoomPage(settings), piste);
    for (int i = 1; i <= m.nombrePages(); ++i) {
      ++numéro;
      if (numéro < de || (à > 0 && numéro > à)) continue;
      if (peintes > 0 && !device.newPage()) return -1;
      ++peintes;
      r.drawOnPage(surface, m, i);
    }
  }
  return peintes;
}

RésultatPdf écritPdf(const CVantoroTablature& doc, const TabSettings& settings,
                     const std::vector<int>& pistes, const std::string& chemin,
                     const QPageLayout& page) {
  RésultatPdf résultat;
  QSaveFile fichier(QString::fromStdString(chemin));
  if (!fichier.open(QIODevice::WriteOnly)) {
    résultat.erreur = fichier.errorString().toStdString();
    return résultat;
  }
  {
    QPdfWriter pdf(&fichier);
    pdf.setResolution(1200);
    pdf.setPageLayout(page);
    pdf.setCreator(QStringLiteral("Vantoro"));
    pdf.setTitle(QString::fromStdString(cp1252ToUtf8(doc.titre)));
    QPainter painter;
    if (!painter.begin(&pdf)) {
      fichier.cancelWriting();
      résultat.erreur = "the PDF writer could not start";
      return résultat;
    }
    résultat.pages = peintPages(painter, pdf, doc, settings, pistes);
    painter.end();
    if (résultat.pages < 0) {
      fichier.cancelWriting();
      résultat.erreur = "the PDF writer refused a page";
      return résultat;
    }
  }
  if (!fichier.commit()) {
    résultat.erreur = fichier.errorString().toStdString();
    return résultat;
  }
  résultat.ok = true;
  return résultat;
}

}  // namespace vt
