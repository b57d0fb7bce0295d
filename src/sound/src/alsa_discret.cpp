#include "alsa_discret.h"

#include <alsa/asoundlib.h>

#include <mutex>

namespace vt {

namespace {

void muet(const char*, int, const char*, int, const char*, ...) {}

}  // namespace

void rendAlsaDiscret() {
  static std::once_flag fait;
  std::call_once(fait, [] { snd_lib_error_set_handler(muet); });
}

}  // namespace vt
