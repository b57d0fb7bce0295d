// FTabProprietes (the piece's and tracks' settings) and FTabTranspose (a track's notes moved).
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <array>
#include <tuple>

#include "dialogs/ftab_proprietes.h"
#include "dialogs/ftab_transpose.h"
#include "dialogs/note_midi.h"
#include "dialogs/onglet_pistes.h"
#include "dialogs_support.h"
#include "formats/catalogue.h"

namespace vt::essai {
namespace {

// A track's instrument: name, frets, and the pitch of each string.
std::tuple<std::string, int, std::vector<int>> instrument(const CVantoroTablature& d, int p) {
  std::vector<int> cordes;
  for (int c = 1; c <= d.getGuitareNbrCordes(p); ++c)
    cordes.push_back(d.getGuitareCorde(p, c));
  return {d.getGuitareNom(p), d.getGuitareNbrCases(p), cordes};
}

class Proprietes : public ::testing::Test {
 protected:
  CatalogueGuitares catalogue = CatalogueGuitares::fromText(kGuitareEtBasse);
  CVantoroTablature doc = document(2, 3);
  std::unique_ptr<FTabProprietes> d;

  FTabProprietes& ouvre(FTabProprietes::Onglet onglet, int piste, const Textes& t = kAnglais) {
    d = std::make_unique<FTabProprietes>(t, catalogue, guitareSixCordes(), doc, onglet, piste);
    return *d;
  }
  template <class T>
  T* w(const char* nom) {
    return enfant<T>(d.get(), nom);
  }
  // Typed into a string's box as a guitarist names the note, or its MIDI number.
  QSpinBox* accorde(const char* corde, const char* note) {
    auto* s = w<QSpinBox>(corde);
    s->selectAll();
    QTest::keyClicks(s, note);
    s->interpretText();
    return s;
  }
};

TEST_F(Proprietes, OkWritesExactlyTheFieldsThatChanged) {
  doc.setMIDIPan(2, 30);
  CVantoroTablature attendu = doc;
  ouvre(FTabProprietes::Onglet::Morceau, 1);
  // The fields open on the document's values.
  EXPECT_EQ(w<QSpinBox>("udTempo")->value(), 120);
  w<QLineEdit>("txtTitre")->setText("Blue Rondo");
  w<QLineEdit>("txtAuteur")->setText("Brubeck");
  w<QPlainTextEdit>("txtComments")->setPlainText("Line one\nline two");
  w<QSpinBox>("udTempo")->setValue(96);
  w<QCheckBox>("chkTripleFeel")->setChecked(true);
  w<QComboBox>("cmbPiste")->setCurrentIndex(1);
  EXPECT_EQ(w<QSpinBox>("udPan")->value(), 30);
  QTest::keyClicks(w<QLineEdit>("txtNom"), "Bass line");
  EXPECT_EQ(w<QComboBox>("cmbPiste")->itemText(1), "Track 2 : Bass line");
  w<QComboBox>("cmbPatch")->setCurrentIndex(33);
  w<QSpinBox>("udReverb")->setValue(40);
  w<QCheckBox>("chkMute")->setChecked(true);
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
}

TEST_F(Proprietes, CancelAndAnUntouchedOkLeaveTheDocumentAsItWasFewerStringsDropNotes) {
  doc.setPortéeClef(1, 3);  // a value no button names
  doc.setMIDIPatch(1, 200);
  const CVantoroTablature avant = doc;
  ouvre(FTabProprietes::Onglet::Pistes, 1);
  w<QLineEdit>("txtTitre")->setText("Changed");
  w<QLineEdit>("txtNom")->setText("Changed");
  w<QSpinBox>("udCordes")->setValue(4);
  w<QRadioButton>("optBatterie")->setChecked(true);
  annuler(*d);
  EXPECT_EQ(d->result(), QDialog::Rejected);
  EXPECT_FALSE(d->modifie());
  EXPECT_TRUE(doc == avant);
  // OK with nothing touched writes nothing: no undo snapshot, not modified,
  // and the odd stored clef and patch stay.
  ouvre(FTabProprietes::Onglet::Pistes, 1);
  EXPECT_TRUE(w<QRadioButton>("optFa")->isChecked());
  ok(*d);
  EXPECT_FALSE(d->modifie());
  EXPECT_TRUE(doc == avant);

  // Fewer strings warn of the notes lost (a blank carries no pitch to lose) and drop them.
  doc.setNoteWhole(1, 1, 5, 0, 2, 48);
  doc.setNoteWhole(1, 3, 6, 96, 0, 48);
  doc.setNoteWhole(1, 3, 6, 0, kCaseVide, 48);
  doc.setNoteWhole(1, 1, 4, 0, 7, 48);
  ouvre(FTabProprietes::Onglet::Pistes, 1);
  auto* perte = w<QLabel>("lblPerte");
  EXPECT_TRUE(perte->text().isEmpty());
  w<QSpinBox>("udCordes")->setValue(4);
  EXPECT_EQ(perte->text(), "Notes on the strings you remove: 2. They will be lost.");
  EXPECT_FALSE(w<QSpinBox>("udCorde5")->isEnabled());
  ok(*d);
  EXPECT_EQ(
      std::tuple(doc.getGuitareNbrCordes(1), doc.pisteMesure(1, 3)->tabCordes.last(),
                 doc.getNoteCase(1, 1, 4, 1), doc.getGuitareCorde(1, 5), doc.getGuitareCorde(1, 6)),
      std::tuple(4, 4, 7, 0, 0));
}

TEST_F(Proprietes, UndoAfterOkRestoresEachChangedTrackTheCursorsFirst) {
  doc.setCurseurPiste(1);
  const CVantoroTablature avant = doc;
  ouvre(FTabProprietes::Onglet::Pistes, 1);
  w<QSpinBox>("udCapo")->setValue(3);
  w<QComboBox>("cmbPiste")->setCurrentIndex(1);
  w<QRadioButton>("optBatterie")->setChecked(true);
  w<QRadioButton>("optFa")->setChecked(true);
  ok(*d);
  const auto vue = [this] {
    return std::tuple(doc.getGuitareCapodastre(1), doc.getStaffType(2), doc.getPortéeClef(2));
  };
  EXPECT_EQ(vue(), std::tuple(3, kStaffBatterie, 2));
  EXPECT_EQ(doc.getUndoDepth(), 2);
  EXPECT_FALSE(doc.makeUndo());  // the cursor's track comes back first
  EXPECT_EQ(vue(), std::tuple(0, kStaffBatterie, 2));
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
  ouvre(FTabProprietes::Onglet::Pistes, 1);
  auto* choix = w<QComboBox>("cmbInstrument");
  EXPECT_EQ(choix->currentText(), "Guitar");
  w<QSpinBox>("udCordes")->setValue(7);
  // The low B of a seven-string, as a guitarist names it.
  auto* septième = accorde("udCorde7", "B1");
  EXPECT_EQ(septième->value(), 35);
  EXPECT_EQ(septième->text(), "B1 (35)");
  // And the first string tuned down a tone, by its MIDI number.
  accorde("udCorde1", "62");
  EXPECT_EQ(choix->currentText(), "Custom tuning");
  ok(*d);
  ASSERT_TRUE(d->modifie());

  EXPECT_EQ(instrument(doc, 1),
            std::tuple("Custom tuning", 24, std::vector<int>{62, 59, 55, 50, 45, 40, 35}));
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    EXPECT_EQ(doc.pisteMesure(1, m)->tabCordes.last(), 7) << m;
  EXPECT_EQ(corde(doc, 1, 2, 6), (std::vector<Note>{{0, 3, 48}}));
  EXPECT_EQ(corde(doc, 1, 2, 1), (std::vector<Note>{{48, 5, 48}}));
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, a, 6), 3);
  EXPECT_EQ(doc.getMesureAccordCorde(1, 1, a, 7), kCaseVide);
  // The other track keeps its six strings.
  EXPECT_EQ(doc.getGuitareNbrCordes(2), 6);
}

