// The settings store's conversions of a value's text on any bytes: a number
// reads into its width or not at all, and a float written back reads as the
// same float.
#include <QString>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "settings_convert.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString texte =
      QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  using namespace vt::settings;
  const auto n = nombre(texte);
  if (n && !std::isfinite(*n)) std::abort();
  if (const auto b = versByte(texte); b && !n) std::abort();
  if (const auto i = versInt(texte); i && (!n || std::fabs(*n - *i) > 0.5)) std::abort();
  if (const auto l = versLong(texte); l && (!n || std::fabs(*n - *l) > 0.5)) std::abort();
  if (const auto f = versSingle(texte)) {
    const auto encore = versSingle(texteSingle(*f));
    if (!encore || *encore != *f) std::abort();
  }
  if (const auto v = versBool(texte); v && *v != vt::kVrai && *v != vt::kFaux) std::abort();
  return 0;
}
