#include "render_qt/painter_surface.h"

#include <QPen>
#include <algorithm>
#include <cmath>

#include "police_qt.h"

namespace vt {

QColor couleurQt(Colour c) {
  return QColor(rouge(c), vert(c), bleu(c));
}

QImageSource::QImageSource(std::string name, QImage image)
    : m_name(std::move(name)), m_image(image.convertToFormat(QImage::Format_RGB32)) {}

PainterSurface::PainterSurface(int width, int height)
    : m_image(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32) {
  m_image.fill(Qt::white);
  m_painter.begin(&m_image);
}

PainterSurface::~PainterSurface() {
  m_painter.end();
}

void PainterSurface::resize(int width, int height) {
  m_painter.end();
  m_image = QImage(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32);
  m_image.fill(Qt::white);
  m_painter.begin(&m_image);
  oublieDessous();
  m_polices.clear();
  m_police = nullptr;
}

PainterSurface::Police& PainterSurface::police() {
  if (m_police != nullptr && m_policeCourante == Font()) return *m_police;
  const FontSpec& f = Font();
  const std::string clé = cléPolice(f);
  auto it = m_polices.find(clé);
  if (it == m_polices.end()) {
    QFont font = policeQt(f);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferFullHinting);
    auto p = std::make_unique<Police>(Police{font, QFontMetrics(font, &m_image), {}});
    it = m_polices.emplace(clé, std::move(p)).first;
  }
  m_police = it->second.get();
  m_policeCourante = f;
  return *m_police;
}

const PainterSurface::Texte& PainterSurface::texte(std::string_view utf8) {
  Police& p = police();
  auto it = p.textes.find(std::string(utf8));
  if (it == p.textes.end()) {
    if (p.textes.size() > 4096) p.textes.clear();
    const QString q = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    Texte t{QStaticText(q), p.metrics.horizontalAdvance(q)};
    t.statique.setTextFormat(Qt::PlainText);
    t.statique.setPerformanceHint(QStaticText::AggressiveCaching);
    t.statique.prepare(QTransform(), p.font);
    it = p.textes.emplace(std::string(utf8), std::move(t)).first;
  }
  return it->second;
}

void PainterSurface::prepareMode() {
  switch (drawMode()) {
    case DrawMode::MaskPen:
      m_painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
      break;
    case DrawMode::MergeNotPen:
      m_painter.setCompositionMode(QPainter::RasterOp_NotSourceOrDestination);
      break;
    case DrawMode::CopyPen:
      m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
      break;
  }
}

void PainterSurface::preparePen() {
  prepareMode();
  QPen pen(couleurQt(ForeColor()));
  pen.setWidth(DrawWidth());
  pen.setStyle(drawStyle() == DrawStyle::Dash ? Qt::DashLine : Qt::SolidLine);
  pen.setCapStyle(DrawWidth() > 1 ? Qt::RoundCap : Qt::SquareCap);
  m_painter.setPen(pen);
  m_painter.setBrush(Qt::NoBrush);
}

int PainterSurface::TextWidth(std::string_view utf8) {
  return texte(utf8).largeur;
}

int PainterSurface::TextHeight(std::string_view) {
  return police().metrics.height();
}

bool PainterSurface::rasterBox(int x1, int y1, int x2, int y2) {
  if (drawMode() == DrawMode::CopyPen) return false;
  if (x2 < x1) std::swap(x1, x2);
  if (y2 < y1) std::swap(y1, y2);
  x1 = std::max(x1, 0);
  y1 = std::max(y1, 0);
  x2 = std::min(x2, m_image.width() - 1);
  y2 = std::min(y2, m_image.height() - 1);
  const Colour c = ForeColor();
  const QRgb pen = qRgb(rouge(c), vert(c), bleu(c));
  const bool masque = drawMode() == DrawMode::MaskPen;
  const std::size_t largeur = static_cast<std::size_t>(m_image.width());
  const std::size_t taille = largeur * static_cast<std::size_t>(m_image.height());
  if (m_comptes.size() != taille) {
    m_comptes.assign(taille, 0);
    m_dessous.resize(taille);
  }
  for (int y = y1; y <= y2; ++y) {
    auto* ligne = reinterpret_cast<QRgb*>(m_image.scanLine(y));
    const std::size_t début = static_cast<std::size_t>(y) * largeur;
    for (int x = x1; x <= x2; ++x) {
      QRgb& px = ligne[x];
      const std::size_t i = début + static_cast<std::size_t>(x);
      std::uint8_t& n = m_comptes[i];
      if (masque) {
        // What lies under is kept the first time, or again when something was
        // drawn over the shape since.
        if (n == 0 || px != (m_dessous[i] & pen)) m_dessous[i] = px;
        if (n < 255) ++n;
        px &= pen;
      } else if (n > 0 && --n == 0) {
        // The last shape over the pixel goes: it gets back what was under it,
        // unless something was drawn over the shape meanwhile.
        if (px == (m_dessous[i] & pen)) px = m_dessous[i];
      }
      // Hiding where nothing is shown leaves the pixel alone: the same mode on
      // ink would tint it.
    }
  }
  return true;
}

void PainterSurface::oublieDessous() {
  std::fill(m_comptes.begin(), m_comptes.end(), std::uint8_t{0});
}

