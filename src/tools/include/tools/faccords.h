// FAccords, the chord dictionary: a key and a chord type (a standard one, or
// one built from a base and degrees) give every fingering of the chord on the
// current instrument, best first, one at a time, as a diagram and on the
// fretboard strip. A fingering can be heard, copied as a picture, printed and
// sent to the tablature at the editor's cursor.
#pragma once

#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "player/accords.h"
#include "shell/fenetres.h"

class QComboBox;
class QLabel;
class QListWidget;
class QPrinter;
class QSlider;

namespace vt {

class VT;
class VTPictureButton;
class DiagrammeFAccords;
class ConstructionFAccords;

class FAccords : public QWidget, public FenetreVT, public FenetreAccords {
  Q_OBJECT

 public:
  explicit FAccords(VT& vt, QWidget* parent = nullptr);
  ~FAccords() override;

  // ---- What the main window and the other tools call ----
  void load_lang() override;
  void changeLanguage() override;
  void load_skin() override;
  void drawMancheContenu() override;
  // The options dialog's OK: the parameters may have changed, the next
  // drawing searches again.
  void optionsAppliquées() override;
  bool montreAccord(int tonalité, const QString& type) override;

  // ---- The dictionary's routines ----
  // The whole refresh: a new search when the chord changed, then the shown
  // fingering on the window's diagram and, unless `imprimer`, on the strip.
  void drawAccord(bool imprimer);
  void accordGetRenversement();
  void btnPlay_Click();
  void tmrFinAccord_Timer();
  void btnCopier_Click();
  void btnImprimer_Click();
  void btnToTab_Click();
  void btnOptions_Click();
  // The two modes of the type list: 0 standard chords, 1 create a chord.
  void optListe_Click(int mode);

  // ---- State, for the editor and the tests ----
  const std::string& strAccordNom() const { return m_strAccordNom; }
  bool booNouveau() const { return m_booNouveau; }
  bool booTrouve() const { return m_booTrouve; }
  const PositionsAccord& positions() const { return m_positions; }
  const std::vector<int>& construction() const { return m_construction; }
  const QStringList& renversements() const { return m_renversements; }
  int caseMin() const { return m_caseMin; }
  int mode() const { return m_mode; }
  // The fingering shown: its name as a guitarist writes it ("C7/E") and its
  // frets by string number, 1 the highest, 255 for a string not played.
  // False when nothing is shown.
  bool doigtéAffiché(QString& nom, std::vector<int>& cordes) const;
  // The picture Copy puts on the clipboard.
  QImage imageAccord() const;
  // Paints the chord on a printer's page: the diagram and the construction.
  void imprime(QPrinter& printer) const;

  QListWidget* lstTonalite() const { return m_lstTonalite; }
  // lstAccord(0), the types or the bases; lstAccord(1..7), the degree lists.
  QListWidget* lstAccord0() const { return m_lstAccord0; }
  QComboBox* lstAccord(int i) const { return m_lstDegrés.at(static_cast<std::size_t>(i - 1)); }
  QSlider* sldPositions() const { return m_sldPositions; }
  VTPictureButton* bouton(const QString& nom) const;
  const QTimer& tmrFinAccord() const { return m_tmrFinAccord; }

  // How the print dialog is asked: true to print. Tests put their own.
  std::function<bool(QPrinter&)> demandeImpression;

 protected:
  void paintEvent(QPaintEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void closeEvent(QCloseEvent* e) override;

 private:
  void créeControles();
  void remplitListes();
  void nouveau();
  void construireNom();
  void étapeRecherche();
  void étapeConstruction();
  // The name a guitarist reads: the key and the list's text ("C7", "Cmin7 5b").
  QString nomAffiché() const;
  QString nomNote(int hauteur) const;
  int hauteurCorde(int slot) const;  // MIDI note of the open string of slot
  int positionCourante() const;
  // drawAccord's work; the fretboard's dots only with `manche`.
  void actualise(bool manche);
  void montreDiagramme();
  void dessineManche();
  void toutesNotesÉteintes();
  std::array<int, 8> accordageCourant() const;

  VT& m_vt;
  // The dictionary's state, under its own names.
  std::string m_strAccordNom;
  bool m_booNouveau = true;
  bool m_booTrouve = false;
  PositionsAccord m_positions;
  std::vector<int> m_construction;
  QStringList m_renversements;
  int m_caseMin = 0;
  int m_mode = 0;
  int m_fondamentale = -1;
  QStringList m_degrés;
  QStringList m_notesConstruction;
  // The instrument the fingerings were found for, strings 1..7.
  std::array<int, 8> m_accordage{};
  int m_nbrCordes = 0;
  // The selections of each mode, kept while the other mode is shown.
  int m_typeStandard = 7;  // "maj"
  int m_baseCréée = 0;     // "M"

  QPixmap m_fond;
  QListWidget* m_lstTonalite = nullptr;
  QListWidget* m_lstAccord0 = nullptr;
  QLabel* m_libelléBase = nullptr;
  QLabel* m_libelléDegrés = nullptr;
  std::array<QComboBox*, 7> m_lstDegrés{};
  QSlider* m_sldPositions = nullptr;
  DiagrammeFAccords* m_picImage = nullptr;
  ConstructionFAccords* m_txtConst = nullptr;
  VTPictureButton* m_optListe = nullptr;
  QLabel* m_libelléMode = nullptr;
  std::vector<VTPictureButton*> m_boutons;
  QTimer m_tmrFinAccord;
  bool m_remplissage = false;  // the lists are being filled: their signals mean nothing
};

}  // namespace vt
