// The logging output: a MidiOut that sounds nothing and writes down every
// message with the time it was sent, for `vantoro-cli play --log` and for the
// tests. Times are steady-clock milliseconds since a start the caller sets, or
// else since the first message.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "sound/message_date.h"
#include "sound/midi_out.h"

namespace vt {

class SortieJournal : public MidiOut {
 public:
  using Horloge = std::chrono::steady_clock;

  void shortMsg(std::uint32_t message) override;
  // Counted, not written down: a reset is no message.
  void reset() override;
  std::string nom() const override { return "log"; }

  // Times count from `début` (a message sent before it has a negative time).
  void setDébut(Horloge::time_point début);
  // Called with each message as it is written down, in the order of the list,
  // under the output's lock: keep it short (printing one line is fine).
  void setEcouteur(std::function<void(const MessageDate&)> écouteur);

  MessagesDates messages() const;
  int resets() const;
  // Forgets the messages, the resets and the start.
  void efface();

 private:
  mutable std::mutex m_verrou;
  std::optional<Horloge::time_point> m_début;
  MessagesDates m_messages;
  int m_resets = 0;
  std::function<void(const MessageDate&)> m_écouteur;
};

// One line of the log: the time in milliseconds with three decimals, then the
// status and data bytes the message has, in two-digit upper-case hexadecimal,
// separated by single spaces: "1041.667 90 45 7F".
std::string ligneJournal(const MessageDate& m);

}  // namespace vt
