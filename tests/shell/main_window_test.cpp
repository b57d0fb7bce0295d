// The main window's commands: the language at run time, the windows menu and
// the registry, the status bar panels, the toolbar.
#include <QAction>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

#include "banc.h"
#include "faide_navigateur.h"
#include "shell/manche.h"

namespace vt::essai {

namespace {

class FenetrePrincipale : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    silencieux();
  }
  QString menu(int i) const { return vt->menuBar()->actions().at(i)->text(); }
};

TEST_F(FenetrePrincipale, SwitchingTheLanguageReachesTheFrameAndEveryLoadedWindowInOrder) {
  crée();
  enregistre({fen::FAccords, fen::FGammes, fen::FHarmony, fen::FMetronome});
  ASSERT_TRUE(démarre());
  EXPECT_EQ(menu(0), "&File");
  EXPECT_EQ(vt->panneau("guitare")->text(), "Guitar, standard tuning");
  vt->montreFenetre(fen::FGammes);
  vt->montreFenetre(fen::FAccords);
  vt->montreFenetre(fen::FHarmony);
  vt->mnuAide_Click(2);  // the quick-access window
  journal.clear();

  vt->mnuFileLang(0)->trigger();
  EXPECT_EQ(vt->settings().setLang, 0);
  EXPECT_EQ(menu(0), "&Fichier");
  EXPECT_EQ(menu(1), "Fe&n\u00eatres");
  EXPECT_EQ(vt->mnuFen(0)->text(), "&Accords");
  EXPECT_EQ(vt->boutonBarre("accords")->toolTip(), "Dictionnaire d'accords (F3)");
  EXPECT_EQ(vt->boutonBarre("options")->toolTip(), "Options");
  EXPECT_EQ(vt->panneau("guitare")->text(), "Guitare, accordage standard");
  EXPECT_TRUE(vt->mnuFileLang(0)->isChecked());
  EXPECT_FALSE(vt->mnuFileLang(1)->isChecked());
  // The harmonizer first, then the chords and the scales; the closed metronome is left alone.
  Journal changements;
  for (const QString& l : journal)
    if (l.endsWith("changeLanguage")) changements.push_back(l);
  EXPECT_EQ(changements, (Journal{"FHarmony changeLanguage", "FAccords changeLanguage",
                                  "FGammes changeLanguage"}));
  auto* aide = vt->fenetres().fenetre(fen::FAide);
  ASSERT_NE(aide, nullptr);
  EXPECT_EQ(aide->windowTitle(), QString::fromUtf8("Acc\u00e8s rapide"));
  auto* arbre = aide->findChild<QTreeWidget*>("tvAide");
  EXPECT_EQ(arbre->topLevelItem(0)->text(0), "Bienvenue dans Vantoro");

  // Clicking the entry already checked does nothing.
  journal.clear();
  vt->mnuFileLang(0)->trigger();
  EXPECT_TRUE(journal.empty());
  EXPECT_EQ(menu(0), "&Fichier");
  EXPECT_TRUE(vt->mnuFileLang(0)->isChecked());

  vt->mnuFileLang(1)->trigger();
  EXPECT_EQ(menu(0), "&File");
  EXPECT_EQ(arbre->topLevelItem(0)->text(0), "Welcome to Vantoro");
}

