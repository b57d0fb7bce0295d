#include "faccords_dessin.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace vt {

CouleursFiche couleursÉcran() {
  return {QColor(0xF3, 0xE6, 0xC8), QColor(0xF3, 0xE6, 0xC8), QColor(0xFF, 0xD8, 0x4A), Qt::black,
          Qt::black};
}

CouleursFiche couleursPapier() {
  return {Qt::black, Qt::black, QColor(0xFF, 0xD8, 0x4A), Qt::black, Qt::black};
}

int premièreRangée(const std::array<int, kCordesRechercheMax>& cases, int nbrCordes) {
  int min = 0;
  int max = 0;
  for (int s = 0; s < nbrCordes; ++s) {
    const int f = cases[static_cast<std::size_t>(s)];
    if (f <= 0) continue;
    min = min == 0 ? f : std::min(min, f);
    max = std::max(max, f);
  }
  return max <= kRangsDiagramme ? 1 : min;
}

void dessineFiche(QPainter& g, const QRectF& zone, const FicheAccord& f, const CouleursFiche& c) {
  g.save();
  g.setRenderHint(QPainter::Antialiasing);
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(std::max(9, static_cast<int>(zone.height() / 13)));
  police.setBold(true);
  g.setFont(police);
  g.setPen(c.texte);
  const double hTitre = QFontMetricsF(police).height() * 1.3;
  g.drawText(QRectF(zone.left(), zone.top(), zone.width(), hTitre), Qt::AlignCenter, f.titre);

  police.setBold(false);
  police.setPixelSize(std::max(8, static_cast<int>(zone.height() / 17)));
  g.setFont(police);
  const double hLégende = f.légende.isEmpty() ? 0 : QFontMetricsF(police).height() * 1.2;
  if (!f.légende.isEmpty())
    g.drawText(QRectF(zone.left(), zone.bottom() - hLégende, zone.width(), hLégende),
               Qt::AlignCenter, f.légende);
  const QRectF reste(zone.left(), zone.top() + hTitre, zone.width(),
                     zone.height() - hTitre - hLégende);
  if (!f.message.isEmpty() || f.nbrCordes < 1) {
    g.drawText(reste.adjusted(8, 0, -8, 0), Qt::AlignCenter | Qt::TextWordWrap, f.message);
    g.restore();
    return;
  }

  // The grid: the strings' ends above it for the open and muted marks, the
  // first fret's number on its left when the nut is not shown.
  const int n = f.nbrCordes;
  int max = 0;
  for (int s = 0; s < n; ++s)
    max = std::max(max, f.cases[static_cast<std::size_t>(s)]);
  const int première = premièreRangée(f.cases, n);
  const int rangs = std::max(kRangsDiagramme, max - première + 1);
  // Lines as thick on paper as on the screen, whatever the device's resolution.
  const double ép = std::max(1.0, zone.width() / 180.0);
  const double marque = reste.height() * 0.13;
  const double gauche = reste.left() + reste.width() * 0.16;
  const double droite = reste.right() - reste.width() * 0.10;
  const double haut = reste.top() + marque + 4 * ép;
  const double bas = reste.bottom() - 4 * ép;
  const double écart = n > 1 ? (droite - gauche) / (n - 1) : 0;
  const double rang = (bas - haut) / rangs;
  const auto xCorde = [&](int s) { return gauche + s * écart; };

  QPen trait(c.trait, 1.2 * ép);
  g.setPen(trait);
  for (int s = 0; s < n; ++s)
    g.drawLine(QPointF(xCorde(s), haut), QPointF(xCorde(s), bas));
  for (int r = 0; r <= rangs; ++r)
    g.drawLine(QPointF(gauche, haut + r * rang), QPointF(droite, haut + r * rang));
  if (première == 1) {
    g.fillRect(QRectF(gauche - ép, haut - 4 * ép, droite - gauche + 2 * ép, 5 * ép), c.trait);
  } else {
    g.drawText(QRectF(reste.left(), haut, gauche - reste.left() - 6, rang),
               Qt::AlignRight | Qt::AlignVCenter, QString::number(première));
  }

  const double rayon = std::min(écart, rang) * 0.36;
  QFont surPoint = police;
  surPoint.setPixelSize(std::max(7, static_cast<int>(rayon * 1.1)));
  surPoint.setBold(true);
  for (int s = 0; s < n; ++s) {
    const int x = f.cases[static_cast<std::size_t>(s)];
    const QString& note = f.notes[static_cast<std::size_t>(s)];
    if (x <= 0) {
      // Above the nut: a cross for a string not played, a ring for an open
      // one, the ring holding the note's name when names are shown.
      const QPointF bout(xCorde(s), haut - marque / 2 - 3 * ép);
      const double r = std::min(rayon, marque * 0.45);
      if (x < 0) {
        const double b = r * 0.7;
        g.setPen(QPen(c.trait, 2 * ép));
        g.drawLine(bout + QPointF(-b, -b), bout + QPointF(b, b));
        g.drawLine(bout + QPointF(-b, b), bout + QPointF(b, -b));
        continue;
      }
      g.setPen(QPen(c.trait, 1.5 * ép));
      g.setBrush(Qt::NoBrush);
      g.drawEllipse(bout, r, r);
      if (!note.isEmpty()) {
        QFont petite = surPoint;
        petite.setPixelSize(std::max(6, static_cast<int>(r * 1.05)));
        g.setFont(petite);
        g.setPen(c.texte);
        g.drawText(QRectF(bout.x() - r * 1.5, bout.y() - r, r * 3, r * 2), Qt::AlignCenter, note);
        g.setFont(police);
      }
      continue;
    }
    const QPointF centre(xCorde(s), haut + (x - première + 0.5) * rang);
    g.setPen(QPen(c.bordPoint, ép));
    g.setBrush(c.point);
    g.drawEllipse(centre, rayon, rayon);
    if (!note.isEmpty()) {
      g.setFont(surPoint);
      g.setPen(c.texteSurPoint);
      g.drawText(QRectF(centre.x() - rayon * 1.5, centre.y() - rayon, rayon * 3, rayon * 2),
                 Qt::AlignCenter, note);
      g.setFont(police);
    }
  }
  g.restore();
}

void dessineConstruction(QPainter& g, const QRectF& zone, const QStringList& degrés,
                         const QStringList& notes, const CouleursFiche& c) {
  if (degrés.isEmpty()) return;
  g.save();
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(std::max(8, static_cast<int>(zone.height() / 2.6)));
  const double colonne = zone.width() / std::max<qsizetype>(6, degrés.size());
  const double gauche = zone.left() + (zone.width() - colonne * degrés.size()) / 2;
  const double ligne = zone.height() / 2;
  for (qsizetype i = 0; i < degrés.size(); ++i) {
    const QRectF haut(gauche + i * colonne, zone.top(), colonne, ligne);
    police.setBold(false);
    g.setFont(police);
    g.setPen(QColor(0xFF, 0xB3, 0x47).darker(c.texte == Qt::black ? 160 : 100));
    g.drawText(haut, Qt::AlignCenter, degrés[i]);
    police.setBold(true);
    g.setFont(police);
    g.setPen(c.texte);
    g.drawText(haut.translated(0, ligne), Qt::AlignCenter, i < notes.size() ? notes[i] : QString());
  }
  g.restore();
}

}  // namespace vt
