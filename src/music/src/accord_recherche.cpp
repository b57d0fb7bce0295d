// The search walks the neck one window of frets at a time: the window starts
// at the lowest fretted note of the fingerings it finds (so that each
// fingering is found once) and is MAXSPAN frets wide. Each string is muted,
// open or fretted on a chord tone inside the window; the strings that sound
// form one run without a muted string inside, unless no fingering of the
// chord can do without one. A fingering keeps every essential tone, needs at
// most four fingers (the index may bar the lowest fret) and sounds at least
// three strings.
#include "music/accord_recherche.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace vt {

namespace {

// What a fingering must be.
constexpr int kCordesJouéesMin = 3;
constexpr int kDoigts = 4;

// The fixed parts of the score, beside the user's seven parameters
// (docs/chords.md weighs them against each other).
constexpr int kParCordeJouée = 5;       // a fuller chord rings better
constexpr int kCordesPleines = 4;       // under four strings a chord sounds thin...
constexpr int kParCordeManquante = 20;  // ...and loses this for each one missing
constexpr int kParMuetAigu = 12;        // chord books let the treble strings ring
constexpr int kParMuetIntérieur = 20;   // when a muted string inside cannot be avoided
constexpr int kOuvertesComptées = 3;    // past three, open strings add nothing
constexpr int kParDoublure = 5;         // a third, a seventh or an extension twice
constexpr int kParUnisson = 15;         // two strings on one pitch: a string wasted
constexpr int kTonsMax = 5;             // past five tones an extended chord turns to mud...
constexpr int kParTonDeTrop = 25;       // ...and loses this for each tone more
constexpr int kRegistreGrave = 15;      // semitones above the lowest open string

struct Trouvé {
  Doigté d;
  int position = 0;  // lowest fretted fret, 0 when all strings are open
};

class Recherche {
 public:
  Recherche(const ConstructionAccord& accord, std::span<const int> cordes,
            const ParametresAccord& p, std::vector<Trouvé>& sortie)
      : m_n(static_cast<int>(cordes.size())), m_p(p), m_sortie(sortie) {
    m_tonDe.fill(-1);
    for (std::size_t i = 0; i < accord.tons.size(); ++i) {
      const TonAccord& t = accord.tons[i];
      m_tonDe[static_cast<std::size_t>(t.demiTons)] = static_cast<int>(i);
      if (t.essentiel) m_requis |= 1u << i;
      if (t.demiTons == 7) m_quinte = static_cast<int>(i);
    }
    // A power chord (root and fifth) is played on two or three strings.
    m_puissance = accord.tons.size() <= 2;
    // The search knows the strings by pitch class only: each string is taken
    // as the next pitch of its class above the string below.
    for (int s = 0; s < m_n; ++s) {
      const int h = cordes[static_cast<std::size_t>(s)];
      m_pitchOuvert[static_cast<std::size_t>(s)] =
          (h - accord.fondamentale + kDemiTons) % kDemiTons;
      m_relatif[static_cast<std::size_t>(s)] =
          s == 0 ? 0
                 : m_relatif[static_cast<std::size_t>(s - 1)] +
                       (h - cordes[static_cast<std::size_t>(s - 1)] + kDemiTons) % kDemiTons;
    }
  }

  void parcourt(bool muetsIntérieurs) {
    m_muetsIntérieurs = muetsIntérieurs;
    // Open strings only, then one window per lowest fret.
    m_base = 0;
    m_haut = 0;
    explore(0, Phase::Avant, 0, 0, 0);
    const int portée = std::min<int>(m_p.MAXSPAN, kCaseMaxRecherche);
    for (m_base = 1; portée > 0 && m_base <= kCaseMaxRecherche; ++m_base) {
      m_haut = std::min(kCaseMaxRecherche, m_base + portée - 1);
      explore(0, Phase::Avant, 0, 0, 0);
    }
  }

 private:
  enum class Phase { Avant, Dedans, Après };

  int ton(int s, int f) const {
    return m_tonDe[static_cast<std::size_t>((m_pitchOuvert[static_cast<std::size_t>(s)] + f) %
                                            kDemiTons)];
  }

