// The scale window on the real main window, offscreen: lists, marks on the
// strip, playing, the copy and the print, the options, a damaged file.
#include <QAction>
#include <QPushButton>

#include "fgammes_copier.h"
#include "gammes_banc.h"

namespace vt::essai {
namespace {

class Gammes : public BancGammes {
 protected:
  // Scale row (0-based) and key (1 A ... 12 G#), as the user clicks them.
  FGammes& choisit(int ligne, int tonalité) {
    FGammes& g = gammes();
    g.gam()->setCurrentRow(ligne);
    g.ton()->setCurrentRow(tonalité - 1);
    return g;
  }
  int ligne(const QString& nomEN) {
    const auto trouvés = gammes().gam()->findItems(nomEN, Qt::MatchExactly);
    return trouvés.isEmpty() ? -1 : gammes().gam()->row(trouvés.first());
  }
  std::vector<QString> notesJouées() const {
    std::vector<QString> n;
    for (const QString& s : sons)
      if (s.startsWith("on ") || s.startsWith("off ") || s.startsWith("ctl 123")) n.push_back(s);
    return n;
  }
};

constexpr int kDo = 4;

TEST_F(Gammes, ListsInTheLanguageFollowAChangeOfLanguageAndKeepTheChoice) {
  démarreAvec();
  FGammes& g = gammes();
  EXPECT_EQ(g.gam()->count(), g.fichier().count());
  EXPECT_EQ(g.gam()->item(0)->text(), "Major scale");
  EXPECT_EQ(g.ton()->count(), 12);
  EXPECT_EQ(g.windowTitle(), "Scales") << "nothing chosen yet";
  EXPECT_EQ(vt->mancheContenu(), 0);

  choisit(ligne("Dorian mode (II)"), kDo);
  EXPECT_EQ(g.windowTitle(), "Scales - Dorian mode (II) of C");
  EXPECT_EQ(vt->mancheContenu(), 1);
  vt->mnuFileLang_Click(0);
  EXPECT_EQ(g.gam()->item(0)->text(), "Gamme majeure");
  EXPECT_EQ(g.ton()->item(kDo - 1)->text(), "Do");
  EXPECT_EQ(g.windowTitle(), "Gammes - Mode dorien (II) de Do");
  EXPECT_EQ(g.txtConst()->text(), "Notes de la gamme : 6 7b 1 2 3b 4 5 6 7b 1 2 3b 4 5");

  // The one-note record: the key alone.
  choisit(ligne("Note seule"), 12);
  EXPECT_EQ(g.windowTitle(), "Gammes - Sol #");
}

TEST_F(Gammes, BothWindowsOpenFromTheMenuTheToolbarAndAtStart) {
  règle("Options/setStartWith6", "True");
  démarreAvec();
  EXPECT_TRUE(vt->isFormLoaded(fen::FHarmony)) << "a start-up window";
  EXPECT_FALSE(vt->isFormLoaded(fen::FGammes));
  EXPECT_EQ(vt->mnuFen(1)->shortcut(), QKeySequence(Qt::Key_F4));
  EXPECT_EQ(vt->mnuFen(6)->shortcut(), QKeySequence(Qt::Key_F9));
  vt->boutonBarre("gammes")->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FGammes));
  vt->fenetres().décharge(fen::FHarmony);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_FALSE(vt->isFormLoaded(fen::FHarmony));
  vt->mnuFen(6)->trigger();
  EXPECT_TRUE(vt->isFormLoaded(fen::FHarmony));
}

