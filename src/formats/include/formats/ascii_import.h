// ASCII tablature import: six-string text tablature as found on the net.
//
// A block is six consecutive lines, one per string from the top: each holds
// "--", the five below have tablature in the column where the first line's
// "--" begins, and what stands before the tablature is a label of any length.
// Columns are read from the left: a column of dashes is a silent step, a "|"
// is a bar line that closes the bar (with "o", "*" or ":" beside it, or a
// second "|" at a bar's end, a repeat), digits are frets (two digits one
// fret, one step), and h, p, /, \, b, r right after a fret give that note its
// effect. Every column lasts the chosen base rhythm; bars are 4/4 and a note
// that would not fit goes into the next bar.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "document/records.h"
#include "formats/interchange_result.h"

namespace vt {

class CVantoroTablature;

inline constexpr int kMsgAsciiCorrompue = 1013;
inline constexpr int kMsgAsciiVide = 1018;  // the file holds no text at all
inline constexpr int kEtapeRechercheBlocs = 1002;
inline constexpr int kEtapeConversionAscii = 1003;

// The base rhythm of the buttons 1..7 ("ronde" to the last): 192, 96, 48,
// 24, 12, 6, 3 ticks; 0 for another index.
int rythmeAscii(int index);

struct AsciiImportOptions {
  int rythme = 24;  // ticks of one text column
  tGuitare guitare;
  byt patch = kPatchParDéfaut;
};

struct AsciiBloc {
  std::array<std::string, 6> lignes;  // from the block's first column to its end
};

// A text of blanks and line ends only, as an empty file: nothing to import.
bool texteAsciiVide(std::string_view texte);

// The blocks of a text (LF or CR LF line ends).
std::vector<AsciiBloc> trouverBlocsAscii(std::string_view texte);

// Fills `doc` (initialised first) with one track. Refuses with 1018 when the
// text is empty, with 1013 when it holds no block. Steps reported: 1002
// finding the blocks, 1003 converting.
InterchangeResult convertirAscii(std::string_view texte, const AsciiImportOptions& options,
                                 CVantoroTablature& doc,
                                 const std::function<void(int stringId)>& étape = {});

// The same from a file; 6001 or 6121 when it cannot be read.
InterchangeResult importerAscii(const std::string& chemin, const AsciiImportOptions& options,
                                CVantoroTablature& doc,
                                const std::function<void(int stringId)>& étape = {});

}  // namespace vt
