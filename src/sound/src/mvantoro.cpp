#include "sound/mvantoro.h"

#include <algorithm>

#include "sound/midi_handles.h"

namespace vt {

namespace {

int sept(int v) {
  return std::clamp(v, 0, 127);
}
// A 1-based channel as the message carries it; a hand-edited setting outside
// 1..16 is held to it.
int canalMessage(int canal) {
  return std::clamp(canal, 1, 16) - 1;
}

}  // namespace

MVantoro::MVantoro()
    : MVantoro(
          [](int device, const std::string& soundFont) {
            OptionsSynthé o;
            o.soundFont = soundFont;
            return ouvreSortieMidi(device, o);
          },
          [](int device) { return ouvreEntréeMidi(device); }) {}

MVantoro::MVantoro(FabriqueSortie sortie, FabriqueEntrée entrée)
    : m_fabriqueSortie(std::move(sortie)), m_fabriqueEntrée(std::move(entrée)) {}

MVantoro::~MVantoro() {
  midiCloseIn();
  midiCloseOut();
}

void MVantoro::setRéglages(const RéglagesMidi& r) {
  m_réglages = r;
  m_canalDeBase.store(r.setMIDIINBasicChannel, std::memory_order_relaxed);
}

void MVantoro::retient(const std::vector<MessageSon>& messages) {
  m_dernierRésultat = messages.empty() ? 0 : messages.front().id;
  for (const MessageSon& m : messages) {
    if (m_déjàDits.insert(m.id).second) m_messages.push_back(m);
  }
}

std::vector<MessageSon> MVantoro::prendMessages() {
  std::vector<MessageSon> m;
  m.swap(m_messages);
  return m;
}

// ---- Output --------------------------------------------------------------------

void MVantoro::midiOpenOut() {
  OuvertureSortie o = m_fabriqueSortie(m_réglages.setMIDIdevice, m_réglages.setSoundFont);
  retient(o.messages);
  if (!o.sortie) return;
  const std::int32_t ancien = m_handle;
  m_sortie = std::move(o.sortie);
  m_handle = midiHandleOuvrir(m_sortie);
  if (ancien != 0) midiHandleFermer(ancien);
  m_sortie->reset();
  midiProgram(m_réglages.setMIDIchannel, m_réglages.setMIDIinstru);
}

void MVantoro::midiCloseOut() {
  if (m_handle != 0) midiHandleFermer(m_handle);
  m_handle = 0;
  m_sortie.reset();
}

void MVantoro::envoie(std::uint8_t statut, int canal, int d1, int d2) {
  if (!m_sortie) return;  // a closed output takes nothing, silently
  m_sortie->shortMsg(midiPack(std::uint8_t(statut | canalMessage(canal)), std::uint8_t(sept(d1)),
                              std::uint8_t(sept(d2))));
}

void MVantoro::midiProgram(int canal, int patch) {
  envoie(0xC0, canal, patch, 0);
}

void MVantoro::midiProgramGlobal(int patch) {
  midiProgram(m_réglages.setMIDIchannel, patch);
}

void MVantoro::midiNoteOn(int note, int canal, int velocity) {
  envoie(0x90, canal, note, velocity);
}

void MVantoro::midiNoteOff(int note, int canal) {
  envoie(0x90, canal, note, 0);
}

void MVantoro::midiController(int controller, int value, int canal) {
  envoie(0xB0, canal, controller, value);
}

void MVantoro::midiNoteOnGlobal(int note) {
  midiNoteOn(note, m_réglages.setMIDIchannel, m_réglages.setMIDIvolume);
}

void MVantoro::midiNoteOffGlobal(int note) {
  midiNoteOff(note, m_réglages.setMIDIchannel);
}

void MVantoro::midiWheel(int canal, int octetHaut) {
  envoie(0xE0, canal, 0, octetHaut);
}

// ---- Input ---------------------------------------------------------------------

void MVantoro::setNotificateur(std::function<void()> n) {
  std::lock_guard lock(m_verrouNotificateur);
  m_notificateur = std::move(n);
}

void MVantoro::midiOpenIn() {
  midiCloseIn();
  OuvertureEntrée o = m_fabriqueEntrée(m_réglages.setMIDIInDevice);
  retient(o.messages);
  if (!o.entrée) return;
  m_entrée = std::move(o.entrée);
  m_entrée->démarre([this](std::uint32_t message) { reçoit(message); });
}

void MVantoro::midiCloseIn() {
  if (!m_entrée) return;
  m_entrée->arrête();
  m_entrée.reset();
}

void MVantoro::reçoit(std::uint32_t message) {
  // The input's thread: queue the note, wake the window, nothing more.
  const auto n = noteReçue(message, m_canalDeBase.load(std::memory_order_relaxed));
  if (!n) return;
  // One wake-up for a run of notes: the window takes them all at once, and a
  // flooding device cannot fill the window's event queue.
  if (m_notes.ajoute(*n) != FileNotesReçues::Ajout::Premier) return;
  std::lock_guard lock(m_verrouNotificateur);
  if (m_notificateur) m_notificateur();
}

}  // namespace vt
