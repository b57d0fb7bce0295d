// What the tests of the document dialogs share: documents made with the core,
// the dialogs' widgets found by objectName, OK and Cancel pressed.
#pragma once

#include "../document/test_support.h"

#include <ostream>
#include <vector>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDialog>
#include <QString>
#include <stdexcept>

#include "dialogs/textes_dialogue.h"
#include "document/tablature.h"

inline void PrintTo(const QString& s, std::ostream* os) {
  *os << '"' << s.toStdString() << '"';
}

namespace vt::essai {

inline const Textes kAnglais{kLangAnglais};
inline const Textes kFrancais{kLangFrançais};

// A widget of a dialog by its objectName; a missing one fails the test.
template <class T>
T* enfant(const QObject* parent, const char* nom) {
  T* w = parent->findChild<T*>(QString::fromLatin1(nom));
  if (w == nullptr) throw std::runtime_error(std::string("no widget named ") + nom);
  return w;
}

inline void ok(QDialog& d) {
  enfant<QAbstractButton>(&d, "btnOk")->click();
}
inline void annuler(QDialog& d) {
  enfant<QAbstractButton>(&d, "btnAnnuler")->click();
}

// A catalogue of two instruments: the standard guitar and a four-string bass.
inline const char* const kGuitareEtBasse =
    "[Accordeur]\nnbrGuitares=2\n"
    "[1]\nnom=Guitare\nnomEN=Guitar\nnbrCordes=6\nnbrCases=24\ncorde1=64\ncorde2=59\n"
    "corde3=55\ncorde4=50\ncorde5=45\ncorde6=40\ncapodastre=0\n"
    "[2]\nnom=Basse\nnomEN=Bass\nnbrCordes=4\nnbrCases=20\ncorde1=43\ncorde2=38\n"
    "corde3=33\ncorde4=28\ncapodastre=0\n";

inline tGuitare guitareSixCordes() {
  tGuitare g;
  g.nom = "Guitare";
  return g;  // 64, 59, 55, 50, 45, 40; 24 frets, no capo
}

// `pistes` tracks of the six-string guitar, `mesures` bars of 4/4.
inline CVantoroTablature document(int pistes, int mesures) {
  CVantoroTablature doc(guitareSixCordes());
  for (int p = 2; p <= pistes; ++p)
    doc.addPiste(p - 1, guitareSixCordes());
  for (int m = 2; m <= mesures; ++m)
    doc.addMesure();
  return doc;
}

// The content a user sees: tracks, bars and the piece's fields (not the
// undo stacks, nor the cursor).
inline bool memeContenu(const CVantoroTablature& a, const CVantoroTablature& b) {
  return a.pistes() == b.pistes() && a.mesures() == b.mesures() && a.titre == b.titre &&
         a.SousTitre == b.SousTitre && a.Auteur == b.Auteur && a.Copy == b.Copy &&
         a.Comments == b.Comments && a.tempo == b.tempo && a.TripleFeel() == b.TripleFeel();
}

// The notes of one string of a bar: tick, fret and length, in order.
using Note = test::NoteVue;
using test::corde;

}  // namespace vt::essai
