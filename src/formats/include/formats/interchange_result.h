// The outcome of a reader, a converter or a file export: success, or the id of
// the system's own message (with an optional detail, such as the byte of an
// unknown MIDI command) that the window or the command line shows.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vt {

struct InterchangeResult {
  int stringId = 0;          // 0 on success
  std::string détail;        // shown after the message when not empty
  std::vector<int> notices;  // messages worth showing that did not stop the work

  bool ok() const { return stringId == 0; }
  static InterchangeResult refus(int id, std::string d = {}) {
    InterchangeResult r;
    r.stringId = id;
    r.détail = std::move(d);
    return r;
  }
};

}  // namespace vt
