// The start page, the tip of the day, the quick-access tree and the help window.
#include <QListWidget>
#include <QTreeWidget>

#include "banc.h"
#include "controls/picture_button.h"
#include "faide.h"
#include "faide_navigateur.h"
#include "fdebut.h"
#include "ftip.h"
#include "help_contents.h"

namespace vt::essai {
namespace {

using Fenetres = BancSilencieux;

TEST_F(Fenetres, TheStartPageOpensTheWindowOfItsKeyAndRemembersItsCheckBox) {
  crée();
  enregistre({fen::FAccords, fen::FTab});
  ASSERT_TRUE(démarre());
  vt->settings().setDémarrage = 1;
  {
    // Escape closes it and changes nothing.
    FDebut page(*vt);
    page.show();
    QTest::keyClick(&page, Qt::Key_Escape);
    EXPECT_EQ(page.result(), QDialog::Rejected);
    EXPECT_EQ(vt->settings().setDémarrage, 1);
    EXPECT_FALSE(vt->isFormLoaded(fen::FTab));
  }
  FDebut page(*vt);
  EXPECT_EQ(page.size(), QSize(417, 435));
  EXPECT_EQ((QStringList{page.btnImage(0)->Caption(), page.btnImage(5)->Caption(),
                         page.btn(0)->AnimatedPicturePrefix()}),
            (QStringList{"Chords", "Tablatures", "accord00"}));
  EXPECT_EQ((std::vector<int>{page.btn(0)->lastFrame(), page.btn(4)->lastFrame(),
                              page.btn(3)->lastFrame()}),
            (std::vector<int>{16, 33, 13}));
  EXPECT_TRUE(page.chkStartup()->isChecked());
  // Only the windows this build has can be chosen; the help always.
  EXPECT_EQ((std::vector<bool>{page.btn(0)->isEnabled(), page.btn(1)->isEnabled(),
                               page.btnImage(1)->isEnabled(), page.btn(7)->isEnabled()}),
            (std::vector<bool>{true, false, false, true}));
  page.show();
  QTest::keyClick(&page, Qt::Key_F4);  // the scales: not in this build
  EXPECT_TRUE(page.isVisible());
  page.chkStartup()->setChecked(false);
  QTest::keyClick(&page, Qt::Key_F3);
  EXPECT_FALSE(page.isVisible());
  EXPECT_EQ(page.result(), QDialog::Accepted);
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccords));
  EXPECT_EQ(vt->settings().setDémarrage, 0);
  // A click on a caption chooses too.
  // Moving over the page takes the highlight off every button.
  FDebut autre(*vt);
  autre.show();
  VTPictureButton* aide = autre.btn(7);
  aide->MouvementSouris(QPoint(10, 10));
  EXPECT_EQ(aide->picMain().cacheKey(), aide->PictureOver().cacheKey());
  QMouseEvent e(QEvent::MouseMove, QPointF(5, 5), autre.mapToGlobal(QPointF(5, 5)), Qt::NoButton,
                Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&autre, &e);
  EXPECT_EQ(aide->picMain().cacheKey(), aide->PictureOff().cacheKey());
  // A click on a caption chooses too.
  QTest::mouseClick(autre.btnImage(5), Qt::LeftButton, {}, QPoint(40, 9));
  EXPECT_TRUE(vt->isFormLoaded(fen::FTab));
}

TEST_F(Fenetres, TipsAreLinesOfTheLanguagesFile) {
  ASSERT_TRUE(démarre());
  FTip tip(*vt);
  // The English file, with a tip shown.
  EXPECT_GE(tip.Tips().size(), 30);
  EXPECT_TRUE(tip.Tips().contains(tip.texteAffiché()));
  QTemporaryDir d;
  QFile f(d.filePath("tips.ini"));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("Same tip.\r\nSame tip.\r\n\r\nAnother one.");
  f.close();
  tip.LoadTips(f.fileName());
  EXPECT_EQ(tip.Tips(), (QStringList{"Same tip.", "Same tip.", "Another one."}));
  // The next tip is never the one shown, when there is another.
  for (int i = 0; i < 20; ++i) {
    const int avant = tip.currentTip();
    tip.NextTip();
    EXPECT_NE(tip.currentTip(), avant);
  }
  // An empty file or none: no tip.
  QFile(d.filePath("empty.ini")).open(QIODevice::WriteOnly);
  for (const char* vide : {"empty.ini", "missing.ini"}) {
    tip.LoadTips(d.filePath(vide));
    tip.NextTip();
    EXPECT_TRUE(tip.texteAffiché().isEmpty()) << vide;
  }
}

