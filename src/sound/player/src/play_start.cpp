#include "player/play_start.h"

#include <algorithm>

#include "document/tablature.h"
#include "formats/walk_input.h"
#include "player/play_offline.h"
#include "player/play_timing.h"
#include "player/player.h"

namespace vt {

namespace {

byt octet(int v) {
  return static_cast<byt>(std::clamp(v, 0, 255));
}

tPlayPiste pisteDe(const CVantoroTablature& doc, int p, const OptionsJeu& o) {
  const tPiste& src = doc.piste(p);
  tPlayPiste r;
  r.bytNbrCordes = src.bytNbrCordes;
  for (int c = 1; c <= kMaxCordes; ++c)
    r.bytCordes[static_cast<std::size_t>(c - 1)] = src.bytCordes[static_cast<std::size_t>(c)];
  r.bytPatch = src.bytPatch;
  r.bytVolume = octet(o.setMIDIvolume);
  r.bytCanal = static_cast<byt>(canalMidi(doc, p));
  r.bytBalance = src.bytBalance;
  r.bytPan = src.bytPan;
  r.bytReverb = src.bytReverb;
  r.bytTremolo = src.bytTremolo;
  r.bytChorus = src.bytChorus;
  r.bytPhaser = src.bytPhaser;
  r.boolSolo = src.boolPlaySolo;
  r.boolMute = src.boolPlayMute;
  r.lngBank = src.lngBank;
  return r;
}

}  // namespace

void playConvertTabForDLL(const CVantoroTablature& doc, PlayArrays& a, int premièreMesure) {
  const int mesures = doc.getMesureLast();
  const int pistes = doc.getPisteLast();
  a.mesures.redim(mesures);
  for (int m = 1; m <= mesures; ++m) {
    const tMesure& h = doc.mesure(m);
    tPlayMesure& r = a.mesures[m];
    r.bytSignatureUp = h.bytSignatureUp;
    r.bytSignatureDn = h.bytSignatureDn;
    r.bytLoopDroiteType = h.bytLoopDroiteType;
    r.bytLoopDroiteData = h.bytLoopDroiteData;
    r.bytLoopGaucheType = h.bytLoopGaucheType;
    r.bytLoopGaucheData = h.bytLoopGaucheData;
    if (!h.tabTempos.empty()) {
      OneBased<tPlayTempo> tempos;
      tempos.reserve(h.tabTempos.last());
      for (const tTempo& t : h.tabTempos)
        tempos.push_back({t.intX, t.bytTempo, 0});
      a.mesures.setTempos(m, std::move(tempos));
    }
  }
  a.notes.redim(pistes, mesures);
  for (int p = 1; p <= pistes; ++p) {
    const int cordes = std::min(doc.getGuitareNbrCordes(p), kMaxCordes);
    for (int m = std::max(premièreMesure, 1); m <= mesures; ++m)
      for (int c = 1; c <= cordes; ++c) {
        const OneBased<tNote>* l = doc.notes(p, m, c);
        if (l != nullptr && !l->empty()) a.notes.setCellule(p, m, c - 1, *l);
      }
  }
}

void préparerJeu(const CVantoroTablature& doc, PlayArrays& a, const OptionsJeu& o,
                 const DemandeJeu& d) {
  int startMesure = doc.CurseurMesure();
  int startX = doc.CurseurX();
  int stopMesure = 0;
  int stopX = 0;
  if (d.marker) {
    startMesure = doc.getMarkerStartMesure();
    startX = doc.getMarkerStartX();
    stopMesure = doc.getMarkerStopMesure();
    stopX = doc.getMarkerStopX();
  }

  tPlayParams& p = a.params;
  p = tPlayParams{};
  // A start anywhere but at bar 1, or between markers, runs straight through
  // the repeat bar lines.
  p.boolRenvois = toVbool(d.renvois && !d.marker && startMesure == 1);
  p.boolLoop = toVbool(d.loop);
  p.TripleFeel = doc.TripleFeel() != kFaux ? kVrai : kFaux;
  p.intPériodeTick = static_cast<i16>(d.périodeTick);
  p.lngStartMesure = startMesure;
  p.intStartX = static_cast<i16>(startX);
  p.lngStopMesure = stopMesure;
  p.intStopX = static_cast<i16>(stopX);
  p.setMIDIPitchDemiTon = static_cast<i16>(o.setMIDIPitchDemiTon);
  p.boolBeatsAtStart = toVbool(d.beatsAtStart);
  p.bytClickNote = octet(o.setMétronomeMIDINote1);
  // 1-based here, as the setting is; the metronome's record says 9 for the
  // same option.
  p.bytClickCanal = octet(o.setMétronomeMIDICanal10 == 1 ? 10 : o.setMIDIchannel);
  p.lngBeatDurée = d.beatsAtStart ? d.beatDurée : 0;
  const int up = doc.getMesureSignatureUp(startMesure);
  const int dn = doc.getMesureSignatureDn(startMesure);
  p.intTempsMesure = static_cast<i16>(dn > 0 ? 4 * up / dn : 4);
  p.lngMidiOut = d.midiOut;
  p.boolMarker = toVbool(d.marker);
  p.setMIDIEffet1Ton = static_cast<i16>(o.setMIDIEffet1Ton);
  p.setMIDIPitchBendRange = octet(o.setMIDIPitchBendRange);

  const int pistes = doc.getPisteLast();
  a.pistes.clear();
  a.pistes.resize(pistes);
  bool solo = false;
  for (int i = 1; i <= pistes; ++i) {
    a.pistes[i] = pisteDe(doc, i, o);
    solo = solo || a.pistes[i].boolSolo != kFaux;
  }
  // As soon as one track is solo, every other is muted for the library; the
  // document's own flags stay as they are.
  if (solo)
    for (tPlayPiste& r : a.pistes)
      if (r.boolSolo == kFaux) r.boolMute = kVrai;

  // Without repeats the walk never goes back before its start: the notes of
  // the bars before it are not copied, so a start near the end of a long
  // piece is heard at once.
  playConvertTabForDLL(doc, a, p.boolRenvois != kFaux ? 1 : startMesure);
}

void playStart(const CVantoroTablature& doc, PlayArrays& a, const OptionsJeu& options,
               const DemandeJeu& demande) {
  préparerJeu(doc, a, options, demande);
  SetPlayTabPiste(doc.CurseurPiste());
  StartTab(a.notes, a.params, a.mesures, a.pistes, doc.tempo);
}

void playStop() {
  StopTab();
}

MessagesDates rendreDocument(const CVantoroTablature& doc, const OptionsJeu& options) {
  PlayArrays a;
  DemandeJeu d;
  d.périodeTick = périodeTickMs(doc.tempo);
  préparerJeu(doc, a, options, d);
  a.params.lngStartMesure = 1;
  a.params.intStartX = 0;
  a.params.boolRenvois = toVbool(doc.checkMesureRenvois() <= 0);
  return rendreHorsLigne(a.notes, a.params, a.mesures, a.pistes, doc.tempo);
}

}  // namespace vt
