// The ".vtb" association: a shared-mime-info type and a desktop entry, written
// into the user's data folder only when they change.
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include "shell/file_association.h"

namespace vt {
namespace {

QString lis(const QString& chemin) {
  QFile f(chemin);
  return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

TEST(Association, WritesTheTypeAndTheEntryOnceThenLeavesThemAloneAndNeedsADataFolder) {
  QTemporaryDir dir;
  const Association a{dir.path(), "/opt/my tabs/vantoro", "/opt/my tabs/"};
  EXPECT_TRUE(enregistreAssociation(a, false));
  const QString mime = dir.path() + "/mime/packages/vantoro.xml";
  const QString bureau = dir.path() + "/applications/vantoro.desktop";
  const QString texteMime = lis(mime);
  EXPECT_TRUE(texteMime.contains("<glob pattern=\"*.vtb\"/>"));
  EXPECT_TRUE(texteMime.contains("value=\"VTB\""));
  EXPECT_TRUE(texteMime.contains("type=\"application/x-vantoro-tablature\""));
  const QString texteBureau = lis(bureau);
  EXPECT_TRUE(texteBureau.contains("Exec=\"/opt/my tabs/vantoro\" %f\n"));
  EXPECT_TRUE(texteBureau.contains("MimeType=application/x-vantoro-tablature;"));
  EXPECT_TRUE(texteBureau.contains("Icon=/opt/my tabs/toolbar/TB_TAB@2x.png"));

  // A second start rewrites nothing.
  const QDateTime avant = QFileInfo(bureau).lastModified();
  QThread::msleep(20);
  EXPECT_FALSE(enregistreAssociation(a, false));
  EXPECT_EQ(QFileInfo(bureau).lastModified(), avant);

  // A program that moved is written again.
  const Association ailleurs{dir.path(), "/usr/bin/vantoro", "/usr/share/vantoro/"};
  EXPECT_TRUE(enregistreAssociation(ailleurs, false));
  EXPECT_TRUE(lis(bureau).contains("Exec=\"/usr/bin/vantoro\" %f"));
  // Without a data folder nothing is written.
  EXPECT_FALSE(enregistreAssociation({"", "/usr/bin/vantoro", "/usr/share/vantoro/"}, false));
}

TEST(Association, SpecialCharactersOfThePathAreEscapedForExec) {
  const Association a{"", "/home/me/$x \"y\"/100%/vantoro", "/home/me/"};
  EXPECT_TRUE(
      texteEntréeBureau(a).contains("Exec=\"/home/me/\\\\$x \\\\\"y\\\\\"/100%%/vantoro\" %f"));
}

}  // namespace
}  // namespace vt
