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
  const int haut = b.m().cordeY(1);
  EXPECT_EQ(b.surface
                .select([&](const Primitive& p) {
                  return p.kind == K::DeviceLine && p.y1 == p.y2 && p.x1 == 35 && p.y1 >= haut &&
                         p.y1 <= b.m().cordeY(6) && (static_cast<int>(p.y1) - haut) % 13 == 0;
                })
                .size(),
            6U);
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
  // From the top of the strip down to the staff's bottom line, the staff being below.
  std::vector<std::size_t> barres;
  for (const int x : {35, 235, 435, 635, 835})
    barres.push_back(b.surface
                         .select([&](const Primitive& p) {
                           return test::estVerticale(p, x) && p.y1 == 0 && p.y2 == 322;
                         })
                         .size());
  EXPECT_EQ(barres, (std::vector<std::size_t>{1, 2, 2, 2, 1}));
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
  EXPECT_EQ(b.surface
                .select([](const Primitive& p) {
                  return p.kind == K::FilledBox && p.state.drawMode == DrawMode::CopyPen;
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
  EXPECT_EQ(std::make_pair(x4[0].x1 + x4[0].x2, x4[0].y1), std::make_pair(435.0, 140.0 - 26));
  EXPECT_TRUE(x4[0].state.font.gras && x4[0].state.font.italique);
}

TEST(Strip, FirstBarShownAlwaysShowsItsSignatureAndKey) {
  Banc b;
  for (int m = 1; m <= 4; ++m) {
    if (m > 1) b.doc.addMesure();
    b.doc.setMesureTonalitéDétails(m, 2, kVrai);
  }
  for (const int défilement : {1, 3}) {
    SCOPED_TRACE(défilement);
    b.doc.m_lngScrollValue = défilement;
    b.surface.clearRecord();
    b.r.drawInLine();
    // Only the first bar shown: 4 over 4, and the key's two sharps.
    const auto chiffres = b.surface.select([](const Primitive& p) {
      return p.kind == K::Text && p.text == "4" && p.state.font.nom == "MusicalSymbols";
    });
    ASSERT_EQ(chiffres.size(), 2U);
    EXPECT_EQ(chiffres[0].state.font.taille, 24);
    EXPECT_EQ(test::centreX(chiffres[0]), 35 + 20);  // centred on x + IM
    EXPECT_EQ(b.blits(portee::kDièse).size(), 2U);
  }
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
  EXPECT_EQ(test::coin(tempo[0]), test::coin(55 + 40 + 20, 140 - 39));
  const auto a = b.surface.texts("a");
  const auto bb = b.surface.texts("b");
  const auto bas = b.surface.texts("bas");
  ASSERT_EQ(a.size() + bb.size() + bas.size(), 3U);
  EXPECT_EQ((std::vector<double>{a[0].y1, bb[0].y1, bas[0].y1}),
            (std::vector<double>{140 - 52, 140 - 52 + a[0].y2, 8 * 13 + 140}));
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
  // Centred on its column and its string; digits blank the string behind.
  EXPECT_EQ(std::make_pair(test::centreX(douze[0]), test::centreY(douze[0])),
            std::make_pair(55 + 40 + 20, 153));
  EXPECT_FALSE(douze[0].state.fontTransparent);
  EXPECT_EQ((std::vector<std::size_t>{b.surface.texts("(5)").size(), b.surface.texts("X").size(),
                                      b.surface.texts("255").size()}),
            (std::vector<std::size_t>{1, 1, 0}));
  b.s.cfgFontTransparent = true;
  b.surface.clearRecord();
  b.r.drawInLine();
  EXPECT_TRUE(b.surface.texts("12")[0].state.fontTransparent);
}

TEST(Strip, AttackSigns) {
  Banc b;
  const int a = 140 - 26;
  int x = 0;
  for (const int att : {attaque::kHarmoniqueNaturelle, attaque::kHarmoniqueArtificielle,
                        attaque::kTap, attaque::kSlap, attaque::kPop}) {
    note(b.doc, 1, 3, x, 1, 24, att);
    x += 24;
  }
  note(b.doc, 1, 3, 120, 1, 48, attaque::kPalmMute);
  b.r.drawInLine();
  for (const char* s : {"Harm.", "A.H.", "T", "S", "P"}) {
    const auto t = b.surface.texts(s);
    ASSERT_EQ(t.size(), 1U) << s;
    EXPECT_EQ(test::centreY(t[0]), a) << s;
  }
  // The palm mute's letters, then a dashed line to the end of the note.
  const auto pm = b.surface.texts("P.M.");
  ASSERT_EQ(pm.size(), 1U);
  x = 55 + 100 + 20;
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
  EXPECT_EQ(b.surface
                .select([](const Primitive& p) {
                  return p.kind == K::Segment && coins(p) == q(71, 140 - 39, 75, 140 - 26);
                })
                .size(),
            1U);
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
  for (const int c : {1, 2, 4})
    note(b.doc, 1, c, 0, 3, 48);
  b.r.drawInLine();
  const auto stems = b.surface.select([](const Primitive& p) {
    return test::estVerticale(p, 75) && p.y1 == 7 * 13 + 140 &&
           p.state.drawMode == DrawMode::CopyPen;
  });
  ASSERT_EQ(stems.size(), 1U);
  EXPECT_EQ(stems[0].y2, 7 * 13 + 140 - (6 - 4 + 1) * 13);  // one IS under string 4
}

// Notes on string 3 (or 6): {tick, length}; the beams drawn at the stems' foot
// and a second row, as {x1, x2} pairs.
struct CasPoutres {
  const char* nom;
  std::vector<std::pair<int, int>> notes;
  std::vector<double> pied, second;
  int signature = 4;
};

TEST(Beams, EighthsMeetFlagsAndSixteenths) {
  const int foot = 7 * 13 + 140;
  const CasPoutres cas[] = {
      // The first runs 2U = 20 forward from its stem, the second 2U back.
      {"two eighths", {{0, 24}, {24, 24}}, {75, 95, 75, 95}, {}},
      {"an eighth before a quarter: a flag", {{0, 24}, {24, 48}}, {75, 80}, {}},
      {"a bar without a beam unit flags every note", {{0, 24}, {24, 24}}, {75, 80, 95, 100}, {}, 8},
      // State 0, next not long: 2U with U = 10; state 1, P, N and M: -U, 3U
      // with U = 5; state 2, P: -U, U. The sixteenths share a second beam.
      {"an eighth and two sixteenths",
       {{0, 24}, {24, 12}, {36, 12}},
       {75, 95, 90, 105, 100, 105},
       {90, 105, 100, 105}},
  };
  for (const CasPoutres& c : cas) {
    SCOPED_TRACE(c.nom);
    Banc b;
    b.doc.setMesureSignature(1, c.signature, c.signature == 8 ? 8 : 4);
    for (const auto& [x, durée] : c.notes)
      note(b.doc, 1, 3, x, 2, durée);
    b.r.drawInLine();
    const auto xs = [&b](int y) {
      std::vector<double> l;
      for (const Primitive& p : b.surface.select([y](const Primitive& p) {
             return p.kind == K::Segment && p.y1 == y && p.y2 == y && p.x1 > 50;
           }))
        l.insert(l.end(), {p.x1, p.x2});
      return l;
    };
    EXPECT_EQ(xs(foot), c.pied);
    EXPECT_EQ(xs(foot - 1), c.pied) << "two pixels thick";
    EXPECT_EQ(xs(foot - 4), c.second);
    EXPECT_TRUE(xs(foot - 8).empty());
  }
}

TEST(Beams, TripletsAndDotsAreMarkedUnderTheStem) {
  Banc b;
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
