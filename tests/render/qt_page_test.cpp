// Pages on real devices: the music font holds the signs where the page puts
// them, the layout is the same at every resolution, a PDF has the pages, the
// size and the words it should (read back with pdfinfo and pdftotext), and a
// PDF that cannot be written leaves nothing behind.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QTemporaryDir>
#include <cstdio>
#include <string>

#include "render_qt/page_documents.h"
#include "render_qt/page_surface.h"
#include "render_qt/resources.h"
#include "showcase.h"

namespace vt {
namespace {

// The application comes from qt_surface_test.cpp's environment.

// The output of a command, empty when it could not run.
std::string sortie(const std::string& commande) {
  std::string texte;
  FILE* f = popen(commande.c_str(), "r");
  if (f == nullptr) return texte;
  char tampon[4096];
  while (const std::size_t n = std::fread(tampon, 1, sizeof tampon, f))
    texte.append(tampon, n);
  pclose(f);
  return texte;
}

// A piece of two tracks that fills several pages: the showcase, then eighths.
CVantoroTablature morceau() {
  CVantoroTablature doc = test::showcaseDocument();
  doc.titre = "Sunday Waltz";
  doc.Auteur = "J. Doe";
  doc.addPiste(1, tGuitare{});
  doc.setPisteNom(2, "Rhythm");
  while (doc.getMesureLast() < 48)
    doc.addMesure();
  for (int m = 10; m <= 48; ++m)
    for (int k = 0; k < 8; ++k)
      test::note(doc, m, 1 + k % 6, k * 24, (m + k) % 13, 24);
  return doc;
}

TEST(QtPages, TheFontHoldsEverySignWithTheOutlineThePageUses) {
  const QRawFont police(QCoreApplication::applicationDirPath() + "/musical.ttf", glyphe::kEm);
  ASSERT_TRUE(police.isValid());
  std::vector<glyphe::Signe> signes(std::begin(glyphe::kTous), std::end(glyphe::kTous));
  for (char32_t chiffre = U'0'; chiffre <= U'9'; ++chiffre) {
    glyphe::Signe g = glyphe::kChiffre;
    g.code = chiffre;
    signes.push_back(g);
  }
  for (const glyphe::Signe& g : signes) {
    SCOPED_TRACE(static_cast<int>(g.code));
    const QList<quint32> index = police.glyphIndexesForString(QString(QChar(g.code)));
    ASSERT_EQ(index.size(), 1);
    ASSERT_NE(index[0], 0U) << "no glyph";
    // The clefs and the stem piece stand left of their origin with no advance:
    // the raw font gives no outline box for those, the page still draws them.
    if (g.xMax <= 0) continue;
    const QRectF box = police.pathForGlyph(index[0]).boundingRect();
    const bool chiffre = g.code >= U'0' && g.code <= U'9';
    // Digits share one box; each sign has its own, y upwards in the table.
    EXPECT_NEAR(box.top(), -g.yMax, chiffre ? 50 : 1);
    EXPECT_NEAR(box.bottom(), -g.yMin, chiffre ? 50 : 1);
    if (!chiffre) {
      EXPECT_NEAR(box.left(), g.xMin, 1);
      EXPECT_NEAR(box.right(), g.xMax, 1);
    }
  }
}

TEST(QtPages, TheLayoutIsTheSameAtEveryResolution) {
  const CVantoroTablature doc = morceau();
  const TabSettings s;
  const QPageLayout page = pageParDéfaut();
  CPageRenderer r(doc, s);
  std::vector<MiseEnPage> mises;
  for (const double dpi : {96.0, 300.0, 1200.0}) {
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    PageSurface surface(&painter, page, dpi, PageSurface::Origine::Feuille);
    mises.push_back(r.miseEnPage(surface, 1, 1));
  }
  ASSERT_GT(mises[0].nombrePages(), 1);
  for (std::size_t i = 1; i < mises.size(); ++i)
    EXPECT_EQ(std::tie(mises[i].pages, mises[i].hauteurEntête),
              std::tie(mises[0].pages, mises[0].hauteurEntête));
}

TEST(QtPages, APageImageHasInkInsideItsMarginsOnly) {
  const CVantoroTablature doc = morceau();
  const QPageLayout page = pageParDéfaut();
  const QImage image = imagePage(doc, TabSettings{}, 1, 1, page, 72);
  const QRect feuille = page.fullRectPixels(72);
  ASSERT_EQ(image.size(), feuille.size());
  const QRect zone = page.paintRectPixels(72);
  int encre = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, y) == qRgb(255, 255, 255)) continue;
      ++encre;
      // The stems of the last system may reach the bottom margin, nothing else.
      EXPECT_TRUE(zone.adjusted(-1, -1, 1, 1).contains(x, y) || y > zone.bottom()) << x << "," << y;
    }
  EXPECT_GT(encre, 2000);
  // A page past the last is a blank sheet.
  const QImage vide = imagePage(doc, TabSettings{}, 1, 99, page, 72);
  EXPECT_EQ(vide.pixel(zone.center()), qRgb(255, 255, 255));
}

