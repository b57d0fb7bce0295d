// The MIDI ports of the session: MVantoro on the settings of the moment (the
// options dialog may change them between two calls), with the received notes
// brought over to the user-interface thread.
#include <QFile>
#include <QMetaObject>
#include <QObject>

#include "son_systeme.h"

#include "shell/settings.h"
#include "shell/son.h"
#include "shell/textes.h"
#include "sound/midi_handles.h"
#include "sound/mvantoro.h"
#include "sound/peripheriques.h"

namespace vt {

namespace {

QStringList liste(const std::vector<std::string>& noms) {
  QStringList l;
  for (const std::string& n : noms)
    l << QString::fromStdString(n);
  return l;
}

// The system's outputs, as MVantoro opens them by default.
OuvertureSortie sortieSysteme(int device, const std::string& soundFont, int programme) {
  OptionsSynthé o;
  o.soundFont = soundFont;
  o.programme = programme;
  return ouvreSortieMidi(device, o);
}

// The built-in synthesizer stands for the system's default (-1) as well.
int appareil(int device) {
  return device < 0 ? 0 : device;
}

class SonSysteme : public SonLive {
 public:
  explicit SonSysteme(const Settings& settings)
      : SonSysteme(
            settings,
            [&settings](int device, const std::string& soundFont) {
              return sortieSysteme(device, soundFont, settings.setMIDIinstru);
            },
            [](int device) { return ouvreEntréeMidi(device); }) {}
  SonSysteme(const Settings& settings, MVantoro::FabriqueSortie sortie,
             MVantoro::FabriqueEntrée entrée)
      : m_settings(settings), m_fabriqueSortie(sortie), m_midi(sortie, std::move(entrée)) {
    brancheEntrée();
  }

  void midiOpenOut() override {
    synchronise();
    m_midi.midiOpenOut();
    m_appareilOuvert = appareil(m_settings.setMIDIdevice);
  }
  void midiOpenIn() override {
    synchronise();
    m_midi.midiOpenIn();
  }
  void midiCloseOut() override {
    m_midi.midiCloseOut();
    m_appareilOuvert = -1;
  }
  void midiCloseIn() override { m_midi.midiCloseIn(); }

  void midiNoteOnGlobal(int note) override {
    synchronise();
    m_midi.midiNoteOnGlobal(note);
  }
  void midiNoteOffGlobal(int note) override {
    synchronise();
    m_midi.midiNoteOffGlobal(note);
  }
  void midiController(int controller, int value, int canal) override {
    m_midi.midiController(controller, value, canal);
  }
  void midiProgram(int canal, int patch) override { m_midi.midiProgram(canal, patch); }
  void midiProgramGlobal(int patch) override {
    synchronise();
    m_midi.midiProgramGlobal(patch);
  }
  void midiNoteOn(int note, int canal, int vélocité) override {
    m_midi.midiNoteOn(note, canal, vélocité);
  }
  void midiNoteOff(int note, int canal) override { m_midi.midiNoteOff(note, canal); }
  void midiWheel(int canal, int octetHaut) override { m_midi.midiWheel(canal, octetHaut); }

  std::int32_t midiOutHandle() const override { return m_midi.midiOutHandle(); }
  std::shared_ptr<MidiOut> sortieEssai(int device) override {
    if (auto ouverte = midiHandleSortie(m_midi.midiOutHandle());
        ouverte && appareil(device) == m_appareilOuvert)
      return ouverte;
    // What a failed opening has to say is said when OK opens it for good.
    return m_fabriqueSortie(device, QFile::encodeName(m_settings.setSoundFont).toStdString())
        .sortie;
  }
  QStringList sortiesMidi() const override { return liste(nomsSortiesMidi(m_settings.setLang)); }
  QStringList entreesMidi() const override { return liste(nomsEntréesMidi()); }
  int dernierResultat() const override { return m_midi.dernierRésultat(); }

  QList<AvisSon> prendMessages() override {
    QList<AvisSon> avis;
    for (const MessageSon& m : m_midi.prendMessages()) {
      QString t = qLoadString(m.id, m_settings.setLang);
      if (!m.détail.empty()) t += QLatin1Char('\n') + QString::fromStdString(m.détail);
      avis.append({m.id, t});
    }
    return avis;
  }

  void setReceveurNotes(ReceveurNotes receveur) override { m_receveur = std::move(receveur); }

 private:
  void brancheEntrée() {
    // The input's thread only queues; the window takes the notes when this
    // call comes round on its own thread.
    m_midi.setNotificateur([this] {
      QMetaObject::invokeMethod(
          &m_contexte, [this] { distribue(); }, Qt::QueuedConnection);
    });
  }

  void synchronise() {
    RéglagesMidi r;
    r.setMIDIdevice = m_settings.setMIDIdevice;
    r.setMIDIInDevice = m_settings.setMIDIInDevice;
    r.setMIDIchannel = m_settings.setMIDIchannel;
    r.setMIDIinstru = m_settings.setMIDIinstru;
    r.setMIDIvolume = m_settings.setMIDIvolume;
    r.setMIDIINBasicChannel = m_settings.setMIDIINBasicChannel;
    r.setSoundFont = QFile::encodeName(m_settings.setSoundFont).toStdString();
    m_midi.setRéglages(r);
  }

  void distribue() {
    for (const NoteReçue& n : m_midi.prendNotesReçues()) {
      if (m_receveur) m_receveur(n.corde, n.note, n.enfoncée);
    }
  }

  const Settings& m_settings;
  MVantoro::FabriqueSortie m_fabriqueSortie;
  int m_appareilOuvert = -1;
  ReceveurNotes m_receveur;
  // Before m_midi: the input is closed (and its thread stopped) before the
  // object its calls are queued for goes.
  QObject m_contexte;
  MVantoro m_midi;
};

}  // namespace

std::unique_ptr<SonLive> sonSysteme(const Settings& settings) {
  return std::make_unique<SonSysteme>(settings);
}

std::unique_ptr<SonLive> sonSysteme(const Settings& settings, MVantoro::FabriqueSortie sortie,
                                    MVantoro::FabriqueEntrée entrée) {
  return std::make_unique<SonSysteme>(settings, std::move(sortie), std::move(entrée));
}

}  // namespace vt
