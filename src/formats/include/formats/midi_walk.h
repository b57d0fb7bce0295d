// The MIDI walk: the one place where a tablature becomes timed MIDI messages.
//
// The walk visits the piece tick by tick, bar after bar, with the repeats
// unrolled, and for each track applies in order: rest extension, note off,
// ties, pitch bends on every second tick, the chord-diagram point, note on
// (harmonics transposed, glides without a new attack), vibrato and glide
// set-up, then the count-down of every sounding note. What it produces goes to
// a WalkSink as typed events carrying their time; it knows nothing of files.
//
// Two clients drive it:
// - the MIDI file export walks one track at a time to the end (`run`) and
//   turns the events into a track chunk;
// - the player walks all tracks together, one `step` per tick of its clock,
//   sends each event to the MIDI output as it comes, and reads the walk's
//   state for its pollers: `mesure()` and `x()` for the cursor, `sauts()` for
//   the repeat jumps, `corde(p, c)` for the note sounding on each string
//   (`hauteur`, `restant`), and the Tempo events to change its tick period.
//
// Times are in document ticks (48 to the quarter note) since the walk's start
// position. The position (bar, width) and (next bar, 0) are the same time but
// two steps of the walk: a note tied across a bar line therefore ends one tick
// early. That is how the walk has always counted, and readers must not correct
// it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "document/records.h"
#include "formats/walk_input.h"

namespace vt {

// The options that shape effects (settings of the options dialog).
struct MidiEffetOptions {
  // 0: a glide bends over the synthesiser's bend range; otherwise bends count
  // in steps of `setMIDIPitchDemiTon` per semitone over a range of 2.
  int setMIDIEffet1Ton = 0;
  int setMIDIPitchBendRange = 12;  // semitones
  int setMIDIPitchDemiTon = 32;    // steps of the wheel's high byte per semitone: 8, 16 or 32
};

// The bar walk shared by every chunk of a MIDI file and by the player: it
// follows repeat bar lines with one counter that is not nested, so a passage
// with right bar-line data d sounds d + 1 times. A right repeat with data 0
// sounds once, and a bar is never entered more than 256 times (the most any
// valid repeat allows), so that no arrangement of bar lines walks forever.
class BarWalk {
 public:
  BarWalk(const WalkInput& in, bool repeats, int startMesure = 1);

  bool fini() const { return m_mesure < 1 || m_mesure > m_in->getMesureLast(); }
  int mesure() const { return m_mesure; }
  // Unrolled tick at which the current bar starts.
  std::int64_t début() const { return m_début; }
  // The current bar was reached by a repeat jump (cleared on leaving it).
  bool sautEnCours() const { return m_saut; }
  int sauts() const { return m_sauts; }

  // Leaves the current bar, by a repeat jump or to the next bar.
  void suivante();

 private:
  void entrer();

