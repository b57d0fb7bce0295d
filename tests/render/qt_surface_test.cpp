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

bool blanche(const QImage& image) {
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) != qRgb(255, 255, 255)) return false;
  return true;
}

// Shown over anything, the cursor and the selection give back every pixel when
// hidden, in either order: over the notes, the letters of effects and texts,
// the strings, the staff and its notes, as over white. Hiding where nothing is
// shown touches nothing.
TEST(QtSurface, ShowThenHideGivesBackEveryPixelOverInk) {
  TabSettings s;
  tGuitare g;
  {
    // Over white: the cursor's line and box and the selection, then white again.
    CVantoroTablature doc;
    doc.intSelStartMesure = doc.intSelStopMesure = 1;
    doc.intSelStopX = 96;
    doc.bytSelStartCorde = 2;
    doc.bytSelStopCorde = 5;
    PainterSurface surface(400, 300);
    CStripRenderer r(doc, s, surface, g, &sourcePortée());
    surface.Cls();
    r.curAffiche();
    r.selAffiche();
    const QImage& im = surface.image();
    EXPECT_EQ((std::vector<QRgb>{im.pixel(75, 100), im.pixel(70, 140), im.pixel(60, 140),
                                 im.pixel(100, 170)}),
              (std::vector<QRgb>{qRgb(127, 255, 255), qRgb(127, 255, 255), qRgb(255, 255, 255),
                                 qRgb(127, 255, 255)}));
    r.curEfface();
    r.selEfface();
    EXPECT_TRUE(blanche(surface.image()));
  }
  CVantoroTablature doc = test::showcaseDocument();
  PainterSurface surface(1000, 380);
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
        (ordre ? r.curEfface() : r.selEfface());
        (ordre ? r.selEfface() : r.curEfface());
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

TEST(QtSurface, BlitsArcsAndText) {
  const QImageSource& source = sourcePortée();
  EXPECT_EQ(std::make_pair(source.width(), source.height()),
            std::make_pair(portee::kLargeurSource, portee::kHauteurSource));
  PainterSurface surface(100, 100);
  surface.setBackColor(rgb(200, 40, 40));
  surface.Cls();
  const portee::Cellule& c = portee::kTêtePleine;
  // SRCAND leaves the ground where the source is white: the head's centre is
  // ink, the cell's white corner keeps the red. SRCCOPY brings the white too;
  // SRCINVERT of the same cell undoes it.
  surface.BitBlt(10, 10, c.w, c.h, source, c.x, c.y, RasterOp::SrcAnd);
  surface.BitBlt(30, 10, c.w, c.h, source, c.x, c.y, RasterOp::SrcCopy);
  const QRgb copié = surface.image().pixel(30, 10);
  surface.BitBlt(30, 10, c.w, c.h, source, c.x, c.y, RasterOp::SrcInvert);
  const QImage& im = surface.image();
  EXPECT_EQ((std::vector<QRgb>{im.pixel(14, 14), im.pixel(10, 10), im.pixel(50, 50), copié,
                               im.pixel(30, 10)}),
            (std::vector<QRgb>{qRgb(0, 0, 0), qRgb(200, 40, 40), qRgb(200, 40, 40),
                               qRgb(255, 255, 255), qRgb(0, 0, 0)}));

  // The bend's quarter runs counter-clockwise from the bottom of the ellipse
  // to its right end.
  surface.setBackColor(kBlanc);
  surface.Cls();
  surface.Arc(10, 90, 90, 10, 50, 90, 90, 50);
  int basDroite = 0;
  int ailleurs = 0;
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 100; ++x)
      if (im.pixel(x, y) != qRgb(255, 255, 255)) ++(x >= 48 && y >= 48 ? basDroite : ailleurs);
  EXPECT_GT(basDroite, 40);
  EXPECT_EQ(ailleurs, 0);

  // Text is measured and printed on its box.
  surface.setFont(FontSpec{"Arial", 8, true, false});
  const int w = surface.TextWidth("12");
  EXPECT_TRUE(w > 5 && w < 30) << w;
  EXPECT_GT(surface.TextHeight("12"), 8);
  surface.setBackColor(rgb(0, 200, 0));
  surface.setFontTransparent(false);
  surface.setCurrentX(10);
  surface.setCurrentY(10);
  surface.Print("12");
  EXPECT_EQ(surface.CurrentX(), 10 + w);
  EXPECT_EQ(im.pixel(10, 10), qRgb(0, 200, 0));  // the box's corner
  EXPECT_TRUE(installeMusicalFont(QCoreApplication::applicationDirPath().toStdString() + "/"));
}

