// The editor's toolbars: each button does what its menu entry does and shows
// its state; the rhythm, attack and nuance buttons change the note under the
// cursor with undo; the objects' buttons show what stands at the cursor; a
// toolbar floats and docks again, and the hidden ones are remembered.
#include <QAction>
#include <QSignalSpy>
#include <QToolBar>
#include <map>

#include "ftab_banc.h"
#include "ftab_play.h"
#include "ftab_toolbar.h"

namespace vt::essai {
namespace {

using Barres = Editeur;

// A quarter note (48 ticks), fret 5 on string 2 at the start of bar 1, under
// the cursor.
void noteSousLeCurseur(CVantoroTablature& d, FTab& f) {
  const int n = d.setNoteWhole(1, 1, 2, 0, 5, 48);
  d.setNoteVolume(1, 1, 2, n, 127);
  d.setCurseurCorde(2);
  d.setCurseurX(0);
  f.refreshPicture();
  f.tbUpdate();
}

TEST_F(Barres, ARhythmClickGivesTheNoteItsLengthWithUndo) {
  ouvre();
  noteSousLeCurseur(doc(), *ftab);
  QAction* blanche = ftab->bouton("tbRythme", "blanche");
  ASSERT_NE(blanche, nullptr);
  EXPECT_TRUE(ftab->bouton("tbRythme", "noire")->isChecked()) << "the note's length is shown";
  blanche->trigger();
  const int n = doc().searchNote(1, 1, 2, 0);
  EXPECT_EQ(doc().getNoteDurée(1, 1, 2, n), 96);
  EXPECT_EQ(doc().getNoteCase(1, 1, 2, n), 5);
  EXPECT_TRUE(blanche->isChecked());
  EXPECT_FALSE(ftab->bouton("tbRythme", "noire")->isChecked()) << "one length at a time";
  EXPECT_TRUE(doc().modifi);
  ftab->bouton("tbToolbar", "undo")->trigger();
  EXPECT_EQ(doc().getNoteDurée(1, 1, 2, doc().searchNote(1, 1, 2, 0)), 48);
}

// The options dialog, writing down the page it was opened on.
class OptionsEssai : public FenetreEssai, public FenetreOptions {
 public:
  OptionsEssai(VT& v, Journal& j) : FenetreEssai(v, fen::FOptions, j) {}
  void selectTab(const QString& clé) override { m_j.push_back("FOptions " + clé); }
};

// A player that plays nothing, for the play buttons.
class JoueurMuet : public JoueurTab {
 public:
  void start(const CVantoroTablature&, PlayArrays&, const OptionsJeu&, const DemandeJeu&) override {
  }
  void stop() override {}
  std::int32_t x() override { return 0; }
  std::int32_t mesure() override { return 1; }
  std::int32_t renvoi() override { return 0; }
  std::int32_t note(std::int16_t) override { return 0; }
  std::int32_t durée(std::int16_t) override { return 0; }
  void piste(std::int16_t) override {}
};

// What a button stands for: a menu entry it runs (and, with `code` 1, is down
// after), the length, attack, nuance or effect code it writes, a play button,
// the options' page, the first track.
enum class Genre { Entrée, Durée, Attaque, Nuance, Effet, Jeu, Options, Piste };
struct Bouton {
  const char* barre;
  const char* clé;
  Genre genre;
  const char* entrée;
  int code;
};

// Every button of the seven toolbars, as the toolbars' table and the codes'
// tables give them.
const std::vector<Bouton> kBoutons = {
    {"tbToolbar", "nouveau", Genre::Entrée, "mnuTabFile_0", 0},
    {"tbToolbar", "ouvrir", Genre::Entrée, "mnuTabFile_1", 0},
    {"tbToolbar", "enregistrer", Genre::Entrée, "mnuTabFile_2", 0},
    {"tbToolbar", "imprimer", Genre::Entrée, "mnuTabFile_11", 0},
    {"tbToolbar", "preview", Genre::Entrée, "mnuTabFile_12", 0},
    {"tbToolbar", "pagesetup", Genre::Entrée, "mnuTabFile_14", 0},
    {"tbToolbar", "proprietes", Genre::Entrée, "mnuTabEdit_13", 0},
    {"tbToolbar", "joue", Genre::Jeu, "mnuTabPlay_0", 0},
    {"tbToolbar", "jouemarker", Genre::Jeu, "mnuTabPlay_3", 0},
    {"tbToolbar", "arriere", Genre::Entrée, "mnuTabPlay_1", 0},
    {"tbToolbar", "avant", Genre::Entrée, "mnuTabPlay_2", 0},
    {"tbToolbar", "record", Genre::Jeu, "mnuTabPlay_10", 0},
    {"tbToolbar", "couper", Genre::Entrée, "mnuTabEdit_3", 0},
    {"tbToolbar", "copier", Genre::Entrée, "mnuTabEdit_4", 0},
    {"tbToolbar", "coller", Genre::Entrée, "mnuTabEdit_5", 0},
    {"tbToolbar", "undo", Genre::Entrée, "mnuTabEdit_0", 0},
    {"tbToolbar", "redo", Genre::Entrée, "mnuTabEdit_1", 0},
    {"tbToolbar", "view_mode_1", Genre::Entrée, "mnuTabDisplay_0", 1},
    {"tbToolbar", "view_mode_2", Genre::Entrée, "mnuTabDisplay_1", 1},
    {"tbToolbar", "view_mode_3", Genre::Entrée, "mnuTabDisplay_2", 1},
    {"tbToolbar", "view_mode_4", Genre::Entrée, "mnuTabDisplay_3", 1},
    {"tbToolbar", "view_mode_triolet", Genre::Entrée, "mnuTabDisplay_4", 1},
    {"tbToolbar", "options", Genre::Options, "mnuTabFile_16", 0},
    {"tbToolbar", "redraw", Genre::Entrée, "mnuTabDisplay_10", 0},
    {"tbGeneral", "texte", Genre::Entrée, "mnuTabTool_4", 0},
    {"tbGeneral", "accord", Genre::Entrée, "mnuTabTool_5", 0},
    {"tbGeneral", "accordcreate", Genre::Entrée, "mnuTabTool_6", 0},
    {"tbGeneral", "signature", Genre::Entrée, "mnuTabEdit_16", 0},
    {"tbGeneral", "loop", Genre::Entrée, "mnuTabEdit_18", 0},
    {"tbGeneral", "tempo", Genre::Entrée, "mnuTabEdit_19", 0},
    {"tbEffet", "hammer-on", Genre::Effet, nullptr, 3},
    {"tbEffet", "pull-off", Genre::Effet, nullptr, 4},
    {"tbEffet", "slide up", Genre::Effet, nullptr, 1},
    {"tbEffet", "slide down", Genre::Effet, nullptr, 2},
    {"tbEffet", "vibrato", Genre::Effet, nullptr, 9},
    {"tbEffet", "bendup", Genre::Effet, nullptr, 20},
    {"tbEffet", "bendupdn", Genre::Effet, nullptr, 21},
    {"tbEffet", "bendreturn", Genre::Effet, nullptr, 22},
    {"tbEffet", "benddn", Genre::Effet, nullptr, 23},
    {"tbEffet", "tremolo", Genre::Effet, nullptr, 24},
    {"tbEffet", "trill", Genre::Effet, nullptr, 25},
    {"tbEffet", "liaison", Genre::Effet, nullptr, 27},
    {"tbRythme", "ronde", Genre::Durée, nullptr, 192},
    {"tbRythme", "blanche", Genre::Durée, nullptr, 96},
    {"tbRythme", "noire", Genre::Durée, nullptr, 48},
    {"tbRythme", "croche", Genre::Durée, nullptr, 24},
    {"tbRythme", "double", Genre::Durée, nullptr, 12},
    {"tbRythme", "triple", Genre::Durée, nullptr, 6},
    {"tbRythme", "pointée", Genre::Durée, nullptr, 72},  // on a quarter
    {"tbRythme", "triolet", Genre::Durée, nullptr, 32},
    {"tbAttaque", "attaque none", Genre::Attaque, nullptr, 0},
    {"tbAttaque", "attaque tap", Genre::Attaque, nullptr, 3},
    {"tbAttaque", "attaque slap", Genre::Attaque, nullptr, 4},
    {"tbAttaque", "attaque pop", Genre::Attaque, nullptr, 5},
    {"tbAttaque", "attaque harm", Genre::Attaque, nullptr, 1},
    {"tbAttaque", "attaque ah", Genre::Attaque, nullptr, 2},
    {"tbAttaque", "attaque up", Genre::Attaque, nullptr, 7},
    {"tbAttaque", "attaque dn", Genre::Attaque, nullptr, 8},
    {"tbAttaque", "attaque dead note", Genre::Attaque, nullptr, 9},
    {"tbAttaque", "attaque palmmute", Genre::Attaque, nullptr, 6},
    {"tbAttaque", "attaque brush up", Genre::Attaque, nullptr, 10},
    {"tbAttaque", "attaque brush dn", Genre::Attaque, nullptr, 11},
    {"tbVolume", "ppp", Genre::Nuance, nullptr, 15},
    {"tbVolume", "pp", Genre::Nuance, nullptr, 31},
    {"tbVolume", "p", Genre::Nuance, nullptr, 47},
    {"tbVolume", "mp", Genre::Nuance, nullptr, 63},
    {"tbVolume", "mf", Genre::Nuance, nullptr, 79},
    {"tbVolume", "f", Genre::Nuance, nullptr, 95},
    {"tbVolume", "ff", Genre::Nuance, nullptr, 111},
    {"tbVolume", "fff", Genre::Nuance, nullptr, 127},
    {"tbPistes", "add", Genre::Entrée, "mnutabPistes_1", 0},
    {"tbPistes", "remove", Genre::Entrée, "mnutabPistes_2", 0},
    {"tbPistes", "properties", Genre::Entrée, "mnutabPistes_3", 0},
    {"tbPistes", "1", Genre::Piste, nullptr, 1},
};

// The value of the note at (1, 1, 2, 0) that a button of this kind writes,
// and the same set directly.
int valeur(const CVantoroTablature& d, Genre g) {
  const tNote* n = d.getNote(1, 1, 2, d.searchNote(1, 1, 2, 0));
  if (n == nullptr) return -1;
  switch (g) {
    case Genre::Durée:
      return n->bytDurée;
    case Genre::Attaque:
      return n->bytAttaque;
    case Genre::Nuance:
      return n->bytVolume;
    default:
      return n->bytEffet;
  }
}
void donne(CVantoroTablature& d, Genre g, int v) {
  const int n = d.searchNote(1, 1, 2, 0);
  switch (g) {
    case Genre::Durée:
      d.setNoteDurée(1, 1, 2, n, static_cast<byt>(v));
      break;
    case Genre::Attaque:
      d.setNoteAttaque(1, 1, 2, n, static_cast<byt>(v));
      break;
    case Genre::Nuance:
      d.setNoteVolume(1, 1, 2, n, static_cast<byt>(v));
      break;
    default:
      d.setNoteEffet(1, 1, 2, n, static_cast<byt>(v));
      break;
  }
}

TEST_F(Barres, EveryButtonWritesItsCodeAndShowsTheStateOfTheNoteUnderTheCursor) {
  ouvre();
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT& v) { return new OptionsEssai(v, journal); },
      RegistreFenetres::Genre::Dialogue);
  ftab->lecture().joueur = std::make_unique<JoueurMuet>();
  ftab->setOuvreDialogue(
      [](DialogueTab) { return false; },
      {DialogueTab::Proprietes, DialogueTab::ProprietesPiste, DialogueTab::Transpose,
       DialogueTab::Signature, DialogueTab::Tonalite, DialogueTab::BarresMesure, DialogueTab::Tempo,
       DialogueTab::Texte, DialogueTab::Accord});
  ftab->question = [](const QString&, QMessageBox::StandardButtons) { return QMessageBox::No; };
  ftab->choisitFichier = [](bool, const QString&, const QString&, const QString&) {
    return QString();
  };
  ftab->dialogueImpression = [](QPrinter&, int) { return false; };
  ftab->ouvreApercu = [] {};
  ftab->ouvreMiseEnPage = [] { return false; };

