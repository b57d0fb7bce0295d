// What is drawn over and above the strip: the cursor and the selection in
// their raster modes, the partial repaint of the cursor's bar, the ruler, the
// loop markers and the chord diagrams.
#include <gtest/gtest.h>

#include "banc.h"
#include "showcase.h"

namespace vt {
namespace {

using test::Banc;
using test::coins;
using test::note;
using test::q;
using K = Primitive::Kind;

TEST(Cursor, ShownByMaskPenHiddenByMergeNotPen) {
  Banc b;
  b.doc.addMesure();
  b.doc.setCurseurMesure(2);
  b.doc.setCurseurX(50);  // snapped to its column: 48
  b.doc.setCurseurCorde(3);
  int appels = 0;
  b.r.onCurseurDessiné = [&appels] { ++appels; };
  b.r.curAffiche();
  const auto p = b.surface.primitives();
  ASSERT_EQ(p.size(), 2U);
  const int x = (50 / 24 + 1) * 20 + 255;
  EXPECT_EQ(p[0].kind, K::Segment);
  EXPECT_EQ(coins(p[0]), q(x, 31, x, 400));
  EXPECT_EQ(p[1].kind, K::FilledBox);  // IN - 1 wide, a string's gap high
  EXPECT_EQ(coins(p[1]), q(x - 9, 140 + 2 * 13 - 6, x + 9, 140 + 2 * 13 + 6));
  for (const Primitive& q : p) {
    EXPECT_EQ(q.state.drawMode, DrawMode::MaskPen);
    EXPECT_EQ(q.state.foreColor, b.s.cfgCurseurColor);
  }
  EXPECT_EQ(b.surface.drawMode(), DrawMode::CopyPen);
  b.surface.clearRecord();
  b.r.curEfface();
  ASSERT_EQ(b.surface.primitives().size(), 2U);
  EXPECT_EQ(b.surface.primitives()[1].state.drawMode, DrawMode::MergeNotPen);
  EXPECT_EQ(appels, 2);
}

TEST(Selection, NothingWithoutOneAndABoxAroundIt) {
  Banc b;
  for (int i = 0; i < 3; ++i)
    b.doc.addMesure();
  b.r.selAffiche();
  EXPECT_TRUE(b.surface.primitives().empty());
  // One cell, as a click leaves it: the cursor marks it, with no box of its own.
  b.doc.intSelStartMesure = b.doc.intSelStopMesure = 2;
  b.doc.intSelStartX = b.doc.intSelStopX = 48;
  b.doc.bytSelStartCorde = b.doc.bytSelStopCorde = 4;
  b.r.selAffiche();
  EXPECT_TRUE(b.surface.primitives().empty());

  b.doc.intSelStopMesure = 1;  // dragged backwards: the edges are exchanged
  b.doc.intSelStopX = 24;
  b.doc.bytSelStopCorde = 2;
  b.r.selAffiche();
  const auto boîtes = b.surface.ofKind(K::FilledBox);
  ASSERT_EQ(boîtes.size(), 1U);
  EXPECT_EQ(coins(boîtes[0]),
            q((1 + 1) * 20 + 55 - 9, 140 + 13 - 6, (2 + 1) * 20 + 255 + 10, 140 + 39 + 7));
  EXPECT_EQ(boîtes[0].state.drawMode, DrawMode::MaskPen);

  // Starting before the first bar shown, the box opens at the strip's left.
  b.doc.m_lngScrollValue = 2;
  b.doc.intSelStartMesure = 1;
  b.doc.intSelStopMesure = 3;
  b.surface.clearRecord();
  b.r.selEfface();
  const auto effacée = b.surface.ofKind(K::FilledBox);
  ASSERT_EQ(effacée.size(), 1U);
  EXPECT_EQ(std::make_pair(effacée[0].x1, effacée[0].state.drawMode),
            std::make_pair(40.0 - 9, DrawMode::MergeNotPen));
}

TEST(PartialRepaint, ErasesInTheBackgroundAndRedrawsTheBar) {
  Banc b;
  b.doc.addMesure();
  note(b.doc, 2, 3, 48, 7, 48, 0, effet::kVibrato);
  b.doc.setMesureTempo(2, 0, 100);
  b.doc.setCurseurMesure(2);
  b.doc.setCurseurX(48);
  b.s.cfgBackColor = rgb(250, 250, 240);
  b.r.effaceCurrentMesure();
  const auto sept = b.surface.texts("7");
  ASSERT_EQ(sept.size(), 1U);
  EXPECT_EQ(sept[0].state.foreColor, b.s.cfgBackColor);
  EXPECT_EQ(b.surface.texts("T=100")[0].state.foreColor, b.s.cfgBackColor);
  for (const Primitive& p : b.surface.ofKind(K::Segment))
    EXPECT_EQ(p.state.foreColor, b.s.cfgBackColor);
  const auto blanc = b.surface.ofKind(K::Rectangle);
  ASSERT_EQ(blanc.size(), 1U);  // the staff under a white box, whatever the background
  EXPECT_EQ(blanc[0].state.fillColor, kBlanc);
  EXPECT_EQ(coins(blanc[0]), q(255, 290 - 84, 255 + 160 + 10 + 1, 290 - 84 + 160 + 1));

  b.surface.clearRecord();
  b.r.drawCurrentMesure();
  // The strings only around the cursor's column, the staff lines over the bar.
  const auto lignes = b.surface.ofKind(K::DeviceLine);
  int cordes = 0;
  int portée = 0;
  for (const Primitive& p : lignes) {
    if (p.y1 != p.y2) continue;
    if (p.x1 == 255 + 50 && p.x2 - p.x1 == 22) ++cordes;
    if (p.x1 == 255 && p.x2 - p.x1 == 160 + 1 + 10) ++portée;
  }
  EXPECT_EQ(std::make_pair(cordes, portée), std::make_pair(6, 5));
  EXPECT_EQ(b.surface.texts("7")[0].state.foreColor, b.s.cfgEventColor);
  EXPECT_EQ(b.surface.texts("T=100")[0].state.foreColor, kRouge);
  EXPECT_FALSE(b.blits(portee::kTêtePleine).empty());
}

TEST(Ruler, NumbersBarsMarksQuarterNotesLongerAndLoopMarkersArePennantsPointingInwards) {
  Banc b;
  b.doc.addMesure();
  b.doc.setMesureSignature(2, 6, 8);
  b.doc.setMarqueurStart(1, 48);
  b.doc.setMarqueurStop(2, 96);
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
  // The loop markers: one pixel narrower each row.
  const auto rangées = b.surface.select([](const Primitive& p) {
    return p.kind == K::Segment && p.y1 == p.y2 && p.y1 >= 2 && p.y1 <= 16 &&
           p.state.foreColor == kNoir && p.x1 != 0;
  });
  ASSERT_EQ(rangées.size(), 30U);
  const int départ = 55 + 40 + 20;
  const int arrivée = 255 + 80 + 20;
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
