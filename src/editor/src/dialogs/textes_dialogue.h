// The texts of the document dialogs: the string table in the language the
// main window runs in. The editor makes one with Textes{vt.setLang()}.
#pragma once

#include <QString>

#include "formats/string_table.h"
#include "shell/textes.h"

namespace vt {

struct Textes {
  int setLang = kLangAnglais;  // 0 French, 10000 English
  QString loadString(int id) const { return qLoadString(id, setLang); }
};

}  // namespace vt