  // The table covers every button there is.
  std::map<QString, const Bouton*> parClé;
  for (const Bouton& b : kBoutons)
    parClé[QString::fromUtf8(b.barre) + "/" + QString::fromUtf8(b.clé)] = &b;
  for (const char* nom :
       {"tbToolbar", "tbGeneral", "tbEffet", "tbRythme", "tbAttaque", "tbVolume", "tbPistes"})
    for (QAction* a : ftab->barre(nom)->actions()) {
      if (a->isSeparator()) continue;
      const QString clé = QString::fromUtf8(nom) + "/" + a->objectName().section('_', 1);
      EXPECT_TRUE(parClé.count(clé)) << clé.toStdString() << " has no row";
    }

  for (const Bouton& b : kBoutons) {
    SCOPED_TRACE(std::string(b.barre) + " " + b.clé);
    // A quarter, fret 5, on string 2 under the cursor, in a new document.
    ftab->DebugInitialisation();
    noteSousLeCurseur(doc(), *ftab);
    QAction* bouton = ftab->bouton(b.barre, QString::fromUtf8(b.clé));
    ASSERT_NE(bouton, nullptr);
    switch (b.genre) {
      case Genre::Entrée: {
        QAction* e = ftab->entrée(b.entrée);
        ASSERT_NE(e, nullptr);
        EXPECT_EQ(bouton->isEnabled(), e->isEnabled()) << "available as its entry";
        if (!e->isEnabled()) break;
        QSignalSpy lancée(e, &QAction::triggered);
        bouton->trigger();
        EXPECT_EQ(lancée.count(), 1);
        if (b.code == 1) {
          EXPECT_TRUE(bouton->isChecked());
        }
        break;
      }
      case Genre::Durée:
      case Genre::Attaque:
      case Genre::Nuance:
      case Genre::Effet: {
        // Shown: the note under the cursor has the code; its button is down,
        // the only one of an exclusive group.
        donne(doc(), b.genre, b.code);
        ftab->tbUpdate();
        EXPECT_TRUE(bouton->isChecked());
        if (b.genre != Genre::Durée)
          for (QAction* a : ftab->barre(b.barre)->actions())
            if (a != bouton) {
              EXPECT_FALSE(a->isChecked()) << a->objectName().toStdString();
            }
        // Written: from another value, the click gives the note the code.
        const int autre = b.genre == Genre::Durée     ? (b.code == 48 ? 24 : 48)
                          : b.genre == Genre::Nuance  ? (b.code == 127 ? 15 : 127)
                          : b.genre == Genre::Attaque ? (b.code == 0 ? 3 : 0)
                                                      : 0;
        donne(doc(), b.genre, autre);
        ftab->tbUpdate();
        bouton->trigger();
        EXPECT_EQ(valeur(doc(), b.genre), b.code);
        EXPECT_TRUE(bouton->isChecked());
        // And a note typed next takes the length, attack or nuance.
        if (b.genre != Genre::Effet) {
          curseur(1, 0, 4);
          tape("7");
          const tNote* n = note(1, 4, 0);
          ASSERT_NE(n, nullptr);
          const int pris = b.genre == Genre::Durée     ? n->bytDurée
                           : b.genre == Genre::Attaque ? n->bytAttaque
                                                       : n->bytVolume;
          EXPECT_EQ(pris, b.code);
        }
        break;
      }
      case Genre::Jeu: {
        if (QString(b.clé) == "jouemarker") doc().setMarqueurStop(1, 96);
        const auto état = [&] {
          return QString(b.clé) == "record" ? ftab->enregistre() : ftab->isPlaying();
        };
        bouton->trigger();
        EXPECT_TRUE(état());
        EXPECT_TRUE(bouton->isChecked());
        EXPECT_EQ(ftab->lecture().marker, QString(b.clé) == "jouemarker");
        bouton->trigger();
        EXPECT_FALSE(état());
        EXPECT_FALSE(bouton->isChecked());
        break;
      }
      case Genre::Options:
        EXPECT_EQ(bouton->isEnabled(), ftab->entrée(b.entrée)->isEnabled());
        journal.clear();
        bouton->trigger();
        EXPECT_TRUE(contient(journal, "FOptions KeyTab"));
        break;
      case Genre::Piste:
        EXPECT_TRUE(bouton->isChecked()) << "the current track's button is down";
        ftab->mnutabPistes(1);
        ASSERT_EQ(doc().CurseurPiste(), 2);
        bouton = ftab->bouton(b.barre, QString::fromUtf8(b.clé));  // rebuilt with the tracks
        ASSERT_NE(bouton, nullptr);
        EXPECT_FALSE(bouton->isChecked());
        bouton->trigger();
        EXPECT_EQ(doc().CurseurPiste(), 1);
        EXPECT_TRUE(bouton->isChecked());
        break;
    }
  }
}

