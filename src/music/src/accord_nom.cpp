#include "music/accord_nom.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace vt {

namespace {

// The degrees a chord can hold, by their number; the slots of the builder.
enum Degré : std::size_t { k2, k3, k4, k5, k6, k7, k9, k11, k13, kNbrDegrés };

struct Case {
  bool présent = false;
  int demiTons = 0;
  std::string nom;
};

using Cases = std::array<Case, kNbrDegrés>;

void pose(Cases& c, Degré d, int demiTons, std::string nom) {
  c[d] = {true, demiTons, std::move(nom)};
}

// A degree's slot, its natural interval and its written number.
struct DegréNommé {
  int nombre;
  Degré slot;
  int naturel;
};

constexpr std::array<DegréNommé, 7> kDegrés = {{
    {2, k2, 2},
    {4, k4, 5},
    {6, k6, 9},
    {7, k7, 10},  // the dominant chord's seventh: "add7" is the minor one
    {9, k9, 2},
    {11, k11, 5},
    {13, k13, 9},
}};

const DegréNommé* degré(int nombre) {
  for (const DegréNommé& d : kDegrés)
    if (d.nombre == nombre) return &d;
  return nullptr;
}

// The written name of a degree moved by `décalage` from its natural interval.
std::string nomDegré(const DegréNommé& d, int décalage) {
  const std::string n = std::to_string(d.nombre);
  if (d.nombre == 7) return décalage < 0 ? "bb7" : décalage == 0 ? "b7" : "7";
  return (décalage < 0 ? "b" : décalage > 0 ? "#" : "") + n;
}

bool commencePar(std::string_view s, std::string_view préfixe) {
  return s.substr(0, préfixe.size()) == préfixe;
}

bool chiffre(char c) {
  return c >= '0' && c <= '9';
}

// Reads a degree number at the front of `s`; 0 when none is there.
int litNombre(std::string_view& s) {
  std::size_t i = 0;
  int n = 0;
  while (i < s.size() && chiffre(s[i]) && i < 2) {
    n = n * 10 + (s[i] - '0');
    ++i;
  }
  s.remove_prefix(i);
  return n;
}

std::optional<int> litFondamentale(std::string_view& s) {
  static constexpr std::string_view kLettres = "A?BC?D?EF?G?";
  if (s.empty()) return std::nullopt;
  const std::size_t i = kLettres.find(s[0]);
  if (i == std::string_view::npos || s[0] == '?') return std::nullopt;
  int h = static_cast<int>(i);
  s.remove_prefix(1);
  if (!s.empty() && s[0] == '#') {
    h += 1;
    s.remove_prefix(1);
  } else if (!s.empty() && s[0] == 'b') {
    h += kDemiTons - 1;
    s.remove_prefix(1);
  }
  return h % kDemiTons;
}

// The base at the front of `s`: its third and fifth (and the seventh of the
// half-diminished chord). "dim" and "aug" followed by a number are degrees.
bool litBase(std::string_view& s, Cases& c) {
  pose(c, k3, 4, "3");
  pose(c, k5, 7, "5");
  const auto suivi = [&](std::string_view mot) {
    return commencePar(s, mot) && (s.size() == mot.size() || !chiffre(s[mot.size()]));
  };
  if (commencePar(s, "min") || (commencePar(s, "m") && !commencePar(s, "maj"))) {
    pose(c, k3, 3, "b3");
    s.remove_prefix(commencePar(s, "min") ? 3 : 1);
  } else if (commencePar(s, "sus0")) {
    c[k3] = {};
    s.remove_prefix(4);
  } else if (commencePar(s, "sus2") || commencePar(s, "sus4")) {
    c[k3] = {};
    if (s[3] == '2') {
      pose(c, k2, 2, "2");
    } else {
      pose(c, k4, 5, "4");
    }
    s.remove_prefix(4);
  } else if (commencePar(s, "ddm")) {
    pose(c, k3, 3, "b3");
    pose(c, k5, 6, "b5");
    pose(c, k7, 10, "b7");
    s.remove_prefix(3);
  } else if (suivi("dim")) {
    pose(c, k3, 3, "b3");
    pose(c, k5, 6, "b5");
    s.remove_prefix(3);
  } else if (suivi("aug")) {
    pose(c, k5, 8, "#5");
    s.remove_prefix(3);
  }
  return true;
}

bool litDegré(std::string_view& s, Cases& c) {
  int décalage = 0;
  bool nu = false;
  if (commencePar(s, "add")) {
    s.remove_prefix(3);
  } else if (commencePar(s, "dim")) {
    décalage = -1;
    s.remove_prefix(3);
  } else if (commencePar(s, "aug")) {
    décalage = 1;
    s.remove_prefix(3);
  } else {
    nu = true;
  }
  const int nombre = litNombre(s);
  const DegréNommé* d = degré(nombre);
  if (!d) return false;
  if (nu) {
    // The bare extensions bring what stands under them.
    if (nombre != 9 && nombre != 11 && nombre != 13) return false;
    if (!c[k7].présent) pose(c, k7, 10, "b7");
    if (nombre == 13 && !c[k9].présent) pose(c, k9, 2, "9");
  }
  pose(c, d->slot, (d->naturel + décalage + kDemiTons) % kDemiTons, nomDegré(*d, décalage));
  return true;
}

}  // namespace

