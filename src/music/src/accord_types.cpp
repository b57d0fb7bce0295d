#include "music/accord_types.h"

#include <cctype>
#include <cstddef>

namespace vt {

namespace {

bool dans(int i, std::size_t n) {
  return i >= 0 && static_cast<std::size_t>(i) < n;
}

}  // namespace

std::string entréeDegré(int degré, int choix) {
  if (!dans(choix, kChoixDegré.size()) || choix == 0) return {};
  return std::string(kChoixDegré[static_cast<std::size_t>(choix)]) + std::to_string(degré);
}

bool baseSansDegrés(int base) {
  return base == 4 || base == 5;
}

std::string nomAccordStandard(int tonalité, int type) {
  if (!dans(tonalité, kTonalitésAccord.size()) || !dans(type, kTypesAccord.size())) return {};
  return std::string(kTonalitésAccord[static_cast<std::size_t>(tonalité)]) +
         kTypesAccord[static_cast<std::size_t>(type)].suffixe;
}

std::string nomAccordCréé(int tonalité, int base, const std::array<int, 7>& choix) {
  if (!dans(tonalité, kTonalitésAccord.size()) || !dans(base, kBasesAccord.size())) return {};
  std::string nom = kTonalitésAccord[static_cast<std::size_t>(tonalité)];
  std::string b = kBasesAccord[static_cast<std::size_t>(base)];
  if (!b.empty() && b.back() == 'M') b.pop_back();
  nom += b;
  if (!baseSansDegrés(base))
    for (std::size_t i = 0; i < kDegrésAccord.size(); ++i)
      nom += entréeDegré(kDegrésAccord[i], choix[i]);
  return nom;
}

std::optional<int> indexTonalité(std::string_view texte) {
  if (texte.empty() || texte.size() > 2) return std::nullopt;
  static constexpr std::string_view kLettres = "A?BC?D?EF?G?";
  const char lettre = static_cast<char>(std::toupper(static_cast<unsigned char>(texte[0])));
  const std::size_t i = kLettres.find(lettre);
  if (i == std::string_view::npos || lettre == '?') return std::nullopt;
  int h = static_cast<int>(i);
  if (texte.size() == 2) {
    if (texte[1] == '#') {
      h += 1;
    } else if (texte[1] == 'b') {
      h += 11;
    } else {
      return std::nullopt;
    }
  }
  return h % 12;
}

std::optional<int> indexTypeAccord(std::string_view affiché) {
  for (std::size_t i = 0; i < kTypesAccord.size(); ++i)
    if (affiché == kTypesAccord[i].affiché) return static_cast<int>(i);
  return std::nullopt;
}

std::optional<int> indexBaseAccord(std::string_view texte) {
  for (std::size_t i = 0; i < kBasesAccord.size(); ++i)
    if (texte == kBasesAccord[i]) return static_cast<int>(i);
  return std::nullopt;
}

std::optional<int> indexChoixDegré(int degré, std::string_view texte) {
  const std::string nombre = std::to_string(degré);
  if (texte.empty()) return 0;
  if (texte == nombre) return 2;
  for (std::size_t c = 1; c < kChoixDegré.size(); ++c) {
    const std::string_view mot = kChoixDegré[c];
    if (texte == mot || texte == std::string(mot) + nombre) return static_cast<int>(c);
  }
  return std::nullopt;
}

}  // namespace vt
