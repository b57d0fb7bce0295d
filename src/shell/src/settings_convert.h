// How a setting's text becomes its value and back: decimal numbers rounded
// half to even into their width, truth values as "True" and "False".
#pragma once

#include <QString>
#include <optional>

#include "document/types.h"

namespace vt::settings {

std::optional<double> nombre(const QString& texte);
std::optional<byt> versByte(const QString& texte);
std::optional<i16> versInt(const QString& texte);
std::optional<lng> versLong(const QString& texte);
std::optional<float> versSingle(const QString& texte);
std::optional<vbool> versBool(const QString& texte);

QString texteSingle(float v);

}  // namespace vt::settings
