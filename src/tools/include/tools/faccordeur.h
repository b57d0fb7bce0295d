// FAccordeur, the tuner: it sounds the open strings of the chosen tuning on
// the wheel, struck again every two seconds until stopped, so that the user
// tunes by ear; its "Listen" page hears the guitar through the default audio
// input and shows the nearest string and the cents off it on a needle.
//
// Its parts: the wheel (roue_accordeur), the Listen page (ecoute_accordeur)
// and the audio input (entree_audio).
#pragma once

#include <QTimer>
#include <QWidget>
#include <vector>

#include "shell/fenetres.h"

class QComboBox;
class QLabel;

namespace vt {

class VT;
class VTPictureButton;
class RoueAccordeur;
class EcouteAccordeur;

class FAccordeur : public QWidget, public FenetreVT {
  Q_OBJECT

 public:
  static constexpr int kIntervalleFrappe = 2000;  // ms between two strikes of the string

  explicit FAccordeur(VT& vt, QWidget* parent = nullptr);
  ~FAccordeur() override;

  // ---- What the main window asks --------------------------------------------
  void load_lang() override;
  void load_skin() override;
  void drawMancheContenu() override { drawAccordeur(); }

  // ---- The tuner's routines -------------------------------------------------
  // Strikes the chosen string: the note sounding is released, the wheel shows
  // the string, and the timer strikes it again until btnStop.
  void playAccordage();
  // One strike: note off, then note on, of the chosen string's open note.
  void Timer1_Timer();
  void btnStop_Click();
  void drawRoue();
  // The fretboard: a yellow dot at fret 0 of the string chosen (or heard).
  void drawAccordeur();
  // The tuning of the list becomes the current instrument.
  void cmbAccordage_Click(int index);
  // Chooses string `corde` (held to the instrument) and strikes it.
  void choisitCorde(int corde);
  // The list follows the current instrument (the editor changes it too); a
  // tuning that is not in the catalogue shows as a custom one.
  void synchroniseAccordage();

  int corde() const { return m_corde; }
  // The MIDI note sounding now; -1 when none.
  int noteSonnante() const { return m_note; }

  // ---- The Listen page --------------------------------------------------------
  void montreEcoute(bool écoute);
  bool ecoutePage() const { return m_pageEcoute; }
  EcouteAccordeur* ecoute() const { return m_écoute; }

  // Controls, for the tests.
  QComboBox* cmbAccordage() const { return m_cmb; }
  RoueAccordeur* btnRoue() const { return m_roue; }
  QLabel* txt() const { return m_txt; }
  QTimer& Timer1() { return m_timer1; }
  VTPictureButton* btnStop() const { return m_btnStop; }
  VTPictureButton* btnOptions() const { return m_btnOptions; }
  VTPictureButton* btnExit() const { return m_btnExit; }
  VTPictureButton* optEcoute() const { return m_optEcoute; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void closeEvent(QCloseEvent* e) override;

 private:
  void relâche();
  void texteRepos();
  void texteCorde();
  void texteEcoute();
  QString deuxPoints() const;
  void basculeImages();
  std::vector<int> cordesGuitare() const;

  VT& m_vt;
  QTimer m_timer1;
  int m_corde = 1;
  int m_note = -1;
  bool m_pageEcoute = false;
  int m_cordeVue = -1;  // the string the fretboard shows
  bool m_synchronise = false;

  QPixmap m_fond;
  QComboBox* m_cmb;
  RoueAccordeur* m_roue;
  EcouteAccordeur* m_écoute;
  QLabel* m_txt;
  VTPictureButton* m_btnStop;
  VTPictureButton* m_btnOptions;
  VTPictureButton* m_btnExit;
  VTPictureButton* m_optEcoute;
  QLabel* m_labEcoute;
};

}  // namespace vt
