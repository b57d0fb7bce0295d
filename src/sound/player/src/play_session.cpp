#include "play_session.h"

#include <algorithm>

#include "formats/midi_prologue.h"
#include "sound/midi_out.h"

namespace vt {

namespace {

// The walk's copy of the records. Without repeats it never goes back before
// its start bar, whose earlier notes are then left out.
WalkInput entréeDesTableaux(const PlayNotes& notes, const PlayMesures& mesures,
                            const OneBased<tPlayPiste>& pistes, int premièreMesure) {
  WalkInput in(pistes.last(), mesures.getMesureLast());
  for (int p = 1; p <= pistes.last(); ++p) {
    const tPlayPiste& r = pistes[p];
    WalkPiste& w = in.piste(p);
    w.bytNbrCordes = static_cast<byt>(std::min<int>(r.bytNbrCordes, kMaxCordes));
    for (int c = 1; c <= kMaxCordes; ++c)
      w.bytCordes[static_cast<std::size_t>(c)] = r.corde(c);
    w.bytCanal = static_cast<byt>(r.bytCanal & 0x0F);
    w.boolMuet = r.boolMute != kFaux ? kVrai : kFaux;
  }
  for (int m = 1; m <= mesures.getMesureLast(); ++m) {
    const tPlayMesure& r = mesures[m];
    WalkMesure& w = in.mesure(m);
    w.bytSignatureUp = r.bytSignatureUp;
    w.bytSignatureDn = r.bytSignatureDn;
    w.bytLoopDroiteType = r.bytLoopDroiteType;
    w.bytLoopDroiteData = r.bytLoopDroiteData;
    w.bytLoopGaucheType = r.bytLoopGaucheType;
    w.bytLoopGaucheData = r.bytLoopGaucheData;
    for (const tPlayTempo& t : mesures.tempos(m))
      w.tabTempos.push_back({t.intX, t.bytTempo});
    if (m < premièreMesure) continue;
    for (int p = 1; p <= pistes.last(); ++p)
      for (int c = 1; c <= kMaxCordes; ++c) {
        const OneBasedView<tNote> l = notes.cellule(p, m, c - 1);
        if (!l.empty()) in.setNotes(p, m, c, l);
      }
  }
  return in;
}

MidiEffetOptions effetsDe(const tPlayParams& p) {
  MidiEffetOptions o;
  o.setMIDIEffet1Ton = p.setMIDIEffet1Ton;
  o.setMIDIPitchBendRange = p.setMIDIPitchBendRange;
  o.setMIDIPitchDemiTon = p.setMIDIPitchDemiTon;
  return o;
}

WalkOptions optionsDe(const tPlayParams& p) {
  WalkOptions o;
  o.effets = effetsDe(p);
  o.repeats = p.boolRenvois != kFaux;
  o.startMesure = std::max<lng>(p.lngStartMesure, 1);
  o.startX = std::max<int>(p.intStartX, 0);
  if (p.boolMarker != kFaux) {
    o.stopMesure = std::max<lng>(p.lngStopMesure, 0);
    o.stopX = std::max<int>(p.intStopX, 0);
  }
  return o;
}

// The tempo handed to the library, or failing that the one the editor's tick
// period stands for.
int tempoDonné(int tempo, const tPlayParams& p) {
  if (tempo > 0) return tempo;
  if (p.intPériodeTick > 0) return std::max(1, 60000 / (48 * p.intPériodeTick));
  return 120;
}

// The tempo in force at the start position: the one handed over, or the last
// tempo change of the bars before the start, so that a start in the middle
// keeps the pace the piece has reached there.
int tempoAuDépart(const WalkInput& in, const WalkOptions& o, int tempo) {
  const int départ = std::min(o.startMesure, in.getMesureLast());
  for (int m = 1; m <= départ; ++m)
    for (const tTempo& t : in.mesure(m).tabTempos)
      if ((m < o.startMesure || t.intX < o.startX) && t.bytTempo > 0) tempo = t.bytTempo;
  return tempo;
}

}  // namespace

// The walk's events as messages of the current step.
class SessionJeu::Collecteur : public WalkSink {
 public:
  explicit Collecteur(std::vector<MessageJoué>& out) : m_out(out) {}
  int tempo = 0;  // a tempo change at this tick

