// The main window's commands: the language at run time, the windows menu and
// the registry, the status bar panels, the toolbar.
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPrinterInfo>
#include <QTimer>
#include <QTreeWidget>

#include "banc.h"
#include "faide_navigateur.h"

namespace vt::essai {
namespace {

class FenetrePrincipale : public BancSilencieux {
 protected:
  // The texts the language changes, from the menu bar to the quick-access tree.
  QStringList textes() const {
    QStringList l{vt->menuBar()->actions().at(0)->text(), vt->menuBar()->actions().at(1)->text(),
                  vt->mnuFen(0)->text(), vt->boutonBarre("accords")->toolTip(),
                  vt->panneau("guitare")->text()};
    if (QWidget* aide = vt->fenetres().fenetre(fen::FAide))
      l << aide->windowTitle() << aide->findChild<QTreeWidget*>("tvAide")->topLevelItem(0)->text(0);
    return l;
  }
  QString textesQt() const {
    QDialogButtonBox boutons(QDialogButtonBox::Yes | QDialogButtonBox::Cancel);
    return boutons.button(QDialogButtonBox::Yes)->text() + "|" +
           boutons.button(QDialogButtonBox::Cancel)->text() + "|" +
           QKeySequence(Qt::Key_Space).toString(QKeySequence::NativeText) + "|" +
           (vt ? vt->panneau("insert")->text() : "");
  }
};

TEST_F(FenetrePrincipale, SwitchingTheLanguageReachesTheFrameAndEveryLoadedWindowInOrder) {
  crée();
  enregistre({fen::FAccords, fen::FGammes, fen::FHarmony, fen::FMetronome});
  ASSERT_TRUE(démarre());
  for (const QString& f : {fen::FGammes, fen::FAccords, fen::FHarmony})
    vt->montreFenetre(f);
  vt->mnuAide_Click(2);  // the quick-access window
  const QStringList anglais = textes();
  EXPECT_EQ(anglais.mid(0, 5), (QStringList{"&File", "&Windows", "&Chords", "Chord dictionary (F3)",
                                            "Guitar, standard tuning"}));
  journal.clear();
  vt->mnuFileLang(0)->trigger();
  EXPECT_EQ(vt->settings().setLang, 0);
  EXPECT_TRUE(textesQt().startsWith("&Oui|Annuler|Espace|"));
  EXPECT_EQ(textes(),
            (QStringList{"&Fichier", "Fe&nêtres", "&Accords", "Dictionnaire d'accords (F3)",
                         "Guitare, accordage standard", "Accès rapide", "Bienvenue dans Vantoro"}));
  EXPECT_TRUE(vt->mnuFileLang(0)->isChecked() && !vt->mnuFileLang(1)->isChecked());
  // The harmonizer first, then the chords and the scales; the closed metronome is left alone.
  EXPECT_EQ(
      finissant(journal, "changeLanguage"),
      (Journal{"FHarmony changeLanguage", "FAccords changeLanguage", "FGammes changeLanguage"}));
  // Clicking the entry already checked does nothing.
  journal.clear();
  vt->mnuFileLang(0)->trigger();
  EXPECT_TRUE(journal.empty());
  EXPECT_TRUE(vt->mnuFileLang(0)->isChecked());
  vt->mnuFileLang(1)->trigger();
  EXPECT_EQ(textes(), anglais);
  EXPECT_EQ(textesQt(), "&Yes|Cancel|Space|EDIT");
  vt.reset();  // the translation goes with the main window
  EXPECT_EQ(textesQt(), "&Yes|Cancel|Space|");
}

// Qt's own texts (dialog buttons, key names) and the entry mode's panel follow
// the language at start too.
TEST_F(FenetrePrincipale, QtsOwnTextsFollowTheLanguageAtStartAndInInsertMode) {
  règle("Options/setLang", "0");
  ASSERT_TRUE(démarre());
  vt->toggleInsert();
  EXPECT_EQ(textesQt(), "&Oui|Annuler|Espace|" + vt->loadString(79));
  vt->mnuFileLang(1)->trigger();
  EXPECT_EQ(textesQt(), "&Yes|Cancel|Space|INS");
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
  const auto actifs = [this] {
    std::vector<bool> l;
    for (int i = 0; i < 7; ++i)
      l.push_back(vt->mnuFen(i)->isEnabled());
    for (const char* b : {"accords", "options", "aide", "manche"})
      l.push_back(vt->boutonBarre(b)->isEnabled());
    l.push_back(vt->mnuFile(4)->isEnabled());
    return l;
  };
  const bool o = true, n = false;
  EXPECT_EQ(actifs(), (std::vector<bool>{n, n, n, n, n, n, n, n, n, o, o, n}));
  EXPECT_EQ(vt->montreFenetre(fen::FAccords), nullptr);
  enregistre({fen::FAccords});
  // Any options dialog will do: the MIDI panel opens it on its page.
  struct Options : QDialog, FenetreOptions {
    explicit Options(Journal& j) : m_j(j) {}
    void selectTab(const QString& clé) override { m_j.push_back("tab " + clé); }
    Journal& m_j;
  };
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT&) { return new Options(journal); },
      RegistreFenetres::Genre::Dialogue);
  EXPECT_EQ(actifs(), (std::vector<bool>{o, n, n, n, n, n, n, o, o, o, o, o}));
  QTest::mouseDClick(vt->panneau("midi"), Qt::LeftButton);
  EXPECT_EQ(journal, (Journal{"tab KeyMidi"}));
}

