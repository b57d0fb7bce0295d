// The tablature strip through the recording surface: strings, bar lines,
// signatures, texts, notes, attacks, stems and beams.
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

TEST(Strip, StringsRunFromTheMarginWithTheirNamesOrTheDrumsOnes) {
  Banc b;
  b.r.drawInLine();
  for (int c = 1; c <= 6; ++c) {
    const int y = b.m().cordeY(c);
    EXPECT_EQ(b.surface
                  .select([&](const Primitive& p) {
                    return p.kind == K::DeviceLine && p.y1 == y && p.y2 == y && p.x1 == 35;
                  })
                  .size(),
              1U)
        << "string " << c;
  }
  const auto noms = [&b] {
    std::vector<std::string> l;
    for (const Primitive& p : b.surface.select([](const Primitive& p) {
           return p.kind == K::Text && p.x1 == 15 && p.y1 > 130 && p.y1 < 210;
         }))
      l.push_back(p.text);
    return l;
  };
  EXPECT_EQ(noms(), (std::vector<std::string>{"E", "B", "G", "D", "A", "E"}));
  b.doc.setStaffType(1, kStaffBatterie);
  b.surface.clearRecord();
  b.r.drawInLine();
  EXPECT_EQ(noms(), (std::vector<std::string>{"P", "RC", "CC", "HH", "T", "SD"}));
}

TEST(Strip, BarLinesStandWhereTheMetricsPutThem) {
  Banc b;
  for (int i = 0; i < 3; ++i)
    b.doc.addMesure();
  b.r.drawInLine();
  for (const int x : {35, 235, 435, 635, 835}) {
    // From the top of the strip down to the staff's bottom line, the staff being below.
    EXPECT_EQ(b.surface
                  .select([&](const Primitive& p) {
                    return test::estVerticale(p, x) && p.y1 == 0 && p.y2 == 322;
                  })
                  .size(),
              x == 35 || x == 835 ? 1U : 2U)
        << x;
  }
  b.s.cfgAffichePortée = false;
  b.surface.clearRecord();
  b.r.drawInLine();
  EXPECT_FALSE(
      b.surface.select([](const Primitive& p) { return test::estVerticale(p, 235) && p.y2 == 205; })
          .empty());
  EXPECT_TRUE(b.surface.ofKind(K::Blit).empty());
}

TEST(Strip, RepeatSignsCountsAndFinalBar) {
  Banc b;
  b.doc.addMesure();
  b.doc.setMesureLoopGaucheType(1, barre::kRepetition);
  b.doc.setMesureLoopDroiteType(1, barre::kRepetition);
  b.doc.setMesureLoopDroiteData(1, 1);
  b.doc.setMesureLoopDroiteType(2, barre::kRepetition);
  b.doc.setMesureLoopDroiteData(2, 4);
  b.r.drawInLine();
  // A start and an end of repeat: thick bars, thin lines and two dots each.
  EXPECT_EQ(b.surface.ofKind(K::FilledBox).size() -
                b.surface
                    .select([](const Primitive& p) {
                      return p.kind == K::FilledBox && p.state.drawMode != DrawMode::CopyPen;
                    })
                    .size(),
            3U);
  const auto points = b.surface.select([](const Primitive& p) {
    return p.kind == K::Circle && p.x2 == 2 && p.state.fillStyle == FillStyle::Solid;
  });
  ASSERT_EQ(points.size(), 6U);
  EXPECT_EQ((std::vector<double>{points[0].x1, points[0].y1, points[1].y1, points[2].x1}),
            (std::vector<double>{35 + 8, 140 + 13 + 6, 140 + 52 - 6, 235 - 8}));
  // A count of 1 is not shown; 4 is, in bold italic, ending on the bar line.
  EXPECT_TRUE(b.surface.texts("x1").empty());
  const auto x4 = b.surface.texts("x4");
  ASSERT_EQ(x4.size(), 1U);
  EXPECT_EQ(x4[0].x1 + x4[0].x2, 435);
  EXPECT_EQ(x4[0].y1, 140 - 26);
  EXPECT_TRUE(x4[0].state.font.gras && x4[0].state.font.italique);
}

