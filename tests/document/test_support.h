// Small builders shared by the document tests.
#pragma once

#include <ostream>

#include "document/tablature.h"

namespace vt::test {

// The frets of a string of a bar, in order, as (x, fret, length) triples flattened.
struct NoteVue {
  int x, fret, dur;
  bool operator==(const NoteVue&) const = default;
};

inline std::ostream& operator<<(std::ostream& os, const NoteVue& n) {
  return os << "{x " << n.x << ", fret " << n.fret << ", len " << n.dur << "}";
}

inline std::vector<NoteVue> corde(const CVantoroTablature& doc, int p, int m, int c) {
  std::vector<NoteVue> v;
  for (int n = 1; n <= doc.getNoteLast(p, m, c); ++n)
    v.push_back(
        {doc.getNoteX(p, m, c, n), doc.getNoteCase(p, m, c, n), doc.getNoteDurée(p, m, c, n)});
  return v;
}

inline tGuitare basse4() {
  tGuitare g;
  g.nom = "Bass";
  g.nbrCordes = 4;
  g.nbrCases = 20;
  g.corde = {0, 43, 38, 33, 28, 0, 0, 0};
  return g;
}

}  // namespace vt::test
