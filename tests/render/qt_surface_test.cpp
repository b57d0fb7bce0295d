// The QPainter backend: raster modes, blits, arcs, and a whole strip drawn
// offscreen. Pixels are checked where the geometry fixes them, never whole
// images that a font change would break.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <algorithm>
#include <functional>

#include "render/staff_source.h"
#include "render/strip_renderer.h"
#include "render_qt/painter_surface.h"
#include "render_qt/resources.h"
#include "render_qt/strip_image.h"
#include "showcase.h"

namespace vt {
namespace {

// The application of the whole binary, with the music font installed.
class AppGui : public ::testing::Environment {
  void SetUp() override {
    static int argc = 1;
    static char nom[] = "vt_render_qt_tests";
    static char* argv[] = {nom, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static auto* app = new QGuiApplication(argc, argv);
    (void)app;
    installeMusicalFont(QCoreApplication::applicationDirPath().toStdString() + "/");
  }
};
[[maybe_unused]] ::testing::Environment* const kAppGui =
    ::testing::AddGlobalTestEnvironment(new AppGui);

using QtSurface = ::testing::Test;

bool blanche(const QImage& image) {
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != qRgb(255, 255, 255)) return false;
  return true;
}

TEST_F(QtSurface, CursorAndSelectionShownThenHiddenLeaveWhiteUnchanged) {
  CVantoroTablature doc;
  doc.intSelStartMesure = 1;
  doc.intSelStopMesure = 1;
  doc.intSelStopX = 96;
  doc.bytSelStartCorde = 2;
  doc.bytSelStopCorde = 5;
  TabSettings s;
  PainterSurface surface(400, 300);
  tGuitare g;
  CStripRenderer r(doc, s, surface, g, &sourcePortée());
  surface.Cls();
  ASSERT_TRUE(blanche(surface.image()));
  r.curAffiche();
  const int x = 75;
  EXPECT_EQ(surface.image().pixel(x, 100), qRgb(127, 255, 255));      // the line
  EXPECT_EQ(surface.image().pixel(x - 5, 140), qRgb(127, 255, 255));  // the box
  EXPECT_EQ(surface.image().pixel(x - 15, 140), qRgb(255, 255, 255));
  r.curEfface();
  EXPECT_TRUE(blanche(surface.image()));
  r.selAffiche();
  EXPECT_EQ(surface.image().pixel(100, 170), qRgb(127, 255, 255));
  r.selEfface();
  EXPECT_TRUE(blanche(surface.image()));
}

// Shown over anything, the cursor and the selection give back every pixel when
// hidden, in either order: over the notes, the letters of effects and texts,
// the strings, the staff and its notes, as over white. Hiding where nothing is
// shown touches nothing.
TEST_F(QtSurface, ShowThenHideGivesBackEveryPixelOverInk) {
  CVantoroTablature doc = test::showcaseDocument();
  TabSettings s;
  PainterSurface surface(1000, 380);
  tGuitare g;
  CStripRenderer r(doc, s, surface, g, &sourcePortée());
  // The reference: the strip with the cursor in a bar not shown.
  doc.setCurseurMesure(static_cast<i16>(doc.getMesureLast()));
  ASSERT_GT(r.getMesurePixel(doc.getMesureLast()), surface.ScaleWidth());
  r.drawInLine();
  const QImage référence = surface.image().copy();
  r.curEfface();
  r.selEfface();
  ASSERT_EQ(surface.image(), référence) << "hiding what is not shown";

  const int nbMesures = r.getMesureOnScreen(1);
  ASSERT_GE(nbMesures, 3);
  int essais = 0;
  for (int m = 1; m <= nbMesures; ++m) {
    for (int x = 0; x < doc.getMesureLargeur(m); x += s.TAB_VIEW_SCALE) {
      for (int c = 1; c <= doc.getGuitareNbrCordes(1); ++c) {
        doc.setCurseurMesure(static_cast<i16>(m));
        doc.setCurseurX(static_cast<i16>(x));
        doc.setCurseurCorde(static_cast<byt>(c));
        // A selection from the cursor over two strings into the next bar.
        doc.intSelStartMesure = static_cast<i16>(m);
        doc.intSelStartX = static_cast<i16>(x);
        doc.bytSelStartCorde = static_cast<byt>(c);
        doc.intSelStopMesure = static_cast<i16>(m + 1);
        doc.intSelStopX = 0;
        doc.bytSelStopCorde = static_cast<byt>(std::min(c + 2, 6));
        const bool ordre = (essais++ % 2) == 0;
        r.curAffiche();
        r.selAffiche();
        ASSERT_NE(surface.image(), référence);
        if (ordre) {
          r.curEfface();
          r.selEfface();
        } else {
          r.selEfface();
          r.curEfface();
        }
        ASSERT_EQ(surface.image(), référence) << "bar " << m << ", tick " << x << ", string " << c
                                              << (ordre ? "" : ", selection first");
      }
    }
  }
  // Something drawn over a shown cursor stays when the cursor goes.
  doc.setCurseurMesure(1);
  doc.setCurseurX(0);
  r.curAffiche();
  const int xLigne = r.getMesurePixel(1) + s.TAB_VIEW_INTER_NOTE;
  surface.setForeColor(kRouge);
  surface.Line(0, 60, 999, 60);
  r.curEfface();
  EXPECT_EQ(surface.image().pixel(xLigne, 60), qRgb(255, 0, 0));
  EXPECT_EQ(surface.image().pixel(xLigne, 100), référence.pixel(xLigne, 100));
}

TEST_F(QtSurface, SourceAndBlitLeavesTheGroundWhereTheSourceIsWhite) {
  const QImageSource& source = sourcePortée();
  EXPECT_EQ(source.width(), portee::kLargeurSource);
  EXPECT_EQ(source.height(), portee::kHauteurSource);
  PainterSurface surface(60, 60);
  surface.setBackColor(rgb(200, 40, 40));
  surface.Cls();
  const portee::Cellule& c = portee::kTêtePleine;
  surface.BitBlt(10, 10, c.w, c.h, source, c.x, c.y, RasterOp::SrcAnd);
  // The head's centre is ink; the cell's white corner keeps the red ground.
  EXPECT_EQ(surface.image().pixel(10 + 4, 10 + 4), qRgb(0, 0, 0));
  EXPECT_EQ(surface.image().pixel(10, 10), qRgb(200, 40, 40));
  EXPECT_EQ(surface.image().pixel(30, 30), qRgb(200, 40, 40));
  // SRCCOPY brings the white too; SRCINVERT of the same cell undoes it.
  surface.BitBlt(30, 10, c.w, c.h, source, c.x, c.y, RasterOp::SrcCopy);
  EXPECT_EQ(surface.image().pixel(30, 10), qRgb(255, 255, 255));
  surface.BitBlt(30, 10, c.w, c.h, source, c.x, c.y, RasterOp::SrcInvert);
  EXPECT_EQ(surface.image().pixel(30, 10), qRgb(0, 0, 0));
}

TEST_F(QtSurface, ArcRunsCounterClockwiseFromRayToRay) {
  PainterSurface surface(100, 100);
  surface.Cls();
  // The bend's quarter: from the bottom of the ellipse to its right end.
  surface.Arc(10, 90, 90, 10, 50, 90, 90, 50);
  const QImage& im = surface.image();
  int basDroite = 0;
  int ailleurs = 0;
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 100; ++x) {
      if (im.pixel(x, y) == qRgb(255, 255, 255)) continue;
      if (x >= 48 && y >= 48)
        ++basDroite;
      else
        ++ailleurs;
    }
  EXPECT_GT(basDroite, 40);
  EXPECT_EQ(ailleurs, 0);
}

TEST_F(QtSurface, TextIsMeasuredAndPrintedOnItsBox) {
  PainterSurface surface(200, 50);
  surface.Cls();
  surface.setFont(FontSpec{"Arial", 8, true, false});
  const int w = surface.TextWidth("12");
  EXPECT_GT(w, 5);
  EXPECT_LT(w, 30);
  EXPECT_GT(surface.TextHeight("12"), 8);
  surface.setBackColor(rgb(0, 200, 0));
  surface.setFontTransparent(false);
  surface.setCurrentX(10);
  surface.setCurrentY(10);
  surface.Print("12");
  EXPECT_EQ(surface.CurrentX(), 10 + w);
  EXPECT_EQ(surface.image().pixel(10, 10), qRgb(0, 200, 0));  // the box's corner
  EXPECT_TRUE(installeMusicalFont(QCoreApplication::applicationDirPath().toStdString() + "/"));
}

TEST_F(QtSurface, AWholeStripHasItsSizeInkAndBarLinesWhereTheMetricsSay) {
  const CVantoroTablature doc = test::showcaseDocument();
  StripImageOptions o;
  o.largeur = 1920;
  o.hauteur = 420;
  ASSERT_EQ(vérifieOptions(doc, o), "");
  const QImage image = renderStripImage(doc, TabSettings{}, o);
  EXPECT_EQ(image.width(), 1920);
  EXPECT_EQ(image.height(), 420);
  EXPECT_FALSE(blanche(image));
  // Bar lines run from the ruler to the staff's bottom line; between two of
  // them, halfway down the strings' gap, nothing.
  CVantoroTablature copie = doc;
  TabSettings s;
  const StripMetrics m(copie, s);
  for (int k = 1; k <= 9; ++k) {
    const int x = m.barreGaucheX(k);
    for (const int y : {50, 146, 250, 321})
      EXPECT_EQ(image.pixel(x, y), qRgb(0, 0, 0)) << k << "," << y;
  }
  EXPECT_EQ(image.pixel(m.barreGaucheX(8) + 50, 146), qRgb(255, 255, 255));
  // The ruler's face colour, the staff and the strings.
  EXPECT_EQ(image.pixel(1900, 5), qRgb(240, 240, 240));
  EXPECT_EQ(image.pixel(1900, 140), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(1900, 290), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(1900, 294), qRgb(255, 255, 255));
}

TEST_F(QtSurface, PngIsWrittenWholeOrNotAtAll) {
  QImage image(20, 10, QImage::Format_RGB32);
  image.fill(Qt::red);
  const std::string dossier = ::testing::TempDir();
  const std::string chemin = dossier + "/vt_strip.png";
  ASSERT_TRUE(enregistrePng(image, chemin));
  EXPECT_EQ(QImage(QString::fromStdString(chemin)).pixel(3, 3), qRgb(255, 0, 0));
  EXPECT_FALSE(enregistrePng(image, dossier + "/no/such/folder/x.png"));
}

TEST_F(QtSurface, StripOptionsAreChecked) {
  const CVantoroTablature doc = test::showcaseDocument();
  // A track, a bar or a view mode past the piece's, a cursor past its bar
  // (6/8 is 144 ticks) or its strings, an image of no width.
  const std::vector<std::function<void(StripImageOptions&)>> fautes = {
      [](StripImageOptions& o) { o.piste = 2; },
      [](StripImageOptions& o) { o.premièreMesure = 10; },
      [](StripImageOptions& o) { o.viewMode = 5; },
      [](StripImageOptions& o) {
        o.curseur = StripImageOptions::Curseur{6, 144, 1};
      },
      [](StripImageOptions& o) {
        o.curseur = StripImageOptions::Curseur{6, 143, 7};
      },
      [](StripImageOptions& o) { o.largeur = 0; }};
  StripImageOptions o;
  o.curseur = StripImageOptions::Curseur{6, 143, 6};
  EXPECT_EQ(vérifieOptions(doc, o), "");
  for (std::size_t i = 0; i < fautes.size(); ++i) {
    StripImageOptions faute = o;
    fautes[i](faute);
    EXPECT_NE(vérifieOptions(doc, faute), "") << i;
  }
}

}  // namespace
}  // namespace vt