// Qt's own texts (dialog buttons, key names) follow the language, at start
// and when it changes; so does the entry mode's panel.
TEST_F(FenetrePrincipale, QtsOwnTextsFollowTheLanguage) {
  const auto oui = [] {
    QDialogButtonBox boutons(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
    return boutons.button(QDialogButtonBox::Yes)->text() + "|" +
           boutons.button(QDialogButtonBox::Cancel)->text();
  };
  const auto touche = [] { return QKeySequence(Qt::Key_Space).toString(QKeySequence::NativeText); };
  règle("Options/setLang", "0");
  ASSERT_TRUE(démarre());
  EXPECT_EQ(oui(), "&Oui|Annuler");
  EXPECT_EQ(touche(), "Espace");
  vt->toggleInsert();
  EXPECT_EQ(vt->panneau("insert")->text(), vt->loadString(79));
  vt->mnuFileLang(1)->trigger();
  EXPECT_EQ(oui(), "&Yes|Cancel");
  EXPECT_EQ(touche(), "Space");
  EXPECT_EQ(vt->panneau("insert")->text(), "INS");
  vt->mnuFileLang(0)->trigger();
  EXPECT_EQ(oui(), "&Oui|Annuler");
  // The translation goes with the main window.
  vt.reset();
  EXPECT_EQ(oui(), "&Yes|Cancel");
}

// The help asked for from a modal dialog opens beside it and takes the keys
// while the dialog waits; it goes back to the main window afterwards.
TEST_F(FenetrePrincipale, HelpFromAModalDialogCanBeUsedBesideIt) {
  ASSERT_TRUE(démarre());
  QDialog dialogue(vt.get());
  dialogue.setGeometry(40, 40, 300, 200);
  QString tapé;
  bool aCôté = false;
  QTimer::singleShot(0, &dialogue, [&] {
    vt->montreAide(QStringLiteral("index.html"), true);
    auto* aide = vt->findChild<FAideNavigateur*>();
    if (aide == nullptr) return dialogue.reject();
    aCôté = !aide->geometry().intersects(dialogue.geometry());
    // Keys as the system delivers them: a window blocked by the dialog drops them.
    for (const char c : {'c', 'a', 'p', 'o'})
      QTest::keyClick(aide->windowHandle(), c);
    tapé = aide->findChild<QLineEdit*>()->text();
    dialogue.reject();
  });
  dialogue.exec();
  EXPECT_EQ(tapé, "capo");
  EXPECT_TRUE(aCôté);
  auto* aide = vt->findChild<FAideNavigateur*>();
  ASSERT_NE(aide, nullptr);
  EXPECT_EQ(aide->parentWidget(), vt.get()) << "back with the main window";
  EXPECT_TRUE(aide->isVisible());
}

TEST_F(FenetrePrincipale, EntriesOfWindowsThisBuildLacksAreDisabledUntilRegistered) {
  ASSERT_TRUE(démarre());
  for (int i = 0; i < 7; ++i)
    EXPECT_FALSE(vt->mnuFen(i)->isEnabled()) << i;
  EXPECT_FALSE(vt->boutonBarre("accords")->isEnabled());
  EXPECT_FALSE(vt->boutonBarre("options")->isEnabled());
  EXPECT_FALSE(vt->mnuFile(4)->isEnabled());
  EXPECT_TRUE(vt->boutonBarre("aide")->isEnabled());
  EXPECT_TRUE(vt->boutonBarre("manche")->isEnabled());
  EXPECT_EQ(vt->montreFenetre(fen::FAccords), nullptr);
  enregistre({fen::FAccords});
  EXPECT_TRUE(vt->mnuFen(0)->isEnabled());
  EXPECT_TRUE(vt->boutonBarre("accords")->isEnabled());
  EXPECT_FALSE(vt->mnuFen(1)->isEnabled());
  // Any options dialog will do: the MIDI panel opens it on its page.
  struct Options : QDialog, FenetreOptions {
    explicit Options(Journal& j) : m_j(j) {}
    void selectTab(const QString& clé) override { m_j.push_back("tab " + clé); }
    Journal& m_j;
  };
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT&) { return new Options(journal); },
      RegistreFenetres::Genre::Dialogue);
  EXPECT_TRUE(vt->mnuFile(4)->isEnabled());
  QTest::mouseDClick(vt->panneau("midi"), Qt::LeftButton);
  EXPECT_EQ(journal, (Journal{"tab KeyMidi"}));
}

TEST_F(FenetrePrincipale, AWindowIsCreatedOnceAndBroughtForwardAfterwards) {
  crée();
  enregistre({fen::FAccords, fen::FGammes});
  ASSERT_TRUE(démarre());
  int créations = 0;
  vt->fenetres().enregistrer(fen::FAccords, [&](VT& v) {
    ++créations;
    return new FenetreEssai(v, fen::FAccords, journal);
  });
  vt->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(vt.get()));
  QTest::keyClick(vt.get(), Qt::Key_F3);
  vt->mnuFen(0)->trigger();
  vt->boutonBarre("accords")->trigger();
  EXPECT_EQ(créations, 1);
  EXPECT_EQ(vt->mdiArea()->subWindowList().size(), 1);
  vt->mnuFen_Click(1);
  EXPECT_EQ(vt->mdiArea()->currentSubWindow()->widget(), vt->fenetres().fenetre(fen::FGammes));
  vt->mnuFen_Click(0);
  EXPECT_EQ(vt->mdiArea()->currentSubWindow()->widget(), vt->fenetres().fenetre(fen::FAccords));
  // Closed, it is unloaded; asked again, it is made anew.
  vt->mdiArea()->currentSubWindow()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccords));
  vt->mnuFen_Click(0);
  EXPECT_EQ(créations, 2);
}

