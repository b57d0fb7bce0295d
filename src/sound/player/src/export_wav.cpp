#include "player/export_wav.h"

namespace vt {

RésultatWav exporterWav(const CVantoroTablature& doc, const std::string& chemin,
                        const OptionsJeu& jeu, const OptionsRendu& rendu) {
  return rendreWav(rendreDocument(doc, jeu), chemin, rendu);
}

}  // namespace vt
