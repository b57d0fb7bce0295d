// Draws "PORTEE_SOURCE", the 127 x 61 strip the staff blits its signs from,
// with the glyphs of our font "MusicalSymbols", each fitted into the box its
// cell gives it. Black ink on white, antialiased: the strip is ANDed onto the
// picture, so grey edges land as grey.
//
//   cmake --build build/release --target make_portee_source
//   QT_QPA_PLATFORM=offscreen build/release/bin/make_portee_source data/musical.ttf OUT.png
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cstdio>

#include "render/staff_source.h"

namespace {

using vt::portee::Cellule;

// A sign: its character in the font, the box its ink must fill inside its
// cell (cell coordinates), and which part of the glyph to keep (fractions of
// its ink box; the open head is the head of the half note, without its stem).
struct Signe {
  Cellule cellule;
  char16_t code;
  QRectF boîte;
  QRectF garde = QRectF(0, 0, 1, 1);
  bool remplit = false;  // fill the box in both directions: the narrow
                         // accidentals would be hairlines at their own proportions
};

QPainterPath glyphe(const QFont& font, char16_t code, const QRectF& garde) {
  QPainterPath path;
  path.addText(0, 0, font, QString(QChar(code)));
  const QRectF b = path.boundingRect();
  QPainterPath clip;
  clip.addRect(QRectF(b.x() + garde.x() * b.width(), b.y() + garde.y() * b.height(),
                      garde.width() * b.width(), garde.height() * b.height()));
  return garde == QRectF(0, 0, 1, 1) ? path : path.intersected(clip);
}

// The box of the glyph's ink, found on a large rendering: some glyphs carry
// empty contours that widen their outline's bounds.
QRectF encre(const QPainterPath& path) {
  const QRectF b = path.boundingRect();
  constexpr int kTaille = 1024;
  QImage image(kTaille, kTaille, QImage::Format_Grayscale8);
  image.fill(255);
  QPainter p(&image);
  const double échelle = (kTaille - 8) / std::max(b.width(), b.height());
  QTransform t;
  t.translate(4, 4);
  t.scale(échelle, échelle);
  t.translate(-b.x(), -b.y());
  p.fillPath(t.map(path), Qt::black);
  p.end();
  int x0 = kTaille, y0 = kTaille, x1 = -1, y1 = -1;
  for (int y = 0; y < kTaille; ++y) {
    const uchar* ligne = image.constScanLine(y);
    for (int x = 0; x < kTaille; ++x) {
      if (ligne[x] > 128) continue;
      x0 = std::min(x0, x);
      x1 = std::max(x1, x);
      y0 = std::min(y0, y);
      y1 = std::max(y1, y);
    }
  }
  if (x1 < 0) return b;
  return t.inverted().mapRect(QRectF(x0, y0, x1 - x0 + 1, y1 - y0 + 1));
}

// Scales the glyph's ink to fit the box, keeping its proportions, centred in
// it; a hairline around the outline keeps the thinnest strokes dark.
void dessine(QPainter& p, const QFont& font, const Signe& s) {
  const QPainterPath path = glyphe(font, s.code, s.garde);
  const QRectF b = encre(path);
  double ex = s.boîte.width() / b.width();
  double ey = s.boîte.height() / b.height();
  if (!s.remplit) ex = ey = std::min(ex, ey);
  const QRectF cible(s.cellule.x + s.boîte.x(), s.cellule.y + s.boîte.y(), s.boîte.width(),
                     s.boîte.height());
  QTransform t;
  t.translate(cible.center().x(), cible.center().y());
  t.scale(ex, ey);
  t.translate(-b.center().x(), -b.center().y());
  const QPainterPath placé = t.map(path);
  p.save();
  p.setClipRect(QRect(s.cellule.x, s.cellule.y, s.cellule.w, s.cellule.h));
  p.fillPath(placé, Qt::black);
  p.strokePath(placé, QPen(Qt::black, 0.5));
  p.restore();
}

}  // namespace

int main(int argc, char** argv) {
  QGuiApplication app(argc, argv);
  if (argc < 3) {
    std::fprintf(stderr, "usage: make_portee_source musical.ttf OUT.png\n");
    return 2;
  }
  if (QFontDatabase::addApplicationFont(QString::fromLocal8Bit(argv[1])) < 0) {
    std::fprintf(stderr, "make_portee_source: cannot load %s\n", argv[1]);
    return 1;
  }
  QFont font(QStringLiteral("MusicalSymbols"));
  font.setPixelSize(200);

  namespace pt = vt::portee;
  // Staff lines fall on rows 0 and 8 of the 10-high cells of heads and
  // accidentals (a head on a line is centred on row 4), and on rows 0, 8 and
  // 16 of the rests' cells; the clefs' cells start above the staff.
  const Signe signes[] = {
      {pt::kDièse, 0x49, QRectF(1, 0, 6, 10), QRectF(0, 0, 1, 1), true},
      {pt::kBémol, 0x69, QRectF(0, 0, 5, 10), QRectF(0, 0, 1, 1), true},
      {pt::kBécarre, 0xE9, QRectF(0.5, 0, 4, 10), QRectF(0, 0, 1, 1), true},
      {pt::kTêtePleine, 0xF6, QRectF(0, 1, 8, 7)},
      {pt::kPoint, 0x2E, QRectF(0, 1.5, 3, 3)},
      {pt::kTêteBlanche, 0x68, QRectF(0, 1, 8, 7), QRectF(0, 0.72, 1, 0.28)},
      {pt::kTêteRonde, 0x77, QRectF(0, 1, 9, 7)},
      {pt::kCléSol, 0x26, QRectF(0, 1, 21, 59)},
      {pt::kCléFa, 0x3F, QRectF(0, 0, 23, 26)},
      {pt::kPauseRonde, 0xEE, QRectF(1, 0, 8, 4)},
      {pt::kPauseBlanche, 0xB7, QRectF(1, 4, 8, 4)},
      {pt::kSoupir, 0xCE, QRectF(0, 0, 6, 16)},
      {pt::kDemiSoupir, 0xE4, QRectF(0, 3, 6, 10)},
      {pt::kQuartSoupir, 0xC5, QRectF(0, 1, 8, 14)},
      {pt::kHuitièmeSoupir, 0xA8, QRectF(0, 0, 10, 16)},
  };

  QImage image(pt::kLargeurSource, pt::kHauteurSource, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  for (const Signe& s : signes) dessine(p, font, s);
  p.end();
  if (!image.save(QString::fromLocal8Bit(argv[2]))) {
    std::fprintf(stderr, "make_portee_source: cannot write %s\n", argv[2]);
    return 1;
  }
  return 0;
}
