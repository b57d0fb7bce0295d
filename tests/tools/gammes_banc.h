// The bench of the scale window and the harmoniser: the main window's bench
// with both windows registered, a black board (plain coloured dots to look
// for), and the colour of the strip at a fret and a string.
#pragma once

#include <QFile>
#include <QImage>

#include "outils_banc.h"
#include "tools/fgammes.h"
#include "tools/fharmony.h"

namespace vt::essai {

// The chord dictionary as the harmoniser reaches it.
class AccordsEssai : public FenetreEssai, public FenetreAccords {
 public:
  AccordsEssai(VT& vt, Journal& j) : FenetreEssai(vt, fen::FAccords, j) {}
  bool montreAccord(int tonalité, const QString& type) override {
    m_j.push_back(QStringLiteral("montreAccord %1 %2").arg(tonalité).arg(type));
    return true;
  }
};

class BancGammes : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    silencieux();
    règle("Options/setManche", "1");
  }

  // Boots with the two windows (and, on demand, the chord dictionary) from `dossier`.
  // A main window made beforehand keeps what was registered on it.
  void démarreAvec(bool accords = false, const QString& dossier = {}) {
    if (!vt) crée();
    vt->fenetres().enregistrer(fen::FGammes, [](VT& v) { return new FGammes(v); });
    vt->fenetres().enregistrer(fen::FHarmony, [](VT& v) { return new FHarmony(v); });
    if (accords)
      vt->fenetres().enregistrer(fen::FAccords,
                                 [this](VT& v) { return new AccordsEssai(v, journal); });
    VT::Démarrage d;
    d.strAppPath = dossier;
    ASSERT_TRUE(démarre(d));
    vt->resize(1100, 800);
  }

  FGammes& gammes() { return *qobject_cast<FGammes*>(vt->montreFenetre(fen::FGammes)); }
  FHarmony& harmony() { return *qobject_cast<FHarmony*>(vt->montreFenetre(fen::FHarmony)); }

  // The colour of the strip on the left of a dot's centre, clear of its text.
  QColor couleurManche(int c, int s) {
    const manche::Vue v = vt->manche().vue();
    const QImage& image = vt->manche().image();
    const QPointF p(manche::centreCaseX(v, c) / manche::kTwipsParPixel - 6,
                    manche::centreCordeY(v, s) / manche::kTwipsParPixel);
    return image.pixelColor((p * image.devicePixelRatio()).toPoint());
  }
  // A click on the strip at a fret and a string.
  void clique(int c, int s) {
    const manche::Vue v = vt->manche().vue();
    const QPoint p(qRound(manche::centreCaseX(v, c) / manche::kTwipsParPixel),
                   qRound(manche::centreCordeY(v, s) / manche::kTwipsParPixel));
    QTest::mouseClick(&vt->manche(), Qt::LeftButton, {}, p);
  }

  // A data folder with the required files and these bytes as "scales.dat".
  QString dossierAvecGammes(const QByteArray& octets) {
    const QString bin = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    const QString d = dir.filePath(QStringLiteral("app")) + QLatin1Char('/');
    for (const char* f :
         {"help/fr/contents.txt", "help/en/contents.txt", "help/fr/index.html",
          "help/en/index.html", "vt.ini", "tipofday.ini", "tipofdayen.ini", "musical.ttf"}) {
      const QString nom = QString::fromUtf8(f);
      QDir().mkpath(QFileInfo(d + nom).path());
      QFile::copy(bin + nom, d + nom);
    }
    QFile sortie(d + QStringLiteral("scales.dat"));
    EXPECT_TRUE(sortie.open(QIODevice::WriteOnly));
    sortie.write(octets);
    return d;
  }
};

inline const QColor kBleu(0, 0, 255);
inline const QColor kJaune(255, 255, 0);

}  // namespace vt::essai
