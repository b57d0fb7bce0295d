// FTabProprietes: the piece's fields and the tracks' settings, written on OK
// only, refused when a text cannot be stored, undone track by track.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

#include "dialogs/ftab_proprietes.h"
#include "dialogs/note_midi.h"
#include "dialogs/onglet_pistes.h"
#include "dialogs_support.h"
#include "formats/catalogue.h"

namespace vt::essai {
namespace {

const char* const kCatalogue =
    "[Accordeur]\nnbrGuitares=2\n"
    "[1]\nnom=Guitare\nnomEN=Guitar\nnbrCordes=6\nnbrCases=24\ncorde1=64\ncorde2=59\n"
    "corde3=55\ncorde4=50\ncorde5=45\ncorde6=40\ncapodastre=0\n"
    "[2]\nnom=Basse\nnomEN=Bass\nnbrCordes=4\nnbrCases=20\ncorde1=43\ncorde2=38\n"
    "corde3=33\ncorde4=28\ncapodastre=0\n";

class Proprietes : public ::testing::Test {
 protected:
  CatalogueGuitares catalogue = CatalogueGuitares::fromText(kCatalogue);
  CVantoroTablature doc = document(2, 3);

  std::unique_ptr<FTabProprietes> ouvre(FTabProprietes::Onglet onglet, int piste,
                                        const Textes& t = kAnglais) {
    return std::make_unique<FTabProprietes>(t, catalogue, guitareSixCordes(), doc, onglet, piste);
  }
};

TEST_F(Proprietes, OkWritesExactlyTheFieldsThatChanged) {
  doc.setMIDIPan(2, 30);
  CVantoroTablature attendu = doc;
  auto d = ouvre(FTabProprietes::Onglet::Morceau, 1);
  // The fields open on the document's values.
  EXPECT_EQ(enfant<QSpinBox>(d.get(), "udTempo")->value(), 120);
  enfant<QLineEdit>(d.get(), "txtTitre")->setText("Blue Rondo");
  enfant<QLineEdit>(d.get(), "txtAuteur")->setText("Brubeck");
  enfant<QPlainTextEdit>(d.get(), "txtComments")->setPlainText("Line one\nline two");
  enfant<QSpinBox>(d.get(), "udTempo")->setValue(96);
  enfant<QCheckBox>(d.get(), "chkTripleFeel")->setChecked(true);
  auto* pistes = enfant<QComboBox>(d.get(), "cmbPiste");
  pistes->setCurrentIndex(1);
  EXPECT_EQ(enfant<QSpinBox>(d.get(), "udPan")->value(), 30);
  QTest::keyClicks(enfant<QLineEdit>(d.get(), "txtNom"), "Bass line");
  EXPECT_EQ(pistes->itemText(1), "Track 2 : Bass line");
  enfant<QComboBox>(d.get(), "cmbPatch")->setCurrentIndex(33);
  enfant<QSpinBox>(d.get(), "udReverb")->setValue(40);
  enfant<QCheckBox>(d.get(), "chkMute")->setChecked(true);
  ok(*d);

  EXPECT_EQ(d->result(), QDialog::Accepted);
  EXPECT_TRUE(d->modifie());
  EXPECT_EQ(doc.modifi, kVrai);
  attendu.titre = "Blue Rondo";
  attendu.Auteur = "Brubeck";
  attendu.Comments = "Line one\nline two";
  attendu.tempo = 96;
  attendu.setTripleFeel(kVrai);
  attendu.setPisteNom(2, "Bass line");
  attendu.setMIDIPatch(2, 33);
  attendu.setMIDIReverb(2, 40);
  attendu.setPistePlayMute(2, kVrai);
  EXPECT_TRUE(memeContenu(doc, attendu));
  EXPECT_EQ(doc.getPisteNom(1), "");
  EXPECT_EQ(doc.getMIDIPan(2), 30);
}

TEST_F(Proprietes, CancelAndAnUntouchedOkLeaveTheDocumentAsItWas) {
  doc.setPortéeClef(1, 3);  // a value no button names
  doc.setMIDIPatch(1, 200);
  const CVantoroTablature avant = doc;
  {
    auto d = ouvre(FTabProprietes::Onglet::Pistes, 1);
    enfant<QLineEdit>(d.get(), "txtTitre")->setText("Changed");
    enfant<QLineEdit>(d.get(), "txtNom")->setText("Changed");
    enfant<QSpinBox>(d.get(), "udCordes")->setValue(4);
    enfant<QRadioButton>(d.get(), "optBatterie")->setChecked(true);
    annuler(*d);
    EXPECT_EQ(d->result(), QDialog::Rejected);
    EXPECT_FALSE(d->modifie());
  }
  EXPECT_TRUE(doc == avant);
  // OK with nothing touched writes nothing: no undo snapshot, not modified,
  // and the odd stored clef and patch stay.
  auto d = ouvre(FTabProprietes::Onglet::Pistes, 1);
  EXPECT_TRUE(enfant<QRadioButton>(d.get(), "optFa")->isChecked());
  ok(*d);
  EXPECT_FALSE(d->modifie());
  EXPECT_TRUE(doc == avant);
  EXPECT_EQ(doc.getPortéeClef(1), 3);
  EXPECT_EQ(doc.getMIDIPatch(1), 200);
}

TEST_F(Proprietes, UndoAfterOkRestoresEachChangedTrackTheCursorsFirst) {
  doc.setCurseurPiste(1);
  const CVantoroTablature avant = doc;
  auto d = ouvre(FTabProprietes::Onglet::Pistes, 1);
  enfant<QSpinBox>(d.get(), "udCapo")->setValue(3);
  enfant<QComboBox>(d.get(), "cmbPiste")->setCurrentIndex(1);
  enfant<QRadioButton>(d.get(), "optBatterie")->setChecked(true);
  enfant<QRadioButton>(d.get(), "optFa")->setChecked(true);
  ok(*d);
  EXPECT_EQ(doc.getGuitareCapodastre(1), 3);
  EXPECT_EQ(doc.getStaffType(2), kStaffBatterie);
  EXPECT_EQ(doc.getPortéeClef(2), 2);
  EXPECT_EQ(doc.getUndoDepth(), 2);
  EXPECT_FALSE(doc.makeUndo());  // the cursor's track comes back first
  EXPECT_EQ(doc.getGuitareCapodastre(1), 0);
  EXPECT_EQ(doc.getStaffType(2), kStaffBatterie);
  EXPECT_TRUE(doc.makeUndo());  // then track 2, and the cursor goes with it
  EXPECT_EQ(doc.CurseurPiste(), 2);
  EXPECT_TRUE(memeContenu(doc, avant));
}

TEST_F(Proprietes, ASevenStringCustomTuningTypedAsNotesKeepsTheNotesAndChords) {
  doc.setNoteWhole(1, 2, 6, 0, 3, 48);
  doc.setNoteWhole(1, 2, 1, 48, 5, 48);
  const int a = doc.addandplaceMesureAccord(1, 1, 0);
  OneBased<byt> frettes(6, 0);
  frettes[6] = 3;
  doc.setMesureAccord(1, 1, a, "G", frettes);
  auto d = ouvre(FTabProprietes::Onglet::Pistes, 1);
  auto* instrument = enfant<QComboBox>(d.get(), "cmbInstrument");
  EXPECT_EQ(instrument->currentText(), "Guitar");
  enfant<QSpinBox>(d.get(), "udCordes")->setValue(7);
  // Typed as a guitarist names it: the low B of a seven-string.
  auto* septième = enfant<QSpinBox>(d.get(), "udCorde7");
  septième->selectAll();
  QTest::keyClicks(septième, "B1");
  septième->interpretText();
  EXPECT_EQ(septième->value(), 35);
  EXPECT_EQ(septième->text(), "B1 (35)");
  // And the first string tuned down a tone, by its MIDI number.
  auto* première = enfant<QSpinBox>(d.get(), "udCorde1");
  première->selectAll();
  QTest::keyClicks(première, "62");
  première->interpretText();
  EXPECT_EQ(instrument->currentText(), "Custom tuning");
  ok(*d);
  ASSERT_TRUE(d->modifie());

  EXPECT_EQ(doc.getGuitareNbrCordes(1), 7);
  const int attendues[] = {0, 62, 59, 55, 50, 45, 40, 35};
  for (int c = 1; c <= 7; ++c)
    EXPECT_EQ(doc.getGuitareCorde(1, c), attendues[c]) << c;
  EXPECT_EQ(doc.getGuitareNom(1), "Custom tuning");
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    EXPECT_EQ(doc.pisteMesure(1, m)->tabCordes.last(), 7) << m;
  EXPECT_EQ(doc.getNoteCase(1, 2, 6, 1), 3);
  EXPECT_EQ(doc.getNoteCase(1, 2, 1, 1), 5);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, a, 6), 3);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, a, 7), kCaseVide);
  // The other track keeps its six strings.
  EXPECT_EQ(doc.getGuitareNbrCordes(2), 6);
}

