// ASCII tablature export: one track as fixed-pitch text, one line per string
// under a line of time signatures, bars broken into blocks no wider than
// `cfgASCIILargeur` columns. Labels are French in both languages; lines end
// with CR LF; the text is Windows-1252 bytes, as the document's strings are.
#pragma once

#include <string>

#include "formats/interchange_result.h"

namespace vt {

class CVantoroTablature;

inline constexpr int kASCIILargeurParDéfaut = 66;

std::string io_enregistrer_txt(const CVantoroTablature& doc, int piste,
                               int cfgASCIILargeur = kASCIILargeurParDéfaut);

// The same into a file, through a temporary file.
InterchangeResult exporterTxt(const CVantoroTablature& doc, int piste, const std::string& chemin,
                              int cfgASCIILargeur = kASCIILargeurParDéfaut);

}  // namespace vt
