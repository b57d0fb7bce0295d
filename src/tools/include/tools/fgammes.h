// FGammes, the scale dictionary: for a scale type of "scales.dat" and a key,
// the scale on the whole fretboard strip (roots blue, other notes yellow,
// each labelled as setGAMConst says), its notes in a line of text and on the
// piano row, played up one octave, copied or printed over a range of frets.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

#include "music/gamme.h"
#include "music/gammes.h"
#include "shell/fenetres.h"

class QDialog;
class QLabel;
class QListWidget;
class QPrinter;

namespace vt {

class VT;
class VTPictureButton;

class FGammes : public QWidget, public FenetreVT {
  Q_OBJECT

 public:
  explicit FGammes(VT& vt);
  ~FGammes() override;

  // ---- What the main window calls ----
  void load_lang() override;
  void changeLanguage() override;
  void load_skin() override;
  void drawMancheContenu() override;

  // ---- The window's own routines ----
  // The whole refresh: caption, the scale read again, the strip and the keys.
  void updateGamme();
  // The marks on the strip (and the text and keys of the window).
  void drawGam();
  void btnPlay_Click();
  void timerGamme_Timer();
  void btnCopier_Click();
  void btnImprimer_Click();
  void btnOptions_Click();
  // Prints the scale with a board from fret `min` to `max`, after the print dialog.
  void printGamme(int min, int max);
  // The picture of the scale over frets `min` to `max`: the title, the board
  // and the construction, black on white; what the clipboard receives.
  QImage imageGamme(int min, int max) const;
  // Draws that picture on any painter whose unit is the screen pixel; the
  // size it takes is `tailleImageGamme`.
  void dessineImageGamme(QPainter& p, int min, int max) const;
  QSize tailleImageGamme(int min, int max) const;

  // Shows record `gamme` (1-based) in key `tonalité` (1 A ... 12 G#), as the
  // harmoniser asks; false when the list has no such entry.
  bool montreGamme(int gamme, int tonalité);

  // How the print dialog is shown; true when the user chose to print. Tests
  // replace it.
  void setDialogueImpression(std::function<bool(QPrinter&)> d) {
    m_dialogueImpression = std::move(d);
  }
  // How the fret range dialog is shown (modal); tests replace it.
  void setExecDialogue(std::function<void(QDialog&)> e) { m_execDialogue = std::move(e); }

  // ---- State, for the tests ----
  QListWidget* gam() const { return m_gam; }
  QListWidget* ton() const { return m_ton; }
  QLabel* txtConst() const { return m_txtConst; }
  VTPictureButton* btnPlay() const { return m_btnPlay; }
  VTPictureButton* btnCopier() const { return m_btnCopier; }
  VTPictureButton* btnImprimer() const { return m_btnImprimer; }
  VTPictureButton* btnOptions() const { return m_btnOptions; }
  VTPictureButton* btnExit() const { return m_btnExit; }
  const tGamme& gamme() const { return m_gamme; }
  const QString& titre() const { return m_titre; }
  int tonalité() const { return m_tonalité; }
  const tNotesGamme& notes() const { return m_notes; }
  const std::vector<int>& lecture() const { return m_lecture; }
  int lecturePos() const { return m_lecturePos; }
  bool booEnLecture() const { return m_booEnLecture; }
  const QTimer& timerGamme() const { return m_timerGamme; }
  const FichierGammes& fichier() const { return m_fichier; }
  // The range of frets last chosen for a copy or a print.
  int caseMin() const { return m_caseMin; }
  int caseMax() const { return m_caseMax; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void closeEvent(QCloseEvent* e) override;

 private:
  bool aUneSélection() const;
  void chargeGamme();
  void arrêteLecture();
  void dessineClavier(QPainter& p) const;
  void ouvreCopier(bool imprimer);
  void suitActivation();

  VT& m_vt;
  FichierGammes m_fichier;
  tGamme m_gamme;
  int m_tonalité = 0;
  QString m_titre;       // "<scale> of <key>", or the key alone
  int m_modeChargé = 0;  // setGAMMode the scale was read with
  tNotesGamme m_notes;
  std::vector<int> m_lecture;
  int m_lecturePos = 0;
  int m_derniereNote = -1;
  bool m_booEnLecture = false;
  QTimer m_timerGamme;
  int m_caseMin = 0;
  int m_caseMax = 12;
  std::function<bool(QPrinter&)> m_dialogueImpression;
  std::function<void(QDialog&)> m_execDialogue;

  QPixmap m_fond;
  QPixmap m_toucheBlanche;
  QPixmap m_toucheNoire;
  QListWidget* m_gam;
  QListWidget* m_ton;
  QLabel* m_txtConst;
  VTPictureButton* m_btnPlay;
  VTPictureButton* m_btnCopier;
  VTPictureButton* m_btnImprimer;
  VTPictureButton* m_btnOptions;
  VTPictureButton* m_btnExit;
};

}  // namespace vt
