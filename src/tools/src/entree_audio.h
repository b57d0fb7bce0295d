// The default audio input, read through Qt Multimedia as mono samples of
// -1..1: the tuner's ear. It asks the device for one channel of floats at
// 48 or 44.1 kHz and takes whatever the device prefers when it cannot; the
// channels are averaged here.
#pragma once

#include <QAudioDevice>
#include <QAudioFormat>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <span>

class QAudioSource;
class QIODevice;

namespace vt {

class EntreeAudio : public QObject {
  Q_OBJECT

 public:
  enum class Etat { Fermee, Ouverte, SansPeripherique, EnErreur };
  using Receveur = std::function<void(std::span<const float> échantillons, int fréquence)>;
  using Choix = std::function<QAudioDevice()>;

  // `choix` names the device (the system's default input unless a test says otherwise).
  explicit EntreeAudio(Receveur receveur, Choix choix = {}, QObject* parent = nullptr);
  ~EntreeAudio() override;

  // Opens the input; false when there is none or it fails (etat() says which).
  bool ouvre();
  void ferme();
  Etat etat() const { return m_état; }
  // The device's words when it failed.
  const QString& erreur() const { return m_erreur; }
  const QAudioFormat& format() const { return m_format; }

  // Bytes of `format` to samples: the channels averaged, full scale -1..1;
  // whole frames only.
  static void versMono(const QByteArray& octets, const QAudioFormat& format,
                       std::vector<float>& sortie);

 private:
  void lis();

  Receveur m_receveur;
  Choix m_choix;
  std::unique_ptr<QAudioSource> m_source;
  QIODevice* m_flux = nullptr;
  QAudioFormat m_format;
  Etat m_état = Etat::Fermee;
  QString m_erreur;
  std::vector<float> m_mono;
  QByteArray m_reste;  // the start of a frame the device has not finished
};

}  // namespace vt
