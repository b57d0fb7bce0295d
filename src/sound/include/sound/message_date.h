// A channel message with the time at which it is due, in milliseconds from
// the start of a piece: what the player's walk gives when it runs offline,
// what the logging output keeps, and what the offline synthesizer renders.
#pragma once

#include <cstdint>
#include <vector>

namespace vt {

struct MessageDate {
  double ms = 0;
  std::uint32_t message = 0;  // packed as midiPack
  bool operator==(const MessageDate&) const = default;
};

using MessagesDates = std::vector<MessageDate>;

}  // namespace vt