TEST_F(Barres, TheObjectsButtonsShowWhatStandsAtTheCursor) {
  ouvre();
  QAction* tempo = ftab->bouton("tbGeneral", "tempo");
  EXPECT_FALSE(tempo->isChecked());
  doc().addMesure();
  ASSERT_TRUE(doc().setMesureTempo(2, 0, 90));
  curseur(2, 0, 1);
  ftab->tbUpdate();
  EXPECT_TRUE(tempo->isChecked());
  touche(Qt::Key_Left);
  EXPECT_FALSE(tempo->isChecked());
}

TEST_F(Barres, AFloatingToolbarSharesItsButtonsAndDocksWhenClosed) {
  ouvre();
  FTabToolBar* f = ftab->détacheBarre("tbRythme");
  ASSERT_NE(f, nullptr);
  EXPECT_EQ(ftab->Find_tabFloatingToolBars("tbRythme"), f);
  EXPECT_TRUE(ftab->barre("tbRythme")->isHidden());
  EXPECT_EQ(f->barre()->actions(), ftab->barre("tbRythme")->actions());
  // The cursor's note moves the floating buttons as it moved the docked ones.
  doc().setNoteWhole(1, 1, 1, 24, 7, 12);
  touche(Qt::Key_Right);
  ASSERT_EQ(doc().CurseurX(), 24);
  EXPECT_TRUE(ftab->bouton("tbRythme", "double")->isChecked());
  EXPECT_TRUE(f->barre()->actions()[4]->isChecked());

  // Hidden from the View menu, the floating window hides; closed, it docks.
  ftab->mnuTabDisplayToolbar(2);
  EXPECT_FALSE(f->isVisible());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplayToolbar_2")->isChecked());
  ftab->mnuTabDisplayToolbar(2);
  f->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(ftab->Find_tabFloatingToolBars("tbRythme"), nullptr);
  EXPECT_FALSE(ftab->barre("tbRythme")->isHidden());

  // The track buttons, rebuilt with the tracks, reach the floating track bar.
  FTabToolBar* pistes = ftab->détacheBarre("tbPistes");
  ftab->mnutabPistes(1);
  EXPECT_EQ(pistes->barre()->actions(), ftab->barre("tbPistes")->actions());
  EXPECT_EQ(pistes->barre()->actions().size(), 6);
}

