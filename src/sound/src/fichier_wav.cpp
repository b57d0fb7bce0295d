#include "fichier_wav.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cerrno>
#include <cstring>
#include <vector>

namespace vt {

namespace {

constexpr std::size_t kEntête = 44;
// RIFF sizes are 32 bits: the data may not pass this.
constexpr std::uint64_t kDonnéesMax = 0xFFFFFFFFull - (kEntête - 8);

void pose16(std::uint8_t* p, std::uint16_t v) {
  p[0] = std::uint8_t(v);
  p[1] = std::uint8_t(v >> 8);
}
void pose32(std::uint8_t* p, std::uint32_t v) {
  for (int i = 0; i < 4; ++i)
    p[i] = std::uint8_t(v >> (8 * i));
}

std::array<std::uint8_t, kEntête> entête(int fréquence, std::uint32_t octetsDonnées) {
  std::array<std::uint8_t, kEntête> h{};
  std::memcpy(&h[0], "RIFF", 4);
  pose32(&h[4], std::uint32_t(kEntête - 8) + octetsDonnées);
  std::memcpy(&h[8], "WAVEfmt ", 8);
  pose32(&h[16], 16);                            // size of the format chunk
  pose16(&h[20], 1);                             // PCM
  pose16(&h[22], 2);                             // channels
  pose32(&h[24], std::uint32_t(fréquence));      // frames per second
  pose32(&h[28], std::uint32_t(fréquence) * 4);  // bytes per second
  pose16(&h[32], 4);                             // bytes per frame
  pose16(&h[34], 16);                            // bits per sample
  std::memcpy(&h[36], "data", 4);
  pose32(&h[40], octetsDonnées);
  return h;
}

bool écritTout(int fd, const void* données, std::size_t n) {
  const auto* p = static_cast<const std::uint8_t*>(données);
  while (n > 0) {
    const ssize_t k = ::write(fd, p, n);
    if (k < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    p += k;
    n -= std::size_t(k);
  }
  return true;
}

}  // namespace

FichierWav::FichierWav(std::string chemin, int fréquence)
    : m_chemin(std::move(chemin)), m_fréquence(fréquence) {
  std::string modèle = m_chemin + ".partiel-XXXXXX";
  m_fd = ::mkstemp(modèle.data());
  if (m_fd < 0) {
    échoue("mkstemp");
    return;
  }
  m_temporaire = modèle;
  ::fchmod(m_fd, 0644);  // mkstemp makes it private to its owner
  const auto h = entête(m_fréquence, 0);
  if (!écritTout(m_fd, h.data(), h.size())) échoue("write");
}

FichierWav::~FichierWav() {
  if (m_fd >= 0) ::close(m_fd);
  if (!m_temporaire.empty()) ::unlink(m_temporaire.c_str());
}

bool FichierWav::échoue(const char* quoi) {
  if (!m_enErreur) m_erreur = std::string(quoi) + ": " + std::strerror(errno);
  m_enErreur = true;
  return false;
}

bool FichierWav::écrit(const std::int16_t* stéréo, std::size_t trames) {
  if (m_fd < 0 || m_enErreur) return false;
  const std::uint64_t octets = std::uint64_t(trames) * 4;
  if (m_octets + octets > kDonnéesMax) {
    errno = EFBIG;
    return échoue("wav");
  }
  bool ok;
  if constexpr (std::endian::native == std::endian::little) {
    ok = écritTout(m_fd, stéréo, std::size_t(octets));
  } else {
    std::vector<std::uint8_t> le(static_cast<std::size_t>(octets));
    for (std::size_t i = 0; i < trames * 2; ++i)
      pose16(&le[2 * i], std::uint16_t(stéréo[i]));
    ok = écritTout(m_fd, le.data(), le.size());
  }
  if (!ok) return échoue("write");
  m_octets += octets;
  return true;
}

bool FichierWav::termine() {
  if (m_fd < 0 || m_enErreur) return false;
  const auto h = entête(m_fréquence, std::uint32_t(m_octets));
  if (::pwrite(m_fd, h.data(), h.size(), 0) != ssize_t(h.size())) return échoue("write");
  if (::fsync(m_fd) != 0) return échoue("fsync");
  const int fd = m_fd;
  m_fd = -1;
  if (::close(fd) != 0) return échoue("close");
  if (::rename(m_temporaire.c_str(), m_chemin.c_str()) != 0) return échoue("rename");
  m_temporaire.clear();
  return true;
}

}  // namespace vt
