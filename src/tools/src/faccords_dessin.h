// The chord dictionary's pictures: the diagram of one fingering (strings
// upright, the lowest on the left, as chord books draw them) and the
// construction lined up under its degrees. The window, the clipboard and the
// printer draw with the same routines, in their own colours.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <array>

#include "music/accord_recherche.h"

class QPainter;

namespace vt {

struct FicheAccord {
  QString titre;  // the chord's name and its inversion
  int nbrCordes = 6;
  std::array<int, kCordesRechercheMax> cases{-1, -1, -1, -1, -1, -1, -1};  // slot 0 lowest
  std::array<QString, kCordesRechercheMax> notes;  // written on the dots; empty for none
  QString légende;                                 // under the diagram; may be empty
  QString message;                                 // in place of the diagram when there is none
};

struct CouleursFiche {
  QColor trait;
  QColor texte;
  QColor point;
  QColor bordPoint;
  QColor texteSurPoint;
};

// Cream on the dark wood of the window; black on the white of paper.
CouleursFiche couleursÉcran();
CouleursFiche couleursPapier();

inline constexpr int kRangsDiagramme = 5;

// The first fret row of a fingering: the nut when the whole fingering fits
// under it, else its lowest fretted fret.
int premièreRangée(const std::array<int, kCordesRechercheMax>& cases, int nbrCordes);

void dessineFiche(QPainter& g, const QRectF& zone, const FicheAccord& f, const CouleursFiche& c);

// The tones in columns: each degree ("1", "b3", "9") above its note's name.
void dessineConstruction(QPainter& g, const QRectF& zone, const QStringList& degrés,
                         const QStringList& notes, const CouleursFiche& c);

}  // namespace vt
