// The Surface of a printed page: page units of 1/360 inch converted to the
// pixels of whatever device the painter works on, a printer, a PDF writer or
// an image, from that device's resolution. So a page is laid out the same on
// a 300 dpi printer, a 1200 dpi PDF and a 96 dpi preview: texts are measured
// at one reference resolution for every device, and only the drawing differs.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QRectF>
#include <memory>
#include <string>
#include <unordered_map>

#include "render/surface.h"

namespace vt {

class PageSurface : public Surface {
 public:
  // Where the painter's origin lies: at the corner of the printable area (a
  // printer, a PDF writer) or at the corner of the sheet (an image of it).
  enum class Origine { Zone, Feuille };
  // Draws with `painter` (begun on its device) into the printable area of
  // `page`, at `dpi` device pixels to the inch. The size in page units comes
  // from the page alone, so every device gets the same layout. Without a
  // painter the surface only measures: laying pages out needs no device.
  PageSurface(QPainter* painter, const QPageLayout& page, double dpi, Origine origine);

  int ScaleWidth() const override { return m_largeur; }
  int ScaleHeight() const override { return m_hauteur; }
  int TextWidth(std::string_view texte) override;
  int TextHeight(std::string_view texte) override;
  void Rectangle(int l, int t, int r, int b) override;
  void Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) override;
  void BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx, int sy,
              RasterOp rop) override;

  // Device pixels of a page unit.
  double échelle() const { return m_échelle; }

 protected:
  void drawSegment(double x1, double y1, double x2, double y2) override;
  void drawBox(double x1, double y1, double x2, double y2, bool filled) override;
  void drawCircle(double x, double y, double rayon) override;
  void drawText(double x, double y, std::string_view texte, int largeur, int hauteur) override;
  void drawGlyph(double x, double y, std::string_view texte) override;
  void drawDeviceLine(int x1, int y1, int x2, int y2) override;
  void clear() override;

 private:
  QPointF point(double x, double y) const;
  double longueur(double unités) const { return unités * m_échelle; }
  struct Police {
    QFont font;
    QFontMetricsF métriques;  // at the reference resolution: in page units
  };
  Police& police();
  void préparePlume();

  QPainter* m_painter;
  QRectF m_zone;
  double m_échelle;  // device pixels per page unit
  int m_largeur;
  int m_hauteur;
  std::unordered_map<std::string, std::unique_ptr<Police>> m_polices;
  Police* m_police = nullptr;
  FontSpec m_policeCourante;
};

}  // namespace vt
