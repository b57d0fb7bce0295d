#include "shell/settings_store.h"

#include <QSettings>

namespace vt {

namespace {
QString fichierImposé() {
  return qEnvironmentVariable(kVariableSettings);
}
}  // namespace

std::unique_ptr<QSettings> ouvreMagasin() {
  const QString imposé = fichierImposé();
  if (!imposé.isEmpty()) return std::make_unique<QSettings>(imposé, QSettings::IniFormat);
  return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                     QStringLiteral("Vantoro"), QStringLiteral("Vantoro"));
}

QString cheminMagasin() {
  return ouvreMagasin()->fileName();
}

}  // namespace vt
