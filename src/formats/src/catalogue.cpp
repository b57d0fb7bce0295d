#include "formats/catalogue.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "document/cp1252.h"
#include "formats/string_table.h"

namespace vt {

namespace {

constexpr std::string_view kSectionGénérale = "Accordeur";
// Names are read into a 255-character buffer whose terminator is dropped.
constexpr std::size_t kNomMax = 254;

byt octet(int v) {
  return static_cast<byt>(std::clamp(v, 0, 255));
}

}  // namespace

CatalogueGuitares CatalogueGuitares::fromText(std::string_view texte) {
  constexpr std::string_view kBom = "\xEF\xBB\xBF";
  if (texte.substr(0, kBom.size()) == kBom) texte.remove_prefix(kBom.size());
  if (isValidUtf8(texte)) return CatalogueGuitares(IniFile::fromText(utf8ToCp1252(texte)));
  return CatalogueGuitares(IniFile::fromText(texte));
}

CatalogueGuitares CatalogueGuitares::load(const std::filesystem::path& fichier) {
  std::ifstream in(fichier, std::ios::binary);
  if (!in) return CatalogueGuitares{};
  const std::string texte((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return fromText(texte);
}

int CatalogueGuitares::nbrGuitares() const {
  return m_ini.getPrivateProfileInt(kSectionGénérale, "nbrGuitares", 1);
}

tGuitare CatalogueGuitares::loadGuitare(int index, int setLang) const {
  const std::string section = std::to_string(index);
  tGuitare g;
  g.nom = m_ini.getPrivateProfileString(section, setLang != kLangFrançais ? "nomEN" : "nom", "");
  if (g.nom.size() > kNomMax) g.nom.resize(kNomMax);
  g.nbrCordes =
      static_cast<byt>(std::clamp(m_ini.getPrivateProfileInt(section, "nbrCordes", 6), 1, 7));
  g.nbrCases = octet(m_ini.getPrivateProfileInt(section, "nbrCases", 6));
  g.corde.fill(0);
  for (int i = 1; i <= g.nbrCordes; ++i)
    g.corde[static_cast<std::size_t>(i)] =
        octet(m_ini.getPrivateProfileInt(section, "corde" + std::to_string(i), 50));
  g.capodastre = octet(m_ini.getPrivateProfileInt(section, "capodastre", 6));
  return g;
}

namespace {

// The stored index is a byte: no search goes past 255 instruments.
int dernierIndex(const CatalogueGuitares& c) {
  return std::min(c.nbrGuitares(), 255);
}

bool mêmesCordes(const tGuitare& g, const tPiste& p) {
  if (g.nbrCordes != p.bytNbrCordes) return false;
  for (int i = 1; i <= g.nbrCordes; ++i)
    if (g.corde[static_cast<std::size_t>(i)] != p.bytCordes[static_cast<std::size_t>(i)])
      return false;
  return true;
}

}  // namespace

int chercherGuitareAccordage(const CatalogueGuitares& catalogue, const tPiste& piste) {
  const int dernier = dernierIndex(catalogue);
  for (int i = 1; i <= dernier; ++i)
    if (mêmesCordes(catalogue.loadGuitare(i, kLangFrançais), piste)) return i;
  return 0;
}

int chercherGuitarePiste(const CatalogueGuitares& catalogue, const tPiste& piste) {
  const int dernier = dernierIndex(catalogue);
  for (int i = 1; i <= dernier; ++i) {
    const tGuitare g = catalogue.loadGuitare(i, kLangFrançais);
    if (g.nbrCases == piste.bytNbrCases && g.capodastre == piste.bytCapodastre &&
        mêmesCordes(g, piste))
      return i;
  }
  return 0;
}

}  // namespace vt