TEST(Strip, FirstBarShownAlwaysShowsItsSignatureAndKey) {
  Banc b;
  for (int i = 0; i < 3; ++i)
    b.doc.addMesure();
  for (int m = 1; m <= 4; ++m)
    b.doc.setMesureTonalitéDétails(m, 2, kVrai);
  b.r.drawInLine();
  const auto signature = [&b] {
    return b.surface.select([](const Primitive& p) {
      return p.kind == K::Text && p.text == "4" && p.state.font.nom == "MusicalSymbols";
    });
  };
  EXPECT_EQ(signature().size(), 2U);  // only the first bar: 4 over 4
  EXPECT_EQ(b.blits(portee::kDièse).size(), 2U);
  b.doc.m_lngScrollValue = 3;
  b.surface.clearRecord();
  b.r.drawInLine();
  const auto chiffres = signature();
  ASSERT_EQ(chiffres.size(), 2U);
  EXPECT_EQ(chiffres[0].state.font.nom, "MusicalSymbols");
  EXPECT_EQ(chiffres[0].state.font.taille, 24);
  EXPECT_EQ(test::centreX(chiffres[0]), 35 + 20);  // centred on x + IM
  EXPECT_EQ(b.blits(portee::kDièse).size(), 2U);
}

TEST(Strip, TempoIsRedTextsSplitAtBackslashN) {
  Banc b;
  b.s.cfgBackColor = kRouge;
  b.doc.setMesureTempo(1, 48, 132);
  b.doc.setMesureTexte(1, 1, 24, "a\\nb", kVrai);
  b.doc.setMesureTexte(1, 1, 0, "bas", kFaux);
  b.r.drawInLine();
  const auto tempo = b.surface.texts("T=132");
  ASSERT_EQ(tempo.size(), 1U);
  EXPECT_EQ(tempo[0].state.foreColor, kRouge);
  EXPECT_EQ(tempo[0].x1, 55 + 40 + 20);
  EXPECT_EQ(tempo[0].y1, 140 - 39);
  const auto a = b.surface.texts("a");
  const auto bb = b.surface.texts("b");
  const auto bas = b.surface.texts("bas");
  ASSERT_EQ(a.size() + bb.size() + bas.size(), 3U);
  EXPECT_EQ(a[0].y1, 140 - 52);
  EXPECT_EQ(bb[0].y1, a[0].y1 + a[0].y2);
  EXPECT_EQ(bas[0].y1, 8 * 13 + 140);
}

TEST(Strip, NoteTextsGhostsDeadNotesAndTheFontBox) {
  Banc b;
  note(b.doc, 1, 2, 48, 12, 48);
  note(b.doc, 1, 3, 96, 5, 48, 0, 0, nuance::kMP);
  note(b.doc, 1, 4, 144, 7, 48, attaque::kDeadNote);
  b.doc.setNoteWhole(1, 1, 5, 0, kCaseVide, 48);  // a blank note draws no text
  b.r.drawInLine();
  const auto douze = b.surface.texts("12");
  ASSERT_EQ(douze.size(), 1U);
  EXPECT_EQ(test::centreX(douze[0]), 55 + 40 + 20);  // centred on its column
  EXPECT_EQ(test::centreY(douze[0]), 153);           // and on its string
  EXPECT_FALSE(douze[0].state.fontTransparent);      // digits blank the string behind
  EXPECT_EQ(b.surface.texts("(5)").size(), 1U);
  EXPECT_EQ(b.surface.texts("X").size(), 1U);
  EXPECT_EQ(b.surface.texts("255").size(), 0U);
  b.s.cfgFontTransparent = true;
  b.surface.clearRecord();
  b.r.drawInLine();
  EXPECT_TRUE(b.surface.texts("12")[0].state.fontTransparent);
}

