// The editor and the chord dictionary: "Chord from the dictionary" opens it,
// and its To tab button writes the shown fingering at the cursor, with undo.
#include <QAction>
#include <QListWidget>

#include "ftab_banc.h"
#include "tools/faccords.h"

namespace vt::essai {
namespace {

class Dictionnaire : public Editeur {
 protected:
  FAccords& dictionnaire() {
    EXPECT_FALSE(ftab->entrée("mnuTabTool_6")->isEnabled());
    vt->fenetres().enregistrer(fen::FAccords, [](VT& v) { return new FAccords(v); });
    touche(Qt::Key_Right);  // the menus follow the windows that exist
    EXPECT_TRUE(ftab->entrée("mnuTabTool_6")->isEnabled());
    ftab->entrée("mnuTabTool_6")->trigger();
    auto* fa = vt->fenetres().interface<FAccords>(fen::FAccords);
    EXPECT_NE(fa, nullptr);
    EXPECT_TRUE(vt->isFormLoaded(fen::FAccords));
    return *fa;
  }
  std::vector<int> accord(int n) {
    std::vector<int> f;
    for (int c = 1; c <= 6; ++c)
      f.push_back(doc().getMesureAccordCorde(1, 1, n, c));
    return f;
  }
};

// The entry waits for the dictionary, then opens it.
TEST_F(Dictionnaire, ToTabWritesTheFingeringAtTheCursorAndUndoTakesItBack) {
  ouvre();
  EXPECT_FALSE(ftab->bouton("tbGeneral", "accordcreate")->isEnabled());
  FAccords& fa = dictionnaire();
  EXPECT_TRUE(ftab->bouton("tbGeneral", "accordcreate")->isEnabled());
  curseur(1, 48, 1);
  fa.lstTonalite()->setCurrentRow(3);  // C, "maj" is chosen at the start
  fa.btnToTab_Click();
  const int n = doc().searchMesureAccord(1, 1, 48);
  ASSERT_NE(n, 0);
  EXPECT_EQ(doc().getMesureAccordNom(1, 1, n), "C");
  EXPECT_EQ(accord(n), (std::vector<int>{0, 1, 0, 2, 3, 255}));
  EXPECT_EQ(doc().modifi, kVrai);
  EXPECT_TRUE(ftab->entrée("mnuTabEdit_0")->isEnabled());

  // A second fingering at the same place replaces the first.
  fa.sldPositions()->setValue(2);
  fa.btnToTab_Click();
  EXPECT_EQ(doc().getMesureAccordLast(1, 1), 1);
  EXPECT_NE(accord(n), (std::vector<int>{0, 1, 0, 2, 3, 255}));

  ftab->entrée("mnuTabEdit_0")->trigger();
  EXPECT_EQ(accord(n), (std::vector<int>{0, 1, 0, 2, 3, 255}));
  ftab->entrée("mnuTabEdit_0")->trigger();
  EXPECT_EQ(doc().searchMesureAccord(1, 1, 48), 0);
}

}  // namespace
}  // namespace vt::essai
