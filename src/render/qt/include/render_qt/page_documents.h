// Pages of tracks on real devices: the picture of a page for the preview and
// the command line, the pages of a printer, a PDF file. All of them lay a
// track out once with the page renderer and draw the pages of that layout.
#pragma once

#include <QImage>
#include <QPageLayout>
#include <string>
#include <vector>

#include "document/tablature.h"
#include "render/page_renderer.h"
#include "render/tab_settings.h"

class QPagedPaintDevice;
class QPainter;

namespace vt {

// A4, or Letter where the system measures in inches; upright; 12 mm at the
// top and the bottom, 10 mm at the sides.
QPageLayout pageParDéfaut();

// The zoom the pages are drawn with: the page factor over 3.
double zoomPage(const TabSettings& settings);

// The layout of a track on pages of this size; needs no device.
MiseEnPage miseEnPagePiste(const CVantoroTablature& doc, const TabSettings& settings, int piste,
                           const QPageLayout& page);

// Page `page` of a track as the sheet looks, margins included, `dpi` pixels
// to the inch. The music font must be installed.
QImage imagePage(const CVantoroTablature& doc, const TabSettings& settings, int piste, int page,
                 const QPageLayout& mise, int dpi);

// Paints tracks one after another on a paged device (a printer, a PDF writer)
// whose painter has begun, each track from a new page; of the pages of all of
// them in that order, those from `de` to `à` (from 1; `à` 0 for all). The
// number of pages painted; -1 when the device refused a new page.
int peintPages(QPainter& painter, QPagedPaintDevice& device, const CVantoroTablature& doc,
               const TabSettings& settings, const std::vector<int>& pistes, int de = 1, int à = 0);

struct RésultatPdf {
  bool ok = false;
  int pages = 0;
  std::string erreur;  // why nothing was written, from the system
};

// Writes tracks as a PDF (vector drawing, fonts embedded, text that can be
// selected) through a temporary file renamed into place: a failure leaves no
// partial file and an older file as it was.
RésultatPdf écritPdf(const CVantoroTablature& doc, const TabSettings& settings,
                     const std::vector<int>& pistes, const std::string& chemin,
                     const QPageLayout& page);

}  // namespace vt
