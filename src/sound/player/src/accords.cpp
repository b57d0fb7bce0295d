#include "player/accords.h"

#include <mutex>

#include "music/accord_nom.h"
#include "music/accord_recherche.h"

namespace vt {

namespace {

// The parameters of the last SetAccordParametres, as the library keeps them.
std::mutex g_verrou;
ParametresAccord g_paramètres;

}  // namespace

void SetAccordParametres(std::uint8_t MAXSPAN, std::uint8_t ADJ_SCORE, std::uint8_t OPENS_SCORE,
                         std::uint8_t POSITION_SCORE, std::uint8_t ROOT_SCORE,
                         std::uint8_t SPAN_SCORE, std::uint8_t TSPAN_SCORE) {
  const std::lock_guard<std::mutex> l(g_verrou);
  g_paramètres = {MAXSPAN,    ADJ_SCORE,  OPENS_SCORE, POSITION_SCORE,
                  ROOT_SCORE, SPAN_SCORE, TSPAN_SCORE};
}

void GetAccordPositions(PositionsAccord& positions, std::string& nom, std::uint8_t nbrCordes,
                        const std::array<std::string, 8>& cordes) {
  positions.clear();
  const auto accord = lisNomAccord(nom);
  if (!accord || nbrCordes < kCordesRechercheMin || nbrCordes > kCordesRechercheMax) return;
  std::vector<int> hauteurs;
  for (std::size_t i = 0; i < nbrCordes; ++i) {
    if (cordes[i].size() != 1) return;
    hauteurs.push_back(static_cast<unsigned char>(cordes[i][0]));
  }
  ParametresAccord p;
  {
    const std::lock_guard<std::mutex> l(g_verrou);
    p = g_paramètres;
  }
  for (const Doigté& d : chercheDoigtés(*accord, hauteurs, p))
    positions.emplace_back(d.cases.begin(), d.cases.begin() + nbrCordes);
}

void GetAccordConstruction(std::vector<int>& résultat, std::string& nom) {
  résultat.clear();
  if (const auto accord = lisNomAccord(nom)) {
    const auto t = accord->tableau();
    résultat.assign(t.begin(), t.end());
  }
}

}  // namespace vt
