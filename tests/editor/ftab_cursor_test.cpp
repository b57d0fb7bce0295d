// The cursor under the keys and the mouse, the view that follows it, what it leaves on the picture.
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <functional>
#include <string>
#include <tuple>

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
      {"End; no bar after it",
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
    // A bar added is a change, and the scroll bar reaches it.
    EXPECT_EQ(std::tuple(doc().getMesureLast(), doc().modifi, ftab->hScroll()->maximum()),
              std::tuple(c.dernière, c.dernière > c.mesures ? kVrai : kFaux, c.dernière));
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
  // The cursor's bar and the first bar shown.
  const auto vue = [this] {
    return std::pair(static_cast<int>(doc().CurseurMesure()),
                     static_cast<int>(doc().m_lngScrollValue));
  };
  touche(Qt::Key_End);
  EXPECT_GT(doc().m_lngScrollValue, 1);
  EXPECT_EQ(ftab->hScroll()->value(), doc().m_lngScrollValue);
  touche(Qt::Key_Home);
  EXPECT_EQ(vue(), std::pair(1, 1));

  // Walking right, the first step past the edge scrolls by one bar.
  int bars = 0;
  while (doc().m_lngScrollValue == 1 && bars < 20) {
    for (int i = 0; i < 8; ++i)
      touche(Qt::Key_Right);
    ++bars;
  }
  EXPECT_EQ(vue(), std::pair(bars + 1, 2));
  EXPECT_GT(bars, 2);

  // The scroll bar takes the cursor along, into the bars that fit.
  curseur(1, 168, 1);
  ftab->hScroll()->setValue(10);
  EXPECT_EQ(vue(), std::pair(10, 10));
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
  EXPECT_EQ(vue(), std::pair(2, 2));
  touche(Qt::Key_Left);
  EXPECT_EQ(vue(), std::pair(1, 1));
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
  ftab->mnuTabDisplay(7);  // and follows again: a quarter, still in triplets
  touche(Qt::Key_3, Qt::ControlModifier);
  EXPECT_EQ(ftab->réglagesVue().TAB_VIEW_SCALE, 32);
}

using Souris = Editeur;
using Sélection = std::array<int, 6>;

TEST_F(Souris, AClickPlacesTheCursorOnTheCellUnderItStopsAtTheEdgesOfTheBarsADragSelects) {
  const struct {
    const char* quoi;
    QPointF point;
    Place place;
  } kCas[] = {
      {"a note head", cellule(2, 3, 4), {2, 72, 4}},
      {"half a column either way", cellule(2, 3, 4) + QPointF(9, 5), {2, 72, 4}},
      {"the column before", cellule(2, 3, 4) + QPointF(-11, 0), {2, 48, 4}},
      {"left of the margin, above the strings", {10, 100}, {1, 0, 1}},
      {"right of the last bar, below the strings: its last column", {1000, 400}, {3, 168, 6}},
  };
  ouvre();
  mesures(3);
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.quoi);
    clic(c.point);
    EXPECT_EQ(place(), c.place);
    // The press collapses the selection to the cursor.
    EXPECT_EQ(sélection(),
              (Sélection{c.place[0], c.place[1], c.place[2], c.place[0], c.place[1], c.place[2]}));
  }
  // A drag stretches the selection over bars, the cursor at its end.
  glisse(cellule(1, 1, 2), cellule(3, 2, 5));
  EXPECT_EQ(std::pair(sélection(), static_cast<int>(doc().CurseurMesure())),
            std::pair(Sélection{1, 24, 2, 3, 48, 5}, 3));
  // Over the last bar on screen, clipped at the edge, the view stays.
  mesures(10);
  const int largeur = ftab->picTab()->width();
  envoie(QEvent::MouseButtonPress, cellule(1, 0, 1), Qt::LeftButton, Qt::LeftButton);
  envoie(QEvent::MouseMove, {largeur - 2.0, 150}, Qt::NoButton, Qt::LeftButton);
  EXPECT_EQ(doc().m_lngScrollValue, 1);
  EXPECT_GT(doc().intSelStopMesure, 3);
  // A move without the button selects nothing.
  envoie(QEvent::MouseButtonRelease, {largeur - 2.0, 150}, Qt::LeftButton, Qt::NoButton);
  const Sélection avant = sélection();
  envoie(QEvent::MouseMove, cellule(1, 0, 1), Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(sélection(), avant);
}

TEST_F(Souris, TheRightButtonOnANoteOpensThePopUpAndElsewhereNothing) {
  ouvre();
  pose(1, 2, 48, 3);
  ftab->refreshPicture();
  auto* popup = ftab->findChild<QMenu*>("mnuTabPopUp");
  ASSERT_NE(popup, nullptr);
  clic(cellule(1, 3, 2), Qt::RightButton);
  EXPECT_FALSE(popup->isVisible());
  EXPECT_EQ(doc().CurseurX(), 72) << "the right button moves the cursor too";
  clic(cellule(1, 2, 2), Qt::RightButton);
  EXPECT_TRUE(popup->isVisible());
  popup->hide();
  EXPECT_EQ(fret(1, 2, 48), 3) << "the right button enters nothing";
}

