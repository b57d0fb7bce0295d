// The MIDI ports of the session. The sound layer is not part of this build
// yet: until it is, the ports stay closed and the notes go nowhere.
#include "shell/settings.h"
#include "shell/son.h"

namespace vt {

namespace {

class SonSansPort : public SonLive {
 public:
  void midiOpenOut() override {}
  void midiOpenIn() override {}
  void midiCloseOut() override {}
  void midiCloseIn() override {}
  void midiNoteOnGlobal(int) override {}
  void midiNoteOffGlobal(int) override {}
  void midiController(int, int, int) override {}
};

}  // namespace

std::unique_ptr<SonLive> sonSysteme(const Settings&) {
  return std::make_unique<SonSansPort>();
}

}  // namespace vt
