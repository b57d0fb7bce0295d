// The chord dictionary's window driven offscreen inside the main window.
#include <QFileInfo>

#include "faccords_vues.h"
#include "outils_banc.h"
#include "tools/faccords.h"

namespace vt::essai {
namespace {

using Cases = std::vector<int>;

// The editor as the dictionary reaches it: what To tab hands it.
class EditeurAccords : public EditeurEssai {
 public:
  using EditeurEssai::EditeurEssai;
  bool placeAccordAuCurseur(const std::string& nom, const std::vector<std::uint8_t>& c) override {
    QString s = QString::fromStdString(nom);
    for (std::size_t i = 1; i < c.size(); ++i)
      s += QLatin1Char(' ') + QString::number(c[i]);
    m_j.push_back(QStringLiteral("FTab chord ") + s);
    return true;
  }
};

class Dictionnaire : public Banc {
 protected:
  void SetUp() override {
    Banc::SetUp();
    silencieux();
  }
  FAccords& ouvre() {
    if (!vt) crée();
    vt->fenetres().enregistrer(fen::FAccords, [](VT& v) { return new FAccords(v); });
    EXPECT_TRUE(démarre());
    vt->resize(1000, 760);
    // The black board: the dots are plain yellow circles.
    vt->settings().setManche = 1;
    vt->load_picManche_picture();
    vt->updateManche();
    fa = dynamic_cast<FAccords*>(vt->montreFenetre(fen::FAccords));
    EXPECT_NE(fa, nullptr);
    sons.clear();
    return *fa;
  }
  void choisit(int tonalité, const QString& type) {
    fa->lstTonalite()->setCurrentRow(tonalité);
    const auto trouvés = fa->lstAccord0()->findItems(type, Qt::MatchExactly);
    ASSERT_EQ(trouvés.size(), 1) << type.toStdString();
    fa->lstAccord0()->setCurrentItem(trouvés[0]);
  }
  const FicheAccord& fiche() const {
    return fa->findChild<DiagrammeFAccords*>(QStringLiteral("picImage"))->fiche();
  }
  // "1" for each (fret, string) with a yellow dot on the black board, "0" for each without.
  std::string points(std::initializer_list<std::pair<int, int>> places) const {
    const manche::Vue v = vt->manche().vue();
    std::string r;
    for (const auto& [c, s] : places) {
      const int x = static_cast<int>(manche::centreCaseX(v, c) / 15);
      const int y = static_cast<int>(manche::centreCordeY(v, s) / 15) - 4;
      r += vt->manche().image().pixelColor(x, y) == QColor(255, 255, 0) ? '1' : '0';
    }
    return r;
  }
  Cases premier() const { return fa->positions().at(0); }
  // The name searched, the window's title and the diagram's title.
  QStringList état() const {
    return {QString::fromStdString(fa->strAccordNom()), fa->windowTitle(), fiche().titre};
  }

