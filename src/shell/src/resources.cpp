#include "resources.h"

#include <QtGlobal>

// Resources of a static library must be registered by name, outside any namespace.
static void initialiseToolbar() {
  Q_INIT_RESOURCE(toolbar);
}

namespace vt {

void initialiseRessourcesShell() {
  static const bool fait = [] {
    initialiseToolbar();
    return true;
  }();
  (void)fait;
}

}  // namespace vt
