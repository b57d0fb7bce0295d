// The fretboard: its geometry (where frets and strings lie, and the fret and
// the string under a pointer, for both hands), its three looks, the dots, and
// the notes that clicks and drags play, alone or through the editor.
#include <QScrollBar>

#include "banc.h"
#include "shell/manche.h"
#include "shell/manche_geometry.h"
#include "shell/skin.h"

namespace vt::essai {
namespace {

class Manche_ : public BancSilencieux {
 protected:
  void lance() {
    ASSERT_TRUE(démarre());
    vt->resize(1000, 700);
    QCoreApplication::processEvents();
    ASSERT_GE(vt->manche().width(), 900);
    sons.clear();
  }
  Manche& m() { return vt->manche(); }
  QColor pixel(int x, int y) { return m().image().pixelColor(x, y); }
  void regarde(int look, bool gaucher) {
    vt->settings().setManche = static_cast<byt>(look);
    vt->settings().setLeftHanded = toVbool(gaucher);
    vt->load_picManche_picture();
    vt->updateManche();
  }
};

TEST_F(Manche_, AClickSoundsTheStringsNoteADragAGlissandoAndTheReleaseSilencesTheChannel) {
  lance();
  clic(droitier(3, 1));
  EXPECT_EQ(sons, (Journal{"on 67", "ctl 123 0 1"}));
  clic(droitier(5, 6));  // the low E string, fifth fret
  EXPECT_EQ(sons, (Journal{"on 67", "ctl 123 0 1", "off 67", "on 45", "ctl 123 0 1"}));
  clic(droitier(0, 3), Qt::RightButton);
  EXPECT_EQ(sons.at(sons.size() - 2), "on 55");
  EXPECT_EQ(vt->noteSouris(), 55);
  sons.clear();
  clic({200, 24 * 6 - 16 + 14});  // below the sixth string, rounded to a seventh: ignored
  EXPECT_EQ(sons, (Journal{"ctl 123 0 1"}));
  // Dragging with the button held plays a glissando.
  sons.clear();
  souris(QEvent::MouseButtonPress, droitier(0, 1), Qt::LeftButton, Qt::LeftButton);
  souris(QEvent::MouseMove, droitier(0, 1) + QPoint(3, 0), Qt::NoButton, Qt::LeftButton);
  souris(QEvent::MouseMove, droitier(1, 1), Qt::NoButton, Qt::LeftButton);
  souris(QEvent::MouseMove, droitier(2, 1), Qt::NoButton, Qt::LeftButton);
  souris(QEvent::MouseMove, droitier(4, 1), Qt::NoButton, Qt::NoButton);  // released: silence
  // The note still held from the last click goes first.
  EXPECT_EQ(sons, (Journal{"off 55", "on 64", "off 64", "on 65", "off 65", "on 66"}));
  // On a narrow window the scroll bar moves the board: the leftmost column is fret 3.
  vt->resize(500, 600);
  QCoreApplication::processEvents();
  QScrollBar* hsb = m().hsbManche();
  ASSERT_GT(hsb->maximum(), 0);
  hsb->setValue(3);
  sons.clear();
  clic(droitier(0, 1));
  EXPECT_EQ((Journal{sons.at(0), sons.at(1)}), (Journal{"off 66", "on 67"}));
}

TEST_F(Manche_, TheThreeLooksBothHandsAndTheDots) {
  lance();
  // The board, string 1 and the nut in black, white and grey, or the other
  // way round, or on the wood tiled every 161 pixels.
  const QImage bois(vt->skinFile(skin::kMancheFond));
  ASSERT_FALSE(bois.isNull());
  const std::vector<std::vector<QColor>> attendu = {
      {bois.pixelColor(200 - 161, 2), Qt::white}, {Qt::black, Qt::white}, {Qt::white, Qt::black}};
  for (int look : {1, 2, 0}) {
    regarde(look, false);
    EXPECT_EQ((std::vector<QColor>{pixel(200, 2), pixel(200, 8)}), attendu[std::size_t(look)])
        << look;
  }
  // The strip is as high as the instrument's strings need, plus the scroll bar.
  EXPECT_EQ(m().hauteurBoardPixels(), 140);
  EXPECT_EQ(m().height(), 140 + m().hsbManche()->height());

  // Dots are drawn over the board and cleared without redrawing it.
  regarde(1, false);
  EXPECT_EQ(pixel(35, 60), QColor(192, 192, 192));
  const QPoint p = droitier(7, 3);
  const QPoint j = droitier(9, 2);
  const QColor avant = pixel(p.x(), p.y() - 4);
  vt->drawRond(7, 3, kRondBleu);
  vt->drawRond(9, 2, kRondJaune);
  EXPECT_EQ((std::vector<QColor>{pixel(p.x(), p.y() - 4), pixel(j.x(), j.y() - 4)}),
            (std::vector<QColor>{QColor(0, 0, 255), QColor(255, 255, 0)}));
  vt->printManche(9, 2, "C");
  vt->clearManche();
  EXPECT_EQ(pixel(p.x(), p.y() - 4), avant);
  // On the wood, the dots are the sprites.
  regarde(0, false);
  vt->drawRond(7, 3, kRondRouge);
  const QColor sprite = pixel(p.x(), p.y());
  EXPECT_GT(sprite.red(), 150);
  EXPECT_LT(sprite.green(), 100);

  // A left-handed board is turned around: string 1 at the bottom, the open
  // strings right of the nut; then the fifth fret of string 6, at the top.
  regarde(1, true);
  clic({787, 24 * 6 - 16});
  clic({787 - 32 * 5, 8});
  EXPECT_EQ((Journal{sons.at(0), sons.at(3)}), (Journal{"on 64", "on 45"}));
  EXPECT_EQ((std::vector<QColor>{pixel(771, 60), pixel(35, 60)}),
            (std::vector<QColor>{QColor(192, 192, 192), Qt::black}));
}

TEST_F(Manche_, TheHoverDotFollowsThePointerAndTheHarmonizerHearsTheNotesPlayed) {
  crée();
  enregistre({fen::FAccords, fen::FHarmony});
  lance();
  vt->montreFenetre(fen::FAccords);
  vt->setMancheContenu(0);
  journal.clear();
  souris(QEvent::MouseMove, droitier(2, 2), Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(journal, (Journal{"FAccords drawMancheContenu"}));
  const QColor survol = pixel(droitier(2, 2).x(), droitier(2, 2).y());
  EXPECT_GT(survol.red(), 150);
  EXPECT_LT(survol.blue(), 100);
  // The chord tool's dot (fret 5, string 3) is drawn again under it.
  const QColor outil = pixel(droitier(5, 3).x(), droitier(5, 3).y());
  EXPECT_GT(outil.green(), 120);
  // A move within the same position redraws nothing.
  souris(QEvent::MouseMove, droitier(2, 2) + QPoint(2, 1), Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(journal.size(), 1u);
  EXPECT_TRUE(sons.empty());

  vt->montreFenetre(fen::FHarmony);
  vt->setMancheContenu(3);
  journal.clear();
  clic(droitier(2, 5));
  EXPECT_TRUE(contient(journal, "FHarmony receiveNote 47"));
  EXPECT_EQ(sons.front(), "on 47");
}

TEST_F(Manche_, InTheEditorAPressMovesTheCursorAndTheLeftButtonEntersTheFret) {
  crée();
  enregistre({fen::FTab});
  lance();
  auto* tab = dynamic_cast<EditeurEssai*>(vt->montreFenetre(fen::FTab));
  ASSERT_NE(tab, nullptr);
  journal.clear();
  clic(droitier(7, 4));
  EXPECT_EQ(journal, (Journal{"FTab down", "FTab down", "FTab down", "FTab note 7", "FTab on 57",
                              "FTab refresh", "FTab keyUp"}));
  EXPECT_EQ(vt->mancheContenu(), 4);
  EXPECT_EQ(sons, (Journal{"ctl 123 0 1"}));  // the editor sounds the note itself

  journal.clear();
  clic(droitier(3, 2), Qt::RightButton);  // moves the cursor, enters nothing
  EXPECT_EQ(journal, (Journal{"FTab up", "FTab up", "FTab refresh", "FTab keyUp"}));

  journal.clear();
  tab->joue = true;  // during playback a click does nothing at all
  clic(droitier(5, 6));
  EXPECT_TRUE(journal.empty());
  EXPECT_EQ(tab->corde, 2);
}

}  // namespace
}  // namespace vt::essai

namespace vt::manche {
namespace {

TEST(MancheGeometrie, CentresOfFretsAndStringsAndTheFretAndTheStringUnderAPointer) {
  const Vue d{6, 0, false};
  const Vue g{6, 0, true};
  // Turned by half a circle for the left hand: string 1 at the bottom; then
  // scrolled by three frets.
  EXPECT_EQ((std::vector<double>{centreCaseX(d, 0), centreCaseX(d, 5), centreCordeY(d, 1),
                                 centreCordeY(d, 6), centreCaseX(g, 0), centreCaseX(g, 5),
                                 centreCordeY(g, 1), centreCordeY(g, 6),
                                 centreCaseX({6, 3, false}, 5), centreCaseX({6, 3, true}, 5)}),
            (std::vector<double>{280, 2680, 120, 1920, 11800, 9400, 1920, 120, 1240, 7960}));
  for (const bool gauche : {false, true})
    for (const int n : {4, 6, 7})
      for (const int h : {0, 2, 5}) {
        const Vue v{n, h, gauche};
        for (int c = h; c <= 24 - (gauche ? h : 0); ++c)
          EXPECT_EQ(caseDepuisX(v, centreCaseX(v, c)), c) << gauche << n << h << c;
        for (int s = 1; s <= n; ++s)
          EXPECT_EQ(cordeDepuisY(v, centreCordeY(v, s)), s) << gauche << n << s;
      }

  // The open strings lie left of the nut (x 30 to 38 pixels); left-handed, the
  // frets count from the right, clamped at the open string far past it.
  const auto px = [](int p) { return p * kTwipsParPixel; };
  const Vue d4{6, 4, false};
  const Vue g3{6, 3, true};
  EXPECT_EQ((std::vector<int>{caseDepuisX(d, px(5)), caseDepuisX(d, px(28)), caseDepuisX(d, px(52)),
                              caseDepuisX(d, px(242)), caseDepuisX(d4, 280), caseDepuisX(d4, px(3)),
                              caseDepuisX(d4, 700), caseDepuisX(g, 11800), caseDepuisX(g, 12500),
                              caseDepuisX(g, 20000), caseDepuisX(g, 280), caseDepuisX(g3, 11800),
                              caseDepuisX(g3, 280)}),
            (std::vector<int>{0, 0, 1, 7, 4, 4, 5, 0, 0, 0, 24, 0, 21}));
  // Strings 24 pixels apart from y = 8; below the last one is off the strings;
  // mirrored on a left-handed board.
  EXPECT_EQ((std::vector<int>{cordeDepuisY(d, 0), cordeDepuisY(d, px(30)), cordeDepuisY(d, px(128)),
                              cordeDepuisY(d, px(145)), cordeDepuisY(g, 0), cordeDepuisY(g, 1920),
                              cordeDepuisY({4, 0, true}, 120)}),
            (std::vector<int>{1, 2, 6, 7, 6, 1, 4}));
}

TEST(MancheGeometrie, RoundingHalfToEvenTheBoardHeightAndTheScrollBar) {
  EXPECT_EQ(
      (std::vector<double>{arrondi(0.5), arrondi(1.5), arrondi(2.5), arrondi(2.4999),
                           arrondi(2.5001), double(hauteurBoard(6)), double(hauteurBoard(7))}),
      (std::vector<double>{0, 2, 2, 2, 3, 2100, 2460}));
  EXPECT_EQ(défilementMax(1280), 0);
  EXPECT_EQ(défilementMax(807), 0);
  EXPECT_GT(défilementMax(806), 0);
  for (const int largeur : {200, 400, 640}) {
    // Scrolled to the end, fret 24 (right-handed) and the nut of a left-handed
    // board are on the strip.
    const int h = défilementMax(largeur);
    EXPECT_LT(centreCaseX({6, h, false}, 24) / kTwipsParPixel + 16, largeur) << largeur;
    EXPECT_LT((11520.0 - h * kPasCase) / kTwipsParPixel + 8, largeur) << largeur;
  }
}

}  // namespace
}  // namespace vt::manche
