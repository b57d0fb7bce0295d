#include "formats/midi_import.h"

#include <algorithm>
#include <map>

#include "arrondi.h"
#include "document/tablature.h"
#include "formats/midi_to_tab.h"

namespace vt {

namespace {

// Where each item of a file goes, in document ticks.
std::int64_t versX(std::int64_t tick, int division) {
  return detail::arrondiPair(tick * kTicksNoire, division);
}

template <class T>
std::vector<T> fusion(const std::map<int, PisteMidiLue>& lues,
                      std::vector<T> PisteMidiLue::*liste) {
  std::vector<T> tout;
  for (const auto& [i, lue] : lues) tout.insert(tout.end(), (lue.*liste).begin(), (lue.*liste).end());
  std::stable_sort(tout.begin(), tout.end(), [](const T& a, const T& b) { return a.tick < b.tick; });
  return tout;
}

bool texteDePartition(byt type) { return type == 0x01 || type == 0x05 || type == 0x06 || type == 0x07; }

}  // namespace

std::vector<MidiNote> arrangeNoteOn(std::span<const MidiEvenement> évts, int transposition,
                                    std::int64_t fin) {
  // From the end: the next release of each pitch.
  std::vector<std::int64_t> relâche(évts.size(), -1);
  std::array<std::int64_t, 128> prochaine;
  prochaine.fill(-1);
  for (std::size_t i = évts.size(); i-- > 0;) {
    const MidiEvenement& e = évts[i];
    if (e.vélocité == 0)
      prochaine[e.hauteur & 0x7F] = e.tick;
    else
      relâche[i] = prochaine[e.hauteur & 0x7F];
  }
  std::vector<MidiNote> notes;
  for (std::size_t i = 0; i < évts.size(); ++i) {
    const MidiEvenement& e = évts[i];
    if (e.vélocité == 0) continue;
    MidiNote n;
    n.tick = e.tick;
    n.durée = std::max<std::int64_t>((relâche[i] >= 0 ? relâche[i] : std::max(fin, e.tick)) - e.tick, 0);
    n.hauteur = static_cast<byt>(std::clamp(e.hauteur + transposition, 0, 127));
    n.corde = e.corde;
    n.attribut = e.attribut;
    n.vélocité = e.vélocité;
    notes.push_back(n);
  }
  return notes;
}

std::vector<int> sourcesParDéfaut(const std::vector<MidiSource>& sources) {
  std::vector<int> choix;
  for (const MidiSource& s : sources)
    if (s.notes > 0 && choix.size() < 7) choix.push_back(s.numéro);
  return choix;
}

InterchangeResult convertirMidi(const MidiFichier& f, const MidiImportOptions& o,
                                CVantoroTablature& doc, const MidiImportProgress& progress) {
  auto étape = [&](int id) {
    if (progress.étape) progress.étape(id);
  };
  const bool parCanal = f.format == 0;
  const int cibles = static_cast<int>(o.sources.size());
  if (cibles == 0 || cibles > kMaxPistes) return InterchangeResult::refus(kMsgMidiAucuneCible);
  for (int s : o.sources) {
    const bool existe = parCanal ? s >= 1 && s <= 16
                                 : s >= 0 && static_cast<std::size_t>(s) < f.pistes.size();
    if (!existe) return InterchangeResult::refus(kMsgMidiAucuneCible, std::to_string(s));
  }

  doc.initialize(o.guitare, o.patch);
  for (int k = 2; k <= cibles; ++k) doc.addPiste(k - 1, o.guitare, o.patch);

  // Every chunk once: the first (head texts, tempos, signatures of a format 1
  // file) and the chosen ones.
  étape(kEtapeLecturePistes);
  std::map<int, PisteMidiLue> lues;
  auto chunkDe = [&](int source) { return parCanal ? 0 : source; };
  std::vector<int> àLire{0};
  for (int s : o.sources) àLire.push_back(chunkDe(s));
  for (int i : àLire) {
    if (lues.count(i) != 0) continue;
    InterchangeResult r = lirePisteMidi(f, i, lues[i], progress.progression);
    if (!r.ok()) return r;
  }

  // The note events of each target.
  std::vector<std::vector<MidiEvenement>> évts(static_cast<std::size_t>(cibles));
  for (int k = 1; k <= cibles; ++k) {
    const int s = o.sources[static_cast<std::size_t>(k - 1)];
    const PisteMidiLue& lue = lues[chunkDe(s)];
    auto& dest = évts[static_cast<std::size_t>(k - 1)];
    if (parCanal) {
      for (const MidiEvenement& e : lue.notes)
        if (e.canal == s - 1) dest.push_back(e);
    } else {
      dest = lue.notes;
    }
    if (std::none_of(dest.begin(), dest.end(), [](const MidiEvenement& e) { return e.vélocité > 0; }))
      return InterchangeResult::refus(kMsgMidiPisteSansNote, std::to_string(s));
  }

  // Pair the notes; an RMTF track header gives the track back its instrument.
  étape(kEtapeNotes);
  std::vector<std::vector<MidiNote>> notes(static_cast<std::size_t>(cibles));
  for (int k = 1; k <= cibles; ++k) {
    const int s = o.sources[static_cast<std::size_t>(k - 1)];
    const PisteMidiLue& lue = lues[chunkDe(s)];
    notes[static_cast<std::size_t>(k - 1)] =
        arrangeNoteOn(évts[static_cast<std::size_t>(k - 1)], o.transposition, lue.fin);
    if (lue.tête.présente) {
      doc.setGuitareNbrCordes(k, lue.tête.cordes);
      doc.setGuitareCapodastre(k, static_cast<byt>(lue.tête.capodastre));
      for (int c = 1; c <= lue.tête.cordes; ++c)
        doc.setGuitareCorde(k, c, lue.tête.ouvertes[static_cast<std::size_t>(c)]);
      doc.changePisteNbrCordes(k);
    }
    if (!parCanal && chunkDe(s) != 0 && lue.aNom) doc.setPisteNom(k, lue.nom.substr(0, kMaxTexte));
    // The track's first program change (of its channel in a format 0 file)
    // gives the patch.
    if (parCanal) {
      const int programme = lue.programmes[static_cast<std::size_t>(s - 1)];
      if (programme >= 0) doc.setMIDIPatch(k, static_cast<byt>(programme));
    } else {
      for (int programme : lue.programmes)
        if (programme >= 0) {
          doc.setMIDIPatch(k, static_cast<byt>(programme));
          break;
        }
    }
  }

  étape(kEtapeTablature);
  TranscripteurMidi t(doc);
  const int div = f.division;
  for (const MidiMétaNombre& s : fusion(lues, &PisteMidiLue::signatures))
    if (s.b >= 0 && s.b <= 6) t.MIDISignature2VTBSignature(versX(s.tick, div), s.a, 1 << s.b);

  // The head texts of the first chunk; its other texts go to the first track,
  // a chosen track's texts to its own target.
  {
    const PisteMidiLue& zéro = lues[0];
    bool titre = false, copy = false, comments = false;
    for (const MidiTexte& tx : zéro.textes) {
      if (tx.type == 0x03 && !titre) {
        doc.titre = tx.texte.substr(0, kMaxTexte);
        titre = true;
      } else if (tx.type == 0x02 && !copy) {
        doc.Copy = tx.texte.substr(0, kMaxTexte);
        copy = true;
      } else if (tx.type == 0x01 && !comments) {
        doc.Comments = tx.texte.substr(0, kMaxTexte);
        comments = true;
      } else if (texteDePartition(tx.type)) {
        t.MIDITexte2VTBTexte(1, versX(tx.tick, div), tx.texte);
      }
    }
    if (!parCanal) {
      for (int k = 1; k <= cibles; ++k) {
        const int s = o.sources[static_cast<std::size_t>(k - 1)];
        if (s == 0) continue;
        for (const MidiTexte& tx : lues[s].textes)
          if (texteDePartition(tx.type)) t.MIDITexte2VTBTexte(k, versX(tx.tick, div), tx.texte);
      }
    }
  }

  if (o.tempos) {
    for (const MidiMétaNombre& tp : fusion(lues, &PisteMidiLue::tempos)) {
      const int tempo = t.MIDITempo2VTBTempo(versX(tp.tick, div), tp.a);
      if (tp.tick == 0 && tempo > 0) doc.tempo = static_cast<byt>(tempo);
    }
  }
  for (const MidiMétaNombre& k : fusion(lues, &PisteMidiLue::tonalités))
    t.MIDITonalité2VTBTonalité(versX(k.tick, div), k.a, k.b);

  for (int k = 1; k <= cibles; ++k) {
    const int s = o.sources[static_cast<std::size_t>(k - 1)];
    const PisteMidiLue& lue = lues[chunkDe(s)];
    // Chord diagrams: one fret per string of the track header, or of the
    // track when the file has none; the rest is the name.
    const int cordes = lue.tête.présente ? lue.tête.cordes : doc.getGuitareNbrCordes(k);
    for (const MidiAccordBrut& a : lue.accords) {
      OneBased<byt> frettes(cordes, kCaseVide);
      const int n = std::min<int>(cordes, static_cast<int>(a.données.size()));
      for (int c = 1; c <= n; ++c) frettes[c] = static_cast<byt>(a.données[static_cast<std::size_t>(c - 1)]);
      t.MIDIAccord2VTBAccord(k, versX(a.tick, div), a.données.substr(static_cast<std::size_t>(n)),
                             frettes);
    }
    for (const MidiNote& n : notes[static_cast<std::size_t>(k - 1)]) {
      const auto durée = static_cast<int>(std::min<std::int64_t>(n.durée * kTicksNoire / div, 0x7FFF));
      t.MIDINoteOnNumber2NoteCase(k, n.hauteur, durée, versX(n.tick, div), n.corde, n.attribut,
                                  n.vélocité);
    }
  }

  étape(kEtapeArrangement);  // nothing left to arrange: the notes are in place
  return {};
}

}  // namespace vt
