#include "help_contents.h"

#include <QFile>
#include <QTextStream>

namespace vt {

QString SujetAide::parent() const {
  const qsizetype point = clé.lastIndexOf(QLatin1Char('.'));
  return point < 0 ? QString() : clé.left(point);
}

std::vector<SujetAide> lisSommaire(const QString& fichier) {
  std::vector<SujetAide> sujets;
  QFile f(fichier);
  if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return sujets;
  QTextStream flux(&f);
  flux.setEncoding(QStringConverter::Utf8);
  while (!flux.atEnd()) {
    const QString ligne = flux.readLine();
    if (ligne.trimmed().isEmpty() || ligne.startsWith(QLatin1Char('#'))) continue;
    const QStringList champs = ligne.split(QLatin1Char('\t'));
    if (champs.size() < 2 || champs[0].trimmed().isEmpty()) continue;
    sujets.push_back({champs[0].trimmed(), champs[1].trimmed(),
                      champs.size() > 2 ? champs[2].trimmed() : QString()});
  }
  return sujets;
}

}  // namespace vt
