// The bar header dialogs (signatures, bar lines, bar range) and those of a tick (tempo, texts).
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <functional>
#include <tuple>

#include "dialogs/dialogs.h"
#include "dialogs/ftab_get_key_signature.h"
#include "dialogs/ftab_get_time_signature.h"
#include "dialogs/ftab_mesure.h"
#include "dialogs/ftab_tempo.h"
#include "dialogs/ftab_textes.h"
#include "dialogs/noms_tonalites.h"
#include "dialogs_support.h"

namespace vt::essai {
namespace {

// The signature bar `m` holds: top and bottom.
std::pair<int, int> signatureDe(const CVantoroTablature& doc, int m) {
  return {doc.getMesureSignatureUp(m), doc.getMesureSignatureDn(m)};
}

void signature(QDialog& d, int haut, int bas) {
  enfant<QSpinBox>(&d, "udHaut")->setValue(haut);
  auto* b = enfant<QComboBox>(&d, "cmbBas");
  b->setCurrentIndex(b->findData(bas));
}

// Bar 2 of a 4/4 piece with content at and past tick 144 on both tracks.
CVantoroTablature pieceACouper() {
  CVantoroTablature doc = document(2, 3);
  doc.setNoteWhole(1, 2, 1, 0, 3, 48);
  doc.setNoteWhole(1, 2, 2, 96, 5, 96);
  doc.setNoteWhole(1, 2, 3, 144, 7, 24);
  doc.setNoteWhole(1, 2, 3, 168, 8, 24);
  doc.setNoteWhole(2, 2, 6, 150, 1, 12);
  doc.setMesureAccord(2, 2, doc.addandplaceMesureAccord(2, 2, 150), "E", OneBased<byt>(6, 0));
  doc.setMesureTexte(2, 2, 160, "fill", kVrai);
  doc.setMesureTexte(1, 2, 0, "verse", kFaux);
  doc.setMesureTempo(2, 150, 100);
  doc.setMesureTempo(2, 48, 90);
  doc.setNoteWhole(1, 3, 1, 168, 9, 24);  // another bar: untouched
  return doc;
}

TEST(TimeSignature, ANarrowerBarShowsWhatItCutsAndCutsItOnEveryTrack) {
  CVantoroTablature doc = pieceACouper();
  const CVantoroTablature avant = doc;
  {
    FTabGetTimeSignature d(kAnglais, doc, 2);
    signature(d, 2, 4);
    annuler(d);
    EXPECT_FALSE(d.modifie());
  }
  EXPECT_TRUE(doc == avant) << "Cancel cuts nothing";
  doc.setCurseurMesure(2);
  doc.setCurseurX(168);
  FTabGetTimeSignature d(kAnglais, doc, 2);
  EXPECT_EQ(enfant<QSpinBox>(&d, "udHaut")->value(), 4);
  EXPECT_EQ(enfant<QComboBox>(&d, "cmbBas")->currentData().toInt(), 4);
  auto* coupe = enfant<QLabel>(&d, "lblCoupe");
  EXPECT_TRUE(coupe->isHidden());
  enfant<QRadioButton>(&d, "optSeule")->setChecked(true);
  signature(d, 3, 4);
  EXPECT_FALSE(coupe->isHidden());
  EXPECT_EQ(coupe->text(),
            QString::fromUtf8("Beyond the new end of the measure, this will be removed from "
                              "every track — notes: 3, chords: 1, texts: 1, tempo changes: 1."));
  // A wider bar cuts nothing.
  signature(d, 5, 4);
  EXPECT_TRUE(coupe->isHidden());
  signature(d, 6, 8);
  EXPECT_FALSE(coupe->isHidden());
  ok(d);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.modifi, kVrai);

