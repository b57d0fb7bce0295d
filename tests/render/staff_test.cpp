// The staff: spellings, accidentals in a key, clefs, drums, ledger lines,
// heads, stems and the rests of silent stretches.
#include <gtest/gtest.h>

#include "banc.h"
#include "showcase.h"

namespace vt {
namespace {

using test::Banc;
using test::coin;
using test::coins;
using test::note;
using test::q;
using K = Primitive::Kind;
namespace pt = portee;

constexpr int kBase = 274;  // two staff spaces above the top line at 290
constexpr int y0De(int u) {
  return (u + 12) * 4 - 4 + kBase;
}

TEST(Spelling, TwelvePitchClassesOnlySharpsAndTheKeysAlterationTable) {
  EXPECT_EQ(graphie(64).u, -7);  // sounding E4, written in the top space
  EXPECT_EQ(graphie(52).u, 0);   // the bottom line
  const int lettres[] = {kDo, kDo, kRé, kRé, kMi, kFa, kFa, kSol, kSol, kLa, kLa, kSi};
  const int pas[] = {30, 30, 29, 29, 28, 27, 27, 26, 26, 25, 25, 24};
  for (int pc = 0; pc < 12; ++pc) {
    const Graphie g = graphie(60 + pc);
    EXPECT_EQ(std::make_tuple(g.lettre, g.u, g.dièse),
              std::make_tuple(lettres[pc], pas[pc] - 35,
                              pc == 1 || pc == 3 || pc == 6 || pc == 8 || pc == 10))
        << pc;
  }
  const Altérations ré = altérationsDeTonalité(2);   // F and C sharp
  const Altérations fa = altérationsDeTonalité(-1);  // B flat
  const Altérations dob = altérationsDeTonalité(-7);
  EXPECT_EQ((std::vector<int>{ré[kFa], ré[kDo], ré[kSol], fa[kSi], fa[kMi]}),
            (std::vector<int>{1, 1, 0, -1, 0}));
  EXPECT_TRUE(std::all_of(dob.begin(), dob.end(), [](i16 v) { return v == -1; }));
}

TEST(Staff, FMajorWritesBFlatAsASharpAndHoldsAccidentalsToTheBarEnd) {
  Banc b;
  b.doc.setMesureTonalitéDétails(1, -1, kVrai);
  note(b.doc, 1, 3, 0, 3, 48);   // B flat 3 (58): an A with a sharp
  note(b.doc, 1, 3, 48, 4, 48);  // B 3: a natural
  note(b.doc, 1, 3, 96, 4, 48);  // B 3 again: nothing more
  b.r.drawInLine();
  const auto dièses = b.blits(pt::kDièse);
  const auto bécarres = b.blits(pt::kBécarre);
  const auto bémols = b.blits(pt::kBémol);  // the key's own, on the middle line's step
  ASSERT_EQ(std::make_tuple(dièses.size(), bécarres.size(), bémols.size()),
            std::make_tuple(1U, 1U, 1U));
  EXPECT_EQ(coin(dièses[0]), coin(75 - 13, y0De(25 - 28)));  // A4 written
  EXPECT_EQ(coin(bécarres[0]), coin(115 - 10, y0De(24 - 28)));
  EXPECT_EQ(bécarres[0].rop, RasterOp::SrcAnd);
  EXPECT_EQ(coin(bémols[0]), coin(35 + 4, kBase + 2 + 6 * 4));
}

TEST(Staff, AccidentalsFollowStringOrderNotTime) {
  Banc b;
  note(b.doc, 1, 2, 96, 0, 48);    // B3 (59)
  note(b.doc, 1, 3, 0, 3, 48);     // A sharp 3 (58), first in time but on string 3
  note(b.doc, 1, 2, 144, 11, 48);  // A sharp 4 (70)
  b.r.drawInLine();
  // String 2 is drawn first: its A sharp 4 takes the sharp; string 3's A sharp 3,
  // though it sounds first, finds the sharp in force and gets none.
  const auto dièses = b.blits(pt::kDièse);
  ASSERT_EQ(dièses.size(), 1U);
  EXPECT_EQ(dièses[0].x1, 55 + 120 + 20 - 13);
}

TEST(Staff, BassClefShiftsTwelveStepsAndDrumsStandByTheirTable) {
  Banc b;
  b.doc.setPortéeClef(1, 2);
  note(b.doc, 1, 6, 0, 0, 48);  // MIDI 40: u = 28 - 21 - 12 = -5
  b.r.drawInLine();
  const auto têtes = b.blits(pt::kTêtePleine);
  ASSERT_EQ(têtes.size(), 1U);
  EXPECT_EQ(coin(têtes[0]), coin(75 - 4, y0De(-5)));
  const auto clefs = b.blits(pt::kCléFa);
  ASSERT_EQ(clefs.size(), 1U);
  EXPECT_EQ(coin(clefs[0]), coin(5, kBase + 17));
  EXPECT_TRUE(b.blits(pt::kCléSol).empty());

  Banc d;
  d.doc.setStaffType(1, kStaffBatterie);
  note(d.doc, 1, 6, 0, 39, 48);   // not in the table: the bottom line
  note(d.doc, 1, 5, 48, 38, 48);  // snare
  note(d.doc, 1, 1, 96, 49, 48);  // crash, above the staff
  d.r.drawInLine();
  std::vector<double> ys;
  for (const Primitive& p : d.blits(pt::kTêtePleine))
    ys.push_back(p.y1);
  std::sort(ys.begin(), ys.end());
  EXPECT_EQ(ys, (std::vector<double>{y0De(-10), y0De(-5), y0De(0)}));
  EXPECT_TRUE(d.blits(pt::kDièse).empty());
  EXPECT_EQ((std::vector<int>{getNbUnitesFromStaffLowLineForDrums(39),
                              getNbUnitesFromStaffLowLineForDrums(37),
                              getNbUnitesFromStaffLowLineForDrums(52)}),
            (std::vector<int>{0, 2, -13}));
}

TEST(Staff, LedgerLinesHeadsAndDots) {
  Banc b;
  note(b.doc, 1, 1, 0, 5, 48);   // A4 sounding (69): u = -10, one line above
  note(b.doc, 1, 5, 96, 3, 48);  // C3 sounding (48): u = 2, one line below
  b.r.drawInLine();
  const auto ledger = b.surface.select([](const Primitive& p) {
    return p.kind == K::DeviceLine && p.x2 - p.x1 == 12 && p.y1 == p.y2;
  });
  ASSERT_EQ(ledger.size(), 2U);
  EXPECT_EQ(coin(ledger[0]), coin(75 - 6, kBase + 8));
  EXPECT_EQ(coin(ledger[1]), coin(155 - 6, kBase + 56));

  Banc h;
  note(h.doc, 1, 3, 0, 0, 144);
  note(h.doc, 1, 3, 144, 0, 48);
  h.doc.addMesure();
  note(h.doc, 2, 3, 0, 0, 192);
  h.r.drawInLine();
  EXPECT_EQ(
      (std::vector<std::size_t>{h.blits(pt::kTêteBlanche).size(), h.blits(pt::kTêtePleine).size(),
                                h.blits(pt::kTêteRonde).size()}),
      (std::vector<std::size_t>{1, 1, 1}));
  const auto points = h.blits(pt::kPoint);
  ASSERT_EQ(points.size(), 1U);
  EXPECT_EQ(points[0].x1, 75 + 5);
}

TEST(Staff, DotsAndTripletsAreMarkedUnderTheHeadAsOnTheTablature) {
  // G3 (55) on string 3: u = -2, the stem's foot a pixel under the head's top.
  const int pied = y0De(-2) + 1;
  const struct {
    int durée;
    bool point, trois;
  } kCas[] = {{72, true, false}, {36, true, false},  {16, false, true},
              {32, false, true}, {48, false, false}, {128, false, false}};
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.durée);
    Banc b;
    note(b.doc, 1, 3, 0, 0, c.durée);
    b.r.drawInLine();
    // The tablature's dot, a radius of 1, and its 3, both on the staff.
    std::vector<test::Quatre> points, trois;
    for (const Primitive& p : b.surface.ofKind(K::Circle))
      if (p.y1 > 250) points.push_back(coins(p));
    for (const Primitive& p : b.surface.texts("3"))
      if (p.y1 > 250) trois.push_back(q(test::centreX(p), test::centreY(p), 0, 0));
    EXPECT_EQ(points,
              c.point ? std::vector{q(75 + 3, pied + 13, 1, 0)} : std::vector<test::Quatre>{});
    EXPECT_EQ(trois,
              c.trois ? std::vector{q(75 + 3, pied + 13, 0, 0)} : std::vector<test::Quatre>{});
  }
}

