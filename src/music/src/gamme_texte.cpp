#include "music/gamme_texte.h"

#include <array>
#include <cctype>
#include <string>

namespace vt {

namespace {

struct Nom {
  const char* texte;  // lower case, UTF-8
  int classe;         // A-based
};

// Longest first, so that "sol" is not read as "s" and "ol".
constexpr std::array<Nom, 14> kNoms = {{{"sol", 10},
                                        {"do", 3},
                                        {"re", 5},
                                        {"r\xC3\xA9", 5},
                                        {"mi", 7},
                                        {"fa", 8},
                                        {"la", 0},
                                        {"si", 2},
                                        {"a", 0},
                                        {"b", 2},
                                        {"c", 3},
                                        {"d", 5},
                                        {"e", 7},
                                        {"f", 8}}};
constexpr Nom kSol{"g", 10};

std::string minuscules(std::string_view t) {
  std::string s;
  for (std::size_t i = 0; i < t.size(); ++i) {
    // "É" of UTF-8 (C3 89) to "é" (C3 A9); the other bytes as ASCII.
    if (static_cast<unsigned char>(t[i]) == 0xC3 && i + 1 < t.size() &&
        static_cast<unsigned char>(t[i + 1]) == 0x89) {
      s += "\xC3\xA9";
      ++i;
      continue;
    }
    s += static_cast<char>(std::tolower(static_cast<unsigned char>(t[i])));
  }
  return s;
}

struct Lu {
  int classe;
  std::string_view reste;  // what follows the name and its accidentals
};

std::optional<Lu> litNom(std::string_view texte) {
  const std::string s = minuscules(texte);
  std::size_t lu = 0;
  int classe = -1;
  for (const Nom& n : kNoms) {
    const std::string_view nom(n.texte);
    if (s.compare(0, nom.size(), nom) == 0) {
      classe = n.classe;
      lu = nom.size();
      break;
    }
  }
  if (classe < 0 && s.compare(0, 1, kSol.texte) == 0) {
    classe = kSol.classe;
    lu = 1;
  }
  if (classe < 0) return std::nullopt;
  // Accidentals, possibly after blanks ("Do #").
  std::size_t i = lu;
  while (i < s.size() && s[i] == ' ')
    ++i;
  bool altéré = false;
  while (i < s.size() && (s[i] == '#' || s[i] == 'b')) {
    classe += s[i] == '#' ? 1 : -1;
    ++i;
    altéré = true;
  }
  if (!altéré) i = lu;
  return Lu{((classe % 12) + 12) % 12, texte.substr(i)};
}

std::optional<int> nombre(std::string_view t, int min, int max) {
  if (t.empty() || t.size() > 4) return std::nullopt;
  bool négatif = false;
  if (t.front() == '-') {
    négatif = true;
    t.remove_prefix(1);
    if (t.empty()) return std::nullopt;
  }
  int n = 0;
  for (char c : t) {
    if (c < '0' || c > '9') return std::nullopt;
    n = n * 10 + (c - '0');
  }
  if (négatif) n = -n;
  if (n < min || n > max) return std::nullopt;
  return n;
}

}  // namespace

std::optional<int> classeDeNom(std::string_view texte) {
  const auto lu = litNom(texte);
  if (!lu) return std::nullopt;
  if (!lu->reste.empty() && !nombre(lu->reste, -1, 9)) return std::nullopt;
  return lu->classe;
}

std::optional<int> noteDeTexte(std::string_view texte) {
  if (const auto n = nombre(texte, 0, 127)) return n;
  const auto lu = litNom(texte);
  if (!lu) return std::nullopt;
  const auto octave = nombre(lu->reste, -1, 9);
  if (!octave) return std::nullopt;
  // The octave changes at C: A-based class 3 is C.
  const int depuisDo = (lu->classe + 9) % 12;
  const int note = (*octave + 1) * 12 + depuisDo;
  if (note < 0 || note > 127) return std::nullopt;
  return note;
}

std::optional<int> noteOuClasse(std::string_view texte) {
  if (const auto n = noteDeTexte(texte)) return n;
  const auto c = classeDeNom(texte);
  if (!c) return std::nullopt;
  return 60 + (*c + 9) % 12;
}

}  // namespace vt
