// The pictures of the toolbar buttons, compiled in under ":/toolbar/".
#pragma once

#include <QIcon>
#include <QString>

namespace vt {

// The button picture `nom` ("TB_JOUE") with its pressed state ("TB_JOUE1"):
// the "on" state of a toggle, the highlight of the other buttons.
QIcon icôneBouton(const QString& nom, bool basculant);

}  // namespace vt
