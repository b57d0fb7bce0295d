#include <gtest/gtest.h>

#include <QGuiApplication>
#include <cstdlib>

#include "render_qt/resources.h"
#include "render_qt/strip_image.h"
#include "showcase.h"

namespace vt {
namespace {

void guiApp() {
  static int argc = 1;
  static char nom[] = "vt_render_qt_tests";
  static char* argv[] = {nom, nullptr};
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication* app = QCoreApplication::instance() == nullptr
                                    ? new QGuiApplication(argc, argv)
                                    : nullptr;
  (void)app;
  installeMusicalFont(QCoreApplication::applicationDirPath().toStdString() + "/");
}

TEST(StripImage, ShowcaseDrawsSomething) {
  guiApp();
  const CVantoroTablature doc = test::showcaseDocument();
  StripImageOptions o;
  o.largeur = 1920;
  o.hauteur = 420;
  const QImage image = renderStripImage(doc, TabSettings{}, o);
  if (const char* chemin = std::getenv("VT_SHOWCASE_PNG")) image.save(chemin);
  EXPECT_EQ(image.width(), 1920);
}

}  // namespace
}  // namespace vt
