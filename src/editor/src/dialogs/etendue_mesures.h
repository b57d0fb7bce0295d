// Where a change of a bar header reaches: from one bar, either that bar alone
// or on up to the next bar that differs from it (the next change of
// signature or key), as a musician reads a score.
#pragma once

#include <functional>

class QFormLayout;
class QRadioButton;
class QSpinBox;
class QWidget;

namespace vt {

class CVantoroTablature;
struct Textes;

// The last bar of the run that starts at `depuis` and keeps its value.
int finDeSerie(const CVantoroTablature& doc, int depuis, const std::function<int(int)>& valeur);

// The controls: "From measure" (udMesure) and the two choices optSeule and
// optSuite; added to `grille`.
class ChoixEtendue {
 public:
  ChoixEtendue(const Textes& t, const CVantoroTablature& doc, int mesure, QWidget* parent,
               QFormLayout* grille);

  int premiere() const;
  // The last bar the change reaches; `valeur` reads what the change alters.
  int derniere(const CVantoroTablature& doc, const std::function<int(int)>& valeur) const;

  QSpinBox* udMesure() const { return m_mesure; }
  QRadioButton* optSeule() const { return m_seule; }
  QRadioButton* optSuite() const { return m_suite; }

 private:
  QSpinBox* m_mesure;
  QRadioButton* m_seule;
  QRadioButton* m_suite;
};

}  // namespace vt
