// FTabAccord: the chord diagram fingered, reused, written or removed; fTabDrums: the drum picker.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <set>

#include "dialogs/batterie.h"
#include "dialogs/diagramme_accord.h"
#include "dialogs/ftab_accord.h"
#include "dialogs/ftab_drums.h"
#include "dialogs/pic_accord.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

OneBased<byt> frettes(std::initializer_list<int> cases) {
  OneBased<byt> f;
  for (int c : cases)
    f.push_back(static_cast<byt>(c));
  return f;
}

// A track with C twice and G once, strings 1 to 6 as the document counts them.
CVantoroTablature pieceAvecAccords() {
  CVantoroTablature doc = document(1, 3);
  const auto place = [&doc](int m, int x, const char* nom, OneBased<byt> f) {
    doc.setMesureAccord(1, m, doc.addandplaceMesureAccord(1, m, x), nom, f);
  };
  place(1, 0, "C", frettes({0, 1, 0, 2, 3, 255}));
  place(2, 0, "C", frettes({0, 1, 0, 2, 3, 255}));
  place(2, 96, "G", frettes({3, 0, 0, 0, 2, 3}));
  place(3, 0, "Bm7", frettes({7, 7, 7, 9, 9, 7}));
  return doc;
}

void clique(FTabAccord& d, int corde, int rang) {
  QTest::mouseClick(d.picAccord(), Qt::LeftButton, {}, d.picAccord()->point(corde, rang));
}

TEST(Accord, ClicksFingerTheDiagramAndOkWritesItAtTheCursorUnderANameWindows1252Holds) {
  CVantoroTablature doc = document(1, 2);
  FTabAccord d(kAnglais, doc, 1, 2, 96);
  d.resize(d.sizeHint());
  d.show();
  // No chord at the cursor: an empty diagram, nothing to delete.
  EXPECT_EQ(d.diagramme(), Diagramme::vide(6));
  EXPECT_FALSE(enfant<QPushButton>(&d, "btnDelete")->isEnabled());
  clique(d, 6, 0);  // not played -> open
  clique(d, 5, 0);
  clique(d, 5, 0);  // open -> not played
  clique(d, 5, 3);  // third fret
  clique(d, 4, 2);
  clique(d, 4, 2);  // the same fret again lifts the finger
  clique(d, 3, 0);
  clique(d, 2, 1);
  // From the fifth fret on, a click on the first row is fret 5.
  enfant<QSpinBox>(&d, "udPos")->setValue(5);
  clique(d, 1, 1);
  const int attendues[] = {0, 5, 1, 0, 0, 3, 0};
  for (int c = 1; c <= 6; ++c)
    EXPECT_EQ(d.diagramme().cases[static_cast<std::size_t>(c)], attendues[c]) << c;
  auto* nom = enfant<QLineEdit>(&d, "txtNom");
  nom->setText(QString::fromUtf8("C\u266D7"));
  ok(d);
  EXPECT_NE(d.result(), QDialog::Accepted);
  EXPECT_TRUE(enfant<QLabel>(&d, "lblErreur")->text().contains(QString::fromUtf8("\u266D")));
  EXPECT_EQ(doc.getMesureAccordLast(1, 2), 0);
  nom->clear();
  QTest::keyClicks(nom, QString::fromUtf8("C6/9 \u00B0"));
  // The new diagram can join the list.
  enfant<QPushButton>(&d, "btnAdd")->click();
  enfant<QPushButton>(&d, "btnAdd")->click();
  EXPECT_EQ(d.liste().size(), 1u);
  ok(d);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.modifi, kVrai);
  const int n = doc.searchMesureAccord(1, 2, 96);
  ASSERT_NE(n, 0);
  EXPECT_EQ(doc.getMesureAccordNom(1, 2, n), "C6/9 \xB0");
  for (int c = 1; c <= 6; ++c)
    EXPECT_EQ(doc.getMesureAccordCorde(1, 2, n, c), attendues[c]) << c;
}

TEST(Accord, TheListHoldsEachDiagramOnceDeleteRemovesTheChordAndUndoBringsItBack) {
  CVantoroTablature doc = pieceAvecAccords();
  doc.setCurseurPiste(1);
  const CVantoroTablature avant = doc;
  {
    FTabAccord d(kAnglais, doc, 1, 2, 96);
    EXPECT_EQ(d.diagramme().nom, "G");
    EXPECT_EQ(enfant<QSpinBox>(&d, "udPos")->value(), 1);
    // The list holds each diagram of the track once; an entry chosen is loaded
    // from its first fret; taking one off the list touches no bar.
    ASSERT_EQ(enfant<QListWidget>(&d, "lstChord")->count(), 3);
    enfant<QListWidget>(&d, "lstChord")->setCurrentRow(2);
    EXPECT_EQ(
        std::pair(enfant<QSpinBox>(&d, "udPos")->value(), enfant<QLineEdit>(&d, "txtNom")->text()),
        std::pair(7, QString("Bm7")));
    enfant<QListWidget>(&d, "lstChord")->setCurrentRow(0);
    enfant<QPushButton>(&d, "btnSupprimer")->click();
    EXPECT_EQ(d.liste().size(), 2u);
    annuler(d);
    EXPECT_FALSE(d.modifie());
  }
  EXPECT_TRUE(doc == avant);
  {
    FTabAccord d(kAnglais, doc, 1, 2, 96);
    ok(d);  // unchanged: nothing written
    EXPECT_FALSE(d.modifie());
    EXPECT_TRUE(doc == avant);
  }
  FTabAccord d(kAnglais, doc, 1, 2, 96);
  enfant<QPushButton>(&d, "btnDelete")->click();
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(d.result(), QDialog::Accepted);
  EXPECT_EQ(doc.getMesureAccordLast(1, 2), 1);
  EXPECT_EQ(doc.searchMesureAccord(1, 2, 96), 0);
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
}

