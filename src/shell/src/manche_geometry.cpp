#include "shell/manche_geometry.h"

#include <cmath>

namespace vt::manche {

double arrondi(double v) {
  const double bas = std::floor(v);
  const double reste = v - bas;
  if (reste < 0.5) return bas;
  if (reste > 0.5) return bas + 1;
  return std::fmod(bas, 2.0) == 0 ? bas : bas + 1;
}

double centreCaseX(const Vue& v, int c) {
  if (v.gaucher) return 11800.0 - static_cast<double>(v.h + c) * kPasCase;
  return static_cast<double>(c - v.h) * kPasCase + 280.0;
}

double centreCordeY(const Vue& v, int s) {
  if (v.gaucher) return static_cast<double>(v.nbrCordes - s) * kPasCorde + 120.0;
  return static_cast<double>(s) * kPasCorde - 240.0;
}

int caseDepuisX(const Vue& v, double xTwips) {
  // 0.0020833 is 1/480 and 0.583224 the 280 twips of the open string's column.
  const int arrondie = static_cast<int>(arrondi(std::fabs(xTwips * 0.0020833 - 0.583224)));
  if (!v.gaucher) return arrondie + v.h;
  const int c = kDernièreCase - arrondie - v.h;
  return c < 0 ? 0 : c;
}

int cordeDepuisY(const Vue& v, double yTwips) {
  const int arrondie = static_cast<int>(arrondi(std::fabs(yTwips * 0.0027777 + 0.666676)));
  return v.gaucher ? v.nbrCordes + 1 - arrondie : arrondie;
}

int hauteurBoard(int nbrCordes) {
  return nbrCordes * kPasCorde - 60;
}

int défilementMax(int largeurPixels) {
  // The right-handed board ends with fret 24's wire at 12090 twips; the
  // left-handed one has its nut and open strings within the same width.
  constexpr int kFin = 12090 / kTwipsParPixel + 1;
  constexpr int kPas = kPasCase / kTwipsParPixel;
  if (largeurPixels >= kFin) return 0;
  return (kFin - largeurPixels + kPas - 1) / kPas;
}

}  // namespace vt::manche
