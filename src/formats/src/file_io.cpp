#include "formats/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <random>
#include <system_error>

namespace vt {

namespace {

std::string erreurSystème(const char* quoi) {
  return std::string(quoi) + ": " + std::strerror(errno);
}

// A name no other writer uses, hidden, beside the target.
std::filesystem::path nomTemporaire(const std::filesystem::path& cible) {
  static std::mt19937_64 alea{
      std::random_device{}() ^
      static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count())};
  constexpr char kChiffres[] = "0123456789abcdefghijklmnopqrstuvwxyz";
  std::string suffixe;
  for (int i = 0; i < 8; ++i)
    suffixe += kChiffres[alea() % 36];
  return cible.parent_path() / ("." + cible.filename().string() + "." + suffixe + ".tmp");
}

SaveStepHook g_étape = nullptr;

void étape(SaveStep s) {
  if (g_étape) g_étape(s);
}

bool écrireBloc(int fd, std::span<const std::uint8_t> octets) {
  std::size_t fait = 0;
  while (fait < octets.size()) {
    const ssize_t n = ::write(fd, octets.data() + fait, octets.size() - fait);
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    fait += static_cast<std::size_t>(n);
  }
  return true;
}

// In two halves, so that a save cut short in the middle can be shown whole.
bool toutÉcrire(int fd, std::span<const std::uint8_t> octets) {
  const std::size_t moitié = octets.size() / 2;
  if (!écrireBloc(fd, octets.first(moitié))) return false;
  étape(SaveStep::HalfWritten);
  return écrireBloc(fd, octets.subspan(moitié));
}

}  // namespace

void setSaveStepHook(SaveStepHook hook) { g_étape = hook; }

FileRead readWholeFile(const std::filesystem::path& fichier) {
  FileRead r;
  const int fd = ::open(fichier.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    r.message = errno == ENOENT ? msg::kFichierIntrouvable : msg::kLectureImpossible;
    r.détail = erreurSystème(fichier.c_str());
    return r;
  }
  struct stat st {};
  if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
    r.message = msg::kLectureImpossible;
    r.détail =
        S_ISDIR(st.st_mode) ? fichier.string() + ": is a folder" : erreurSystème(fichier.c_str());
    ::close(fd);
    return r;
  }
  r.octets.resize(static_cast<std::size_t>(st.st_size));
  std::size_t lu = 0;
  while (true) {
    if (lu == r.octets.size()) r.octets.resize(lu + 65536);  // the file grew meanwhile
    const ssize_t n = ::read(fd, r.octets.data() + lu, r.octets.size() - lu);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      r.message = msg::kLectureImpossible;
      r.détail = erreurSystème(fichier.c_str());
      r.octets.clear();
      break;
    }
    if (n == 0) break;
    lu += static_cast<std::size_t>(n);
  }
  if (r.ok()) r.octets.resize(lu);
  ::close(fd);
  return r;
}

std::string writeFileAtomically(const std::filesystem::path& fichier,
                                std::span<const std::uint8_t> octets) {
  std::error_code ec;
  std::filesystem::path cible = fichier;
  // Saving through a link replaces what the link points to, not the link.
  if (std::filesystem::is_symlink(cible, ec)) {
    const auto vers = std::filesystem::canonical(cible, ec);
    if (!ec) cible = vers;
  }
  if (cible.filename().empty()) return fichier.string() + ": not a file name";
  if (cible.parent_path().empty()) cible = std::filesystem::path(".") / cible;

  struct stat ancien {};
  const bool existe = ::stat(cible.c_str(), &ancien) == 0;
  if (existe && S_ISDIR(ancien.st_mode)) return cible.string() + ": is a folder";

  std::filesystem::path temp;
  int fd = -1;
  for (int essai = 0; essai < 16 && fd < 0; ++essai) {
    temp = nomTemporaire(cible);
    fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0 && errno != EEXIST) return erreurSystème(cible.c_str());
  }
  if (fd < 0) return erreurSystème(cible.c_str());
  étape(SaveStep::Opened);

  std::string erreur;
  if (!toutÉcrire(fd, octets)) erreur = erreurSystème("write");
  if (erreur.empty()) étape(SaveStep::Written);
  if (erreur.empty() && existe && ::fchmod(fd, ancien.st_mode & 07777) != 0)
    erreur = erreurSystème("chmod");
  if (erreur.empty() && ::fsync(fd) != 0) erreur = erreurSystème("fsync");
  if (erreur.empty()) étape(SaveStep::Flushed);
  if (::close(fd) != 0 && erreur.empty()) erreur = erreurSystème("close");
  if (erreur.empty()) étape(SaveStep::Closed);
  if (erreur.empty() && ::rename(temp.c_str(), cible.c_str()) != 0)
    erreur = erreurSystème("rename");
  if (!erreur.empty()) {
    ::unlink(temp.c_str());
    return cible.string() + ": " + erreur;
  }
  étape(SaveStep::Renamed);
  // The rename itself reaches the disk with the folder; best effort.
  const int dir = ::open(cible.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
  return {};
}

}  // namespace vt
