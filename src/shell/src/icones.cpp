#include "shell/icones.h"

#include "resources.h"

namespace vt {

QIcon icôneBouton(const QString& nom, bool basculant) {
  initialiseRessourcesShell();
  const QString base = QStringLiteral(":/toolbar/") + nom;
  QIcon i;
  i.addFile(base + QStringLiteral(".png"), {}, QIcon::Normal, QIcon::Off);
  if (basculant) {
    i.addFile(base + QStringLiteral("1.png"), {}, QIcon::Normal, QIcon::On);
  } else {
    i.addFile(base + QStringLiteral("1.png"), {}, QIcon::Active, QIcon::Off);
  }
  return i;
}

}  // namespace vt
