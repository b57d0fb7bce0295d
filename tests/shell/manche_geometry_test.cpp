// The fretboard's geometry: where frets and strings lie, and the fret and the
// string under a pointer, for both hands.
#include <gtest/gtest.h>

#include "shell/manche_geometry.h"

namespace vt::manche {
namespace {

TEST(MancheGeometrie, CentresOfFretsAndStringsForBothHands) {
  const Vue droitier{6, 0, false};
  EXPECT_DOUBLE_EQ(centreCaseX(droitier, 0), 280);
  EXPECT_DOUBLE_EQ(centreCaseX(droitier, 5), 2680);
  EXPECT_DOUBLE_EQ(centreCordeY(droitier, 1), 120);
  EXPECT_DOUBLE_EQ(centreCordeY(droitier, 6), 1920);
  const Vue gaucher{6, 0, true};
  EXPECT_DOUBLE_EQ(centreCaseX(gaucher, 0), 11800);
  EXPECT_DOUBLE_EQ(centreCaseX(gaucher, 5), 9400);
  // Turned by half a circle: string 1 at the bottom.
  EXPECT_DOUBLE_EQ(centreCordeY(gaucher, 1), 1920);
  EXPECT_DOUBLE_EQ(centreCordeY(gaucher, 6), 120);
  // Scrolled by three frets.
  EXPECT_DOUBLE_EQ(centreCaseX({6, 3, false}, 5), 1240);
  EXPECT_DOUBLE_EQ(centreCaseX({6, 3, true}, 5), 7960);
}

TEST(MancheGeometrie, EveryCentreMapsBackToItsFretAndString) {
  for (const bool g : {false, true}) {
    for (const int n : {4, 6, 7}) {
      for (const int h : {0, 2, 5}) {
        const Vue v{n, h, g};
        for (int c = h; c <= 24 - (g ? h : 0); ++c) {
          EXPECT_EQ(caseDepuisX(v, centreCaseX(v, c)), c) << g << n << h << c;
        }
        for (int s = 1; s <= n; ++s) {
          EXPECT_EQ(cordeDepuisY(v, centreCordeY(v, s)), s) << g << n << s;
        }
      }
    }
  }
}

TEST(MancheGeometrie, PointerPositionsInPixelsOfTheStrip) {
  const Vue v{6, 0, false};
  const auto px = [](int p) { return p * kTwipsParPixel; };
  // The open strings lie left of the nut (x 30 to 38 pixels).
  EXPECT_EQ(caseDepuisX(v, px(5)), 0);
  EXPECT_EQ(caseDepuisX(v, px(28)), 0);
  EXPECT_EQ(caseDepuisX(v, px(52)), 1);
  EXPECT_EQ(caseDepuisX(v, px(242)), 7);
  // Strings 24 pixels apart from y = 8.
  EXPECT_EQ(cordeDepuisY(v, px(0)), 1);
  EXPECT_EQ(cordeDepuisY(v, px(30)), 2);
  EXPECT_EQ(cordeDepuisY(v, px(128)), 6);
  EXPECT_EQ(cordeDepuisY(v, px(145)), 7);  // below the last string: off the strings
}

TEST(MancheGeometrie, AScrolledRightHandedBoardStartsAtFretH) {
  const Vue v{6, 4, false};
  EXPECT_EQ(caseDepuisX(v, 280), 4);
  EXPECT_EQ(caseDepuisX(v, 3 * kTwipsParPixel), 4);
  EXPECT_EQ(caseDepuisX(v, 700), 5);
}

TEST(MancheGeometrie, LeftHandedFretsCountFromTheRightAndNeverGoBelowZero) {
  const Vue v{6, 0, true};
  // Near the right edge of the board: the open string.
  EXPECT_EQ(caseDepuisX(v, 11800), 0);
  EXPECT_EQ(caseDepuisX(v, 12500), 0);
  EXPECT_EQ(caseDepuisX(v, 20000), 0);  // far past it: clamped
  EXPECT_EQ(caseDepuisX(v, 280), 24);
  EXPECT_EQ(caseDepuisX({6, 3, true}, 11800), 0);
  EXPECT_EQ(caseDepuisX({6, 3, true}, 280), 21);
  // Strings are mirrored: the top of the strip is the last string.
  EXPECT_EQ(cordeDepuisY(v, 0), 6);
  EXPECT_EQ(cordeDepuisY(v, 1920), 1);
  EXPECT_EQ(cordeDepuisY({4, 0, true}, 120), 4);
}

TEST(MancheGeometrie, RoundingHalfToEvenAndTheBoardHeight) {
  EXPECT_EQ(arrondi(0.5), 0);
  EXPECT_EQ(arrondi(1.5), 2);
  EXPECT_EQ(arrondi(2.5), 2);
  EXPECT_EQ(arrondi(2.4999), 2);
  EXPECT_EQ(arrondi(2.5001), 3);
  EXPECT_EQ(hauteurBoard(6), 2100);
  EXPECT_EQ(hauteurBoard(7), 2460);
}

TEST(MancheGeometrie, TheScrollBarReachesFret24OnANarrowStrip) {
  EXPECT_EQ(défilementMax(1280), 0);
  EXPECT_EQ(défilementMax(807), 0);
  EXPECT_GT(défilementMax(806), 0);
  for (const int largeur : {200, 400, 640}) {
    const int h = défilementMax(largeur);
    // Scrolled to the end, fret 24 (right-handed) is on the strip...
    const double x = centreCaseX({6, h, false}, 24) / kTwipsParPixel;
    EXPECT_LT(x + 16, largeur) << largeur;
    // ...and so is the nut of a left-handed board.
    const double nut = (11520.0 - h * kPasCase) / kTwipsParPixel;
    EXPECT_LT(nut + 8, largeur) << largeur;
  }
}

}  // namespace
}  // namespace vt::manche
