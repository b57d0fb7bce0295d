#include "render_qt/page_surface.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "police_qt.h"
#include "render/page_renderer.h"
#include "render_qt/painter_surface.h"

namespace vt {

namespace {
// The device every text is measured on: page units are its pixels.
const QImage& référence() {
  static const QImage image = [] {
    QImage i(1, 1, QImage::Format_RGB32);
    const int parMètre = static_cast<int>(std::lround(kUnitésParPouce / 0.0254));
    i.setDotsPerMeterX(parMètre);
    i.setDotsPerMeterY(parMètre);
    return i;
  }();
  return image;
}

QString texteQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
}  // namespace

PageSurface::PageSurface(QPainter* painter, const QPageLayout& page, double dpi, Origine origine)
    : m_painter(painter), m_échelle(dpi / kUnitésParPouce) {
  const QRectF pouces = page.paintRect(QPageLayout::Inch);
  m_largeur = static_cast<int>(pouces.width() * kUnitésParPouce + 1e-6);
  m_hauteur = static_cast<int>(pouces.height() * kUnitésParPouce + 1e-6);
  const QPointF coin = origine == Origine::Zone ? QPointF(0, 0) : pouces.topLeft() * dpi;
  m_zone = QRectF(coin, QSizeF(m_largeur * m_échelle, m_hauteur * m_échelle));
  if (m_painter != nullptr)
    m_painter->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                              QPainter::SmoothPixmapTransform);
}

QPointF PageSurface::point(double x, double y) const {
  return {m_zone.left() + x * m_échelle, m_zone.top() + y * m_échelle};
}

PageSurface::Police& PageSurface::police() {
  if (m_police != nullptr && m_policeCourante == Font()) return *m_police;
  const FontSpec& f = Font();
  const std::string clé = cléPolice(f);
  auto it = m_polices.find(clé);
  if (it == m_polices.end()) {
    QFont font = policeQt(f);
    // Outlines as designed, so that every device places the same glyphs.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    auto p = std::make_unique<Police>(Police{font, QFontMetricsF(font, &référence())});
    it = m_polices.emplace(clé, std::move(p)).first;
  }
  m_police = it->second.get();
  m_policeCourante = f;
  return *m_police;
}

int PageSurface::TextWidth(std::string_view texte) {
  return static_cast<int>(std::ceil(police().métriques.horizontalAdvance(texteQt(texte))));
}

int PageSurface::TextHeight(std::string_view) {
  return static_cast<int>(std::ceil(police().métriques.height()));
}

void PageSurface::préparePlume() {
  QPen pen(couleurQt(ForeColor()));
  pen.setWidthF(longueur(DrawWidth()));
  pen.setCapStyle(Qt::FlatCap);
  pen.setJoinStyle(Qt::MiterJoin);
  if (drawStyle() == DrawStyle::Dash) {
    // Dashes of a millimetre, whatever the width of the pen.
    const double mm = kUnitésParPouce / 25.4 / DrawWidth();
    pen.setDashPattern({mm, mm * 0.7});
  }
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
  m_painter->setPen(pen);
  m_painter->setBrush(Qt::NoBrush);
}

void PageSurface::drawSegment(double x1, double y1, double x2, double y2) {
  if (m_painter == nullptr) return;
  préparePlume();
  m_painter->drawLine(point(x1, y1), point(x2, y2));
}

void PageSurface::drawBox(double x1, double y1, double x2, double y2, bool filled) {
  if (m_painter == nullptr) return;
  const QRectF r =
      QRectF(point(std::min(x1, x2), std::min(y1, y2)), point(std::max(x1, x2), std::max(y1, y2)));
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
  if (filled) {
    m_painter->fillRect(r, couleurQt(ForeColor()));
    return;
  }
  if (fillStyle() == FillStyle::Solid) m_painter->fillRect(r, couleurQt(FillColor()));
  préparePlume();
  m_painter->drawRect(r);
}

void PageSurface::drawCircle(double x, double y, double rayon) {
  if (m_painter == nullptr) return;
  préparePlume();
  if (fillStyle() == FillStyle::Solid) m_painter->setBrush(couleurQt(FillColor()));
  m_painter->drawEllipse(point(x, y), longueur(rayon), longueur(rayon));
}

void PageSurface::drawText(double x, double y, std::string_view texte, int largeur, int hauteur) {
  if (m_painter == nullptr) return;
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
  if (!FontTransparent())
    m_painter->fillRect(QRectF(point(x, y), point(x + largeur, y + hauteur)),
                        couleurQt(BackColor()));
  const Police& p = police();
  m_painter->setFont(p.font);
  m_painter->setPen(couleurQt(ForeColor()));
  // The box's top is the measure's; the baseline lies its ascent below.
  m_painter->drawText(point(x, y + p.métriques.ascent()), texteQt(texte));
}

void PageSurface::drawGlyph(double x, double y, std::string_view texte) {
  if (m_painter == nullptr) return;
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
  m_painter->setFont(police().font);
  m_painter->setPen(couleurQt(ForeColor()));
  m_painter->drawText(point(x, y), texteQt(texte));
}

void PageSurface::drawDeviceLine(int x1, int y1, int x2, int y2) {
  drawSegment(x1, y1, x2, y2);
}

void PageSurface::clear() {
  if (m_painter == nullptr) return;
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
  m_painter->fillRect(m_zone, couleurQt(BackColor()));
}

void PageSurface::Rectangle(int l, int t, int r, int b) {
  if (m_painter == nullptr || r == l || b == t) return;
  const QRectF rect(point(std::min(l, r), std::min(t, b)), point(std::max(l, r), std::max(t, b)));
  if (fillStyle() == FillStyle::Solid) m_painter->fillRect(rect, couleurQt(FillColor()));
  préparePlume();
  m_painter->drawRect(rect);
}

void PageSurface::Arc(int l, int t, int r, int b, int xs, int ys, int xe, int ye) {
  if (m_painter == nullptr) return;
  const QRectF rect(point(std::min(l, r), std::min(t, b)), point(std::max(l, r), std::max(t, b)));
  if (rect.width() <= 0 || rect.height() <= 0) return;
  const double cx = (l + r) / 2.0;
  const double cy = (t + b) / 2.0;
  const double rx = std::abs(r - l) / 2.0;
  const double ry = std::abs(b - t) / 2.0;
  // Counter-clockwise from the ray towards the start to the ray towards the end.
  constexpr double kDegrés = 180.0 / 3.14159265358979323846;
  const double début = std::atan2(-(ys - cy) / ry, (xs - cx) / rx) * kDegrés;
  const double fin = std::atan2(-(ye - cy) / ry, (xe - cx) / rx) * kDegrés;
  double étendue = fin - début;
  while (étendue <= 0)
    étendue += 360;
  préparePlume();
  m_painter->drawArc(rect, static_cast<int>(std::lround(début * 16)),
                     static_cast<int>(std::lround(étendue * 16)));
}

void PageSurface::BitBlt(int x, int y, int w, int h, const BlitSource& source, int sx, int sy,
                         RasterOp) {
  const auto* q = dynamic_cast<const QImageSource*>(&source);
  if (m_painter == nullptr || q == nullptr || w <= 0 || h <= 0) return;
  m_painter->setCompositionMode(QPainter::CompositionMode_Multiply);
  m_painter->drawImage(QRectF(point(x, y), point(x + w, y + h)), q->image(), QRect(sx, sy, w, h));
  m_painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
}

}  // namespace vt
