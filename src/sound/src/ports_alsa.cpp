#include "sound/ports_alsa.h"

#include <alsa/asoundlib.h>
#include <rtmidi/RtMidi.h>

#include "alsa_discret.h"

namespace vt {

namespace {

constexpr const char* kClient = "Vantoro";

// RtMidi writes its warnings to the terminal unless it is given this; the
// first words are kept for the message the window shows.
void erreurRt(RtMidiError::Type, const std::string& texte, void* destination) {
  auto* erreur = static_cast<std::string*>(destination);
  if (erreur->empty()) *erreur = texte;
}

template <class Rt>
std::vector<std::string> noms() {
  std::vector<std::string> liste;
  if (!séquenceurAlsaPrésent()) return liste;
  try {
    std::string ignorée;  // outlives the client that may write to it
    Rt rt(RtMidi::LINUX_ALSA, kClient);
    rt.setErrorCallback(erreurRt, &ignorée);
    const unsigned n = rt.getPortCount();
    for (unsigned i = 0; i < n; ++i)
      liste.push_back(rt.getPortName(i));
  } catch (const std::exception&) {
    liste.clear();
  }
  return liste;
}

// Opens port `index` of a new RtMidi client; the error text otherwise.
template <class Rt>
std::unique_ptr<Rt> ouvrePort(unsigned index, std::string& nom, std::string& erreur) {
  if (!séquenceurAlsaPrésent()) {
    erreur = "ALSA sequencer unavailable";
    return nullptr;
  }
  try {
    auto rt = std::make_unique<Rt>(RtMidi::LINUX_ALSA, kClient);
    rt->setErrorCallback(erreurRt, &erreur);
    if (index >= rt->getPortCount()) {
      erreur = "no MIDI port " + std::to_string(index);
      return nullptr;
    }
    nom = rt->getPortName(index);
    rt->openPort(index, kClient);
    if (!rt->isPortOpen()) {
      if (erreur.empty()) erreur = nom;
      return nullptr;
    }
    return rt;
  } catch (const std::exception& e) {
    erreur = e.what();
    return nullptr;
  }
}

}  // namespace

bool séquenceurAlsaPrésent() {
  rendAlsaDiscret();
  snd_seq_t* seq = nullptr;
  if (snd_seq_open(&seq, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0) return false;
  snd_seq_close(seq);
  return true;
}

std::vector<std::string> portsSortieAlsa() {
  return noms<RtMidiOut>();
}

std::vector<std::string> portsEntréeAlsa() {
  return noms<RtMidiIn>();
}

// ---- Output ------------------------------------------------------------------

PortAlsaSortie::PortAlsaSortie(unsigned index) {
  m_rt = ouvrePort<RtMidiOut>(index, m_nom, m_erreur);
  m_ouvert = m_rt != nullptr;
  // From here on a failed send is silent: the error text is not read again.
  if (m_ouvert) m_erreur.clear();
}

PortAlsaSortie::~PortAlsaSortie() {
  std::lock_guard lock(m_verrou);
  if (!m_ouvert) return;
  relâcheTout();
  m_rt->closePort();
}

void PortAlsaSortie::envoie(std::uint32_t message) {
  const int n = midiLongueur(message);
  if (n < 2) return;  // only channel messages
  const unsigned char octets[3] = {midiStatus(message),
                                   static_cast<unsigned char>(midiData1(message) & 0x7F),
                                   static_cast<unsigned char>(midiData2(message) & 0x7F)};
  try {
    m_rt->sendMessage(octets, std::size_t(n));
  } catch (const std::exception&) {
    // A port gone away: the message is dropped.
  }
}

void PortAlsaSortie::relâcheTout() {
  for (unsigned canal = 0; canal < 16; ++canal) {
    for (unsigned note = 0; note < 128; ++note) {
      if (m_tenues[canal][note / 64] >> (note % 64) & 1u)
        envoie(midiPack(std::uint8_t(0x80 | canal), std::uint8_t(note), 0));
    }
    m_tenues[canal][0] = m_tenues[canal][1] = 0;
  }
}

void PortAlsaSortie::shortMsg(std::uint32_t message) {
  std::lock_guard lock(m_verrou);
  if (!m_ouvert) return;
  const std::uint8_t statut = midiStatus(message);
  const unsigned canal = statut & 0x0F;
  const unsigned note = midiData1(message) & 0x7F;
  const std::uint64_t bit = std::uint64_t{1} << (note % 64);
  if ((statut & 0xF0) == 0x90 && (midiData2(message) & 0x7F) != 0) {
    m_tenues[canal][note / 64] |= bit;
  } else if ((statut & 0xF0) == 0x80 || (statut & 0xF0) == 0x90) {
    m_tenues[canal][note / 64] &= ~bit;
  }
  envoie(message);
}

void PortAlsaSortie::reset() {
  std::lock_guard lock(m_verrou);
  if (!m_ouvert) return;
  relâcheTout();
  for (std::uint8_t canal = 0; canal < 16; ++canal) {
    const auto cc = std::uint8_t(0xB0 | canal);
    envoie(midiPack(cc, 64, 0));   // sustain off
    envoie(midiPack(cc, 123, 0));  // all notes off
    envoie(midiPack(cc, 121, 0));  // reset all controllers
  }
}

// ---- Input -------------------------------------------------------------------

PortAlsaEntrée::PortAlsaEntrée(unsigned index) {
  m_rt = ouvrePort<RtMidiIn>(index, m_nom, m_erreur);
  m_ouvert = m_rt != nullptr;
  if (m_ouvert) {
    m_erreur.clear();
    m_rt->ignoreTypes(true, true, true);
  }
}

PortAlsaEntrée::~PortAlsaEntrée() {
  arrête();
}

void PortAlsaEntrée::démarre(Rappel rappel) {
  if (!m_ouvert || m_démarré || !rappel) return;
  m_rappel = std::move(rappel);
  m_rt->setCallback(&PortAlsaEntrée::reçoit, this);
  m_démarré = true;
}

void PortAlsaEntrée::arrête() {
  if (!m_ouvert) return;
  // Closing joins RtMidi's input thread: no callback runs after this.
  m_rt->closePort();
  if (m_démarré) m_rt->cancelCallback();
  m_démarré = false;
  m_ouvert = false;
}

void PortAlsaEntrée::reçoit(double, std::vector<unsigned char>* octets, void* moi) {
  if (!octets || octets->empty() || octets->size() > 3) return;
  const std::uint8_t statut = (*octets)[0];
  if (statut < 0x80 || statut >= 0xF0) return;
  const std::uint8_t d1 = octets->size() > 1 ? (*octets)[1] : 0;
  const std::uint8_t d2 = octets->size() > 2 ? (*octets)[2] : 0;
  static_cast<PortAlsaEntrée*>(moi)->m_rappel(midiPack(statut, d1, d2));
}

}  // namespace vt
