// The cursor under the keys: by column with the bar roll-over and the bar added
// at the end, by string within the instrument, by bar, to the ends of the
// piece, and the view that follows it.
#include <QLabel>
#include <QScrollBar>

#include "ftab_banc.h"

namespace vt::essai {
namespace {

using Curseur = Editeur;
using Touche = std::pair<int, Qt::KeyboardModifiers>;

TEST_F(Curseur, TheKeysWalkByColumnStringAndBarAndAddABarAtTheEnd) {
  constexpr Qt::KeyboardModifiers N = Qt::NoModifier, S = Qt::ShiftModifier,
                                  C = Qt::ControlModifier;
  const Touche g{Qt::Key_Left, N}, d{Qt::Key_Right, N};
  const std::vector<Touche> huit(8, d);
  std::vector<Touche> retour = huit;
  retour.insert(retour.end(), {g, d});
  const struct {
    const char* quoi;
    int mesures;
    Place de;
    std::vector<Touche> touches;
    Place à;
    int dernière;  // the last bar after the keys
  } kCas[] = {
      {"Left at the start of the piece stays", 1, {1, 0, 1}, {g}, {1, 0, 1}, 1},
      {"Left rolls back to the bar before's last column", 2, {2, 24, 1}, {g, g}, {1, 168, 1}, 2},
      {"Right to the last column adds nothing", 1, {1, 0, 1}, {7, d}, {1, 168, 1}, 1},
      {"Right past the last bar adds one", 1, {1, 0, 1}, huit, {2, 0, 1}, 2},
      {"back and on again: the bar is there", 1, {1, 0, 1}, retour, {2, 0, 1}, 2},
      {"Up stays on the first string", 1, {1, 0, 1}, {{Qt::Key_Up, N}}, {1, 0, 1}, 1},
      {"Down stops at the last string", 1, {1, 0, 1}, {9, {Qt::Key_Down, N}}, {1, 0, 6}, 1},
      {"Ctrl+Up", 1, {1, 0, 6}, {{Qt::Key_Up, C}}, {1, 0, 5}, 1},
      {"Ctrl+Down", 1, {1, 0, 5}, {{Qt::Key_Down, C}}, {1, 0, 6}, 1},
      {"Shift+Right: the next bar", 40, {1, 48, 3}, {{Qt::Key_Right, S}}, {2, 0, 3}, 40},
      {"Shift+Left stops at bar 1", 40, {2, 24, 3}, {2, {Qt::Key_Left, S}}, {1, 0, 3}, 40},
      {"End, and no bar after the last",
       40,
       {1, 48, 3},
       {{Qt::Key_End, N}, {Qt::Key_Right, S}},
       {40, 0, 3},
       40},
      {"Home", 40, {20, 48, 3}, {{Qt::Key_Home, N}}, {1, 0, 3}, 40},
      {"Ctrl+Right", 40, {1, 48, 3}, {{Qt::Key_Right, C}}, {40, 0, 3}, 40},
      {"Ctrl+Left", 40, {40, 48, 3}, {{Qt::Key_Left, C}}, {1, 0, 3}, 40},
  };
  ouvre();
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.quoi);
    ftab->DebugInitialisation();
    mesures(c.mesures);
    doc().modifi = kFaux;
    curseur(c.de[0], c.de[1], c.de[2]);
    for (const auto& [key, mods] : c.touches)
      touche(key, mods);
    EXPECT_EQ(place(), c.à);
    EXPECT_EQ(doc().getMesureLast(), c.dernière);
    EXPECT_EQ(doc().modifi, c.dernière > c.mesures ? kVrai : kFaux) << "a bar added is a change";
    if (c.dernière > c.mesures) {
      EXPECT_EQ(ftab->hScroll()->maximum(), c.dernière);
    }
  }
  // The fretboard reaches the editor through the same keys.
  ftab->picTab_KeyDown(Qt::Key_Up);
  EXPECT_EQ(ftab->CurseurCorde(), 2);
}