TEST(QtPages, PdfHasItsPagesSizeTitleAndPageNumbers) {
  if (sortie("which pdfinfo pdftotext").find("pdftotext") == std::string::npos)
    GTEST_SKIP() << "poppler-utils are not installed";
  QTemporaryDir dossier;
  const std::string chemin = dossier.filePath("morceau.pdf").toStdString();
  const CVantoroTablature doc = morceau();
  const TabSettings s;
  QPageLayout page = pageParDéfaut();
  page.setPageSize(QPageSize(QPageSize::A4));
  const int pages1 = miseEnPagePiste(doc, s, 1, page).nombrePages();
  const int pages2 = miseEnPagePiste(doc, s, 2, page).nombrePages();
  ASSERT_GE(pages1, 2);
  const RésultatPdf r = écritPdf(doc, s, {1, 2}, chemin, page);
  ASSERT_TRUE(r.ok) << r.erreur;
  EXPECT_EQ(r.pages, pages1 + pages2);

  const std::string info = sortie("pdfinfo '" + chemin + "'");
  EXPECT_NE(info.find("Pages:           " + std::to_string(pages1 + pages2)), std::string::npos)
      << info;
  EXPECT_NE(info.find("595 x 842 pts (A4)"), std::string::npos) << info;
  EXPECT_NE(info.find("Sunday Waltz"), std::string::npos) << info;
  const std::string texte = sortie("pdftotext -layout '" + chemin + "' -");
  // Each track starts with the head; later pages carry their number.
  std::string serré;
  std::copy_if(texte.begin(), texte.end(), std::back_inserter(serré),
               [](char c) { return c != ' '; });
  const auto fois = [&serré](const std::string& mot) {
    std::size_t n = 0;
    for (std::size_t i = serré.find(mot); i != std::string::npos; i = serré.find(mot, i + 1))
      ++n;
    return n;
  };
  EXPECT_EQ((std::vector<std::size_t>{fois("SundayWaltz"), fois("Rhythm") > 0, fois("-2-") > 0,
                                      fois("-1-")}),
            (std::vector<std::size_t>{2, 1, 1, 0}));
  EXPECT_NE(sortie("pdffonts '" + chemin + "'").find("MusicalSymbols"), std::string::npos);
}

TEST(QtPages, APdfThatCannotBeWrittenLeavesNothing) {
  QTemporaryDir dossier;
  const CVantoroTablature doc = morceau();
  // Into a folder that does not exist, and into one without permission (root
  // may write anywhere: then only the first case holds).
  const std::string manquant = dossier.filePath("absent/piece.pdf").toStdString();
  RésultatPdf r = écritPdf(doc, TabSettings{}, {1}, manquant, pageParDéfaut());
  EXPECT_FALSE(r.ok);
  EXPECT_FALSE(r.erreur.empty());
  EXPECT_FALSE(QFile::exists(QString::fromStdString(manquant)));

  const QString fermé = dossier.filePath("ferme");
  ASSERT_TRUE(QDir().mkpath(fermé));
  const QString ancien = fermé + "/piece.pdf";
  {
    QFile f(ancien);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("older");
  }
  QFile::setPermissions(fermé, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
  r = écritPdf(doc, TabSettings{}, {1}, ancien.toStdString(), pageParDéfaut());
  if (!r.ok) {
    QFile f(ancien);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), "older");
    EXPECT_EQ(QDir(fermé).entryList(QDir::Files), QStringList{"piece.pdf"});
  }
  QFile::setPermissions(fermé,
                        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

}  // namespace
}  // namespace vt
