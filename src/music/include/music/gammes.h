// The scale dictionary "scales.dat": records of 92 bytes, no header, as many
// as the file's length divided by 92.
//
//   offset  size  field
//        0    12  demitons: one byte per semitone above the reference note;
//                 255 when the semitone is not in the scale, otherwise its
//                 distance in semitones from the scale's root (0: the root)
//       12    40  nom: French name, Windows-1252 padded with blanks
//       52    40  nomEN: English name, the same
//
// A French name starting with "Mode" marks a mode, written in its parent's
// layout (its root, the byte 0, need not come first); a name starting with
// "Accord" / "Chord" marks a chord record; "Note seule" / "Single note" (string
// 2802) the one-note record. The scale window and the harmoniser share the file.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "document/types.h"

namespace vt {

inline constexpr const char* kFichierGammes = "scales.dat";
inline constexpr std::size_t kTailleGamme = 92;
inline constexpr std::size_t kTailleNomGamme = 40;
// The byte of a semitone that is not in the scale.
inline constexpr byt kHorsGamme = 255;
// The scale window counts its list in one byte.
inline constexpr int kMaxGammesListe = 255;

using Demitons = std::array<byt, 12>;

struct tGamme {
  Demitons demitons{};
  std::string nom;    // the 40 bytes as stored
  std::string nomEN;  // the 40 bytes as stored
  bool operator==(const tGamme&) const = default;
};

class FichierGammes {
 public:
  FichierGammes() = default;

  // Every whole record of the bytes; bytes past the last whole record are
  // left aside (octetsEnTrop), never read as a record of their own.
  static FichierGammes depuisOctets(std::span<const std::uint8_t> octets);
  // The file; a missing or unreadable one gives no record and its message.
  static FichierGammes load(const std::filesystem::path& fichier);

  int count() const { return static_cast<int>(m_gammes.size()); }
  // Record n, 1 to count().
  const tGamme& gamme(int n) const;
  const std::vector<tGamme>& gammes() const { return m_gammes; }
  std::size_t octetsEnTrop() const { return m_reste; }
  // 0 when the file was read; else the string id of what went wrong.
  int message() const { return m_message; }

 private:
  std::vector<tGamme> m_gammes;
  std::size_t m_reste = 0;
  int m_message = 0;
};

// The name in the language setLang (0 French, 10000 English), as the lists
// show it: blanks trimmed at both ends, trailing NULs too (the padding of
// another writer), and every other control byte as "?". Windows-1252.
std::string nomGamme(const tGamme& g, int setLang);

// A mode: the French name starts with "Mode".
bool estMode(const tGamme& g);
// A chord record: the name of the language starts with "Accord" or "Chord".
bool estAccord(const tGamme& g, int setLang);

}  // namespace vt
