#include "editor/presse_papiers.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "document/tablature.h"

namespace vt {

namespace {

using Ticks = std::int64_t;  // distances over many bars pass 16 bits

// The selection put in order and cut to the document and to the track's strings.
struct Sélection {
  int piste = 0;
  int mesureDébut = 0;
  int xDébut = 0;
  int mesureFin = 0;
  int xFin = 0;
  int cordeDébut = 0;
  int cordeFin = 0;
};

std::optional<Sélection> sélection(CVantoroTablature& doc) {
  if (!aUneSélection(doc)) return std::nullopt;
  normaliseSélection(doc);
  Sélection s;
  s.piste = doc.CurseurPiste();
  if (!doc.hasPiste(s.piste) || !doc.hasMesure(doc.intSelStartMesure)) return std::nullopt;
  s.mesureDébut = doc.intSelStartMesure;
  s.xDébut = std::max<int>(0, doc.intSelStartX);
  s.mesureFin = doc.intSelStopMesure;
  s.xFin = doc.intSelStopX;
  if (s.mesureFin > doc.getMesureLast()) {
    // Bars gone since the selection was made: it ends with the document.
    s.mesureFin = doc.getMesureLast();
    s.xFin = doc.getMesureLargeur(s.mesureFin) - 1;
  }
  s.cordeDébut = std::max<int>(1, doc.bytSelStartCorde);
  s.cordeFin = std::min<int>(doc.getGuitareNbrCordes(s.piste), doc.bytSelStopCorde);
  if (s.cordeDébut > s.cordeFin) return std::nullopt;
  return s;
}

// Calls f(mesure, corde, n, distance) for every note of the selection, the
// distance counted in ticks from the selection's start across bar ends. The
// stop cell is part of the selection. A clipboard entry keeps its distance in
// a 16-bit tick, so a selection longer than that ends there.
template <class F>
void parcourt(const CVantoroTablature& doc, const Sélection& s, F&& f) {
  Ticks longueur = s.xFin - s.xDébut;
  for (int m = s.mesureDébut; m < s.mesureFin; ++m)
    longueur += doc.getMesureLargeur(m);
  longueur = std::min<Ticks>(longueur, 0xFFFF);

  Ticks origine = -s.xDébut;  // the distance of tick 0 of the bar walked
  for (int m = s.mesureDébut; m <= s.mesureFin; ++m) {
    for (int c = s.cordeDébut; c <= s.cordeFin; ++c) {
      for (int n = 1; n <= doc.getNoteLast(s.piste, m, c); ++n) {
        const Ticks d = origine + doc.getNoteX(s.piste, m, c, n);
        if (d >= 0 && d <= longueur) f(m, c, n, d);
      }
    }
    origine += doc.getMesureLargeur(m);
  }
}

// The bars of `pos` that exist: the first and how many, or nothing.
std::optional<std::pair<int, int>> mesuresExistantes(const CVantoroTablature& doc,
                                                     const PositionsMesures& pos) {
  if (!doc.hasMesure(pos.première) || pos.nombre < 1) return std::nullopt;
  return std::pair{pos.première, std::min(pos.nombre, doc.getMesureLast() - pos.première + 1)};
}

// One bar of one track read through the accessors: chords, texts, notes.
tPisteMesure litMesure(const CVantoroTablature& doc, int p, int m) {
  const int cordes = doc.getGuitareNbrCordes(p);
  tPisteMesure pm = tPisteMesure::vide(cordes);
  for (int n = 1; n <= doc.getMesureAccordLast(p, m); ++n) {
    tAccord a;
    a.intX = static_cast<u16>(doc.getMesureAccordX(p, m, n));
    a.strNom = doc.getMesureAccordNom(p, m, n);
    a.tabCordes.resize(cordes);
    for (int c = 1; c <= cordes; ++c)
      a.tabCordes[c] = static_cast<byt>(doc.getMesureAccordCorde(p, m, n, c));
    pm.tabAccords.push_back(std::move(a));
  }
  for (int n = 1; n <= doc.getMesureTexteDnLast(p, m); ++n)
    pm.tabTextesDn.push_back(tTexte{static_cast<u16>(doc.getMesureTexteDnX(p, m, n)),
                                    doc.getMesureTexteDnContenu(p, m, n)});
  for (int n = 1; n <= doc.getMesureTexteUpLast(p, m); ++n)
    pm.tabTextesUp.push_back(tTexte{static_cast<u16>(doc.getMesureTexteUpX(p, m, n)),
                                    doc.getMesureTexteUpContenu(p, m, n)});
  for (int c = 1; c <= cordes; ++c) {
    for (int n = 1; n <= doc.getNoteLast(p, m, c); ++n) {
      tNote note;
      note.bytCase = static_cast<byt>(doc.getNoteCase(p, m, c, n));
      note.bytDurée = static_cast<byt>(doc.getNoteDurée(p, m, c, n));
      note.intX = static_cast<u16>(doc.getNoteX(p, m, c, n));
      note.bytEffet = static_cast<byt>(doc.getNoteEffet(p, m, c, n));
      note.bytAttaque = static_cast<byt>(doc.getNoteAttaque(p, m, c, n));
      note.bytVolume = static_cast<byt>(doc.getNoteVolume(p, m, c, n));
      pm.tabCordes[c].push_back(note);
    }
  }
  return pm;
}

// Writes a clipboard bar into an empty bar of one track. Strings the track
// doesn't have are left out; a chord keeps the frets of the strings it has.
void écritMesure(CVantoroTablature& doc, int p, int m, const tPisteMesure& pm) {
  for (const tAccord& a : pm.tabAccords) {
    const int n = doc.addandplaceMesureAccord(p, m, a.intX);
    if (n != 0) doc.setMesureAccord(p, m, n, a.strNom, a.tabCordes);
  }
  for (const tTexte& t : pm.tabTextesUp)
    doc.setMesureTexte(p, m, t.intX, t.strContenu, kVrai);
  for (const tTexte& t : pm.tabTextesDn)
    doc.setMesureTexte(p, m, t.intX, t.strContenu, kFaux);
  const int cordes = std::min(doc.getGuitareNbrCordes(p), pm.tabCordes.last());
  for (int c = 1; c <= cordes; ++c) {
    const OneBased<tNote>& liste = pm.tabCordes[c];
    if (!doc.setCordeNbNotes(p, m, c, liste.last())) continue;
    for (int n = 1; n <= liste.last(); ++n) {
      const tNote& note = liste[n];
      doc.setNoteAttaque(p, m, c, n, note.bytAttaque);
      doc.setNoteVolume(p, m, c, n, note.bytVolume);
      doc.setNoteCase(p, m, c, n, note.bytCase);
      doc.setNoteDurée(p, m, c, n, note.bytDurée);
      doc.setNoteX(p, m, c, n, note.intX);
      doc.setNoteEffet(p, m, c, n, note.bytEffet);
    }
  }
}

// The removal of bars behind delete and cut; `undo` takes the snapshot.
Changement supprime(CVantoroTablature& doc, const PositionsMesures& pos, bool undo) {
  Changement ch;
  const int p = doc.CurseurPiste();
  const auto étendue = mesuresExistantes(doc, pos);
  if (!doc.hasPiste(p) || !étendue) return ch;
  const auto [première, nombre] = *étendue;
  if (undo) doc.storeUndo(true);
  const int avant = doc.getMesureLast();
  if (pos.toutesPistes) {
    // Each track closes up over the bars, then the emptied bars at the end of
    // the document go.
    for (int q = 1; q <= doc.getPisteLast(); ++q)
      for (int i = 0; i < nombre; ++i)
        doc.deleteMesure(q, première);
    doc.garbageMesure(première, nombre);
  } else {
    for (int i = 0; i < nombre; ++i)
      doc.deleteMesure(p, première);
  }
  if (doc.CurseurMesure() > doc.getMesureLast()) {
    doc.setCurseurMesure(static_cast<i16>(doc.getMesureLast()));
    doc.setCurseurX(0);
    ch.curseurRamené = true;
  }
  doc.modifi = kVrai;
  ch.modifié = true;
  ch.premièreMesure = std::min(première, doc.getMesureLast());
  ch.dernièreMesure = doc.getMesureLast();
  ch.longueurChangée = doc.getMesureLast() != avant;
  return ch;
}

}  // namespace

bool aUneSélection(const CVantoroTablature& doc) {
  return doc.intSelStartMesure != 0 && doc.intSelStopMesure != 0;
}

void normaliseSélection(CVantoroTablature& doc) {
  if (doc.intSelStopMesure < doc.intSelStartMesure ||
      (doc.intSelStopMesure == doc.intSelStartMesure && doc.intSelStopX < doc.intSelStartX)) {
    std::swap(doc.intSelStartMesure, doc.intSelStopMesure);
    std::swap(doc.intSelStartX, doc.intSelStopX);
  }
  if (doc.bytSelStopCorde < doc.bytSelStartCorde)
    std::swap(doc.bytSelStartCorde, doc.bytSelStopCorde);
}

// ---- Notes ------------------------------------------------------------------

bool PressePapierNotes::copier(CVantoroTablature& doc) {
  const std::optional<Sélection> s = sélection(doc);
  if (!s) return false;
  OneBased<OneBased<tNote>> cordes(s->cordeFin - s->cordeDébut + 1);
  parcourt(doc, *s, [&](int m, int c, int n, Ticks d) {
    tNote note;
    note.bytCase = static_cast<byt>(doc.getNoteCase(s->piste, m, c, n));
    note.bytAttaque = static_cast<byt>(doc.getNoteAttaque(s->piste, m, c, n));
    note.bytDurée = static_cast<byt>(doc.getNoteDurée(s->piste, m, c, n));
    note.bytEffet = static_cast<byt>(doc.getNoteEffet(s->piste, m, c, n));
    note.bytVolume = static_cast<byt>(doc.getNoteVolume(s->piste, m, c, n));
    note.intX = static_cast<u16>(d);
    cordes[c - s->cordeDébut + 1].push_back(note);
  });
  m_cordes = std::move(cordes);
  return true;
}

Changement PressePapierNotes::couper(CVantoroTablature& doc) {
  Changement ch;
  const std::optional<Sélection> s = sélection(doc);
  if (!s) return ch;
  doc.storeUndo(true);
  copier(doc);
  struct Place {
    int mesure, corde, x;
  };
  std::vector<Place> places;
  parcourt(doc, *s, [&](int m, int c, int n, Ticks) {
    places.push_back({m, c, doc.getNoteX(s->piste, m, c, n)});
  });
  for (const Place& l : places)
    doc.deleteNote(s->piste, l.mesure, l.corde, doc.searchNote(s->piste, l.mesure, l.corde, l.x));
  ch.premièreMesure = s->mesureDébut;
  ch.dernièreMesure = s->mesureFin;
  if (!places.empty()) {
    doc.modifi = kVrai;
    ch.modifié = true;
  }
  return ch;
}

Changement PressePapierNotes::coller(CVantoroTablature& doc) const {
  Changement ch;
  const int p = doc.CurseurPiste();
  const int départ = doc.CurseurMesure();
  if (!aDuContenu() || !doc.hasPiste(p) || !doc.hasMesure(départ)) return ch;
  doc.storeUndo(true);
  const int avant = doc.getMesureLast();
  const int cordes = doc.getGuitareNbrCordes(p);
  int dernière = départ;
  for (int i = 1; i <= m_cordes.last(); ++i) {
    const int c = doc.CurseurCorde() + i - 1;
    if (c < 1 || c > cordes) continue;
    for (const tNote& note : m_cordes[i]) {
      int m = départ;
      Ticks x = Ticks{doc.CurseurX()} + note.intX;
      bool place = true;
      // Over each bar end the bar's own width is taken off, so the note keeps
      // its distance whatever the signatures on the way.
      for (;;) {
        const int largeur = doc.getMesureLargeur(m);
        if (x < largeur) break;
        if (largeur <= 0 || (m == doc.getMesureLast() && !doc.addMesure())) {
          place = false;
          break;
        }
        x -= largeur;
        ++m;
      }
      if (!place) break;  // the document holds no more bars: nor the later notes
      const int n = doc.setNoteWhole(p, m, c, static_cast<int>(x), note.bytCase, note.bytDurée);
      if (n == 0) continue;
      doc.setNoteAttaque(p, m, c, n, note.bytAttaque);
      doc.setNoteEffet(p, m, c, n, note.bytEffet);
      doc.setNoteVolume(p, m, c, n, note.bytVolume);
      dernière = std::max(dernière, m);
      ch.modifié = true;
    }
  }
  if (ch.modifié) {
    doc.modifi = kVrai;
    ch.premièreMesure = départ;
    ch.dernièreMesure = dernière;
  }
  ch.longueurChangée = doc.getMesureLast() != avant;
  return ch;
}

// ---- Bars -------------------------------------------------------------------

bool PressePapierMesures::copier(const CVantoroTablature& doc, const PositionsMesures& pos) {
  const int p = doc.CurseurPiste();
  const auto étendue = mesuresExistantes(doc, pos);
  if (!doc.hasPiste(p) || !étendue) return false;
  const auto [première, nombre] = *étendue;
  OneBased<tPisteMesure> copie;
  copie.reserve(nombre);
  for (int m = première; m < première + nombre; ++m)
    copie.push_back(litMesure(doc, p, m));
  m_mesures = std::move(copie);
  return true;
}

Changement PressePapierMesures::couper(CVantoroTablature& doc, const PositionsMesures& pos) {
  if (!doc.hasPiste(doc.CurseurPiste()) || !mesuresExistantes(doc, pos)) return {};
  doc.storeUndo(true);
  copier(doc, pos);
  return supprime(doc, pos, false);
}

Changement PressePapierMesures::coller(CVantoroTablature& doc) const {
  Changement ch;
  const int p = doc.CurseurPiste();
  const int départ = doc.CurseurMesure();
  if (!aDuContenu() || !doc.hasPiste(p) || !doc.hasMesure(départ) ||
      doc.getMesureLast() + nombre() > kMaxMesures)
    return ch;
  doc.storeUndo(true);
  if (!doc.insertMesure(p, départ, nombre())) return ch;
  for (int i = 1; i <= nombre(); ++i)
    écritMesure(doc, p, départ + i - 1, m_mesures[i]);
  doc.modifi = kVrai;
  ch.modifié = true;
  ch.premièreMesure = départ;
  ch.dernièreMesure = doc.getMesureLast();
  ch.longueurChangée = true;
  return ch;
}

// ---- Whole bars ---------------------------------------------------------------

Changement insèreMesures(CVantoroTablature& doc, const PositionsMesures& pos) {
  Changement ch;
  const int p = doc.CurseurPiste();
  const int nombre = pos.nombre;
  const int avant = doc.getMesureLast();
  const bool plusieurs = pos.toutesPistes && doc.getPisteLast() > 1;
  // With every track the document passes through one more run of bars.
  const int place = kMaxMesures - avant - (plusieurs ? nombre : 0);
  if (!doc.hasPiste(p) || nombre < 1 || pos.première < 1 || pos.première > avant + 1 ||
      nombre > place)
    return ch;
  doc.storeUndo(true);
  if (pos.toutesPistes) {
    // Each insertMesure adds its bars to the whole document; from the second
    // track on, the run it adds at the end is empty on every track, and goes,
    // so that the document grows by `nombre` bars only.
    for (int q = 1; q <= doc.getPisteLast(); ++q) {
      doc.insertMesure(q, pos.première, nombre);
      if (q > 1) doc.garbageMesure(doc.getMesureLast() - nombre + 1, nombre);
    }
  } else {
    doc.insertMesure(p, pos.première, nombre);
  }
  doc.modifi = kVrai;
  ch.modifié = true;
  ch.premièreMesure = pos.première;
  ch.dernièreMesure = doc.getMesureLast();
  ch.longueurChangée = true;
  return ch;
}

Changement supprimeMesures(CVantoroTablature& doc, const PositionsMesures& pos) {
  return supprime(doc, pos, true);
}

}  // namespace vt
