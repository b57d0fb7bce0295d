// FHarmony, the harmoniser: the user clicks notes on the fretboard strip and
// the window lists what "scales.dat" finds in those pitch classes: the
// chords, scales and modes they make exactly (identification), or the chords
// to build on each of them (harmonisation). A double-click on a line opens
// that scale in the scale dictionary, or that chord in the chord dictionary.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <array>
#include <vector>

#include "music/gammes.h"
#include "music/harmony.h"
#include "shell/fenetres.h"

class QLabel;
class QListWidget;
class QListWidgetItem;

namespace vt {

class VT;
class VTPictureButton;

class FHarmony : public QWidget, public FenetreVT {
  Q_OBJECT

 public:
  explicit FHarmony(VT& vt);

  // ---- What the main window calls ----
  void load_lang() override;
  void changeLanguage() override;
  void load_skin() override;
  void drawMancheContenu() override { drawHarmony(); }
  void receiveNote(int note) override;

  // ---- The window's own routines ----
  // Every place of every drawn pitch class on the strip, in yellow.
  void drawHarmony();
  // Reads "scales.dat" again and fills the list.
  void computeHarmony();
  // 0 identification, 1 harmonisation; the drawn notes stay.
  void setOptIdType(int mode);
  int optIdType() const { return m_optIdType; }
  // Takes every drawn note away.
  void effaceNotes();
  // What a double-click on line `ligne` does.
  void lstGammes_DblClick(int ligne);

  // ---- State, for the tests ----
  const TonsDessinés& tonsDessinés() const { return m_tons; }
  QListWidget* lstGammes() const { return m_lstGammes; }
  QLabel* txtHowto() const { return m_txtHowto; }
  VTPictureButton* optIdTypeBouton() const { return m_btnIdType; }
  VTPictureButton* optIdTypeLégende() const { return m_légende; }
  VTPictureButton* btnEffacer() const { return m_btnEffacer; }
  VTPictureButton* btnExit() const { return m_btnExit; }
  // The record and the root (C-based) of line `ligne`.
  tHarmonie correspondance(int ligne) const;

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;

 private:
  void libellésMode();

  VT& m_vt;
  TonsDessinés m_tons{};
  int m_optIdType = kIdentification;
  FichierGammes m_fichier;  // as the list was made from it
  std::vector<tHarmonie> m_liste;

  QPixmap m_fond;
  std::array<QPixmap, 2> m_bascule;  // the switch in each position
  VTPictureButton* m_btnIdType;
  VTPictureButton* m_légende;
  QLabel* m_txtHowto;
  QLabel* m_labRésultats;
  QListWidget* m_lstGammes;
  VTPictureButton* m_btnEffacer;
  VTPictureButton* m_btnExit;
};

}  // namespace vt
