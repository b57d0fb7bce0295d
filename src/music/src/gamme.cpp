#include "music/gamme.h"

#include <cassert>

#include "formats/string_table.h"

namespace vt {

namespace {

constexpr int kChaîneNoteSeule = 2802;
constexpr int kChaîneDe = 2803;
constexpr int kChaîneFondamentale = 2804;  // "T" / "K"
constexpr int kChaîneLa = 2806;            // 2806 "A" to 2817 "G#"
constexpr int kLongueurNoteSeule = 11;
// MIDI note of position 1 (A), less one.
constexpr int kNoteAvantLa = 44;

std::size_t idx(int i) {
  return static_cast<std::size_t>(i);
}

// The first n characters of a UTF-8 text.
std::string gaucheUtf8(const std::string& s, int n) {
  std::size_t i = 0;
  for (int c = 0; c < n && i < s.size(); ++c) {
    ++i;
    while (i < s.size() && (static_cast<unsigned char>(s[i]) & 0xC0) == 0x80)
      ++i;
  }
  return s.substr(0, i);
}

}  // namespace

Demitons tourneMode(const Demitons& d) {
  std::size_t i = 0;
  while (i < d.size() && d[i] != 0)
    ++i;
  Demitons r{};
  for (std::size_t k = 0; k < d.size(); ++k)
    r[k] = d[(i + k) % d.size()];
  return r;
}

Demitons demitonsAffichés(const tGamme& g, int setGAMMode) {
  return estMode(g) && setGAMMode == kModeSurSaFondamentale ? tourneMode(g.demitons) : g.demitons;
}

std::string demitons2intervalle(std::string_view texte) {
  static constexpr std::array<const char*, 12> kNoms = {"1",  "2b", "2",  "3b", "3",  "4",
                                                        "5b", "5",  "6b", "6",  "7b", "7"};
  for (std::size_t k = 0; k < kNoms.size(); ++k)
    if (texte == std::to_string(k)) return kNoms[k];
  return {};
}

tNotesGamme chargeNotesGamme(const Demitons& d, int tonalité) {
  assert(tonalité >= 1 && tonalité <= 12);
  tNotesGamme n;
  for (int k = 0; k < 12; ++k) {
    const byt b = d[idx(k)];
    if (b == kHorsGamme) continue;
    n.notes[idx(tonalité + k)] = true;
    n.intervalles[idx(tonalité + k)] = std::to_string(b);
  }
  // Both octaves take what either has: the arrays then repeat every 12.
  for (int k = 1; k <= 12; ++k) {
    if (!n.intervalles[idx(k)].empty()) n.intervalles[idx(k + 12)] = n.intervalles[idx(k)];
    if (!n.intervalles[idx(k + 12)].empty()) n.intervalles[idx(k)] = n.intervalles[idx(k + 12)];
    if (n.notes[idx(k)]) n.notes[idx(k + 12)] = true;
    if (n.notes[idx(k + 12)]) n.notes[idx(k)] = true;
  }
  return n;
}

bool estFondamentale(const tNotesGamme& n, int position) {
  return n.intervalles.at(idx(position)) == "0";
}

std::string etiquetteNote(const tNotesGamme& n, int position, int setGAMConst, int setLang) {
  const std::string& demitons = n.intervalles.at(idx(position));
  switch (setGAMConst) {
    case etiquette::kDemitons:
      return demitons == "0" ? loadString(kChaîneFondamentale, setLang) : demitons;
    case etiquette::kIntervalle:
      return demitons2intervalle(demitons);
    case etiquette::kNomNote:
      return kNomsNotesLa[idx((position - 1) % 12)];
    default:
      return {};
  }
}

std::string texteConstruction(const tNotesGamme& n, int setGAMConst, int setLang) {
  std::string texte;
  for (int p = 1; p <= 24; ++p) {
    if (!n.notes[idx(p)]) continue;
    const std::string e = etiquetteNote(n, p, setGAMConst, setLang);
    if (e.empty()) continue;
    if (!texte.empty()) texte += ' ';
    texte += e;
  }
  return texte;
}

std::vector<int> listeLecture(const tNotesGamme& n, int tonalité) {
  assert(tonalité >= 1 && tonalité <= 12);
  std::vector<int> lecture;
  for (int p = tonalité; p <= tonalité + 12; ++p)
    if (n.notes[idx(p)]) lecture.push_back(p + kNoteAvantLa);
  return lecture;
}

std::string nomTonalité(int tonalité, int setLang) {
  if (tonalité < 1 || tonalité > 12) return {};
  return loadString(kChaîneLa + tonalité - 1, setLang);
}

std::string titreGamme(const std::string& nomGamme, const std::string& nomTon, int setLang) {
  if (gaucheUtf8(nomGamme, kLongueurNoteSeule) == loadString(kChaîneNoteSeule, setLang))
    return nomTon;
  return nomGamme + loadString(kChaîneDe, setLang) + nomTon;
}

int positionDeNote(int note) {
  assert(note >= 0);
  return (note + 3) % 12 + 1;
}

std::vector<tCaseGamme> casesGamme(const tNotesGamme& n, const tGuitare& g) {
  std::vector<tCaseGamme> cases;
  for (int s = 1; s <= 7; ++s) {
    const int corde = g.corde[idx(s)];
    if (corde == 0) continue;
    for (int c = 0; c <= 24; ++c) {
      const int p = positionDeNote(corde + c);
      if (n.notes[idx(p)]) cases.push_back({c, s, p});
    }
  }
  return cases;
}

}  // namespace vt
