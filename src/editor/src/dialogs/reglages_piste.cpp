#include "reglages_piste.h"

#include "document/tablature.h"
#include "texte_document.h"

namespace vt {

ReglagesPiste ReglagesPiste::lire(const CVantoroTablature& doc, int p) {
  ReglagesPiste r;
  r.nom = depuisDocument(doc.getPisteNom(p));
  r.guitareNom = doc.getGuitareNom(p);
  r.nbrCordes = doc.getGuitareNbrCordes(p);
  for (int c = 1; c <= kMaxCordes; ++c)
    r.cordes[static_cast<std::size_t>(c)] = doc.getGuitareCorde(p, c);
  r.nbrCases = doc.getGuitareNbrCases(p);
  r.capodastre = doc.getGuitareCapodastre(p);
  r.patch = doc.getMIDIPatch(p);
  r.bank = doc.getMIDIBank(p);
  r.pan = doc.getMIDIPan(p);
  r.reverb = doc.getMIDIReverb(p);
  r.chorus = doc.getMIDIChorus(p);
  r.tremolo = doc.getMIDITremolo(p);
  r.phaser = doc.getMIDIPhaser(p);
  r.staffType = doc.getStaffType(p);
  r.clef = doc.getPortéeClef(p);
  r.solo = doc.getPistePlaySolo(p) != kFaux;
  r.mute = doc.getPistePlayMute(p) != kFaux;
  return r;
}

bool ecrireReglages(CVantoroTablature& doc, int p, const ReglagesPiste& a, const ReglagesPiste& n) {
  if (a == n) return false;
  const auto octet = [](int v) { return static_cast<byt>(v); };
  if (n.nom != a.nom) doc.setPisteNom(p, versDocument(n.nom));
  if (n.guitareNom != a.guitareNom) doc.setGuitareNom(p, n.guitareNom);
  if (n.nbrCordes != a.nbrCordes) {
    doc.setGuitareNbrCordes(p, n.nbrCordes);
    doc.changePisteNbrCordes(p);
  }
  for (int c = 1; c <= kMaxCordes; ++c) {
    const auto i = static_cast<std::size_t>(c);
    if (n.cordes[i] != a.cordes[i]) doc.setGuitareCorde(p, c, octet(n.cordes[i]));
  }
  if (n.nbrCases != a.nbrCases) doc.setGuitareNbrCases(p, octet(n.nbrCases));
  if (n.capodastre != a.capodastre) doc.setGuitareCapodastre(p, octet(n.capodastre));
  if (n.patch != a.patch) doc.setMIDIPatch(p, octet(n.patch));
  if (n.bank != a.bank) doc.setMIDIBank(p, n.bank);
  if (n.pan != a.pan) doc.setMIDIPan(p, octet(n.pan));
  if (n.reverb != a.reverb) doc.setMIDIReverb(p, octet(n.reverb));
  if (n.chorus != a.chorus) doc.setMIDIChorus(p, octet(n.chorus));
  if (n.tremolo != a.tremolo) doc.setMIDITremolo(p, octet(n.tremolo));
  if (n.phaser != a.phaser) doc.setMIDIPhaser(p, octet(n.phaser));
  if (n.staffType != a.staffType) doc.setStaffType(p, octet(n.staffType));
  if (n.clef != a.clef) doc.setPortéeClef(p, octet(n.clef));
  if (n.solo != a.solo) doc.setPistePlaySolo(p, toVbool(n.solo));
  if (n.mute != a.mute) doc.setPistePlayMute(p, toVbool(n.mute));
  return true;
}

int notesPerdues(const CVantoroTablature& doc, int p, int nbrCordes) {
  int n = 0;
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    for (int c = nbrCordes + 1; c <= doc.getGuitareNbrCordes(p); ++c)
      for (int k = 1; k <= doc.getNoteLast(p, m, c); ++k)
        if (doc.getNoteCase(p, m, c, k) != kCaseVide) ++n;
  return n;
}

}  // namespace vt
