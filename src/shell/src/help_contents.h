// The help's table of contents, "help/<lang>/contents.txt": one topic a line,
// key<TAB>title<TAB>target; lines starting with "#" and empty lines skipped.
#pragma once

#include <QString>
#include <vector>

namespace vt {

struct SujetAide {
  QString clé;  // dotted letters: "b.a"; the parent is the key without its last part
  QString titre;
  QString cible;  // "page.html#anchor", "tool:FAccords", "command:options", or empty for a book
  QString parent() const;
};

std::vector<SujetAide> lisSommaire(const QString& fichier);

}  // namespace vt
