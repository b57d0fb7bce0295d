// The file commands of the editor: the question before changes are dropped, dialogs, recent files.
#include <QAction>
#include <QFile>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <deque>
#include <functional>
#include <tuple>

#include "../formats/old_files.h"
#include "formats/vtb.h"
#include "ftab_banc.h"

namespace vt::essai {
namespace {

// The next of a script of answers; none left fails the test and gives `sinon`.
template <class T>
T suivant(std::deque<T>& l, T sinon) {
  if (l.empty()) {
    ADD_FAILURE() << "the script of answers ran out";
    return sinon;
  }
  T r = l.front();
  l.pop_front();
  return r;
}

// The editor as the user sees it: the fret at bar 1, string 1, tick 0 (-1 for
// none), changed or not, the caption and the file.
using Vue = std::tuple<int, bool, QString, QString>;

class Fichiers : public Editeur {
 protected:
  // The editor with scripted answers: each question takes the next answer,
  // each file dialog the next path ("" cancels).
  FTab& prépare() {
    ouvre();
    ftab->question = [this](const QString& texte, QMessageBox::StandardButtons) {
      questions.push_back(texte);
      return suivant(réponses, QMessageBox::Cancel);
    };
    ftab->choisitFichier = [this](bool, const QString& dossierDialogue, const QString&,
                                  const QString&) {
      dialogues.push_back(dossierDialogue);
      return suivant(chemins, QString());
    };
    ftab->message = [this](const QString& t, QMessageBox::Icon i) {
      messages.push_back(t);
      icônes.push_back(i);
    };
    return *ftab;
  }
  Vue vue() { return {fret(1, 1, 0), doc().modifi != kFaux, ftab->windowTitle(), ftab->fichier()}; }
  static QString titre(const QString& chemin) {
    return chemin.isEmpty() ? "Tablature[*]" : "Tablature - " + chemin + "[*]";
  }
  // A tablature on disk whose bar 1, string 1 holds `f` at tick 0.
  QString fichier(const QString& nom, int f) {
    CVantoroTablature source(vt->guitare());
    source.setNoteWhole(1, 1, 1, 0, f, 24);
    const QString chemin = dossier.filePath(nom);
    EXPECT_TRUE(io_enregistrer_vtb(source, QFile::encodeName(chemin).toStdString()).ok());
    return chemin;
  }
  // A file of these bytes.
  QString écrire(const QString& nom, const QByteArray& octets) {
    const QString chemin = dossier.filePath(nom);
    QFile f(chemin);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
    return chemin;
  }
  QString version6() {
    const std::vector<std::uint8_t> o = test::fichierVersion6();
    return écrire("v6.vtb", QByteArray(reinterpret_cast<const char*>(o.data()),
                                       static_cast<qsizetype>(o.size())));
  }
  // Typed in the editor: the document is changed.
  void change() {
    tape("3");
    ASSERT_TRUE(doc().modifi);
  }
  // What a saved file holds at bar 1, string 1, tick 0; -1 for no note, -2 when it cannot be read.
  int fretDans(const QString& chemin) {
    VtbContexte ctx;
    ctx.guitare = vt->guitare();
    const VtbLecture l = io_ouvrir_vtb(QFile::encodeName(chemin).toStdString(), ctx);
    if (!l.ok()) return -2;
    const int n = l.document->searchNote(1, 1, 1, 0);
    return n == 0 ? -1 : l.document->getNoteCase(1, 1, 1, n);
  }
  QStringList récents() const {
    QStringList l;
    for (int i = 1; i <= 4; ++i)
      l << vt->settings().setTabLastOpenFile[static_cast<std::size_t>(i)];
    return l;
  }
  void fermeEditeur() {
    qobject_cast<QMdiSubWindow*>(ftab->parentWidget())->close();
    QCoreApplication::processEvents();
  }