  FAccords* fa = nullptr;
};

TEST_F(Dictionnaire, AKeyAndATypeShowTheFirstFingeringEverywhere) {
  ouvre();
  EXPECT_EQ(fa->windowTitle(), "Chord dictionary");
  EXPECT_FALSE(fa->booTrouve());
  EXPECT_EQ(fiche().message, "Pick a key.");
  EXPECT_FALSE(fa->bouton("btnPlay")->PictureOff().isNull());

  choisit(3, "maj");
  EXPECT_EQ(état(), (QStringList{"C", "Chord dictionary - C", "C"}));
  EXPECT_EQ(premier(), (Cases{-1, 3, 2, 0, 1, 0}));
  EXPECT_EQ(vt->mancheContenu(), 0);
  EXPECT_EQ(
      (QStringList{fiche().notes[1], fiche().notes[3], fiche().légende}),
      (QStringList{"C", "G", QStringLiteral("Fingering 1 of %1").arg(fa->positions().size())}));
  const auto* construction = fa->findChild<ConstructionFAccords*>(QStringLiteral("txtConst"));
  EXPECT_EQ(construction->degrés(), (QStringList{"1", "3", "5"}));
  EXPECT_EQ(construction->notes(), (QStringList{"C", "E", "G"}));
  // Without the names, the bare dots: strings 5, 4 and 2 fretted, none on 6 and 3.
  vt->settings().setAccordConst = 0;
  fa->drawAccord(false);
  EXPECT_EQ(points({{3, 5}, {2, 4}, {1, 2}, {3, 6}, {2, 3}}), "11100");

  // Another type searches again; the slider only shows another fingering,
  // its inversion in the caption.
  choisit(3, "7");
  EXPECT_EQ(état(), (QStringList{"Cadd7", "Chord dictionary - Cadd7", "C7"}));
  const int inversion = static_cast<int>(fa->renversements().indexOf("/E"));
  ASSERT_GT(inversion, 0);
  fa->sldPositions()->setValue(inversion);
  EXPECT_FALSE(fa->booNouveau());
  EXPECT_EQ(état(), (QStringList{"Cadd7", "Chord dictionary - Cadd7/E", "C7/E"}));
  // The first fingering's dots are gone from the board, the shown one's are there.
  const auto& montré = fa->positions()[static_cast<std::size_t>(inversion)];
  for (std::size_t s = 0; s < 6; ++s) {
    const int corde = 6 - static_cast<int>(s);
    if (montré[s] > 0) {
      EXPECT_EQ(points({{montré[s], corde}}), "1") << s;
    }
    if (premier()[s] > 0 && premier()[s] != montré[s]) {
      EXPECT_EQ(points({{premier()[s], corde}}), "0") << s;
    }
  }
}

TEST_F(Dictionnaire, CreateModeBuildsTheNameOtherToolsShowAChordALanguageChangeKeepsIt) {
  ouvre();
  choisit(3, "min");
  fa->bouton("optListe")->Click();
  EXPECT_EQ(fa->mode(), 1);
  ASSERT_EQ(fa->lstAccord0()->count(), 6);
  fa->lstAccord0()->setCurrentRow(1);    // "m"
  fa->lstAccord(4)->setCurrentIndex(2);  // "add7"
  EXPECT_EQ(fa->strAccordNom(), "Cmadd7");
  EXPECT_TRUE(fa->booTrouve());
  EXPECT_EQ(fa->construction(), (Cases{3, -1, -1, 6, -1, -1, -1, 10, -1, -1, 1, -1}));
  fa->lstAccord(5)->setCurrentIndex(3);  // "aug9"
  EXPECT_EQ(fa->strAccordNom(), "Cmadd7aug9");
  // "dim" takes no degrees: its lists are disabled and add nothing.
  fa->lstAccord0()->setCurrentRow(4);
  EXPECT_FALSE(fa->lstAccord(4)->isEnabled());
  EXPECT_EQ(fa->strAccordNom(), "Cdim");
  // Back to the standard list: the type chosen there before.
  fa->bouton("optListe")->Click();
  EXPECT_EQ(fa->mode(), 0);
  EXPECT_EQ(fa->strAccordNom(), "Cmin");

  // Other tools show a chord by key and type, in the standard list; a language change keeps it.
  fa->bouton("optListe")->Click();
  EXPECT_TRUE(fa->montreAccord(9, "min7 5b"));
  EXPECT_EQ(fa->mode(), 0);
  EXPECT_EQ(fa->strAccordNom(), "F#ddm");
  EXPECT_FALSE(fa->montreAccord(9, "major"));
  EXPECT_FALSE(fa->montreAccord(12, "maj"));
  EXPECT_FALSE(fa->montreAccord(-1, "maj"));
  EXPECT_EQ(fa->strAccordNom(), "F#ddm");

  choisit(0, "min");
  vt->mnuFileLang_Click(0);
  EXPECT_EQ(fa->windowTitle(), "Dictionnaire d'accords - Amin");
  EXPECT_EQ(fa->lstAccord0()->currentItem()->text(), "min");
  EXPECT_EQ(fa->lstTonalite()->currentRow(), 0);
  vt->settings().setAccordConst = 0;  // the names follow the setting
  fa->drawAccord(false);
  for (const QString& n : fiche().notes)
    EXPECT_TRUE(n.isEmpty());
}

TEST_F(Dictionnaire, PlaySoundsEveryStringAtOnceCopyAndPrintGiveTheDiagramClosingSilences) {
  ouvre();
  fa->btnPlay_Click();  // nothing to play yet
  EXPECT_TRUE(sons.empty());
  choisit(3, "maj");
  QTest::keyClick(fa, Qt::Key_Return);
  EXPECT_EQ(sons, (Journal{"ctl 123 0 1", "on 48", "on 52", "on 55", "on 60", "on 64"}));
  EXPECT_TRUE(fa->tmrFinAccord().isActive());
  sons.clear();
  fa->tmrFinAccord_Timer();
  EXPECT_EQ(sons, (Journal{"ctl 123 0 1"}));
  EXPECT_FALSE(fa->tmrFinAccord().isActive());

  // Copy and print give the diagram with its construction.
  choisit(7, "maj");
  fa->btnCopier_Click();
  const QImage image = QGuiApplication::clipboard()->image();
  ASSERT_EQ(image.size(), QSize(300, 360));
  int jaunes = 0;  // the yellow of the dots
  for (int y = 0; y < image.height(); y += 2)
    for (int x = 0; x < image.width(); x += 2)
      jaunes += image.pixelColor(x, y) == QColor(0xFF, 0xD8, 0x4A) ? 1 : 0;
  EXPECT_GT(jaunes, 50);

  const QString pdf = dir.filePath("accord.pdf");
  int demandes = 0;
  fa->demandeImpression = [&](QPrinter& p) {
    p.setOutputFormat(QPrinter::PdfFormat);
    p.setOutputFileName(pdf);
    return ++demandes == 2;  // the first print dialog is cancelled
  };
  fa->btnImprimer_Click();
  EXPECT_FALSE(QFileInfo::exists(pdf));
  fa->btnImprimer_Click();
  EXPECT_EQ(demandes, 2);
  EXPECT_GT(QFileInfo(pdf).size(), 1000);

  // Closing silences what plays.
  fa->btnPlay_Click();
  sons.clear();
  fa->bouton("btnExit")->Click();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(vt->isFormLoaded(fen::FAccords));
  EXPECT_EQ(sons, (Journal{"ctl 123 0 1"}));
}

TEST_F(Dictionnaire, TheInstrumentRulesTheSearch) {
  crée();
  enregistre({fen::FMetronome});
  ouvre();
  choisit(5, "maj");
  EXPECT_EQ(premier(), (Cases{-1, -1, 0, 2, 3, 2}));
  // Drop D: the low string is D now; the fretboard's redraw searches again.
  vt->guitare().corde[6] = 38;
  vt->drawMancheContenu();
  EXPECT_EQ(premier(), (Cases{0, 0, 0, 2, 3, 2}));
  // Changed while another window is in front: brought forward, it follows.
  vt->montreFenetre(fen::FMetronome);
  vt->guitare().corde[6] = 40;
  vt->montreFenetre(fen::FAccords);
  EXPECT_EQ(premier(), (Cases{-1, -1, 0, 2, 3, 2}));
  vt->guitare().corde[6] = 38;
  // Three strings: nothing, said in the diagram; Play and Copy do nothing.
  vt->guitare().nbrCordes = 3;
  fa->drawAccord(false);
  EXPECT_FALSE(fa->booTrouve());
  EXPECT_EQ(fa->windowTitle(), "Chord dictionary");
  EXPECT_EQ(fiche().message, "No fingering found for this chord on this instrument.");
  QGuiApplication::clipboard()->clear();
  fa->btnPlay_Click();
  fa->btnCopier_Click();
  EXPECT_TRUE(sons.empty());
  EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
  // No reach at all on the standard guitar: E minor on the open strings alone,
  // its one fingering shown: G B E on the three top strings.
  vt->guitare().nbrCordes = 6;
  vt->guitare().corde[6] = 40;
  vt->settings().AccordParametres.MAXSPAN = 0;
  choisit(7, "min");
  ASSERT_EQ(fa->positions().size(), 1u);
  EXPECT_TRUE(fa->booTrouve());
  EXPECT_EQ(fa->windowTitle(), "Chord dictionary - Emin/G");
}

TEST(DiagrammeFAccords, TheNutShowsWhenTheFingeringFitsUnderIt) {
  const std::pair<std::array<int, 7>, int> cas[] = {
      {{-1, -1, 0, 2, 3, 2, -1}, 1},  // D
      {{-1, 3, 5, 5, 5, 3, -1}, 1},   // C, A shape, up to the fifth fret
      {{-1, 3, 5, 5, 6, 3, -1}, 3},   // past the fifth: from the lowest fret
      {{8, 10, 10, 9, 8, 8, -1}, 8},  // C, E shape
      {{0, 0, 0, 0, 0, 0, -1}, 1},
  };
  for (const auto& [cases, première] : cas)
    EXPECT_EQ(premièreRangée(cases, 6), première);
}

TEST_F(Dictionnaire, OptionsOpenOnTheChordPageTheNextSearchTakesThemAndToTabHandsItOn) {
  crée();
  OptionsEssai::enregistre(*vt, journal);
  vt->fenetres().enregistrer(fen::FTab, [this](VT& v) { return new EditeurAccords(v, journal); });
  ouvre();
  choisit(3, "maj");
  const Cases ouvert{-1, 3, 2, 0, 1, 0};
  EXPECT_EQ(premier(), ouvert);
  pendantModale = [this](QDialog&) { vt->settings().AccordParametres.MAXSPAN = 2; };
  fa->btnOptions_Click();
  EXPECT_TRUE(contient(journal, "selectTab accords"));
  EXPECT_EQ(modales, (std::vector<QString>{"FOptions"}));
  EXPECT_EQ(std::count(fa->positions().begin(), fa->positions().end(), ouvert), 0);

  // The dialog's own OK tells the window, which searches again without
  // taking the fretboard from the tool that has it.
  vt->settings().AccordParametres.MAXSPAN = 4;
  vt->setMancheContenu(1);
  fa->optionsAppliquées();
  EXPECT_EQ(premier(), ouvert);
  EXPECT_EQ(vt->mancheContenu(), 1);

  // To tab hands the fingering to the editor; with no editor open the status bar says how.
  fa->btnToTab_Click();
  EXPECT_EQ(vt->panneau({})->text(), "Open a tablature: the chord goes to its cursor.");
  vt->montreFenetre(fen::FTab);
  fa->btnToTab_Click();
  EXPECT_TRUE(contient(journal, "FTab chord C 0 1 0 2 3 255"));
  QString nom;
  Cases cordes;
  ASSERT_TRUE(fa->doigtéAffiché(nom, cordes));
  EXPECT_EQ(std::make_pair(nom, cordes),
            std::make_pair(QString("C"), Cases{0, 0, 1, 0, 2, 3, 255}));
}

}  // namespace
}  // namespace vt::essai