TEST_F(Proprietes, FewerStringsWarnOfTheNotesLostAndDropThem) {
  doc.setNoteWhole(1, 1, 5, 0, 2, 48);
  doc.setNoteWhole(1, 3, 6, 96, 0, 48);
  doc.setNoteWhole(1, 3, 6, 0, kCaseVide, 48);  // a blank note carries no pitch to lose
  doc.setNoteWhole(1, 1, 4, 0, 7, 48);
  auto d = ouvre(FTabProprietes::Onglet::Pistes, 1);
  auto* perte = enfant<QLabel>(d.get(), "lblPerte");
  EXPECT_TRUE(perte->text().isEmpty());
  enfant<QSpinBox>(d.get(), "udCordes")->setValue(4);
  EXPECT_EQ(perte->text(), "Notes on the strings you remove: 2. They will be lost.");
  EXPECT_FALSE(enfant<QSpinBox>(d.get(), "udCorde5")->isEnabled());
  ok(*d);
  EXPECT_EQ(doc.getGuitareNbrCordes(1), 4);
  EXPECT_EQ(doc.pisteMesure(1, 3)->tabCordes.last(), 4);
  EXPECT_EQ(doc.getNoteCase(1, 1, 4, 1), 7);
  // The strings that went hold nothing any more.
  EXPECT_EQ(doc.getGuitareCorde(1, 5), 0);
  EXPECT_EQ(doc.getGuitareCorde(1, 6), 0);
}

