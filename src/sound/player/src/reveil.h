// How the clock threads wait: until an absolute deadline of steady_clock, or
// until they are told to stop, whichever comes first. A sleep_until that a
// stop can cut short: without it a stop during the clicks before a slow
// piece would wait for the rest of the beat.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

#ifdef __linux__
#include <pthread.h>
#include <sched.h>
#include <sys/prctl.h>
#endif

namespace vt {

using Horloge = std::chrono::steady_clock;

class Réveil {
 public:
  // The last stretch before a deadline is waited actively: a thread woken
  // by the kernel runs some 0.1 to 0.6 ms late, and unevenly. Measured with
  // bench_player_timing (docs/PERFORMANCE.md): the 99th percentile of the
  // deviation fell from 1.5 ms to 0.2 ms, for 2% of a core at tempo 120.
  static constexpr std::chrono::microseconds kActive{200};

  // Waits until `échéance`; false when a stop came first.
  bool attendre(Horloge::time_point échéance) {
    {
      std::unique_lock verrou(m_verrou);
      if (m_cv.wait_until(verrou, échéance - kActive, [this] { return m_arrêt; })) return false;
    }
    while (Horloge::now() < échéance) {
    }
    return true;
  }
  void arrêter() {
    {
      std::lock_guard verrou(m_verrou);
      m_arrêt = true;
    }
    m_cv.notify_all();
  }
  void réarmer() {
    std::lock_guard verrou(m_verrou);
    m_arrêt = false;
  }

  // For the clock thread itself. The kernel may let a timed wait run on by
  // its timer slack (50 us by default) to group wake-ups: down to 1 ns. And a
  // real-time priority, where the system grants one (an audio group's
  // limits, or root): a busy machine then delays the clock far less. Refused,
  // the thread runs as it was; nothing depends on it.
  static void préciser() {
#ifdef __linux__
    ::prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
    sched_param p{};
    p.sched_priority = 10;
    ::pthread_setschedparam(::pthread_self(), SCHED_FIFO, &p);
#endif
  }

 private:
  std::mutex m_verrou;
  std::condition_variable m_cv;
  bool m_arrêt = false;
};

}  // namespace vt
