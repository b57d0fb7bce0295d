// Names of the keys a bar can carry: from seven flats to seven sharps, major
// or minor, in the words of the current language.
#pragma once

#include <QString>

namespace vt {

struct Textes;

inline constexpr int kAlterationsMax = 7;

// "B-flat major", "F-sharp minor".
QString nomTonalite(const Textes& t, int alterations, bool majeur);
// "2 flats", "1 sharp", "no sharps or flats".
QString nomAlterations(const Textes& t, int alterations);

}  // namespace vt
