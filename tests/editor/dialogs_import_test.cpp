// Fmid2vtb and Ftab2vtb: MIDI and text tablature read through the dialogs.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSpinBox>
#include <QTemporaryDir>
#include <memory>
#include <tuple>

#include "../formats/midi_test_files.h"
#include "dialogs/fmid2vtb.h"
#include "dialogs/ftab2vtb.h"
#include "dialogs_support.h"
#include "formats/catalogue.h"

namespace vt::essai {
namespace {

using test::Octets;
using test::PisteMidi;
using test::smf;
using Notes = std::vector<Note>;

std::string octets(std::initializer_list<int> l) {
  return std::string(l.begin(), l.end());
}

// A conductor (title, 100 bpm), a guitar, a bass on channel 2 and a track of no notes.
Octets morceau() {
  return smf(
      1, 120,
      {PisteMidi().meta(0, 0x03, "Conducteur").meta(0, 0x51, octets({0x09, 0x27, 0xC0})).fin(480),
       PisteMidi()
           .meta(0, 0x03, "Guitare")
           .on(0, 64)
           .off(120, 64)
           .on(120, 67)
           .off(240, 67)
           .fin(240),
       PisteMidi().meta(0, 0x03, "Basse").on(0, 40, 90, 1).off(240, 40, 1).fin(240),
       PisteMidi().meta(0, 0x03, "Vide").fin(0)});
}

QComboBox* liste(const QDialog& d, int k) {
  return enfant<QComboBox>(&d, ("Piste_convertir_" + std::to_string(k)).c_str());
}

QStringList entrées(const QComboBox* l) {
  QStringList e;
  for (int i = 0; i < l->count(); ++i)
    e << l->itemText(i);
  return e;
}

void choisir(const QDialog& d, int k, int source) {
  QComboBox* l = liste(d, k);
  const int i = l->findData(source);
  if (i < 0) throw std::runtime_error("no such source");
  l->setCurrentIndex(i);
}

QString texte(const QDialog& d, const char* label) {
  return enfant<QLabel>(&d, label)->text();
}

// An imported piece as a whole: tracks, bars, tempo, title, undo depth, changed.
std::tuple<int, int, int, std::string, int, bool> pièce(const CVantoroTablature& d) {
  return {d.getPisteLast(), d.getMesureLast(), d.tempo, d.titre, d.getUndoDepth(), d.modifi};
}
// A track's instrument: strings, frets and name.
std::tuple<int, int, std::string> instrument(const CVantoroTablature& d, int p) {
  return {d.getGuitareNbrCordes(p), d.getGuitareNbrCases(p), d.getGuitareNom(p)};
}

const CatalogueGuitares kSansCatalogue;

// The files of one test, removed with it, and the document they would replace
// with what was there before the import, to see that it is still there.
class Import : public ::testing::Test {
 protected:
  Import() {
    doc.titre = "Ancien";
    doc.setNoteWhole(2, 4, 3, 96, 7, 24);
    doc.storeUndo(true);
    avant = doc;
  }
  QString écrire(const char* nom, const std::string& octets) {
    const QString chemin = m_dossier.filePath(QString::fromLatin1(nom));
    QFile f(chemin);
    if (!f.open(QIODevice::WriteOnly)) throw std::runtime_error("cannot write a test file");
    f.write(octets.data(), static_cast<qint64>(octets.size()));
    return chemin;
  }
  QString écrire(const char* nom, const Octets& o) {
    return écrire(nom, std::string(o.begin(), o.end()));
  }
  QString absent() const { return m_dossier.filePath(QStringLiteral("absent.mid")); }
  std::unique_ptr<Fmid2vtb> midi(const QString& chemin, const Textes& t = kAnglais,
                                 const CatalogueGuitares& c = kSansCatalogue) {
    return std::make_unique<Fmid2vtb>(t, c, guitareSixCordes(), chemin, doc);
  }
  std::unique_ptr<Ftab2vtb> ascii(const QString& chemin, const Textes& t = kAnglais) {
    return std::make_unique<Ftab2vtb>(t, kSansCatalogue, guitareSixCordes(), chemin, doc);
  }

