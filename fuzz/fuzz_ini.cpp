// "vt.ini" on any bytes: the profile reader and the instrument catalogue over
// it. Every instrument it gives must be one a document accepts: one to seven
// strings, nothing past the last one.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "formats/catalogue.h"
#include "formats/string_table.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view texte(reinterpret_cast<const char*>(data), size);
  const vt::CatalogueGuitares catalogue = vt::CatalogueGuitares::fromText(texte);
  const int n = catalogue.nbrGuitares();
  // A catalogue is read by number from 1; a damaged count must not make the
  // program walk billions of sections, so only the first few are asked for.
  for (int i = 0; i <= 3 && i <= std::min(n, 3) + 1; ++i) {
    for (int lang : {vt::kLangFrançais, vt::kLangAnglais}) {
      const vt::tGuitare g = catalogue.loadGuitare(i, lang);
      if (g.nbrCordes < 1 || g.nbrCordes > 7 || g.nom.size() > 254) std::abort();
      for (std::size_t c = g.nbrCordes + 1u; c < g.corde.size(); ++c)
        if (g.corde[c] != 0) std::abort();
    }
  }
  vt::tPiste piste;
  piste.bytNbrCordes = 6;
  piste.bytCordes = {0, 64, 59, 55, 50, 45, 40, 0};
  // A count below one means no instrument to match: the search finds none.
  const int trouvé = vt::chercherGuitareAccordage(catalogue, piste);
  if (trouvé < 0 || trouvé > std::clamp(n, 0, 255)) std::abort();
  (void)catalogue.ini().getPrivateProfileInt("Accordeur", "nbrGuitares", 1);
  return 0;
}
