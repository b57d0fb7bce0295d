#include "lecteur_mci.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QMediaDevices>
#include <QVideoWidget>
#include <algorithm>

namespace vt {

LecteurMci::LecteurMci(QObject* parent)
    : QObject(parent),
      m_player(std::make_unique<QMediaPlayer>()),
      m_sortie(std::make_unique<QAudioOutput>()) {
  m_player->setAudioOutput(m_sortie.get());
  connect(m_player.get(), &QMediaPlayer::errorOccurred, this,
          [this](QMediaPlayer::Error e, const QString& texte) {
            if (e == QMediaPlayer::NoError) return;
            m_dernier = static_cast<int>(e);
            m_texteErreur = texte.isEmpty() ? m_player->errorString() : texte;
            if (m_erreurDite) return;
            m_erreurDite = true;
            emit erreur(m_texteErreur);
          });
  connect(m_player.get(), &QMediaPlayer::mediaStatusChanged, this,
          [this](QMediaPlayer::MediaStatus s) {
            if (s == QMediaPlayer::EndOfMedia) emit fin();
          });
  connect(m_player.get(), &QMediaPlayer::positionChanged, this, &LecteurMci::suitBoucle);
  m_suivi.setInterval(15);
  connect(&m_suivi, &QTimer::timeout, this, [this] { suitBoucle(m_player->position()); });
  connect(m_player.get(), &QMediaPlayer::playbackStateChanged, this,
          [this](QMediaPlayer::PlaybackState) { suisLaBoucle(); });
}

void LecteurMci::suisLaBoucle() {
  if (boucle() && m_player->playbackState() == QMediaPlayer::PlayingState) {
    m_suivi.start();
  } else {
    m_suivi.stop();
  }
}

LecteurMci::~LecteurMci() {
  m_player->stop();
}

void LecteurMci::setSortieVideo(QVideoWidget* video) {
  m_player->setVideoOutput(video);
}

bool LecteurMci::sortieAudioDisponible() {
  return !QMediaDevices::audioOutputs().isEmpty();
}

int LecteurMci::MCIOpen() {
  m_dernier = 0;
  m_texteErreur.clear();
  m_erreurDite = false;
  effaceBoucle();
  m_player->setSource(m_commande);
  m_player->setPlaybackRate(m_vitesse);
  return m_dernier;
}

int LecteurMci::MCIPlay() {
  m_player->play();
  return m_dernier;
}

int LecteurMci::MCIStop() {
  m_player->stop();
  return m_dernier;
}

int LecteurMci::MCIClose() {
  m_player->stop();
  m_player->setSource(QUrl());
  effaceBoucle();
  return 0;
}

void LecteurMci::setVitesse(double v) {
  m_vitesse = std::clamp(v, 0.5, 1.0);
  m_player->setPlaybackRate(m_vitesse);
}

void LecteurMci::setBoucleA(qint64 ms) {
  m_a = ms;
  if (m_b >= 0 && m_b <= m_a) m_b = -1;
  suisLaBoucle();
}

void LecteurMci::setBoucleB(qint64 ms) {
  if (m_a < 0 || ms <= m_a) return;
  m_b = ms;
  suisLaBoucle();
}

void LecteurMci::effaceBoucle() {
  m_a = m_b = -1;
  suisLaBoucle();
}

void LecteurMci::suitBoucle(qint64 position) {
  if (boucle() && position >= m_b) m_player->setPosition(m_a);
}

}  // namespace vt
