// FTabGetTimeSignature: the time signature of a bar, or of a bar and the
// following ones up to the next change. A narrower bar loses everything at or
// past its new end, on every track; the dialog counts what would go before OK.
#pragma once

#include <QDialog>
#include <optional>

#include "etendue_mesures.h"
#include "textes_dialogue.h"

class QComboBox;
class QLabel;
class QSpinBox;

namespace vt {

class CVantoroTablature;

// What a narrower width would cut from a run of bars, on all tracks.
struct Coupe {
  int notes = 0;
  int accords = 0;
  int textes = 0;
  int tempos = 0;
  int total() const { return notes + accords + textes + tempos; }
};
Coupe coupePour(const CVantoroTablature& doc, int premiere, int derniere, int largeur);

class FTabGetTimeSignature : public QDialog {
  Q_OBJECT

 public:
  FTabGetTimeSignature(const Textes& t, CVantoroTablature& doc, int mesure,
                       QWidget* parent = nullptr);

  // Modal; true when OK changed the document.
  static bool editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int mesure);

  bool modifie() const { return m_modifie; }
  void accept() override;

 private:
  void amorce();     // the chosen bar's signature into the fields
  void actualise();  // the warning about what would be cut
  int haut() const;
  int bas() const;
  int derniere() const;

  Textes m_t;
  CVantoroTablature& m_doc;
  std::optional<ChoixEtendue> m_etendue;
  QSpinBox* m_haut;
  QComboBox* m_bas;
  QLabel* m_avertissement;
  bool m_modifie = false;
};

}  // namespace vt