TEST_F(Proprietes, AnInstrumentOfTheCatalogueOrTheCurrentOneGivesItsWholeSetUp) {
  auto d = ouvre(FTabProprietes::Onglet::Pistes, 2);
  auto* instrument = enfant<QComboBox>(d.get(), "cmbInstrument");
  ASSERT_EQ(instrument->count(), 3);
  instrument->setCurrentIndex(1);
  emit instrument->activated(1);
  EXPECT_EQ(enfant<QSpinBox>(d.get(), "udCordes")->value(), 4);
  EXPECT_EQ(enfant<QSpinBox>(d.get(), "udCorde4")->text(), "E1 (28)");
  ok(*d);
  EXPECT_EQ(doc.getGuitareNom(2), "Bass");
  EXPECT_EQ(doc.getGuitareNbrCordes(2), 4);
  EXPECT_EQ(doc.getGuitareNbrCases(2), 20);
  EXPECT_EQ(doc.getGuitareCorde(2, 1), 43);
  EXPECT_EQ(doc.getGuitareCorde(2, 4), 28);

  // Back to the guitar the main window holds, in French.
  auto f = ouvre(FTabProprietes::Onglet::Pistes, 2, kFrancais);
  auto* instrumentFr = enfant<QComboBox>(f.get(), "cmbInstrument");
  EXPECT_EQ(instrumentFr->currentText(), "Basse");
  enfant<QAbstractButton>(f.get(), "btnInstrumentCourant")->click();
  EXPECT_EQ(instrumentFr->currentText(), "Guitare");
  EXPECT_EQ(enfant<QSpinBox>(f.get(), "udCorde6")->text(), "Mi1 (40)");
  ok(*f);
  EXPECT_EQ(doc.getGuitareNbrCordes(2), 6);
  EXPECT_EQ(doc.getGuitareCorde(2, 6), 40);
  EXPECT_EQ(doc.getGuitareNbrCases(2), 24);
  EXPECT_EQ(doc.getGuitareNom(2), "Guitare");
}