  QTemporaryDir m_dossier;
  CVantoroTablature doc = document(3, 5);
  CVantoroTablature avant;
};

TEST_F(Import, MidiTracksAreListedTheOnesWithNotesChosenAndConvertedOnOk) {
  auto d = midi(écrire("song.mid", morceau()));
  ASSERT_TRUE(d->lu());
  EXPECT_EQ(d->findChild<QLabel*>(QStringLiteral("lblAvis")), nullptr);  // format 1
  QStringList choisies;
  for (int k = 1; k <= Fmid2vtb::kCibles; ++k) {
    EXPECT_EQ(entrées(liste(*d, k)),
              (QStringList{"(none)", "Conducteur: 0", "Guitare: 1", "Basse: 2", "Vide: 3"}));
    choisies << liste(*d, k)->currentText();
  }
  EXPECT_EQ(choisies.mid(0, 3), (QStringList{"Guitare: 1", "Basse: 2", "(none)"}));
  EXPECT_EQ(d->choix(), (std::vector<int>{1, 2}));
  EXPECT_EQ(enfant<QCommandLinkButton>(d.get(), "btnOk")->description(),
            "You want to convert the track Guitare: 1, Basse: 2 of the file song.mid. Click "
            "here to make the conversion.");
  EXPECT_TRUE(enfant<QCheckBox>(d.get(), "chkTempos")->isChecked());

  ok(*d);
  ASSERT_TRUE(d->remplace());
  // The old document's steps went with it; a piece without a file of its own is changed.
  EXPECT_EQ(pièce(doc), std::tuple(2, 1, 100, "Conducteur", 0, true));
  EXPECT_EQ(doc.getPisteNom(1), "Guitare");
  EXPECT_EQ(doc.getPisteNom(2), "Basse");
  EXPECT_EQ(corde(doc, 1, 1, 1), (Notes{{0, 0, 48}, {48, 3, 48}}));
  EXPECT_EQ(corde(doc, 2, 1, 6), (Notes{{0, 0, 96}}));
  EXPECT_EQ(doc.getNoteVolume(2, 1, 6, 1), 90);
  // The last step is still shown, the bar full.
  EXPECT_EQ(texte(*d, "txtKeskispasse"), "Arranging the notes...");
  auto* barre = enfant<QProgressBar>(d.get(), "ProgressBar");
  EXPECT_EQ(barre->value(), barre->maximum());

  // The transposition and the tempo option reach the conversion.
  doc = avant;
  d = midi(écrire("a.mid", morceau()));
  choisir(*d, 2, -1);
  enfant<QSpinBox>(d.get(), "udTranspose")->setValue(12);
  enfant<QCheckBox>(d.get(), "chkTempos")->setChecked(false);
  ok(*d);
  ASSERT_TRUE(d->remplace());
  EXPECT_EQ(pièce(doc), std::tuple(1, 1, 120, "Conducteur", 0, true));
  EXPECT_EQ(corde(doc, 1, 1, 1), (Notes{{0, 12, 48}, {48, 15, 48}}));
}

TEST_F(Import, AMidiFormat0FileOffersItsChannelsWithANotice) {
  const Octets o = smf(0, 120,
                       {PisteMidi()
                            .meta(0, 0x03, "Tout")
                            .on(0, 64, 100, 0)
                            .on(0, 45, 100, 2)
                            .off(120, 64, 0)
                            .off(120, 45, 2)
                            .fin(120)});
  auto d = midi(écrire("zero.mid", o));
  ASSERT_TRUE(d->lu());
  EXPECT_EQ(texte(*d, "lblAvis").toStdString(), loadString(2512, kLangAnglais));
  QStringList canaux{"(none)"};
  for (int c = 1; c <= 16; ++c)
    canaux << QStringLiteral("Channel %1").arg(c);
  EXPECT_EQ(entrées(liste(*d, 1)), canaux);
  EXPECT_EQ(d->choix(), (std::vector<int>{1, 3}));  // the channels that play
  ok(*d);
  ASSERT_TRUE(d->remplace());
  ASSERT_EQ(doc.getPisteLast(), 2);
  EXPECT_EQ(corde(doc, 1, 1, 1), (Notes{{0, 0, 48}}));
  EXPECT_EQ(corde(doc, 2, 1, 5), (Notes{{0, 0, 48}}));
}

TEST_F(Import, AMidiTrackWithoutNotesOrNoChoiceIsRefusedInTheDialog) {
  auto d = midi(écrire("a.mid", morceau()));
  d->show();
  choisir(*d, 2, 3);
  ok(*d);
  EXPECT_TRUE(d->isVisible());
  EXPECT_FALSE(d->remplace());
  EXPECT_EQ(texte(*d, "lblErreur"), "This track contains no note!\nVide: 3");

  for (int k = 1; k <= Fmid2vtb::kCibles; ++k)
    choisir(*d, k, -1);
  EXPECT_EQ(enfant<QCommandLinkButton>(d.get(), "btnOk")->description(),
            "Select a track to convert!");
  ok(*d);
  EXPECT_TRUE(d->isVisible());
  EXPECT_EQ(texte(*d, "lblErreur"), "Select a track to convert!");
  EXPECT_TRUE(doc == avant);

  // Put right, the same dialog converts.
  choisir(*d, 4, 1);
  ok(*d);
  EXPECT_TRUE(d->remplace());
  EXPECT_FALSE(d->isVisible());
  EXPECT_EQ(doc.getPisteLast(), 1);
}

TEST_F(Import, AnUnknownMidiCommandStopsTheConversionWithItsByte) {
  const Octets o = smf(1, 120, {PisteMidi().on(0, 64).off(60, 64).evt(70, {0xF4}).fin(80)});
  auto d = midi(écrire("f4.mid", o), kFrancais);
  ASSERT_TRUE(d->lu());
  EXPECT_EQ(d->choix(), (std::vector<int>{0}));
  ok(*d);
  EXPECT_FALSE(d->remplace());
  EXPECT_EQ(texte(*d, "lblErreur"), "Commande inconnue : F4");
  EXPECT_TRUE(texte(*d, "txtKeskispasse").isEmpty());
  EXPECT_TRUE(doc == avant);
}

TEST_F(Import, AFileThatCannotBeReadIsNotShown) {
  const struct {
    bool midi;
    QString chemin;
    const Textes& langue;
    const char* message;
  } cas[] = {
      {true, écrire("texte.mid", std::string("MTrk and nothing else")), kAnglais,
       "This MIDI file is not valid!"},
      {true, écrire("vide.mid", smf(1, 120, {})), kAnglais, "No track!"},
      {true, absent(), kAnglais, "This file is missing."},
      {false, absent(), kFrancais, "Ce fichier est introuvable."},
      {false, écrire("vide.txt", std::string()), kAnglais, "This file holds no tablature."},
      {false, écrire("blanc.txt", std::string("\r\n  \r\n")), kAnglais,
       "This file holds no tablature."},
  };
  for (const auto& c : cas) {
    SCOPED_TRACE(c.message);
    QString refus;
    if (c.midi) {
      auto m = midi(c.chemin, c.langue);
      EXPECT_FALSE(m->lu());
      refus = m->refus();
      m->accept();  // nothing to convert
      EXPECT_FALSE(m->remplace());
    } else {
      auto a = ascii(c.chemin, c.langue);
      EXPECT_FALSE(a->lu());
      refus = a->refus();
    }
    EXPECT_TRUE(refus.startsWith(QString::fromUtf8(c.message))) << refus.toStdString();
  }
  EXPECT_TRUE(doc == avant);
}

TEST_F(Import, CancelLeavesTheDocumentHelpOpensTheImportPageAndACorruptedTextIsRefused) {
  QString page;
  const auto aide = [&page](const QString& p) { page = p; };
  Fmid2vtb d(kAnglais, kSansCatalogue, guitareSixCordes(), écrire("a.mid", morceau()), doc, aide);
  enfant<QAbstractButton>(&d, "btnAide")->click();
  EXPECT_EQ(page, "files.html#midiimport");
  EXPECT_EQ(
      midi(écrire("b.mid", morceau()))->findChild<QAbstractButton*>(QStringLiteral("btnAide")),
      nullptr);
  choisir(d, 3, 0);
  enfant<QSpinBox>(&d, "udTranspose")->setValue(-5);
  annuler(d);
  EXPECT_FALSE(d.remplace());

  auto a = ascii(écrire("tab.txt", "e|-0-|\n"));
  enfant<QAction>(a.get(), "tbRythme_noire")->trigger();
  annuler(*a);
  EXPECT_FALSE(a->remplace());
  EXPECT_TRUE(doc == avant);

  // A corrupted text is refused, and Help explains it.
  Ftab2vtb e(kAnglais, kSansCatalogue, guitareSixCordes(),
             écrire("mots.txt", std::string("No tablature here\r\njust words - and | bars\r\n")),
             doc, aide);
  e.show();
  enfant<QAbstractButton>(&e, "btnAide")->click();
  EXPECT_EQ(page, "files.html#asciiimport");
  ok(e);
  EXPECT_TRUE(e.isVisible());
  EXPECT_FALSE(e.remplace());
  EXPECT_EQ(texte(e, "lblErreur").toStdString(), loadString(1013, kLangAnglais));
  EXPECT_TRUE(doc == avant);
  enfant<QAbstractButton>(&e, "btnAide")->click();
  EXPECT_EQ(page, "files.html#corrupted");
}

TEST_F(Import, AMidiTuningRestoredFromTheFileTakesItsInstrumentFromTheCatalogue) {
  // An RMTF track header gives each track its strings: a known bass, an
  // unknown three-string tuning; the third track has none.
  const Octets o =
      smf(1, 120,
          {PisteMidi().meta(0, 0x10, octets({0, 0, 43, 38, 33, 28})).on(0, 45).off(60, 45).fin(60),
           PisteMidi().meta(0, 0x10, octets({1, 0, 60, 55, 50})).on(0, 62).off(60, 62).fin(60),
           PisteMidi().on(0, 64).off(60, 64).fin(60)});
  const CatalogueGuitares catalogue = CatalogueGuitares::fromText(kGuitareEtBasse);
  auto d = midi(écrire("rmtf.mid", o), kAnglais, catalogue);
  ok(*d);
  ASSERT_TRUE(d->remplace());
  ASSERT_EQ(doc.getPisteLast(), 3);
  EXPECT_EQ(instrument(doc, 1), std::tuple(4, 20, "Bass"));
  EXPECT_EQ(corde(doc, 1, 1, 1), (Notes{{0, 2, 24}}));
  EXPECT_EQ(instrument(doc, 2), std::tuple(3, 24, ""));
  EXPECT_EQ(doc.getGuitareNom(3), "Guitare");  // the current instrument, unchanged
}

// A title in Windows-1252, then one block of six strings.
const std::string kTexte =
    "Titre: Caf\xE9\n"
    "\n"
    "e|-----0---|\n"
    "B|---1-----|\n"
    "G|-2-------|\n"
    "D|---------|\n"
    "A|---------|\n"
    "E|3--------|\n";

// The text is shown; one rhythm button is down at a time, each with its
// length, the eighth at the start; the one down is the column length of the conversion.
TEST_F(Import, TheAsciiTextIsShownAndConvertedWithTheChosenColumnLength) {
  auto d = ascii(écrire("tab.txt", kTexte));
  ASSERT_TRUE(d->lu());
  auto* montré = enfant<QPlainTextEdit>(d.get(), "txtTab");
  EXPECT_TRUE(
      montré->toPlainText().startsWith(QString::fromUtf8("Titre: Caf\u00E9\n\ne|-----0---|")))
      << montré->toPlainText().toStdString();
  EXPECT_TRUE(montré->isReadOnly());
  EXPECT_EQ(enfant<QAction>(d.get(), "tbRythme_ronde")->toolTip(), "Whole note");
  EXPECT_EQ(enfant<QAction>(d.get(), "tbRythme_quadruple")->toolTip(), "Sixty-fourth note");
  const int ticks[] = {192, 96, 48, 24, 12, 6, 3};
  for (int i = 0; i <= Ftab2vtb::kRythmes; ++i) {
    if (i > 0) d->boutonRythme(i)->trigger();
    const int enfoncé = i > 0 ? i : Ftab2vtb::kRythmeInitial;
    EXPECT_EQ(d->rythme(), ticks[enfoncé - 1]);
    for (int j = 1; j <= Ftab2vtb::kRythmes; ++j)
      EXPECT_EQ(d->boutonRythme(j)->isChecked(), j == enfoncé) << i << " " << j;
  }
  enfant<QAction>(d.get(), "tbRythme_double")->trigger();
  ok(*d);
  ASSERT_TRUE(d->remplace());
  // The closing bar line took the next bar.
  EXPECT_EQ(pièce(doc), std::tuple(1, 2, 120, "", 0, true));
  const std::vector<Notes> attendues = {{{60, 0, 12}}, {{36, 1, 12}}, {{12, 2, 12}}, {}, {},
                                        {{0, 3, 12}}};
  for (int c = 1; c <= 6; ++c)
    EXPECT_EQ(corde(doc, 1, 1, c), attendues[static_cast<std::size_t>(c - 1)]) << c;
  EXPECT_EQ(texte(*d, "txtKeskispasse"), "Converting...");
}

TEST_F(Import, TheAsciiTrackIsSixStringedWhateverTheCurrentInstrument) {
  const tGuitare basse = test::basse4();
  const CatalogueGuitares catalogue = CatalogueGuitares::fromText(
      "[Accordeur]\nnbrGuitares=2\n[1]\nnom=Basse\nnbrCordes=4\ncorde1=43\ncorde2=38\n"
      "corde3=33\ncorde4=28\n[2]\nnom=Guitare, open G\nnomEN=Guitar, open G\nnbrCordes=6\n"
      "nbrCases=22\ncorde1=62\ncorde2=59\ncorde3=55\ncorde4=50\ncorde5=43\ncorde6=38\n");
  Ftab2vtb d(kAnglais, catalogue, basse, écrire("tab.txt", kTexte), doc);
  ok(d);
  ASSERT_TRUE(d.remplace());
  EXPECT_EQ(instrument(doc, 1), std::tuple(6, 22, "Guitar, open G"));
  EXPECT_EQ(doc.getGuitareCorde(1, 1), 62);
  EXPECT_EQ(corde(doc, 1, 1, 6), (Notes{{0, 3, 24}}));

  // Without a six-string instrument in the catalogue: the standard tuning.
  EXPECT_EQ(guitareSixCordes(kSansCatalogue, basse, kLangAnglais).corde, tGuitare{}.corde);
  // A six-string current instrument is kept, its tuning with it.
  tGuitare dropD = guitareSixCordes();
  dropD.corde[6] = 38;
  EXPECT_EQ(guitareSixCordes(catalogue, dropD, kLangAnglais), dropD);
}

TEST(ImportTexte, FileTextIsUtf8WhenItCanBeElseWindows1252) {
  EXPECT_EQ(texteExterieur("Caf\xC3\xA9"), QString::fromUtf8("Caf\u00E9"));
  EXPECT_EQ(texteExterieur("Caf\xE9 \x80"), QString::fromUtf8("Caf\u00E9 \u20AC"));
}

}  // namespace
}  // namespace vt::essai