  const WalkInput* m_in;
  bool m_repeats;
  int m_mesure;
  int m_reprise = 0;   // bar of the last left repeat seen; 0 repeats from the start
  int m_compteur = 0;  // plays left of the current passage
  bool m_saut = false;
  int m_sauts = 0;
  std::int64_t m_début = 0;
  std::vector<std::uint16_t> m_passages;  // times each bar was entered
};

enum class WalkEventType : std::uint8_t {
  NoteOff,     // 8n note 7F
  NoteOn,      // 9n note velocity; `note` is the note that starts
  PitchWheel,  // En lsb msb
  Controller,  // Bn cc value (vibrato on and off)
  Accord,      // the track shows a chord diagram here; no bytes
  Tempo,       // the bar has a tempo change here; `tempo` in beats per minute, track 0
};

struct WalkEvent {
  WalkEventType type = WalkEventType::NoteOff;
  int piste = 0;  // track 1..n; 0 for a tempo
  int corde = 0;  // string 1..7 of note and bend events; 0 otherwise
  int mesure = 0;
  int x = 0;
  std::int64_t temps = 0;  // ticks since the start of the walk, repeats unrolled
  bool aprèsSaut = false;  // lies in the bar that a repeat jump led to
  int sauts = 0;           // repeat jumps so far
  std::array<byt, 3> octets{};  // the channel message; `taille` bytes of it
  int taille = 0;
  const tNote* note = nullptr;  // NoteOn only; valid during the call
  int tempo = 0;                // Tempo only
};

class WalkSink {
 public:
  virtual ~WalkSink() = default;
  virtual void event(const WalkEvent& e) = 0;
};

// What one string of one track is doing.
struct CordeEtat {
  int restant = -1;     // ticks left of the sounding note; -1 when none
  bool sonne = false;   // a Note On is outstanding
  byt hauteur = 0;      // MIDI note of that Note On (a glide keeps it)
  byt frette = kCaseVide;  // fret of the current note
  int noteMesure = 0;   // bar, number and tick of the current note
  int noteIndex = 0;
  int noteX = 0;
  bool liée = false;    // under a tie: the next notes add to its length
  int bendRestant = 0;  // ticks of glide left
  int bendValeur = 0;   // wheel offset from the centre
  int bendPas = 0;      // added on every second tick
  bool glisse = false;  // the next note on this string continues this one
};

struct WalkOptions {
  MidiEffetOptions effets;
  bool repeats = true;  // follow repeat bar lines
  int startMesure = 1;
  int startX = 0;
  int stopMesure = 0;  // 0: walk to the end; else stop on reaching (stopMesure, stopX)
  int stopX = 0;
};

class MidiWalk {
 public:
  // Walks the tracks listed (all when empty) of `in`, which must outlive the
  // walk; bars appended to it during the walk are walked too.
  MidiWalk(const WalkInput& in, WalkOptions options, std::vector<int> pistes = {});

  bool fini() const;
  // Plays the current position (bar, X) on every walked track, then moves on
  // by one tick.
  void step(WalkSink& sink);
  // Steps to the end.
  void run(WalkSink& sink);
  // A Note Off for every string that sounds, at the current time: what the
  // player sends on stop, and what ends a file whose last note runs on.
  void silence(WalkSink& sink);

  int mesure() const { return m_bars.mesure(); }
  int x() const { return m_x; }
  // Ticks since the start position.
  std::int64_t temps() const { return m_bars.début() + m_x - m_origine; }
  int sauts() const { return m_bars.sauts(); }
  bool sautEnCours() const { return m_bars.sautEnCours(); }
  // State of string c (1..7) of track p; a blank state outside.
  CordeEtat corde(int p, int c) const;

 private:
  struct PisteEtat {
    std::array<CordeEtat, kMaxCordes + 1> cordes{};
    // The current bar's lists, taken at its start, and where the lookup stands.
    std::array<OneBasedView<tNote>, kMaxCordes + 1> listes{};
    std::array<int, kMaxCordes + 1> curseur{};
    const std::vector<u16>* accords = nullptr;
    std::size_t accord = 0;
    int nbrCordes = 0;
    // Quiet ticks ahead (nothing starts, ends or bends) and quiet ticks gone
    // by whose count-down the strings have not had yet.
    int calme = 0;
    int écoulé = 0;
    bool bendActif = false;
    bool vibratoActif = false;
  };

  void entrerMesure();
  void stepPiste(int p, WalkSink& sink);
  int calmeÀVenir(const PisteEtat& t, int x) const;
  int suivanteLiée(int p, int m, int c, int n) const;
  void preparerGlisse(const tNote& note, CordeEtat& s, int p, int m, int c, int n, int largeur);
  void émettre(WalkSink& sink, WalkEventType type, int p, int c, std::array<byt, 3> octets,
               int taille, const tNote* note = nullptr);

  const WalkInput* m_in;
  WalkOptions m_options;
  std::vector<int> m_pistes;
  std::vector<PisteEtat> m_etat;  // indexed by track number
  BarWalk m_bars;
  int m_x;
  int m_origine;  // X of the start position
  int m_largeur = 0;  // width of the current bar
  int m_tempo = 1;  // tempo lookup in the current bar
};

}  // namespace vt