TEST_F(Barres, HiddenToolbarsAreRememberedForTheNextEditor) {
  ouvre();
  ftab->mnuTabDisplayToolbar(1);  // tbAttaque
  ftab->mnuTabDisplayToolbar(4);  // tbVolume
  EXPECT_TRUE(ftab->barre("tbAttaque")->isHidden());
  EXPECT_FALSE(ftab->entrée("mnuTabDisplayToolbar_1")->isChecked());
  EXPECT_TRUE(ftab->entrée("mnuTabDisplayToolbar_0")->isChecked());
  EXPECT_EQ(vt->settings().cfgTabBarresCachées, "tbAttaque,tbVolume");

  FTab autre(*vt);
  EXPECT_TRUE(autre.barre("tbAttaque")->isHidden());
  EXPECT_TRUE(autre.barre("tbVolume")->isHidden());
  EXPECT_FALSE(autre.barre("tbRythme")->isHidden());
}

TEST_F(Barres, TheOptionsOpenOnTheEditorsPageFromTheButtonAndOnTheLastOneFromTheMenu) {
  ouvre();
  struct Options : QDialog, FenetreOptions {
    explicit Options(Journal& j) : m_j(j) {}
    void Form_Load() override { m_j.push_back("load"); }
    void selectTab(const QString& clé) override { m_j.push_back("tab " + clé); }
    Journal& m_j;
  };
  vt->fenetres().enregistrer(
      fen::FOptions, [this](VT&) { return new Options(journal); },
      RegistreFenetres::Genre::Dialogue);
  journal.clear();
  ftab->bouton("tbToolbar", "options")->trigger();
  EXPECT_EQ(journal, (Journal{"load", "tab KeyTab"}));
  journal.clear();
  ftab->entrée("mnuTabFile_16")->trigger();
  EXPECT_EQ(journal, (Journal{"load"}));
  EXPECT_EQ(modales, (std::vector<QString>{fen::FOptions, fen::FOptions}));
}

}  // namespace
}  // namespace vt::essai
