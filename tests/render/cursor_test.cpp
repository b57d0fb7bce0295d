// Cursor and selection in their raster modes, and the partial repaint of the
// cursor's bar.
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

}  // namespace
}  // namespace vt