TEST_F(Gammes, MarksTheWholeStripRootsBlueOthersYellowLabelledBySetting) {
  règle("Gammes/setGAMConst", "0");
  démarreAvec();
  FGammes& g = choisit(0, kDo);  // C major
  // String 1 (E): C on fret 8 and 20, F on 1, nothing on F# at 2.
  EXPECT_EQ(couleurManche(8, 1), kBleu);
  EXPECT_EQ(couleurManche(20, 1), kBleu);
  EXPECT_EQ(couleurManche(1, 1), kJaune);
  EXPECT_EQ(couleurManche(0, 6), kJaune);
  EXPECT_NE(couleurManche(2, 1), kJaune);
  EXPECT_NE(couleurManche(2, 1), kBleu);
  EXPECT_TRUE(g.txtConst()->text().isEmpty()) << "setGAMConst 0: no labels";

  vt->settings().setGAMConst = 1;
  g.updateGamme();
  EXPECT_EQ(g.txtConst()->text(), "Notes of the scale: 9 11 K 2 4 5 7 9 11 K 2 4 5 7");

  // A mode in C: on its own root (2), or in its parent's key (1).
  const int dorien = ligne("Dorian mode (II)");
  choisit(dorien, kDo);
  EXPECT_EQ(couleurManche(8, 1), kBleu);
  EXPECT_EQ(couleurManche(11, 1), kJaune) << "E flat, the Dorian third on C";
  vt->settings().setGAMMode = 1;
  vt->drawMancheContenu();  // as after the options: the scale is read again
  EXPECT_EQ(couleurManche(10, 1), kBleu) << "D, the mode's root in C major";
  EXPECT_EQ(couleurManche(8, 1), kJaune);
}

TEST_F(Gammes, PlaysTheOctaveThenHoldsTheLastNoteThroughTheSilence) {
  règle("Gammes/setGAMTimer", "80");
  démarreAvec();
  FGammes& g = choisit(ligne("Major pentatonic"), kDo);
  sons.clear();
  g.btnPlay_Click();
  EXPECT_TRUE(g.timerGamme().isActive());
  EXPECT_EQ(g.timerGamme().interval(), 80);
  EXPECT_EQ(notesJouées(), (std::vector<QString>{"ctl 123 0 1", "ctl 123 0 1", "on 48"}));
  for (int tick = 0; tick < 5; ++tick)
    g.timerGamme_Timer();
  EXPECT_EQ(g.lecture(), (std::vector<int>{48, 50, 52, 55, 57, 60}));
  EXPECT_EQ(notesJouées().back(), "on 60");
  g.timerGamme_Timer();
  EXPECT_EQ(g.lecturePos(), 220) << "the silence begins";
  while (g.timerGamme().isActive() && g.lecturePos() < 254)
    g.timerGamme_Timer();
  EXPECT_EQ(notesJouées().back(), "on 60") << "the last note rings through the silence";
  EXPECT_TRUE(g.booEnLecture());
  g.timerGamme_Timer();
  EXPECT_FALSE(g.timerGamme().isActive());
  EXPECT_FALSE(g.booEnLecture());
  EXPECT_EQ(notesJouées().back(), "ctl 123 0 1");
  const auto jouées = notesJouées();
  EXPECT_EQ(std::count(jouées.begin(), jouées.end(), "off 48"), 1);

  // Return plays again; a second press while playing starts over.
  sons.clear();
  QTest::keyClick(g.gam(), Qt::Key_Return);
  g.timerGamme_Timer();
  EXPECT_EQ(g.lecturePos(), 2);
  g.btnPlay_Click();
  EXPECT_EQ(g.lecturePos(), 1);
  EXPECT_EQ(notesJouées().back(), "on 48");
  // Closing stops the notes.
  vt->fenetres().décharge(fen::FGammes);
  EXPECT_EQ(sons.back(), "ctl 123 0 1");
}

