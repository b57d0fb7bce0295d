#include "disque_audio.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

namespace vt {

QStringList lecteursDisque() {
  QStringList r;
  const QDir dev(QStringLiteral("/dev"));
  for (const QString& nom : dev.entryList({QStringLiteral("sr*")}, QDir::System, QDir::Name))
    r << dev.filePath(nom);
  return r;
}

int pistesDuDisque(const QString& périphérique) {
  const int fd = ::open(QFile::encodeName(périphérique).constData(), O_RDONLY | O_NONBLOCK);
  if (fd < 0) return -1;
  int n = -1;
  if (::ioctl(fd, CDROM_DRIVE_STATUS, CDSL_CURRENT) == CDS_DISC_OK) {
    cdrom_tochdr toc{};
    if (::ioctl(fd, CDROMREADTOCHDR, &toc) == 0 && toc.cdth_trk1 >= toc.cdth_trk0)
      n = toc.cdth_trk1 - toc.cdth_trk0 + 1;
  }
  ::close(fd);
  return n;
}

QUrl adressePiste(const QString& périphérique, int piste) {
  return QUrl(QStringLiteral("cdda://%1#%2").arg(piste).arg(périphérique));
}

}  // namespace vt
