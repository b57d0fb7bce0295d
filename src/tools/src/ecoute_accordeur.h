// The tuner's "Listen" page: the default audio input through the pitch
// detector, 25 times a second, shown as the nearest open string of the
// chosen tuning, its note and a needle for the cents off it. The reading
// follows the median of the last three voiced frames, so that the needle
// stays calm, and comes to rest after half a second without a note.
#pragma once

#include <QAudioDevice>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <memory>
#include <span>
#include <vector>

#include "entree_audio.h"
#include "music/accordage.h"
#include "music/hauteur.h"

namespace vt {

struct LectureAccordeur {
  bool voisée = false;
  double hz = 0;
  NoteEntendue note;  // the nearest note and the nearest string, with their cents
};

class EcouteAccordeur : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kCôté = 220;
  static constexpr int kIntervalleMs = 40;  // 25 readings a second
  static constexpr qint64 kReposMs = 500;

  explicit EcouteAccordeur(EntreeAudio::Choix choix = {}, QWidget* parent = nullptr);
  ~EcouteAccordeur() override;

  // The open strings of the tuning, string 1 first, and the note names (A first).
  void setAccordage(std::vector<int> cordes, const std::array<QString, 12>& noms);

  // Opens the audio input and starts reading; false when there is no input
  // or it fails (entree() tells which); the page says so.
  bool demarre();
  void arrete();
  bool ecoute() const { return m_minuterie.isActive(); }
  const EntreeAudio& entree() const { return *m_entrée; }
  // Another device than the system's default input (the tests' none).
  void setChoixPeripherique(EntreeAudio::Choix choix);

  // Samples as they come, at any rate; the detector follows the rate.
  void recoit(std::span<const float> échantillons, int fréquence);
  // One reading of the last frame (the timer's tick).
  void analyse();
  const LectureAccordeur& lecture() const { return m_lecture; }
  // The name of a note with its octave ("E2").
  QString nomNote(int midi) const;

 signals:
  void lectureChangee();

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  std::unique_ptr<EntreeAudio> m_entrée;
  EntreeAudio::Etat m_étatVu = EntreeAudio::Etat::Fermee;
  QTimer m_minuterie;
  QElapsedTimer m_horloge;
  qint64 m_dernierSon = -1;
  std::vector<int> m_cordes;
  std::array<QString, 12> m_noms;
  int m_fréquence = 0;
  std::unique_ptr<DétecteurHauteur> m_détecteur;
  std::vector<float> m_tampon;  // the last frame's worth of samples, oldest first
  bool m_nouveau = false;
  std::deque<double> m_dernières;
  LectureAccordeur m_lecture;
};

}  // namespace vt
