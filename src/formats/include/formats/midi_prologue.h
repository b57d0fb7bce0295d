// The messages that set up a track's channel before its first note: program,
// pitch-bend range (RPN 0), bank select, the six effect controllers and the
// volume. The MIDI file export writes them at the head of each track chunk,
// the player sends them at its start; both take them from here, each in its
// own order (the file's order is fixed by the format, the player sends the
// bank before the program so that the program change takes it).
#pragma once

#include <algorithm>
#include <array>
#include <vector>

#include "document/records.h"
#include "document/types.h"
#include "formats/midi_walk.h"

namespace vt {

// A track's sound, as the document or the player's track record holds it.
struct RéglagesMidiPiste {
  int canal = 0;  // 0..15
  int patch = kPatchParDéfaut;
  lng banque = 0;
  int phaser = 0;
  int chorus = 0;
  int tremolo = 0;
  int reverb = 0;
  int balance = 64;
  int pan = 64;
  int volume = 127;  // sent by the player only: a file leaves the volume to the synthesiser
};

// One channel message of up to three bytes.
struct MessageMidi {
  std::array<byt, 3> octets{};
  int taille = 3;
  bool operator==(const MessageMidi&) const = default;
};

struct PrologueMidi {
  MessageMidi programme;                // Cn patch
  std::array<MessageMidi, 4> portée{};  // Bn 65 00, 64 00, 06 range, 26 00 (RPN 0)
  std::array<MessageMidi, 2> banque{};  // Bn 20 LSB, then Bn 00 MSB
  std::array<MessageMidi, 6>
      contrôleurs{};   // 5F phaser, 5D chorus, 5C tremolo, 5B reverb, 08 balance, 0A pan
  MessageMidi volume;  // Bn 07 volume
};

// The bend range the synthesiser is told: 2 semitones in whole-tone mode,
// where bends count in wheel steps per semitone, else the range of the options.
inline int portéeBendMidi(const MidiEffetOptions& o) {
  return o.setMIDIEffet1Ton != 0 ? 2 : std::clamp(o.setMIDIPitchBendRange, 0, 127);
}

inline PrologueMidi prologueMidi(const RéglagesMidiPiste& r, const MidiEffetOptions& effets) {
  auto v7 = [](lng v) { return static_cast<byt>(std::clamp<lng>(v, 0, 127)); };
  const byt cc = static_cast<byt>(0xB0 | (r.canal & 0x0F));
  auto contrôle = [&](int numéro, lng valeur) {
    return MessageMidi{{cc, static_cast<byt>(numéro), v7(valeur)}, 3};
  };
  PrologueMidi p;
  p.programme = {{static_cast<byt>(0xC0 | (r.canal & 0x0F)), v7(r.patch), 0}, 2};
  p.portée = {contrôle(0x65, 0), contrôle(0x64, 0), contrôle(0x06, portéeBendMidi(effets)),
              contrôle(0x26, 0)};
  // A bank is fourteen bits, the low seven first.
  p.banque = {contrôle(0x20, r.banque & 0x7F), contrôle(0x00, (r.banque >> 7) & 0x7F)};
  p.contrôleurs = {contrôle(0x5F, r.phaser), contrôle(0x5D, r.chorus),  contrôle(0x5C, r.tremolo),
                   contrôle(0x5B, r.reverb), contrôle(0x08, r.balance), contrôle(0x0A, r.pan)};
  p.volume = contrôle(0x07, r.volume);
  return p;
}

}  // namespace vt