  EXPECT_EQ(signatureDe(doc, 2), std::pair(6, 8));
  EXPECT_EQ(doc.getMesureLargeur(2), 144);
  EXPECT_EQ(doc.getMesureSignatureUp(3), 4);
  // Gone: notes, chord, text and tempo change past tick 144, on both tracks.
  EXPECT_EQ(std::tuple(doc.getNoteLast(1, 2, 3), doc.getNoteLast(2, 2, 6),
                       doc.getMesureAccordLast(2, 2), doc.getMesureTexteUpLast(2, 2),
                       doc.getMesureTempoLast(2), doc.getMesureTempoX(2, 1)),
            std::tuple(0, 0, 0, 0, 1, 48));
  // What lies before the new end stays, even a note that now runs past it.
  EXPECT_EQ(corde(doc, 1, 2, 1), (std::vector<Note>{{0, 3, 48}}));
  EXPECT_EQ(corde(doc, 1, 2, 2), (std::vector<Note>{{96, 5, 96}}));
  EXPECT_EQ(doc.getMesureTexteDnContenu(1, 2, 1), "verse");
  EXPECT_EQ(doc.getNoteLast(1, 3, 1), 1);
  EXPECT_EQ(doc.CurseurX(), 0) << "the cursor stays inside its bar";
  // Undo brings back the cursor's track; the signature is the bar's, outside the snapshot.
  ASSERT_EQ(doc.getUndoDepth(), 1);
  doc.makeUndo();
  EXPECT_TRUE(doc.piste(1) == avant.piste(1));
  EXPECT_EQ(signatureDe(doc, 2), std::pair(6, 8));
}

TEST(TimeSignature, FromAMeasureOnItHoldsUpToTheNextChange) {
  CVantoroTablature doc = document(1, 6);
  doc.setMesureSignature(4, 6, 8);
  FTabGetTimeSignature d(kAnglais, doc, 1);
  enfant<QSpinBox>(&d, "udMesure")->setValue(2);
  EXPECT_TRUE(enfant<QRadioButton>(&d, "optSuite")->isChecked());
  signature(d, 7, 8);
  ok(d);
  std::vector<std::pair<int, int>> lues;
  for (int m = 1; m <= 6; ++m)
    lues.push_back(signatureDe(doc, m));
  EXPECT_EQ(lues,
            (std::vector<std::pair<int, int>>{{4, 4}, {7, 8}, {7, 8}, {6, 8}, {4, 4}, {4, 4}}));
  // Choosing another bar primes the fields with its signature.
  FTabGetTimeSignature e(kAnglais, doc, 1);
  enfant<QSpinBox>(&e, "udMesure")->setValue(4);
  EXPECT_EQ(enfant<QSpinBox>(&e, "udHaut")->value(), 6);
  EXPECT_EQ(enfant<QComboBox>(&e, "cmbBas")->currentData().toInt(), 8);
}

TEST(KeySignature, NamesEveryKeyAndWritesTheStoredByte) {
  for (int a = -7; a <= 7; ++a)
    for (bool majeur : {true, false})
      for (const Textes& t : {kAnglais, kFrancais})
        EXPECT_FALSE(nomTonalite(t, a, majeur).startsWith('[')) << a << majeur;
  EXPECT_EQ(nomTonalite(kAnglais, -3, false), "C minor");
  EXPECT_EQ(nomTonalite(kFrancais, 6, true), QString::fromUtf8("Fa dièse majeur"));
  EXPECT_EQ(nomAlterations(kAnglais, -3), "3 flats");
  EXPECT_EQ(nomAlterations(kFrancais, 1), QString::fromUtf8("1 dièse"));

  CVantoroTablature doc = document(1, 4);
  doc.setMesureTonalitéDétails(3, 1, kVrai);
  FTabGetKeySignature d(kAnglais, doc, 1);
  auto* liste = enfant<QComboBox>(&d, "cmbAlterations");
  EXPECT_EQ(liste->currentText(), "C major (no sharps or flats)");
  enfant<QRadioButton>(&d, "optMineur")->setChecked(true);
  liste->setCurrentIndex(liste->findData(-3));
  EXPECT_EQ(liste->currentText(), "C minor (3 flats)");
  EXPECT_EQ(d.tonalite(), 69);
  ok(d);
  const auto tonalités = [&doc] {
    return std::vector<int>{doc.getMesureTonalité(1), doc.getMesureTonalité(2),
                            doc.getMesureTonalité(3), doc.getMesureTonalité(4)};
  };
  EXPECT_EQ(tonalités(), (std::vector<int>{69, 69, 9, 8}));  // the next change stays
  EXPECT_EQ(std::pair(doc.getMesureTonalitéAltérations(2), doc.getMesureTonalitéMode(2)),
            std::pair(-3, kFaux));

  // A stored minor key opens as it is; one bar alone; Cancel changes nothing.
  FTabGetKeySignature e(kFrancais, doc, 2);
  EXPECT_TRUE(enfant<QRadioButton>(&e, "optMineur")->isChecked());
  EXPECT_EQ(enfant<QComboBox>(&e, "cmbAlterations")->currentText(),
            QString::fromUtf8("Do mineur (3 bémols)"));
  const CVantoroTablature avant = doc;
  enfant<QRadioButton>(&e, "optMajeur")->setChecked(true);
  annuler(e);
  EXPECT_TRUE(doc == avant);
  FTabGetKeySignature f(kAnglais, doc, 2);
  enfant<QRadioButton>(&f, "optSeule")->setChecked(true);
  enfant<QRadioButton>(&f, "optMajeur")->setChecked(true);
  ok(f);
  EXPECT_EQ(tonalités(), (std::vector<int>{69, 5, 9, 8}));
}

TEST(BarLines, RepeatsTakeTheirCountOtherLinesWriteNoneAndNothingChangedWritesNothing) {
  CVantoroTablature doc = document(1, 3);
  doc.setMesureLoopGaucheData(2, 7);  // never interpreted: kept
  // Cancel, or OK with nothing changed, writes nothing, not even odd stored values.
  doc.setMesureLoopGaucheType(1, 3);  // a type the left line does not use
  doc.setMesureLoopDroiteType(1, barre::kRepetition);
  doc.setMesureLoopDroiteData(1, 0);
  const CVantoroTablature avant = doc;
  {
    FTabMesure d(kAnglais, doc, 1);
    enfant<QComboBox>(&d, "cmbDroite")->setCurrentIndex(barre::kDouble);
    annuler(d);
    FTabMesure e(kAnglais, doc, 1);
    ok(e);
    EXPECT_FALSE(e.modifie());
  }
  EXPECT_TRUE(doc == avant);
  {
    FTabMesure d(kAnglais, doc, 2);
    auto* passages = enfant<QSpinBox>(&d, "udPassages");
    EXPECT_FALSE(passages->isEnabled());
    enfant<QComboBox>(&d, "cmbGauche")->setCurrentIndex(barre::kRepetition);
    enfant<QComboBox>(&d, "cmbDroite")->setCurrentIndex(barre::kRepetition);
    EXPECT_TRUE(passages->isEnabled());
    EXPECT_EQ(passages->value(), 2);
    passages->setValue(3);
    ok(d);
    EXPECT_TRUE(d.modifie());
  }
  // The left line, the right one, its count, and the left's data kept.
  const auto barres = [&doc] {
    return std::tuple(doc.getMesureLoopGaucheType(2), doc.getMesureLoopDroiteType(2),
                      doc.getMesureLoopDroiteData(2), doc.getMesureLoopGaucheData(2));
  };
  EXPECT_EQ(barres(), std::tuple(barre::kRepetition, barre::kRepetition, 3, 7));
  {
    FTabMesure d(kAnglais, doc, 2);
    EXPECT_EQ(enfant<QSpinBox>(&d, "udPassages")->value(), 3);
    enfant<QComboBox>(&d, "cmbDroite")->setCurrentIndex(barre::kFinale);
    ok(d);
  }
  EXPECT_EQ(barres(), std::tuple(barre::kRepetition, barre::kFinale, 0, 7));
}

// Runs `geste` on the dialog once it is shown modally.
void quandOuvert(const std::function<void(FTabMesureEdit&)>& geste) {
  QTimer::singleShot(0, [geste] {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* d = qobject_cast<FTabMesureEdit*>(w); d != nullptr && d->isVisible()) {
        geste(*d);
        return;
      }
    ADD_FAILURE() << "the dialog was not shown";
  });
}