TEST(Strip, AttackSigns) {
  Banc b;
  const int a = 140 - 26;
  note(b.doc, 1, 3, 0, 1, 24, attaque::kHarmoniqueNaturelle);
  note(b.doc, 1, 3, 24, 1, 24, attaque::kHarmoniqueArtificielle);
  note(b.doc, 1, 3, 48, 1, 24, attaque::kTap);
  note(b.doc, 1, 3, 72, 1, 24, attaque::kSlap);
  note(b.doc, 1, 3, 96, 1, 24, attaque::kPop);
  note(b.doc, 1, 3, 120, 1, 48, attaque::kPalmMute);
  b.r.drawInLine();
  for (const char* s : {"Harm.", "A.H.", "T", "S", "P"}) {
    const auto t = b.surface.texts(s);
    ASSERT_EQ(t.size(), 1U) << s;
    EXPECT_EQ(test::centreY(t[0]), a) << s;
  }
  const auto pm = b.surface.texts("P.M.");
  ASSERT_EQ(pm.size(), 1U);
  const int x = 55 + 100 + 20;
  EXPECT_EQ(coins(pm[0]), q(x, a, pm[0].x2, pm[0].y2));
  const auto tirets = b.surface.select([](const Primitive& p) {
    return p.kind == K::Segment && p.state.drawStyle == DrawStyle::Dash;
  });
  ASSERT_EQ(tirets.size(), 1U);
  EXPECT_EQ(coins(tirets[0]), q(x + pm[0].x2, 140 - 13 - 6, x + pm[0].x2 + 40, tirets[0].y2));
}

TEST(Strip, StrokesAndBrushes) {
  Banc b;
  note(b.doc, 1, 4, 0, 1, 48, attaque::kStrokeUp);
  note(b.doc, 1, 4, 48, 1, 48, attaque::kStrokeDown);
  // A brush from string 5 reaches the highest string of its chord, string 2.
  for (int c = 2; c <= 5; ++c)
    note(b.doc, 1, c, 96, 1, 48, c == 5 ? attaque::kBrushUp : 0);
  b.r.drawInLine();
  const auto v = b.surface.select([](const Primitive& p) {
    return p.kind == K::Segment && p.x1 == 71 && p.y1 == 140 - 39 && p.x2 == 75 && p.y2 == 140 - 26;
  });
  EXPECT_EQ(v.size(), 1U);
  const auto barre = b.surface.select([](const Primitive& p) {
    return p.kind == K::Segment && p.state.drawWidth == 2 && p.y1 == p.y2;
  });
  ASSERT_EQ(barre.size(), 1U);
  EXPECT_EQ(coins(barre[0]), q(115 - 5, barre[0].y1, 115 + 5, barre[0].y1));
  EXPECT_EQ(b.surface
                .select([](const Primitive& p) {
                  return p.kind == K::Text && p.text == "B" && test::centreY(p) == 140 - 26;
                })
                .size(),
            1U);
  const auto flèche = b.surface.select(
      [](const Primitive& p) { return test::estVerticale(p, 155 + 10) && p.y1 == 140 + 4.5 * 13; });
  ASSERT_EQ(flèche.size(), 1U);
  EXPECT_EQ(flèche[0].y2, 140 + 0.5 * 13);  // above string 2
}

TEST(Strip, ChordDrawsOneStemFromItsLowestNote) {
  Banc b;
  note(b.doc, 1, 1, 0, 3, 48);
  note(b.doc, 1, 2, 0, 0, 48);
  note(b.doc, 1, 4, 0, 0, 48);
  b.r.drawInLine();
  const auto stems = b.surface.select([](const Primitive& p) {
    return test::estVerticale(p, 75) && p.y1 == 7 * 13 + 140 &&
           p.state.drawMode == DrawMode::CopyPen;
  });
  ASSERT_EQ(stems.size(), 1U);
  EXPECT_EQ(stems[0].y2, 7 * 13 + 140 - (6 - 4 + 1) * 13);  // one IS under string 4
}

