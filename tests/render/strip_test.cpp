// The tablature strip through the recording surface: strings, bar lines,
// signatures, texts, notes, attacks, stems, beams, and every effect code's
// shape (the ones that link to the next note on the string draw nothing
// without one).
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

TEST(Strip, StringsRunFromTheMarginWithTheirNamesAndBarLinesStandWhereTheMetricsPutThem) {
  Banc b;
  for (int i = 0; i < 3; ++i)
    b.doc.addMesure();
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
  b.doc.setStaffType(1, kStaffBatterie);
  b.surface.clearRecord();
  b.r.drawInLine();
  EXPECT_FALSE(
      b.surface.select([](const Primitive& p) { return test::estVerticale(p, 235) && p.y2 == 205; })
          .empty());
  EXPECT_TRUE(b.surface.ofKind(K::Blit).empty());
  EXPECT_EQ(noms(), (std::vector<std::string>{"P", "RC", "CC", "HH", "T", "SD"}));
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

TEST(Strip, TempoIsRedTextsSplitAtBackslashNNoteTextsGhostsDeadNotesAndTheFontBox) {
  Banc b;
  b.s.cfgBackColor = kRouge;
  b.doc.setMesureTempo(1, 48, 132);
  b.doc.setMesureTexte(1, 1, 24, "a\\nb", kVrai);
  b.doc.setMesureTexte(1, 1, 0, "bas", kFaux);
  note(b.doc, 1, 2, 48, 12, 48);
  note(b.doc, 1, 3, 96, 5, 48, 0, 0, nuance::kMP);
  note(b.doc, 1, 4, 144, 7, 48, attaque::kDeadNote);
  b.doc.setNoteWhole(1, 1, 5, 0, kCaseVide, 48);  // a blank note draws no text
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
      {"12 beats: by quarter bars", {{0, 24}, {24, 24}}, {75, 95, 85, 95}, {}, 12},
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
  EXPECT_EQ(std::make_tuple(p[0].kind, p[0].x2, p[1].text, test::centreX(p[1]), test::centreY(p[1]),
                            p[1].state.fontTransparent),
            std::make_tuple(K::Arc, 255.0 + 20, std::string("H"), (55 + 120 + 20 + 255 + 20) / 2,
                            (2 - 3) * IS + T, true));
  note(b.doc, 1, 4, 0, 7, 24, 0, effet::kPullOff);
  note(b.doc, 1, 4, 24, 5, 24, 0, effet::kSlideUp);
  note(b.doc, 1, 4, 48, 7, 24, 0, effet::kSlideDown);
  note(b.doc, 1, 4, 72, 5, 24);
  EXPECT_EQ(dessine(4, 1)[1].text, "P");
  const auto montée = dessine(4, 2);
  const auto descente = dessine(4, 3);
  ASSERT_EQ(montée.size() + descente.size(), 2U);
  EXPECT_EQ(coins(montée[0]),
            q(55 + 20 + 20 + 10, (4 - 0.75) * IS + T, 55 + 40 + 20 - 10, (4 - 1.25) * IS + T));
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
  const auto bend = dessine(2, 1);
  const auto allerRetour = dessine(2, 2);
  const auto relâche = dessine(2, 3);
  const auto préBend = dessine(2, 4);
  EXPECT_EQ(
      (std::vector<std::size_t>{bend.size(), allerRetour.size(), relâche.size(), préBend.size()}),
      (std::vector<std::size_t>{3, 4, 3, 4}));
  ASSERT_EQ(std::make_tuple(bend[0].kind, allerRetour[1].kind, préBend[0].kind, préBend[1].kind),
            std::make_tuple(K::Arc, K::Arc, K::Segment, K::Arc));
  x = 75;
  EXPECT_EQ(coins(bend[0]), q(x - w, T - IS, x + w, T - 3 * IS));
  EXPECT_EQ(rayons(bend[0]), (Rayons{x, T - IS, x + w, T - 2 * IS}));
  EXPECT_EQ(std::make_pair(bend[1].x2 - bend[1].x1, bend[2].y2 - bend[2].y1),
            std::make_pair(-5.0, 5.0));
  x = 115;
  EXPECT_EQ((std::vector<double>{allerRetour[0].x1, allerRetour[1].x1, allerRetour[1].y1,
                                 double(allerRetour[1].xe)}),
            (std::vector<double>{double(x - w / 2), double(x), T, double(x + w / 2)}));
  EXPECT_EQ(rayons(relâche[0]), (Rayons{155 + w, T - IS, 155, T - 2 * IS}));
  EXPECT_EQ(coins(préBend[0]), q(195, T - 2 * IS, préBend[0].x2, T - IS));
}

TEST_F(Effects, VibratoTremoloTrillABlankNoteAndUnknownCodes) {
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
  EXPECT_EQ(std::make_tuple(trille[0].text, trille[0].state.font.italique, test::coin(trille[0])),
            std::make_tuple(std::string("tr"), true, test::coin(155, T - 2 * IS)));
  EXPECT_FALSE(b.surface.Font().italique);

  // An effect on a blank note stands alone: no "255", but its zigzag.
  b.doc.setNoteWhole(1, 1, 2, 48, kCaseVide, 48);
  b.doc.setNoteEffet(1, 1, 2, 1, effet::kVibrato);
  b.surface.clearRecord();
  b.r.drawInLine();
  EXPECT_TRUE(b.surface.texts("255").empty());
  EXPECT_EQ(b.surface
                .select([](const Primitive& p) {
                  return p.kind == K::Segment && p.y1 == T - IS && p.y2 == T - 2 * IS &&
                         p.x1 >= 115;
                })
                .size(),
            4U);
  // An unknown code: nothing, and the font box comes back.
  b.doc.setNoteEffet(1, 1, 1, 1, 26);
  b.surface.setFontTransparent(false);
  EXPECT_TRUE(dessine(1, 1).empty());
  EXPECT_EQ(b.surface.FontTransparent(), b.s.cfgFontTransparent);
}

}  // namespace
}  // namespace vt
