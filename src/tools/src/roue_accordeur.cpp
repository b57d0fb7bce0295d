#include "roue_accordeur.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <numbers>

#include "habillage_outil.h"

namespace vt {

namespace {
constexpr QPointF kCentre(110, 110);
constexpr double kRayonLampe = 80;
constexpr double kRayonNom = 56;
constexpr double kRayonClic = 13;
constexpr double kRayonCentre = 27;
constexpr int kCôtéLampe = 64;

// String n lies at 210 - 40 (n - 1) degrees, counter-clockwise from the right.
QPointF surLeRayon(int n, double rayon) {
  const double a = (210.0 - 40.0 * (n - 1)) * std::numbers::pi / 180.0;
  return {kCentre.x() + rayon * std::cos(a), kCentre.y() - rayon * std::sin(a)};
}
}  // namespace

RoueAccordeur::RoueAccordeur(QWidget* parent) : QWidget(parent) {
  setFixedSize(kCôté, kCôté);
  setCursor(Qt::OpenHandCursor);
}

void RoueAccordeur::setImages(const std::array<QPixmap, 8>& roues, const QPixmap& lampeÉteinte,
                              const QPixmap& lampeAllumée) {
  m_roues = roues;
  m_lampeÉteinte = lampeÉteinte;
  m_lampeAllumée = lampeAllumée;
  update();
}

void RoueAccordeur::setNoms(const QStringList& noms) {
  m_noms = noms;
  update();
}

void RoueAccordeur::setCorde(int corde) {
  m_corde = corde;
  update();
}

void RoueAccordeur::setAllumée(bool allumée) {
  m_allumé = allumée;
  update();
}

QPointF RoueAccordeur::centreLampe(int n) {
  return surLeRayon(n, kRayonLampe);
}

QPointF RoueAccordeur::placeNom(int n) {
  return surLeRayon(n, kRayonNom);
}

void RoueAccordeur::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  const std::size_t i = static_cast<std::size_t>(std::clamp(m_corde, 1, 7));
  if (!m_roues[i].isNull()) {
    p.drawPixmap(0, 0, m_roues[i]);
  } else {
    p.setBrush(kSiège);
    p.setPen(QPen(kAmbre, 3));
    p.drawEllipse(kCentre, 104, 104);
  }
  const QPixmap& lampe = m_allumé ? m_lampeAllumée : m_lampeÉteinte;
  const QPointF coin = kCentre - QPointF(kCôtéLampe / 2.0, kCôtéLampe / 2.0);
  if (!lampe.isNull()) {
    p.drawPixmap(coin, lampe);
  } else {
    p.setBrush(m_allumé ? kAmbre : kSiège);
    p.drawEllipse(kCentre, 22, 22);
  }
  QFont f = font();
  f.setBold(true);
  f.setPointSize(10);
  p.setFont(f);
  for (int n = 1; n <= nbrCordes(); ++n) {
    const QRectF boîte(placeNom(n) - QPointF(13, 9), QSizeF(26, 18));
    if (n == m_corde) {
      // The wheel's mark points along this ray: the name stands on a plate.
      p.setPen(QPen(QColor(0x6A, 0x48, 0x1C), 1));
      p.setBrush(kSiège);
      p.drawRoundedRect(boîte, 5, 5);
      p.setPen(kAmbre);
    } else {
      p.setPen(kCrème);
    }
    p.drawText(boîte, Qt::AlignCenter, m_noms.at(n - 1));
  }
}

int RoueAccordeur::lampeSous(const QPointF& p) const {
  if (QLineF(p, kCentre).length() <= kRayonCentre) return 0;
  for (int n = 1; n <= nbrCordes(); ++n)
    if (QLineF(p, centreLampe(n)).length() <= kRayonClic) return n;
  return -1;
}

void RoueAccordeur::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton) return;
  m_ancre = e->position().y();
  m_tourné = false;
  m_appui = true;
  setCursor(Qt::ClosedHandCursor);
}

void RoueAccordeur::mouseMoveEvent(QMouseEvent* e) {
  if (!m_appui || !(e->buttons() & Qt::LeftButton)) return;
  const double y = e->position().y();
  if (y - m_ancre > kPasGlisse && m_corde < nbrCordes()) {
    m_ancre = y;
    m_tourné = true;
    emit tourne(+1);
  } else if (m_ancre - y > kPasGlisse && m_corde > 1) {
    m_ancre = y;
    m_tourné = true;
    emit tourne(-1);
  }
}

void RoueAccordeur::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton || !m_appui) return;
  m_appui = false;
  setCursor(Qt::OpenHandCursor);
  if (m_tourné) return;
  const int n = lampeSous(e->position());
  if (n == 0) {
    emit centreClique();
  } else if (n > 0) {
    emit cordeCliquee(n);
  }
}

}  // namespace vt
