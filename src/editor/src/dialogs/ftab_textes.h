// FTabTextes: the texts above and below the staff at one tick of a bar of a
// track. An emptied text is removed.
#pragma once

#include <QDialog>

#include "textes_dialogue.h"

class QLabel;
class QPlainTextEdit;

namespace vt {

class CVantoroTablature;

class FTabTextes : public QDialog {
  Q_OBJECT

 public:
  FTabTextes(const Textes& t, CVantoroTablature& doc, int piste, int mesure, int x,
             QWidget* parent = nullptr);

  // Modal; true when OK changed the document.
  static bool editer(QWidget* parent, const Textes& t, CVantoroTablature& doc, int piste,
                     int mesure, int x);

  bool modifie() const { return m_modifie; }
  void accept() override;

 private:
  // Writes one list's text at the tick, or removes it; true when the document changed.
  bool ecrire(QPlainTextEdit* champ, const QString& initial, bool haut);

  Textes m_t;
  CVantoroTablature& m_doc;
  int m_piste;
  int m_mesure;
  int m_x;
  QPlainTextEdit* m_haut;
  QPlainTextEdit* m_bas;
  QLabel* m_libelleHaut;
  QLabel* m_libelleBas;
  QString m_initialHaut;
  QString m_initialBas;
  QLabel* m_erreur;
  bool m_modifie = false;
};

}  // namespace vt
