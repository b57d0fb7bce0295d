#include "shell/manche.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <array>
#include <cmath>

#include "resources.h"

namespace vt {

namespace {

using manche::kPasCase;
using manche::kPasCorde;
constexpr double kTpp = manche::kTwipsParPixel;

double px(double twips) {
  return twips / kTpp;
}

struct Couleurs {
  QColor board;
  QColor fretFill;
  QColor fretLine;
  QColor corde;
};

Couleurs couleurs(int setManche) {
  if (setManche == 2) return {Qt::white, Qt::white, Qt::black, Qt::black};
  const QColor planche = setManche == 1 ? QColor(Qt::black) : QColor(Qt::transparent);
  return {planche, QColor(192, 192, 192), QColor(128, 128, 128), Qt::white};
}

// Wound strings are thicker: 3 pixels for the lowest, 1 for the thinnest.
int épaisseurCorde(int s, int n) {
  if (n <= 1) return 1;
  return static_cast<int>(std::lround(1.0 + 2.0 * (s - 1) / (n - 1)));
}

// A bar of the nut or a fret wire: filled, with its outline.
void barre(QPainter& p, double x, double largeur, double bas, const Couleurs& c) {
  const QRectF r(px(x), 0, px(largeur), px(bas));
  p.fillRect(r, c.fretFill);
  p.setPen(QPen(c.fretLine, 1));
  p.drawLine(QPointF(r.right(), 0), QPointF(r.right(), r.bottom()));
  if (r.width() > 3) {
    p.drawLine(QPointF(r.left(), 0), QPointF(r.left(), r.bottom()));
  }
}

// The dot sprites: blue, red and yellow side by side, 20 x 15 pixels each.
const QPixmap& sprites(qreal dpr) {
  static const QPixmap simple = [] {
    initialiseRessourcesShell();
    return QPixmap(QStringLiteral(":/toolbar/RONDS.png"));
  }();
  static const QPixmap double_ = [] {
    initialiseRessourcesShell();
    QPixmap p(QStringLiteral(":/toolbar/RONDS@2x.png"));
    p.setDevicePixelRatio(2);
    return p;
  }();
  return dpr > 1.5 && !double_.isNull() ? double_ : simple;
}

}  // namespace

void drawManche(QPainter& p, int largeur, const AspectManche& a, double offset) {
  const int n = a.nbrCordes;
  const double H = manche::hauteurBoard(n);
  const Couleurs c = couleurs(a.setManche);
  p.save();
  p.setRenderHint(QPainter::Antialiasing, false);

  // The board.
  if (a.setManche == 1 || a.setManche == 2) {
    p.fillRect(QRectF(0, 0, largeur, px(H)), c.board);
    p.setPen(QPen(c.fretLine, 1));
    p.drawRect(QRectF(0, 0, largeur - 1, px(H) - 1));
  } else if (!a.fond.isNull()) {
    // The picture's first tile, 161 by 300 pixels, repeated along and down.
    const QPixmap tuile = QPixmap::fromImage(a.fond.copy(0, 0, 161, 300));
    p.drawTiledPixmap(QRectF(0, 0, largeur, px(H)), tuile);
  } else {
    p.fillRect(QRectF(0, 0, largeur, px(H)), QColor(0x3B, 0x25, 0x17));
  }

  // Nut and fret wires.
  const double bas = H - 80;
  if (!a.gaucher) {
    barre(p, offset + 450, 120, bas, c);
    for (int i = 1; i <= 50; ++i) {
      const double x = offset + kPasCase * i + 540;
      if (px(x) > largeur) break;
      barre(p, x, 30, bas, c);
    }
  } else {
    barre(p, offset + 11520, 120, bas, c);
    for (int i = 1; i <= 23; ++i)
      barre(p, offset + kPasCase * i, 30, bas, c);
  }

  // Strings, the thin ones on top for a right-handed player.
  const manche::Vue vue{n, 0, a.gaucher};
  for (int s = 1; s <= n; ++s) {
    const double y = px(manche::centreCordeY(vue, s));
    p.setPen(QPen(c.corde, épaisseurCorde(s, n), Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(0, y), QPointF(largeur, y));
  }

  // Position marks between the middle strings, two at the twelfth fret.
  auto centreX = [&](int k) {
    return a.gaucher ? offset + 11800 - k * kPasCase : offset + k * kPasCase + 280;
  };
  auto entre = [&](int s) {
    return (manche::centreCordeY(vue, s) + manche::centreCordeY(vue, s + 1)) / 2;
  };
  const int milieu = n / 2 > 0 ? n / 2 : 1;
  p.setRenderHint(QPainter::Antialiasing, true);
  p.setPen(QPen(c.fretLine, 1));
  p.setBrush(QColor(192, 192, 192));
  const double r = px(100);
  auto marque = [&](int k, double y) { p.drawEllipse(QPointF(px(centreX(k)), px(y)), r, r); };
  for (const int k : {3, 5, 7, 9, 15, 17, 19, 21})
    marque(k, entre(milieu));
  if (n >= 4) {
    marque(12, entre(milieu - 1));
    marque(12, entre(milieu + 1));
  } else {
    marque(12, entre(milieu));
  }

  // Fret numbers along the bottom edge.
  QFont f(QStringLiteral("Arial"));
  f.setPixelSize(9);
  f.setBold(true);
  p.setFont(f);
  p.setPen(c.corde);
  const double hauteurTexte = 10;
  for (const int k : {1, 3, 5, 7, 9, 13, 15, 17, 19, 21}) {
    const QRectF boîte(px(centreX(k)) - 12, px(H) - hauteurTexte, 24, hauteurTexte);
    p.drawText(boîte, Qt::AlignHCenter | Qt::AlignBottom, QString::number(k));
  }
  p.restore();
}

void drawRond(QPainter& p, const AspectManche& a, const manche::Vue& v, int c, int s, int couleur) {
  if (couleur < kRondBleu || couleur > kRondJaune) return;
  const QPointF centre(px(manche::centreCaseX(v, c)), px(manche::centreCordeY(v, s)));
  p.save();
  if (a.setManche != 1 && a.setManche != 2) {
    const QPixmap& image = sprites(p.device() ? p.device()->devicePixelRatioF() : 1.0);
    const qreal dpr = image.devicePixelRatio();
    const QRectF source(20 * (couleur - 1) * dpr, 0, 20 * dpr, 15 * dpr);
    p.drawPixmap(QRectF(centre.x() - 10, centre.y() - 7, 20, 15), image, source);
  } else {
    static const std::array<QColor, 4> remplissage = {QColor(), QColor(0, 0, 255),
                                                      QColor(255, 0, 0), QColor(255, 255, 0)};
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(couleur == kRondJaune ? Qt::black : Qt::white, 1));
    p.setBrush(remplissage[static_cast<std::size_t>(couleur)]);
    const double rayon = px(140);
    p.drawEllipse(centre, rayon, rayon * 0.8);
  }
  p.restore();
}

// ---- The strip ---------------------------------------------------------------

Manche::Manche(QWidget* parent) : QWidget(parent), m_hsb(new QScrollBar(Qt::Horizontal, this)) {
  setObjectName(QStringLiteral("picManche"));
  m_hsb->setObjectName(QStringLiteral("hsbManche"));
  m_hsb->setRange(0, 0);
  m_hsb->setPageStep(4);
  setMouseTracking(true);
  setCursor(Qt::PointingHandCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(m_hsb, &QScrollBar::valueChanged, this, [this] {
    updateManche();
    emit redessine();
  });
  updateManche();
}

manche::Vue Manche::vue() const {
  return {m_aspect.nbrCordes, m_hsb->value(), m_aspect.gaucher};
}

int Manche::hauteurBoardPixels() const {
  return static_cast<int>(std::lround(px(manche::hauteurBoard(m_aspect.nbrCordes))));
}

void Manche::placeDéfilement() {
  const int h = m_hsb->sizeHint().height();
  m_hsb->setGeometry(0, hauteurBoardPixels(), width(), h);
  const QSignalBlocker bloque(m_hsb);
  m_hsb->setMaximum(manche::défilementMax(width()));
}

void Manche::updateManche() {
  setFixedHeight(hauteurBoardPixels() + m_hsb->sizeHint().height());
  placeDéfilement();
  dessineFond();
  clearManche();
}

void Manche::dessineFond() {
  const qreal dpr = devicePixelRatioF();
  const int largeur = std::max(1, width());
  const int hauteur = std::max(1, hauteurBoardPixels());
  m_fond = QImage(QSize(largeur, hauteur) * dpr, QImage::Format_ARGB32_Premultiplied);
  m_fond.setDevicePixelRatio(dpr);
  m_fond.fill(Qt::black);
  QPainter p(&m_fond);
  vt::drawManche(p, largeur, m_aspect, -static_cast<double>(m_hsb->value()) * kPasCase);
}

void Manche::clearManche() {
  m_image = m_fond;
  update();
}

void Manche::drawRond(int c, int s, int couleur) {
  if (m_image.isNull()) return;
  QPainter p(&m_image);
  vt::drawRond(p, m_aspect, vue(), c, s, couleur);
  update();
}

void Manche::printManche(int c, int s, const QString& texte) {
  if (m_image.isNull() || texte.isEmpty()) return;
  const manche::Vue v = vue();
  const QPointF centre(px(manche::centreCaseX(v, c)), px(manche::centreCordeY(v, s)));
  // Dark text on a light dot, light text on a dark one (the blue of a root).
  const qreal dpr = m_image.devicePixelRatio();
  const QPoint dessous = (centre * dpr).toPoint();
  const QColor fond = m_image.rect().contains(dessous) ? m_image.pixelColor(dessous) : Qt::white;
  const bool clair = 0.299 * fond.red() + 0.587 * fond.green() + 0.114 * fond.blue() > 140;
  QPainter p(&m_image);
  QFont f(QStringLiteral("Arial"));
  f.setPixelSize(9);
  f.setBold(true);
  p.setFont(f);
  p.setPen(clair ? Qt::black : Qt::white);
  const QFontMetricsF m(f);
  const QRectF boîte(centre.x() - m.horizontalAdvance(texte) / 2, centre.y() - m.height() / 2,
                     m.horizontalAdvance(texte) + 1, m.height());
  p.drawText(boîte, Qt::AlignCenter, texte);
  update();
}

std::pair<int, int> Manche::position(const QPointF& p) const {
  const manche::Vue v = vue();
  return {manche::caseDepuisX(v, p.x() * kTpp), manche::cordeDepuisY(v, p.y() * kTpp)};
}

void Manche::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.drawImage(QPointF(0, 0), m_image);
}

void Manche::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  updateManche();
  emit redessine();
}

void Manche::mouseMoveEvent(QMouseEvent* e) {
  if (e->position().y() >= hauteurBoardPixels()) return;
  const auto [c, s] = position(e->position());
  emit survol(c, s, e->buttons());
}

void Manche::mousePressEvent(QMouseEvent* e) {
  if (e->position().y() >= hauteurBoardPixels()) return;
  if (e->button() != Qt::LeftButton && e->button() != Qt::RightButton) return;
  const auto [c, s] = position(e->position());
  emit appui(c, s, e->button());
}

void Manche::mouseReleaseEvent(QMouseEvent* e) {
  emit relache(e->button());
}

void Manche::enterEvent(QEnterEvent* e) {
  QWidget::enterEvent(e);
  emit entree();
}

void Manche::leaveEvent(QEvent* e) {
  QWidget::leaveEvent(e);
  emit sortie();
}

}  // namespace vt
