// The staff: spellings, accidentals in a key, clefs, drums, ledger lines,
// heads, stems and the rests of silent stretches.
#include <gtest/gtest.h>

#include "banc.h"
#include "showcase.h"

namespace vt {
namespace {

using test::Banc;
using test::note;
using K = Primitive::Kind;
namespace pt = portee;

constexpr int kBase = 274;  // two staff spaces above the top line at 290
int y0De(int u) { return (u + 12) * 4 - 4 + kBase; }

TEST(Spelling, TwelvePitchClassesOnlySharps) {
  EXPECT_EQ(graphie(64).u, -7);  // sounding E4, written in the top space
  EXPECT_EQ(graphie(64).lettre, kMi);
  EXPECT_EQ(graphie(52).u, 0);  // the bottom line
  const int lettres[] = {kDo, kDo, kRé, kRé, kMi, kFa, kFa, kSol, kSol, kLa, kLa, kSi};
  const int pas[] = {30, 30, 29, 29, 28, 27, 27, 26, 26, 25, 25, 24};
  for (int pc = 0; pc < 12; ++pc) {
    const Graphie g = graphie(60 + pc);
    EXPECT_EQ(g.lettre, lettres[pc]) << pc;
    EXPECT_EQ(g.u, pas[pc] - 35) << pc;
    EXPECT_EQ(g.dièse, pc == 1 || pc == 3 || pc == 6 || pc == 8 || pc == 10) << pc;
  }
}

TEST(Spelling, KeySignaturesSetTheAlterationTable) {
  const Altérations ré = altérationsDeTonalité(2);  // F and C sharp
  EXPECT_EQ(ré[kFa], 1);
  EXPECT_EQ(ré[kDo], 1);
  EXPECT_EQ(ré[kSol], 0);
  const Altérations fa = altérationsDeTonalité(-1);  // B flat
  EXPECT_EQ(fa[kSi], -1);
  EXPECT_EQ(fa[kMi], 0);
  const Altérations dob = altérationsDeTonalité(-7);
  for (const i16 v : dob) EXPECT_EQ(v, -1);
}

TEST(Staff, FMajorWritesBFlatAsASharpAndHoldsAccidentalsToTheBarEnd) {
  Banc b;
  b.doc.setMesureTonalitéDétails(1, -1, kVrai);
  note(b.doc, 1, 3, 0, 3, 48);   // B flat 3 (58): an A with a sharp
  note(b.doc, 1, 3, 48, 4, 48);  // B 3: a natural
  note(b.doc, 1, 3, 96, 4, 48);  // B 3 again: nothing more
  b.r.drawInLine();
  const auto dièses = b.blits(pt::kDièse);
  ASSERT_EQ(dièses.size(), 1U);
  EXPECT_EQ(dièses[0].x1, 75 - 13);
  EXPECT_EQ(dièses[0].y1, y0De(25 - 28));  // A4 written
  const auto bécarres = b.blits(pt::kBécarre);
  ASSERT_EQ(bécarres.size(), 1U);
  EXPECT_EQ(bécarres[0].x1, 115 - 10);
  EXPECT_EQ(bécarres[0].y1, y0De(24 - 28));
  EXPECT_EQ(bécarres[0].rop, RasterOp::SrcAnd);
  // The key itself shows the flat, on the middle line's staff step.
  const auto bémols = b.blits(pt::kBémol);
  ASSERT_EQ(bémols.size(), 1U);
  EXPECT_EQ(bémols[0].x1, 35 + 4);
  EXPECT_EQ(bémols[0].y1, kBase + 2 + 6 * 4);
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

TEST(Staff, BassClefShiftsTwelveSteps) {
  Banc b;
  b.doc.setPortéeClef(1, 2);
  note(b.doc, 1, 6, 0, 0, 48);  // MIDI 40: u = 28 - 21 - 12 = -5
  b.r.drawInLine();
  const auto têtes = b.blits(pt::kTêtePleine);
  ASSERT_EQ(têtes.size(), 1U);
  EXPECT_EQ(têtes[0].y1, y0De(-5));
  EXPECT_EQ(têtes[0].x1, 75 - 4);
  const auto clefs = b.blits(pt::kCléFa);
  ASSERT_EQ(clefs.size(), 1U);
  EXPECT_EQ(clefs[0].x1, 5);
  EXPECT_EQ(clefs[0].y1, kBase + 17);
  EXPECT_TRUE(b.blits(pt::kCléSol).empty());
}

TEST(Staff, DrumsStandByTheirTable) {
  Banc b;
  b.doc.setStaffType(1, kStaffBatterie);
  note(b.doc, 1, 6, 0, 39, 48);  // not in the table: the bottom line
  note(b.doc, 1, 5, 48, 38, 48);  // snare
  note(b.doc, 1, 1, 96, 49, 48);  // crash, above the staff
  b.r.drawInLine();
  const auto têtes = b.blits(pt::kTêtePleine);
  ASSERT_EQ(têtes.size(), 3U);
  std::vector<double> ys;
  for (const Primitive& p : têtes) ys.push_back(p.y1);
  std::sort(ys.begin(), ys.end());
  EXPECT_EQ(ys[0], y0De(-10));
  EXPECT_EQ(ys[1], y0De(-5));
  EXPECT_EQ(ys[2], y0De(0));
  EXPECT_TRUE(b.blits(pt::kDièse).empty());
  EXPECT_EQ(getNbUnitesFromStaffLowLineForDrums(39), 0);
  EXPECT_EQ(getNbUnitesFromStaffLowLineForDrums(37), 2);
  EXPECT_EQ(getNbUnitesFromStaffLowLineForDrums(52), -13);
}

TEST(Staff, LedgerLinesAboveAndBelow) {
  Banc b;
  note(b.doc, 1, 1, 0, 5, 48);   // A4 sounding (69): u = -10, one line above
  note(b.doc, 1, 5, 96, 3, 48);  // C3 sounding (48): u = 2, one line below
  b.r.drawInLine();
  const auto ledger = b.surface.select([](const Primitive& p) {
    return p.kind == K::DeviceLine && p.x2 - p.x1 == 12 && p.y1 == p.y2;
  });
  ASSERT_EQ(ledger.size(), 2U);
  EXPECT_EQ(ledger[0].x1, 75 - 6);
  EXPECT_EQ(ledger[0].y1, kBase + 8);   // a staff space above the top line
  EXPECT_EQ(ledger[1].x1, 155 - 6);
  EXPECT_EQ(ledger[1].y1, kBase + 56);  // a staff space below the bottom line
}

TEST(Staff, HeadsDotsAndWholeNotes) {
  Banc b;
  note(b.doc, 1, 3, 0, 0, 144);
  note(b.doc, 1, 3, 144, 0, 48);
  b.doc.addMesure();
  note(b.doc, 2, 3, 0, 0, 192);
  b.r.drawInLine();
  EXPECT_EQ(b.blits(pt::kTêteBlanche).size(), 1U);
  EXPECT_EQ(b.blits(pt::kTêtePleine).size(), 1U);
  EXPECT_EQ(b.blits(pt::kTêteRonde).size(), 1U);
  const auto points = b.blits(pt::kPoint);
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
    const auto surLaPortée = [](const Primitive& p) { return p.y1 > 250; };
    const auto points =
        b.surface.select([&](const Primitive& p) { return p.kind == K::Circle && surLaPortée(p); });
    ASSERT_EQ(points.size(), c.point ? 1U : 0U);
    if (c.point) {
      EXPECT_EQ(points[0].x1, 75 + 3);
      EXPECT_EQ(points[0].y1, pied + 13);
      EXPECT_EQ(points[0].x2, 1);  // the tablature's dot, a radius of 1
    }
    std::vector<Primitive> trois;
    for (const Primitive& p : b.surface.texts("3"))
      if (surLaPortée(p)) trois.push_back(p);
    ASSERT_EQ(trois.size(), c.trois ? 1U : 0U);
    if (c.trois) {
      EXPECT_EQ(test::centreX(trois[0]), 75 + 3);
      EXPECT_EQ(test::centreY(trois[0]), pied + 13);
    }
  }
}

TEST(Staff, StemsOfABeatReachOneHeight) {
  Banc b;
  note(b.doc, 1, 2, 0, 0, 24);   // B3 (59)
  note(b.doc, 1, 3, 24, 0, 24);  // G3 (55)
  b.r.drawInLine();
  const auto tiges = b.surface.select([](const Primitive& p) {
    return p.kind == K::DeviceLine && p.x1 == p.x2 && p.y1 > 250 && p.y2 < p.y1;
  });
  ASSERT_EQ(tiges.size(), 2U);
  EXPECT_EQ(tiges[0].x1, 75 + 3);
  EXPECT_EQ(tiges[1].x1, 95 + 3);
  // The highest pitch, 59, sets the tip: ((59 div 12) * -7 + 33) * 4 - 3 + base.
  const int pointe = (4 * -7 + 33) * 4 - 3 + kBase;
  EXPECT_EQ(tiges[0].y2, pointe);
  EXPECT_EQ(tiges[1].y2, pointe);
  EXPECT_EQ(getTempsPortéeMaxMinNote(b.doc, 1, 1, 3, 1, true), 59);
}

TEST(Staff, AChordHasOneStemThroughItsHeads) {
  Banc b;
  note(b.doc, 1, 1, 0, 0, 48);
  note(b.doc, 1, 3, 0, 0, 48);
  note(b.doc, 1, 5, 0, 0, 48);
  b.r.drawInLine();
  const auto tiges = b.surface.select([](const Primitive& p) {
    return p.kind == K::DeviceLine && p.x1 == 78 && p.x2 == 78;
  });
  ASSERT_EQ(tiges.size(), 2U);  // from the lowest head to the top one, then on up
  EXPECT_EQ(tiges[0].y1, y0De(25 - 21) + 1);
  EXPECT_EQ(tiges[0].y2, y0De(-7) + 1);
  EXPECT_EQ(tiges[1].y1, y0De(-7) + 1);
  EXPECT_EQ(tiges[1].y2, y0De(-7) + 1 - 24);
}

struct Rests : ::testing::Test {
  Banc b;
  std::vector<Primitive> pauses() {
    return b.surface.select([](const Primitive& p) {
      return p.kind == K::Blit && p.ys == 10;
    });
  }
};

TEST_F(Rests, ARunOfSeventyTwoTicksIsAQuarterThenAnEighth) {
  note(b.doc, 1, 3, 0, 0, 48);
  note(b.doc, 1, 3, 120, 0, 72);
  b.r.drawNotePortéeSilences(1, 1);
  const auto p = pauses();
  ASSERT_EQ(p.size(), 2U);
  EXPECT_EQ(p[0].xs, pt::kSoupir.x);
  EXPECT_EQ(p[1].xs, pt::kDemiSoupir.x);
  // Each at the middle of what is left of the run, from 48 to 120.
  EXPECT_EQ(p[0].x1, (84 * 20) / 24 + 55);
  EXPECT_EQ(p[1].x1, (108 * 20) / 24 + 55);
  EXPECT_EQ(p[0].y1, 290 + 8);
}

TEST_F(Rests, AnEmptyFiveEightBarRoundsItsRunDown) {
  b.doc.setMesureSignature(1, 5, 8);
  b.r.drawNotePortéeSilences(1, 1);
  const auto p = pauses();
  ASSERT_EQ(p.size(), 1U);  // 120 ticks round down to 96: a half rest
  EXPECT_EQ(p[0].xs, pt::kPauseBlanche.x);
  EXPECT_EQ(p[0].x1, 60 * 20 / 24 + 55);
}

TEST_F(Rests, AnEmptyFourFourBarHasAWholeRestAndShortGapsNone) {
  b.r.drawNotePortéeSilences(1, 1);
  ASSERT_EQ(pauses().size(), 1U);
  EXPECT_EQ(pauses()[0].xs, pt::kPauseRonde.x);
  b.surface.clearRecord();
  note(b.doc, 1, 1, 0, 0, 188);  // leaves 4 ticks: below the shortest rest
  b.r.drawNotePortéeSilences(1, 1);
  EXPECT_TRUE(pauses().empty());
}

TEST(Staff, TheShowcaseHasEveryKindOfSign) {
  Banc b;
  b.doc = test::showcaseDocument();
  b.surface = RecordingSurface(1920, 420);
  b.r.drawInLine();
  for (const pt::Cellule& c : {pt::kDièse, pt::kBémol, pt::kBécarre, pt::kTêtePleine, pt::kPoint,
                               pt::kTêteBlanche, pt::kCléSol, pt::kPauseBlanche, pt::kDemiSoupir})
    EXPECT_FALSE(b.blits(c).empty()) << c.x << "," << c.y;
  for (const Primitive& p : b.surface.ofKind(K::Blit)) EXPECT_EQ(p.rop, RasterOp::SrcAnd);
}

}  // namespace
}  // namespace vt
