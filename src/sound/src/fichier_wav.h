// A WAV file (PCM, 16 bits, stereo) written in pieces: the samples go to a
// temporary file beside the final one, which is renamed into place only when
// everything is written. Whatever fails on the way, no partial file is left
// and an earlier file of that name stays as it was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vt {

class FichierWav {
 public:
  FichierWav(std::string chemin, int fréquence);
  ~FichierWav();  // removes the temporary file unless `termine` succeeded
  FichierWav(const FichierWav&) = delete;
  FichierWav& operator=(const FichierWav&) = delete;

  // False when the temporary file cannot be made (folder missing, read-only).
  bool ouvert() const { return m_fd >= 0; }
  bool écrit(const std::int16_t* stéréo, std::size_t trames);
  // Fills in the header, closes and renames; false on any failure.
  bool termine();
  // The system's words for the first failure.
  const std::string& erreur() const { return m_erreur; }

 private:
  bool échoue(const char* quoi);

  std::string m_chemin;
  std::string m_temporaire;
  int m_fréquence;
  int m_fd = -1;
  std::uint64_t m_octets = 0;
  bool m_enErreur = false;
  std::string m_erreur;
};

}  // namespace vt