  void explore(int s, Phase phase, std::uint32_t tons, std::uint32_t frettes, int jouées) {
    if (s == m_n) {
      évalue(tons, jouées);
      return;
    }
    if (std::popcount(m_requis & ~tons) > m_n - s) return;
    auto& c = m_cases[static_cast<std::size_t>(s)];

    c = -1;
    const bool ferme = phase == Phase::Dedans && !m_muetsIntérieurs;
    explore(s + 1, ferme ? Phase::Après : phase, tons, frettes, jouées);
    if (phase == Phase::Après) return;

    if (const int t = ton(s, 0); t >= 0) {
      c = 0;
      explore(s + 1, Phase::Dedans, tons | 1u << t, frettes, jouées + 1);
    }
    for (int f = std::max(1, m_base); m_base > 0 && f <= m_haut; ++f) {
      const int t = ton(s, f);
      const std::uint32_t fr = frettes | 1u << f;
      // One finger holds one fret (a barre lies on one fret).
      if (t < 0 || std::popcount(fr) > kDoigts) continue;
      c = static_cast<std::int8_t>(f);
      explore(s + 1, Phase::Dedans, tons | 1u << t, fr, jouées + 1);
    }
    c = -1;
  }

  // Fingers for the fretted notes, or more than four when the hand cannot
  // hold them. Neighbouring strings on one fret share a finger laid flat, and
  // the index may bar the lowest fret when every string under the barre is
  // fretted. A finger laid flat higher up leaves no higher fret on its bass
  // side (the fingers would cross), and two fingers on one fret lie at most
  // two strings apart when a higher fret is held between them.
  int doigts(int bas, int haut) const {
    struct Groupe {
      int frette, de, à;
    };
    std::array<Groupe, kCordesRechercheMax> g{};
    int n = 0;
    const auto frette = [&](int s) { return m_cases[static_cast<std::size_t>(s)]; };
    // The groups of the notes above `sous`; the fingers they take.
    const auto groupes = [&](int sous) {
      n = 0;
      for (int s = bas; s <= haut; ++s) {
        const int f = frette(s);
        if (f <= sous) continue;
        Groupe* dernier = n > 0 ? &g[static_cast<std::size_t>(n - 1)] : nullptr;
        if (dernier && dernier->frette == f && dernier->à == s - 1) {
          dernier->à = s;
        } else {
          g[static_cast<std::size_t>(n++)] = {f, s, s};
        }
      }
      int doigts = 0;
      for (int i = 0; i < n; ++i) {
        const Groupe& x = g[static_cast<std::size_t>(i)];
        bool couché = true;
        if (x.de != x.à && x.frette != m_base)
          for (int s = bas; s < x.de && couché; ++s)
            couché = frette(s) <= x.frette;
        doigts += couché ? 1 : x.à - x.de + 1;
      }
      return doigts;
    };
    const auto tenable = [&] {
      for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j) {
          const Groupe& a = g[static_cast<std::size_t>(i)];
          const Groupe& b = g[static_cast<std::size_t>(j)];
          if (a.frette != b.frette || b.de - a.à <= 2) continue;
          for (int s = a.à + 1; s < b.de; ++s)
            if (frette(s) > a.frette) return false;
        }
      }
      return true;
    };
    int meilleur = kDoigts + 1;
    const int simple = groupes(0);
    if (tenable()) meilleur = simple;
    int premier = -1;
    int dernier = -1;
    for (int s = bas; s <= haut; ++s) {
      if (frette(s) == m_base) {
        if (premier < 0) premier = s;
        dernier = s;
      }
    }
    if (premier < 0 || premier == dernier) return meilleur;
    for (int s = premier; s <= dernier; ++s)
      if (frette(s) < m_base) return meilleur;
    const int barré = 1 + groupes(m_base);
    if (tenable()) meilleur = std::min(meilleur, barré);
    return meilleur;
  }

  void évalue(std::uint32_t tons, int jouées) {
    if (jouées < kCordesJouéesMin || (tons & m_requis) != m_requis) return;
    int bas = -1;
    int haut = -1;
    int ouvertes = 0;
    int caseMin = 99;
    int caseMax = 0;
    for (int s = 0; s < m_n; ++s) {
      const int f = m_cases[static_cast<std::size_t>(s)];
      if (f < 0) continue;
      if (bas < 0) bas = s;
      haut = s;
      if (f == 0) {
        ++ouvertes;
      } else {
        caseMin = std::min(caseMin, f);
        caseMax = std::max(caseMax, f);
      }
    }
    const bool fretté = caseMax > 0;
    if (m_base > 0 && caseMin != m_base) return;
    if (doigts(bas, haut) > kDoigts) return;

    // Neighbouring strings a semitone apart clash anywhere, a tone apart in
    // the low register; a third, a seventh or an extension sounding twice
    // thickens the chord where a doubled root or fifth does not.
    int voisins = 0;
    int muets = 0;
    int doublures = 0;
    int unissons = 0;
    int précédente = -1;
    int basse = -1;  // the lowest pitch: an open string may sound under a fretted one
    int tonBasse = -1;
    std::array<int, 32> fois{};
    for (int s = bas; s <= haut; ++s) {
      const int f = m_cases[static_cast<std::size_t>(s)];
      if (f < 0) {
        ++muets;
        continue;
      }
      const int pitch = m_relatif[static_cast<std::size_t>(s)] + f;
      const int t = ton(s, f);
      if (précédente >= 0) {
        const int d = std::abs(pitch - précédente);
        if (d <= 1 || (d == 2 && std::min(pitch, précédente) < kRegistreGrave)) ++voisins;
        if (d == 0) ++unissons;
      }
      if (basse < 0 || pitch < basse) {
        basse = pitch;
        tonBasse = t;
      }
      if (++fois[static_cast<std::size_t>(t)] > 1 && t != 0 && t != m_quinte) ++doublures;
      précédente = pitch;
    }
    const int position = fretté ? caseMin : 0;
    const int écart = fretté ? caseMax - caseMin : 0;
    const int étendue = fretté ? caseMax - (ouvertes > 0 ? 0 : caseMin) : 0;

    // Open strings ring as part of the chord while the hand stays within reach
    // of the nut; under a hand up the neck they are a trick, not a bonus.
    const bool premièrePosition = caseMax <= std::max<int>(1, m_p.MAXSPAN);
    int score = (tonBasse == 0 ? m_p.ROOT_SCORE : 0) +
                (premièrePosition ? m_p.OPENS_SCORE * std::min(ouvertes, kOuvertesComptées) : 0) -
                m_p.POSITION_SCORE * position - m_p.SPAN_SCORE * écart - m_p.TSPAN_SCORE * étendue -
                m_p.ADJ_SCORE * voisins;
    score += kParCordeJouée * jouées - kParTonDeTrop * std::max(0, std::popcount(tons) - kTonsMax) -
             kParMuetIntérieur * muets - kParDoublure * doublures - kParUnisson * unissons;
    if (!m_puissance) {
      score -= kParMuetAigu * (m_n - 1 - haut) +
               kParCordeManquante * std::max(0, std::min(kCordesPleines, m_n) - jouées);
    }

    Trouvé t;
    std::copy_n(m_cases.begin(), m_n, t.d.cases.begin());
    t.d.score = score;
    t.position = position;
    m_sortie.push_back(t);
  }

  int m_n;
  const ParametresAccord& m_p;
  std::vector<Trouvé>& m_sortie;
  std::array<int, kDemiTons> m_tonDe{};
  std::uint32_t m_requis = 0;
  std::array<int, kCordesRechercheMax> m_pitchOuvert{};  // semitones above the root
  std::array<int, kCordesRechercheMax> m_relatif{};      // semitones above the lowest string
  std::array<std::int8_t, kCordesRechercheMax> m_cases{-1, -1, -1, -1, -1, -1, -1};
  int m_quinte = -1;
  bool m_puissance = false;
  bool m_muetsIntérieurs = false;
  int m_base = 0;
  int m_haut = 0;
};

}  // namespace

