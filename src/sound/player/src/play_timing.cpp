#include "player/play_timing.h"

#include <algorithm>

#include "document/types.h"

#ifdef __linux__
#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>
#endif

namespace vt {

void préciserFilHorloge() {
#ifdef __linux__
  ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
  sched_param p{};
  p.sched_priority = 10;
  ::pthread_setschedparam(::pthread_self(), SCHED_FIFO, &p);
#endif
}

HorlogeTicks::HorlogeTicks(int tempo, bool tripleFeel, std::int64_t départNs)
    : m_tempo(std::max(tempo, 1)), m_tripleFeel(tripleFeel), m_ns0(départNs) {}

std::int64_t HorlogeTicks::tiers(const PositionTick& p, bool tripleFeel) {
  const std::int64_t mesure = p.temps - p.x;  // where the bar starts
  std::int64_t dans = 3 * static_cast<std::int64_t>(p.x);
  if (tripleFeel && p.x >= 0) {
    const int f = p.x % kTicksNoire;
    const int temps = p.x - f;
    if (temps + kTicksNoire <= p.largeur) {
      const int croche = kTicksNoire / 2;
      dans = 3 * static_cast<std::int64_t>(temps) +
             (f < croche ? 4 * f : 4 * croche + 2 * (f - croche));
    }
  }
  return 3 * mesure + dans;
}

std::int64_t HorlogeTicks::échéance(const PositionTick& p) {
  const std::int64_t t = tiers(p, m_tripleFeel);
  if (!m_ancrée) {
    m_tiers0 = t;
    m_ancrée = true;
  }
  // Ticks are asked for in order; a position before the reference (which no
  // walk gives) is held at it rather than going back in time.
  const std::int64_t écart = std::max<std::int64_t>(t - m_tiers0, 0);
  // Split so that a piece of any length stays within 64 bits.
  const std::int64_t d = 3 * static_cast<std::int64_t>(m_tempo);
  return m_ns0 + (écart / d) * kNsTickFoisTempo + (écart % d) * kNsTickFoisTempo / d;
}

void HorlogeTicks::changerTempo(int tempo, const PositionTick& p) {
  if (tempo <= 0 || tempo == m_tempo) return;
  m_ns0 = échéance(p);
  m_tiers0 = tiers(p, m_tripleFeel);
  m_tempo = tempo;
}

void HorlogeTicks::reprendre(int tempo, std::int64_t àNs) {
  m_tempo = std::max(tempo, 1);
  m_ns0 = àNs;
  m_ancrée = false;
}

}  // namespace vt