TEST(QtSurface, AWholeStripHasItsSizeInkAndBarLinesWhereTheMetricsSay) {
  const CVantoroTablature doc = test::showcaseDocument();
  StripImageOptions o;
  o.largeur = 1920;
  o.hauteur = 420;
  ASSERT_EQ(vérifieOptions(doc, o), "");
  const QImage image = renderStripImage(doc, TabSettings{}, o);
  EXPECT_EQ(image.size(), QSize(1920, 420));
  EXPECT_FALSE(blanche(image));
  // Bar lines run from the ruler to the staff's bottom line; between two of
  // them, halfway down the strings' gap, nothing.
  CVantoroTablature copie = doc;
  TabSettings s;
  const StripMetrics m(copie, s);
  for (int k = 1; k <= 9; ++k)
    for (const int y : {50, 146, 250, 321})
      EXPECT_EQ(image.pixel(m.barreGaucheX(k), y), qRgb(0, 0, 0)) << k << "," << y;
  // Then the ruler's face colour, the staff and the strings.
  EXPECT_EQ(
      (std::vector<QRgb>{image.pixel(m.barreGaucheX(8) + 50, 146), image.pixel(1900, 5),
                         image.pixel(1900, 140), image.pixel(1900, 290), image.pixel(1900, 294)}),
      (std::vector<QRgb>{qRgb(255, 255, 255), qRgb(240, 240, 240), qRgb(0, 0, 0), qRgb(0, 0, 0),
                         qRgb(255, 255, 255)}));
}

TEST(QtSurface, PngIsWrittenWholeOrNotAtAllAndStripOptionsAreChecked) {
  QImage image(20, 10, QImage::Format_RGB32);
  image.fill(Qt::red);
  const std::string dossier = ::testing::TempDir();
  ASSERT_TRUE(enregistrePng(image, dossier + "/vt_strip.png"));
  EXPECT_EQ(QImage(QString::fromStdString(dossier + "/vt_strip.png")).pixel(3, 3), qRgb(255, 0, 0));
  EXPECT_FALSE(enregistrePng(image, dossier + "/no/such/folder/x.png"));

  // A track, a bar or a view mode past the piece's, a cursor past its bar
  // (6/8 is 144 ticks) or its strings, an image of no width.
  const CVantoroTablature doc = test::showcaseDocument();
  using O = StripImageOptions;
  const std::vector<std::function<void(O&)>> fautes = {[](O& o) { o.piste = 2; },
                                                       [](O& o) { o.premièreMesure = 10; },
                                                       [](O& o) { o.viewMode = 5; },
                                                       [](O& o) {
                                                         o.curseur = O::Curseur{6, 144, 1};
                                                       },
                                                       [](O& o) {
                                                         o.curseur = O::Curseur{6, 143, 7};
                                                       },
                                                       [](O& o) { o.largeur = 0; }};
  O o;
  o.curseur = O::Curseur{6, 143, 6};
  EXPECT_EQ(vérifieOptions(doc, o), "");
  for (std::size_t i = 0; i < fautes.size(); ++i) {
    O faute = o;
    fautes[i](faute);
    EXPECT_NE(vérifieOptions(doc, faute), "") << i;
  }
}

}  // namespace
}  // namespace vt