TEST(Accord, TheDictionarysFingeringBecomesTheWorkingDiagram) {
  CVantoroTablature doc = document(1, 1);
  // Without a dictionary, or one that shows nothing, the button waits.
  FTabAccord sans(kAnglais, doc, 1, 1, 0);
  EXPECT_FALSE(enfant<QPushButton>(&sans, "btnDictionnaire")->isEnabled());
  FTabAccord vide(kAnglais, doc, 1, 1, 0, nullptr, [](Diagramme&) { return false; });
  EXPECT_FALSE(enfant<QPushButton>(&vide, "btnDictionnaire")->isEnabled());

  // A seven-string fingering keeps the six strings of the track.
  const auto dictionnaire = [](Diagramme& d) {
    d.nom = "Dadd7";
    d.nbrCordes = 7;
    d.cases = {0, 2, 1, 2, 0, 255, 255, 255};
    return true;
  };
  FTabAccord d(kAnglais, doc, 1, 1, 0, nullptr, dictionnaire);
  auto* bouton = enfant<QPushButton>(&d, "btnDictionnaire");
  ASSERT_TRUE(bouton->isEnabled());
  bouton->click();
  EXPECT_EQ(d.diagramme().nom, "Dadd7");
  EXPECT_EQ(d.diagramme().nbrCordes, 6);
  EXPECT_EQ(d.diagramme().cases, (std::array<int, 8>{0, 2, 1, 2, 0, 255, 255, 0}));
  EXPECT_EQ(enfant<QLineEdit>(&d, "txtNom")->text(), "Dadd7");
  ok(d);
  const int n = doc.searchMesureAccord(1, 1, 0);
  ASSERT_NE(n, 0);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, n, 3), 2);
}

TEST(DiagrammeAccord, EveryStringAndRowIsFoundWhereItIsDrawn) {
  for (int n : {4, 6, 7}) {
    const GeometrieDiagramme geo(QRectF(10, 20, 200, 240), n);
    for (int c = 1; c <= n; ++c)
      for (int r = 0; r <= kRangsDiagramme; ++r) {
        int corde = 0, rang = -1;
        ASSERT_TRUE(geo.touche(QPointF(geo.xCorde(c), geo.yRang(r)), corde, rang)) << n << c << r;
        EXPECT_EQ(std::pair(corde, rang), std::pair(c, r));
      }
    // The lowest string stands on the left.
    EXPECT_LT(geo.xCorde(n), geo.xCorde(1));
    int corde = 0, rang = 0;
    EXPECT_FALSE(geo.touche(QPointF(geo.xCorde(1), 19), corde, rang));
    EXPECT_FALSE(geo.touche(QPointF(geo.xCorde(1), geo.yRang(kRangsDiagramme) + geo.hauteurRang()),
                            corde, rang));
    EXPECT_FALSE(geo.touche(QPointF(geo.xCorde(1) + geo.ecartCordes(), geo.yRang(1)), corde, rang));
  }
}

TEST(Drums, EveryDrumStandsInOneFamilyOnceAndAChosenNameGivesItsNote) {
  std::multiset<int> notes, attendues;
  for (const FamilleBatterie& f : famillesBatterie()) {
    notes.insert(f.notes.begin(), f.notes.end());
    EXPECT_NE(std::find(f.notes.begin(), f.notes.end(), f.parDefaut), f.notes.end()) << f.bouton;
  }
  for (int n = kPremiereBatterie; n <= kDerniereBatterie; ++n)
    attendues.insert(n);
  EXPECT_EQ(notes, attendues);
  EXPECT_EQ(std::pair(libelleBatterie(34), libelleBatterie(64)), std::pair(0, 0));
  fTabDrums drums(kAnglais);
  QSignalSpy choix(&drums, &fTabDrums::drumChoisi);
  EXPECT_EQ(drums.windowTitle(), "Drums");
  EXPECT_EQ(drums.note(), 0);
  const struct {
    const char* bouton;
    const char* action;
    const char* nom;
    int note;
  } cas[] = {
      {"btnSD", "drum38", "Acoustic Snare", 38},     {"btnHH", "drum46", "Open Hi-Hat", 46},
      {"btnBD", "drum35", "Acoustic Bass Drum", 35}, {"btnCC", "drum57", "Crash Cymbal 2", 57},
      {"btnP", "drum63", "Open Hi Conga", 63},       {"btnT", "drum41", "Low Floor Tom", 41}};
  for (const auto& c : cas) {
    auto* b = enfant<QToolButton>(&drums, c.bouton);
    QAction* a = enfant<QAction>(b->menu(), c.action);
    EXPECT_EQ(a->text(), c.nom);
    a->trigger();
    EXPECT_EQ(drums.note(), c.note);
    ASSERT_FALSE(choix.isEmpty());
    EXPECT_EQ(choix.takeLast().at(0).toInt(), c.note);
    EXPECT_EQ(b->toolTip(), c.nom);
    // The button itself gives the family's sound last chosen.
    b->click();
    EXPECT_EQ(choix.takeLast().at(0).toInt(), c.note);
  }
  // Untouched families give their usual sound.
  enfant<QToolButton>(&drums, "btnRC")->click();
  EXPECT_EQ(drums.note(), 51);
  EXPECT_EQ(enfant<QToolButton>(&drums, "btnRC")->text(), "Ride cymbal");
}

}  // namespace
}  // namespace vt::essai
