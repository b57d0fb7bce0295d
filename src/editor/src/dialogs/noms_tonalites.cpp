#include "noms_tonalites.h"

#include <algorithm>

#include "textes_dialogue.h"

namespace vt {

namespace {

// The fifteen names of each mode, seven flats first.
constexpr StringId kMajeurs = StringId{580};
constexpr StringId kMineurs = StringId{600};

}  // namespace

QString nomTonalite(const Textes& t, int alterations, bool majeur) {
  const int a = std::clamp(alterations, -kAlterationsMax, kAlterationsMax);
  return t.loadString((majeur ? kMajeurs : kMineurs).id + a + kAlterationsMax);
}

QString nomAlterations(const Textes& t, int alterations) {
  if (alterations == 0) return t.loadString(615);
  if (alterations == 1) return t.loadString(616);
  if (alterations > 1) return t.loadString(617).arg(alterations);
  if (alterations == -1) return t.loadString(618);
  return t.loadString(619).arg(-alterations);
}

}  // namespace vt
