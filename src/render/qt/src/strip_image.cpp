#include "render_qt/strip_image.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QSaveFile>

#include "render/strip_renderer.h"
#include "render_qt/painter_surface.h"
#include "render_qt/resources.h"

namespace vt {

std::string vérifieOptions(const CVantoroTablature& doc, const StripImageOptions& o) {
  if (!doc.hasPiste(o.piste)) return "no track " + std::to_string(o.piste);
  if (!doc.hasMesure(o.premièreMesure)) return "no bar " + std::to_string(o.premièreMesure);
  if (o.largeur < 1 || o.largeur > 16384 || o.hauteur < 1 || o.hauteur > 16384)
    return "the image must be 1 to 16384 pixels wide and high";
  if (o.viewMode < 1 || o.viewMode > 4) return "the view mode is 1 to 4";
  if (o.curseur) {
    if (!doc.hasMesure(o.curseur->mesure)) return "no bar " + std::to_string(o.curseur->mesure);
    if (o.curseur->x < 0 || o.curseur->x >= doc.getMesureLargeur(o.curseur->mesure))
      return "the cursor's tick lies outside its bar";
    if (o.curseur->corde < 1 || o.curseur->corde > doc.getGuitareNbrCordes(o.piste))
      return "no string " + std::to_string(o.curseur->corde);
  }
  return {};
}

QImage renderStripImage(const CVantoroTablature& source, const TabSettings& base,
                        const StripImageOptions& o) {
  // The renderer reads scroll position and cursor from the document: draw a copy.
  CVantoroTablature doc = source;
  doc.m_lngScrollValue = o.premièreMesure;
  doc.setCurseurPiste(static_cast<byt>(o.piste));
  const StripImageOptions::Curseur curseur =
      o.curseur.value_or(StripImageOptions::Curseur{o.premièreMesure, 0, 1});
  doc.setCurseurMesure(static_cast<i16>(curseur.mesure));
  doc.setCurseurX(static_cast<i16>(curseur.x));
  doc.setCurseurCorde(static_cast<byt>(curseur.corde));

  TabSettings settings = base;
  settings.setViewMode(o.viewMode, o.triolet);
  settings.cfgAffichePortée = o.portée;

  // The current instrument is the track's own, as the editor makes it.
  tGuitare guitare;
  guitare.nbrCordes = static_cast<byt>(doc.getGuitareNbrCordes(o.piste));
  for (int c = 1; c <= 7; ++c)
    guitare.corde[static_cast<std::size_t>(c)] = static_cast<byt>(doc.getGuitareCorde(o.piste, c));

  PainterSurface surface(o.largeur, o.hauteur);
  CStripRenderer renderer(doc, settings, surface, guitare, &sourcePortée());
  renderer.drawInLine();
  return surface.image().copy();
}

bool enregistrePng(const QImage& image, const std::string& chemin) {
  QSaveFile fichier(QString::fromStdString(chemin));
  if (!fichier.open(QIODevice::WriteOnly)) return false;
  if (!image.save(&fichier, "PNG")) {
    fichier.cancelWriting();
    return false;
  }
  return fichier.commit();
}

namespace {
int argcHorsÉcran = 1;
char nomHorsÉcran[] = "vantoro";
char* argvHorsÉcran[] = {nomHorsÉcran, nullptr};
}  // namespace

ApplicationHorsÉcran::ApplicationHorsÉcran() {
  if (QCoreApplication::instance() == nullptr) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // A batch run has no session: give Qt the private runtime folder it would
    // pick anyway, so that it does not warn about it on every run.
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
      const QString dossier = QDir::tempPath() + QStringLiteral("/runtime-") +
                              QString::number(static_cast<qulonglong>(::getuid()));
      if (QDir().mkpath(dossier)) {
        QFile::setPermissions(
            dossier, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        qputenv("XDG_RUNTIME_DIR", dossier.toLocal8Bit());
      }
    }
    m_app = std::make_unique<QGuiApplication>(argcHorsÉcran, argvHorsÉcran);
  }
  m_strAppPath = QCoreApplication::applicationDirPath().toStdString() + "/";
  installeMusicalFont(m_strAppPath);
}

ApplicationHorsÉcran::~ApplicationHorsÉcran() = default;

}  // namespace vt
