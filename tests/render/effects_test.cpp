// Every effect code draws its shape; the ones that link to the next note on
// the string draw nothing without one.
#include <gtest/gtest.h>

#include "banc.h"
#include "showcase.h"

namespace vt {
namespace {

using test::Banc;
using test::coins;
using test::note;
using test::q;
using test::rayons;
using K = Primitive::Kind;
using Rayons = std::array<int, 4>;

constexpr int T = 140;
constexpr int IS = 13;

struct Effects : ::testing::Test {
  Banc b;
  // The effect of note n of string c, drawn alone.
  std::vector<Primitive> dessine(int c, int n, int m = 1) {
    b.surface.clearRecord();
    b.r.drawEffet(1, m, c, n);
    return b.surface.primitives();
  }
};

TEST_F(Effects, LinkingEffectsNeedANextNoteAndTieArcsToIt) {
  for (const byt e :
       {effet::kLiaison, effet::kHammerOn, effet::kPullOff, effet::kSlideUp, effet::kSlideDown}) {
    Banc seul;
    note(seul.doc, 1, 3, 0, 5, 48, 0, e);
    seul.r.drawEffet(1, 1, 3, 1);
    EXPECT_TRUE(seul.surface.primitives().empty()) << int(e);
  }
  note(b.doc, 1, 3, 0, 5, 48, 0, effet::kLiaison);
  note(b.doc, 1, 3, 48, 5, 48);
  const auto p = dessine(3, 1);
  ASSERT_EQ(p.size(), 1U);
  EXPECT_EQ(p[0].kind, K::Arc);
  const int x = 55 + 20;  // the effect column: IM as last term
  const int nx = 55 + 40 + 20;
  EXPECT_EQ(coins(p[0]), q(x, T + IS, nx, T + 2 * IS));
  // From the right end round over the top to the left end, at mid height:
  // (3 - 1.5) * 13 + 140 = 159.5, rounded to even.
  EXPECT_EQ(rayons(p[0]), (Rayons{nx, 160, x, 160}));
}

TEST_F(Effects, TheNextNoteMayOpenTheNextBarAndPullOffsAndSlides) {
  b.doc.addMesure();
  note(b.doc, 1, 2, 144, 5, 48, 0, effet::kHammerOn);
  note(b.doc, 2, 2, 0, 7, 48);
  const auto p = dessine(2, 1);
  ASSERT_EQ(p.size(), 2U);
  EXPECT_EQ(std::make_pair(p[0].kind, p[0].x2), std::make_pair(K::Arc, 255.0 + 20));
  EXPECT_EQ(p[1].text, "H");
  EXPECT_EQ(std::make_pair(test::centreX(p[1]), test::centreY(p[1])),
            std::make_pair((55 + 120 + 20 + 255 + 20) / 2, (2 - 3) * IS + T));
  EXPECT_TRUE(p[1].state.fontTransparent);

  note(b.doc, 1, 4, 0, 7, 24, 0, effet::kPullOff);
  note(b.doc, 1, 4, 24, 5, 24, 0, effet::kSlideUp);
  note(b.doc, 1, 4, 48, 7, 24, 0, effet::kSlideDown);
  note(b.doc, 1, 4, 72, 5, 24);
  EXPECT_EQ(dessine(4, 1)[1].text, "P");
  const auto montée = dessine(4, 2);
  ASSERT_EQ(montée.size(), 1U);
  EXPECT_EQ(coins(montée[0]),
            q(55 + 20 + 20 + 10, (4 - 0.75) * IS + T, 55 + 40 + 20 - 10, (4 - 1.25) * IS + T));
  const auto descente = dessine(4, 3);
  ASSERT_EQ(descente.size(), 1U);
  EXPECT_EQ(std::make_pair(descente[0].y1, descente[0].y2),
            std::make_pair((4 - 1.25) * IS + T, (4 - 0.75) * IS + T));
}

TEST_F(Effects, BendsAreArcsWithAHead) {
  int x = 0;
  for (const byt e : {effet::kBendUp, effet::kBendUpDown, effet::kBendReturn, effet::kBendDown}) {
    note(b.doc, 1, 2, x, 7, 48, 0, e);
    x += 48;
  }
  const int w = 40;
  x = 75;
  const auto bend = dessine(2, 1);
  ASSERT_EQ(bend.size(), 3U);
  EXPECT_EQ(bend[0].kind, K::Arc);
  EXPECT_EQ(coins(bend[0]), q(x - w, T - IS, x + w, T - 3 * IS));
  EXPECT_EQ(rayons(bend[0]), (Rayons{x, T - IS, x + w, T - 2 * IS}));
  EXPECT_EQ(std::make_pair(bend[1].x2 - bend[1].x1, bend[2].y2 - bend[2].y1),
            std::make_pair(-5.0, 5.0));

  x = 115;
  const auto allerRetour = dessine(2, 2);
  ASSERT_EQ(allerRetour.size(), 4U);
  EXPECT_EQ(allerRetour[0].x1, x - w / 2);
  EXPECT_EQ(allerRetour[1].kind, K::Arc);
  EXPECT_EQ((std::vector<double>{allerRetour[1].x1, allerRetour[1].y1, double(allerRetour[1].xe)}),
            (std::vector<double>{double(x), T, double(x + w / 2)}));

  x = 155;
  const auto relâche = dessine(2, 3);
  ASSERT_EQ(relâche.size(), 3U);
  EXPECT_EQ(rayons(relâche[0]), (Rayons{x + w, T - IS, x, T - 2 * IS}));

  x = 195;
  const auto préBend = dessine(2, 4);
  ASSERT_EQ(préBend.size(), 4U);
  EXPECT_EQ(préBend[0].kind, K::Segment);
  EXPECT_EQ(coins(préBend[0]), q(x, T - 2 * IS, préBend[0].x2, T - IS));
  EXPECT_EQ(préBend[1].kind, K::Arc);
}

TEST_F(Effects, VibratoTremoloAndTrill) {
  note(b.doc, 1, 1, 0, 5, 48, 0, effet::kVibrato);
  note(b.doc, 1, 1, 48, 5, 48, 0, effet::kTremolo);
  note(b.doc, 1, 1, 96, 5, 48, 0, effet::kTrill);
  // A zigzag over the note's 40 pixels: four teeth of two strokes.
  const auto vibrato = dessine(1, 1);
  ASSERT_EQ(vibrato.size(), 8U);
  EXPECT_EQ(coins(vibrato[0]), q(75, T - IS, vibrato[0].x2, T - 2 * IS));
  EXPECT_EQ(vibrato[7].x2, 75 + 40);

  // Three strokes two pixels wide, the pen's width given back afterwards.
  const auto trémolo = dessine(1, 2);
  ASSERT_EQ(trémolo.size(), 3U);
  for (const Primitive& p : trémolo)
    EXPECT_EQ(std::make_pair(coins(p), p.state.drawWidth),
              std::make_pair(q(110, p.y1, 120, p.y1 - 6), 2));
  EXPECT_EQ(std::make_pair(trémolo[0].y1, trémolo[2].y1),
            std::make_pair(double(T - 2 * IS), double(T - IS)));
  EXPECT_EQ(b.surface.state().drawWidth, 1);

  const auto trille = dessine(1, 3);
  ASSERT_EQ(trille.size(), 1U);
  EXPECT_EQ(trille[0].text, "tr");
  EXPECT_TRUE(trille[0].state.font.italique);
  EXPECT_EQ(test::coin(trille[0]), test::coin(155, T - 2 * IS));
  EXPECT_FALSE(b.surface.Font().italique);
}

TEST_F(Effects, AnEffectOnABlankNoteStandsAloneAndUnknownCodesDrawNothing) {
  b.doc.setNoteWhole(1, 1, 2, 48, kCaseVide, 48);
  b.doc.setNoteEffet(1, 1, 2, 1, effet::kVibrato);
  b.r.drawInLine();
  EXPECT_TRUE(b.surface.texts("255").empty());
  const auto zigzag = b.surface.select([](const Primitive& p) {
    return p.kind == K::Segment && p.y1 == T - IS && p.y2 == T - 2 * IS;
  });
  EXPECT_EQ(zigzag.size(), 4U);
  // An unknown code: nothing, and the font box comes back.
  note(b.doc, 1, 1, 0, 5, 48, 0, 26);
  b.surface.setFontTransparent(false);
  EXPECT_TRUE(dessine(1, 1).empty());
  EXPECT_EQ(b.surface.FontTransparent(), b.s.cfgFontTransparent);
}

}  // namespace
}  // namespace vt
