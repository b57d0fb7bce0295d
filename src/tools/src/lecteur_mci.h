// The media player's commands, as the text commands of the platform's media
// interface were: open, play, stop, close, the last result and its text. They
// stand here on QMediaPlayer with a QAudioOutput and, for video, the widget
// the window lends. The backend answers open and play later, by signal: an
// error then becomes the last result, and `erreur` is raised once for each
// opening.
#pragma once

#include <QMediaPlayer>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <memory>

class QAudioOutput;
class QVideoWidget;

namespace vt {

class LecteurMci : public QObject {
  Q_OBJECT

 public:
  explicit LecteurMci(QObject* parent = nullptr);
  ~LecteurMci() override;

  void setSortieVideo(QVideoWidget* video);

  // What the next command acts on: a file, or a track of an audio disc.
  void setCommande(const QUrl& media) { m_commande = media; }
  const QUrl& commande() const { return m_commande; }

  int MCIOpen();
  int MCIPlay();
  int MCIStop();
  int MCIClose();
  // 0, or the backend's error since the last opening.
  int dernierResultat() const { return m_dernier; }
  QString MCIGetError() const { return m_texteErreur; }

  // Played at this share of its speed, 0.5 to 1; the backend keeps the pitch
  // where it can.
  void setVitesse(double v);
  double vitesse() const { return m_vitesse; }

  // The A-B loop: from B the media goes back to A. -1 leaves a mark unset;
  // B is only kept after A.
  void setBoucleA(qint64 ms);
  void setBoucleB(qint64 ms);
  void effaceBoucle();
  qint64 boucleA() const { return m_a; }
  qint64 boucleB() const { return m_b; }
  bool boucle() const { return m_a >= 0 && m_b > m_a; }
  // Goes back to A when B is passed; called as the position moves, and every
  // few milliseconds while a loop plays (the backend tells the position only
  // now and then).
  void suitBoucle(qint64 position);

  QMediaPlayer& player() { return *m_player; }
  // Whether the system has an audio output at all.
  static bool sortieAudioDisponible();

 signals:
  // An error of the backend since the last opening, with its text.
  void erreur(const QString& texte);
  // The media played to its end.
  void fin();

 private:
  void suisLaBoucle();

  std::unique_ptr<QMediaPlayer> m_player;
  std::unique_ptr<QAudioOutput> m_sortie;
  QUrl m_commande;
  int m_dernier = 0;
  QString m_texteErreur;
  bool m_erreurDite = false;
  double m_vitesse = 1;
  qint64 m_a = -1;
  qint64 m_b = -1;
  QTimer m_suivi;
};

}  // namespace vt
