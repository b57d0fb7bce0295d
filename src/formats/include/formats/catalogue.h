// The catalogue of instruments and tunings, "vt.ini" in the program's folder:
// section "Accordeur", key "nbrGuitares", then one section per instrument
// named by its number from 1, with "nom", "nomEN", "nbrCordes", "nbrCases",
// "corde1".."corde7" and "capodastre".
#pragma once

#include <filesystem>
#include <string_view>

#include "document/records.h"
#include "formats/ini_file.h"

namespace vt {

inline constexpr const char* kFichierCatalogue = "vt.ini";

class CatalogueGuitares {
 public:
  // An empty catalogue: one instrument made of the defaults.
  CatalogueGuitares() = default;
  explicit CatalogueGuitares(IniFile ini) : m_ini(std::move(ini)) {}

  // The file may be UTF-8 (as we ship it) or Windows-1252 (as older ones were
  // written); names come out as Windows-1252 either way, like every text of a
  // document. A missing file gives the empty catalogue.
  static CatalogueGuitares load(const std::filesystem::path& fichier);
  static CatalogueGuitares fromText(std::string_view texte);

  // "nbrGuitares" of section "Accordeur", 1 when absent.
  int nbrGuitares() const;

  // The instrument `index` in the language `setLang` (0 French, 10000
  // English). Absent keys take the profile defaults, kept as every reader of
  // the file has them: 6 strings, 6 frets, capo 6, strings of note 50. The
  // string count is held to 1..7 and the bytes to 0..255, so that a damaged
  // file cannot make an instrument the document refuses.
  tGuitare loadGuitare(int index, int setLang) const;

  const IniFile& ini() const { return m_ini; }

 private:
  IniFile m_ini;
};

// The first instrument, from 1 to the last of the catalogue, with the string
// count and the open strings of the track; 0 when none has them. This is the
// match a file's reader makes for each track it loads.
int chercherGuitareAccordage(const CatalogueGuitares& catalogue, const tPiste& piste);

// The same search, asking also for the track's fret count and capo: the match
// that makes the current instrument follow the editor's current track. 0 when
// none matches, and the current instrument then stays as it is.
int chercherGuitarePiste(const CatalogueGuitares& catalogue, const tPiste& piste);

}  // namespace vt