TEST_F(Proprietes, AnInstrumentOfTheCatalogueOrTheCurrentOneGivesItsWholeSetUp) {
  ouvre(FTabProprietes::Onglet::Pistes, 2);
  auto* choix = w<QComboBox>("cmbInstrument");
  ASSERT_EQ(choix->count(), 3);
  choix->setCurrentIndex(1);
  emit choix->activated(1);
  EXPECT_EQ(w<QSpinBox>("udCordes")->value(), 4);
  EXPECT_EQ(w<QSpinBox>("udCorde4")->text(), "E1 (28)");
  ok(*d);
  EXPECT_EQ(instrument(doc, 2), std::tuple("Bass", 20, std::vector<int>{43, 38, 33, 28}));

  // Back to the guitar the main window holds, in French.
  ouvre(FTabProprietes::Onglet::Pistes, 2, kFrancais);
  choix = w<QComboBox>("cmbInstrument");
  EXPECT_EQ(choix->currentText(), "Basse");
  w<QAbstractButton>("btnInstrumentCourant")->click();
  EXPECT_EQ(choix->currentText(), "Guitare");
  EXPECT_EQ(w<QSpinBox>("udCorde6")->text(), "Mi1 (40)");
  ok(*d);
  EXPECT_EQ(instrument(doc, 2),
            std::tuple("Guitare", 24, std::vector<int>{64, 59, 55, 50, 45, 40}));
}

