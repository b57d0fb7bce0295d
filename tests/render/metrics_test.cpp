#include <gtest/gtest.h>

#include "render/strip_metrics.h"

namespace vt {
namespace {

struct Metrics : ::testing::Test {
  CVantoroTablature doc;
  TabSettings s;
  StripMetrics m{doc, s};
};

TEST_F(Metrics, FourFourBarIsTwoHundredPixelsAndBarsFollowTheScroll) {
  for (int i = 0; i < 3; ++i) doc.addMesure();
  EXPECT_EQ(m.largeurMesure(1), 200);
  EXPECT_EQ(m.getMesurePixel(1), 55);
  EXPECT_EQ(m.getMesurePixel(3), 455);
  EXPECT_EQ(m.barreGaucheX(3), 435);
  doc.m_lngScrollValue = 3;
  EXPECT_EQ(m.getMesurePixel(3), 55);
  EXPECT_EQ(m.getMesurePixel(4), 255);
  EXPECT_EQ(m.getTablatureLargeur(1, 4), 4 * 192);
  EXPECT_EQ(m.getTablatureLargeur(3, 2), 0);
}

TEST_F(Metrics, FiveEightAtScaleFortyEightLosesItsPartialColumn) {
  doc.setMesureSignature(1, 5, 8);
  s.setViewMode(1, false);
  EXPECT_EQ(s.TAB_VIEW_SCALE, 48);
  EXPECT_EQ(m.largeurMesure(1), 80);
  // Tick 96 has a column; tick 100 shares it, the last 24 ticks have none of their own.
  EXPECT_EQ(m.colonneNote(1, 96), 55 + 40 + 20);
  EXPECT_EQ(m.colonneNote(1, 100), 55 + 41 + 20);
}

TEST_F(Metrics, NoteAndEffectColumnsDifferOnlyByTheirLastTerm) {
  doc.addMesure();
  EXPECT_EQ(m.colonneNote(2, 48), 255 + 40 + 20);
  s.TAB_VIEW_INTER_MESURE = 15;
  EXPECT_EQ(m.colonneEffet(2, 48) - m.colonneNote(2, 48), 15 - 20);
  EXPECT_EQ(m.longueur(48), 40);
}

TEST_F(Metrics, TheProductOfALateTickWrapsAtSixteenBits) {
  // 2000 * 20 = 40000 wraps to -25536, and the division truncates towards zero.
  EXPECT_EQ(m.colonneNote(1, 2000), 55 + (-25536 / 24) + 20);
}

TEST_F(Metrics, StringAndStaffRows) {
  EXPECT_EQ(m.cordeY(1), 140);
  EXPECT_EQ(m.cordeY(6), 140 + 65);
  EXPECT_EQ(m.porteeLigneY(0), 290);
  EXPECT_EQ(m.porteeLigneY(4), 322);
  EXPECT_EQ(m.porteeBase(), 274);
  EXPECT_TRUE(s.portéeEnDessous());
  s.TAB_VIEW_MARGIN_TOP_TAB = 150;
  s.TAB_VIEW_MARGIN_TOP_PORTEE = 0;
  EXPECT_FALSE(s.portéeEnDessous());
  EXPECT_EQ(m.cordeY(1), 290);
  EXPECT_EQ(m.porteeLigneY(0), 140);
}

TEST_F(Metrics, BarsOnScreenCountWholeBarsOnly) {
  for (int i = 0; i < 9; ++i) doc.addMesure();
  EXPECT_EQ(m.getMesureOnScreen(1, 1000), 4);   // 55 + 4 * 200 = 855, a fifth ends at 1055
  EXPECT_EQ(m.getMesureOnScreen(1, 1055), 5);
  EXPECT_EQ(m.getMesureOnScreen(9, 5000), 2);   // not beyond the last bar
  EXPECT_EQ(m.getMesureOnScreen(1, 200), 0);    // narrower than one bar
}

TEST_F(Metrics, StringFromY) {
  EXPECT_EQ(m.cordeFromY(0, 6), 1);
  EXPECT_EQ(m.cordeFromY(145.9, 6), 1);
  EXPECT_EQ(m.cordeFromY(146, 6), 2);  // the boundaries fall 6 pixels under each string
  EXPECT_EQ(m.cordeFromY(158, 6), 2);
  EXPECT_EQ(m.cordeFromY(159, 6), 3);
  EXPECT_EQ(m.cordeFromY(205, 6), 6);
  EXPECT_EQ(m.cordeFromY(380, 6), 6);
  EXPECT_EQ(m.cordeFromY(380, 4), 4);
}

TEST_F(Metrics, TickFromXSnapsToTheColumnItHits) {
  doc.addMesure();
  doc.setCurseurMesure(2);
  const int px = m.getMesurePixel(2);  // 255: the column of tick 0 is at 275
  EXPECT_EQ(m.tickFromX(40), 0);       // left of the first bar
  EXPECT_EQ(m.tickFromX(px + 20), 0);
  EXPECT_EQ(m.tickFromX(px + 29), 0);
  EXPECT_EQ(m.tickFromX(px + 30), 24);  // round(30 - 10) div 20 = 1
  EXPECT_EQ(m.tickFromX(px + 45), 24);
  EXPECT_EQ(m.tickFromX(px + 5000), 192 - 24);  // one column short of the next bar
  EXPECT_EQ(m.mesureFromX(10), 1);
  EXPECT_EQ(m.mesureFromX(234), 1);
  EXPECT_EQ(m.mesureFromX(235), 2);  // from the bar's left bar line on
  EXPECT_EQ(m.mesureFromX(5000), 2);
}

TEST(ViewMode, ScalesTripletsAndTheCursorSnap) {
  EXPECT_EQ(viewModeScale(1, false), 48);
  EXPECT_EQ(viewModeScale(2, false), 24);
  EXPECT_EQ(viewModeScale(3, false), 12);
  EXPECT_EQ(viewModeScale(4, false), 6);
  EXPECT_EQ(viewModeScale(1, true), 32);
  EXPECT_EQ(viewModeScale(2, true), 16);
  EXPECT_EQ(viewModeScale(3, true), 8);
  EXPECT_EQ(viewModeScale(4, true), 4);
  EXPECT_EQ(snapCurseurX(32, 24), 24);
  EXPECT_EQ(snapCurseurX(96, 32), 96);
}

TEST(PrintMetrics, ScaledWithRoundingHalfToEven) {
  TabSettings s;
  PrintMetrics p = derivePrintMetrics(s);
  EXPECT_EQ(p.PRN_VIEW_MARGIN_LEFT, 105);
  EXPECT_EQ(p.PRN_VIEW_INTER_STRINGS, 39);
  EXPECT_EQ(p.PRN_VIEW_INTER_PORTEE, 12);
  EXPECT_EQ(p.PRN_VIEW_MARGIN_TOP_TAB, 288);  // 3 * (12 * 8): scaled twice
  EXPECT_EQ(p.PRN_VIEW_MARGIN_TOP_PORTEE, 0);
  s.cfgPrintFactor = 2.5F;
  p = derivePrintMetrics(s);
  EXPECT_EQ(p.PRN_VIEW_INTER_STRINGS, 32);  // 32.5
  EXPECT_EQ(p.PRN_VIEW_MARGIN_LEFT, 88);    // 87.5
  EXPECT_EQ(p.PRN_VIEW_INTER_PORTEE, 10);
  EXPECT_EQ(p.PRN_VIEW_MARGIN_TOP_TAB, 200);
  s.cfgPrintPortée = false;
  EXPECT_EQ(derivePrintMetrics(s).PRN_VIEW_MARGIN_TOP_TAB, 0);
}

TEST(PageMetrics, SignatureRoomComparesTheDenominatorWithTheNumerator) {
  CVantoroTablature doc;
  for (int i = 0; i < 5; ++i) doc.addMesure();
  PrintMetrics p;
  p.PRN_VIEW_INTER_NOTE = 60;
  EXPECT_EQ(getOnPageLargeurSignature(doc, p, 1, 1), 60);
  EXPECT_EQ(getOnPageLargeurSignature(doc, p, 2, 1), 0);  // 4/4 after 4/4
  EXPECT_EQ(getOnPageLargeurSignature(doc, p, 3, 3), 60);  // head of a system
  doc.setMesureSignature(4, 6, 8);
  doc.setMesureSignature(5, 6, 8);
  EXPECT_EQ(getOnPageLargeurSignature(doc, p, 5, 1), 60);  // a run of 6/8 keeps its room
  doc.setMesureTonalitéDétails(5, -3, kVrai);
  EXPECT_EQ(getOnPageLargeurTonalité(doc, p, 5, 1), 3 * 60 / 5);
  EXPECT_EQ(getOnPageLargeurTonalité(doc, p, 2, 1), 0);
  EXPECT_EQ(getOnPageLargeurTonalité(doc, p, 6, 1), 0);
}

TEST(PageMetrics, TwipsToDevicePixels) {
  PageDevice preview{false, 9000, 6000, 3000, 2000};
  EXPECT_EQ(setTwipPosToPixelPosX(300, preview), 60);  // 9000 * 300 / 3000 / 15
  EXPECT_EQ(setTwipPosToPixelPosY(100, preview), 20);
  PageDevice printer{true, 0, 0, 1, 1};
  EXPECT_EQ(setTwipPosToPixelPosX(1234, printer), 1234);
}

}  // namespace
}  // namespace vt