class Peinture : public Editeur {
 protected:
  // Three bars with notes, the cursor on an empty place of bar 2.
  void prépare() {
    ouvre();
    mesures(3);
    for (int m = 1; m <= 3; ++m) {
      pose(m, 1, 0, 3);
      pose(m, 2, 24, 5);
      pose(m, 6, 96, 0, 48);
    }
    curseur(2, 48, 3);
  }
  // The columns of pixels that differ between two pictures.
  static std::pair<int, int> colonnesChangées(const QImage& a, const QImage& b) {
    int gauche = a.width();
    int droite = -1;
    for (int y = 0; y < a.height(); ++y)
      for (int x = 0; x < a.width(); ++x)
        if (a.pixel(x, y) != b.pixel(x, y)) {
          gauche = std::min(gauche, x);
          droite = std::max(droite, x);
        }
    return {gauche, droite};
  }
  // The picture as the partial repaints left it is the one a full paint draws.
  void sansTrace(const std::string& quoi) {
    const QImage partiel = ftab->image().copy();
    ftab->refreshPicture();
    const auto [g, d] = colonnesChangées(partiel, ftab->image());
    EXPECT_GT(g, d) << quoi << ": traces between x " << g << " and " << d;
  }
};

// A one-note edit changes its bar only and draws it as a full paint would;
// changing and deleting notes, even those whose marks reach another bar, leave no trace.
TEST_F(Peinture, EditsChangeTheirBarOnlyAndLeaveNoTrace) {
  prépare();
  const QImage avant = ftab->image().copy();
  tape("7");
  ASSERT_EQ(fret(2, 3, 48), 7);
  const auto [gauche, droite] = colonnesChangées(avant, ftab->image());
  // Bar 2 lies between its bar lines at 35 + 200 and 35 + 400.
  EXPECT_GE(gauche, 235);
  EXPECT_LE(droite, 435);
  EXPECT_LT(gauche, droite) << "the new fret is on the picture";
  sansTrace("a fret");
  curseur(2, 24, 2);
  touche(Qt::Key_Plus, Qt::KeypadModifier);
  sansTrace("+");
  touches({{Qt::Key_V, Qt::NoModifier}, {Qt::Key_T, Qt::NoModifier}});
  sansTrace("an effect over another");
  // A hammer-on from the bar's last note reaches the first note of the next bar.
  touche(Qt::Key_H);
  sansTrace("hammer-on");
  touche(Qt::Key_Delete);
  sansTrace("delete");
  curseur(3, 24, 2);
  touche(Qt::Key_Delete);
  sansTrace("the note a tie of the bar before ended on");
}

// The cursor and the selection, moved by keys, clicks and drags over frets,
// strings, the staff, stems and the letter of a hammer-on across a bar line,
// leave the picture as a full paint draws it.
TEST_F(Peinture, TheCursorAndTheSelectionLeaveNoTintOnTheInkTheyCrossed) {
  struct Script {
    const char* nom;
    std::function<void()> joue;
  };
  const auto touches = [this](std::vector<int> l) {
    return [this, l] {
      for (const int key : l)
        touche(key);
    };
  };
  const std::vector<Script> scripts = {
      {"keys",
       touches({Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down,
                Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Right,
                Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up, Qt::Key_Home})},
      {"a click, then keys",
       [this] {
         clic(cellule(2, 1, 2));
         for (const int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left})
           touche(key);
         touche(Qt::Key_Right, Qt::ShiftModifier);
       }},
      {"over the hammer-on's letter",
       [this] {
         clic(cellule(1, 3, 1));
         for (int i = 0; i < 5; ++i)
           touche(Qt::Key_Right);
         clic(cellule(2, 0, 1));
         clic(cellule(1, 7, 2));
       }},
      {"a drag that grows and shrinks",
       [this] {
         envoie(QEvent::MouseButtonPress, cellule(1, 1, 1), Qt::LeftButton, Qt::LeftButton);
         envoie(QEvent::MouseMove, cellule(2, 3, 4), Qt::NoButton, Qt::LeftButton);
         envoie(QEvent::MouseMove, cellule(1, 2, 2), Qt::NoButton, Qt::LeftButton);
         envoie(QEvent::MouseButtonRelease, cellule(1, 2, 2), Qt::LeftButton, Qt::NoButton);
         touche(Qt::Key_Down);
         clic(cellule(3, 0, 6));
       }},
  };
  prépare();
  // A hammer-on from bar 1's last note on string 1 to bar 2's first: its "H"
  // stands over bar 1's right half.
  curseur(1, 0, 1);
  touche(Qt::Key_H);
  for (const Script& script : scripts) {
    SCOPED_TRACE(script.nom);
    curseur(2, 0, 1);
    script.joue();
    sansTrace(script.nom);
  }
}

// A click selects the cell under it; the cursor marks it, and when the cursor
// moves on nothing is left there that looks like a second cursor.
TEST_F(Peinture, AClickLeavesNoSecondCursorBehind) {
  prépare();
  // Inside the box of bar 1's empty cell at tick 72 on string 3, off its string line.
  const QPoint dansLaCase(55 + 4 * 20 - 5, 140 + 2 * 13 - 4);
  const QRgb blanc = qRgb(255, 255, 255);
  ASSERT_EQ(ftab->image().pixel(dansLaCase), blanc);
  clic(cellule(1, 3, 3));
  EXPECT_EQ(ftab->image().pixel(dansLaCase), qRgb(127, 255, 255)) << "the cursor";
  touche(Qt::Key_Right);
  EXPECT_EQ(ftab->image().pixel(dansLaCase), blanc);
  EXPECT_EQ(doc().intSelStartMesure, 0) << "the one-cell selection went with the cursor";
}

}  // namespace
}  // namespace vt::essai