TEST_F(Fenetres, FrenchTipsComeFromTheFrenchFileAndTheCheckBoxWritesTheSettingAtOnce) {
  règle("Options/setLang", "0");
  ASSERT_TRUE(démarre());
  vt->settings().setTipsStartup = 1;
  FTip tip(*vt);
  EXPECT_EQ(tip.windowTitle(), "Astuce du jour");
  QFile f(vt->strAppPath() + "tipofday.ini");
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_TRUE(QString::fromUtf8(f.readAll()).contains(tip.texteAffiché()));
  EXPECT_TRUE(tip.chkLoadTipsAtStartup()->isChecked());
  tip.chkLoadTipsAtStartup()->click();
  EXPECT_EQ(vt->settings().setTipsStartup, 0);
  const QString avant = tip.texteAffiché();
  tip.cmdNextTip()->click();
  EXPECT_NE(tip.texteAffiché(), avant);
}

TEST_F(Fenetres, TheContentsFileGivesTheQuickAccessTreeThatOpensPagesAndTheToolsThisBuildHas) {
  QTemporaryDir d;
  QFile f(d.filePath("contents.txt"));
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write(
      "# comment\na\tWelcome\tindex.html\n\nb\tTools\t\nb.a\tChords\ttool:FAccords\nbad line\n");
  f.close();
  QStringList lu;
  for (const SujetAide& s : lisSommaire(f.fileName()))
    lu << s.clé + "|" + s.parent() + "|" + s.cible;
  EXPECT_EQ(lu, (QStringList{"a||index.html", "b||", "b.a|b|tool:FAccords"}));
  crée();
  enregistre({fen::FAccords});
  ASSERT_TRUE(démarre());
  auto* aide = dynamic_cast<FAide*>(vt->montreFenetre(fen::FAide));
  ASSERT_NE(aide, nullptr);
  const auto sujets = lisSommaire(vt->dossierAide() + "contents.txt");
  const auto racines = std::count_if(sujets.begin(), sujets.end(),
                                     [](const SujetAide& s) { return s.parent().isEmpty(); });
  EXPECT_EQ(aide->tvAide()->topLevelItemCount(), racines);
  // "b.a" is the chord dictionary, "b.b" the scales that this build lacks.
  EXPECT_FALSE(aide->active("b.b"));
  EXPECT_TRUE(aide->active("b.a"));
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccords));
  EXPECT_FALSE(aide->active("b"));   // a book only holds topics
  EXPECT_TRUE(aide->active("c.c"));  // a page: the help window opens on it
  auto* navigateur = vt->findChild<FAideNavigateur*>();
  ASSERT_NE(navigateur, nullptr);
  EXPECT_TRUE(navigateur->isVisible());
  EXPECT_TRUE(navigateur->navigateur()->source().toLocalFile().endsWith("/help/en/fretboard.html"));
}

TEST_F(Fenetres, TheHelpWindowSearchesThePagesAndFollowsTheLanguage) {
  ASSERT_TRUE(démarre());
  vt->montreAide("options.html#midi");
  auto* aide = vt->findChild<FAideNavigateur*>();
  ASSERT_NE(aide, nullptr);
  EXPECT_EQ(aide->navigateur()->source().fragment(), "midi");
  const QStringList pages = aide->recherche("fretboard");
  EXPECT_TRUE(pages.contains("fretboard.html"));
  EXPECT_TRUE(aide->recherche("zzqxv nothing").isEmpty());
  EXPECT_EQ(aide->résultats()->count(), 1);  // the "no page" line
  vt->mnuFileLang_Click(0);
  EXPECT_TRUE(aide->navigateur()->source().toLocalFile().endsWith("/help/fr/options.html"));
  EXPECT_EQ(aide->navigateur()->source().fragment(), "midi");
}

}  // namespace
}  // namespace vt::essai
