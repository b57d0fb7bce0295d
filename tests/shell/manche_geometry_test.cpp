// The fretboard's geometry: where frets and strings lie, and the fret and the
// string under a pointer, for both hands.
#include <gtest/gtest.h>

#include "shell/manche_geometry.h"

namespace vt::manche {
namespace {

TEST(MancheGeometrie, CentresOfFretsAndStringsForBothHands) {
  const Vue d{6, 0, false};
  const Vue g{6, 0, true};
  // Turned by half a circle for the left hand: string 1 at the bottom; then
  // scrolled by three frets.
  EXPECT_EQ((std::vector<double>{centreCaseX(d, 0), centreCaseX(d, 5), centreCordeY(d, 1),
                                 centreCordeY(d, 6), centreCaseX(g, 0), centreCaseX(g, 5),
                                 centreCordeY(g, 1), centreCordeY(g, 6),
                                 centreCaseX({6, 3, false}, 5), centreCaseX({6, 3, true}, 5)}),
            (std::vector<double>{280, 2680, 120, 1920, 11800, 9400, 1920, 120, 1240, 7960}));
  for (const bool gauche : {false, true})
    for (const int n : {4, 6, 7})
      for (const int h : {0, 2, 5}) {
        const Vue v{n, h, gauche};
        for (int c = h; c <= 24 - (gauche ? h : 0); ++c)
          EXPECT_EQ(caseDepuisX(v, centreCaseX(v, c)), c) << gauche << n << h << c;
        for (int s = 1; s <= n; ++s)
          EXPECT_EQ(cordeDepuisY(v, centreCordeY(v, s)), s) << gauche << n << s;
      }
}

TEST(MancheGeometrie, TheFretAndTheStringUnderAPointer) {
  const auto px = [](int p) { return p * kTwipsParPixel; };
  const struct {
    Vue v;
    double x;
    int fret;
  } frettes[] = {// The open strings lie left of the nut (x 30 to 38 pixels).
                 {{6, 0, false}, px(5), 0},
                 {{6, 0, false}, px(28), 0},
                 {{6, 0, false}, px(52), 1},
                 {{6, 0, false}, px(242), 7},
                 {{6, 4, false}, 280, 4},
                 {{6, 4, false}, px(3), 4},
                 {{6, 4, false}, 700, 5},
                 // Left-handed: from the right, clamped at the open string far past it.
                 {{6, 0, true}, 11800, 0},
                 {{6, 0, true}, 12500, 0},
                 {{6, 0, true}, 20000, 0},
                 {{6, 0, true}, 280, 24},
                 {{6, 3, true}, 11800, 0},
                 {{6, 3, true}, 280, 21}};
  for (const auto& f : frettes)
    EXPECT_EQ(caseDepuisX(f.v, f.x), f.fret) << f.x << " " << f.v.gaucher;
  // Strings 24 pixels apart from y = 8; below the last one is off the strings;
  // mirrored on a left-handed board.
  const Vue d{6, 0, false};
  const Vue g{6, 0, true};
  EXPECT_EQ((std::vector<int>{cordeDepuisY(d, 0), cordeDepuisY(d, px(30)), cordeDepuisY(d, px(128)),
                              cordeDepuisY(d, px(145)), cordeDepuisY(g, 0), cordeDepuisY(g, 1920),
                              cordeDepuisY({4, 0, true}, 120)}),
            (std::vector<int>{1, 2, 6, 7, 6, 1, 4}));
}

TEST(MancheGeometrie, RoundingHalfToEvenTheBoardHeightAndTheScrollBar) {
  EXPECT_EQ(
      (std::vector<double>{arrondi(0.5), arrondi(1.5), arrondi(2.5), arrondi(2.4999),
                           arrondi(2.5001), double(hauteurBoard(6)), double(hauteurBoard(7))}),
      (std::vector<double>{0, 2, 2, 2, 3, 2100, 2460}));
  EXPECT_EQ(défilementMax(1280), 0);
  EXPECT_EQ(défilementMax(807), 0);
  EXPECT_GT(défilementMax(806), 0);
  for (const int largeur : {200, 400, 640}) {
    // Scrolled to the end, fret 24 (right-handed) and the nut of a left-handed
    // board are on the strip.
    const int h = défilementMax(largeur);
    EXPECT_LT(centreCaseX({6, h, false}, 24) / kTwipsParPixel + 16, largeur) << largeur;
    EXPECT_LT((11520.0 - h * kPasCase) / kTwipsParPixel + 8, largeur) << largeur;
  }
}

}  // namespace
}  // namespace vt::manche
