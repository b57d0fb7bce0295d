#include "sound/soundfont.h"

#include <filesystem>
#include <set>
#include <system_error>

namespace vt {

std::vector<std::string> soundFontsDuSystème() {
  return {
      "/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
      "/usr/share/sounds/sf2/TimGM6mb.sf2",   "/usr/share/soundfonts/default-GM.sf2",
      "/usr/share/soundfonts/FluidR3_GM.sf2", "/usr/share/soundfonts/TimGM6mb.sf2",
  };
}

namespace {

bool estUnFichier(const std::string& chemin) {
  std::error_code e;
  return !chemin.empty() && std::filesystem::is_regular_file(chemin, e);
}

// The file itself, whatever link names it: the system's default is a link to
// one of the usual files, which is not worth a second failed load.
std::string fichierRéel(const std::string& chemin) {
  std::error_code e;
  const auto réel = std::filesystem::canonical(chemin, e);
  return e ? chemin : réel.string();
}

}  // namespace

ChoixSoundFont choisitSoundFont(const std::string& choisie, const std::vector<std::string>& système,
                                const std::function<bool(const std::string&)>& charge,
                                const std::function<std::string()>& détailEchec) {
  ChoixSoundFont choix;
  bool unFichierExistait = false;
  std::string dernierEchec;
  std::set<std::string> essayés;
  auto essaie = [&](const std::string& chemin) {
    if (!estUnFichier(chemin)) return false;
    unFichierExistait = true;
    if (!essayés.insert(fichierRéel(chemin)).second) return false;
    if (charge(chemin)) return true;
    dernierEchec = détailEchec ? détailEchec() : std::string();
    if (dernierEchec.empty()) dernierEchec = chemin;
    return false;
  };

  if (!choisie.empty()) {
    if (essaie(choisie)) {
      choix.chemin = choisie;
      return choix;
    }
    // The user named a file: say it was passed over, whatever follows.
    choix.messages.push_back({son::kSoundFontChoisieAbsente.id, choisie});
  }
  for (const std::string& chemin : système) {
    if (essaie(chemin)) {
      choix.chemin = chemin;
      return choix;
    }
  }
  // Nothing plays: one message that says why, instead of the one above.
  choix.messages.clear();
  if (unFichierExistait) {
    choix.messages.push_back({son::kSoundFontIllisible.id, dernierEchec});
  } else {
    choix.messages.push_back({son::kAucuneSoundFont.id, choisie});
  }
  return choix;
}

}  // namespace vt
