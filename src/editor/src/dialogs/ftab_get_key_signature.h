// FTabGetKeySignature: the key of a bar, or of a bar and the following ones up
// to the next change, as the document stores it: sharps or flats and the mode.
#pragma once

#include <QDialog>
#include <optional>

#include "etendue_mesures.h"
#include "textes_dialogue.h"

class QComboBox;
class QRadioButton;

namespace vt {

class CVantoroTablature;

class FTabGetKeySignature : public QDialog {
  Q_OBJECT

 public:
  FTabGetKeySignature(const Textes& t, CVantoroTablature& doc, int mesure,
                      QWidget* parent = nullptr);

  // Modal; true when OK changed the document.
  static bool editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int mesure);

  bool modifie() const { return m_modifie; }
  void accept() override;

  // The key byte the fields make: 8 + accidentals, plus 64 in minor.
  int tonalite() const;

 private:
  void amorce();  // the chosen bar's key into the fields
  void nomme();   // the names of the list follow the mode

  Textes m_t;
  CVantoroTablature& m_doc;
  std::optional<ChoixEtendue> m_etendue;
  QRadioButton* m_majeur;
  QRadioButton* m_mineur;
  QComboBox* m_alterations;
  bool m_modifie = false;
};

}  // namespace vt
