// The ALSA sequencer's ports, through RtMidi: the outputs listed after the
// built-in synthesizer, and the inputs. On a machine without a sequencer
// (no /dev/snd) the lists are empty and nothing is printed.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "sound/midi_in.h"
#include "sound/midi_out.h"

class RtMidiOut;
class RtMidiIn;

namespace vt {

// True when the ALSA sequencer can be opened.
bool séquenceurAlsaPrésent();
// Names of the ports, in RtMidi's order (the index opens the port).
std::vector<std::string> portsSortieAlsa();
std::vector<std::string> portsEntréeAlsa();

class PortAlsaSortie : public MidiOut {
 public:
  // Opens output port `index`; see ouvert() and erreur().
  explicit PortAlsaSortie(unsigned index);
  // Releases every note this port still holds on the far side.
  ~PortAlsaSortie() override;
  PortAlsaSortie(const PortAlsaSortie&) = delete;
  PortAlsaSortie& operator=(const PortAlsaSortie&) = delete;

  bool ouvert() const { return m_ouvert; }
  const std::string& erreur() const { return m_erreur; }

  // A port that has vanished takes the message and drops it.
  void shortMsg(std::uint32_t message) override;
  // A Note Off for every note still held, then sustain off, all notes off and
  // the controllers reset on each channel.
  void reset() override;
  std::string nom() const override { return m_nom; }

 private:
  void envoie(std::uint32_t message);  // under m_verrou
  void relâcheTout();                  // under m_verrou

  mutable std::mutex m_verrou;
  std::unique_ptr<RtMidiOut> m_rt;
  bool m_ouvert = false;
  std::string m_nom;
  std::string m_erreur;
  // Notes sounding on the far side, channel by channel, so that a reset or
  // the closing releases exactly them.
  std::uint64_t m_tenues[16][2] = {};
};

class PortAlsaEntrée : public MidiIn {
 public:
  explicit PortAlsaEntrée(unsigned index);
  ~PortAlsaEntrée() override;
  PortAlsaEntrée(const PortAlsaEntrée&) = delete;
  PortAlsaEntrée& operator=(const PortAlsaEntrée&) = delete;

  bool ouvert() const { return m_ouvert; }
  const std::string& erreur() const { return m_erreur; }

  void démarre(Rappel rappel) override;
  void arrête() override;
  std::string nom() const override { return m_nom; }

 private:
  static void reçoit(double delta, std::vector<unsigned char>* octets, void* moi);

  std::unique_ptr<RtMidiIn> m_rt;
  bool m_ouvert = false;
  bool m_démarré = false;
  std::string m_nom;
  std::string m_erreur;
  Rappel m_rappel;
};

}  // namespace vt
