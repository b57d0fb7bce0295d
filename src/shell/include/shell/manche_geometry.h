// Where frets and strings lie on the fretboard strip, and which fret and
// string a pointer position falls on. Lengths are in twips, 15 to the pixel.
// The left-handed board is the right-handed one turned by half a circle:
// string 1 at the bottom, the nut on the right.
#pragma once

namespace vt::manche {

inline constexpr int kTwipsParPixel = 15;
inline constexpr int kPasCase = 480;      // from one fret to the next
inline constexpr int kPasCorde = 360;     // from one string to the next
inline constexpr int kDernièreCase = 24;  // the highest fret anything draws

struct Vue {
  int nbrCordes = 6;
  int h = 0;  // frets scrolled away (the scroll bar's value)
  bool gaucher = false;
};

// Centre of fret `c` (0 is the open string, outside the nut) and of string `s`.
double centreCaseX(const Vue& v, int c);
double centreCordeY(const Vue& v, int s);

// The fret and string under a pointer position. A string outside 1..nbrCordes
// is a position off the strings, which clicks ignore; a left-handed fret is
// never negative.
int caseDepuisX(const Vue& v, double xTwips);
int cordeDepuisY(const Vue& v, double yTwips);

// Height of the board itself, without its scroll bar: n * 360 - 60.
int hauteurBoard(int nbrCordes);

// How far the scroll bar must go so that fret 24 (right-handed) or the nut
// (left-handed) can be brought into a strip this many pixels wide.
int défilementMax(int largeurPixels);

// Rounding half to even, as the pointer's fret and string are rounded.
double arrondi(double v);

}  // namespace vt::manche
