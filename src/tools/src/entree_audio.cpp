#include "entree_audio.h"

#include <QAudioSource>
#include <QMediaDevices>
#include <cstring>

namespace vt {

EntreeAudio::EntreeAudio(Receveur receveur, Choix choix, QObject* parent)
    : QObject(parent), m_receveur(std::move(receveur)), m_choix(std::move(choix)) {
  if (!m_choix) m_choix = [] { return QMediaDevices::defaultAudioInput(); };
}

EntreeAudio::~EntreeAudio() {
  ferme();
}

bool EntreeAudio::ouvre() {
  ferme();
  const QAudioDevice appareil = m_choix();
  if (appareil.isNull()) {
    m_état = Etat::SansPeripherique;
    return false;
  }
  QAudioFormat voulu;
  bool trouvé = false;
  for (int fréquence : {48000, 44100}) {
    for (QAudioFormat::SampleFormat f : {QAudioFormat::Float, QAudioFormat::Int16}) {
      voulu.setSampleRate(fréquence);
      voulu.setChannelCount(1);
      voulu.setSampleFormat(f);
      if (appareil.isFormatSupported(voulu)) {
        trouvé = true;
        break;
      }
    }
    if (trouvé) break;
  }
  m_format = trouvé ? voulu : appareil.preferredFormat();
  m_source = std::make_unique<QAudioSource>(appareil, m_format);
  m_flux = m_source->start();
  if (!m_flux || m_source->error() != QAudio::NoError) {
    m_erreur = appareil.description();
    m_source.reset();
    m_flux = nullptr;
    m_état = Etat::EnErreur;
    return false;
  }
  connect(m_flux, &QIODevice::readyRead, this, &EntreeAudio::lis);
  connect(m_source.get(), &QAudioSource::stateChanged, this, [this](QAudio::State) {
    if (m_source && m_source->error() != QAudio::NoError && m_état == Etat::Ouverte) {
      m_erreur = QStringLiteral("%1 (%2)").arg(m_choix().description()).arg(m_source->error());
      m_état = Etat::EnErreur;
      m_source->stop();
    }
  });
  m_erreur.clear();
  m_état = Etat::Ouverte;
  return true;
}

void EntreeAudio::ferme() {
  if (m_source) {
    m_source->disconnect(this);
    m_source->stop();
  }
  m_source.reset();
  m_flux = nullptr;
  m_reste.clear();
  if (m_état == Etat::Ouverte) m_état = Etat::Fermee;
}

void EntreeAudio::lis() {
  if (!m_flux) return;
  m_reste.append(m_flux->readAll());
  // Whole frames only: a frame cut short by the device's buffer waits for its end.
  const int trame = std::max(m_format.bytesPerFrame(), 1);
  const qsizetype entier = m_reste.size() - m_reste.size() % trame;
  if (entier == 0) return;
  versMono(m_reste.first(entier), m_format, m_mono);
  m_reste.remove(0, entier);
  if (m_receveur && !m_mono.empty()) m_receveur(m_mono, m_format.sampleRate());
}

void EntreeAudio::versMono(const QByteArray& octets, const QAudioFormat& format,
                           std::vector<float>& sortie) {
  sortie.clear();
  const int canaux = std::max(format.channelCount(), 1);
  const int taille = format.bytesPerSample();
  if (taille <= 0) return;
  const qsizetype trames = octets.size() / (taille * canaux);
  sortie.reserve(static_cast<std::size_t>(trames));
  const char* p = octets.constData();
  for (qsizetype t = 0; t < trames; ++t) {
    float somme = 0;
    for (int c = 0; c < canaux; ++c, p += taille) {
      switch (format.sampleFormat()) {
        case QAudioFormat::UInt8:
          somme += (static_cast<unsigned char>(*p) - 128) / 128.0f;
          break;
        case QAudioFormat::Int16: {
          std::int16_t v;
          std::memcpy(&v, p, 2);
          somme += v / 32768.0f;
          break;
        }
        case QAudioFormat::Int32: {
          std::int32_t v;
          std::memcpy(&v, p, 4);
          somme += static_cast<float>(v / 2147483648.0);
          break;
        }
        case QAudioFormat::Float: {
          float v;
          std::memcpy(&v, p, 4);
          somme += v;
          break;
        }
        default:
          break;
      }
    }
    sortie.push_back(somme / static_cast<float>(canaux));
  }
}

}  // namespace vt
