// The ".vtb" files belong to this program for the desktop: a shared-mime-info
// type (glob "*.vtb", magic "VTB") and a desktop entry that opens them, both
// written into the user's own data folder. Written at every start, but only
// when their text differs, so a second start touches nothing.
#pragma once

#include <QString>

namespace vt {

inline constexpr const char* kTypeMimeVtb = "application/x-vantoro-tablature";

struct Association {
  QString dossierDonnées;  // the user's data folder ($XDG_DATA_HOME)
  QString exécutable;      // the program to run
  QString strAppPath;      // the program's folder, for the icon
};

// The two texts, as they are written.
QString texteTypeMime();
QString texteEntréeBureau(const Association& a);

// Writes "mime/packages/vantoro.xml" and "applications/vantoro.desktop" under
// the data folder when they differ from what is there, then asks the desktop
// databases to refresh when `rafraîchir` is set. True when a file was
// (re)written. Failures are not errors: the program runs without association.
bool enregistreAssociation(const Association& a, bool rafraîchir);

}  // namespace vt
