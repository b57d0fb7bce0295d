// The options dialog's controls and the settings they stand for. OK applies
// the rules from the first to the last; the form's load reads them the other
// way, from the last to the first. A value that no control can show (a
// settings file edited by hand) is shown as the nearest one it can.
#pragma once

#include <span>

namespace vt {

class FOptions;
class Settings;

struct RègleOption {
  const char* contrôle;  // the control's name in the dialog
  void (*charge)(FOptions& o, const Settings& s);
  void (*applique)(FOptions& o, Settings& s);
};

std::span<const RègleOption> règlesOptions();

}  // namespace vt
