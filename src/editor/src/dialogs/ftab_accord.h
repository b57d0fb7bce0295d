// FTabAccord: the chord diagram at one tick of a bar of a track. The diagram
// is fingered by clicks; the diagrams already in the track stand in a list of
// thumbnails to reuse, and the list can take new ones for this session.
#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "diagramme_accord.h"
#include "textes_dialogue.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace vt {

class CVantoroTablature;
class PicAccord;

class FTabAccord : public QDialog {
  Q_OBJECT

 public:
  // Fills a diagram with the fingering the chord dictionary shows; false when
  // it shows none.
  using SourceDictionnaire = std::function<bool(Diagramme&)>;

  FTabAccord(const Textes& t, CVantoroTablature& doc, int piste, int mesure, int x,
             QWidget* parent = nullptr, SourceDictionnaire dictionnaire = {});

  // Modal; true when the document changed (OK, or the chord deleted).
  static bool getAccord(QWidget* parent, const Textes& t, CVantoroTablature& doc, int piste,
                        int mesure, int x, SourceDictionnaire dictionnaire = {});

  bool modifie() const { return m_modifie; }
  void accept() override;

  // The working diagram and the list, for the window's tests and the editor.
  const Diagramme& diagramme() const { return m_courant; }
  const std::vector<Diagramme>& liste() const { return m_liste; }
  PicAccord* picAccord() const { return m_pic; }
  // btnDictionnaire: the working diagram takes the dictionary's fingering.
  void duDictionnaire();

 private:
  void clic(int corde, int rang);
  // btnAdd: the diagram joins the list unless it is there already, in which
  // case that entry is selected when `montrer`.
  void ajoute(const Diagramme& d, bool montrer);
  void retire();
  void efface();
  void charge(int index);
  void redessine();
  // The working diagram becomes `d`, keeping what fits the track's strings.
  void prend(const Diagramme& d);

  Textes m_t;
  CVantoroTablature& m_doc;
  int m_piste;
  int m_mesure;
  int m_x;
  Diagramme m_courant;
  std::vector<Diagramme> m_liste;
  PicAccord* m_pic;
  QSpinBox* m_premiere;
  QLineEdit* m_nom;
  QLabel* m_libelleNom;
  QListWidget* m_lst;
  QPushButton* m_retirer;
  QPushButton* m_effacer;
  QLabel* m_erreur;
  SourceDictionnaire m_dictionnaire;
  bool m_modifie = false;
};

}  // namespace vt
