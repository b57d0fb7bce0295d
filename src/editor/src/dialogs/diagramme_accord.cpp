#include "diagramme_accord.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vt {

Diagramme Diagramme::vide(int nbrCordes) {
  Diagramme d;
  d.nbrCordes = std::clamp(nbrCordes, 1, kMaxCordes);
  for (int c = 1; c <= d.nbrCordes; ++c)
    d.cases[static_cast<std::size_t>(c)] = kCaseVide;
  return d;
}

int Diagramme::premiereCaseJouee() const {
  int min = 0;
  for (int c = 1; c <= nbrCordes; ++c) {
    const int f = cases[static_cast<std::size_t>(c)];
    if (f > 0 && f < kCaseVide && (min == 0 || f < min)) min = f;
  }
  return min;
}

int Diagramme::premiereCaseAffichee() const {
  // A chord within the first five frets shows the nut.
  int max = 0;
  for (int c = 1; c <= nbrCordes; ++c) {
    const int f = cases[static_cast<std::size_t>(c)];
    if (f < kCaseVide) max = std::max(max, f);
  }
  if (max <= kRangsDiagramme) return 1;
  return std::max(1, premiereCaseJouee());
}

GeometrieDiagramme::GeometrieDiagramme(const QRectF& zone, int nbrCordes)
    : m_nbrCordes(std::max(1, nbrCordes)) {
  // A column on the left for the number of the first fret, a row on top for
  // the marks of open and muted strings.
  const double marge = zone.width() * 0.22;
  const double droite = zone.width() * 0.10;
  m_gauche = zone.left() + marge;
  m_ecartCordes = m_nbrCordes > 1 ? (zone.width() - marge - droite) / (m_nbrCordes - 1) : 0;
  if (m_nbrCordes == 1) m_gauche = zone.center().x();
  m_hauteurRang = zone.height() / (kRangsDiagramme + 1.2);
  m_haut = zone.top();
  m_sillet = zone.top() + m_hauteurRang;
}

double GeometrieDiagramme::xCorde(int corde) const {
  return m_gauche + (m_nbrCordes - corde) * m_ecartCordes;
}

double GeometrieDiagramme::yRang(int rang) const {
  // The middle of the row: marks above the nut, fingers between two frets.
  return rang == 0 ? m_haut + m_hauteurRang / 2 : m_sillet + (rang - 0.5) * m_hauteurRang;
}

bool GeometrieDiagramme::touche(const QPointF& p, int& corde, int& rang) const {
  const double demi = m_nbrCordes > 1 ? m_ecartCordes / 2 : 12;
  const int colonne =
      m_nbrCordes > 1 ? static_cast<int>(std::lround((p.x() - m_gauche) / m_ecartCordes)) : 0;
  corde = m_nbrCordes - colonne;
  if (corde < 1 || corde > m_nbrCordes || std::abs(p.x() - xCorde(corde)) > demi) return false;
  if (p.y() < m_haut) return false;
  rang = p.y() < m_sillet ? 0 : static_cast<int>((p.y() - m_sillet) / m_hauteurRang) + 1;
  return rang <= kRangsDiagramme;
}

void dessineDiagramme(QPainter& g, const QRectF& zone, const Diagramme& d, int premiereCase) {
  const GeometrieDiagramme geo(zone, d.nbrCordes);
  g.save();
  g.setRenderHint(QPainter::Antialiasing);
  const double haut = geo.yPremiereCase();
  const double bas = haut + kRangsDiagramme * geo.hauteurRang();
  const double gauche = geo.xCorde(d.nbrCordes);
  const double droite = geo.xCorde(1);
  const double trait = std::max(1.0, geo.hauteurRang() / 28);
  g.setPen(QPen(Qt::black, trait));
  for (int c = 1; c <= d.nbrCordes; ++c)
    g.drawLine(QPointF(geo.xCorde(c), haut), QPointF(geo.xCorde(c), bas));
  for (int r = 0; r <= kRangsDiagramme; ++r) {
    const double y = haut + r * geo.hauteurRang();
    g.drawLine(QPointF(gauche, y), QPointF(droite, y));
  }
  // The nut, when the diagram starts at the first fret; else the fret's number.
  QFont police = g.font();
  police.setPixelSize(std::max(8, static_cast<int>(geo.hauteurRang() * 0.55)));
  g.setFont(police);
  if (premiereCase <= 1) {
    g.fillRect(QRectF(gauche - trait, haut - 3 * trait, droite - gauche + 2 * trait, 3 * trait),
               Qt::black);
  } else {
    const QRectF case1(zone.left(), haut, geo.xGauche() - zone.left() - geo.ecartCordes() / 4,
                       geo.hauteurRang());
    g.drawText(case1, Qt::AlignRight | Qt::AlignVCenter, QString::number(premiereCase));
  }
  const double rayon =
      std::min(geo.ecartCordes() > 0 ? geo.ecartCordes() : geo.hauteurRang(), geo.hauteurRang()) *
      0.32;
  for (int c = 1; c <= d.nbrCordes; ++c) {
    const int f = d.cases[static_cast<std::size_t>(c)];
    const double x = geo.xCorde(c);
    if (f >= kCaseVide) {
      const double y = geo.yRang(0);
      const double r = rayon * 0.8;
      g.drawLine(QPointF(x - r, y - r), QPointF(x + r, y + r));
      g.drawLine(QPointF(x - r, y + r), QPointF(x + r, y - r));
    } else if (f == 0) {
      g.setBrush(Qt::NoBrush);
      g.drawEllipse(QPointF(x, geo.yRang(0)), rayon * 0.8, rayon * 0.8);
    } else if (f >= premiereCase && f < premiereCase + kRangsDiagramme) {
      g.setBrush(Qt::black);
      g.drawEllipse(QPointF(x, geo.yRang(f - premiereCase + 1)), rayon, rayon);
    }
  }
  g.restore();
}

QPixmap vignette(const Diagramme& d, const QSize& taille) {
  QPixmap p(taille);
  p.fill(Qt::white);
  QPainter g(&p);
  const double hautNom = taille.height() * 0.22;
  QFont police = g.font();
  police.setPixelSize(std::max(8, static_cast<int>(hautNom * 0.8)));
  police.setBold(true);
  g.setFont(police);
  g.setPen(Qt::black);
  const QRectF ligneNom(0, 0, taille.width(), hautNom);
  g.drawText(ligneNom, Qt::AlignCenter,
             g.fontMetrics().elidedText(d.nom, Qt::ElideRight, taille.width() - 2));
  dessineDiagramme(g, QRectF(2, hautNom, taille.width() - 4, taille.height() - hautNom - 2), d,
                   d.premiereCaseAffichee());
  return p;
}

}  // namespace vt
