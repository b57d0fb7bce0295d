// Where the settings live: the user's "Vantoro/Vantoro.ini" in the INI format
// of the configuration folder, or the file named by the environment variable
// VANTORO_SETTINGS (tests and portable use point it elsewhere).
#pragma once

#include <QString>
#include <memory>

class QSettings;

namespace vt {

inline constexpr const char* kVariableSettings = "VANTORO_SETTINGS";

std::unique_ptr<QSettings> ouvreMagasin();

// The file that ouvreMagasin uses.
QString cheminMagasin();

}  // namespace vt
