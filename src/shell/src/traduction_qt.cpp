#include "traduction_qt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include "formats/string_table.h"

namespace vt {

TraductionQt::~TraductionQt() {
  if (m_installé) QCoreApplication::removeTranslator(&m_traducteur);
}

bool TraductionQt::applique(int setLang) {
  if (m_installé) {
    QCoreApplication::removeTranslator(&m_traducteur);
    m_installé = false;
  }
  if (setLang != kLangFrançais) return true;
  // "qt_fr" gathers the catalogues of every Qt module (qtbase, qtmultimedia).
  if (!m_traducteur.load(QLocale(QLocale::French), QStringLiteral("qt"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    return false;
  m_installé = QCoreApplication::installTranslator(&m_traducteur);
  return m_installé;
}

}  // namespace vt
