#include "settings_convert.h"

#include <cmath>
#include <limits>

namespace vt::settings {

std::optional<double> nombre(const QString& texte) {
  bool ok = false;
  const double v = texte.trimmed().toDouble(&ok);  // C locale: "." is the decimal point
  if (!ok || !std::isfinite(v)) return std::nullopt;
  return v;
}

namespace {
template <class T>
std::optional<T> entier(const QString& texte) {
  const auto v = nombre(texte);
  if (!v) return std::nullopt;
  const double r = std::nearbyint(*v);  // the default rounding: half to even
  if (r < static_cast<double>(std::numeric_limits<T>::min()) ||
      r > static_cast<double>(std::numeric_limits<T>::max()))
    return std::nullopt;
  return static_cast<T>(r);
}
}  // namespace

std::optional<byt> versByte(const QString& texte) {
  return entier<byt>(texte);
}
std::optional<i16> versInt(const QString& texte) {
  return entier<i16>(texte);
}
std::optional<lng> versLong(const QString& texte) {
  return entier<lng>(texte);
}

std::optional<float> versSingle(const QString& texte) {
  const auto v = nombre(texte);
  if (!v || std::fabs(*v) > std::numeric_limits<float>::max()) return std::nullopt;
  return static_cast<float>(*v);
}

std::optional<vbool> versBool(const QString& texte) {
  const QString t = texte.trimmed();
  if (t.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0) return kVrai;
  if (t.compare(QStringLiteral("False"), Qt::CaseInsensitive) == 0) return kFaux;
  // A number reads as a truth value too: any non-zero value is true.
  if (const auto v = nombre(t)) return toVbool(*v != 0);
  return std::nullopt;
}

QString texteSingle(float v) {
  return QString::number(static_cast<double>(v), 'g', 9);
}

}  // namespace vt::settings
