// FTabTempo: a tempo change at one tick of a bar, or its removal.
#pragma once

#include <QDialog>

#include "textes_dialogue.h"

class QCheckBox;
class QLabel;
class QSpinBox;

namespace vt {

class CVantoroTablature;

class FTabTempo : public QDialog {
  Q_OBJECT

 public:
  FTabTempo(const Textes& t, CVantoroTablature& doc, int mesure, int x, QWidget* parent = nullptr);

  // Modal; true when OK changed the document.
  static bool editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int mesure, int x);

  bool modifie() const { return m_modifie; }
  void accept() override;

 private:
  Textes m_t;
  CVantoroTablature& m_doc;
  int m_mesure;
  int m_x;
  QSpinBox* m_tempo;
  QCheckBox* m_supprimer;
  QLabel* m_erreur;
  bool m_modifie = false;
};

// The tempo that plays at (mesure, x): the last change at or before it, else
// the tempo of the piece.
int tempoEnVigueur(const CVantoroTablature& doc, int mesure, int x);

}  // namespace vt
