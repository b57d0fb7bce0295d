// The ruler, the loop markers and the chord diagrams above the strip.
#include <gtest/gtest.h>

#include "banc.h"

namespace vt {
namespace {

using test::Banc;
using K = Primitive::Kind;

TEST(Ruler, NumbersBarsAndMarksQuarterNotesLonger) {
  Banc b;
  b.doc.addMesure();
  b.doc.setMesureSignature(2, 6, 8);
  b.r.drawInLine();
  const auto deux = b.surface.texts("2");
  ASSERT_EQ(deux.size(), 1U);
  EXPECT_EQ(test::coin(deux[0]), test::coin(235 + 2, 10));
  EXPECT_EQ(deux[0].state.font.nom, "Small Fonts");
  // 4/4 at 24 ticks a column: 8 ticks, long on ticks 0, 48, 96 and 144.
  const auto marques = [&](double yDébut) {
    return b.surface.select([yDébut](const Primitive& p) {
      return p.kind == K::Segment && p.x1 == p.x2 && p.y1 == yDébut && p.x1 > 35 && p.x1 < 235;
    });
  };
  ASSERT_EQ(std::make_pair(marques(10).size(), marques(20).size()), std::make_pair(4UL, 4UL));
  EXPECT_EQ(std::make_pair(marques(10)[1].x1, marques(10)[1].y2), std::make_pair(35.0 + 80, 30.0));
  // The face of the ruler and its edges.
  const auto face = b.surface.ofKind(K::Rectangle);
  ASSERT_EQ(face.size(), 1U);
  EXPECT_EQ(face[0].state.fillColor, b.s.couleurBoutonFace);
  EXPECT_EQ(std::make_pair(face[0].x2, face[0].y2), std::make_pair(1201.0, 31.0));
}

TEST(Ruler, LoopMarkersArePennantsPointingInwards) {
  Banc b;
  b.doc.addMesure();
  b.doc.setMarqueurStart(1, 48);
  b.doc.setMarqueurStop(2, 96);
  b.r.drawInLine();
  const auto rangées = b.surface.select([](const Primitive& p) {
    return p.kind == K::Segment && p.y1 == p.y2 && p.y1 >= 2 && p.y1 <= 16 &&
           p.state.foreColor == kNoir && p.x1 != 0;
  });
  ASSERT_EQ(rangées.size(), 30U);
  const int départ = 55 + 40 + 20;
  const int arrivée = 255 + 80 + 20;
  // One pixel narrower each row.
  EXPECT_EQ(test::coins(rangées[0]), test::q(départ, 2, départ + 15, 2));
  EXPECT_EQ(test::coins(rangées[14]), test::q(départ, 16, départ + 1, 16));
  EXPECT_EQ(test::coins(rangées[15]), test::q(arrivée, 2, arrivée - 15, 2));
}

TEST(ChordDiagram, GridDotsOpenAndMutedStringsAndTheName) {
  Banc b;
  OneBased<byt> ré(6);
  const byt frettes[] = {2, 3, 2, 0, kCaseVide, kCaseVide};  // D: e 2, B 3, G 2, D open
  for (int c = 1; c <= 6; ++c)
    ré[c] = frettes[c - 1];
  b.doc.setMesureAccord(1, 1, b.doc.addandplaceMesureAccord(1, 1, 48), "D", ré);
  b.r.drawInLine();
  // "D" also names string 4; the chord's name stands over the tablature.
  const auto auDessus = b.surface.select(
      [](const Primitive& p) { return p.kind == K::Text && p.text == "D" && p.y1 < 100; });
  ASSERT_EQ(auDessus.size(), 1U);
  EXPECT_EQ(std::make_pair(test::centreX(auDessus[0]), test::centreY(auDessus[0])),
            std::make_pair(55 + 40 + 20, 140 - 78));
  // Three fingers and one open string.
  const auto ronds = [&b](FillStyle f) {
    return b.surface
        .select([f](const Primitive& p) {
          return p.kind == K::Circle && p.state.fillStyle == f && p.y1 < 100;
        })
        .size();
  };
  EXPECT_EQ(std::make_pair(ronds(FillStyle::Solid), ronds(FillStyle::Transparent)),
            std::make_pair(3UL, 1UL));
  // Two muted strings, each an x of two strokes above the nut.
  const int haut = 140 - 78 - 24;
  const auto croix = b.surface.select([haut](const Primitive& p) {
    return p.kind == K::Segment && p.y1 < haut - 2 && p.y2 < haut - 2 && p.y1 > 30;
  });
  EXPECT_EQ(croix.size(), 4U);
}

}  // namespace
}  // namespace vt
