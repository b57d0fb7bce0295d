// Sound files on the command line: `convert x.vtb out.wav` renders the piece
// as the player sounds it, through the built-in synthesizer offline, at the
// speed of the processor.
#pragma once

#include <filesystem>
#include <iostream>
#include <string>

#include "command.h"
#include "document/tablature.h"
#include "formats/string_table.h"
#include "player/export_wav.h"

namespace vt::cli {

inline bool estSon(const std::string& ext) {
  return ext == ".wav";
}

// Refuses a broken repeat as the MIDI export does (string 1301 and the bar);
// writes nothing then, nor when no SoundFont could be loaded.
inline bool écrireWavCli(Context& ctx, const CVantoroTablature& doc,
                         const std::filesystem::path& f) {
  if (const int n = doc.checkMesureRenvois(); n > 0) {
    std::cerr << loadString(1301, ctx.setLang) << n << '\n';
    ctx.exitCode = kRefused;
    return false;
  }
  const RésultatWav r = exporterWav(doc, f.string());
  for (std::size_t i = 0; i < r.messages.size(); ++i) {
    const MessageSon& m = r.messages[i];
    if (!r.ok && i == 0) {
      refuse(ctx, m.id, m.détail);
      continue;
    }
    std::cerr << loadString(m.id, ctx.setLang);
    if (!m.détail.empty()) std::cerr << " (" << m.détail << ")";
    std::cerr << '\n';
  }
  if (!r.ok && ctx.exitCode == kOk) ctx.exitCode = kRefused;
  return r.ok;
}

}  // namespace vt::cli
