#include "texte.h"


namespace vt {

std::vector<std::string> lignesDeTexte(std::string_view texte) {
  std::vector<std::string> lignes;
  std::size_t début = 0;
  for (;;) {
    const std::size_t fin = texte.find("\\n", début);
    if (fin == std::string_view::npos) {
      lignes.emplace_back(texte.substr(début));
      return lignes;
    }
    lignes.emplace_back(texte.substr(début, fin - début));
    début = fin + 2;
  }
}

}  // namespace vt
