#include "shell/textes.h"

namespace vt {

QString sansAccélérateur(const QString& texte) {
  QString r;
  r.reserve(texte.size());
  for (qsizetype i = 0; i < texte.size(); ++i) {
    if (texte[i] == QLatin1Char('&')) {
      // "&&" stands for one "&".
      if (i + 1 < texte.size() && texte[i + 1] == QLatin1Char('&')) r += texte[++i];
      continue;
    }
    r += texte[i];
  }
  return r;
}

}  // namespace vt
