#include "shell/file_association.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include "formats/string_table.h"
#include "shell/textes.h"

namespace vt {

namespace {

QString xml(const QString& t) {
  return t.toHtmlEscaped();
}

// An argument of Exec: quoted, with the characters that are special inside
// quotes escaped, then the backslashes doubled for the desktop file's string.
QString argumentExec(const QString& chemin) {
  QString q;
  for (const QChar c : chemin) {
    if (c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('$') ||
        c == QLatin1Char('\\'))
      q += QLatin1Char('\\');
    q += c;
  }
  q = QLatin1Char('"') + q + QLatin1Char('"');
  q.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
  q.replace(QLatin1Char('%'), QStringLiteral("%%"));
  return q;
}

// A value of the desktop file on one line.
QString valeur(QString t) {
  t.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
  t.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
  return t;
}

bool écritSiDifférent(const QString& chemin, const QString& texte) {
  const QByteArray octets = texte.toUtf8();
  QFile ancien(chemin);
  if (ancien.open(QIODevice::ReadOnly) && ancien.readAll() == octets) return false;
  ancien.close();
  if (!QDir().mkpath(QFileInfo(chemin).absolutePath())) return false;
  QSaveFile f(chemin);
  if (!f.open(QIODevice::WriteOnly)) return false;
  f.write(octets);
  return f.commit();
}

void lance(const QString& programme, const QString& dossier) {
  const QString chemin = QStandardPaths::findExecutable(programme);
  if (!chemin.isEmpty()) QProcess::startDetached(chemin, {dossier});
}

}  // namespace

QString texteTypeMime() {
  const QString fr = xml(qLoadString(2, kLangFrançais));
  const QString en = xml(qLoadString(2, kLangAnglais));
  return QStringLiteral(
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
             "  <mime-type type=\"%1\">\n"
             "    <comment>%2</comment>\n"
             "    <comment xml:lang=\"fr\">%3</comment>\n"
             "    <glob pattern=\"*.vtb\"/>\n"
             "    <magic priority=\"60\">\n"
             "      <match type=\"string\" offset=\"0\" value=\"VTB\"/>\n"
             "    </magic>\n"
             "  </mime-type>\n"
             "</mime-info>\n")
      .arg(QString::fromUtf8(kTypeMimeVtb), en, fr);
}

QString texteEntréeBureau(const Association& a) {
  QString t;
  t += QStringLiteral("[Desktop Entry]\nType=Application\nName=Vantoro\n");
  t += QStringLiteral("Comment=") + valeur(qLoadString(36, kLangAnglais)) + QLatin1Char('\n');
  t += QStringLiteral("Comment[fr]=") + valeur(qLoadString(36, kLangFrançais)) + QLatin1Char('\n');
  t += QStringLiteral("Exec=") + argumentExec(a.exécutable) + QStringLiteral(" %f\n");
  t += QStringLiteral("Icon=") + valeur(a.strAppPath + QStringLiteral("toolbar/TB_TAB@2x.png")) +
       QLatin1Char('\n');
  t += QStringLiteral("Terminal=false\nCategories=AudioVideo;Audio;Music;\n");
  t += QStringLiteral("MimeType=") + QString::fromUtf8(kTypeMimeVtb) + QStringLiteral(";\n");
  return t;
}

bool enregistreAssociation(const Association& a, bool rafraîchir) {
  if (a.dossierDonnées.isEmpty()) return false;
  const QString racine = a.dossierDonnées + QLatin1Char('/');
  const bool mime =
      écritSiDifférent(racine + QStringLiteral("mime/packages/vantoro.xml"), texteTypeMime());
  const bool bureau = écritSiDifférent(racine + QStringLiteral("applications/vantoro.desktop"),
                                       texteEntréeBureau(a));
  if (rafraîchir) {
    if (mime) lance(QStringLiteral("update-mime-database"), racine + QStringLiteral("mime"));
    if (bureau)
      lance(QStringLiteral("update-desktop-database"), racine + QStringLiteral("applications"));
  }
  return mime || bureau;
}

}  // namespace vt