TEST(Staff, StemsOfABeatReachOneHeightAndAChordHasOneStem) {
  Banc b;
  note(b.doc, 1, 2, 0, 0, 24);   // B3 (59)
  note(b.doc, 1, 3, 24, 0, 24);  // G3 (55)
  b.r.drawInLine();
  const auto tiges = b.surface.select([](const Primitive& p) {
    return p.kind == K::DeviceLine && p.x1 == p.x2 && p.y1 > 250 && p.y2 < p.y1;
  });
  ASSERT_EQ(tiges.size(), 2U);
  // The highest pitch, 59, sets the tip: ((59 div 12) * -7 + 33) * 4 - 3 + base.
  const int pointe = (4 * -7 + 33) * 4 - 3 + kBase;
  EXPECT_EQ(coins(tiges[0]), q(75 + 3, tiges[0].y1, 75 + 3, pointe));
  EXPECT_EQ(coins(tiges[1]), q(95 + 3, tiges[1].y1, 95 + 3, pointe));
  EXPECT_EQ(getTempsPortéeMaxMinNote(b.doc, 1, 1, 3, 1, true), 59);

  Banc a;
  for (const int c : {1, 3, 5})
    note(a.doc, 1, c, 0, 0, 48);
  a.r.drawInLine();
  // From the lowest head to the top one, then on up.
  const auto accord = a.surface.select(
      [](const Primitive& p) { return p.kind == K::DeviceLine && p.x1 == 78 && p.x2 == 78; });
  ASSERT_EQ(accord.size(), 2U);
  EXPECT_EQ(coins(accord[0]), q(78, y0De(25 - 21) + 1, 78, y0De(-7) + 1));
  EXPECT_EQ(coins(accord[1]), q(78, y0De(-7) + 1, 78, y0De(-7) + 1 - 24));
}

