// A chord diagram as the editor stores it (a name and a fret per string, 255
// for a string not played) and its drawing: strings upright with the lowest on
// the left, five frets from the first one shown, open and muted strings marked
// above the nut. The same drawing serves the editable diagram and the
// thumbnails of the list.
#pragma once

#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <array>

#include "document/types.h"

class QPainter;

namespace vt {

struct Diagramme {
  QString nom;
  int nbrCordes = 6;
  std::array<int, 8> cases{};  // strings 1..7; element 0 unused
  bool operator==(const Diagramme&) const = default;

  // Every string not played.
  static Diagramme vide(int nbrCordes);
  // The lowest fret above 0 that a string holds; 0 when none does.
  int premiereCaseJouee() const;
  // The first fret to show so that the fingering fits in the rows.
  int premiereCaseAffichee() const;
};

inline constexpr int kRangsDiagramme = 5;

// Where things stand in a diagram drawn in `zone`.
class GeometrieDiagramme {
 public:
  GeometrieDiagramme(const QRectF& zone, int nbrCordes);

  double xCorde(int corde) const;
  // Row 0 is above the nut; rows 1..5 are the frets shown.
  double yRang(int rang) const;
  double yPremiereCase() const { return m_sillet; }
  double ecartCordes() const { return m_ecartCordes; }
  double hauteurRang() const { return m_hauteurRang; }
  double xGauche() const { return m_gauche; }
  // The string and row under a point; false outside the diagram.
  bool touche(const QPointF& p, int& corde, int& rang) const;

 private:
  int m_nbrCordes;
  double m_gauche;
  double m_ecartCordes;
  double m_haut;
  double m_sillet;
  double m_hauteurRang;
};

// Draws the diagram in `zone`, its frets counted from `premiereCase`.
void dessineDiagramme(QPainter& g, const QRectF& zone, const Diagramme& d, int premiereCase);

// The thumbnail of the list: the name above the diagram.
QPixmap vignette(const Diagramme& d, const QSize& taille);

}  // namespace vt
