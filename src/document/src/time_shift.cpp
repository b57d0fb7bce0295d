// insertSilence and removeNotes: a track's content after a point moves later or
// earlier in time, crossing bar lines. Both run as a transaction: if a list
// would pass its limit on the way, the track and the bar count are put back.
#include <utility>
#include <vector>

#include "document/tablature.h"

namespace vt {

namespace {

template <class T>
struct Sortie {
  T entree;
  int tick;  // relative to the start of the bar it spilled into
};

// Adds `delta` to the ticks of the entries from `i0` on. Entries whose new tick
// leaves [0, largeur) are taken out and returned in their order, their tick
// made relative to the next bar (delta > 0) or left negative (delta < 0).
template <class T>
std::vector<Sortie<T>> decaler(OneBased<T>& liste, int i0, int delta, int largeur) {
  std::vector<Sortie<T>> sorties;
  OneBased<T> gardes;
  gardes.reserve(liste.last());
  for (int i = 1; i <= liste.last(); ++i) {
    T e = std::move(liste[i]);
    if (i >= i0) {
      const int nx = e.intX + delta;
      if ((delta > 0 && nx >= largeur) || nx < 0) {
        sorties.push_back({std::move(e), nx >= largeur ? nx - largeur : nx});
        continue;
      }
      e.intX = static_cast<u16>(nx);
    }
    gardes.push_back(std::move(e));
  }
  liste = std::move(gardes);
  return sorties;
}

template <class T>
int premierAPartirDe(const OneBased<T>& liste, int x) {
  for (int i = 1; i <= liste.last(); ++i)
    if (liste[i].intX >= x) return i;
  return liste.last() + 1;
}

template <class T>
void effacerEntre(OneBased<T>& liste, int debut, int fin) {
  for (int i = liste.last(); i >= 1; --i)
    if (liste[i].intX >= debut && liste[i].intX < fin) liste.erase(i);
}

}  // namespace

bool CVantoroTablature::moveNoteToMesure(int p, int m, int c, const tNote& n, int x) {
  const int k = setNoteWhole(p, m, c, x, n.bytCase, n.bytDurée);
  if (k == 0) return false;
  tNote& placee = *noteMut(p, m, c, k);
  placee.bytEffet = n.bytEffet;
  placee.bytAttaque = n.bytAttaque;
  placee.bytVolume = n.bytVolume;
  return true;
}

bool CVantoroTablature::insertSilence(int p, int m, int intX, int intDur) {
  if (!m_tabPistes.has(p) || !m_tabMesures.has(m) || intX < 0 || intDur <= 0) return false;
  const int largeurM = getMesureLargeur(m);
  if (intX >= largeurM) return false;
  if (intX + intDur > largeurM) intDur = makeNoteDuréeExiste(largeurM - intX);

  const tPiste avant = m_tabPistes[p];
  const int mesuresAvant = getMesureLast();
  bool ok = true;

  // The bar a spilled entry lands in: the next one, or further when the next is
  // narrower than the shift; bars are added at the end as needed.
  auto cible = [&](int b, int tick, int& t, int& tk) {
    t = b + 1;
    tk = tick;
    for (;;) {
      if (t > getMesureLast() && !addMesure()) return false;
      const int w = getMesureLargeur(t);
      if (w <= 0 || tk < w) return true;
      tk -= w;
      ++t;
    }
  };

  // From the last bar back, so that nothing is overwritten before it is read.
  for (int b = getMesureLast(); b >= m && ok; --b) {
    const int w = getMesureLargeur(b);
    const int cordes = m_tabPistes[p].tabMesures[b].tabCordes.last();
    for (int c = 1; c <= cordes && ok; ++c) {
      OneBased<tNote>& liste = m_tabPistes[p].tabMesures[b].tabCordes[c];
      const int i0 = b == m ? premierAPartirDe(liste, intX) : 1;
      auto sorties = decaler(liste, i0, intDur, w);
      // A note that still starts in the bar but no longer fits is cut.
      for (int i = i0; i <= liste.last(); ++i)
        if (liste[i].intX + liste[i].bytDurée > w)
          liste[i].bytDurée = static_cast<byt>(makeNoteDuréeExiste(w - liste[i].intX));
      for (const auto& s : sorties) {
        int t = 0, tk = 0;
        ok = ok && cible(b, s.tick, t, tk) && moveNoteToMesure(p, t, c, s.entree, tk);
      }
    }
    if (!ok) break;
    {
      auto& pm = m_tabPistes[p].tabMesures[b];
      auto accords =
          decaler(pm.tabAccords, b == m ? premierAPartirDe(pm.tabAccords, intX) : 1, intDur, w);
      for (const auto& s : accords) {
        int t = 0, tk = 0;
        if (!(cible(b, s.tick, t, tk))) {
          ok = false;
          break;
        }
        const int n = addandplaceMesureAccord(p, t, tk);
        ok = n != 0 && setMesureAccord(p, t, n, s.entree.strNom, s.entree.tabCordes);
        if (!ok) break;
      }
    }
    for (vbool haut : {kVrai, kFaux}) {
      if (!ok) break;
      auto& pm = m_tabPistes[p].tabMesures[b];
      auto& liste = haut == kVrai ? pm.tabTextesUp : pm.tabTextesDn;
      auto textes = decaler(liste, b == m ? premierAPartirDe(liste, intX) : 1, intDur, w);
      for (const auto& s : textes) {
        int t = 0, tk = 0;
        ok = cible(b, s.tick, t, tk) && setMesureTexte(p, t, tk, s.entree.strContenu, haut);
        if (!ok) break;
      }
    }
  }

  if (!ok) {
    m_tabPistes[p] = avant;
    truncateMesures(mesuresAvant);
  }
  return ok;
}

bool CVantoroTablature::removeNotes(int p, int m, int intX, int intDur) {
  if (!m_tabPistes.has(p) || !m_tabMesures.has(m) || intX < 0 || intDur <= 0) return false;
  const tPiste avant = m_tabPistes[p];
  bool ok = true;

  // 1. The stretch itself goes.
  {
    tPisteMesure& pm = m_tabPistes[p].tabMesures[m];
    for (auto& corde : pm.tabCordes)
      effacerEntre(corde, intX, intX + intDur);
    effacerEntre(pm.tabAccords, intX, intX + intDur);
    effacerEntre(pm.tabTextesUp, intX, intX + intDur);
    effacerEntre(pm.tabTextesDn, intX, intX + intDur);
  }

  // The bar an entry moved before its bar's start lands in, walking back over
  // bars narrower than the stretch. It never lands before (m, intX).
  auto cible = [&](int b, int tick, int& t, int& tk) {
    t = b - 1;
    tk = tick + getMesureLargeur(t);
    while (tk < 0 && t > m) {
      --t;
      tk += getMesureLargeur(t);
    }
    if (tk < 0) tk = 0;
  };

  // 2. Everything after it moves earlier, bar by bar from the first, so that a
  // bar receiving notes from its successor has already closed up.
  for (int b = m; b <= getMesureLast() && ok; ++b) {
    const int w = getMesureLargeur(b);
    const int cordes = m_tabPistes[p].tabMesures[b].tabCordes.last();
    for (int c = 1; c <= cordes && ok; ++c) {
      OneBased<tNote>& liste = m_tabPistes[p].tabMesures[b].tabCordes[c];
      auto sorties = decaler(liste, b == m ? premierAPartirDe(liste, intX) : 1, -intDur, w);
      for (const auto& s : sorties) {
        int t = 0, tk = 0;
        cible(b, s.tick, t, tk);
        tNote n = s.entree;
        const int wt = getMesureLargeur(t);
        if (tk + n.bytDurée > wt) n.bytDurée = static_cast<byt>(wt > tk ? wt - tk : 0);
        if (!(ok = moveNoteToMesure(p, t, c, n, tk))) break;
      }
    }
    if (!ok) break;
    {
      auto& pm = m_tabPistes[p].tabMesures[b];
      auto accords =
          decaler(pm.tabAccords, b == m ? premierAPartirDe(pm.tabAccords, intX) : 1, -intDur, w);
      for (const auto& s : accords) {
        int t = 0, tk = 0;
        cible(b, s.tick, t, tk);
        const int n = addandplaceMesureAccord(p, t, tk);
        if (!(ok = n != 0 && setMesureAccord(p, t, n, s.entree.strNom, s.entree.tabCordes))) break;
      }
    }
    for (vbool haut : {kVrai, kFaux}) {
      if (!ok) break;
      auto& pm = m_tabPistes[p].tabMesures[b];
      auto& liste = haut == kVrai ? pm.tabTextesUp : pm.tabTextesDn;
      auto textes = decaler(liste, b == m ? premierAPartirDe(liste, intX) : 1, -intDur, w);
      for (const auto& s : textes) {
        int t = 0, tk = 0;
        cible(b, s.tick, t, tk);
        if (!(ok = setMesureTexte(p, t, tk, s.entree.strContenu, haut))) break;
      }
    }
  }

  // A note that began before the stretch and reached into it must not now reach
  // over the note that closed up behind it.
  if (ok) {
    for (auto& liste : m_tabPistes[p].tabMesures[m].tabCordes) {
      const int j = premierAPartirDe(liste, intX) - 1;
      if (j >= 1 && j < liste.last() && liste[j].intX + liste[j].bytDurée > liste[j + 1].intX)
        liste[j].bytDurée =
            static_cast<byt>(makeNoteDuréeExiste(liste[j + 1].intX - liste[j].intX));
    }
  }

  if (!ok) m_tabPistes[p] = avant;
  return ok;
}

}  // namespace vt
