#include "render_qt/resources.h"

#include <QFontDatabase>
#include <QImage>

#include "render/staff_source.h"

// Resources of a static library must be registered by name, outside any namespace.
static void initialiseRessources() {
  Q_INIT_RESOURCE(render_qt);
}

namespace vt {

bool installeMusicalFont(const std::string& strAppPath) {
  static bool installée = false;
  if (!installée) {
    const int id =
        QFontDatabase::addApplicationFont(QString::fromStdString(strAppPath + "musical.ttf"));
    installée = id >= 0;
  }
  return installée && QFontDatabase::families().contains(QStringLiteral("MusicalSymbols"));
}

const QImageSource& sourcePortée() {
  static const QImageSource source = [] {
    initialiseRessources();
    QImage image(QStringLiteral(":/render_qt/portee_source.png"));
    if (image.isNull()) {
      // A white strip draws nothing with SRCAND: a missing resource costs the
      // staff its signs, not the program its life.
      image = QImage(portee::kLargeurSource, portee::kHauteurSource, QImage::Format_RGB32);
      image.fill(Qt::white);
    }
    return QImageSource(portee::kNomSource, image);
  }();
  return source;
}

}  // namespace vt
