// FTabMesureEdit: the run of bars a bar command works on (insert, copy, cut,
// delete): from which bar, how many, and on the current track or on all of
// them. It writes nothing: the editor runs the command on what it answers.
#pragma once

#include <QDialog>

#include "editor/presse_papiers.h"
#include "textes_dialogue.h"

class QRadioButton;
class QSpinBox;

namespace vt {

class CVantoroTablature;

class FTabMesureEdit : public QDialog {
  Q_OBJECT

 public:
  // The modes, as the Edit menu's bar commands open the dialog.
  enum Mode { kInserer = 1, kCopier = 2, kCouper = 3, kSupprimer = 4 };
  // Inserting may open any number of bars up to this; the other modes stop
  // at the document's end.
  static constexpr int kMaxInsertion = 999;

  FTabMesureEdit(const Textes& t, const CVantoroTablature& doc, int mode,
                 QWidget* parent = nullptr);

  // Modal, from the cursor's bar. True on OK, with the choice in `out`;
  // false on Cancel or for a mode other than 1 to 4, `out` untouched.
  static bool getMesurePositions(QWidget* parent, const Textes& t, const CVantoroTablature& doc,
                                 int mode, PositionsMesures& out);

  PositionsMesures positions() const;

 private:
  void suitPremiere(int premiere);

  const CVantoroTablature& m_doc;
  int m_mode;
  QSpinBox* m_de;
  QSpinBox* m_nombre;
  QRadioButton* m_pisteCourante;
  QRadioButton* m_toutesPistes;
};

}  // namespace vt
