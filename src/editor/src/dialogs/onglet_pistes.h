// The tracks tab of FTabProprietes: one track at a time, chosen in a list, with
// its name, its instrument (from the catalogue, or a tuning of its own), its
// MIDI sound and effects, its staff and its play flags. Nothing reaches the
// document from here: the dialog writes what this tab collected on OK.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "document/records.h"
#include "reglages_piste.h"
#include "textes_dialogue.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace vt {

class CVantoroTablature;
class CatalogueGuitares;
class SpinNote;

class OngletPistes : public QWidget {
 public:
  OngletPistes(const Textes& t, const CatalogueGuitares& catalogue, const tGuitare& courant,
               const CVantoroTablature& doc, int piste, QWidget* parent = nullptr);

  void choisitPiste(int piste);
  int piste() const { return m_piste; }
  // Every track's settings as the widgets leave them; track p at p - 1.
  const std::vector<ReglagesPiste>& reglages();
  const std::vector<ReglagesPiste>& initiaux() const { return m_initiaux; }

  QLineEdit* champNom() const { return m_nom; }
  QString libelleNom() const;

 private:
  void montre();
  void recueille();
  void instrumentChoisi(int index);
  void prendGuitare(const tGuitare& g);
  void accordageEdite();
  void actualise();
  int indexCatalogue(const ReglagesPiste& r) const;
  QString texteDePiste(int piste) const;

  Textes m_t;
  const CatalogueGuitares& m_catalogue;
  tGuitare m_courant;
  const CVantoroTablature& m_doc;
  std::vector<ReglagesPiste> m_initiaux;
  std::vector<ReglagesPiste> m_reglages;
  std::vector<tGuitare> m_guitares;  // the catalogue, 1..n at 0..n-1
  int m_piste = 1;
  bool m_remplit = false;  // while the widgets are filled from a track

  QComboBox* m_pistes;
  QLineEdit* m_nom;
  QLabel* m_libelleNom;
  QComboBox* m_instrument;
  QSpinBox* m_cordes;
  QSpinBox* m_cases;
  QSpinBox* m_capo;
  std::array<SpinNote*, 8> m_accordage{};  // 1..7
  std::array<QLabel*, 8> m_libellesCordes{};
  QLabel* m_perte;
  QComboBox* m_patch;
  QSpinBox* m_bank;
  QSpinBox* m_pan;
  QSpinBox* m_reverb;
  QSpinBox* m_chorus;
  QSpinBox* m_tremolo;
  QSpinBox* m_phaser;
  QRadioButton* m_guitare;
  QRadioButton* m_batterie;
  QRadioButton* m_sol;
  QRadioButton* m_fa;
  QCheckBox* m_solo;
  QCheckBox* m_mute;
};

}  // namespace vt
