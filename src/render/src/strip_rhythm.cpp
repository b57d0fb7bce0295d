// Stems and beams, on the tablature and on the staff, and the beam state that
// tells a note whether it joins the note before and the note after.
#include "beam_table.h"
#include "render/strip_renderer.h"

namespace vt {

Famille familleDeDurée(int d) {
  switch (d) {
    case 192:
    case 128: return Famille::Ronde;
    case 96:
    case 64:
    case 144: return Famille::Blanche;
    case 48:
    case 32:
    case 72: return Famille::Noire;
    case 24:
    case 16:
    case 36: return Famille::Croche;
    case 12:
    case 8:
    case 18: return Famille::DoubleCroche;
    case 6:
    case 4:
    case 9: return Famille::TripleCroche;
    default: return Famille::Aucune;
  }
}

bool estTriolet(int d) {
  return d == 4 || d == 8 || d == 16 || d == 32 || d == 64 || d == 128;
}

bool estPointée(int d) { return d == 9 || d == 18 || d == 36 || d == 72 || d == 144; }

Barre étendueBarre(int position, bool P, bool N, bool M, bool L, Famille famille, int d, int U,
                   int F) {
  const bool croche = famille == Famille::Croche;
  const bool doubleCroche = famille == Famille::DoubleCroche;
  switch (position) {
    case 0: return N && !L ? Barre{0, 2 * U} : Barre{0, F};
    case 1:
      if (P && !N) return {-U, U};
      if (P && N && M) return famille == Famille::TripleCroche ? Barre{-U, 2 * U} : Barre{-U, 3 * U};
      if (P && N) return croche ? Barre{-U, 3 * U} : Barre{-U, 2 * U};
      if (N && M) return {0, 2 * U};
      if (N) return croche ? Barre{0, 2 * U} : Barre{0, U};
      return {0, F};
    default: {
      if (!P) return {0, F};
      Barre b = doubleCroche ? Barre{-U, U} : Barre{-2 * U, 2 * U};
      // A dotted note ending the beat reaches back a third as far.
      if ((croche && d == 36) || (doubleCroche && d == 18)) {
        b.dx /= 3;
        b.len = -b.dx;
      }
      return b;
    }
  }
}

int uniteDeBarre(const CVantoroTablature& doc, int m) {
  int div = 0;
  switch (doc.getMesureSignatureUp(m)) {
    case 15:
    case 5: div = 5; break;
    case 12:
    case 4: div = 4; break;
    case 11: div = 11; break;
    case 9:
    case 7:
    case 3: div = 3; break;
    case 6:
    case 2: div = 2; break;
    case 1: div = 1; break;
    default: return 0;
  }
  return doc.getMesureLargeur(m) / div;
}

int nombreDeBarres(Famille f) {
  switch (f) {
    case Famille::Croche: return 1;
    case Famille::DoubleCroche: return 2;
    case Famille::TripleCroche: return 3;
    default: return 0;
  }
}

EtatRythme étatRythme(const CVantoroTablature& doc, int p, int m, int c, int n) {
  EtatRythme e;
  const tNote* note = doc.getNote(p, m, c, n);
  const int B = uniteDeBarre(doc, m);
  // A numerator without a beam unit leaves every note with its own flag; such a
  // bar has no beat to beam in.
  if (note == nullptr || B == 0) return e;
  const int X = note->intX;
  const int d = note->bytDurée;
  if (X % B != 0) e.position = (X + d) % B == 0 ? 2 : 1;

  const int cordes = doc.getGuitareNbrCordes(p);
  const int temps = doc.getTempsNote(p, m, c, n);
  for (int s = 1; s <= cordes; ++s) {
    const int k = doc.searchNoteBeforeX(p, m, s, X);
    const tNote* avant = k != 0 ? doc.getNote(p, m, s, k) : nullptr;
    if (avant != nullptr && avant->bytCase != kCaseVide && doc.getTempsNote(p, m, s, k) == temps &&
        avant->intX + avant->bytDurée == X) {
      e.précédent = true;
      break;
    }
  }
  for (int s = 1; s <= cordes; ++s) {
    const int k = doc.searchNoteAfterX(p, m, s, X + d, s == c ? 2 : 1);
    const tNote* après = k != 0 ? doc.getNote(p, m, s, k) : nullptr;
    if (après != nullptr && après->bytCase != kCaseVide && doc.getTempsNote(p, m, s, k) == temps &&
        après->intX == X + d) {
      e.suivant = true;
      e.suivantMêmeDurée = après->bytDurée == d;
      e.suivantLong = après->bytDurée >= 32;
      break;
    }
  }
  return e;
}

void CStripRenderer::calculeEtatRythme(int p, int m, int c, int n) {
  const EtatRythme e = étatRythme(m_doc, p, m, c, n);
  rythmePrecedent = e.précédent ? kVrai : kFaux;
  rythmeSuivant = e.suivant ? kVrai : kFaux;
  rythmeSuivantMemeDurée = e.suivantMêmeDurée ? kVrai : kFaux;
  rythmeSuivantLong = e.suivantLong ? kVrai : kFaux;
  rythmePosition = static_cast<byt>(e.position);
}

void CStripRenderer::drawRythme(Surface& surface, int d, int x, int y, int h, int unité) {
  const Famille f = familleDeDurée(d);
  const int is = m_s.TAB_VIEW_INTER_STRINGS;
  if (f == Famille::Blanche) {
    surface.LineStep(x, y, 0, -is);
  } else if (f != Famille::Ronde) {
    surface.LineStep(x, y, 0, h);
  }
  if (const int barres = nombreDeBarres(f); barres > 0) {
    const Barre b = étendueBarre(rythmePosition, rythmePrecedent != 0, rythmeSuivant != 0,
                                 rythmeSuivantMemeDurée != 0, rythmeSuivantLong != 0, f, d,
                                 unité, m_s.TAB_VIEW_INTER_NOTE / 4);
    for (int i = 0; i < barres; ++i) {
      const int rang = y - 4 * i;
      surface.LineStep(x + b.dx, rang, b.len, 0);
      surface.LineStep(x + b.dx, rang - 1, b.len, 0);
    }
  }
  if (estTriolet(d)) drawTextCenter(surface, x, y + is, "3");
  if (estPointée(d)) {
    const FillStyle remplissage = surface.fillStyle();
    const Colour fond = surface.FillColor();
    surface.setFillStyle(FillStyle::Solid);
    surface.setFillColor(surface.ForeColor());
    surface.Circle(x, y + is, 1);
    surface.setFillStyle(remplissage);
    surface.setFillColor(fond);
  }
}

void CStripRenderer::drawRythmePortée(int d, int x, int y, int h, int unité) {
  const Famille f = familleDeDurée(d);
  if (f == Famille::Ronde || f == Famille::Aucune) return;
  const int hauteur = f == Famille::Blanche || f == Famille::Noire
                          ? -6 * m_s.TAB_VIEW_INTER_PORTEE
                          : h;
  drawScreenLine(x, y, 0, hauteur);
  // Whole notes have no stem, dots are blitted beside the head, and the
  // triplet's 3 is the tablature's, right under it: the staff repeats neither.
  const int pointe = y + hauteur;
  if (const int barres = nombreDeBarres(f); barres > 0) {
    const Barre b = étendueBarre(rythmePosition, rythmePrecedent != 0, rythmeSuivant != 0,
                                 rythmeSuivantMemeDurée != 0, rythmeSuivantLong != 0, f, d,
                                 unité, m_s.TAB_VIEW_INTER_NOTE / 4);
    for (int i = 0; i < barres; ++i) {
      const int rang = pointe + 4 * i;
      // Two lines a pixel apart, inclusive of both ends as on the tablature.
      m_surface.Line(x + b.dx, rang, x + b.dx + b.len, rang);
      m_surface.Line(x + b.dx, rang + 1, x + b.dx + b.len, rang + 1);
    }
  }
}

}  // namespace vt
