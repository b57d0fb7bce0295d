#include "music/harmony.h"

#include <initializer_list>

#include "document/cp1252.h"
#include "formats/string_table.h"
#include "music/gamme.h"

namespace vt {

namespace {

constexpr int kChaîneDe = 2803;
constexpr int kChaîneDo = 2809;  // 2809 "C" to 2817 "G#"
constexpr int kChaîneLa = 2806;  // 2806 "A" to 2808 "B"
constexpr int kDernièreNote = 131;

std::size_t idx(int i) {
  return static_cast<std::size_t>(i);
}

using Masque = unsigned;

Masque masque(std::initializer_list<int> demitons) {
  Masque m = 0;
  for (int d : demitons)
    m |= 1u << d;
  return m;
}

// The standard list of the chord dictionary, by the notes each type holds
// above its root.
struct TypeStandard {
  const char* type;
  Masque notes;
};

const std::array<TypeStandard, 19>& typesStandard() {
  static const std::array<TypeStandard, 19> t = {{
      {"6", masque({0, 4, 7, 9})},
      {"7", masque({0, 4, 7, 10})},
      {"7sus2", masque({0, 2, 7, 10})},
      {"7sus4", masque({0, 5, 7, 10})},
      {"9", masque({0, 2, 4, 7, 10})},
      {"11", masque({0, 2, 4, 5, 7, 10})},
      {"13", masque({0, 2, 4, 7, 9, 10})},
      {"maj", masque({0, 4, 7})},
      {"maj7 3b", masque({0, 3, 7, 11})},
      {"maj7", masque({0, 4, 7, 11})},
      {"min", masque({0, 3, 7})},
      {"min6", masque({0, 3, 7, 9})},
      {"min7", masque({0, 3, 7, 10})},
      {"min7 5b", masque({0, 3, 6, 10})},
      {"sus", masque({0, 7})},
      {"sus2", masque({0, 2, 7})},
      {"sus4", masque({0, 5, 7})},
      {"dim", masque({0, 3, 6})},
      {"aug", masque({0, 4, 8})},
  }};
  return t;
}

// The record laid from drawn root r matches the drawn set exactly. The root
// itself (byte 0) is on by the choice of r and is not looked at.
bool identifie(const Demitons& d, const TonsDessinés& tons, int r) {
  for (int i = 1; i <= 11; ++i) {
    const bool dessiné = tons[idx(zob(r + i))];
    const bool dansLaGamme = d[idx(i)] < kHorsGamme;
    if (dessiné != dansLaGamme) return false;
  }
  return true;
}

}  // namespace

bool receiveNote(TonsDessinés& tons, int note) {
  if (note < 0 || note > kDernièreNote) return false;
  const int k = note % 12;
  tons[idx(k + 1)] = !tons[idx(k + 1)];
  return true;
}

int zob(int n) {
  return n >= 13 ? n - 12 : n;
}

std::string tnumber2tname(int n, int setLang) {
  if (n >= 1 && n <= 9) return loadString(kChaîneDo + n - 1, setLang);
  if (n >= 10 && n <= 12) return loadString(kChaîneLa + n - 10, setLang);
  return {};
}

int tonalitéDeTon(int n) {
  return (n - 1 + 3) % 12 + 1;
}

std::vector<tHarmonie> computeHarmony(const FichierGammes& f, const TonsDessinés& tons,
                                      int optIdType, int setGAMMode, int setLang) {
  std::vector<tHarmonie> liste;
  for (int g = 1; g <= f.count(); ++g) {
    const tGamme& gamme = f.gamme(g);
    if (optIdType == kHarmonisation) {
      if (!estAccord(gamme, setLang)) continue;
      for (int r = 1; r <= 12; ++r)
        if (tons[idx(r)]) liste.push_back({g, r});
    } else {
      const Demitons d = demitonsAffichés(gamme, setGAMMode);
      for (int r = 1; r <= 12; ++r)
        if (tons[idx(r)] && identifie(d, tons, r)) liste.push_back({g, r});
    }
  }
  return liste;
}

std::string ligneHarmonie(const FichierGammes& f, const tHarmonie& h, int setLang) {
  return cp1252ToUtf8(nomGamme(f.gamme(h.gamme), setLang)) + loadString(kChaîneDe, setLang) +
         tnumber2tname(h.fondamentale, setLang);
}

std::vector<std::pair<int, int>> casesHarmony(const TonsDessinés& tons, const tGuitare& g) {
  // The octave each string's notes are counted from: C4, C3, C2.
  static constexpr std::array<int, 8> kBase = {0, 60, 60, 48, 48, 48, 36, 36};
  std::vector<std::pair<int, int>> cases;
  for (int k = 0; k < 12; ++k) {
    if (!tons[idx(k + 1)]) continue;
    for (int d = -24; d <= 24; d += 12)
      for (int s = 1; s <= 7; ++s) {
        const int c = d + k + kBase[idx(s)] - g.corde[idx(s)];
        if (c >= 0 && c <= 24) cases.emplace_back(c, s);
      }
  }
  return cases;
}

std::optional<std::string> typeAccordStandard(const Demitons& d) {
  Masque m = 0;
  for (byt b : d) {
    if (b == kHorsGamme) continue;
    if (b >= 12) return std::nullopt;
    m |= 1u << b;
  }
  for (const TypeStandard& t : typesStandard())
    if (t.notes == m) return std::string(t.type);
  return std::nullopt;
}

}  // namespace vt