// Every track may be chosen, but copy takes the current one.
TEST(MesureEdit, StartsAtTheCursorsBarAndStaysInsideTheDocumentAndCopyTakesTheCurrentTrack) {
  CVantoroTablature doc = document(2, 10);
  doc.setCurseurMesure(7);
  for (int mode : {2, 3, 4}) {
    FTabMesureEdit d(kAnglais, doc, mode);
    auto* de = enfant<QSpinBox>(&d, "udMesureFrom");
    auto* nombre = enfant<QSpinBox>(&d, "udMesureNumber");
    EXPECT_EQ(
        std::tuple(de->value(), de->minimum(), de->maximum(), nombre->value(), nombre->maximum()),
        std::tuple(7, 1, 10, 1, 4))
        << mode;
    nombre->setValue(4);
    de->setValue(9);  // two bars left: the number follows
    EXPECT_EQ(std::pair(nombre->maximum(), nombre->value()), std::pair(2, 2));
    de->setValue(1);
    EXPECT_EQ(nombre->maximum(), 10);
    nombre->setValue(12);
    auto* courante = enfant<QRadioButton>(&d, "optPiste_0");
    EXPECT_EQ(std::pair(courante->text(), courante->isChecked()),
              std::pair(QString("The current track"), true));
    EXPECT_EQ(d.positions(), (PositionsMesures{1, 10, false}));
    enfant<QRadioButton>(&d, "optPiste_1")->setChecked(true);
    EXPECT_EQ(enfant<QRadioButton>(&d, "optPiste_1")->isEnabled(), mode != FTabMesureEdit::kCopier);
    EXPECT_EQ(d.positions().toutesPistes, mode != FTabMesureEdit::kCopier);
  }
  // Inserting reaches past the end.
  FTabMesureEdit d(kAnglais, doc, FTabMesureEdit::kInserer);
  auto* nombre = enfant<QSpinBox>(&d, "udMesureNumber");
  enfant<QSpinBox>(&d, "udMesureFrom")->setValue(10);
  nombre->setValue(500);
  EXPECT_EQ(nombre->maximum(), FTabMesureEdit::kMaxInsertion);
  EXPECT_EQ(d.positions(), (PositionsMesures{10, 500, false}));
}

TEST(MesureEdit, OkHandsBackTheRangeCancelAndUnknownModesNothing) {
  CVantoroTablature doc = document(2, 6);
  doc.setCurseurMesure(3);
  const CVantoroTablature avant = doc;
  PositionsMesures out{9, 9, false};

  quandOuvert([](FTabMesureEdit& d) {
    enfant<QSpinBox>(&d, "udMesureNumber")->setValue(2);
    enfant<QRadioButton>(&d, "optPiste_1")->setChecked(true);
    ok(d);
  });
  EXPECT_TRUE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 4, out));
  EXPECT_EQ(out, (PositionsMesures{3, 2, true}));

  quandOuvert([](FTabMesureEdit& d) {
    enfant<QSpinBox>(&d, "udMesureFrom")->setValue(1);
    annuler(d);
  });
  EXPECT_FALSE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 1, out));
  EXPECT_EQ(out, (PositionsMesures{3, 2, true}));

  EXPECT_FALSE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 0, out));
  EXPECT_FALSE(FTabMesureEdit::getMesurePositions(nullptr, kAnglais, doc, 5, out));
  EXPECT_EQ(out, (PositionsMesures{3, 2, true}));
  // The dialog only reads.
  EXPECT_TRUE(doc == avant);
}

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