  QTemporaryDir dossier;
  std::deque<QMessageBox::StandardButton> réponses;
  std::deque<QString> chemins;
  std::vector<QString> questions, dialogues, messages;  // dialogues: the folder each opened in
  std::vector<QMessageBox::Icon> icônes;
};

TEST_F(Fichiers, CancelKeepsTheChangesNoDropsThemYesSavesThemFirst) {
  prépare();
  const QString a = fichier("a.vtb", 9);
  ftab->MenuTabFileOpenLast(a);
  change();
  // Cancel: a new tablature, open, a dropped file and closing the editor stop.
  réponses.assign(4, QMessageBox::Cancel);
  ftab->MenuTabFile(0);
  ftab->MenuTabFile(1);
  ftab->ouvreFichierDéposé(a);
  fermeEditeur();
  ASSERT_EQ(questions, std::vector<QString>(4, "Do you want to save the current tablature?"));
  EXPECT_TRUE(dialogues.empty()) << "Cancel ends open before its dialog";
  ASSERT_TRUE(vt->isFormLoaded(fen::FTab));
  EXPECT_EQ(vue(), Vue(3, true, titre(a), a));

  // No: the dropped file opens as it was on disk.
  réponses = {QMessageBox::No};
  curseur(1, 0, 3);
  ftab->ouvreFichierDéposé(a);
  EXPECT_EQ(vue(), Vue(9, false, titre(a), a));
  EXPECT_EQ(doc().CurseurCorde(), 1);

  // Yes saves the named file, without a dialog, before the new tablature.
  change();
  réponses = {QMessageBox::Yes};
  ftab->MenuTabFile(0);
  EXPECT_EQ(fretDans(a), 3);
  EXPECT_TRUE(dialogues.empty());
  EXPECT_EQ(vue(), Vue(-1, false, titre(""), ""));
  EXPECT_FALSE(ftab->entrée("mnuTabEdit_0")->isEnabled());
  // The title bar marks unsaved changes, an undo as well.
  auto* cadre = qobject_cast<QMdiSubWindow*>(ftab->parentWidget());
  EXPECT_FALSE(ftab->isWindowModified());
  tape("3");
  EXPECT_TRUE(ftab->isWindowModified());
  EXPECT_TRUE(cadre->isWindowModified());
  chemins = {dossier.filePath("b.vtb")};
  ftab->MenuTabFile(3);
  EXPECT_FALSE(cadre->isWindowModified()) << "saved";
  touche(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(cadre->isWindowModified()) << "an undo is a change too";

  // The program's exit asks the same; No closes without saving.
  change();
  réponses = {QMessageBox::No};
  vt->MenuGlobalFile(5);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(questions.size(), 7u);
  EXPECT_FALSE(vt->isVisible());
  EXPECT_EQ(fretDans(a), 3);
  ftab = nullptr;
}

// Yes to the question, then a save that does not happen: every command that
// asks stops as on Cancel, and the changes stay in the editor.
TEST_F(Fichiers, ASaveThatDidNotHappenStopsEveryCommandThatAsked) {
  prépare();
  const QString a = fichier("a.vtb", 9);
  const std::vector<std::pair<const char*, std::function<void()>>> appelants = {
      {"new", [this] { ftab->MenuTabFile(0); }},
      {"open", [this] { ftab->MenuTabFile(1); }},
      {"recent file", [&] { ftab->MenuTabFileOpenLast(a); }},
      {"import MIDI", [this] { ftab->mnuTabFileImportMIDI(); }},
      {"import ASCII", [this] { ftab->mnuTabFileImportASCII(); }},
      {"dropped file", [&] { ftab->ouvreFichierDéposé(a); }},
      {"closing the editor", [this] { fermeEditeur(); }},
      {"exit",
       [this] {
         vt->montreFenetre(fen::FAide);
         vt->MenuGlobalFile(5);
         EXPECT_TRUE(vt->isFormLoaded(fen::FAide)) << "the other windows stay open too";
       }},
  };
  ftab->dialogueImport = [](bool, const QString&) {
    ADD_FAILURE() << "the import went on";
    return false;
  };
  change();
  for (const auto& [nomAppelant, lance] : appelants) {
    // The save dialog cancelled, then a folder that does not exist.
    for (const QString& nom : {QString(), dossier.filePath("missing/x.vtb")}) {
      SCOPED_TRACE(std::string(nomAppelant) + (nom.isEmpty() ? ", cancelled" : ", failed"));
      dialogues.clear();
      messages.clear();
      réponses = {QMessageBox::Yes};
      chemins = {nom};
      lance();
      EXPECT_EQ(dialogues.size(), 1u) << "only the save dialog";
      EXPECT_EQ(messages.size(), nom.isEmpty() ? 0u : 1u);
      ASSERT_TRUE(vt->isFormLoaded(fen::FTab));
      EXPECT_TRUE(vt->isVisible());
      EXPECT_EQ(vue(), Vue(3, true, titre(""), ""));
      EXPECT_EQ(fretDans(a), 9);
    }
  }
}

TEST_F(Fichiers, SaveAsNamesTheFileAndAPlainSaveWritesOverIt) {
  prépare();
  const QString a = fichier("a.vtb", 9);
  ftab->MenuTabFileOpenLast(a);
  change();
  // Cancelled, Save as leaves the document unnamed, and the file as it was.
  chemins = {QString()};
  ftab->MenuTabFile(3);
  EXPECT_EQ(vue(), Vue(3, true, titre(""), ""));
  EXPECT_EQ(fretDans(a), 9);
  // A save that fails says why and keeps the changes.
  chemins = {dossier.filePath("missing/folder/e.vtb")};
  ftab->MenuTabFile(2);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_TRUE(messages.front().startsWith(vt->loadString(6122))) << messages.front().toStdString();
  EXPECT_TRUE(doc().modifi);

  // The next plain save asks for a name; the extension is added.
  const QString c = dossier.filePath("c.vtb");
  const QStringList avant = récents();
  chemins = {dossier.filePath("c")};
  ftab->MenuTabFile(2);
  ASSERT_EQ(dialogues.size(), 3u);
  EXPECT_EQ(vue(), Vue(3, false, titre(c), c));
  EXPECT_EQ(fretDans(c), 3);
  EXPECT_EQ(récents(), avant) << "a save does not touch the recent files";

  // Typed over, saved again without a dialog: the file holds the new fret and
  // nothing is left beside it.
  touche(Qt::Key_7);
  touche(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(dialogues.size(), 3u);
  EXPECT_EQ(fretDans(c), 7);
  EXPECT_EQ(QDir(dossier.path()).entryList(QDir::Files), (QStringList{"a.vtb", "c.vtb"}));
}

TEST_F(Fichiers, TheRecentFilesMoveDownOnOpenAndKeepTheirOrderOnReopen) {
  prépare();
  vt->settings().setTabRememberFolder = kVrai;
  QStringList f;
  for (int i = 1; i <= 5; ++i)
    f << fichier(QStringLiteral("f%1.vtb").arg(i), i);
  EXPECT_FALSE(ftab->entrée("mnuTabFile_18")->isVisible());
  for (const QString& c : f) {
    chemins = {c};
    ftab->MenuTabFile(1);
  }
  EXPECT_EQ(récents(), (QStringList{f[4], f[3], f[2], f[1]}));
  EXPECT_EQ(vt->settings().setTabFolderOpen, dossier.path() + "/");
  EXPECT_EQ(dialogues.back(), dossier.path() + "/") << "the folder is remembered";
  EXPECT_TRUE(ftab->entrée("mnuTabFile_18")->isVisible());
  QAction* trois = ftab->entrée("mnuTabFile_21");
  EXPECT_EQ(trois->text(), "&3 " + f[2]);

  // Entry 3 reopened: its file is open, the list as it was.
  trois->trigger();
  EXPECT_EQ(fret(1, 1, 0), 3);
  EXPECT_EQ(récents(), (QStringList{f[4], f[3], f[2], f[1]}));

  // A recent file gone: its message, and the changed document stays, unasked.
  change();
  QFile::remove(f[1]);
  ftab->entrée("mnuTabFile_22")->trigger();
  EXPECT_EQ(messages, std::vector<QString>{"This file is missing."});
  EXPECT_TRUE(questions.empty());
  EXPECT_EQ(fret(1, 1, 0), 3);
}

TEST_F(Fichiers, FilesThatCannotBeReadSayWhyWithTheCriticalIconAndKeepTheDocument) {
  prépare();
  const QString a = fichier("a.vtb", 9);
  ftab->MenuTabFileOpenLast(a);
  const QString abîmé = dossier.filePath("abime.vtb");
  QFile::copy(a, abîmé);
  QFile::resize(abîmé, QFileInfo(a).size() / 2);
  const struct {
    const char* nom;
    QByteArray octets;
    std::vector<QString> messages;
  } kCas[] = {
      {"vide.vtb", "", {"Bad file size!", "This is not a VTB file!"}},
      {"texte.vtb", "not a tablature", {"This is not a VTB file!"}},
      {"vieux.vtb", QByteArray("VTB\x03", 4), {"Too old VTB file!"}},
      {"neuf.vtb", QByteArray("VTB\x09", 4), {vt->loadString(6014)}},
      {"absent.vtb", {}, {"This file is missing."}},
  };
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.nom);
    const QString chemin = c.octets.isNull() ? dossier.filePath(c.nom) : écrire(c.nom, c.octets);
    messages.clear();
    icônes.clear();
    ftab->MenuTabFileOpenLast(chemin);
    EXPECT_EQ(messages, c.messages);
    EXPECT_EQ(icônes, std::vector<QMessageBox::Icon>(c.messages.size(), QMessageBox::Critical));
  }
  // A damaged file opened: the document stays, without its name.
  chemins = {abîmé};
  ftab->MenuTabFile(1);
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(vue(), Vue(9, false, titre(""), ""));
}

// An opened piece brings the instrument of its tracks; new documents, new
// tracks and old files without a sound of their own take the chosen one.
TEST_F(Fichiers, AnOpenedPieceBringsTheInstrumentOfItsTracksAndOldOnesTheChosenSound) {
  prépare();
  vt->settings().setMIDIinstru = 40;
  ftab->MenuTabFile(0);
  ftab->mnutabPistes(1);
  EXPECT_EQ(std::pair(doc().getMIDIPatch(1), doc().getMIDIPatch(2)), std::pair(40, 40));
  réponses = {QMessageBox::No};
  struct Piste {
    std::vector<int> cordes;
    int cases, capo;
  };
  const Piste dropD{{64, 59, 55, 50, 45, 38}, 24, 0};
  const Piste inconnue{{65, 60, 56, 51, 46, 41}, 24, 0};
  const Piste basse{{43, 38, 33, 28}, 20, 0};
  const auto écrit = [this](const QString& nom, const std::vector<Piste>& pistes) {
    CVantoroTablature d(vt->guitare());
    for (std::size_t i = 0; i < pistes.size(); ++i) {
      const int p = static_cast<int>(i) + 1;
      if (p > 1) d.addPiste(p - 1, vt->guitare());
      d.setGuitareNbrCordes(p, static_cast<byt>(pistes[i].cordes.size()));
      for (std::size_t c = 0; c < pistes[i].cordes.size(); ++c)
        d.setGuitareCorde(p, static_cast<int>(c) + 1, static_cast<byt>(pistes[i].cordes[c]));
      d.setGuitareNbrCases(p, static_cast<byt>(pistes[i].cases));
      d.setGuitareCapodastre(p, static_cast<byt>(pistes[i].capo));
      d.changePisteNbrCordes(p);
    }
    const QString chemin = dossier.filePath(nom);
    EXPECT_TRUE(io_enregistrer_vtb(d, QFile::encodeName(chemin).toStdString()).ok());
    return chemin;
  };
  const struct {
    const char* quoi;
    QString chemin;
    int instrument;  // of the catalogue; 1, the standard guitar, before each
  } kCas[] = {
      {"the first track, known whole", écrit("a.vtb", {dropD, basse}), 2},
      {"another track when the first is unknown", écrit("b.vtb", {inconnue, basse}), 10},
      {"the tuning even with another capo", écrit("c.vtb", {{dropD.cordes, 24, 3}}), 2},
      {"no track known: the instrument stays", écrit("d.vtb", {inconnue}), 1},
      {"a version 6 track, its strings alone", version6(), 2},
  };
  const CatalogueGuitares catalogue =
      CatalogueGuitares::load(QFile::encodeName(vt->strAppPath() + "vt.ini").toStdString());
  for (const auto& c : kCas) {
    SCOPED_TRACE(c.quoi);
    vt->settings().setGuitare = 1;
    vt->loadGuitare(1);
    ftab->MenuTabFileOpenLast(c.chemin);
    ASSERT_EQ(ftab->fichier(), c.chemin);
    EXPECT_EQ(vt->settings().setGuitare, c.instrument);
    const tGuitare attendu = catalogue.loadGuitare(c.instrument, vt->setLang());
    EXPECT_EQ(vt->guitare().nbrCordes, attendu.nbrCordes);
    EXPECT_EQ(vt->guitare().corde, attendu.corde);
  }
  EXPECT_EQ(doc().getMIDIPatch(1), 40) << "the version 6 file";
}

TEST_F(Fichiers, TheDialogsOpenAmongTheUsersDocumentsThenInTheRememberedFolder) {
  prépare();
  change();
  chemins = {dossier.filePath("premier.vtb")};
  ftab->MenuTabFile(2);
  ASSERT_EQ(dialogues.size(), 1u);
  EXPECT_EQ(dialogues[0], dossierDocuments()) << "not the program's folder";
  EXPECT_NE(dialogues[0], vt->strAppPath());
  // The folder of that save is the next dialog's; without the folder kept, or
  // with a folder gone, the documents again (a named piece: its name).
  const std::pair<std::function<void()>, QString> kCas[] = {
      {[this] { ftab->MenuTabFile(1); }, dossier.path() + "/"},
      {[this] {
         vt->settings().setTabFolderOpen = dossier.filePath("gone/");
         ftab->mnuTabFileExportASCII();
       },
       dossier.filePath("premier.txt")},
      {[this] {
         ftab->MenuTabFile(0);
         ftab->mnuTabFileExportMIDI();
       },
       dossierDocuments()},
      {[this] {
         vt->settings().setTabFolderOpen = dossier.path() + "/";
         vt->settings().setTabRememberFolder = kFaux;
         ftab->MenuTabFile(1);
       },
       dossierDocuments()},
  };
  for (const auto& [commande, attendu] : kCas) {
    chemins = {QString()};
    commande();
    EXPECT_EQ(dialogues.back(), attendu);
  }
}

}  // namespace
}  // namespace vt::essai
