// Recording the MIDI input at the cursor while "record" is down. While the
// piece plays, a pressed note waits on its string with the place the cursor
// stood at; released, or when the piece stops, it is written from there to
// where the cursor stands now, cut at each bar line and tied across it. When
// nothing plays there is no time to measure: a note received is written at
// once at the cursor with the length chosen on the rhythm toolbar.
#include <algorithm>
#include <vector>

#include "editor/ftab.h"
#include "ftab_play.h"
#include "shell/vt.h"

namespace vt {

void FTab::noteMidiEnregistrée(int corde, int note, bool enfoncée) {
  if (!enregistre()) return;
  CVantoroTablature& d = doc();
  const int p = piste();
  if (corde < 1 || corde > std::min(nbCordes(), kMaxCordes)) return;
  NoteEnregistrée& attente = m_lecture->enAttente[static_cast<std::size_t>(corde)];

  if (!enfoncée) {
    if (m_joue && attente.active && attente.note == note)
      écritNoteEnregistrée(corde, d.CurseurMesure(), d.CurseurX());
    return;
  }
  // On a drum staff the note is the drum, written as it is.
  const int fret = d.getStaffType(p) == kStaffBatterie ? note : note - d.getGuitareCorde(p, corde);
  if (fret < 0 || fret >= kCaseVide) return;

  if (!m_joue) {
    d.storeUndo(true);
    const bool plein = avantEdition();
    const int n =
        d.setNoteWhole(p, d.CurseurMesure(), corde, d.CurseurX(), fret, m_outils.tbGetNoteDurée());
    if (n != 0) {
      d.setNoteAttaque(p, d.CurseurMesure(), corde, n, static_cast<byt>(m_outils.getNoteAttaque()));
      d.setNoteVolume(p, d.CurseurMesure(), corde, n, static_cast<byt>(m_outils.getNoteVolume()));
    }
    marqueModifié();
    termine(apresEdition(plein));
    return;
  }
  // A new note on a string ends the one it held.
  if (attente.active) écritNoteEnregistrée(corde, d.CurseurMesure(), d.CurseurX());
  attente = {true, p, d.CurseurMesure(), d.CurseurX(), note, fret};
}

void FTab::fermeNotesEnregistrées() {
  const CVantoroTablature& d = doc();
  for (int c = 1; c <= kMaxCordes; ++c)
    if (m_lecture->enAttente[static_cast<std::size_t>(c)].active)
      écritNoteEnregistrée(c, d.CurseurMesure(), d.CurseurX());
}

void FTab::écritNoteEnregistrée(int corde, int mesure, int x) {
  LectureTab& l = *m_lecture;
  const NoteEnregistrée e = l.enAttente[static_cast<std::size_t>(corde)];
  l.enAttente[static_cast<std::size_t>(corde)] = {};
  CVantoroTablature& d = doc();
  const int p = e.piste;
  if (!e.active || !d.hasPiste(p) || !d.hasMesure(e.mesure) || corde > d.getGuitareNbrCordes(p))
    return;

  // Where the note ends: inside the piece, and not before it began (the
  // piece went round a loop or back at a repeat: it ends with its bar).
  int mesureFin = std::min(mesure, d.getMesureLast());
  int xFin = x;
  if (mesureFin < e.mesure || (mesureFin == e.mesure && xFin < e.x)) {
    mesureFin = e.mesure;
    xFin = d.getMesureLargeur(e.mesure);
  }
  // Its pieces, one per bar it sounds in; a last piece of no length (the
  // note ended on a bar line) is none.
  struct Morceau {
    int mesure, x, durée;
  };
  std::vector<Morceau> morceaux;
  for (int m = e.mesure, début = e.x; m <= mesureFin; ++m, début = 0) {
    const int fin = m == mesureFin ? xFin : d.getMesureLargeur(m);
    morceaux.push_back({m, début, std::max(0, fin - début)});
  }
  if (morceaux.size() > 1 && morceaux.back().durée == 0) morceaux.pop_back();

  // One undo snapshot per take and track, taken before its first note.
  if (std::find(l.pistesSauvées.begin(), l.pistesSauvées.end(), p) == l.pistesSauvées.end()) {
    const byt courante = d.CurseurPiste();
    d.setCurseurPiste(static_cast<byt>(p));
    d.storeUndo(true);
    d.setCurseurPiste(courante);
    l.pistesSauvées.push_back(p);
  }
  for (std::size_t i = 0; i < morceaux.size(); ++i) {
    const Morceau& k = morceaux[i];
    if (k.x >= d.getMesureLargeur(k.mesure)) continue;
    const int n = d.setNoteWhole(p, k.mesure, corde, k.x, e.fret,
                                 CVantoroTablature::makeNoteDuréeExiste(k.durée));
    if (n == 0) continue;
    d.setNoteAttaque(p, k.mesure, corde, n, static_cast<byt>(m_outils.getNoteAttaque()));
    d.setNoteVolume(p, k.mesure, corde, n, static_cast<byt>(m_outils.getNoteVolume()));
    // Each piece but the last is tied to the next, across the bar line.
    if (i + 1 < morceaux.size()) d.setNoteEffet(p, k.mesure, corde, n, effet::kLiaison);
  }
  marqueModifié();
  // The pieces may reach over several bars: the strip is drawn whole, with
  // the cursor where it stands.
  drawInLine();
  montreImage();
}

}  // namespace vt