TEST_F(FenetrePrincipale, TilingPutsTheWindowsOneAboveTheOtherOrSideBySide) {
  crée();
  enregistre({fen::FAccords, fen::FGammes});
  ASSERT_TRUE(démarre());
  vt->montreFenetre(fen::FAccords);
  vt->montreFenetre(fen::FGammes);
  const QRect zone = vt->mdiArea()->viewport()->rect();
  vt->mnuFen_Click(9);
  const auto fenêtres = vt->mdiArea()->subWindowList();
  ASSERT_EQ(fenêtres.size(), 2);
  EXPECT_EQ(fenêtres[0]->width(), zone.width());
  EXPECT_EQ(fenêtres[1]->y(), fenêtres[0]->height());
  vt->mnuFen_Click(10);
  EXPECT_EQ(fenêtres[0]->height(), zone.height());
  EXPECT_EQ(fenêtres[1]->x(), fenêtres[0]->width());
  vt->mnuFen_Click(8);  // cascade: each a step lower than the one before
  EXPECT_NE(fenêtres[0]->pos(), fenêtres[1]->pos());
  fenêtres[0]->showMinimized();
  fenêtres[1]->showMinimized();
  vt->mnuFen_Click(11);
  EXPECT_EQ(fenêtres[0]->geometry().bottom(), zone.bottom());
  EXPECT_EQ(fenêtres[1]->geometry().bottom(), zone.bottom());
  EXPECT_NE(fenêtres[0]->x(), fenêtres[1]->x());
}

TEST_F(FenetrePrincipale, TheStatusBarPanels) {
  crée();
  enregistre({fen::FAccordeur});
  ASSERT_TRUE(démarre());
  QTest::mouseDClick(vt->panneau("guitare"), Qt::LeftButton);  // brings the tuner
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccordeur));
  EXPECT_TRUE(vt->panneau("position")->text().isEmpty());
  vt->setStatusPosition(12, 72);
  EXPECT_EQ(vt->panneau("position")->text(), "12 : " + QLocale().toString(1.5, 'f', 2));
  EXPECT_EQ(vt->panneau("insert")->text(), "EDIT");
  QTest::mouseDClick(vt->panneau("insert"), Qt::LeftButton);
  EXPECT_EQ(vt->panneau("insert")->text(), "INS");
  EXPECT_TRUE(vt->booInsert());
  vt->toggleInsert();
  EXPECT_EQ(vt->panneau("insert")->text(), "EDIT");
  vt->setStatusText(78);
  EXPECT_EQ(vt->panneau("")->text(),
            "Click the fretboard to hear a note; drag to play a glissando.");
  vt->setStatusText(0);
  EXPECT_TRUE(vt->panneau("")->text().isEmpty());
  EXPECT_EQ(vt->panneau("midi")->toolTip(), "Electric Guitar (clean)");
  vt->settings().setMIDIinstru = 0;
  vt->setStatusMidi();
  EXPECT_EQ(vt->panneau("midi")->toolTip(), "Acoustic Grand Piano");
}

TEST_F(FenetrePrincipale, PrinterSetupSaysSoWhenThereIsNoPrinter) {
  ASSERT_TRUE(démarre());
  vt->MenuGlobalFile(2);
  if (QPrinterInfo::availablePrinterNames().isEmpty()) {
    EXPECT_EQ(informations, (Journal{"No printer available!"}));
    EXPECT_TRUE(modales.empty());
  } else {
    EXPECT_TRUE(informations.empty());
    EXPECT_EQ(modales.size(), 1u);
  }
}

TEST_F(FenetrePrincipale, TheQuickAccessWindowRemembersWhetherItIsWanted) {
  ASSERT_TRUE(démarre());
  EXPECT_FALSE(vt->isFormLoaded(fen::FAide));
  vt->mnuAide_Click(2);
  EXPECT_TRUE(vt->isFormLoaded(fen::FAide));
  EXPECT_EQ(vt->settings().setLoadHelpAccessWndAtStartup, kVrai);
  vt->mdiArea()->currentSubWindow()->close();
  EXPECT_EQ(vt->settings().setLoadHelpAccessWndAtStartup, kFaux);
}

}  // namespace
}  // namespace vt::essai
