#include <gtest/gtest.h>

#include "render/strip_metrics.h"

namespace vt {
namespace {

struct Metrics : ::testing::Test {
  CVantoroTablature doc;
  TabSettings s;
  StripMetrics m{doc, s};
};

TEST_F(Metrics, BarsAndColumnsFollowTheScrollTheScaleAndTheSixteenBitWrap) {
  for (int i = 0; i < 9; ++i)
    doc.addMesure();
  // 55 + 4 * 200 = 855, a fifth ends at 1055; not beyond the last bar; none
  // on a strip narrower than one bar.
  std::vector<int> v{m.largeurMesure(1),           m.getMesurePixel(1),
                     m.getMesurePixel(3),          m.barreGaucheX(3),
                     m.getMesureOnScreen(1, 1000), m.getMesureOnScreen(1, 1055),
                     m.getMesureOnScreen(9, 5000), m.getMesureOnScreen(1, 200)};
  doc.m_lngScrollValue = 3;
  v.insert(v.end(), {m.getMesurePixel(3), m.getMesurePixel(4), m.getTablatureLargeur(1, 4),
                     m.getTablatureLargeur(3, 2)});
  EXPECT_EQ(v, (std::vector<int>{200, 55, 455, 435, 4, 5, 2, 0, 55, 255, 4 * 192, 0}));
  doc.m_lngScrollValue = 1;
  EXPECT_EQ(m.colonneNote(2, 48), 255 + 40 + 20);
  EXPECT_EQ(m.longueur(48), 40);
  // 2000 * 20 = 40000 wraps to -25536, and the division truncates towards zero.
  EXPECT_EQ(m.colonneNote(1, 2000), 55 + (-25536 / 24) + 20);
  // 5/8 at scale 48: tick 100 shares the column of 96, the last 24 ticks have none.
  doc.setMesureSignature(1, 5, 8);
  s.setViewMode(1, false);
  EXPECT_EQ(std::make_tuple(s.TAB_VIEW_SCALE, m.largeurMesure(1), m.colonneNote(1, 96),
                            m.colonneNote(1, 100)),
            std::make_tuple(48, 80, 55 + 40 + 20, 55 + 41 + 20));
  // Note and effect columns differ only by their last term.
  s.TAB_VIEW_INTER_MESURE = 15;
  EXPECT_EQ(m.colonneEffet(2, 48) - m.colonneNote(2, 48), 15 - 20);
  for (int mode = 1; mode <= 4; ++mode)
    EXPECT_EQ(std::make_pair(viewModeScale(mode, false), viewModeScale(mode, true)),
              std::make_pair(96 >> mode, 64 >> mode));
  EXPECT_EQ(std::make_pair(snapCurseurX(32, 24), snapCurseurX(96, 32)), std::make_pair(24, 96));
}

TEST_F(Metrics, StringAndStaffRowsAndTheStringUnderY) {
  EXPECT_EQ((std::vector<int>{m.cordeY(1), m.cordeY(6), m.porteeLigneY(0), m.porteeLigneY(4),
                              m.porteeBase()}),
            (std::vector<int>{140, 205, 290, 322, 274}));
  // The boundaries fall 6 pixels under each string.
  const struct {
    double y;
    int cordes, corde;
  } cas[] = {{0, 6, 1},   {145.9, 6, 1}, {146, 6, 2}, {158, 6, 2},
             {159, 6, 3}, {205, 6, 6},   {380, 6, 6}, {380, 4, 4}};
  for (const auto& c : cas)
    EXPECT_EQ(m.cordeFromY(c.y, c.cordes), c.corde) << c.y;
  EXPECT_TRUE(s.portéeEnDessous());
  s.TAB_VIEW_MARGIN_TOP_TAB = 150;
  s.TAB_VIEW_MARGIN_TOP_PORTEE = 0;
  EXPECT_FALSE(s.portéeEnDessous());
  EXPECT_EQ(std::make_pair(m.cordeY(1), m.porteeLigneY(0)), std::make_pair(290, 140));
}

TEST_F(Metrics, TickFromXSnapsToTheColumnItHits) {
  doc.addMesure();
  doc.setCurseurMesure(2);
  const int px = m.getMesurePixel(2);  // 255: the column of tick 0 is at 275
  // Left of the first bar, on the column, round(30 - 10) div 20 = 1, and one
  // column short of the next bar far to the right.
  const std::pair<int, int> ticks[] = {{40 - px, 0}, {20, 0},  {29, 0},
                                       {30, 24},     {45, 24}, {5000, 192 - 24}};
  for (const auto& [dx, tick] : ticks)
    EXPECT_EQ(m.tickFromX(px + dx), tick) << dx;
  const std::pair<int, int> mesures[] = {{10, 1}, {234, 1}, {235, 2}, {5000, 2}};
  for (const auto& [x, mesure] : mesures)
    EXPECT_EQ(m.mesureFromX(x), mesure) << x;
}

TEST(PrintMetrics, ScaledWithRoundingHalfToEven) {
  TabSettings s;
  const auto valeurs = [&s] {
    const PrintMetrics p = derivePrintMetrics(s);
    return std::vector<lng>{p.PRN_VIEW_MARGIN_LEFT, p.PRN_VIEW_INTER_STRINGS,
                            p.PRN_VIEW_INTER_PORTEE, p.PRN_VIEW_MARGIN_TOP_TAB,
                            p.PRN_VIEW_MARGIN_TOP_PORTEE};
  };
  // The top of the tablature is scaled twice: 3 * (12 * 8).
  EXPECT_EQ(valeurs(), (std::vector<lng>{105, 39, 12, 288, 0}));
  s.cfgPrintFactor = 2.5F;  // 87.5 and 32.5 go to the even neighbour
  EXPECT_EQ(valeurs(), (std::vector<lng>{88, 32, 10, 200, 0}));
  s.cfgPrintPortée = false;
  EXPECT_EQ(derivePrintMetrics(s).PRN_VIEW_MARGIN_TOP_TAB, 0);
}

TEST(PageMetrics, SignatureAndKeyRoomAndTwipsToDevicePixels) {
  CVantoroTablature doc;
  for (int i = 0; i < 5; ++i)
    doc.addMesure();
  PrintMetrics p;
  p.PRN_VIEW_INTER_NOTE = 60;
  doc.setMesureSignature(4, 6, 8);
  doc.setMesureSignature(5, 6, 8);
  doc.setMesureTonalitéDétails(5, -3, kVrai);
  // The first bar, 4/4 after 4/4, the head of a system, a run of 6/8 keeping
  // its room; then the key's room.
  EXPECT_EQ((std::vector<lng>{
                getOnPageLargeurSignature(doc, p, 1, 1), getOnPageLargeurSignature(doc, p, 2, 1),
                getOnPageLargeurSignature(doc, p, 3, 3), getOnPageLargeurSignature(doc, p, 5, 1),
                getOnPageLargeurTonalité(doc, p, 5, 1), getOnPageLargeurTonalité(doc, p, 2, 1),
                getOnPageLargeurTonalité(doc, p, 6, 1)}),
            (std::vector<lng>{60, 0, 60, 60, 3 * 60 / 5, 0, 0}));
  // 9000 * 300 / 3000 / 15 on a preview; a printer takes twips as they are.
  const PageDevice preview{false, 9000, 6000, 3000, 2000};
  EXPECT_EQ(
      (std::vector<lng>{setTwipPosToPixelPosX(300, preview), setTwipPosToPixelPosY(100, preview),
                        setTwipPosToPixelPosX(1234, PageDevice{true, 0, 0, 1, 1})}),
      (std::vector<lng>{60, 20, 1234}));
}

}  // namespace
}  // namespace vt