void PainterSurface::drawSegment(double x1, double y1, double x2, double y2) {
  // A straight one-pixel line in a raster mode is a box one pixel wide: the
  // painter would spread its tall spans over threads for nothing.
  if (DrawWidth() == 1 && drawStyle() == DrawStyle::Solid && (x1 == x2 || y1 == y2) &&
      rasterBox(static_cast<int>(std::lround(x1)), static_cast<int>(std::lround(y1)),
                static_cast<int>(std::lround(x2)), static_cast<int>(std::lround(y2))))
    return;
  preparePen();
  m_painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void PainterSurface::drawBox(double x1, double y1, double x2, double y2, bool filled) {
  prepareMode();
  const double l = std::min(x1, x2);
  const double t = std::min(y1, y2);
  // Both corners are inside the box.
  const QRectF r(std::round(l), std::round(t), std::round(std::abs(x2 - x1)) + 1,
                 std::round(std::abs(y2 - y1)) + 1);
  if (filled) {
    if (rasterBox(static_cast<int>(r.left()), static_cast<int>(r.top()),
                  static_cast<int>(r.left() + r.width() - 1),
                  static_cast<int>(r.top() + r.height() - 1)))
      return;
    m_painter.fillRect(r, couleurQt(ForeColor()));
    return;
  }
  if (fillStyle() == FillStyle::Solid) m_painter.fillRect(r, couleurQt(FillColor()));
  preparePen();
  m_painter.drawRect(r.adjusted(0, 0, -1, -1));
}

void PainterSurface::drawCircle(double x, double y, double rayon) {
  preparePen();
  if (fillStyle() == FillStyle::Solid) m_painter.setBrush(couleurQt(FillColor()));
  m_painter.drawEllipse(QPointF(x, y), rayon, rayon);
}

void PainterSurface::drawText(double x, double y, std::string_view utf8, int largeur, int hauteur) {
  const Texte& t = texte(utf8);
  prepareMode();
  if (!FontTransparent())
    m_painter.fillRect(QRectF(x, y, largeur, hauteur), couleurQt(BackColor()));
  m_painter.setFont(police().font);
  m_painter.setPen(couleurQt(ForeColor()));
  m_painter.drawStaticText(QPointF(x, y), t.statique);
}

void PainterSurface::drawGlyph(double x, double y, std::string_view utf8) {
  prepareMode();
  m_painter.setFont(police().font);
  m_painter.setPen(couleurQt(ForeColor()));
  m_painter.drawText(QPointF(x, y),
                     QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

void PainterSurface::drawDeviceLine(int x1, int y1, int x2, int y2) {
  if (x1 == x2 && y1 == y2) return;
  preparePen();
  // The device leaves out the last pixel of a line.
  const int dx = x2 > x1 ? -1 : (x2 < x1 ? 1 : 0);
  const int dy = y2 > y1 ? -1 : (y2 < y1 ? 1 : 0);
  if (x1 == x2 || y1 == y2)
    m_painter.drawLine(QPoint(x1, y1), QPoint(x2 + dx, y2 + dy));
  else
    m_painter.drawLine(QPoint(x1, y1), QPoint(x2, y2));
}

void PainterSurface::clear() {
  m_painter.setCompositionMode(QPainter::CompositionMode_Source);
  m_painter.fillRect(m_image.rect(), couleurQt(BackColor()));
  // Nothing is shown over a cleared picture.
  oublieDessous();
}

void PainterSurface::Rectangle(int l, int t, int r, int b) {
  if (r < l) std::swap(l, r);
  if (b < t) std::swap(t, b);
  if (r - l < 1 || b - t < 1) return;
  prepareMode();
  if (fillStyle() == FillStyle::Solid)
    m_painter.fillRect(QRect(l, t, r - l, b - t), couleurQt(FillColor()));
  preparePen();
  m_painter.drawRect(QRect(l, t, r - l - 1, b - t - 1));
}

void PainterSurface::Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) {
  const QRectF rect(std::min(l, r), std::min(t, b), std::abs(r - l), std::abs(b - t));
  if (rect.width() < 1 || rect.height() < 1) return;
  const double cx = rect.center().x();
  const double cy = rect.center().y();
  const double rx = rect.width() / 2;
  const double ry = rect.height() / 2;
  // The device draws from ray to ray; the painter wants the ellipse's own angles.
  constexpr double kDegrés = 180.0 / 3.14159265358979323846;
  const double début = std::atan2(-(ys - cy) / ry, (xs - cx) / rx) * kDegrés;
  const double fin = std::atan2(-(ye - cy) / ry, (xe - cx) / rx) * kDegrés;
  double étendue = fin - début;
  while (étendue <= 0)
    étendue += 360;
  preparePen();
  m_painter.drawArc(rect, static_cast<int>(std::lround(début * 16)),
                    static_cast<int>(std::lround(étendue * 16)));
}

void PainterSurface::BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx, int sy,
                            RasterOp rop) {
  const auto* q = dynamic_cast<const QImageSource*>(&source);
  if (q == nullptr || w <= 0 || h <= 0) return;
  switch (rop) {
    case RasterOp::SrcCopy:
      m_painter.setCompositionMode(QPainter::CompositionMode_Source);
      break;
    case RasterOp::SrcAnd:
      m_painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
      break;
    case RasterOp::SrcInvert:
      m_painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
      break;
  }
  m_painter.drawImage(QRect(x, y, w, h), q->image(), QRect(sx, sy, w, h));
}

}  // namespace vt
