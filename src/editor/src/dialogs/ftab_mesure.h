// FTabMesure: the left and right bar lines of a bar, with the number of plays
// of a repeat's end.
#pragma once

#include <QDialog>

#include "textes_dialogue.h"

class QComboBox;
class QSpinBox;

namespace vt {

class CVantoroTablature;

class FTabMesure : public QDialog {
  Q_OBJECT

 public:
  FTabMesure(const Textes& t, CVantoroTablature& doc, int mesure, QWidget* parent = nullptr);

  // Modal; true when OK changed the document.
  static bool editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int mesure);

  bool modifie() const { return m_modifie; }
  void accept() override;

 private:
  CVantoroTablature& m_doc;
  int m_mesure;
  QComboBox* m_gauche;
  QComboBox* m_droite;
  QSpinBox* m_passages;
  // What the widgets showed on opening: only what the user changed is written.
  int m_gaucheInitiale = 0;
  int m_droiteInitiale = 0;
  int m_passagesInitial = 0;
  bool m_modifie = false;
};

}  // namespace vt
