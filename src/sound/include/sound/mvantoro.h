// MVantoro: the one MIDI output and the one MIDI input of the program, and the
// small routines with which every tool sounds a note at once, without the
// player. Channels are 1-based here (1 to 16); the messages carry channel - 1.
// Notes, velocities, programs and controller values are held to 0..127.
//
// The output side is used from the user-interface thread. The input arrives
// on the input's own thread, which only queues the note and calls the
// notifier; the user-interface thread takes the notes with prendNotesReçues.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "sound/message_son.h"
#include "sound/midi_in.h"
#include "sound/midi_out.h"
#include "sound/notes_recues.h"
#include "sound/peripheriques.h"

namespace vt {

// The settings this module reads, under their own names.
struct RéglagesMidi {
  int setMIDIdevice = 0;
  int setMIDIInDevice = 0;
  int setMIDIchannel = 1;
  int setMIDIinstru = 27;
  int setMIDIvolume = 127;
  int setMIDIINBasicChannel = 1;
  std::string setSoundFont;  // empty: the system's SoundFont
};

class MVantoro {
 public:
  using FabriqueSortie = std::function<OuvertureSortie(int device, const std::string& soundFont)>;
  using FabriqueEntrée = std::function<OuvertureEntrée(int device)>;

  // The system's devices.
  MVantoro();
  // Other devices (the tests' logging output and inputs).
  MVantoro(FabriqueSortie sortie, FabriqueEntrée entrée);
  ~MVantoro();
  MVantoro(const MVantoro&) = delete;
  MVantoro& operator=(const MVantoro&) = delete;

  void setRéglages(const RéglagesMidi& r);
  const RéglagesMidi& réglages() const { return m_réglages; }

  // Opens setMIDIdevice, resets it and sends the program setMIDIinstru on
  // setMIDIchannel; the output gets a handle for the player and the one open
  // before is closed. (The window sets the "midi" panel's tooltip to the
  // program's name, string 4000 + setMIDIinstru.)
  void midiOpenOut();
  // Opens setMIDIInDevice; its notes flow at once.
  void midiOpenIn();
  // The handle is forgotten; a piece that plays keeps its output to the end.
  void midiCloseOut();
  void midiCloseIn();

  void midiProgram(int canal, int patch);                     // Cn pp
  void midiProgramGlobal(int patch);                          // on setMIDIchannel
  void midiNoteOn(int note, int canal, int velocity);         // 9n kk vv
  void midiNoteOff(int note, int canal);                      // 9n kk 00
  void midiController(int controller, int value, int canal);  // Bn cc vv
  void midiNoteOnGlobal(int note);                            // setMIDIvolume on setMIDIchannel
  void midiNoteOffGlobal(int note);                           // the same with velocity 0
  void midiWheel(int canal, int octetHaut);                   // En 00 hh

  // The MIDI out handle the player's records carry; 0 when closed.
  std::int32_t midiOutHandle() const { return m_handle; }
  bool sortieOuverte() const { return m_sortie != nullptr; }
  bool entréeOuverte() const { return m_entrée != nullptr; }
  // 0 when the last opening went well, else the string id of its message.
  int dernierRésultat() const { return m_dernierRésultat; }
  // What the user should know since the last call, each kind of message once
  // for the life of this object (reopening a silent synthesizer says nothing
  // new).
  std::vector<MessageSon> prendMessages();

  // Called on the input's thread when a note arrives in an empty queue: the
  // taker then takes every note queued until it comes round. Set it before
  // midiOpenIn.
  void setNotificateur(std::function<void()> n);
  std::vector<NoteReçue> prendNotesReçues() { return m_notes.prendTout(); }
  // Notes a flooding device sent while the queue was full, since the last call.
  std::uint64_t prendNotesPerdues() { return m_notes.prendPerdues(); }

 private:
  void envoie(std::uint8_t statut, int canal, int d1, int d2);
  void retient(const std::vector<MessageSon>& messages);
  void reçoit(std::uint32_t message);

  FabriqueSortie m_fabriqueSortie;
  FabriqueEntrée m_fabriqueEntrée;
  RéglagesMidi m_réglages;
  std::atomic<int> m_canalDeBase{1};

  std::shared_ptr<MidiOut> m_sortie;
  std::int32_t m_handle = 0;
  std::unique_ptr<MidiIn> m_entrée;
  int m_dernierRésultat = 0;
  std::vector<MessageSon> m_messages;
  std::set<int> m_déjàDits;

  FileNotesReçues m_notes;
  std::mutex m_verrouNotificateur;
  std::function<void()> m_notificateur;
};

}  // namespace vt