TEST_F(Proprietes, TextsWindows1252CannotHoldOrTooLongAreRefusedStoredOnesShowInUtf8) {
  doc.titre = "Caf\xE9 \x93noir\x94";
  ouvre(FTabProprietes::Onglet::Pistes, 1);
  d->show();
  EXPECT_EQ(w<QLineEdit>("txtTitre")->text(), QString::fromUtf8("Caf\u00E9 \u201Cnoir\u201D"));
  w<QPlainTextEdit>("txtComments")->setPlainText(QString(256, QLatin1Char('x')));
  ok(*d);
  EXPECT_NE(d->result(), QDialog::Accepted);
  EXPECT_EQ(w<QLabel>("lblErreur")->text(),
            QString::fromUtf8("“Comments” is longer than 255 characters, the most a tablature "
                              "text can hold."));
  EXPECT_EQ(doc.Comments, "");
  w<QPlainTextEdit>("txtComments")->clear();
  w<QLineEdit>("txtSousTitre")->setText(QString::fromUtf8("Suite \u266A en r\u00E9"));
  w<QSpinBox>("udCapo")->setValue(2);
  ok(*d);
  auto* erreur = w<QLabel>("lblErreur");
  EXPECT_TRUE(d->isVisible());
  EXPECT_NE(d->result(), QDialog::Accepted);
  EXPECT_TRUE(erreur->isVisible());
  EXPECT_EQ(erreur->text(), QString::fromUtf8("“Subtitle” holds characters that a tablature "
                                              "cannot store: \u266A. Remove or replace them."));
  EXPECT_EQ(w<QTabWidget>("onglets")->currentIndex(), 0);
  EXPECT_EQ(doc.getGuitareCapodastre(1), 0);
  EXPECT_EQ(doc.getUndoDepth(), 0);

  // A track name is checked too, on its own track.
  w<QLineEdit>("txtSousTitre")->setText(QString::fromUtf8("Suite \u20AC en r\u00E9"));
  w<QComboBox>("cmbPiste")->setCurrentIndex(1);
  w<QLineEdit>("txtNom")->setText(QString::fromUtf8("\u5F26 \u5F26 \u266B"));
  w<QComboBox>("cmbPiste")->setCurrentIndex(0);
  ok(*d);
  EXPECT_NE(d->result(), QDialog::Accepted);
  EXPECT_EQ(w<QTabWidget>("onglets")->currentIndex(), 1);
  EXPECT_EQ(w<QComboBox>("cmbPiste")->currentIndex(), 1);
  EXPECT_TRUE(erreur->text().startsWith(QString::fromUtf8("Track 2 : “Track name” holds")));
  EXPECT_TRUE(erreur->text().contains(QString::fromUtf8("\u5F26 \u266B.")));
  EXPECT_EQ(doc.SousTitre, "");

  w<QLineEdit>("txtNom")->setText(QString::fromUtf8("Cordes \u0153"));
  ok(*d);
  EXPECT_EQ(d->result(), QDialog::Accepted);
  EXPECT_EQ(doc.SousTitre, "Suite \x80 en r\xE9");
  EXPECT_EQ(doc.getPisteNom(2), "Cordes \x9C");
}

