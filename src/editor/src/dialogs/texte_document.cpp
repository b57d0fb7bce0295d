#include "texte_document.h"

#include <QRegularExpression>

#include "document/cp1252.h"
#include "document/types.h"
#include "textes_dialogue.h"

namespace vt {

QString depuisDocument(const std::string& cp1252) {
  return QString::fromStdString(cp1252ToUtf8(cp1252));
}

std::string versDocument(const QString& texte) {
  return utf8ToCp1252(texte.toStdString());
}

QString caracteresRefuses(const QString& texte) {
  QString refusés;
  for (const char32_t c : texte.toUcs4()) {
    const QString un = QString::fromUcs4(&c, 1);
    const std::string utf8 = un.toStdString();
    if (cp1252ToUtf8(utf8ToCp1252(utf8)) != utf8 && !refusés.contains(un)) refusés += un;
  }
  return refusés;
}

QString lignesDepuisDocument(const std::string& cp1252) {
  QString t = depuisDocument(cp1252);
  t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  t.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
  return t;
}

std::string lignesVersDocument(const QString& texte) {
  QString t = texte;
  t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  t.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
  return versDocument(t);
}

QString refusTexte(const Textes& t, const QString& champ, const QString& texte,
                   const std::string& octets) {
  const QString refusés = caracteresRefuses(texte);
  if (!refusés.isEmpty()) {
    QStringList liste;
    for (const char32_t c : refusés.toUcs4())
      liste << QString::fromUcs4(&c, 1);
    return t.loadString(570).arg(champ, liste.join(QLatin1Char(' ')));
  }
  if (static_cast<int>(octets.size()) > kMaxTexte) return t.loadString(571).arg(champ);
  return {};
}

QString nomDeChamp(const QString& libellé) {
  QString n = sansAccélérateur(libellé).trimmed();
  if (n.endsWith(QLatin1Char(':'))) n.chop(1);
  return n.trimmed();
}

}  // namespace vt
