#include "render/staff_pitch.h"

namespace vt {

Graphie graphie(int p) {
  // u at octave 0 and the letter for each pitch class, C first.
  struct Ligne {
    int u0;
    int lettre;
    bool dièse;
  };
  static constexpr std::array<Ligne, 12> kGraphies{{
      {30, kDo, false},
      {30, kDo, true},
      {29, kRé, false},
      {29, kRé, true},
      {28, kMi, false},
      {27, kFa, false},
      {27, kFa, true},
      {26, kSol, false},
      {26, kSol, true},
      {25, kLa, false},
      {25, kLa, true},
      {24, kSi, false},
  }};
  const int o = p / 12;
  const Ligne& l = kGraphies[static_cast<std::size_t>(((p % 12) + 12) % 12)];
  return Graphie{l.u0 - 7 * o, l.lettre, l.dièse};
}

int getNbUnitesFromStaffLowLineForDrums(int drum) {
  switch (drum) {
    case 35: return 0;
    case 36: return -1;
    case 37: return 2;
    case 38:
    case 40: return -5;
    case 41: return -2;
    case 43: return -3;
    case 45: return -4;
    case 47:
    case 53:
    case 59: return -6;
    case 48:
    case 56: return -7;
    case 50:
    case 51: return -8;
    case 42:
    case 46: return -9;
    case 44: return 1;
    case 49: return -10;
    case 55: return -11;
    case 57: return -12;
    case 52: return -13;
    default: return 0;
  }
}

Altérations altérationsDeTonalité(int altérations) {
  static constexpr std::array<int, 7> kOrdreDièses{kFa, kDo, kSol, kRé, kLa, kMi, kSi};
  static constexpr std::array<int, 7> kOrdreBémols{kSi, kMi, kLa, kRé, kSol, kDo, kFa};
  Altérations t{};
  for (int i = 0; i < altérations && i < 7; ++i)
    t[static_cast<std::size_t>(kOrdreDièses[static_cast<std::size_t>(i)])] = 1;
  for (int i = 0; i < -altérations && i < 7; ++i)
    t[static_cast<std::size_t>(kOrdreBémols[static_cast<std::size_t>(i)])] = -1;
  return t;
}

Accident accidentPour(const Graphie& g, Altérations& table) {
  i16& enVigueur = table[static_cast<std::size_t>(g.lettre)];
  if (!g.dièse) {
    if (enVigueur == -1 || enVigueur == 1) {
      enVigueur = 0;
      return Accident::Bécarre;
    }
    return Accident::Aucun;
  }
  if (enVigueur == -1 || enVigueur == 0) {
    enVigueur = 1;
    return Accident::Dièse;
  }
  return Accident::Aucun;
}

int getTempsPortéeMaxMinNote(const CVantoroTablature& doc, int p, int m, int c, int n,
                             bool maximum) {
  const int temps = doc.getTempsNote(p, m, c, n);
  const bool batterie = doc.getStaffType(p) == kStaffBatterie;
  int valeur = 0;
  for (int s = 1; s <= doc.getGuitareNbrCordes(p); ++s) {
    const OneBased<tNote>* l = doc.notes(p, m, s);
    if (l == nullptr) continue;
    for (int k = 1; k <= l->last(); ++k) {
      const tNote& note = (*l)[k];
      if (note.bytCase == kCaseVide || doc.getTempsNote(p, m, s, k) != temps) continue;
      if (batterie) {
        const int unités = getNbUnitesFromStaffLowLineForDrums(note.bytCase);
        if (maximum ? unités < valeur : unités > valeur) valeur = unités;
      } else {
        const int hauteur = note.bytCase + doc.getGuitareCorde(p, s);
        if (maximum ? hauteur > valeur : hauteur < valeur) valeur = hauteur;
      }
    }
  }
  if (batterie) return 52 - valeur;
  if (doc.getPortéeClef(p) == 2) valeur += 24;
  return valeur;
}

}  // namespace vt