TEST(NoteMidi, NamesAndReadsOpenStringsAsGuitaristsDo) {
  const struct {
    const char* texte;
    int lang;
    int note;  // -1: not a note; a name shown as read back
  } cas[] = {
      {"E2", kLangAnglais, 40},    {"e 2", kLangAnglais, 40},     {"Bb3", kLangAnglais, 58},
      {"A#3", kLangAnglais, 58},   {"Cb4", kLangAnglais, 59},     {"C-1", kLangAnglais, 0},
      {"G9", kLangAnglais, 127},   {"G#9", kLangAnglais, -1},     {"64", kLangAnglais, 64},
      {"128", kLangAnglais, -1},   {"E2 (40)", kLangAnglais, 40}, {"H2", kLangAnglais, -1},
      {"Mi1", kLangFrançais, 40},  {"sib2", kLangFrançais, 58},   {"Ré#1", kLangFrançais, 39},
      {"re 1", kLangFrançais, 38}, {"Sol 2", kLangFrançais, 55},  {"E2", kLangFrançais, 52},
      {"", kLangAnglais, -1},      {"E", kLangAnglais, -1},       {"C4", kLangAnglais, 60},
      {"Do3", kLangFrançais, 60},  {"La#3", kLangFrançais, 70}};
  for (const auto& c : cas)
    EXPECT_EQ(lireNoteMidi(QString::fromUtf8(c.texte), c.lang), c.note) << c.texte;
  for (const auto& [n, anglais, français] :
       {std::tuple(40, "E2", "Mi1"), std::tuple(60, "C4", "Do3"), std::tuple(0, "C-1", "Do-2"),
        std::tuple(70, "A#4", "La#3")}) {
    EXPECT_EQ(nomNoteMidi(n, kLangAnglais), anglais);
    EXPECT_EQ(nomNoteMidi(n, kLangFrançais), français);
  }
  for (int n = 0; n <= 127; ++n) {
    EXPECT_EQ(lireNoteMidi(nomNoteMidi(n, kLangAnglais), kLangAnglais), n);
    EXPECT_EQ(lireNoteMidi(nomNoteMidi(n, kLangFrançais), kLangFrançais), n);
  }
}

using Notes = std::vector<Note>;

// Up `demiTons` within `min`..`max` over the whole track, then OK.
void transpose(FTabTranspose& d, int demiTons, int min, int max) {
  enfant<QSpinBox>(&d, "udDemiTons")->setValue(demiTons);
  enfant<QSpinBox>(&d, "udMin")->setValue(min);
  enfant<QSpinBox>(&d, "udMax")->setValue(max);
  enfant<QRadioButton>(&d, "optPiste")->setChecked(true);
  ok(d);
}

// The frets of string 1 in each bar of track `p`.
std::vector<int> frets(const CVantoroTablature& doc, int p) {
  std::vector<int> l;
  for (int m = 1; m <= doc.getMesureLast(); ++m)
    l.push_back(doc.getNoteCase(p, m, 1, 1));
  return l;
}

TEST(Transpose, TheFourWaysANoteGoesUpWithinTheFrets) {
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 4, 0, 3, 48);     // up 2 within the range: fret 5
  doc.setNoteWhole(1, 1, 3, 48, 21, 48);   // 23 > 22: to string 2 as 23 + 55 - 59 = 19
  doc.setNoteWhole(1, 1, 1, 96, 21, 48);   // 23 > 22 on the top string: lost
  doc.setNoteWhole(1, 1, 3, 144, 21, 48);  // string 2 taken at this tick: lost
  doc.setNoteWhole(1, 1, 2, 144, 7, 48);   // ... and this one stays, moved itself
  const CVantoroTablature avant = doc;
  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  transpose(d, 2, 0, 22);
  EXPECT_TRUE(d.modifie());
  EXPECT_EQ(doc.modifi, kVrai);
  const std::vector<Notes> attendues = {{}, {{48, 19, 48}, {144, 9, 48}}, {}, {{0, 5, 48}}};
  for (int c = 1; c <= 4; ++c)
    EXPECT_EQ(corde(doc, 1, 1, c), attendues[static_cast<std::size_t>(c - 1)]) << c;
  ASSERT_EQ(doc.getUndoDepth(), 1);
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
  // The neighbour string's fret comes from the current instrument, whose
  // second string is a semitone above the track's: 23 + 55 - 60.
  tGuitare g = guitareSixCordes();
  g.corde[2] = 60;
  FTabTranspose e(kAnglais, doc, 1, g);
  transpose(e, 2, 0, 22);
  EXPECT_EQ(corde(doc, 1, 1, 2), (Notes{{48, 18, 48}, {144, 9, 48}}));
}

