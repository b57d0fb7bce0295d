#include "formats/midi_walk.h"

#include <algorithm>
#include <cstdlib>

#include "arrondi.h"

namespace vt {

namespace {

// A bar entered this often has been played as often as any valid repeat plays it.
constexpr int kPassagesMax = 256;

const CordeEtat kCordeVide;

// The fret that sounds: natural harmonics sound at their node, artificial ones
// an octave above the fretted note.
int fretteSonore(const tNote& n) {
  if (n.bytAttaque == attaque::kHarmoniqueNaturelle) {
    switch (n.bytCase) {
      case 7: return 19;
      case 5: return 24;
      case 9:
      case 4: return 28;
      default: return n.bytCase;
    }
  }
  if (n.bytAttaque == attaque::kHarmoniqueArtificielle) return n.bytCase + 12;
  return n.bytCase;
}

bool estGlisse(byt effet) {
  return effet == effet::kSlideUp || effet == effet::kSlideDown || effet == effet::kBendUp ||
         effet == effet::kBendDown || effet == effet::kBendReturn;
}

byt donnée(int v) { return static_cast<byt>(std::clamp(v, 0, 127)); }

}  // namespace

// ---- BarWalk ---------------------------------------------------------------

BarWalk::BarWalk(const WalkInput& in, bool repeats, int startMesure)
    : m_in(&in), m_repeats(repeats), m_mesure(std::max(startMesure, 1)) {
  entrer();
}

void BarWalk::entrer() {
  if (fini()) return;
  if (m_in->mesure(m_mesure).bytLoopGaucheType == barre::kRepetition) m_reprise = m_mesure;
  if (m_passages.size() <= static_cast<std::size_t>(m_mesure))
    m_passages.resize(static_cast<std::size_t>(m_in->getMesureLast()) + 1, 0);
  ++m_passages[static_cast<std::size_t>(m_mesure)];
}

void BarWalk::suivante() {
  if (fini()) return;
  const WalkMesure& h = m_in->mesure(m_mesure);
  m_début += h.largeur();
  bool saute = false;
  if (m_repeats && h.bytLoopDroiteType == barre::kRepetition) {
    if (m_compteur == 0) {
      m_compteur = h.bytLoopDroiteData;
      saute = m_compteur != 0;
    } else {
      --m_compteur;
      saute = m_compteur != 0;
    }
  }
  const int cible = std::max(m_reprise, 1);
  if (saute && m_passages[static_cast<std::size_t>(cible)] >= kPassagesMax) {
    saute = false;
    m_compteur = 0;
  }
  if (saute) {
    m_mesure = cible;
    m_saut = true;
    ++m_sauts;
  } else {
    ++m_mesure;
    m_saut = false;
  }
  entrer();
}

// ---- MidiWalk --------------------------------------------------------------

MidiWalk::MidiWalk(const WalkInput& in, WalkOptions options, std::vector<int> pistes)
    : m_in(&in),
      m_options(options),
      m_pistes(std::move(pistes)),
      m_bars(in, options.repeats, options.startMesure),
      m_x(std::max(options.startX, 0)),
      m_origine(m_x) {
  if (m_pistes.empty())
    for (int p = 1; p <= in.getPisteLast(); ++p) m_pistes.push_back(p);
  std::erase_if(m_pistes, [&](int p) { return !in.hasPiste(p); });
  m_etat.resize(static_cast<std::size_t>(in.getPisteLast()) + 1);
  entrerMesure();
}

bool MidiWalk::fini() const {
  if (m_bars.fini()) return true;
  if (m_options.stopMesure > 0) {
    const int m = m_bars.mesure();
    return m > m_options.stopMesure || (m == m_options.stopMesure && m_x >= m_options.stopX);
  }
  return false;
}

CordeEtat MidiWalk::corde(int p, int c) const {
  if (p < 1 || static_cast<std::size_t>(p) >= m_etat.size() || c < 1 || c > kMaxCordes)
    return kCordeVide;
  const PisteEtat& t = m_etat[static_cast<std::size_t>(p)];
  CordeEtat s = t.cordes[static_cast<std::size_t>(c)];
  if (s.restant > 0) s.restant -= t.écoulé;
  return s;
}

void MidiWalk::entrerMesure() {
  m_tempo = 1;
  if (m_bars.fini()) return;
  const int m = m_bars.mesure();
  m_largeur = m_in->mesure(m).largeur();
  for (int p : m_pistes) {
    PisteEtat& t = m_etat[static_cast<std::size_t>(p)];
    t.nbrCordes = std::min<int>(m_in->piste(p).bytNbrCordes, kMaxCordes);
    for (int c = 1; c <= kMaxCordes; ++c) t.listes[static_cast<std::size_t>(c)] = m_in->notes(p, m, c);
    t.curseur.fill(1);
    t.accords = &m_in->accords(p, m);
    t.accord = 0;
    t.calme = 0;
  }
}

void MidiWalk::run(WalkSink& sink) {
  while (!fini()) step(sink);
}

void MidiWalk::émettre(WalkSink& sink, WalkEventType type, int p, int c,
                       std::array<byt, 3> octets, int taille, const tNote* note) {
  if (p > 0 && m_in->piste(p).boolMuet != kFaux) return;
  WalkEvent e;
  e.type = type;
  e.piste = p;
  e.corde = c;
  e.mesure = m_bars.mesure();
  e.x = m_x;
  e.temps = temps();
  e.aprèsSaut = m_bars.sautEnCours();
  e.sauts = m_bars.sauts();
  e.octets = octets;
  e.taille = taille;
  e.note = note;
  sink.event(e);
}

void MidiWalk::step(WalkSink& sink) {
  if (fini()) return;
  const int m = m_bars.mesure();
  const WalkMesure& h = m_in->mesure(m);

  // A tempo change belongs to the bar, not to a track: reported once.
  const auto& tempos = h.tabTempos;
  while (m_tempo <= tempos.last() && tempos[m_tempo].intX < m_x) ++m_tempo;
  if (m_tempo <= tempos.last() && tempos[m_tempo].intX == m_x) {
    int n = m_tempo;
    while (n < tempos.last() && tempos[n + 1].intX == m_x) ++n;  // the last one at X counts
    WalkEvent e;
    e.type = WalkEventType::Tempo;
    e.mesure = m;
    e.x = m_x;
    e.temps = temps();
    e.aprèsSaut = m_bars.sautEnCours();
    e.sauts = m_bars.sauts();
    e.tempo = tempos[n].bytTempo;
    sink.event(e);
  }

  for (int p : m_pistes) stepPiste(p, sink);

  if (++m_x > m_largeur) {
    m_bars.suivante();
    m_x = 0;
    entrerMesure();
  }
}

// The length that a tie on note n adds: the next note on the string when it
// starts right where n ends, or for the bar's last note the first note of the
// next bar when it stands at X 0.
int MidiWalk::suivanteLiée(int p, int m, int c, int n) const {
  const OneBasedView<tNote> l = m_in->notes(p, m, c);
  if (!l.has(n)) return 0;
  if (n < l.last()) {
    const tNote& suiv = l[n + 1];
    return suiv.intX == l[n].intX + l[n].bytDurée ? suiv.bytDurée : 0;
  }
  const OneBasedView<tNote> après = m_in->notes(p, m + 1, c);
  return (!après.empty() && après[1].intX == 0) ? après[1].bytDurée : 0;
}

void MidiWalk::preparerGlisse(const tNote& note, CordeEtat& s, int p, int m, int c, int n,
                              int largeur) {
  // The target: the next fretted note of the bar, else the next bar's first
  // note when it stands at X 0.
  const OneBasedView<tNote> l = m_in->notes(p, m, c);
  int cible = -1;
  int ticks = 0;
  for (int j = n + 1; j <= l.last(); ++j) {
    if (l[j].intX > note.intX && l[j].bytCase < kCaseVide) {
      cible = l[j].bytCase;
      ticks = l[j].intX - note.intX;
      break;
    }
  }
  if (cible < 0) {
    const OneBasedView<tNote> après = m_in->notes(p, m + 1, c);
    if (!après.empty() && après[1].intX == 0 && après[1].bytCase < kCaseVide) {
      cible = après[1].bytCase;
      ticks = largeur - note.intX;
    }
  }
  if (cible < 0 || ticks <= 0) return;

  int diff = cible - note.bytCase;
  const MidiEffetOptions& o = m_options.effets;
  if (o.setMIDIEffet1Ton == 0) {
    const int r = std::max(o.setMIDIPitchBendRange, 1);
    s.glisse = true;
    const double pas = std::abs(diff) > r ? (diff > 0 ? 8192.0 : -8192.0) / ticks
                                          : (diff * 8192.0 / r) / ticks;
    // Bends go out on every second tick.
    s.bendPas = static_cast<int>(detail::arrondiPair(pas)) * 2;
  } else {
    const int demiTon = std::max(o.setMIDIPitchDemiTon, 1);
    const int limite = 64 / demiTon;
    s.glisse = std::abs(diff) <= limite;
    diff = std::clamp(diff, -limite, limite);
    s.bendPas = static_cast<int>(detail::arrondiPair(demiTon * diff * 256.0 / ticks));
  }
  s.bendRestant = ticks;
}

void MidiWalk::stepPiste(int p, WalkSink& sink) {
  PisteEtat& t = m_etat[static_cast<std::size_t>(p)];
  if (t.calme > 0) {
    --t.calme;
    ++t.écoulé;
    return;
  }
  if (t.écoulé > 0) {
    for (CordeEtat& s : t.cordes)
      if (s.restant > 0) s.restant -= t.écoulé;
    t.écoulé = 0;
  }
  const WalkPiste& wp = m_in->piste(p);
  const int cordes = t.nbrCordes;
  const int m = m_bars.mesure();
  const int x = m_x;
  const byt canal = static_cast<byt>(wp.bytCanal & 0x0F);

  // Most ticks hold no note start, no chord, no bend and no note's end: the
  // sounding notes only count down. Those ticks cost this one pass.
  std::array<int, kMaxCordes + 1> ici{};
  bool calme = true;
  if (!t.accords->empty()) {
    while (t.accord < t.accords->size() && (*t.accords)[t.accord] < x) ++t.accord;
    calme = t.accord >= t.accords->size() || (*t.accords)[t.accord] != x;
  }
  for (int c = 1; c <= cordes; ++c) {
    const OneBasedView<tNote> l = t.listes[static_cast<std::size_t>(c)];
    int& i = t.curseur[static_cast<std::size_t>(c)];
    while (i <= l.last() && l[i].intX < x) ++i;
    ici[static_cast<std::size_t>(c)] = (i <= l.last() && l[i].intX == x) ? i : 0;
    const CordeEtat& s = t.cordes[static_cast<std::size_t>(c)];
    calme = calme && ici[static_cast<std::size_t>(c)] == 0 && s.restant != 0 && s.bendRestant <= 0;
  }
  if (calme) {
    for (int c = 1; c <= cordes; ++c)
      if (t.cordes[static_cast<std::size_t>(c)].restant > 0) --t.cordes[static_cast<std::size_t>(c)].restant;
    t.calme = calmeÀVenir(t, x);
    return;
  }
  const int largeur = m_largeur;
  auto noteIci = [&](int c) -> const tNote* {
    const int n = ici[static_cast<std::size_t>(c)];
    return n != 0 ? &t.listes[static_cast<std::size_t>(c)][n] : nullptr;
  };
  auto etat = [&](int c) -> CordeEtat& { return t.cordes[static_cast<std::size_t>(c)]; };

  // Steps 1 to 3 touch one string each, and only step 2 writes: they run in
  // one pass without changing the order of what is written.
  for (int c = 1; c <= cordes; ++c) {
    CordeEtat& s = etat(c);
    const tNote* n = noteIci(c);
    // 1. A blank note right where a note ends lets that note ring on.
    if (s.restant == 0 && n != nullptr && n->bytCase == kCaseVide) s.restant = n->bytDurée;
    // 2. Note off.
    if (s.restant == 0 && !s.glisse) {
      if (s.sonne) émettre(sink, WalkEventType::NoteOff, p, c, {byt(0x80 | canal), s.hauteur, 0x7F}, 3);
      s.sonne = false;
      s.restant = -1;
      s.liée = false;
    }
    // 3. A tied note reached under a tie carries the tie on.
    if (s.liée && n != nullptr && n->bytCase < kCaseVide && n->bytEffet == effet::kLiaison)
      s.restant += suivanteLiée(p, m, c, ici[static_cast<std::size_t>(c)]);
  }
  // 4. Bends, on every second tick.
  if (x % 2 == 0) {
    for (int c = 1; c <= cordes; ++c) {
      CordeEtat& s = etat(c);
      if (s.bendRestant <= 0) continue;
      s.bendValeur += s.bendPas;
      const int roue = std::clamp(s.bendValeur + 8192, 0, 16383);
      émettre(sink, WalkEventType::PitchWheel, p, c,
              {byt(0xE0 | canal), byt(roue & 0x7F), byt(roue >> 7)}, 3);
      s.bendRestant -= 2;
      t.bendActif = true;
    }
  }
  // 5. The chord diagram.
  const std::vector<u16>& accords = *t.accords;
  while (t.accord < accords.size() && accords[t.accord] < x) ++t.accord;
  if (t.accord < accords.size() && accords[t.accord] == x)
    émettre(sink, WalkEventType::Accord, p, 0, {}, 0);

  // 6 and 7. Note on, then the effect's set-up, string by string; 8, the
  // count-down, which concerns each string alone, in the same pass.
  for (int c = 1; c <= cordes; ++c) {
    CordeEtat& s = etat(c);
    const tNote* n = noteIci(c);
    if (s.liée || n == nullptr || n->bytCase >= kCaseVide) {
      if (s.restant > 0) --s.restant;
      continue;
    }
    const int index = ici[static_cast<std::size_t>(c)];
    if (!s.glisse) {
      if (t.bendActif) {
        émettre(sink, WalkEventType::PitchWheel, p, c, {byt(0xE0 | canal), 0x00, 0x40}, 3);
        for (CordeEtat& autre : t.cordes) autre.bendValeur = 0;
        t.bendActif = false;
      }
      if (t.vibratoActif) {
        émettre(sink, WalkEventType::Controller, p, 0, {byt(0xB0 | canal), 0x01, 0x00}, 3);
        t.vibratoActif = false;
      }
      s.hauteur = donnée(wp.bytCordes[static_cast<std::size_t>(c)] + fretteSonore(*n));
      émettre(sink, WalkEventType::NoteOn, p, c, {byt(0x90 | canal), s.hauteur, donnée(n->bytVolume)},
              3, n);
      s.sonne = true;
    } else {
      s.glisse = false;  // the sounding note glides into this one: no new attack
    }
    s.frette = n->bytCase;
    s.noteMesure = m;
    s.noteIndex = index;
    s.noteX = n->intX;
    s.restant = n->bytDurée;
    if (n->bytAttaque == attaque::kDeadNote) s.restant = 1;
    if (n->bytEffet == effet::kLiaison) {
      s.liée = true;
      s.restant += suivanteLiée(p, m, c, index);
    }
    if (n->bytEffet == effet::kVibrato) {
      émettre(sink, WalkEventType::Controller, p, 0, {byt(0xB0 | canal), 0x01, 50}, 3);
      t.vibratoActif = true;
    }
    if (estGlisse(n->bytEffet)) preparerGlisse(*n, s, p, m, c, index, largeur);
    if (s.restant > 0) --s.restant;
  }
  t.calme = calmeÀVenir(t, x);
}

// How many ticks after x will be quiet on the track: no note or chord starts,
// no note reaches its end, nothing bends, and the bar goes on.
int MidiWalk::calmeÀVenir(const PisteEtat& t, int x) const {
  int n = m_largeur - x;
  for (int c = 1; c <= t.nbrCordes; ++c) {
    const CordeEtat& s = t.cordes[static_cast<std::size_t>(c)];
    if (s.bendRestant > 0) return 0;
    if (s.restant >= 0) n = std::min(n, s.restant);
    const OneBasedView<tNote> l = t.listes[static_cast<std::size_t>(c)];
    int j = t.curseur[static_cast<std::size_t>(c)];
    while (j <= l.last() && l[j].intX <= x) ++j;
    if (j <= l.last()) n = std::min(n, l[j].intX - x - 1);
  }
  std::size_t a = t.accord;
  while (a < t.accords->size() && (*t.accords)[a] <= x) ++a;
  if (a < t.accords->size()) n = std::min(n, (*t.accords)[a] - x - 1);
  return std::max(n, 0);
}

void MidiWalk::silence(WalkSink& sink) {
  for (int p : m_pistes) {
    PisteEtat& t = m_etat[static_cast<std::size_t>(p)];
    const byt canal = static_cast<byt>(m_in->piste(p).bytCanal & 0x0F);
    for (int c = 1; c <= kMaxCordes; ++c) {
      CordeEtat& s = t.cordes[static_cast<std::size_t>(c)];
      if (s.sonne) émettre(sink, WalkEventType::NoteOff, p, c, {byt(0x80 | canal), s.hauteur, 0x7F}, 3);
      s.sonne = false;
      s.restant = -1;
      s.liée = false;
      s.glisse = false;
      s.bendRestant = 0;
    }
  }
}

}  // namespace vt
