// FTabTranspose: moves the notes of one track by a number of semitones, within
// a fret range, over the whole track or the bars of the selection. A note that
// leaves the range passes to the neighbouring string (see
// CVantoroTablature::transpose).
#pragma once

#include <QDialog>

#include "document/records.h"
#include "textes_dialogue.h"

class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace vt {

class CVantoroTablature;

// The bars the selection covers, in order; {0, 0} when there is none.
struct MesuresSelection {
  int premiere = 0;
  int derniere = 0;
  bool existe() const { return premiere != 0; }
};
MesuresSelection mesuresSelection(const CVantoroTablature& doc);

class FTabTranspose : public QDialog {
  Q_OBJECT

 public:
  // `guitare` is the current instrument: its open strings decide the fret a
  // note takes on its neighbour.
  FTabTranspose(const Textes& t, CVantoroTablature& doc, int piste, const tGuitare& guitare,
                QWidget* parent = nullptr);

  // Modal; true when the document changed.
  static bool editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int piste,
                     const tGuitare& guitare);

  bool modifie() const { return m_modifie; }
  void accept() override;

 private:
  Textes m_t;
  CVantoroTablature& m_doc;
  int m_piste;
  tGuitare m_guitare;
  MesuresSelection m_selection;
  QSpinBox* m_demiTons;
  QSpinBox* m_min;
  QSpinBox* m_max;
  QRadioButton* m_toute;
  QRadioButton* m_sel;
  QLabel* m_erreur;
  QPushButton* m_ok = nullptr;
  bool m_modifie = false;
};

}  // namespace vt