  void event(const WalkEvent& e) override {
    if (e.type == WalkEventType::Tempo) {
      tempo = e.tempo;
      return;
    }
    if (e.taille == 0) return;  // a chord diagram: nothing to send
    MessageJoué m;
    m.message = midiPack(e.octets[0], e.octets[1], e.octets[2]);
    m.piste = e.piste;
    m.temps = e.temps;
    m.mesure = e.mesure;
    m.x = e.x;
    m_out.push_back(m);
  }

 private:
  std::vector<MessageJoué>& m_out;
};

SessionJeu::SessionJeu(const PlayNotes& notes, const tPlayParams& params,
                       const PlayMesures& mesures, const OneBased<tPlayPiste>& pistes, int tempo,
                       bool suivreBoucle)
    : m_in(entréeDesTableaux(notes, mesures, pistes,
                             params.boolRenvois != kFaux ? 1 : std::max<lng>(params.lngStartMesure, 1))),
      m_pistes(pistes),
      m_params(params),
      m_options(optionsDe(params)),
      m_boucle(suivreBoucle && params.boolLoop != kFaux),
      m_tempoDépart(tempoAuDépart(m_in, m_options, tempoDonné(tempo, params))),
      m_horloge(m_tempoDépart, params.TripleFeel != kFaux) {
  if (params.boolBeatsAtStart != kFaux && params.intTempsMesure > 0) {
    m_clics = params.intTempsMesure;
    // The clicks keep the true beat of the starting tempo, as the ticks do;
    // the record's whole milliseconds are the editor's.
    m_canalClic = (params.bytClickCanal - 1) & 0x0F;  // 1-based in this record
    m_volumeClic = pistes.empty() ? 127 : pistes[1].bytVolume;
  }
}

std::int64_t SessionJeu::nsClic(int k) const {
  return k * kNsTickFoisTempo * kTicksNoire / m_tempoDépart;
}

PositionTick SessionJeu::position() const {
  PositionTick p;
  p.temps = m_marche->temps();
  p.x = m_marche->x();
  const int m = m_marche->mesure();
  p.largeur = m_in.hasMesure(m) ? m_in.mesure(m).largeur() : 0;
  return p;
}

void SessionJeu::noter(std::vector<MessageJoué>& out, std::uint32_t message, int piste) const {
  MessageJoué m;
  m.message = message;
  m.piste = piste;
  m.mesure = m_options.startMesure;
  m.x = m_options.startX;
  out.push_back(m);
}

void SessionJeu::relâcherClic(std::vector<MessageJoué>& out) {
  if (!m_clicSonne) return;
  noter(out, midiPack(static_cast<std::uint8_t>(0x80 | m_canalClic), m_params.bytClickNote, 0x7F),
        0);
  m_clicSonne = false;
}

void SessionJeu::prologue(ÉtapeJeu& e) {
  // A muted track sends nothing, not even its set-up: it may share its
  // channel with a track that is heard (track 10 and a drum track, track 17
  // and track 1).
  const MidiEffetOptions effets = effetsDe(m_params);
  for (int p = 1; p <= m_pistes.last(); ++p) {
    const tPlayPiste& r = m_pistes[p];
    if (r.boolMute != kFaux) continue;
    RéglagesMidiPiste réglages;
    réglages.canal = r.bytCanal & 0x0F;
    réglages.patch = r.bytPatch;
    réglages.banque = r.lngBank;
    réglages.phaser = r.bytPhaser;
    réglages.chorus = r.bytChorus;
    réglages.tremolo = r.bytTremolo;
    réglages.reverb = r.bytReverb;
    réglages.balance = r.bytBalance;
    réglages.pan = r.bytPan;
    réglages.volume = r.bytVolume;
    const PrologueMidi pr = prologueMidi(réglages, effets);
    auto envoyer = [&](const MessageMidi& m) {
      noter(e.messages, midiPack(m.octets[0], m.octets[1], m.octets[2]), p);
    };
    for (const MessageMidi& m : pr.banque)
      envoyer(m);  // before the program that takes it
    envoyer(pr.programme);
    for (const MessageMidi& m : pr.portée)
      envoyer(m);
    envoyer(pr.volume);
    for (const MessageMidi& m : pr.contrôleurs)
      envoyer(m);
    // A run stopped in the middle of a bend or a vibrato may have left the
    // channel bent: start from the centre.
    const auto canal = static_cast<std::uint8_t>(réglages.canal);
    noter(e.messages, midiPack(static_cast<std::uint8_t>(0xE0 | canal), 0x00, 0x40), p);
    noter(e.messages, midiPack(static_cast<std::uint8_t>(0xB0 | canal), 0x01, 0x00), p);
  }
}

void SessionJeu::démarrerMarche() {
  const std::int64_t début = m_phase == Phase::Marche ? m_dernierNs : nsClic(m_clics);
  m_marche.emplace(m_in, m_options);
  m_horloge.reprendre(m_tempoDépart, début);
  m_débutTour = début;
  m_sautsVus = 0;
  m_phase = Phase::Marche;
}

bool SessionJeu::prochaine(ÉtapeJeu& e) {
  e.messages.clear();
  e.saut = false;
  e.fin = false;
  e.mesure = m_options.startMesure;
  e.x = m_options.startX;
  switch (m_phase) {
    case Phase::Prologue:
      e.ns = 0;
      prologue(e);
      if (m_clics > 0)
        m_phase = Phase::Clics;
      else
        démarrerMarche();
      break;
    case Phase::Clics: {
      e.ns = nsClic(m_clic);
      relâcherClic(e.messages);
      noter(e.messages,
            midiPack(static_cast<std::uint8_t>(0x90 | m_canalClic), m_params.bytClickNote,
                     m_volumeClic),
            0);
      m_clicSonne = true;
      if (++m_clic >= m_clics) démarrerMarche();
      break;
    }
    case Phase::Marche:
      marcher(e);
      break;
    case Phase::Terminée:
      return false;
  }
  m_dernierNs = e.ns;
  for (MessageJoué& m : e.messages)
    m.ms = static_cast<double>(e.ns) / 1e6;
  return true;
}

void SessionJeu::marcher(ÉtapeJeu& e) {
  MidiWalk& w = *m_marche;
  const PositionTick pos = position();
  e.ns = m_horloge.échéance(pos);
  e.mesure = w.mesure();
  e.x = w.x();
  if (w.fini()) {
    // The end of the piece, or of the passage between the markers: what
    // still sounds is released at this time.
    silence(e.messages);
    // A round that took no time (nothing to walk) would loop in place.
    if (m_boucle && e.ns > m_débutTour) {
      m_dernierNs = e.ns;
      démarrerMarche();
      e.mesure = m_options.startMesure;
      e.x = m_options.startX;
    } else {
      e.fin = true;
      e.x = -1;
      m_phase = Phase::Terminée;
    }
    return;
  }
  if (w.sauts() > m_sautsVus) {
    e.saut = true;
    m_sautsVus = w.sauts();
  }
  relâcherClic(e.messages);  // the last click ends where the piece begins
  Collecteur c(e.messages);
  w.step(c);
  if (c.tempo > 0) m_horloge.changerTempo(c.tempo, pos);
}

void SessionJeu::silence(std::vector<MessageJoué>& out) {
  relâcherClic(out);
  if (!m_marche) return;
  Collecteur c(out);
  m_marche->silence(c);
}

CordeEtat SessionJeu::corde(int p, int c) const {
  return m_marche ? m_marche->corde(p, c) : CordeEtat{};
}

}  // namespace vt