std::array<int, kDemiTons> ConstructionAccord::tableau() const {
  std::array<int, kDemiTons> t;
  t.fill(-1);
  for (const TonAccord& ton : tons)
    t[static_cast<std::size_t>(ton.demiTons)] = (fondamentale + ton.demiTons) % kDemiTons;
  return t;
}

const TonAccord* ConstructionAccord::ton(int demiTons) const {
  for (const TonAccord& t : tons)
    if (t.demiTons == demiTons) return &t;
  return nullptr;
}

std::optional<ConstructionAccord> lisNomAccord(std::string_view nom) {
  ConstructionAccord accord;
  const auto fondamentale = litFondamentale(nom);
  if (!fondamentale) return std::nullopt;
  accord.fondamentale = *fondamentale;
  Cases c;
  litBase(nom, c);
  while (!nom.empty())
    if (!litDegré(nom, c)) return std::nullopt;

  // What a guitarist may leave out: a perfect fifth under a richer chord, a
  // natural ninth under an eleventh or a thirteenth, a natural eleventh under
  // a thirteenth. Altered tones give the chord its colour: they stay.
  unsigned demiTons = 1;
  for (const Case& x : c)
    if (x.présent) demiTons |= 1u << x.demiTons;
  std::array<bool, kNbrDegrés> optionnel{};
  optionnel[k5] = c[k5].demiTons == 7 && std::popcount(demiTons) > 3;
  optionnel[k9] = c[k9].demiTons == 2 && (c[k11].présent || c[k13].présent);
  optionnel[k11] = c[k11].demiTons == 5 && c[k13].présent;

  accord.tons.push_back({0, "1", true});
  for (std::size_t d = 0; d < kNbrDegrés; ++d) {
    if (!c[d].présent) continue;
    // Two degrees on one semitone (a ninth and a second) are one tone: the
    // lower degree names it, and it is essential when either is.
    auto même = std::find_if(accord.tons.begin(), accord.tons.end(),
                             [&](const TonAccord& t) { return t.demiTons == c[d].demiTons; });
    if (même != accord.tons.end()) {
      même->essentiel = même->essentiel || !optionnel[d];
      continue;
    }
    accord.tons.push_back({c[d].demiTons, c[d].nom, !optionnel[d]});
  }
  // In the order of the degrees: the second before the third, the ninth last but two.
  std::stable_sort(accord.tons.begin() + 1, accord.tons.end(),
                   [](const TonAccord& a, const TonAccord& b) {
                     const auto rang = [](const TonAccord& t) {
                       const std::string chiffres = t.degré.substr(t.degré.find_first_not_of("b#"));
                       return std::stoi(chiffres);
                     };
                     return rang(a) < rang(b);
                   });
  return accord;
}

}  // namespace vt
