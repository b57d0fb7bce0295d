// When each tick of a piece sounds. One function of time serves the real-time
// clock and the offline walk, so the two cannot disagree.
//
// A tick lasts 60000 / (tempo * 48) ms as an exact fraction: the time of a
// tick is computed from the ticks since the last tempo change, in integer
// nanoseconds, never by adding up rounded periods, so a piece lasts exactly
// what its tempo says (the editor's timer runs at the integer period, 10 ms at
// tempo 120 instead of 10.417: a clock that waited that long would play 4%
// fast).
#pragma once

#include <cstdint>

namespace vt {

// Where a tick stands: ticks since the walk's start position (repeats
// unrolled), and its X within a bar of width `largeur`.
struct PositionTick {
  std::int64_t temps = 0;
  int x = 0;
  int largeur = 0;
};

// Nanoseconds in one minute divided by 48 ticks: a tick lasts this / tempo.
inline constexpr std::int64_t kNsTickFoisTempo = 1'250'000'000;

// For a clock thread, called from the thread itself. The kernel may let a
// timed wait run on by its timer slack (50 us by default) to group wake-ups:
// down to 1 ns. And a real-time priority, where the system grants one (an
// audio group's limits, or root): a busy machine then delays the clock far
// less. Refused, the thread runs as it was; nothing depends on it.
void préciserFilHorloge();

inline int périodeTickMs(int tempo) {
  return tempo > 0 ? 60000 / (tempo * 48) : 0;
}
inline int duréeTempsMs(int tempo) {
  return tempo > 0 ? 60000 / tempo : 0;
}

class HorlogeTicks {
 public:
  // The first tick asked for sounds at `départNs`.
  HorlogeTicks(int tempo, bool tripleFeel, std::int64_t départNs = 0);

  // The time of the tick at `p`, in ns from the clock's origin. Ticks are
  // asked for in the order they are played.
  std::int64_t échéance(const PositionTick& p);
  // From the tick at `p` on, ticks run at `tempo` (a tempo of 0 changes nothing).
  void changerTempo(int tempo, const PositionTick& p);
  // The next tick asked for sounds at `àNs`, at `tempo`: a walk that starts
  // again (a loop) continues the time where the last one ended.
  void reprendre(int tempo, std::int64_t àNs);

  int tempo() const { return m_tempo; }

  // A tick's place on the warped time line, in thirds of a tick. With triple
  // feel, pairs of eighths are played long-short (2:1): within each whole
  // quarter-note beat of the bar, ticks 0 to 24 are stretched over 32 ticks'
  // time and ticks 24 to 48 squeezed into 16, so the off-beat eighth falls at
  // 2/3 of the beat. This is a warp of the tick times inside the beat; the
  // beats themselves keep their places. A beat cut short by the bar's end is
  // not warped.
  static std::int64_t tiers(const PositionTick& p, bool tripleFeel);

 private:
  int m_tempo;
  bool m_tripleFeel;
  bool m_ancrée = false;      // the reference below is set
  std::int64_t m_tiers0 = 0;  // the reference tick, in thirds
  std::int64_t m_ns0 = 0;     // and its time
};

}  // namespace vt
