// A font of the drawing interface as Qt gives it, and the key that tells two
// such fonts apart in a surface's cache.
#pragma once

#include <QFont>
#include <QString>
#include <string>

#include "render/surface.h"

namespace vt {

inline std::string cléPolice(const FontSpec& f) {
  return f.nom + '\0' + std::to_string(f.taille) + (f.gras ? "b" : "") + (f.italique ? "i" : "") +
         (f.souligné ? "u" : "") + (f.barrée ? "s" : "");
}

// The family, size and styles; how it is rendered is the surface's choice.
inline QFont policeQt(const FontSpec& f) {
  QFont font(QString::fromStdString(f.nom));
  font.setPointSizeF(f.taille > 0 ? f.taille : 1);
  font.setBold(f.gras);
  font.setItalic(f.italique);
  font.setUnderline(f.souligné);
  font.setStrikeOut(f.barrée);
  return font;
}

}  // namespace vt
