// The session's ports on devices of the caller's making: the tests' logging
// output and inputs, with the rest of the path as the program runs it.
#pragma once

#include <memory>

#include "shell/son.h"
#include "sound/mvantoro.h"

namespace vt {

std::unique_ptr<SonLive> sonSysteme(const Settings& settings, MVantoro::FabriqueSortie sortie,
                                    MVantoro::FabriqueEntrée entrée);

}  // namespace vt
