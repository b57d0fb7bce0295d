// The Surface backed by a QPainter on a QImage of Format_RGB32, so that the
// raster draw modes of the cursor and the SRCAND blits of the staff work.
// Text is drawn without antialiasing: erasing by overdraw in the background
// colour must leave nothing behind.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QStaticText>
#include <QString>
#include <memory>
#include <string>
#include <unordered_map>

#include "render/surface.h"

namespace vt {

// A source image for BitBlt.
class QImageSource : public BlitSource {
 public:
  QImageSource(std::string name, QImage image);
  std::string_view name() const override { return m_name; }
  int width() const override { return m_image.width(); }
  int height() const override { return m_image.height(); }
  const QImage& image() const { return m_image; }

 private:
  std::string m_name;
  QImage m_image;
};

class PainterSurface : public Surface {
 public:
  PainterSurface(int width, int height);
  ~PainterSurface() override;
  PainterSurface(const PainterSurface&) = delete;
  PainterSurface& operator=(const PainterSurface&) = delete;

  // A new picture of this size; its content is undefined until the next paint.
  void resize(int width, int height);
  const QImage& image() const { return m_image; }

  int ScaleWidth() const override { return m_image.width(); }
  int ScaleHeight() const override { return m_image.height(); }
  int TextWidth(std::string_view texte) override;
  int TextHeight(std::string_view texte) override;
  void Rectangle(int l, int t, int r, int b) override;
  void Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) override;
  void BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx, int sy,
              RasterOp rop) override;

 protected:
  void drawSegment(double x1, double y1, double x2, double y2) override;
  void drawBox(double x1, double y1, double x2, double y2, bool filled) override;
  void drawCircle(double x, double y, double rayon) override;
  void drawText(double x, double y, std::string_view texte, int largeur, int hauteur) override;
  void drawDeviceLine(int x1, int y1, int x2, int y2) override;
  void drawGlyph(double x, double y, std::string_view texte) override;
  void clear() override;

 private:
  // A text laid out once in one font and drawn from then on without shaping:
  // the strip prints the same few digits thousands of times.
  struct Texte {
    QStaticText statique;
    int largeur = 0;
  };
  struct Police {
    QFont font;
    QFontMetrics metrics;
    std::unordered_map<std::string, Texte> textes;
  };
  Police& police();
  const Texte& texte(std::string_view utf8);
  void preparePen();
  void prepareMode();
  // The raster modes over an axis-aligned box, done on the pixels themselves.
  bool rasterBox(int x1, int y1, int x2, int y2);

  QImage m_image;
  QPainter m_painter;
  std::unordered_map<std::string, std::unique_ptr<Police>> m_polices;
  Police* m_police = nullptr;
  FontSpec m_policeCourante;
};

QColor couleurQt(Colour c);

}  // namespace vt
