// FTabTempo and FTabTextes: one entry at one tick, created, changed or removed.
#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <tuple>

#include "dialogs/ftab_tempo.h"
#include "dialogs/ftab_textes.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

TEST(Tempo, ANewChangeStartsFromTheTempoThatPlaysThereAndAChangeAtTheTickCanBeRemoved) {
  CVantoroTablature doc = document(1, 3);
  doc.tempo = 100;
  doc.setMesureTempo(1, 96, 90);
  doc.setMesureTempo(2, 144, 60);
  EXPECT_EQ((std::vector<int>{tempoEnVigueur(doc, 1, 95), tempoEnVigueur(doc, 2, 48),
                              tempoEnVigueur(doc, 3, 0)}),
            (std::vector<int>{100, 90, 60}));
  {
    FTabTempo d(kAnglais, doc, 2, 48);
    auto* tempo = enfant<QSpinBox>(&d, "udTempo");
    EXPECT_EQ(tempo->value(), 90);
    EXPECT_TRUE(enfant<QCheckBox>(&d, "chkSupprimer")->isHidden());
    tempo->setValue(140);
    ok(d);
    EXPECT_TRUE(d.modifie());
  }
  // Sorted before the one at 144.
  EXPECT_EQ(std::tuple(doc.modifi, doc.getMesureTempoLast(2), doc.getMesureTempoX(2, 1),
                       doc.getMesureTempoContenu(2, 1), doc.getUndoDepth()),
            std::tuple(kVrai, 2, 48, 140, 1));

  // Cancel, or OK on the same value, writes nothing.
  const CVantoroTablature avant = doc;
  {
    FTabTempo d(kAnglais, doc, 2, 48);
    ok(d);
    EXPECT_FALSE(d.modifie());
    FTabTempo e(kAnglais, doc, 2, 48);
    enfant<QSpinBox>(&e, "udTempo")->setValue(200);
    enfant<QCheckBox>(&e, "chkSupprimer")->setChecked(true);
    annuler(e);
  }
  EXPECT_TRUE(doc == avant);
  // The change at the tick removed, the other stays.
  FTabTempo d(kAnglais, doc, 2, 48);
  auto* supprimer = enfant<QCheckBox>(&d, "chkSupprimer");
  EXPECT_FALSE(supprimer->isHidden());
  supprimer->setChecked(true);
  EXPECT_FALSE(enfant<QSpinBox>(&d, "udTempo")->isEnabled());
  ok(d);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(std::tuple(doc.getMesureTempoLast(2), doc.getMesureTempoContenu(2, 1)),
            std::tuple(1, 60));
}

TEST(Textes, LinesBecomeTheStoredNewLineAnEmptiedTextGoesAndBadCharactersAreRefused) {
  CVantoroTablature doc = document(2, 2);
  doc.setMesureTexte(2, 1, 48, "old\\nline", kVrai);
  doc.setMesureTexte(2, 1, 48, "below", kFaux);
  doc.setMesureTexte(2, 1, 96, "other", kFaux);
  const CVantoroTablature avant = doc;
  FTabTextes d(kAnglais, doc, 2, 1, 48);
  d.show();
  auto* haut = enfant<QPlainTextEdit>(&d, "txtHaut");
  auto* bas = enfant<QPlainTextEdit>(&d, "txtBas");
  EXPECT_EQ(haut->toPlainText(), "old\nline");
  EXPECT_EQ(bas->toPlainText(), "below");
  // A character Windows-1252 lacks: refused, nothing written.
  bas->setPlainText(QString::fromUtf8("Chorus \u2713 \u2192 bridge"));
  ok(d);
  EXPECT_TRUE(d.isVisible());
  EXPECT_FALSE(d.modifie());
  EXPECT_EQ(enfant<QLabel>(&d, "lblErreur")->text(),
            QString::fromUtf8("“Text below the staff” holds characters that a tablature cannot "
                              "store: \u2713 \u2192. Remove or replace them."));
  EXPECT_TRUE(doc == avant);

  haut->setPlainText(QString::fromUtf8("Intro \u2014 soft\nlet ring"));
  bas->clear();
  ok(d);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.getMesureTexte(2, 1, 48, kVrai), "Intro \x97 soft\\nlet ring");
  // The emptied text below went; the other text below and the other track stay.
  EXPECT_EQ(std::tuple(doc.getMesureTexteDnLast(2, 1), doc.getMesureTexteDnContenu(2, 1, 1),
                       doc.getMesureTexteUpLast(1, 1)),
            std::tuple(1, "other", 0));
  // Undo restores the text's track, not the cursor's.
  ASSERT_EQ(doc.CurseurPiste(), 1);
  EXPECT_TRUE(doc.makeUndo());
  EXPECT_TRUE(memeContenu(doc, avant));
}

}  // namespace
}  // namespace vt::essai
