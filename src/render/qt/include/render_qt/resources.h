// What the Qt backend brings to the drawing: the music font installed for the
// process, and the staff's sign strip "PORTEE_SOURCE".
#pragma once

#include <QString>
#include <string>

#include "render_qt/painter_surface.h"

namespace vt {

// Installs "musical.ttf" from the data folder (a path ending with "/") for this
// process; true when the family "MusicalSymbols" is then available. Installing
// twice is harmless.
bool installeMusicalFont(const std::string& strAppPath);

// The staff's sign strip, 127 x 61, loaded once from the library's resources.
const QImageSource& sourcePortée();

}  // namespace vt
