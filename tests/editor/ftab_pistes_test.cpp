// The track commands: add, delete, select, the buttons, the drum picker.
#include <QAction>
#include <QToolBar>
#include <QToolButton>

#include "dialogs/ftab_drums.h"
#include "ftab_banc.h"

namespace vt::essai {
namespace {

class Pistes : public Editeur {
 protected:
  FTab& prépare() {
    ouvre();
    ftab->question = [this](const QString& texte, QMessageBox::StandardButtons) {
      questions.push_back(texte);
      return réponse;
    };
    return *ftab;
  }
  int boutons() const { return static_cast<int>(ftab->barre("tbPistes")->actions().size()); }
  // The track buttons from the left: down or up, and their tool tips.
  QString états() const {
    QString s;
    for (int p = 1; p <= doc().getPisteLast(); ++p)
      s += ftab->bouton("tbPistes", QString::number(p))->isChecked() ? 'X' : '-';
    return s;
  }
  CVantoroTablature& doc() const { return vt->document(); }

  QMessageBox::StandardButton réponse = QMessageBox::Yes;
  std::vector<QString> questions;
};

TEST_F(Pistes, AddPutsTheNewTrackBehindTheCurrentOneUpToSeven) {
  prépare();
  ASSERT_EQ(boutons(), 5) << "three commands, a separator, one track";
  ftab->bouton("tbPistes", "add")->trigger();
  ftab->bouton("tbPistes", "add")->trigger();
  ASSERT_EQ(doc().getPisteLast(), 3);
  doc().setPisteNom(3, "Trois");
  doc().setNoteWhole(3, 1, 1, 0, 12, 24);
  ftab->mnutabPistes(6);  // track 2
  ftab->mnutabPistes(1);
  EXPECT_EQ(doc().CurseurPiste(), 3) << "the new track stands behind track 2";
  EXPECT_EQ(doc().getNoteCase(4, 1, 1, doc().searchNote(4, 1, 1, 0)), 12) << "old 3 is now 4";
  EXPECT_EQ(états(), "--X-");
  EXPECT_TRUE(doc().modifi);
  // The pictures read 1, 2, 3, 4 from the left; the tips carry the names (the
  // new track carries the name of the track that stood at its place, as always).
  QStringList noms, bulles;
  for (QAction* a : ftab->barre("tbPistes")->actions().mid(4)) {
    noms << a->objectName();
    bulles << a->toolTip();
  }
  EXPECT_EQ(noms, (QStringList{"tbPistes_1", "tbPistes_2", "tbPistes_3", "tbPistes_4"}));
  EXPECT_EQ(bulles, (QStringList{"Track 1", "Track 2", "Track 3 : Trois", "Track 4 : Trois"}));
  EXPECT_EQ(ftab->entrée("mnutabPistes_8")->text(), "Track 4 : Trois");

  for (int i = 0; i < 5; ++i)
    ftab->mnutabPistes(1);
  EXPECT_EQ(doc().getPisteLast(), 7);
  EXPECT_EQ(boutons(), 11);
  EXPECT_FALSE(ftab->entrée("mnutabPistes_1")->isEnabled());
  EXPECT_FALSE(ftab->bouton("tbPistes", "add")->isEnabled());
  EXPECT_TRUE(questions.empty()) << "a full toolbar adds nothing, silently";
}

TEST_F(Pistes, DeleteAsksAndKeepsAtLeastOneTrack) {
  prépare();
  ftab->mnutabPistes(2);
  EXPECT_TRUE(questions.empty()) << "one track: nothing to ask";
  EXPECT_EQ(doc().getPisteLast(), 1);

  ftab->mnutabPistes(1);
  ftab->mnutabPistes(1);
  ASSERT_EQ(doc().CurseurPiste(), 3);
  réponse = QMessageBox::No;
  ftab->mnutabPistes(2);
  ASSERT_EQ(questions.size(), 1u);
  EXPECT_EQ(questions[0], "Do you really want to delete this track?");
  EXPECT_EQ(doc().getPisteLast(), 3);

  // Deleting the last track puts the cursor on the one before it.
  réponse = QMessageBox::Yes;
  ftab->bouton("tbPistes", "remove")->trigger();
  EXPECT_EQ(doc().getPisteLast(), 2);
  EXPECT_EQ(doc().CurseurPiste(), 2);
  EXPECT_EQ(états(), "-X");
  EXPECT_EQ(boutons(), 6);
  EXPECT_EQ(ftab->bouton("tbPistes", "3"), nullptr);
}

TEST_F(Pistes, ADrumTrackBringsUpThePickerAndKeepsTheInstrument) {
  prépare();
  ftab->mnutabPistes(1);
  doc().setStaffType(2, kStaffBatterie);
  const int guitare = vt->settings().setGuitare;
  ftab->mnutabPistes(6);
  ASSERT_NE(ftab->batterie(), nullptr);
  EXPECT_TRUE(ftab->batterie()->isVisible());
  EXPECT_EQ(vt->settings().setGuitare, guitare);

  // A drum chosen in the picker is entered as the track's fret.
  emit ftab->batterie()->drumChoisi(38);
  const int c = doc().CurseurCorde();
  EXPECT_EQ(doc().getNoteCase(2, 1, c, doc().searchNote(2, 1, c, 0)), 38);

  ftab->mnutabPistes(5);
  EXPECT_FALSE(ftab->batterie()->isVisible());
}

TEST_F(Pistes, TrackCommandsStopThePiece) {
  prépare();
  ftab->mnuTabPlay(0);
  ftab->mnutabPistes(1);
  EXPECT_FALSE(ftab->isPlaying());
  EXPECT_EQ(doc().getPisteLast(), 2);
}

}  // namespace
}  // namespace vt::essai