TEST_F(Curseur, ABarWhoseWidthIsNotAWholeNumberOfColumnsKeepsItsWholeColumns) {
  ouvre();
  ASSERT_TRUE(doc().setMesureSignature(1, 5, 8));  // 120 ticks
  ftab->mnuTabDisplay(0);                          // one column per quarter: 48
  touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurX(), 48);
  touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  touche(Qt::Key_Left);
  EXPECT_EQ(place(), (Place{1, 48, 1}));
}

TEST_F(Curseur, TheViewFollowsTheCursorAndTheScrollBarKeepsItOnScreen) {
  ouvre();
  mesures(40);
  touche(Qt::Key_End);
  EXPECT_GT(doc().m_lngScrollValue, 1);
  EXPECT_LE(doc().m_lngScrollValue, 40);
  EXPECT_EQ(ftab->hScroll()->value(), doc().m_lngScrollValue);
  touche(Qt::Key_Home);
  EXPECT_EQ(doc().m_lngScrollValue, 1);

  // Walking right, the first step past the edge scrolls by one bar.
  int bars = 0;
  while (doc().m_lngScrollValue == 1 && bars < 20) {
    for (int i = 0; i < 8; ++i)
      touche(Qt::Key_Right);
    ++bars;
  }
  EXPECT_EQ(doc().m_lngScrollValue, 2);
  EXPECT_GT(bars, 2);
  EXPECT_EQ(doc().CurseurX(), 0);

  // The scroll bar takes the cursor along, into the bars that fit.
  curseur(1, 168, 1);
  ftab->hScroll()->setValue(10);
  EXPECT_EQ(doc().m_lngScrollValue, 10);
  EXPECT_EQ(place(), (Place{10, 168, 1}));
  ftab->hScroll()->setValue(1);
  EXPECT_LT(doc().CurseurMesure(), 10);
  ASSERT_TRUE(doc().setMesureSignature(doc().CurseurMesure(), 2, 4));
  ftab->hScroll()->setValue(2);
  ftab->hScroll()->setValue(1);
  EXPECT_LT(doc().CurseurX(), doc().getMesureLargeur(doc().CurseurMesure()));

  // In a window narrower than a bar the view still follows.
  curseur(1, 0, 1);
  qobject_cast<QMdiSubWindow*>(ftab->parentWidget())->resize(200, 640);
  QCoreApplication::processEvents();
  ASSERT_LT(ftab->picTab()->width(), 255) << "not even bar 1 fits whole";
  for (int i = 0; i < 8; ++i)
    touche(Qt::Key_Right);
  EXPECT_EQ(doc().CurseurMesure(), 2);
  EXPECT_EQ(doc().m_lngScrollValue, 2);
  touche(Qt::Key_Left);
  EXPECT_EQ(doc().CurseurMesure(), 1);
  EXPECT_EQ(doc().m_lngScrollValue, 1);
}

TEST_F(Curseur, TheGridFollowsTheViewAndTheChosenRhythm) {
  ouvre();
  ftab->mnuTabDisplay(0);  // quarters
  ftab->mnuTabDisplay(4);  // in triplets: 32
  curseur(1, 32, 1);
  ftab->mnuTabDisplay(1);  // eighths in triplets: 16, on which 32 lies
  EXPECT_EQ(doc().CurseurX(), 32);
  ftab->mnuTabDisplay(4);  // plain eighths: 24, the cursor snapped to it
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 24);
  EXPECT_EQ(doc().CurseurX(), 24);
  EXPECT_TRUE(ftab->entrée("mnuTabDisplay_1")->isChecked());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplay_0")->isChecked());

  touche(Qt::Key_5, Qt::ControlModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 12);
  touche(Qt::Key_9, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 8);
  ftab->mnuTabDisplay(7);  // the grid no longer follows
  touche(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 8);
}

}  // namespace
}  // namespace vt::essai