TEST_F(FenetrePrincipale, AWindowIsCreatedOnceAndBroughtForwardAfterwardsAndTiled) {
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
  const auto devant = [this] { return vt->mdiArea()->currentSubWindow()->widget(); };
  vt->mnuFen_Click(1);
  EXPECT_EQ(devant(), vt->fenetres().fenetre(fen::FGammes));
  vt->mnuFen_Click(0);
  EXPECT_EQ(devant(), vt->fenetres().fenetre(fen::FAccords));

  // One above the other, side by side, in cascade; icons along the bottom.
  const QRect zone = vt->mdiArea()->viewport()->rect();
  const auto f = vt->mdiArea()->subWindowList();
  vt->mnuFen_Click(9);
  EXPECT_EQ(std::make_pair(f[0]->width(), f[1]->y()), std::make_pair(zone.width(), f[0]->height()));
  vt->mnuFen_Click(10);
  EXPECT_EQ(std::make_pair(f[0]->height(), f[1]->x()),
            std::make_pair(zone.height(), f[0]->width()));
  vt->mnuFen_Click(8);
  EXPECT_NE(f[0]->pos(), f[1]->pos());
  f[0]->showMinimized();
  f[1]->showMinimized();
  vt->mnuFen_Click(11);
  EXPECT_EQ(f[0]->geometry().bottom(), zone.bottom());
  EXPECT_EQ(f[1]->geometry().bottom(), zone.bottom());
  EXPECT_NE(f[0]->x(), f[1]->x());

  // Closed, it is unloaded; asked again, it is made anew.
  f[0]->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccords));
  vt->mnuFen_Click(0);
  EXPECT_EQ(créations, 2);
}

TEST_F(FenetrePrincipale, TheStatusBarPanelsThePrinterAndTheQuickAccessWindow) {
  crée();
  enregistre({fen::FAccordeur});
  ASSERT_TRUE(démarre());
  QTest::mouseDClick(vt->panneau("guitare"), Qt::LeftButton);  // brings the tuner
  EXPECT_TRUE(vt->isFormLoaded(fen::FAccordeur));
  EXPECT_TRUE(vt->panneau("position")->text().isEmpty());
  vt->setStatusPosition(12, 72);
  EXPECT_EQ(vt->panneau("position")->text(), "12 : " + QLocale().toString(1.5, 'f', 2));
  QStringList modes{vt->panneau("insert")->text()};
  QTest::mouseDClick(vt->panneau("insert"), Qt::LeftButton);
  modes << vt->panneau("insert")->text();
  EXPECT_TRUE(vt->booInsert());
  vt->toggleInsert();
  modes << vt->panneau("insert")->text();
  EXPECT_EQ(modes, (QStringList{"EDIT", "INS", "EDIT"}));
  vt->setStatusText(78);
  EXPECT_EQ(vt->panneau("")->text(),
            "Click the fretboard to hear a note; drag to play a glissando.");
  vt->setStatusText(0);
  EXPECT_TRUE(vt->panneau("")->text().isEmpty());
  EXPECT_EQ(vt->panneau("midi")->toolTip(), "Electric Guitar (clean)");
  vt->settings().setMIDIinstru = 0;
  vt->setStatusMidi();
  EXPECT_EQ(vt->panneau("midi")->toolTip(), "Acoustic Grand Piano");

  // Printer setup says so when there is no printer.
  vt->MenuGlobalFile(2);
  const bool aucune = QPrinterInfo::availablePrinterNames().isEmpty();
  EXPECT_EQ(informations, aucune ? Journal{"No printer available!"} : Journal{});
  EXPECT_EQ(modales.size(), aucune ? 0U : 1U);

  // The quick-access window remembers whether it is wanted.
  EXPECT_FALSE(vt->isFormLoaded(fen::FAide));
  vt->mnuAide_Click(2);
  EXPECT_EQ(vt->settings().setLoadHelpAccessWndAtStartup, kVrai);
  vt->mdiArea()->currentSubWindow()->close();
  EXPECT_EQ(vt->settings().setLoadHelpAccessWndAtStartup, kFaux);
}

}  // namespace
}  // namespace vt::essai
