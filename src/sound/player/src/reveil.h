// How the clock threads wait: until an absolute deadline of steady_clock, or
// until they are told to stop, whichever comes first. A sleep_until that a
// stop can cut short: without it a stop during the clicks before a slow
// piece would wait for the rest of the beat.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

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

 private:
  std::mutex m_verrou;
  std::condition_variable m_cv;
  bool m_arrêt = false;
};

}  // namespace vt
