// The MIDI calls the shell itself makes: the ports at start and at the end,
// the live notes of the fretboard and the tools, the device lists, and the
// notes that come in. Channels are 1-based.
#pragma once

#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>

namespace vt {

class MidiOut;
class Settings;

class SonLive {
 public:
  virtual ~SonLive() = default;
  virtual void midiOpenOut() = 0;
  virtual void midiOpenIn() = 0;
  virtual void midiCloseOut() = 0;
  virtual void midiCloseIn() = 0;
  // A note on the settings' channel, at the settings' volume; off is velocity 0.
  virtual void midiNoteOnGlobal(int note) = 0;
  virtual void midiNoteOffGlobal(int note) = 0;
  virtual void midiController(int controller, int value, int canal) = 0;
  // The editor's live notes, on a track's own channel (1-based): the track's
  // sound, then its notes. Nothing sounds until an output provides them.
  virtual void midiProgram(int canal, int patch) {
    (void)canal;
    (void)patch;
  }
  virtual void midiNoteOn(int note, int canal, int vélocité) {
    (void)note;
    (void)canal;
    (void)vélocité;
  }
  // A Note On of velocity 0.
  virtual void midiNoteOff(int note, int canal) {
    (void)note;
    (void)canal;
  }
  // The pitch wheel: En 00 hh.
  virtual void midiWheel(int canal, int octetHaut) {
    (void)canal;
    (void)octetHaut;
  }
  // A program on the settings' channel.
  virtual void midiProgramGlobal(int patch) { (void)patch; }

  // The MIDI out handle the player's records carry; 0 while no output is open.
  virtual std::int32_t midiOutHandle() const { return 0; }
  // The devices as the options dialog lists them: output 0 is the built-in
  // synthesizer, then the ALSA ports; inputs from 0.
  virtual QStringList sortiesMidi() const { return {}; }
  virtual QStringList entreesMidi() const { return {}; }
  // An output for the options dialog's test buttons, on a device not chosen
  // yet (numbered as setMIDIdevice): the session's own output when it is that
  // device, else one opened for the test, which closes when the last holder
  // lets it go. Null when nothing can sound.
  virtual std::shared_ptr<MidiOut> sortieEssai(int device) {
    (void)device;
    return nullptr;
  }
  // 0 when the last opening went well, else the string id of what went wrong.
  virtual int dernierResultat() const { return 0; }
  // What the user should know since the last call, in the current language,
  // each kind of message once for the session (no SoundFont, no audio device,
  // a port that cannot be opened).
  virtual QStringList prendMessages() { return {}; }
  // Where the notes of the MIDI input go, on the user-interface thread: the
  // string the channel stands for, the note, pressed or released.
  using ReceveurNotes = std::function<void(int corde, int note, bool enfoncee)>;
  virtual void setReceveurNotes(ReceveurNotes receveur) { (void)receveur; }
};

// The program's MIDI output and input, on the settings of the session.
std::unique_ptr<SonLive> sonSysteme(const Settings& settings);

}  // namespace vt