std::vector<Doigté> chercheDoigtés(const ConstructionAccord& accord, std::span<const int> cordes,
                                   const ParametresAccord& p) {
  if (cordes.size() < kCordesRechercheMin || cordes.size() > kCordesRechercheMax) return {};
  for (int h : cordes)
    if (h < 0 || h >= kDemiTons) return {};
  if (accord.tons.empty() || accord.tons.size() > 32) return {};

  std::vector<Trouvé> trouvés;
  Recherche r(accord, cordes, p, trouvés);
  r.parcourt(false);
  if (trouvés.empty()) r.parcourt(true);

  const auto meilleur = [](const Trouvé& a, const Trouvé& b) {
    if (a.d.score != b.d.score) return a.d.score > b.d.score;
    if (a.position != b.position) return a.position < b.position;
    return a.d.cases < b.d.cases;
  };
  const std::size_t n = std::min(trouvés.size(), kDoigtésMax);
  std::partial_sort(trouvés.begin(), trouvés.begin() + static_cast<std::ptrdiff_t>(n),
                    trouvés.end(), meilleur);
  std::vector<Doigté> résultat;
  résultat.reserve(n);
  for (std::size_t i = 0; i < n; ++i)
    résultat.push_back(trouvés[i].d);
  return résultat;
}

std::string renversement(const Doigté& d, std::span<const int> notesMidi, int fondamentale) {
  int basse = 128;
  for (std::size_t s = 0; s < notesMidi.size() && s < d.cases.size(); ++s)
    if (d.cases[s] >= 0) basse = std::min(basse, notesMidi[s] + d.cases[s]);
  if (basse == 128) return {};
  const int h = hauteurDeNote(basse);
  return h == fondamentale ? std::string()
                           : std::string("/") + kNomsNotes[static_cast<std::size_t>(h)];
}

}  // namespace vt