// The rests drawn for the silent stretches of a bar: {cell x, x} each.
std::vector<std::pair<int, double>> pauses(Banc& b, int m) {
  b.surface.clearRecord();
  b.r.drawNotePortéeSilences(1, m);
  std::vector<std::pair<int, double>> l;
  for (const Primitive& p :
       b.surface.select([](const Primitive& p) { return p.kind == K::Blit && p.ys == 10; }))
    l.emplace_back(p.xs, p.x1);
  return l;
}

TEST(Rests, RunsAreSplitIntoRestsAndEmptyBarsRoundDown) {
  Banc b;
  const auto ronde = pauses(b, 1);
  ASSERT_EQ(ronde.size(), 1U);
  EXPECT_EQ(ronde[0].first, pt::kPauseRonde.x);
  note(b.doc, 1, 1, 0, 0, 188);  // leaves 4 ticks: below the shortest rest
  EXPECT_TRUE(pauses(b, 1).empty());
  // 72 ticks from 48 to 120: a quarter then an eighth, each at the middle of
  // what is left of the run.
  Banc r;
  note(r.doc, 1, 3, 0, 0, 48);
  note(r.doc, 1, 3, 120, 0, 72);
  EXPECT_EQ(pauses(r, 1),
            (std::vector<std::pair<int, double>>{{pt::kSoupir.x, (84 * 20) / 24 + 55},
                                                 {pt::kDemiSoupir.x, (108 * 20) / 24 + 55}}));
  EXPECT_EQ(r.surface.ofKind(K::Blit)[0].y1, 290 + 8);
  // 5/8: 120 ticks round down to 96, a half rest.
  r.doc.addMesure();
  r.doc.setMesureSignature(2, 5, 8);
  EXPECT_EQ(pauses(r, 2),
            (std::vector<std::pair<int, double>>{{pt::kPauseBlanche.x, 60 * 20 / 24 + 255}}));
}

}  // namespace
}  // namespace vt
