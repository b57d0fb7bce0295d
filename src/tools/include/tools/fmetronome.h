// FMetronome, the metronome: a three-digit tempo with its up-down buttons, the
// beats to the bar and their lamp, a pendulum that follows the player
// library's metronome clock (36 frames a beat, swinging back on every other
// beat), and the clock's clicks on the MIDI channel and notes of the options.
// Beyond the clock: the tempo tapped by hand (a button and the T key), and an
// accent on the first beat of the bar that can be switched off.
#pragma once

#include <QElapsedTimer>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <array>

#include "music/tempo_metronome.h"
#include "shell/fenetres.h"

class QLabel;

namespace vt {

class VT;
class VTPictureButton;
class VTUpDn;

class FMetronome : public QWidget, public FenetreVT {
  Q_OBJECT

 public:
  static constexpr int kFrames = 36;
  static constexpr int kTempsMax = 16;

  explicit FMetronome(VT& vt, QWidget* parent = nullptr);
  ~FMetronome() override;

  // ---- What the main window asks --------------------------------------------
  void load_lang() override;
  void load_skin() override;
  // The sound switch, the channel and the notes may have changed: a running
  // clock takes them at once.
  void optionsAppliquées() override;

  // ---- The metronome's routines ---------------------------------------------
  // Starts the clock at the digits' tempo (stopping it first when it runs,
  // so that it starts again at the first beat).
  void metronomeStart();
  void metronomeStop();
  // The screen timer: reads the clock's counter and moves the pendulum and
  // the beat lamp.
  void timerGFX_Timer();
  // The beat lamp: beat `n` (1 to 16) lit; 0 shows the beats to the bar.
  void drawBeat(int n);

  // The tempo the digits make; setting one outside 1..999 is refused (false).
  int tempo() const;
  bool setTempo(int tempo);
  // Beats to the bar, 1 to 16.
  int Temps() const { return m_temps; }
  void setTemps(int temps);
  bool accent() const { return m_accent; }
  void setAccent(bool accent);
  // The clicks are heard (the option setMétro).
  bool audible() const;
  void setAudible(bool audible);
  // A tap at `ms` of a steady clock; the tempo follows from the second tap.
  void tape(double ms);
  // A tap now (the button and the T key).
  void tapeMaintenant();

  bool enMarche() const { return m_enMarche; }
  // The beat of the bar now sounding (1 to Temps), 0 when stopped.
  int battement() const { return m_battement; }
  // The pendulum's frame now shown, 0 to 35.
  int frameTicTac() const { return m_frame; }
  QTimer& timerGFX() { return m_timerGFX; }

  VTUpDn* btnHigh() const { return m_chiffres[0]; }
  VTUpDn* btnMed() const { return m_chiffres[1]; }
  VTUpDn* btnLow() const { return m_chiffres[2]; }
  VTPictureButton* btnPlay() const { return m_btnPlay; }
  VTPictureButton* btnStop() const { return m_btnStop; }
  VTPictureButton* btnBeat() const { return m_btnBeat; }
  VTPictureButton* btnTap() const { return m_btnTap; }
  VTPictureButton* optAccent() const { return m_optAccent; }
  VTPictureButton* optMetro() const { return m_optMetro; }
  QLabel* labBeat() const { return m_labBeat; }

 protected:
  void paintEvent(QPaintEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void mouseMoveEvent(QMouseEvent* e) override;
  void closeEvent(QCloseEvent* e) override;

 private:
  void chiffreChange(int rang, int valeur);
  void enregistre();
  void changeEnMarche();
  void basculeImages();
  void texteBeat();

  VT& m_vt;
  QTimer m_timerGFX;
  QElapsedTimer m_départ;
  TapTempo m_tap;
  QElapsedTimer m_horlogeTap;
  std::array<int, 3> m_valeurs{1, 2, 0};
  int m_temps = 4;
  bool m_accent = true;
  bool m_enMarche = false;
  int m_battement = 0;
  int m_frame = 0;
  double m_msTemps = 500;
  bool m_retour = false;  // a digit put back after a refused tempo

  QPixmap m_fond, m_ecran;
  std::array<QPixmap, kFrames> m_ticTac;
  std::array<QPixmap, kTempsMax + 1> m_lampes;
  std::array<VTUpDn*, 3> m_chiffres{};
  VTPictureButton* m_btnPlay;
  VTPictureButton* m_btnStop;
  VTPictureButton* m_btnExit;
  VTPictureButton* m_btnOptions;
  VTPictureButton* m_btnBeat;
  VTPictureButton* m_btnTap;
  VTPictureButton* m_optMetro;
  VTPictureButton* m_optAccent;
  QLabel* m_labBeat;
  QLabel* m_labAccent;
  QLabel* m_labTap;
};

}  // namespace vt