TEST_F(Gammes, CopiesAndPrintsARangeOfFretsThatCannotCross) {
  démarreAvec();
  FGammes& g = choisit(0, kDo);
  QString titre;
  std::function<void(FGammesCopier&)> réponse;
  g.setExecDialogue([&](QDialog& d) {
    auto& copier = dynamic_cast<FGammesCopier&>(d);
    titre = copier.windowTitle();
    réponse(copier);
  });

  réponse = [](FGammesCopier& c) {
    EXPECT_EQ(c.sldMin()->value(), 0);
    EXPECT_EQ(c.sldMax()->value(), 12);
    c.sldMax()->setValue(7);
    c.sldMin()->setValue(9);  // stops against the last fret
    EXPECT_EQ(c.sldMin()->value(), 7);
    c.sldMin()->setValue(5);
    c.sldMax()->setValue(2);
    EXPECT_EQ(c.sldMax()->value(), 5);
    c.sldMax()->setValue(9);
    c.action()->click();
  };
  QGuiApplication::clipboard()->clear();
  g.btnCopier_Click();
  EXPECT_EQ(titre, "Copy the scale");
  const QImage image = QGuiApplication::clipboard()->image();
  EXPECT_EQ(image.size(), g.tailleImageGamme(5, 9) * 2);
  EXPECT_LT(g.tailleImageGamme(5, 9).width(), g.tailleImageGamme(0, 24).width());
  int bleus = 0, jaunes = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      bleus += image.pixelColor(x, y) == kBleu ? 1 : 0;
      jaunes += image.pixelColor(x, y) == kJaune ? 1 : 0;
    }
  EXPECT_GT(bleus, 0) << "C on frets 5 to 9";
  EXPECT_GT(jaunes, 0);
  EXPECT_EQ(g.caseMin(), 5);
  EXPECT_EQ(g.caseMax(), 9);

  // Print: the range comes back as it was left; Cancel prints nothing.
  const QString pdf = dir.filePath("gamme.pdf");
  int dialogues = 0;
  g.setDialogueImpression([&](QPrinter& p) {
    ++dialogues;
    p.setOutputFormat(QPrinter::PdfFormat);
    p.setOutputFileName(pdf);
    return true;
  });
  réponse = [](FGammesCopier& c) {
    EXPECT_EQ(c.sldMin()->value(), 5);
    EXPECT_EQ(c.sldMax()->value(), 9);
    c.annuler()->click();
  };
  g.btnImprimer_Click();
  EXPECT_EQ(titre, "Print the scale");
  EXPECT_EQ(dialogues, 0);
  réponse = [](FGammesCopier& c) { c.action()->click(); };
  g.btnImprimer_Click();
  EXPECT_EQ(dialogues, 1);
  QFile f(pdf);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_TRUE(f.read(5).startsWith("%PDF"));
}

TEST_F(Gammes, OptionsOpenOnTheScalePageAndTheWindowFollowsThem) {
  crée();
  OptionsEssai::enregistre(*vt, journal);
  démarreAvec();
  FGammes& g = choisit(0, kDo);
  EXPECT_TRUE(g.btnOptions()->isEnabled());
  pendantModale = [this](QDialog&) { vt->settings().setGAMConst = 3; };
  g.btnOptions_Click();
  EXPECT_TRUE(contient(journal, "selectTab KeyGam"));
  EXPECT_EQ(modales, std::vector<QString>{"FOptions"});
  EXPECT_EQ(g.txtConst()->text(), "Notes of the scale: A B C D E F G A B C D E F G");
}

TEST_F(Gammes, ADamagedFileListsWhatItHoldsAndNothingBreaks) {
  // 300 records and a stray byte: names of control bytes, NULs, bytes above 11.
  QByteArray octets;
  for (int i = 0; i < 300; ++i) {
    QByteArray r(92, ' ');
    for (int k = 0; k < 12; ++k)
      r[k] = static_cast<char>(k == 0 ? 0 : (i + k) % 3 == 0 ? 200 : 255);
    r.replace(12, 8, QByteArray("Mode\0\x01\x02z", 8));
    r.replace(52, 6, QByteArray::number(i).leftJustified(6, '\0'));
    octets += r;
  }
  octets += '\x7F';
  démarreAvec(false, dossierAvecGammes(octets));
  FGammes& g = gammes();
  EXPECT_EQ(g.gam()->count(), 255) << "the list counts in one byte";
  EXPECT_EQ(g.gam()->item(0)->text(), "0");
  choisit(254, 12);
  EXPECT_EQ(g.windowTitle(), "Scales - 254 of G#");
  g.btnPlay_Click();
  EXPECT_FALSE(g.lecture().empty());
  vt->mnuFileLang_Click(0);
  EXPECT_EQ(g.gam()->item(0)->text(), "Mode???z");
  EXPECT_FALSE(g.montreGamme(256, 1));
  EXPECT_FALSE(g.montreGamme(1, 13));
  EXPECT_TRUE(g.montreGamme(2, 1));
  EXPECT_EQ(g.gamme(), g.fichier().gamme(1)) << "the first record of that name";
}

}  // namespace
}  // namespace vt::essai
