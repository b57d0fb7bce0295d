// Reading a Standard MIDI File: the header and chunks, then each track's
// events as the converter wants them. Every length is checked against the
// file, variable-length quantities are at most four bytes, a track without an
// end-of-track event ends with its chunk, and a file cut short keeps what it
// holds; no input makes the reader read outside the bytes or loop on itself.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "document/types.h"
#include "formats/interchange_result.h"

namespace vt {

// Messages of the MIDI import.
inline constexpr int kMsgMidiCanal = 1015;           // "Channel ", before a channel's number
inline constexpr int kMsgMidiSansNom = 2500;         // the name of a track that has none
inline constexpr int kMsgMidiInvalide = 2501;        // "This MIDI file is not valid!"
inline constexpr int kMsgMidiCommandeInconnue = 2502;  // "Unknown command: " and the byte
inline constexpr int kMsgMidiPisteSansNote = 2506;   // "This track contains no note!"
inline constexpr int kMsgMidiAucuneCible = 2507;     // "Select a track to convert!"
inline constexpr int kMsgMidiErreur = 2509;          // "Error in the MIDI file"
inline constexpr int kMsgMidiAucunePiste = 2511;     // "No track!"
inline constexpr int kMsgMidiFormat0 = 2512;         // format 0: channels instead of tracks

struct MidiFichier {
  struct Chunk {
    std::size_t début = 0;  // offset of the data in `octets`
    std::size_t taille = 0;
  };
  std::vector<byt> octets;  // the whole file
  int format = 1;
  int pistesDéclarées = 0;  // the header's count
  int division = 120;       // ticks per quarter note
  std::vector<Chunk> pistes;  // the track chunks, in file order
};

// Takes a file apart: refuses with 2501 (not "MThd"), 2511 (no track) or
// 2509 (a header or division that cannot be used). A format 0 file is read
// with the notice 2512: its sources are channels.
InterchangeResult lireMidi(std::span<const byt> octets, MidiFichier& out);
// The same from a file; 6001 or 6121 when it cannot be read.
InterchangeResult ouvrirMidi(const std::string& chemin, MidiFichier& out);

// A note event as the parser keeps it (velocity 0 for a release).
struct MidiEvenement {
  std::int64_t tick = 0;  // file ticks from the track's start
  byt canal = 0;          // 0..15
  byt hauteur = 0;
  byt vélocité = 0;
  byt corde = 0;     // string hint of an RMTF note event: string number, 0 for none
  byt attribut = 0;  // RMTF attribute, 0 for none
};

struct MidiTexte {
  std::int64_t tick = 0;
  byt type = 0;  // 0x01 text, 0x02 copyright, 0x03 name, 0x05 lyric, 0x06 marker...
  std::string texte;
};

struct MidiMétaNombre {  // tempo (a = microseconds per quarter), signature
  std::int64_t tick = 0;  // (a = numerator, b = power of two of the denominator),
  int a = 0;              // key (a = sharps, negative for flats; b = 1 for minor)
  int b = 0;
};

struct MidiAccordBrut {
  std::int64_t tick = 0;
  std::string données;  // one fret byte per string, then the name
};

// The RMTF track header (FF 10): the instrument of the exported track.
struct MidiTêteRmtf {
  bool présente = false;
  int cordes = 0;
  int piste = 0;
  int capodastre = 0;
  std::array<byt, 8> ouvertes{};  // strings 1..7
};

struct PisteMidiLue {
  std::string nom;         // the first track-name event
  bool aNom = false;
  int événements = 0;      // events read
  std::int64_t fin = 0;    // tick where the track ends
  std::vector<MidiEvenement> notes;
  std::vector<MidiTexte> textes;
  std::vector<MidiMétaNombre> tempos, signatures, tonalités;
  std::vector<MidiAccordBrut> accords;
  MidiTêteRmtf tête;
  std::array<int, 16> programmes{};  // first program change per channel, -1 for none
  // Note starts (velocity above 0) per channel.
  std::array<int, 16> notesParCanal{};
};

using MidiProgression = std::function<void(std::size_t position, std::size_t taille)>;

// Parses chunk `index`. Refuses with 2502 and the byte in hexadecimal for a
// status byte the format does not know, 2509 for a quantity longer than four
// bytes; what was read before stays in `out`.
InterchangeResult lirePisteMidi(const MidiFichier& f, int index, PisteMidiLue& out,
                                const MidiProgression& progression = {});

// One entry of the import dialog's lists.
struct MidiSource {
  int numéro = 0;       // the chunk counted from 0 (format 1), or the channel 1..16 (format 0)
  std::string libellé;  // as listed: "name: index", or "Channel " and the number
  std::string nom;      // the track's name, or string 2500
  int événements = 0;
  int notes = 0;        // note starts
};

// The tracks (format 1 and 2) or the sixteen channels (format 0) of a file.
std::vector<MidiSource> sourcesMidi(const MidiFichier& f, int setLang);

}  // namespace vt
