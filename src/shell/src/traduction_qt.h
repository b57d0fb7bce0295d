// Qt's own texts in the program's language: the buttons of the message boxes,
// the file and print dialogs, the key names of the menus. They come from the
// translations Qt ships (Debian's qt6-translations-l10n), switched with the
// language while the program runs.
#pragma once

#include <QTranslator>

namespace vt {

class TraductionQt {
 public:
  TraductionQt() = default;
  ~TraductionQt();
  TraductionQt(const TraductionQt&) = delete;
  TraductionQt& operator=(const TraductionQt&) = delete;

  // French (setLang 0) installs Qt's French catalogue; English removes it, Qt's
  // own texts being English. False when the catalogue cannot be found: Qt's
  // texts stay English then, nothing else changes.
  bool applique(int setLang);

 private:
  QTranslator m_traducteur;
  bool m_installé = false;
};

}  // namespace vt
