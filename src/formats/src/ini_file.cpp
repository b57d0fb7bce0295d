#include "formats/ini_file.h"

#include <climits>
#include <fstream>
#include <iterator>

namespace vt {

namespace {

constexpr std::string_view kBlancs = " \t\r\f\v";

std::string_view rogner(std::string_view s) {
  const auto a = s.find_first_not_of(kBlancs);
  if (a == std::string_view::npos) return {};
  const auto b = s.find_last_not_of(kBlancs);
  return s.substr(a, b - a + 1);
}

char minuscule(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool mêmeNom(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (minuscule(a[i]) != minuscule(b[i])) return false;
  return true;
}

}  // namespace

IniFile IniFile::fromText(std::string_view texte) {
  IniFile ini;
  Section* courante = nullptr;
  while (!texte.empty()) {
    const auto eol = texte.find('\n');
    std::string_view ligne = texte.substr(0, eol);
    texte = eol == std::string_view::npos ? std::string_view() : texte.substr(eol + 1);
    ligne = rogner(ligne);
    if (ligne.empty() || ligne[0] == ';' || ligne[0] == '#') continue;
    if (ligne[0] == '[') {
      const auto fin = ligne.find(']');
      const std::string_view nom =
          rogner(ligne.substr(1, fin == std::string_view::npos ? std::string_view::npos : fin - 1));
      ini.m_sections.push_back(Section{std::string(nom), {}});
      courante = &ini.m_sections.back();
      continue;
    }
    const auto égal = ligne.find('=');
    if (courante == nullptr || égal == std::string_view::npos) continue;
    const std::string_view clé = rogner(ligne.substr(0, égal));
    std::string_view valeur = rogner(ligne.substr(égal + 1));
    if (valeur.size() >= 2 && (valeur.front() == '"' || valeur.front() == '\'') &&
        valeur.back() == valeur.front())
      valeur = valeur.substr(1, valeur.size() - 2);
    if (!clé.empty()) courante->clés.emplace_back(std::string(clé), std::string(valeur));
  }
  return ini;
}

IniFile IniFile::load(const std::filesystem::path& fichier) {
  std::ifstream in(fichier, std::ios::binary);
  if (!in) return IniFile{};
  const std::string texte((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return fromText(texte);
}

const std::string* IniFile::find(std::string_view section, std::string_view clé) const {
  // Only the first section of a name is looked at, as the profile calls do.
  for (const Section& s : m_sections) {
    if (!mêmeNom(s.nom, section)) continue;
    for (const auto& [k, v] : s.clés)
      if (mêmeNom(k, clé)) return &v;
    return nullptr;
  }
  return nullptr;
}

bool IniFile::hasKey(std::string_view section, std::string_view clé) const {
  return find(section, clé) != nullptr;
}

std::string IniFile::getPrivateProfileString(std::string_view section, std::string_view clé,
                                             std::string_view défaut) const {
  const std::string* v = find(section, clé);
  return v != nullptr ? *v : std::string(défaut);
}

int IniFile::getPrivateProfileInt(std::string_view section, std::string_view clé,
                                  int défaut) const {
  const std::string* v = find(section, clé);
  if (v == nullptr || v->empty()) return défaut;
  std::string_view s = *v;
  bool négatif = false;
  if (!s.empty() && (s[0] == '-' || s[0] == '+')) {
    négatif = s[0] == '-';
    s.remove_prefix(1);
  }
  int base = 10;
  if (s.size() > 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) {
    base = 16;
    s.remove_prefix(2);
  }
  long long n = 0;
  for (char c : s) {
    int d = -1;
    if (c >= '0' && c <= '9')
      d = c - '0';
    else if (base == 16 && minuscule(c) >= 'a' && minuscule(c) <= 'f')
      d = minuscule(c) - 'a' + 10;
    if (d < 0) break;
    n = n * base + d;
    if (n > static_cast<long long>(INT_MAX) + 1) n = static_cast<long long>(INT_MAX) + 1;
  }
  if (négatif) n = -n;
  if (n > INT_MAX) n = INT_MAX;
  if (n < INT_MIN) n = INT_MIN;
  return static_cast<int>(n);
}

}  // namespace vt
