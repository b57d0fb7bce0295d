// Audio discs: the optical drives of the machine, and how many tracks the
// disc in one of them has. The tracks play through the media backend as
// "cdda://" addresses, where the backend has a source for them.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

namespace vt {

// "/dev/sr0", "/dev/sr1"... that exist.
QStringList lecteursDisque();
// The tracks of the disc in `périphérique`; -1 when there is no disc, or no
// audio disc, or the drive cannot be read.
int pistesDuDisque(const QString& périphérique);
// Where the backend finds track `piste` (from 1) of the disc in `périphérique`.
QUrl adressePiste(const QString& périphérique, int piste);

}  // namespace vt
