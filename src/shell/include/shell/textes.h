// The string table seen from the windows: texts as QString, in the language
// `setLang` (0 French, 10000 English).
#pragma once

#include <QString>

#include "formats/string_table.h"

namespace vt {

inline QString qLoadString(int id, int setLang) {
  return QString::fromStdString(loadString(id, setLang));
}
inline QString qLoadString(StringId id, int setLang) {
  return qLoadString(id.id, setLang);
}

// A menu text without its "&" accelerators, for captions and tooltips.
QString sansAccélérateur(const QString& texte);

}  // namespace vt
