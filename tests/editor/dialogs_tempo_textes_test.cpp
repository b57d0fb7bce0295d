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

TEST(Tempo, ANewChangeStartsFromTheTempoThatPlaysThere) {
  CVantoroTablature doc = document(1, 3);
  doc.tempo = 100;
  doc.setMesureTempo(1, 96, 90);
  doc.setMesureTempo(2, 144, 60);
  EXPECT_EQ((std::vector<int>{tempoEnVigueur(doc, 1, 95), tempoEnVigueur(doc, 2, 48),
                              tempoEnVigueur(doc, 3, 0)}),
            (std::vector<int>{100, 90, 60}));

  FTabTempo d(kAnglais, doc, 2, 48);
  auto* tempo = enfant<QSpinBox>(&d, "udTempo");
  EXPECT_EQ(tempo->value(), 90);
  EXPECT_TRUE(enfant<QCheckBox>(&d, "chkSupprimer")->isHidden());
  tempo->setValue(140);
  ok(d);
  EXPECT_TRUE(d.modifie());
  // Sorted before the one at 144.
  EXPECT_EQ(std::tuple(doc.modifi, doc.getMesureTempoLast(2), doc.getMesureTempoX(2, 1),
                       doc.getMesureTempoContenu(2, 1), doc.getUndoDepth()),
            std::tuple(kVrai, 2, 48, 140, 1));
}

TEST(Tempo, AChangeAtTheTickCanBeRemovedTheOthersStayAndCancelOrTheSameValueWriteNothing) {
  CVantoroTablature doc = document(1, 2);
  doc.setMesureTempo(2, 0, 80);
  doc.setMesureTempo(2, 48, 140);
  doc.setMesureTempo(2, 96, 160);
  const CVantoroTablature avant = doc;
  {
    FTabTempo d(kAnglais, doc, 2, 0);
    ok(d);
    EXPECT_FALSE(d.modifie());
  }
  {
    FTabTempo d(kAnglais, doc, 2, 0);
    enfant<QSpinBox>(&d, "udTempo")->setValue(200);
    enfant<QCheckBox>(&d, "chkSupprimer")->setChecked(true);
    annuler(d);
  }
  EXPECT_TRUE(doc == avant);

  FTabTempo d(kAnglais, doc, 2, 48);
  EXPECT_EQ(enfant<QSpinBox>(&d, "udTempo")->value(), 140);
  auto* supprimer = enfant<QCheckBox>(&d, "chkSupprimer");
  EXPECT_FALSE(supprimer->isHidden());
  supprimer->setChecked(true);
  EXPECT_FALSE(enfant<QSpinBox>(&d, "udTempo")->isEnabled());
  ok(d);
  EXPECT_TRUE(d.modifie());
  ASSERT_EQ(doc.getMesureTempoLast(2), 2);
  EXPECT_EQ(std::pair(doc.getMesureTempoContenu(2, 1), doc.getMesureTempoContenu(2, 2)),
            std::pair(80, 160));
}

TEST(Textes, LinesBecomeTheStoredNewLineAndAnEmptiedTextGoes) {
  CVantoroTablature doc = document(2, 2);
  doc.setMesureTexte(2, 1, 48, "old\\nline", kVrai);
  doc.setMesureTexte(2, 1, 48, "below", kFaux);
  doc.setMesureTexte(2, 1, 96, "other", kFaux);
  FTabTextes d(kAnglais, doc, 2, 1, 48);
  auto* haut = enfant<QPlainTextEdit>(&d, "txtHaut");
  auto* bas = enfant<QPlainTextEdit>(&d, "txtBas");
  EXPECT_EQ(haut->toPlainText(), "old\nline");
  EXPECT_EQ(bas->toPlainText(), "below");
  haut->setPlainText(QString::fromUtf8("Intro \u2014 soft\nlet ring"));
  bas->clear();
  ok(d);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.getMesureTexte(2, 1, 48, kVrai), "Intro \x97 soft\\nlet ring");
  // The emptied text below went; the other text below and the other track stay.
  EXPECT_EQ(std::tuple(doc.getMesureTexteDnLast(2, 1), doc.getMesureTexteDnContenu(2, 1, 1),
                       doc.getMesureTexteUpLast(1, 1)),
            std::tuple(1, "other", 0));
}

TEST(Textes, ACharacterWindows1252LacksIsRefusedAndNothingIsWritten) {
  CVantoroTablature doc = document(1, 1);
  const CVantoroTablature avant = doc;
  FTabTextes d(kAnglais, doc, 1, 1, 0);
  d.show();
  enfant<QPlainTextEdit>(&d, "txtHaut")->setPlainText("Verse");
  enfant<QPlainTextEdit>(&d, "txtBas")
      ->setPlainText(QString::fromUtf8("Chorus \u2713 \u2192 bridge"));
  ok(d);
  EXPECT_TRUE(d.isVisible());
  EXPECT_FALSE(d.modifie());
  auto* erreur = enfant<QLabel>(&d, "lblErreur");
  EXPECT_EQ(erreur->text(), QString::fromUtf8("“Text below the staff” holds characters that a "
                                              "tablature cannot store: \u2713 \u2192. Remove or "
                                              "replace them."));
  EXPECT_TRUE(doc == avant);
  annuler(d);
  EXPECT_TRUE(doc == avant);
}

TEST(Textes, UndoAfterOkRestoresTheTrackOfTheText) {
  CVantoroTablature doc = document(2, 1);
  doc.setCurseurPiste(1);
  doc.setMesureTexte(2, 1, 0, "intro", kVrai);
  const CVantoroTablature avant = doc;
  FTabTextes d(kFrancais, doc, 2, 1, 0);
  enfant<QPlainTextEdit>(&d, "txtHaut")->setPlainText(QString::fromUtf8("Refrain \u00E0 deux"));
  ok(d);
  EXPECT_EQ(doc.getMesureTexte(2, 1, 0, kVrai), "Refrain \xE0 deux");
  EXPECT_TRUE(doc.makeUndo());
  EXPECT_TRUE(memeContenu(doc, avant));
}

}  // namespace
}  // namespace vt::essai