TEST(Transpose, NoAmountCancelOrAMinimumNotBelowTheMaximumWriteNothing) {
  CVantoroTablature doc = document(1, 1);
  doc.setNoteWhole(1, 1, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  {
    FTabTranspose d(kFrancais, doc, 1, guitareSixCordes());
    EXPECT_EQ(d.windowTitle(), "Transposer");
    auto* okBouton = enfant<QPushButton>(&d, "btnOk");
    EXPECT_FALSE(okBouton->isEnabled()) << "no amount yet";
    EXPECT_EQ(enfant<QSpinBox>(&d, "udMax")->value(), 24) << "the track's fret count";
    enfant<QSpinBox>(&d, "udDemiTons")->setValue(-1);
    EXPECT_TRUE(okBouton->isEnabled());
    annuler(d);
  }
  FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
  d.show();
  transpose(d, 3, 12, 12);
  EXPECT_TRUE(d.isVisible());
  EXPECT_FALSE(d.modifie());
  EXPECT_EQ(enfant<QLabel>(&d, "lblErreur")->text(),
            "The min fret must be inferior to the max fret!");
  EXPECT_TRUE(doc == avant);  // no undo step either
  // Corrected, the same dialog goes through.
  enfant<QSpinBox>(&d, "udMin")->setValue(0);
  ok(d);
  EXPECT_FALSE(d.isVisible());
  EXPECT_EQ(doc.getNoteCase(1, 1, 1, 1), 8);
}

TEST(Transpose, TheSelectionsBarsEitherWayRoundOrTheWholeTrack) {
  CVantoroTablature doc = document(1, 4);
  for (int m = 1; m <= 4; ++m)
    doc.setNoteWhole(1, m, 1, 0, 5, 48);
  const auto sélection = [&doc](int m0, int x0, int m1, int x1) {
    doc.intSelStartMesure = static_cast<i16>(m0);
    doc.intSelStartX = static_cast<i16>(x0);
    doc.intSelStopMesure = static_cast<i16>(m1);
    doc.intSelStopX = static_cast<i16>(x1);
    doc.bytSelStartCorde = doc.bytSelStopCorde = 1;
  };
  // Dragged from bar 3 back to bar 2: what the user means to move; a click
  // selects one cell: the whole track comes first; no selection: only the track.
  const struct {
    std::array<int, 4> sélection;
    bool surSélection, sélectionPossible;
    int demiTons;
    std::vector<int> frets;
  } kCas[] = {{{3, 96, 2, 0}, true, true, 1, {5, 6, 6, 5}},
              {{4, 0, 4, 0}, false, true, -2, {3, 4, 4, 3}},
              {{0, 0, 0, 0}, false, false, 1, {4, 5, 5, 4}}};
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.demiTons);
    sélection(c.sélection[0], c.sélection[1], c.sélection[2], c.sélection[3]);
    FTabTranspose d(kAnglais, doc, 1, guitareSixCordes());
    EXPECT_EQ(enfant<QRadioButton>(&d, "optSelection")->isChecked(), c.surSélection);
    EXPECT_EQ(enfant<QRadioButton>(&d, "optSelection")->isEnabled(), c.sélectionPossible);
    enfant<QSpinBox>(&d, "udDemiTons")->setValue(c.demiTons);
    ok(d);
    EXPECT_EQ(frets(doc, 1), c.frets);
  }
}

TEST(Transpose, AnotherTrackThanTheCursorsIsMovedAndUndoneAloneAndBlanksLeaveNoUndoStep) {
  CVantoroTablature doc = document(2, 1);
  doc.setCurseurPiste(1);
  doc.setNoteWhole(1, 1, 1, 0, 5, 48);
  doc.setNoteWhole(2, 1, 1, 0, 5, 48);
  const CVantoroTablature avant = doc;
  {
    FTabTranspose d(kAnglais, doc, 2, guitareSixCordes());
    transpose(d, 4, 0, 24);
  }
  EXPECT_EQ(std::tuple(frets(doc, 1), frets(doc, 2), doc.CurseurPiste()),
            std::tuple(std::vector<int>{5}, std::vector<int>{9}, 1));
  doc.makeUndo();
  EXPECT_TRUE(memeContenu(doc, avant));
  // A track of blank notes only is left as it is, without an undo step.
  CVantoroTablature vide = document(1, 2);
  const int n = vide.setNoteWhole(1, 1, 1, 0, kCaseVide, 48);
  vide.setNoteEffet(1, 1, 1, n, effet::kVibrato);
  const CVantoroTablature blanc = vide;
  FTabTranspose d(kAnglais, vide, 1, guitareSixCordes());
  transpose(d, 5, 0, 24);
  EXPECT_FALSE(d.modifie());
  EXPECT_TRUE(vide == blanc);
}

}  // namespace
}  // namespace vt::essai
