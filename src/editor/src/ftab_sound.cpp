// The notes the editor sounds while a key is held: a typed fret, the column at
// the cursor (Enter), and the fretboard's notes when the editor is active. They
// go out on the track's channel with the track's sound.
#include <algorithm>

#include "editor/ftab.h"
#include "shell/vt.h"

namespace vt {

namespace {
constexpr int kCanalBatterie = 10;
constexpr int kCentreRoue = 0x40;
// Controllers of a track's sound.
constexpr int kBalance = 8;
constexpr int kPan = 10;
constexpr int kReverb = 91;
constexpr int kTremolo = 92;
constexpr int kChorus = 93;
constexpr int kPhaser = 95;
}  // namespace

int FTab::canalPiste(int p) const {
  if (doc().getStaffType(p) == kStaffBatterie) return kCanalBatterie;
  return (std::max(p, 1) - 1) % 16 + 1;
}

int FTab::noteMIDI(int p, int corde, int fret) const {
  // On a drum staff the fret is the drum's note.
  if (doc().getStaffType(p) == kStaffBatterie) return fret;
  return doc().getGuitareCorde(p, corde) + fret;
}

void FTab::MIDISetCanalPptes(int p) {
  const CVantoroTablature& d = doc();
  if (!d.hasPiste(p)) return;
  SonLive& son = m_vt.son();
  const int canal = canalPiste(p);
  son.midiProgram(canal, d.getMIDIPatch(p));
  son.midiController(kBalance, d.getMIDIBalance(p), canal);
  son.midiController(kPan, d.getMIDIPan(p), canal);
  son.midiController(kReverb, d.getMIDIReverb(p), canal);
  son.midiController(kTremolo, d.getMIDITremolo(p), canal);
  son.midiController(kChorus, d.getMIDIChorus(p), canal);
  son.midiController(kPhaser, d.getMIDIPhaser(p), canal);
  son.midiWheel(canal, kCentreRoue);
}

void FTab::TabMIDINoteOn(int note) {
  if (note < 0 || note > 127) return;
  const int p = piste();
  MIDISetCanalPptes(p);
  const int canal = canalPiste(p);
  m_vt.son().midiNoteOn(note, canal, m_outils.getNoteVolume());
  m_notesTenues.emplace_back(canal, note);
}

void FTab::TabMIDINoteOff(int note) {
  if (note < 0 || note > 127) return;
  const int canal = canalPiste(piste());
  m_vt.son().midiNoteOff(note, canal);
  std::erase(m_notesTenues, std::pair{canal, note});
}

void FTab::sonneNote(int note) {
  TabMIDINoteOn(note);
}

void FTab::sonneColonne() {
  const CVantoroTablature& d = doc();
  const int p = piste();
  const int m = d.CurseurMesure();
  const int x = d.CurseurX();
  MIDISetCanalPptes(p);
  const int canal = canalPiste(p);
  for (int c = 1; c <= nbCordes(); ++c) {
    const int n = d.searchNote(p, m, c, x);
    if (n == 0) continue;
    const int fret = d.getNoteCase(p, m, c, n);
    if (fret >= kCaseVide) continue;
    const int note = noteMIDI(p, c, fret);
    if (note < 0 || note > 127) continue;
    m_vt.son().midiNoteOn(note, canal, d.getNoteVolume(p, m, c, n));
    m_notesTenues.emplace_back(canal, note);
  }
}

void FTab::arrêteNotes() {
  const auto tenues = std::move(m_notesTenues);
  m_notesTenues.clear();
  for (const auto& [canal, note] : tenues)
    m_vt.son().midiNoteOff(note, canal);
}

}  // namespace vt
