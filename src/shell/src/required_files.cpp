#include "shell/required_files.h"

#include <QFileInfo>

#include "shell/textes.h"

namespace vt {

bool checkFile(const QString& strAppPath, const QString& nom) {
  return QFileInfo(strAppPath + nom).isFile();
}

std::optional<QString> premierFichierManquant(const QString& strAppPath) {
  for (const char* nom : kFichiersRequis) {
    const QString n = QString::fromUtf8(nom);
    if (!checkFile(strAppPath, n)) return strAppPath + n;
  }
  return std::nullopt;
}

QString messageFichierManquant(const QString& chemin, int setLang) {
  return qLoadString(3000, setLang) + chemin + qLoadString(3001, setLang);
}

}  // namespace vt