TEST_F(Proprietes, TextsWindows1252CannotHoldAreRefusedWithTheirCharacters) {
  auto d = ouvre(FTabProprietes::Onglet::Pistes, 1);
  d->show();
  enfant<QLineEdit>(d.get(), "txtSousTitre")->setText(QString::fromUtf8("Suite \u266A en r\u00E9"));
  enfant<QSpinBox>(d.get(), "udCapo")->setValue(2);
  ok(*d);
  auto* erreur = enfant<QLabel>(d.get(), "lblErreur");
  EXPECT_TRUE(d->isVisible());
  EXPECT_NE(d->result(), QDialog::Accepted);
  EXPECT_TRUE(erreur->isVisible());
  EXPECT_EQ(erreur->text(), QString::fromUtf8("“Subtitle” holds characters that a tablature "
                                              "cannot store: \u266A. Remove or replace them."));
  EXPECT_EQ(enfant<QTabWidget>(d.get(), "onglets")->currentIndex(), 0);
  EXPECT_EQ(doc.SousTitre, "");
  EXPECT_EQ(doc.getGuitareCapodastre(1), 0);
  EXPECT_EQ(doc.getUndoDepth(), 0);

  // A track name is checked too, on its own track.
  enfant<QLineEdit>(d.get(), "txtSousTitre")->setText(QString::fromUtf8("Suite \u20AC en r\u00E9"));
  enfant<QComboBox>(d.get(), "cmbPiste")->setCurrentIndex(1);
  enfant<QLineEdit>(d.get(), "txtNom")->setText(QString::fromUtf8("\u5F26 \u5F26 \u266B"));
  enfant<QComboBox>(d.get(), "cmbPiste")->setCurrentIndex(0);
  ok(*d);
  EXPECT_NE(d->result(), QDialog::Accepted);
  EXPECT_EQ(enfant<QTabWidget>(d.get(), "onglets")->currentIndex(), 1);
  EXPECT_EQ(enfant<QComboBox>(d.get(), "cmbPiste")->currentIndex(), 1);
  EXPECT_TRUE(erreur->text().startsWith(QString::fromUtf8("Track 2 : “Track name” holds")));
  EXPECT_TRUE(erreur->text().contains(QString::fromUtf8("\u5F26 \u266B.")));
  EXPECT_EQ(doc.SousTitre, "");

  enfant<QLineEdit>(d.get(), "txtNom")->setText(QString::fromUtf8("Cordes \u0153"));
  ok(*d);
  EXPECT_EQ(d->result(), QDialog::Accepted);
  EXPECT_EQ(doc.SousTitre, "Suite \x80 en r\xE9");
  EXPECT_EQ(doc.getPisteNom(2), "Cordes \x9C");
}

TEST_F(Proprietes, StoredTextsShowInUtf8AndALongOneIsRefused) {
  doc.titre = "Caf\xE9 \x93noir\x94";
  auto d = ouvre(FTabProprietes::Onglet::Morceau, 1);
  EXPECT_EQ(enfant<QLineEdit>(d.get(), "txtTitre")->text(),
            QString::fromUtf8("Caf\u00E9 \u201Cnoir\u201D"));
  enfant<QPlainTextEdit>(d.get(), "txtComments")->setPlainText(QString(256, QLatin1Char('x')));
  ok(*d);
  EXPECT_NE(d->result(), QDialog::Accepted);
  EXPECT_EQ(enfant<QLabel>(d.get(), "lblErreur")->text(),
            QString::fromUtf8("“Comments” is longer than 255 characters, the most a tablature "
                              "text can hold."));
  EXPECT_EQ(doc.Comments, "");
}

TEST(NoteMidi, NamesAndReadsOpenStringsAsGuitaristsDo) {
  EXPECT_EQ(nomNoteMidi(40, kLangAnglais), "E2");
  EXPECT_EQ(nomNoteMidi(60, kLangAnglais), "C4");
  EXPECT_EQ(nomNoteMidi(40, kLangFrançais), "Mi1");
  EXPECT_EQ(nomNoteMidi(60, kLangFrançais), "Do3");
  EXPECT_EQ(nomNoteMidi(0, kLangAnglais), "C-1");
  EXPECT_EQ(nomNoteMidi(70, kLangFrançais), "La#3");
  const struct {
    const char* texte;
    int lang;
    int note;
  } cas[] = {
      {"E2", kLangAnglais, 40},    {"e 2", kLangAnglais, 40},     {"Bb3", kLangAnglais, 58},
      {"A#3", kLangAnglais, 58},   {"Cb4", kLangAnglais, 59},     {"C-1", kLangAnglais, 0},
      {"G9", kLangAnglais, 127},   {"G#9", kLangAnglais, -1},     {"64", kLangAnglais, 64},
      {"128", kLangAnglais, -1},   {"E2 (40)", kLangAnglais, 40}, {"H2", kLangAnglais, -1},
      {"Mi1", kLangFrançais, 40},  {"sib2", kLangFrançais, 58},   {"Ré#1", kLangFrançais, 39},
      {"re 1", kLangFrançais, 38}, {"Sol 2", kLangFrançais, 55},  {"E2", kLangFrançais, 52},
      {"", kLangAnglais, -1},      {"E", kLangAnglais, -1}};
  for (const auto& c : cas)
    EXPECT_EQ(lireNoteMidi(QString::fromUtf8(c.texte), c.lang), c.note) << c.texte;
  for (int n = 0; n <= 127; ++n) {
    EXPECT_EQ(lireNoteMidi(nomNoteMidi(n, kLangAnglais), kLangAnglais), n);
    EXPECT_EQ(lireNoteMidi(nomNoteMidi(n, kLangFrançais), kLangFrançais), n);
  }
}

}  // namespace
}  // namespace vt::essai
