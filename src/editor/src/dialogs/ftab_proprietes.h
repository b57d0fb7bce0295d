// FTabProprietes: the properties of the piece (title, subtitle, author,
// copyright, comments, tempo, triple feel) and of its tracks. Texts that a
// tablature cannot store are refused with the reason before anything is
// written; OK writes only what changed, each changed track after its own undo
// snapshot.
#pragma once

#include <QDialog>

#include "document/records.h"
#include "textes_dialogue.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class QTabWidget;

namespace vt {

class CVantoroTablature;
class CatalogueGuitares;
class OngletPistes;

class FTabProprietes : public QDialog {
  Q_OBJECT

 public:
  enum class Onglet { Morceau = 0, Pistes = 1 };

  // `courant` is the current instrument, that a track can take at a click.
  FTabProprietes(const Textes& t, const CatalogueGuitares& catalogue, const tGuitare& courant,
                 CVantoroTablature& doc, Onglet onglet, int piste, QWidget* parent = nullptr);

  // Modal, on the tab and the track given; true when OK changed the document.
  static bool editer(QWidget* parent, const Textes& t, const CatalogueGuitares& catalogue,
                     const tGuitare& courant, CVantoroTablature& doc, Onglet onglet, int piste);

  bool modifie() const { return m_modifie; }
  void accept() override;

  OngletPistes* ongletPistes() const { return m_pistes; }

 private:
  struct ChampTexte {
    QWidget* champ;
    QLabel* libelle;
    std::string* valeur;  // the document's field
    QString initial;
  };
  QString texteDe(const ChampTexte& c) const;
  bool verifie();

  Textes m_t;
  CVantoroTablature& m_doc;
  QTabWidget* m_onglets;
  std::vector<ChampTexte> m_textes;
  QSpinBox* m_tempo;
  QCheckBox* m_tripleFeel;
  OngletPistes* m_pistes;
  QLabel* m_erreur;
  bool m_modifie = false;
};

}  // namespace vt