struct Beams : ::testing::Test {
  Banc b;
  // The horizontal segments of the beams under the tablature, at row y.
  std::vector<Primitive> poutres(int y) {
    return b.surface.select([y](const Primitive& p) {
      return p.kind == K::Segment && p.y1 == y && p.y2 == y && p.x1 > 50;
    });
  }
  // Where each segment starts and ends.
  static std::vector<double> xs(const std::vector<Primitive>& ps) {
    std::vector<double> l;
    for (const Primitive& p : ps)
      l.insert(l.end(), {p.x1, p.x2});
    return l;
  }
};

TEST_F(Beams, TwoEighthsOnABeatMeet) {
  note(b.doc, 1, 3, 0, 2, 24);
  note(b.doc, 1, 3, 24, 2, 24);
  b.r.drawInLine();
  const int foot = 7 * 13 + 140;
  const auto rang = poutres(foot);
  ASSERT_EQ(rang.size(), 2U);
  // The first runs 2U = 20 forward from its stem, the second 2U back from its own.
  EXPECT_EQ(xs(rang), (std::vector<double>{75, 95, 75, 95}));
  EXPECT_EQ(poutres(foot - 1).size(), 2U);  // two pixels thick
}

TEST_F(Beams, AnEighthBeforeAQuarterOrInABarWithoutABeamUnitGetsAFlag) {
  note(b.doc, 1, 3, 0, 2, 24);
  note(b.doc, 1, 3, 24, 2, 48);
  b.r.drawInLine();
  const auto rang = poutres(7 * 13 + 140);
  ASSERT_EQ(rang.size(), 1U);
  EXPECT_EQ(rang[0].x2 - rang[0].x1, 20 / 4);
  // A bar without a beam unit flags every note.
  b.doc.setMesureSignature(1, 8, 8);
  b.doc.setNoteDurée(1, 1, 3, 2, 24);
  b.surface.clearRecord();
  b.r.drawInLine();
  ASSERT_EQ(poutres(7 * 13 + 140).size(), 2U);
  for (const Primitive& p : poutres(7 * 13 + 140))
    EXPECT_EQ(p.x2 - p.x1, 5);
}

TEST_F(Beams, SixteenthsAndMixedGroups) {
  // An eighth and two sixteenths: the eighth's beam reaches the second note,
  // the sixteenths carry a second beam between them.
  note(b.doc, 1, 3, 0, 2, 24);
  note(b.doc, 1, 3, 24, 2, 12);
  note(b.doc, 1, 3, 36, 2, 12);
  b.r.drawInLine();
  const int foot = 7 * 13 + 140;
  const auto premier = poutres(foot);
  ASSERT_EQ(premier.size(), 3U);
  // State 0, next not long: 2U with U = 10; state 1, P, N and M: -U, 3U with
  // U = 5; state 2, P: -U, U.
  EXPECT_EQ(xs(premier), (std::vector<double>{75, 95, 90, 105, 100, 105}));
  EXPECT_EQ(poutres(foot - 4).size(), 2U);
  EXPECT_TRUE(poutres(foot - 8).empty());
}

TEST_F(Beams, TripletsAndDotsAreMarkedUnderTheStem) {
  note(b.doc, 1, 6, 0, 2, 16);
  note(b.doc, 1, 6, 16, 2, 36);
  b.r.drawInLine();
  const auto trois = b.surface.select([](const Primitive& p) {
    return p.kind == K::Text && p.text == "3" && test::centreY(p) == 8 * 13 + 140;
  });
  EXPECT_EQ(trois.size(), 1U);
  const auto point = b.surface.select(
      [](const Primitive& p) { return p.kind == K::Circle && p.x2 == 1 && p.y1 == 8 * 13 + 140; });
  ASSERT_EQ(point.size(), 1U);
  EXPECT_EQ(point[0].state.fillStyle, FillStyle::Solid);
}

}  // namespace
}  // namespace vt
